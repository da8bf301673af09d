#pragma once
// The writer of "M88.INI": turns the M88 members of a PC-88 option block into the whole text
// of the emulator's configuration file. The generated file is always whole; nothing of the
// user's file is merged (the launch keeps the user's file as "M88.ORG" and brings it back).
#include "adapters/pc88/EmuOpt88.h"

#include <QString>

namespace tv {

inline const QString kM88IniName = QStringLiteral("M88.INI");

// The text of "M88.INI" for `record`, lines ending in CR LF, trimmed at the end (so the last
// line has no line end; the write puts one back). "BIOSPath=" is M88's directory of the
// configuration (Cfg.M88Dir, trimmed) and "Directory=" is WorkDir, both in the form in which
// the emulator sees paths.
QString MakeM88Ini(const EmuOpt88& record);

// The same with the two directories given as they shall stand in the file.
QString MakeM88Ini(const EmuOpt88& record, const QString& biosPath, const QString& directory);

// Value of "Flags=": bits of M88_2Op; 11, 28 and 31 never go into the file.
qint64 M88FlagsValue(const EmuOpt88& record);
// Value of "Flag2=": bits 0, 1 and 5 to 12 of M88_3Op.
qint64 M88Flag2Value(const EmuOpt88& record);
// Value of "Switches=": bits 0 to 11 of M88_4Op.
qint64 M88SwitchesValue(const EmuOpt88& record);

// A path of this system as a Windows program run under Wine sees it: "Z:" and the absolute
// path with "\" separators; a relative name keeps its place and gets "\" separators. Paths
// already in a drive form are left as they stand.
QString M88PathForm(const QString& nativePath);

// Creates `path` anew (no other spelling of its name stays beside it) and writes `text` with one
// line end behind it, in Shift-JIS. False when the file can't be written.
bool WriteM88Ini(const QString& path, const QString& text);

} // namespace tv
