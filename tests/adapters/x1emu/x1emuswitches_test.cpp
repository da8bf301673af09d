#include "adapters/x1emu/X1emuSwitches.h"

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
        o.X1emu_1Op[i] = 1;
    return o;
}

} // namespace

TEST(X1emuSwitchesTest, DefaultBlockEnablesNothing)
{
    EXPECT_EQ(MakeX1emuSwitches(Defaults()), QString());
}

TEST(X1emuSwitchesTest, EachSwitchAloneWithItsDefaultValue)
{
    EXPECT_EQ(MakeX1emuSwitches(With({0})), QStringLiteral("/M0"));
    EXPECT_EQ(MakeX1emuSwitches(With({1})), QStringLiteral("/I0"));
    EXPECT_EQ(MakeX1emuSwitches(With({2})), QStringLiteral("/T1"));
    EXPECT_EQ(MakeX1emuSwitches(With({3})), QStringLiteral("/R0"));
    EXPECT_EQ(MakeX1emuSwitches(With({4})), QStringLiteral("/D0"));
    EXPECT_EQ(MakeX1emuSwitches(With({5})), QStringLiteral("/K0"));
    EXPECT_EQ(MakeX1emuSwitches(With({6})), QStringLiteral("/U0"));
    EXPECT_EQ(MakeX1emuSwitches(With({7})), QStringLiteral("/W2"));
    EXPECT_EQ(MakeX1emuSwitches(With({8})), QStringLiteral("/A"));
}

TEST(X1emuSwitchesTest, AllSwitchesInTheirOrder)
{
    EXPECT_EQ(MakeX1emuSwitches(With({0, 1, 2, 3, 4, 5, 6, 7, 8})),
              QStringLiteral("/M0 /I0 /T1 /R0 /D0 /K0 /U0 /W2 /A"));
    EXPECT_EQ(MakeX1emuSwitches(With({2, 7})), QStringLiteral("/T1 /W2"));
}

TEST(X1emuSwitchesTest, EveryValueFollowsItsSwitch)
{
    for (int i : {0, 1, 13, 27}) {
        EmuOptX1 o = With({1});
        o.X1emu_2Op[0] = static_cast<uint8_t>(i);
        EXPECT_EQ(MakeX1emuSwitches(o), QStringLiteral("/I%1").arg(i));
    }
    for (int t : {0, 1, 2}) {
        EmuOptX1 o = With({2});
        o.X1emu_2Op[1] = static_cast<uint8_t>(t);
        EXPECT_EQ(MakeX1emuSwitches(o), QStringLiteral("/T%1").arg(t));
    }
    for (int r : {0, 1}) {
        EmuOptX1 o = With({3});
        o.X1emu_2Op[2] = static_cast<uint8_t>(r);
        EXPECT_EQ(MakeX1emuSwitches(o), QStringLiteral("/R%1").arg(r));
    }
    for (char d : {'0', '9', 'A', 'F'}) {
        EmuOptX1 o = With({4});
        o.X1emu_3Op = static_cast<uint8_t>(d);
        EXPECT_EQ(MakeX1emuSwitches(o), QStringLiteral("/D") + QLatin1Char(d));
    }
    for (int k : {0, 1, 2}) {
        EmuOptX1 o = With({5});
        o.X1emu_2Op[3] = static_cast<uint8_t>(k);
        EXPECT_EQ(MakeX1emuSwitches(o), QStringLiteral("/K%1").arg(k));
    }
    for (int u : {0, 1, 2, 3, 4, 8, 16, 32}) {
        EmuOptX1 o = With({6});
        o.X1emu_2Op[4] = static_cast<uint8_t>(u);
        EXPECT_EQ(MakeX1emuSwitches(o), QStringLiteral("/U%1").arg(u));
    }
    for (int w : {0, 1, 2}) {
        EmuOptX1 o = With({7});
        o.X1emu_2Op[5] = static_cast<uint8_t>(w);
        EXPECT_EQ(MakeX1emuSwitches(o), QStringLiteral("/W%1").arg(w));
    }
}

TEST(X1emuSwitchesTest, EveryMachineSwitchValue)
{
    const std::pair<int, const char*> cases[] = {
        {0, "/A"}, {1, "/9"}, {2, "/!"}, {3, "/A6000"}, {4, "/97001"}};
    for (auto [v, text] : cases) {
        EmuOptX1 o = With({8});
        o.X1emu_2Op[6] = static_cast<uint8_t>(v);
        EXPECT_EQ(MakeX1emuSwitches(o), QString::fromLatin1(text)) << v;
    }
}

