#include "adapters/xmil/XmilIni.h"
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

const QString kSnap = QStringLiteral("Z:\\snap\\x1");

QString Ini(const EmuOptX1& o, uint8_t tune = 0)
{
    return MakeXmilIni(o, tune, kSnap);
}

bool HasLine(const QString& text, const char* line)
{
    return text.contains(QStringLiteral("\r\n") + QString::fromUtf8(line) + QStringLiteral("\r\n"));
}

} // namespace

TEST(XmilIniTest, DefaultBlockPlainBuild)
{
    const QString expected = QStringLiteral("[Xmillennium]\r\n"
                                            "WindposX=\r\n"
                                            "WindPosY=\r\n"
                                            "Win_Snap=true\r\n"
                                            "backgrnd=0\r\n"
                                            "DspClock=0\r\n"
                                            "StartDir=\r\n"
                                            "bmap_Dir=Z:\\snap\\x1\\\r\n"
                                            "IPL_TYPE=2\r\n"
                                            "cpu_8MHz=false\r\n"
                                            "Resolute=01\r\n"
                                            "SkipLine=true\r\n"
                                            "s_NOWAIT=false\r\n"
                                            "SkpFrame=1\r\n"
                                            "LinLIGHT=00\r\n"
                                            "BlkLIGHT=00\r\n"
                                            "TxtLIGHT=00\r\n"
                                            "Text_Ext=false\r\n"
                                            "Text_400=0\r\n"
                                            "OPMsound=false\r\n"
                                            "SampleHz=22050\r\n"
                                            "Latencys=1000\r\n"
                                            "SoundPly=true\r\n"
                                            "D_Sound3=false\r\n"
                                            "PUCHInos=true\r\n"
                                            "Seek_Snd=false\r\n"
                                            "Seek_Vol=80\r\n"
                                            "Joystick=false\r\n"
                                            "btnRAPID=false\r\n"
                                            "btn_MODE=false\r\n"
                                            "MouseInt=false\r\n"
                                            "Info_Bar=false\r\n"
                                            "ROMEO_SW=false\r\n"
                                            "OPM_ONLY=true\r\n"
                                            "OPM_Mvol=0\r\n"
                                            "PSG_Mvol=0\r\n"
                                            "OPMLPFFr=0\r\n"
                                            "clocknow=0\r\n"
                                            "clockfnt=0\r\n");
    EXPECT_EQ(Ini(Defaults(), 0), expected);
}

TEST(XmilIniTest, DefaultBlockTuneBuild)
{
    const QString expected = QStringLiteral("[Xmillennium]\r\n"
                                            "WindposX=\r\n"
                                            "WindPosY=\r\n"
                                            "Win_Snap=true\r\n"
                                            "backgrnd=0\r\n"
                                            "DspClock=0\r\n"
                                            "StartDir=\r\n"
                                            "bmap_Dir=Z:\\snap\\x1\\\r\n"
                                            "IPL_TYPE=2\r\n"
                                            "cpu_8MHz=4\r\n"
                                            "Resolute=01\r\n"
                                            "SkipLine=true\r\n"
                                            "s_NOWAIT=false\r\n"
                                            "SkpFrame=1\r\n"
                                            "LinLIGHT=00\r\n"
                                            "BlkLIGHT=00\r\n"
                                            "TxtLIGHT=00\r\n"
                                            "Text_Ext=false\r\n"
                                            "Text_400=0\r\n"
                                            "OPMsound=false\r\n"
                                            "SampleHz=22050\r\n"
                                            "Latencys=1000\r\n"
                                            "SoundPly=true\r\n"
                                            "D_Sound3=false\r\n"
                                            "PUCHInos=true\r\n"
                                            "Seek_Snd=false\r\n"
                                            "Seek_Vol=80\r\n"
                                            "Joystick=false\r\n"
                                            "btnRAPID=false\r\n"
                                            "btn_MODE=false\r\n"
                                            "MouseInt=false\r\n"
                                            "Info_Bar=false\r\n"
                                            "ROMEO_SW=false\r\n"
                                            "OPM_ONLY=true\r\n"
                                            "OPM_Mvol=0\r\n"
                                            "PSG_Mvol=0\r\n"
                                            "OPMLPFFr=0\r\n"
                                            "clocknow=0\r\n"
                                            "clockfnt=0\r\n");
    EXPECT_EQ(Ini(Defaults(), 1), expected);
}

