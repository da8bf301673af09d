// The three packed option blocks member by member: each member written with values of its own
// is found at the offsets of the layout tables; bytes put at those offsets are read into the
// right members; the default blocks are, byte for byte, what the default tables say (every
// element not named there 0).
#include "adapters/fm7x1/EmuOptFMX1.h"
#include "adapters/pc88/EmuOpt88.h"
#include "data/ByteCodec.h"
#include "util/Sjis.h"

#include "support/RawBytes.h"

#include <gtest/gtest.h>

#include <bit>

using namespace tv;

namespace {

using tvtest::f32at;
using tvtest::i16at;
using tvtest::i32at;
using tvtest::u8at;

void put8(QByteArray& b, int off, int v)
{
    b[off] = static_cast<char>(v & 0xFF);
}
void put16(QByteArray& b, int off, int v)
{
    put8(b, off, v);
    put8(b, off + 1, v >> 8);
}
void put32(QByteArray& b, int off, int32_t v)
{
    for (int i = 0; i < 4; ++i)
        put8(b, off + i, static_cast<int>(static_cast<uint32_t>(v) >> (8 * i)));
}
void putF(QByteArray& b, int off, float v)
{
    put32(b, off, static_cast<int32_t>(std::bit_cast<uint32_t>(v)));
}

// Gives every element a value of its own, of the element's width.
struct Filler {
    int n = 1;
    template <size_t N> void operator()(std::array<uint8_t, N>& a)
    {
        for (auto& v : a)
            v = static_cast<uint8_t>(n++ % 253 + 1);
    }
    template <size_t N> void operator()(std::array<int16_t, N>& a)
    {
        for (auto& v : a)
            v = static_cast<int16_t>(-300 - 257 * n++);
    }
    template <size_t N> void operator()(std::array<int32_t, N>& a)
    {
        for (auto& v : a)
            v = -70000 - 65599 * n++;
    }
    template <size_t N> void operator()(std::array<float, N>& a)
    {
        for (auto& v : a)
            v = static_cast<float>(n++) + 0.375f;
    }
};

// Compares each element `first`.. of an array with the bytes at `off` onward.
template <size_t N>
void Check(const QByteArray& b, int off, const std::array<uint8_t, N>& a, const char* name,
           size_t first = 0)
{
    for (size_t i = first; i < N; ++i)
        EXPECT_EQ(u8at(b, off + int(i - first)), a[i]) << name << "[" << i << "] at " << off;
}
template <size_t N>
void Check(const QByteArray& b, int off, const std::array<int16_t, N>& a, const char* name,
           size_t first = 0)
{
    for (size_t i = first; i < N; ++i)
        EXPECT_EQ(i16at(b, off + 2 * int(i - first)), a[i]) << name << "[" << i << "] at " << off;
}
template <size_t N>
void Check(const QByteArray& b, int off, const std::array<int32_t, N>& a, const char* name,
           size_t first = 0)
{
    for (size_t i = first; i < N; ++i)
        EXPECT_EQ(i32at(b, off + 4 * int(i - first)), a[i]) << name << "[" << i << "] at " << off;
}
template <size_t N>
void Check(const QByteArray& b, int off, const std::array<float, N>& a, const char* name,
           size_t first = 0)
{
    for (size_t i = first; i < N; ++i)
        EXPECT_EQ(f32at(b, off + 4 * int(i - first)), a[i]) << name << "[" << i << "] at " << off;
}

// Every member of the PC-88 block against the offsets of its table.
void CheckAll88(const QByteArray& b, const EmuOpt88& o)
{
    ASSERT_EQ(b.size(), kEmuOpt88Size);
    EXPECT_EQ(u8at(b, 0), o.DefEmuRun);
    Check(b, 1, o.P88_1Op, "P88_1Op");
    Check(b, 45, o.P88_2Op, "P88_2Op");
    Check(b, 55, o.P88_3Op, "P88_3Op", 8); // numbered 8 to 16
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(FromSjis(b.mid(91 + 2 * i, 2)), o.P88_4Op[i]) << "P88_4Op[" << i << "]";
    Check(b, 103, o.M88_1Op, "M88_1Op");
    Check(b, 135, o.M88_2Op, "M88_2Op");
    Check(b, 167, o.M88_3Op, "M88_3Op");
    Check(b, 199, o.M88_4Op, "M88_4Op");
    Check(b, 211, o.M88_5Op, "M88_5Op");
    Check(b, 231, o.M88_6Op, "M88_6Op");
    Check(b, 234, o.M88_7Op, "M88_7Op");
    Check(b, 244, o.M88_8Op, "M88_8Op");
    Check(b, 264, o.Pc8_1Op, "Pc8_1Op");
    Check(b, 272, o.Pc8_2Op, "Pc8_2Op");
    Check(b, 276, o.X88_1Op, "X88_1Op");
    Check(b, 308, o.Q88_1Op, "Q88_1Op");
    Check(b, 368, o.Q88_2Op, "Q88_2Op");
    Check(b, 381, o.Q88_3Op, "Q88_3Op");
    Check(b, 391, o.Q88_4Op, "Q88_4Op");
    Check(b, 411, o.Q88_5Op, "Q88_5Op");
    Check(b, 431, o.J80_1Op, "J80_1Op");
    Check(b, 441, o.J80_2Op, "J80_2Op");
}

void CheckAllFM(const QByteArray& b, const EmuOptFM& o)
{
    ASSERT_EQ(b.size(), kEmuOptFMSize);
    EXPECT_EQ(u8at(b, 0), o.DefEmuRun);
    Check(b, 1, o.Xm7Win_1Op, "Xm7Win_1Op");
    Check(b, 61, o.Xm7Win_2Op, "Xm7Win_2Op");
    Check(b, 81, o.Xm7Win_3Op, "Xm7Win_3Op");
    Check(b, 191, o.Em7Win_1Op, "Em7Win_1Op");
    Check(b, 200, o.Em7Win_2Op, "Em7Win_2Op");
}

void CheckAllX1(const QByteArray& b, const EmuOptX1& o)
{
    ASSERT_EQ(b.size(), kEmuOptX1Size);
    EXPECT_EQ(u8at(b, 0), o.DefEmuRun);
    Check(b, 1, o.X1r_1Op, "X1r_1Op");
    Check(b, 10, o.X1r_2Op, "X1r_2Op");
    Check(b, 17, o.X1r_3Op, "X1r_3Op");
    Check(b, 29, o.X1emu_1Op, "X1emu_1Op");
    Check(b, 41, o.X1emu_2Op, "X1emu_2Op");
    EXPECT_EQ(u8at(b, 51), o.X1emu_3Op);
    Check(b, 52, o.Xmil_1Op, "Xmil_1Op");
    Check(b, 87, o.Xmil_2Op, "Xmil_2Op");
    Check(b, 93, o.Xmil_3Op, "Xmil_3Op");
    Check(b, 98, o.Xmil_4Op, "Xmil_4Op");
    Check(b, 103, o.Xmil_5Op, "Xmil_5Op");
    Check(b, 115, o.WinX1_1Op, "WinX1_1Op");
}

QByteArray Encode88(const EmuOpt88& o)
{
    QByteArray b;
    ByteWriter w(b);
    WriteEmuOpt88(w, o);
    return b;
}
QByteArray EncodeFM(const EmuOptFM& o)
{
    QByteArray b;
    ByteWriter w(b);
    WriteEmuOptFM(w, o);
    return b;
}
QByteArray EncodeX1(const EmuOptX1& o)
{
    QByteArray b;
    ByteWriter w(b);
    WriteEmuOptX1(w, o);
    return b;
}

// Bytes of their own for every place of a block, built without the writer.
QByteArray Pattern(int size, int mul, int add)
{
    QByteArray b(size, '\0');
    for (int i = 0; i < size; ++i)
        put8(b, i, i * mul + add);
    return b;
}

} // namespace

