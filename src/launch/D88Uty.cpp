#include "launch/D88Uty.h"

#include "data/ByteCodec.h"
#include "platform/FileOps.h"
#include "util/Sjis.h"
#include "util/SubFunction.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace tv {

namespace {

struct D88Header {
    QByteArray bytes; // always 32 bytes
    uint8_t writeProtect = 0;
    uint8_t media = 0;
    int32_t size = 0;
};

// Reads the header at `pos`. Bytes beyond the end of the file read as 0, as a binary read
// past the end does, so that a short tail fails the checks instead of the read.
D88Header ReadHeader(QFile& f, qint64 pos)
{
    D88Header h;
    h.bytes = QByteArray(kD88HeaderSize, '\0');
    if (f.seek(pos)) {
        const QByteArray got = f.read(kD88HeaderSize);
        h.bytes.replace(0, got.size(), got);
    }
    ByteReader r(h.bytes);
    r.skip(26);
    r.u8(h.writeProtect);
    r.u8(h.media);
    r.i32(h.size);
    return h;
}

bool HeaderIsValid(const D88Header& h)
{
    if (h.writeProtect != 0 && h.writeProtect != 0x10)
        return false;
    if (h.media != 0 && h.media != 0x10 && h.media != 0x20)
        return false;
    return h.size >= 1 && h.size <= kD88MaxDiskSize;
}

// The disk name of a header as a file-name part: NULs as blanks, trimmed, characters that
// can't stand in a file name (or that some emulators' dialogs take as patterns) replaced.
QString PieceDiskName(const QByteArray& header)
{
    QString name = FromSjis(header.left(17));
    name.replace(QChar(u'\0'), QChar(u' '));
    name = VbTrim(name);
    name = ReplaceText(name, QStringLiteral("\\"), QStringLiteral("_"), 0);
    name = ReplaceText(name, QStringLiteral("/"), QStringLiteral("_"), 0);
    name = ReplaceText(name, QStringLiteral("?"), QStringLiteral("_"), 0);
    name = ReplaceText(name, QStringLiteral("*"), QStringLiteral("_"), 0);
    name = ReplaceText(name, QStringLiteral("{"), QStringLiteral("("), 0);
    name = ReplaceText(name, QStringLiteral("}"), QStringLiteral(")"), 0);
    name = ReplaceText(name, QStringLiteral(" "), QStringLiteral("_"), 0);
    return name;
}

void DeletePieces(QStringList& diskList)
{
    for (const QString& piece : diskList)
        PlatformRemoveFile(piece);
    diskList.clear();
}

} // namespace

uint8_t D88DiskCount(const QString& path)
{
    QFile f(VbTrim(path));
    if (!f.open(QIODevice::ReadOnly))
        return 0;
    const qint64 length = f.size();
    qint64 pos = 0;
    int count = 0;
    while (pos < length) {
        const D88Header h = ReadHeader(f, pos);
        if (!HeaderIsValid(h))
            return 0;
        ++count;
        pos += h.size;
    }
    if (count >= 1 && count <= kD88MaxDisks && pos == length)
        return static_cast<uint8_t>(count);
    return 0;
}

bool D88Split(const QString& pathIn, const QString& destDirIn, QStringList& diskList, int shortName)
{
    const QString path = VbTrim(pathIn);
    const QString destDir = TrimTrailingSeparators(destDirIn);
    if (!IsSafeDir(destDir, 3, 0) || !IsSafeDir(path, 2, 0))
        return false;

    QString stem;
    if (shortName == 1)
        stem = FitText(GetFileBase(GetShortPath(path)), 5, 1, 5);
    else
        stem = GetFileBase(path) + QLatin1Char('#');

    QFile src(path);
    if (!src.open(QIODevice::ReadOnly))
        return false;
    const qint64 length = src.size();
    qint64 pos = 0;
    int disk = 0;
    diskList.clear();
    while (pos < length) {
        D88Header h = ReadHeader(src, pos);
        h.bytes.replace(16, 10, QByteArray(10, '\0'));
        // A disk smaller than its own header can't be cut out (and a size of 0 would never
        // move on): the walk stops short of the end, and the length check below refuses it.
        if (h.size < kD88HeaderSize)
            break;

        const QString number = QStringLiteral("%1").arg(disk + 1, 2, 10, QLatin1Char('0'));
        QString piece;
        if (shortName == 1)
            piece = destDir + u'/' + stem + u'_' + number + QStringLiteral(".D88");
        else
            piece = destDir + u'/' + stem + number + u'_' + PieceDiskName(h.bytes) +
                    QStringLiteral(".D88");
        if (QFileInfo::exists(piece))
            return false;

        diskList.append(piece);
        if (!src.seek(pos + kD88HeaderSize))
            return false;
        // A disk stopped short by the end of the file is refused by the length check below.
        const qint64 bodySize = std::min(qint64(h.size), length - pos) - kD88HeaderSize;
        const QByteArray body = src.read(std::max<qint64>(bodySize, 0));
        if (!PlatformWriteFile(piece, h.bytes + body))
            return false;

        ++disk;
        pos += h.size;
    }
    src.close();

    const int lastIndex = int(diskList.size()) - 1;
    if (lastIndex < 1 || lastIndex > kD88MaxDisks || pos != length) {
        DeletePieces(diskList);
        return false;
    }
    // The file exists no more between split and join; the join insists on this.
    return PlatformRemoveFile(path);
}

bool D88Join(const QString& path, QStringList& diskList)
{
    if (QFileInfo::exists(path))
        return false;
    if (diskList.size() < 2)
        return false;
    // The whole file is written before any piece goes, so that a join that fails (a full disk)
    // keeps the pieces and leaves no half file.
    QByteArray joined;
    for (const QString& piece : diskList) {
        QFile in(piece);
        if (!in.open(QIODevice::ReadOnly))
            return false;
        const QByteArray bytes = in.readAll();
        if (bytes.size() != in.size())
            return false;
        joined += bytes;
    }
    if (!PlatformWriteFile(path, joined))
        return false;
    for (const QString& piece : diskList)
        PlatformRemoveFile(piece);
    diskList.clear();
    return true;
}

QString ReplaceText(const QString& text, const QString& find, const QString& repl, int whole)
{
    if (find.isEmpty())
        return text;
    QString out = text;
    const qsizetype inRepl = whole == 0 ? repl.indexOf(find) : -1;
    qsizetype at = out.indexOf(find);
    while (at >= 0) {
        if (inRepl >= 0 && at >= inRepl && out.mid(at - inRepl, repl.size()) == repl) {
            // Already the replacement: leave it and search behind it.
            at = out.indexOf(find, at - inRepl + repl.size());
            continue;
        }
        out.replace(at, find.size(), repl);
        at = out.indexOf(find, at + repl.size());
    }
    return out;
}

} // namespace tv
