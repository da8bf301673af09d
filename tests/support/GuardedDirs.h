#pragma once
// A fresh temporary root for tests of code guarded by IsSafeDir: "app" (the program
// directory), "tmp" and "temp" (the test's TMP and TEMP) side by side, so that the program
// directory does not lie inside TMP. Sets EnvTmpDir, EnvTempDir, WindowsDir ("/etc"),
// SystemDir ("/usr"), AppDir and PeekDir (tmp/TORVBOOT, not made); the process state
// (ProcessState.h) goes back as it was when it goes.
#include "support/ProcessState.h"

#include <QString>
#include <QTemporaryDir>

namespace tvtest {

class GuardedDirs {
public:
    GuardedDirs();
    ~GuardedDirs();
    GuardedDirs(const GuardedDirs&) = delete;
    GuardedDirs& operator=(const GuardedDirs&) = delete;

    bool isValid() const { return root_.isValid(); }
    QString root() const { return root_.path(); }
    QString app() const { return root_.path() + QStringLiteral("/app"); }
    QString tmp() const { return root_.path() + QStringLiteral("/tmp"); }
    QString temp() const { return root_.path() + QStringLiteral("/temp"); }
    // A path below the root; `path` is relative.
    QString path(const QString& rel) const { return root_.path() + QLatin1Char('/') + rel; }

private:
    QTemporaryDir root_;
    ProcessState state_; // after root_: back before the directory goes
};

// Writes `bytes` to `path`, making parent directories; false on failure.
bool WriteFile(const QString& path, const QByteArray& bytes);
// The whole content of `path`, or a null array when it can't be read.
QByteArray ReadFile(const QString& path);

} // namespace tvtest
