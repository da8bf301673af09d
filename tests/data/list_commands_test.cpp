// The cores of the list commands: deleting a title keeps every row's key on its own record in
// any sort order, the key prefix alternates, a catalogue that can't be written keeps
// everything; the search over the displayed texts of the rows.
#include "data/Cfg.h"
#include "data/ListCommands.h"
#include "data/TitleListModel.h"
#include "data/clsLst.h"
#include "support/CatalogueBytes.h"
#include "support/GuardedDirs.h"
#include "util/Globals.h"

#include <QFile>
#include <algorithm>
#include <gtest/gtest.h>

namespace {

using namespace tv;
using tvtest::LstFields;

LstFields Row(const QString& title, const QString& genre, const QString& maker,
              const QString& c1 = {}, const QString& c2 = {}, const QString& sale = {})
{
    LstFields f;
    f.title = title;
    f.genre = genre;
    f.maker = maker;
    f.col1 = c1;
    f.col2 = c2;
    f.sale = sale;
    f.start = title + ".D88";
    return f;
}

class ListCommandsTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(dirs.isValid());
        SetDefaultCfg(Cfg);
        KeyPrefix = "K";
        HardWare = 0;
    }
    QString path(int family = 0) const { return AppDir + "/" + tvtest::LstNameOf(family); }
    void write(const std::vector<LstFields>& rows, int family = 0)
    {
        QByteArray b = tvtest::LstHeaderBytes(family);
        for (const auto& f : rows)
            b += tvtest::MakeLstRecord(family, f);
        ASSERT_TRUE(tvtest::WriteBytes(path(family), b));
    }
    void fill(TitleListModel& m, int family = 0)
    {
        ASSERT_EQ(FillTitleList(m, uint8_t(family), [](int32_t, int32_t) {}).status,
                  LoadListStatus::Loaded);
    }
    // Every row's key reads back the record whose title the row shows.
    static void expectKeysOnOwnRecords(const TitleListModel& m, const QString& prefix)
    {
        for (int r = 0; r < m.rowCount(); ++r) {
            EXPECT_TRUE(m.key(r).startsWith(prefix)) << m.key(r).toStdString();
            ASSERT_TRUE(LstObj.GetLst(m.seekPointer(r)));
            EXPECT_EQ(LstObj.GetTitle(), m.row(r).text[0]) << "row " << r;
        }
    }
    static QStringList titles(const TitleListModel& m)
    {
        QStringList out;
        for (int r = 0; r < m.rowCount(); ++r)
            out << m.row(r).text[0];
        return out;
    }
    tvtest::GuardedDirs dirs;
};

TEST(ListKeys, PrefixAlternatesBetweenKAndY)
{
    EXPECT_EQ(NextKeyPrefix("K"), QStringLiteral("Y"));
    EXPECT_EQ(NextKeyPrefix("Y"), QStringLiteral("K"));
}

TEST(ListKeys, KeysBehindTheRemovedRecordMoveDownOneRecord)
{
    EXPECT_EQ(RekeyAfterRemoval("K25", "Y", 2309, 2284), QStringLiteral("Y25"));
    EXPECT_EQ(RekeyAfterRemoval("K2309", "Y", 2309, 2284), QStringLiteral("Y2309"));
    EXPECT_EQ(RekeyAfterRemoval("K4593", "Y", 2309, 2284), QStringLiteral("Y2309"));
    EXPECT_EQ(RekeyAfterRemoval("Y3799", "K", 25, 1887), QStringLiteral("K1912"));
}

