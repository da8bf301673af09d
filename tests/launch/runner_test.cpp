// The runners on their own: what a program's header says, the kind Auto stands for, and the
// outer commands of each kind, with the expected texts written out. With the defaults every
// emulator's command stays as the launch builds it.
#include "data/EmuRegistry.h"
#include "launch/Runner.h"
#include "support/GuardedDirs.h"
#include "support/ProcessState.h"
#include "support/ScriptedMsgBox.h"
#include "support/StubWindow.h"
#include "support/TestEmu.h"
#include "support/TestRunner.h"
#include "util/Globals.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <optional>

using namespace tv;
using namespace tvtest;

namespace {

// A DOS header whose e_lfanew points at `lfanew`, with `newHeader` there.
QByteArray Mz(int32_t lfanew, const QByteArray& newHeader)
{
    QByteArray b(0x40, '\0');
    b[0] = 'M';
    b[1] = 'Z';
    for (int i = 0; i < 4; ++i)
        b[0x3C + i] = char((uint32_t(lfanew) >> (8 * i)) & 0xFF);
    if (!newHeader.isEmpty()) {
        b.resize(lfanew, '\0');
        b += newHeader;
    }
    return b;
}

class RunnerTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(root_.isValid());
        r_ = root_.path();
        for (const char* d : {"tmp", "bin", "emu", "work"})
            QDir().mkpath(r_ + "/" + d);
        saved_.emplace();
        EnvTmpDir = EnvTempDir = r_ + "/tmp";
        WorkDir = r_ + "/work";
        ASSERT_TRUE(InstallTestRunner(r_ + "/bin"));
        window_.emplace();
    }
    void TearDown() override
    {
        window_.reset();
        saved_.reset();
    }

    ProgramHeader Header(const QString& name, const QByteArray& bytes)
    {
        const QString path = r_ + "/emu/" + name;
        EXPECT_TRUE(WriteFile(path, bytes));
        return ReadProgramHeader(path);
    }

    RunnerCommand Wrap(Emu emu, const LaunchCommand& cmd, const RunnerSettings& s)
    {
        QString why;
        auto rc = WrapCommand(emu, cmd, s, &why);
        EXPECT_TRUE(rc.has_value()) << why.toStdString();
        return rc.value_or(RunnerCommand{});
    }
    QString Refusal(Emu emu, const LaunchCommand& cmd, const RunnerSettings& s)
    {
        QString why;
        EXPECT_FALSE(WrapCommand(emu, cmd, s, &why).has_value());
        return why;
    }

    QTemporaryDir root_;
    QString r_;
    std::optional<ProcessState> saved_;
    std::optional<StubWindow> window_;
};

TEST_F(RunnerTest, HeadersOfEachKind)
{
    EXPECT_EQ(Header("native", QByteArray("\x7f"
                                          "ELF\x02\x01\x01",
                                          7) +
                                   QByteArray(60, '\0')),
              ProgramHeader::Elf);
    EXPECT_EQ(Header("start.sh", "#!/bin/sh\nexec true\n"), ProgramHeader::Script);
    EXPECT_EQ(Header("WIN32.EXE", Mz(0x80, QByteArray("PE\0\0\x4c\x01", 6))), ProgramHeader::Pe);
    EXPECT_EQ(Header("WIN64.EXE", Mz(0x80, QByteArray("PE\0\0\x64\x86", 6))), ProgramHeader::Pe);
    EXPECT_EQ(Header("WIN16.EXE", Mz(0x80, QByteArray("NE\x05\x0a", 4))), ProgramHeader::Ne);
    EXPECT_EQ(Header("DOS.EXE", Mz(0, QByteArray())), ProgramHeader::Mz);
    EXPECT_EQ(Header("DOS4G.EXE", Mz(0x100, QByteArray("LE\0\0", 4))), ProgramHeader::Mz);
    EXPECT_EQ(Header("OLD.EXE", QByteArray("ZM") + QByteArray(40, '\0')), ProgramHeader::Mz);
    // "PE" without its two zero bytes is no PE header.
    EXPECT_EQ(Header("ODD.EXE", Mz(0x80, QByteArray("PEXX", 4))), ProgramHeader::Mz);
    EXPECT_EQ(Header("X1R.COM", QByteArray("\xb4\x09\xba\x0b\x01\xcd\x21\xcd\x20", 9)),
              ProgramHeader::Com);
    EXPECT_EQ(Header("lower.com", QByteArray("\xc3", 1)), ProgramHeader::Com);
    EXPECT_EQ(Header("NOTHING.BIN", QByteArray("\xc3", 1)), ProgramHeader::Unknown);
}

