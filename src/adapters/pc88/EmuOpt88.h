#pragma once
// The option block of the PC-8x01 family: the settings of all six PC-88 emulators for one
// title, 447 bytes packed on disk. Element n of an array belongs to the control of index n.
#include <QString>
#include <array>
#include <cstdint>
#include <type_traits>

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

// The block's one field walk in file order, for the codecs of data/ByteCodec.h; the
// configuration and catalogue walks call it for their blocks. `Opt` is EmuOpt88, const for a
// writer.
template <typename Io, typename Opt> void WalkEmuOpt88(Io& io, Opt& o)
{
    static_assert(std::is_same_v<std::remove_const_t<Opt>, EmuOpt88>);
    io.num(o.DefEmuRun);
    io.num(o.P88_1Op);
    io.num(o.P88_2Op);
    for (int i = 8; i <= 16; ++i)
        io.num(o.P88_3Op[i]);
    for (auto& t : o.P88_4Op)
        io.text(t, 2);
    io.num(o.M88_1Op);
    io.num(o.M88_2Op);
    io.num(o.M88_3Op);
    io.num(o.M88_4Op);
    io.num(o.M88_5Op);
    io.num(o.M88_6Op);
    io.num(o.M88_7Op);
    io.num(o.M88_8Op);
    io.num(o.Pc8_1Op);
    io.num(o.Pc8_2Op);
    io.num(o.X88_1Op);
    io.num(o.Q88_1Op);
    io.num(o.Q88_2Op);
    io.num(o.Q88_3Op);
    io.num(o.Q88_4Op);
    io.num(o.Q88_5Op);
    io.num(o.J80_1Op);
    io.num(o.J80_2Op);
}

void WriteEmuOpt88(ByteWriter& w, const EmuOpt88& o);
void ReadEmuOpt88(ByteReader& r, EmuOpt88& o);
// The defaults of a fresh configuration; every element not named there is 0.
void SetDefaultEmuOpt88(EmuOpt88& o);

} // namespace tv
