// The catalogue access class against files built byte by byte here, independent of its own
// encoder, for all three families.
#include "data/clsLst.h"
#include "util/Globals.h"
#include "util/Sjis.h"
#include "support/CatalogueBytes.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

using namespace tv;

using tvtest::MakeLstRecord;
using Fields = tvtest::LstFields;
const tvtest::LstLayout* const kLayouts[3] = {&tvtest::LstLayoutOf(0), &tvtest::LstLayoutOf(1),
                                              &tvtest::LstLayoutOf(2)};
const char* kHeaders[3] = {"TORVANE.LST Version 0.16", "TORVANE.LFM Version 0.16",
                           "TORVANE.LX1 Version 0.16"};
const char* kNames[3] = {"TORVANE.LST", "TORVANE.LFM", "TORVANE.LX1"};

QByteArray makeRecord(int family, const Fields& f)
{
    return MakeLstRecord(family, f);
}

Fields sample(int family, int n)
{
    Fields f;
    f.title = QStringLiteral("ザ・ブラックオニキス %1").arg(n);
    f.genre = QStringLiteral("ＲＰＧ");
    f.maker = QStringLiteral("ボーステック");
    f.col1 = QStringLiteral("5インチ2D");
    f.col2 = QStringLiteral("～①－");
    f.sale = QStringLiteral("1984/%1").arg(n, 2, 10, QLatin1Char('0'));
    f.comment = QStringLiteral("一行目\r\n二行目 with blanks  \r\n三行目");
    f.start =
        family == 1 ? QStringLiteral("GAME%1.D77").arg(n) : QStringLiteral("GAME%1.D88").arg(n);
    f.jitu = QStringLiteral("C:\\GAMES\\PC88\\XXX%1.D88").arg(n);
    f.second = QStringLiteral("C:\\GAMES\\PC88\\DISK B.D88");
    f.scr = QStringLiteral("C:\\SNAP\\画面%1.PNG").arg(n);
    f.man = QStringLiteral("C:\\MAN\\説明書.TXT");
    f.arc = 1;
    f.rearc = 2;
    f.melt = 1;
    f.defEmu = uint8_t(n % 7);
    f.firstOpt = uint8_t(100 + n);
    return f;
}

class ClsLstTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(root.isValid());
        QDir(root.path()).mkpath("app");
        QDir(root.path()).mkpath("tmp");
        AppDir = root.path() + "/app";
        EnvTmpDir = EnvTempDir = root.path() + "/tmp";
        PeekDir = EnvTmpDir + "/TORVBOOT";
        WindowsDir = "/etc";
        SystemDir = "/usr";
    }
    QString path(int family) const { return AppDir + "/" + kNames[family]; }
    void writeFile(int family, const QByteArray& bytes)
    {
        QFile f(path(family));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
        ASSERT_EQ(f.write(bytes), bytes.size());
    }
    QByteArray readFile(int family) const
    {
        QFile f(path(family));
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }
    // Header and `n` sample records.
    QByteArray catalogue(int family, int n)
    {
        QByteArray b(kHeaders[family]);
        for (int i = 1; i <= n; ++i)
            b += makeRecord(family, sample(family, i));
        return b;
    }
    QTemporaryDir root;
};

class ClsLstFamilyTest : public ClsLstTest, public ::testing::WithParamInterface<int> {};