TEST_F(RunnerTest, TruncatedAndMissingFiles)
{
    EXPECT_EQ(Header("EMPTY.EXE", QByteArray()), ProgramHeader::Unknown);
    EXPECT_EQ(Header("EMPTY.COM", QByteArray()), ProgramHeader::Com);
    EXPECT_EQ(Header("M.EXE", "M"), ProgramHeader::Unknown);
    EXPECT_EQ(Header("MZ.EXE", "MZ"), ProgramHeader::Mz);
    EXPECT_EQ(Header("SHORT.EXE", QByteArray("MZ") + QByteArray(0x3C, '\0') + "\x80"),
              ProgramHeader::Mz);
    // e_lfanew beyond the end, and a new header cut after its first byte.
    EXPECT_EQ(Header("FAR.EXE", Mz(0x7fffffff, QByteArray())), ProgramHeader::Mz);
    EXPECT_EQ(Header("CUT.EXE", Mz(0x80, "P")), ProgramHeader::Mz);
    EXPECT_EQ(Header("CUTPE.EXE", Mz(0x80, "PE")), ProgramHeader::Mz);
    EXPECT_EQ(Header("NEGATIVE.EXE", Mz(-4, QByteArray())), ProgramHeader::Mz);
    EXPECT_EQ(Header("#!", "#"), ProgramHeader::Unknown);
    EXPECT_EQ(ReadProgramHeader(r_ + "/emu/NONE.EXE"), ProgramHeader::Missing);
    EXPECT_EQ(ReadProgramHeader(r_ + "/emu"), ProgramHeader::Missing);
    EXPECT_EQ(ReadProgramHeader(QString()), ProgramHeader::Missing);
}

TEST_F(RunnerTest, AutoStandsForTheKindOfTheHeader)
{
    ASSERT_TRUE(WriteFile(r_ + "/emu/M88.EXE", Mz(0x80, QByteArray("PE\0\0\x4c\x01", 6))));
    ASSERT_TRUE(WriteFile(r_ + "/emu/WIN16.EXE", Mz(0x80, QByteArray("NE", 2))));
    ASSERT_TRUE(WriteFile(r_ + "/emu/XM7.EXE", Mz(0x100, QByteArray("LE\0\0", 4))));
    ASSERT_TRUE(WriteFile(r_ + "/emu/X1R.COM", QByteArray("\xcd\x20", 2)));
    ASSERT_TRUE(WriteFile(r_ + "/emu/run.sh", "#!/bin/sh\n"));
    const QString elf = InstallTestEmu(r_ + "/emu", "P88SR.EXE");
    EXPECT_EQ(DetectRunner(Emu::M88, r_ + "/emu/M88.EXE"), RunnerKind::Wine);
    EXPECT_EQ(DetectRunner(Emu::M88, r_ + "/emu/WIN16.EXE"), RunnerKind::Wine);
    EXPECT_EQ(DetectRunner(Emu::Xm7Dos, r_ + "/emu/XM7.EXE"), RunnerKind::DosBox);
    EXPECT_EQ(DetectRunner(Emu::X1r, r_ + "/emu/X1R.COM"), RunnerKind::DosBox);
    EXPECT_EQ(DetectRunner(Emu::P88sr, elf), RunnerKind::Direct);
    EXPECT_EQ(DetectRunner(Emu::P88sr, r_ + "/emu/run.sh"), RunnerKind::Direct);
    EXPECT_EQ(DetectRunner(Emu::P88sr, r_ + "/emu/NONE.EXE"), RunnerKind::Direct);
    EXPECT_EQ(DetectRunner(Emu::J80, QStringLiteral("java")), RunnerKind::Java);
    RunnerSettings s;
    EXPECT_EQ(EffectiveRunner(Emu::M88, r_ + "/emu/M88.EXE", s), RunnerKind::Wine);
    s.kind = RunnerKind::Direct;
    EXPECT_EQ(EffectiveRunner(Emu::M88, r_ + "/emu/M88.EXE", s), RunnerKind::Direct);
    s.kind = RunnerKind::DosBox;
    EXPECT_EQ(EffectiveRunner(Emu::P88sr, elf, s), RunnerKind::DosBox);
}

