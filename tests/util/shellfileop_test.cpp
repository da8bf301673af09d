// Copy, move and delete with their guards and verification.
#include "platform/FileOps.h"
#include "support/GuardedDirs.h"
#include "support/ScriptedMsgBox.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tv;
using tvtest::ReadFile;
using tvtest::WriteFile;

namespace {
class ShellOpTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(dirs.isValid());
        a = dirs.path("area");
        QDir().mkpath(a);
    }
    void TearDown() override { SetCopyFaultAfterBytes(-1); }
    static QStringList Entries(const QString& dir)
    {
        return QDir(dir).entryList(
            QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    }
    tvtest::GuardedDirs dirs;
    tvtest::ScriptedMsgBox boxes;
    QString a;
};

// Runs the test body with the current directory set to `dir`, for short relative paths.
class CurrentDir {
public:
    explicit CurrentDir(const QString& dir) : saved_(QDir::currentPath()) { QDir::setCurrent(dir); }
    ~CurrentDir() { QDir::setCurrent(saved_); }

private:
    QString saved_;
};
} // namespace

TEST_F(ShellOpTest, DeleteFile)
{
    WriteFile(a + "/game.d88", "x");
    EXPECT_TRUE(ShellDelete(a + "/game.d88", 0));
    EXPECT_FALSE(QFileInfo::exists(a + "/game.d88"));
    EXPECT_TRUE(boxes.calls().empty());
}

TEST_F(ShellOpTest, DeleteTree)
{
    WriteFile(a + "/TORVBOOT/x/y/z.d88", "x");
    WriteFile(a + "/TORVBOOT/.hidden", "h");
    EXPECT_TRUE(ShellDelete("  " + a + "/TORVBOOT  ", 0));
    EXPECT_FALSE(QFileInfo::exists(a + "/TORVBOOT"));
    EXPECT_TRUE(QFileInfo::exists(a));
}

TEST_F(ShellOpTest, DeletePatternRemovesOnlyMatches)
{
    WriteFile(a + "/w/ONE.D88", "1");
    WriteFile(a + "/w/two.d88", "2");
    WriteFile(a + "/w/keep.t88", "k");
    QDir().mkpath(a + "/w/dir.d88");
    EXPECT_TRUE(ShellDelete(Matches(a + "/w", "*.d88"), 0));
    EXPECT_EQ(Entries(a + "/w"), QStringList{"keep.t88"});
}

// A name that the program didn't make is literal: "*" and "?" in it are characters of the
// name, whatever else in the directory they would match.
TEST_F(ShellOpTest, NamesWithStarAndQuestionMarkAreLiteral)
{
    WriteFile(a + "/w/GAME*1?.D88", "odd");
    WriteFile(a + "/w/GAMEX1Z.D88", "lookalike");
    EXPECT_TRUE(ShellCopy(a + "/w/GAME*1?.D88", a + "/work/GAME*1?.D88", 0));
    EXPECT_EQ(Entries(a + "/work"), QStringList{"GAME*1?.D88"});
    EXPECT_TRUE(QFileInfo(a + "/work/GAME*1?.D88").isFile());
    EXPECT_EQ(ReadFile(a + "/work/GAME*1?.D88"), QByteArray("odd"));
    WriteFile(a + "/work/*.D77", "written by an emulator");
    WriteFile(a + "/work/GAME.D77", "image");
    EXPECT_TRUE(ShellCopy(a + "/work/*.D77", a + "/snap/*.D77", 0));
    EXPECT_EQ(Entries(a + "/snap"), QStringList{"*.D77"});
    EXPECT_TRUE(QFileInfo(a + "/snap/*.D77").isFile());
    EXPECT_TRUE(ShellDelete(a + "/work/*.D77", 0));
    EXPECT_EQ(Entries(a + "/work"), (QStringList{"GAME*1?.D88", "GAME.D77"}));
    EXPECT_TRUE(ShellMove(a + "/w/GAME*1?.D88", a + "/kept", 0));
    EXPECT_EQ(Entries(a + "/w"), QStringList{"GAMEX1Z.D88"});
    // A name that only a pattern would reach is not there.
    EXPECT_FALSE(ShellDelete(a + "/w/GAME?1Z.D88", 0));
    EXPECT_EQ(Entries(a + "/w"), QStringList{"GAMEX1Z.D88"});
}

