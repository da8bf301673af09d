// The launch road through each runner, played by the test runner: the emulator (the test
// emulator, handed over to by exec) sees the same command line, directory, files and
// configuration bytes as when it is started directly, the runner gets its environment, and
// WorkDir and the temporary directory are left as they were.
#include "adapters/fm7x1/EmuOptFMX1.h"
#include "adapters/pc88/EmuOpt88.h"
#include "data/Cfg.h"
#include "data/clsLst.h"
#include "launch/Launch.h"
#include "launch/Runner.h"
#include "support/LaunchFixture.h"
#include "support/ScriptedMsgBox.h"
#include "support/TestEmu.h"
#include "support/TestRunner.h"
#include "util/Globals.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QThread>
#include <gtest/gtest.h>

using namespace tv;
using namespace tvtest;

namespace {

class RunnerRoad : public LaunchFixture {
protected:
    void SetUp() override
    {
        LaunchFixture::SetUp();
        bin_ = r_ + "/runners";
        QDir().mkpath(bin_);
        ASSERT_TRUE(InstallTestRunner(bin_));
        runnerLog_ = r_ + "/runner.log";
        qputenv("TESTRUNNER_LOG", runnerLog_.toUtf8());
        Cfg.M88CfgChk = 0;
        Cfg.DefOpt = 1;
        SetDefaultEmuOptX1(Cfg.CfgEmuOptX1);
        Runners().clear();
    }
    void TearDown() override
    {
        Runners().clear();
        qunsetenv("TESTRUNNER_LOG");
        qunsetenv("TESTRUNNER_JAVA");
        qunsetenv("TESTRUNNER_FAIL");
        LaunchFixture::TearDown();
    }

    void Title(uint8_t hw, const QString& name)
    {
        const QString path = r_ + "/images/" + name;
        ASSERT_TRUE(WriteFile(path, Image()));
        Item(hw, path, name);
    }

    // One launch that tells nothing; its one run of the emulator, the log emptied behind it.
    TestEmuRun LaunchOnce(int code)
    {
        ScriptedMsgBox box;
        RunSelectedItem(int16_t(code));
        EXPECT_TRUE(box.calls().empty()) << box.texts().join("|").toStdString();
        const auto runs = Runs();
        EXPECT_EQ(runs.size(), 1u);
        QFile::remove(log_);
        return runs.empty() ? TestEmuRun{} : runs.back();
    }

    // A launch the runner refuses: one message, no run of the emulator, WorkDir left empty.
    tv::MsgBoxCall Refused(int code)
    {
        ScriptedMsgBox box;
        RunSelectedItem(int16_t(code));
        EXPECT_TRUE(Runs().empty());
        EXPECT_TRUE(WorkFiles().isEmpty());
        EXPECT_EQ(box.calls().size(), 1u) << box.texts().join("|").toStdString();
        return box.calls().empty() ? tv::MsgBoxCall{} : box.calls()[0];
    }

    static void ExpectSameRun(const TestEmuRun& direct, const TestEmuRun& wrapped)
    {
        EXPECT_EQ(wrapped.exeName, direct.exeName);
        EXPECT_EQ(wrapped.args, direct.args);
        EXPECT_EQ(wrapped.cwd, direct.cwd);
        EXPECT_EQ(wrapped.files, direct.files);
        EXPECT_EQ(wrapped.shown, direct.shown);
        EXPECT_EQ(wrapped.unreadable, direct.unreadable);
        EXPECT_EQ(wrapped.listed, direct.listed);
        EXPECT_TRUE(wrapped.exited);
    }

    QStringList RunDirs() const
    {
        return QDir(EnvTmpDir).entryList({"torvane-run-*"},
                                         QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot);
    }