TEST(XmilIniTest, EveryElementMovedFromItsDefault)
{
    EmuOptX1 o = Defaults();
    auto& x = o.Xmil_1Op;
    x[0] = 0;
    x[1] = 1;
    x[2] = 3;
    x[3] = 12;
    x[4] = 0;
    x[5] = 1;
    x[6] = 4;
    x[7] = 10;
    x[8] = 255;
    x[9] = 0x7F;
    x[10] = 1;
    x[11] = 2;
    x[12] = 1;
    x[13] = 11;
    x[14] = 0;
    x[15] = 1;
    x[16] = 0;
    x[17] = 1;
    x[18] = 100;
    x[19] = 1;
    x[20] = 1;
    x[21] = 1;
    x[22] = 1;
    x[23] = 7;
    x[24] = 9;
    x[25] = 1;
    x[26] = 1;
    x[27] = 1;
    x[28] = 0;
    x[29] = 50;
    x[30] = 99; // unused: no trace
    o.Xmil_2Op[0] = 100;
    o.Xmil_3Op = {1, 1, 0, 0, 0};
    o.Xmil_4Op = {0, 1, 1, 0, 0};
    o.Xmil_5Op[0] = 48000;
    const QString expected = QStringLiteral("[Xmillennium]\r\n"
                                            "WindposX=\r\n"
                                            "WindPosY=\r\n"
                                            "Win_Snap=false\r\n"
                                            "backgrnd=1\r\n"
                                            "DspClock=3\r\n"
                                            "StartDir=\r\n"
                                            "bmap_Dir=Z:\\snap\\x1\\\r\n"
                                            "IPL_TYPE=3\r\n"
                                            "cpu_8MHz=12\r\n"
                                            "Resolute=04\r\n"
                                            "SkipLine=false\r\n"
                                            "s_NOWAIT=true\r\n"
                                            "SkpFrame=4\r\n"
                                            "LinLIGHT=0A\r\n"
                                            "BlkLIGHT=FF\r\n"
                                            "TxtLIGHT=7F\r\n"
                                            "Text_Ext=true\r\n"
                                            "Text_400=2\r\n"
                                            "OPMsound=true\r\n"
                                            "SampleHz=96000\r\n"
                                            "Latencys=100\r\n"
                                            "SoundPly=false\r\n"
                                            "D_Sound3=true\r\n"
                                            "PUCHInos=false\r\n"
                                            "Seek_Snd=true\r\n"
                                            "Seek_Vol=100\r\n"
                                            "Joystick=true\r\n"
                                            "btnRAPID=true\r\n"
                                            "btn_MODE=true\r\n"
                                            "MouseInt=true\r\n"
                                            "Info_Bar=true\r\n"
                                            "ROMEO_SW=true\r\n"
                                            "OPM_ONLY=false\r\n"
                                            "OPM_Mvol=-30\r\n"
                                            "PSG_Mvol=20\r\n"
                                            "OPMLPFFr=48000\r\n"
                                            "clocknow=7\r\n"
                                            "clockfnt=9\r\n");
    EXPECT_EQ(Ini(o, 1), expected);
}

TEST(XmilIniTest, PlainBuildKnowsFourMegahertzAndOneFastSpeed)
{
    const std::pair<int, const char*> cases[] = {
        {4, "cpu_8MHz=false"}, {5, "cpu_8MHz=true"},  {6, "cpu_8MHz=true"}, {8, "cpu_8MHz=true"},
        {10, "cpu_8MHz=true"}, {12, "cpu_8MHz=true"}, {0, "cpu_8MHz=true"}, {255, "cpu_8MHz=true"}};
    for (auto [mhz, line] : cases) {
        EmuOptX1 o = Defaults();
        o.Xmil_1Op[3] = static_cast<uint8_t>(mhz);
        EXPECT_TRUE(HasLine(Ini(o, 0), line)) << mhz;
    }
}

