// The catalogue on a bare main window: fill, counts, sorts through clicks and menus, the
// remembered selection, the detail pane's enabling and the footer switches.
#include "data/Cfg.h"
#include "data/ItemDetail.h"
#include "data/clsLst.h"
#include "mainwindow/CatalogueUi.h"
#include "mainwindow/MainMenus.h"
#include "util/Globals.h"
#include "support/CatalogueBytes.h"
#include "support/ScriptedMsgBox.h"
#include "support/StubWindow.h"

#include <QAction>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QMainWindow>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTextEdit>
#include <optional>

using namespace tv;

class TstCatalogueUi : public QObject {
    Q_OBJECT
private:
    QTemporaryDir root;
    QMainWindow* win = nullptr;
    MainMenus menus;
    CatalogueWidgets w;
    CatalogueUi* ui = nullptr;
    std::optional<tvtest::StubWindow> window; // records the splash counts and failed starts

    void writeCatalogue()
    {
        QByteArray b = tvtest::LstHeaderBytes(0);
        const char* titles[] = {"ザルバード", "イルマータ", "ハルモニカ"};
        const char* starts[] = {"XALBARD.D88", "YULA.T88", "HARMONI.CMT"};
        const char* makers[] = {"Fanrock", "fanrock", "T&K"};
        for (int i = 0; i < 3; ++i) {
            tvtest::LstFields f;
            f.title = QString::fromUtf8(titles[i]);
            f.maker = QString::fromUtf8(makers[i]);
            f.start = starts[i];
            f.jitu = QStringLiteral("C:\\GAMES\\PC88\\") + starts[i];
            f.man = i == 0 ? QStringLiteral("MAN.TXT") : QString();
            b += tvtest::MakeLstRecord(0, f);
        }
        QVERIFY(tvtest::WriteBytes(AppDir + "/TORVANE.LST", b));
    }
    QStringList titles() const
    {
        QStringList out;
        for (int r = 0; r < ui->model()->rowCount(); ++r)
            out << ui->model()->index(r, 0).data().toString();
        return out;
    }
    void select(int row)
    {
        w.lstD88->setCurrentIndex(ui->model()->index(row, 0));
        w.lstD88->selectRow(row);
        ui->ShowItemDetail();
    }

private slots:
    void init()
    {
        QVERIFY(root.isValid());
        for (const char* d : {"app", "tmp", "snap", "p88"})
            QDir(root.path()).mkpath(d);
        AppDir = root.path() + "/app";
        EnvTmpDir = EnvTempDir = root.path() + "/tmp";
        PeekDir = EnvTmpDir + "/TORVBOOT";
        WindowsDir = "/etc";
        SystemDir = "/usr";
        KeyPrefix = "K";
        TitleClosed = 1;
        SetDefaultCfg(Cfg);
        Cfg.P88srUse = Cfg.M88Use = Cfg.X88kUse = 1;
        Cfg.PC88WinUse = Cfg.QUASI88Use = Cfg.J80Use = 0;
        Cfg.SortKey = 0;
        Cfg.LstSelectSave = 0;
        ResolveCfgDirs(Cfg);
        P88SaveDir = root.path() + "/p88";
        NoImagePicture = QImage(8, 8, QImage::Format_RGB32);
        NoImagePicture.fill(Qt::gray);
        writeCatalogue();
        win = new QMainWindow;
        w = CatalogueUi::BuildStandalone(win, &menus);
        window.emplace();
        ui = new CatalogueUi(w, win);
        HardWare = 0;
    }
    void cleanup()
    {
        delete win;
        win = nullptr;
        window.reset();
        QDir(root.path()).removeRecursively();
    }

