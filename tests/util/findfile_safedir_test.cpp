// Existence tests and the path guard.
#include "support/GuardedDirs.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <QDir>
#include <gtest/gtest.h>

using namespace tv;
using tvtest::WriteFile;

namespace {
class FindFileTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(dirs.isValid());
        img = dirs.path("img");
        WriteFile(img + "/game.d88", "d");
        WriteFile(img + "/Beta.T88", "t");
        WriteFile(img + "/README", "r");
        WriteFile(img + "/[a]x.d88", "b");
        QDir().mkpath(img + "/disks.d88");
        QDir().mkpath(img + "/sub");
    }
    tvtest::GuardedDirs dirs;
    QString img;
};
} // namespace

TEST_F(FindFileTest, PlainFileGivesItsName)
{
    EXPECT_EQ(FindFile(img + "/game.d88"), QStringLiteral("game.d88"));
    EXPECT_EQ(FindFile(img + "/game.d88", 16), QStringLiteral("game.d88"));
}

TEST_F(FindFileTest, DirectoryOnlyWithAttributeSixteen)
{
    EXPECT_EQ(FindFile(img + "/sub"), QString());
    EXPECT_EQ(FindFile(img + "/sub", 16), QStringLiteral("sub"));
    EXPECT_EQ(FindFile(img, 16), QStringLiteral("img"));
}

TEST_F(FindFileTest, MissingGivesEmpty)
{
    EXPECT_EQ(FindFile(img + "/none.d88"), QString());
    EXPECT_EQ(FindFile(img + "/none", 16), QString());
    EXPECT_EQ(FindFile(dirs.path("nodir/game.d88")), QString());
    EXPECT_EQ(FindFile(QString()), QString());
    EXPECT_EQ(FindFile(QString::fromUtf16(u"/x\0y", 4)), QString());
}

TEST_F(FindFileTest, ExactNamesAreCaseSensitive)
{
    EXPECT_EQ(FindFile(img + "/GAME.D88"), QString());
}

TEST_F(FindFileTest, PatternsMatchCaseInsensitivelyAndGiveTheRealName)
{
    EXPECT_EQ(FindFile(Matches(img, "*.T88")), QStringLiteral("Beta.T88"));
    EXPECT_EQ(FindFile(Matches(img, "*.t88")), QStringLiteral("Beta.T88"));
    EXPECT_EQ(FindFile(Matches(img, "GAME.*")), QStringLiteral("game.d88"));
    EXPECT_EQ(FindFile(Matches(img, "gam?.d88")), QStringLiteral("game.d88"));
    EXPECT_EQ(FindFile(Matches(img, "*.cmt")), QString());
    EXPECT_EQ(FindFile(Matches(img + "/none", "*")), QString());
}

// "*" and "?" in a path that the program didn't make as a pattern are characters of the name.
TEST_F(FindFileTest, StarAndQuestionMarkInAPathAreLiteral)
{
    EXPECT_EQ(FindFile(img + "/*.T88"), QString());
    EXPECT_EQ(FindFile(img + "/gam?.d88"), QString());
    EXPECT_EQ(FindFile(img + "/*"), QString());
    WriteFile(img + "/GAME*1?.D88", "odd");
    EXPECT_EQ(FindFile(img + "/GAME*1?.D88"), QStringLiteral("GAME*1?.D88"));
    EXPECT_EQ(FindFile(img + "/GAME*1?.d88"), QString());
    QDir().mkpath(img + "/a*b");
    WriteFile(img + "/a*b/x.d88", "x");
    EXPECT_EQ(FindFile(img + "/a*b/x.d88"), QStringLiteral("x.d88"));
    EXPECT_EQ(FindFile(img + "/a*b", 16), QStringLiteral("a*b"));
}

TEST_F(FindFileTest, PatternsSkipDirectoriesUnlessAttributeSixteen)
{
    // "disks.d88" is a directory: with attribute 0 only plain files count.
    EXPECT_EQ(FindFile(Matches(img, "disk*")), QString());
    EXPECT_EQ(FindFile(Matches(img, "disk*"), 16), QStringLiteral("disks.d88"));
    EXPECT_EQ(FindFile(Matches(img, "su?"), 16), QStringLiteral("sub"));
}

TEST_F(FindFileTest, FirstMatchByName)
{
    EXPECT_EQ(FindFile(Matches(img, "*.d88")), QStringLiteral("[a]x.d88"));
    EXPECT_EQ(FindFile(Matches(img, "*")), QStringLiteral("[a]x.d88"));
    EXPECT_EQ(FindFile(Matches(img, "*.*")), QStringLiteral("[a]x.d88"));
}

