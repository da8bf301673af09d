// QUASI88 from end to end: the test emulator runs as QUASI88.EXE and records the INI it finds
// in its current directory and its arguments; the checks look at those and at WorkDir after
// the launch.
#include "adapters/pc88/EmuOpt88.h"
#include "data/Cfg.h"
#include "launch/Launch.h"
#include "support/LaunchFixture.h"
#include "support/ScriptedMsgBox.h"
#include "support/TestEmu.h"
#include "util/Globals.h"

#include <QDir>
#include <QFileInfo>
#include <gtest/gtest.h>

using namespace tv;
using namespace tvtest;

namespace {

// The INI of the default block, as written out line by line.
const QByteArray kDefaultIni = "-v2\r\n-4mhz\r\n-cpu 0\r\n-frameskip 12\r\n-sd\r\n"
                               "-samplefreq 22050\r\n-sdlbufsize 1024\r\n-sdlbufnum 4\r\n"
                               "-volume 0\r\n-fmvol 100\r\n-psgvol 20\r\n-beepvol 60\r\n"
                               "-rhythmvol 100\r\n-adpcmvol 100\r\n-romaji 0\r\n-nomouse\r\n"
                               "-joyassign 1\r\n-dipsw 0x391A\r\n-baudrate 300\r\n";

class LaunchQuasi88 : public LaunchFixture {
protected:
    void SetUp() override
    {
        LaunchFixture::SetUp();
        Cfg.Q88CfgChk = 0;
        Cfg.PanUse = 0;
        dir_ = r_ + "/emu/5";
    }

    // The test emulator as QUASI88.EXE, recording the INI of its current directory.
    void Quasi88() { EXPECT_EQ(Emu(5, {{"show", "QUASI88.INI"}}), dir_); }

    void Title(const QString& name)
    {
        const QString path = r_ + "/images/" + name;
        ASSERT_TRUE(WriteFile(path, Image()));
        Item(0, path, name);
    }

    TestEmuRun Launch()
    {
        ScriptedMsgBox box;
        RunSelectedItem(5);
        EXPECT_TRUE(box.calls().empty());
        const auto runs = Runs();
        EXPECT_EQ(runs.size(), 1u);
        return runs.empty() ? TestEmuRun{} : runs.back();
    }

    // A native directory in the form in which the emulator sees it.
    static QString Wine(const QString& native) { return "Z:" + QString(native).replace('/', '\\'); }

    QString dir_;
};

} // namespace

// With "Def Opt" the emulator finds the INI of the defaults in WorkDir, gets the directories
// and the image as arguments, and the INI is gone after the run.
TEST_F(LaunchQuasi88, GeneratedIniInWorkDirAndGoneAfter)
{
    Cfg.DefOpt = 1;
    Quasi88();
    Title("GAME.D88");

    const TestEmuRun run = Launch();

    EXPECT_EQ(run.shown.value("QUASI88.INI"), kDefaultIni);
    EXPECT_EQ(run.args.mid(1),
              (QStringList{"-romdir", Wine(dir_), "-diskdir", Wine(WorkDir), "GAME.D88"}));
    EXPECT_EQ(run.files, (QStringList{"GAME.D88", "QUASI88.INI"}));
    EXPECT_TRUE(WorkFiles().isEmpty());
    EXPECT_FALSE(QFileInfo::exists(dir_ + "/QUASI88.INI"));
}

// Without "Def Opt" the title's own block is written.
TEST_F(LaunchQuasi88, TitlesBlockIsWritten)
{
    Cfg.DefOpt = 0;
    Quasi88();
    EmuOpt88 title;
    SetDefaultEmuOpt88(title);
    title.Q88_1Op[0] = 1;
    title.Q88_1Op[9] = 1;
    title.Q88_1Op[39] = 20;
    ItemBlock(title);
    Title("GAME.D88");

    const TestEmuRun run = Launch();

    EXPECT_EQ(run.shown.value("QUASI88.INI"),
              "-v1s\r\n-4mhz\r\n-nologo\r\n-cpu 0\r\n-frameskip 12\r\n-sd\r\n"
              "-samplefreq 22050\r\n-sdlbufsize 1024\r\n-sdlbufnum 4\r\n"
              "-volume -12\r\n-fmvol 100\r\n-psgvol 20\r\n-beepvol 60\r\n"
              "-rhythmvol 100\r\n-adpcmvol 100\r\n-romaji 0\r\n-nomouse\r\n"
              "-joyassign 1\r\n-dipsw 0x391A\r\n-baudrate 300\r\n");
}