TEST(XmilIniTest, TuneBuildWritesTheMegahertz)
{
    const std::pair<int, const char*> cases[] = {{4, "cpu_8MHz=4"},   {5, "cpu_8MHz=5"},
                                                 {6, "cpu_8MHz=6"},   {8, "cpu_8MHz=8"},
                                                 {10, "cpu_8MHz=10"}, {12, "cpu_8MHz=12"}};
    for (auto [mhz, line] : cases) {
        EmuOptX1 o = Defaults();
        o.Xmil_1Op[3] = static_cast<uint8_t>(mhz);
        EXPECT_TRUE(HasLine(Ini(o, 1), line)) << mhz;
    }
}

TEST(XmilIniTest, OnlyTuneUseOneSelectsTheTuneBuild)
{
    // The frame sets TuneUse to 0 or 1; anything else is taken as the plain build.
    EmuOptX1 o = Defaults();
    o.Xmil_1Op[3] = 8;
    EXPECT_TRUE(HasLine(Ini(o, 2), "cpu_8MHz=true"));
    EXPECT_TRUE(HasLine(Ini(o, 255), "cpu_8MHz=true"));
}

TEST(XmilIniTest, VolumesAreTheSliderLessThirty)
{
    const std::pair<int, const char*> opm[] = {
        {0, "OPM_Mvol=-30"}, {30, "OPM_Mvol=0"}, {50, "OPM_Mvol=20"}, {255, "OPM_Mvol=225"}};
    for (auto [v, line] : opm) {
        EmuOptX1 o = Defaults();
        o.Xmil_1Op[28] = static_cast<uint8_t>(v);
        EXPECT_TRUE(HasLine(Ini(o), line)) << v;
    }
    const std::pair<int, const char*> psg[] = {
        {0, "PSG_Mvol=-30"}, {30, "PSG_Mvol=0"}, {50, "PSG_Mvol=20"}};
    for (auto [v, line] : psg) {
        EmuOptX1 o = Defaults();
        o.Xmil_1Op[29] = static_cast<uint8_t>(v);
        EXPECT_TRUE(HasLine(Ini(o), line)) << v;
    }
}

TEST(XmilIniTest, ResoluteSumsBitsZeroAndTwoOnly)
{
    EmuOptX1 o = Defaults();
    o.Xmil_4Op = {1, 1, 1, 1, 1};
    EXPECT_TRUE(HasLine(Ini(o), "Resolute=05"));
    o.Xmil_4Op = {0, 0, 0, 0, 0};
    EXPECT_TRUE(HasLine(Ini(o), "Resolute=00"));
    // Values outside the dialog's bits keep every hexadecimal digit.
    o.Xmil_4Op = {255, 0, 255, 0, 0};
    EXPECT_TRUE(HasLine(Ini(o), "Resolute=4FB"));
}

TEST(XmilIniTest, BrightnessesGoOutInTwoHexDigits)
{
    EmuOptX1 o = Defaults();
    o.Xmil_1Op[7] = 10;
    o.Xmil_1Op[8] = 1;
    o.Xmil_1Op[9] = 0xAB;
    const QString t = Ini(o);
    EXPECT_TRUE(HasLine(t, "LinLIGHT=0A"));
    EXPECT_TRUE(HasLine(t, "BlkLIGHT=01"));
    EXPECT_TRUE(HasLine(t, "TxtLIGHT=AB"));
}

TEST(XmilIniTest, DspClockIsElementZeroPlusTwiceElementOne)
{
    const std::tuple<int, int, const char*> cases[] = {
        {0, 0, "DspClock=0"}, {1, 0, "DspClock=1"}, {0, 1, "DspClock=2"}, {1, 1, "DspClock=3"}};
    for (auto [a, b, line] : cases) {
        EmuOptX1 o = Defaults();
        o.Xmil_3Op[0] = static_cast<uint8_t>(a);
        o.Xmil_3Op[1] = static_cast<uint8_t>(b);
        EXPECT_TRUE(HasLine(Ini(o), line)) << a << b;
    }
}