TEST(X1emuSwitchesTest, MachineValueOutsideTheTableAddsNothingAndLosesNothing)
{
    for (int v : {5, 255}) {
        EmuOptX1 o = With({0, 7, 8});
        o.X1emu_2Op[6] = static_cast<uint8_t>(v);
        EXPECT_EQ(MakeX1emuSwitches(o), QStringLiteral("/M0 /W2")) << v;
        EmuOptX1 alone = With({8});
        alone.X1emu_2Op[6] = static_cast<uint8_t>(v);
        EXPECT_EQ(MakeX1emuSwitches(alone), QString()) << v;
    }
}

TEST(X1emuSwitchesTest, BlankDipSwitchIsTrimmedOnlyAtTheEnd)
{
    EmuOptX1 o = With({4});
    o.X1emu_3Op = ' ';
    EXPECT_EQ(MakeX1emuSwitches(o), QStringLiteral("/D"));
    o.X1emu_1Op[5] = 1;
    EXPECT_EQ(MakeX1emuSwitches(o), QStringLiteral("/D  /K0"));
}

TEST(X1emuSwitchesTest, DipSwitchByteIsAShiftJisCharacter)
{
    EmuOptX1 o = With({4});
    o.X1emu_3Op = 0xB1; // half-width katakana A in Shift-JIS
    EXPECT_EQ(MakeX1emuSwitches(o), QStringLiteral("/Dｱ"));
}

TEST(X1emuSwitchesTest, OnlyAnEnableOfOneCounts)
{
    EmuOptX1 o = Defaults();
    o.X1emu_1Op = {2, 0, 255, 0, 2, 0, 0, 3, 2, 1, 1, 1}; // 9 to 11 belong to no switch
    EXPECT_EQ(MakeX1emuSwitches(o), QString());
}

TEST(X1emuCommandTest, SwitchesAndTwoImages)
{
    const LaunchCommand c =
        MakeX1emuCommand(QStringLiteral("/emu/x1emu/X1EMU.EXE"), QStringLiteral("/M0 /W2 /97001"),
                         QStringLiteral("GAME_01.D88"), QStringLiteral("GAME_02.D88"));
    EXPECT_EQ(c.text(),
              QStringLiteral("/emu/x1emu/X1EMU.EXE /M0 /W2 /97001 GAME_01.D88 GAME_02.D88"));
    EXPECT_EQ(c.argumentValues(),
              QStringList({"/M0", "/W2", "/97001", "GAME_01.D88", "GAME_02.D88"}));
}

TEST(X1emuCommandTest, NoSwitchesOneImage)
{
    const LaunchCommand c =
        MakeX1emuCommand(QStringLiteral("/emu/x1emu/X1EMU.EXE"), MakeX1emuSwitches(Defaults()),
                         QStringLiteral("GAME.D88"), QString());
    EXPECT_EQ(c.text(), QStringLiteral("/emu/x1emu/X1EMU.EXE GAME.D88"));
}

TEST(X1emuCommandTest, InnerDoubleBlankOfTheSwitchesGivesNoEmptyArgument)
{
    const LaunchCommand c =
        MakeX1emuCommand(QStringLiteral("/emu/x1emu/X1EMU.EXE"), QStringLiteral("/D  /K0"),
                         QStringLiteral("A.2D"), QString());
    EXPECT_EQ(c.text(), QStringLiteral("/emu/x1emu/X1EMU.EXE /D /K0 A.2D"));
    EXPECT_EQ(c.argumentValues(), QStringList({"/D", "/K0", "A.2D"}));
}

TEST(X1emuCommandTest, EverythingEmptyIsTheBareProgram)
{
    const LaunchCommand c =
        MakeX1emuCommand(QStringLiteral("/emu/x1emu/X1EMU.EXE"), QString(), QString(), QString());
    EXPECT_EQ(c.text(), QStringLiteral("/emu/x1emu/X1EMU.EXE"));
}

TEST(X1emuCommandTest, SecondImageWithoutFirstStillFollowsTheSwitches)
{
    const LaunchCommand c =
        MakeX1emuCommand(QStringLiteral("/emu/x1emu/X1EMU.EXE"), QStringLiteral("/A"), QString(),
                         QStringLiteral("B.D88"));
    EXPECT_EQ(c.text(), QStringLiteral("/emu/x1emu/X1EMU.EXE /A B.D88"));
}

// With no switch enabled the text form keeps the two blanks between the name and the image.
TEST(X1emuCommandTest, CommandLineTextKeepsTheInnerDoubleBlank)
{
    EXPECT_EQ(X1emuCommandLine(QStringLiteral("C:\\X1EMU"), QString(), QStringLiteral("GAME.2D"),
                               QString()),
              QStringLiteral("C:\\X1EMU\\X1EMU.EXE  GAME.2D"));
    EXPECT_EQ(X1emuCommandLine(QStringLiteral("C:\\X1EMU"), QStringLiteral("/M0"),
                               QStringLiteral("A.D88"), QStringLiteral("B.D88")),
              QStringLiteral("C:\\X1EMU\\X1EMU.EXE /M0 A.D88 B.D88"));
}
