// The X1 family from end to end: X millennium (both builds), WinX1 (both builds), X1R and
// X1EMU started as the test emulator under their program names, with their generated INI or
// switch line, their clipboard texts and keys, split disks joined back, and the user's INI
// back byte-identical afterwards.
#include "adapters/fm7x1/EmuOptFMX1.h"
#include "adapters/winx1/WinX1Ini.h"
#include "adapters/xmil/XmilIni.h"
#include "data/Cfg.h"
#include "data/clsLst.h"
#include "launch/EmuStaging.h"
#include "launch/Launch.h"
#include "support/LaunchFixture.h"
#include "support/ScriptedMsgBox.h"
#include "support/TestEmu.h"
#include "util/Globals.h"
#include "util/Sjis.h"

#include <QDir>
#include <QFileInfo>
#include <gtest/gtest.h>

using namespace tv;
using namespace tvtest;

namespace {

const QByteArray kUserIni("[User]\r\nKeep=1\r\n");

class LaunchX1 : public LaunchFixture {
protected:
    void SetUp() override
    {
        LaunchFixture::SetUp();
        Cfg.XmilCfgChk = 0;
        Cfg.WinX1CfgChk = 0;
        SetDefaultEmuOptX1(Cfg.CfgEmuOptX1);
        ItemBlockX1(Cfg.CfgEmuOptX1);
    }
    void TearDown() override
    {
        ItemBlockX1(EmuOptX1{});
        LaunchFixture::TearDown();
    }

    // The current catalogue record's X1 block, as the launch fetches it when DefOpt is 0.
    static void ItemBlockX1(const EmuOptX1& block)
    {
        CurEmuOptX1 = block;
        LstObj.SetEmuOptX1();
        CurEmuOptX1 = EmuOptX1{};
    }

    // A title in ImageDir of the X1 family.
    void Title(const QString& name, const QByteArray& bytes = Image())
    {
        const QString path = r_ + "/images/" + name;
        ASSERT_TRUE(WriteFile(path, bytes));
        Item(2, path, name);
    }

    // The one run of the emulator after a launch that told nothing.
    TestEmuRun Launch(int code)
    {
        ScriptedMsgBox box;
        RunSelectedItem(int16_t(code));
        EXPECT_TRUE(box.calls().empty());
        const auto runs = Runs();
        EXPECT_EQ(runs.size(), 1u);
        return runs.empty() ? TestEmuRun{} : runs.back();
    }

    static QByteArray FileBytes(const QString& text) { return ToSjis(text) + "\r\n"; }
};

} // namespace

// The plain build with "Def Opt": the INI it finds is the one made from the defaults, the disk
// goes in through drive 0's menu, and afterwards the user's INI is back and no ".org" stays.
TEST_F(LaunchX1, XmilPlainBuildGetsTheDefaultsIni)
{
    Cfg.DefOpt = 1;
    Cfg.XmilTUse = 0;
    const QString dir = r_ + "/emu/22";
    Emu(22, {{"show", dir + "/Xmillennium.ini"}});
    WriteFile(dir + "/Xmillennium.ini", kUserIni);
    EmuOptX1 title = Cfg.CfgEmuOptX1;
    title.Xmil_1Op[3] = 4;
    ItemBlockX1(title);
    Cfg.CfgEmuOptX1.Xmil_1Op[3] = 8;
    Title("GAME.D88");

    const TestEmuRun run = Launch(22);

    const QByteArray found = run.shown.value(dir + "/Xmillennium.ini");
    EXPECT_EQ(found, FileBytes(MakeXmilIni(Cfg.CfgEmuOptX1, 0)));
    EXPECT_TRUE(found.startsWith("[Xmillennium]\r\nWindposX=\r\nWindPosY=\r\n"));
    // The defaults' 8 MHz, not the title's 4, on the plain build.
    EXPECT_TRUE(found.contains("\r\ncpu_8MHz=true\r\n"));
    EXPECT_FALSE(found.contains("Keep=1"));
    EXPECT_EQ(Clips(), QStringList{"GAME.D88"});
    EXPECT_EQ(KeySeqs(), QStringList{"{F10}0O^V%O"});
    EXPECT_EQ(ReadFile(dir + "/Xmillennium.ini"), kUserIni);
    EXPECT_FALSE(QFileInfo::exists(dir + "/Xmillennium.org"));
    EXPECT_TRUE(WorkFiles().isEmpty());
}