// With the defaults, each of the thirteen emulators, played by the test emulator (a native
// program), is started with exactly the command the launch built.
TEST_F(RunnerTest, DefaultsKeepEveryCommandAsBuilt)
{
    for (const EmuRow& row : EmuRows()) {
        const QString program = InstallTestEmu(r_ + "/emu", row.exeName());
        LaunchCommand cmd(row.emu == Emu::J80 ? QStringLiteral("java") : program);
        cmd.arg("-opt").arg("GAME 1.D88", true).arg("Z:\\dir\\ゲーム.D88");
        const RunnerCommand rc = Wrap(row.emu, cmd, RunnerOf(row.emu));
        SCOPED_TRACE(row.exeName().toStdString());
        EXPECT_EQ(rc.kind, row.emu == Emu::J80 ? RunnerKind::Java : RunnerKind::Direct);
        EXPECT_EQ(rc.program, cmd.program);
        EXPECT_EQ(rc.arguments, QStringList({"-opt", "GAME 1.D88", "Z:\\dir\\ゲーム.D88"}));
        EXPECT_TRUE(rc.environment.isEmpty());
        EXPECT_TRUE(rc.generated.empty());
        EXPECT_TRUE(rc.workingDir.isEmpty());
        EXPECT_EQ(rc.outputFile, r_ + "/tmp/torvane-" + row.key + ".log");
        // The text form the user knows is the one the emulator gets.
        EXPECT_EQ(cmd.text(), cmd.program + " -opt \"GAME 1.D88\" Z:\\dir\\ゲーム.D88");
    }
}

TEST_F(RunnerTest, WineGolden)
{
    RunnerSettings s;
    s.kind = RunnerKind::Wine;
    s.wineProgram = r_ + "/bin/wine";
    s.winePrefix = r_ + "/prefix";
    LaunchCommand cmd(r_ + "/emu/M88.EXE");
    cmd.arg("GAME.D88");
    const RunnerCommand rc = Wrap(Emu::M88, cmd, s);
    EXPECT_EQ(rc.kind, RunnerKind::Wine);
    EXPECT_EQ(rc.program, r_ + "/bin/wine");
    EXPECT_EQ(rc.arguments, QStringList({r_ + "/emu/M88.EXE", "GAME.D88"}));
    EXPECT_EQ(rc.environment, QStringList({"WINEPREFIX=" + r_ + "/prefix", "WINEDEBUG=-all",
                                           "LANG=ja_JP.UTF-8", "LC_ALL=ja_JP.UTF-8"}));
    EXPECT_TRUE(rc.workingDir.isEmpty());
    EXPECT_TRUE(rc.generated.empty());
    EXPECT_EQ(rc.shellLine(),
              QString("WINEPREFIX=%1/prefix WINEDEBUG=-all LANG=ja_JP.UTF-8 LC_ALL=ja_JP.UTF-8 "
                      "%1/bin/wine %1/emu/M88.EXE GAME.D88")
                  .arg(r_));
}

