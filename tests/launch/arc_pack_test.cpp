// Packing a directory into each format, checked with outside archivers, and the archiver
// command lines as the built-in libraries perform them.
#include "launch/ArcEngine.h"
#include "launch/ArcLibrary.h"
#include "launch/ArcProgress.h"
#include "launch/ArcTestUtil.h"
#include "util/Sjis.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tv;
using namespace arctest;

namespace {

const QString kGame = QStringLiteral("ゲーム①～.D88");
// "ソ" and "表" end in the byte of "\\" in Shift-JIS.
const QString kSoft = QStringLiteral("ソフト表.D88");

class ArcPack : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(root.isValid());
        // A path with a blank, as program directories often have.
        src = root.filePath(QStringLiteral("my work"));
        out = root.filePath(QStringLiteral("out dir"));
        ASSERT_TRUE(QDir().mkpath(src));
        ASSERT_TRUE(QDir().mkpath(out));
        QByteArray disk(348000, '\0');
        for (int i = 0; i < disk.size(); ++i)
            disk[i] = static_cast<char>((i / 256) % 7 == 0 ? i * 31 : 0xE5);
        WriteFile(S(QStringLiteral("GAME.D88")), disk);
        WriteFile(S(kGame), "japanese name\n");
        WriteFile(S(kSoft), "second byte 5C\n");
        WriteFile(S(QStringLiteral("README.TXT")), Seq400());
        stamp = QDateTime(QDate(2003, 4, 5), QTime(6, 7, 8));
        for (const QString& f : Entries(src)) {
            QFile file(S(f));
            ASSERT_TRUE(file.open(QIODevice::ReadWrite));
            file.setFileTime(stamp, QFileDevice::FileModificationTime);
        }
    }
    QString S(const QString& name) const { return src + u'/' + name; }
    QString O(const QString& name) const { return out + u'/' + name; }

    // Unpacks with our own reader and compares every file with the source.
    void ExpectSameFiles(ArcFormat f, const QString& archive)
    {
        QTemporaryDir back;
        ArcExtractOptions o;
        o.overwrite = true;
        ASSERT_EQ(ExtractArchiveFlat(f, archive, back.path(), o), ArcOk);
        EXPECT_EQ(Entries(back.path()), Entries(src));
        for (const QString& n : Entries(src)) {
            EXPECT_EQ(ReadAll(back.path() + u'/' + n), ReadAll(S(n))) << n.toStdString();
            // Member times are kept (to the two seconds of the DOS time at worst).
            const qint64 d = QFileInfo(back.path() + u'/' + n).lastModified().secsTo(stamp);
            EXPECT_LE(qAbs(d), 2) << n.toStdString();
        }
    }

    QTemporaryDir root;
    QString src, out;
    QDateTime stamp;
};

} // namespace

TEST_F(ArcPack, ZipRoundTripPassesUnzipTest)
{
    const QString arc = O(QStringLiteral("title.zip"));
    ASSERT_EQ(PackDirectory(ArcFormat::Zip, arc, src, QStringLiteral("*.*")), ArcOk);
    const ToolRun t = RunTool(QStringLiteral("unzip"), {QStringLiteral("-t"), arc});
    EXPECT_EQ(t.exitCode, 0) << t.out.toStdString();
    ExpectSameFiles(ArcFormat::Zip, arc);
    // Names are stored in Shift-JIS, without the UTF-8 flag (bit 11 of the flags).
    const QByteArray bytes = ReadAll(arc);
    EXPECT_TRUE(bytes.contains(ToSjis(kGame)));
    qsizetype at = 0;
    int headers = 0;
    while ((at = bytes.indexOf(QByteArray("PK\x03\x04", 4), at)) >= 0) {
        EXPECT_EQ(static_cast<uint8_t>(bytes[at + 7]) & 0x08, 0);
        ++headers;
        at += 4;
    }
    EXPECT_EQ(headers, 4);
    EXPECT_EQ(Entries(out), QStringList{QStringLiteral("title.zip")}); // no temporary left
}

TEST_F(ArcPack, CabRoundTripPassesCabextractTest)
{
    const QString arc = O(QStringLiteral("title.cab"));
    ASSERT_EQ(PackDirectory(ArcFormat::Cab, arc, src, QStringLiteral("*.*")), ArcOk);
    const ToolRun t = RunTool(QStringLiteral("cabextract"), {QStringLiteral("-t"), arc});
    EXPECT_EQ(t.exitCode, 0) << t.out.toStdString();
    EXPECT_TRUE(t.out.contains("GAME.D88"));
    EXPECT_TRUE(ReadAll(arc).contains(ToSjis(kGame)));
    ExpectSameFiles(ArcFormat::Cab, arc);
    EXPECT_EQ(Entries(out), QStringList{QStringLiteral("title.cab")});
}

