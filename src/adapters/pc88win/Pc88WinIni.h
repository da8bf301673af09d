#pragma once
// The writer of "PC88WIN.INI": turns the PC88Win members of a PC-88 option block into the
// whole text of the emulator's configuration file, which the launch writes beside PC88WIN.EXE
// (the user's file is kept as "PC88WIN.ORG" and brought back after the run).
#include "adapters/pc88/EmuOpt88.h"

#include <QString>

namespace tv {

inline const QString kPc88WinIniName = QStringLiteral("PC88WIN.INI");

// The text of "PC88WIN.INI" for `record`: section "[PC88Win]" and its ten keys in a fixed
// order, every line closed by CR LF. The trim at the end takes blanks only, so the last line
// keeps its CR LF. "FMvolume=" is always 512: the FM volume of the block is never written.
QString MakePc88WinIni(const EmuOpt88& record);

// Creates `path` anew and writes `text` with one line end behind it, in Shift-JIS, with one
// write. False when the file can't be written.
bool WritePc88WinIni(const QString& path, const QString& text);

} // namespace tv