TEST_F(RunnerTest, WineWithEverySetting)
{
    RunnerSettings s;
    s.kind = RunnerKind::Wine;
    s.wineProgram = r_ + "/bin/wine";
    s.japaneseLocale = false;
    s.wineDebug = "";
    s.dllOverrides = "mscoree,mshtml=";
    s.extraArguments = "--debug-msg  x";
    s.extraEnvironment = {"TV_A=a b", "bad entry", "TV_B='q'"};
    LaunchCommand cmd(r_ + "/エミュ 1/X88000.EXE");
    cmd.arg("-f").arg("ゲーム 1.D88", true);
    const RunnerCommand rc = Wrap(Emu::X88k, cmd, s);
    EXPECT_EQ(rc.arguments,
              QStringList({"--debug-msg", "x", r_ + "/エミュ 1/X88000.EXE", "-f", "ゲーム 1.D88"}));
    EXPECT_EQ(rc.environment,
              QStringList({"WINEDLLOVERRIDES=mscoree,mshtml=", "TV_A=a b", "TV_B='q'"}));
    EXPECT_EQ(rc.shellLine(),
              QString("WINEDLLOVERRIDES=mscoree,mshtml= TV_A='a b' TV_B=''\\''q'\\''' %1/bin/wine "
                      "--debug-msg x '%1/エミュ 1/X88000.EXE' -f 'ゲーム 1.D88'")
                  .arg(r_));
}

TEST_F(RunnerTest, JavaGolden)
{
    LaunchCommand cmd("java");
    cmd.arg("-jar").arg(r_ + "/emu/j80.jar").arg("j80.cfg").arg("-silent");
    // The defaults keep the launch's own choice of runtime.
    RunnerCommand rc = Wrap(Emu::J80, cmd, RunnerSettings{});
    EXPECT_EQ(rc.shellLine(), QString("java -jar %1/emu/j80.jar j80.cfg -silent").arg(r_));
    RunnerSettings s;
    s.javaProgram = r_ + "/bin/java";
    s.jvmArguments = "-Xmx64m  -Dfile.encoding=UTF-8";
    rc = Wrap(Emu::J80, cmd, s);
    EXPECT_EQ(rc.kind, RunnerKind::Java);
    EXPECT_EQ(rc.program, r_ + "/bin/java");
    EXPECT_EQ(rc.arguments, QStringList({"-Xmx64m", "-Dfile.encoding=UTF-8", "-jar",
                                         r_ + "/emu/j80.jar", "j80.cfg", "-silent"}));
    EXPECT_TRUE(rc.environment.isEmpty());
    EXPECT_EQ(rc.shellLine(),
              QString("%1/bin/java -Xmx64m -Dfile.encoding=UTF-8 -jar %1/emu/j80.jar j80.cfg "
                      "-silent")
                  .arg(r_));
}

