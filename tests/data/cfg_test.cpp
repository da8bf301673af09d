#include "data/ByteCodec.h"
#include "data/Cfg.h"

#include <gtest/gtest.h>

#include <cstring>

using namespace tv;

namespace {
uint16_t u16at(const QByteArray& b, int off)
{
    return static_cast<uint8_t>(b[off]) | (static_cast<uint8_t>(b[off + 1]) << 8);
}
float f32at(const QByteArray& b, int off)
{
    uint32_t u = 0;
    for (int i = 3; i >= 0; --i)
        u = (u << 8) | static_cast<uint8_t>(b[off + i]);
    float f;
    std::memcpy(&f, &u, 4);
    return f;
}
} // namespace

TEST(CfgRecord, DefaultRecordHasTheFileLayout)
{
    CfgRecord c;
    SetDefaultCfg(c);
    QByteArray b = EncodeCfg(c);
    ASSERT_EQ(b.size(), kCfgSize);
    EXPECT_EQ(b.left(24), QByteArray("TORVANE.CFG Version 0.16"));
    EXPECT_EQ(b.mid(78, 256), QByteArray(256, ' '));
    EXPECT_EQ(b.mid(11118, 20), QByteArray("Free Col1           "));
    EXPECT_EQ(b.mid(11138, 20), QByteArray("Free Col2           "));
    EXPECT_EQ(u16at(b, 11158), 750);
    EXPECT_FLOAT_EQ(f32at(b, 11160), 4499.71f);
    EXPECT_FLOAT_EQ(f32at(b, 11168), 2300.03f);
    EXPECT_FLOAT_EQ(f32at(b, 11180), 1349.85f);
    // FilterOrder: column 0 rows 1..5 then 0; column 5 rows 1..12.
    EXPECT_EQ(static_cast<uint8_t>(b[11212 + 0 * 6 + 0]), 1);
    EXPECT_EQ(static_cast<uint8_t>(b[11212 + 4 * 6 + 0]), 5);
    EXPECT_EQ(static_cast<uint8_t>(b[11212 + 5 * 6 + 0]), 0);
    EXPECT_EQ(static_cast<uint8_t>(b[11212 + 11 * 6 + 5]), 12);
    EXPECT_EQ(static_cast<uint8_t>(b[11212 + 12 * 6 + 5]), 0);
    // The PC-88 block: M88_1Op[0] = 49 at 103, the "10" of P88_4Op at 91.
    EXPECT_EQ(static_cast<uint8_t>(b[11332 + 103]), 49);
    EXPECT_EQ(b.mid(11332 + 91, 12), QByteArray("100204065052"));
    // The FM-7 block: Version=3 at 1, MainSpeed 1799 at 61, key 1 of the 106 map is 148.
    EXPECT_EQ(static_cast<uint8_t>(b[11779 + 1]), 3);
    EXPECT_EQ(u16at(b, 11779 + 61), 1799);
    EXPECT_EQ(static_cast<uint8_t>(b[11779 + 81 + 1]), 148);
    // The X1 block: /X value 250 at 17, X1emu_3Op "0" at 51, WinX1 OPM_Volume 12 at 116.
    EXPECT_EQ(u16at(b, 11985 + 17), 250);
    EXPECT_EQ(b[11985 + 51], '0');
    EXPECT_EQ(static_cast<uint8_t>(b[11985 + 116]), 12);
}

TEST(CfgRecord, ReadThenSaveIsByteIdentical)
{
    CfgRecord c;
    SetDefaultCfg(c);
    c.ImageDir[1] = QStringLiteral("/home/user/ゲーム/FM7");
    c.WinSendWait = 1000;
    QByteArray first = EncodeCfg(c);
    CfgRecord d;
    ClearCfg(d);
    DecodeCfg(first, d);
    EXPECT_EQ(EncodeCfg(d), first);
    EXPECT_EQ(d.ImageDir[1].trimmed(), QStringLiteral("/home/user/ゲーム/FM7"));
}

TEST(CfgRecord, ShortFileLeavesTheTailCleared)
{
    CfgRecord c;
    SetDefaultCfg(c);
    QByteArray b = EncodeCfg(c).left(12000);
    CfgRecord d;
    ClearCfg(d);
    d.CfgEmuOptX1.WinX1_1Op[0] = 0;
    DecodeCfg(b, d);
    EXPECT_EQ(d.FreeColName1, QStringLiteral("Free Col1           "));
    // The X1 block starts at 11985 and ends at 12124: its tail past 12000 is untouched.
    EXPECT_EQ(d.CfgEmuOptX1.WinX1_1Op[0], 0);
    EXPECT_EQ(d.CfgEmuOptX1.DefEmuRun, 0);
}

TEST(CfgRecord, ClearBlanksTheTextsInsideTheOptionBlocks)
{
    CfgRecord c;
    SetDefaultCfg(c);
    ClearCfg(c);
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(c.CfgEmuOpt88.P88_4Op[i], QStringLiteral("  ")) << "P88_4Op[" << i << "]";
    EXPECT_EQ(c.CfgEmuOptX1.X1emu_3Op, ' ');
    // The numbers stay as they were.
    EXPECT_EQ(c.CfgEmuOpt88.M88_1Op[0], 49);
    EXPECT_EQ(c.CfgEmuOptX1.X1r_3Op[0], 250);
}

TEST(CfgRecord, ShortFileAfterAClearLeavesNoStaleTextInTheOptionBlocks)
{
    // A record whose option texts hold "0", cleared, then read from a file that ends before
    // the first of them (the PC-88 block's texts start at 11423).
    CfgRecord c;
    SetDefaultCfg(c);
    c.CfgEmuOpt88.P88_4Op.fill(QStringLiteral("0"));
    c.CfgEmuOptX1.X1emu_3Op = '0';
    CfgRecord shortSource;
    SetDefaultCfg(shortSource);
    const QByteArray shortFile = EncodeCfg(shortSource).left(11400);
    ClearCfg(c);
    DecodeCfg(shortFile, c);
    const QByteArray saved = EncodeCfg(c);
    ASSERT_EQ(saved.size(), kCfgSize);
    EXPECT_EQ(saved.mid(11423, 12), QByteArray("            "));
    EXPECT_EQ(saved[12036], ' ');
    EXPECT_EQ(saved.left(11400), shortFile);
}
