// Packs one title of two 2D disk images (D88) with the -lh5- writer and sets its speed and size
// beside Info-ZIP's `zip -9` and jlha's `jlha a` on the same files, when they are installed.
// Exit status 1 when a target is missed: no larger than jlha's archive, at most 1.10 times the
// size of zip -9, at least 10 MB/s (by the CPU time of the packing thread).
#include "launch/Lzh5Encoder.h"
#include "util/Sjis.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRandomGenerator>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <algorithm>
#include <archive.h>
#include <archive_entry.h>
#include <cstdio>
#include <ctime>

namespace {

constexpr int kTracks = 80; // 40 cylinders, 2 sides
constexpr int kSectors = 16;
constexpr int kSectorSize = 256;
constexpr int kHeaderSize = 0x2B0;

enum class Fill { Code, Graphics, Text, Packed, Directory, Unused };

void put16(QByteArray& b, qsizetype at, int v)
{
    b[at] = char(v & 0xFF);
    b[at + 1] = char((v >> 8) & 0xFF);
}

void put32(QByteArray& b, qsizetype at, quint32 v)
{
    for (int i = 0; i < 4; ++i)
        b[at + i] = char((v >> (8 * i)) & 0xFF);
}

// Z80-like machine code: frequent opcodes with operands, addresses within the program's area,
// and now and then a routine that repeats an earlier one with small changes.
QByteArray CodeBytes(int n, QRandomGenerator& rng, QByteArray& history)
{
    QByteArray b;
    while (b.size() < n) {
        if (history.size() > 512 && rng.bounded(12) == 0) {
            const int len = rng.bounded(16, 96);
            const int from = rng.bounded(int(history.size()) - len);
            QByteArray piece = history.mid(from, len);
            piece[rng.bounded(len)] = char(rng.bounded(256));
            b += piece;
            continue;
        }
        const quint16 addr = quint16(0x8000 + rng.bounded(0x2000));
        switch (rng.bounded(14)) {
        case 0: // LD A,n
            b += char(0x3E);
            b += char(rng.bounded(4) == 0 ? rng.bounded(256) : rng.bounded(16));
            break;
        case 1: // LD HL,nn
            b += char(0x21);
            b += char(addr & 0xFF);
            b += char(addr >> 8);
            break;
        case 2: // CALL nn
            b += char(0xCD);
            b += char(addr & 0xF0);
            b += char(addr >> 8);
            break;
        case 3: // JP nn
            b += char(0xC3);
            b += char(addr & 0xFF);
            b += char(addr >> 8);
            break;
        case 4: // JR NZ,e / DJNZ e
            b += char(rng.bounded(2) ? 0x20 : 0x10);
            b += char(0xF0 + rng.bounded(16));
            break;
        case 5: // OUT (n),A
            b += char(0xD3);
            b += char(0x30 + rng.bounded(16));
            break;
        case 6: // LD (nn),A
            b += char(0x32);
            b += char(addr & 0xFF);
            b += char(addr >> 8);
            break;
        default: { // one-byte opcodes: LD r,r', INC/DEC, PUSH/POP, RET, ADD
            static const char kOne[] = {'\x77', '\x23', '\x2B', '\xC9', '\xE5', '\xE1', '\xD5',
                                        '\xD1', '\x7E', '\x47', '\x4F', '\x78', '\x79', '\x87',
                                        '\xAF', '\x3C', '\x3D', '\x12', '\x1A', '\x13', '\xB7'};
            b += kOne[rng.bounded(int(sizeof kOne))];
        }
        }
    }
    b.truncate(n);
    history += b;
    return b;
}

// Planar bitmap data: tiles of 8 bytes that repeat with runs of one value between them.
QByteArray GraphicsBytes(int n, QRandomGenerator& rng)
{
    QByteArray b;
    QList<QByteArray> tiles;
    for (int i = 0; i < 24; ++i) {
        QByteArray t(8, '\0');
        for (char& c : t)
            c = char(rng.bounded(256) & (rng.bounded(2) ? 0xFF : 0x3C));
        tiles.append(t);
    }
    while (b.size() < n) {
        if (rng.bounded(4) == 0)
            b += QByteArray(rng.bounded(4, 40), char(rng.bounded(2) ? 0x00 : 0xFF));
        else
            b += tiles[rng.bounded(int(tiles.size()))];
    }
    return b.left(n);
}

// The scenario text of an adventure game in Shift-JIS, with control bytes between messages.
QByteArray TextBytes(int n, QRandomGenerator& rng)
{
    static const char* const kPhrases[] = {"あなたは",
                                           "古い城の",
                                           "扉を",
                                           "開けた。",
                                           "中は暗く、",
                                           "何も見えない。",
                                           "どうする？",
                                           "北へ進む",
                                           "南へ戻る",
                                           "アイテムを",
                                           "手に入れた！",
                                           "鍵が",
                                           "かかっている。",
                                           "村人",
                                           "「ようこそ、",
                                           "旅の方。」",
                                           "勇者よ、",
                                           "魔王を",
                                           "倒してくれ。",
                                           "ＨＰが",
                                           "回復した。",
                                           "セーブしますか？",
                                           "はい",
                                           "いいえ",
                                           "ディスクを",
                                           "入れ替えてください。",
                                           "　",
                                           "、",
                                           "。"};
    QList<QByteArray> phrases;
    for (const char* p : kPhrases)
        phrases.append(tv::ToSjis(QString::fromUtf8(p)));
    QByteArray b;
    while (b.size() < n) {
        const int words = rng.bounded(3, 12);
        for (int i = 0; i < words; ++i)
            b += phrases[rng.bounded(int(phrases.size()))];
        b += rng.bounded(3) == 0 ? QByteArray("\x0D\x0A") : QByteArray(1, '\0');
    }
    return b.left(n);
}

QByteArray PackedBytes(int n, QRandomGenerator& rng)
{
    QByteArray b(n, '\0');
    for (char& c : b)
        c = char(rng.bounded(256));
    return b;
}

// N88-BASIC-like directory and FAT: 16-byte entries, the rest 0xFF.
QByteArray DirectoryBytes(int sector, QRandomGenerator& rng)
{
    QByteArray b(kSectorSize, char(0xFF));
    if (sector < 2) {
        for (int e = 0; e < 6; ++e) {
            QByteArray entry = QByteArray("PROG") + char('0' + sector * 6 + e) + " BAS";
            entry += char(0x80);
            entry += char(rng.bounded(80));
            b.replace(e * 16, 16, entry.leftJustified(16, char(0xFF)));
        }
    } else if (sector < 5) {
        for (int i = 0; i < 160; ++i)
            b[i] = char(rng.bounded(8) == 0 ? 0xFE : (i < 100 ? i + 1 : 0xFF));
    }
    return b;
}

QByteArray MakeD88(const QByteArray& name, const QList<Fill>& plan, quint32 rngSeed)
{
    QRandomGenerator rng(rngSeed);
    QByteArray history;
    QByteArray d(kHeaderSize, '\0');
    d.replace(0, name.size(), name);
    d[0x1A] = 0;    // not write-protected
    d[0x1B] = 0x00; // 2D
    for (int t = 0; t < kTracks; ++t) {
        put32(d, 0x20 + 4 * t, quint32(d.size()));
        for (int s = 0; s < kSectors; ++s) {
            QByteArray h(16, '\0');
            h[0] = char(t / 2);
            h[1] = char(t % 2);
            h[2] = char(s + 1);
            h[3] = 1; // 256 bytes
            put16(h, 4, kSectors);
            put16(h, 14, kSectorSize);
            d += h;
            switch (plan[t]) {
            case Fill::Code:
                d += CodeBytes(kSectorSize, rng, history);
                break;
            case Fill::Graphics:
                d += GraphicsBytes(kSectorSize, rng);
                break;
            case Fill::Text:
                d += TextBytes(kSectorSize, rng);
                break;
            case Fill::Packed:
                d += PackedBytes(kSectorSize, rng);
                break;
            case Fill::Directory:
                d += DirectoryBytes(s, rng);
                break;
            case Fill::Unused:
                d += QByteArray(kSectorSize, char(0xE5));
                break;
            }
        }
    }
    put32(d, 0x1C, quint32(d.size()));
    return d;
}

QList<Fill> Plan(const QList<std::pair<int, Fill>>& runs)
{
    QList<Fill> p;
    for (const auto& [count, fill] : runs)
        for (int i = 0; i < count; ++i)
            p.append(fill);
    while (p.size() < kTracks)
        p.append(Fill::Unused);
    return p;
}

bool WriteFile(const QString& path, const QByteArray& data)
{
    QFile f(path);
    return f.open(QIODevice::WriteOnly) && f.write(data) == data.size();
}

// Reads the archive back with libarchive and compares with the inputs.
bool Verify(const QString& archivePath, const QList<QByteArray>& inputs)
{
    struct archive* a = archive_read_new();
    archive_read_support_format_lha(a);
    bool ok =
        archive_read_open_filename(a, archivePath.toLocal8Bit().constData(), 65536) == ARCHIVE_OK;
    int i = 0;
    struct archive_entry* e = nullptr;
    while (ok && archive_read_next_header(a, &e) == ARCHIVE_OK) {
        QByteArray got;
        char buf[65536];
        la_ssize_t n;
        while ((n = archive_read_data(a, buf, sizeof buf)) > 0)
            got.append(buf, n);
        ok = n == 0 && i < inputs.size() && got == inputs[i++];
    }
    archive_read_free(a);
    return ok && i == inputs.size();
}

qint64 RunTool(const QString& program, const QStringList& args, const QString& dir,
               const QString& output)
{
    if (QStandardPaths::findExecutable(program).isEmpty())
        return -1;
    QProcess p;
    p.setWorkingDirectory(dir);
    p.start(program, args);
    if (!p.waitForFinished(300000) || p.exitCode() != 0)
        return -1;
    return QFileInfo(output).size();
}

qint64 ThreadCpuNs()
{
    timespec ts{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &ts);
    return qint64(ts.tv_sec) * 1000000000 + ts.tv_nsec;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QTemporaryDir tmp;
    if (!tmp.isValid())
        return 2;
    const QString dir = tmp.path();

    // Disk A: boot track, program, graphics, the directory track, text, packed data, unused.
    const QByteArray diskA = MakeD88("GAME DISK A",
                                     Plan({{2, Fill::Code},
                                           {24, Fill::Code},
                                           {10, Fill::Graphics},
                                           {1, Fill::Directory},
                                           {9, Fill::Text},
                                           {6, Fill::Packed},
                                           {28, Fill::Unused}}),
                                     0x88A);
    // Disk B: scenario data, more text and graphics, a larger unused part.
    const QByteArray diskB = MakeD88("GAME DISK B",
                                     Plan({{1, Fill::Code},
                                           {8, Fill::Code},
                                           {16, Fill::Graphics},
                                           {1, Fill::Directory},
                                           {18, Fill::Text},
                                           {4, Fill::Packed},
                                           {32, Fill::Unused}}),
                                     0x88B);
    const QStringList names{"GAMEA.D88", "GAMEB.D88"};
    if (!WriteFile(dir + "/" + names[0], diskA) || !WriteFile(dir + "/" + names[1], diskB))
        return 2;
    const QStringList files{dir + "/" + names[0], dir + "/" + names[1]};
    const qint64 inputBytes = diskA.size() + diskB.size();

    const QString arc = dir + "/TITLE.LZH";
    const int runs = 7;
    // Wall time counts whatever else the machine runs; the thread's CPU time is the work of
    // the writer itself (reading, encoding, writing), which the speed target is judged by.
    QList<qint64> times, cpuTimes;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer t;
        t.start();
        const qint64 cpu0 = ThreadCpuNs();
        if (!tv::WriteLzh5Archive(arc, files))
            return 2;
        cpuTimes.append(ThreadCpuNs() - cpu0);
        times.append(t.nsecsElapsed());
    }
    std::sort(times.begin(), times.end());
    std::sort(cpuTimes.begin(), cpuTimes.end());
    const double median = times[runs / 2] / 1e9;
    const double cpuMedian = cpuTimes[runs / 2] / 1e9;
    const double mbps = inputBytes / 1e6 / cpuMedian;
    const qint64 lzhSize = QFileInfo(arc).size();
    const bool readBack = Verify(arc, {diskA, diskB});

