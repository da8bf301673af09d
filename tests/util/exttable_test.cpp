#include "util/Globals.h"
#include "util/SubFunction.h"

#include <QStringList>

#include <gtest/gtest.h>

using namespace tv;

namespace {
class ExtTableTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        savedHardWare = HardWare;
        InitTables();
    }
    void TearDown() override
    {
        HardWare = savedHardWare;
        InitTables();
    }
    uint8_t savedHardWare = 255;

    static QStringList Column(size_t col)
    {
        QStringList out;
        for (size_t r = 0; r < ExtTable.size(); ++r)
            out << ExtTable[r][col];
        return out;
    }
    static QStringList Expect(QStringList filled)
    {
        while (filled.size() < 20)
            filled << QString();
        return filled;
    }
};
} // namespace

TEST_F(ExtTableTest, ColumnsHoldExtensionsThenFilterThenEmptyRows)
{
    EXPECT_EQ(Column(0),
              Expect({"D88", "T88", "CMT", "N80", "*.LZH;*.ZIP;*.CAB;*.D88;*.T88;*.CMT;*.N80"}));
    EXPECT_EQ(Column(1), Expect({"D77", "VFD", "2D", "T77", "VTP",
                                 "*.LZH;*.ZIP;*.CAB;*.D77;*.VFD;*.2D;*.T77;*.VTP"}));
    EXPECT_EQ(Column(2), Expect({"D88", "2D", "TAP", "*.LZH;*.ZIP;*.CAB;*.D88;*.2D;*.TAP"}));
    EXPECT_EQ(Column(3), Expect({"LZH", "ZIP", "CAB", "*.LZH;*.ZIP;*.CAB"}));
    EXPECT_EQ(Column(4), Expect({"PNG", "JPG", "BMP", "*.PNG;*.JPG;*.BMP"}));
    EXPECT_EQ(Column(5),
              Expect({"TXT", "PDF", "HTML", "HTM", "MHT", "CHM", "DOC", "XLS", "PNG", "JPG", "BMP",
                      "*.TXT;*.PDF;*.HTML;*.HTM;*.MHT;*.CHM;*.DOC;*.XLS;*.PNG;*.JPG;*.BMP"}));
}

TEST_F(ExtTableTest, InitTablesSetsHelpFileBesideProgram)
{
    const QString saved = AppDir;
    AppDir = QStringLiteral("/opt/torv");
    InitTables();
    EXPECT_EQ(HelpFile, QStringLiteral("/opt/torv/TORVANE.html"));
    AppDir = saved;
}

TEST_F(ExtTableTest, ImageExtensionsFollowTheFamily)
{
    HardWare = 0;
    EXPECT_TRUE(IsImageExt(QStringLiteral("D88")));
    EXPECT_TRUE(IsImageExt(QStringLiteral(" n80 ")));
    EXPECT_FALSE(IsImageExt(QStringLiteral("D77")));
    EXPECT_FALSE(IsImageExt(QStringLiteral("2D")));
    HardWare = 1;
    EXPECT_TRUE(IsImageExt(QStringLiteral("d77")));
    EXPECT_TRUE(IsImageExt(QStringLiteral("VTP")));
    EXPECT_TRUE(IsImageExt(QStringLiteral("2d")));
    EXPECT_FALSE(IsImageExt(QStringLiteral("D88")));
    HardWare = 2;
    EXPECT_TRUE(IsImageExt(QStringLiteral("D88")));
    EXPECT_TRUE(IsImageExt(QStringLiteral("TAP")));
    EXPECT_FALSE(IsImageExt(QStringLiteral("T88")));
    EXPECT_FALSE(IsImageExt(QStringLiteral("LZH")));
}

TEST_F(ExtTableTest, NoFamilyChosenMeansNoImageExtension)
{
    HardWare = 255;
    EXPECT_FALSE(IsImageExt(QStringLiteral("D88")));
    EXPECT_FALSE(IsImageExt(QStringLiteral("D77")));
}

TEST_F(ExtTableTest, EmptyExtensionMatchesNothing)
{
    HardWare = 0;
    EXPECT_FALSE(IsImageExt(QString()));
    EXPECT_FALSE(IsArcExt(QStringLiteral("  ")));
    EXPECT_FALSE(IsManualExt(QString()));
}

TEST_F(ExtTableTest, ArchiveAndManualExtensions)
{
    for (const char* e : {"LZH", "zip", " Cab "})
        EXPECT_TRUE(IsArcExt(QString::fromLatin1(e))) << e;
    EXPECT_FALSE(IsArcExt(QStringLiteral("D88")));
    EXPECT_FALSE(IsArcExt(QStringLiteral("RAR")));
    for (const char* e :
         {"TXT", "pdf", "HTML", "htm", "MHT", "CHM", "DOC", "XLS", "PNG", "jpg", "BMP"})
        EXPECT_TRUE(IsManualExt(QString::fromLatin1(e))) << e;
    EXPECT_FALSE(IsManualExt(QStringLiteral("D88")));
    EXPECT_FALSE(IsManualExt(QStringLiteral("GIF")));
}

TEST_F(ExtTableTest, FilterRowIsPartOfTheSearchedRows)
{
    // The search runs over the rows up to the first empty one, the filter row included.
    EXPECT_TRUE(IsArcExt(QStringLiteral("*.lzh;*.zip;*.cab")));
}

TEST_F(ExtTableTest, SearchStopsAtFirstEmptyRowAndAtItsLastRow)
{
    ExtTable[10][3] = QStringLiteral("RAR"); // behind the empty row 6
    EXPECT_FALSE(IsArcExt(QStringLiteral("RAR")));
    for (size_t r = 0; r < 20; ++r)
        ExtTable[r][3] = ExtTable[r][5] = QStringLiteral("R%1").arg(r + 1);
    EXPECT_TRUE(IsArcExt(QStringLiteral("R10")));
    EXPECT_FALSE(IsArcExt(QStringLiteral("R11"))); // archives: rows 1 to 10
    EXPECT_TRUE(IsManualExt(QStringLiteral("R19")));
    EXPECT_FALSE(IsManualExt(QStringLiteral("R20"))); // manuals: rows 1 to 19
    for (size_t r = 0; r < 20; ++r)
        ExtTable[r][0] = QStringLiteral("R%1").arg(r + 1);
    HardWare = 0;
    EXPECT_TRUE(IsImageExt(QStringLiteral("R19")));
    EXPECT_FALSE(IsImageExt(QStringLiteral("R20")));
}