TEST_F(RunnerTest, DosBoxGolden)
{
    RunnerSettings s;
    s.kind = RunnerKind::DosBox;
    s.dosboxProgram = r_ + "/bin/dosbox";
    LaunchCommand cmd(r_ + "/emu/X1R.COM");
    cmd.arg("/T1").arg("/R2").arg("GAME.D88").arg("GAME2.D88");
    const RunnerCommand rc = Wrap(Emu::X1r, cmd, s);
    const QString p = rc.privateDir;
    ASSERT_TRUE(p.startsWith(r_ + "/tmp/torvane-run-")) << p.toStdString();
    EXPECT_EQ(rc.kind, RunnerKind::DosBox);
    EXPECT_EQ(rc.program, r_ + "/bin/dosbox");
    EXPECT_EQ(rc.arguments, QStringList({"-userconf", "-conf", p + "/dosbox.conf"}));
    EXPECT_EQ(rc.workingDir, p);
    ASSERT_EQ(rc.generated.size(), 3u);
    EXPECT_EQ(rc.generated[0].path, p + "/c");
    EXPECT_EQ(rc.generated[0].linkTarget, r_ + "/work");
    EXPECT_EQ(rc.generated[1].path, p + "/d");
    EXPECT_EQ(rc.generated[1].linkTarget, r_ + "/emu");
    EXPECT_EQ(rc.generated[2].path, p + "/dosbox.conf");
    EXPECT_EQ(rc.generated[2].text, QString("[autoexec]\n"
                                            "mount c %1/c\n"
                                            "mount d %1/d\n"
                                            "c:\n"
                                            "d:\\X1R.COM /T1 /R2 GAME.D88 GAME2.D88\n"
                                            "exit\n")
                                        .arg(p));
    EXPECT_EQ(rc.shellLine(), QString("%1/bin/dosbox -userconf -conf %2/dosbox.conf").arg(r_, p));

    s.dosboxFlavour = DosBoxFlavour::Staging;
    RunnerCommand st = Wrap(Emu::X1r, cmd, s);
    EXPECT_EQ(st.arguments, QStringList({"-conf", st.privateDir + "/dosbox.conf"}));
    s.dosboxFlavour = DosBoxFlavour::X;
    st = Wrap(Emu::X1r, cmd, s);
    EXPECT_EQ(st.arguments, QStringList({"-userconf", "-conf", st.privateDir + "/dosbox.conf",
                                         "-nopromptfolder"}));
    // Each launch has a directory of its own.
    EXPECT_NE(st.privateDir, p);
}

TEST_F(RunnerTest, DosBoxOfABareStartMountsTheEmulatorsDirectory)
{
    RunnerSettings s;
    s.kind = RunnerKind::DosBox;
    s.dosboxProgram = r_ + "/bin/dosbox";
    LaunchCommand cmd("xm7.exe");
    cmd.workingDir = r_ + "/emu";
    const RunnerCommand rc = Wrap(Emu::Xm7Dos, cmd, s);
    ASSERT_EQ(rc.generated.size(), 3u);
    EXPECT_EQ(rc.generated[0].linkTarget, r_ + "/emu");
    EXPECT_EQ(rc.generated[1].linkTarget, r_ + "/emu");
    EXPECT_EQ(rc.generated[2].text, QString("[autoexec]\nmount c %1/c\nmount d %1/d\nc:\n"
                                            "d:\\xm7.exe\nexit\n")
                                        .arg(rc.privateDir));
}

