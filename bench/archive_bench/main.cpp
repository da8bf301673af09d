// Unpack and re-pack of a title of two 348,000-byte D88 images in each archive format, against
// Info-ZIP (unzip + zip -9) and jlha on the same files.
#include "data/ByteCodec.h"
#include "launch/ArcEngine.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <cstdio>
#include <functional>

using namespace tv;

namespace {

constexpr int kImageSize = 348000;

// A 2D disk: header with the track table, 80 tracks of 16 sectors of 256 bytes, each with its
// 16-byte sector header. Mostly formatted-empty sectors, a boot program, a directory of
// repeated entries and BASIC text; cut to the size of the title's images.
QByteArray MakeD88(int diskNo)
{
    QRandomGenerator rng(diskNo);
    QByteArray data;
    ByteWriter w(data);
    w.raw(QByteArray("GAME DISK ") + QByteArray::number(diskNo), 17, '\0');
    w.raw(QByteArray(), 9, '\0');
    w.u8(0);    // write protect
    w.u8(0x00); // 2D
    w.i32(kImageSize);
    const int header = 0x2b0;
    const int trackBytes = 16 * (16 + 256);
    for (int t = 0; t < 164; ++t)
        w.i32(t < 80 ? header + t * trackBytes : 0);
    const QByteArray basic =
        "10 CLS:PRINT\"ようこそ\"\r\n20 FOR I=0 TO 255:POKE &HC000+I,I:NEXT\r\n"
        "30 GOSUB 1000:IF A$=\"Y\" THEN 20\r\n";
    for (int t = 0; t < 80; ++t) {
        for (int s = 1; s <= 16; ++s) {
            w.u8(static_cast<uint8_t>(t / 2));
            w.u8(static_cast<uint8_t>(t % 2));
            w.u8(static_cast<uint8_t>(s));
            w.u8(1);
            w.i16(16);
            w.u8(0);
            w.u8(0);
            w.u8(0);
            w.raw(QByteArray(), 5, '\0');
            w.i16(256);
            QByteArray sector(256, static_cast<char>(0xe5));
            if (t == 0 && s <= 4) {
                for (char& c : sector) // boot code: varied bytes
                    c = static_cast<char>(rng.bounded(256));
            } else if (t == 36) {
                for (int i = 0; i < 256; i += 16) // directory: repeated entries
                    sector.replace(i, 16,
                                   QByteArray("FILE") + QByteArray::number(i % 7) +
                                       QByteArray("   BAS\x01\x20\x30\x40\xff", 11));
            } else if (t >= 2 && t < 20 + diskNo * 3) {
                for (int i = 0; i < 256; ++i) // program text
                    sector[i] = basic[(i + s * 7 + t) % basic.size()];
                if (s % 5 == 0)
                    for (int i = 0; i < 64; ++i)
                        sector[i * 4] = static_cast<char>(rng.bounded(256));
            }
            w.raw(sector, 256);
        }
    }
    data.resize(kImageSize);
    return data;
}

double Best(int runs, const std::function<void()>& f)
{
    double best = 1e9;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer t;
        t.start();
        f();
        best = qMin(best, t.nsecsElapsed() / 1e6);
    }
    return best;
}

bool Run(const QString& program, const QStringList& args, const QString& dir = QString())
{
    QProcess p;
    if (!dir.isEmpty())
        p.setWorkingDirectory(dir);
    p.start(program, args);
    return p.waitForFinished(60000) && p.exitCode() == 0;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QTemporaryDir root;
    const QString src = root.filePath(QStringLiteral("src"));
    const QString out = root.filePath(QStringLiteral("out"));
    QDir().mkpath(src);
    QDir().mkpath(out);
    for (int i = 1; i <= 2; ++i) {
        QFile f(src + QStringLiteral("/DISK%1.D88").arg(i));
        f.open(QIODevice::WriteOnly);
        f.write(MakeD88(i));
    }
    const qint64 total = 2 * kImageSize;
    const int runs = 5;
    std::printf("title: 2 x %d bytes\n", kImageSize);
    std::printf("%-6s %10s %10s %10s %10s\n", "format", "size", "pack ms", "unpack ms",
                "MB/s pack");
    double zipRound = 0;
    qint64 lzhSize = 0;
    for (auto [fmt, name] : {std::pair{ArcFormat::Zip, "ZIP"}, std::pair{ArcFormat::Lzh, "LZH"},
                             std::pair{ArcFormat::Cab, "CAB"}}) {
        const QString arc = root.filePath(QStringLiteral("title.") + QLatin1String(name));
        int rc = 0;
        const double pack =
            Best(runs, [&] { rc |= PackDirectory(fmt, arc, src, QStringLiteral("*.*")); });
        ArcExtractOptions o;
        o.overwrite = true;
        const double unpack = Best(runs, [&] { rc |= ExtractArchiveFlat(fmt, arc, out, o); });
        const qint64 size = QFileInfo(arc).size();
        std::printf("%-6s %10lld %10.1f %10.1f %10.1f%s\n", name, static_cast<long long>(size),
                    pack, unpack, total / 1e6 / (pack / 1000), rc ? "  (FAILED)" : "");
        if (fmt == ArcFormat::Zip)
            zipRound = pack + unpack;
        if (fmt == ArcFormat::Lzh)
            lzhSize = size;
    }
    const QString izip = root.filePath(QStringLiteral("infozip.zip"));
    const QStringList files = {src + QStringLiteral("/DISK1.D88"),
                               src + QStringLiteral("/DISK2.D88")};
    const double zpack = Best(runs, [&] {
        QFile::remove(izip);
        Run(QStringLiteral("zip"),
            QStringList{QStringLiteral("-9"), QStringLiteral("-j"), QStringLiteral("-q"), izip} +
                files);
    });
    const double zunpack = Best(runs, [&] {
        Run(QStringLiteral("unzip"),
            {QStringLiteral("-o"), QStringLiteral("-q"), izip, QStringLiteral("-d"), out});
    });
    const QString jl = root.filePath(QStringLiteral("jlha.lzh"));
    QFile::remove(jl);
    Run(QStringLiteral("jlha"),
        {QStringLiteral("a1o5"), jl, QStringLiteral("DISK1.D88"), QStringLiteral("DISK2.D88")},
        src);
    const qint64 zsize = QFileInfo(izip).size();
    const qint64 jsize = QFileInfo(jl).size();
    std::printf("Info-ZIP zip -9: %lld bytes, %.1f ms; unzip: %.1f ms\n",
                static_cast<long long>(zsize), zpack, zunpack);
    std::printf("jlha a (-lh5-): %lld bytes\n", static_cast<long long>(jsize));
    std::printf("ZIP round trip / Info-ZIP round trip: %.2f (target <= 1.5)\n",
                zipRound / (zpack + zunpack));
    std::printf("LZH size / jlha: %.3f (target <= 1.0); LZH size / zip -9: %.3f (target <= 1.10)\n",
                double(lzhSize) / jsize, double(lzhSize) / zsize);
    return 0;
}
