// Path splitting and the small text helpers.
#include "util/SubFunction.h"
#include "support/GuardedDirs.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

using namespace tv;

TEST(VbTrim, RemovesBlanksOnly)
{
    EXPECT_EQ(VbTrim(QStringLiteral("  a b  ")), QStringLiteral("a b"));
    EXPECT_EQ(VbTrim(QStringLiteral("\tx\r\n")), QStringLiteral("\tx\r\n"));
    EXPECT_EQ(VbTrim(QStringLiteral("   ")), QString());
    EXPECT_EQ(VbTrim(QString()), QString());
}

TEST(SplitFileName, SplitsAtLastSeparatorOfEitherKind)
{
    QString p = QStringLiteral("C:\\GAMES\\DISK\\game.d88");
    EXPECT_EQ(SplitFileName(p), QStringLiteral("game.d88"));
    EXPECT_EQ(p, QStringLiteral("C:\\GAMES\\DISK"));

    p = QStringLiteral("/home/u/img/game.d88");
    EXPECT_EQ(SplitFileName(p), QStringLiteral("game.d88"));
    EXPECT_EQ(p, QStringLiteral("/home/u/img"));

    p = QStringLiteral("a/b\\c");
    EXPECT_EQ(SplitFileName(p), QStringLiteral("c"));
    EXPECT_EQ(p, QStringLiteral("a/b"));

    p = QStringLiteral("a\\b/c");
    EXPECT_EQ(SplitFileName(p), QStringLiteral("c"));
    EXPECT_EQ(p, QStringLiteral("a\\b"));
}

TEST(SplitFileName, NoSeparatorReturnsWholeTrimmedText)
{
    QString p = QStringLiteral("  game.d88  ");
    EXPECT_EQ(SplitFileName(p), QStringLiteral("game.d88"));
    EXPECT_EQ(p, QStringLiteral("game.d88"));
}

TEST(SplitFileName, WorksOnTrimmedTextAndTrailingSeparator)
{
    QString p = QStringLiteral("  dir\\name  ");
    EXPECT_EQ(SplitFileName(p), QStringLiteral("name"));
    EXPECT_EQ(p, QStringLiteral("dir"));
    p = QStringLiteral("dir/");
    EXPECT_EQ(SplitFileName(p), QString());
    EXPECT_EQ(p, QStringLiteral("dir"));
}

TEST(SplitFileExt, SplitsAtLastPoint)
{
    QString p = QStringLiteral(" dir\\game.v1.d88 ");
    EXPECT_EQ(SplitFileExt(p), QStringLiteral("d88"));
    EXPECT_EQ(p, QStringLiteral("dir\\game.v1"));
}

TEST(SplitFileExt, NoPointGivesEmptyAndKeepsTrimmedArgument)
{
    QString p = QStringLiteral(" README ");
    EXPECT_EQ(SplitFileExt(p), QString());
    EXPECT_EQ(p, QStringLiteral("README"));
}

TEST(GetFileExt, UpperCasedPartBehindLastPoint)
{
    EXPECT_EQ(GetFileExt(QStringLiteral("game.d88")), QStringLiteral("D88"));
    EXPECT_EQ(GetFileExt(QStringLiteral("  Disk.Zip  ")), QStringLiteral("ZIP"));
    EXPECT_EQ(GetFileExt(QStringLiteral("a.tar.lzh")), QStringLiteral("LZH"));
    EXPECT_EQ(GetFileExt(QStringLiteral("name")), QString());
    EXPECT_EQ(GetFileExt(QStringLiteral("name.")), QString());
    EXPECT_EQ(GetFileExt(QString()), QString());
}

TEST(GetFileBase, TextBetweenLastSeparatorAndLastPoint)
{
    EXPECT_EQ(GetFileBase(QStringLiteral("C:\\dir\\game.d88")), QStringLiteral("game"));
    EXPECT_EQ(GetFileBase(QStringLiteral("/dir/game.v2.d88")), QStringLiteral("game.v2"));
    EXPECT_EQ(GetFileBase(QStringLiteral("game.d88")), QStringLiteral("game"));
    EXPECT_EQ(GetFileBase(QStringLiteral(" x.y ")), QStringLiteral("x"));
}

