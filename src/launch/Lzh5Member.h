#pragma once
// The pieces of the LZH writer that work on memory: the -lh5- stream, the CRC-16 of the format
// and one archive member (header and data). WriteLzh5Archive puts them together with files.
#include <QByteArray>
#include <QDateTime>
#include <cstdint>
#include <functional>

namespace tv {

// CRC-16 of LZH archives: polynomial 0xA001 (0x8005 reflected), start value 0.
uint16_t LzhCrc16(const uint8_t* data, qsizetype size, uint16_t crc = 0);

// Appends the -lh5- stream of `size` bytes to `out`. Gives up (false, `out` then holds a part)
// as soon as the stream grows beyond `limit` bytes, so that data that does not compress costs
// no more than its own size. `progress` receives the input bytes consumed so far.
bool EncodeLh5(const uint8_t* data, qsizetype size, QByteArray& out, qsizetype limit,
               const std::function<void(qint64)>& progress = {});

// MS-DOS date (high word) and time (low word) of a local time; before 1980 gives
// 1980-01-01 00:00, after 2107 the last second of 2107, seconds rounded down to even.
uint32_t DosDateTime(const QDateTime& local);

enum class LzhMethod {
    Smallest, // -lh5-, or -lh0- when -lh5- is not smaller
    Lh5,      // -lh5- whatever its size (checks of the encoder's rare paths)
};

// Appends one member: a level-1 header (OS 'M') and the data by `method`. `sjisName` is the
// bare member name in Shift-JIS. False when the member cannot be written in the format (a file
// of 4 GiB or more, an empty name or one longer than the header can carry).
bool AppendLzhMember(QByteArray& out, const QByteArray& sjisName, uint32_t dosDateTime,
                     const uint8_t* data, qsizetype size,
                     const std::function<void(qint64)>& progress = {},
                     LzhMethod method = LzhMethod::Smallest);

} // namespace tv
