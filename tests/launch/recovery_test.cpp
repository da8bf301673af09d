// What a launch can't put where it belongs goes to a recovery directory beside the program,
// and the user is told where.
#include "launch/Recovery.h"

#include "platform/FileOps.h"
#include "support/GuardedDirs.h"
#include "support/ScriptedMsgBox.h"

#include <QDir>
#include <QFileInfo>
#include <gtest/gtest.h>

#include <cerrno>

using namespace tv;
using namespace tvtest;

namespace {

class Recovery : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(dirs.isValid());
        work = dirs.app() + "/TORVBOOT";
        QDir().mkpath(work);
    }
    void TearDown() override { SetFileFaultHook({}); }
    QStringList AppEntries() const
    {
        return QDir(dirs.app()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name);
    }
    GuardedDirs dirs;
    ScriptedMsgBox box;
    QString work;
};

} // namespace

TEST_F(Recovery, ACopyThatFailsKeepsTheFileAndSaysWhere)
{
    WriteFile(work + "/GAME.D88", "changed image");
    const QString target = dirs.path("gone/GAME.D88"); // its directory went away
    SetFileFaultHook([](FileOpKind kind, const QString& path) {
        return kind == FileOpKind::Write && path.contains("/gone") ? ENOSPC : 0;
    });
    EXPECT_FALSE(CopyOutOrKeep(work + "/GAME.D88", target));
    EXPECT_FALSE(QFileInfo::exists(work + "/GAME.D88"));
    const QStringList dirsNow = QDir(dirs.app()).entryList({"TORVRECOVER_*"}, QDir::Dirs);
    ASSERT_EQ(dirsNow.size(), 1);
    const QString kept = dirs.app() + "/" + dirsNow[0] + "/GAME.D88";
    EXPECT_EQ(ReadFile(kept), "changed image");
    ASSERT_EQ(box.calls().size(), 1u);
    EXPECT_EQ(box.calls()[0].text,
              target +
                  " に書き込めませんでした。\r\n\r\nGAME.D88 を次の場所に保存しました。\r\n\r\n" +
                  kept);
    EXPECT_EQ(box.calls()[0].flags, MbExclamation);
}

TEST_F(Recovery, AGoodCopyKeepsNothingAndSaysNothing)
{
    WriteFile(work + "/SHOT.BMP", "dump");
    EXPECT_TRUE(CopyOutOrKeep(work + "/SHOT.BMP", dirs.path("snap/SHOT.BMP")));
    EXPECT_EQ(ReadFile(dirs.path("snap/SHOT.BMP")), "dump");
    EXPECT_TRUE(box.calls().empty());
    EXPECT_EQ(AppEntries(), QStringList{"TORVBOOT"});
}

TEST_F(Recovery, TwoFilesOfOneNameGoToTwoDirectories)
{
    WriteFile(work + "/A.S88", "one");
    const QString first = KeepInRecovery(work + "/A.S88");
    WriteFile(work + "/A.S88", "two");
    const QString second = KeepInRecovery(work + "/A.S88");
    ASSERT_FALSE(first.isEmpty());
    ASSERT_FALSE(second.isEmpty());
    EXPECT_NE(QFileInfo(first).path(), QFileInfo(second).path());
    EXPECT_EQ(ReadFile(first), "one");
    EXPECT_EQ(ReadFile(second), "two");
}

TEST_F(Recovery, ADiskTooFullForADirectoryStillTakesARenameBesideTheProgram)
{
    WriteFile(work + "/GAME.D77", "changed");
    SetFileFaultHook(
        [](FileOpKind kind, const QString&) { return kind == FileOpKind::Write ? ENOSPC : 0; });
    const QString kept = KeepInRecovery(work + "/GAME.D77");
    ASSERT_FALSE(kept.isEmpty());
    EXPECT_EQ(QFileInfo(kept).path(), dirs.app());
    EXPECT_TRUE(QFileInfo(kept).fileName().startsWith("TORVRECOVER_"));
    EXPECT_TRUE(QFileInfo(kept).fileName().endsWith("_GAME.D77"));
    EXPECT_EQ(ReadFile(kept), "changed");
}

TEST_F(Recovery, WhatCantBeKeptIsToldAsLost)
{
    WriteFile(work + "/GAME.D88", "changed image");
    SetFileFaultHook([](FileOpKind, const QString&) { return EACCES; });
    EXPECT_FALSE(CopyOutOrKeep(work + "/GAME.D88", dirs.path("images/GAME.D88")));
    ASSERT_EQ(box.calls().size(), 1u);
    EXPECT_EQ(box.calls()[0].text, dirs.path("images/GAME.D88") +
                                       " に書き込めませんでした。\r\n\r\nGAME.D88 "
                                       "を保存できませんでした。");
    EXPECT_EQ(box.calls()[0].flags, MbCritical);
    EXPECT_EQ(ReadFile(work + "/GAME.D88"), "changed image");
}
