// The -lh5- writer, checked by readers that are not ours: libarchive in process, and lhasa,
// bsdtar and jlha as outside programs when they are installed.
#include "launch/Lzh5Encoder.h"
#include "launch/Lzh5Member.h"
#include "util/Sjis.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <archive.h>
#include <archive_entry.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace tv {
namespace {

struct Member {
    QByteArray rawName; // as stored, Shift-JIS
    QByteArray data;
    qint64 mtime = 0;
};

// Reads every member with libarchive; false when it reports anything but success.
bool ReadWithLibarchive(const QByteArray& bytes, QList<Member>& members, QString& error)
{
    struct archive* a = archive_read_new();
    archive_read_support_format_lha(a);
    // Names stay as stored, so that they can be compared byte for byte.
    archive_read_set_options(a, "lha:hdrcharset=CP932");
    bool ok = archive_read_open_memory(a, bytes.constData(), bytes.size()) == ARCHIVE_OK;
    struct archive_entry* e = nullptr;
    while (ok) {
        const int r = archive_read_next_header(a, &e);
        if (r == ARCHIVE_EOF)
            break;
        if (r != ARCHIVE_OK) {
            ok = false;
            break;
        }
        Member m;
        const wchar_t* w = archive_entry_pathname_w(e);
        m.rawName = w ? ToSjis(QString::fromWCharArray(w)) : QByteArray(archive_entry_pathname(e));
        m.mtime = archive_entry_mtime(e);
        char buf[65536];
        for (;;) {
            const la_ssize_t n = archive_read_data(a, buf, sizeof buf);
            if (n < 0) {
                ok = false;
                break;
            }
            if (n == 0)
                break;
            m.data.append(buf, n);
        }
        members.append(m);
    }
    if (!ok)
        error = QString::fromUtf8(archive_error_string(a) ? archive_error_string(a) : "?");
    archive_read_free(a);
    return ok;
}

QByteArray RandomBytes(qsizetype n, quint32 rngSeed)
{
    QRandomGenerator rng(rngSeed);
    QByteArray b(n, Qt::Uninitialized);
    for (qsizetype i = 0; i < n; ++i)
        b[i] = char(rng.bounded(256));
    return b;
}

// Words of a small vocabulary in Shift-JIS and ASCII, as in game manuals and READMEs.
QByteArray TextBytes(qsizetype n, quint32 rngSeed)
{
    static const char* const kWords[] = {
        "DISK",   "BASIC",    "LOAD", "RUN",  "ENTER",      "the",      "game",   "start",  "\r\n",
        "ゲーム", "ディスク", "を",   "して", "ください。", "ユーザー", "セーブ", "データ", "　"};
    QList<QByteArray> words;
    for (const char* w : kWords)
        words.append(ToSjis(QString::fromUtf8(w)));
    QRandomGenerator rng(rngSeed);
    QByteArray b;
    while (b.size() < n) {
        b += words[rng.bounded(int(words.size()))];
        b += ' ';
    }
    return b.left(n);
}

// Long runs of one byte with short stretches of other content between them.
QByteArray RepetitiveBytes(qsizetype n, quint32 rngSeed)
{
    QRandomGenerator rng(rngSeed);
    QByteArray b;
    while (b.size() < n) {
        b += QByteArray(int(rng.bounded(100, 3000)), char(0xE5));
        b += RandomBytes(rng.bounded(1, 40), rng.generate());
    }
    return b.left(n);
}

// Text, code-like bytes and filler in turn, like a disk image.
QByteArray MixedBytes(qsizetype n, quint32 rngSeed)
{
    QRandomGenerator rng(rngSeed);
    QByteArray b;
    while (b.size() < n) {
        switch (rng.bounded(3)) {
        case 0:
            b += TextBytes(rng.bounded(500, 5000), rng.generate());
            break;
        case 1:
            b += RandomBytes(rng.bounded(100, 2000), rng.generate());
            break;
        default:
            b += RepetitiveBytes(rng.bounded(256, 8000), rng.generate());
        }
    }
    return b.left(n);
}

QDateTime EvenTime(int offsetDays)
{
    return QDateTime(QDate(1994, 7, 15).addDays(offsetDays), QTime(13, 47, 22));
}

class Lzh5EncoderTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(dir_.isValid()); }

    QString path(const QString& name) const { return dir_.filePath(name); }

    QString writeFile(const QString& name, const QByteArray& data, const QDateTime& mtime)
    {
        QDir().mkpath(dir_.filePath("in"));
        const QString p = dir_.filePath("in/" + name);
        QFile f(p);
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        EXPECT_EQ(f.write(data), data.size());
        EXPECT_TRUE(f.flush()); // a later write would set the time anew
        EXPECT_TRUE(f.setFileTime(mtime, QFileDevice::FileModificationTime));
        f.close();
        return p;
    }

    static QByteArray readAll(const QString& p)
    {
        QFile f(p);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }

    // bsdtar converts member names (Shift-JIS, as it is told) into the locale's character
    // set, which cannot be done in the C locale.
    static QProcessEnvironment ToolEnvironment()
    {
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert("LC_ALL", "C.UTF-8");
        return env;
    }

    // Runs an outside tester; true when it ran and said success.
    static bool RunTool(const QString& program, const QStringList& args, QString& output)
    {
        QProcess proc;
        proc.setProcessEnvironment(ToolEnvironment());
        proc.setProcessChannelMode(QProcess::MergedChannels);
        proc.start(program, args);
        if (!proc.waitForFinished(120000))
            return false;
        output = QString::fromLocal8Bit(proc.readAll());
        return proc.exitStatus() == QProcess::NormalExit && proc.exitCode() == 0;
    }

    // Writes `inputs` (name, data, time) into an archive and reads it back with libarchive and
    // the outside tools.
    void RoundTrip(const QList<std::pair<QString, QByteArray>>& inputs, QByteArray* archiveOut)
    {
        QStringList files;
        QList<QDateTime> times;
        for (int i = 0; i < inputs.size(); ++i) {
            times.append(EvenTime(i));
            files.append(writeFile(inputs[i].first, inputs[i].second, times.last()));
        }
        const QString arc = path("out.lzh");
        ASSERT_TRUE(WriteLzh5Archive(arc, files));
        const QByteArray archive = readAll(arc);
        if (archiveOut)
            *archiveOut = archive;

        QList<Member> members;
        QString error;
        ASSERT_TRUE(ReadWithLibarchive(archive, members, error)) << error.toStdString();
        ASSERT_EQ(members.size(), inputs.size());
        for (int i = 0; i < inputs.size(); ++i) {
            EXPECT_EQ(members[i].rawName, ToSjis(inputs[i].first));
            EXPECT_TRUE(members[i].data == inputs[i].second) << "member " << i;
            EXPECT_EQ(members[i].mtime, times[i].toSecsSinceEpoch());
        }
        CheckWithTools(arc, inputs);
    }

    void CheckWithTools(const QString& arc, const QList<std::pair<QString, QByteArray>>& inputs)
    {
        QString out;
        if (!QStandardPaths::findExecutable("lhasa").isEmpty()) {
            EXPECT_TRUE(RunTool("lhasa", {"t", arc}, out)) << out.toStdString();
            EXPECT_FALSE(out.contains("CRC", Qt::CaseInsensitive)) << out.toStdString();
        }
        if (!QStandardPaths::findExecutable("bsdtar").isEmpty()) {
            EXPECT_TRUE(RunTool("bsdtar", {"--options", "lha:hdrcharset=CP932", "-tvf", arc}, out))
                << out.toStdString();
            EXPECT_EQ(out.count('\n'), inputs.size()) << out.toStdString();
            // And the content, through bsdtar's own reading of the data.
            QProcess cat;
            cat.setProcessEnvironment(ToolEnvironment());
            cat.start("bsdtar", {"--options", "lha:hdrcharset=CP932", "-xOf", arc});
            ASSERT_TRUE(cat.waitForFinished(120000));
            QByteArray all;
            for (const auto& in : inputs)
                all += in.second;
            EXPECT_EQ(cat.exitCode(), 0);
            EXPECT_TRUE(cat.readAllStandardOutput() == all);
        }
        if (!QStandardPaths::findExecutable("jlha").isEmpty()) {
            EXPECT_TRUE(RunTool("jlha", {"t", arc}, out)) << out.toStdString();
            EXPECT_EQ(out.count("Tested"), inputs.size()) << out.toStdString();
        }
    }

    QTemporaryDir dir_;
};