// Without "Def Opt" the title's own block is written: 4 MHz on the plain build is "false".
TEST_F(LaunchX1, XmilTitlesBlockIsWritten)
{
    Cfg.DefOpt = 0;
    const QString dir = r_ + "/emu/22";
    Emu(22, {{"show", dir + "/Xmillennium.ini"}});
    EmuOptX1 title = Cfg.CfgEmuOptX1;
    title.Xmil_1Op[3] = 4;
    title.Xmil_1Op[7] = 10;
    ItemBlockX1(title);
    Title("GAME.D88");

    const TestEmuRun run = Launch(22);

    const QByteArray found = run.shown.value(dir + "/Xmillennium.ini");
    EXPECT_EQ(found, FileBytes(MakeXmilIni(title, 0)));
    EXPECT_TRUE(found.contains("\r\ncpu_8MHz=false\r\n"));
    EXPECT_TRUE(found.contains("\r\nLinLIGHT=0A\r\n"));
    // The emulator had no INI of its own: it keeps what the launch wrote.
    EXPECT_TRUE(QFileInfo::exists(dir + "/Xmillennium.ini"));
    EXPECT_FALSE(QFileInfo::exists(dir + "/Xmillennium.org"));
}

// A tape goes to the Tune build by itself: its directory's INI carries the number of MHz, the
// tape goes in through the tape menu, and the plain build's directory is not touched.
TEST_F(LaunchX1, XmilTapeTitleRunsTheTuneBuild)
{
    Cfg.DefOpt = 1;
    Cfg.XmilTUse = 0;
    const QString plain = r_ + "/emu/plain";
    QDir().mkpath(plain);
    WriteFile(plain + "/Xmillennium.ini", kUserIni);
    const QString tune = Emu(22, {{"show", r_ + "/emu/22/Xmillennium.ini"}});
    Cfg.XmilTDir = tune;
    Cfg.XmilDir = plain;
    WriteFile(tune + "/Xmillennium.ini", "[Tune]\r\n");
    Title("GAME.TAP");

    const TestEmuRun run = Launch(22);

    const QByteArray found = run.shown.value(tune + "/Xmillennium.ini");
    EXPECT_EQ(found, FileBytes(MakeXmilIni(Cfg.CfgEmuOptX1, 1)));
    EXPECT_TRUE(
        found.contains("\r\ncpu_8MHz=" + QByteArray::number(Cfg.CfgEmuOptX1.Xmil_1Op[3]) + "\r\n"));
    EXPECT_EQ(Clips(), QStringList{"GAME.TAP"});
    EXPECT_EQ(KeySeqs(), QStringList{"{F10}CO^V%O"});
    EXPECT_EQ(ReadFile(tune + "/Xmillennium.ini"), "[Tune]\r\n");
    EXPECT_EQ(ReadFile(plain + "/Xmillennium.ini"), kUserIni);
    EXPECT_EQ(QDir(plain).entryList(QDir::Files), QStringList{"Xmillennium.ini"});
}

// With "既存INI使用" the user's file of the build that TuneUse chooses is corrected at its two
// keys during the run, and comes back byte-identical.
TEST_F(LaunchX1, XmilExistingIniCorrectedInTheChosenBuildOnly)
{
    Cfg.XmilCfgChk = 1;
    Cfg.XmilTUse = 1;
    const QString plain = r_ + "/emu/plain";
    QDir().mkpath(plain);
    WriteFile(plain + "/Xmillennium.ini", kUserIni);
    const QString tune = Emu(22, {{"show", r_ + "/emu/22/Xmillennium.ini"}});
    Cfg.XmilTDir = tune;
    Cfg.XmilDir = plain;
    const QByteArray user("[Xmillennium]\r\nStartDir=C:\\GAMES\r\nbmap_Dir=C:\\SNAP\\\r\n");
    WriteFile(tune + "/Xmillennium.ini", user);
    Title("GAME.D88");

    const TestEmuRun run = Launch(22);

    const QByteArray found = run.shown.value(tune + "/Xmillennium.ini");
    EXPECT_TRUE(found.contains("StartDir=\r\n")) << found.toStdString();
    EXPECT_TRUE(found.contains("bmap_Dir=" + ToWinePath(r_ + "/snap").toUtf8() + "\r\n"))
        << found.toStdString();
    EXPECT_EQ(ReadFile(tune + "/Xmillennium.ini"), user);
    EXPECT_EQ(ReadFile(plain + "/Xmillennium.ini"), kUserIni);
    EXPECT_FALSE(QFileInfo::exists(tune + "/Xmillennium.org"));
}

