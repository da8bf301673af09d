#include "adapters/xm7win/Xm7WinIni.h"

#include <gtest/gtest.h>

using namespace tv;

namespace {

EmuOptFM Defaults()
{
    EmuOptFM o;
    SetDefaultEmuOptFM(o);
    return o;
}

EmuOptFM DefaultsWithoutKeys()
{
    EmuOptFM o = Defaults();
    o.Xm7Win_3Op.fill(0);
    return o;
}

// The whole file of the default block: the FM77AV40EX with the 106 key map.
const char* const kDefaultText = "[General]\r\n"
                                 "Version=3\r\n"
                                 "CycleSteal=1\r\n"
                                 "MainSpeed=1799\r\n"
                                 "MMRSpeed=1565\r\n"
                                 "FastMMRSpeed=2016\r\n"
                                 "SubSpeed=1998\r\n"
                                 "TapeFullSpeed=1\r\n"
                                 "TapeFullSpeedMode=0\r\n"
                                 "FullSpeed=0\r\n"
                                 "AutoSpeedAdjust=0\r\n"
                                 "FDDWait=0\r\n"
                                 "\r\n"
                                 "[Sound]\r\n"
                                 "SampleRate=44100\r\n"
                                 "SoundBuffer=100\r\n"
                                 "BeepFreq=1200\r\n"
                                 "FMHQmode=1\r\n"
                                 "StereoOut=0\r\n"
                                 "TapeMon=0\r\n"
                                 "UseROMEO=1\r\n"
                                 "FDDSound=0\r\n"
                                 "\r\n"
                                 "[Keyboard]\r\n"
                                 "RealTimeKeyScan=0\r\n"
                                 "UseArrowFor10Key=0\r\n"
                                 "Arrow8Dir=1\r\n"
                                 "\r\n"
                                 "Key1=92\r\n"
                                 "Key2=2\r\n"
                                 "Key3=3\r\n"
                                 "Key4=4\r\n"
                                 "Key5=5\r\n"
                                 "Key6=6\r\n"
                                 "Key7=7\r\n"
                                 "Key8=8\r\n"
                                 "Key9=9\r\n"
                                 "Key10=10\r\n"
                                 "Key11=11\r\n"
                                 "Key12=12\r\n"
                                 "Key14=15\r\n"
                                 "Key15=16\r\n"
                                 "Key16=17\r\n"
                                 "Key17=18\r\n"
                                 "Key18=19\r\n"
                                 "Key19=20\r\n"
                                 "Key20=21\r\n"
                                 "Key21=22\r\n"
                                 "Key22=23\r\n"
                                 "Key23=24\r\n"
                                 "Key24=25\r\n"
                                 "Key25=26\r\n"
                                 "Key26=28\r\n"
                                 "Key27=41\r\n"
                                 "Key28=29\r\n"
                                 "Key29=82\r\n"
                                 "Key30=30\r\n"
                                 "Key31=31\r\n"
                                 "Key32=32\r\n"
                                 "Key33=33\r\n"
                                 "Key34=34\r\n"
                                 "Key35=35\r\n"
                                 "Key36=36\r\n"
                                 "Key37=37\r\n"
                                 "Key38=38\r\n"
                                 "Key39=39\r\n"
                                 "Key42=83\r\n"
                                 "Key43=52\r\n"
                                 "Key44=42\r\n"
                                 "Key45=43\r\n"
                                 "Key46=44\r\n"
                                 "Key47=45\r\n"
                                 "Key48=46\r\n"
                                 "Key49=47\r\n"
                                 "Key50=48\r\n"
                                 "Key51=49\r\n"
                                 "Key52=50\r\n"
                                 "Key53=51\r\n"
                                 "Key54=84\r\n"
                                 "Key55=54\r\n"
                                 "Key57=53\r\n"
                                 "Key58=85\r\n"
                                 "Key59=93\r\n"
                                 "Key60=94\r\n"
                                 "Key61=95\r\n"
                                 "Key62=96\r\n"
                                 "Key63=97\r\n"
                                 "Key64=98\r\n"
                                 "Key65=99\r\n"
                                 "Key66=100\r\n"
                                 "Key67=101\r\n"
                                 "Key68=102\r\n"
                                 "Key71=58\r\n"
                                 "Key72=59\r\n"
                                 "Key73=60\r\n"
                                 "Key74=57\r\n"
                                 "Key75=62\r\n"
                                 "Key76=63\r\n"
                                 "Key77=64\r\n"
                                 "Key78=56\r\n"
                                 "Key79=66\r\n"
                                 "Key80=67\r\n"
                                 "Key81=68\r\n"
                                 "Key82=70\r\n"
                                 "Key83=71\r\n"
                                 "Key112=88\r\n"
                                 "Key121=87\r\n"
                                 "Key123=86\r\n"
                                 "Key125=14\r\n"
                                 "Key144=13\r\n"
                                 "Key145=27\r\n"
                                 "Key146=40\r\n"
                                 "Key148=1\r\n"
                                 "Key156=69\r\n"
                                 "Key157=90\r\n"
                                 "Key181=55\r\n"
                                 "Key199=73\r\n"
                                 "Key200=77\r\n"
                                 "Key201=74\r\n"
                                 "Key203=79\r\n"
                                 "Key205=81\r\n"
                                 "Key207=76\r\n"
                                 "Key208=80\r\n"
                                 "Key209=78\r\n"
                                 "Key210=72\r\n"
                                 "Key211=75\r\n"
                                 "\r\n"
                                 "[JoyStick]\r\n"
                                 "Type0=0\r\n"
                                 "Rapid0=0\r\n"
                                 "Rapid1=0\r\n"
                                 "Code0=112\r\n"
                                 "Code1=113\r\n"
                                 "Code2=114\r\n"
                                 "Code3=115\r\n"
                                 "Code4=0\r\n"
                                 "Code5=116\r\n"
                                 "Code6=117\r\n"
                                 "Type1=0\r\n"
                                 "Rapid10=0\r\n"
                                 "Rapid11=0\r\n"
                                 "Code10=112\r\n"
                                 "Code11=113\r\n"
                                 "Code12=114\r\n"
                                 "Code13=115\r\n"
                                 "Code14=0\r\n"
                                 "Code15=116\r\n"
                                 "Code16=117\r\n"
                                 "\r\n"
                                 "[Screen]\r\n"
                                 "DD480Line=0\r\n"
                                 "FullScan=0\r\n"
                                 "FullScanFS=0\r\n"
                                 "DD480Status=1\r\n"
                                 "DDTrueColor=0\r\n"
                                 "\r\n"
                                 "[Option]\r\n"
                                 "OPNEnable=1\r\n"
                                 "WHGEnable=1\r\n"
                                 "THGEnable=1\r\n"
                                 "DigitizeEnable=1\r\n"
                                 "ExtRAMEnable=0\r\n"
                                 "MouseEmulation=0\r\n"
                                 "MousePort=1\r\n";

// The default block with an empty key table: no "Key" line, two empty lines between
// "Arrow8Dir=" and "[JoyStick]".
const char* const kNoKeysText = "[General]\r\n"
                                "Version=3\r\n"
                                "CycleSteal=1\r\n"
                                "MainSpeed=1799\r\n"
                                "MMRSpeed=1565\r\n"
                                "FastMMRSpeed=2016\r\n"
                                "SubSpeed=1998\r\n"
                                "TapeFullSpeed=1\r\n"
                                "TapeFullSpeedMode=0\r\n"
                                "FullSpeed=0\r\n"
                                "AutoSpeedAdjust=0\r\n"
                                "FDDWait=0\r\n"
                                "\r\n"
                                "[Sound]\r\n"
                                "SampleRate=44100\r\n"
                                "SoundBuffer=100\r\n"
                                "BeepFreq=1200\r\n"
                                "FMHQmode=1\r\n"
                                "StereoOut=0\r\n"
                                "TapeMon=0\r\n"
                                "UseROMEO=1\r\n"
                                "FDDSound=0\r\n"
                                "\r\n"
                                "[Keyboard]\r\n"
                                "RealTimeKeyScan=0\r\n"
                                "UseArrowFor10Key=0\r\n"
                                "Arrow8Dir=1\r\n"
                                "\r\n"
                                "\r\n"
                                "[JoyStick]\r\n"
                                "Type0=0\r\n"
                                "Rapid0=0\r\n"
                                "Rapid1=0\r\n"
                                "Code0=112\r\n"
                                "Code1=113\r\n"
                                "Code2=114\r\n"
                                "Code3=115\r\n"
                                "Code4=0\r\n"
                                "Code5=116\r\n"
                                "Code6=117\r\n"
                                "Type1=0\r\n"
                                "Rapid10=0\r\n"
                                "Rapid11=0\r\n"
                                "Code10=112\r\n"
                                "Code11=113\r\n"
                                "Code12=114\r\n"
                                "Code13=115\r\n"
                                "Code14=0\r\n"
                                "Code15=116\r\n"
                                "Code16=117\r\n"
                                "\r\n"
                                "[Screen]\r\n"
                                "DD480Line=0\r\n"
                                "FullScan=0\r\n"
                                "FullScanFS=0\r\n"
                                "DD480Status=1\r\n"
                                "DDTrueColor=0\r\n"
                                "\r\n"
                                "[Option]\r\n"
                                "OPNEnable=1\r\n"
                                "WHGEnable=1\r\n"
                                "THGEnable=1\r\n"
                                "DigitizeEnable=1\r\n"
                                "ExtRAMEnable=0\r\n"
                                "MouseEmulation=0\r\n"
                                "MousePort=1\r\n";

// Version 1 (FM-7), no key, every other element set to a value of its own so that each line
// shows which element it reads; the three keys of the FM77AV40EX are absent.
const char* const kVersion1Text = "[General]\r\n"
                                  "Version=1\r\n"
                                  "CycleSteal=0\r\n"
                                  "MainSpeed=1000\r\n"
                                  "MMRSpeed=1001\r\n"
                                  "SubSpeed=1002\r\n"
                                  "TapeFullSpeed=0\r\n"
                                  "TapeFullSpeedMode=1\r\n"
                                  "FullSpeed=1\r\n"
                                  "AutoSpeedAdjust=1\r\n"
                                  "FDDWait=1\r\n"
                                  "\r\n"
                                  "[Sound]\r\n"
                                  "SampleRate=96000\r\n"
                                  "SoundBuffer=40\r\n"
                                  "BeepFreq=9999\r\n"
                                  "FMHQmode=0\r\n"
                                  "StereoOut=3\r\n"
                                  "TapeMon=1\r\n"
                                  "UseROMEO=0\r\n"
                                  "FDDSound=1\r\n"
                                  "\r\n"
                                  "[Keyboard]\r\n"
                                  "RealTimeKeyScan=1\r\n"
                                  "UseArrowFor10Key=1\r\n"
                                  "Arrow8Dir=0\r\n"
                                  "\r\n"
                                  "\r\n"
                                  "[JoyStick]\r\n"
                                  "Type0=3\r\n"
                                  "Rapid0=8\r\n"
                                  "Rapid1=9\r\n"
                                  "Code0=10\r\n"
                                  "Code1=11\r\n"
                                  "Code2=12\r\n"
                                  "Code3=13\r\n"
                                  "Code4=14\r\n"
                                  "Code5=15\r\n"
                                  "Code6=16\r\n"
                                  "Type1=4\r\n"
                                  "Rapid10=1\r\n"
                                  "Rapid11=2\r\n"
                                  "Code10=20\r\n"
                                  "Code11=21\r\n"
                                  "Code12=22\r\n"
                                  "Code13=23\r\n"
                                  "Code14=24\r\n"
                                  "Code15=25\r\n"
                                  "Code16=26\r\n"
                                  "\r\n"
                                  "[Screen]\r\n"
                                  "DD480Line=1\r\n"
                                  "FullScan=1\r\n"
                                  "FullScanFS=1\r\n"
                                  "DD480Status=0\r\n"
                                  "\r\n"
                                  "[Option]\r\n"
                                  "OPNEnable=0\r\n"
                                  "WHGEnable=0\r\n"
                                  "THGEnable=0\r\n"
                                  "DigitizeEnable=0\r\n"
                                  "MouseEmulation=1\r\n"
                                  "MousePort=2\r\n";

EmuOptFM Version1Block()
{
    EmuOptFM o = DefaultsWithoutKeys();
    auto& b = o.Xm7Win_1Op;
    b[0] = 1;
    b[1] = 0;
    b[2] = 0;
    b[3] = 9;
    b[4] = 0;
    b[5] = 3;
    b[6] = 1;
    b[7] = 3;
    b[8] = 8;
    b[9] = 9;
    for (int i = 10; i <= 16; ++i)
        b[i] = static_cast<uint8_t>(i);
    b[17] = 4;
    b[18] = 1;
    b[19] = 2;
    for (int i = 20; i <= 26; ++i)
        b[i] = static_cast<uint8_t>(i);
    b[27] = 1;
    b[28] = 1;
    b[29] = 0;
    b[30] = 0;
    b[31] = 0;
    b[32] = 0;
    b[33] = 1; // not written for version 1
    b[35] = 1;
    b[36] = 2;
    b[37] = 1;
    b[38] = 1;
    b[39] = 1;
    b[40] = 1;
    b[41] = 0;
    b[42] = 1;
    b[43] = 1;
    b[44] = 1;
    b[45] = 0;
    b[46] = 1;
    b[47] = 1; // not written for version 1
    b[48] = 0;
    o.Xm7Win_2Op = {1000, 1001, 1002, 40, 9999, 3333, 0, 0, 0, 0};
    return o;
}

} // namespace

