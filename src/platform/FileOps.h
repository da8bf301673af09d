#pragma once
// File primitives that need the operating system: the atomic copy-over and whole-file write,
// the rename with replacement, removal. The copy, move and delete of patterns and trees is
// built on them in util/SubFunction; every write, rename and delete of the program's own
// files goes through here, which is where a test can make one of them fail.
#include <QByteArray>
#include <QString>
#include <QtGlobal>

#include <functional>

namespace tv {

// Copies the plain file `source` to `target` through an anonymous file in the target's
// directory that gets a name only when it is whole, then one atomic rename, so that `target`
// is at every moment either its old content or the whole new copy; a crash never leaves it
// half written, nor a half-written file under another name. Where the file system can't make
// an anonymous file, a named temporary (".NAME.tvcopy-XXXXXX") is used, and such leftovers of
// an earlier copy to the same target are swept first. Permissions and the modification time
// go with the copy, as a copy by the shell keeps them. On failure an existing target is left
// as it was.
bool PlatformCopyFile(const QString& source, const QString& target);

// Writes `data` as the whole content of `path` in the same way as the copy: the file is its
// old content or the whole new one. A replaced file keeps its permissions.
bool PlatformWriteFile(const QString& path, const QByteArray& data);

enum class RenameResult { Ok, CrossDevice, Failed };
// Renames `source` to `target`, replacing an existing file target atomically (a directory
// only replaces an empty directory). CrossDevice: the two lie on different file systems.
RenameResult PlatformRename(const QString& source, const QString& target);

// Removes a file (or a link, never what it points to); false when it can't.
bool PlatformRemoveFile(const QString& path);
// Removes an empty directory; false when it can't.
bool PlatformRemoveDir(const QString& path);
// Makes a directory and its missing parents; true when it stands there afterwards.
bool PlatformMakePath(const QString& path);

// Removes the plain files of `dir` named `prefix` and six letters or digits: the temporaries
// that a write cut off by a crash or a kill left under such a name.
void SweepStaleTemporaries(const QString& dir, const QString& prefix);

// The kinds of operation that a test can make fail.
enum class FileOpKind { Write, Rename, Delete };
// Test seam: when a hook is set, every write (a copy, a whole-file write, a new directory),
// rename and delete asks it first with the path it acts on; a non-zero answer is the error
// number (ENOSPC, EACCES, ...) with which the operation then fails, having changed nothing.
using FileFaultHook = std::function<int(FileOpKind kind, const QString& path)>;
void SetFileFaultHook(FileFaultHook hook);
// What the primitives above ask before they act, for writers that can't go through them (an
// archive being packed): false, with errno set, when the hook fails the operation.
bool FileOpAllowed(FileOpKind kind, const QString& path);

// Test hook: PlatformCopyFile fails (as on a full disk) once this many bytes of a copy are
// written; a negative value switches the fault off.
void SetCopyFaultAfterBytes(qint64 bytes);
// Test hook: false makes the copy behave as on a file system without anonymous files.
void SetAnonymousTempFiles(bool use);

} // namespace tv
