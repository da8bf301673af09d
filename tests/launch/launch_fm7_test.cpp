// XM7 for Win32 and EM7 from end to end: the test emulator runs as XM7.EXE or EM7.EXE and
// records the configuration file it finds at its start; the checks look at that and at what
// stands in the emulator's directory after the launch. XM7 for DOS runs beside them with its
// ROM set staged.
#include "adapters/em7/Em7Ini.h"
#include "adapters/fm7x1/EmuOptFMX1.h"
#include "adapters/xm7win/Xm7WinIni.h"
#include "data/Cfg.h"
#include "data/clsLst.h"
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

class LaunchFm7 : public LaunchFixture {
protected:
    void SetUp() override
    {
        LaunchFixture::SetUp();
        Cfg.Xm7WinCfgChk = 0;
        Cfg.Em7WinCfgChk = 0;
        Cfg.Xm7WinAllScr = 0;
    }
    void TearDown() override
    {
        FmBlock(EmuOptFM{});
        LaunchFixture::TearDown();
    }

    // The test emulator under the code's program name, showing the configuration file.
    QString Install(int code, const QString& config)
    {
        const QString dir = r_ + "/emu/" + QString::number(code);
        EXPECT_EQ(Emu(code, {{"show", dir + "/" + config}, {"list", dir}}), dir);
        return dir;
    }

    // The current catalogue record's FM-7 block, as the launch fetches it when DefOpt is 0;
    // the working copy is left holding something else.
    static void FmBlock(const EmuOptFM& block)
    {
        CurEmuOptFM = block;
        LstObj.SetEmuOptFM();
        CurEmuOptFM = EmuOptFM{};
    }

    void Title(const QString& name, const QString& second = QString())
    {
        const QString path = r_ + "/images/" + name;
        ASSERT_TRUE(WriteFile(path, Image()));
        if (!second.isEmpty()) {
            ASSERT_TRUE(WriteFile(r_ + "/images/" + second, Image()));
        }
        Item(1, path, name, 0, 0, second);
    }

    TestEmuRun Launch(int code)
    {
        ScriptedMsgBox box;
        RunSelectedItem(code);
        EXPECT_TRUE(box.calls().empty());
        const auto runs = Runs();
        EXPECT_EQ(runs.size(), 1u);
        return runs.empty() ? TestEmuRun{} : runs.back();
    }

    // A title's block that differs from the defaults in both emulators' files.
    static EmuOptFM TitleBlock()
    {
        EmuOptFM b;
        SetDefaultEmuOptFM(b);
        b.Xm7Win_1Op[0] = 2;
        b.Xm7Win_2Op[0] = 1234;
        b.Xm7Win_1Op[34] = 1;
        b.Xm7Win_3Op[1] = 1;
        b.Em7Win_1Op[2] = 1;
        b.Em7Win_2Op[0] = 450;
        return b;
    }

    static QStringList Sorted(QStringList names)
    {
        names.sort(Qt::CaseSensitive);
        return names;
    }
};

const QByteArray kUserXm7("[General]\r\nVersion=1\r\nMine=\x83\x65\r\n\r\n[Other]\nKey=Value");
const QByteArray kUserEm7("[T1_SETTING]\r\nCpuWait=7\r\nMine=yes\r\n");

} // namespace

// With "Def Opt" XM7 finds the file made from the configuration's defaults, closed by the one
// extra line end of the write; the user's file is back byte for byte afterwards.
TEST_F(LaunchFm7, Xm7WinFindsTheDefaultsFile)
{
    Cfg.DefOpt = 1;
    const QString dir = Install(12, "XM7.INI");
    WriteFile(dir + "/XM7.INI", kUserXm7);
    FmBlock(TitleBlock());
    Title("GAME.D77");

    const TestEmuRun run = Launch(12);

    const QByteArray found = run.shown.value(dir + "/XM7.INI");
    EXPECT_TRUE(found.startsWith("[General]\r\nVersion=3\r\nCycleSteal=1\r\nMainSpeed=1799\r\n"
                                 "MMRSpeed=1565\r\nFastMMRSpeed=2016\r\nSubSpeed=1998\r\n"
                                 "TapeFullSpeed=1\r\n"));
    EXPECT_TRUE(found.endsWith("MousePort=1\r\n\r\n"));
    EXPECT_EQ(found, ToSjis(MakeXm7WinIni(Cfg.CfgEmuOptFM)) + "\r\n");
    EXPECT_FALSE(found.contains("Mine"));
    EXPECT_EQ(run.args.mid(1), QStringList{"GAME.D77"});
    EXPECT_EQ(ReadFile(dir + "/XM7.INI"), kUserXm7);
    EXPECT_FALSE(QFileInfo::exists(dir + "/XM7.ORG"));
    EXPECT_TRUE(WorkFiles().isEmpty());
}