    const qint64 zipSize =
        RunTool("zip", QStringList{"-9", "-q", "-X", "title.zip"} + names, dir, dir + "/title.zip");
    const qint64 jlhaSize =
        RunTool("jlha", QStringList{"a", "title_j.lzh"} + names, dir, dir + "/title_j.lzh");

    std::printf("input: 2 D88 images, %lld + %lld = %lld bytes\n", qint64(diskA.size()),
                qint64(diskB.size()), inputBytes);
    std::printf("-lh5- writer: %lld bytes (%.1f %%), read back by libarchive: %s\n", lzhSize,
                100.0 * lzhSize / inputBytes, readBack ? "identical" : "FAILED");
    std::printf("speed (median of %d runs): %.1f ms CPU = %.1f MB/s; %.1f ms wall = %.1f MB/s\n",
                runs, cpuMedian * 1e3, mbps, median * 1e3, inputBytes / 1e6 / median);
    bool ok = readBack && mbps >= 10.0;
    if (zipSize > 0) {
        const double r = double(lzhSize) / zipSize;
        std::printf("zip -9:       %lld bytes; -lh5- / zip -9 = %.3f (target <= 1.10) %s\n",
                    zipSize, r, r <= 1.10 ? "met" : "MISSED");
        ok = ok && r <= 1.10;
    } else {
        std::printf("zip -9:       not available\n");
    }
    if (jlhaSize > 0) {
        std::printf("jlha a:       %lld bytes; -lh5- / jlha = %.3f (target <= 1.00) %s\n", jlhaSize,
                    double(lzhSize) / jlhaSize, lzhSize <= jlhaSize ? "met" : "MISSED");
        ok = ok && lzhSize <= jlhaSize;
    } else {
        std::printf("jlha a:       not available\n");
    }
    std::printf("speed target >= 10 MB/s (CPU time): %s\n", mbps >= 10.0 ? "met" : "MISSED");
    return ok ? 0 : 1;
}
