#pragma once
// The body shared by the unpack fuzz targets: unpack any input as an archive of one format
// into a scratch directory; no crash, and nothing written outside that directory.
#include "launch/ArcEngine.h"

#include <QDir>
#include <QTemporaryDir>

#include <clocale>
#include <cstddef>
#include <cstdint>

inline int FuzzUnpack(tv::ArcFormat format, const uint8_t* data, size_t size)
{
    static const bool locale = std::setlocale(LC_ALL, "C.UTF-8") != nullptr;
    (void)locale;
    static QTemporaryDir scratch;
    const QString dest = scratch.path() + QStringLiteral("/d");
    QDir(dest).removeRecursively();
    QDir().mkpath(dest);
    tv::ArcExtractOptions options;
    options.overwrite = true;
    tv::ExtractArchiveMemory(
        format, QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)), dest,
        options);
    // Everything that was written stands in the target directory.
    if (QDir(scratch.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot)
            .size() != 1)
        __builtin_trap();
    return 0;
}
