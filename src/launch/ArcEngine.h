#pragma once
// What the archiver entries do once their command line is read: unpack an archive flat into
// a directory, and pack the files of a directory into an archive that replaces the old one.
//
// Unpacking never writes outside the target directory: every member lands under a safe bare
// name (or is skipped), is written to a temporary file first and renamed into place only when
// it is whole and its check sum is right, so a corrupt archive leaves no half-written file.
#include <QByteArray>
#include <QString>
#include <QStringList>
#include <functional>

namespace tv {

class ArcProgress;

enum class ArcFormat { Lzh, Zip, Cab };

// How a mask finds a member: by the member's bare name (LZH), or by its whole stored path,
// with "*" running over separators (ZIP and CAB, whose masks lead with "*").
enum class ArcMaskMatch { BareName, WholePath };

enum ArcResult : int {
    ArcOk = 0,
    ArcErrCommand = 1, // a command line the library doesn't understand
    ArcErrOpen = 2,    // archive or directory can't be opened
    ArcErrCorrupt = 3, // damaged or truncated archive, bad check sum
    ArcErrWrite = 4,   // a file can't be written
    ArcErrNoSpace = 5, // a member is larger than the free space
    ArcErrNoMatch = 6, // the mask found no member
    ArcErrNoFiles = 7, // nothing to pack
};

struct ArcExtractOptions {
    QStringList masks; // empty: every member
    ArcMaskMatch match = ArcMaskMatch::BareName;
    bool overwrite = false; // existing files are kept when false
};

int ExtractArchiveFlat(ArcFormat format, const QString& archivePath, const QString& destDir,
                       const ArcExtractOptions& options, ArcProgress* progress = nullptr);
// The same for an archive held in memory (used by the fuzz targets).
int ExtractArchiveMemory(ArcFormat format, const QByteArray& data, const QString& destDir,
                         const ArcExtractOptions& options);

// Packs the plain files of `srcDir` whose names match `pattern` ("*.*" is every file) into
// `archivePath`, replacing it through a temporary file and a rename.
int PackDirectory(ArcFormat format, const QString& archivePath, const QString& srcDir,
                  const QString& pattern, ArcProgress* progress = nullptr);

// The name under which a member lands: its bare name (" * ? < > | included), or "" when it
// must be skipped ("." or "..", empty, control characters, a device name such as "CON" or
// "LPT1.TXT").
QString SafeMemberName(const QString& storedPath);
// A stored member name: UTF-8 when it is valid UTF-8 with non-ASCII characters (names that
// archivers flag as UTF-8), else Shift-JIS.
QString DecodeMemberName(const QByteArray& raw);
// Wildcard match ("*", "?"), case-insensitive; "/" and "\" are the same character.
bool ArcWildcardMatch(const QString& pattern, const QString& name);

// The free bytes of a directory; replaceable for tests. Returns the previous probe.
using FreeSpaceProbe = std::function<qint64(const QString& dir)>;
FreeSpaceProbe SetFreeSpaceProbe(FreeSpaceProbe probe);

} // namespace tv
