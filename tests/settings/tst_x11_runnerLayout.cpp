// The runner dialog on a real display at 1024x768: for each kind's fields every control lies
// inside the dialog with the room its contents need and no two overlap; then the command view
// and the dry run of a selected title. With TORVANE_SHOTS_DIR set, each is saved as a PNG.
#include "adapters/Adapters.h"
#include "data/Cfg.h"
#include "data/clsLst.h"
#include "settings/frmRunner.h"
#include "support/DialogLayout.h"
#include "support/GuardedDirs.h"
#include "support/ProcessState.h"
#include "support/ProgramBytes.h"
#include "support/StubWindow.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QTest>
#include <optional>

using namespace tv;

class TstRunnerLayout : public QObject {
    Q_OBJECT
    QTemporaryDir root;
    std::optional<tvtest::ProcessState> state;
    std::optional<tvtest::StubWindow> window;
    QString m88;

    void shot(frmRunner& d, const QString& name)
    {
        const QString shots = qEnvironmentVariable("TORVANE_SHOTS_DIR");
        if (!shots.isEmpty())
            d.grab().save(shots + "/" + name + ".png");
    }

private slots:
    void initTestCase() { RegisterAdapters(); }
    void init()
    {
        QVERIFY(root.isValid());
        state.emplace();
        window.emplace();
        Runners().clear();
        const QString r = root.path();
        for (const char* d : {"app/TORVBOOT", "tmp", "images", "snap", "m88"})
            QDir().mkpath(r + "/" + d);
        AppDir = r + "/app";
        WorkDir = AppDir + "/TORVBOOT";
        EnvTmpDir = EnvTempDir = r + "/tmp";
        WindowsDir = "/etc";
        SystemDir = "/usr";
        SetDefaultCfg(Cfg);
        Cfg.WinSendWait = 0;
        InitTables();
        for (int f = 0; f < 3; ++f) {
            ImageDir[f] = r + "/images";
            SnapDir[f] = r + "/snap";
        }
        m88 = r + "/m88";
        QVERIFY(tvtest::WriteFile(m88 + "/M88.EXE", tvtest::Pe32Exe()));
        QVERIFY(tvtest::WriteFile(m88 + "/M88.INI", "[M88p2 for Windows]\r\nFlags=1\r\n"));
        Cfg.M88Dir = m88;
        Cfg.M88Use = 1;
        Cfg.M88CfgChk = 0;
    }
    void cleanup()
    {
        Runners().clear();
        window.reset();
        state.reset();
    }

    void eachKindFits()
    {
        frmRunner d;
        d.selectEmu(Emu::M88);
        const RunnerKind kinds[] = {RunnerKind::Direct, RunnerKind::Wine, RunnerKind::DosBox,
                                    RunnerKind::Java};
        tvtest::CheckDialogPages(d, 4, [&](int p) {
            d.cbxRunnerKind->setCurrentIndex(d.cbxRunnerKind->findData(int(kinds[p])));
        });
    }

    void dryRunReportOfASelectedTitle()
    {
        QByteArray disk(4096, 'i');
        QVERIFY(tvtest::WriteFile(root.path() + "/images/ザナドゥ.D88", disk));
        HardWare = 0;
        LstObj.SetJituFile(root.path() + "/images/ザナドゥ.D88");
        LstObj.SetStartFileName("ザナドゥ.D88");
        LstObj.SetSecondFile("");
        LstObj.SetArcCheckFlag(0);
        LstObj.SetReArcCheckFlag(0);
        LstObj.SetTitle(QStringLiteral("ザナドゥ"));
        window->hasSelectedItem = true;

        // A Wine of the test's own, found as a launch finds it, in a prefix that is prepared.
        const QString wine = root.path() + "/bin/wine";
        QVERIFY(tvtest::WriteFile(wine, "#!/bin/sh\nexit 0\n"));
        QFile::setPermissions(wine, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        QVERIFY(tvtest::WriteFile(root.path() + "/pfx/system.reg", "WINE REGISTRY\n"));

        frmRunner d;
        d.selectEmu(Emu::M88);
        d.cbxRunnerKind->setCurrentIndex(d.cbxRunnerKind->findData(int(RunnerKind::Wine)));
        d.txtWineProgram->setText(wine);
        d.txtWinePrefix->setText(root.path() + "/pfx");
        d.show();
        QVERIFY(QTest::qWaitForWindowExposed(&d));
        QTest::mouseClick(d.cmdRunnerCommand, Qt::LeftButton);
        QTest::qWait(50);
        const QString view = d.txtRunnerReport->toPlainText();
        QVERIFY2(view.contains("指定のコマンドライン:\n  " + m88 + "/M88.EXE ザナドゥ.D88\n"),
                 qPrintable(view));
        shot(d, "frmRunner_command");
        QTest::mouseClick(d.cmdRunnerDryRun, Qt::LeftButton);
        QTest::qWait(50);
        const QString report = d.txtRunnerReport->toPlainText();
        QVERIFY2(report.contains("[OK] TORVBOOT は空です\n"), qPrintable(report));
        QVERIFY2(report.contains("は元のとおりです"), qPrintable(report));
        tvtest::CheckShownPage(d, 9);
        shot(d, "frmRunner_dryrun");
        QCOMPARE(tvtest::ReadFile(m88 + "/M88.INI"),
                 QByteArray("[M88p2 for Windows]\r\nFlags=1\r\n"));
        QVERIFY(QDir(WorkDir).isEmpty());
    }
};

QTEST_MAIN(TstRunnerLayout)
#include "tst_x11_runnerLayout.moc"
