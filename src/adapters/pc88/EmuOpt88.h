#pragma once
// The option block of the PC-8x01 family: the settings of all six PC-88 emulators for one
// title, 447 bytes packed on disk. Element n of an array belongs to the control of index n.
#include <QString>
#include <array>
#include <cstdint>

namespace tv {

class ByteReader;
class ByteWriter;

inline constexpr int kEmuOpt88Size = 447;

struct EmuOpt88 {
    uint8_t DefEmuRun = 0;
    std::array<uint8_t, 44> P88_1Op{};
    std::array<uint8_t, 10> P88_2Op{};
    // Numbered 8..16 on disk, continuing P88_2Op; elements 0..7 exist only to keep the
    // numbering and are never stored.
    std::array<int32_t, 17> P88_3Op{};
    std::array<QString, 6> P88_4Op{}; // two characters each
    std::array<uint8_t, 32> M88_1Op{};
    std::array<uint8_t, 32> M88_2Op{};
    std::array<uint8_t, 32> M88_3Op{};
    std::array<uint8_t, 12> M88_4Op{};
    std::array<uint8_t, 20> M88_5Op{};
    std::array<uint8_t, 3> M88_6Op{};
    std::array<int16_t, 5> M88_7Op{};
    std::array<int32_t, 5> M88_8Op{};
    std::array<uint8_t, 8> Pc8_1Op{};
    std::array<int16_t, 2> Pc8_2Op{};
    std::array<uint8_t, 32> X88_1Op{};
    std::array<uint8_t, 60> Q88_1Op{};
    std::array<uint8_t, 13> Q88_2Op{};
    std::array<int16_t, 5> Q88_3Op{};
    std::array<float, 5> Q88_4Op{};
    std::array<int32_t, 5> Q88_5Op{};
    std::array<uint8_t, 10> J80_1Op{};
    std::array<int16_t, 3> J80_2Op{};

    bool operator==(const EmuOpt88&) const = default;
};

// The working copy of the current title's block, passed between the catalogue, the dialogs
// and the launch.
inline EmuOpt88 CurEmuOpt88;

void WriteEmuOpt88(ByteWriter& w, const EmuOpt88& o);
void ReadEmuOpt88(ByteReader& r, EmuOpt88& o);
// The defaults of a fresh configuration; every element not named there is 0.
void SetDefaultEmuOpt88(EmuOpt88& o);

} // namespace tv