TEST_F(Lzh5EncoderTest, Crc16OfTheFormat)
{
    // Check value of CRC-16/ARC over "123456789".
    const QByteArray s("123456789");
    EXPECT_EQ(LzhCrc16(reinterpret_cast<const uint8_t*>(s.constData()), s.size()), 0xBB3D);
}

TEST_F(Lzh5EncoderTest, DosDateTimeFields)
{
    EXPECT_EQ(DosDateTime(QDateTime(QDate(1994, 7, 15), QTime(13, 47, 23))),
              uint32_t((14 << 9 | 7 << 5 | 15) << 16 | (13 << 11 | 47 << 5 | 11)));
    EXPECT_EQ(DosDateTime(QDateTime(QDate(1970, 1, 1), QTime(0, 0))), uint32_t(0x00210000));
}

TEST_F(Lzh5EncoderTest, TextCompressesAndReadsBack)
{
    const QByteArray text = TextBytes(50000, 1);
    QByteArray archive;
    RoundTrip({{"README.TXT", text}}, &archive);
    EXPECT_EQ(archive.mid(2, 5), QByteArray("-lh5-"));
    EXPECT_LT(archive.size(), text.size() / 2);
}

TEST_F(Lzh5EncoderTest, RandomDataIsStored)
{
    const QByteArray data = RandomBytes(30000, 2);
    QByteArray archive;
    RoundTrip({{"RANDOM.BIN", data}}, &archive);
    EXPECT_EQ(archive.mid(2, 5), QByteArray("-lh0-"));
    // Header, data and the end byte, nothing more.
    EXPECT_EQ(archive.size(), 2 + 25 + 10 + data.size() + 1);
}

