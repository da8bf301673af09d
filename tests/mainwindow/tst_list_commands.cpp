// The main window's commands on the list: the tracking selection under the pointer, deletion
// with its question and the re-keyed rows, the manual button, Tab out of the list, the entries
// of later dialogs, and frmSearch walking through its hits.
#include "data/Cfg.h"
#include "data/ItemDetail.h"
#include "data/clsLst.h"
#include "mainwindow/CatalogueUi.h"
#include "mainwindow/MainMenus.h"
#include "mainwindow/frmSearch.h"
#include "platform/Shell.h"
#include "support/CatalogueBytes.h"
#include "support/ProcessState.h"
#include "support/ScriptedMsgBox.h"
#include "support/StubWindow.h"
#include "util/Globals.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTextEdit>
#include <optional>

using namespace tv;

class TstListCommands : public QObject {
    Q_OBJECT
private:
    QTemporaryDir root;
    std::optional<tvtest::ProcessState> state;
    QMainWindow* win = nullptr;
    MainMenus menus;
    CatalogueWidgets w;
    CatalogueUi* ui = nullptr;
    std::optional<tvtest::StubWindow> window;

    void writeCatalogue(int n)
    {
        QByteArray b = tvtest::LstHeaderBytes(0);
        for (int i = 0; i < n; ++i) {
            tvtest::LstFields f;
            f.title = QStringLiteral("Title %1").arg(i, 3, 10, QLatin1Char('0'));
            f.genre = i % 3 == 0 ? QStringLiteral("RPG") : QStringLiteral("ACT");
            f.maker = QStringLiteral("Maker %1").arg(i % 4);
            f.start = QStringLiteral("G%1.D88").arg(i);
            f.man = i == 1 ? AppDir + "/MAN1.TXT" : QString();
            b += tvtest::MakeLstRecord(0, f);
        }
        QVERIFY(tvtest::WriteBytes(AppDir + "/TORVANE.LST", b));
    }
    QString title(int row) const { return ui->model()->index(row, 0).data().toString(); }
    void select(int row)
    {
        ui->selectRow(row);
        ui->ShowItemDetail();
    }
    void mouse(QEvent::Type type, const QPoint& pos, Qt::MouseButtons buttons)
    {
        QWidget* vp = w.lstD88->viewport();
        QMouseEvent e(type, QPointF(pos), vp->mapToGlobal(QPointF(pos)),
                      type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, buttons,
                      Qt::NoModifier);
        QApplication::sendEvent(vp, &e);
    }
    QPoint rowCentre(int row) const
    {
        return w.lstD88->visualRect(ui->model()->index(row, 0)).center();
    }

private slots:
    void init()
    {
        QVERIFY(root.isValid());
        state.emplace();
        for (const char* d : {"app", "tmp"})
            QDir(root.path()).mkpath(d);
        AppDir = root.path() + "/app";
        EnvTmpDir = EnvTempDir = root.path() + "/tmp";
        PeekDir = EnvTmpDir + "/TORVBOOT";
        WindowsDir = "/etc";
        SystemDir = "/usr";
        KeyPrefix = "K";
        TitleClosed = 1;
        SetDefaultCfg(Cfg);
        Cfg.P88srUse = Cfg.M88Use = 1;
        Cfg.SortKey = 0;
        ResolveCfgDirs(Cfg);
        NoImagePicture = QImage(8, 8, QImage::Format_RGB32);
        NoImagePicture.fill(Qt::gray);
        HardWare = 0;
        writeCatalogue(60);
        win = new QMainWindow;
        w = CatalogueUi::BuildStandalone(win, &menus);
        window.emplace();
        ui = new CatalogueUi(w, win);
        win->resize(900, 420);
        win->show();
        QVERIFY(QTest::qWaitForWindowExposed(win));
        ui->LoadList();
    }
    void cleanup()
    {
        delete win;
        win = nullptr;
        window.reset();
        state.reset();
        QDir(root.path()).removeRecursively();
    }

