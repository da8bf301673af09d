// ExecEmulator headless: the keys are recorded, not sent, so every row of the two tables can be
// checked for what goes to the clipboard and which sequence follows, in which order.
#include "data/Cfg.h"
#include "launch/ExecEmulator.h"
#include "platform/KeySend.h"
#include "support/GuardedDirs.h"
#include "support/StubWindow.h"
#include "support/TestEmu.h"

#include <QClipboard>
#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>
#include <gtest/gtest.h>

using namespace tv;
using namespace tvtest;

namespace {

class ExecEmulatorTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(root.isValid());
        emuDir = root.path("emu");
        workDir = root.path("work");
        QDir().mkpath(emuDir);
        QDir().mkpath(workDir);
        logPath = root.path("emu.log");
        WriteTestEmuConfig(emuDir, {{"log", logPath}, {"exitafter", "50"}});
        QDir::setCurrent(workDir); // the guard of `root` brings the old one back
        Cfg = CfgRecord{};
        Cfg.M88Dir = emuDir;
        ClearInputLog();
    }
    LaunchCommand Emu(const QString& exe, const QStringList& args = {})
    {
        LaunchCommand c(InstallTestEmu(emuDir, exe));
        c.args(args);
        return c;
    }
    // The input log as "clip:<text>" and "keys:<notation>".
    QStringList Done() const
    {
        QStringList out;
        for (const InputRecord& r : InputLog())
            out << (r.kind == InputRecord::Clip ? "clip:" : "keys:") + r.text;
        return out;
    }
    QStringList Run(const QString& exe, int16_t code, const QString& p1, const QString& p2 = {},
                    uint8_t alt = 0, const QStringList& args = {})
    {
        ExecEmulator(Emu(exe, args), code, p1, p2, alt);
        return Done();
    }

    tvtest::GuardedDirs root;
    tvtest::StubWindow window;
    QString emuDir, workDir, logPath;
};

} // namespace

TEST_F(ExecEmulatorTest, X88000TapeNameAndQuestion)
{
    EXPECT_EQ(Run("X88000.EXE", 4, "GAME.T88"),
              (QStringList{"clip:GAME.T88", "keys:%ITO^V%O{ENTER}"}));
    ClearInputLog();
    EXPECT_EQ(Run("X88000.EXE", 4, "tape.cmt"),
              (QStringList{"clip:tape.cmt", "keys:" + kKeysX88Tape}));
}

TEST_F(ExecEmulatorTest, X88000N80AndOtherExtensions)
{
    EXPECT_EQ(Run("X88000.EXE", 4, "PROG.N80"), (QStringList{"clip:PROG.N80", "keys:%IM^V%O"}));
    ClearInputLog();
    // Any other extension: the clipboard gets the name, no sequence follows.
    EXPECT_EQ(Run("X88000.EXE", 4, "DISK.D88"), (QStringList{"clip:DISK.D88"}));
}

TEST_F(ExecEmulatorTest, X88000WithTheImageQuotedOnTheCommandLineSendsNothing)
{
    LaunchCommand c = Emu("X88000.EXE");
    c.arg("my disk.d88", true);
    ExecEmulator(c, 4, QString(), QString(), 0);
    EXPECT_TRUE(Done().isEmpty());
    auto runs = ReadTestEmuLog(logPath);
    ASSERT_EQ(runs.size(), 1u);
    EXPECT_EQ(runs[0].args.value(1), QStringLiteral("my disk.d88"));
}

TEST_F(ExecEmulatorTest, M88DiskAndTapeWithoutFmpanGoAtOnce)
{
    Cfg.WinSendWait = 400;
    QElapsedTimer t;
    t.start();
    ExecEmulator(Emu("M88.EXE"), 2, "GAME.D88", QString(), 0);
    EXPECT_EQ(Done(), (QStringList{"clip:GAME.D88", "keys:%DC^V%O"}));
    // No FMPAN.D88 in the command line: no delay before the clip.
    EXPECT_LT(InputLog()[0].msecs - (QDateTime::currentMSecsSinceEpoch() - t.elapsed()), 300);
    ClearInputLog();
    EXPECT_EQ(Run("M88.EXE", 2, "GAME.T88"), (QStringList{"clip:GAME.T88", "keys:%TT^V%O"}));
}

TEST_F(ExecEmulatorTest, M88WithFmpanWaitsWinSendWaitBeforeTheTitle)
{
    Cfg.WinSendWait = 350;
    const qint64 t0 = QDateTime::currentMSecsSinceEpoch();
    // The test is made on the upper-cased command line.
    ExecEmulator(Emu("M88.EXE", {"fmpan.d88"}), 2, "GAME.D88", QString(), 0);
    ASSERT_EQ(Done(), (QStringList{"clip:GAME.D88", "keys:%DC^V%O"}));
    EXPECT_GE(InputLog()[0].msecs - t0, 350);
}

