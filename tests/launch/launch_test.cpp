// The whole road of a launch with the test emulator playing the outside emulators: stage 1
// into WorkDir, the frame, the run, and stage 3.
#include "launch/EmuAdapter.h"
#include "launch/Launch.h"

#include "adapters/m88/M88Ini.h"
#include "util/Sjis.h"

#include "data/ByteCodec.h"
#include "data/clsLst.h"
#include "launch/Archive.h"
#include "launch/D88Uty.h"
#include "launch/ExecEmulator.h"
#include "launch/IniFile.h"
#include "launch/LaunchCommand.h"
#include "launch/Repack.h"
#include "platform/KeySend.h"
#include "startup/Startup.h"
#include "startup/StartupFixture.h"
#include "support/LaunchFixture.h"
#include "support/ScriptedMsgBox.h"
#include "support/TestEmu.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <gtest/gtest.h>

#include <csignal>

using namespace tv;
using namespace tvtest;

namespace {

// The shared launch fixture (tests/support/LaunchFixture.h).
class Launch : public LaunchFixture {};

} // namespace

// XM7 for DOS: a plain image, the ROM set staged beside it and taken away, the image copied
// back changed, WorkDir empty at the end.
TEST_F(Launch, PlainImageOnXm7Dos)
{
    const QString dir = Emu(11, {{"change", "GAME.D77"}});
    for (const char* rom :
         {"FBASIC30.ROM", "BOOT_BAS.ROM", "BOOT_DOS.ROM", "SUBSYS_C.ROM", "KANJI.ROM"})
        WriteFile(dir + "/" + rom, "rom");
    const QString image = r_ + "/images/GAME.D77";
    WriteFile(image, Image());
    Item(1, image, "GAME.D77");

    ScriptedMsgBox box;
    RunSelectedItem(11);

    EXPECT_TRUE(box.calls().empty());
    EXPECT_EQ(window_->statusText, kLaunchStatusText);
    const auto runs = Runs();
    ASSERT_EQ(runs.size(), 1u);
    EXPECT_EQ(runs[0].exeName, "XM7.EXE");
    EXPECT_EQ(runs[0].args.mid(1), QStringList{"GAME.D77"});
    EXPECT_EQ(QFileInfo(runs[0].cwd).canonicalFilePath(), QFileInfo(WorkDir).canonicalFilePath());
    for (const char* rom : {"FBASIC30.ROM", "KANJI.ROM", "GAME.D77"})
        EXPECT_TRUE(runs[0].files.contains(rom)) << rom;
    EXPECT_EQ(ReadFile(image).mid(32, 16), kChanged);
    EXPECT_TRUE(WorkFiles().isEmpty());
}

// M88 with "既存INI使用": an LZH archive, save states in and out under upper-cased names,
// a changed image re-packed without asking (flag 1), the ".ORG" restored.
TEST_F(Launch, LzhOnM88WithSaveStatesAndRepack)
{
    Cfg.M88CfgChk = 1;
    const QString dir = Emu(2, {{"change", "game.d88"}, {"save", "game_3.S88"}});
    const QByteArray ini = "[M88p2 for Windows]\r\nFlags=1\r\nKeep=me\r\n";
    WriteFile(dir + "/M88.INI", ini);
    WriteFile(r_ + "/save/GAME_1.S88", "old state");
    const QString arc = Archive("GAME.LZH", {{"game.d88", Image()}, {"README.TXT", "doc"}});
    Item(0, arc, "game.d88", 1, 1);

    ScriptedMsgBox box;
    RunSelectedItem(2);

    EXPECT_TRUE(box.calls().empty());
    const auto runs = Runs();
    ASSERT_EQ(runs.size(), 1u);
    EXPECT_EQ(runs[0].args.mid(1), QStringList{"game.d88"});
    // The save state of the catalogue came in under the image's stem.
    EXPECT_TRUE(runs[0].files.contains("game_1.S88"));
    EXPECT_TRUE(QFileInfo::exists(r_ + "/save/GAME_3.S88"));
    EXPECT_FALSE(QFileInfo::exists(r_ + "/snap/game_3.S88"));
    const auto members = Members(arc);
    EXPECT_EQ(members.keys(), (QStringList{"README.TXT", "game.d88"}));
    EXPECT_EQ(members.value("game.d88").mid(32, 16), kChanged);
    EXPECT_EQ(ReadFile(dir + "/M88.INI"), ini);
    EXPECT_FALSE(QFileInfo::exists(dir + "/M88.ORG"));
    EXPECT_TRUE(WorkFiles().isEmpty());
}

