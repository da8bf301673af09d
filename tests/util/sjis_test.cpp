#include "util/Sjis.h"

#include <gtest/gtest.h>

using namespace tv;

namespace {
QByteArray Hex(const char* hex)
{
    return QByteArray::fromHex(hex);
}
} // namespace

TEST(Sjis, FullWidthTildeIsWaveDashCode)
{
    EXPECT_EQ(ToSjis(QStringLiteral("～")), Hex("8160"));
    EXPECT_EQ(FromSjis(Hex("8160")), QStringLiteral("～"));
}

TEST(Sjis, FullWidthHyphenMinus)
{
    EXPECT_EQ(ToSjis(QStringLiteral("－")), Hex("817C"));
    EXPECT_EQ(FromSjis(Hex("817C")), QStringLiteral("－"));
}

TEST(Sjis, CircledDigitOneIsNecExtension)
{
    EXPECT_EQ(ToSjis(QStringLiteral("①")), Hex("8740"));
    EXPECT_EQ(FromSjis(Hex("8740")), QStringLiteral("①"));
}

TEST(Sjis, HalfWidthKatakanaIsOneByteEach)
{
    EXPECT_EQ(ToSjis(QStringLiteral("ｱ")), Hex("B1"));
    EXPECT_EQ(ToSjis(QStringLiteral("ｶﾞ")), Hex("B6DE"));
    EXPECT_EQ(ToSjis(QStringLiteral("｡ﾟ")), Hex("A1DF"));
    EXPECT_EQ(SjisLen(QStringLiteral("ﾃｽﾄ")), 3);
    EXPECT_EQ(FromSjis(Hex("C3BDC4")), QStringLiteral("ﾃｽﾄ"));
}

TEST(Sjis, AsciiAndKanjiLengths)
{
    EXPECT_EQ(ToSjis(QStringLiteral("A\\~")), QByteArray("A\\~"));
    EXPECT_EQ(ToSjis(QStringLiteral("あ漢")), Hex("82A08ABF"));
    EXPECT_EQ(SjisLen(QStringLiteral("ゲームA")), 7);
    EXPECT_EQ(SjisLen(QString()), 0);
}

TEST(Sjis, RoundTripOfMixedText)
{
    const QString t = QStringLiteral("ﾊﾞｲﾄ数－①～テスト\r\nABC");
    EXPECT_EQ(FromSjis(ToSjis(t)), t);
}