TEST_P(ClsLstFamilyTest, ReadsEveryFieldInFileOrder)
{
    const int fam = GetParam();
    writeFile(fam, catalogue(fam, 3));
    const QByteArray before = readFile(fam);
    clsLst lst;
    EXPECT_EQ(lst.GetLstLength(), 0); // no family before the first InitLst
    ASSERT_TRUE(lst.InitLst(uint8_t(fam)));
    EXPECT_EQ(lst.GetLstLength(), kLayouts[fam]->length);
    EXPECT_EQ(lst.GetLstMaxCnt(), 3);
    EXPECT_EQ(lst.GetLstSeekCnt(), 1);
    EXPECT_EQ(lst.GetLstMaxSeekPointer(), kLayouts[fam]->length * 3 + 25);
    for (int n = 1; n <= 3; ++n) {
        const int32_t sp = lst.NextLoad();
        EXPECT_EQ(sp, (n - 1) * kLayouts[fam]->length + 25);
        const Fields f = sample(fam, n);
        EXPECT_EQ(lst.GetTitle(), f.title);
        EXPECT_EQ(lst.GetGenre(), f.genre);
        EXPECT_EQ(lst.GetMaker(), f.maker);
        EXPECT_EQ(lst.GetColumn1(), f.col1);
        EXPECT_EQ(lst.GetColumn2(), f.col2);
        EXPECT_EQ(lst.GetSaleDate(), f.sale);
        EXPECT_EQ(lst.GetComment(), f.comment);
        EXPECT_EQ(lst.GetStartFileName(), f.start);
        EXPECT_EQ(lst.GetJituFile(), f.jitu);
        EXPECT_EQ(lst.GetSecondFile(), f.second);
        EXPECT_EQ(lst.GetScrFile(), f.scr);
        EXPECT_EQ(lst.GetManFile(), f.man);
        EXPECT_EQ(lst.GetArcCheckFlag(), 1);
        EXPECT_EQ(lst.GetReArcCheckFlag(), 2);
        EXPECT_EQ(lst.GetMeltManFlag(), 1);
        EXPECT_EQ(lst.GetDefEmuRun(), f.defEmu);
        EXPECT_EQ(lst.GetLstSeekCnt(), n + 1);
        if (fam == 0) {
            lst.GetEmuOpt88();
            EXPECT_EQ(CurEmuOpt88.DefEmuRun, f.defEmu);
            EXPECT_EQ(CurEmuOpt88.P88_1Op[0], f.firstOpt);
        } else if (fam == 1) {
            lst.GetEmuOptFM();
            EXPECT_EQ(CurEmuOptFM.DefEmuRun, f.defEmu);
            EXPECT_EQ(CurEmuOptFM.Xm7Win_1Op[0], f.firstOpt);
        } else {
            lst.GetEmuOptX1();
            EXPECT_EQ(CurEmuOptX1.DefEmuRun, f.defEmu);
            EXPECT_EQ(CurEmuOptX1.X1r_1Op[0], f.firstOpt);
        }
    }
    EXPECT_EQ(lst.NextLoad(), 0);
    EXPECT_EQ(lst.GetTitle(), QString()); // cleared at the end
    // GetLst goes straight to a pointer and leaves SeekCnt alone.
    ASSERT_TRUE(lst.GetLst(kLayouts[fam]->length + 25));
    EXPECT_EQ(lst.GetTitle(), sample(fam, 2).title);
    EXPECT_EQ(lst.GetLstSeekCnt(), 4);
    // Browsing wrote nothing.
    EXPECT_EQ(readFile(fam), before);
}

TEST_P(ClsLstFamilyTest, CommentKeepsLineBreaksAndInnerBlanks)
{
    const int fam = GetParam();
    writeFile(fam, catalogue(fam, 1));
    clsLst lst;
    ASSERT_TRUE(lst.InitLst(uint8_t(fam)));
    ASSERT_EQ(lst.NextLoad(), 25);
    EXPECT_EQ(lst.GetComment(), QStringLiteral("一行目\r\n二行目 with blanks  \r\n三行目"));
    EXPECT_EQ(lst.GetJituFile(), QStringLiteral("C:\\GAMES\\PC88\\XXX1.D88"));
}

