// The rows of the title list: fill from hand-built catalogues, counts, keys, icons, every sort
// key and the column-click cycle.
#include "data/Cfg.h"
#include "data/TitleListModel.h"
#include "data/clsLst.h"
#include "util/Globals.h"
#include "support/CatalogueBytes.h"

#include <QDir>
#include <QPersistentModelIndex>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

using namespace tv;
using tvtest::LstFields;

class TitleListTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(root.isValid());
        QDir(root.path()).mkpath("app");
        QDir(root.path()).mkpath("tmp");
        AppDir = root.path() + "/app";
        EnvTmpDir = EnvTempDir = root.path() + "/tmp";
        WindowsDir = "/etc";
        SystemDir = "/usr";
        KeyPrefix = "K";
        SetDefaultCfg(Cfg);
    }
    QString path(int family) const { return AppDir + "/" + tvtest::LstNameOf(family); }
    void write(int family, const std::vector<LstFields>& rows, const QByteArray& tail = {})
    {
        QByteArray b = tvtest::LstHeaderBytes(family);
        for (const auto& f : rows)
            b += tvtest::MakeLstRecord(family, f);
        ASSERT_TRUE(tvtest::WriteBytes(path(family), b + tail));
    }
    static LstFields row(const QString& title, const QString& genre, const QString& maker,
                         const QString& c1, const QString& c2, const QString& sale,
                         const QString& start)
    {
        LstFields f;
        f.title = title;
        f.genre = genre;
        f.maker = maker;
        f.col1 = c1;
        f.col2 = c2;
        f.sale = sale;
        f.start = start;
        return f;
    }
    // Titles of the rows in view order.
    static QStringList column(const TitleListModel& m, int c)
    {
        QStringList out;
        for (int r = 0; r < m.rowCount(); ++r)
            out << m.index(r, c).data().toString();
        return out;
    }
    QTemporaryDir root;
};

TEST_F(TitleListTest, FillShowsEveryRecordWithKeysIconsAndProgress)
{
    const int len = 2284;
    write(0,
          {row("ザルバード", "RPG", "日本ファンロック", "5\"2D", "", "1985/11", "XALBARD.D88"),
           row("alpha", "ACT", "maker", "", "", "", "TAPE.T88"),
           row("unknown", "", "", "", "", "", "README")},
          QByteArray(100, 'x')); // a partial trailing record is no row
    TitleListModel m;
    std::vector<std::pair<int32_t, int32_t>> seen;
    const auto out = FillTitleList(m, 0, [&](int32_t c, int32_t t) { seen.push_back({c, t}); });
    EXPECT_EQ(out.status, LoadListStatus::Loaded);
    EXPECT_EQ(out.notedRow, -1);
    ASSERT_EQ(m.rowCount(), 3);
    EXPECT_EQ(m.columnCount(), 6);
    EXPECT_EQ((std::vector<std::pair<int32_t, int32_t>>{{0, 3}, {1, 3}, {2, 3}, {3, 3}}), seen);
    EXPECT_EQ(column(m, 0), QStringList({"ザルバード", "alpha", "unknown"}));
    EXPECT_EQ(m.index(0, 2).data().toString(), "日本ファンロック");
    EXPECT_EQ(m.index(0, 3).data().toString(), "5\"2D");
    EXPECT_EQ(m.index(0, 5).data().toString(), "1985/11");
    EXPECT_EQ(m.key(0), "K25");
    EXPECT_EQ(m.key(1), QString("K%1").arg(25 + len));
    EXPECT_EQ(m.key(2), QString("K%1").arg(25 + 2 * len));
    EXPECT_EQ(m.index(1, 0).data(TitleListModel::KeyRole).toString(), m.key(1));
    EXPECT_EQ(m.seekPointer(2), 25 + 2 * len);
    EXPECT_EQ(m.rowOfSeek(25 + len), 1);
    EXPECT_EQ(m.rowOfSeek(26), -1);
    // Icons by the start file's extension, only in the first column; unknown keys get none.
    EXPECT_FALSE(m.index(0, 0).data(Qt::DecorationRole).value<QIcon>().isNull());
    EXPECT_FALSE(m.index(1, 0).data(Qt::DecorationRole).value<QIcon>().isNull());
    EXPECT_FALSE(m.index(2, 0).data(Qt::DecorationRole).isValid());
    EXPECT_FALSE(m.index(0, 1).data(Qt::DecorationRole).isValid());
    for (const char* ext : {"D88", "T88", "CMT", "N80", "D77", "VFD", "2D", "T77", "VTP", "TAP"})
        EXPECT_FALSE(TitleListModel::iconFor(ext).isNull()) << ext;
    EXPECT_TRUE(TitleListModel::iconFor("LZH").isNull());
    // The icons differ between disk and tape.
    EXPECT_NE(TitleListModel::iconFor("D88").pixmap(16).toImage(),
              TitleListModel::iconFor("T88").pixmap(16).toImage());
}

