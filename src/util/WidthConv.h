#pragma once
// Half-width and full-width forms of Japanese text, as the Japanese conversion tables of
// desktop systems define them: Latin letters, digits and signs (U+0021..U+007E and the blank
// against U+FF01..U+FF5E and the ideographic blank) and katakana, whose half-width voiced and
// semi-voiced forms are two characters ("ｶﾞ" <-> "ガ", "ﾊﾟ" <-> "パ"). Other text is left alone.
#include <QString>

namespace tv {

QString ToFullWidth(const QString& text);
QString ToHalfWidth(const QString& text);

// The length measure of the registration's limits: every character counts two, as the
// count of characters of a text's code-page bytes read back as text did; a line break
// (CR LF or a lone CR or LF) is one character. Half-width and full-width text count alike.
int CodePageMeasure(const QString& text);
// The number of line breaks (CR LF, or a lone CR or LF) in the text.
int CountLineBreaks(const QString& text);

} // namespace tv