// "既存INI使用": the user's INI of QUASI88's directory is what the emulator finds, byte for
// byte, and the user's file stays beside the program.
TEST_F(LaunchQuasi88, UsersIniCopiedIntoWorkDir)
{
    Cfg.Q88CfgChk = 1;
    Quasi88();
    const QByteArray user = "-v1h\r\n-nologo\r\n# \x83\x65\x83\x58\x83\x67\r\n";
    WriteFile(dir_ + "/quasi88.ini", user);
    Title("GAME.D88");

    const TestEmuRun run = Launch();

    EXPECT_EQ(run.shown.value("QUASI88.INI"), user);
    EXPECT_EQ(ReadFile(dir_ + "/quasi88.ini"), user);
    EXPECT_TRUE(WorkFiles().isEmpty());
}

// "既存INI使用" without an INI: none in WorkDir, the emulator runs on the command line alone.
TEST_F(LaunchQuasi88, NoUsersIniLeavesNone)
{
    Cfg.Q88CfgChk = 1;
    Quasi88();
    Title("GAME.D88");

    const TestEmuRun run = Launch();

    EXPECT_EQ(run.files, QStringList{"GAME.D88"});
    EXPECT_TRUE(run.unreadable.contains("QUASI88.INI"));
    EXPECT_EQ(run.args.size(), 6);
}

// Full screen and the compatible ROM, whose file isn't there, come first; blanks and Japanese
// in the directories reach the emulator inside one argument each, the unquoted ROM path cut
// at its blank.
TEST_F(LaunchQuasi88, DirectoriesWithBlanksAndJapanese)
{
    Cfg.DefOpt = 1;
    Cfg.Q88AllScr = 1;
    Cfg.Q88CompatRomUse = 1;
    const QString dir = r_ + "/emu/キュー 88";
    QDir().mkpath(dir);
    ASSERT_FALSE(InstallTestEmu(dir, "QUASI88.EXE").isEmpty());
    ASSERT_TRUE(WriteTestEmuConfig(dir, {{"log", log_}, {"exitafter", "300"}}));
    Cfg.QUASI88Dir = dir;
    Title("ゲーム.D88");

    const TestEmuRun run = Launch();

    const QString rom = Wine(dir + "/PC88.ROM");
    EXPECT_EQ(run.args.mid(1),
              (QStringList{"-dga", "-compatrom", rom.section(' ', 0, 0), rom.section(' ', 1),
                           "-romdir", Wine(dir), "-diskdir", Wine(WorkDir), "ゲーム.D88"}));
    EXPECT_TRUE(rom.endsWith("\\emu\\キュー 88\\PC88.ROM"));
}

// "Use PAN": the FMPAN disk stands in the image's place with its trailing blank, and the
// image isn't on the command line.
TEST_F(LaunchQuasi88, PanDiskTakesTheImagesPlace)
{
    Cfg.DefOpt = 1;
    Cfg.PanUse = 1;
    Cfg.FmPanFile = r_ + "/FMPAN.D88";
    WriteFile(Cfg.FmPanFile, Image());
    Quasi88();
    Title("GAME.D88");

    const TestEmuRun run = Launch();

    EXPECT_EQ(run.args.mid(1),
              (QStringList{"-romdir", Wine(dir_), "-diskdir", Wine(WorkDir), "FMPAN.D88 "}));
    EXPECT_TRUE(WorkFiles().isEmpty());
}
