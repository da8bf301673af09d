#include "adapters/p88sr/P88srOption.h"

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

EmuOpt88 AllOff()
{
    EmuOpt88 o = Defaults();
    o.P88_1Op.fill(0);
    return o;
}

QByteArray ReadAll(const QString& path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return "<unreadable>";
    return f.readAll();
}

} // namespace

TEST(P88srOptionTest, DefaultBlock)
{
    EXPECT_EQ(MakeP88srOption(Defaults()), QStringLiteral("-a1 -b2"));
}

TEST(P88srOptionTest, EverySwitchWithItsValue)
{
    EmuOpt88 o = Defaults();
    for (int i = 0; i <= 39; ++i)
        o.P88_1Op[i] = 1;
    o.P88_2Op = {3, 4, 1, 100, 200, 2, 17, 7, 0, 0};
    o.P88_3Op[8] = 1000;
    o.P88_3Op[9] = 2000;
    o.P88_3Op[10] = 300;
    o.P88_3Op[11] = 400;
    o.P88_3Op[12] = 500;
    o.P88_3Op[13] = 600;
    o.P88_3Op[14] = 700;
    EXPECT_EQ(MakeP88srOption(o),
              QStringLiteral("-a3 -b4 -w1000 -W2000 -c -v0 -v1s -v1 -4 -M -S -J -d -F300 -FF400 "
                             "-F0 -p500 -f1 -V100 200 -s1 -s2 -o600 -A -l -N -T -k -P -7 -n2 -t "
                             "-H17 -m700 -j100204065052 -E -e -G -D -i7 -R9"));
}

TEST(P88srOptionTest, AllSwitchesOffGiveAnEmptyLine)
{
    EXPECT_EQ(MakeP88srOption(AllOff()), QString());
}

TEST(P88srOptionTest, WaitWithAnEmptyBoxIsZero)
{
    EmuOpt88 o = AllOff();
    o.P88_1Op[2] = 1;
    o.P88_3Op[8] = 0;
    EXPECT_EQ(MakeP88srOption(o), QStringLiteral("-w0"));
}

TEST(P88srOptionTest, JoystickKeysAreTwelveCharactersBehindTheSwitch)
{
    EmuOpt88 o = AllOff();
    o.P88_1Op[33] = 1;
    EXPECT_EQ(MakeP88srOption(o), QStringLiteral("-j100204065052"));
    // Each key is a field of two characters.
    o.P88_4Op = {QStringLiteral("A0"), QStringLiteral("1"),  QStringLiteral("B1X"),
                 QStringLiteral("00"), QStringLiteral("96"), QStringLiteral("97")};
    EXPECT_EQ(MakeP88srOption(o), QStringLiteral("-jA01 B1009697"));
}

TEST(P88srOptionTest, SoundBoardOneStaysBareAndVolumeTakesBothValues)
{
    EmuOpt88 o = AllOff();
    o.P88_1Op[19] = 1;
    EXPECT_EQ(MakeP88srOption(o), QStringLiteral("-s1"));
    o.P88_1Op[18] = 1;
    EXPECT_EQ(MakeP88srOption(o), QStringLiteral("-V9 128 -s1"));
}

TEST(P88srOptionTest, UnusedRowsGiveABareDash)
{
    EmuOpt88 o = Defaults();
    o.P88_1Op[41] = 1;
    EXPECT_EQ(MakeP88srOption(o), QStringLiteral("-a1 -b2 -"));
    o = AllOff();
    o.P88_1Op[40] = 1;
    EXPECT_EQ(MakeP88srOption(o), QStringLiteral("-"));
}

TEST(P88srOptionTest, ElementsOtherThanOneAreOff)
{
    EmuOpt88 o = Defaults();
    o.P88_1Op[4] = 2;
    o.P88_1Op[1] = 255;
    EXPECT_EQ(MakeP88srOption(o), QStringLiteral("-a1"));
}

TEST(P88srOptionTest, TablesTieSlotsToRows)
{
    EXPECT_STREQ(P88SwitchName[0], "a  ");
    EXPECT_STREQ(P88SwitchName[6], "v1s");
    EXPECT_STREQ(P88SwitchName[14], "FF ");
    EXPECT_STREQ(P88SwitchName[39], "R9 ");
    EXPECT_STREQ(P88SwitchName[43], "   ");
    const std::array<uint8_t, 15> expectedSlots = {0, 1, 17, 18, 19, 29, 31, 38,
                                                   2, 3, 13, 14, 16, 21, 32};
    EXPECT_EQ(P88ValueIndex, expectedSlots);
}

TEST(P88srCfgTest, SaveSlotOnlyWithPanOff)
{
    EXPECT_EQ(MakeP88srCfg(Defaults(), false, 3), QStringLiteral("-a1 -b2 -L3"));
    EXPECT_EQ(MakeP88srCfg(Defaults(), true, 3), QStringLiteral("-a1 -b2"));
    EXPECT_EQ(MakeP88srCfg(Defaults(), false, std::nullopt), QStringLiteral("-a1 -b2"));
    EXPECT_EQ(MakeP88srCfg(Defaults(), false, 0), QStringLiteral("-a1 -b2 -L0"));
}

TEST(P88srCfgTest, SlotBehindAnEmptyLineKeepsItsBlank)
{
    EXPECT_EQ(MakeP88srCfg(AllOff(), false, 9), QStringLiteral(" -L9"));
    EXPECT_EQ(MakeP88srCfg(AllOff(), false, std::nullopt), QString());
}

TEST(P88srCfgTest, FileHoldsTheLineAndOneLineEnd)
{
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString path = dir.filePath(QStringLiteral("P88SR.CFG"));
    {
        QFile old(path);
        ASSERT_TRUE(old.open(QIODevice::WriteOnly));
        old.write(QByteArray(300, 'x'));
    }
    ASSERT_TRUE(WriteP88srCfg(path, MakeP88srCfg(Defaults(), false, 3)));
    EXPECT_EQ(ReadAll(path), QByteArray("-a1 -b2 -L3\r\n"));
    // All switches off: an empty line.
    ASSERT_TRUE(WriteP88srCfg(path, MakeP88srCfg(AllOff(), false, std::nullopt)));
    EXPECT_EQ(ReadAll(path), QByteArray("\r\n"));
    EXPECT_FALSE(WriteP88srCfg(dir.filePath(QStringLiteral("no/such/P88SR.CFG")), QString()));
}