TEST_P(ClsLstFamilyTest, PartialTrailingRecordIsNotReturned)
{
    const int fam = GetParam();
    QByteArray b = catalogue(fam, 2);
    // The partial record stops just before its option block.
    b += makeRecord(fam, sample(fam, 3)).left(kLayouts[fam]->opt);
    writeFile(fam, b);
    clsLst lst;
    ASSERT_TRUE(lst.InitLst(uint8_t(fam)));
    EXPECT_EQ(lst.GetLstMaxCnt(), 2);
    EXPECT_NE(lst.NextLoad(), 0);
    EXPECT_NE(lst.NextLoad(), 0);
    EXPECT_EQ(lst.NextLoad(), 0);
    EXPECT_EQ(lst.GetLstSeekCnt(), 3);
    // GetLst reads what there is of it.
    ASSERT_TRUE(lst.GetLst(2 * kLayouts[fam]->length + 25));
    EXPECT_EQ(lst.GetTitle(), sample(fam, 3).title);
    EXPECT_EQ(lst.GetDefEmuRun(), 0); // the option byte lies behind the end
}

TEST_P(ClsLstFamilyTest, HeaderOnlyFile)
{
    const int fam = GetParam();
    writeFile(fam, QByteArray(kHeaders[fam]));
    clsLst lst;
    ASSERT_TRUE(lst.InitLst(uint8_t(fam)));
    EXPECT_EQ(lst.GetLstMaxCnt(), 0);
    EXPECT_EQ(lst.NextLoad(), 0);
    EXPECT_EQ(lst.GetLstMaxSeekPointer(), 25);
}

TEST_P(ClsLstFamilyTest, WrongHeaderIsRefusedAndStateKept)
{
    const int fam = GetParam();
    const int other = (fam + 1) % 3;
    writeFile(other, catalogue(other, 2));
    clsLst lst;
    ASSERT_TRUE(lst.InitLst(uint8_t(other)));
    ASSERT_NE(lst.NextLoad(), 0);

    QByteArray bad = catalogue(fam, 1);
    bad.replace(20, 4, "0.15");
    writeFile(fam, bad);
    const QByteArray before = readFile(fam);
    EXPECT_FALSE(lst.InitLst(uint8_t(fam)));
    EXPECT_EQ(lst.GetHardWare(), other);
    EXPECT_EQ(lst.GetLstMaxCnt(), 2);
    EXPECT_EQ(lst.GetLstSeekCnt(), 2);
    EXPECT_EQ(readFile(fam), before);

    // Another family's header in this family's file is just as wrong.
    writeFile(fam, QByteArray(kHeaders[other]));
    EXPECT_FALSE(lst.InitLst(uint8_t(fam)));
    // Shorter than a header.
    writeFile(fam, QByteArray("TORVANE"));
    EXPECT_FALSE(lst.InitLst(uint8_t(fam)));
}

TEST_P(ClsLstFamilyTest, SetLstAppendsAndRewrites)
{
    const int fam = GetParam();
    writeFile(fam, catalogue(fam, 1));
    clsLst lst;
    ASSERT_TRUE(lst.InitLst(uint8_t(fam)));
    ASSERT_TRUE(lst.GetLst(25));
    if (fam == 0)
        lst.GetEmuOpt88();
    else if (fam == 1)
        lst.GetEmuOptFM();
    else
        lst.GetEmuOptX1();
    const int32_t end = lst.GetLstMaxSeekPointer();
    lst.SetTitle(QStringLiteral("  新しい題名  "));
    lst.SetDefEmuRun(3);
    ASSERT_TRUE(lst.SetLst(end));
    EXPECT_EQ(lst.GetLstMaxCnt(), 2);

    // Record 2 equals record 1 except for the title and the first option byte.
    const QByteArray all = readFile(fam);
    const int len = kLayouts[fam]->length;
    ASSERT_EQ(all.size(), 24 + 2 * len);
    Fields f = sample(fam, 1);
    f.title = QStringLiteral("新しい題名");
    f.defEmu = 3;
    EXPECT_EQ(all.mid(24 + len), makeRecord(fam, f));
    EXPECT_EQ(all.left(24 + len), catalogue(fam, 1));

    // Rewriting in place does not grow the file.
    lst.SetTitle(QStringLiteral("X"));
    ASSERT_TRUE(lst.SetLst(25));
    EXPECT_EQ(lst.GetLstMaxCnt(), 2);
    EXPECT_EQ(readFile(fam).size(), 24 + 2 * len);
    ASSERT_TRUE(lst.GetLst(25));
    EXPECT_EQ(lst.GetTitle(), "X");
    EXPECT_EQ(lst.GetDefEmuRun(), 3);
}

