#include "adapters/quasi88/Quasi88Ini.h"
#include "data/Cfg.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tv;

namespace {

EmuOpt88 Defaults()
{
    EmuOpt88 o;
    SetDefaultEmuOpt88(o);
    return o;
}

// The file of the default block, line by line.
const QString kDefaultText = QStringLiteral("-v2\r\n"
                                            "-4mhz\r\n"
                                            "-cpu 0\r\n"
                                            "-frameskip 12\r\n"
                                            "-sd\r\n"
                                            "-samplefreq 22050\r\n"
                                            "-sdlbufsize 1024\r\n"
                                            "-sdlbufnum 4\r\n"
                                            "-volume 0\r\n"
                                            "-fmvol 100\r\n"
                                            "-psgvol 20\r\n"
                                            "-beepvol 60\r\n"
                                            "-rhythmvol 100\r\n"
                                            "-adpcmvol 100\r\n"
                                            "-romaji 0\r\n"
                                            "-nomouse\r\n"
                                            "-joyassign 1\r\n"
                                            "-dipsw 0x391A\r\n"
                                            "-baudrate 300");

class Quasi88IniTest : public ::testing::Test {
protected:
    void SetUp() override { saved_ = Cfg.Q88AllScr; }
    void TearDown() override { Cfg.Q88AllScr = saved_; }
    uint8_t saved_ = 0;
};

} // namespace

TEST_F(Quasi88IniTest, DefaultBlockGivesTheWholeFile)
{
    EXPECT_EQ(MakeQuasi88Ini(Defaults(), false), kDefaultText);
    // No screen size is asked for, so full screen changes nothing.
    EXPECT_EQ(MakeQuasi88Ini(Defaults(), true), kDefaultText);
}

TEST_F(Quasi88IniTest, FunctionKeysAllZeroWriteNoKeyLines)
{
    EmuOpt88 o = Defaults();
    o.Q88_1Op[45] = 0;
    for (int i = 46; i <= 50; ++i)
        o.Q88_1Op[i] = 0;
    const QString t = MakeQuasi88Ini(o, false);
    EXPECT_EQ(t, kDefaultText);
    for (const char* key : {"-f6 ", "-f7 ", "-f8 ", "-f9 ", "-f10 "})
        EXPECT_FALSE(t.contains(QString::fromLatin1(key))) << key;
}

TEST_F(Quasi88IniTest, FunctionKeysWriteTheirNamesAndSkipZero)
{
    EmuOpt88 o = Defaults();
    o.Q88_1Op[46] = 1;
    o.Q88_1Op[47] = 0;
    o.Q88_1Op[48] = 12;
    o.Q88_1Op[49] = 26;
    o.Q88_1Op[50] = 19;
    EXPECT_EQ(MakeQuasi88Ini(o, false), QStringLiteral("-v2\r\n"
                                                       "-4mhz\r\n"
                                                       "-cpu 0\r\n"
                                                       "-frameskip 12\r\n"
                                                       "-sd\r\n"
                                                       "-samplefreq 22050\r\n"
                                                       "-sdlbufsize 1024\r\n"
                                                       "-sdlbufnum 4\r\n"
                                                       "-volume 0\r\n"
                                                       "-fmvol 100\r\n"
                                                       "-psgvol 20\r\n"
                                                       "-beepvol 60\r\n"
                                                       "-rhythmvol 100\r\n"
                                                       "-adpcmvol 100\r\n"
                                                       "-f6 FRATE-UP\r\n"
                                                       "-f8 SNAPSHOT\r\n"
                                                       "-f9 PC\r\n"
                                                       "-f10 RESET\r\n"
                                                       "-romaji 0\r\n"
                                                       "-nomouse\r\n"
                                                       "-joyassign 1\r\n"
                                                       "-dipsw 0x391A\r\n"
                                                       "-baudrate 300"));
}

TEST_F(Quasi88IniTest, OtherKeyAssignmentsIgnoreTheFunctionKeys)
{
    EmuOpt88 o = Defaults();
    o.Q88_1Op[46] = 5;
    o.Q88_1Op[50] = 7;
    o.Q88_1Op[45] = 1;
    QString t = MakeQuasi88Ini(o, false);
    EXPECT_TRUE(t.contains(QStringLiteral("\r\n-adpcmvol 100\r\n-menukey\r\n-romaji 0\r\n")));
    EXPECT_FALSE(t.contains(QStringLiteral("-f6")));
    o.Q88_1Op[45] = 2;
    t = MakeQuasi88Ini(o, false);
    EXPECT_TRUE(t.contains(QStringLiteral("\r\n-adpcmvol 100\r\n-kanjikey\r\n-romaji 0\r\n")));
    // Outside the list: no line at all.
    o.Q88_1Op[45] = 3;
    t = MakeQuasi88Ini(o, false);
    EXPECT_TRUE(t.contains(QStringLiteral("\r\n-adpcmvol 100\r\n-romaji 0\r\n")));
}

