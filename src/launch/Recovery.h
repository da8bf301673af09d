#pragma once
// What a launch can't put where it belongs (a changed image that can't be written back, a
// save state or a screen dump that its directory refuses) is never deleted with WorkDir: it
// goes to a recovery directory beside the program, named by the date, and the user is told
// where. A move within the program's directory needs no room on the disk.
#include <QString>

namespace tv {

// Moves `file` into the recovery directory of this moment (AppDir/TORVRECOVER_<date>, with
// "_<tag>" behind when a tag is given), beside nothing of the same name, or where no directory
// can be made, beside the program as TORVRECOVER_<date>[_<tag>]_<name>; it is kept under
// `keptName` when one is given, else under its own name. Returns where it now is, or "" when
// it couldn't be moved.
QString KeepInRecovery(const QString& file, const QString& tag = {}, const QString& keptName = {});

// Copies `source` to `target`. When the copy fails, `source` is kept in recovery and the user
// is told that `target` couldn't be written and where the file is (or that it couldn't be
// kept). True when the copy succeeded.
bool CopyOutOrKeep(const QString& source, const QString& target);

} // namespace tv