// X millennium: a two-disk D88 in a ZIP is split into pieces with long names, the emulator
// gets them by clipboard, writes into the second, and the joined file goes back re-packed.
TEST_F(Launch, ZipTwoDiskD88SplitForXmillennium)
{
    Cfg.XmilCfgChk = 1;
    const QString dir = Emu(22, {{"change", "GAME#02_DISK_B.D88"}});
    WriteFile(dir + "/Xmillennium.ini", "[Xmillennium]\r\nStartDir=C:\\X\r\n");
    const QByteArray d1 = Disk("DISK A", 2000, 'a'), d2 = Disk("DISK B", 3000, 'b');
    const QString arc = Archive("GAME.ZIP", {{"GAME.D88", d1 + d2}});
    Item(2, arc, "GAME.D88", 1, 1);

    ScriptedMsgBox box;
    RunSelectedItem(22);

    EXPECT_TRUE(box.calls().empty());
    const auto runs = Runs();
    ASSERT_EQ(runs.size(), 1u);
    EXPECT_TRUE(runs[0].files.contains("GAME#01_DISK_A.D88"));
    EXPECT_TRUE(runs[0].files.contains("GAME#02_DISK_B.D88"));
    EXPECT_FALSE(runs[0].files.contains("GAME.D88"));
    EXPECT_EQ(Clips(), (QStringList{"GAME#01_DISK_A.D88", "GAME#02_DISK_B.D88"}));
    EXPECT_EQ(KeySeqs(), (QStringList{"{F10}0O^V%O", "{F10}1O^V%O"}));
    const QByteArray joined = Members(arc).value("GAME.D88");
    ASSERT_EQ(joined.size(), d1.size() + d2.size());
    EXPECT_EQ(joined.left(2000), d1);
    EXPECT_EQ(joined.mid(2000 + 32, 16), kChanged);
    EXPECT_EQ(ReadFile(dir + "/Xmillennium.ini"), "[Xmillennium]\r\nStartDir=C:\\X\r\n");
    EXPECT_TRUE(WorkFiles().isEmpty());
}

// The catalogue names the start file in another case than the archive's member: the pieces
// are joined back into the file that was split, so stage 3 finds the member changed and no
// stray file of a second name.
TEST_F(Launch, SplitTitleIsJoinedUnderTheNameThatWasSplit)
{
    Cfg.XmilCfgChk = 1;
    const QString dir = Emu(22, {{"change", "GAME#02_DISK_B.D88"}});
    WriteFile(dir + "/Xmillennium.ini", "[Xmillennium]\r\n");
    const QByteArray d1 = Disk("DISK A", 2000, 'a'), d2 = Disk("DISK B", 3000, 'b');
    const QString arc = Archive("GAME.ZIP", {{"GAME.D88", d1 + d2}});
    Item(2, arc, "game.d88", 1, 1);

    ScriptedMsgBox box;
    RunSelectedItem(22);

    EXPECT_TRUE(box.calls().empty());
    ASSERT_EQ(Runs().size(), 1u);
    const auto members = Members(arc);
    EXPECT_EQ(members.keys(), QStringList{"GAME.D88"});
    const QByteArray joined = members.value("GAME.D88");
    ASSERT_EQ(joined.size(), d1.size() + d2.size());
    EXPECT_EQ(joined.mid(2000 + 32, 16), kChanged);
    EXPECT_TRUE(QDir(r_ + "/snap").entryList(QDir::Files).isEmpty());
    EXPECT_TRUE(WorkFiles().isEmpty());
}