    QString bin_, runnerLog_;
};

TEST_F(RunnerRoad, WineStartsM88AsItWouldStartDirectly)
{
    const QString dir = Emu(2, {{"show", r_ + "/emu/2/M88.INI"}, {"list", r_ + "/emu/2"}});
    WriteFile(dir + "/M88.INI", "[User]\r\n");
    Title(0, "GAME.D88");
    const TestEmuRun direct = LaunchOnce(2);
    EXPECT_FALSE(QFileInfo::exists(runnerLog_));

    RunnerSettings s;
    s.kind = RunnerKind::Wine;
    s.wineProgram = bin_ + "/wine";
    s.winePrefix = r_ + "/prefix";
    s.extraEnvironment = {"TV_RUNNER=yes"};
    Runners()[Emu::M88] = s;
    const TestEmuRun wine = LaunchOnce(2);

    ExpectSameRun(direct, wine);
    EXPECT_EQ(ReadFile(dir + "/M88.INI"), "[User]\r\n");
    EXPECT_TRUE(WorkFiles().isEmpty());
    const auto runs = ReadTestRunnerLog(runnerLog_);
    ASSERT_EQ(runs.size(), 2u);
    // The prefix was prepared first, then wine ran the program in WorkDir, keeping its pid.
    EXPECT_EQ(runs[0].name, "wineboot");
    EXPECT_EQ(runs[1].name, "wine");
    EXPECT_EQ(runs[1].args, (QStringList{bin_ + "/wine", dir + "/M88.EXE", "GAME.D88"}));
    EXPECT_EQ(QFileInfo(runs[1].cwd).canonicalFilePath(), QFileInfo(WorkDir).canonicalFilePath());
    EXPECT_EQ(runs[1].pid, wine.pid);
    EXPECT_EQ(runs[1].env.value("WINEPREFIX"), r_ + "/prefix");
    EXPECT_EQ(runs[1].env.value("WINEDEBUG"), "-all");
    EXPECT_EQ(runs[1].env.value("LANG"), "ja_JP.UTF-8");
    EXPECT_EQ(runs[1].env.value("LC_ALL"), "ja_JP.UTF-8");
    EXPECT_EQ(runs[1].env.value("TV_RUNNER"), "yes");
    // Its output went to a file, not to a pipe of ours.
    EXPECT_TRUE(QFileInfo::exists(EnvTmpDir + "/torvane-M88.log"));
}

// A drive table gives the paths in M88's INI its drive; the next launch without one has "Z:".
TEST_F(RunnerRoad, WineDriveTableReachesTheFilesWritten)
{
    Emu(2, {{"show", r_ + "/emu/2/M88.INI"}});
    Title(0, "GAME.D88");
    const QString zWork = QString("Z:" + WorkDir).replace('/', '\\');
    const TestEmuRun direct = LaunchOnce(2);
    ASSERT_TRUE(direct.shown.value(r_ + "/emu/2/M88.INI").contains(zWork.toLatin1()));

    RunnerSettings s;
    s.kind = RunnerKind::Wine;
    s.wineProgram = bin_ + "/wine";
    s.winePrefix = r_ + "/prefix";
    s.driveTable = {"W:=" + r_ + "/app"};
    Runners()[Emu::M88] = s;
    const TestEmuRun wine = LaunchOnce(2);
    const QByteArray ini = wine.shown.value(r_ + "/emu/2/M88.INI");
    EXPECT_TRUE(ini.contains("W:\\TORVBOOT")) << ini.toStdString();
    EXPECT_FALSE(ini.contains(zWork.toLatin1()));
    EXPECT_EQ(ToWinePath(WorkDir), zWork);
}

// RND4M88, started beside M88, goes through M88's runner.
TEST_F(RunnerRoad, Rnd4m88StartsWithM88sRunner)
{
    const QString dir = Emu(2);
    ASSERT_FALSE(InstallTestEmu(dir, "RND4M88.EXE").isEmpty());
    EmuOpt88 title;
    SetDefaultEmuOpt88(title);
    title.M88_1Op[23] = 1;
    ItemBlock(title);
    Cfg.DefOpt = 0;
    Title(0, "GAME.D88");
    RunnerSettings s;
    s.kind = RunnerKind::Wine;
    s.wineProgram = bin_ + "/wine";
    s.winePrefix = r_ + "/prefix";
    Runners()[Emu::M88] = s;
    {
        ScriptedMsgBox box;
        RunSelectedItem(2);
        EXPECT_TRUE(box.calls().empty());
    }
    QElapsedTimer t;
    t.start();
    auto wineRuns = [this] {
        QStringList programs;
        for (const TestRunnerRun& r : ReadTestRunnerLog(runnerLog_))
            if (r.name == "wine")
                programs << r.args.value(1);
        return programs;
    };
    while (wineRuns().size() < 2 && t.elapsed() < 5000)
        QThread::msleep(50);
    QStringList programs = wineRuns();
    programs.sort();
    EXPECT_EQ(programs, (QStringList{dir + "/M88.EXE", dir + "/RND4M88.EXE"}));
    // Let the companion end before the directory goes.
    while (Runs().size() < 2 && t.elapsed() < 5000)
        QThread::msleep(50);
    QThread::msleep(400);
}

TEST_F(RunnerRoad, DosBoxStartsX1rFromDWithCCurrent)
{
    Emu(21);
    Title(2, "GAME.D88");
    const TestEmuRun direct = LaunchOnce(21);

    RunnerSettings s;
    s.kind = RunnerKind::DosBox;
    s.dosboxProgram = bin_ + "/dosbox";
    Runners()[Emu::X1r] = s;
    const TestEmuRun dos = LaunchOnce(21);

    ExpectSameRun(direct, dos);
    EXPECT_TRUE(WorkFiles().isEmpty());
    EXPECT_TRUE(RunDirs().isEmpty());
    const auto runs = ReadTestRunnerLog(runnerLog_);
    ASSERT_EQ(runs.size(), 1u);
    EXPECT_EQ(runs[0].fail, "");
    EXPECT_EQ(runs[0].pid, dos.pid);
    ASSERT_EQ(runs[0].args.size(), 4);
    const QString conf = runs[0].args[3];
    const QString priv = QFileInfo(conf).path();
    EXPECT_EQ(runs[0].args, (QStringList{bin_ + "/dosbox", "-userconf", "-conf", conf}));
    EXPECT_EQ(runs[0].cwd, priv);
    EXPECT_EQ(runs[0].conf,
              (QStringList{"[autoexec]", "mount c " + priv + "/c", "mount d " + priv + "/d",
                           "c:", "d:\\X1R.COM " + direct.args.mid(1).join(' '), "exit"}));
}

TEST_F(RunnerRoad, DosBoxFindsTheStagedExtenderInC)
{
    const QString dir = Emu(23);
    WriteFile(dir + "/DOS4GW.EXE", "extender");
    Title(2, "GAME.D88");
    const TestEmuRun direct = LaunchOnce(23);
    EXPECT_TRUE(direct.files.contains("DOS4GW.EXE"));

    RunnerSettings s;
    s.kind = RunnerKind::DosBox;
    s.dosboxProgram = bin_ + "/dosbox";
    Runners()[Emu::X1emu] = s;
    const TestEmuRun dos = LaunchOnce(23);

    ExpectSameRun(direct, dos);
    EXPECT_TRUE(WorkFiles().isEmpty());
    EXPECT_TRUE(RunDirs().isEmpty());
}

TEST_F(RunnerRoad, JavaRunsJ80WithItsArguments)
{
    Emu(6);
    Cfg.J80RomsFile = r_ + "/rom/PC88.ROM";
    Cfg.J80RomsAddress = "16000";
    Cfg.J80FontFile = r_ + "/rom/PC-8001.FON";
    Cfg.J80CrtFile = r_ + "/rom/crt.gif";
    Cfg.J80KeyFile = r_ + "/rom/key.txt";
    const QString jre = r_ + "/jre";
    QDir().mkpath(jre);
    Cfg.JavaVMPath = InstallTestEmu(jre, "java");
    ASSERT_TRUE(WriteTestEmuConfig(
        jre, {{"log", log_}, {"exitafter", "300"}, {"show", WorkDir + "/j80.cfg"}}));
    Title(0, "GAME.D88");
    const TestEmuRun direct = LaunchOnce(6);
    EXPECT_FALSE(direct.shown.value(WorkDir + "/j80.cfg").isEmpty());

    RunnerSettings s;
    s.javaProgram = bin_ + "/java";
    s.jvmArguments = "-Xmx64m -Dfile.encoding=UTF-8";
    Runners()[Emu::J80] = s;
    qputenv("TESTRUNNER_JAVA", Cfg.JavaVMPath.toUtf8());
    const TestEmuRun java = LaunchOnce(6);

    ExpectSameRun(direct, java);
    EXPECT_TRUE(WorkFiles().isEmpty());
    const auto runs = ReadTestRunnerLog(runnerLog_);
    ASSERT_EQ(runs.size(), 1u);
    EXPECT_EQ(runs[0].args, (QStringList{bin_ + "/java", "-Xmx64m", "-Dfile.encoding=UTF-8", "-jar",
                                         r_ + "/emu/6/j80.jar", "j80.cfg"}));
    EXPECT_EQ(runs[0].pid, java.pid);
}

// A runner that isn't there ends the launch with its name before anything of the user's is
// touched: no backup of the emulator's configuration, no run, WorkDir empty.
TEST_F(RunnerRoad, AMissingRunnerIsToldBeforeAnythingIsTouched)
{
    const QString dir = Emu(2);
    WriteFile(dir + "/M88.INI", "[User]\r\n");
    Title(0, "GAME.D88");
    RunnerSettings s;
    s.kind = RunnerKind::Wine;
    s.wineProgram = r_ + "/nowhere/wine";
    Runners()[Emu::M88] = s;

    const MsgBoxCall told = Refused(2);
    EXPECT_EQ(told.text, kRunnerMissingText.arg(r_ + "/nowhere/wine"));
    EXPECT_EQ(told.flags, 48);
    EXPECT_EQ(told.caption, "Emu実行エラー");
    EXPECT_EQ(QDir(dir).entryList(QDir::Files), (QStringList{"M88.EXE", "M88.INI", "testemu.ini"}));
}

TEST_F(RunnerRoad, APrefixThatCantBePreparedEndsTheLaunch)
{
    const QString dir = Emu(2);
    Title(0, "GAME.D88");
    RunnerSettings s;
    s.kind = RunnerKind::Wine;
    s.wineProgram = bin_ + "/wine";
    s.winePrefix = r_ + "/prefix";
    Runners()[Emu::M88] = s;
    qputenv("TESTRUNNER_FAIL", "wineboot");

    EXPECT_EQ(Refused(2).text, kWinePrefixText.arg(r_ + "/prefix"));
    EXPECT_EQ(QDir(dir).entryList(QDir::Files), (QStringList{"M88.EXE", "testemu.ini"}));
}

// P88SR takes its second disk by the name in the record: a long one DOS can't reach refuses
// the launch before anything of the user's is touched (no backup of P88SR.CFG, no run).
TEST_F(RunnerRoad, ANameDosCantReachIsToldBeforeAnythingIsTouched)
{
    Cfg.P88CfgChk = 0;
    Cfg.PanUse = 0;
    const QString dir = Emu(1);
    WriteFile(dir + "/P88SR.CFG", "user's");
    WriteFile(r_ + "/images/GAME.D88", Image());
    Item(0, r_ + "/images/GAME.D88", "GAME.D88", 0, 0, "SECOND DISK.D88");
    RunnerSettings s;
    s.kind = RunnerKind::DosBox;
    s.dosboxProgram = bin_ + "/dosbox";
    Runners()[Emu::P88sr] = s;

    EXPECT_EQ(Refused(1).text, kDosNameText.arg("「SECOND DISK.D88」に空白があります。"));
    EXPECT_EQ(QDir(dir).entryList(QDir::Files),
              (QStringList{"P88SR.CFG", "P88SR.EXE", "testemu.ini"}));
    EXPECT_EQ(ReadFile(dir + "/P88SR.CFG"), "user's");
}

// A command that DOS can't carry, known only once the branch has made it, ends the launch with
// everything put back as after any launch: here QUASI88, a Windows program, set to DOSBox,
// whose directories are Wine paths.
TEST_F(RunnerRoad, ACommandDosCantCarryIsUndoneAndTold)
{
    Cfg.Q88CfgChk = 0;
    Cfg.PanUse = 0;
    const QString dir = Emu(5);
    const QStringList before = QDir(dir).entryList(QDir::Files);
    Title(0, "GAME.D88");
    RunnerSettings s;
    s.kind = RunnerKind::DosBox;
    s.dosboxProgram = bin_ + "/dosbox";
    Runners()[Emu::QUASI88] = s;

    const MsgBoxCall told = Refused(5);
    EXPECT_EQ(told.text,
              kDosNameText.arg("「" + ToWinePath(dir) +
                               "」は8.3形式（名前8文字・拡張子3文字まで）の名前ではありません。"));
    EXPECT_EQ(told.caption, "Emu実行エラー");
    EXPECT_FALSE(QFileInfo::exists(runnerLog_));
    EXPECT_EQ(QDir(dir).entryList(QDir::Files), before);
    EXPECT_TRUE(
        QDir(EnvTmpDir)
            .entryList({"torvane-run-*"}, QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
            .isEmpty());
}

// The bare emulator goes through its runner too, started in its directory.
TEST_F(RunnerRoad, TheBareEmulatorStartsThroughItsRunner)
{
    const QString dir = Emu(2);
    window_->hasSelectedItem = false;
    RunnerSettings s;
    s.kind = RunnerKind::Wine;
    s.wineProgram = bin_ + "/wine";
    s.winePrefix = r_ + "/prefix";
    Runners()[Emu::M88] = s;
    HardWare = 0;

    ScriptedMsgBox box;
    RunSelectedItem(2);
    EXPECT_TRUE(box.calls().empty());
    QElapsedTimer t;
    t.start();
    while (Runs().empty() || !Runs().back().exited) {
        ASSERT_LT(t.elapsed(), 10000);
        QThread::msleep(50);
    }
    const TestEmuRun run = Runs().back();
    EXPECT_EQ(run.args, QStringList{dir + "/M88.EXE"});
    EXPECT_EQ(QFileInfo(run.cwd).canonicalFilePath(), QFileInfo(dir).canonicalFilePath());
    const auto runs = ReadTestRunnerLog(runnerLog_);
    ASSERT_EQ(runs.size(), 2u);
    EXPECT_EQ(runs[1].args, (QStringList{bin_ + "/wine", dir + "/M88.EXE"}));
}

// A bare DOS emulator under DOSBox keeps its configuration while it runs; the next launch
// through DOSBox, once it has ended, takes it away.
TEST_F(RunnerRoad, ABareDosBoxStartsFilesGoAfterItEnds)
{
    Emu(21);
    RunnerSettings s;
    s.kind = RunnerKind::DosBox;
    s.dosboxProgram = bin_ + "/dosbox";
    Runners()[Emu::X1r] = s;
    window_->hasSelectedItem = false;
    HardWare = 2;
    {
        ScriptedMsgBox box;
        RunSelectedItem(21);
        EXPECT_TRUE(box.calls().empty());
    }
    EXPECT_EQ(RunDirs().size(), 1u);
    QElapsedTimer t;
    t.start();
    while ((Runs().empty() || !Runs().back().exited) && t.elapsed() < 10000)
        QThread::msleep(50);
    ASSERT_FALSE(Runs().empty());
    QThread::msleep(200); // the process is reaped by now
    QFile::remove(log_);

    window_->hasSelectedItem = true;
    Title(2, "GAME.D88");
    LaunchOnce(21);
    EXPECT_TRUE(RunDirs().isEmpty());
    EXPECT_TRUE(WorkFiles().isEmpty());
}

} // namespace
