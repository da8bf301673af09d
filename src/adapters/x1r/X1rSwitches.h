#pragma once
// X1R ("X1R.COM", a DOS program) has no configuration file: the X1R members of an X1 option
// block become switches on its command line. A switch is written only when it is enabled, so
// that the emulator's own default holds otherwise.
#include "adapters/fm7x1/EmuOptFMX1.h"
#include "launch/LaunchCommand.h"

#include <QString>

namespace tv {

// The switches, in the order "/T", "/R", "/W", "/U", "/0", "/X", each one behind a blank and
// its value behind it with no blank; an enable counts when it is 1. The text is trimmed at
// both ends ("/T1 /W1", "/R0"); with no switch enabled it is empty.
QString MakeX1rSwitches(const EmuOptX1& block);

// The command of the X1R branch: `program` (the emulator's "X1R.COM"), the switches as one
// argument each, the first and the second image (names in WorkDir, in the emulator's form).
// An empty part leaves no argument, so the text form has single blanks only: a DOS program
// splits its command tail at blanks, and two blanks give it the same arguments as one.
LaunchCommand MakeX1rCommand(const QString& program, const QString& opts, const QString& first,
                             const QString& second);

// The same command as one line of text, as the emulator's home platform shows it: the
// directory with "\X1R.COM " behind it, the switches, a blank, the first image, a blank, the
// second, trimmed at both ends only. With no switch enabled the name and the image stand two
// blanks apart, which the argument list of MakeX1rCommand doesn't show.
QString X1rCommandLine(const QString& dir, const QString& opts, const QString& first,
                       const QString& second);

} // namespace tv