// WinX1 with a CAB: flag 2 asks, and on yes the archive is re-packed; a screen dump goes to
// SnapDir and not into the archive.
TEST_F(Launch, CabOnWinX1AskedAndDumpToSnapDir)
{
    Cfg.WinX1CfgChk = 1;
    Emu(24, {{"change", "GAME.2D"}, {"dump", "SHOT.PNG"}});
    const QString arc = Archive("GAME.CAB", {{"GAME.2D", Image()}});
    Item(2, arc, "GAME.2D", 1, 2);

    ScriptedMsgBox box;
    box.answer(MbResYes);
    RunSelectedItem(24);

    ASSERT_EQ(box.calls().size(), 1u);
    EXPECT_EQ(box.calls()[0].caption, "再圧縮チェック");
    EXPECT_EQ(Clips(), QStringList{"GAME.2D"});
    EXPECT_EQ(KeySeqs(), QStringList{"%FB^V%O"});
    EXPECT_TRUE(QFileInfo::exists(r_ + "/snap/SHOT.PNG"));
    const auto members = Members(arc);
    EXPECT_EQ(members.keys(), QStringList{"GAME.2D"});
    EXPECT_EQ(members.value("GAME.2D").mid(32, 16), kChanged);
    EXPECT_TRUE(WorkFiles().isEmpty());
}

TEST_F(Launch, ChangedArchiveKeptOnNoAndForFlagZero)
{
    Cfg.WinX1CfgChk = 1;
    Emu(24, {{"change", "GAME.2D"}});
    const QString arc = Archive("GAME.ZIP", {{"GAME.2D", Image()}});
    const QByteArray before = ReadFile(arc);
    Item(2, arc, "GAME.2D", 1, 2);
    {
        ScriptedMsgBox box;
        box.answer(MbResNo);
        RunSelectedItem(24);
        EXPECT_EQ(box.calls().size(), 1u);
    }
    EXPECT_EQ(ReadFile(arc), before);
    Item(2, arc, "GAME.2D", 1, 0);
    {
        ScriptedMsgBox box;
        RunSelectedItem(24);
        EXPECT_TRUE(box.calls().empty());
    }
    EXPECT_EQ(ReadFile(arc), before);
    EXPECT_EQ(Runs().size(), 2u);
    EXPECT_TRUE(WorkFiles().isEmpty());
}

// A catalogue moved with its images: the dead path is found by bare name in ImageDir and the
// image goes back there.
TEST_F(Launch, DeadPathFoundByBareNameInImageDir)
{
    Cfg.Xm7WinCfgChk = 1;
    Emu(12, {{"change", "GAME.D77"}});
    WriteFile(r_ + "/images/GAME.D77", Image());
    Item(1, "D:\\old\\catalogue\\GAME.D77", "GAME.D77");
    ScriptedMsgBox box;
    RunSelectedItem(12);
    EXPECT_TRUE(box.calls().empty());
    EXPECT_EQ(ReadFile(r_ + "/images/GAME.D77").mid(32, 16), kChanged);
}

// A file of the same name in the current directory must not be taken instead.
TEST_F(Launch, BareJituFileIsTakenFromImageDir)
{
    Cfg.Em7WinCfgChk = 1;
    Emu(13, {{"show", "GAME.VFD"}});
    WriteFile(r_ + "/images/GAME.VFD", Image());
    QDir().mkpath(r_ + "/cwd");
    WriteFile(r_ + "/cwd/GAME.VFD", "not the catalogued image");
    ASSERT_TRUE(QDir::setCurrent(r_ + "/cwd"));
    Item(1, "GAME.VFD", "GAME.VFD");
    ScriptedMsgBox box;
    RunSelectedItem(13);
    ASSERT_EQ(Runs().size(), 1u);
    EXPECT_EQ(Runs()[0].args.mid(1), QStringList{"GAME.VFD"});
    ASSERT_TRUE(Runs()[0].shown.contains("GAME.VFD"));
    EXPECT_EQ(Runs()[0].shown["GAME.VFD"], Image());
    EXPECT_EQ(ReadFile(r_ + "/cwd/GAME.VFD"), QByteArray("not the catalogued image"));
    EXPECT_TRUE(WorkFiles().isEmpty());
}