TEST_F(RunnerTest, NamesDosCantReachAreRefused)
{
    RunnerSettings s;
    s.kind = RunnerKind::DosBox;
    s.dosboxProgram = r_ + "/bin/dosbox";
    auto cmd = [&](const QString& program, const QString& arg, bool quoted = false) {
        LaunchCommand c(r_ + "/emu/" + program);
        c.arg(arg, quoted);
        return c;
    };
    EXPECT_EQ(
        Refusal(Emu::X1r, cmd("X1RLONGNAME.COM", "A.D88"), s),
        kDosNameText.arg(
            "「X1RLONGNAME.COM」は8.3形式（名前8文字・拡張子3文字まで）の名前ではありません。"));
    EXPECT_EQ(Refusal(Emu::X1r, cmd("X1R.COM", "ゲーム.D88"), s),
              kDosNameText.arg("「ゲーム.D88」に半角英数字以外の文字があります。"));
    EXPECT_EQ(Refusal(Emu::X1r, cmd("X1R.COM", "GAME.D88", true), s),
              kDosNameText.arg("「GAME.D88」に引用符があります。"));
    EXPECT_EQ(Refusal(Emu::X1r, cmd("X1R.COM", "A\"B.D88"), s),
              kDosNameText.arg("「A\"B.D88」に引用符があります。"));
    EXPECT_EQ(Refusal(Emu::X1r, cmd("X1R.COM", "GAME.D888"), s),
              kDosNameText.arg(
                  "「GAME.D888」は8.3形式（名前8文字・拡張子3文字まで）の名前ではありません。"));
    // The tail: 126 characters pass, 127 don't.
    EXPECT_TRUE(WrapCommand(Emu::X1r, cmd("X1R.COM", "/" + QString(124, 'X')), s, nullptr));
    EXPECT_EQ(Refusal(Emu::X1r, cmd("X1R.COM", "/" + QString(125, 'X')), s),
              kDosNameText.arg("引数が127文字あり、DOSが渡せる126文字を超えています。"));
    // Options are no names; a DOS path of names is.
    EXPECT_TRUE(WrapCommand(Emu::X1r, cmd("X1R.COM", "/LONGOPTION=1"), s, nullptr));
    EXPECT_TRUE(WrapCommand(Emu::X1r, cmd("X1R.COM", "C:\\DISKS\\GAME.D88"), s, nullptr));
    EXPECT_EQ(
        DosNameProblem("C:\\LONGDIRNAME\\A.D88"),
        "「C:\\LONGDIRNAME\\A.D88」は8.3形式（名前8文字・拡張子3文字まで）の名前ではありません。");
    EXPECT_EQ(DosNameProblem("MY GAME.D88"), "「MY GAME.D88」に空白があります。");
    EXPECT_EQ(DosNameProblem("~1_$#(A).D8"), "");
    EXPECT_EQ(DosNameProblem("A.B.C"),
              "「A.B.C」は8.3形式（名前8文字・拡張子3文字まで）の名前ではありません。");
}

TEST_F(RunnerTest, AMissingRunnerIsNamed)
{
    RunnerSettings s;
    s.kind = RunnerKind::Wine;
    s.wineProgram = r_ + "/nowhere/wine";
    EXPECT_EQ(Refusal(Emu::M88, LaunchCommand(r_ + "/emu/M88.EXE"), s),
              kRunnerMissingText.arg(r_ + "/nowhere/wine"));
    s.kind = RunnerKind::DosBox;
    s.dosboxProgram = "no-such-dosbox-anywhere";
    EXPECT_EQ(Refusal(Emu::X1r, LaunchCommand(r_ + "/emu/X1R.COM"), s),
              kRunnerMissingText.arg("no-such-dosbox-anywhere"));
    QString why;
    EXPECT_FALSE(PrepareRunner(Emu::X1r, r_ + "/emu/X1R.COM", {}, s, &why));
    EXPECT_EQ(why, kRunnerMissingText.arg("no-such-dosbox-anywhere"));
}

TEST_F(RunnerTest, GeneratedFilesComeAndGoWithoutTouchingWhatTheyPointAt)
{
    ASSERT_TRUE(WriteFile(r_ + "/work/GAME.D88", "disk"));
    ASSERT_TRUE(WriteFile(r_ + "/emu/X1R.COM", "\xcd\x20"));
    RunnerSettings s;
    s.dosboxProgram = r_ + "/bin/dosbox";
    LaunchCommand cmd(r_ + "/emu/X1R.COM");
    cmd.arg("GAME.D88");
    const RunnerCommand rc = Wrap(Emu::X1r, cmd, s);
    EXPECT_EQ(rc.kind, RunnerKind::DosBox);
    ASSERT_TRUE(CreateRunnerFiles(rc, nullptr));
    EXPECT_EQ(QFileInfo(rc.privateDir + "/c").symLinkTarget(), r_ + "/work");
    EXPECT_TRUE(QFile::exists(rc.privateDir + "/c/GAME.D88"));
    EXPECT_TRUE(QFile::exists(rc.privateDir + "/d/X1R.COM"));
    QFile conf(rc.privateDir + "/dosbox.conf");
    ASSERT_TRUE(conf.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(conf.readAll()), rc.generated[2].text);
    EXPECT_EQ(QFileInfo(rc.privateDir).permissions() & (QFile::ReadOther | QFile::ReadGroup), 0);
    // A second creation finds the directory there and refuses it.
    QString why;
    const RunnerCommand again = rc;
    EXPECT_FALSE(CreateRunnerFiles(again, &why));
    EXPECT_TRUE(why.startsWith("DOSBoxの設定ファイルを一時ディレクトリに作れませんでした。"));
    RemoveRunnerFiles(rc);
    EXPECT_FALSE(QFileInfo::exists(rc.privateDir));
    EXPECT_TRUE(QFile::exists(r_ + "/work/GAME.D88"));
    EXPECT_TRUE(QFile::exists(r_ + "/emu/X1R.COM"));
}