TEST_F(ShellOpTest, DeleteOfMissingPathFails)
{
    EXPECT_FALSE(ShellDelete(a + "/none.d88", 0));
    EXPECT_FALSE(ShellDelete(Matches(a, "*.none"), 0));
}

TEST_F(ShellOpTest, DeleteOfShortPathFailsWithoutTouchingAnything)
{
    CurrentDir cd(a);
    WriteFile(a + "/ab/c.d", "x"); // "ab/c.d" has 6 characters
    EXPECT_FALSE(ShellDelete(QStringLiteral("ab/c.d"), 0));
    EXPECT_FALSE(ShellDelete(QStringLiteral("ab"), 0));
    EXPECT_FALSE(ShellDelete(QStringLiteral("  ab  "), 0));
    EXPECT_EQ(ReadFile(a + "/ab/c.d"), QByteArray("x"));
    // Seven characters are enough.
    WriteFile(a + "/ab/c.de", "y");
    EXPECT_TRUE(ShellDelete(QStringLiteral("ab/c.de"), 0));
    EXPECT_FALSE(QFileInfo::exists(a + "/ab/c.de"));
    EXPECT_TRUE(QFileInfo::exists(a + "/ab/c.d"));
}

TEST_F(ShellOpTest, ShortPathFailsEvenWhenAskedToConfirm)
{
    CurrentDir cd(a);
    WriteFile(a + "/ab/c.d", "x");
    boxes.answer(MbResYes);
    EXPECT_FALSE(ShellDelete(QStringLiteral("ab"), 1));
    EXPECT_TRUE(boxes.calls().empty());
    EXPECT_TRUE(QFileInfo::exists(a + "/ab/c.d"));
}

TEST_F(ShellOpTest, SevenCharacterStopMeasuresTheSourceForCopyAndMove)
{
    CurrentDir cd(a);
    WriteFile(a + "/s.d", "x");     // 3 characters
    WriteFile(a + "/src.d88", "y"); // 7 characters
    EXPECT_FALSE(ShellCopy(QStringLiteral("s.d"), a + "/long/target/name.d88", 0));
    EXPECT_FALSE(QFileInfo::exists(a + "/long"));
    // The target's length is not tested.
    EXPECT_TRUE(ShellCopy(QStringLiteral("src.d88"), QStringLiteral("t"), 0));
    EXPECT_EQ(ReadFile(a + "/t"), QByteArray("y"));
    EXPECT_TRUE(ShellMove(QStringLiteral("src.d88"), QStringLiteral("m"), 0));
    EXPECT_EQ(ReadFile(a + "/m"), QByteArray("y"));
    EXPECT_FALSE(ShellMove(QStringLiteral("s.d"), a + "/moved.d88", 0));
    EXPECT_TRUE(QFileInfo::exists(a + "/s.d"));
}

TEST_F(ShellOpTest, GuardRefusesSourceOrTargetUnderTmpAndTemp)
{
    WriteFile(dirs.tmp() + "/in-tmp.d88", "t");
    WriteFile(a + "/game.d88", "g");
    EXPECT_FALSE(ShellDelete(dirs.tmp() + "/in-tmp.d88", 0));
    EXPECT_TRUE(QFileInfo::exists(dirs.tmp() + "/in-tmp.d88"));
    EXPECT_FALSE(ShellCopy(a + "/game.d88", dirs.temp() + "/game.d88", 0));
    EXPECT_FALSE(QFileInfo::exists(dirs.temp() + "/game.d88"));
    EXPECT_FALSE(ShellMove(a + "/game.d88", dirs.tmp(), 0));
    EXPECT_TRUE(QFileInfo::exists(a + "/game.d88"));
    EXPECT_FALSE(ShellCopy(dirs.tmp() + "/in-tmp.d88", a + "/copy.d88", 0));
    EXPECT_FALSE(QFileInfo::exists(a + "/copy.d88"));
    EXPECT_FALSE(ShellDelete(QStringLiteral("/etc/hostname"), 0));
    EXPECT_FALSE(ShellCopy(a + "/game.d88", QString(), 0));
}

