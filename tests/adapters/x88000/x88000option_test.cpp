#include "adapters/x88000/X88000Option.h"

#include <gtest/gtest.h>

using namespace tv;

namespace {

EmuOpt88 Defaults()
{
    EmuOpt88 o;
    SetDefaultEmuOpt88(o);
    return o;
}

const QString kDefaultOptions = QStringLiteral(
    "-saveenv:off -basic:v2 -clock:4 -boost:off -drives:2 -drive1:1 -drive2:2 -readonly:off "
    "-framerate:20 -interlace:off -directinput:on -imedisable:off -directsound:on "
    "-dsoundfreq:44100 -dsoundbit:8 -dsoundch:1 -beepvolume:50 -beepmute:off -parallel:null "
    "-crtvsync:24 -waitemu:off -oldcompat:off");

const QString kProgram = QStringLiteral("/emu/x88/X88000.EXE");

} // namespace

TEST(X88000Option, DefaultBlock)
{
    EXPECT_EQ(MakeX88000Option(Defaults()), kDefaultOptions);
}

TEST(X88000Option, EverySwitchAwayFromItsDefault)
{
    EmuOpt88 o = Defaults();
    const std::pair<int, int> set[] = {{0, 5},  {1, 8},  {2, 1},  {3, 16}, {4, 4},   {5, 10},
                                       {6, 64}, {7, 0},  {8, 3},  {9, 1},  {10, 60}, {11, 1},
                                       {12, 0}, {13, 1}, {14, 0}, {15, 1}, {16, 16}, {17, 2},
                                       {18, 0}, {19, 1}, {20, 1}, {21, 1}, {22, 1},  {23, 1}};
    for (auto [i, v] : set)
        o.X88_1Op[i] = static_cast<uint8_t>(v);
    EXPECT_EQ(MakeX88000Option(o),
              QStringLiteral("-saveenv:off -basic:n80v2 -clock:8 -boost:on -boostlim:400 "
                             "-drives:4 -drive1:10 -drive2:64 -drive3:0 -drive4:3 -readonly:on "
                             "-framerate:60 -interlace:on -directinput:off -imedisable:on "
                             "-directsound:off -dsoundfreq:11025 -dsoundbit:16 -dsoundch:2 "
                             "-beepvolume:0 -beepmute:on -parallel:pr201 -crtvsync:15 "
                             "-waitemu:on -oldcompat:on"));
}

TEST(X88000Option, BasicModes)
{
    const char* const expected[] = {" -basic:n",  " -basic:v1s",   " -basic:v1h",
                                    " -basic:v2", " -basic:n80v1", " -basic:n80v2"};
    EmuOpt88 o = Defaults();
    for (int v = 0; v <= 5; ++v) {
        o.X88_1Op[0] = static_cast<uint8_t>(v);
        EXPECT_TRUE(MakeX88000Option(o).startsWith(QStringLiteral("-saveenv:off") +
                                                   QString::fromLatin1(expected[v]) +
                                                   QStringLiteral(" -clock:4 ")))
            << v;
    }
}

TEST(X88000Option, UnknownBasicModeWritesNoBasicSwitch)
{
    EmuOpt88 o = Defaults();
    o.X88_1Op[0] = 6;
    EXPECT_EQ(MakeX88000Option(o),
              QStringLiteral("-saveenv:off -clock:4 -boost:off -drives:2 -drive1:1 -drive2:2 "
                             "-readonly:off -framerate:20 -interlace:off -directinput:on "
                             "-imedisable:off -directsound:on -dsoundfreq:44100 -dsoundbit:8 "
                             "-dsoundch:1 -beepvolume:50 -beepmute:off -parallel:null "
                             "-crtvsync:24 -waitemu:off -oldcompat:off"));
}

TEST(X88000Option, BoostOffWithALimitChosenWritesNoLimit)
{
    EmuOpt88 o = Defaults();
    o.X88_1Op[3] = 8;
    EXPECT_EQ(MakeX88000Option(o), kDefaultOptions);
}

