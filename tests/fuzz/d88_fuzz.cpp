// Fuzzes the D88 count, split and join with arbitrary file contents. The first input byte
// chooses the name form of the split; the rest is the file. Checks that the count and the
// split agree, and that a join gives back the file with the cleared header bytes.
#include "launch/D88Uty.h"
#include "util/Globals.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdint>
#include <cstdlib>

namespace {

QTemporaryDir* root = nullptr;
QString dir;

void Setup()
{
    root = new QTemporaryDir();
    if (!root->isValid())
        std::abort();
    // The guard refuses paths under TMP: point it elsewhere so that the work folder passes.
    tv::EnvTmpDir = root->path() + "/tmp";
    tv::EnvTempDir = tv::EnvTmpDir;
    tv::WindowsDir = "/etc";
    tv::SystemDir = "/usr";
    QDir().mkpath(tv::EnvTmpDir);
    dir = root->path() + "/work";
    QDir().mkpath(dir);
}

void Clean()
{
    QDir d(dir);
    for (const QString& f : d.entryList(QDir::Files | QDir::Hidden))
        d.remove(f);
}

// The file as the pieces hold it: header bytes 16 to 25 of every disk cleared.
QByteArray Cleared(QByteArray bytes)
{
    qint64 pos = 0;
    while (pos + 32 <= bytes.size()) {
        bytes.replace(pos + 16, 10, QByteArray(10, '\0'));
        const auto* p = reinterpret_cast<const uint8_t*>(bytes.constData() + pos + 28);
        const int32_t size = int32_t(uint32_t(p[0]) | uint32_t(p[1]) << 8 | uint32_t(p[2]) << 16 |
                                     uint32_t(p[3]) << 24);
        if (size < 32)
            break;
        pos += size;
    }
    return bytes;
}

// Whether every disk of a well-formed file is at least as long as its own header. The count
// takes sizes from 1 up, but a disk shorter than its header can't be cut out: the split
// refuses such a file and leaves it whole.
bool DisksHoldTheirHeaders(const QByteArray& bytes)
{
    qint64 pos = 0;
    while (pos + 32 <= bytes.size()) {
        const auto* p = reinterpret_cast<const uint8_t*>(bytes.constData() + pos + 28);
        const int32_t size = int32_t(uint32_t(p[0]) | uint32_t(p[1]) << 8 | uint32_t(p[2]) << 16 |
                                     uint32_t(p[3]) << 24);
        if (size < 32)
            return false;
        pos += size;
    }
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (!root)
        Setup();
    if (size < 1)
        return 0;
    const int shortName = data[0] & 1;
    const QByteArray bytes(reinterpret_cast<const char*>(data + 1), qsizetype(size - 1));
    const QString path = dir + (shortName ? "/FUZZ.D88" : "/Fuzz Image.D88");
    {
        QFile f(path);
        if (!f.open(QIODevice::WriteOnly) || f.write(bytes) != bytes.size())
            std::abort();
    }

    const uint8_t count = tv::D88DiskCount(path);
    if (count > tv::kD88MaxDisks)
        std::abort();

    QStringList pieces;
    const bool split = tv::D88Split(path, dir, pieces, shortName);
    // Every well-formed file of two disks or more splits (unless a disk is shorter than its
    // header); a failed split keeps the file.
    if (count >= 2 && DisksHoldTheirHeaders(bytes) && (!split || pieces.size() != count))
        std::abort();
    if (!split && !QFile::exists(path))
        std::abort();
    if (split) {
        if (QFile::exists(path) || pieces.size() < 2 || pieces.size() > 64)
            std::abort();
        if (!tv::D88Join(path, pieces) || !pieces.isEmpty())
            std::abort();
        QFile f(path);
        if (!f.open(QIODevice::ReadOnly) || f.readAll() != Cleared(bytes))
            std::abort();
    }
    Clean();
    return 0;
}
