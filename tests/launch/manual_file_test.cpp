// The manual of a title: by full path, by bare name in the image directory, as a member of the
// title's ZIP or LZH archive unpacked into the peek directory; a missing one and an open that
// fails give their messages. The desktop's open handler is a double that records the path.
#include "data/clsLst.h"
#include "launch/ArcTestUtil.h"
#include "launch/ManualFile.h"
#include "platform/Shell.h"
#include "support/GuardedDirs.h"
#include "support/ScriptedMsgBox.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>
#include <gtest/gtest.h>

namespace {

using namespace tv;

class ManualFileTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(dirs.isValid());
        InitTables(); // the archive types
        ImageDir[0] = dirs.path("images");
        ASSERT_TRUE(QDir().mkpath(ImageDir[0]));
        ASSERT_TRUE(QDir().mkpath(PeekDir));
        previous_ = SetUrlOpener([this](const QUrl& u) {
            opened.push_back(u.toLocalFile());
            return openResult;
        });
    }
    void TearDown() override { SetUrlOpener(previous_); }

    clsLst item(const QString& man, const QString& jitu = {}, uint8_t melt = 0)
    {
        clsLst l;
        l.SetManFile(man);
        l.SetJituFile(jitu);
        l.SetMeltManFlag(melt);
        return l;
    }

    tvtest::GuardedDirs dirs;
    tvtest::ScriptedMsgBox boxes;
    std::vector<QString> opened;
    bool openResult = true;
    UrlOpener previous_;
};

TEST_F(ManualFileTest, PlainManualByFullPath)
{
    const QString man = dirs.path("docs/MANUAL.TXT");
    ASSERT_TRUE(tvtest::WriteFile(man, "read me"));
    EXPECT_TRUE(OpenItemManual(item(man), 0, nullptr));
    ASSERT_EQ(opened.size(), 1u);
    EXPECT_EQ(opened[0], man);
    EXPECT_TRUE(boxes.calls().empty());
}

TEST_F(ManualFileTest, PlainManualByBareNameInTheImageDirectory)
{
    ASSERT_TRUE(tvtest::WriteFile(ImageDir[0] + "/GAME.DOC", "doc"));
    EXPECT_EQ(ChooseManualFile(item("GAME.DOC"), 0, nullptr), ImageDir[0] + "/GAME.DOC");
    // Another family's image directory is not searched.
    EXPECT_EQ(ChooseManualFile(item("GAME.DOC"), 1, nullptr), QString());
}

TEST_F(ManualFileTest, MissingManualGivesItsMessageAndOpensNothing)
{
    EXPECT_FALSE(OpenItemManual(item("NOWHERE.TXT"), 0, nullptr));
    EXPECT_FALSE(OpenItemManual(item(""), 0, nullptr));
    EXPECT_TRUE(opened.empty());
    ASSERT_EQ(boxes.calls().size(), 2u);
    EXPECT_EQ(boxes.calls()[0].text,
              QStringLiteral("マニュアルドキュメントファイル指定が不正です。"));
    EXPECT_EQ(boxes.calls()[0].flags, int(MbExclamation));
    EXPECT_EQ(boxes.calls()[1].text,
              QStringLiteral("マニュアルドキュメントファイル指定が不正です。"));
}

TEST_F(ManualFileTest, AnOpenThatFailsGivesTheOpenError)
{
    const QString man = dirs.path("MANUAL.TXT");
    ASSERT_TRUE(tvtest::WriteFile(man, "x"));
    openResult = false;
    EXPECT_FALSE(OpenItemManual(item(man), 0, nullptr));
    ASSERT_EQ(boxes.calls().size(), 1u);
    EXPECT_EQ(boxes.calls()[0].text, QStringLiteral("マニュアルドキュメントファイルOpenエラー"));
}

TEST_F(ManualFileTest, ManualInsideAZipIsUnpackedIntoThePeekDirectory)
{
    const QString src = dirs.path("src");
    ASSERT_TRUE(tvtest::WriteFile(src + "/GAME.D88", "disk"));
    ASSERT_TRUE(tvtest::WriteFile(src + "/Manual.txt", "manual text"));
    const QString zip = ImageDir[0] + "/GAME.ZIP";
    ASSERT_EQ(
        arctest::RunTool("zip", {"-j", "-q", zip, src + "/GAME.D88", src + "/Manual.txt"}).exitCode,
        0);
    // The archive by bare name in the image directory; the member's case differs.
    const clsLst l = item("MANUAL.TXT", "GAME.ZIP", 1);
    EXPECT_TRUE(ManualInArchive(l));
    EXPECT_TRUE(OpenItemManual(l, 0, nullptr));
    ASSERT_EQ(opened.size(), 1u);
    EXPECT_EQ(opened[0], PeekDir + "/Manual.txt");
    EXPECT_EQ(arctest::ReadAll(opened[0]), QByteArray("manual text"));
}

TEST_F(ManualFileTest, ManualInsideAnLzhIsUnpackedIntoThePeekDirectory)
{
    const QString src = dirs.path("src");
    ASSERT_TRUE(tvtest::WriteFile(src + "/GAME.D88", "disk"));
    ASSERT_TRUE(tvtest::WriteFile(src + "/MANUAL.DOC", "lzh manual"));
    const QString lzh = dirs.path("arcs/GAME.LZH");
    ASSERT_TRUE(QDir().mkpath(dirs.path("arcs")));
    ASSERT_TRUE(QDir::setCurrent(src)); // the guard puts the directory back
    ASSERT_EQ(arctest::RunTool("lha", {"aq", lzh, "GAME.D88", "MANUAL.DOC"}).exitCode, 0);
    const clsLst l = item("MANUAL.DOC", lzh, 1);
    EXPECT_TRUE(OpenItemManual(l, 0, nullptr));
    ASSERT_EQ(opened.size(), 1u);
    EXPECT_EQ(opened[0], PeekDir + "/MANUAL.DOC");
    EXPECT_EQ(arctest::ReadAll(opened[0]), QByteArray("lzh manual"));
}

TEST_F(ManualFileTest, AMemberThatIsNotInTheArchiveGivesTheMessage)
{
    const QString src = dirs.path("src");
    ASSERT_TRUE(tvtest::WriteFile(src + "/GAME.D88", "disk"));
    const QString zip = ImageDir[0] + "/GAME.ZIP";
    ASSERT_EQ(arctest::RunTool("zip", {"-j", "-q", zip, src + "/GAME.D88"}).exitCode, 0);
    EXPECT_FALSE(OpenItemManual(item("MANUAL.TXT", zip, 1), 0, nullptr));
    EXPECT_TRUE(opened.empty());
    ASSERT_EQ(boxes.calls().size(), 1u);
    EXPECT_EQ(boxes.calls()[0].text,
              QStringLiteral("マニュアルドキュメントファイル指定が不正です。"));
}

TEST_F(ManualFileTest, WithoutTheFlagTheArchiveIsNotOpened)
{
    // The flag off: the manual is a plain file, here one that isn't there.
    const clsLst l = item("MANUAL.TXT", ImageDir[0] + "/GAME.ZIP", 0);
    EXPECT_FALSE(ManualInArchive(l));
    EXPECT_EQ(ChooseManualFile(l, 0, nullptr), QString());
    // A start file that is no archive with the flag on: also a plain file.
    EXPECT_FALSE(ManualInArchive(item("MANUAL.TXT", "GAME.D88", 1)));
}

} // namespace
