#pragma once
// File primitives that need the operating system: the atomic copy-over and rename with
// replacement. The copy, move and delete of patterns and trees is built on them in
// util/SubFunction.
#include <QString>
#include <QtGlobal>

namespace tv {

// Copies the plain file `source` to `target` through a temporary file in the target's
// directory and one atomic rename, so that `target` is at every moment either its old
// content or the whole new copy; a crash never leaves it half written. Permissions and the
// modification time go with the copy, as a copy by the shell keeps them. On failure the
// temporary file is removed and an existing target is left as it was.
bool PlatformCopyFile(const QString& source, const QString& target);

enum class RenameResult { Ok, CrossDevice, Failed };
// Renames `source` to `target`, replacing an existing file target atomically (a directory
// only replaces an empty directory). CrossDevice: the two lie on different file systems.
RenameResult PlatformRename(const QString& source, const QString& target);

// Test hook: PlatformCopyFile fails (as on a full disk) once this many bytes of a copy are
// written; a negative value switches the fault off.
void SetCopyFaultAfterBytes(qint64 bytes);

} // namespace tv