// A two-disk D88 on the generated road: two pieces by their long names through drives 0 and
// 1, the second changed by the emulator, the file whole again afterwards with the change.
TEST_F(LaunchX1, XmilSplitDiskJoinedBack)
{
    const QString dir = Emu(22, {{"change", "GAME#02_DISK_B.D88"}});
    const QByteArray d1 = Disk("DISK A", 2000, 'a'), d2 = Disk("DISK B", 3000, 'b');
    Title("GAME.D88", d1 + d2);
    WriteFile(dir + "/Xmillennium.ini", kUserIni);

    const TestEmuRun run = Launch(22);

    EXPECT_TRUE(run.files.contains("GAME#01_DISK_A.D88"));
    EXPECT_TRUE(run.files.contains("GAME#02_DISK_B.D88"));
    EXPECT_EQ(Clips(), (QStringList{"GAME#01_DISK_A.D88", "GAME#02_DISK_B.D88"}));
    EXPECT_EQ(KeySeqs(), (QStringList{"{F10}0O^V%O", "{F10}1O^V%O"}));
    const QByteArray image = ReadFile(r_ + "/images/GAME.D88");
    ASSERT_EQ(image.size(), d1.size() + d2.size());
    EXPECT_EQ(image.left(2000), d1);
    EXPECT_EQ(image.mid(2000 + 32, 16), kChanged);
    EXPECT_EQ(ReadFile(dir + "/Xmillennium.ini"), kUserIni);
    EXPECT_TRUE(WorkFiles().isEmpty());
}

// A damaged block ("false"/"true" element of 2) ends the launch silently: nothing runs, the
// user's INI stays byte-identical, no ".org" is left, the catalogued image is untouched.
TEST_F(LaunchX1, XmilDamagedBlockEndsTheLaunchWithEverythingRestored)
{
    Cfg.DefOpt = 0;
    const QString dir = Emu(22);
    WriteFile(dir + "/Xmillennium.ini", kUserIni);
    EmuOptX1 bad = Cfg.CfgEmuOptX1;
    bad.Xmil_1Op[4] = 2;
    ItemBlockX1(bad);
    const QByteArray d1 = Disk("DISK A", 2000, 'a'), d2 = Disk("DISK B", 3000, 'b');
    Title("GAME.D88", d1 + d2);

    ScriptedMsgBox box;
    RunSelectedItem(22);

    EXPECT_TRUE(box.calls().empty());
    EXPECT_TRUE(Runs().empty());
    EXPECT_EQ(ReadFile(dir + "/Xmillennium.ini"), kUserIni);
    EXPECT_FALSE(QFileInfo::exists(dir + "/Xmillennium.org"));
    EXPECT_EQ(ReadFile(r_ + "/images/GAME.D88"), d1 + d2);
}

// WinX1's Ika build: "WinX1_ika.exe" runs with "WinX1_ika.ini" made from the title's block
// (section "[WinX1]", StartDir the working directory); "winx1.ini" is not touched.
TEST_F(LaunchX1, WinX1IkaBuildGetsItsOwnIni)
{
    Cfg.DefOpt = 0;
    Cfg.WinX1IkaUse = 1;
    const QString dir = r_ + "/emu/24";
    Emu(24, {{"show", dir + "/WinX1_ika.ini"}});
    WriteFile(dir + "/WinX1_ika.ini", kUserIni);
    WriteFile(dir + "/winx1.ini", "[normal]\r\n");
    EmuOptX1 title = Cfg.CfgEmuOptX1;
    title.WinX1_1Op[7] = 4;
    ItemBlockX1(title);
    Title("GAME.2D");

    const TestEmuRun run = Launch(24);

    EXPECT_EQ(run.exeName, "WinX1_ika.exe");
    const QByteArray found = run.shown.value(dir + "/WinX1_ika.ini");
    EXPECT_EQ(found, FileBytes(MakeWinX1Ini(title)));
    EXPECT_TRUE(found.startsWith(
        "[WinX1]\r\nWinPosX=\r\nWinPosY=\r\nStartDir=" + ToWinePath(WorkDir).toUtf8() + "\r\n"));
    EXPECT_TRUE(found.contains("\r\nFrameNum=15\r\n"));
    EXPECT_EQ(Clips(), QStringList{"GAME.2D"});
    EXPECT_EQ(KeySeqs(), QStringList{"%FB^V%O"});
    EXPECT_EQ(ReadFile(dir + "/WinX1_ika.ini"), kUserIni);
    EXPECT_EQ(ReadFile(dir + "/winx1.ini"), "[normal]\r\n");
    EXPECT_FALSE(QFileInfo::exists(dir + "/WinX1_ika.org"));
    EXPECT_TRUE(WorkFiles().isEmpty());
}

