#pragma once
// The writers of j80, a Java program started as "java -jar j80.jar j80.cfg" and options: the
// text of "j80.cfg", written into WorkDir on every launch, and the options behind it. Most of
// the file comes from the configuration (ROM, font, CRT and key files, shared by all titles);
// the block gives the sound line and the options. j80 runs natively: paths stay native, with
// "/" separators.
#include "adapters/pc88/EmuOpt88.h"
#include "data/Cfg.h"
#include "launch/LaunchCommand.h"

#include <QString>

namespace tv {

inline const QString kJ80CfgName = QStringLiteral("j80.cfg");

// The text of "j80.cfg" from `record`, the j80 settings of the configuration record (Cfg) and
// WorkDir.
QString MakeJ80Cfg(const EmuOpt88& record);

// The same from the given configuration record and working directory. One entry per line,
// each starting with a tab, fields divided by tabs, lines closed by CR LF, "\" turned to "/"
// in paths. The optional "ROM4" and "DISK" entries with an empty path are the bare key with
// no line end, so the next entry continues their line. The trim at the end takes blanks
// only: the leading tab and the last CR LF stay.
QString MakeJ80Cfg(const EmuOpt88& record, const CfgRecord& cfg, const QString& workDir);

// The options behind "j80.cfg" on the command line, trimmed: " -silent" / " -light" by the
// sound mode, " -nodisk", " col=" and the line count, " -dusty", " -on".
QString MakeJ80Option(const EmuOpt88& record);

// Creates `path` anew and writes `text` with one line end behind it, in Shift-JIS, with one
// write. False when the file can't be written.
bool WriteJ80Cfg(const QString& path, const QString& text);

// What the j80 branch of a launch hands to ExecEmulator; nothing is pasted.
struct J80Command {
    LaunchCommand command; // one argument per word; the file names its images' directories
    QString cmdLine;       // the text form
};

// `java`: the Java executable to start, the configured one when it is there, else empty,
// which starts "java" found by the system's search path. `j80Dir`: j80's directory, native.
// `options`: MakeJ80Option of the block. Neither image goes on the command line.
J80Command MakeJ80Command(const QString& java, const QString& j80Dir, const QString& options);

} // namespace tv
