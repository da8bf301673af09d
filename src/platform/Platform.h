#pragma once
// The platform services the rest of the program uses. Nothing outside src/platform includes
// an operating-system header.
#include <QByteArray>
#include <QList>
#include <QString>
#include <cstdint>
#include <memory>

namespace tv {

// "TMP" or "TEMP": the variable's value when it is set (even when it names no directory, or
// is empty); when it is unset, TMPDIR (when set and not empty), else "/tmp".
QString EnvTempValue(const char* name);

// The running executable, absolute, symbolic links resolved.
QString ProgramFile();
// The directory of the running executable, symbolic links resolved.
QString ProgramDir();

// The system's configuration and program trees ("/etc", "/usr" on POSIX).
QString PlatformWindowsDir();
QString PlatformSystemDir();

// The previous-instance test: a lock keyed by the absolute path of the executable. Holding
// the returned object keeps the lock; null when another instance holds it (or the lock file
// can't be opened at all). The lock is an advisory whole-file lock, which the system drops
// with the process, so a crashed run never leaves a stale lock behind; it is not inherited
// by started programs. Releasing it removes the lock file.
class InstanceLock {
public:
    virtual ~InstanceLock() = default;
};
// Lock file in `lockDirectory`, or when that is empty in the system's temporary directory
// ("/tmp", the same for every start whatever TMP or TMPDIR say), and when no lock file can be
// made there, beside the executable.
std::unique_ptr<InstanceLock> AcquireInstanceLock(const QString& executablePath,
                                                  const QString& lockDirectory = QString());
// The lock file used for `executablePath`: "torvane-" + a hash of the absolute, resolved
// path + ".lock".
QString InstanceLockPath(const QString& executablePath, const QString& lockDirectory = QString());

void SleepMs(int ms);
// Whether a process of this id is running (an ended one not yet reaped is not).
bool ProcessRunning(int64_t pid);
// The fields of /proc/<pid>/stat after the name (state, parent, ...); empty when the process's
// status can't be read. The name in parentheses may hold blanks, so it is cut off first.
QList<QByteArray> ProcStatFields(int64_t pid);
// Serves pending events of the event loop (the yield of the start-up and the launch waits).
void DoEvents();

} // namespace tv