TEST_F(ListCommandsTest, DeletingTheFirstOfThreeKeepsKeysInEverySortOrder)
{
    for (int key = 0; key <= kMaxSortKey; ++key) {
        SCOPED_TRACE(key);
        KeyPrefix = "K";
        write({Row("Bravo", "SLG", "Zeta", "x2", "y1", "1986"),
               Row("Alpha", "RPG", "Mu", "x3", "y3", "1985"),
               Row("Charlie", "ACT", "Alef", "x1", "y2", "1987")});
        TitleListModel m;
        fill(m);
        m.applySortKey(key);
        const int first = m.rowOfSeek(25);
        ASSERT_GE(first, 0);
        ASSERT_EQ(DeleteListItem(m, first), DeleteItemResult::Deleted);
        EXPECT_EQ(KeyPrefix, QStringLiteral("Y"));
        ASSERT_EQ(m.rowCount(), 2);
        EXPECT_FALSE(titles(m).contains("Bravo"));
        // Both remaining records moved down by one record length.
        QList<int32_t> seeks{m.seekPointer(0), m.seekPointer(1)};
        std::sort(seeks.begin(), seeks.end());
        EXPECT_EQ(seeks, (QList<int32_t>{25, 25 + 2284}));
        expectKeysOnOwnRecords(m, "Y");
        EXPECT_EQ(QFile(path()).size(), 24 + 2 * 2284);
        EXPECT_EQ(LstObj.GetLstMaxCnt(), 2);
    }
}

TEST_F(ListCommandsTest, DeletingTheMiddleRecordOfTheXOneCatalogue)
{
    write({Row("a", "", ""), Row("b", "", ""), Row("c", "", "")}, 2);
    HardWare = 2;
    TitleListModel m;
    fill(m, 2);
    m.applySortKey(1); // file order, descending: c, b, a
    ASSERT_EQ(titles(m), (QStringList{"c", "b", "a"}));
    ASSERT_EQ(DeleteListItem(m, 1), DeleteItemResult::Deleted);
    EXPECT_EQ(titles(m), (QStringList{"c", "a"}));
    EXPECT_EQ(m.key(0), QStringLiteral("Y%1").arg(25 + 1820));
    EXPECT_EQ(m.key(1), QStringLiteral("Y25"));
    expectKeysOnOwnRecords(m, "Y");
}

TEST_F(ListCommandsTest, TwoDeletionsUseYThenK)
{
    write({Row("one", "", ""), Row("two", "", ""), Row("three", "", "")});
    TitleListModel m;
    fill(m);
    ASSERT_EQ(DeleteListItem(m, 0), DeleteItemResult::Deleted);
    EXPECT_EQ(KeyPrefix, QStringLiteral("Y"));
    EXPECT_EQ(m.key(0), QStringLiteral("Y25"));
    EXPECT_EQ(m.key(1), QStringLiteral("Y2309"));
    ASSERT_EQ(DeleteListItem(m, 1), DeleteItemResult::Deleted);
    EXPECT_EQ(KeyPrefix, QStringLiteral("K"));
    ASSERT_EQ(m.rowCount(), 1);
    EXPECT_EQ(m.key(0), QStringLiteral("K25"));
    expectKeysOnOwnRecords(m, "K");
}

TEST_F(ListCommandsTest, DeletingTheLastRecordLeavesAHeaderOnlyCatalogue)
{
    write({Row("only", "", "")});
    TitleListModel m;
    fill(m);
    ASSERT_EQ(DeleteListItem(m, 0), DeleteItemResult::Deleted);
    EXPECT_EQ(m.rowCount(), 0);
    EXPECT_EQ(tvtest::ReadBytes(path()), tvtest::LstHeaderBytes(0));
    EXPECT_EQ(LstObj.GetLstMaxCnt(), 0);
}

