// Unpacking and packing of LZH, ZIP and CAB: archives made by outside archivers, hostile and
// damaged archives, and round trips checked with outside tools.
#include "launch/ArcEngine.h"
#include "launch/ArcProgress.h"
#include "launch/ArcTestUtil.h"
#include "util/Sjis.h"

#include <QDateTime>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTimeZone>
#include <gtest/gtest.h>

using namespace tv;
using namespace arctest;

namespace {

const QString kGame = QStringLiteral("ゲーム.D88");
const QString kMemo = QStringLiteral("メモ.TXT");

class ArcEngine : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(root.isValid());
        dest = root.filePath(QStringLiteral("dest"));
        ASSERT_TRUE(QDir().mkpath(dest));
    }
    int Extract(ArcFormat f, const QString& fixture, bool overwrite = true, QStringList masks = {},
                ArcMaskMatch match = ArcMaskMatch::WholePath)
    {
        ArcExtractOptions o;
        o.overwrite = overwrite;
        o.masks = masks;
        o.match = match;
        return ExtractArchiveFlat(f, Fixture(fixture), dest, o);
    }
    QString D(const QString& name) const { return dest + u'/' + name; }

    QTemporaryDir root;
    QString dest;
};

QDateTime Utc(int y, int mo, int d, int h, int mi, int s)
{
    return QDateTime(QDate(y, mo, d), QTime(h, mi, s), Qt::UTC);
}

} // namespace

TEST_F(ArcEngine, LzhFromJlhaLandsFlatWithShiftJisNames)
{
    ASSERT_EQ(Extract(ArcFormat::Lzh, QStringLiteral("jlha_lh5.lzh")), ArcOk);
    EXPECT_EQ(Entries(dest),
              (QStringList{QStringLiteral("GAME.D88"), QStringLiteral("README.TXT"), kGame}));
    EXPECT_EQ(ReadAll(D(QStringLiteral("README.TXT"))), Seq400()); // -lh5-
    // Two members of one bare name: with overwrite the later one stays.
    EXPECT_EQ(ReadAll(D(QStringLiteral("GAME.D88"))), QByteArray("disk in B, another one\n"));
    EXPECT_EQ(ReadAll(D(kGame)), QByteArray("japanese name\n"));
}

TEST_F(ArcEngine, LzhWithoutOverwriteKeepsTheFirstOfTwoEqualNames)
{
    ASSERT_EQ(Extract(ArcFormat::Lzh, QStringLiteral("jlha_lh5.lzh"), false), ArcOk);
    EXPECT_EQ(ReadAll(D(QStringLiteral("GAME.D88"))), QByteArray("disk in A\n"));
}

TEST_F(ArcEngine, LzhHeaderLevelsAndMethods)
{
    for (const char* f :
         {"jlha_level0.lzh", "jlha_lh5.lzh", "jlha_level2.lzh", "jlha_lh6.lzh", "jlha_lh7.lzh"}) {
        SCOPED_TRACE(f);
        QFile::remove(D(QStringLiteral("README.TXT")));
        ASSERT_EQ(Extract(ArcFormat::Lzh, QString::fromLatin1(f)), ArcOk);
        EXPECT_EQ(ReadAll(D(QStringLiteral("README.TXT"))), Seq400());
    }
    // A level-2 header keeps the time in UTC.
    EXPECT_EQ(QFileInfo(D(QStringLiteral("README.TXT"))).lastModified().toUTC(),
              Utc(2001, 2, 3, 4, 5, 6));
    EXPECT_TRUE(QFileInfo::exists(D(kGame)));
}

