#pragma once
// The option blocks of the FM-7 family (206 bytes packed) and the X1 family (139 bytes).
#include <array>
#include <cstdint>
#include <type_traits>

namespace tv {

class ByteReader;
class ByteWriter;

inline constexpr int kEmuOptFMSize = 206;
inline constexpr int kEmuOptX1Size = 139;

struct EmuOptFM {
    uint8_t DefEmuRun = 0;
    std::array<uint8_t, 60> Xm7Win_1Op{};
    std::array<int16_t, 10> Xm7Win_2Op{};
    std::array<uint8_t, 110> Xm7Win_3Op{}; // key map: FM-7 key number -> DirectInput code
    std::array<uint8_t, 9> Em7Win_1Op{};
    std::array<int16_t, 3> Em7Win_2Op{};

    bool operator==(const EmuOptFM&) const = default;
};

struct EmuOptX1 {
    uint8_t DefEmuRun = 0;
    std::array<uint8_t, 9> X1r_1Op{};
    std::array<uint8_t, 7> X1r_2Op{};
    std::array<int32_t, 3> X1r_3Op{};
    std::array<uint8_t, 12> X1emu_1Op{};
    std::array<uint8_t, 10> X1emu_2Op{};
    uint8_t X1emu_3Op = ' '; // one Shift-JIS byte, the value of "/D"
    std::array<uint8_t, 35> Xmil_1Op{};
    std::array<int16_t, 3> Xmil_2Op{};
    std::array<uint8_t, 5> Xmil_3Op{};
    std::array<uint8_t, 5> Xmil_4Op{};
    std::array<int32_t, 3> Xmil_5Op{};
    std::array<uint8_t, 24> WinX1_1Op{};

    bool operator==(const EmuOptX1&) const = default;
};

// The working copies of the current title's blocks, passed between the catalogue, the option
// dialogs and the launch.
inline EmuOptFM CurEmuOptFM;
inline EmuOptX1 CurEmuOptX1;

// Each block's one field walk in file order, for the codecs of data/ByteCodec.h; the
// configuration and catalogue walks call them for their blocks. `Opt` is const for a writer.
template <typename Io, typename Opt> void WalkEmuOptFM(Io& io, Opt& o)
{
    static_assert(std::is_same_v<std::remove_const_t<Opt>, EmuOptFM>);
    io.num(o.DefEmuRun);
    io.num(o.Xm7Win_1Op);
    io.num(o.Xm7Win_2Op);
    io.num(o.Xm7Win_3Op);
    io.num(o.Em7Win_1Op);
    io.num(o.Em7Win_2Op);
}

template <typename Io, typename Opt> void WalkEmuOptX1(Io& io, Opt& o)
{
    static_assert(std::is_same_v<std::remove_const_t<Opt>, EmuOptX1>);
    io.num(o.DefEmuRun);
    io.num(o.X1r_1Op);
    io.num(o.X1r_2Op);
    io.num(o.X1r_3Op);
    io.num(o.X1emu_1Op);
    io.num(o.X1emu_2Op);
    io.chr(o.X1emu_3Op);
    io.num(o.Xmil_1Op);
    io.num(o.Xmil_2Op);
    io.num(o.Xmil_3Op);
    io.num(o.Xmil_4Op);
    io.num(o.Xmil_5Op);
    io.num(o.WinX1_1Op);
}

void WriteEmuOptFM(ByteWriter& w, const EmuOptFM& o);
void ReadEmuOptFM(ByteReader& r, EmuOptFM& o);
void SetDefaultEmuOptFM(EmuOptFM& o);

void WriteEmuOptX1(ByteWriter& w, const EmuOptX1& o);
void ReadEmuOptX1(ByteReader& r, EmuOptX1& o);
void SetDefaultEmuOptX1(EmuOptX1& o);

// The three ready key maps of XM7 for Win32 (0 "101", 1 "106", 2 "PC-98"), written into a
// key map array by FM-7 key number; keys outside the tables are not touched.
void ApplyXm7KeyMap(std::array<uint8_t, 110>& keys, int map);

} // namespace tv