// Without "Def Opt" the file is made from the title's own block of its catalogue record.
TEST_F(LaunchFm7, Xm7WinFindsTheTitlesFile)
{
    Cfg.DefOpt = 0;
    const QString dir = Install(12, "XM7.INI");
    WriteFile(dir + "/XM7.INI", kUserXm7);
    FmBlock(TitleBlock());
    Title("GAME.D77");

    const TestEmuRun run = Launch(12);

    const QByteArray found = run.shown.value(dir + "/XM7.INI");
    EXPECT_TRUE(found.startsWith("[General]\r\nVersion=2\r\nCycleSteal=1\r\nMainSpeed=1234\r\n"
                                 "MMRSpeed=1565\r\nSubSpeed=1998\r\n"));
    EXPECT_TRUE(found.contains("\r\nArrow8Dir=1\r\n\r\nKey1=1\r\nKey2=2\r\n"));
    EXPECT_TRUE(found.endsWith("MousePort=1\r\nSubBusyDelay=0\r\n\r\n"));
    EXPECT_EQ(run.args.mid(1), QStringList{"GAME.D77"});
    EXPECT_EQ(ReadFile(dir + "/XM7.INI"), kUserXm7);
    EXPECT_FALSE(QFileInfo::exists(dir + "/XM7.ORG"));
}

// "既存INI使用": the user's file is what XM7 finds, whatever the blocks say; the backup and
// restore still run and leave nothing behind.
TEST_F(LaunchFm7, Xm7WinExistingIniIsLeftAsItIs)
{
    Cfg.Xm7WinCfgChk = 1;
    Cfg.DefOpt = 1;
    const QString dir = Install(12, "XM7.INI");
    WriteFile(dir + "/XM7.INI", kUserXm7);
    FmBlock(TitleBlock());
    Title("GAME.D77");

    const TestEmuRun run = Launch(12);

    EXPECT_EQ(run.shown.value(dir + "/XM7.INI"), kUserXm7);
    EXPECT_TRUE(run.listed.value(dir).contains("XM7.ORG"));
    EXPECT_EQ(ReadFile(dir + "/XM7.INI"), kUserXm7);
    EXPECT_EQ(Sorted(QDir(dir).entryList(QDir::Files)),
              Sorted({"XM7.EXE", "XM7.INI", "testemu.ini"}));
}

// The emulator changes its file during the run; the user's comes back all the same, and a
// stale backup of an earlier failed launch is not what comes back.
TEST_F(LaunchFm7, Xm7WinUsersFileBackAfterTheEmulatorWroteIt)
{
    Cfg.DefOpt = 1;
    const QString dir = r_ + "/emu/12";
    Emu(12, {{"show", dir + "/XM7.INI"}, {"change", dir + "/XM7.INI"}});
    WriteFile(dir + "/XM7.INI", kUserXm7);
    WriteFile(dir + "/XM7.ORG", "stale");
    Title("GAME.D77");

    ScriptedMsgBox box;
    RunSelectedItem(12);
    ASSERT_EQ(Runs().size(), 1u);
    const TestEmuRun run = Runs().back();

    // The stale backup was kept beside the program first, and the user told where.
    ASSERT_EQ(box.calls().size(), 1u);
    EXPECT_EQ(box.calls()[0].flags, 64);
    const QStringList kept = QDir(AppDir).entryList({"TORVRECOVER_*_XM7_for_Win32"}, QDir::Dirs);
    ASSERT_EQ(kept.size(), 1);
    EXPECT_EQ(ReadFile(AppDir + "/" + kept[0] + "/XM7.INI"), "stale");
    EXPECT_TRUE(run.done.contains("change\t" + dir + "/XM7.INI"));
    EXPECT_EQ(ReadFile(dir + "/XM7.INI"), kUserXm7);
    EXPECT_FALSE(QFileInfo::exists(dir + "/XM7.ORG"));
}