TEST(Xm7WinIni, DefaultBlockGivesTheWholeFile)
{
    EXPECT_EQ(MakeXm7WinIni(Defaults()), QString::fromLatin1(kDefaultText));
}

TEST(Xm7WinIni, EmptyKeyTableLeavesTwoEmptyLinesBeforeJoyStick)
{
    EXPECT_EQ(MakeXm7WinIni(DefaultsWithoutKeys()), QString::fromLatin1(kNoKeysText));
}

TEST(Xm7WinIni, Version1LeavesOutTheKeysOfTheAv40ex)
{
    EXPECT_EQ(MakeXm7WinIni(Version1Block()), QString::fromLatin1(kVersion1Text));
}

TEST(Xm7WinIni, Version2LeavesOutTheKeysOfTheAv40ex)
{
    EmuOptFM o = Version1Block();
    o.Xm7Win_1Op[0] = 2;
    QString expected = QString::fromLatin1(kVersion1Text);
    expected.replace(QStringLiteral("Version=1\r\n"), QStringLiteral("Version=2\r\n"));
    EXPECT_EQ(MakeXm7WinIni(o), expected);
}

TEST(Xm7WinIni, Version3WritesFastMmrTrueColorAndExtRam)
{
    EmuOptFM o = Version1Block();
    o.Xm7Win_1Op[0] = 3;
    const QString text = MakeXm7WinIni(o);
    EXPECT_TRUE(text.startsWith(QStringLiteral("[General]\r\nVersion=3\r\nCycleSteal=0\r\n"
                                               "MainSpeed=1000\r\nMMRSpeed=1001\r\n"
                                               "FastMMRSpeed=3333\r\nSubSpeed=1002\r\n")));
    EXPECT_TRUE(text.contains(QStringLiteral("\r\n[Screen]\r\nDD480Line=1\r\nFullScan=1\r\n"
                                             "FullScanFS=1\r\nDD480Status=0\r\nDDTrueColor=1\r\n"
                                             "\r\n[Option]\r\n")));
    EXPECT_TRUE(text.endsWith(QStringLiteral("[Option]\r\nOPNEnable=0\r\nWHGEnable=0\r\n"
                                             "THGEnable=0\r\nDigitizeEnable=0\r\n"
                                             "ExtRAMEnable=1\r\nMouseEmulation=1\r\n"
                                             "MousePort=2\r\n")));
}

