#pragma once
// The platform services the rest of the program uses. Nothing outside src/platform includes
// an operating-system header.
#include <QString>
#include <memory>

namespace tv {

// "TMP" or "TEMP": the variable's value when it is set (even when it names no directory);
// when it is unset, TMPDIR, else "/tmp".
QString EnvTempValue(const char* name);

// The directory of the running executable, symbolic links resolved.
QString ProgramDir();

// The system's configuration and program trees ("/etc", "/usr" on POSIX).
QString PlatformWindowsDir();
QString PlatformSystemDir();

// The previous-instance test: a lock keyed by the absolute path of the executable. Holding
// the returned object keeps the lock; null when another instance holds it.
class InstanceLock {
public:
    virtual ~InstanceLock() = default;
};
std::unique_ptr<InstanceLock> AcquireInstanceLock(const QString& executablePath);

void SleepMs(int ms);
// Serves pending events of the event loop (the yield of the start-up and the launch waits).
void DoEvents();

} // namespace tv
