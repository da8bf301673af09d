// The checks and rules of entering a title by hand.
#include "data/ItemEntry.h"
#include "data/clsLst.h"

#include "support/GuardedDirs.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <QDir>
#include <gtest/gtest.h>

namespace {

using namespace tv;

ItemEntry Good()
{
    ItemEntry e;
    e.Title = QStringLiteral("ザナドゥ");
    e.JituFile = QStringLiteral("XANADU.D88");
    e.StartFileName = QStringLiteral("XANADU.D88");
    return e;
}

class ItemEntryTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(dirs.isValid());
        InitTables();
    }
    tvtest::GuardedDirs dirs;
};

TEST_F(ItemEntryTest, ChecksInTheirOrder)
{
    ItemEntry e;
    e.MeltMan = true;
    e.ManFile.clear();
    e.Comment = QString(251, QLatin1Char('x'));
    EXPECT_EQ(ValidateItemEntry(e), QStringLiteral("ソフトのタイトルを入力してください！"));
    e.Title = QStringLiteral("  T ");
    EXPECT_EQ(ValidateItemEntry(e), QStringLiteral("対象イメージを指定してください！"));
    e.JituFile = QStringLiteral("A.ZIP");
    EXPECT_EQ(ValidateItemEntry(e), QStringLiteral("スタートファイル名を指定してください！"));
    e.StartFileName = QStringLiteral("A.D88");
    EXPECT_EQ(ValidateItemEntry(e),
              QStringLiteral("圧縮ファイル内のマニュアルドキュメントファイルを指定して下さい。"));
    e.ManFile = QStringLiteral("MANUAL.EXE");
    EXPECT_EQ(ValidateItemEntry(e),
              QStringLiteral("マニュアルドキュメントファイル指定が間違っています。"));
    e.ManFile = QStringLiteral("MANUAL.TXT");
    EXPECT_EQ(
        ValidateItemEntry(e),
        QStringLiteral("コメントは500バイト(半角500字、全角250字、改行2バイト含む)までです！"));
    e.Comment.chop(1);
    EXPECT_EQ(ValidateItemEntry(e), QString());
}

TEST_F(ItemEntryTest, BlankOnlyFieldsCountAsEmpty)
{
    ItemEntry e = Good();
    e.StartFileName = QStringLiteral("   ");
    EXPECT_EQ(ValidateItemEntry(e), QStringLiteral("スタートファイル名を指定してください！"));
}

TEST_F(ItemEntryTest, CommentLimit)
{
    EXPECT_FALSE(CommentTooLong(QString(250, QLatin1Char('a'))));
    EXPECT_TRUE(CommentTooLong(QString(251, QLatin1Char('a'))));
    EXPECT_FALSE(CommentTooLong(QString(250, QChar(0x3042)))); // あ
    EXPECT_TRUE(CommentTooLong(QString(251, QChar(0x3042))));
    // A line break gives 2 back: 251 characters of which one is a break pass.
    EXPECT_FALSE(CommentTooLong(QString(125, QLatin1Char('a')) + QStringLiteral("\r\n") +
                                QString(125, QLatin1Char('b'))));
    EXPECT_TRUE(CommentTooLong(QString(126, QLatin1Char('a')) + QStringLiteral("\r\n") +
                               QString(125, QLatin1Char('b'))));
    // Blanks at the ends don't count.
    EXPECT_FALSE(CommentTooLong(QStringLiteral("  ") + QString(250, QLatin1Char('a')) +
                                QStringLiteral("  ")));
}

TEST_F(ItemEntryTest, ReArcCheckFlagIsTheSum)
{
    EXPECT_EQ(ReArcCheckFlagOf(false, false), 0);
    EXPECT_EQ(ReArcCheckFlagOf(true, false), 1);
    EXPECT_EQ(ReArcCheckFlagOf(true, true), 2);
}

TEST_F(ItemEntryTest, ScreenshotLookUp)
{
    SnapDir[1] = dirs.path("snap");
    ASSERT_TRUE(QDir().mkpath(SnapDir[1]));
    EXPECT_EQ(FindScreenshot(1, "GAME.D77", "TITLE.ZIP"), QString());
    ASSERT_TRUE(tvtest::WriteFile(SnapDir[1] + "/TITLE.png", "p"));
    EXPECT_EQ(FindScreenshot(1, "GAME.D77", "TITLE.ZIP"), QStringLiteral("TITLE.png"));
    ASSERT_TRUE(tvtest::WriteFile(SnapDir[1] + "/GAME.bmp", "b"));
    EXPECT_EQ(FindScreenshot(1, "GAME.D77", "TITLE.ZIP"), QStringLiteral("GAME.bmp"));
    ASSERT_TRUE(tvtest::WriteFile(SnapDir[1] + "/GAME.jpg", "j"));
    EXPECT_EQ(FindScreenshot(1, "GAME.D77", "/x/y/TITLE.ZIP"), QStringLiteral("GAME.jpg"));
}

TEST_F(ItemEntryTest, RegisteredImageIsLookedForInImageDir)
{
    ImageDir[0] = dirs.path("img");
    ASSERT_TRUE(QDir().mkpath(ImageDir[0]));
    ASSERT_TRUE(tvtest::WriteFile(ImageDir[0] + "/A.D88", "a"));
    EXPECT_EQ(ResolveJituPath(0, "A.D88"), ImageDir[0] + "/A.D88");
    EXPECT_EQ(ResolveJituPath(0, "/gone/away/A.D88"), ImageDir[0] + "/A.D88");
    EXPECT_EQ(ResolveJituPath(0, ImageDir[0] + "/A.D88"), ImageDir[0] + "/A.D88");
}

TEST_F(ItemEntryTest, EntryGoesIntoTheWorkingCopy)
{
    ItemEntry e = Good();
    e.Col = {"RPG", "日本ファルコム", "c1", "c2", "1985/11"};
    e.ArcCheck = true;
    e.ReArc0 = true;
    e.ReArc1 = false;
    e.MeltMan = true;
    e.ManFile = "MAN.TXT";
    e.DefEmuRun = 2;
    e.Comment = "  コメント\r\n二行目  ";
    PutItemEntry(e);
    EXPECT_EQ(LstObj.GetGenre(), QStringLiteral("RPG"));
    EXPECT_EQ(LstObj.GetMaker(), QStringLiteral("日本ファルコム"));
    EXPECT_EQ(LstObj.GetColumn1(), QStringLiteral("c1"));
    EXPECT_EQ(LstObj.GetColumn2(), QStringLiteral("c2"));
    EXPECT_EQ(LstObj.GetSaleDate(), QStringLiteral("1985/11"));
    EXPECT_EQ(LstObj.GetComment(), QStringLiteral("コメント\r\n二行目"));
    EXPECT_EQ(LstObj.GetArcCheckFlag(), 1);
    EXPECT_EQ(LstObj.GetReArcCheckFlag(), 1);
    EXPECT_EQ(LstObj.GetMeltManFlag(), 1);
    EXPECT_EQ(LstObj.GetDefEmuRun(), 2);
}

} // namespace
