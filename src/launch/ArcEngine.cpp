#include "launch/ArcEngine.h"

#include "data/ByteCodec.h"
#include "launch/ArcProgress.h"
#include "launch/Lzh5Encoder.h"
#include "platform/FileOps.h"
#include "util/Sjis.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QStorageInfo>
#include <QStringDecoder>
#include <QTemporaryFile>

#include <archive.h>
#include <archive_entry.h>
// glib's headers use "signals" as a name, which Qt defines as a keyword.
#pragma push_macro("signals")
#undef signals
#include <libgcab.h>
#pragma pop_macro("signals")

#include <filesystem>
#include <memory>
#include <vector>

namespace tv {

namespace {

FreeSpaceProbe& freeSpaceProbe()
{
    static FreeSpaceProbe probe = [](const QString& dir) -> qint64 {
        QStorageInfo si(dir);
        return si.isValid() ? si.bytesAvailable() : -1;
    };
    return probe;
}

struct ReadDeleter {
    void operator()(archive* a) const { archive_read_free(a); }
};
using ReadPtr = std::unique_ptr<archive, ReadDeleter>;
struct WriteDeleter {
    void operator()(archive* a) const { archive_write_free(a); }
};
using WritePtr = std::unique_ptr<archive, WriteDeleter>;

ReadPtr NewReader(ArcFormat format)
{
    ReadPtr a(archive_read_new());
    switch (format) {
    case ArcFormat::Lzh:
        archive_read_support_format_lha(a.get());
        // Names come through Latin-1, byte for byte, and are decoded here (LhaRawName):
        // without a charset libarchive gives up on Shift-JIS names.
        archive_read_set_options(a.get(), "hdrcharset=ISO-8859-1");
        break;
    case ArcFormat::Zip:
        archive_read_support_format_zip(a.get());
        break;
    case ArcFormat::Cab:
        archive_read_support_format_cab(a.get());
        break;
    }
    return a;
}

std::filesystem::path NativePath(const QString& path)
{
    return std::filesystem::path(QFile::encodeName(path).toStdString());
}

// Puts a finished temporary file in place of `target`. rename() replaces the name itself, so
// a link standing at the target is replaced, never followed.
bool CommitFile(QTemporaryFile& tmp, const QString& target)
{
    tmp.close();
    std::error_code ec;
    std::filesystem::rename(NativePath(tmp.fileName()), NativePath(target), ec);
    if (ec)
        return false;
    tmp.setAutoRemove(false);
    return true;
}

constexpr QFileDevice::Permissions kFilePerms = QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                                QFileDevice::ReadGroup | QFileDevice::ReadOther;

bool MatchesMask(const ArcExtractOptions& options, const QString& stored)
{
    if (options.masks.isEmpty())
        return true;
    QString subject = stored;
    if (options.match == ArcMaskMatch::BareName) {
        const qsizetype p = qMax(subject.lastIndexOf(u'/'), subject.lastIndexOf(u'\\'));
        subject = subject.mid(p + 1);
    }
    for (const QString& m : options.masks)
        if (ArcWildcardMatch(m, subject))
            return true;
    return false;
}

// The stored names of a cabinet's file table, in the order in which libarchive returns the
// members. libarchive can't give the name of a member that isn't flagged as UTF-8 unless it
// converts it from a code page, so the bytes are taken from the table and decoded here.
QList<QByteArray> CabRawNames(const QByteArray& d)
{
    QByteArray sig;
    int32_t coffFiles = 0;
    int16_t cFiles = 0;
    if (!ByteReader(d).raw(sig, 4) || sig != "MSCF" || !ByteReader(d, 16).i32(coffFiles) ||
        !ByteReader(d, 28).i16(cFiles) || coffFiles < 36)
        return {};
    QList<QByteArray> names;
    qsizetype pos = coffFiles;
    const int count = static_cast<uint16_t>(cFiles);
    for (int i = 0; i < count; ++i) {
        pos += 16; // size, offset in folder, folder, date, time, attributes
        const qsizetype end = pos < d.size() ? d.indexOf('\0', pos) : -1;
        if (end < 0)
            return {};
        names << d.mid(pos, end - pos);
        pos = end + 1;
    }
    return names;
}

QByteArray CabFileTable(const QString& path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return {};
    const QByteArray head = f.read(36);
    int32_t coffFiles = 0;
    int16_t cFiles = 0;
    if (!ByteReader(head, 16).i32(coffFiles) || !ByteReader(head, 28).i16(cFiles) || coffFiles < 0)
        return {};
    f.seek(0);
    return f.read(qint64(coffFiles) + qint64(static_cast<uint16_t>(cFiles)) * (16 + 257));
}

bool IsSjisLead(uint8_t c)
{
    return (c >= 0x81 && c <= 0x9f) || (c >= 0xe0 && c <= 0xfc);
}

// libarchive turns each "\" of an LZH name of some header levels into "/" before the name is
// decoded, and so breaks the Shift-JIS characters whose second byte is 0x5C ("ソ", "表").
// A "/" is never the second byte of a Shift-JIS character: one that follows a lead byte was
// such a 0x5C. A name that is valid UTF-8 as it stands is left alone.
QByteArray RestoreSjisSecondBytes(QByteArray raw)
{
    QStringDecoder utf8(QStringDecoder::Utf8, QStringConverter::Flag::Stateless);
    const QString asUtf8 = utf8.decode(raw); // the decoder works when its result is taken
    if (!utf8.hasError())
        return raw;
    for (qsizetype i = 0; i + 1 < raw.size(); ++i) {
        if (!IsSjisLead(static_cast<uint8_t>(raw[i])))
            continue;
        ++i;
        if (raw[i] == '/')
            raw[i] = '\\';
    }
    return raw;
}

// The bytes of an LZH name read through Latin-1 (see NewReader).
QByteArray LhaRawName(const char* p)
{
    const QString s = QString::fromUtf8(p);
    for (QChar c : s)
        if (c.unicode() > 0xff)
            return QByteArray(p);
    return RestoreSjisSecondBytes(s.toLatin1());
}

int ExtractFrom(ArcFormat format, archive* a, const QString& destDir,
                const ArcExtractOptions& options, ArcProgress* progress, qint64 total,
                const QList<QByteArray>& rawNames = {})
{
    const QFileInfo di(destDir);
    if (!di.isDir())
        return ArcErrOpen;
    const QString dir = di.absoluteFilePath();
    int matched = 0;
    std::vector<char> buf(1 << 16);
    for (qsizetype index = 0;; ++index) {
        archive_entry* e = nullptr;
        const int r = archive_read_next_header(a, &e);
        if (r == ARCHIVE_EOF)
            break;
        if (r < ARCHIVE_WARN) // a warning is a name that libarchive couldn't convert
            return ArcErrCorrupt;
        // Plain files only: directories are flattened away, links are never made.
        if (archive_entry_filetype(e) != AE_IFREG || archive_entry_hardlink(e) ||
            archive_entry_symlink(e))
            continue;
        QByteArray raw;
        if (index < rawNames.size())
            raw = rawNames[index];
        else if (const char* p = archive_entry_pathname(e))
            raw = format == ArcFormat::Lzh ? LhaRawName(p) : QByteArray(p);
        if (raw.isEmpty())
            continue;
        const QString stored = DecodeMemberName(raw);
        const QString name = SafeMemberName(stored);
        if (name.isEmpty() || !MatchesMask(options, stored))
            continue;
        ++matched;
        const QString target = dir + u'/' + name;
        const QFileInfo ti(target);
        if (ti.isDir())
            continue; // never replace a directory
        if (!options.overwrite && (ti.exists() || ti.isSymLink()))
            continue;
        if (progress)
            progress->Update(archive_filter_bytes(a, -1), total, name);
        const qint64 size = archive_entry_size_is_set(e) ? archive_entry_size(e) : -1;
        const qint64 room = freeSpaceProbe()(dir);
        if (size > 0 && room >= 0 && size > room)
            return ArcErrNoSpace;

        if (!FileOpAllowed(FileOpKind::Write, target))
            return ArcErrWrite;
        QTemporaryFile tmp(dir + QStringLiteral("/.tvarc-XXXXXX"));
        if (!tmp.open())
            return ArcErrWrite;
        qint64 written = 0;
        for (;;) {
            const la_ssize_t n = archive_read_data(a, buf.data(), buf.size());
            if (n == 0)
                break;
            if (n < 0)
                return ArcErrCorrupt; // bad check sum, truncation: the temporary file goes
            if (tmp.write(buf.data(), n) != n)
                return ArcErrWrite;
            written += n;
            if (size < 0 && room >= 0 && written > room)
                return ArcErrNoSpace;
        }
        if (!tmp.flush())
            return ArcErrWrite;
        if (archive_entry_mtime_is_set(e)) {
            const QDateTime t = QDateTime::fromSecsSinceEpoch(archive_entry_mtime(e))
                                    .addMSecs(archive_entry_mtime_nsec(e) / 1000000);
            tmp.setFileTime(t, QFileDevice::FileModificationTime);
        }
        tmp.setPermissions(kFilePerms);
        if (!CommitFile(tmp, target))
            return ArcErrWrite;
    }
    if (progress)
        progress->Update(total, total, QString());
    if (!options.masks.isEmpty() && matched == 0)
        return ArcErrNoMatch;
    return ArcOk;
}

// An LZH archive without members is its end mark alone, one zero byte, which libarchive
// doesn't take for an archive.
bool IsEmptyLzh(const QString& path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) && f.readAll() == QByteArray(1, '\0');
}

// The unpack of an archive without members.
int ExtractFrom(const QString& destDir, const ArcExtractOptions& options)
{
    if (!QFileInfo(destDir).isDir())
        return ArcErrOpen;
    return options.masks.isEmpty() ? ArcOk : ArcErrNoMatch;
}

QFileInfoList CollectFiles(const QString& srcDir, const QString& pattern)
{
    QFileInfoList out;
    const QDir d(srcDir);
    for (const QFileInfo& fi :
         d.entryInfoList(QDir::Files | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name)) {
        if (fi.isSymLink() || !fi.isFile())
            continue;
        if (fi.fileName().startsWith(QLatin1String(".tvarc-")))
            continue; // a temporary file of ours
        if (ArcWildcardMatch(pattern, fi.fileName()))
            out << fi;
    }
    return out;
}

int PackZip(QTemporaryFile& tmp, const QFileInfoList& files, ArcProgress* progress, qint64 total)
{
    WritePtr w(archive_write_new());
    archive_write_set_format_zip(w.get());
    archive_write_set_bytes_in_last_block(w.get(), 1);
    if (archive_write_set_options(w.get(), "zip:compression=deflate,zip:hdrcharset=CP932") !=
        ARCHIVE_OK)
        return ArcErrWrite;
    if (archive_write_open_fd(w.get(), tmp.handle()) != ARCHIVE_OK)
        return ArcErrWrite;
    std::vector<char> buf(1 << 16);
    qint64 done = 0;
    for (const QFileInfo& fi : files) {
        QFile in(fi.absoluteFilePath());
        if (!in.open(QIODevice::ReadOnly))
            return ArcErrOpen;
        std::unique_ptr<archive_entry, void (*)(archive_entry*)> e(archive_entry_new(),
                                                                   archive_entry_free);
        // Shift-JIS names without the UTF-8 flag, as the Japanese archivers read them. Raw
        // bytes would get the flag in a UTF-8 locale; the writer converts them instead.
        archive_entry_update_pathname_utf8(e.get(), fi.fileName().toUtf8().constData());
        archive_entry_set_filetype(e.get(), AE_IFREG);
        archive_entry_set_perm(e.get(), 0644);
        archive_entry_set_size(e.get(), fi.size());
        const qint64 ms = fi.lastModified().toMSecsSinceEpoch();
        archive_entry_set_mtime(e.get(), ms / 1000, (ms % 1000) * 1000000);
        if (archive_write_header(w.get(), e.get()) < ARCHIVE_WARN)
            return ArcErrWrite;
        for (;;) {
            const qint64 n = in.read(buf.data(), buf.size());
            if (n < 0)
                return ArcErrOpen;
            if (n == 0)
                break;
            if (archive_write_data(w.get(), buf.data(), static_cast<size_t>(n)) != n)
                return ArcErrWrite;
            done += n;
            if (progress)
                progress->Update(done, total, fi.fileName());
        }
        if (archive_write_finish_entry(w.get()) < ARCHIVE_WARN)
            return ArcErrWrite;
    }
    if (archive_write_close(w.get()) != ARCHIVE_OK)
        return ArcErrWrite;
    return ArcOk;
}

struct GcabProgress {
    ArcProgress* progress;
    qint64 done;
    qint64 total;
};

// Called before each file is compressed.
gboolean OnGcabFile(GCabFile* file, gpointer data)
{
    auto* p = static_cast<GcabProgress*>(data);
    if (p->progress)
        p->progress->Update(p->done, p->total, QString());
    p->done += gcab_file_get_size(file);
    return TRUE;
}

int PackCab(const QString& tmpPath, const QFileInfoList& files, ArcProgress* progress, qint64 total)
{
    GCabCabinet* cab = gcab_cabinet_new();
    GCabFolder* folder = gcab_folder_new(GCAB_COMPRESSION_MSZIP);
    int rc = ArcOk;
    GError* err = nullptr;
    for (const QFileInfo& fi : files) {
        GFile* gf = g_file_new_for_path(QFile::encodeName(fi.absoluteFilePath()).constData());
        // Shift-JIS names, as the Japanese archivers read them.
        GCabFile* cf = gcab_file_new_with_file(ToSjis(fi.fileName()).constData(), gf);
        const gboolean ok = gcab_folder_add_file(folder, cf, FALSE, nullptr, &err);
        g_object_unref(cf);
        g_object_unref(gf);
        if (!ok) {
            rc = ArcErrOpen;
            break;
        }
    }
    if (rc == ArcOk && !gcab_cabinet_add_folder(cab, folder, &err))
        rc = ArcErrWrite;
    if (rc == ArcOk) {
        GFile* out = g_file_new_for_path(QFile::encodeName(tmpPath).constData());
        GFileOutputStream* os =
            g_file_replace(out, nullptr, FALSE, G_FILE_CREATE_NONE, nullptr, &err);
        if (!os) {
            rc = ArcErrWrite;
        } else {
            GcabProgress gp{progress, 0, total};
            if (!gcab_cabinet_write_simple(cab, G_OUTPUT_STREAM(os), OnGcabFile, &gp, nullptr,
                                           &err))
                rc = ArcErrWrite;
            if (!g_output_stream_close(G_OUTPUT_STREAM(os), nullptr, rc == ArcOk ? &err : nullptr))
                rc = ArcErrWrite;
            g_object_unref(os);
        }
        g_object_unref(out);
    }
    if (err)
        g_error_free(err);
    g_object_unref(folder);
    g_object_unref(cab);
    return rc;
}

} // namespace

