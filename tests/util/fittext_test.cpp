// Cutting text to the line widths, line counts and byte limits of fixed fields.
#include "util/Sjis.h"
#include "util/SubFunction.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <climits>

using namespace tv;

namespace {
const QString kCrLf = QStringLiteral("\r\n");
QString Rep(const QString& s, int n)
{
    return s.repeated(n);
}
const QString kA = QStringLiteral("あ"); // two bytes
} // namespace

TEST(FitText, EmptyTextAsItIs)
{
    EXPECT_EQ(FitText(QString(), 72, 1, 72), QString());
    EXPECT_EQ(FitText(QString(), 0, 0, 0), QString());
}

TEST(FitText, ShortLineStays)
{
    EXPECT_EQ(FitText(QStringLiteral("ABC"), 72, 1, 72), QStringLiteral("ABC"));
    EXPECT_EQ(FitText(Rep("x", 72), 72, 1, 72), Rep("x", 72));
    EXPECT_EQ(FitText(Rep(kA, 36), 72, 1, 72), Rep(kA, 36));
}

TEST(FitText, OneLineFieldOfSingleByteText)
{
    EXPECT_EQ(FitText(Rep("x", 100), 72, 1, 72), Rep("x", 72));
    EXPECT_EQ(FitText(Rep("x", 73), 72, 1, 72), Rep("x", 72));
}

TEST(FitText, SeventyThreeDoubleByteCharactersBreakAfterThirtySix)
{
    const QString t = Rep(kA, 73);
    EXPECT_EQ(FitText(t, 72, 1, 72), Rep(kA, 36));
    // The remainder goes on as the next line and is broken again.
    EXPECT_EQ(FitText(t, 72, 2, 1000), Rep(kA, 36) + kCrLf + Rep(kA, 36));
    EXPECT_EQ(FitText(t, 72, 3, 1000), Rep(kA, 36) + kCrLf + Rep(kA, 36) + kCrLf + kA);
}

TEST(FitText, BreakNeverSplitsADoubleByteCharacter)
{
    // "x" then double-byte text: byte 72 ends in the middle of a character.
    const QString t = QStringLiteral("x") + Rep(kA, 50);
    const QString r = FitText(t, 72, 1, 1000);
    EXPECT_EQ(r, QStringLiteral("x") + Rep(kA, 35));
    EXPECT_EQ(SjisLen(r), 71);
}

TEST(FitText, BoundaryOnACharacterEdgeDropsOneMoreCharacter)
{
    // 72 + 1 bytes end exactly behind a double-byte character; that character is dropped all
    // the same, so the line holds 71 bytes. Kept as the cut always worked.
    const QString t = QStringLiteral("x") + Rep(kA, 36) + QStringLiteral("yz");
    EXPECT_EQ(FitText(t, 72, 1, 1000), QStringLiteral("x") + Rep(kA, 35));
    EXPECT_EQ(FitText(t, 72, 2, 1000),
              QStringLiteral("x") + Rep(kA, 35) + kCrLf + kA + QStringLiteral("yz"));
}

TEST(FitText, HalfWidthKatakanaCountsOneByte)
{
    const QString t = QStringLiteral("ｱｲｳｴｵｶｷ");
    EXPECT_EQ(FitText(t, 3, 3, 100), QStringLiteral("ｱｲｳ\r\nｴｵｶ\r\nｷ"));
    EXPECT_EQ(FitText(t, 7, 1, 100), t);
}

TEST(FitText, LinesEndInCrLf)
{
    const QString t = QStringLiteral("abc\r\ndef\r\nghi");
    EXPECT_EQ(FitText(t, 72, 3, 100), t);
    EXPECT_EQ(FitText(t, 72, 2, 100), QStringLiteral("abc\r\ndef"));
    EXPECT_EQ(FitText(t, 72, 1, 100), QStringLiteral("abc"));
}

TEST(FitText, TrailingBreakStartsAnEmptyLastLine)
{
    EXPECT_EQ(FitText(QStringLiteral("abc\r\n"), 72, 1, 100), QStringLiteral("abc"));
    EXPECT_EQ(FitText(QStringLiteral("abc\r\n"), 72, 2, 100), QStringLiteral("abc\r\n"));
}

TEST(FitText, LoneCrOrLfIsNoLineBreak)
{
    const QString t = QStringLiteral("ab\ncd\ref");
    EXPECT_EQ(FitText(t, 72, 1, 100), t);
    EXPECT_EQ(FitText(t, 4, 2, 100), QStringLiteral("ab\nc\r\nd\ref"));
}

TEST(FitText, BrokenLinesCountTowardsTheLineCount)
{
    const QString t = Rep("x", 10) + kCrLf + QStringLiteral("yy");
    EXPECT_EQ(FitText(t, 4, 3, 100), QStringLiteral("xxxx\r\nxxxx\r\nxx"));
    EXPECT_EQ(FitText(t, 4, 4, 100), QStringLiteral("xxxx\r\nxxxx\r\nxx\r\nyy"));
}

TEST(FitText, ByteLimitCutsWholeText)
{
    EXPECT_EQ(FitText(QStringLiteral("abcdef"), 72, 5, 4), QStringLiteral("abcd"));
    EXPECT_EQ(FitText(QStringLiteral("abcdef"), 72, 5, 6), QStringLiteral("abcdef"));
    EXPECT_EQ(FitText(QStringLiteral("ab\r\ncd"), 72, 5, 100), QStringLiteral("ab\r\ncd"));
}