TEST(EmuOpt88Layout, EveryMemberAtItsTableOffset)
{
    EmuOpt88 o;
    Filler f;
    o.DefEmuRun = 0xEE;
    f(o.P88_1Op);
    f(o.P88_2Op);
    f(o.P88_3Op);
    o.P88_4Op = {QStringLiteral("A0"), QStringLiteral("B1"), QStringLiteral("C2"),
                 QStringLiteral("D3"), QStringLiteral("E4"), QStringLiteral("F5")};
    f(o.M88_1Op);
    f(o.M88_2Op);
    f(o.M88_3Op);
    f(o.M88_4Op);
    f(o.M88_5Op);
    f(o.M88_6Op);
    f(o.M88_7Op);
    f(o.M88_8Op);
    f(o.Pc8_1Op);
    f(o.Pc8_2Op);
    f(o.X88_1Op);
    f(o.Q88_1Op);
    f(o.Q88_2Op);
    f(o.Q88_3Op);
    f(o.Q88_4Op);
    f(o.Q88_5Op);
    f(o.J80_1Op);
    f(o.J80_2Op);
    const QByteArray b = Encode88(o);
    CheckAll88(b, o);
}

TEST(EmuOpt88Layout, BytesAtTheTableOffsetsAreReadIntoTheirMembers)
{
    QByteArray b = Pattern(kEmuOpt88Size, 11, 5);
    // The key code texts are hexadecimal characters.
    const char* keys = "1A2B3C4D5E6F";
    for (int i = 0; i < 12; ++i)
        b[91 + i] = keys[i];
    EmuOpt88 o;
    ByteReader r(b);
    ReadEmuOpt88(r, o);
    EXPECT_EQ(r.pos(), kEmuOpt88Size);
    CheckAll88(b, o);
    EXPECT_EQ(o.P88_4Op[2], QStringLiteral("3C"));
    // The memory-only elements 0 to 7 of P88_3Op stay as they were.
    for (int i = 0; i < 8; ++i)
        EXPECT_EQ(o.P88_3Op[i], 0);
    EXPECT_EQ(Encode88(o), b);
}