TEST_F(Lzh5EncoderTest, RepetitiveData)
{
    const QByteArray data = RepetitiveBytes(200000, 3);
    QByteArray archive;
    RoundTrip({{"FILL.D88", data}, {"ZERO.BIN", QByteArray(100000, '\0')}}, &archive);
    EXPECT_LT(archive.size(), 20000);
}

TEST_F(Lzh5EncoderTest, EmptyAndOneByteFiles)
{
    QByteArray archive;
    RoundTrip({{"EMPTY.DAT", QByteArray()}, {"ONE.DAT", QByteArray("A")}}, &archive);
    EXPECT_EQ(archive.mid(2, 5), QByteArray("-lh0-"));
}

TEST_F(Lzh5EncoderTest, LargeAndMultiMegabyteFiles)
{
    RoundTrip({{"DISK1.D88", MixedBytes(70000, 4)}, {"DISK2.D88", MixedBytes(3 << 20, 5)}},
              nullptr);
}

TEST_F(Lzh5EncoderTest, MatchesAtTheFullDictionaryDistance)
{
    // Random data repeating every 8192 bytes can only be matched at exactly that distance.
    const QByteArray period = RandomBytes(8192, 6);
    QByteArray archive;
    RoundTrip({{"PERIOD.BIN", period + period + period + period.left(1000)}}, &archive);
    EXPECT_EQ(archive.mid(2, 5), QByteArray("-lh5-"));
    EXPECT_LT(archive.size(), 8192 + 2000);
}

TEST_F(Lzh5EncoderTest, JapaneseNamesAreShiftJis)
{
    RoundTrip({{QString::fromUtf8("ゲーム　ディスク①.D88"), TextBytes(3000, 7)},
               {QString::fromUtf8("テスト～－.TXT"), TextBytes(10, 8)}},
              nullptr);
}

