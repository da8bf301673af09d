#include "launch/LaunchCommand.h"

#include <gtest/gtest.h>

using namespace tv;

TEST(LaunchCommand, TextFormJoinsProgramAndArgumentsWithBlanks)
{
    LaunchCommand c(QStringLiteral("/emu/m88/M88.EXE"));
    c.arg(QStringLiteral("FMPAN.D88"));
    EXPECT_EQ(c.text(), QStringLiteral("/emu/m88/M88.EXE FMPAN.D88"));
    EXPECT_EQ(c.argumentValues(), QStringList{QStringLiteral("FMPAN.D88")});
}

TEST(LaunchCommand, QuotedArgumentIsQuotedOnlyInTheText)
{
    LaunchCommand c(QStringLiteral("/emu/x88/X88000.EXE"));
    c.arg(QStringLiteral("-fd0")).arg(QStringLiteral("my game.d88"), true);
    EXPECT_EQ(c.text(), QStringLiteral("/emu/x88/X88000.EXE -fd0 \"my game.d88\""));
    EXPECT_EQ(c.argumentValues().last(), QStringLiteral("my game.d88"));
}

TEST(LaunchCommand, EmptyArgumentsAreLeftOutAsATrimmedLineDropsThem)
{
    LaunchCommand c(QStringLiteral("XM7.EXE"));
    c.arg(QStringLiteral("A.D77")).arg(QString());
    EXPECT_EQ(c.text(), QStringLiteral("XM7.EXE A.D77"));
    EXPECT_EQ(c.arguments.size(), 1u);
}

TEST(LaunchCommand, FromTextSplitsAtBlanksAndGroupsQuotes)
{
    LaunchCommand c = LaunchCommand::FromText(QStringLiteral("X88000.EXE  -a -b \"a b.d88\" tail"));
    EXPECT_EQ(c.program, QStringLiteral("X88000.EXE"));
    ASSERT_EQ(c.arguments.size(), 4u);
    EXPECT_EQ(c.arguments[2].value, QStringLiteral("a b.d88"));
    EXPECT_TRUE(c.arguments[2].quoted);
    EXPECT_FALSE(c.arguments[3].quoted);
    EXPECT_EQ(c.text(), QStringLiteral("X88000.EXE -a -b \"a b.d88\" tail"));
    EXPECT_TRUE(LaunchCommand::FromText(QStringLiteral("   ")).program.isEmpty());
    // An empty pair of quotes is an empty argument of its own.
    EXPECT_EQ(LaunchCommand::FromText(QStringLiteral("P \"\"")).arguments.size(), 1u);
}

TEST(LaunchCommand, WindowsProgramsAreKnownByTheirExtension)
{
    EXPECT_TRUE(IsWindowsProgram(QStringLiteral("/emu/M88.EXE")));
    EXPECT_TRUE(IsWindowsProgram(QStringLiteral("/emu/Xmillennium.exe")));
    EXPECT_TRUE(IsWindowsProgram(QStringLiteral("X1R.COM")));
    EXPECT_FALSE(IsWindowsProgram(QStringLiteral("java")));
    EXPECT_FALSE(IsWindowsProgram(QStringLiteral("/emu/j80.jar")));
}

TEST(LaunchCommand, WinePathOfAbsoluteAndRelativeNames)
{
    EXPECT_EQ(ToWinePath(QStringLiteral("/home/u/torv/TORVBOOT/a b.d88")),
              QStringLiteral("Z:\\home\\u\\torv\\TORVBOOT\\a b.d88"));
    EXPECT_EQ(ToWinePath(QStringLiteral("/")), QStringLiteral("Z:\\"));
    EXPECT_EQ(ToWinePath(QStringLiteral("GAME.D88")), QStringLiteral("GAME.D88"));
    EXPECT_EQ(ToWinePath(QStringLiteral("sub/GAME.D88")), QStringLiteral("sub\\GAME.D88"));
    EXPECT_EQ(ToWinePath(QStringLiteral("ゲーム/ディスク.d88")),
              QStringLiteral("ゲーム\\ディスク.d88"));
    EXPECT_EQ(EmuPath(QStringLiteral("/e/M88.EXE"), QStringLiteral("/w/A.D88")),
              QStringLiteral("Z:\\w\\A.D88"));
    EXPECT_EQ(EmuPath(QStringLiteral("java"), QStringLiteral("/w/A.D88")),
              QStringLiteral("/w/A.D88"));
}