    void fillCountsKeysCaption()
    {
        int yields = 0;
        w.yield = [&] { ++yields; };
        delete ui;
        ui = new CatalogueUi(w, win);
        ui->LoadList();
        QCOMPARE(titles(), QStringList({"ザルバード", "イルマータ", "ハルモニカ"}));
        QCOMPARE(ui->model()->key(1), QString("K%1").arg(25 + 2284));
        QCOMPARE(yields, 2); // with the total and at the last row; between them every 30 ms
        QCOMPARE(win->windowTitle(),
                 QStringLiteral("TORVANE　- Torvane for PC8801mk2SR on MS Windows - ( 3 Images )"));
        QCOMPARE(ui->statusPanel1()->text(), kNothingSelectedText);
        QVERIFY(!ui->model()->index(0, 0).data(Qt::DecorationRole).value<QIcon>().isNull());
        QCOMPARE(w.lstD88->selectionModel()->selectedRows().size(), 0);
    }

    void splashCountsDuringStartUp()
    {
        TitleClosed = 0;
        delete ui;
        ui = new CatalogueUi(w, win);
        ui->LoadList();
        QStringList seen;
        for (const QString& c : window->calls)
            if (c.startsWith("Count:"))
                seen << c.mid(6);
        QCOMPARE(seen, QStringList({"0|件 ／ 3 件", "3|件 ／ 3 件"}));
    }

    void rememberedSelectionOnlyAtStartUp()
    {
        Cfg.LstSelectSave = 1;
        Cfg.LstSelectPos = 25 + 2284;
        TitleClosed = 0;
        ui->LoadList();
        QCOMPARE(ui->SelectedKey(), QString("K%1").arg(25 + 2284));
        QVERIFY(w.txtSyosai->toPlainText().startsWith("[Title] イルマータ"));
        TitleClosed = 1;
        ui->LoadList();
        QCOMPARE(ui->SelectedKey(), QString());
        QVERIFY(w.txtSyosai->toPlainText().isEmpty());
    }

    void columnClicksAndMenusSortAndSave()
    {
        ui->LoadList();
        QFile::remove(AppDir + "/TORVANE.CFG");
        ui->lstD88_ColumnClick(3); // Maker ascending: key 6
        QCOMPARE(int(Cfg.SortKey), 6);
        QCOMPARE(titles(),
                 QStringList({"ザルバード", "イルマータ", "ハルモニカ"})); // Fanrock = fanrock
        QVERIFY(menus.mnuViewSortRun[6]->isChecked());
        QVERIFY(ui->mnuPop("mnuPopSortMakerRun(6)")->isChecked());
        QVERIFY(QFile::exists(AppDir + "/TORVANE.CFG"));
        ui->lstD88_ColumnClick(3);
        QCOMPARE(int(Cfg.SortKey), 7);
        QCOMPARE(titles(), QStringList({"ハルモニカ", "ザルバード", "イルマータ"}));
        QVERIFY(!menus.mnuViewSortRun[6]->isChecked());
        QVERIFY(menus.mnuViewSortRun[7]->isChecked());
        ui->lstD88_ColumnClick(4);
        QCOMPARE(int(Cfg.SortKey), 8);
        CfgRecord saved;
        QVERIFY(ReadCfg(saved));
        QCOMPARE(int(saved.SortKey), 8);

        // Through the menu: descending file order, with no second load behind it.
        menus.mnuViewSortRun[1]->trigger();
        QCOMPARE(int(Cfg.SortKey), 1);
        QCOMPARE(titles(), QStringList({"ハルモニカ", "イルマータ", "ザルバード"}));
        QVERIFY(menus.mnuViewSortRun[1]->isChecked());
        QVERIFY(!win->findChild<QAction*>("mnuViewSortColl2Run(10)"));
        ui->mnuPop("mnuPopSortTitleRun(2)")->trigger();
        QCOMPARE(int(Cfg.SortKey), 2);
        QVERIFY(menus.mnuViewSortRun[2]->isChecked());
        QVERIFY(!menus.mnuViewSortRun[1]->isChecked());
        // A reload re-applies the key in force.
        ui->LoadList();
        QCOMPARE(titles(), QStringList({"イルマータ", "ザルバード", "ハルモニカ"}));
        menus.mnuViewSortRun[0]->trigger();
        QCOMPARE(titles(), QStringList({"ザルバード", "イルマータ", "ハルモニカ"}));
    }