// Files kept for a detached start go once its process has ended, at the next creation; those of
// a running process stay, and what the links point at is never touched.
TEST_F(RunnerTest, FilesOfEndedProcessesAreSweptAtTheNextCreation)
{
    ASSERT_TRUE(WriteFile(r_ + "/work/GAME.D88", "disk"));
    ASSERT_TRUE(WriteFile(r_ + "/emu/X1R.COM", "\xcd\x20"));
    RunnerSettings s;
    s.dosboxProgram = r_ + "/bin/dosbox";
    LaunchCommand cmd(r_ + "/emu/X1R.COM");
    const RunnerCommand ended = Wrap(Emu::X1r, cmd, s);
    const RunnerCommand running = Wrap(Emu::X1r, cmd, s);
    ASSERT_TRUE(CreateRunnerFiles(ended, nullptr));
    ASSERT_TRUE(CreateRunnerFiles(running, nullptr));
    QProcess gone;
    gone.start("true");
    ASSERT_TRUE(gone.waitForFinished(5000));
    NoteRunnerProcess(ended, gone.processId());
    NoteRunnerProcess(running, QCoreApplication::applicationPid());
    // A directory without a noted process (a run of ours in progress) is left alone too.
    const RunnerCommand inRun = Wrap(Emu::X1r, cmd, s);
    ASSERT_TRUE(CreateRunnerFiles(inRun, nullptr));
    EXPECT_FALSE(QFileInfo::exists(ended.privateDir));
    EXPECT_TRUE(QFileInfo::exists(running.privateDir + "/dosbox.conf"));
    EXPECT_TRUE(QFile::exists(r_ + "/work/GAME.D88"));
    EXPECT_TRUE(QFile::exists(r_ + "/emu/X1R.COM"));
    const RunnerCommand next = Wrap(Emu::X1r, cmd, s);
    ASSERT_TRUE(CreateRunnerFiles(next, nullptr));
    EXPECT_TRUE(QFileInfo::exists(inRun.privateDir + "/dosbox.conf"));
    for (const RunnerCommand* rc : {&running, &inRun, &next})
        RemoveRunnerFiles(*rc);
    EXPECT_TRUE(QDir(r_ + "/tmp").entryList({"torvane-run-*"}, QDir::AllEntries).isEmpty());
}

TEST_F(RunnerTest, WinePathsThroughADriveTable)
{
    const QStringList table{"D:=" + r_ + "/data/", "E:=" + r_ + "/data/games", "F:=/"};
    EXPECT_EQ(WinePathOf(r_ + "/data/games/x.d88", table), "E:\\x.d88");
    EXPECT_EQ(WinePathOf(r_ + "/data/y", table), "D:\\y");
    EXPECT_EQ(WinePathOf(r_ + "/data", table), "D:\\");
    EXPECT_EQ(WinePathOf(r_ + "/datax/z", table),
              "F:" + QString(r_ + "/datax/z").replace('/', '\\'));
    EXPECT_EQ(WinePathOf("/usr/x", {}), "Z:\\usr\\x");
    EXPECT_EQ(WinePathOf("a/b.d88", table), "a\\b.d88");
    // Set for a launch, the table gives every path handed over; cleared, "Z:" again.
    SetWineDriveTable(table);
    EXPECT_EQ(ToWinePath(r_ + "/data/y"), "D:\\y");
    SetWineDriveTable({});
    EXPECT_EQ(ToWinePath("/usr/x"), "Z:\\usr\\x");
}