TEST_P(ClsLstFamilyTest, RemoveFirstMiddleLastAndOnly)
{
    const int fam = GetParam();
    const int len = kLayouts[fam]->length;
    QByteArray recs[4];
    for (int i = 1; i <= 3; ++i)
        recs[i] = makeRecord(fam, sample(fam, i));
    const QByteArray head(kHeaders[fam]);
    clsLst lst;

    writeFile(fam, head + recs[1] + recs[2] + recs[3]);
    ASSERT_TRUE(lst.InitLst(uint8_t(fam)));
    ASSERT_TRUE(lst.RemoveLst(25));
    EXPECT_EQ(readFile(fam), head + recs[2] + recs[3]);
    EXPECT_EQ(lst.GetLstMaxCnt(), 2);
    EXPECT_FALSE(QFile::exists(AppDir + "/" + LstWorkFileName(fam)));

    writeFile(fam, head + recs[1] + recs[2] + recs[3]);
    ASSERT_TRUE(lst.RemoveLst(len + 25));
    EXPECT_EQ(readFile(fam), head + recs[1] + recs[3]);

    writeFile(fam, head + recs[1] + recs[2] + recs[3]);
    ASSERT_TRUE(lst.RemoveLst(2 * len + 25));
    EXPECT_EQ(readFile(fam), head + recs[1] + recs[2]);
    EXPECT_EQ(lst.GetLstMaxCnt(), 2);

    writeFile(fam, head + recs[1]);
    ASSERT_TRUE(lst.RemoveLst(25));
    EXPECT_EQ(readFile(fam), head);
    EXPECT_EQ(lst.GetLstMaxCnt(), 0);
    EXPECT_FALSE(QFile::exists(AppDir + "/" + LstWorkFileName(fam)));
}

TEST_P(ClsLstFamilyTest, RemoveDeletesStaleWorkFileAndCarriesPartialTail)
{
    const int fam = GetParam();
    const int len = kLayouts[fam]->length;
    const QByteArray head(kHeaders[fam]);
    const QByteArray r1 = makeRecord(fam, sample(fam, 1));
    const QByteArray r2 = makeRecord(fam, sample(fam, 2));
    const QByteArray partial = makeRecord(fam, sample(fam, 3)).left(10);
    {
        QFile stale(AppDir + "/" + LstWorkFileName(fam));
        ASSERT_TRUE(stale.open(QIODevice::WriteOnly));
        stale.write(QByteArray(5000, 'Z'));
    }
    writeFile(fam, head + r1 + r2 + partial);
    clsLst lst;
    ASSERT_TRUE(lst.InitLst(uint8_t(fam)));
    ASSERT_TRUE(lst.RemoveLst(25));
    EXPECT_EQ(readFile(fam), head + r2 + partial);
    EXPECT_EQ(lst.GetLstMaxCnt(), 1);

    // A single trailing byte behind the last record is not copied: the test is strict.
    writeFile(fam, head + r1 + r2 + QByteArray("!"));
    ASSERT_TRUE(lst.RemoveLst(len + 25));
    EXPECT_EQ(readFile(fam), head + r1);
}

INSTANTIATE_TEST_SUITE_P(Families, ClsLstFamilyTest, ::testing::Values(0, 1, 2));