TEST_F(FindFileTest, StarDotStarMatchesNamesWithoutPoint)
{
    QDir(img).remove("game.d88");
    QDir(img).remove("Beta.T88");
    QDir(img).remove("[a]x.d88");
    EXPECT_EQ(FindFile(Matches(img, "*.*")), QStringLiteral("README"));
}

TEST_F(FindFileTest, BracketsAreLiteral)
{
    WriteFile(img + "/ax.d88", "a");
    EXPECT_EQ(FindFile(Matches(img, "[a]*")), QStringLiteral("[a]x.d88"));
    EXPECT_EQ(FindFile(img + "/[a]x.d88"), QStringLiteral("[a]x.d88"));
}

TEST_F(FindFileTest, TrailingSeparatorLooksIntoDirectory)
{
    EXPECT_EQ(FindFile(img + "/", 16), QStringLiteral("."));
    EXPECT_EQ(FindFile(img + "/"), QStringLiteral("[a]x.d88"));
    EXPECT_EQ(FindFile(img + "/sub/"), QString());
    EXPECT_EQ(FindFile(img + "/sub/", 16), QStringLiteral("."));
    EXPECT_EQ(FindFile(img + "/none/", 16), QString());
}

TEST_F(FindFileTest, WildcardInDirectoryPartIsLiteral)
{
    // "i*" would be a directory of that name, not a pattern for "img".
    EXPECT_EQ(FindFile(dirs.path("i*/game.d88")), QString());
}

TEST_F(FindFileTest, HiddenNamesAreFound)
{
    WriteFile(img + "/sub/.state", "s");
    EXPECT_EQ(FindFile(img + "/sub/.state"), QStringLiteral(".state"));
    EXPECT_EQ(FindFile(Matches(img + "/sub", "*")), QStringLiteral(".state"));
}

namespace {
class SafeDirTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(dirs.isValid());
        file = dirs.app() + "/TORVANE.CFG";
        WriteFile(file, "cfg");
        QDir().mkpath(tv::PeekDir);
    }
    tvtest::GuardedDirs dirs;
    QString file;
};
} // namespace

TEST_F(SafeDirTest, KindsOfExistenceTest)
{
    const QString app = dirs.app();
    const QString missing = dirs.app() + "/missing";
    // kind 0: no existence test.
    EXPECT_TRUE(IsSafeDir(app, 0, 0));
    EXPECT_TRUE(IsSafeDir(missing, 0, 0));
    // kind 1: file or directory.
    EXPECT_TRUE(IsSafeDir(app, 1, 0));
    EXPECT_TRUE(IsSafeDir(file, 1, 0));
    EXPECT_FALSE(IsSafeDir(missing, 1, 0));
    // kind 2: file only.
    EXPECT_TRUE(IsSafeDir(file, 2, 0));
    EXPECT_FALSE(IsSafeDir(app, 2, 0));
    EXPECT_FALSE(IsSafeDir(missing, 2, 0));
    // kind 3: directory only.
    EXPECT_TRUE(IsSafeDir(app, 3, 0));
    EXPECT_FALSE(IsSafeDir(missing, 3, 0));
}

TEST_F(SafeDirTest, FileUnderKindThreeIsFoundByTheDirectoryLookup)
{
    // The directory attribute lets plain files match too, so kind 3 does not tell a file
    // from a directory; kept as the lookup always worked.
    EXPECT_TRUE(IsSafeDir(file, 3, 0));
}

TEST_F(SafeDirTest, PathIsTrimmed)
{
    EXPECT_TRUE(IsSafeDir("  " + dirs.app() + "  ", 3, 0));
    EXPECT_FALSE(IsSafeDir(QStringLiteral("   "), 0, 1));
    EXPECT_FALSE(IsSafeDir(QString(), 0, 1));
}

TEST_F(SafeDirTest, PathsUnderTmpTempAndSystemTreesAreRefused)
{
    QDir().mkpath(dirs.tmp() + "/x");
    QDir().mkpath(dirs.temp() + "/y");
    EXPECT_FALSE(IsSafeDir(dirs.tmp(), 3, 1));
    EXPECT_FALSE(IsSafeDir(dirs.tmp() + "/x", 3, 1));
    EXPECT_FALSE(IsSafeDir(dirs.temp() + "/y", 3, 1));
    EXPECT_FALSE(IsSafeDir(dirs.temp() + "/not-yet", 0, 1));
    EXPECT_FALSE(IsSafeDir(QStringLiteral("/etc"), 3, 1));
    EXPECT_FALSE(IsSafeDir(QStringLiteral("/etc/hostname"), 1, 1));
    EXPECT_FALSE(IsSafeDir(QStringLiteral("/usr/share"), 3, 1));
    EXPECT_FALSE(IsSafeDir(QStringLiteral("/usr"), 0, 1));
}