TEST_F(ExecEmulatorTest, M88WithTheImageOnTheCommandLineSendsNoNames)
{
    EXPECT_TRUE(Run("M88.EXE", 2, QString(), QString(), 0, {"GAME.D88"}).isEmpty());
    // Other extensions have no row either.
    EXPECT_TRUE(Run("M88.EXE", 2, "GAME.CMT").isEmpty());
}

TEST_F(ExecEmulatorTest, Pc88WinMountsOnlyBehindFmpan)
{
    EXPECT_EQ(Run("PC88WIN.EXE", 3, "GAME.D88", QString(), 0, {"FMPAN.D88"}),
              (QStringList{"clip:GAME.D88", "keys:%D{ENTER}{ENTER}^V%O"}));
    ClearInputLog();
    // The FMPAN file didn't exist, so it isn't on the command line: nothing is mounted.
    EXPECT_TRUE(Run("PC88WIN.EXE", 3, "GAME.D88").isEmpty());
}

TEST_F(ExecEmulatorTest, XmillenniumTapeDiskAndTwoDisks)
{
    EXPECT_EQ(Run("Xmillennium.exe", 22, "GAME.TAP"),
              (QStringList{"clip:GAME.TAP", "keys:{F10}CO^V%O"}));
    ClearInputLog();
    EXPECT_EQ(Run("Xmillennium.exe", 22, "A.D88"), (QStringList{"clip:A.D88", "keys:{F10}0O^V%O"}));
    ClearInputLog();
    Cfg.WinSendWait = 1000;
    EXPECT_EQ(
        Run("Xmillennium.exe", 22, "A_1.D88", "A_2.D88"),
        (QStringList{"clip:A_1.D88", "keys:{F10}0O^V%O", "clip:A_2.D88", "keys:{F10}1O^V%O"}));
    // No delay between the two images.
    EXPECT_LT(InputLog()[2].msecs - InputLog()[1].msecs, 200);
}

TEST_F(ExecEmulatorTest, WinX1MountsTheFirstDiskOnly)
{
    EXPECT_EQ(Run("winx1.exe", 24, "GAME.2D", "B.2D"),
              (QStringList{"clip:GAME.2D", "keys:%FB^V%O"}));
}

TEST_F(ExecEmulatorTest, CodesWithoutARowSendNothing)
{
    Cfg.M88AllScr = Cfg.Pc8AllScr = Cfg.Em7WinAllScr = Cfg.J80AllScr = Cfg.Q88AllScr = 1;
    EXPECT_TRUE(Run("XM7.EXE", 12, "GAME.D77").isEmpty());
    EXPECT_TRUE(Run("EM7.EXE", 13, "GAME.VFD").isEmpty());
    EXPECT_TRUE(Run("PC88WIN.EXE", 3, QString()).isEmpty());
    EXPECT_TRUE(Run("QUASI88.EXE", 5, "GAME.D88").isEmpty());
}

TEST_F(ExecEmulatorTest, FullScreenRows)
{
    Cfg.X88AllScr = 1;
    EXPECT_EQ(Run("X88000.EXE", 4, QString()), (QStringList{"keys:%{ENTER}"}));
    ClearInputLog();
    Cfg.Xm7WinAllScr = 1;
    EXPECT_EQ(Run("XM7.EXE", 12, QString()), (QStringList{"keys:%{ENTER}"}));
    ClearInputLog();
    Cfg.WinX1AllScr = 1;
    EXPECT_EQ(Run("winx1.exe", 24, "A.D88"),
              (QStringList{"clip:A.D88", "keys:%FB^V%O", "keys:%{ENTER}"}));
    ClearInputLog();
    Cfg.XmilAllScr = 1;
    EXPECT_EQ(Run("Xmillennium.exe", 22, QString()), (QStringList{"keys:{F10}SF"}));
    ClearInputLog();
    Cfg.M88AllScr = 1;
    EXPECT_EQ(Run("M88.EXE", 2, QString()), (QStringList{"keys:%{ENTER}"}));
    ClearInputLog();
    // With RND4M88 the hot key is RND4M88's.
    EXPECT_EQ(Run("M88.EXE", 2, QString(), QString(), 1), (QStringList{"keys:%F"}));
}

TEST_F(ExecEmulatorTest, FullScreenWaitsWinSendWaitAfterTheNames)
{
    Cfg.M88AllScr = 1;
    Cfg.WinSendWait = 300;
    ExecEmulator(Emu("M88.EXE"), 2, "GAME.D88", QString(), 0);
    ASSERT_EQ(Done(), (QStringList{"clip:GAME.D88", "keys:%DC^V%O", "keys:%{ENTER}"}));
    EXPECT_GE(InputLog()[2].msecs - InputLog()[1].msecs, 300);
    ClearInputLog();
    // A negative setting waits not at all.
    Cfg.WinSendWait = -5;
    ExecEmulator(Emu("M88.EXE"), 2, "GAME.D88", QString(), 0);
    ASSERT_EQ(Done().size(), 3);
    EXPECT_LT(InputLog()[2].msecs - InputLog()[1].msecs, 150);
}

