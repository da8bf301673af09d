#pragma once
// A literal rendering of FitText's cut, by whole-text byte conversions, against which the
// real one is checked on generated and fuzzed texts.
#include "util/Sjis.h"

#include <QString>

namespace tvtest {

// The platform's conversion turns half a double-byte character at the end into one character
// of its own; the decoder here drops it, so it is put back as a replacement character.
inline QString DecodeCut(const QByteArray& bytes)
{
    QString s = tv::FromSjis(bytes);
    if (tv::ToSjis(s).size() < bytes.size())
        s += QChar(QChar::ReplacementCharacter);
    return s;
}

// The cut done the literal way: whole-text byte conversions, inserted breaks, the line count,
// then the byte limit.
inline QString LiteralFitText(const QString& text, int width, int count, int limit)
{
    if (text.isEmpty())
        return text;
    const QString crlf = QStringLiteral("\r\n");
    QString s = text;
    qsizetype pos = 0;
    for (int n = 1;; ++n) {
        qsizetype p = s.indexOf(crlf, pos);
        const QString line = p < 0 ? s.mid(pos) : s.mid(pos, p - pos);
        if (tv::ToSjis(line).size() > width) {
            QString part = DecodeCut(tv::ToSjis(line).left(width + 1));
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
    if (tv::ToSjis(s).size() > limit) {
        s = DecodeCut(tv::ToSjis(s).left(limit + 1));
        s.chop(1);
        if (s.endsWith(QLatin1Char('\r')))
            s.chop(1);
    }
    return s;
}

} // namespace tvtest
