#include "adapters/x1r/X1rSwitches.h"

#include <gtest/gtest.h>

using namespace tv;

namespace {

EmuOptX1 Defaults()
{
    EmuOptX1 o;
    SetDefaultEmuOptX1(o);
    return o;
}

EmuOptX1 With(std::initializer_list<int> enables)
{
    EmuOptX1 o = Defaults();
    for (int i : enables)
        o.X1r_1Op[i] = 1;
    return o;
}

} // namespace

TEST(X1rSwitchesTest, DefaultBlockEnablesNothing)
{
    EXPECT_EQ(MakeX1rSwitches(Defaults()), QString());
}

TEST(X1rSwitchesTest, EachSwitchAloneWithItsDefaultValue)
{
    EXPECT_EQ(MakeX1rSwitches(With({0})), QStringLiteral("/T1"));
    EXPECT_EQ(MakeX1rSwitches(With({1})), QStringLiteral("/R0"));
    EXPECT_EQ(MakeX1rSwitches(With({2})), QStringLiteral("/W1"));
    EXPECT_EQ(MakeX1rSwitches(With({3})), QStringLiteral("/U0"));
    EXPECT_EQ(MakeX1rSwitches(With({4})), QStringLiteral("/0"));
    EXPECT_EQ(MakeX1rSwitches(With({5})), QStringLiteral("/X250"));
}

TEST(X1rSwitchesTest, AllSwitchesInTheirOrder)
{
    EXPECT_EQ(MakeX1rSwitches(With({0, 1, 2, 3, 4, 5})),
              QStringLiteral("/T1 /R0 /W1 /U0 /0 /X250"));
    EXPECT_EQ(MakeX1rSwitches(With({0, 2})), QStringLiteral("/T1 /W1"));
    EXPECT_EQ(MakeX1rSwitches(With({3, 5})), QStringLiteral("/U0 /X250"));
}

TEST(X1rSwitchesTest, EveryValueFollowsItsSwitch)
{
    for (int t : {1, 2}) {
        EmuOptX1 o = With({0});
        o.X1r_2Op[0] = static_cast<uint8_t>(t);
        EXPECT_EQ(MakeX1rSwitches(o), QStringLiteral("/T%1").arg(t));
    }
    for (int r : {0, 1}) {
        EmuOptX1 o = With({1});
        o.X1r_2Op[1] = static_cast<uint8_t>(r);
        EXPECT_EQ(MakeX1rSwitches(o), QStringLiteral("/R%1").arg(r));
    }
    for (int w : {0, 1}) {
        EmuOptX1 o = With({2});
        o.X1r_2Op[2] = static_cast<uint8_t>(w);
        EXPECT_EQ(MakeX1rSwitches(o), QStringLiteral("/W%1").arg(w));
    }
    for (int u : {0, 1, 2, 3}) {
        EmuOptX1 o = With({3});
        o.X1r_2Op[3] = static_cast<uint8_t>(u);
        EXPECT_EQ(MakeX1rSwitches(o), QStringLiteral("/U%1").arg(u));
    }
    EmuOptX1 o = With({5});
    o.X1r_3Op[0] = 0;
    EXPECT_EQ(MakeX1rSwitches(o), QStringLiteral("/X0"));
    o.X1r_3Op[0] = 65535;
    EXPECT_EQ(MakeX1rSwitches(o), QStringLiteral("/X65535"));
    o.X1r_3Op[0] = -50; // a foreign block's value goes out as it stands
    EXPECT_EQ(MakeX1rSwitches(o), QStringLiteral("/X-50"));
}

TEST(X1rSwitchesTest, OnlyAnEnableOfOneCounts)
{
    EmuOptX1 o = Defaults();
    o.X1r_1Op = {2, 255, 0, 0, 2, 0, 1, 1, 1}; // 6 to 8 belong to no switch
    EXPECT_EQ(MakeX1rSwitches(o), QString());
}

