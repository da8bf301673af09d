#pragma once
// P88SR's options: the one line of short switches that the launch writes into "P88SR.CFG"
// beside the emulator, and that the settings show for the default block.
#include "adapters/pc88/EmuOpt88.h"

#include <QString>
#include <array>
#include <cstdint>
#include <optional>

namespace tv {

inline const QString kP88srCfgName = QStringLiteral("P88SR.CFG");

// The switch of each element of P88_1Op, three characters, blank-filled; 40 to 43 are unused.
inline constexpr std::array<const char*, 44> P88SwitchName = {
    "a  ", "b  ", "w  ", "W  ", "c  ", "v0 ", "v1s", "v1 ", "4  ", "M  ", "S  ",
    "J  ", "d  ", "F  ", "FF ", "F0 ", "p  ", "f  ", "V  ", "s1 ", "s2 ", "o  ",
    "A  ", "l  ", "N  ", "T  ", "k  ", "P  ", "7  ", "n  ", "t  ", "H  ", "m  ",
    "j  ", "E  ", "e  ", "G  ", "D  ", "i  ", "R9 ", "   ", "   ", "   ", "   "};

// The row of P88_1Op that each value slot k belongs to. Slots 0 to 7 are P88_2Op[k], slots 8
// to 14 P88_3Op[k]. Slot 4 (row 19) is the second value of row 18, not a value of "s1".
inline constexpr std::array<uint8_t, 15> P88ValueIndex = {0, 1, 17, 18, 19, 29, 31, 38,
                                                          2, 3, 13, 14, 16, 21, 32};

// The switches of `record`: " -", the switch without blanks and its value for every row that
// is on, the whole trimmed. "-a1 -b2" for the default block.
QString MakeP88srOption(const EmuOpt88& record);

// The text of "P88SR.CFG" without its line end (the write puts it): MakeP88srOption with its
// leading blanks removed, then " -L" and the save-state slot when one is chosen and "Use PAN"
// is off. The caller finds the slot from the detail pane's save-state labels.
QString MakeP88srCfg(const EmuOpt88& record, bool panUse, std::optional<int> saveSlot);

// Creates `path` anew and writes `text` with one line end behind it, in Shift-JIS. False when
// the file can't be written.
bool WriteP88srCfg(const QString& path, const QString& text);

} // namespace tv