TEST_F(ShellOpTest, PeekDirMayBeEmptiedButNotTouchedInside)
{
    WriteFile(PeekDir + "/inner/x.d88", "x");
    EXPECT_FALSE(ShellDelete(PeekDir + "/inner", 0));
    EXPECT_TRUE(ShellDelete(PeekDir, 0));
    EXPECT_FALSE(QFileInfo::exists(PeekDir));
}

TEST_F(ShellOpTest, UnknownOperationFails)
{
    WriteFile(a + "/game.d88", "g");
    EXPECT_FALSE(ShellFileOp(a + "/game.d88", a + "/other.d88", 4, 0));
    EXPECT_FALSE(ShellFileOp(a + "/game.d88", a + "/other.d88", 0, 0));
    EXPECT_TRUE(QFileInfo::exists(a + "/game.d88"));
    EXPECT_FALSE(QFileInfo::exists(a + "/other.d88"));
}

TEST_F(ShellOpTest, CopyFileToNewNameKeepsTimeAndPermissions)
{
    const QString src = a + "/game.d88";
    WriteFile(src, "disk image");
    QFile f(src);
    ASSERT_TRUE(f.open(QIODevice::ReadWrite));
    const QDateTime when = QDateTime(QDate(2001, 2, 3), QTime(4, 5, 6));
    ASSERT_TRUE(f.setFileTime(when, QFileDevice::FileModificationTime));
    f.close();
    QFile::setPermissions(src, QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                   QFileDevice::ReadGroup);
    EXPECT_TRUE(ShellCopy(src, a + "/new/dir/copy.d88", 0));
    EXPECT_EQ(ReadFile(a + "/new/dir/copy.d88"), QByteArray("disk image"));
    EXPECT_EQ(QFileInfo(a + "/new/dir/copy.d88").lastModified(), when);
    EXPECT_EQ(QFileInfo(a + "/new/dir/copy.d88").permissions(), QFileInfo(src).permissions());
    EXPECT_EQ(ReadFile(src), QByteArray("disk image"));
}

TEST_F(ShellOpTest, CopyFileIntoExistingDirectory)
{
    WriteFile(a + "/game.d88", "g");
    QDir().mkpath(a + "/WORK");
    EXPECT_TRUE(ShellCopy(a + "/game.d88", a + "/WORK", 0));
    EXPECT_EQ(ReadFile(a + "/WORK/game.d88"), QByteArray("g"));
    EXPECT_TRUE(ShellCopy(a + "/game.d88", a + "/WORK/", 0));
}

TEST_F(ShellOpTest, CopyOverExistingFileReplacesItWhole)
{
    WriteFile(a + "/new.d88", QByteArray(200000, 'N'));
    WriteFile(a + "/img/game.d88", "OLD CONTENT");
    EXPECT_TRUE(ShellCopy(a + "/new.d88", a + "/img/game.d88", 0));
    EXPECT_EQ(ReadFile(a + "/img/game.d88"), QByteArray(200000, 'N'));
    EXPECT_EQ(Entries(a + "/img"), QStringList{"game.d88"}); // no temporary left
}

TEST_F(ShellOpTest, FailedCopyOverLeavesOldFileIntactAndNoTemporary)
{
    WriteFile(a + "/new.d88", QByteArray(300000, 'N'));
    WriteFile(a + "/img/game.d88", "OLD CONTENT");
    SetCopyFaultAfterBytes(100000);
    EXPECT_FALSE(ShellCopy(a + "/new.d88", a + "/img/game.d88", 0));
    EXPECT_EQ(ReadFile(a + "/img/game.d88"), QByteArray("OLD CONTENT"));
    EXPECT_EQ(Entries(a + "/img"), QStringList{"game.d88"});
    // A failed copy to a new name leaves nothing behind either.
    EXPECT_FALSE(ShellCopy(a + "/new.d88", a + "/img/other.d88", 0));
    EXPECT_EQ(Entries(a + "/img"), QStringList{"game.d88"});
}

