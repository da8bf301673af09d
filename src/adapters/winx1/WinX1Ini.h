#pragma once
// The writer of WinX1's INI file ("winx1.ini" for the normal build, "WinX1_ika.ini" for the
// Ika build; the text is the same for both, section "[WinX1]" included). The file is always
// whole; nothing of the user's file is read.
#include "adapters/fm7x1/EmuOptFMX1.h"

#include <QString>

#include <cstdint>
#include <stdexcept>

namespace tv {

// A block value that the writer can't turn into its line: a "false"/"true" element other
// than 0 or 1, or a frame divisor of 0. The launch frame takes it as any run-time error and
// ends the launch.
class WinX1IniError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The stem of the build's program and INI file: "WinX1_ika" when `ikaUse` is 1, else "winx1".
QString WinX1Stem(uint8_t ikaUse);
// The INI file's name: the stem and ".ini".
QString WinX1IniName(uint8_t ikaUse);

// The text of the INI file for `block`, every line closed by CR LF (the last one too: the
// trim at the end takes blanks only). "StartDir=" is WorkDir in the form in which the
// emulator sees paths. Throws WinX1IniError as above.
QString MakeWinX1Ini(const EmuOptX1& block);

// The same with the start directory given as it shall stand in the file.
QString MakeWinX1Ini(const EmuOptX1& block, const QString& startDir);

// The value of "FrameNum=": 60 divided by `divisor` in single precision, as such a number
// prints: at most seven significant digits, no trailing zeros ("60", "15", "8.571428").
// Throws WinX1IniError for 0.
QString WinX1FrameNum(int divisor);

} // namespace tv
