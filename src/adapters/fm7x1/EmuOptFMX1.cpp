#include "adapters/fm7x1/EmuOptFMX1.h"

#include "data/ByteCodec.h"

#include <utility>

namespace tv {

void WriteEmuOptFM(ByteWriter& w, const EmuOptFM& o)
{
    FieldWriter io{w};
    WalkEmuOptFM(io, o);
}

void ReadEmuOptFM(ByteReader& r, EmuOptFM& o)
{
    FieldReader io{r};
    WalkEmuOptFM(io, o);
}

void SetDefaultEmuOptFM(EmuOptFM& o)
{
    o = EmuOptFM{};
    const std::pair<int, int> one[] = {{0, 3},    {1, 1},    {2, 1},    {3, 4},    {4, 1},
                                       {10, 112}, {11, 113}, {12, 114}, {13, 115}, {15, 116},
                                       {16, 117}, {20, 112}, {21, 113}, {22, 114}, {23, 115},
                                       {25, 116}, {26, 117}, {29, 1},   {30, 1},   {31, 1},
                                       {32, 1},   {36, 1},   {41, 1},   {45, 1},   {48, 1}};
    for (auto [i, v] : one)
        o.Xm7Win_1Op[i] = static_cast<uint8_t>(v);
    o.Xm7Win_2Op = {1799, 1565, 1998, 100, 1200, 2016, 0, 0, 0, 0};
    ApplyXm7KeyMap(o.Xm7Win_3Op, 1);
    o.Em7Win_1Op = {1, 0, 0, 240, 30, 20, 0, 0, 0};
    o.Em7Win_2Op = {203, 0, 0};
}

void WriteEmuOptX1(ByteWriter& w, const EmuOptX1& o)
{
    FieldWriter io{w};
    WalkEmuOptX1(io, o);
}

void ReadEmuOptX1(ByteReader& r, EmuOptX1& o)
{
    FieldReader io{r};
    WalkEmuOptX1(io, o);
}

void SetDefaultEmuOptX1(EmuOptX1& o)
{
    o = EmuOptX1{};
    // X1R: enables all off; values /T 1, /R 0, /W 1, /U 0; /X 250.
    o.X1r_2Op = {1, 0, 1, 0, 0, 0, 0};
    o.X1r_3Op = {250, 0, 0};
    // X1EMU: enables all off; /I 0, /T 1, /R 0, /K 0, /U 0, /W 2, machine 0; /D "0".
    o.X1emu_2Op = {0, 1, 0, 0, 0, 2, 0, 0, 0, 0};
    o.X1emu_3Op = '0';
    const std::pair<int, int> xmil[] = {{0, 1},  {2, 2},  {3, 4},   {4, 1},   {6, 1},  {13, 2},
                                        {14, 1}, {16, 1}, {18, 80}, {28, 30}, {29, 30}};
    for (auto [i, v] : xmil)
        o.Xmil_1Op[i] = static_cast<uint8_t>(v);
    o.Xmil_2Op = {1000, 0, 0};
    o.Xmil_4Op[0] = 1;
    o.WinX1_1Op = {1, 12, 10, 2, 50, 1, 1, 1, 1, 0, 1, 0, 1, 2, 3, 0, 1, 2, 3, 1, 0, 0, 0, 0};
}

void ApplyXm7KeyMap(std::array<uint8_t, 110>& keys, int map)
{
    // The keys in which the three maps differ: key number, then the code of each map.
    static const int differing[][4] = {{1, 41, 148, 1},    {13, 13, 144, 144},  {14, 43, 125, 125},
                                       {27, 26, 145, 145}, {28, 27, 26, 26},    {40, 40, 146, 146},
                                       {41, 0, 27, 27},    {52, 0, 43, 147},    {61, 0, 0, 141},
                                       {65, 0, 0, 179},    {86, 69, 123, 123},  {87, 0, 121, 0},
                                       {88, 0, 112, 148},  {90, 157, 157, 112}, {92, 1, 1, 183}};
    for (const auto& d : differing)
        keys[d[0]] = static_cast<uint8_t>(d[1 + map]);
    for (int k = 2; k <= 12; ++k)
        keys[k] = static_cast<uint8_t>(k);
    for (int k = 15; k <= 26; ++k)
        keys[k] = static_cast<uint8_t>(k - 1);
    keys[29] = 28;
    for (int k = 30; k <= 39; ++k)
        keys[k] = static_cast<uint8_t>(k);
    for (int k = 42; k <= 51; ++k)
        keys[k] = static_cast<uint8_t>(k + 2);
    static const int common[][2] = {
        {53, 57},  {54, 55},  {55, 181}, {56, 78},  {57, 74},  {58, 71},  {59, 72},  {60, 73},
        {62, 75},  {63, 76},  {64, 77},  {66, 79},  {67, 80},  {68, 81},  {69, 156}, {70, 82},
        {71, 83},  {72, 210}, {73, 199}, {74, 201}, {75, 211}, {76, 207}, {77, 200}, {78, 209},
        {79, 203}, {80, 208}, {81, 205}, {82, 29},  {83, 42},  {84, 54},  {85, 58}};
    for (const auto& c : common)
        keys[c[0]] = static_cast<uint8_t>(c[1]);
    for (int k = 93; k <= 102; ++k)
        keys[k] = static_cast<uint8_t>(k - 34);
}

} // namespace tv
