// The members that the image file selection offers, from archives made by the outside
// archivers, and the filter order of its fourth use.
#include "data/Cfg.h"
#include "launch/Archive.h"
#include "launch/FileSelect.h"
#include "launch/Repack.h"

#include "launch/ArcTestUtil.h"
#include "support/GuardedDirs.h"
#include "support/ScriptedMsgBox.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <QDir>
#include <gtest/gtest.h>

namespace {

using namespace tv;
using arctest::RunTool;

class FileSelectTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(dirs.isValid());
        InitTables();
        HardWare = 0;
        WorkDir = dirs.app() + QStringLiteral("/TORVBOOT");
        ASSERT_TRUE(QDir().mkpath(WorkDir));
        src = dirs.path("src");
        ASSERT_TRUE(QDir().mkpath(src + "/A"));
        ASSERT_TRUE(QDir().mkpath(src + "/B"));
        ASSERT_TRUE(tvtest::WriteFile(src + "/GAME1.D88", QByteArray(600, 'a')));
        ASSERT_TRUE(tvtest::WriteFile(src + "/GAME2.D88", QByteArray(600, 'b')));
        ASSERT_TRUE(tvtest::WriteFile(src + "/A/SAME.D88", QByteArray(600, 'c')));
        ASSERT_TRUE(tvtest::WriteFile(src + "/B/SAME.D88", QByteArray(600, 'd')));
        ASSERT_TRUE(tvtest::WriteFile(src + "/MANUAL.TXT", "manual"));
        ASSERT_TRUE(tvtest::WriteFile(src + "/GAME.T88", QByteArray(60, 't')));
    }
    bool WorkEmpty() const
    {
        return QDir(WorkDir)
            .entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden)
            .isEmpty();
    }
    // An archive of the source tree made by an outside archiver, or "" without the tool.
    QString Make(const QString& kind)
    {
        const QString files[] = {"GAME1.D88",  "GAME2.D88",  "A/SAME.D88",
                                 "B/SAME.D88", "MANUAL.TXT", "GAME.T88"};
        QStringList list(std::begin(files), std::end(files));
        const QString arc = dirs.path("arc/TITLE.") + kind;
        QDir().mkpath(dirs.path("arc"));
        QDir::setCurrent(src);
        arctest::ToolRun r;
        if (kind == "LZH")
            r = RunTool("lha", QStringList{"a", arc} + list);
        else if (kind == "ZIP")
            r = RunTool("zip", QStringList{"-q", arc} + list);
        else
            r = RunTool("gcab", QStringList{"-c", arc} + list);
        QDir::setCurrent(dirs.root());
        return r.exitCode == 0 ? arc : QString();
    }
    tvtest::GuardedDirs dirs;
    tvtest::ScriptedMsgBox boxes;
    QString src;
};

TEST_F(FileSelectTest, StartFileMembersFromEachArchiver)
{
    for (const QString kind : {"LZH", "ZIP", "CAB"}) {
        const QString arc = Make(kind);
        if (arc.isEmpty()) {
            ADD_FAILURE() << "archiver for " << kind.toStdString() << " missing";
            continue;
        }
        QStringList members;
        ASSERT_EQ(ListMembers(0, arc, QString(), members), MemberListResult::Ok)
            << kind.toStdString();
        members.sort();
        // SAME.D88 of both subdirectories flattens to one file.
        EXPECT_EQ(members, QStringList({"GAME.T88", "GAME1.D88", "GAME2.D88", "SAME.D88"}))
            << kind.toStdString();
        EXPECT_TRUE(boxes.calls().empty());
        // The caller's choice ends the visit with WorkDir emptied.
        EXPECT_FALSE(WorkEmpty());
        CleanWorkDir();
        EXPECT_TRUE(WorkEmpty());
    }
}

TEST_F(FileSelectTest, FurtherDisksLeaveTheStartFileOut)
{
    const QString arc = Make("ZIP");
    ASSERT_FALSE(arc.isEmpty());
    QStringList members;
    ASSERT_EQ(ListMembers(1, arc, QStringLiteral(" game1.d88 "), members), MemberListResult::Ok);
    members.sort();
    EXPECT_EQ(members, QStringList({"GAME.T88", "GAME2.D88", "SAME.D88"}));
    CleanWorkDir();
}

TEST_F(FileSelectTest, ManualMembersInModeThree)
{
    const QString arc = Make("LZH");
    ASSERT_FALSE(arc.isEmpty());
    QStringList members;
    ASSERT_EQ(ListMembers(3, arc, QString(), members), MemberListResult::Ok);
    EXPECT_EQ(members, QStringList({"MANUAL.TXT"}));
    CleanWorkDir();
    EXPECT_TRUE(WorkEmpty());
}