TEST_F(Quasi88IniTest, ScreenSizeOfTheRecordWithoutFullScreen)
{
    EmuOpt88 o = Defaults();
    o.Q88_1Op[26] = 1;
    o.Q88_1Op[27] = 1;
    o.Q88_3Op[2] = 800;
    o.Q88_3Op[3] = 600;
    const QString expected = QStringLiteral("-v2\r\n"
                                            "-4mhz\r\n"
                                            "-cpu 0\r\n"
                                            "-frameskip 12\r\n"
                                            "-width 800\r\n"
                                            "-height 600\r\n"
                                            "-sd\r\n"
                                            "-samplefreq 22050\r\n"
                                            "-sdlbufsize 1024\r\n"
                                            "-sdlbufnum 4\r\n"
                                            "-volume 0\r\n"
                                            "-fmvol 100\r\n"
                                            "-psgvol 20\r\n"
                                            "-beepvol 60\r\n"
                                            "-rhythmvol 100\r\n"
                                            "-adpcmvol 100\r\n"
                                            "-romaji 0\r\n"
                                            "-nomouse\r\n"
                                            "-joyassign 1\r\n"
                                            "-dipsw 0x391A\r\n"
                                            "-baudrate 300");
    // "640x480 in full screen" asked for, but full screen is off.
    EXPECT_EQ(MakeQuasi88Ini(o, false), expected);
    // Full screen on, but 640x480 not asked for.
    o.Q88_1Op[27] = 0;
    EXPECT_EQ(MakeQuasi88Ini(o, true), expected);
}

TEST_F(Quasi88IniTest, FullScreenWith640x480WritesTheConstants)
{
    EmuOpt88 o = Defaults();
    o.Q88_1Op[26] = 1;
    o.Q88_1Op[27] = 1;
    o.Q88_3Op[2] = 800;
    o.Q88_3Op[3] = 600;
    EXPECT_EQ(MakeQuasi88Ini(o, true), QStringLiteral("-v2\r\n"
                                                      "-4mhz\r\n"
                                                      "-cpu 0\r\n"
                                                      "-frameskip 12\r\n"
                                                      "-width 640\r\n"
                                                      "-height 480\r\n"
                                                      "-sd\r\n"
                                                      "-samplefreq 22050\r\n"
                                                      "-sdlbufsize 1024\r\n"
                                                      "-sdlbufnum 4\r\n"
                                                      "-volume 0\r\n"
                                                      "-fmvol 100\r\n"
                                                      "-psgvol 20\r\n"
                                                      "-beepvol 60\r\n"
                                                      "-rhythmvol 100\r\n"
                                                      "-adpcmvol 100\r\n"
                                                      "-romaji 0\r\n"
                                                      "-nomouse\r\n"
                                                      "-joyassign 1\r\n"
                                                      "-dipsw 0x391A\r\n"
                                                      "-baudrate 300"));
    // Without "screen size" nothing of it is written, whatever the rest says.
    o.Q88_1Op[26] = 0;
    EXPECT_EQ(MakeQuasi88Ini(o, true), kDefaultText);
}

TEST_F(Quasi88IniTest, TheOneArgumentFormReadsFullScreenFromTheConfiguration)
{
    EmuOpt88 o = Defaults();
    o.Q88_1Op[26] = 1;
    o.Q88_1Op[27] = 1;
    Cfg.Q88AllScr = 1;
    EXPECT_TRUE(MakeQuasi88Ini(o).contains(QStringLiteral("\r\n-width 640\r\n-height 480\r\n")));
    Cfg.Q88AllScr = 0;
    EXPECT_TRUE(MakeQuasi88Ini(o).contains(QStringLiteral("\r\n-width 640\r\n-height 400\r\n")));
}

TEST_F(Quasi88IniTest, VolumeSliderAtZeroAndAtThirtyTwo)
{
    EmuOpt88 o = Defaults();
    o.Q88_1Op[39] = 0;
    EXPECT_TRUE(MakeQuasi88Ini(o, false).contains(QStringLiteral("\r\n-volume -32\r\n")));
    o.Q88_1Op[39] = 32;
    EXPECT_TRUE(MakeQuasi88Ini(o, false).contains(QStringLiteral("\r\n-volume 0\r\n")));
}