TEST_F(SafeDirTest, ComparisonIsCaseInsensitiveSubstringSearch)
{
    EXPECT_FALSE(IsSafeDir(dirs.tmp().toUpper() + "/X", 0, 1));
    EXPECT_FALSE(IsSafeDir(QStringLiteral("/ETC/Fonts"), 0, 1));
    // Only contains the text of "/usr": refused all the same.
    QDir().mkpath(dirs.app() + "/usrgames");
    EXPECT_FALSE(IsSafeDir(dirs.app() + "/usrgames", 3, 1));
    EXPECT_FALSE(IsSafeDir(dirs.tmp() + "extra", 0, 1));
}

TEST_F(SafeDirTest, PeekDirPassesAlthoughItLiesUnderTmp)
{
    EXPECT_TRUE(IsSafeDir(tv::PeekDir, 3, 0));
    EXPECT_TRUE(IsSafeDir(tv::PeekDir.toLower(), 0, 0));
    EXPECT_TRUE(IsSafeDir(" " + tv::PeekDir + " ", 1, 1));
    // Only PeekDir itself: a path inside it is under TMP like any other.
    WriteFile(tv::PeekDir + "/GAME.D88", "x");
    EXPECT_FALSE(IsSafeDir(tv::PeekDir + "/GAME.D88", 1, 1));
}

TEST_F(SafeDirTest, NetworkPathsOnlyWhenAllowed)
{
    EXPECT_FALSE(IsSafeDir(QStringLiteral("\\\\server\\share\\games"), 0, 0));
    EXPECT_TRUE(IsSafeDir(QStringLiteral("\\\\server\\share\\games"), 0, 1));
    EXPECT_FALSE(IsSafeDir(QStringLiteral("  \\\\server\\x"), 0, 0));
    EXPECT_FALSE(IsSafeDir(QStringLiteral("//server/share"), 0, 0));
    EXPECT_TRUE(IsSafeDir(QStringLiteral("//server/share"), 0, 1));
    EXPECT_FALSE(IsSafeDir(QStringLiteral("\\\\server\\share\\games"), 1, 1)); // not there
}

TEST_F(SafeDirTest, DirectoriesNotYetSetRefuseEverything)
{
    const QString saved = tv::EnvTempDir;
    tv::EnvTempDir.clear();
    EXPECT_FALSE(IsSafeDir(dirs.app(), 3, 0));
    EXPECT_FALSE(IsSafeDir(dirs.app(), 0, 1));
    tv::EnvTempDir = saved;
    EXPECT_TRUE(IsSafeDir(dirs.app(), 3, 0));
}

TEST_F(SafeDirTest, StarInAPathIsPartOfTheName)
{
    WriteFile(dirs.app() + "/img/a.d88", "x");
    EXPECT_FALSE(IsSafeDir(dirs.app() + "/img/*.D88", 1, 1));
    WriteFile(dirs.app() + "/img/*.D88", "a file of that name");
    EXPECT_TRUE(IsSafeDir(dirs.app() + "/img/*.D88", 2, 1));
}

TEST(FindFileNoCase, ExactNameFirstThenAnyCase)
{
    QTemporaryDir d;
    ASSERT_TRUE(d.isValid());
    const QString dir = d.path();
    QFile f(dir + "/Game.D88");
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.close();
    EXPECT_EQ(tv::FindFileNoCase(dir, "Game.D88"), dir + "/Game.D88");
    EXPECT_EQ(tv::FindFileNoCase(dir, "GAME.D88"), dir + "/Game.D88");
    EXPECT_EQ(tv::FindFileNoCase(dir, "OTHER.D88"), QString());
    EXPECT_EQ(tv::FindFileNoCase(dir, ""), QString());
    QDir().mkpath(dir + "/SUB");
    EXPECT_EQ(tv::FindFileNoCase(dir, "sub"), QString()); // plain files only
    EXPECT_EQ(tv::ResolveFileNoCase(dir, "game.d88"), dir + "/Game.D88");
    EXPECT_EQ(tv::ResolveFileNoCase(dir, "M88.EXE"), dir + "/M88.EXE");
}