    void detailEnablesExactlyTheEmulatorsThatTakeTheFile()
    {
        ui->LoadList();
        // Nothing selected: the emulators in use.
        QVERIFY(ui->cmdEmuRun(1)->isEnabled());
        QVERIFY(ui->cmdEmuRun(2)->isEnabled());
        QVERIFY(!ui->cmdEmuRun(3)->isEnabled());
        QVERIFY(ui->cmdEmuRun(4)->isEnabled());
        select(2); // HARMONI.CMT: only X88000 among those in use
        QVERIFY(!ui->cmdEmuRun(1)->isEnabled());
        QVERIFY(!ui->cmdEmuRun(2)->isEnabled());
        QVERIFY(ui->cmdEmuRun(4)->isEnabled());
        QVERIFY(!menus.runEntry(1)->isEnabled());
        QVERIFY(menus.runEntry(4)->isEnabled());
        QVERIFY(ui->mnuPop("mnuPopEmuRunEach(4)")->isEnabled());
        QVERIFY(!ui->cmdManFile(0)->isEnabled());
        QCOMPARE(ui->statusPanel1()->text(), QStringLiteral("ハルモニカ選択中．．  (HARMONI.CMT)"));
        QCOMPARE(ui->shownPicture(), NoImagePicture);
        select(0); // XALBARD.D88 with a manual
        QVERIFY(ui->cmdEmuRun(1)->isEnabled());
        QVERIFY(ui->cmdEmuRun(2)->isEnabled());
        QVERIFY(!ui->cmdEmuRun(3)->isEnabled()); // not in use
        QVERIFY(ui->cmdManFile(0)->isEnabled());
        QVERIFY(menus.mnuEmuRunMan->isEnabled());
        QVERIFY(w.txtSyosai->toPlainText().contains("[状 態] イメージファイル直接指定"));
        QSignalSpy spy(ui, &CatalogueUi::emuRunRequested);
        ui->cmdEmuRun(2)->click();
        menus.runEntry(1)->trigger();
        QCOMPARE(spy.size(), 2);
        QCOMPARE(spy.at(0).at(0).toInt(), 2);
        QCOMPARE(spy.at(1).at(0).toInt(), 1);
        ui->cmdNoSelect(0)->click();
        QCOMPARE(ui->SelectedKey(), QString());
        QCOMPARE(ui->statusPanel1()->text(), kNothingSelectedText);
        QVERIFY(!ui->cmdManFile(0)->isEnabled());
    }

    void pictureFromSnapDirAndGifRefusal()
    {
        Cfg.ScrSearchRead = 1;
        QImage red(4, 4, QImage::Format_RGB32);
        red.fill(Qt::red);
        QVERIFY(red.save(SnapDir[0] + "/YULA.png", "PNG"));
        ui->LoadList();
        select(1);
        QCOMPARE(ui->shownPicturePath(), SnapDir[0] + "/YULA.png");
        QCOMPARE(ui->shownPicture().pixel(0, 0), qRgb(255, 0, 0));
        // The same name holding a GIF.
        QVERIFY(
            tvtest::WriteBytes(SnapDir[0] + "/YULA.png",
                               QByteArray::fromHex("474946383961010001008000000000"
                                                   "00ffffff2c00000000010001000002024401003b")));
        select(1);
        QCOMPARE(ui->shownPicturePath(), QString());
        QCOMPARE(ui->shownPicture(), NoImagePicture);
    }

