// The launch on the main window: the emulator buttons and menu entries closed with a
// tooltip where the road needs generated options, Enter on the list starting the title's
// default emulator, and the window minimised, disabled and brought back around the run.
#include "adapters/Adapters.h"
#include "data/Cfg.h"
#include "data/ItemDetail.h"
#include "data/clsLst.h"
#include "launch/Launch.h"
#include "mainwindow/CatalogueUi.h"
#include "mainwindow/LaunchUi.h"
#include "mainwindow/MainCatalogue.h"
#include "mainwindow/frmMain.h"
#include "support/CatalogueBytes.h"
#include "support/ProcessState.h"
#include "support/ScriptedMsgBox.h"
#include "support/TestEmu.h"
#include "support/X1Desktop.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <optional>

using namespace tv;

class TstLaunchUi : public QObject {
    Q_OBJECT
private:
    QTemporaryDir root;
    QString r;
    std::optional<tvtest::ProcessState> state;
    frmMain* win = nullptr;
    CatalogueUi* ui = nullptr;
    LaunchUi* launch = nullptr;
    QList<Qt::WindowStates> statesDuringRun;

    void select(int row)
    {
        win->lstD88->setCurrentIndex(ui->model()->index(row, 0));
        win->lstD88->selectRow(row);
        ui->ShowItemDetail();
    }
    QAction* menuEntry(int entry) { return win->menus.runEntry(entry); }

private slots:
    void initTestCase() { RegisterAdapters(); }
    void init()
    {
        QVERIFY(root.isValid());
        state.emplace();
        r = root.path();
        QVERIFY(tvtest::SetUpX1Desktop(r));
        Cfg.X1rUse = Cfg.WinX1Use = 1;
        win = new frmMain;
        auto* catalogue = new MainCatalogue;
        win->SetCatalogue(std::unique_ptr<MainCatalogue>(catalogue));
        win->CreateLstObj(); // the catalogue's controls and an empty LstObj
        QVERIFY(LstObj.InitLst(2));
        ui = catalogue->Ui();
        launch = catalogue->Launch();
        ui->LoadList();
        win->show();
    }
    void cleanup()
    {
        delete win;
        win = nullptr;
        state.reset();
        QDir(r).removeRecursively();
    }

    void registrationEntriesAreLiveOnTheMainWindow()
    {
        // With its catalogue the main window owns the registration dialog: the menu entries
        // and the popup's edit entry open it.
        QVERIFY(win->menus.mnuEditAddItem->isEnabled());
        QVERIFY(win->menus.mnuEditChangeItem->isEnabled());
        QAction* change = ui->mnuPop("mnuPopChangeItem");
        QVERIFY(change && change->isEnabled());
        QVERIFY(!change->toolTip().contains(QStringLiteral("後の版")));
    }

    // The X1 family's roads generate their options: they are open without "既存INI使用",
    // and stay open with it.
    void roadsWithGeneratedOptionsAreOpen()
    {
        Cfg.XmilCfgChk = 0;
        select(0);
        QPushButton* xmil = ui->cmdEmuRun(22);
        QPushButton* x1r = ui->cmdEmuRun(21);
        QVERIFY(xmil->isEnabled());
        QVERIFY(xmil->toolTip().isEmpty());
        QVERIFY(x1r->isEnabled());
        QVERIFY(x1r->toolTip().isEmpty());
        QVERIFY(menuEntry(2)->isEnabled());
        QVERIFY(ui->mnuPop(QStringLiteral("mnuPopEmuRunEach(2)"))->isEnabled());
        QVERIFY(ui->cmdEmuRun(24)->isEnabled());

        Cfg.XmilCfgChk = 1;
        select(0);
        QVERIFY(xmil->isEnabled());
        QVERIFY(xmil->toolTip().isEmpty());
        QVERIFY(menuEntry(2)->isEnabled());
    }

    void nothingSelectedLeavesTheBareEmulatorOpen()
    {
        Cfg.XmilCfgChk = 0;
        win->lstD88->clearSelection();
        win->lstD88->setCurrentIndex(QModelIndex());
        ui->ClearItemDetail();
        QVERIFY(ui->cmdEmuRun(22)->isEnabled());
        QVERIFY(ui->cmdEmuRun(21)->isEnabled());
    }

