#include "util/WidthConv.h"

namespace tv {

namespace {

// Half-width katakana U+FF61..U+FF9F against their full-width forms, in code order.
const char16_t kKanaFull[] =
    u"。「」、・ヲァィゥェォャュョッーアイウエオカキクケコサシスセソタチツテト"
    u"ナニヌネノハヒフヘホマミムメモヤユヨラリルレロワン゛゜";
constexpr char16_t kHalfKanaFirst = 0xFF61;
constexpr char16_t kHalfKanaLast = 0xFF9F;
constexpr char16_t kHalfVoiced = 0xFF9E;
constexpr char16_t kHalfSemiVoiced = 0xFF9F;

// A full-width kana that takes the voiced mark: カ..ト and ハ..ホ, and ウ.
bool TakesVoiced(char16_t c)
{
    static const QString kBases = QStringLiteral("カキクケコサシスセソタチツテトハヒフヘホウ");
    return kBases.contains(QChar(c));
}

bool TakesSemiVoiced(char16_t c)
{
    static const QString kBases = QStringLiteral("ハヒフヘホ");
    return kBases.contains(QChar(c));
}

char16_t Voiced(char16_t c)
{
    return c == u'ウ' ? u'ヴ' : char16_t(c + 1);
}

} // namespace

QString ToFullWidth(const QString& text)
{
    QString out;
    out.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t c = text.at(i).unicode();
        if (c == u' ') {
            out += QChar(0x3000);
        } else if (c >= 0x21 && c <= 0x7E) {
            out += QChar(char16_t(c - 0x21 + 0xFF01));
        } else if (c >= kHalfKanaFirst && c <= kHalfKanaLast) {
            char16_t full = kKanaFull[c - kHalfKanaFirst];
            const char16_t next = i + 1 < text.size() ? text.at(i + 1).unicode() : 0;
            if (next == kHalfVoiced && TakesVoiced(full)) {
                full = Voiced(full);
                ++i;
            } else if (next == kHalfSemiVoiced && TakesSemiVoiced(full)) {
                full = char16_t(full + 2);
                ++i;
            }
            out += QChar(full);
        } else {
            out += QChar(c);
        }
    }
    return out;
}

QString ToHalfWidth(const QString& text)
{
    static const QString kFull = QString::fromUtf16(kKanaFull);
    QString out;
    out.reserve(text.size());
    for (const QChar qc : text) {
        const char16_t c = qc.unicode();
        if (c == 0x3000) {
            out += QLatin1Char(' ');
        } else if (c >= 0xFF01 && c <= 0xFF5E) {
            out += QChar(char16_t(c - 0xFF01 + 0x21));
        } else if (const qsizetype k = kFull.indexOf(qc); k >= 0) {
            out += QChar(char16_t(kHalfKanaFirst + k));
        } else if (c == u'ヴ') {
            out += QChar(0xFF73);
            out += QChar(kHalfVoiced);
        } else if (TakesVoiced(char16_t(c - 1)) && c != u'ヴ') {
            out += QChar(char16_t(kHalfKanaFirst + kFull.indexOf(QChar(char16_t(c - 1)))));
            out += QChar(kHalfVoiced);
        } else if (TakesSemiVoiced(char16_t(c - 2))) {
            out += QChar(char16_t(kHalfKanaFirst + kFull.indexOf(QChar(char16_t(c - 2)))));
            out += QChar(kHalfSemiVoiced);
        } else {
            out += qc;
        }
    }
    return out;
}

int CountLineBreaks(const QString& text)
{
    int n = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text.at(i) == QLatin1Char('\r')) {
            ++n;
            if (i + 1 < text.size() && text.at(i + 1) == QLatin1Char('\n')) {
                ++i;
            }
        } else if (text.at(i) == QLatin1Char('\n')) {
            ++n;
        }
    }
    return n;
}

int CodePageMeasure(const QString& text)
{
    const int crlf = int(text.count(QStringLiteral("\r\n")));
    return 2 * (int(text.size()) - crlf);
}

} // namespace tv
