// What the detail pane shows: each road of the picture search, the picture loader's
// refusals, the detail text, and which emulators are enabled for a start file.
#include "data/Cfg.h"
#include "data/ItemDetail.h"
#include "data/clsLst.h"
#include "util/Globals.h"
#include "support/CatalogueBytes.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

using namespace tv;

// A real 1x1 GIF.
const QByteArray kGif = QByteArray::fromHex(
    "47494638396101000100800000000000ffffff21f90401000000002c00000000010001000002024401003b");

class ItemDetailTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(root.isValid());
        for (const char* d : {"app", "tmp", "snap", "img", "def", "p88save", "m88save", "xmilt"})
            QDir(root.path()).mkpath(d);
        AppDir = root.path() + "/app";
        EnvTmpDir = EnvTempDir = root.path() + "/tmp";
        WindowsDir = "/etc";
        SystemDir = "/usr";
        SetDefaultCfg(Cfg);
        Cfg.ScrSearchRead = 0;
        Cfg.DefScrFlag = 0;
        Cfg.FreeColName1 = "機種";
        Cfg.FreeColName2 = "媒体";
        for (int f = 0; f < 3; ++f) {
            SnapDir[f] = root.path() + "/snap";
            ImageDir[f] = root.path() + "/img";
        }
        P88SaveDir = root.path() + "/p88save";
        M88SaveDir = root.path() + "/m88save";
        NoImagePicture = picture(Qt::black, 3);
    }
    static QImage picture(Qt::GlobalColor c, int size = 4)
    {
        QImage img(size, size, QImage::Format_RGB32);
        img.fill(c);
        return img;
    }
    QString save(const QString& rel, Qt::GlobalColor c, const char* format)
    {
        const QString p = root.path() + "/" + rel;
        EXPECT_TRUE(picture(c).save(p, format)) << p.toStdString();
        return p;
    }
    // One PC-88 record with these fields, loaded into `lst`.
    void load(const QString& start, const QString& jitu, const QString& scr, uint8_t arc = 0,
              uint8_t rearc = 0)
    {
        tvtest::LstFields f;
        f.title = "イルマータ";
        f.start = start;
        f.jitu = jitu;
        f.scr = scr;
        f.arc = arc;
        f.rearc = rearc;
        ASSERT_TRUE(tvtest::WriteBytes(AppDir + "/TORVANE.LST",
                                       tvtest::LstHeaderBytes(0) + tvtest::MakeLstRecord(0, f)));
        ASSERT_TRUE(lst.InitLst(0));
        ASSERT_TRUE(lst.GetLst(25));
    }
    static QRgb colour(const QImage& img) { return img.isNull() ? 0 : img.pixel(0, 0); }
    QTemporaryDir root;
    clsLst lst;
};

TEST_F(ItemDetailTest, ScrFileThatExistsIsLoadedDirectly)
{
    const QString p = save("snap/x.bmp", Qt::red, "BMP");
    load("YULA.D88", "", p);
    QImage img;
    EXPECT_EQ(FindItemPicture(lst, 0, img), p);
    EXPECT_EQ(colour(img), qRgb(255, 0, 0));
}

TEST_F(ItemDetailTest, ScrFileAsNameInSnapDir)
{
    save("snap/shot.png", Qt::green, "PNG");
    load("YULA.D88", "", "shot.png");
    QImage img;
    EXPECT_EQ(FindItemPicture(lst, 0, img), root.path() + "/snap/shot.png");
    EXPECT_EQ(colour(img), qRgb(0, 255, 0));
}

TEST_F(ItemDetailTest, WindowsPathFoundByItsFileNameOnlyWithSearch)
{
    save("snap/YULA1.PNG", Qt::blue, "PNG");
    load("YULA.D88", "C:\\GAMES\\PC88\\YULA.D88", "C:\\SNAP\\YULA1.PNG");
    QImage img;
    EXPECT_EQ(FindItemPicture(lst, 0, img), "");
    EXPECT_EQ(img, NoImagePicture);
    Cfg.ScrSearchRead = 1;
    EXPECT_EQ(FindItemPicture(lst, 0, img), root.path() + "/snap/YULA1.PNG");
    EXPECT_EQ(colour(img), qRgb(0, 0, 255));
}