TEST(X1rSwitchesTest, ValuesOfDisabledSwitchesLeaveNoTrace)
{
    EmuOptX1 o = With({4});
    o.X1r_2Op = {9, 9, 9, 9, 9, 9, 9};
    o.X1r_3Op = {9, 9, 9};
    EXPECT_EQ(MakeX1rSwitches(o), QStringLiteral("/0"));
}

TEST(X1rCommandTest, SwitchesAndTwoImages)
{
    const LaunchCommand c =
        MakeX1rCommand(QStringLiteral("/emu/x1r/X1R.COM"), QStringLiteral("/T1 /W1"),
                       QStringLiteral("GAME_01.D88"), QStringLiteral("GAME_02.D88"));
    EXPECT_EQ(c.text(), QStringLiteral("/emu/x1r/X1R.COM /T1 /W1 GAME_01.D88 GAME_02.D88"));
    EXPECT_EQ(c.program, QStringLiteral("/emu/x1r/X1R.COM"));
    EXPECT_EQ(c.argumentValues(), QStringList({"/T1", "/W1", "GAME_01.D88", "GAME_02.D88"}));
}

TEST(X1rCommandTest, NoSwitchesOneImage)
{
    const LaunchCommand c = MakeX1rCommand(QStringLiteral("/emu/x1r/X1R.COM"), QString(),
                                           QStringLiteral("GAME.D88"), QString());
    EXPECT_EQ(c.text(), QStringLiteral("/emu/x1r/X1R.COM GAME.D88"));
    EXPECT_EQ(c.argumentValues(), QStringList({"GAME.D88"}));
}

TEST(X1rCommandTest, SwitchesWithoutSecondImage)
{
    const LaunchCommand c =
        MakeX1rCommand(QStringLiteral("/emu/x1r/X1R.COM"), QStringLiteral("/R0"),
                       QStringLiteral("TAPE.TAP"), QString());
    EXPECT_EQ(c.text(), QStringLiteral("/emu/x1r/X1R.COM /R0 TAPE.TAP"));
}

TEST(X1rCommandTest, DefaultBlockSwitchesGiveTheBareImages)
{
    const LaunchCommand c =
        MakeX1rCommand(QStringLiteral("/emu/x1r/X1R.COM"), MakeX1rSwitches(Defaults()),
                       QStringLiteral("A.D88"), QStringLiteral("B.D88"));
    EXPECT_EQ(c.text(), QStringLiteral("/emu/x1r/X1R.COM A.D88 B.D88"));
}

TEST(X1rCommandTest, EverythingEmptyIsTheBareProgram)
{
    const LaunchCommand c =
        MakeX1rCommand(QStringLiteral("/emu/x1r/X1R.COM"), QString(), QString(), QString());
    EXPECT_EQ(c.text(), QStringLiteral("/emu/x1r/X1R.COM"));
    EXPECT_TRUE(c.arguments.empty());
}

TEST(X1rCommandTest, ImagesAreNotQuoted)
{
    const LaunchCommand c = MakeX1rCommand(QStringLiteral("/emu/x1r/X1R.COM"), QStringLiteral("/0"),
                                           QStringLiteral("A.D88"), QStringLiteral("B.D88"));
    for (const LaunchArg& a : c.arguments)
        EXPECT_FALSE(a.quoted) << a.value.toStdString();
}

// With no switch enabled the text form keeps the two blanks between the name and the image:
// the trim works only at the ends.
TEST(X1rCommandTest, CommandLineTextKeepsTheInnerDoubleBlank)
{
    EXPECT_EQ(X1rCommandLine(QStringLiteral("C:\\X1R"), MakeX1rSwitches(Defaults()),
                             QStringLiteral("GAME.D88"), QString()),
              QStringLiteral("C:\\X1R\\X1R.COM  GAME.D88"));
    EXPECT_EQ(X1rCommandLine(QStringLiteral("C:\\X1R"), QStringLiteral("/T1 /W1"),
                             QStringLiteral("A.D88"), QStringLiteral("B.D88")),
              QStringLiteral("C:\\X1R\\X1R.COM /T1 /W1 A.D88 B.D88"));
}