TEST(EmuOpt88Layout, DefaultBlockIsTheDefaultTable)
{
    QByteArray want(kEmuOpt88Size, '\0');
    put8(want, 1 + 0, 1); // P88_1Op
    put8(want, 1 + 1, 1);
    const int p2[] = {1, 2, 0, 9, 128, 1, 1, 7, 0, 0};
    for (int i = 0; i < 10; ++i)
        put8(want, 45 + i, p2[i]);
    want.replace(91, 12, "100204065052"); // P88_4Op
    const std::pair<int, int> m1[] = {{0, 49}, {1, 4}, {2, 100}, {3, 3},  {4, 2},  {5, 20},
                                      {6, 4},  {7, 2}, {19, 3},  {20, 1}, {21, 8}, {22, 4}};
    for (auto [i, v] : m1)
        put8(want, 103 + i, v);
    for (int i = 9; i <= 18; ++i)
        put8(want, 103 + i, 100);
    put8(want, 135 + 0, 1); // M88_2Op
    put8(want, 135 + 1, 1);
    for (int i : {0, 2, 5, 8, 9, 10})
        put8(want, 199 + i, 1); // M88_4Op
    for (int i = 0; i < 3; ++i)
        put8(want, 231 + i, 100); // M88_6Op
    put16(want, 234, 100);        // M88_7Op[0]
    put32(want, 244, 22050);      // M88_8Op[0]
    const int pc8[] = {2, 0, 0, 60, 1, 1, 0, 1};
    for (int i = 0; i < 8; ++i)
        put8(want, 264 + i, pc8[i]);
    put16(want, 272, 512);
    put16(want, 274, 256);
    const std::pair<int, int> x88[] = {{0, 3},   {1, 4},   {4, 2},   {5, 1},  {6, 2},
                                       {7, 255}, {8, 255}, {10, 20}, {12, 1}, {14, 1},
                                       {15, 4},  {16, 8},  {17, 1},  {18, 50}};
    for (auto [i, v] : x88)
        put8(want, 276 + i, v);
    const std::pair<int, int> q1[] = {{0, 3},   {5, 1},   {7, 9},    {24, 12},  {34, 1},
                                      {36, 2},  {37, 1},  {38, 4},   {39, 32},  {40, 100},
                                      {41, 20}, {42, 60}, {43, 100}, {44, 100}, {57, 1}};
    for (auto [i, v] : q1)
        put8(want, 308 + i, v);
    const std::pair<int, int> q2[] = {{0, 1}, {2, 1},  {3, 1},  {6, 2},
                                      {7, 1}, {10, 1}, {11, 1}, {12, 1}};
    for (auto [i, v] : q2)
        put8(want, 368 + i, v);
    const int q3[] = {6, 0, 640, 400, 0};
    for (int i = 0; i < 5; ++i)
        put16(want, 381 + 2 * i, q3[i]);
    const float q4[] = {3.9936f, 3.9936f, 55.4f, 55.4f, 0.0f};
    for (int i = 0; i < 5; ++i)
        putF(want, 391 + 4 * i, q4[i]);
    put32(want, 411, 22050); // Q88_5Op[0]
    put8(want, 431 + 0, 1);  // J80_1Op
    put8(want, 431 + 1, 50);
    put8(want, 431 + 4, 25);
    put16(want, 441, 100); // J80_2Op[0]

    EmuOpt88 o;
    o.DefEmuRun = 9;
    o.Q88_1Op[59] = 77; // nothing of an earlier block survives
    SetDefaultEmuOpt88(o);
    const QByteArray b = Encode88(o);
    for (int i = 0; i < kEmuOpt88Size; ++i)
        EXPECT_EQ(u8at(b, i), u8at(want, i)) << "offset " << i;
}

