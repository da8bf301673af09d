#pragma once
// X1EMU ("X1EMU.EXE", a DOS program under a DOS extender) has no configuration file: the
// X1EMU members of an X1 option block become switches on its command line. A switch is
// written only when it is enabled, so that the emulator's own default holds otherwise.
#include "adapters/fm7x1/EmuOptFMX1.h"
#include "launch/LaunchCommand.h"

#include <QString>

namespace tv {

// The switches, in the order "/M0", "/I", "/T", "/R", "/D", "/K", "/U", "/W" and the machine
// switch (" /A", " /9", " /!", " /A6000", " /97001" by value; any other value adds nothing),
// each one behind a blank and its value behind it with no blank; an enable counts when it is
// 1. The text is trimmed at both ends; with no switch enabled it is empty.
QString MakeX1emuSwitches(const EmuOptX1& block);

// The command of the X1EMU branch: `program` (the emulator's "X1EMU.EXE"), the switches as one
// argument each, the first and the second image (names in WorkDir, in the emulator's form).
// An empty part leaves no argument, so the text form has single blanks only: a DOS program
// splits its command tail at blanks, and two blanks give it the same arguments as one.
LaunchCommand MakeX1emuCommand(const QString& program, const QString& opts, const QString& first,
                               const QString& second);

// The same command as one line of text, as the emulator's home platform shows it: the
// directory with "\X1EMU.EXE " behind it, the switches, a blank, the first image, a blank, the
// second, trimmed at both ends only. With no switch enabled the name and the image stand two
// blanks apart, which the argument list of MakeX1emuCommand doesn't show.
QString X1emuCommandLine(const QString& dir, const QString& opts, const QString& first,
                         const QString& second);

} // namespace tv