    void trackingSelectionFollowsThePointerAndScrollsAtTheBottom()
    {
        select(0);
        QScrollBar* bar = w.lstD88->verticalScrollBar();
        QCOMPARE(bar->value(), 0);
        mouse(QEvent::MouseButtonPress, rowCentre(1), Qt::LeftButton);
        QVERIFY(ui->tracking());
        QCOMPARE(ui->model()->dropHighlight(), 1);
        QCOMPARE(ui->selectedRow(), -1); // the selection waits for the release
        QCOMPARE(ui->model()->index(1, 0).data(Qt::BackgroundRole).value<QBrush>(),
                 QGuiApplication::palette().brush(QPalette::Active, QPalette::Highlight));
        mouse(QEvent::MouseMove, rowCentre(3), Qt::LeftButton);
        QCOMPARE(ui->model()->dropHighlight(), 3);
        QCOMPARE(ui->selectedRow(), -1);
        // Below the last visible row: the list scrolls by a line, and goes on scrolling while
        // the pointer stands there.
        const int h = w.lstD88->viewport()->height();
        mouse(QEvent::MouseMove, QPoint(10, h + 5), Qt::LeftButton);
        QCOMPARE(bar->value(), 1);
        const int lastVisible = w.lstD88->rowAt(h - 1);
        QCOMPARE(ui->model()->dropHighlight(), lastVisible);
        QTRY_VERIFY(bar->value() >= 4);
        const int row = ui->model()->dropHighlight();
        QVERIFY(row > lastVisible);
        QCOMPARE(row, w.lstD88->rowAt(h - 1));
        mouse(QEvent::MouseButtonRelease, QPoint(10, h + 5), Qt::NoButton);
        QVERIFY(!ui->tracking());
        const int chosen = ui->selectedRow();
        QVERIFY(chosen >= row);
        QCOMPARE(ui->model()->dropHighlight(), -1);
        QVERIFY(w.txtSyosai->toPlainText().contains(title(chosen)));
        QVERIFY(ui->statusPanel1()->text().startsWith(title(chosen) + QStringLiteral("選択中")));
        // Once released, the list stays where it is.
        const int value = bar->value();
        QTest::qWait(150);
        QCOMPARE(bar->value(), value);
    }

    void trackingAboveTheFirstRowScrollsUp()
    {
        w.lstD88->scrollTo(ui->model()->index(30, 0), QAbstractItemView::PositionAtTop);
        QScrollBar* bar = w.lstD88->verticalScrollBar();
        const int start = bar->value();
        QVERIFY(start > 5);
        mouse(QEvent::MouseButtonPress, rowCentre(31), Qt::LeftButton);
        mouse(QEvent::MouseMove, QPoint(10, -5), Qt::LeftButton);
        QCOMPARE(bar->value(), start - 1);
        QCOMPARE(ui->model()->dropHighlight(), w.lstD88->rowAt(0));
        mouse(QEvent::MouseMove, rowCentre(w.lstD88->rowAt(0) + 2), Qt::LeftButton);
        const int expected = w.lstD88->rowAt(0) + 2;
        mouse(QEvent::MouseButtonRelease, rowCentre(expected), Qt::NoButton);
        QCOMPARE(ui->selectedRow(), expected);
        QVERIFY(w.txtSyosai->toPlainText().contains(title(expected)));
    }

    void aClickSelectsTheRowAndKeysStillMoveTheSelection()
    {
        QTest::mouseClick(w.lstD88->viewport(), Qt::LeftButton, {}, rowCentre(2));
        QCOMPARE(ui->selectedRow(), 2);
        QVERIFY(w.txtSyosai->toPlainText().contains(title(2)));
        w.lstD88->setFocus();
        QTest::keyClick(w.lstD88, Qt::Key_Down);
        QCOMPARE(ui->selectedRow(), 3);
        QVERIFY(w.txtSyosai->toPlainText().contains(title(3)));
    }