TEST_F(Launch, TapeOnPc88WinEndsWithoutMessage)
{
    Cfg.Pc8CfgChk = 1;
    Emu(3);
    WriteFile(r_ + "/images/GAME.T88", Image());
    Item(0, r_ + "/images/GAME.T88", "GAME.T88");
    ScriptedMsgBox box;
    RunSelectedItem(3);
    EXPECT_TRUE(box.calls().empty());
    EXPECT_TRUE(Runs().empty());
    EXPECT_TRUE(WorkFiles().isEmpty());
}

TEST_F(Launch, TwoDiskD88WithSecondFileIsNotSplit)
{
    Cfg.XmilCfgChk = 1;
    Emu(22);
    const QString arc = Archive(
        "TWO.ZIP", {{"A.D88", Disk("A", 500, 'a') + Disk("B", 500, 'b')}, {"B.D88", Image()}});
    Item(2, arc, "A.D88", 1, 0, "B.D88");
    ScriptedMsgBox box;
    RunSelectedItem(22);
    ASSERT_EQ(Runs().size(), 1u);
    EXPECT_EQ(Clips(), (QStringList{"A.D88", "B.D88"}));
    EXPECT_TRUE(Runs()[0].files.contains("A.D88"));
}

// A D88 of one disk, and one with bytes behind its last disk, count as no multi-disk file:
// each goes to the emulator whole, under its own name, and comes back unchanged in size.
TEST_F(Launch, OneDiskOrMalformedD88IsNotSplit)
{
    Cfg.XmilCfgChk = 1;
    Emu(22);
    const QByteArray one = Disk("ONE", 800, 'o');
    const QByteArray tail = Disk("A", 500, 'a') + Disk("B", 500, 'b') + QByteArray(7, 'x');
    for (const auto& [name, bytes] : {std::pair<QString, QByteArray>{"ONE.D88", one},
                                      std::pair<QString, QByteArray>{"TAIL.D88", tail}}) {
        const QString image = r_ + "/images/" + name;
        WriteFile(image, bytes);
        Item(2, image, name);
        ScriptedMsgBox box;
        RunSelectedItem(22);
        EXPECT_TRUE(box.calls().empty()) << name.toStdString();
        EXPECT_EQ(Clips().value(Clips().size() - 1), name);
        EXPECT_EQ(Runs().back().files, QStringList{name}) << name.toStdString();
        EXPECT_EQ(ReadFile(image), bytes);
        EXPECT_TRUE(WorkFiles().isEmpty());
    }
    EXPECT_EQ(Runs().size(), 2u);
}

TEST_F(Launch, NothingSelectedStartsTheBareEmulator)
{
    const QString dir = Emu(12);
    window_->hasSelectedItem = false;
    HardWare = 1;
    RunSelectedItem(12);
    // The emulator is started and not waited for.
    for (int i = 0; i < 50 && Runs().empty(); ++i)
        QThread::msleep(100);
    ASSERT_EQ(Runs().size(), 1u);
    EXPECT_EQ(QFileInfo(Runs()[0].cwd).canonicalFilePath(), QFileInfo(dir).canonicalFilePath());
    EXPECT_EQ(Runs()[0].args.size(), 1);
    // Nothing was staged and the list's item wasn't looked at.
    EXPECT_TRUE(WorkFiles().isEmpty());
    EXPECT_TRUE(window_->statusText.isEmpty());
}

