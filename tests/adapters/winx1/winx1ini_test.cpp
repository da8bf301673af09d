#include "adapters/winx1/WinX1Ini.h"
#include "util/Globals.h"

#include <gtest/gtest.h>

using namespace tv;

namespace {

EmuOptX1 Defaults()
{
    EmuOptX1 o;
    SetDefaultEmuOptX1(o);
    return o;
}

const QString kStart = QStringLiteral("Z:\\app\\TORVBOOT");

QString Ini(const EmuOptX1& o)
{
    return MakeWinX1Ini(o, kStart);
}

bool HasLine(const QString& text, const char* line)
{
    return text.contains(QStringLiteral("\r\n") + QString::fromUtf8(line) + QStringLiteral("\r\n"));
}

} // namespace

TEST(WinX1IniTest, DefaultBlockGivesTheWholeFile)
{
    const QString expected = QStringLiteral("[WinX1]\r\n"
                                            "WinPosX=\r\n"
                                            "WinPosY=\r\n"
                                            "StartDir=Z:\\app\\TORVBOOT\r\n"
                                            "OPM=true\r\n"
                                            "OPM_Volume=12\r\n"
                                            "PSG_Volume=10\r\n"
                                            "SampleRate=22050\r\n"
                                            "BufferSize=50\r\n"
                                            "DSFailAlert=true\r\n"
                                            "UseRomeo=true\r\n"
                                            "SkipLine=true\r\n"
                                            "FrameNum=60\r\n"
                                            "FDD_LED=true\r\n"
                                            "DIP_SW=00\r\n"
                                            "IPL_TYPE=1\r\n"
                                            "Joy1Button1=0\r\n"
                                            "Joy1Button2=1\r\n"
                                            "Joy1Button3=2\r\n"
                                            "Joy1Button4=3\r\n"
                                            "Joy2Button1=0\r\n"
                                            "Joy2Button2=1\r\n"
                                            "Joy2Button3=2\r\n"
                                            "Joy2Button4=3\r\n");
    EXPECT_EQ(Ini(Defaults()), expected);
}

TEST(WinX1IniTest, EveryElementMovedFromItsDefault)
{
    EmuOptX1 o = Defaults();
    o.WinX1_1Op = {0, 16, 0, 4, 200, 0, 0, 12, 0, 1, 2, 9, 8, 7, 6, 5, 4, 3, 2, 0, 77, 0, 0, 0};
    const QString expected = QStringLiteral("[WinX1]\r\n"
                                            "WinPosX=\r\n"
                                            "WinPosY=\r\n"
                                            "StartDir=Z:\\app\\TORVBOOT\r\n"
                                            "OPM=false\r\n"
                                            "OPM_Volume=16\r\n"
                                            "PSG_Volume=0\r\n"
                                            "SampleRate=44100\r\n"
                                            "BufferSize=200\r\n"
                                            "DSFailAlert=false\r\n"
                                            "UseRomeo=false\r\n"
                                            "SkipLine=false\r\n"
                                            "FrameNum=5\r\n"
                                            "FDD_LED=false\r\n"
                                            "DIP_SW=01\r\n"
                                            "IPL_TYPE=2\r\n"
                                            "Joy1Button1=9\r\n"
                                            "Joy1Button2=8\r\n"
                                            "Joy1Button3=7\r\n"
                                            "Joy1Button4=6\r\n"
                                            "Joy2Button1=5\r\n"
                                            "Joy2Button2=4\r\n"
                                            "Joy2Button3=3\r\n"
                                            "Joy2Button4=2\r\n");
    EXPECT_EQ(Ini(o), expected);
}

TEST(WinX1IniTest, SampleRateIsTheElementTimes11025)
{
    const std::pair<int, const char*> cases[] = {
        {0, "SampleRate=0"},     {1, "SampleRate=11025"}, {2, "SampleRate=22050"},
        {4, "SampleRate=44100"}, {3, "SampleRate=33075"}, {255, "SampleRate=2811375"}};
    for (auto [v, line] : cases) {
        EmuOptX1 o = Defaults();
        o.WinX1_1Op[3] = static_cast<uint8_t>(v);
        EXPECT_TRUE(HasLine(Ini(o), line)) << v;
    }
}