    void tabLeavesTheList()
    {
        QVERIFY(!w.lstD88->tabKeyNavigation());
        win->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(win));
        select(2);
        w.lstD88->setFocus();
        QVERIFY(w.lstD88->hasFocus());
        QTest::keyClick(w.lstD88, Qt::Key_Tab);
        QVERIFY(!w.lstD88->hasFocus());
        QCOMPARE(ui->selectedRow(), 2);
    }

    void deletionAsksThenRemovesAndReKeys()
    {
        tvtest::ScriptedMsgBox boxes;
        select(1);
        const QString t = title(1);
        boxes.answer(MbResNo);
        ui->mnuPopDeleteItem_Click();
        QCOMPARE(ui->model()->rowCount(), 60);
        QCOMPARE(boxes.calls().size(), size_t(1));
        QCOMPARE(boxes.calls()[0].text,
                 QStringLiteral("Title [ ") + t + QStringLiteral(" ]\n削除してよろしいですか？"));
        QCOMPARE(boxes.calls()[0].flags, 292);
        boxes.answer(MbResYes);
        ui->mnuPopDeleteItem_Click();
        QCOMPARE(ui->model()->rowCount(), 59);
        QCOMPARE(title(1), QStringLiteral("Title 002"));
        QCOMPARE(KeyPrefix, QStringLiteral("Y"));
        QCOMPARE(ui->model()->key(1), QStringLiteral("Y%1").arg(25 + 2284));
        QCOMPARE(
            win->windowTitle(),
            QStringLiteral("TORVANE　- Torvane for PC8801mk2SR on MS Windows - ( 59 Images )"));
        QCOMPARE(ui->selectedRow(), -1);
        QCOMPARE(ui->statusPanel1()->text(), kNothingSelectedText);
        QVERIFY(!ui->mnuPop("mnuPopDeleteItem")->isEnabled());
        QVERIFY(!menus.mnuEditDeleteItem->isEnabled());
        QCOMPARE(QFile(AppDir + "/TORVANE.LST").size(), 24 + 59 * 2284);
        QVERIFY(QApplication::overrideCursor() == nullptr);
    }

    void deleteKeyDeletesTheSelectedTitle()
    {
        tvtest::ScriptedMsgBox boxes;
        QTest::keyClick(w.lstD88, Qt::Key_Delete); // nothing selected: the entry is off
        QVERIFY(boxes.calls().empty());
        select(0);
        QVERIFY(ui->mnuPop("mnuPopDeleteItem")->isEnabled());
        QVERIFY(menus.mnuEditDeleteItem->isEnabled());
        boxes.answer(MbResYes);
        QTest::keyClick(w.lstD88, Qt::Key_Delete);
        QCOMPARE(ui->model()->rowCount(), 59);
        QCOMPARE(title(0), QStringLiteral("Title 001"));
        QCOMPARE(ui->model()->key(0), QStringLiteral("Y25"));
    }

    void aCatalogueThatCannotBeWrittenRefusesTheDeletion()
    {
        tvtest::ScriptedMsgBox boxes;
        select(0);
        const QString lst = AppDir + "/TORVANE.LST";
        const QByteArray before = tvtest::ReadBytes(lst);
        QFile::setPermissions(lst, QFile::ReadOwner);
        boxes.answer(MbResYes);
        ui->mnuPopDeleteItem_Click();
        QFile::setPermissions(lst, QFile::ReadOwner | QFile::WriteOwner);
        QCOMPARE(tvtest::ReadBytes(lst), before);
        QCOMPARE(ui->model()->rowCount(), 60);
        QCOMPARE(ui->model()->key(1), QStringLiteral("K%1").arg(25 + 2284));
        QCOMPARE(KeyPrefix, QStringLiteral("K"));
        QCOMPARE(boxes.calls().size(), size_t(2));
        QCOMPARE(boxes.calls()[1].flags, int(MbExclamation));
        QVERIFY(QApplication::overrideCursor() == nullptr);
    }

    void manualButtonOpensTheTitlesManual()
    {
        QVERIFY(tvtest::WriteBytes(AppDir + "/MAN1.TXT", "manual"));
        std::vector<QString> opened;
        const UrlOpener previous = SetUrlOpener([&](const QUrl& u) {
            opened.push_back(u.toLocalFile());
            return true;
        });
        select(0);
        QVERIFY(!ui->cmdManFile(0)->isEnabled());
        select(1);
        QVERIFY(ui->cmdManFile(0)->isEnabled());
        QTest::mouseClick(ui->cmdManFile(0), Qt::LeftButton);
        menus.mnuEmuRunMan->trigger();
        SetUrlOpener(previous);
        QCOMPARE(opened.size(), size_t(2));
        QCOMPARE(opened[0], AppDir + "/MAN1.TXT");
    }

    void registrationWaitsForTheMainWindow()
    {
        // Registration needs the main window, which a bare catalogue window doesn't have;
        // the program options are there.
        QVERIFY(menus.mnuOptionTORVOp->isEnabled());
        QVERIFY(!menus.mnuOptionTORVOp->toolTip().contains(QStringLiteral("後の版")));
        for (QAction* a :
             {menus.mnuEditAddItem, menus.mnuEditChangeItem, ui->mnuPop("mnuPopChangeItem")})
            QVERIFY(!a->isEnabled());
        QVERIFY(menus.mnuEditSearch->isEnabled());
        QVERIFY(ui->cmdHelpContext(0) != nullptr);
    }

    void searchHasItsControls()
    {
        frmSearch s(ui, win);
        for (const char* name :
             {"txtFindText", "optTSerch", "optGMSerch", "optSelectSerch", "optTopSerch", "chkMatch",
              "cmdSerch", "cmdCancel", "cmdHelpContext"})
            QVERIFY2(s.findChild<QWidget*>(name), name);
        QVERIFY(s.optTSerch->isChecked());
        QVERIFY(s.optSelectSerch->isChecked());
        QVERIFY(!s.chkMatch->isChecked());
    }

    void repeatedSearchesWalkThroughTheHits()
    {
        frmSearch s(ui, win);
        s.txtFindText->setText(QStringLiteral("title 01")); // rows 10 to 19, partial, any case
        QCOMPARE(s.cmdSerch_Click(), 10);
        QCOMPARE(ui->selectedRow(), 10);
        QVERIFY(w.txtSyosai->toPlainText().contains(QStringLiteral("Title 010")));
        QCOMPARE(s.cmdSerch_Click(), 11);
        QCOMPARE(s.cmdSerch_Click(), 12);
        // From the top again.
        s.optTopSerch->setChecked(true);
        QCOMPARE(s.cmdSerch_Click(), 10);
        QCOMPARE(s.cmdSerch_Click(), 10);
    }

    void searchOverSubItemsAndWholeText()
    {
        frmSearch s(ui, win);
        s.optGMSerch->setChecked(true);
        s.chkMatch->setChecked(true);
        s.txtFindText->setText(QStringLiteral("maker 3"));
        QCOMPARE(s.cmdSerch_Click(), 3);
        QCOMPARE(s.cmdSerch_Click(), 7);
        s.txtFindText->setText(QStringLiteral("maker"));
        QCOMPARE(s.cmdSerch_Click(), -1); // whole text only
        QCOMPARE(ui->selectedRow(), 7);   // no hit changes nothing
        s.chkMatch->setChecked(false);
        s.txtFindText->setText(QStringLiteral("rpg"));
        QCOMPARE(s.cmdSerch_Click(), 9);
    }

    void blankTextAndTheLastRowFindNothing()
    {
        frmSearch s(ui, win);
        select(5);
        s.txtFindText->setText(QStringLiteral("   "));
        QCOMPARE(s.cmdSerch_Click(), -1);
        QCOMPARE(ui->selectedRow(), 5);
        select(59);
        s.txtFindText->setText(QStringLiteral("Title"));
        QCOMPARE(s.cmdSerch_Click(), -1);
        QCOMPARE(ui->selectedRow(), 59);
        // The found row is scrolled into view.
        s.optTopSerch->setChecked(true);
        s.txtFindText->setText(QStringLiteral("Title 000"));
        QCOMPARE(s.cmdSerch_Click(), 0);
        QCOMPARE(w.lstD88->verticalScrollBar()->value(), 0);
    }
};

QTEST_MAIN(TstListCommands)
#include "tst_list_commands.moc"
