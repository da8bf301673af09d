#pragma once
// The thirteen emulators the launcher drives. The value of each is its EmuCode: the index of
// its launch button, tens digit the family (0 PC-8x01, 1 FM-7 & FM77AV, 2 X1 & X1Turbo!).
// The facts about each one live in its row of the emulator registry.
#include <cstdint>

namespace tv {

enum class Emu : int16_t {
    P88sr = 1,
    M88 = 2,
    PC88Win = 3,
    X88k = 4,
    QUASI88 = 5,
    J80 = 6,
    Xm7Dos = 11,
    Xm7Win = 12,
    Em7Win = 13,
    X1r = 21,
    Xmil = 22,
    X1emu = 23,
    WinX1 = 24,
};

constexpr int16_t CodeOf(Emu e)
{
    return static_cast<int16_t>(e);
}

} // namespace tv