TEST_F(TitleListTest, KeysUseTheCurrentPrefix)
{
    write(1, {row("a", "", "", "", "", "", "A.D77")});
    KeyPrefix = "Y";
    TitleListModel m;
    FillTitleList(m, 1, {});
    ASSERT_EQ(m.rowCount(), 1);
    EXPECT_EQ(m.key(0), "Y25");
    EXPECT_EQ(SeekOfListKey("Y1912"), 1912);
    EXPECT_EQ(SeekOfListKey("K"), 0);
    EXPECT_EQ(MakeListKey("K", 25), "K25");
}

TEST_F(TitleListTest, NewFamilyGetsHeaderOnlyFile)
{
    for (int fam = 0; fam < 3; ++fam) {
        TitleListModel m;
        EXPECT_FALSE(QFile::exists(path(fam)));
        const auto out = FillTitleList(m, uint8_t(fam), {});
        EXPECT_EQ(out.status, LoadListStatus::Created);
        EXPECT_EQ(m.rowCount(), 0);
        EXPECT_EQ(tvtest::ReadBytes(path(fam)), tvtest::LstHeaderBytes(fam));
        EXPECT_EQ(LstObj.GetLstMaxCnt(), 0);
        EXPECT_EQ(LstObj.GetHardWare(), fam);
        // The second time it is an existing, empty catalogue.
        EXPECT_EQ(FillTitleList(m, uint8_t(fam), {}).status, LoadListStatus::Loaded);
    }
}

TEST_F(TitleListTest, WrongVersionAndWrongFamily)
{
    QByteArray bad = tvtest::LstHeaderBytes(2);
    bad.replace(20, 4, "0.15");
    ASSERT_TRUE(tvtest::WriteBytes(path(2), bad));
    TitleListModel m;
    EXPECT_EQ(FillTitleList(m, 2, {}).status, LoadListStatus::BadVersion);
    EXPECT_EQ(tvtest::ReadBytes(path(2)), bad); // untouched
    EXPECT_EQ(FillTitleList(m, 3, {}).status, LoadListStatus::BadFamily);
    EXPECT_TRUE(QDir(AppDir).entryList({"TORVANE.L*"}, QDir::Files).size() == 1);
}

TEST_F(TitleListTest, RemembersTheSavedRecordOnlyWhenAsked)
{
    const int len = 1820;
    write(2, {row("a", "", "", "", "", "", "A.D88"), row("b", "", "", "", "", "", "B.2D"),
              row("c", "", "", "", "", "", "C.TAP")});
    TitleListModel m;
    Cfg.LstSelectSave = 1;
    Cfg.LstSelectPos = 25 + 2 * len;
    EXPECT_EQ(FillTitleList(m, 2, {}).notedRow, 2);
    Cfg.LstSelectPos = 26; // no record starts there
    EXPECT_EQ(FillTitleList(m, 2, {}).notedRow, -1);
    Cfg.LstSelectSave = 0;
    Cfg.LstSelectPos = 25 + len;
    EXPECT_EQ(FillTitleList(m, 2, {}).notedRow, -1);
    EXPECT_EQ(RecordNumberOfSeek(25 + 2 * len, len), 3);
}