TEST(GetFileBase, EmptyWhenLastPointLiesBeforeLastSeparator)
{
    EXPECT_EQ(GetFileBase(QStringLiteral("A.B\\C")), QString());
    EXPECT_EQ(GetFileBase(QStringLiteral("A.B/C")), QString());
    EXPECT_EQ(GetFileBase(QStringLiteral("dir\\name")), QString());
    EXPECT_EQ(GetFileBase(QStringLiteral("name")), QString());
}

TEST(GetFileDir, PartBeforeLastSeparator)
{
    EXPECT_EQ(GetFileDir(QStringLiteral("C:\\a\\b.d88")), QStringLiteral("C:\\a"));
    EXPECT_EQ(GetFileDir(QStringLiteral("/x/y/z")), QStringLiteral("/x/y"));
    EXPECT_EQ(GetFileDir(QStringLiteral("a/b\\c")), QStringLiteral("a/b"));
    EXPECT_EQ(GetFileDir(QStringLiteral(" name.d88 ")), QString());
    EXPECT_EQ(GetFileDir(QStringLiteral("/top")), QString());
}

TEST(CutAtNull, CutsBeforeFirstNul)
{
    EXPECT_EQ(CutAtNull(QString::fromUtf16(u"abc\0def\0", 8)), QStringLiteral("abc"));
    EXPECT_EQ(CutAtNull(QString::fromUtf16(u"\0x", 2)), QString());
    EXPECT_EQ(CutAtNull(QStringLiteral("plain")), QStringLiteral("plain"));
}

TEST(SystemDirs, PosixTreesWithoutTrailingSeparator)
{
    EXPECT_EQ(GetSystemDir(), QStringLiteral("/usr"));
    EXPECT_EQ(GetWindowsDir(), QStringLiteral("/etc"));
}

class ShortPath : public ::testing::Test {
protected:
    tvtest::GuardedDirs dirs;
    QString make(const QString& name)
    {
        const QString p = dirs.path("img/" + name);
        tvtest::WriteFile(p, "x");
        return p;
    }
};

TEST_F(ShortPath, ValidEightDotThreeNameIsThePathItself)
{
    for (const char* n : {"GAME.D88", "game.d88", "A", "12345678.ABC", "X_Y-1!.$~", "NO_EXT"}) {
        const QString p = make(QString::fromLatin1(n));
        EXPECT_EQ(GetShortPath(p), p) << n;
    }
}

TEST_F(ShortPath, NameThatIsNotEightDotThreeGivesEmpty)
{
    for (const char* n : {"LongFileName.d88", "a b.d88", "x.long", "a.b.c", "123456789.D88",
                          "plus+.d88", "semi;.d88", "br[1].d88", ".hidden"}) {
        const QString p = make(QString::fromLatin1(n));
        EXPECT_EQ(GetShortPath(p), QString()) << n;
    }
}

TEST_F(ShortPath, JapaneseNamesMeasuredInShiftJisBytes)
{
    const QString shortName = make(QStringLiteral("ゲーム.D88")); // 6 + 3 bytes
    EXPECT_EQ(GetShortPath(shortName), shortName);
    const QString kana = make(QStringLiteral("ｹﾞｰﾑﾃﾞｨｽｸ.D88")); // 9 bytes: too long
    EXPECT_EQ(GetShortPath(kana), QString());
    const QString longName = make(QStringLiteral("ゲームディスク.D88")); // 14 bytes
    EXPECT_EQ(GetShortPath(longName), QString());
}

TEST_F(ShortPath, MissingPathDirectoryAndOverlongPath)
{
    EXPECT_EQ(GetShortPath(dirs.path("img/NOFILE.D88")), QString());
    EXPECT_EQ(GetShortPath(QString()), QString());
    QDir().mkpath(dirs.path("DISKS"));
    EXPECT_EQ(GetShortPath(dirs.path("DISKS")), dirs.path("DISKS"));
    QString deep = dirs.path("d");
    while (QFile::encodeName(deep).size() <= 255)
        deep += QStringLiteral("/DIRNAME1");
    ASSERT_TRUE(QDir().mkpath(deep));
    EXPECT_EQ(GetShortPath(deep), QString());
}