    void saveStateLabels()
    {
        QVERIFY(tvtest::WriteBytes(P88SaveDir + "/XALBARD.SV2", "s"));
        QVERIFY(tvtest::WriteBytes(P88SaveDir + "/XALBARD.SV5", "s"));
        ui->LoadList();
        select(0);
        QVERIFY(ui->lblP88Save()->isVisibleTo(win));
        QCOMPARE(CatalogueUi::labelColour(ui->lblP88Save()), QColor(255, 0, 0));
        QVERIFY(ui->lblP88SaveData(2)->isEnabled());
        QVERIFY(ui->lblP88SaveData(5)->isEnabled());
        QVERIFY(!ui->lblP88SaveData(3)->isEnabled());
        // A slot without a state is drawn in another colour than one with a state.
        const auto drawn = [](const QLabel* l) {
            return l->palette().color(l->isEnabled() ? QPalette::Active : QPalette::Disabled,
                                      QPalette::WindowText);
        };
        QVERIFY(drawn(ui->lblP88SaveData(3)) != drawn(ui->lblP88SaveData(2)));
        QVERIFY(drawn(ui->lblM88SaveData(3)) != drawn(ui->lblP88SaveData(2)));
        QTest::mouseClick(ui->lblP88SaveData(5), Qt::LeftButton);
        QCOMPARE(CatalogueUi::labelColour(ui->lblP88SaveData(5)), QColor(255, 0, 0));
        QCOMPARE(CatalogueUi::labelColour(ui->lblP88Save()), QColor(0, 0, 0));
        ui->lblP88SaveData_Click(2);
        QCOMPARE(CatalogueUi::labelColour(ui->lblP88SaveData(5)), QColor(0, 0, 0));
        QCOMPARE(CatalogueUi::labelColour(ui->lblP88SaveData(2)), QColor(255, 0, 0));
        QTest::mouseClick(ui->lblP88Save(), Qt::LeftButton);
        QCOMPARE(CatalogueUi::labelColour(ui->lblP88Save()), QColor(255, 0, 0));
        QCOMPARE(CatalogueUi::labelColour(ui->lblP88SaveData(2)), QColor(0, 0, 0));
        QVERIFY(drawn(ui->lblP88SaveData(3)) != drawn(ui->lblP88SaveData(2)));
        select(1); // YULA has none
        QVERIFY(!ui->lblP88SaveData(2)->isEnabled());
        QVERIFY(!ui->lblP88Save()->isVisibleTo(win));
    }

    // The slot that a P88SR launch takes: the red slot label while the row's label is black.
    void markedSlotIsTheOneTheLaunchTakes()
    {
        QVERIFY(tvtest::WriteBytes(P88SaveDir + "/XALBARD.SV2", "s"));
        QVERIFY(tvtest::WriteBytes(P88SaveDir + "/XALBARD.SV5", "s"));
        ui->LoadList();
        select(0);
        QVERIFY(!ui->P88SaveSlot().has_value());
        QTest::mouseClick(ui->lblP88SaveData(5), Qt::LeftButton);
        QVERIFY(ui->P88SaveSlot() == 5);
        ui->lblP88SaveData_Click(2);
        QVERIFY(ui->P88SaveSlot() == 2);
        QTest::mouseClick(ui->lblP88Save(), Qt::LeftButton);
        QVERIFY(!ui->P88SaveSlot().has_value());
        ui->lblP88SaveData_Click(5);
        select(1);
        QVERIFY(!ui->P88SaveSlot().has_value());
    }