TEST(X88000Option, BoostOnWithVMax)
{
    EmuOpt88 o = Defaults();
    o.X88_1Op[2] = 1;
    o.X88_1Op[3] = 0;
    EXPECT_TRUE(MakeX88000Option(o).startsWith(
        QStringLiteral("-saveenv:off -basic:v2 -clock:4 -boost:on -boostlim:v-max -drives:2 ")));
}

TEST(X88000Option, BoostLimitIsTheStepTimes25)
{
    EmuOpt88 o = Defaults();
    o.X88_1Op[2] = 1;
    o.X88_1Op[3] = 12;
    EXPECT_TRUE(MakeX88000Option(o).contains(QStringLiteral(" -boost:on -boostlim:300 -drives:")));
    o.X88_1Op[3] = 1;
    EXPECT_TRUE(MakeX88000Option(o).contains(QStringLiteral(" -boost:on -boostlim:25 -drives:")));
}

TEST(X88000Option, ThreeDrivesWithDriveThreeOff)
{
    EmuOpt88 o = Defaults();
    o.X88_1Op[4] = 3;
    EXPECT_EQ(MakeX88000Option(o),
              QStringLiteral("-saveenv:off -basic:v2 -clock:4 -boost:off -drives:3 -drive1:1 "
                             "-drive2:2 -drive3:255 -readonly:off -framerate:20 -interlace:off "
                             "-directinput:on -imedisable:off -directsound:on -dsoundfreq:44100 "
                             "-dsoundbit:8 -dsoundch:1 -beepvolume:50 -beepmute:off "
                             "-parallel:null -crtvsync:24 -waitemu:off -oldcompat:off"));
}

TEST(X88000Option, DrivesBeyondTheCountAreLeftOut)
{
    EmuOpt88 o = Defaults();
    o.X88_1Op[4] = 1;
    EXPECT_TRUE(MakeX88000Option(o).contains(QStringLiteral(" -drives:1 -drive1:1 -readonly:off")));
    o.X88_1Op[4] = 0;
    EXPECT_TRUE(MakeX88000Option(o).contains(QStringLiteral(" -drives:0 -readonly:off")));
}

TEST(X88000Option, SoundFrequencies)
{
    EmuOpt88 o = Defaults();
    o.X88_1Op[15] = 0;
    EXPECT_TRUE(MakeX88000Option(o).contains(QStringLiteral(" -dsoundfreq:48000 ")));
    o.X88_1Op[15] = 2;
    EXPECT_TRUE(MakeX88000Option(o).contains(QStringLiteral(" -dsoundfreq:22050 ")));
}

TEST(X88000Option, TwoStateValuesOtherThanZeroOrOneLeaveTheSwitchOut)
{
    EmuOpt88 o = Defaults();
    o.X88_1Op[2] = 2;
    o.X88_1Op[9] = 2;
    o.X88_1Op[20] = 2;
    o.X88_1Op[21] = 2;
    o.X88_1Op[23] = 7;
    EXPECT_EQ(MakeX88000Option(o),
              QStringLiteral("-saveenv:off -basic:v2 -clock:4 -drives:2 -drive1:1 -drive2:2 "
                             "-framerate:20 -interlace:off -directinput:on -imedisable:off "
                             "-directsound:on -dsoundfreq:44100 -dsoundbit:8 -dsoundch:1 "
                             "-beepvolume:50 -beepmute:off -waitemu:off"));
}

TEST(X88000Command, D88WithTheDefaultOptions)
{
    const X88000Command c =
        MakeX88000Command(kProgram, QStringLiteral("GAME.D88"), kDefaultOptions);
    EXPECT_EQ(
        c.cmdLine,
        QStringLiteral("/emu/x88/X88000.EXE -saveenv:off -basic:v2 -clock:4 -boost:off -drives:2 "
                       "-drive1:1 -drive2:2 -readonly:off -framerate:20 -interlace:off "
                       "-directinput:on -imedisable:off -directsound:on -dsoundfreq:44100 "
                       "-dsoundbit:8 -dsoundch:1 -beepvolume:50 -beepmute:off -parallel:null "
                       "-crtvsync:24 -waitemu:off -oldcompat:off \"GAME.D88\""));
    EXPECT_EQ(c.command.program, kProgram);
    ASSERT_EQ(c.command.arguments.size(), 23u);
    EXPECT_EQ(c.command.arguments.front(), (LaunchArg{QStringLiteral("-saveenv:off"), false}));
    EXPECT_EQ(c.command.arguments[21], (LaunchArg{QStringLiteral("-oldcompat:off"), false}));
    EXPECT_EQ(c.command.arguments.back(), (LaunchArg{QStringLiteral("GAME.D88"), true}));
    // With options the text form of the started command is the command line itself.
    EXPECT_EQ(c.command.text(), c.cmdLine);
    EXPECT_TRUE(c.paste1.isEmpty());
}

