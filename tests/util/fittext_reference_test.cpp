// FitText against a literal rendering of the cut (whole-text byte conversions, inserted
// breaks, cut by line count, cut by bytes) on many generated texts.
#include "util/Sjis.h"
#include "util/SubFunction.h"
#include "support/FitTextReference.h"

#include <QRandomGenerator>
#include <QStringList>
#include <gtest/gtest.h>

using namespace tv;

namespace {

using tvtest::DecodeCut;
using tvtest::LiteralFitText;

QString Shown(const QString& t)
{
    QString s = t;
    return s.replace(QLatin1Char('\r'), QLatin1String("\\r"))
        .replace(QLatin1Char('\n'), QLatin1String("\\n"));
}

QString RandomText(QRandomGenerator& rng)
{
    static const QStringList pieces = {"a",  "b",  "あ", "漢",   "ｱ",    "ﾞ",  "①", "～",
                                       "\r", "\n", " ",  "\r\n", "\r\n", "－", "Z"};
    QString t;
    const int len = rng.bounded(0, 30);
    for (int i = 0; i < len; ++i)
        t += pieces.at(rng.bounded(pieces.size()));
    return t;
}

} // namespace

TEST(FitTextReference, DecoderDropsHalfACharacterAtTheEnd)
{
    // Why FitText measures characters instead of decoding a byte cut: the decoder silently
    // drops a dangling lead byte, so "drop the last character" would drop a whole one.
    EXPECT_EQ(FromSjis(QByteArray::fromHex("82A082")), QStringLiteral("あ"));
    EXPECT_EQ(DecodeCut(QByteArray::fromHex("82A082")).size(), 2);
}

TEST(FitTextReference, AgreesWithLiteralCutOnGeneratedTexts)
{
    QRandomGenerator rng(20261121);
    for (int i = 0; i < 4000; ++i) {
        const QString t = RandomText(rng);
        const int width = rng.bounded(0, 12);
        const int count = rng.bounded(0, 6);
        const int limit = rng.bounded(-1, 40);
        ASSERT_EQ(FitText(t, width, count, limit), LiteralFitText(t, width, count, limit))
            << "text " << Shown(t).toStdString() << " width " << width << " count " << count
            << " limit " << limit;
    }
}