TEST(XmilIniTest, SampleRateCodes)
{
    const std::pair<int, const char*> cases[] = {
        {0, "SampleHz=11025"},  {1, "SampleHz=16000"},  {2, "SampleHz=22050"},
        {3, "SampleHz=24000"},  {4, "SampleHz=32000"},  {5, "SampleHz=33075"},
        {6, "SampleHz=44100"},  {7, "SampleHz=48000"},  {8, "SampleHz=55500"},
        {9, "SampleHz=62500"},  {10, "SampleHz=88200"}, {11, "SampleHz=96000"},
        {12, "SampleHz=22050"}, {255, "SampleHz=22050"}};
    for (auto [code, line] : cases) {
        EmuOptX1 o = Defaults();
        o.Xmil_1Op[13] = static_cast<uint8_t>(code);
        EXPECT_TRUE(HasLine(Ini(o), line)) << code;
    }
}

TEST(XmilIniTest, OpmOnlyIsTheInverseOfTheSsgElement)
{
    EmuOptX1 o = Defaults();
    o.Xmil_1Op[27] = 0;
    EXPECT_TRUE(HasLine(Ini(o), "OPM_ONLY=true"));
    o.Xmil_1Op[27] = 1;
    EXPECT_TRUE(HasLine(Ini(o), "OPM_ONLY=false"));
}

TEST(XmilIniTest, NumbersOfWiderMembersAreSigned)
{
    EmuOptX1 o = Defaults();
    o.Xmil_2Op[0] = -1;
    o.Xmil_5Op[0] = -100;
    const QString t = Ini(o);
    EXPECT_TRUE(HasLine(t, "Latencys=-1"));
    EXPECT_TRUE(HasLine(t, "OPMLPFFr=-100"));
}

TEST(XmilIniTest, TrueFalseElementOutsideZeroOrOneFailsInBothBuilds)
{
    for (int i : {0, 4, 5, 10, 12, 14, 15, 16, 17, 19, 20, 21, 22, 25, 26, 27}) {
        for (uint8_t tune : {0, 1}) {
            EmuOptX1 o = Defaults();
            o.Xmil_1Op[i] = 2;
            EXPECT_THROW(Ini(o, tune), XmilIniError) << i;
            o.Xmil_1Op[i] = 255;
            EXPECT_THROW(Ini(o, tune), XmilIniError) << i;
        }
    }
}

TEST(XmilIniTest, FailureIsARunTimeErrorOfTheFrame)
{
    EmuOptX1 o = Defaults();
    o.Xmil_1Op[4] = 3;
    EXPECT_THROW(Ini(o), std::runtime_error);
}

TEST(XmilIniTest, NumberElementsTakeAnyValue)
{
    // The elements written as numbers aren't indexed, so no value of theirs fails.
    EmuOptX1 o = Defaults();
    for (int i : {1, 2, 6, 11, 18, 23, 24})
        o.Xmil_1Op[i] = 200;
    const QString t = Ini(o);
    for (const char* line : {"backgrnd=200", "IPL_TYPE=200", "SkpFrame=200", "Text_400=200",
                             "Seek_Vol=200", "clocknow=200", "clockfnt=200"})
        EXPECT_TRUE(HasLine(t, line)) << line;
}

TEST(XmilIniTest, SnapshotDirectoryOfTheX1FamilyInWineForm)
{
    const QString saved = SnapDir[2];
    SnapDir[2] = QStringLiteral("/home/u/snap x1");
    const QString t = MakeXmilIni(Defaults(), 0);
    SnapDir[2] = saved;
    EXPECT_TRUE(HasLine(t, "bmap_Dir=Z:\\home\\u\\snap x1\\"));
}