TEST_F(ShellOpTest, CopyTreeToNewNameAndIntoExistingDirectory)
{
    WriteFile(a + "/SAVE/s1.sta", "1");
    WriteFile(a + "/SAVE/deep/s2.sta", "2");
    WriteFile(a + "/SAVE/.hidden", "h");
    EXPECT_TRUE(ShellCopy(a + "/SAVE", a + "/BACKUP", 0));
    EXPECT_EQ(ReadFile(a + "/BACKUP/deep/s2.sta"), QByteArray("2"));
    EXPECT_EQ(Entries(a + "/BACKUP"), (QStringList{".hidden", "deep", "s1.sta"}));
    QDir().mkpath(a + "/OUTER");
    EXPECT_TRUE(ShellCopy(a + "/SAVE", a + "/OUTER", 0));
    EXPECT_EQ(ReadFile(a + "/OUTER/SAVE/s1.sta"), QByteArray("1"));
    // Copying again merges and overwrites.
    WriteFile(a + "/SAVE/s1.sta", "changed");
    EXPECT_TRUE(ShellCopy(a + "/SAVE", a + "/OUTER", 0));
    EXPECT_EQ(ReadFile(a + "/OUTER/SAVE/s1.sta"), QByteArray("changed"));
}

TEST_F(ShellOpTest, CopyOfTreeIntoItselfFails)
{
    WriteFile(a + "/SAVE/s1.sta", "1");
    EXPECT_FALSE(ShellCopy(a + "/SAVE", a + "/SAVE/inner", 0));
    EXPECT_FALSE(QFileInfo::exists(a + "/SAVE/inner/inner"));
}

TEST_F(ShellOpTest, CopyPatternIntoDirectory)
{
    WriteFile(a + "/w/A.D88", "a");
    WriteFile(a + "/w/b.d88", "b");
    WriteFile(a + "/w/c.t88", "c");
    EXPECT_TRUE(ShellCopy(Matches(a + "/w", "*.D88"), a + "/out", 0));
    EXPECT_EQ(Entries(a + "/out"), (QStringList{"A.D88", "b.d88"}));
    EXPECT_EQ(Entries(a + "/w").size(), 3);
    WriteFile(a + "/plainfile", "p");
    EXPECT_FALSE(ShellCopy(Matches(a + "/w", "*.D88"), a + "/plainfile", 0));
}

TEST_F(ShellOpTest, MoveFileRenamesAndReplaces)
{
    WriteFile(a + "/game.d88", "new");
    WriteFile(a + "/img/game.d88", "old");
    EXPECT_TRUE(ShellMove(a + "/game.d88", a + "/img/game.d88", 0));
    EXPECT_EQ(ReadFile(a + "/img/game.d88"), QByteArray("new"));
    EXPECT_FALSE(QFileInfo::exists(a + "/game.d88"));
    EXPECT_TRUE(ShellMove(a + "/img/game.d88", a + "/other/place/g.d88", 0));
    EXPECT_EQ(ReadFile(a + "/other/place/g.d88"), QByteArray("new"));
}

TEST_F(ShellOpTest, MoveIntoExistingDirectoryAndTree)
{
    WriteFile(a + "/snap.png", "p");
    QDir().mkpath(a + "/SNAP");
    EXPECT_TRUE(ShellMove(a + "/snap.png", a + "/SNAP", 0));
    EXPECT_EQ(ReadFile(a + "/SNAP/snap.png"), QByteArray("p"));
    WriteFile(a + "/T/x/y.d88", "y");
    EXPECT_TRUE(ShellMove(a + "/T", a + "/U", 0));
    EXPECT_EQ(ReadFile(a + "/U/x/y.d88"), QByteArray("y"));
    EXPECT_FALSE(QFileInfo::exists(a + "/T"));
    // Into a directory that holds one of the same name: merged.
    WriteFile(a + "/V/U/x/z.d88", "z");
    EXPECT_TRUE(ShellMove(a + "/U", a + "/V", 0));
    EXPECT_EQ(Entries(a + "/V/U/x"), (QStringList{"y.d88", "z.d88"}));
    EXPECT_FALSE(QFileInfo::exists(a + "/U"));
}