FreeSpaceProbe SetFreeSpaceProbe(FreeSpaceProbe probe)
{
    FreeSpaceProbe old = std::move(freeSpaceProbe());
    freeSpaceProbe() = std::move(probe);
    return old;
}

QString DecodeMemberName(const QByteArray& raw)
{
    bool ascii = true;
    for (char c : raw)
        if (static_cast<unsigned char>(c) >= 0x80) {
            ascii = false;
            break;
        }
    if (ascii)
        return QString::fromLatin1(raw);
    QStringDecoder utf8(QStringDecoder::Utf8, QStringConverter::Flag::Stateless);
    QString s = utf8.decode(raw);
    if (!utf8.hasError())
        return s;
    return FromSjis(raw);
}

QString SafeMemberName(const QString& storedPath)
{
    QString s = storedPath;
    const qsizetype p = qMax(s.lastIndexOf(u'/'), s.lastIndexOf(u'\\'));
    s = s.mid(p + 1);
    const qsizetype c = s.lastIndexOf(u':'); // "C:NAME", or an alternate data stream
    s = s.mid(c + 1);
    if (s.isEmpty() || s == QLatin1String(".") || s == QLatin1String(".."))
        return {};
    for (QChar ch : s) {
        const char16_t u = ch.unicode();
        // " * ? < > | are names on this file system: such a member lands under its name, as a
        // plain image of that name is copied.
        if (u < 0x20 || u == 0x7f || ch.isSurrogate() || u == 0xfffd)
            return {};
    }
    const QString base = s.section(u'.', 0, 0).trimmed().toUpper();
    static const QStringList devices = {QStringLiteral("CON"),    QStringLiteral("PRN"),
                                        QStringLiteral("AUX"),    QStringLiteral("NUL"),
                                        QStringLiteral("CLOCK$"), QStringLiteral("CONIN$"),
                                        QStringLiteral("CONOUT$")};
    if (devices.contains(base))
        return {};
    if (base.size() == 4 &&
        (base.startsWith(QLatin1String("COM")) || base.startsWith(QLatin1String("LPT"))) &&
        base[3] >= u'0' && base[3] <= u'9')
        return {};
    return s;
}