TEST_F(ArcEngine, ShiftJisNamesWithA5CSecondByteKeepTheirCharacters)
{
    // "ソ" and "表" end in the byte of "\\" in Shift-JIS; a name with them is one name, in
    // a subdirectory or not, whatever the header level or the format.
    const QString soft = QStringLiteral("ソフト表.D88");
    const QString soft2 = QStringLiteral("ソフト表2.D88");
    for (auto [fmt, fixture] :
         {std::pair{ArcFormat::Lzh, "sjis5c_level0.lzh"},
          std::pair{ArcFormat::Lzh, "sjis5c_level1.lzh"},
          std::pair{ArcFormat::Lzh, "sjis5c_level2.lzh"}, std::pair{ArcFormat::Zip, "sjis5c.zip"},
          std::pair{ArcFormat::Cab, "sjis5c.cab"}}) {
        SCOPED_TRACE(fixture);
        QDir(dest).removeRecursively();
        QDir().mkpath(dest);
        ASSERT_EQ(Extract(fmt, QString::fromLatin1(fixture)), ArcOk);
        EXPECT_EQ(Entries(dest), (QStringList{soft, soft2}));
        EXPECT_EQ(ReadAll(D(soft)), QByteArray("soft\n"));
        EXPECT_EQ(ReadAll(D(soft2)), QByteArray("in dir\n"));
        // A mask finds them by that name.
        QDir(dest).removeRecursively();
        QDir().mkpath(dest);
        if (fmt == ArcFormat::Lzh)
            ASSERT_EQ(
                Extract(fmt, QString::fromLatin1(fixture), true, {soft2}, ArcMaskMatch::BareName),
                ArcOk);
        else
            ASSERT_EQ(Extract(fmt, QString::fromLatin1(fixture), true, {u'*' + soft2}), ArcOk);
        EXPECT_EQ(Entries(dest), QStringList{soft2});
    }
}

TEST_F(ArcEngine, ZipFromInfoZipWithShiftJisAndUtf8Names)
{
    ASSERT_EQ(Extract(ArcFormat::Zip, QStringLiteral("infozip.zip")), ArcOk);
    EXPECT_EQ(Entries(dest), (QStringList{QStringLiteral("GAME.D88"), QStringLiteral("README.TXT"),
                                          kGame, kMemo}));
    EXPECT_EQ(ReadAll(D(QStringLiteral("README.TXT"))), Seq400());
    EXPECT_EQ(ReadAll(D(QStringLiteral("GAME.D88"))), QByteArray("disk in B, another one\n"));
    EXPECT_EQ(ReadAll(D(kMemo)), QByteArray("memo\n"));
    EXPECT_EQ(QFileInfo(D(QStringLiteral("README.TXT"))).lastModified().toUTC(),
              Utc(2001, 2, 3, 4, 5, 6));
}

TEST_F(ArcEngine, CabFromGcabWithShiftJisAndUtf8Names)
{
    ASSERT_EQ(Extract(ArcFormat::Cab, QStringLiteral("gcab.cab")), ArcOk);
    EXPECT_EQ(Entries(dest), (QStringList{QStringLiteral("GAME.D88"), QStringLiteral("README.TXT"),
                                          kGame, kMemo}));
    EXPECT_EQ(ReadAll(D(QStringLiteral("README.TXT"))), Seq400());
    EXPECT_EQ(ReadAll(D(QStringLiteral("GAME.D88"))), QByteArray("disk in B, another one\n"));
    EXPECT_EQ(ReadAll(D(kGame)), QByteArray("japanese name\n"));
}

TEST_F(ArcEngine, LeadingAsteriskFindsAMemberInASubdirectory)
{
    // ZIP and CAB masks carry a leading "*", which runs over the directory part.
    ASSERT_EQ(
        Extract(ArcFormat::Zip, QStringLiteral("infozip.zip"), true, {QStringLiteral("*game.d88")}),
        ArcOk);
    EXPECT_EQ(Entries(dest), QStringList{QStringLiteral("GAME.D88")});
    // Without the asterisk the stored path must match whole.
    QFile::remove(D(QStringLiteral("GAME.D88")));
    EXPECT_EQ(
        Extract(ArcFormat::Cab, QStringLiteral("gcab.cab"), true, {QStringLiteral("GAME.D88")}),
        ArcErrNoMatch);
    EXPECT_EQ(
        Extract(ArcFormat::Cab, QStringLiteral("gcab.cab"), true, {QStringLiteral("*") + kGame}),
        ArcOk);
    EXPECT_EQ(Entries(dest), QStringList{kGame});
}

TEST_F(ArcEngine, LzhMaskIsTheBareName)
{
    ASSERT_EQ(Extract(ArcFormat::Lzh, QStringLiteral("jlha_lh5.lzh"), true,
                      {QStringLiteral("game.d88")}, ArcMaskMatch::BareName),
              ArcOk);
    EXPECT_EQ(Entries(dest), QStringList{QStringLiteral("GAME.D88")});
    EXPECT_EQ(Extract(ArcFormat::Lzh, QStringLiteral("jlha_lh5.lzh"), true,
                      {QStringLiteral("NONE.D88")}, ArcMaskMatch::BareName),
              ArcErrNoMatch);
}