TEST_F(ExecEmulatorTest, Rnd4m88StartsBesideM88OnlyWhenAskedAndPresent)
{
    Emu("RND4M88.EXE");
    ExecEmulator(Emu("M88.EXE"), 2, QString(), QString(), 0);
    ExecEmulator(Emu("M88.EXE"), 2, QString(), QString(), 1);
    // RND4M88 isn't waited for: give it the time to write its start.
    QElapsedTimer t;
    t.start();
    auto count = [&](const QString& exe) {
        int n = 0;
        for (const TestEmuRun& r : ReadTestEmuLog(logPath))
            n += r.exeName == exe;
        return n;
    };
    while (count("RND4M88.EXE") == 0 && t.elapsed() < 3000)
        QThread::msleep(20);
    EXPECT_EQ(count("M88.EXE"), 2);
    EXPECT_EQ(count("RND4M88.EXE"), 1);
}

TEST_F(ExecEmulatorTest, Rnd4m88MissingIsNotStarted)
{
    ExecEmulator(Emu("M88.EXE"), 2, QString(), QString(), 1);
    QThread::msleep(300);
    for (const TestEmuRun& r : ReadTestEmuLog(logPath))
        EXPECT_NE(r.exeName, QStringLiteral("RND4M88.EXE"));
}

TEST_F(ExecEmulatorTest, MainWindowDisabledDuringTheWaitAndEventsServed)
{
    WriteTestEmuConfig(emuDir, {{"log", logPath}, {"exitafter", "700"}});
    QStringList calls;
    bool enabled = true;
    window.onSetEnabled = [&](bool on) {
        calls << (on ? "enable" : "disable");
        enabled = on;
    };
    int ticks = 0;
    bool disabledAtTick = true;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        ++ticks;
        disabledAtTick = disabledAtTick && !enabled;
    });
    timer.start(50);
    QElapsedTimer t;
    t.start();
    ExecEmulator(Emu("M88.EXE"), 2, QString(), QString(), 0);
    const qint64 took = t.elapsed();
    timer.stop();
    EXPECT_EQ(calls, (QStringList{"disable", "enable"}));
    EXPECT_GE(ticks, 2); // served every 200 ms while the emulator ran
    EXPECT_TRUE(disabledAtTick);
    EXPECT_GE(took, 700);
    ASSERT_EQ(ReadTestEmuLog(logPath).size(), 1u);
    EXPECT_TRUE(ReadTestEmuLog(logPath)[0].exited);
}

TEST_F(ExecEmulatorTest, AnyExitCodeEndsTheWait)
{
    WriteTestEmuConfig(emuDir, {{"log", logPath}, {"exitafter", "0"}, {"exitcode", "3"}});
    QElapsedTimer t;
    t.start();
    ExecEmulator(Emu("XM7.EXE"), 12, QString(), QString(), 0);
    // One poll at least: the exit code is read, then 200 ms of sleep.
    EXPECT_GE(t.elapsed(), 200);
    EXPECT_EQ(ReadTestEmuLog(logPath).at(0).exitCode, 3);
}

TEST_F(ExecEmulatorTest, StartFailureThrowsAndEnablesTheWindowAgain)
{
    QStringList calls;
    window.onSetEnabled = [&](bool on) { calls << (on ? "enable" : "disable"); };
    EXPECT_THROW(ExecEmulator(LaunchCommand(emuDir + "/NOSUCH.EXE"), 2, "A.D88", QString(), 0),
                 EmulatorStartError);
    EXPECT_EQ(calls, (QStringList{"disable", "enable"}));
    EXPECT_TRUE(Done().isEmpty());
}

TEST_F(ExecEmulatorTest, ArgumentWithShellSignsAndJapaneseArrivesAsOne)
{
    const QString name = QStringLiteral("ゲーム $HOME \"引用\" a;b 'c' `d` &.d88");
    QFile(workDir + "/" + name).open(QIODevice::WriteOnly);
    ExecEmulator(Emu("M88.EXE", {name}), 2, QString(), QString(), 0);
    auto runs = ReadTestEmuLog(logPath);
    ASSERT_EQ(runs.size(), 1u);
    ASSERT_EQ(runs[0].args.size(), 2);
    EXPECT_EQ(runs[0].args[1], name);
    // The emulator starts in the current directory that the launch set, and sees its files.
    EXPECT_EQ(QDir(runs[0].cwd).canonicalPath(), QDir(workDir).canonicalPath());
    EXPECT_EQ(runs[0].files, (QStringList{name}));
}

TEST_F(ExecEmulatorTest, ClipboardHoldsTheLastText)
{
    Run("Xmillennium.exe", 22, "A_1.D88", "A_2.D88");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("A_2.D88"));
}