TEST(FitText, ByteLimitNeverLeavesHalfALineBreak)
{
    const QString t = QStringLiteral("abc\r\ndef");
    EXPECT_EQ(FitText(t, 72, 2, 3), QStringLiteral("abc"));     // cut behind the CR
    EXPECT_EQ(FitText(t, 72, 2, 4), QStringLiteral("abc"));     // cut behind the LF
    EXPECT_EQ(FitText(t, 72, 2, 5), QStringLiteral("abc\r\n")); // a whole break may stay
    EXPECT_EQ(FitText(t, 72, 2, 6), QStringLiteral("abc\r\nd"));
    for (int limit = 0; limit < 12; ++limit) {
        const QString r = FitText(t, 72, 2, limit);
        EXPECT_FALSE(r.endsWith(QLatin1Char('\r'))) << limit;
        EXPECT_LE(SjisLen(r), limit) << limit;
    }
}

TEST(FitText, ByteLimitNeverLeavesHalfADoubleByteCharacter)
{
    const QString t = Rep(kA, 2);
    EXPECT_EQ(FitText(t, 72, 1, 3), kA);
    EXPECT_EQ(FitText(t, 72, 1, 2), kA);
    EXPECT_EQ(FitText(t, 72, 1, 1), QString());
    EXPECT_EQ(FitText(t, 72, 1, 0), QString());
    const QString mixed = QStringLiteral("①～－ｱA漢字");
    for (int limit = 0; limit <= SjisLen(mixed); ++limit) {
        const QString r = FitText(mixed, 72, 1, limit);
        EXPECT_TRUE(mixed.startsWith(r)) << limit;
        EXPECT_LE(SjisLen(r), limit) << limit;
        EXPECT_FALSE(r.contains(QChar(QChar::ReplacementCharacter))) << limit;
    }
}

TEST(FitText, CommentFieldLimits)
{
    // Several lines of mixed text in a multi-line field: every line fits its width, the
    // number of lines and the bytes their limits.
    QString t;
    for (int i = 0; i < 20; ++i)
        t += QStringLiteral("行%1：").arg(i) + Rep(QStringLiteral("テキストabc"), i % 7) + kCrLf;
    const QString r = FitText(t, 40, 10, 300);
    EXPECT_LE(SjisLen(r), 300);
    const QStringList lines = r.split(kCrLf);
    EXPECT_LE(lines.size(), 10);
    for (const QString& l : lines)
        EXPECT_LE(SjisLen(l), 40) << l.toStdString();
    EXPECT_FALSE(r.endsWith(QLatin1Char('\r')));
}

TEST(FitText, CharactersOutsideTheCodePageAreKeptWhenTheyFit)
{
    const QString t = QStringLiteral("😀a");
    EXPECT_EQ(FitText(t, 72, 1, 72), t);
}

TEST(FitText, TooNarrowForACharacterGivesEmptyLinesAndEnds)
{
    EXPECT_EQ(FitText(kA, 1, 3, 100), QStringLiteral("\r\n\r\n"));
    EXPECT_EQ(FitText(kA, 0, 1, 100), QString());
    EXPECT_EQ(FitText(QStringLiteral("ab"), -5, 2, 100), QStringLiteral("\r\n"));
    const QString r = FitText(kA, 1, INT_MAX, 10);
    EXPECT_LE(SjisLen(r), 10);
    EXPECT_FALSE(r.endsWith(QLatin1Char('\r')));
}

TEST(FitText, ZeroLineCountOrNegativeLimitGivesEmpty)
{
    EXPECT_EQ(FitText(QStringLiteral("abc"), 72, 0, 100), QString());
    EXPECT_EQ(FitText(QStringLiteral("abc"), 72, 1, -1), QString());
}

TEST(FitText, LongTextIsFast)
{
    const QString t = Rep(QStringLiteral("長いテキストabc\r\n"), 20000);
    const QString r = FitText(t, 72, 5, 500);
    EXPECT_LE(SjisLen(r), 500);
    EXPECT_EQ(r.split(kCrLf).size(), 5);
}

TEST(FitText, UnpairedSurrogatesNeverPassTheLimits)
{
    const QString t = QString(QChar(0xDBFF)) + QChar(0x24FF) + QChar(0x0333);
    for (int limit = 0; limit < 8; ++limit) {
        const QString r = FitText(t, 2, 2, limit);
        EXPECT_LE(SjisLen(r), limit) << limit;
        for (const QString& line : r.split(QStringLiteral("\r\n")))
            EXPECT_LE(SjisLen(line), 2) << limit;
    }
}

TEST(FitText, CharactersWithoutBytesAreNotTheOnesDropped)
{
    // U+200E has no Shift-JIS form and converts to nothing.
    const QString t = QStringLiteral("ab\u200Ecd");
    ASSERT_EQ(SjisLen(t), 4);
    EXPECT_EQ(FitText(t, 72, 1, 2), QStringLiteral("ab\u200E"));
    EXPECT_EQ(FitText(t, 72, 1, 3), QStringLiteral("ab\u200Ec"));
    EXPECT_EQ(FitText(t, 3, 2, 100), QStringLiteral("ab\u200Ec\r\nd"));
}