TEST_F(ItemDetailTest, StartFileBaseTriedPngJpgBmpInOrder)
{
    save("snap/YULA.jpg", Qt::yellow, "JPG");
    save("snap/YULA.bmp", Qt::cyan, "BMP");
    load("YULA.D88", "", "");
    QImage img;
    // Without the search a title without ScrFile shows no picture.
    EXPECT_EQ(FindItemPicture(lst, 0, img), "");
    EXPECT_EQ(img, NoImagePicture);
    Cfg.ScrSearchRead = 1;
    EXPECT_EQ(FindItemPicture(lst, 0, img), root.path() + "/snap/YULA.jpg");
    save("snap/YULA.png", Qt::magenta, "PNG");
    EXPECT_EQ(FindItemPicture(lst, 0, img), root.path() + "/snap/YULA.png");
    EXPECT_EQ(colour(img), qRgb(255, 0, 255));
}

TEST_F(ItemDetailTest, RealFileBaseOnlyWhenTheRealFileExists)
{
    save("snap/YULADISKS.bmp", Qt::gray, "BMP");
    Cfg.ScrSearchRead = 1;
    load("YULA.D88", "C:\\GAMES\\PC88\\YULADISKS.LZH", "");
    QImage img;
    EXPECT_EQ(FindItemPicture(lst, 0, img), ""); // the archive is nowhere here
    ASSERT_TRUE(tvtest::WriteBytes(root.path() + "/img/YULADISKS.LZH", "x"));
    EXPECT_EQ(FindItemPicture(lst, 0, img), root.path() + "/snap/YULADISKS.bmp");
}

TEST_F(ItemDetailTest, PngThatIsReallyAGifShowsNoPicture)
{
    const QString p = root.path() + "/snap/fake.png";
    ASSERT_TRUE(tvtest::WriteBytes(p, kGif));
    load("YULA.D88", "", p);
    QImage img;
    EXPECT_EQ(FindItemPicture(lst, 0, img), "");
    EXPECT_EQ(img, NoImagePicture);
    // Lower case is refused too; mode 2 leaves the target empty.
    QByteArray lower = kGif;
    lower.replace(0, 3, "gif");
    ASSERT_TRUE(tvtest::WriteBytes(p, lower));
    QImage t = picture(Qt::white);
    EXPECT_FALSE(LoadPictureFile(t, p, 2));
    EXPECT_TRUE(t.isNull());
    EXPECT_FALSE(LoadPictureFile(t, p, 1));
    EXPECT_EQ(t, NoImagePicture);
}

TEST_F(ItemDetailTest, LoaderRefusals)
{
    QImage t;
    const QString gifName = root.path() + "/snap/a.gif";
    ASSERT_TRUE(tvtest::WriteBytes(gifName, kGif));
    EXPECT_FALSE(LoadPictureFile(t, gifName, 2)); // extension not admitted
    EXPECT_FALSE(LoadPictureFile(t, root.path() + "/snap/none.png", 2));
    EXPECT_FALSE(LoadPictureFile(t, root.path() + "/snap", 2)); // a directory
    const QString broken = root.path() + "/snap/broken.png";
    ASSERT_TRUE(tvtest::WriteBytes(broken, "\x89PNG garbage"));
    EXPECT_FALSE(LoadPictureFile(t, broken, 2));
    // Under TMP: refused by the path guard although the file is good.
    const QString inTmp = save("tmp/ok.png", Qt::red, "PNG");
    EXPECT_FALSE(LoadPictureFile(t, inTmp, 2));
    // A BMP named .jpg loads: the content decides the decoder.
    const QString odd = root.path() + "/snap/odd.jpg";
    ASSERT_TRUE(picture(Qt::red).save(odd, "BMP"));
    EXPECT_TRUE(LoadPictureFile(t, odd, 2));
    EXPECT_EQ(colour(t), qRgb(255, 0, 0));
}