TEST_F(ShellOpTest, MovePatternAndVerification)
{
    WriteFile(a + "/w/1.sta", "1");
    WriteFile(a + "/w/2.STA", "2");
    WriteFile(a + "/w/k.d88", "k");
    EXPECT_TRUE(ShellMove(Matches(a + "/w", "*.sta"), a + "/save", 0));
    EXPECT_EQ(Entries(a + "/save"), (QStringList{"1.sta", "2.STA"}));
    EXPECT_EQ(Entries(a + "/w"), QStringList{"k.d88"});
    EXPECT_FALSE(ShellMove(Matches(a + "/w", "*.sta"), a + "/save", 0)); // nothing left to move
}

TEST_F(ShellOpTest, MoveOfTreeIntoItselfFails)
{
    WriteFile(a + "/T/x.d88", "x");
    EXPECT_FALSE(ShellMove(a + "/T", a + "/T/sub", 0));
    EXPECT_EQ(ReadFile(a + "/T/x.d88"), QByteArray("x"));
}

TEST_F(ShellOpTest, ConfirmAsksFirstAndNoStopsTheOperation)
{
    WriteFile(a + "/game.d88", "g");
    boxes.answer(MbResNo);
    EXPECT_FALSE(ShellDelete(a + "/game.d88", 1));
    EXPECT_TRUE(QFileInfo::exists(a + "/game.d88"));
    ASSERT_EQ(boxes.calls().size(), 1u);
    EXPECT_EQ(boxes.calls()[0].flags & 7, int(MbYesNo));
    EXPECT_TRUE(boxes.calls()[0].text.contains(a + "/game.d88"));
    EXPECT_EQ(boxes.calls()[0].text,
              QStringLiteral("「%1」を削除してもよろしいですか？").arg(a + "/game.d88"));

    boxes.answer(MbResYes);
    EXPECT_TRUE(ShellDelete(a + "/game.d88", 1));
    EXPECT_FALSE(QFileInfo::exists(a + "/game.d88"));
    EXPECT_EQ(boxes.calls().size(), 2u);
}

TEST_F(ShellOpTest, ConfirmForCopyAndMoveNamesBothPaths)
{
    WriteFile(a + "/game.d88", "g");
    boxes.answer(MbResYes);
    EXPECT_TRUE(ShellCopy(a + "/game.d88", a + "/copy.d88", 1));
    boxes.answer(MbResNo);
    EXPECT_FALSE(ShellMove(a + "/game.d88", a + "/moved.d88", 1));
    EXPECT_TRUE(QFileInfo::exists(a + "/game.d88"));
    EXPECT_FALSE(QFileInfo::exists(a + "/moved.d88"));
    ASSERT_EQ(boxes.calls().size(), 2u);
    EXPECT_EQ(boxes.calls()[0].text, QStringLiteral("「%1」を「%2」へコピーしてもよろしいですか？")
                                         .arg(a + "/game.d88", a + "/copy.d88"));
    EXPECT_EQ(boxes.calls()[1].text, QStringLiteral("「%1」を「%2」へ移動してもよろしいですか？")
                                         .arg(a + "/game.d88", a + "/moved.d88"));
}

TEST_F(ShellOpTest, SilentUnlessConfirmIsOne)
{
    WriteFile(a + "/game.d88", "g");
    EXPECT_TRUE(ShellCopy(a + "/game.d88", a + "/c1.d88", 0));
    EXPECT_TRUE(ShellCopy(a + "/game.d88", a + "/c2.d88", 2));
    EXPECT_TRUE(boxes.calls().empty());
}

