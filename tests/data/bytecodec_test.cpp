// The codecs of a field walk: one walk, three meanings.
#include "data/ByteCodec.h"

#include <gtest/gtest.h>

using namespace tv;

namespace {

struct Sample {
    QString name;
    QString note;
    uint8_t mark = 0;
    int16_t count = 0;
    std::array<uint8_t, 2> pair{};
};

template <typename Codec, typename Rec> void walk(Codec& io, Rec& s)
{
    io.text(s.name, 6);
    io.unfilledText(s.note, 6);
    io.chr(s.mark);
    io.num(s.count);
    io.num(s.pair);
}

} // namespace

TEST(FieldCodecs, WriterFillsTextsAndPacksNumbers)
{
    const Sample s{QStringLiteral("AB"), QStringLiteral(" c"), 'Z', 0x0102, {7, 8}};
    QByteArray out;
    ByteWriter w(out);
    FieldWriter io{w};
    walk(io, s);
    EXPECT_EQ(out, QByteArray("AB     c    Z\x02\x01\x07\x08", 17));
}

TEST(FieldCodecs, ReaderKeepsOrCutsTheBlankFill)
{
    const QByteArray in("AB     c    Z\x02\x01\x07\x08", 17);
    ByteReader r(in);
    FieldReader io{r};
    Sample s;
    walk(io, s);
    EXPECT_EQ(s.name, QStringLiteral("AB    "));
    EXPECT_EQ(s.note, QStringLiteral(" c")); // leading blanks stay
    EXPECT_EQ(s.mark, 'Z');
    EXPECT_EQ(s.count, 0x0102);
    EXPECT_EQ(s.pair, (std::array<uint8_t, 2>{7, 8}));
}

TEST(FieldCodecs, ReaderLeavesWhatTheDataDoesNotHold)
{
    const QByteArray in("NAME  no", 8); // ends inside the second text
    ByteReader r(in);
    FieldReader io{r};
    Sample s{QStringLiteral("old"), QStringLiteral("old"), 'Q', 5, {1, 2}};
    walk(io, s);
    EXPECT_EQ(s.name, QStringLiteral("NAME  "));
    EXPECT_EQ(s.note, QStringLiteral("old"));
    EXPECT_EQ(s.mark, 'Q');
    EXPECT_EQ(s.count, 5);
}

TEST(FieldCodecs, BlankerBlanksTextsAndZeroesNumbersOnlyWhenAsked)
{
    Sample s{QStringLiteral("AB"), QStringLiteral("cd"), 'Z', 9, {7, 8}};
    FieldBlanker textsOnly;
    walk(textsOnly, s);
    EXPECT_EQ(s.name, QStringLiteral("      "));
    EXPECT_EQ(s.note, QString());
    EXPECT_EQ(s.mark, ' ');
    EXPECT_EQ(s.count, 9);
    EXPECT_EQ(s.pair, (std::array<uint8_t, 2>{7, 8}));
    FieldBlanker all{.numbers = true};
    walk(all, s);
    EXPECT_EQ(s.count, 0);
    EXPECT_EQ(s.pair, (std::array<uint8_t, 2>{0, 0}));
}