TEST_F(TitleListTest, EverySortKey)
{
    // Five rows whose columns each sort differently; case is ignored, equal texts keep file
    // order in both directions.
    write(0, {row("delta", "b", "Z", "3", "c", "1990/01", "1.D88"),
              row("Alpha", "a", "y", "1", "e", "1985/12", "2.D88"),
              row("charlie", "c", "X", "5", "a", "1983/05", "3.D88"),
              row("bravo", "b", "w", "2", "d", "2001/1", "4.D88"),
              row("echo", "e", "V", "4", "b", "1985/2", "5.D88")});
    TitleListModel m;
    FillTitleList(m, 0, {});
    auto order = [&] {
        QStringList out;
        for (int r = 0; r < m.rowCount(); ++r)
            out << QString::number(RecordNumberOfSeek(m.seekPointer(r), 2284));
        return out.join("");
    };
    const std::map<int, QString> expected = {
        {0, "12345"},  {1, "54321"},  {2, "24315"},  {3, "51342"},  {4, "21435"},
        {5, "53142"},  {6, "54321"},  {7, "12345"},  {8, "24153"},  {9, "35142"},
        {10, "35142"}, {11, "24153"}, {12, "32514"}, {13, "41523"},
    };
    for (int key = 0; key <= kMaxSortKey; ++key) {
        m.applySortKey(key);
        EXPECT_EQ(order(), expected.at(key)) << "key " << key;
    }
    // Genre has two "b" rows (1 and 4): equal texts keep their present order.
    m.applySortKey(0);
    m.applySortKey(4);
    EXPECT_EQ(order(), "21435");
}

TEST_F(TitleListTest, SortKeepsKeysAndPersistentSelection)
{
    write(0, {row("b", "", "", "", "", "", "1.D88"), row("a", "", "", "", "", "", "2.D88")});
    TitleListModel m;
    FillTitleList(m, 0, {});
    QPersistentModelIndex selected(m.index(0, 0)); // "b", K25
    m.sortByColumn(0, false);
    EXPECT_EQ(selected.row(), 1);
    EXPECT_EQ(m.key(1), "K25");
    EXPECT_EQ(m.index(1, 0).data().toString(), "b");
    m.sortBySeek(false);
    EXPECT_EQ(selected.row(), 0);
}

TEST(TitleListKeys, ColumnClickCycleAndSortKeyParts)
{
    EXPECT_EQ(ColumnClickKey(3, 0), 6);
    EXPECT_EQ(ColumnClickKey(3, 6), 7);
    EXPECT_EQ(ColumnClickKey(3, 7), 6);
    EXPECT_EQ(ColumnClickKey(4, 7), 8);
    EXPECT_EQ(ColumnClickKey(1, 2), 3);
    EXPECT_EQ(ColumnClickKey(6, 13), 12);
    for (int key = 2; key <= 13; ++key) {
        EXPECT_EQ(SortColumnOfKey(key), key / 2 - 1);
        EXPECT_EQ(SortKeyDescending(key), key % 2 == 1);
    }
    EXPECT_TRUE(SortKeyDescending(1));
    EXPECT_FALSE(SortKeyDescending(0));
}

TEST(TitleListKeys, CaptionsAndTexts)
{
    EXPECT_EQ(ListWindowCaption(12),
              QStringLiteral("TORVANE　- Torvane for PC8801mk2SR on MS Windows - ( 12 Images )"));
    EXPECT_EQ(ListCountText(3, 50), QStringLiteral("3 件 ／ 50 件"));
    TitleListModel m;
    const QStringList captions = {"Title", "Genre", "Maker", "Column 1", "Column 2", "Sale Date"};
    for (int c = 0; c < 6; ++c)
        EXPECT_EQ(m.headerData(c, Qt::Horizontal).toString(), captions[c]);
    m.setColumnCaption(3, "機種");
    EXPECT_EQ(m.headerData(3, Qt::Horizontal).toString(), "機種");
}

} // namespace