TEST_F(ShellOpTest, ShellFileOpReportsTheOperationOnly)
{
    WriteFile(a + "/game.d88", "g");
    EXPECT_TRUE(ShellFileOp(a + "/game.d88", a + "/c.d88", 2, 0));
    EXPECT_TRUE(ShellFileOp(a + "/c.d88", QString(), 3, 0));
    EXPECT_FALSE(QFileInfo::exists(a + "/c.d88"));
}

TEST_F(ShellOpTest, CopyOfDirectoryOverFileFails)
{
    WriteFile(a + "/D/x", "x");
    WriteFile(a + "/F/D", "file");
    EXPECT_FALSE(ShellCopy(a + "/D", a + "/F/D", 0));
    EXPECT_EQ(ReadFile(a + "/F/D"), QByteArray("file"));
}

TEST_F(ShellOpTest, DeleteOfTreeNeverFollowsLinksOutOfIt)
{
    WriteFile(a + "/outside/keep.d88", "k");
    WriteFile(a + "/TORVBOOT/x.d88", "x");
    ASSERT_TRUE(QFile::link(a + "/outside", a + "/TORVBOOT/link"));
    ASSERT_TRUE(QFile::link(a + "/outside/keep.d88", a + "/TORVBOOT/file-link"));
    EXPECT_TRUE(ShellDelete(a + "/TORVBOOT", 0));
    EXPECT_FALSE(QFileInfo::exists(a + "/TORVBOOT"));
    EXPECT_EQ(ReadFile(a + "/outside/keep.d88"), QByteArray("k"));
}

TEST_F(ShellOpTest, CopyOfTreeWithLinkLoopEnds)
{
    WriteFile(a + "/T/x.d88", "x");
    ASSERT_TRUE(QFile::link(a + "/T", a + "/T/loop"));
    EXPECT_FALSE(ShellCopy(a + "/T", a + "/U", 0));
    EXPECT_EQ(ReadFile(a + "/U/x.d88"), QByteArray("x"));
    EXPECT_FALSE(QFileInfo::exists(a + "/U/loop/loop"));
}

TEST_F(ShellOpTest, CopyOntoItselfKeepsTheFileAndMoveOntoItselfFails)
{
    WriteFile(a + "/game.d88", "same");
    EXPECT_TRUE(ShellCopy(a + "/game.d88", a + "/game.d88", 0));
    EXPECT_EQ(ReadFile(a + "/game.d88"), QByteArray("same"));
    EXPECT_FALSE(ShellMove(a + "/game.d88", a + "/game.d88", 0)); // the source is not gone
    EXPECT_EQ(ReadFile(a + "/game.d88"), QByteArray("same"));
    EXPECT_EQ(Entries(a), QStringList{"game.d88"});
}

TEST_F(ShellOpTest, MoveToAnotherFileSystemCopiesAndRemoves)
{
    QTemporaryDir other(QStringLiteral("/dev/shm/torvane-test-XXXXXX"));
    if (!other.isValid())
        GTEST_SKIP() << "no second file system at /dev/shm";
    WriteFile(a + "/game.d88", "g");
    WriteFile(a + "/T/x/y.sta", "y");
    WriteFile(other.path() + "/old/game.d88", "old");
    EXPECT_TRUE(ShellMove(a + "/game.d88", other.path() + "/old/game.d88", 0));
    EXPECT_EQ(ReadFile(other.path() + "/old/game.d88"), QByteArray("g"));
    EXPECT_FALSE(QFileInfo::exists(a + "/game.d88"));
    EXPECT_TRUE(ShellMove(a + "/T", other.path() + "/T2", 0));
    EXPECT_EQ(ReadFile(other.path() + "/T2/x/y.sta"), QByteArray("y"));
    EXPECT_FALSE(QFileInfo::exists(a + "/T"));
    // And back again, over the first file system's boundary the other way.
    EXPECT_TRUE(ShellMove(other.path() + "/T2", a + "/T3", 0));
    EXPECT_EQ(ReadFile(a + "/T3/x/y.sta"), QByteArray("y"));
}
