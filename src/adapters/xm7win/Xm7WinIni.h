#pragma once
// The writer of "XM7.INI" for XM7 for Win32: turns the XM7 members of an FM-7 option block
// into the whole text of the emulator's configuration file. Nothing of the user's file is
// merged; the launch keeps it as "XM7.ORG" and brings it back after the run.
#include "adapters/fm7x1/EmuOptFMX1.h"

#include <QString>

namespace tv {

inline const QString kXm7WinIniName = QStringLiteral("XM7.INI");

// The text of "XM7.INI" for `block`: six sections, every line closed by CR LF (the last one
// too), one empty line before every section header but the first. The file holds no paths.
QString MakeXm7WinIni(const EmuOptFM& block);

// "SampleRate=" value of a rate code of Xm7Win_1Op 3: 0, 2, 4, 8 are multiples of 11025, 5 is
// 48000, 9 is 96000, and any other code (a damaged block) falls back to 44100.
int Xm7WinSampleRateHz(int code);

} // namespace tv