TEST_F(Launch, EmulatorOnlyCommandsAreBareNames)
{
    Cfg.Xm7WinDir = "/emu/xm7";
    EXPECT_EQ(EmulatorOnlyCommand(1, 12).text(), "XM7.EXE");
    EXPECT_EQ(EmulatorOnlyCommand(1, 12).workingDir, "/emu/xm7");
    Cfg.WinX1IkaUse = 1;
    EXPECT_EQ(EmulatorOnlyCommand(2, 24).text(), "WinX1_ika.exe");
    // X millennium's plain build with a generated INI carries its directory.
    Cfg.XmilDir = "/emu/xmil";
    Cfg.XmilTDir = "/emu/xmilt";
    Cfg.XmilCfgChk = 0;
    EXPECT_EQ(EmulatorOnlyCommand(2, 22).text(), "/emu/xmil/Xmillennium.exe");
    Cfg.XmilCfgChk = 1;
    EXPECT_EQ(EmulatorOnlyCommand(2, 22).text(), "Xmillennium.exe");
    Cfg.XmilTUse = 1;
    EXPECT_EQ(EmulatorOnlyCommand(2, 22).workingDir, "/emu/xmilt");
    Cfg.J80Dir = "/emu/j80";
    Cfg.JavaVMPath = "/nowhere/java";
    EXPECT_EQ(EmulatorOnlyCommand(0, 6).text(), "java -jar j80.jar");
    // A code of another family, or outside the table, starts nothing.
    EXPECT_TRUE(EmulatorOnlyCommand(0, 12).program.isEmpty());
    EXPECT_TRUE(EmulatorOnlyCommand(1, 19).program.isEmpty());
}

TEST_F(Launch, StageOneFailureIsTold)
{
    Emu(11);
    Item(1, r_ + "/images/NONE.D77", "NONE.D77");
    ScriptedMsgBox box;
    RunSelectedItem(11);
    ASSERT_EQ(box.calls().size(), 1u);
    EXPECT_EQ(box.calls()[0].text, kPrepareErrorText);
    EXPECT_EQ(box.calls()[0].caption, kEmuRunErrorCaption);
    EXPECT_EQ(box.calls()[0].flags, MbCritical);
    EXPECT_TRUE(Runs().empty());
}

// A piece's name is taken already: the split fails, the ".ORG" stands beside the unchanged
// configuration, WorkDir is cleaned.
TEST_F(Launch, SplitFailureIsTold)
{
    Cfg.XmilCfgChk = 1;
    const QString dir = Emu(22);
    WriteFile(dir + "/Xmillennium.ini", "[Xmillennium]\r\n");
    const QString arc = Archive("S.ZIP", {{"S.D88", Disk("A", 500, 'a') + Disk("B", 500, 'b')},
                                          {"S#02_B.D88", "in the way"}});
    Item(2, arc, "S.D88", 1, 1);
    ScriptedMsgBox box;
    RunSelectedItem(22);
    ASSERT_EQ(box.calls().size(), 1u);
    EXPECT_EQ(box.calls()[0].text, kSplitErrorText);
    EXPECT_EQ(box.calls()[0].caption, kEmuRunErrorCaption);
    EXPECT_TRUE(Runs().empty());
    EXPECT_TRUE(QFileInfo::exists(dir + "/Xmillennium.org"));
    EXPECT_TRUE(WorkFiles().isEmpty());
}

// The emulator leaves a file under the image's own name: the join refuses, stage 3 is
// skipped, the archive keeps its bytes, and the ".ORG" isn't restored.
TEST_F(Launch, JoinFailureIsTold)
{
    Cfg.XmilCfgChk = 1;
    const QString dir = Emu(22, {{"save", "J.D88"}});
    WriteFile(dir + "/Xmillennium.ini", "[Xmillennium]\r\n");
    const QString arc = Archive("J.ZIP", {{"J.D88", Disk("A", 500, 'a') + Disk("B", 500, 'b')}});
    const QByteArray before = ReadFile(arc);
    Item(2, arc, "J.D88", 1, 1);
    ScriptedMsgBox box;
    RunSelectedItem(22);
    ASSERT_EQ(box.calls().size(), 1u);
    EXPECT_EQ(box.calls()[0].text, kJoinErrorText);
    EXPECT_EQ(ReadFile(arc), before);
    EXPECT_TRUE(QFileInfo::exists(dir + "/Xmillennium.org"));
    EXPECT_TRUE(WorkFiles().isEmpty());
}

