#pragma once
// A program directory of its own for a fuzz target, with the guarded directories pointed at
// places that let it pass the path guard.
#include "util/Globals.h"

#include <QDir>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

namespace tvfuzz {

// Makes the directories once; returns the program directory (AppDir).
inline QString FuzzAppDir()
{
    static QTemporaryDir* root = nullptr;
    if (!root) {
        root = new QTemporaryDir();
        if (!root->isValid())
            std::abort();
        tv::EnvTmpDir = root->path() + "/tmp";
        tv::EnvTempDir = tv::EnvTmpDir;
        tv::WindowsDir = "/etc";
        tv::SystemDir = "/usr";
        tv::AppDir = root->path() + "/app";
        tv::WorkDir = tv::AppDir + "/TORVBOOT";
        QDir().mkpath(tv::EnvTmpDir);
        QDir().mkpath(tv::WorkDir);
    }
    return tv::AppDir;
}

// Aborts with the line of the check that failed, so that a crash names its property.
inline void CheckAt(bool ok, int line)
{
    if (!ok) {
        std::fprintf(stderr, "check failed at line %d\n", line);
        std::abort();
    }
}
#define Check(ok) tvfuzz::CheckAt((ok), __LINE__)

inline void WriteBytes(const QString& path, const QByteArray& bytes)
{
    QFile f(path);
    CheckAt(f.open(QIODevice::WriteOnly | QIODevice::Truncate) && f.write(bytes) == bytes.size(),
            __LINE__);
}

inline QByteArray ReadBytes(const QString& path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

} // namespace tvfuzz
