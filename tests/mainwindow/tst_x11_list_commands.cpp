// frmSearch and the list's popup menu on a display: every control of the search inside the
// dialog with its caption whole, the popup with its entries. With TORVANE_SHOTS naming a
// directory, frmSearch.png and mnuPop.png are written there.
#include "data/Cfg.h"
#include "mainwindow/CatalogueUi.h"
#include "mainwindow/MainMenus.h"
#include "mainwindow/frmSearch.h"
#include "support/CatalogueBytes.h"
#include "support/ProcessState.h"
#include "support/StubWindow.h"
#include "util/Globals.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QMainWindow>
#include <QMenu>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

using namespace tv;

class TstX11ListCommands : public QObject {
    Q_OBJECT
private slots:
    void searchDialogAndPopupMenu()
    {
        tvtest::ProcessState state;
        tvtest::StubWindow stub;
        QTemporaryDir root;
        QVERIFY(root.isValid());
        QDir(root.path()).mkpath("app");
        QDir(root.path()).mkpath("tmp");
        AppDir = root.path() + "/app";
        EnvTmpDir = EnvTempDir = root.path() + "/tmp";
        WindowsDir = "/etc";
        SystemDir = "/usr";
        KeyPrefix = "K";
        TitleClosed = 1;
        SetDefaultCfg(Cfg);
        Cfg.M88Use = 1;
        ResolveCfgDirs(Cfg);
        HardWare = 0;
        QByteArray b = tvtest::LstHeaderBytes(0);
        for (const char* t : {"ザルバード", "イルマータ", "ハルモニカ"}) {
            tvtest::LstFields f;
            f.title = QString::fromUtf8(t);
            f.genre = QStringLiteral("RPG");
            f.start = QStringLiteral("GAME.D88");
            b += tvtest::MakeLstRecord(0, f);
        }
        QVERIFY(tvtest::WriteBytes(AppDir + "/TORVANE.LST", b));

        QMainWindow win;
        MainMenus menus;
        const CatalogueWidgets w = CatalogueUi::BuildStandalone(&win, &menus);
        CatalogueUi ui(w);
        win.resize(1024, 600);
        win.show();
        QVERIFY(QTest::qWaitForWindowExposed(&win));
        ui.LoadList();
        ui.selectRow(1);
        ui.ShowItemDetail();
        const QString shots = qEnvironmentVariable("TORVANE_SHOTS");

        frmSearch s(&ui, &win);
        s.show();
        QVERIFY(QTest::qWaitForWindowExposed(&s));
        QTest::qWait(200);
        const QRect inside = s.rect();
        for (QWidget* c : s.findChildren<QWidget*>()) {
            if (!c->isVisible() || c->objectName().isEmpty())
                continue;
            const QRect g(c->mapTo(&s, QPoint(0, 0)), c->size());
            QVERIFY2(inside.contains(g), qPrintable(c->objectName()));
            if (auto* button = qobject_cast<QAbstractButton*>(c))
                QVERIFY2(button->width() >= button->sizeHint().width(),
                         qPrintable(button->objectName()));
        }
        if (!shots.isEmpty())
            QVERIFY(s.grab().save(shots + "/frmSearch.png"));
        s.close();

        ui.ShowPopup(w.lstD88->viewport()->mapToGlobal(QPoint(40, 40)));
        QMenu* pop = ui.popupMenu();
        QTRY_VERIFY(pop->isVisible());
        QVERIFY(ui.mnuPop("mnuPopDeleteItem")->isEnabled());
        QVERIFY(!ui.mnuPop("mnuPopChangeItem")->isEnabled());
        QVERIFY(ui.mnuPop("mnuPopSort")->isEnabled());
        QTest::qWait(200);
        if (!shots.isEmpty())
            QVERIFY(pop->grab().save(shots + "/mnuPop.png"));
        pop->close();
    }
};

QTEST_MAIN(TstX11ListCommands)
#include "tst_x11_list_commands.moc"
