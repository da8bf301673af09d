#include "data/ByteCodec.h"

#include "util/Sjis.h"

#include <bit>
#include <cstring>

namespace tv {

namespace {
bool isLeadByte(unsigned char c)
{
    return (c >= 0x81 && c <= 0x9F) || (c >= 0xE0 && c <= 0xFC);
}
} // namespace

QByteArray CutSjisBytes(const QByteArray& sjis, int width)
{
    if (sjis.size() <= width)
        return sjis;
    int i = 0;
    while (i < width) {
        int step = isLeadByte(static_cast<unsigned char>(sjis[i])) ? 2 : 1;
        if (i + step > width)
            break;
        i += step;
    }
    return sjis.left(i);
}

void ByteWriter::u8(uint8_t v)
{
    out_.append(static_cast<char>(v));
}

void ByteWriter::i16(int16_t v)
{
    auto u = static_cast<uint16_t>(v);
    out_.append(static_cast<char>(u & 0xFF));
    out_.append(static_cast<char>(u >> 8));
}

void ByteWriter::i32(int32_t v)
{
    auto u = static_cast<uint32_t>(v);
    for (int i = 0; i < 4; ++i)
        out_.append(static_cast<char>((u >> (8 * i)) & 0xFF));
}

void ByteWriter::f32(float v)
{
    i32(static_cast<int32_t>(std::bit_cast<uint32_t>(v)));
}

void ByteWriter::text(const QString& v, int width)
{
    raw(CutSjisBytes(ToSjis(v), width), width, ' ');
}

void ByteWriter::raw(const QByteArray& v, int width, char fill)
{
    QByteArray b = v.left(width);
    out_.append(b);
    out_.append(QByteArray(width - b.size(), fill));
}

bool ByteReader::take(int n, const char*& p)
{
    if (n < 0 || remaining() < n) {
        pos_ += n;
        return false;
    }
    p = in_.constData() + pos_;
    pos_ += n;
    return true;
}

bool ByteReader::u8(uint8_t& v)
{
    const char* p;
    if (!take(1, p))
        return false;
    v = static_cast<uint8_t>(p[0]);
    return true;
}

bool ByteReader::i16(int16_t& v)
{
    const char* p;
    if (!take(2, p))
        return false;
    v = static_cast<int16_t>(static_cast<uint8_t>(p[0]) | (static_cast<uint8_t>(p[1]) << 8));
    return true;
}

bool ByteReader::i32(int32_t& v)
{
    const char* p;
    if (!take(4, p))
        return false;
    uint32_t u = 0;
    for (int i = 3; i >= 0; --i)
        u = (u << 8) | static_cast<uint8_t>(p[i]);
    v = static_cast<int32_t>(u);
    return true;
}

bool ByteReader::f32(float& v)
{
    int32_t i;
    if (!i32(i))
        return false;
    v = std::bit_cast<float>(static_cast<uint32_t>(i));
    return true;
}

bool ByteReader::text(QString& v, int width)
{
    const char* p;
    if (!take(width, p))
        return false;
    v = FromSjis(p, width);
    return true;
}

bool ByteReader::unfilledText(QString& v, int width)
{
    const char* p;
    if (!take(width, p))
        return false;
    qsizetype n = width;
    while (n > 0 && p[n - 1] == ' ')
        --n;
    v = FromSjis(p, n);
    return true;
}

bool ByteReader::raw(QByteArray& v, int width)
{
    const char* p;
    if (!take(width, p))
        return false;
    v = QByteArray(p, width);
    return true;
}

} // namespace tv