TEST_F(Quasi88IniTest, EveryRowSetGivesTheWholeFile)
{
    EmuOpt88 o = Defaults();
    auto& q = o.Q88_1Op;
    q[0] = 1;
    q[1] = 1;
    q[2] = q[3] = 1;
    q[4] = 1;
    q[5] = 3;
    q[6] = 1;
    q[7] = 5;
    for (int i = 8; i <= 14; ++i)
        q[i] = 1;
    q[15] = 2;
    q[16] = q[17] = q[18] = q[19] = q[20] = 1;
    q[21] = q[22] = q[23] = 1;
    q[24] = 5;
    q[25] = 1;
    q[26] = q[27] = 1;
    for (int i = 28; i <= 33; ++i)
        q[i] = 1;
    q[34] = 2;
    q[35] = 1;
    q[36] = 0;
    q[37] = 4;
    q[38] = 8;
    q[39] = 16;
    q[40] = 0;
    q[41] = 50;
    q[42] = 100;
    q[43] = 200;
    q[44] = 7;
    q[45] = 0;
    q[46] = 5;
    q[47] = 11;
    q[48] = 0;
    q[49] = 25;
    q[50] = 20;
    q[51] = q[52] = q[53] = 1;
    q[54] = 2;
    q[55] = 4;
    q[56] = 1;
    q[57] = 3;
    q[58] = q[59] = 1;
    o.Q88_2Op.fill(1);
    o.Q88_2Op[6] = 8;
    o.Q88_3Op = {6, 0, 640, 400, 0};
    o.Q88_4Op = {7.9872f, 3.9936f, 55.4f, 60.0f, 0.0f};
    o.Q88_5Op[0] = 8000;
    EXPECT_EQ(MakeQuasi88Ini(o, false), QStringLiteral("-v1s\r\n"
                                                       "-8mhz\r\n"
                                                       "-printer TORV_QUASI88_PRN.TXT\r\n"
                                                       "-serialout TORV_QUASI88_SER.TXT\r\n"
                                                       "-extram 3\r\n"
                                                       "-setver 5\r\n"
                                                       "-jisho\r\n"
                                                       "-nologo\r\n"
                                                       "-english\r\n"
                                                       "-sleep\r\n"
                                                       "-button2menu\r\n"
                                                       "-menu\r\n"
                                                       "-timestop\r\n"
                                                       "-cpu 2\r\n"
                                                       "-subload 6\r\n"
                                                       "-load 0\r\n"
                                                       "-clock 7.9872\r\n"
                                                       "-soundclock 3.9936\r\n"
                                                       "-vsync 55.4\r\n"
                                                       "-nowait\r\n"
                                                       "-waitfreq 60\r\n"
                                                       "-fdc_wait\r\n"
                                                       "-exchange\r\n"
                                                       "-hsbasic\r\n"
                                                       "-frameskip 5\r\n"
                                                       "-autoskip\r\n"
                                                       "-width 640\r\n"
                                                       "-height 400\r\n"
                                                       "-half\r\n"
                                                       "-hide_mouse\r\n"
                                                       "-15k\r\n"
                                                       "-digital\r\n"
                                                       "-nointerp\r\n"
                                                       "-interlace\r\n"
                                                       "-sd2\r\n"
                                                       "-fmgen\r\n"
                                                       "-samplefreq 8000\r\n"
                                                       "-sdlbufsize 8192\r\n"
                                                       "-sdlbufnum 8\r\n"
                                                       "-volume -16\r\n"
                                                       "-fmvol 0\r\n"
                                                       "-psgvol 50\r\n"
                                                       "-beepvol 100\r\n"
                                                       "-rhythmvol 200\r\n"
                                                       "-adpcmvol 7\r\n"
                                                       "-f6 PAUSE\r\n"
                                                       "-f7 DGA\r\n"
                                                       "-f9 ZENKAKU\r\n"
                                                       "-f10 KANA\r\n"
                                                       "-tenkey\r\n"
                                                       "-cursor\r\n"
                                                       "-numlock\r\n"
                                                       "-romaji 2\r\n"
                                                       "-joykey\r\n"
                                                       "-joyswap\r\n"
                                                       "-joyassign 3\r\n"
                                                       "-dipsw 0x3F3E\r\n"
                                                       "-romboot\r\n"
                                                       "-baudrate 19200"));
}

