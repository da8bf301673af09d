// The atomic copy-over and the rename under the file operations.
#include "platform/FileOps.h"
#include "support/GuardedDirs.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <cerrno>

using namespace tv;
using tvtest::ReadFile;
using tvtest::WriteFile;

namespace {
class FileOpsTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(dir.isValid()); }
    void TearDown() override
    {
        SetCopyFaultAfterBytes(-1);
        SetAnonymousTempFiles(true);
        SetFileFaultHook({});
    }
    QStringList Entries() const
    {
        return QDir(dir.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }
    QString p(const char* name) const { return dir.path() + QLatin1Char('/') + name; }
    QTemporaryDir dir;
};
} // namespace

TEST_F(FileOpsTest, CopyMakesWholeCopyWithTimeAndMode)
{
    WriteFile(p("src"), QByteArray(150000, 'x'));
    QFile f(p("src"));
    ASSERT_TRUE(f.open(QIODevice::ReadWrite));
    const QDateTime when(QDate(1999, 12, 31), QTime(23, 59, 58));
    ASSERT_TRUE(f.setFileTime(when, QFileDevice::FileModificationTime));
    f.close();
    QFile::setPermissions(p("src"), QFileDevice::ReadOwner | QFileDevice::ExeOwner);
    ASSERT_TRUE(PlatformCopyFile(p("src"), p("dst")));
    EXPECT_EQ(ReadFile(p("dst")), QByteArray(150000, 'x'));
    EXPECT_EQ(QFileInfo(p("dst")).lastModified(), when);
    EXPECT_EQ(QFileInfo(p("dst")).permissions(), QFileInfo(p("src")).permissions());
    EXPECT_EQ(Entries(), (QStringList{"dst", "src"}));
}

TEST_F(FileOpsTest, EmptyFileCopies)
{
    WriteFile(p("empty"), QByteArray());
    ASSERT_TRUE(PlatformCopyFile(p("empty"), p("copy")));
    EXPECT_TRUE(QFileInfo::exists(p("copy")));
    EXPECT_EQ(QFileInfo(p("copy")).size(), 0);
}

TEST_F(FileOpsTest, FaultMidCopyKeepsOldTargetAndRemovesTemporary)
{
    WriteFile(p("src"), QByteArray(200000, 'n'));
    WriteFile(p("dst"), "old");
    SetCopyFaultAfterBytes(65536 + 10);
    EXPECT_FALSE(PlatformCopyFile(p("src"), p("dst")));
    EXPECT_EQ(ReadFile(p("dst")), QByteArray("old"));
    EXPECT_EQ(Entries(), (QStringList{"dst", "src"}));
    SetCopyFaultAfterBytes(-1);
    EXPECT_TRUE(PlatformCopyFile(p("src"), p("dst")));
    EXPECT_EQ(ReadFile(p("dst")), QByteArray(200000, 'n'));
}

TEST_F(FileOpsTest, MissingSourceOrTargetDirectoryOrNonFileFails)
{
    EXPECT_FALSE(PlatformCopyFile(p("none"), p("dst")));
    WriteFile(p("src"), "s");
    EXPECT_FALSE(PlatformCopyFile(p("src"), p("nodir/dst")));
    QDir().mkpath(p("adir"));
    EXPECT_FALSE(PlatformCopyFile(p("adir"), p("dst")));
    EXPECT_EQ(Entries(), (QStringList{"adir", "src"}));
}

TEST_F(FileOpsTest, RenameReplacesFileAtomically)
{
    WriteFile(p("a"), "new");
    WriteFile(p("b"), "old");
    EXPECT_EQ(PlatformRename(p("a"), p("b")), RenameResult::Ok);
    EXPECT_EQ(ReadFile(p("b")), QByteArray("new"));
    EXPECT_FALSE(QFileInfo::exists(p("a")));
    EXPECT_EQ(PlatformRename(p("a"), p("c")), RenameResult::Failed);
}

TEST_F(FileOpsTest, CopyWithoutAnonymousFilesGoesThroughAHiddenNameAndLeavesNone)
{
    SetAnonymousTempFiles(false);
    WriteFile(p("src"), QByteArray(70000, 's'));
    WriteFile(p("dst"), "old");
    ASSERT_TRUE(PlatformCopyFile(p("src"), p("dst")));
    ASSERT_TRUE(PlatformCopyFile(p("src"), p("new")));
    EXPECT_EQ(ReadFile(p("dst")), QByteArray(70000, 's'));
    EXPECT_EQ(ReadFile(p("new")), QByteArray(70000, 's'));
    EXPECT_EQ(Entries(), (QStringList{"dst", "new", "src"}));
}

TEST_F(FileOpsTest, WriteFileReplacesTheWholeFileAndKeepsItsMode)
{
    WriteFile(p("ini"), "old text that is longer than the new");
    QFile::setPermissions(p("ini"), QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    ASSERT_TRUE(PlatformWriteFile(p("ini"), "new"));
    EXPECT_EQ(ReadFile(p("ini")), QByteArray("new"));
    EXPECT_EQ(QFileInfo(p("ini")).permissions() & 0x7077,
              (QFileDevice::ReadOwner | QFileDevice::WriteOwner) & 0x7077);
    ASSERT_TRUE(PlatformWriteFile(p("fresh"), QByteArray()));
    EXPECT_EQ(QFileInfo(p("fresh")).size(), 0);
    EXPECT_FALSE(PlatformWriteFile(p("nodir/x"), "x"));
    EXPECT_EQ(Entries(), (QStringList{"fresh", "ini"}));
}

TEST_F(FileOpsTest, ArmedFaultFailsTheOperationWithItsErrorAndChangesNothing)
{
    WriteFile(p("a"), "a");
    WriteFile(p("b"), "b");
    QStringList asked;
    SetFileFaultHook([&asked](FileOpKind kind, const QString& path) {
        asked << QString::number(int(kind)) + ":" + QFileInfo(path).fileName();
        return kind == FileOpKind::Write ? ENOSPC : EACCES;
    });
    errno = 0;
    EXPECT_FALSE(PlatformCopyFile(p("a"), p("b")));
    EXPECT_EQ(errno, ENOSPC);
    EXPECT_FALSE(PlatformWriteFile(p("c"), "c"));
    EXPECT_EQ(PlatformRename(p("a"), p("b")), RenameResult::Failed);
    EXPECT_EQ(errno, EACCES);
    EXPECT_FALSE(PlatformRemoveFile(p("a")));
    EXPECT_FALSE(PlatformMakePath(p("d/e")));
    EXPECT_EQ(asked, (QStringList{"0:b", "0:c", "1:a", "2:a", "0:e"}));
    EXPECT_EQ(ReadFile(p("a")), QByteArray("a"));
    EXPECT_EQ(ReadFile(p("b")), QByteArray("b"));
    EXPECT_EQ(Entries(), (QStringList{"a", "b"}));
    SetFileFaultHook({});
    EXPECT_TRUE(PlatformRemoveFile(p("a")));
    EXPECT_TRUE(PlatformMakePath(p("d/e")));
    EXPECT_TRUE(PlatformRemoveDir(p("d/e")));
    EXPECT_EQ(Entries(), (QStringList{"b", "d"}));
}
