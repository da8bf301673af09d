// FitText against a literal rendering of the cut (whole-text byte conversions, inserted
// breaks, cut by line count, cut by bytes) on many generated texts.
#include "shell/Sjis.h"
#include "shell/SubFunction.h"

#include <QRandomGenerator>
#include <QStringList>
#include <gtest/gtest.h>

using namespace tv;

namespace {

// The platform's conversion turns half a double-byte character at the end into one character
// of its own; the decoder here drops it, so it is put back as a replacement character.
QString DecodeCut(const QByteArray& bytes)
{
    QString s = FromSjis(bytes);
    if (ToSjis(s).size() < bytes.size())
        s += QChar(QChar::ReplacementCharacter);
    return s;
}

QString LiteralFitText(const QString& text, int width, int count, int limit)
{
    if (text.isEmpty())
        return text;
    const QString crlf = QStringLiteral("\r\n");
    QString s = text;
    qsizetype pos = 0;
    for (int n = 1;; ++n) {
        qsizetype p = s.indexOf(crlf, pos);
        const QString line = p < 0 ? s.mid(pos) : s.mid(pos, p - pos);
        if (ToSjis(line).size() > width) {
            QString part = DecodeCut(ToSjis(line).left(width + 1));
            part.chop(1);
            s = s.left(pos) + part + crlf + s.mid(pos + part.size());
            p = pos + part.size();
        }
        if (n > count) {
            s = pos >= 2 ? s.left(pos - 2) : QString();
            break;
        }
        if (p < 0)
            break;
        pos = p + 2;
    }
    if (ToSjis(s).size() > limit) {
        s = DecodeCut(ToSjis(s).left(limit + 1));
        s.chop(1);
        if (s.endsWith(QLatin1Char('\r')))
            s.chop(1);
    }
    return s;
}

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
