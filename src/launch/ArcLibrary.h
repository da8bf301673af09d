#pragma once
// The four archiver libraries, each an entry that takes one archiver command line and performs
// it: 0 on success, non-zero otherwise. The built-in entries interpret the lines with
// libarchive (reading LZH, ZIP and CAB; writing ZIP), libgcab (writing CAB) and the system's
// own -lh5- encoder (writing LZH).
//
// The table can be replaced (tests record lines, or take a library away); an empty entry is a
// library that can't be called.
#include <QObject>
#include <QString>
#include <cstdint>
#include <functional>

namespace tv {

// Owner window, command line, output buffer (of `size` characters), size.
using ArcEntry = std::function<int32_t(QObject*, const QString&, QString&, int32_t)>;

struct ArcLibrary {
    ArcEntry Unlha; // UNLHA32: LZH pack and unpack
    ArcEntry UnZip; // UNZIP32: ZIP unpack
    ArcEntry Zip;   // ZIP32J: ZIP pack
    ArcEntry Cab;   // CAB32: CAB pack and unpack
};

ArcLibrary BuiltInArcLibrary();
ArcLibrary& CurrentArcLibrary();
// Installs a table and returns the previous one.
ArcLibrary SetArcLibrary(ArcLibrary lib);

// The built-in interpreters.
int32_t UnlhaCommand(QObject* hWnd, const QString& cmdLine, QString& output, int32_t size);
int32_t UnZipCommand(QObject* hWnd, const QString& cmdLine, QString& output, int32_t size);
int32_t ZipCommand(QObject* hWnd, const QString& cmdLine, QString& output, int32_t size);
int32_t CabCommand(QObject* hWnd, const QString& cmdLine, QString& output, int32_t size);

// Splits a command line at blanks; double quotes group and are dropped, and inside them a
// doubled quote stands for one quote of the name.
QStringList SplitArcCommandLine(const QString& cmdLine);

} // namespace tv
