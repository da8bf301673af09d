// The side lists against files built byte by byte here.
#include "data/SideList.h"

#include "support/GuardedDirs.h"
#include "support/ScriptedMsgBox.h"
#include "util/Globals.h"
#include "util/Sjis.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace {

using namespace tv;
using tvtest::ReadFile;
using tvtest::WriteFile;

QByteArray Item(const char* text, int width)
{
    QByteArray b = ToSjis(QString::fromUtf8(text));
    return b + QByteArray(width - b.size(), ' ');
}

class SideListTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(dirs.isValid());
        ASSERT_TRUE(QDir().mkpath(dirs.app()));
    }
    QString app(const char* name) const
    {
        return dirs.app() + QLatin1Char('/') + QLatin1String(name);
    }
    tvtest::GuardedDirs dirs;
    tvtest::ScriptedMsgBox boxes;
};

TEST_F(SideListTest, Table)
{
    EXPECT_EQ(GetListInfo(0).width, 20);
    EXPECT_EQ(GetListInfo(0).oldWidth, 12);
    EXPECT_EQ(GetListInfo(1).width, 30);
    EXPECT_EQ(GetListInfo(1).oldWidth, 20);
    EXPECT_EQ(GetListInfo(4).fileName, QStringLiteral("TORVANE.SAL"));
    EXPECT_EQ(GetListInfo(3).oldWidth, 0);
    EXPECT_EQ(SideListHeader(2), QByteArray("TORVANE.CL1 Version 0.11"));
}

TEST_F(SideListTest, NewGenreListHoldsTheDefaults)
{
    const QStringList items = LoadSideList(0);
    EXPECT_EQ(items,
              QStringList({"ACT", "ADV", "ETC", "PZL", "QIZ", "RCG", "RPG", "SLG", "STG", "TBL"}));
    QByteArray expected = "TORVANE.GNR Version 0.11";
    for (const char* g : {"ACT", "ADV", "ETC", "PZL", "QIZ", "RCG", "RPG", "SLG", "STG", "TBL"}) {
        expected += Item(g, 20);
    }
    EXPECT_EQ(ReadFile(app("TORVANE.GNR")), expected);
}

TEST_F(SideListTest, NewListOfOtherKindsIsHeaderOnly)
{
    EXPECT_TRUE(LoadSideList(1).isEmpty());
    EXPECT_EQ(ReadFile(app("TORVANE.MKR")), QByteArray("TORVANE.MKR Version 0.11"));
    EXPECT_TRUE(LoadSideList(4).isEmpty());
    EXPECT_EQ(ReadFile(app("TORVANE.SAL")), QByteArray("TORVANE.SAL Version 0.11"));
}

TEST_F(SideListTest, OlderGenreFileIsConvertedAtFirstUse)
{
    const QByteArray old = Item("アクション程", 12) + Item("RPG", 12) + Item("ＡＢＣＤＥＦ", 12);
    ASSERT_TRUE(WriteFile(app("TORVANE.GNR"), old));
    ASSERT_TRUE(WriteFile(app("TORVANE.CTP"), "left over"));
    EXPECT_EQ(LoadSideList(0), QStringList({"アクション程", "RPG", "ＡＢＣＤＥＦ"}));
    EXPECT_EQ(ReadFile(app("TORVANE.GNR")), QByteArray("TORVANE.GNR Version 0.11") +
                                                Item("アクション程", 20) + Item("RPG", 20) +
                                                Item("ＡＢＣＤＥＦ", 20));
    EXPECT_FALSE(QFile::exists(app("TORVANE.CTP")));
    // A second load finds the new format and leaves the file alone.
    EXPECT_EQ(LoadSideList(0).size(), 3);
}

TEST_F(SideListTest, OlderMakerFileIsConverted)
{
    ASSERT_TRUE(WriteFile(app("TORVANE.MKR"), Item("日本ファルコム", 20) + Item("ENIX", 20)));
    EXPECT_EQ(LoadSideList(1), QStringList({"日本ファルコム", "ENIX"}));
    EXPECT_EQ(ReadFile(app("TORVANE.MKR")).size(), 24 + 2 * 30);
}

TEST_F(SideListTest, TornLastItemAddsNothing)
{
    ASSERT_TRUE(WriteFile(app("TORVANE.CL1"), QByteArray("TORVANE.CL1 Version 0.11") +
                                                  Item("5inch", 20) + QByteArray("3.5")));
    EXPECT_EQ(LoadSideList(2), QStringList({"5inch"}));
}

