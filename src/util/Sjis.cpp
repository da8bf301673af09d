#include "util/Sjis.h"

#include <QStringDecoder>
#include <QStringEncoder>

namespace tv {

namespace {
// ICU converters are costly to open; keep one per thread. Stateless: every call stands alone.
QStringEncoder& encoder()
{
    thread_local QStringEncoder enc("windows-31j", QStringConverter::Flag::Stateless);
    return enc;
}
QStringDecoder& decoder()
{
    thread_local QStringDecoder dec("windows-31j", QStringConverter::Flag::Stateless);
    return dec;
}
} // namespace

QByteArray ToSjis(const QString& text)
{
    if (text.isEmpty())
        return {};
    QByteArray out = encoder().encode(text);
    encoder().resetState();
    return out;
}

QString FromSjis(const char* data, qsizetype len)
{
    if (len <= 0)
        return {};
    QString out = decoder().decode(QByteArrayView(data, len));
    decoder().resetState();
    return out;
}

QString FromSjis(const QByteArray& bytes)
{
    return FromSjis(bytes.constData(), bytes.size());
}

qsizetype SjisLen(const QString& text)
{
    return ToSjis(text).size();
}

} // namespace tv