TEST_F(ItemDetailTest, DefaultScreenshot)
{
    const QString def = save("def/nopic.png", Qt::darkGreen, "PNG");
    Cfg.DefScrFlag = 1;
    Cfg.DefScrPath = def;
    load("YULA.D88", "", "");
    QImage img;
    EXPECT_EQ(FindItemPicture(lst, 0, img), "");
    EXPECT_EQ(colour(img), picture(Qt::darkGreen).pixel(0, 0));
    Cfg.DefScrPath = root.path() + "/def/missing.png";
    ShowNoImage(img);
    EXPECT_EQ(img, NoImagePicture);
    Cfg.DefScrFlag = 0;
    Cfg.DefScrPath = def;
    ShowNoImage(img);
    EXPECT_EQ(img, NoImagePicture);
}

TEST_F(ItemDetailTest, DetailTextForPlainImageAndArchives)
{
    tvtest::LstFields f;
    f.title = "ザルバード";
    f.genre = "RPG";
    f.col2 = "5インチ";
    f.start = "XALBARD.D88";
    f.jitu = "C:\\GAMES\\XALBARD.D88";
    f.comment = "一行目\r\n二行目";
    ASSERT_TRUE(tvtest::WriteBytes(AppDir + "/TORVANE.LST",
                                   tvtest::LstHeaderBytes(0) + tvtest::MakeLstRecord(0, f)));
    ASSERT_TRUE(lst.InitLst(0));
    ASSERT_TRUE(lst.GetLst(25));
    EXPECT_EQ(
        ItemDetailText(lst),
        QStringLiteral("[Title] ザルバード　( XALBARD.D88 )\r\n[Genre] RPG\r\n[媒体] 5インチ\r\n"
                       "[状 態] イメージファイル直接指定\r\n\r\n[Comment]\r\n一行目\r\n二行目"));
    EXPECT_EQ(ItemStatusText(lst), QStringLiteral("ザルバード選択中．．  (XALBARD.D88)"));

    const char* exts[] = {"LZH", "ZIP", "CAB", "RAR"};
    const char* kinds[] = {
        "(*.LZH) / 再圧縮:", "(*.ZIP) / 再圧縮:", "(*.CAB) / 再圧縮:", "(不明な形式) / 再圧縮:"};
    const char* states[] = {"No", "Yes", "Check", "No"};
    for (int i = 0; i < 4; ++i) {
        load("YULA.D88", QString("C:\\A\\YULA.%1").arg(exts[i]), "", 1, uint8_t(i == 3 ? 9 : i));
        const QString expected = QStringLiteral("[状 態] 圧縮ファイル") +
                                 QString::fromUtf8(kinds[i]) + QString::fromLatin1(states[i]);
        EXPECT_TRUE(ItemDetailText(lst).contains(expected + "\r\n\r\n[Comment]\r\n"))
            << ItemDetailText(lst).toStdString();
    }
}

TEST(EmuImageTable, EveryEmulatorAndType)
{
    const std::map<int, QStringList> table = {
        {1, {"D88", "T88"}},
        {2, {"D88", "T88"}},
        {3, {"D88"}},
        {4, {"D88", "T88", "CMT", "N80"}},
        {5, {"D88"}},
        {6, {"D88", "T88", "CMT"}},
        {11, {"D77", "2D", "T77"}},
        {12, {"D77", "2D", "T77", "VFD"}},
        {13, {"VFD", "VTP"}},
        {21, {"D88", "2D", "TAP"}},
        {22, {"D88", "2D", "TAP"}},
        {23, {"D88", "2D", "TAP"}},
        {24, {"D88", "2D"}},
    };
    const QStringList all = {"D88", "T88", "CMT", "N80", "D77", "2D", "T77",
                             "VFD", "VTP", "TAP", "LZH", "d88", ""};
    for (int code = 0; code <= 30; ++code)
        for (const QString& ext : all)
            EXPECT_EQ(IsEmuImage(code, ext), table.count(code) && table.at(code).contains(ext))
                << code << " " << ext.toStdString();
}