// A never configured XM7 keeps the generated file after the run.
TEST_F(LaunchFm7, Xm7WinWithoutAUsersFileKeepsTheGeneratedOne)
{
    Cfg.DefOpt = 1;
    const QString dir = Install(12, "XM7.INI");
    Title("GAME.D77");

    const TestEmuRun run = Launch(12);

    const QByteArray generated = ToSjis(MakeXm7WinIni(Cfg.CfgEmuOptFM)) + "\r\n";
    EXPECT_EQ(run.shown.value(dir + "/XM7.INI"), generated);
    EXPECT_EQ(ReadFile(dir + "/XM7.INI"), generated);
    EXPECT_FALSE(QFileInfo::exists(dir + "/XM7.ORG"));
}

// With "全画面" on, the full-screen key goes to the emulator after its start.
TEST_F(LaunchFm7, Xm7WinFullScreenKeySentWhenAsked)
{
    Cfg.DefOpt = 1;
    Install(12, "XM7.INI");
    Title("GAME.D77");
    Launch(12);
    EXPECT_TRUE(KeySeqs().isEmpty());

    ClearInputLog();
    Cfg.Xm7WinAllScr = 1;
    {
        ScriptedMsgBox box;
        RunSelectedItem(12);
    }
    EXPECT_EQ(KeySeqs(), QStringList{"%{ENTER}"});
}

// EM7 with "Def Opt": the whole file of the defaults, the first image only.
TEST_F(LaunchFm7, Em7FindsTheDefaultsFileAndTheFirstImageOnly)
{
    Cfg.DefOpt = 1;
    const QString dir = Install(13, "EM7.INI");
    WriteFile(dir + "/EM7.INI", kUserEm7);
    FmBlock(TitleBlock());
    Title("GAME.VFD", "DISK2.VFD");

    const TestEmuRun run = Launch(13);

    EXPECT_EQ(run.shown.value(dir + "/EM7.INI"),
              QByteArray("[T1_SETTING]\r\nCpuWait=240\r\nFlipFreq=30\r\nSubNmi=20\r\n"
                         "McpuIrq=203\r\nKeyCh_ESC=1\r\nBootMode=0\r\nDspMode=0\r\n\r\n"));
    EXPECT_EQ(run.args.mid(1), QStringList{"GAME.VFD"});
    EXPECT_EQ(ReadFile(dir + "/EM7.INI"), kUserEm7);
    EXPECT_FALSE(QFileInfo::exists(dir + "/EM7.ORG"));
    EXPECT_TRUE(WorkFiles().isEmpty());
}

// EM7 with the title's block, then with "既存INI使用".
TEST_F(LaunchFm7, Em7TitlesFileThenTheUsersOwn)
{
    Cfg.DefOpt = 0;
    const QString dir = Install(13, "EM7.INI");
    WriteFile(dir + "/EM7.INI", kUserEm7);
    FmBlock(TitleBlock());
    Title("GAME.VFD");

    const TestEmuRun run = Launch(13);
    const QByteArray found = run.shown.value(dir + "/EM7.INI");
    EXPECT_TRUE(found.contains("\r\nMcpuIrq=450\r\n"));
    EXPECT_TRUE(found.endsWith("\r\nDspMode=1\r\n\r\n"));
    EXPECT_EQ(ReadFile(dir + "/EM7.INI"), kUserEm7);

    Cfg.Em7WinCfgChk = 1;
    {
        ScriptedMsgBox box;
        RunSelectedItem(13);
    }
    const auto runs = Runs();
    ASSERT_EQ(runs.size(), 2u);
    EXPECT_EQ(runs[1].shown.value(dir + "/EM7.INI"), kUserEm7);
    EXPECT_EQ(ReadFile(dir + "/EM7.INI"), kUserEm7);
    EXPECT_FALSE(QFileInfo::exists(dir + "/EM7.ORG"));
}

// XM7 for DOS: the five ROM files beside the image during the run, the image on the command
// line even with option data in the block, nothing left afterwards.
TEST_F(LaunchFm7, Xm7DosStagesItsRomsAndTakesBothImages)
{
    Cfg.DefOpt = 0;
    const QString dir = Emu(11);
    const QStringList roms = {"FBASIC30.ROM", "BOOT_BAS.ROM", "BOOT_DOS.ROM", "SUBSYS_C.ROM",
                              "KANJI.ROM"};
    for (const QString& rom : roms)
        WriteFile(dir + "/" + rom, rom.toLatin1());
    FmBlock(TitleBlock());
    Title("GAME.D77");

    const TestEmuRun run = Launch(11);

    EXPECT_EQ(run.args.mid(1), QStringList{"GAME.D77"});
    for (const QString& rom : roms)
        EXPECT_TRUE(run.files.contains(rom)) << rom.toStdString();
    EXPECT_TRUE(WorkFiles().isEmpty());
}
