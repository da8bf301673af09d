#include "adapters/p88sr/P88srLaunch.h"
#include "data/Cfg.h"

#include <gtest/gtest.h>

using namespace tv;

namespace {

P88srCommandInput In(const char* image, const char* second, const char* panArg)
{
    return {QStringLiteral("/emu/p88sr"), QString::fromUtf8(image), QString::fromUtf8(second),
            QString::fromUtf8(panArg)};
}

std::vector<LaunchArg> Bare(std::initializer_list<const char*> values)
{
    std::vector<LaunchArg> out;
    for (const char* v : values)
        out.push_back({QString::fromUtf8(v), false});
    return out;
}

} // namespace

TEST(P88srCommandTest, ImageAloneLeavesNoTrailingBlank)
{
    const LaunchCommand c = MakeP88srCommand(In("GAME.D88", "", ""));
    EXPECT_EQ(c.program, QStringLiteral("/emu/p88sr/P88SR.EXE"));
    EXPECT_EQ(c.text(), QStringLiteral("/emu/p88sr/P88SR.EXE GAME.D88"));
    EXPECT_EQ(c.arguments, Bare({"GAME.D88"}));
}

TEST(P88srCommandTest, SecondImageGoesToDriveTwo)
{
    const LaunchCommand c = MakeP88srCommand(In("GAME.D88", "GAME2.D88", ""));
    EXPECT_EQ(c.text(), QStringLiteral("/emu/p88sr/P88SR.EXE GAME.D88 GAME2.D88"));
    EXPECT_EQ(c.arguments, Bare({"GAME.D88", "GAME2.D88"}));
}

TEST(P88srCommandTest, PanDiskTakesDriveOneAndPushesTheImagesAlong)
{
    LaunchCommand c = MakeP88srCommand(In("GAME.D88", "GAME2.D88", "FMPAN.D88 "));
    EXPECT_EQ(c.text(), QStringLiteral("/emu/p88sr/P88SR.EXE FMPAN.D88 GAME.D88 GAME2.D88"));
    EXPECT_EQ(c.arguments, Bare({"FMPAN.D88", "GAME.D88", "GAME2.D88"}));
    c = MakeP88srCommand(In("GAME.D88", "", "FMPAN.D88 "));
    EXPECT_EQ(c.text(), QStringLiteral("/emu/p88sr/P88SR.EXE FMPAN.D88 GAME.D88"));
    EXPECT_EQ(c.arguments, Bare({"FMPAN.D88", "GAME.D88"}));
}

TEST(P88srCommandTest, TapeImageNeverStandsBehindThePanDisk)
{
    LaunchCommand c = MakeP88srCommand(In("TAPE.T88", "", "FMPAN.D88 "));
    EXPECT_EQ(c.text(), QStringLiteral("/emu/p88sr/P88SR.EXE TAPE.T88"));
    EXPECT_EQ(c.arguments, Bare({"TAPE.T88"}));
    c = MakeP88srCommand(In("tape.t88", "DISK.D88", "FMPAN.D88 "));
    EXPECT_EQ(c.text(), QStringLiteral("/emu/p88sr/P88SR.EXE tape.t88 DISK.D88"));
    EXPECT_EQ(c.arguments, Bare({"tape.t88", "DISK.D88"}));
}

TEST(P88srCommandTest, UnquotedNamesAreCutAtTheirBlanks)
{
    // The second image stands as the record holds it, a long name; unquoted, the home platform
    // cuts it at its blank.
    const LaunchCommand c = MakeP88srCommand(In("GAME.D88", "ゲーム 2.D88", ""));
    EXPECT_EQ(c.text(), QStringLiteral("/emu/p88sr/P88SR.EXE GAME.D88 ゲーム 2.D88"));
    EXPECT_EQ(c.arguments, Bare({"GAME.D88", "ゲーム", "2.D88"}));
    EXPECT_EQ(LaunchCommand::FromText(QStringLiteral("P GAME.D88 ゲーム 2.D88")).arguments,
              c.arguments);
}

TEST(P88srCommandTest, FromTheConfiguration)
{
    const QString saved = Cfg.P88srDir;
    Cfg.P88srDir = QStringLiteral("/emu/p88sr") + QString(20, QLatin1Char(' '));
    const LaunchCommand c =
        MakeP88srCommand(QStringLiteral("GAME.D88"), QString(), QStringLiteral("FMPAN.D88 "));
    Cfg.P88srDir = saved;
    EXPECT_EQ(c.text(), QStringLiteral("/emu/p88sr/P88SR.EXE FMPAN.D88 GAME.D88"));
}
