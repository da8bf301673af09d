#include "adapters/pc88/EmuOpt88.h"

#include "data/ByteCodec.h"

namespace tv {

void WriteEmuOpt88(ByteWriter& w, const EmuOpt88& o)
{
    FieldWriter io{w};
    WalkEmuOpt88(io, o);
}

void ReadEmuOpt88(ByteReader& r, EmuOpt88& o)
{
    FieldReader io{r};
    WalkEmuOpt88(io, o);
}

void SetDefaultEmuOpt88(EmuOpt88& o)
{
    o = EmuOpt88{};
    o.P88_1Op[0] = 1;
    o.P88_1Op[1] = 1;
    o.P88_2Op = {1, 2, 0, 9, 128, 1, 1, 7, 0, 0};
    o.P88_4Op = {QStringLiteral("10"), QStringLiteral("02"), QStringLiteral("04"),
                 QStringLiteral("06"), QStringLiteral("50"), QStringLiteral("52")};
    o.M88_1Op[0] = 49;
    o.M88_1Op[1] = 4;
    o.M88_1Op[2] = 100;
    o.M88_1Op[3] = 3;
    o.M88_1Op[4] = 2;
    o.M88_1Op[5] = 20;
    o.M88_1Op[6] = 4;
    o.M88_1Op[7] = 2;
    for (int i = 9; i <= 18; ++i)
        o.M88_1Op[i] = 100;
    o.M88_1Op[19] = 3;
    o.M88_1Op[20] = 1;
    o.M88_1Op[21] = 8;
    o.M88_1Op[22] = 4;
    o.M88_2Op[0] = 1;
    o.M88_2Op[1] = 1;
    for (int i : {0, 2, 5, 8, 9, 10})
        o.M88_4Op[i] = 1;
    o.M88_6Op = {100, 100, 100};
    o.M88_7Op[0] = 100;
    o.M88_8Op[0] = 22050;
    o.Pc8_1Op = {2, 0, 0, 60, 1, 1, 0, 1};
    o.Pc8_2Op = {512, 256};
    const std::pair<int, int> x88[] = {{0, 3},   {1, 4},   {4, 2},   {5, 1},  {6, 2},
                                       {7, 255}, {8, 255}, {10, 20}, {12, 1}, {14, 1},
                                       {15, 4},  {16, 8},  {17, 1},  {18, 50}};
    for (auto [i, v] : x88)
        o.X88_1Op[i] = static_cast<uint8_t>(v);
    const std::pair<int, int> q1[] = {{0, 3},   {5, 1},   {7, 9},    {24, 12},  {34, 1},
                                      {36, 2},  {37, 1},  {38, 4},   {39, 32},  {40, 100},
                                      {41, 20}, {42, 60}, {43, 100}, {44, 100}, {57, 1}};
    for (auto [i, v] : q1)
        o.Q88_1Op[i] = static_cast<uint8_t>(v);
    for (int i : {0, 2, 3, 7, 10, 11, 12})
        o.Q88_2Op[i] = 1;
    o.Q88_2Op[6] = 2;
    o.Q88_3Op = {6, 0, 640, 400, 0};
    o.Q88_4Op = {3.9936f, 3.9936f, 55.4f, 55.4f, 0.0f};
    o.Q88_5Op[0] = 22050;
    o.J80_1Op[0] = 1;
    o.J80_1Op[1] = 50;
    o.J80_1Op[4] = 25;
    o.J80_2Op[0] = 100;
}

} // namespace tv
