#pragma once
// X88000 takes its settings as command-line switches (" -name:value"); no file is written for
// it. This is the maker of those switches from the PC-88 option block and the builder of the
// emulator's command line.
#include "adapters/pc88/EmuOpt88.h"
#include "launch/LaunchCommand.h"

#include <QString>

namespace tv {

// The switches of X88000 for `record`: "-saveenv:off" first, then one switch per element
// X88_1Op[0..23] in order, those of the boost limit and of the drives beyond the drive count
// left out; trimmed.
QString MakeX88000Option(const EmuOpt88& record);

// What the X88000 branch of a launch hands to ExecEmulator.
struct X88000Command {
    // The program and its arguments as they are started: each switch one argument, a D88
    // image the last one (quoted in the text form).
    LaunchCommand command;
    // The command line in its text form: program, a blank, the options, and for a D88 a blank
    // and the image in double quotes. Empty options leave their blanks standing (two before
    // the quote of a D88), which the start, with its one argument per switch, doesn't see.
    QString cmdLine;
    // The image when it isn't a D88 (tapes): X88000 takes it through its file dialog.
    QString paste1;
};

// `program` is the native path of X88000.EXE in its directory; `image` the name of the first
// image in WorkDir; `options` the switches (MakeX88000Option, or empty with "既存INI使用").
// The second image is never used.
X88000Command MakeX88000Command(const QString& program, const QString& image,
                                const QString& options);

} // namespace tv