bool ArcWildcardMatch(const QString& pattern, const QString& name)
{
    if (pattern == QLatin1String("*.*") || pattern == QLatin1String("*"))
        return true; // every file, with or without an extension
    auto fold = [](QChar c) {
        if (c == u'\\')
            return QChar(u'/');
        return c.toCaseFolded();
    };
    qsizetype p = 0, n = 0, star = -1, mark = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == u'*') {
            star = p++;
            mark = n;
        } else if (p < pattern.size() &&
                   (pattern[p] == u'?' || fold(pattern[p]) == fold(name[n]))) {
            ++p;
            ++n;
        } else if (star >= 0) {
            p = star + 1;
            n = ++mark;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == u'*')
        ++p;
    return p == pattern.size();
}

int ExtractArchiveFlat(ArcFormat format, const QString& archivePath, const QString& destDir,
                       const ArcExtractOptions& options, ArcProgress* progress)
{
    const QFileInfo ai(archivePath);
    if (!ai.isFile())
        return ArcErrOpen;
    if (format == ArcFormat::Lzh && ai.size() == 1 && IsEmptyLzh(archivePath))
        return ExtractFrom(destDir, options);
    ReadPtr a = NewReader(format);
    if (archive_read_open_filename(a.get(), QFile::encodeName(archivePath).constData(), 1 << 16) !=
        ARCHIVE_OK)
        return ArcErrOpen;
    const QList<QByteArray> names =
        format == ArcFormat::Cab ? CabRawNames(CabFileTable(archivePath)) : QList<QByteArray>();
    return ExtractFrom(format, a.get(), destDir, options, progress, ai.size(), names);
}