    void enterStartsTheDefaultEmulatorAndTheWindowComesBack()
    {
        Cfg.XmilCfgChk = 1;
        QVERIFY(!tvtest::InstallTestEmu(r + "/emu", "Xmillennium.exe").isEmpty());
        QVERIFY(tvtest::WriteTestEmuConfig(r + "/emu",
                                           {{"log", r + "/emu.log"}, {"exitafter", "300"}}));
        QFile img(r + "/images/GAME.D88");
        QVERIFY(img.open(QIODevice::WriteOnly));
        img.write(QByteArray(1024, 'g'));
        img.close();
        select(0);
        QVERIFY(ui->cmdEmuRun(22)->isEnabled());

        // Watch the window while the emulator runs.
        auto* probe = new QTimer(win);
        connect(probe, &QTimer::timeout, this, [this] {
            statesDuringRun << (win->windowState() |
                                (win->isEnabled() ? Qt::WindowNoState : Qt::WindowActive));
        });
        probe->start(50);
        tvtest::ScriptedMsgBox box;
        QTest::keyClick(win->lstD88, Qt::Key_Return);
        probe->stop();

        const auto runs = tvtest::ReadTestEmuLog(r + "/emu.log");
        QCOMPARE(int(runs.size()), 1);
        QCOMPARE(runs[0].exeName, QStringLiteral("Xmillennium.exe"));
        QVERIFY(box.calls().empty());
        // Minimised and disabled while it ran; back, enabled, and the detail refreshed after.
        bool sawMinimisedDisabled = false;
        for (Qt::WindowStates s : statesDuringRun)
            if ((s & Qt::WindowMinimized) && (s & Qt::WindowActive))
                sawMinimisedDisabled = true;
        QVERIFY(sawMinimisedDisabled);
        QVERIFY(!(win->windowState() & Qt::WindowMinimized));
        QVERIFY(win->isEnabled());
        QVERIFY(win->isVisible());
        QCOMPARE(ui->statusPanel1()->text(), ItemStatusText(LstObj));
        QVERIFY(QDir(WorkDir).entryList(QDir::Files).isEmpty());
    }

    // A launch from the menu while the window waits minimised in the tray: the window comes
    // back in the state it had before it was last minimised, here maximised.
    void windowComesBackInTheStateBeforeItWasMinimised()
    {
        Cfg.XmilCfgChk = 1;
        QVERIFY(!tvtest::InstallTestEmu(r + "/emu", "Xmillennium.exe").isEmpty());
        QVERIFY(tvtest::WriteTestEmuConfig(r + "/emu",
                                           {{"log", r + "/emu.log"}, {"exitafter", "100"}}));
        QFile img(r + "/images/GAME.D88");
        QVERIFY(img.open(QIODevice::WriteOnly));
        img.write(QByteArray(1024, 'g'));
        img.close();
        select(0);
        TrayWindowState = 2; // maximised when it was last on screen
        win->setWindowState(Qt::WindowMinimized);
        win->hide();

        tvtest::ScriptedMsgBox box;
        launch->cmdEmuRun_Click(22);

        QCOMPARE(int(tvtest::ReadTestEmuLog(r + "/emu.log").size()), 1);
        QVERIFY(win->isVisible());
        QVERIFY(!(win->windowState() & Qt::WindowMinimized));
        QVERIFY(win->windowState() & Qt::WindowMaximized);
        QCOMPARE(int(TrayWindowState), 2);
    }

    // The emulator's program is gone when the button is pressed: the message names it and
    // says why, the user's INI is back under its name without an ".org", WorkDir is empty,
    // and the window is back, enabled, with the title's status text.
    void emulatorThatCantStartIsToldAndTheWindowComesBack()
    {
        Cfg.XmilCfgChk = 1;
        QVERIFY(tvtest::WriteXmilIniAndImage(r));
        select(0);
        const QString statusBefore = ui->statusPanel1()->text();
        QCOMPARE(statusBefore, ItemStatusText(LstObj));

        tvtest::ScriptedMsgBox box;
        launch->cmdEmuRun_Click(22);

        QCOMPARE(int(box.calls().size()), 1);
        QCOMPARE(box.calls()[0].flags, 16);
        QCOMPARE(box.calls()[0].caption, QStringLiteral("Emu実行エラー"));
        QCOMPARE(
            box.calls()[0].text,
            QStringLiteral("エミュレータを起動できませんでした。\r\n\r\n") + r +
                QStringLiteral("/emu/Xmillennium.exe\r\n\r\nプログラムのファイルがありません。"));
        QCOMPARE(tvtest::ReadBytes(r + "/emu/Xmillennium.ini"), tvtest::UsersXmilIni());
        QVERIFY(!QFile::exists(r + "/emu/Xmillennium.org"));
        QVERIFY(QDir(WorkDir).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).isEmpty());
        QVERIFY(win->isEnabled());
        QVERIFY(win->isVisible());
        QVERIFY(!(win->windowState() & Qt::WindowMinimized));
        QCOMPARE(ui->statusPanel1()->text(), statusBefore);
    }

    void enterDoesNothingWhenTheDefaultButtonIsClosed()
    {
        Cfg.XmilCfgChk = 0;
        QVERIFY(!tvtest::InstallTestEmu(r + "/emu", "Xmillennium.exe").isEmpty());
        QVERIFY(tvtest::WriteTestEmuConfig(r + "/emu",
                                           {{"log", r + "/emu.log"}, {"exitafter", "300"}}));
        select(0);
        QTest::keyClick(win->lstD88, Qt::Key_Return);
        QVERIFY(tvtest::ReadTestEmuLog(r + "/emu.log").empty());
    }
};

QTEST_MAIN(TstLaunchUi)
#include "tst_launchui.moc"