    void footerSwitchesSavedAtEachClick()
    {
        ui->FamilyChanged(0);
        QFile::remove(AppDir + "/TORVANE.CFG");
        ui->chkDefOpt(0)->click();
        CfgRecord saved;
        QVERIFY(ReadCfg(saved));
        QCOMPARE(int(saved.DefOpt), 1);
        ui->chkPatUse(0)->click();
        QVERIFY(ReadCfg(saved));
        QCOMPARE(int(saved.PatUse), 1);
        ui->chkPanUse()->setEnabled(true);
        ui->chkPanUse()->click();
        QVERIFY(ReadCfg(saved));
        QCOMPARE(int(saved.PanUse), 1);
        // The two exclude one another: setting one clears the other.
        QCOMPARE(int(saved.PatUse), 0);
        QVERIFY(!ui->chkPatUse(0)->isChecked());
        ui->chkPatUse(0)->click();
        QVERIFY(ReadCfg(saved));
        QCOMPARE(int(saved.PatUse), 1);
        QCOMPARE(int(saved.PanUse), 0);
        QVERIFY(!ui->chkPanUse()->isChecked());
        ui->chkPatUse(0)->click(); // clearing one leaves the other as it is
        QVERIFY(ReadCfg(saved));
        QCOMPARE(int(saved.PatUse), 0);
        QCOMPARE(int(saved.PanUse), 0);
        ui->chkPanUse()->click();
        QVERIFY(ReadCfg(saved));
        QCOMPARE(int(saved.PanUse), 1);
        ui->chkDefOpt(0)->click();
        QVERIFY(ReadCfg(saved));
        QCOMPARE(int(saved.DefOpt), 0);
    }

    void familyChangeCaptionsAndNewFile()
    {
        HardWare = 2;
        ui->FamilyChanged(2);
        QCOMPARE(tvtest::ReadBytes(AppDir + "/TORVANE.LX1"), tvtest::LstHeaderBytes(2));
        QCOMPARE(ui->model()->rowCount(), 0);
        QVERIFY(win->windowTitle().endsWith("( 0 Images )"));
        QCOMPARE(int(Cfg.SortKey), 0);
        QVERIFY(menus.mnuViewSortRun[0]->isChecked());
        QCOMPARE(menus.runEntry(2)->text(), QString("X mil(&M)"));
        QCOMPARE(menus.runEntry(5)->text(), QString("-----"));
        QCOMPARE(ui->mnuPop("mnuPopEmuRunEach(1)")->text(), QString("X1R(&X)"));
        QCOMPARE(ui->cmdEmuRun(25)->text(), QString("-----"));
        QCOMPARE(ui->cmdEmuRun(22)->text(), QString("X mil(&M)"));
        QVERIFY(!w.fraFotter[0]->isVisibleTo(win));
        QVERIFY(w.fraFotter[2]->isVisibleTo(win));
    }

    void wrongVersionShowsMessageAndFails()
    {
        tvtest::ScriptedMsgBox box;
        QByteArray bad = tvtest::LstHeaderBytes(1);
        bad.replace(20, 4, "0.10");
        QVERIFY(tvtest::WriteBytes(AppDir + "/TORVANE.LFM", bad));
        HardWare = 1;
        ui->LoadList();
        QCOMPARE(box.texts(),
                 QStringList(
                     {"TORVANE.LSTのVersionが違います\nRECASTnn.EXEにてコンバートしてください"}));
        QCOMPARE(window->calls.count("FailStart"), 1);
        QCOMPARE(tvtest::ReadBytes(AppDir + "/TORVANE.LFM"), bad);
    }

    // The whole window with a selected row and its screenshot; written to TORVANE_SHOTS/
    // when that variable names a directory.
    void windowWithSelectedRow()
    {
        QImage shot(320, 200, QImage::Format_RGB32);
        shot.fill(QColor(20, 40, 120));
        QVERIFY(shot.save(SnapDir[0] + "/XALBARD.png", "PNG"));
        Cfg.ScrSearchRead = 1;
        Cfg.ViewScrCom = 0;
        ui->FamilyChanged(0);
        ui->mnuViewScrCom_Click();
        win->resize(1100, 700);
        win->show();
        QVERIFY(QTest::qWaitForWindowExposed(win));
        select(0);
        QCoreApplication::processEvents();
        const QPixmap pm = win->grab();
        QVERIFY(!pm.isNull());
        QVERIFY(w.fraScrCom->isVisible());
        QCOMPARE(ui->shownPicturePath(), SnapDir[0] + "/XALBARD.png");
        const QString dir = qEnvironmentVariable("TORVANE_SHOTS");
        if (!dir.isEmpty())
            QVERIFY(pm.save(dir + "/catalogue_main.png"));
    }