TEST(EmuOptFMLayout, EveryMemberAtItsTableOffset)
{
    EmuOptFM o;
    Filler f;
    o.DefEmuRun = 0xEF;
    f(o.Xm7Win_1Op);
    f(o.Xm7Win_2Op);
    f(o.Xm7Win_3Op);
    f(o.Em7Win_1Op);
    f(o.Em7Win_2Op);
    CheckAllFM(EncodeFM(o), o);
}

TEST(EmuOptFMLayout, BytesAtTheTableOffsetsAreReadIntoTheirMembers)
{
    const QByteArray b = Pattern(kEmuOptFMSize, 13, 7);
    EmuOptFM o;
    ByteReader r(b);
    ReadEmuOptFM(r, o);
    EXPECT_EQ(r.pos(), kEmuOptFMSize);
    CheckAllFM(b, o);
    EXPECT_EQ(EncodeFM(o), b);
}

TEST(EmuOptFMLayout, DefaultBlockIsTheDefaultTable)
{
    QByteArray want(kEmuOptFMSize, '\0');
    // Xm7Win_1Op
    const std::pair<int, int> one[] = {{0, 3},  {1, 1},  {2, 1},  {3, 4},  {4, 1},
                                       {29, 1}, {30, 1}, {31, 1}, {32, 1}, {36, 1},
                                       {41, 1}, {45, 1}, {48, 1}};
    for (auto [i, v] : one)
        put8(want, 1 + i, v);
    const int codes[] = {112, 113, 114, 115, 0, 116, 117};
    for (int i = 0; i < 7; ++i) {
        put8(want, 1 + 10 + i, codes[i]);
        put8(want, 1 + 20 + i, codes[i]);
    }
    // Xm7Win_2Op
    const int two[] = {1799, 1565, 1998, 100, 1200, 2016};
    for (int i = 0; i < 6; ++i)
        put16(want, 61 + 2 * i, two[i]);
    // Xm7Win_3Op: the 106 map, by key number.
    auto key = [&](int n, int code) { put8(want, 81 + n, code); };
    for (int n = 2; n <= 12; ++n)
        key(n, n);
    for (int n = 15; n <= 26; ++n)
        key(n, n - 1);
    key(29, 28);
    for (int n = 30; n <= 39; ++n)
        key(n, n);
    for (int n = 42; n <= 51; ++n)
        key(n, n + 2);
    const std::pair<int, int> common[] = {
        {53, 57},  {54, 55},  {55, 181}, {56, 78},  {57, 74},  {58, 71},  {59, 72},  {60, 73},
        {62, 75},  {63, 76},  {64, 77},  {66, 79},  {67, 80},  {68, 81},  {69, 156}, {70, 82},
        {71, 83},  {72, 210}, {73, 199}, {74, 201}, {75, 211}, {76, 207}, {77, 200}, {78, 209},
        {79, 203}, {80, 208}, {81, 205}, {82, 29},  {83, 42},  {84, 54},  {85, 58}};
    for (auto [n, c] : common)
        key(n, c);
    for (int n = 93; n <= 102; ++n)
        key(n, n - 34);
    const std::pair<int, int> map106[] = {{1, 148},  {13, 144}, {14, 125}, {27, 145}, {28, 26},
                                          {40, 146}, {41, 27},  {52, 43},  {61, 0},   {65, 0},
                                          {86, 123}, {87, 121}, {88, 112}, {90, 157}, {92, 1}};
    for (auto [n, c] : map106)
        key(n, c);
    // Em7Win_1Op, Em7Win_2Op
    const int em[] = {1, 0, 0, 240, 30, 20};
    for (int i = 0; i < 6; ++i)
        put8(want, 191 + i, em[i]);
    put16(want, 200, 203);

    EmuOptFM o;
    o.Xm7Win_3Op[89] = 5; // nothing of an earlier block survives
    SetDefaultEmuOptFM(o);
    const QByteArray b = EncodeFM(o);
    for (int i = 0; i < kEmuOptFMSize; ++i)
        EXPECT_EQ(u8at(b, i), u8at(want, i)) << "offset " << i;
}