TEST_F(ListCommandsTest, ACatalogueThatCannotBeWrittenKeepsEverything)
{
    write({Row("one", "", ""), Row("two", "", "")});
    TitleListModel m;
    fill(m);
    const QByteArray before = tvtest::ReadBytes(path());
    QFile::setPermissions(path(), QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
    EXPECT_EQ(DeleteListItem(m, 0), DeleteItemResult::RemoveFailed);
    QFile::setPermissions(path(), QFile::ReadOwner | QFile::WriteOwner);
    EXPECT_EQ(tvtest::ReadBytes(path()), before);
    EXPECT_EQ(KeyPrefix, QStringLiteral("K"));
    EXPECT_EQ(titles(m), (QStringList{"one", "two"}));
    EXPECT_EQ(m.key(0), QStringLiteral("K25"));
    EXPECT_EQ(m.key(1), QStringLiteral("K2309"));
    EXPECT_EQ(LstObj.GetLstMaxCnt(), 2);
    EXPECT_FALSE(QFile::exists(AppDir + "/TORVANE.LSB"));
}

TEST_F(ListCommandsTest, NoRowIsNoDeletion)
{
    write({Row("one", "", "")});
    TitleListModel m;
    fill(m);
    EXPECT_EQ(DeleteListItem(m, -1), DeleteItemResult::NoRow);
    EXPECT_EQ(DeleteListItem(m, 1), DeleteItemResult::NoRow);
    EXPECT_EQ(m.rowCount(), 1);
    EXPECT_EQ(QFile(path()).size(), 24 + 2284);
}

// --- Search ------------------------------------------------------------------------------

class ListSearchTest : public ListCommandsTest {
protected:
    void SetUp() override
    {
        ListCommandsTest::SetUp();
        write({Row("Xanadu", "RPG", "Falcom", "5\"2D", "disk", "1985/11"),
               Row("xanadu Scenario II", "RPG", "Falcom", "", "", "1986"),
               Row("Hydlide", "ARPG", "T&E SOFT", "", "", "1985"),
               Row("Thexder", "ACT", "Game Arts", "xan", "", "1985/04"),
               Row("XANADU", "SLG", "other", "", "", "")});
        fill(m);
    }
    TitleListModel m;
};

TEST_F(ListSearchTest, PartialIsTheStartOfTheTitleWithoutCase)
{
    EXPECT_EQ(FindListRow(m, "xanadu", kFindTitle, 0, false), 0);
    EXPECT_EQ(FindListRow(m, "XANADU S", kFindTitle, 0, false), 1);
    EXPECT_EQ(FindListRow(m, "lide", kFindTitle, 0, false), -1); // not at the start
    EXPECT_EQ(FindListRow(m, "hyd", kFindTitle, 0, false), 2);
}

TEST_F(ListSearchTest, WholeIsTheWholeTitleWithoutCase)
{
    EXPECT_EQ(FindListRow(m, "xanadu", kFindTitle, 0, true), 0);
    EXPECT_EQ(FindListRow(m, "xanadu", kFindTitle, 1, true), 4);
    EXPECT_EQ(FindListRow(m, "Hydlid", kFindTitle, 0, true), -1);
}

TEST_F(ListSearchTest, SubItemsAreGenreMakerFreeColumnsAndDate)
{
    EXPECT_EQ(FindListRow(m, "arpg", kFindSubItems, 0, true), 2);
    EXPECT_EQ(FindListRow(m, "t&e", kFindSubItems, 0, false), 2);
    EXPECT_EQ(FindListRow(m, "XAN", kFindSubItems, 0, false), 3); // a free column
    EXPECT_EQ(FindListRow(m, "disk", kFindSubItems, 0, true), 0);
    EXPECT_EQ(FindListRow(m, "1985/04", kFindSubItems, 0, true), 3);
    // The title column is no sub-item.
    EXPECT_EQ(FindListRow(m, "Thexder", kFindSubItems, 0, false), -1);
}

TEST_F(ListSearchTest, FromTheRowAfterTheSelectionWithoutWrapping)
{
    EXPECT_EQ(FindListRow(m, "1985", kFindSubItems, 0, false), 0);
    EXPECT_EQ(FindListRow(m, "1985", kFindSubItems, 1, false), 2);
    EXPECT_EQ(FindListRow(m, "1985", kFindSubItems, 3, false), 3);
    EXPECT_EQ(FindListRow(m, "1985", kFindSubItems, 4, false), -1);
    // Behind the last row nothing is found.
    EXPECT_EQ(FindListRow(m, "xanadu", kFindTitle, 5, false), -1);
}

TEST_F(ListSearchTest, EmptyTextFindsNothing)
{
    EXPECT_EQ(FindListRow(m, "", kFindTitle, 0, false), -1);
    EXPECT_EQ(FindListRow(m, "", kFindSubItems, 0, true), -1);
}

TEST_F(ListSearchTest, TheOrderIsTheOrderShown)
{
    m.applySortKey(1); // file order, descending
    EXPECT_EQ(m.row(FindListRow(m, "xanadu", kFindTitle, 0, true)).text[4], QString());
    EXPECT_EQ(m.row(FindListRow(m, "xanadu", kFindTitle, 0, true)).text[1], QStringLiteral("SLG"));
}

} // namespace