TEST(Xm7WinIni, VersionOutsideTheListIsWrittenAndTakenAsNotAv40ex)
{
    EmuOptFM o = DefaultsWithoutKeys();
    o.Xm7Win_1Op[0] = 7;
    const QString text = MakeXm7WinIni(o);
    EXPECT_TRUE(text.startsWith(QStringLiteral(
        "[General]\r\nVersion=7\r\nCycleSteal=1\r\nMainSpeed=1799\r\nMMRSpeed=1565\r\n"
        "SubSpeed=1998\r\n")));
    EXPECT_FALSE(text.contains(QStringLiteral("DDTrueColor=")));
    EXPECT_FALSE(text.contains(QStringLiteral("ExtRAMEnable=")));
}

TEST(Xm7WinIni, SampleRateCodes)
{
    const std::pair<int, const char*> cases[] = {
        {0, "SampleRate=0"},     {2, "SampleRate=22050"},  {4, "SampleRate=44100"},
        {5, "SampleRate=48000"}, {8, "SampleRate=88200"},  {9, "SampleRate=96000"},
        {1, "SampleRate=44100"}, {3, "SampleRate=44100"},  {6, "SampleRate=44100"},
        {7, "SampleRate=44100"}, {10, "SampleRate=44100"}, {255, "SampleRate=44100"}};
    for (const auto& [code, line] : cases) {
        EmuOptFM o = DefaultsWithoutKeys();
        o.Xm7Win_1Op[3] = static_cast<uint8_t>(code);
        EXPECT_TRUE(MakeXm7WinIni(o).contains(QStringLiteral("\r\n[Sound]\r\n") +
                                              QString::fromLatin1(line) +
                                              QStringLiteral("\r\nSoundBuffer=100\r\n")))
            << "code " << code;
    }
}

