// Half-width and full-width conversions and the length measure of the registration's limits.
#include "util/WidthConv.h"

#include <gtest/gtest.h>

namespace {

using namespace tv;

TEST(WidthConv, LatinDigitsAndSignsToFullWidth)
{
    EXPECT_EQ(ToFullWidth(QStringLiteral("Title 12!~")), QStringLiteral("Ｔｉｔｌｅ　１２！～"));
    EXPECT_EQ(ToFullWidth(QStringLiteral("A:b")), QStringLiteral("Ａ：ｂ"));
}

TEST(WidthConv, HalfKatakanaCombinesMarks)
{
    EXPECT_EQ(ToFullWidth(QStringLiteral("ｶﾞﾊﾟｳﾞﾎﾟﾝ")), QStringLiteral("ガパヴポン"));
    EXPECT_EQ(ToFullWidth(QStringLiteral("ｱﾞ")), QStringLiteral("ア゛"));
    EXPECT_EQ(ToFullWidth(QStringLiteral("｢ｼｭｰﾃｨﾝｸﾞ｣､｡･")),
              QStringLiteral("「シューティング」、。・"));
}

TEST(WidthConv, FullWidthToHalfSplitsMarks)
{
    EXPECT_EQ(ToHalfWidth(QStringLiteral("ガパヴポン")), QStringLiteral("ｶﾞﾊﾟｳﾞﾎﾟﾝ"));
    EXPECT_EQ(ToHalfWidth(QStringLiteral("ＲＰＧ　１９８５")), QStringLiteral("RPG 1985"));
    EXPECT_EQ(ToHalfWidth(QStringLiteral("アクションシューティング")),
              QStringLiteral("ｱｸｼｮﾝｼｭｰﾃｨﾝｸﾞ"));
    EXPECT_EQ(ToHalfWidth(QStringLiteral("ヲァィゥェォャュョッ")), QStringLiteral("ｦｧｨｩｪｫｬｭｮｯ"));
}

TEST(WidthConv, OtherTextStays)
{
    EXPECT_EQ(ToHalfWidth(QStringLiteral("日本ひらがな")), QStringLiteral("日本ひらがな"));
    EXPECT_EQ(ToFullWidth(QStringLiteral("日本ひらがな")), QStringLiteral("日本ひらがな"));
    EXPECT_EQ(ToHalfWidth(QString()), QString());
}

TEST(WidthConv, MeasureCountsEveryCharacterTwice)
{
    EXPECT_EQ(CodePageMeasure(QStringLiteral("abc")), 6);
    EXPECT_EQ(CodePageMeasure(QStringLiteral("あいう")), 6);
    EXPECT_EQ(CodePageMeasure(QStringLiteral("a\r\nb")), 6);
    EXPECT_EQ(CountLineBreaks(QStringLiteral("a\r\nb\nc\rd")), 3);
    EXPECT_EQ(CountLineBreaks(QStringLiteral("abc")), 0);
}

} // namespace