TEST_F(ArcEngine, EmptyArchivesUnpackToNothing)
{
    EXPECT_EQ(Extract(ArcFormat::Zip, QStringLiteral("empty.zip")), ArcOk);
    EXPECT_EQ(Extract(ArcFormat::Lzh, QStringLiteral("empty.lzh")), ArcOk);
    EXPECT_TRUE(Entries(dest).isEmpty());
}

TEST_F(ArcEngine, DamagedArchivesFailAndLeaveNoHalfFile)
{
    // What a clean unpack gives, to compare any file that a damaged one left.
    QTemporaryDir clean;
    for (auto [fmt, good, bad] : {std::tuple{ArcFormat::Lzh, "jlha_lh5.lzh", "corrupt.lzh"},
                                  std::tuple{ArcFormat::Lzh, "jlha_lh5.lzh", "truncated.lzh"},
                                  std::tuple{ArcFormat::Zip, "infozip.zip", "corrupt.zip"},
                                  std::tuple{ArcFormat::Zip, "infozip.zip", "truncated.zip"},
                                  std::tuple{ArcFormat::Cab, "gcab.cab", "corrupt.cab"},
                                  std::tuple{ArcFormat::Cab, "gcab.cab", "truncated.cab"}}) {
        SCOPED_TRACE(bad);
        QDir(clean.path()).removeRecursively();
        QDir().mkpath(clean.path());
        ArcExtractOptions o;
        o.overwrite = false; // the first of two equal names, so nothing is overwritten
        ASSERT_EQ(ExtractArchiveFlat(fmt, Fixture(QString::fromLatin1(good)), clean.path(), o),
                  ArcOk);
        QDir(dest).removeRecursively();
        QDir().mkpath(dest);
        EXPECT_NE(ExtractArchiveFlat(fmt, Fixture(QString::fromLatin1(bad)), dest, o), ArcOk);
        for (const QString& f : Entries(dest))
            EXPECT_EQ(ReadAll(D(f)), ReadAll(clean.path() + u'/' + f)) << f.toStdString();
    }
}

TEST_F(ArcEngine, HostileNamesStayInsideTheTarget)
{
    const bool absBefore = QFileInfo::exists(QStringLiteral("/tmp/evil2.txt"));
    ASSERT_EQ(Extract(ArcFormat::Zip, QStringLiteral("slip.zip")), ArcOk);
    EXPECT_EQ(Entries(dest), (QStringList{QStringLiteral("evil1.txt"), QStringLiteral("evil2.txt"),
                                          QStringLiteral("evil3.txt"), QStringLiteral("evil4.txt"),
                                          QStringLiteral("evil5.txt"), QStringLiteral("ok.txt")}));
    EXPECT_EQ(Entries(root.path()), QStringList{QStringLiteral("dest")});
    EXPECT_EQ(QFileInfo::exists(QStringLiteral("/tmp/evil2.txt")), absBefore);
    EXPECT_EQ(ReadAll(D(QStringLiteral("ok.txt"))), QByteArray("ok"));
}

TEST_F(ArcEngine, LinksAreNeverMade)
{
    ASSERT_EQ(Extract(ArcFormat::Zip, QStringLiteral("symlink.zip")), ArcOk);
    EXPECT_EQ(Entries(dest), QStringList{QStringLiteral("README.TXT")});
}

TEST_F(ArcEngine, ALinkAtTheTargetIsReplacedNotFollowed)
{
    const QString outside = root.filePath(QStringLiteral("outside.txt"));
    WriteFile(outside, "keep");
    ASSERT_TRUE(QFile::link(outside, D(QStringLiteral("README.TXT"))));
    ASSERT_EQ(Extract(ArcFormat::Zip, QStringLiteral("infozip.zip")), ArcOk);
    EXPECT_EQ(ReadAll(outside), QByteArray("keep"));
    EXPECT_FALSE(QFileInfo(D(QStringLiteral("README.TXT"))).isSymLink());
    EXPECT_EQ(ReadAll(D(QStringLiteral("README.TXT"))), Seq400());
}