TEST_F(SideListTest, AddAsksAndAppends)
{
    LoadSideList(3);
    boxes.answer(MbResYes);
    EXPECT_TRUE(AddSideItem(3, QStringLiteral("  ディスク版 ")));
    ASSERT_EQ(boxes.calls().size(), 1u);
    EXPECT_EQ(boxes.calls()[0].text, QStringLiteral("[ディスク版] を追加しますか？"));
    EXPECT_EQ(boxes.calls()[0].flags, 4);
    EXPECT_EQ(ReadFile(app("TORVANE.CL2")),
              QByteArray("TORVANE.CL2 Version 0.11") + Item("ディスク版", 20));
}

TEST_F(SideListTest, AnItemAddedToAFileShorterThanItsHeaderIsReadBack)
{
    // A cut-off list (21 bytes, no item can stand in it): the item must not land where the
    // header should end, or it is read back as something else.
    ASSERT_TRUE(WriteFile(app("TORVANE.SAL"), QByteArray("TORVANE.SAL V.111985")));
    EXPECT_EQ(LoadSideList(4), QStringList());
    boxes.answer(MbResYes);
    ASSERT_TRUE(AddSideItem(4, QStringLiteral("1985")));
    EXPECT_EQ(LoadSideList(4), QStringList{"1985"});
    EXPECT_EQ(ReadFile(app("TORVANE.SAL")),
              QByteArray("TORVANE.SAL Version 0.11") + Item("1985", 20));
}

TEST_F(SideListTest, AddRefusals)
{
    LoadSideList(0);
    const QByteArray before = ReadFile(app("TORVANE.GNR"));
    EXPECT_FALSE(AddSideItem(0, QStringLiteral("   ")));
    EXPECT_FALSE(AddSideItem(0, QStringLiteral(" RPG ")));
    boxes.answer(MbResNo);
    EXPECT_FALSE(AddSideItem(0, QStringLiteral("NEW")));
    ASSERT_EQ(boxes.calls().size(), 3u);
    EXPECT_EQ(boxes.calls()[0].text, QStringLiteral("追加項目を入力して下さい"));
    EXPECT_EQ(boxes.calls()[0].flags, 48);
    EXPECT_EQ(boxes.calls()[1].text, QStringLiteral("登録済みです"));
    EXPECT_EQ(boxes.calls()[1].flags, 48);
    EXPECT_EQ(boxes.calls()[2].text, QStringLiteral("[NEW] を追加しますか？"));
    EXPECT_EQ(ReadFile(app("TORVANE.GNR")), before);
}

TEST_F(SideListTest, RemoveAsksAndRewrites)
{
    LoadSideList(0);
    boxes.answer(MbResYes);
    EXPECT_TRUE(RemoveSideItem(0, QStringLiteral("ADV")));
    EXPECT_EQ(boxes.texts(), QStringList({"[ADV] を削除しますか？"}));
    EXPECT_EQ(LoadSideList(0),
              QStringList({"ACT", "ETC", "PZL", "QIZ", "RCG", "RPG", "SLG", "STG", "TBL"}));
    EXPECT_FALSE(QFile::exists(app("TORVANE.CTP")));
}

TEST_F(SideListTest, RemoveMissingOrDeclined)
{
    LoadSideList(0);
    const QByteArray before = ReadFile(app("TORVANE.GNR"));
    EXPECT_FALSE(RemoveSideItem(0, QStringLiteral("XYZ")));
    boxes.answer(MbResNo);
    EXPECT_FALSE(RemoveSideItem(0, QStringLiteral("RPG")));
    EXPECT_EQ(boxes.texts(), QStringList({"XYZ に存在しません", "[RPG] を削除しますか？"}));
    EXPECT_EQ(boxes.calls()[0].flags, 48);
    EXPECT_EQ(boxes.calls()[1].flags, 4);
    EXPECT_EQ(ReadFile(app("TORVANE.GNR")), before);
    EXPECT_FALSE(QFile::exists(app("TORVANE.CTP")));
}

TEST_F(SideListTest, RemovingTheLastItemLeavesTheHeader)
{
    LoadSideList(4);
    boxes.answer(MbResYes);
    ASSERT_TRUE(AddSideItem(4, QStringLiteral("1985/04")));
    boxes.answer(MbResYes);
    ASSERT_TRUE(RemoveSideItem(4, QStringLiteral("1985/04")));
    EXPECT_EQ(ReadFile(app("TORVANE.SAL")), QByteArray("TORVANE.SAL Version 0.11"));
}

TEST_F(SideListTest, UnreadableListGivesNoItemsAndNoCrash)
{
    ASSERT_TRUE(QDir().mkpath(app("TORVANE.CL1"))); // a directory where the file should be
    EXPECT_TRUE(LoadSideList(2).isEmpty());
    EXPECT_FALSE(AddSideItem(2, QStringLiteral("x")));
    EXPECT_EQ(boxes.calls().size(), 1u);
}

} // namespace
