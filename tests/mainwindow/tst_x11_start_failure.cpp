// The message of an emulator that can't be started, on a display: the main window is back on
// the screen behind a critical box under "Emu実行エラー" that names the program and the cause;
// after OK the window takes input again. With TORVANE_SHOTS naming a directory, the screen
// with the box is written there as start_failure.png.
#include "adapters/Adapters.h"
#include "data/Cfg.h"
#include "data/ItemDetail.h"
#include "data/clsLst.h"
#include "launch/Launch.h"
#include "launch/Runner.h"
#include "mainwindow/CatalogueUi.h"
#include "mainwindow/LaunchUi.h"
#include "mainwindow/MainCatalogue.h"
#include "mainwindow/frmMain.h"
#include "platform/MsgBoxQt_ui.h"
#include "support/CatalogueBytes.h"
#include "support/ProcessState.h"
#include "support/X1Desktop.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace tv;

class TstX11StartFailure : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { RegisterAdapters(); }

    void startFailureMessageOverTheWindow()
    {
        tvtest::ProcessState state;
        QTemporaryDir root;
        QVERIFY(root.isValid());
        const QString r = root.path();
        QVERIFY(tvtest::SetUpX1Desktop(r));
        Cfg.XmilCfgChk = 1;
        // An X millennium whose program isn't runnable here: a Windows program without its run bit.
        QVERIFY(tvtest::WriteBytes(r + "/emu/Xmillennium.exe",
                                   QByteArray("MZ\x90\0", 4) + QByteArray(124, '\0')));
        QFile::setPermissions(r + "/emu/Xmillennium.exe", QFile::ReadOwner | QFile::WriteOwner);
        QVERIFY(tvtest::WriteXmilIniAndImage(r));

        frmMain win;
        auto* catalogue = new MainCatalogue;
        win.SetCatalogue(std::unique_ptr<MainCatalogue>(catalogue));
        win.CreateLstObj();
        QVERIFY(LstObj.InitLst(2));
        CatalogueUi* ui = catalogue->Ui();
        ui->LoadList();
        win.resize(900, 600);
        win.show();
        QVERIFY(QTest::qWaitForWindowExposed(&win));
        win.lstD88->setCurrentIndex(ui->model()->index(0, 0));
        win.lstD88->selectRow(0);
        ui->ShowItemDetail();
        const QString statusBefore = ui->statusPanel1()->text();

        InstallQtMessageBoxes();
        QString title, text;
        QMessageBox::Icon icon = QMessageBox::NoIcon;
        bool windowShownBehind = false;
        const QString shots = qEnvironmentVariable("TORVANE_SHOTS");
        bool saved = shots.isEmpty();
        auto* watch = new QTimer(&win);
        connect(watch, &QTimer::timeout, this, [&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box || !box->isVisible())
                return;
            watch->stop();
            QTest::qWait(400); // let the window manager place and paint it
            title = box->windowTitle();
            text = box->text();
            icon = box->icon();
            windowShownBehind = win.isVisible() && !(win.windowState() & Qt::WindowMinimized);
            if (!shots.isEmpty())
                saved = QGuiApplication::primaryScreen()->grabWindow(0).save(
                    shots + QStringLiteral("/start_failure.png"));
            box->buttons().value(0)->click();
        });
        watch->start(50);
        // Started directly: left on 自動, its "MZ" header would hand it to DOSBox.
        Runners()[Emu::Xmil].kind = RunnerKind::Direct;
        catalogue->Launch()->cmdEmuRun_Click(22);
        Runners().erase(Emu::Xmil);
        SetMsgBoxHandler({});

        QCOMPARE(title, QStringLiteral("Emu実行エラー"));
        QCOMPARE(icon, QMessageBox::Critical);
        QVERIFY(text.contains(r + "/emu/Xmillennium.exe"));
        QVERIFY(text.contains(QStringLiteral("実行の許可がありません")));
        QVERIFY(windowShownBehind);
        QVERIFY(saved);
        QVERIFY(win.isEnabled());
        QCOMPARE(ui->statusPanel1()->text(), statusBefore);
        QCOMPARE(tvtest::ReadBytes(r + "/emu/Xmillennium.ini"), tvtest::UsersXmilIni());
        QVERIFY(!QFile::exists(r + "/emu/Xmillennium.org"));
        QVERIFY(QDir(WorkDir).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).isEmpty());
    }
};

QTEST_MAIN(TstX11StartFailure)
#include "tst_x11_start_failure.moc"