// An emulator that can't start is told, and the frame takes back what it did: the INI that
// it corrected for the run is the user's own again, and no ".ORG" stays beside it.
TEST_F(Launch, EmulatorThatCantStartIsToldAndTakenBack)
{
    Cfg.M88CfgChk = 1;
    const QString dir = r_ + "/emu/none";
    QDir().mkpath(dir);
    Cfg.M88Dir = dir;
    WriteFile(dir + "/M88.INI", "[M88p2 for Windows]\r\nFlags=1\r\n");
    WriteFile(r_ + "/images/G.D88", Image());
    Item(0, r_ + "/images/G.D88", "G.D88");
    ScriptedMsgBox box;
    RunSelectedItem(2);
    ASSERT_EQ(box.calls().size(), 1u);
    EXPECT_EQ(box.calls()[0].caption, kEmuRunErrorCaption);
    EXPECT_EQ(box.calls()[0].flags, 16);
    EXPECT_EQ(ReadFile(dir + "/M88.INI"), "[M88p2 for Windows]\r\nFlags=1\r\n");
    EXPECT_FALSE(QFileInfo::exists(dir + "/M88.ORG"));
    EXPECT_TRUE(WorkFiles().isEmpty());
}

TEST(LaunchRoads, AnEmulatorWithoutItsOwnAdapterIsNeverReadyAndSaysWhy)
{
    CfgRecord c;
    SetDefaultCfg(c);
    const EmuAdapter bare(Emu::M88);
    QString why;
    EXPECT_FALSE(bare.ready(c, &why));
    EXPECT_EQ(why,
              QStringLiteral("このエミュレータのオプション（設定ファイル・コマンドライン）の生成は"
                             "まだ組み込まれていないため、タイトルを起動できません。"));
}

TEST(LaunchRoads, EveryRoadRunsWithAndWithoutTheUsersOwnConfiguration)
{
    // Every emulator's configuration file or switches are made by its adapter, so no road
    // waits for "既存INI使用".
    CfgRecord c;
    SetDefaultCfg(c);
    for (int code : {1, 2, 3, 4, 5, 6, 11, 12, 13, 21, 22, 23, 24}) {
        QString why;
        EXPECT_TRUE(LaunchRoadReady(code, c, &why)) << code;
        EXPECT_TRUE(why.isEmpty()) << code;
    }
    c.M88CfgChk = c.Pc8CfgChk = c.Xm7WinCfgChk = c.Em7WinCfgChk = c.XmilCfgChk = c.WinX1CfgChk = 1;
    c.P88CfgChk = c.X88CfgChk = c.Q88CfgChk = 1;
    for (int code : {1, 2, 3, 4, 5, 6, 11, 12, 13, 21, 22, 23, 24})
        EXPECT_TRUE(LaunchRoadReady(code, c)) << code;
}

// The child of the test below: a launch of X millennium on a split archive, in the program
// directory that the parent names. It is killed while the emulator runs.
TEST_F(Launch, CrashChild)
{
    const QString given = qEnvironmentVariable("TORVANE_CRASH_ROOT");
    if (given.isEmpty())
        GTEST_SKIP() << "run by KilledWhileEmulatorRuns";
    r_ = given;
    AppDir = r_ + "/app";
    WorkDir = AppDir + "/TORVBOOT";
    EnvTmpDir = EnvTempDir = r_ + "/tmp";
    PeekDir = EnvTmpDir + "/TORVBOOT";
    for (int f = 0; f < 3; ++f)
        ImageDir[f] = SnapDir[f] = PatSaveDir[f] = r_ + "/images";
    Cfg.XmilCfgChk = 1;
    Cfg.XmilDir = r_ + "/emu/22";
    Item(2, r_ + "/images/K.ZIP", "K.D88", 1, 1);
    RunSelectedItem(22);
    ADD_FAILURE() << "the launch should have been killed";
}