TEST_F(ArcPack, LzhRoundTripPassesLhaAndBsdtar)
{
    const QString arc = O(QStringLiteral("title.lzh"));
    ASSERT_EQ(PackDirectory(ArcFormat::Lzh, arc, src, QStringLiteral("*.*")), ArcOk);
    const ToolRun lha = RunTool(QStringLiteral("lha"), {QStringLiteral("t"), arc});
    EXPECT_EQ(lha.exitCode, 0) << lha.out.toStdString();
    // bsdtar reads Shift-JIS names only when told the charset (so for jlha's archives too).
    const ToolRun tar = RunTool(QStringLiteral("env"),
                                {QStringLiteral("LC_ALL=C.UTF-8"), QStringLiteral("bsdtar"),
                                 QStringLiteral("--options"), QStringLiteral("hdrcharset=CP932"),
                                 QStringLiteral("-tvf"), arc});
    EXPECT_EQ(tar.exitCode, 0) << tar.out.toStdString();
    EXPECT_TRUE(tar.out.contains("GAME.D88"));
    EXPECT_TRUE(tar.out.contains(kGame.toUtf8()));
    EXPECT_TRUE(tar.out.contains(kSoft.toUtf8()));
    EXPECT_TRUE(ReadAll(arc).contains("-lh5-"));
    EXPECT_TRUE(ReadAll(arc).contains(ToSjis(kGame)));
    ExpectSameFiles(ArcFormat::Lzh, arc);
}

TEST_F(ArcPack, PackReplacesTheOldArchive)
{
    const QString arc = O(QStringLiteral("title.zip"));
    WriteFile(S(QStringLiteral("OLD.TXT")), "old");
    ASSERT_EQ(PackDirectory(ArcFormat::Zip, arc, src, QStringLiteral("*.*")), ArcOk);
    QFile::remove(S(QStringLiteral("OLD.TXT")));
    ASSERT_EQ(PackDirectory(ArcFormat::Zip, arc, src, QStringLiteral("*.*")), ArcOk);
    ExpectSameFiles(ArcFormat::Zip, arc); // OLD.TXT is gone from the archive
}

TEST_F(ArcPack, RepackSweepsTheTemporaryOfOneCutOffBefore)
{
    // A re-pack killed midway left its temporary beside the archive; names that only look
    // alike stay.
    const QString arc = O(QStringLiteral("title.zip"));
    WriteFile(O(QStringLiteral(".tvarc-Xy12Ab")), "half an archive");
    WriteFile(O(QStringLiteral(".tvarc-short")), "not ours");
    WriteFile(S(QStringLiteral("GAME.D88")), "game");
    ASSERT_EQ(PackDirectory(ArcFormat::Zip, arc, src, QStringLiteral("*.*")), ArcOk);
    EXPECT_EQ(QDir(QFileInfo(arc).absolutePath())
                  .entryList(QDir::Files | QDir::Hidden, QDir::Name)
                  .join(u','),
              QStringLiteral(".tvarc-short,title.zip"));
}

TEST_F(ArcPack, NothingToPackLeavesTheArchiveAlone)
{
    const QString arc = O(QStringLiteral("title.cab"));
    WriteFile(arc, "old archive");
    QTemporaryDir empty;
    EXPECT_EQ(PackDirectory(ArcFormat::Cab, arc, empty.path(), QStringLiteral("*.*")),
              ArcErrNoFiles);
    EXPECT_EQ(PackDirectory(ArcFormat::Zip, arc, root.filePath(QStringLiteral("none")),
                            QStringLiteral("*.*")),
              ArcErrOpen);
    EXPECT_EQ(ReadAll(arc), QByteArray("old archive"));
    EXPECT_EQ(Entries(out), QStringList{QStringLiteral("title.cab")});
}

TEST_F(ArcPack, SubdirectoriesAndLinksAreNotPacked)
{
    ASSERT_TRUE(QDir().mkpath(S(QStringLiteral("temp"))));
    WriteFile(S(QStringLiteral("temp/INNER.TXT")), "inner");
    ASSERT_TRUE(QFile::link(S(QStringLiteral("README.TXT")), S(QStringLiteral("LINK.TXT"))));
    const QString arc = O(QStringLiteral("title.zip"));
    ASSERT_EQ(PackDirectory(ArcFormat::Zip, arc, src, QStringLiteral("*.*")), ArcOk);
    QTemporaryDir back;
    ASSERT_EQ(ExtractArchiveFlat(ArcFormat::Zip, arc, back.path(), {}), ArcOk);
    EXPECT_EQ(Entries(back.path()), (QStringList{QStringLiteral("GAME.D88"),
                                                 QStringLiteral("README.TXT"), kGame, kSoft}));
}