TEST_F(RunnerTest, ANewWinePrefixIsPreparedFirst)
{
    RunnerSettings s;
    s.kind = RunnerKind::Wine;
    s.wineProgram = r_ + "/bin/wine";
    s.winePrefix = r_ + "/prefix";
    qputenv("TESTRUNNER_LOG", (r_ + "/runner.log").toUtf8());
    EXPECT_FALSE(WinePrefixPrepared(s));
    EXPECT_EQ(WinebootProgram(s), r_ + "/bin/wineboot");
    QString why;
    ASSERT_TRUE(PrepareRunner(Emu::M88, r_ + "/emu/M88.EXE", {}, s, &why)) << why.toStdString();
    EXPECT_TRUE(WinePrefixPrepared(s));
    const auto runs = ReadTestRunnerLog(r_ + "/runner.log");
    ASSERT_EQ(runs.size(), 1u);
    EXPECT_EQ(runs[0].name, "wineboot");
    EXPECT_EQ(runs[0].args, QStringList({r_ + "/bin/wineboot", "-i"}));
    EXPECT_EQ(runs[0].env.value("WINEPREFIX"), r_ + "/prefix");
    EXPECT_EQ(runs[0].env.value("WINEDLLOVERRIDES"), "mscoree,mshtml=");
    const qsizetype status = window_->calls.indexOf("Status:Wine環境を準備中．．");
    ASSERT_GE(status, 1);
    EXPECT_EQ(window_->calls.mid(status - 1, 4),
              (QStringList{"Disable", "Status:Wine環境を準備中．．", "Status:Emulator起動中．．",
                           "Enable"}));
    // Prepared once, never again.
    ASSERT_TRUE(PrepareRunner(Emu::M88, r_ + "/emu/M88.EXE", {}, s, &why));
    EXPECT_EQ(ReadTestRunnerLog(r_ + "/runner.log").size(), 1u);
    qunsetenv("TESTRUNNER_LOG");
}

TEST_F(RunnerTest, APrefixThatCantBePreparedIsTold)
{
    RunnerSettings s;
    s.kind = RunnerKind::Wine;
    s.wineProgram = r_ + "/bin/wine";
    s.winePrefix = r_ + "/prefix";
    qputenv("TESTRUNNER_FAIL", "wineboot");
    QString why;
    EXPECT_FALSE(PrepareRunner(Emu::M88, r_ + "/emu/M88.EXE", {}, s, &why));
    qunsetenv("TESTRUNNER_FAIL");
    EXPECT_EQ(why, kWinePrefixText.arg(r_ + "/prefix"));
}

TEST_F(RunnerTest, DosNamesAreCheckedBeforeTheLaunch)
{
    RunnerSettings s;
    s.kind = RunnerKind::DosBox;
    s.dosboxProgram = r_ + "/bin/dosbox";
    QString why;
    EXPECT_TRUE(PrepareRunner(Emu::X1r, r_ + "/emu/X1R.COM", {"GAME.D88", ""}, s, &why));
    EXPECT_FALSE(PrepareRunner(Emu::X1r, r_ + "/emu/X1R.COM", {"ゲーム.D88"}, s, &why));
    EXPECT_EQ(why, kDosNameText.arg("「ゲーム.D88」に半角英数字以外の文字があります。"));
    EXPECT_FALSE(PrepareRunner(Emu::X1r, r_ + "/emu/X1RTURBOZ.COM", {}, s, &why));
}

} // namespace