TEST(Xm7WinIni, MousePortZeroIsWrittenAsPortOne)
{
    EmuOptFM o = DefaultsWithoutKeys();
    o.Xm7Win_1Op[36] = 0;
    EXPECT_EQ(MakeXm7WinIni(o), QString::fromLatin1(kNoKeysText));
    o.Xm7Win_1Op[36] = 2;
    EXPECT_TRUE(MakeXm7WinIni(o).endsWith(QStringLiteral("MouseEmulation=0\r\nMousePort=2\r\n")));
}

TEST(Xm7WinIni, BusyDelayOffAddsTheLastLine)
{
    EmuOptFM o = DefaultsWithoutKeys();
    o.Xm7Win_1Op[34] = 1;
    EXPECT_EQ(MakeXm7WinIni(o),
              QString::fromLatin1(kNoKeysText) + QStringLiteral("SubBusyDelay=0\r\n"));
}

TEST(Xm7WinIni, BusyDelayOtherThanOneWritesNothing)
{
    EmuOptFM o = DefaultsWithoutKeys();
    o.Xm7Win_1Op[34] = 2;
    EXPECT_EQ(MakeXm7WinIni(o), QString::fromLatin1(kNoKeysText));
}

TEST(Xm7WinIni, CodeHeldByTwoKeysGoesToTheLowerKey)
{
    EmuOptFM o = DefaultsWithoutKeys();
    auto& k = o.Xm7Win_3Op;
    k[30] = 30;
    k[5] = 30;
    k[102] = 200;
    k[2] = 200;
    k[89] = 70; // no key of the dialog, but the writer walks all numbers 1 to 102
    k[0] = 50;  // unused elements never reach the file
    k[103] = 51;
    k[109] = 52;
    const QString text = MakeXm7WinIni(o);
    EXPECT_TRUE(text.contains(QStringLiteral("Arrow8Dir=1\r\n"
                                             "\r\n"
                                             "Key30=5\r\n"
                                             "Key70=89\r\n"
                                             "Key200=2\r\n"
                                             "\r\n"
                                             "[JoyStick]\r\n")))
        << text.toStdString();
    EXPECT_EQ(text.count(QStringLiteral("\r\nKey")), 3);
}

TEST(Xm7WinIni, SpeedsAreSignedNumbers)
{
    EmuOptFM o = DefaultsWithoutKeys();
    o.Xm7Win_2Op[0] = -1;
    o.Xm7Win_2Op[3] = 32767;
    const QString text = MakeXm7WinIni(o);
    EXPECT_TRUE(text.contains(QStringLiteral("\r\nMainSpeed=-1\r\nMMRSpeed=1565\r\n")));
    EXPECT_TRUE(text.contains(QStringLiteral("\r\nSoundBuffer=32767\r\n")));
}
