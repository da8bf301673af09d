#include "adapters/m88/M88Ini.h"
#include "data/Cfg.h"
#include "util/Globals.h"
#include "util/Sjis.h"

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

QString Join(const QStringList& lines)
{
    return lines.join(QStringLiteral("\r\n"));
}

// The lines up to and including "LPFOrder=" for the default block.
QStringList DefaultHead()
{
    return {QStringLiteral("[M88p2 for Windows]"),
            QStringLiteral("BIOSPath=Z:\\emu\\m88"),
            QStringLiteral("Directory=Z:\\app\\TORVBOOT"),
            QStringLiteral("Flags=3"),
            QStringLiteral("Flag2=0"),
            QStringLiteral("CPUClock=40"),
            QStringLiteral("Speed=1000"),
            QStringLiteral("RefreshTiming=3"),
            QStringLiteral("BASICMode=49"),
            QStringLiteral("Sound=22050"),
            QStringLiteral("Switches=1829"),
            QStringLiteral("SoundBuffer=200"),
            QStringLiteral("MouseSensibility=4"),
            QStringLiteral("CPUMode=2"),
            QStringLiteral("KeyboardType=0"),
            QStringLiteral("ROMEOLatency=100"),
            QStringLiteral("ERAMBank=4"),
            QStringLiteral("LPFCutoff=8000"),
            QStringLiteral("LPFOrder=4")};
}

QStringList Volumes(std::initializer_list<int> v)
{
    static const char* const keys[] = {
        "VolumeFM=", "VolumeSSG=", "VolumeADPCM=", "VolumeRhythm=", "VolumeBD=",
        "VolumeSD=", "VolumeTOP=", "VolumeHH=",    "VolumeTOM=",    "VolumeRIM="};
    QStringList out;
    int i = 0;
    for (int x : v)
        out << QString::fromLatin1(keys[i++]) + QString::number(x);
    return out;
}

class M88IniTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        savedDir_ = Cfg.M88Dir;
        savedWork_ = WorkDir;
        // As the configuration holds it: blank-filled to its width.
        Cfg.M88Dir = QStringLiteral("/emu/m88") + QString(20, QLatin1Char(' '));
        WorkDir = QStringLiteral("/app/TORVBOOT");
    }
    void TearDown() override
    {
        Cfg.M88Dir = savedDir_;
        WorkDir = savedWork_;
    }
    QString savedDir_, savedWork_;
};

} // namespace

TEST_F(M88IniTest, DefaultBlockGivesTheWholeFile)
{
    const QString expected =
        Join(DefaultHead() + Volumes({100, 100, 100, 100, 100, 100, 100, 100, 100, 100}));
    EXPECT_EQ(MakeM88Ini(Defaults()), expected);
}

TEST_F(M88IniTest, LinesEndInCrLfAndTheLastHasNone)
{
    const QString t = MakeM88Ini(Defaults());
    EXPECT_FALSE(t.endsWith(QLatin1Char('\n')));
    EXPECT_FALSE(t.endsWith(QLatin1Char('\r')));
    EXPECT_EQ(t.count(QStringLiteral("\r\n")), 28);
    EXPECT_EQ(t.count(QLatin1Char('\n')), 28);
}

TEST_F(M88IniTest, FlagsLeaveOutBits11_28And31)
{
    EmuOpt88 o = Defaults();
    o.M88_2Op.fill(1);
    // Every bit but 11, 28, 31: 2^32 - 1 - 2^11 - 2^28 - 2^31.
    EXPECT_EQ(M88FlagsValue(o), 4294967295LL - 2048 - 268435456LL - 2147483648LL);
    EXPECT_TRUE(MakeM88Ini(o).contains(QStringLiteral("\r\nFlags=1879046143\r\n")));
}

TEST_F(M88IniTest, Flag2TakesOnlyBits0_1And5To12)
{
    EmuOpt88 o = Defaults();
    o.M88_3Op.fill(1);
    EXPECT_EQ(M88Flag2Value(o), 3 + 32 + 64 + 128 + 256 + 512 + 1024 + 2048 + 4096);
    EXPECT_TRUE(MakeM88Ini(o).contains(QStringLiteral("\r\nFlag2=8163\r\n")));
}