TEST_F(ItemDetailTest, EnablingByUseFlagAndStartFile)
{
    CfgRecord& c = Cfg;
    c.P88srUse = 1;
    c.M88Use = 0;
    c.PC88WinUse = 1;
    c.X88kUse = 1;
    c.QUASI88Use = 1;
    c.J80Use = 2; // only 1 means in use
    EXPECT_TRUE(EmuEnabledForItem(1, "GAME.D88"));
    EXPECT_FALSE(EmuEnabledForItem(2, "GAME.D88"));
    EXPECT_TRUE(EmuEnabledForItem(3, "game.d88"));
    EXPECT_FALSE(EmuEnabledForItem(3, "GAME.T88"));
    EXPECT_TRUE(EmuEnabledForItem(4, "GAME.N80"));
    EXPECT_FALSE(EmuEnabledForItem(6, "GAME.CMT"));
    EXPECT_FALSE(EmuEnabledForItem(1, "GAME")); // no extension
    c.Xm7DosUse = c.Xm7WinUse = c.Em7WinUse = 1;
    EXPECT_FALSE(EmuEnabledForItem(11, "A.VFD"));
    EXPECT_TRUE(EmuEnabledForItem(12, "A.VFD"));
    EXPECT_TRUE(EmuEnabledForItem(13, "A.VTP"));

    // X mil takes a tape only with the T-Tune build installed.
    c.X1rUse = c.XmilUse = c.X1emuUse = c.WinX1Use = 1;
    c.XmilTDir = "";
    EXPECT_TRUE(EmuEnabledForItem(21, "A.TAP"));
    EXPECT_TRUE(EmuEnabledForItem(22, "A.D88"));
    EXPECT_FALSE(EmuEnabledForItem(22, "A.TAP"));
    c.XmilTDir = root.path() + "/xmilt";
    EXPECT_FALSE(EmuEnabledForItem(22, "A.TAP")); // directory without the program
    ASSERT_TRUE(tvtest::WriteBytes(root.path() + "/xmilt/Xmillennium.exe", "MZ"));
    EXPECT_TRUE(EmuEnabledForItem(22, "A.TAP"));
    c.XmilUse = 0;
    EXPECT_FALSE(EmuEnabledForItem(22, "A.TAP"));
    EXPECT_FALSE(EmuEnabledForItem(24, "A.TAP"));

    EXPECT_EQ(FamilyEmuCodes(0), (std::vector<int>{1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(FamilyEmuCodes(1), (std::vector<int>{11, 12, 13}));
    EXPECT_EQ(FamilyEmuCodes(2), (std::vector<int>{21, 22, 23, 24}));
    EXPECT_EQ(FamilyOfEmuCode(13), 1);
    EXPECT_EQ(FamilyOfEmuCode(7), -1);
}

TEST(EmuRunCaptions, ByFamily)
{
    EXPECT_EQ(EmuRunCaption(0, 1), "P88SR(&P)");
    EXPECT_EQ(EmuRunCaption(0, 6), "j80(&J)");
    EXPECT_EQ(EmuRunCaption(0, 7), "-----");
    EXPECT_EQ(EmuRunCaption(1, 3), "EM7(&7)");
    EXPECT_EQ(EmuRunCaption(1, 4), "-----");
    EXPECT_EQ(EmuRunCaption(2, 2), "X mil(&M)");
    EXPECT_EQ(EmuRunCaption(2, 4), "WinX1(&W)");
    EXPECT_EQ(EmuRunCaption(2, 5), "-----");
    EXPECT_EQ(EmuRunCaption(2, 9), "-----");
}

TEST_F(ItemDetailTest, SaveStateSlots)
{
    ASSERT_TRUE(tvtest::WriteBytes(root.path() + "/p88save/YULA.SV0", "s"));
    ASSERT_TRUE(tvtest::WriteBytes(root.path() + "/p88save/YULA.SV7", "s"));
    ASSERT_TRUE(tvtest::WriteBytes(root.path() + "/m88save/YULA_3.S88", "s"));
    ASSERT_TRUE(tvtest::WriteBytes(root.path() + "/m88save/YULA3.S88", "s")); // not the pattern
    const auto p = P88SaveSlots("YULA.D88");
    const auto m = M88SaveSlots("YULA.D88");
    for (int i = 0; i < 10; ++i) {
        EXPECT_EQ(p[i], i == 0 || i == 7) << i;
        EXPECT_EQ(m[i], i == 3) << i;
    }
}

} // namespace