// The program dies while the emulator runs: the catalogued archive is whole, WorkDir keeps
// what the launch had put there, and the next start finds it.
TEST_F(Launch, KilledWhileEmulatorRuns)
{
    Cfg.XmilCfgChk = 1;
    const QString dir = Emu(22, {{"change", "K#02_B.D88"}, {"exitafter", "3000"}});
    WriteFile(dir + "/Xmillennium.ini", "[Xmillennium]\r\n");
    const QString arc = Archive("K.ZIP", {{"K.D88", Disk("A", 500, 'a') + Disk("B", 500, 'b')}});
    const QByteArray before = ReadFile(arc);

    QProcess child;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("TORVANE_CRASH_ROOT", r_);
    env.insert("QT_QPA_PLATFORM", "offscreen");
    child.setProcessEnvironment(env);
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    child.start(QCoreApplication::applicationFilePath(), {"--gtest_filter=Launch.CrashChild"});
    ASSERT_TRUE(child.waitForStarted());
    // Wait until the emulator has started and done its change.
    bool running = false;
    for (int i = 0; i < 100 && !running; ++i) {
        QThread::msleep(50);
        const auto runs = Runs();
        running = !runs.empty() && !runs[0].done.isEmpty();
    }
    ASSERT_TRUE(running);
    child.kill();
    ASSERT_TRUE(child.waitForFinished());
    EXPECT_EQ(child.exitStatus(), QProcess::CrashExit);

    EXPECT_EQ(ReadFile(arc), before);
    const QStringList left = WorkFiles();
    EXPECT_TRUE(left.contains("K#01_A.D88"));
    EXPECT_TRUE(left.contains("K#02_B.D88"));
    EXPECT_TRUE(QFileInfo::exists(dir + "/Xmillennium.org"));
    // Let the emulator end by itself before the directory goes.
    for (int i = 0; i < 100 && !(Runs().size() == 1 && Runs()[0].exited); ++i)
        QThread::msleep(50);

    // The next start meets the filled WorkDir and asks; on no it keeps everything.
    Startup start;
    ScriptedMsgBox box;
    box.answer(MbResNo);
    EXPECT_FALSE(start.MakeBootDir());
    ASSERT_EQ(box.calls().size(), 1u);
    EXPECT_EQ(box.calls()[0].text, StartupText::BootDirExists);
    EXPECT_EQ(box.calls()[0].flags, MbExclamation | MbYesNo);
    EXPECT_TRUE(WorkFiles().contains("K#01_A.D88"));
    EXPECT_EQ(ReadFile(arc), before);
}

// M88 without "既存INI使用": the adapter writes the whole INI for the run, the modules the
// title doesn't want are hidden, and after the run the user's INI and modules are back.
TEST_F(Launch, M88GeneratedIniAndModulesComeBack)
{
    Cfg.M88CfgChk = 0;
    Cfg.DefOpt = 1;
    const QString dir = Emu(2);
    const QByteArray ini = "[M88p2 for Windows]\r\nFlags=1\r\n";
    WriteFile(dir + "/M88.INI", ini);
    WriteFile(dir + "/cdif.m88", "module");
    WriteFile(r_ + "/images/G.D88", Image());
    Item(0, r_ + "/images/G.D88", "G.D88");
    ScriptedMsgBox box;
    RunSelectedItem(2);
    EXPECT_TRUE(box.calls().empty());
    ASSERT_EQ(Runs().size(), 1u);
    EXPECT_EQ(Runs()[0].args.mid(1), QStringList{"G.D88"});
    EXPECT_EQ(ReadFile(dir + "/M88.INI"), ini);
    EXPECT_EQ(ReadFile(dir + "/cdif.m88"), "module");
    EXPECT_FALSE(QFileInfo::exists(dir + "/cdif._m88"));
    EXPECT_FALSE(QFileInfo::exists(dir + "/M88.ORG"));
}