    void spaceOnTheListOpensThePopup()
    {
        ui->LoadList();
        win->show();
        QVERIFY(QTest::qWaitForWindowExposed(win));
        w.lstD88->setFocus();
        select(1);
        QTest::keyClick(w.lstD88, Qt::Key_Space);
        QVERIFY(ui->popupMenu()->isVisible());
        QVERIFY(ui->mnuPop("mnuPopSort")->isEnabled());
        QCOMPARE(ui->SelectedKey(), QString("K%1").arg(25 + 2284)); // the row stays selected
        QVERIFY(w.txtSyosai->toPlainText().startsWith("[Title] イルマータ"));
        ui->popupMenu()->hide();

        // An empty catalogue has no menu to show.
        QVERIFY(tvtest::WriteBytes(AppDir + "/TORVANE.LST", tvtest::LstHeaderBytes(0)));
        ui->LoadList();
        w.lstD88->setFocus();
        QTest::keyClick(w.lstD88, Qt::Key_Space);
        QVERIFY(!ui->popupMenu()->isVisible());
        QVERIFY(!ui->mnuPop("mnuPopSort")->isEnabled());
    }

    // A settings dialog that stored the configuration: the selected title stays shown with its
    // picture, the switches follow the record, the user's column widths stay.
    void storedCfgRefreshesThePane()
    {
        QImage shot(32, 20, QImage::Format_RGB32);
        shot.fill(QColor(200, 30, 30));
        QVERIFY(shot.save(SnapDir[0] + "/XALBARD.png", "PNG"));
        Cfg.ScrSearchRead = 1;
        ui->ApplyCfg();
        ui->FamilyChanged(0);
        select(0);
        QCOMPARE(ui->shownPicturePath(), SnapDir[0] + "/XALBARD.png");
        w.lstD88->setColumnWidth(0, 123);
        Cfg.DefOpt = 1;
        Cfg.PatUse = 1;
        Cfg.X88kUse = 0;
        ui->ApplyCfg();
        QCOMPARE(ui->SelectedKey(), QString("K25"));
        QCOMPARE(ui->shownPicturePath(), SnapDir[0] + "/XALBARD.png");
        QVERIFY(w.txtSyosai->toPlainText().startsWith("[Title] ザルバード"));
        QCOMPARE(w.lstD88->columnWidth(0), 123);
        QVERIFY(ui->chkDefOpt(0)->isChecked());
        QVERIFY(ui->chkPatUse(0)->isChecked());
        QVERIFY(!ui->cmdEmuRun(4)->isEnabled()); // no longer in use
        QVERIFY(ui->cmdEmuRun(1)->isEnabled());
        ui->cmdNoSelect(0)->click();
        ui->ApplyCfg();
        QCOMPARE(ui->shownPicture(), NoImagePicture);
    }

    void freeColumnNamesAndColumnReset()
    {
        Cfg.FreeColName1 = "機種      ";
        Cfg.FreeColName2 = "媒体";
        ui->PutFreeColName();
        QCOMPARE(ui->model()->headerData(3, Qt::Horizontal).toString(), QString("機種"));
        QCOMPARE(ui->model()->headerData(4, Qt::Horizontal).toString(), QString("媒体"));
        QCOMPARE(menus.mnuViewSortFamily[4]->menuAction()->text(), QString("機種"));
        QCOMPARE(ui->mnuPop("mnuPopSortCol2")->text(), QString("媒体"));
        w.lstD88->setColumnWidth(0, 10);
        ui->munViewColumnClear_Click();
        QVERIFY(w.lstD88->columnWidth(0) > 200);
        ui->mnuViewGrid_Click();
        QVERIFY(w.lstD88->showGrid());
        QVERIFY(menus.mnuViewGrid->isChecked());
    }
};

QTEST_MAIN(TstCatalogueUi)
#include "tst_catalogue_ui.moc"