TEST_F(FileSelectTest, ArchiveWithoutImagesListsNothing)
{
    QDir::setCurrent(src);
    ASSERT_EQ(RunTool("zip", {"-q", dirs.path("NOIMG.ZIP"), "MANUAL.TXT"}).exitCode, 0);
    QDir::setCurrent(dirs.root());
    QStringList members;
    ASSERT_EQ(ListMembers(0, dirs.path("NOIMG.ZIP"), QString(), members), MemberListResult::Ok);
    EXPECT_TRUE(members.isEmpty());
    CleanWorkDir();
}

TEST_F(FileSelectTest, ArchiveThatCantBeUnpacked)
{
    for (const char* name : {"corrupt.lzh", "corrupt.zip", "truncated.cab"}) {
        boxes.clear();
        QStringList members;
        EXPECT_EQ(ListMembers(0, arctest::Fixture(QLatin1String(name)), QString(), members),
                  MemberListResult::CantUnpack)
            << name;
        EXPECT_EQ(boxes.texts(), QStringList({"アーカイブが解凍できませんでした"})) << name;
        EXPECT_TRUE(members.isEmpty());
        EXPECT_TRUE(WorkEmpty()) << name;
    }
}

TEST_F(FileSelectTest, WorkDirMustBeEmptyAndThere)
{
    ASSERT_TRUE(tvtest::WriteFile(WorkDir + "/LEFTOVER.D88", "x"));
    QStringList members;
    EXPECT_EQ(ListMembers(0, src + "/GAME1.D88", QString(), members), MemberListResult::BadWorkDir);
    ASSERT_TRUE(QFile::remove(WorkDir + "/LEFTOVER.D88"));
    const QString saved = WorkDir;
    WorkDir = dirs.path("nowhere");
    EXPECT_EQ(ListMembers(0, src + "/GAME1.D88", QString(), members), MemberListResult::BadWorkDir);
    WorkDir.clear();
    EXPECT_EQ(ListMembers(0, src + "/GAME1.D88", QString(), members), MemberListResult::BadWorkDir);
    WorkDir = saved;
    EXPECT_EQ(boxes.texts(),
              QStringList({"解凍用ディレクトリが不正です", "解凍用ディレクトリが不正です",
                           "解凍用ディレクトリが不正です"}));
    EXPECT_TRUE(WorkEmpty());
}

TEST_F(FileSelectTest, FilterRowsOfOneColumn)
{
    const auto savedOrder = Cfg.FilterOrder;
    for (auto& row : Cfg.FilterOrder)
        row.fill(0);
    // Column 3, the archives: LZH, ZIP, CAB stand in rows 1 to 3.
    Cfg.FilterOrder[0][3] = 3;
    Cfg.FilterOrder[1][3] = 1;
    Cfg.FilterOrder[2][3] = 2;
    const auto rows = FilterRows(3);
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[0].text, QStringLiteral("CABﾌｧｲﾙ (*.CAB)"));
    EXPECT_EQ(rows[0].row, 3);
    EXPECT_EQ(rows[1].row, 1);
    StoreFilterRows(3, {1, 2, 3});
    EXPECT_EQ(Cfg.FilterOrder[0][3], 1);
    EXPECT_EQ(Cfg.FilterOrder[2][3], 3);
    Cfg.FilterOrder = savedOrder;
}

} // namespace

namespace {
// A member named "temp" (the holding directory's usual name) and members with " * ? < > |:
// every image is offered, under its own name.
TEST_F(FileSelectTest, MembersNamedTempOrWithOddCharactersAreAllOffered)
{
    const QString pack = dirs.path("pack");
    ASSERT_TRUE(QDir().mkpath(pack));
    for (const char* n : {"temp", "A.D88", "B*?.D88", "C<\"|>.D88", "Z.D88"})
        ASSERT_TRUE(tvtest::WriteFile(pack + "/" + QString::fromUtf8(n), QByteArray(600, 'x')));
    const QString arc = dirs.path("arc/ODD.ZIP");
    QDir().mkpath(dirs.path("arc"));
    ASSERT_EQ(ArcPack(nullptr, arc, pack, kArcTrue), 0);
    QStringList members;
    ASSERT_EQ(ListMembers(0, arc, QString(), members), MemberListResult::Ok);
    members.sort();
    EXPECT_EQ(members, (QStringList{"A.D88", "B*?.D88", "C<\"|>.D88", "Z.D88"}));
    EXPECT_TRUE(boxes.calls().empty());
    CleanWorkDir();
    EXPECT_TRUE(WorkEmpty());
}
} // namespace
