// FitText on arbitrary text and limits: it never crashes, never exceeds its limits, never
// ends in half a line break, and for text of the code page agrees with a literal cut done by
// whole-text byte conversions.
#include "util/Sjis.h"
#include "util/SubFunction.h"
#include "support/FitTextReference.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

using tvtest::LiteralFitText;

void Check(bool ok)
{
    if (!ok)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 4)
        return 0;
    const int width = data[0] % 80;
    const int count = data[1] % 12;
    const int limit = static_cast<int>(data[2]) - 1;
    const bool pieces = data[3] & 1;
    data += 4;
    size -= 4;
    if (size > 600)
        size = 600;

    QString text;
    if (pieces) {
        // Text of the code page from a small alphabet, compared with the literal cut.
        static const QStringList alphabet = {"a",  "b",  "あ", "漢",   "ｱ",  "ﾞ", "①",  "～",
                                             "\r", "\n", " ",  "\r\n", "－", "Z", "ソ", "\\"};
        for (size_t i = 0; i < size; ++i)
            text += alphabet.at(data[i] % alphabet.size());
    } else {
        std::u16string units(size / 2, u'\0');
        std::memcpy(units.data(), data, units.size() * 2);
        text = QString::fromStdU16String(units);
    }
    const QString r = tv::FitText(text, width, count, limit);
    if (!text.isEmpty()) {
        Check(tv::SjisLen(r) <= std::max(limit, 0));
        Check(r.split(QStringLiteral("\r\n")).size() <= std::max(count, 1));
    }
    if (pieces) {
        Check(r == LiteralFitText(text, width, count, limit));
        for (const QString& line : r.split(QStringLiteral("\r\n")))
            Check(tv::SjisLen(line) <= width);
    }
    return 0;
}