TEST_F(Lzh5EncoderTest, NameTooLongForTheBaseHeader)
{
    RoundTrip({{QString(240, 'N') + ".TXT", TextBytes(5000, 9)}}, nullptr);
}

TEST_F(Lzh5EncoderTest, OddSecondsRoundDown)
{
    const QString f = writeFile("ODD.TXT", "odd", QDateTime(QDate(2001, 2, 3), QTime(4, 5, 7)));
    ASSERT_TRUE(WriteLzh5Archive(path("odd.lzh"), {f}));
    QList<Member> members;
    QString error;
    ASSERT_TRUE(ReadWithLibarchive(readAll(path("odd.lzh")), members, error));
    ASSERT_EQ(members.size(), 1);
    EXPECT_EQ(members[0].mtime, QDateTime(QDate(2001, 2, 3), QTime(4, 5, 6)).toSecsSinceEpoch());
}

TEST_F(Lzh5EncoderTest, EmptyListIsTheEndMarkerAlone)
{
    const QString arc = path("empty.lzh");
    ASSERT_TRUE(WriteLzh5Archive(arc, {}));
    EXPECT_EQ(readAll(arc), QByteArray(1, '\0'));
    // LZH archivers list it as an archive of no files. (libarchive recognises an LZH archive
    // by its first header only, so it cannot tell this one from any other one-byte file.)
    QString out;
    if (!QStandardPaths::findExecutable("lhasa").isEmpty()) {
        EXPECT_TRUE(RunTool("lhasa", {"l", arc}, out)) << out.toStdString();
        EXPECT_TRUE(out.contains(QRegularExpression("Total +0 files"))) << out.toStdString();
    }
    if (!QStandardPaths::findExecutable("jlha").isEmpty()) {
        EXPECT_TRUE(RunTool("jlha", {"l", arc}, out)) << out.toStdString();
        EXPECT_TRUE(out.contains(QRegularExpression("Total +0 files"))) << out.toStdString();
    }
}

// The paths of the encoder that ordinary data seldom takes: a character tree or pre-tree of one
// symbol (sent as two), no position tree at all, a position tree of one symbol, a block of a
// single code.
TEST_F(Lzh5EncoderTest, DegenerateTreesForcedAsLh5)
{
    const QList<QByteArray> cases = {
        QByteArray("A"),                          // one character, no positions
        QByteArray("\x00\x01", 2),                // two characters: a pre-tree of one code
        QByteArray(1, '\0'),                      // the lowest character alone
        QByteArray("\x01\x00\x00\x01", 4),        // the two lowest characters
        QByteArray(10, 'A'),                      // one position class, offset 0
        QByteArray("AB").repeated(20),            // one position class with no extra bits
        QByteArray("ABCDE").repeated(20),         // one position class with extra bits
        QByteArray(300, 'B') + QByteArray("xyz"), // several classes
        QByteArray(),                             // nothing at all
    };
    // One archive of all cases, so that each outside tool starts once.
    QByteArray archive;
    QList<std::pair<QString, QByteArray>> expected;
    for (int i = 0; i < cases.size(); ++i) {
        const QByteArray name = "CASE" + QByteArray::number(i);
        const qsizetype at = archive.size();
        ASSERT_TRUE(AppendLzhMember(archive, name, DosDateTime(EvenTime(0)),
                                    reinterpret_cast<const uint8_t*>(cases[i].constData()),
                                    cases[i].size(), {}, LzhMethod::Lh5));
        EXPECT_EQ(archive.mid(at + 2, 5), QByteArray("-lh5-")) << "case " << i;
        expected.append({QString::fromLatin1(name), cases[i]});
    }
    archive.append('\0');
    QList<Member> members;
    QString error;
    ASSERT_TRUE(ReadWithLibarchive(archive, members, error)) << error.toStdString();
    ASSERT_EQ(members.size(), cases.size());
    for (int i = 0; i < cases.size(); ++i)
        EXPECT_TRUE(members[i].data == cases[i]) << "case " << i;
    const QString arc = path("cases.lzh");
    QFile f(arc);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(archive);
    f.close();
    CheckWithTools(arc, expected);
}