TEST_F(M88IniTest, ElementsOtherThanOneDoNotCountInTheSums)
{
    EmuOpt88 o = Defaults();
    o.M88_2Op[2] = 2;
    o.M88_4Op.fill(0);
    o.M88_4Op[11] = 1;
    EXPECT_EQ(M88FlagsValue(o), 3);
    EXPECT_EQ(M88SwitchesValue(o), 2048);
}

TEST_F(M88IniTest, SoundSelectorMapping)
{
    const std::pair<int, const char*> cases[] = {
        {0, "Sound=0"},     {1, "Sound=11025"}, {2, "Sound=22050"},  {3, "Sound=44100"},
        {4, "Sound=44100"}, {5, "Sound=48000"}, {6, "Sound=55467"},  {7, "Sound=88200"},
        {8, "Sound=96000"}, {9, "Sound=12345"}, {10, "Sound=22050"}, {255, "Sound=22050"}};
    for (auto [sel, line] : cases) {
        EmuOpt88 o = Defaults();
        o.M88_1Op[4] = static_cast<uint8_t>(sel);
        o.M88_8Op[0] = 12345;
        EXPECT_TRUE(MakeM88Ini(o).contains(QStringLiteral("\r\n") + QString::fromLatin1(line) +
                                           QStringLiteral("\r\n")))
            << sel;
    }
}

TEST_F(M88IniTest, ExtensionRamAbsentWritesZeroAndFullCountFits)
{
    EmuOpt88 o = Defaults();
    o.M88_1Op[20] = 0;
    o.M88_1Op[19] = 7;
    EXPECT_TRUE(MakeM88Ini(o).contains(QStringLiteral("\r\nERAMBank=0\r\n")));
    o.M88_1Op[20] = 1;
    o.M88_1Op[19] = 255; // 256 banks
    EXPECT_TRUE(MakeM88Ini(o).contains(QStringLiteral("\r\nERAMBank=256\r\n")));
}

