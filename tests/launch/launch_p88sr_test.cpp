// P88SR from end to end: the test emulator runs as P88SR.EXE and records the "P88SR.CFG" it
// finds beside itself and its arguments; the checks look at those, at P88SaveDir and at the
// emulator's directory after the launch.
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

class LaunchP88sr : public LaunchFixture {
protected:
    void SetUp() override
    {
        LaunchFixture::SetUp();
        Cfg.P88CfgChk = 0;
        Cfg.PanUse = 0;
        Cfg.DefOpt = 1;
        dir_ = r_ + "/emu/1";
    }

    void P88sr(QMap<QString, QString> actions = {})
    {
        const QString show = dir_ + "/P88SR.CFG";
        actions["show"] = actions.contains("show") ? show + "," + actions["show"] : show;
        EXPECT_EQ(Emu(1, actions), dir_);
    }

    void Title(const QString& name, const QString& second = QString())
    {
        const QString path = r_ + "/images/" + name;
        ASSERT_TRUE(WriteFile(path, Image()));
        if (!second.isEmpty()) {
            ASSERT_TRUE(WriteFile(r_ + "/images/" + second, Image()));
        }
        Item(0, path, name, 0, 0, second);
    }

    TestEmuRun Launch()
    {
        ScriptedMsgBox box;
        RunSelectedItem(1);
        EXPECT_TRUE(box.calls().empty());
        const auto runs = Runs();
        EXPECT_EQ(runs.size(), 1u);
        return runs.empty() ? TestEmuRun{} : runs.back();
    }

    QString dir_;
};

} // namespace

// The line of the defaults, with the slot marked in the detail pane; the user's file is back
// byte for byte after the run and no backup stays.
TEST_F(LaunchP88sr, CfgWithSlotAndUsersFileBack)
{
    P88sr({{"change", dir_ + "/P88SR.CFG"}});
    const QByteArray user = "-a1 -b2 -e -M\r\n";
    WriteFile(dir_ + "/P88SR.CFG", user);
    window_->p88SaveSlot = 3;
    Title("GAME.D88");

    const TestEmuRun run = Launch();

    EXPECT_EQ(run.shown.value(dir_ + "/P88SR.CFG"), "-a1 -b2 -L3\r\n");
    EXPECT_EQ(run.args.mid(1), QStringList{"GAME.D88"});
    EXPECT_EQ(ReadFile(dir_ + "/P88SR.CFG"), user);
    EXPECT_FALSE(QFileInfo::exists(dir_ + "/P88SR.ORG"));
    EXPECT_TRUE(WorkFiles().isEmpty());
}

// No slot marked: the line alone. A user's file spelt in lower case gives way to ours during
// the run and comes back after it.
TEST_F(LaunchP88sr, CfgWithoutSlotReplacesAnyCase)
{
    P88sr();
    WriteFile(dir_ + "/p88sr.cfg", "user line\r\n");
    Title("GAME.D88");

    const TestEmuRun run = Launch();

    EXPECT_EQ(run.shown.value(dir_ + "/P88SR.CFG"), "-a1 -b2\r\n");
    // One spelling only, the user's bytes under the emulator's own name.
    EXPECT_EQ(QDir(dir_).entryList(QDir::Files, QDir::Name),
              (QStringList{"P88SR.CFG", "P88SR.EXE", "testemu.ini"}));
    EXPECT_EQ(ReadFile(dir_ + "/P88SR.CFG"), "user line\r\n");
}

// The title's own block with every switch off: an empty line, and the slot behind it.
TEST_F(LaunchP88sr, TitlesBlockAllOffWithSlot)
{
    Cfg.DefOpt = 0;
    P88sr();
    EmuOpt88 title;
    SetDefaultEmuOpt88(title);
    title.P88_1Op.fill(0);
    ItemBlock(title);
    window_->p88SaveSlot = 9;
    Title("GAME.D88");

    const TestEmuRun run = Launch();

    EXPECT_EQ(run.shown.value(dir_ + "/P88SR.CFG"), " -L9\r\n");
}

// "Use PAN": no slot, no state offered, and the FMPAN disk takes drive 1 before the image and
// the second image.
TEST_F(LaunchP88sr, PanTakesDriveOneAndNoSlot)
{
    Cfg.PanUse = 1;
    Cfg.FmPanFile = r_ + "/FMPAN.D88";
    WriteFile(Cfg.FmPanFile, Image());
    P88sr();
    WriteFile(P88SaveDir + "/GAME.SV1", "state one");
    window_->p88SaveSlot = 1;
    Title("GAME.D88", "GAME2.D88");

    const TestEmuRun run = Launch();

    EXPECT_EQ(run.shown.value(dir_ + "/P88SR.CFG"), "-a1 -b2\r\n");
    EXPECT_EQ(run.args.mid(1), (QStringList{"FMPAN.D88", "GAME.D88", "GAME2.D88"}));
    EXPECT_FALSE(run.files.contains("GAME.SV1"));
}

// A tape image never stands behind the FMPAN disk.
TEST_F(LaunchP88sr, TapeImageKeepsDriveOne)
{
    Cfg.PanUse = 1;
    Cfg.FmPanFile = r_ + "/FMPAN.D88";
    WriteFile(Cfg.FmPanFile, Image());
    P88sr();
    Title("GAME.T88");

    const TestEmuRun run = Launch();

    EXPECT_EQ(run.args.mid(1), QStringList{"GAME.T88"});
}

// The user's own file with the configuration's flag: untouched, no slot added.
TEST_F(LaunchP88sr, ExistingFileKept)
{
    Cfg.P88CfgChk = 1;
    P88sr();
    const QByteArray user = "-a1 -M -e\r\n";
    WriteFile(dir_ + "/P88SR.CFG", user);
    window_->p88SaveSlot = 2;
    Title("GAME.D88");

    const TestEmuRun run = Launch();

    EXPECT_EQ(run.shown.value(dir_ + "/P88SR.CFG"), user);
    EXPECT_EQ(ReadFile(dir_ + "/P88SR.CFG"), user);
}

// Save states of the title come into WorkDir and go back under upper-cased names, a changed
// one with its change and a new one beside it; another title's stay.
TEST_F(LaunchP88sr, SaveStatesGoInAndOut)
{
    P88sr({{"change", "game.SV1"}, {"save", "game.SV4"}, {"show", "game.SV1"}});
    const QByteArray state1(64, 's');
    WriteFile(P88SaveDir + "/GAME.SV1", state1);
    WriteFile(P88SaveDir + "/GAME.SV0", "state zero");
    WriteFile(P88SaveDir + "/OTHER.SV2", "other title");
    Title("game.d88");

    const TestEmuRun run = Launch();

    EXPECT_EQ(run.files, (QStringList{"game.D88", "game.SV0", "game.SV1"}));
    EXPECT_EQ(run.shown.value("game.SV1"), state1);
    EXPECT_EQ(QDir(P88SaveDir).entryList(QDir::Files, QDir::Name),
              (QStringList{"GAME.SV0", "GAME.SV1", "GAME.SV4", "OTHER.SV2"}));
    EXPECT_EQ(ReadFile(P88SaveDir + "/GAME.SV1").mid(32, 16), kChanged);
    EXPECT_EQ(ReadFile(P88SaveDir + "/GAME.SV4"), "testemu save state\n");
    EXPECT_EQ(ReadFile(P88SaveDir + "/GAME.SV0"), "state zero");
    EXPECT_EQ(ReadFile(P88SaveDir + "/OTHER.SV2"), "other title");
    EXPECT_TRUE(WorkFiles().isEmpty());
}