TEST(EmuOptX1Layout, EveryMemberAtItsTableOffset)
{
    EmuOptX1 o;
    Filler f;
    o.DefEmuRun = 0xF0;
    f(o.X1r_1Op);
    f(o.X1r_2Op);
    f(o.X1r_3Op);
    f(o.X1emu_1Op);
    f(o.X1emu_2Op);
    o.X1emu_3Op = 'C';
    f(o.Xmil_1Op);
    f(o.Xmil_2Op);
    f(o.Xmil_3Op);
    f(o.Xmil_4Op);
    f(o.Xmil_5Op);
    f(o.WinX1_1Op);
    CheckAllX1(EncodeX1(o), o);
}

TEST(EmuOptX1Layout, BytesAtTheTableOffsetsAreReadIntoTheirMembers)
{
    const QByteArray b = Pattern(kEmuOptX1Size, 17, 9);
    EmuOptX1 o;
    ByteReader r(b);
    ReadEmuOptX1(r, o);
    EXPECT_EQ(r.pos(), kEmuOptX1Size);
    CheckAllX1(b, o);
    EXPECT_EQ(EncodeX1(o), b);
}

TEST(EmuOptX1Layout, DefaultBlockIsTheDefaultTable)
{
    QByteArray want(kEmuOptX1Size, '\0');
    // X1R: all enables 0; values /T 1, /R 0, /W 1, /U 0; /X 250.
    put8(want, 10 + 0, 1);
    put8(want, 10 + 2, 1);
    put32(want, 17, 250);
    // X1EMU: all enables 0; /T 1, /W 2; "/D" "0".
    put8(want, 41 + 1, 1);
    put8(want, 41 + 5, 2);
    want[51] = '0';
    // Xmil_1Op
    const std::pair<int, int> xmil[] = {{0, 1},  {2, 2},  {3, 4},   {4, 1},   {6, 1},  {13, 2},
                                        {14, 1}, {16, 1}, {18, 80}, {28, 30}, {29, 30}};
    for (auto [i, v] : xmil)
        put8(want, 52 + i, v);
    put16(want, 87, 1000); // Latencys
    put8(want, 98 + 0, 1); // Resolute bit 0
    // WinX1_1Op
    const int w[] = {1, 12, 10, 2, 50, 1, 1, 1, 1, 0, 1, 0, 1, 2, 3, 0, 1, 2, 3, 1, 0, 0, 0, 0};
    for (int i = 0; i < 24; ++i)
        put8(want, 115 + i, w[i]);

    EmuOptX1 o;
    o.Xmil_1Op[34] = 3; // nothing of an earlier block survives
    SetDefaultEmuOptX1(o);
    const QByteArray b = EncodeX1(o);
    for (int i = 0; i < kEmuOptX1Size; ++i)
        EXPECT_EQ(u8at(b, i), u8at(want, i)) << "offset " << i;
}
