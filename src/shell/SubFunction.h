#pragma once
// Small procedures on which everything rests: path splitting, existence tests, the guard that
// keeps the program out of system directories, file operations with verification, cutting of
// text to the byte limits of fixed fields, and the table of file extensions.
//
// Stored paths may come from another machine: the splitting helpers accept both "\" and "/"
// as separators.
#include <QString>
#include <array>
#include <cstdint>

namespace tv {

// Trim of blanks only (not tabs or line breaks), as fixed-width text fields need.
QString VbTrim(const QString& text);

// Returns the part behind the last separator; `path` keeps the part before it. With no
// separator returns the whole (trimmed) text and leaves `path` trimmed.
QString SplitFileName(QString& path);
// Returns the part behind the last "."; `path` keeps the part before it; "" with no ".".
QString SplitFileExt(QString& path);
QString GetFileExt(const QString& path);  // upper-cased; "" with no "."
QString GetFileBase(const QString& path); // between the last separator and the last "."
QString GetFileDir(const QString& path);  // before the last separator; "" with none
QString GetShortPath(const QString& path);
QString CutAtNull(const QString& text);
QString GetSystemDir();
QString GetWindowsDir();

inline constexpr int kAttrDirectory = 16;
// The name found for `path` (wildcards allowed), or "" on no match or any error. Plain files
// only, unless `attribute` is 16, which lets directories match too.
QString FindFile(const QString& path, int attribute = 0);

// kind: 0 no existence test, 1 file or directory, 2 file only, 3 directory only.
bool IsSafeDir(const QString& path, uint8_t kind, uint8_t network);

// operation: 1 move, 2 copy, 3 delete. confirm 1 asks the user, else silent. Copies over an
// existing file go through a temporary name and an atomic rename.
bool ShellFileOp(const QString& source, const QString& target, int operation, uint8_t confirm);
bool ShellDelete(const QString& path, uint8_t confirm);
bool ShellMove(const QString& source, const QString& target, uint8_t confirm);
bool ShellCopy(const QString& source, const QString& target, uint8_t confirm);

QString FitText(const QString& text, int lineWidth, int lineCount, int byteLimit);

// 20 rows by 6 columns: 0 PC-88 images, 1 FM-7 images, 2 X1 images, 3 archives, 4 pictures,
// 5 manuals; extensions in upper case without point, then the filter row, then empty rows.
inline std::array<std::array<QString, 6>, 20> ExtTable;
void InitTables();
bool IsImageExt(const QString& ext); // in the column of the current family (HardWare)
bool IsArcExt(const QString& ext);
bool IsManualExt(const QString& ext);

} // namespace tv