// The lines of the archive service, as the built-in libraries read them.
TEST_F(ArcPack, BuiltInLibrariesPerformTheCommandLines)
{
    QString buf(1024, QChar(0));
    const QString zip = O(QStringLiteral("t 1.zip"));
    const QString cab = O(QStringLiteral("t 1.cab"));
    EXPECT_EQ(ZipCommand(nullptr, "-j \"" + zip + "\" \"" + src + "\\*.*\"", buf, 1024), 0);
    EXPECT_EQ(CabCommand(nullptr, "-a \"" + cab + "\" \"" + src + "\\\" *.*", buf, 1024), 0);
    EXPECT_EQ(CabCommand(nullptr, "-a -i \"" + cab + "\" \"" + src + "\\\" *.*", buf, 1024), 0);

    const QString dest = root.filePath(QStringLiteral("dest dir"));
    QDir().mkpath(dest);
    EXPECT_EQ(UnZipCommand(nullptr, "-x -o --i \"" + zip + "\" \"" + dest + "\\\"", buf, 1024), 0);
    EXPECT_EQ(Entries(dest), Entries(src));
    // Without -o an existing file is kept.
    WriteFile(dest + QStringLiteral("/README.TXT"), "mine");
    EXPECT_EQ(CabCommand(nullptr, "-x -i \"" + cab + "\" \"" + dest + "\\\" *.*", buf, 1024), 0);
    EXPECT_EQ(ReadAll(dest + QStringLiteral("/README.TXT")), QByteArray("mine"));
    EXPECT_EQ(CabCommand(nullptr, "-x -o -i \"" + cab + "\" \"" + dest + "\\\" \"*README.TXT\"",
                         buf, 1024),
              0);
    EXPECT_EQ(ReadAll(dest + QStringLiteral("/README.TXT")), Seq400());
    EXPECT_EQ(UnlhaCommand(nullptr,
                           "e \"" + Fixture(QStringLiteral("jlha_lh5.lzh")) + "\" \"" + dest +
                               "\\\" \"GAME.D88\" -n -y",
                           buf, 1024),
              0);
    EXPECT_EQ(ReadAll(dest + QStringLiteral("/GAME.D88")), QByteArray("disk in B, another one\n"));
    // A line that isn't understood, or an archive that isn't there.
    EXPECT_NE(UnlhaCommand(nullptr, QStringLiteral("x \"a.lzh\""), buf, 1024), 0);
    EXPECT_NE(UnZipCommand(nullptr,
                           "-x \"" + O(QStringLiteral("none.zip")) + "\" \"" + dest + "\\\"", buf,
                           1024),
              0);
}

TEST_F(ArcPack, ZipLineWithoutProgressFailsAndWritesNothing)
{
    // The fixed part "-j -q & Chr$(34) " leaves no opening quote before the archive's path.
    const QString zip = O(QStringLiteral("t.zip"));
    QString buf(1024, QChar(0));
    EXPECT_NE(ZipCommand(nullptr, "-j -q & Chr$(34) " + zip + "\" \"" + src + "\\*.*\"", buf, 1024),
              0);
    EXPECT_TRUE(Entries(out).isEmpty());
}

TEST_F(ArcPack, ProgressOnlyWhenWanted)
{
    struct Recorder : ArcProgress {
        explicit Recorder(int* n) : n_(n) {}
        void Update(qint64, qint64, const QString&) override { ++*n_; }
        int* n_;
    };
    int made = 0, updates = 0;
    QObject owner;
    QObject* seenOwner = nullptr;
    ArcProgressFactory old =
        SetArcProgressFactory([&](QObject* o, const QString&) -> std::unique_ptr<ArcProgress> {
            ++made;
            seenOwner = o;
            return std::make_unique<Recorder>(&updates);
        });
    QString buf(1024, QChar(0));
    const QString zip = O(QStringLiteral("p.zip"));
    ZipCommand(&owner, "-j \"" + zip + "\" \"" + src + "\\*.*\"", buf, 1024);
    EXPECT_EQ(made, 1);
    EXPECT_EQ(seenOwner, &owner);
    EXPECT_GT(updates, 0);
    UnZipCommand(&owner, "-x -o --i \"" + zip + "\" \"" + out + "\\\"", buf, 1024);
    EXPECT_EQ(made, 1); // "--i": no progress
    UnZipCommand(&owner, "-x -o \"" + zip + "\" \"" + out + "\\\"", buf, 1024);
    EXPECT_EQ(made, 2);
    SetArcProgressFactory(old);
}

TEST(ArcCommandLine, SplitsAtBlanksOutsideQuotes)
{
    EXPECT_EQ(SplitArcCommandLine(QStringLiteral("-x -o \"/a b/c.zip\" \"/d e\\\"")),
              (QStringList{QStringLiteral("-x"), QStringLiteral("-o"), QStringLiteral("/a b/c.zip"),
                           QStringLiteral("/d e\\")}));
    EXPECT_EQ(SplitArcCommandLine(QStringLiteral("a  \"\" b")),
              (QStringList{QStringLiteral("a"), QString(), QStringLiteral("b")}));
    EXPECT_EQ(SplitArcCommandLine(QStringLiteral("x/a.zip\" \"/s\\*.*\"")),
              QStringList{QStringLiteral("x/a.zip /s\\*.*")});
    // Inside quotes a doubled quote is one quote of the name.
    EXPECT_EQ(SplitArcCommandLine(QStringLiteral("e \"/i/GA\"\"ME.LZH\" \"/w\\\"")),
              (QStringList{QStringLiteral("e"), QStringLiteral("/i/GA\"ME.LZH"),
                           QStringLiteral("/w\\")}));
}