TEST_F(M88IniTest, RomeoWithoutFm98SilencesTheChipsButKeepsAdpcm)
{
    EmuOpt88 o = Defaults();
    o.M88_1Op[24] = 1;
    o.M88_1Op[11] = 90;
    o.M88_1Op[26] = 1; // no effect while ROMEO is on
    const QString expected = Join(DefaultHead() + Volumes({0, 0, 90, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(MakeM88Ini(o), expected);
}

TEST_F(M88IniTest, Fm98WithAdpcmDramSilencesAdpcmAndWritesItsSection)
{
    EmuOpt88 o = Defaults();
    o.M88_5Op[7] = 1;
    o.M88_1Op[25] = 3;
    o.M88_1Op[26] = 1;
    o.M88_1Op[27] = 1;
    o.M88_7Op[1] = 250;
    o.M88_8Op[1] = 999999;
    o.M88_8Op[2] = 7;
    const QString expected =
        Join(DefaultHead() + Volumes({0, 0, 0, 0, 0, 0, 0, 0, 0, 0}) +
             QStringList{QString(), QStringLiteral("[FM98]"), QStringLiteral("LATENCY=250"),
                         QStringLiteral("IOPORT=3"), QStringLiteral("FMWAIT=999999"),
                         QStringLiteral("USE_DRAM=1"), QStringLiteral("DRAM_WAIT=7"),
                         QStringLiteral("USE_0AXH=1")});
    EXPECT_EQ(MakeM88Ini(o), expected);
}

TEST_F(M88IniTest, Fm98WithoutDramKeepsAdpcm)
{
    EmuOpt88 o = Defaults();
    o.M88_5Op[7] = 1;
    o.M88_1Op[11] = 77;
    const QString t = MakeM88Ini(o);
    EXPECT_TRUE(t.contains(QStringLiteral("\r\nVolumeFM=0\r\nVolumeSSG=0\r\nVolumeADPCM=77\r\n")));
    EXPECT_TRUE(t.contains(QStringLiteral("\r\nUSE_DRAM=0\r\n")));
}

TEST_F(M88IniTest, OwnVolumesInTheirOrderWhenNeitherBoardIsUsed)
{
    EmuOpt88 o = Defaults();
    for (int i = 9; i <= 18; ++i)
        o.M88_1Op[i] = static_cast<uint8_t>(60 + i);
    const QString expected =
        Join(DefaultHead() + Volumes({69, 70, 71, 72, 73, 74, 75, 76, 77, 78}));
    EXPECT_EQ(MakeM88Ini(o), expected);
}

TEST_F(M88IniTest, PcgSoundSectionThenFm98Section)
{
    EmuOpt88 o = Defaults();
    o.M88_5Op[4] = 1;
    o.M88_5Op[7] = 1;
    o.M88_6Op = {60, 110, 120};
    const QString expected =
        Join(DefaultHead() + Volumes({0, 0, 100, 0, 0, 0, 0, 0, 0, 0}) +
             QStringList{QString(), QStringLiteral("[PCG_SOUND]"), QStringLiteral("Volume0=60"),
                         QStringLiteral("Volume1=110"), QStringLiteral("Volume2=120"), QString(),
                         QStringLiteral("[FM98]"), QStringLiteral("LATENCY=0"),
                         QStringLiteral("IOPORT=0"), QStringLiteral("FMWAIT=0"),
                         QStringLiteral("USE_DRAM=0"), QStringLiteral("DRAM_WAIT=0"),
                         QStringLiteral("USE_0AXH=0")});
    EXPECT_EQ(MakeM88Ini(o), expected);
}

TEST_F(M88IniTest, OtherModulesAddNoSection)
{
    EmuOpt88 o = Defaults();
    for (int k : {0, 1, 2, 3, 5, 6})
        o.M88_5Op[k] = 1;
    EXPECT_EQ(MakeM88Ini(o),
              Join(DefaultHead() + Volumes({100, 100, 100, 100, 100, 100, 100, 100, 100, 100})));
}

TEST_F(M88IniTest, ScaledScalars)
{
    EmuOpt88 o = Defaults();
    o.M88_1Op[1] = 8;
    o.M88_1Op[2] = 200;
    o.M88_1Op[5] = 100;
    o.M88_1Op[21] = 24;
    o.M88_7Op[0] = 500;
    const QString t = MakeM88Ini(o);
    for (const char* line :
         {"CPUClock=80", "Speed=2000", "SoundBuffer=1000", "LPFCutoff=24000", "ROMEOLatency=500"})
        EXPECT_TRUE(
            t.contains(QStringLiteral("\r\n") + QString::fromLatin1(line) + QStringLiteral("\r\n")))
            << line;
}

TEST(M88PathForm, NativePathsBecomeWinePaths)
{
    EXPECT_EQ(M88PathForm(QStringLiteral("/home/u/M88 dir")),
              QStringLiteral("Z:\\home\\u\\M88 dir"));
    EXPECT_EQ(M88PathForm(QStringLiteral("sub/a.d88")), QStringLiteral("sub\\a.d88"));
    EXPECT_EQ(M88PathForm(QStringLiteral("C:\\M88")), QStringLiteral("C:\\M88"));
}

TEST(M88IniWrite, OneWriteWithOneLineEndInShiftJis)
{
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    EmuOpt88 o;
    SetDefaultEmuOpt88(o);
    const QString text =
        MakeM88Ini(o, QStringLiteral("Z:\\エミュ"), QStringLiteral("Z:\\app\\TORVBOOT"));
    const QString path = dir.filePath(QStringLiteral("M88.INI"));
    {
        QFile old(path);
        ASSERT_TRUE(old.open(QIODevice::WriteOnly));
        old.write(QByteArray(4000, 'x')); // a longer file of the user's is replaced whole
    }
    ASSERT_TRUE(WriteM88Ini(path, text));
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QByteArray bytes = f.readAll();
    EXPECT_EQ(bytes, ToSjis(text) + QByteArray("\r\n"));
    EXPECT_TRUE(bytes.contains(ToSjis(QStringLiteral("BIOSPath=Z:\\エミュ\r\n"))));
}