TEST(X88000Command, D88WithEmptyOptionsKeepsTwoBlanksBeforeTheQuote)
{
    const X88000Command c = MakeX88000Command(kProgram, QStringLiteral("GAME.D88"), QString());
    EXPECT_EQ(c.cmdLine, QStringLiteral("/emu/x88/X88000.EXE  \"GAME.D88\""));
    // The program gets no empty argument for the empty options: only the image.
    ASSERT_EQ(c.command.arguments.size(), 1u);
    EXPECT_EQ(c.command.arguments[0], (LaunchArg{QStringLiteral("GAME.D88"), true}));
    EXPECT_TRUE(c.paste1.isEmpty());
}

TEST(X88000Command, D88ExtensionInAnyCase)
{
    const X88000Command c =
        MakeX88000Command(kProgram, QStringLiteral("My Game.d88"), QStringLiteral("-saveenv:off"));
    EXPECT_EQ(c.cmdLine, QStringLiteral("/emu/x88/X88000.EXE -saveenv:off \"My Game.d88\""));
    ASSERT_EQ(c.command.arguments.size(), 2u);
    EXPECT_EQ(c.command.arguments[1], (LaunchArg{QStringLiteral("My Game.d88"), true}));
    EXPECT_TRUE(c.paste1.isEmpty());
}

TEST(X88000Command, TapeImagesGoByPaste)
{
    for (const char* name : {"GAME.T88", "GAME.CMT", "GAME.N80"}) {
        const QString image = QString::fromLatin1(name);
        const X88000Command c = MakeX88000Command(kProgram, image, kDefaultOptions);
        EXPECT_EQ(c.cmdLine,
                  QStringLiteral(
                      "/emu/x88/X88000.EXE -saveenv:off -basic:v2 -clock:4 -boost:off -drives:2 "
                      "-drive1:1 -drive2:2 -readonly:off -framerate:20 -interlace:off "
                      "-directinput:on -imedisable:off -directsound:on -dsoundfreq:44100 "
                      "-dsoundbit:8 -dsoundch:1 -beepvolume:50 -beepmute:off -parallel:null "
                      "-crtvsync:24 -waitemu:off -oldcompat:off"))
            << name;
        EXPECT_EQ(c.command.arguments.size(), 22u) << name;
        EXPECT_EQ(c.command.arguments.back(), (LaunchArg{QStringLiteral("-oldcompat:off"), false}));
        EXPECT_EQ(c.paste1, image);
    }
}

TEST(X88000Command, TapeImageWithEmptyOptions)
{
    const X88000Command c = MakeX88000Command(kProgram, QStringLiteral("GAME.T88"), QString());
    EXPECT_EQ(c.cmdLine, QStringLiteral("/emu/x88/X88000.EXE "));
    EXPECT_TRUE(c.command.arguments.empty());
    EXPECT_EQ(c.command.program, kProgram);
    EXPECT_EQ(c.paste1, QStringLiteral("GAME.T88"));
}

TEST(X88000Command, TheImageTakesTheWindowsPathForm)
{
    const X88000Command d = MakeX88000Command(kProgram, QStringLiteral("disk/GAME.D88"),
                                              QStringLiteral("-saveenv:off"));
    EXPECT_EQ(d.cmdLine, QStringLiteral("/emu/x88/X88000.EXE -saveenv:off \"disk\\GAME.D88\""));
    const X88000Command t = MakeX88000Command(kProgram, QStringLiteral("tape/GAME.T88"),
                                              QStringLiteral("-saveenv:off"));
    EXPECT_EQ(t.paste1, QStringLiteral("tape\\GAME.T88"));
}
