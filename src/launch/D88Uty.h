#pragma once
// D88 disk images: a D88 file is a sequence of disks, each behind a 32-byte header whose last
// field is the disk's size, header included. X1 emulators take one disk per file, so a launch
// splits a multi-disk file into pieces and joins them back after the run.
#include <QString>
#include <QStringList>
#include <cstdint>

namespace tv {

inline constexpr int kD88HeaderSize = 32;
inline constexpr int kD88MaxDisks = 63;
inline constexpr int32_t kD88MaxDiskSize = 10000000;

// The number of disks of the file, or 0 when it isn't a well-formed D88 of 1 to 63 disks.
uint8_t D88DiskCount(const QString& path);

// Splits `path` into one file per disk in `destDir` and deletes `path`. `diskList` receives
// the full paths of the pieces in disk order. `shortName` 1 makes names that fit a DOS
// emulator ("STEM_01.D88"), 0 long names ("stem#01_DISKNAME.D88").
bool D88Split(const QString& path, const QString& destDir, QStringList& diskList, int shortName);

// Appends the pieces of `diskList` in order into the new file `path`, deleting each piece;
// `path` must not exist and the list must hold two pieces or more. Erases the list.
bool D88Join(const QString& path, QStringList& diskList);

// Replaces each occurrence of `find`, searching on behind the inserted text. With `whole` 0
// and `repl` holding `find`, an occurrence that already stands inside `repl` is kept.
QString ReplaceText(const QString& text, const QString& find, const QString& repl, int whole);

} // namespace tv