int ExtractArchiveMemory(ArcFormat format, const QByteArray& data, const QString& destDir,
                         const ArcExtractOptions& options)
{
    if (format == ArcFormat::Lzh && data == QByteArray(1, '\0'))
        return ExtractFrom(destDir, options);
    ReadPtr a = NewReader(format);
    if (archive_read_open_memory(a.get(), data.constData(), static_cast<size_t>(data.size())) !=
        ARCHIVE_OK)
        return ArcErrOpen;
    const QList<QByteArray> names =
        format == ArcFormat::Cab ? CabRawNames(data) : QList<QByteArray>();
    return ExtractFrom(format, a.get(), destDir, options, nullptr, data.size(), names);
}

int PackDirectory(ArcFormat format, const QString& archivePath, const QString& srcDir,
                  const QString& pattern, ArcProgress* progress)
{
    if (!QFileInfo(srcDir).isDir())
        return ArcErrOpen;
    const QFileInfoList files = CollectFiles(srcDir, pattern);
    if (files.isEmpty())
        return ArcErrNoFiles; // the old archive stays as it is
    qint64 total = 0;
    for (const QFileInfo& fi : files)
        total += fi.size();
    const QFileInfo ai(archivePath);
    if (!QFileInfo(ai.absolutePath()).isDir() || ai.isDir())
        return ArcErrOpen;
    const QString target = ai.absoluteFilePath();

    if (!FileOpAllowed(FileOpKind::Write, target))
        return ArcErrWrite;
    if (format == ArcFormat::Lzh) {
        QStringList paths;
        for (const QFileInfo& fi : files)
            paths << fi.absoluteFilePath();
        std::function<void(qint64, qint64)> cb;
        if (progress)
            cb = [progress](qint64 done, qint64 all) { progress->Update(done, all, QString()); };
        return WriteLzh5Archive(target, paths, cb) ? ArcOk : ArcErrWrite;
    }

    // What a re-pack cut off by a crash or a kill left beside the archive goes first.
    SweepStaleTemporaries(ai.absolutePath(), QStringLiteral(".tvarc-"));
    QTemporaryFile tmp(ai.absolutePath() + QStringLiteral("/.tvarc-XXXXXX"));
    if (!tmp.open())
        return ArcErrWrite;
    int rc = ArcOk;
    if (format == ArcFormat::Zip) {
        rc = PackZip(tmp, files, progress, total);
        if (rc == ArcOk && !tmp.flush())
            rc = ArcErrWrite;
    } else {
        tmp.close();
        rc = PackCab(tmp.fileName(), files, progress, total);
    }
    if (rc != ArcOk)
        return rc;
    tmp.setPermissions(kFilePerms);
    return CommitFile(tmp, target) ? ArcOk : ArcErrWrite;
}

} // namespace tv