TEST_F(Lzh5EncoderTest, ProgressRunsToTheTotal)
{
    const QString a = writeFile("A.BIN", MixedBytes(300000, 10), EvenTime(0));
    const QString b = writeFile("B.BIN", RandomBytes(50000, 11), EvenTime(0));
    qint64 last = -1, seenTotal = 0;
    bool monotonic = true;
    ASSERT_TRUE(WriteLzh5Archive(path("p.lzh"), {a, b}, [&](qint64 done, qint64 total) {
        monotonic = monotonic && done >= last && done <= total;
        last = done;
        seenTotal = total;
    }));
    EXPECT_TRUE(monotonic);
    EXPECT_EQ(seenTotal, 350000);
    EXPECT_EQ(last, 350000);
}

TEST_F(Lzh5EncoderTest, NoTemporaryFileAfterSuccess)
{
    const QString a = writeFile("A.TXT", TextBytes(1000, 12), EvenTime(0));
    QDir out(path("out"));
    ASSERT_TRUE(QDir().mkpath(out.path()));
    ASSERT_TRUE(WriteLzh5Archive(out.filePath("GAME.LZH"), {a}));
    EXPECT_EQ(out.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList{"GAME.LZH"});
}

TEST_F(Lzh5EncoderTest, FailureKeepsTheOldArchiveAndLeavesNothing)
{
    const QString a = writeFile("A.TXT", TextBytes(1000, 13), EvenTime(0));
    QDir out(path("out"));
    ASSERT_TRUE(QDir().mkpath(out.path()));
    const QString arc = out.filePath("GAME.LZH");
    ASSERT_TRUE(WriteLzh5Archive(arc, {a}));
    const QByteArray before = readAll(arc);
    // A missing file, a directory: the list is refused and the archive stays as it was.
    EXPECT_FALSE(WriteLzh5Archive(arc, {a, path("in/MISSING.TXT")}));
    EXPECT_FALSE(WriteLzh5Archive(arc, {a, path("in")}));
    EXPECT_EQ(readAll(arc), before);
    EXPECT_EQ(out.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList{"GAME.LZH"});
}

TEST_F(Lzh5EncoderTest, UnwritableTargetFails)
{
    const QString a = writeFile("A.TXT", TextBytes(1000, 14), EvenTime(0));
    EXPECT_FALSE(WriteLzh5Archive(path("no/such/dir/GAME.LZH"), {a}));
    EXPECT_FALSE(QFileInfo::exists(path("no")));
    // A directory in the place of the archive.
    ASSERT_TRUE(QDir().mkpath(path("taken.lzh")));
    EXPECT_FALSE(WriteLzh5Archive(path("taken.lzh"), {a}));
    EXPECT_TRUE(QFileInfo(path("taken.lzh")).isDir());
    EXPECT_TRUE(
        QDir(path("taken.lzh")).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
    if (geteuid() != 0) {
        // A directory without write permission (root writes anyway, so only as a user).
        const QString ro = path("ro");
        ASSERT_TRUE(QDir().mkpath(ro));
        QFile::setPermissions(ro, QFileDevice::ReadOwner | QFileDevice::ExeOwner);
        EXPECT_FALSE(WriteLzh5Archive(ro + "/GAME.LZH", {a}));
        EXPECT_TRUE(QDir(ro).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
        QFile::setPermissions(ro, QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                      QFileDevice::ExeOwner);
    }
}

TEST_F(Lzh5EncoderTest, NameOutsideShiftJisIsRefused)
{
    const QString a = writeFile(QString::fromUtf8("😀.TXT"), "x", EvenTime(0));
    EXPECT_FALSE(WriteLzh5Archive(path("emoji.lzh"), {a}));
    EXPECT_FALSE(QFileInfo::exists(path("emoji.lzh")));
}

} // namespace
} // namespace tv
