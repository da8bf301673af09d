// X88000 from end to end: the test emulator runs as X88000.EXE and records its arguments and
// what was pasted; the switches come from the block that DefOpt chooses, or are left out with
// "既存INI使用".
#include "adapters/pc88/EmuOpt88.h"
#include "data/Cfg.h"
#include "launch/Launch.h"
#include "support/LaunchFixture.h"
#include "support/ScriptedMsgBox.h"
#include "support/TestEmu.h"
#include "util/Globals.h"

#include <gtest/gtest.h>

using namespace tv;
using namespace tvtest;

namespace {

class LaunchX88000 : public LaunchFixture {
protected:
    void SetUp() override
    {
        LaunchFixture::SetUp();
        Cfg.X88CfgChk = 0;
        dir_ = Emu(4);
    }

    void Title(const QString& name)
    {
        const QString path = r_ + "/images/" + name;
        ASSERT_TRUE(WriteFile(path, Image()));
        Item(0, path, name);
    }

    TestEmuRun Launch()
    {
        ScriptedMsgBox box;
        RunSelectedItem(4);
        EXPECT_TRUE(box.calls().empty());
        const auto runs = Runs();
        EXPECT_EQ(runs.size(), 1u);
        return runs.empty() ? TestEmuRun{} : runs.back();
    }

    QString dir_;
};

const QStringList kDefaultSwitches{
    "-saveenv:off",    "-basic:v2",       "-clock:4",        "-boost:off",        "-drives:2",
    "-drive1:1",       "-drive2:2",       "-readonly:off",   "-framerate:20",     "-interlace:off",
    "-directinput:on", "-imedisable:off", "-directsound:on", "-dsoundfreq:44100", "-dsoundbit:8",
    "-dsoundch:1",     "-beepvolume:50",  "-beepmute:off",   "-parallel:null",    "-crtvsync:24",
    "-waitemu:off",    "-oldcompat:off"};

} // namespace

// The defaults' switches, one argument each, and the D88 last; nothing is pasted.
TEST_F(LaunchX88000, D88WithTheDefaultsSwitches)
{
    Cfg.DefOpt = 1;
    Title("GAME.D88");

    const TestEmuRun run = Launch();

    EXPECT_EQ(run.exeName, "X88000.EXE");
    EXPECT_EQ(run.args.mid(1), kDefaultSwitches + QStringList{"GAME.D88"});
    EXPECT_TRUE(Clips().isEmpty());
    EXPECT_TRUE(WorkFiles().isEmpty());
}

// Without "Def Opt" the title's own block gives the switches: boost on with its limit, three
// drives with the third one's box off.
TEST_F(LaunchX88000, TheTitlesBlockGivesTheSwitches)
{
    Cfg.DefOpt = 0;
    EmuOpt88 b;
    SetDefaultEmuOpt88(b);
    b.X88_1Op[0] = 0;
    b.X88_1Op[2] = 1;
    b.X88_1Op[3] = 2;
    b.X88_1Op[4] = 3;
    b.X88_1Op[7] = 255;
    ItemBlock(b);
    Title("GAME.D88");

    const TestEmuRun run = Launch();

    EXPECT_EQ(
        run.args.mid(1),
        (QStringList{"-saveenv:off",    "-basic:n",        "-clock:4",        "-boost:on",
                     "-boostlim:50",    "-drives:3",       "-drive1:1",       "-drive2:2",
                     "-drive3:255",     "-readonly:off",   "-framerate:20",   "-interlace:off",
                     "-directinput:on", "-imedisable:off", "-directsound:on", "-dsoundfreq:44100",
                     "-dsoundbit:8",    "-dsoundch:1",     "-beepvolume:50",  "-beepmute:off",
                     "-parallel:null",  "-crtvsync:24",    "-waitemu:off",    "-oldcompat:off",
                     "GAME.D88"}));
}

// With "既存INI使用" X88000 gets the image alone.
TEST_F(LaunchX88000, ExistingSettingsGiveNoSwitch)
{
    Cfg.X88CfgChk = 1;
    Title("GAME.D88");

    const TestEmuRun run = Launch();

    EXPECT_EQ(run.args.mid(1), QStringList{"GAME.D88"});
    EXPECT_TRUE(WorkFiles().isEmpty());
}

// A tape image is not on the command line: it goes through X88000's file dialog.
TEST_F(LaunchX88000, TapeImageIsPasted)
{
    Cfg.DefOpt = 1;
    Title("GAME.T88");

    const TestEmuRun run = Launch();

    EXPECT_EQ(run.args.mid(1), kDefaultSwitches);
    EXPECT_EQ(Clips(), QStringList{"GAME.T88"});
    EXPECT_EQ(KeySeqs(), QStringList{"%ITO^V%O{ENTER}"});
    EXPECT_TRUE(WorkFiles().isEmpty());
}