TEST_F(Quasi88IniTest, ChoicesOutsideTheirListsWriteNothing)
{
    EmuOpt88 o = Defaults();
    o.Q88_1Op[0] = 4;
    o.Q88_1Op[1] = 2;
    o.Q88_1Op[34] = 3;
    o.Q88_1Op[36] = 5;
    o.Q88_1Op[37] = 5;
    o.Q88_1Op[55] = 5;
    o.Q88_2Op[6] = 9;
    EXPECT_EQ(MakeQuasi88Ini(o, false), QStringLiteral("-cpu 0\r\n"
                                                       "-frameskip 12\r\n"
                                                       "-sdlbufnum 4\r\n"
                                                       "-volume 0\r\n"
                                                       "-fmvol 100\r\n"
                                                       "-psgvol 20\r\n"
                                                       "-beepvol 60\r\n"
                                                       "-rhythmvol 100\r\n"
                                                       "-adpcmvol 100\r\n"
                                                       "-romaji 0\r\n"
                                                       "-joyassign 1\r\n"
                                                       "-dipsw 0x391A"));
}

TEST_F(Quasi88IniTest, FlagsAndPairsWriteOnlyOnOne)
{
    EmuOpt88 o = Defaults();
    for (int i : {2, 3, 4, 6, 8, 16, 17, 18, 20, 26, 28, 35, 51, 56})
        o.Q88_1Op[i] = 2;
    EXPECT_EQ(MakeQuasi88Ini(o, false), kDefaultText);
}

TEST_F(Quasi88IniTest, DipSwitchBitsStartAtBitOne)
{
    EmuOpt88 o = Defaults();
    o.Q88_2Op.fill(0);
    EXPECT_EQ(Quasi88DipSwitchHex(o), QStringLiteral("0"));
    o.Q88_2Op[5] = 1; // boot from ROM: not a DIP bit
    EXPECT_EQ(Quasi88DipSwitchHex(o), QStringLiteral("0"));
    o.Q88_2Op[0] = 1;
    EXPECT_EQ(Quasi88DipSwitchHex(o), QStringLiteral("2"));
    o.Q88_2Op[12] = 1;
    EXPECT_EQ(Quasi88DipSwitchHex(o), QStringLiteral("2002"));
    o.Q88_2Op[9] = 1;
    EXPECT_EQ(Quasi88DipSwitchHex(o), QStringLiteral("2402"));
    EXPECT_TRUE(MakeQuasi88Ini(o, false).endsWith(
        QStringLiteral("\r\n-dipsw 0x2402\r\n-romboot\r\n-baudrate 75")));
}

TEST_F(Quasi88IniTest, FloatsInTheFewestDigits)
{
    EXPECT_EQ(Quasi88FloatText(3.9936f), QStringLiteral("3.9936"));
    EXPECT_EQ(Quasi88FloatText(7.9872f), QStringLiteral("7.9872"));
    EXPECT_EQ(Quasi88FloatText(55.4f), QStringLiteral("55.4"));
    EXPECT_EQ(Quasi88FloatText(60.0f), QStringLiteral("60"));
    EXPECT_EQ(Quasi88FloatText(0.5f), QStringLiteral("0.5"));
    EXPECT_EQ(Quasi88FloatText(240.0f), QStringLiteral("240"));
}

TEST_F(Quasi88IniTest, TablesHoldTheirTexts)
{
    EXPECT_STREQ(Quasi88FunctionName[0], "");
    EXPECT_STREQ(Quasi88FunctionName[1], "FRATE-UP");
    EXPECT_STREQ(Quasi88FunctionName[13], "SUSPEND");
    EXPECT_STREQ(Quasi88FunctionName[26], "PC");
    EXPECT_EQ(Quasi88SwitchTable[22].kind, Quasi88RowKind::Flag);
    EXPECT_STREQ(Quasi88SwitchTable[22].texts[0], "-exchange");
    EXPECT_EQ(Quasi88SwitchTable[58].kind, Quasi88RowKind::Unused);
}

TEST_F(Quasi88IniTest, WriteAddsTheLastLineEndInShiftJis)
{
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString path = dir.filePath(QStringLiteral("QUASI88.INI"));
    {
        QFile old(path);
        ASSERT_TRUE(old.open(QIODevice::WriteOnly));
        old.write(QByteArray(500, 'x'));
    }
    ASSERT_TRUE(WriteQuasi88Ini(path, QStringLiteral("-v2\r\n-4mhz")));
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), QByteArray("-v2\r\n-4mhz\r\n"));
    EXPECT_FALSE(WriteQuasi88Ini(dir.filePath(QStringLiteral("no/such/QUASI88.INI")),
                                 QStringLiteral("-v2")));
}
