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
// The path itself when it exists and its file name already is a valid 8.3 name (at most 8 and
// 3 Shift-JIS bytes, one point at most, no blanks or "+,;=[]"), else "". A path longer than
// 255 bytes gives "" as the fixed buffer of the platform call does.
QString GetShortPath(const QString& path);
QString CutAtNull(const QString& text);
// The system and configuration trees ("/usr", "/etc" on POSIX), trailing separators removed.
QString GetSystemDir();
QString GetWindowsDir();

inline constexpr int kAttrDirectory = 16;

// A pattern that the program makes itself: "*" and "?" in `glob` match case-insensitively
// (hidden names too), "*.*" matches names without a point as well. Every other path the
// program handles is literal: a catalogued name, an archive member or a file an emulator
// wrote may hold "*" or "?" and then means only itself.
struct NamePattern {
    QString dir;
    QString glob;
    QString path() const { return dir + QLatin1Char('/') + glob; }
};
inline NamePattern Matches(const QString& dir, const QString& glob)
{
    return {dir, glob};
}

// The name found for `path`, or "" when there is none or on any error. Plain files only,
// unless `attribute` is 16, which lets directories match too. The path is native, taken as it
// is (not trimmed) and literally. "dir/" gives "." with attribute 16, else the first plain
// file in dir.
QString FindFile(const QString& path, int attribute = 0);
// The first match of a pattern by name, in its real spelling.
QString FindFile(const NamePattern& pattern, int attribute = 0);
// What "exists" means throughout the program, by FindFile: a plain file of that name; and a
// name found with the directory attribute, which a directory or a plain file satisfies.
bool FileExists(const QString& path);
bool DirExists(const QString& path);

// The path of the plain file `name` in `dir`, the exact name first, else a name that differs
// only in case (names stored on or for a case-blind file system); "" when there is none.
QString FindFileNoCase(const QString& dir, const QString& name);
// The same, but the exact path when nothing matches: for a program about to be started or
// tested, so that a missing file is still reported under the name the user knows.
QString ResolveFileNoCase(const QString& dir, const QString& name);

// Deletes every file of `dir` whose name is `name` in any case (through ShellDelete): an
// emulator from a case-blind platform must not find a second spelling of its file.
void DeleteFileAnyCase(const QString& dir, const QString& name);

// The path guard. kind: 0 no existence test, 1 file or directory, 2 file only, 3 directory
// only; network 1 allows paths that begin with "\\" (or "//"). The path is refused when its
// upper-cased text contains the upper-cased EnvTmpDir, SystemDir, WindowsDir or EnvTempDir
// (unless it is PeekDir itself). An empty one of these is contained in every text, so with
// the directories not yet set every path is refused: set all four first.
bool IsSafeDir(const QString& path, uint8_t kind, uint8_t network);

// operation: 1 move, 2 copy, 3 delete, of a file, a directory tree, or the matches of a
// pattern. A single source into an existing directory goes inside it, otherwise it takes the
// target's name (missing parent directories are made); the matches of a pattern go into the
// target as a directory. Copies keep permissions and modification time;
// a copy over an existing file goes through a temporary name and an atomic rename. confirm 1 asks
// the user first (yes/no, "No" as default), else silent. Guards: IsSafeDir of both paths and the
// 7-character stop.
bool ShellFileOp(const QString& source, const QString& target, int operation, uint8_t confirm);
// ShellFileOp, then verification: the path is gone / the source gone and the target there /
// both there.
bool ShellDelete(const QString& path, uint8_t confirm);
bool ShellMove(const QString& source, const QString& target, uint8_t confirm);
bool ShellCopy(const QString& source, const QString& target, uint8_t confirm);
// The same for the matches of a pattern: the guard wants one match at least; verification:
// no match left / none left and the target there / matches and target there.
bool ShellFileOp(const NamePattern& source, const QString& target, int operation, uint8_t confirm);
bool ShellDelete(const NamePattern& pattern, uint8_t confirm);
bool ShellMove(const NamePattern& source, const QString& target, uint8_t confirm);
bool ShellCopy(const NamePattern& source, const QString& target, uint8_t confirm);

// Breaks lines longer than lineWidth Shift-JIS bytes (lines end in CR LF), keeps lineCount
// lines and cuts to byteLimit bytes; never leaves half a double-byte character or half a
// CR LF. A negative width acts as 0; a width too narrow for the next character gives empty
// lines up to the line count, as the cut always did.
QString FitText(const QString& text, int lineWidth, int lineCount, int byteLimit);

// 20 rows by 6 columns: 0 PC-88 images, 1 FM-7 images, 2 X1 images, 3 archives, 4 pictures,
// 5 manuals; extensions in upper case without point, then the filter row, then empty rows.
// Indexed [row - 1][column]: row numbers (FilterOrder's too) count from 1.
inline std::array<std::array<QString, 6>, 20> ExtTable;
// Fills ExtTable and sets HelpFile beside the program (AppDir must be set).
void InitTables();
// In the column of the current family (HardWare); false while no family is chosen (255).
bool IsImageExt(const QString& ext);
// The trimmed, upper-cased extension against rows 1 to 19 (images, manuals) or 1 to 10
// (archives, column 3) up to the first empty row; the filter row is among the rows searched.
bool IsArcExt(const QString& ext);
bool IsManualExt(const QString& ext); // column 5

// Removes every trailing "/" or "\" one at a time; a root "/" stays.
QString TrimTrailingSeparators(QString path);

} // namespace tv