TEST(WinX1IniTest, FrameNumByEachDivisor)
{
    const std::pair<int, const char*> cases[] = {{1, "FrameNum=60"}, {2, "FrameNum=30"},
                                                 {3, "FrameNum=20"}, {4, "FrameNum=15"},
                                                 {6, "FrameNum=10"}, {12, "FrameNum=5"}};
    for (auto [v, line] : cases) {
        EmuOptX1 o = Defaults();
        o.WinX1_1Op[7] = static_cast<uint8_t>(v);
        EXPECT_TRUE(HasLine(Ini(o), line)) << v;
    }
}

TEST(WinX1IniTest, FrameNumOutsideTheDialogsDivisorsPrintsAsASinglePrecisionNumber)
{
    EXPECT_EQ(WinX1FrameNum(5), QStringLiteral("12"));
    EXPECT_EQ(WinX1FrameNum(7), QStringLiteral("8.571428"));
    EXPECT_EQ(WinX1FrameNum(8), QStringLiteral("7.5"));
    EXPECT_EQ(WinX1FrameNum(9), QStringLiteral("6.666667"));
    EXPECT_EQ(WinX1FrameNum(120), QStringLiteral("0.5"));
    EXPECT_EQ(WinX1FrameNum(255), QStringLiteral("0.2352941"));
    EmuOptX1 o = Defaults();
    o.WinX1_1Op[7] = 9;
    EXPECT_TRUE(HasLine(Ini(o), "FrameNum=6.666667"));
}

TEST(WinX1IniTest, FrameDivisorZeroFailsTheLaunch)
{
    EmuOptX1 o = Defaults();
    o.WinX1_1Op[7] = 0;
    EXPECT_THROW(Ini(o), WinX1IniError);
    EXPECT_THROW(Ini(o), std::runtime_error);
}

TEST(WinX1IniTest, DipSwitchHasAtLeastTwoDigits)
{
    const std::pair<int, const char*> cases[] = {{0, "DIP_SW=00"},
                                                 {1, "DIP_SW=01"},
                                                 {9, "DIP_SW=09"},
                                                 {10, "DIP_SW=10"},
                                                 {255, "DIP_SW=255"}};
    for (auto [v, line] : cases) {
        EmuOptX1 o = Defaults();
        o.WinX1_1Op[9] = static_cast<uint8_t>(v);
        EXPECT_TRUE(HasLine(Ini(o), line)) << v;
    }
}

TEST(WinX1IniTest, TrueFalseElementOutsideZeroOrOneFails)
{
    for (int i : {0, 5, 6, 8, 19}) {
        EmuOptX1 o = Defaults();
        o.WinX1_1Op[i] = 2;
        EXPECT_THROW(Ini(o), WinX1IniError) << i;
        o.WinX1_1Op[i] = 255;
        EXPECT_THROW(Ini(o), WinX1IniError) << i;
    }
}

TEST(WinX1IniTest, NumberElementsAndUnusedOnesTakeAnyValue)
{
    EmuOptX1 o = Defaults();
    for (int i : {1, 2, 4, 10, 11, 12, 13, 14, 15, 16, 17, 18, 20, 21, 22, 23})
        o.WinX1_1Op[i] = 250;
    const QString t = Ini(o);
    for (const char* line : {"OPM_Volume=250", "PSG_Volume=250", "BufferSize=250", "IPL_TYPE=250",
                             "Joy1Button1=250", "Joy1Button4=250", "Joy2Button1=250"})
        EXPECT_TRUE(HasLine(t, line)) << line;
    EXPECT_TRUE(t.endsWith(QStringLiteral("\r\nJoy2Button4=250\r\n")));
}

TEST(WinX1IniTest, BothBuildsShareTheTextAndTheSection)
{
    EXPECT_EQ(WinX1IniName(1), QStringLiteral("WinX1_ika.ini"));
    EXPECT_EQ(WinX1IniName(0), QStringLiteral("winx1.ini"));
    EXPECT_EQ(WinX1Stem(1), QStringLiteral("WinX1_ika"));
    EXPECT_EQ(WinX1Stem(0), QStringLiteral("winx1"));
    EXPECT_EQ(WinX1Stem(2), QStringLiteral("winx1"));
    EXPECT_TRUE(Ini(Defaults()).startsWith(QStringLiteral("[WinX1]\r\n")));
}

TEST(WinX1IniTest, StartDirIsWorkDirInWineFormWithoutClosingSeparator)
{
    const QString saved = WorkDir;
    WorkDir = QStringLiteral("/opt/torvane/TORVBOOT");
    const QString t = MakeWinX1Ini(Defaults());
    WorkDir = saved;
    EXPECT_TRUE(HasLine(t, "StartDir=Z:\\opt\\torvane\\TORVBOOT"));
}
