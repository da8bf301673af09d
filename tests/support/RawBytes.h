#pragma once
// Little-endian numbers read straight out of a byte array at a file offset, for tests that
// check layouts independently of the codec under test.
#include <QByteArray>

#include <bit>
#include <cstdint>

namespace tvtest {

inline uint8_t u8at(const QByteArray& b, int off)
{
    return static_cast<uint8_t>(b[off]);
}
inline int16_t i16at(const QByteArray& b, int off)
{
    return static_cast<int16_t>(u8at(b, off) | (u8at(b, off + 1) << 8));
}
inline int32_t i32at(const QByteArray& b, int off)
{
    uint32_t u = 0;
    for (int i = 3; i >= 0; --i)
        u = (u << 8) | u8at(b, off + i);
    return static_cast<int32_t>(u);
}
inline float f32at(const QByteArray& b, int off)
{
    return std::bit_cast<float>(static_cast<uint32_t>(i32at(b, off)));
}

} // namespace tvtest
