#pragma once
// The writer of "Xmillennium.ini": turns the X millennium members of an X1 option block into
// the whole text of the emulator's configuration file. The file is always whole; nothing of
// the user's file is read (the launch keeps it as "Xmillennium.org" and brings it back).
#include "adapters/fm7x1/EmuOptFMX1.h"

#include <QString>

#include <cstdint>
#include <stdexcept>

namespace tv {

inline const QString kXmilIniName = QStringLiteral("Xmillennium.ini");

// A block value that the writer can't turn into its line (a "false"/"true" element other
// than 0 or 1). The launch frame takes it as any run-time error and ends the launch.
class XmilIniError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The text of "Xmillennium.ini" for `block`, every line closed by CR LF (the last one too:
// the trim at the end takes blanks only). `TuneUse` 1 writes for the T-Tune build, which takes
// "cpu_8MHz=" as a number of MHz; any other value writes for the plain build, which knows
// only "false" (4 MHz) and "true". "bmap_Dir=" is the X1 family's snapshot directory
// (SnapDir, trimmed of its closing separator) in the form in which the emulator sees paths,
// with "\" behind it. Throws XmilIniError for a value outside "false"/"true".
QString MakeXmilIni(const EmuOptX1& block, uint8_t TuneUse);

// The same with the snapshot directory given as it shall stand in the file, before its "\".
QString MakeXmilIni(const EmuOptX1& block, uint8_t TuneUse, const QString& snapDir);

} // namespace tv