// The normal build with the defaults; a multi-disk D88 goes to WinX1 whole.
TEST_F(LaunchX1, WinX1NormalBuildTakesAMultiDiskWhole)
{
    Cfg.DefOpt = 1;
    Cfg.WinX1IkaUse = 0;
    const QString dir = r_ + "/emu/24";
    Emu(24, {{"show", dir + "/winx1.ini"}});
    WriteFile(dir + "/winx1.ini", kUserIni);
    Title("GAME.D88", Disk("DISK A", 2000, 'a') + Disk("DISK B", 3000, 'b'));

    const TestEmuRun run = Launch(24);

    EXPECT_EQ(run.exeName, "winx1.exe");
    EXPECT_EQ(run.shown.value(dir + "/winx1.ini"), FileBytes(MakeWinX1Ini(Cfg.CfgEmuOptX1)));
    EXPECT_EQ(Clips(), QStringList{"GAME.D88"});
    EXPECT_EQ(ReadFile(dir + "/winx1.ini"), kUserIni);
}

// A frame divisor of 0 fails the launch silently, the user's INI kept.
TEST_F(LaunchX1, WinX1DivisionByZeroEndsTheLaunchWithTheIniRestored)
{
    Cfg.DefOpt = 0;
    const QString dir = Emu(24);
    WriteFile(dir + "/winx1.ini", kUserIni);
    EmuOptX1 bad = Cfg.CfgEmuOptX1;
    bad.WinX1_1Op[7] = 0;
    ItemBlockX1(bad);
    Title("GAME.2D");

    ScriptedMsgBox box;
    RunSelectedItem(24);

    EXPECT_TRUE(box.calls().empty());
    EXPECT_TRUE(Runs().empty());
    EXPECT_EQ(ReadFile(dir + "/winx1.ini"), kUserIni);
    EXPECT_FALSE(QFileInfo::exists(dir + "/winx1.org"));
}

// X1R: the title's switches and the image on the command line, nothing pasted.
TEST_F(LaunchX1, X1rGetsTheSwitchesAndTheImage)
{
    Cfg.DefOpt = 0;
    Emu(21);
    EmuOptX1 title = Cfg.CfgEmuOptX1;
    title.X1r_1Op = {1, 0, 1, 0, 0, 1, 0, 0, 0};
    title.X1r_2Op = {1, 0, 1, 0, 0, 0, 0};
    title.X1r_3Op = {250, 0, 0};
    ItemBlockX1(title);
    Title("GAME.D88");

    const TestEmuRun run = Launch(21);

    EXPECT_EQ(run.exeName, "X1R.COM");
    EXPECT_EQ(run.args.mid(1), (QStringList{"/T1", "/W1", "/X250", "GAME.D88"}));
    EXPECT_TRUE(Clips().isEmpty());
    EXPECT_TRUE(KeySeqs().isEmpty());
    EXPECT_TRUE(WorkFiles().isEmpty());
}

// X1R with a two-disk D88: the pieces by their short bare names, the file whole afterwards.
TEST_F(LaunchX1, X1rSplitDiskByShortPieces)
{
    Cfg.DefOpt = 1;
    Cfg.CfgEmuOptX1.X1r_1Op.fill(0);
    Emu(21, {{"change", "GAME_02.D88"}});
    const QByteArray d1 = Disk("DISK A", 2000, 'a'), d2 = Disk("DISK B", 3000, 'b');
    Title("GAME.D88", d1 + d2);

    const TestEmuRun run = Launch(21);

    EXPECT_EQ(run.args.mid(1), (QStringList{"GAME_01.D88", "GAME_02.D88"}));
    const QByteArray image = ReadFile(r_ + "/images/GAME.D88");
    ASSERT_EQ(image.size(), d1.size() + d2.size());
    EXPECT_EQ(image.left(2000), d1);
    EXPECT_EQ(image.mid(2000 + 32, 16), kChanged);
    EXPECT_TRUE(WorkFiles().isEmpty());
}

// X1EMU: its switches, and "DOS4GW.EXE" beside the image during the run and gone after.
TEST_F(LaunchX1, X1emuHasDos4gwDuringTheRunOnly)
{
    Cfg.DefOpt = 1;
    Cfg.CfgEmuOptX1.X1emu_1Op.fill(0);
    Cfg.CfgEmuOptX1.X1emu_1Op[0] = 1;
    Cfg.CfgEmuOptX1.X1emu_1Op[8] = 1;
    Cfg.CfgEmuOptX1.X1emu_2Op[6] = 4;
    const QString dir = Emu(23, {{"list", WorkDir}});
    WriteFile(dir + "/DOS4GW.EXE", "extender");
    Title("GAME.2D");

    const TestEmuRun run = Launch(23);

    EXPECT_EQ(run.exeName, "X1EMU.EXE");
    EXPECT_EQ(run.args.mid(1), (QStringList{"/M0", "/97001", "GAME.2D"}));
    EXPECT_EQ(run.listed.value(WorkDir), (QStringList{"DOS4GW.EXE", "GAME.2D"}));
    EXPECT_TRUE(WorkFiles().isEmpty());
    EXPECT_EQ(ReadFile(dir + "/DOS4GW.EXE"), "extender");
}