TEST_F(ArcEngine, MemberLargerThanTheFreeSpaceFailsCleanly)
{
    FreeSpaceProbe old = SetFreeSpaceProbe([](const QString&) { return qint64(100); });
    const int rc = Extract(ArcFormat::Lzh, QStringLiteral("jlha_lh5.lzh"));
    SetFreeSpaceProbe(old);
    EXPECT_EQ(rc, ArcErrNoSpace);
    EXPECT_TRUE(Entries(dest).isEmpty()); // README.TXT (1492 bytes) comes first
}

TEST_F(ArcEngine, MissingArchiveOrTargetFails)
{
    EXPECT_EQ(Extract(ArcFormat::Zip, QStringLiteral("nothing.zip")), ArcErrOpen);
    ArcExtractOptions o;
    EXPECT_EQ(ExtractArchiveFlat(ArcFormat::Zip, Fixture(QStringLiteral("infozip.zip")),
                                 root.filePath(QStringLiteral("nodir")), o),
              ArcErrOpen);
    // A ZIP isn't read as an LZH.
    EXPECT_NE(Extract(ArcFormat::Lzh, QStringLiteral("infozip.zip")), ArcOk);
}

TEST(ArcNames, SafeMemberName)
{
    EXPECT_EQ(SafeMemberName(QStringLiteral("A/GAME.D88")), QStringLiteral("GAME.D88"));
    EXPECT_EQ(SafeMemberName(QStringLiteral("..\\..\\x.d88")), QStringLiteral("x.d88"));
    EXPECT_EQ(SafeMemberName(QStringLiteral("C:x.d88")), QStringLiteral("x.d88"));
    EXPECT_EQ(SafeMemberName(QStringLiteral("/etc/passwd")), QStringLiteral("passwd"));
    EXPECT_EQ(SafeMemberName(QStringLiteral("dir/")), QString());
    EXPECT_EQ(SafeMemberName(QStringLiteral("..")), QString());
    EXPECT_EQ(SafeMemberName(QStringLiteral("a/.")), QString());
    EXPECT_EQ(SafeMemberName(QStringLiteral("aux.txt")), QString());
    EXPECT_EQ(SafeMemberName(QStringLiteral("Com3")), QString());
    EXPECT_EQ(SafeMemberName(QStringLiteral("COM.D88")), QStringLiteral("COM.D88"));
    EXPECT_EQ(SafeMemberName(QStringLiteral("a\x01"
                                            "b")),
              QString());
    // Names this file system allows and Windows doesn't are kept as they are.
    EXPECT_EQ(SafeMemberName(QStringLiteral("a*b")), QStringLiteral("a*b"));
    EXPECT_EQ(SafeMemberName(QStringLiteral("d/q\"<>|?.D88")), QStringLiteral("q\"<>|?.D88"));
}

TEST(ArcNames, DecodeMemberName)
{
    EXPECT_EQ(DecodeMemberName(ToSjis(QStringLiteral("ゲーム①～.D88"))),
              QStringLiteral("ゲーム①～.D88"));
    EXPECT_EQ(DecodeMemberName(QStringLiteral("メモ.TXT").toUtf8()), QStringLiteral("メモ.TXT"));
    EXPECT_EQ(DecodeMemberName("PLAIN.D88"), QStringLiteral("PLAIN.D88"));
}

TEST(ArcNames, WildcardMatch)
{
    EXPECT_TRUE(ArcWildcardMatch(QStringLiteral("*.*"), QStringLiteral("NODOT")));
    EXPECT_TRUE(ArcWildcardMatch(QStringLiteral("*GAME.D88"), QStringLiteral("a\\b/game.d88")));
    EXPECT_TRUE(ArcWildcardMatch(QStringLiteral("G?ME.*"), QStringLiteral("GAME.D88")));
    EXPECT_FALSE(ArcWildcardMatch(QStringLiteral("GAME.D88"), QStringLiteral("A/GAME.D88")));
    EXPECT_FALSE(ArcWildcardMatch(QStringLiteral("*.D77"), QStringLiteral("GAME.D88")));
    EXPECT_TRUE(ArcWildcardMatch(QStringLiteral("*a/*"), QStringLiteral("x\\A\\y")));
}