TEST_F(ClsLstTest, FamilyOutsideRangeTouchesNothing)
{
    clsLst lst;
    EXPECT_FALSE(lst.InitLst(3));
    EXPECT_FALSE(lst.InitLst(255));
    EXPECT_EQ(lst.GetLstVersion(0), "0.16");
    EXPECT_EQ(lst.GetLstVersion(2), "0.16");
    EXPECT_EQ(lst.GetLstVersion(3), "");
    EXPECT_EQ(lst.NextLoad(), 0);
    EXPECT_FALSE(lst.GetLst(25));
    EXPECT_FALSE(lst.SetLst(25));
    EXPECT_TRUE(QDir(AppDir).entryList(QDir::Files).isEmpty());
    EXPECT_FALSE(lst.InitLst(0)); // missing file, and not created either
    EXPECT_FALSE(QFile::exists(path(0)));
}

TEST_F(ClsLstTest, BadBytesAreShownAsBestTheyCanBe)
{
    QByteArray rec = makeRecord(0, sample(0, 1));
    // A lead byte followed by a blank, a lone lead byte at the field end, bytes 0xFD-0xFF.
    rec[0] = char(0x82);
    rec[1] = ' ';
    rec[99] = char(0x81);
    rec[100] = char(0xFF);
    rec[101] = char(0xFD);
    rec[1322] = char(0xFF); // absurd flags
    rec[1323] = char(0xEE);
    rec[1580] = char(0x80);
    rec[1837] = char(0xFF); // DefEmuRun
    writeFile(0, QByteArray(kHeaders[0]) + rec);
    clsLst lst;
    ASSERT_TRUE(lst.InitLst(0));
    ASSERT_EQ(lst.NextLoad(), 25);
    EXPECT_FALSE(lst.GetTitle().isEmpty());
    EXPECT_EQ(lst.GetArcCheckFlag(), 0xFF);
    EXPECT_EQ(lst.GetReArcCheckFlag(), 0xEE);
    EXPECT_EQ(lst.GetMeltManFlag(), 0x80);
    EXPECT_EQ(lst.GetDefEmuRun(), 0xFF);
    EXPECT_EQ(lst.GetMaker(), sample(0, 1).maker); // neighbours unharmed
}

TEST_F(ClsLstTest, EncoderMatchesTheHandBuiltLayout)
{
    for (int fam = 0; fam < 3; ++fam) {
        const Fields f = sample(fam, 4);
        LstRecord r;
        r.Title = f.title;
        r.Genre = f.genre;
        r.Maker = f.maker;
        r.Column1 = f.col1;
        r.Column2 = f.col2;
        r.SaleDate = f.sale;
        r.Comment = f.comment;
        r.StartFileName = f.start;
        r.JituFile = f.jitu;
        r.SecondFile = f.second;
        r.ScrFile = f.scr;
        r.ManFile = f.man;
        r.ArcCheckFlag = f.arc;
        r.ReArcCheckFlag = f.rearc;
        r.MeltManFlag = f.melt;
        r.opt88.DefEmuRun = r.optFM.DefEmuRun = r.optX1.DefEmuRun = f.defEmu;
        r.opt88.P88_1Op[0] = r.optFM.Xm7Win_1Op[0] = r.optX1.X1r_1Op[0] = f.firstOpt;
        r.optX1.X1emu_3Op = 0; // the hand-built block is all zeroes
        QByteArray expected = makeRecord(fam, f);
        if (fam == 0) // the six two-character texts of the block are blank-filled
            expected.replace(1837 + 91, 12, QByteArray(12, ' '));
        EXPECT_EQ(EncodeLstRecord(fam, r), expected) << "family " << fam;
        EXPECT_EQ(LstHeader(fam), QByteArray(kHeaders[fam]));
        EXPECT_EQ(LstRecordLength(fam), kLayouts[fam]->length);
    }
}

} // namespace
