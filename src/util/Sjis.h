#pragma once
// Text is Unicode in memory and Shift-JIS (Windows-31J, code page 932) in every file.
#include <QByteArray>
#include <QString>

namespace tv {

QByteArray ToSjis(const QString& text);
QString FromSjis(const QByteArray& bytes);
QString FromSjis(const char* data, qsizetype len);
// Length of the text in Shift-JIS bytes.
qsizetype SjisLen(const QString& text);

} // namespace tv