// The INI that M88 finds at its start is the adapter's text for the defaults; the user's is
// back after the run.
TEST_F(Launch, M88GeneratedIniIsTheAdaptersText)
{
    Cfg.M88CfgChk = 0;
    Cfg.DefOpt = 1;
    const QString dir = r_ + "/emu/2";
    Emu(2, {{"show", dir + "/M88.INI"}});
    WriteFile(dir + "/M88.INI", "user");
    WriteFile(r_ + "/images/G.D88", Image());
    Item(0, r_ + "/images/G.D88", "G.D88");
    ScriptedMsgBox box;
    RunSelectedItem(2);
    EXPECT_TRUE(box.calls().empty());
    ASSERT_EQ(Runs().size(), 1u);
    EXPECT_EQ(Runs()[0].shown.value(dir + "/M88.INI"),
              ToSjis(MakeM88Ini(Cfg.CfgEmuOpt88)) + QByteArrayLiteral("\r\n"));
    EXPECT_EQ(ReadFile(dir + "/M88.INI"), "user");
    EXPECT_FALSE(QFileInfo::exists(dir + "/M88.ORG"));
}

// A .PAT travels in under the stem of Image and never comes back; the FMPAN disk goes on the
// command line and the image by the file dialog; neither reaches SnapDir.
TEST_F(Launch, PatAndFmPanTravelInOnly)
{
    Cfg.M88CfgChk = 1;
    Cfg.PatUse = 1;
    Cfg.PanUse = 1;
    const QString dir = Emu(2, {{"change", "GAME.PAT"}});
    WriteFile(r_ + "/pat/GAME.PAT", "palette");
    WriteFile(r_ + "/fmpan.d88", Image(256));
    Cfg.FmPanFile = r_ + "/fmpan.d88";
    WriteFile(r_ + "/images/GAME.D88", Image());
    Item(0, r_ + "/images/GAME.D88", "GAME.D88");
    ScriptedMsgBox box;
    RunSelectedItem(2);
    EXPECT_TRUE(box.calls().empty());
    const auto runs = Runs();
    ASSERT_EQ(runs.size(), 1u);
    EXPECT_EQ(runs[0].args.mid(1), QStringList{"FMPAN.D88"});
    EXPECT_TRUE(runs[0].files.contains("GAME.PAT"));
    EXPECT_TRUE(runs[0].files.contains("FMPAN.D88"));
    EXPECT_EQ(Clips(), QStringList{"GAME.D88"});
    EXPECT_EQ(ReadFile(r_ + "/pat/GAME.PAT"), "palette");
    EXPECT_TRUE(QDir(r_ + "/snap").entryList(QDir::Files).isEmpty());
    EXPECT_TRUE(WorkFiles().isEmpty());
}

// XM7 for Win32 always has the PCIDEBUG driver staged from the family's .PAT directory, and
// it is gone before stage 3, so it reaches neither the image nor SnapDir.
TEST_F(Launch, PciDebugStagedAndTakenAway)
{
    Cfg.Xm7WinCfgChk = 1;
    const QString dir = Emu(12);
    WriteFile(dir + "/XM7.INI", "[XM7]\r\n");
    for (const char* f : {"PCIDEBUG.DLL", "Pcidebug.sys", "pcidbg95.vxd"})
        WriteFile(r_ + "/pat/" + f, "driver");
    const QString arc = Archive("AB.ZIP", {{"A.D77", Image()}, {"B.D77", Image()}});
    Item(1, arc, "A.D77", 1, 1, "B.D77");
    ScriptedMsgBox box;
    RunSelectedItem(12);
    EXPECT_TRUE(box.calls().empty());
    const auto runs = Runs();
    ASSERT_EQ(runs.size(), 1u);
    EXPECT_EQ(runs[0].args.mid(1), (QStringList{"A.D77", "B.D77"}));
    for (const char* f : {"PCIDEBUG.DLL", "Pcidebug.sys", "pcidbg95.vxd"})
        EXPECT_TRUE(runs[0].files.contains(f)) << f;
    EXPECT_TRUE(QDir(r_ + "/snap").entryList(QDir::Files).isEmpty());
    EXPECT_EQ(Members(arc).keys(), (QStringList{"A.D77", "B.D77"}));
    EXPECT_EQ(ReadFile(dir + "/XM7.INI"), "[XM7]\r\n");
    EXPECT_FALSE(QFileInfo::exists(dir + "/XM7.ORG"));
    EXPECT_TRUE(WorkFiles().isEmpty());
}
