// Bulk registration of dropped files: each file's road, the fields taken from text files, the
// roll-back copy and its removal, a stop answered yes or no, a stop during the last file, and a
// catalogue that can't be written midway. Files and archives are made here; the catalogue is
// compared byte for byte.
#include "data/Cfg.h"
#include "data/SideList.h"
#include "data/TitleListModel.h"
#include "data/clsLst.h"
#include "launch/DDAdd.h"

#include "launch/ArcTestUtil.h"
#include "support/GuardedDirs.h"
#include "support/ScriptedMsgBox.h"
#include "util/Globals.h"
#include "util/Sjis.h"
#include "util/SubFunction.h"

#include <QDir>
#include <QFile>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>

namespace {

using namespace tv;

class DDAddTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(dirs.isValid());
        InitTables();
        SetDefaultCfg(Cfg);
        HardWare = 0;
        WorkDir = dirs.app() + QStringLiteral("/TORVBOOT");
        ASSERT_TRUE(QDir().mkpath(WorkDir));
        ImageDir[0] = dirs.path("img");
        SnapDir[0] = dirs.path("snap");
        ASSERT_TRUE(QDir().mkpath(ImageDir[0]));
        ASSERT_TRUE(QDir().mkpath(SnapDir[0]));
        ASSERT_TRUE(QDir().mkpath(dirs.path("drop")));
        ASSERT_TRUE(WriteNewCatalogue(0));
        Cfg.TxtIn = 0;
        Cfg.ArcSerch = 0;
        Cfg.ScrAutoRead = 0;
        Cfg.ColNonMakeFlag = 0;
        Cfg.CfgEmuOpt88.DefEmuRun = 2;
    }
    // Every drop has ended by now (its core is gone): the roll-back copy never outlives it.
    void TearDown() override { EXPECT_FALSE(QFile::exists(AppDir + "/TORVANE.LSB")); }
    QString drop(const QString& name, const QByteArray& bytes = QByteArray(300, 'd'))
    {
        const QString p = dirs.path("drop/") + name;
        EXPECT_TRUE(tvtest::WriteFile(p, bytes));
        return p;
    }
    static void text(const QString& path, const QString& body)
    {
        EXPECT_TRUE(tvtest::WriteFile(path, ToSjis(body)));
    }
    // Title, start file, image path and flags of record n (from 0) as the file holds them.
    struct Rec {
        QString title, genre, maker, comment, start, jitu, scr;
        uint8_t arc = 0, defEmu = 0;
    };
    static Rec record(int n)
    {
        Rec r;
        EXPECT_TRUE(LstObj.InitLst(0));
        EXPECT_TRUE(LstObj.GetLst(25 + n * LstRecordLength(0)));
        r.title = LstObj.GetTitle();
        r.genre = LstObj.GetGenre();
        r.maker = LstObj.GetMaker();
        r.comment = LstObj.GetComment();
        r.start = LstObj.GetStartFileName();
        r.jitu = LstObj.GetJituFile();
        r.scr = LstObj.GetScrFile();
        r.arc = LstObj.GetArcCheckFlag();
        r.defEmu = LstObj.GetDefEmuRun();
        return r;
    }
    static int count()
    {
        EXPECT_TRUE(LstObj.InitLst(0));
        return LstObj.GetLstMaxCnt();
    }
    // A ZIP of `files` (name, content) made by the outside zip, or "" without it.
    QString zip(const QString& name, const QList<QPair<QString, QByteArray>>& files)
    {
        const QString src = dirs.path("zsrc/") + name;
        QDir().mkpath(src);
        QStringList names;
        for (const auto& f : files) {
            EXPECT_TRUE(tvtest::WriteFile(src + "/" + f.first, f.second));
            names << f.first;
        }
        const QString arc = dirs.path("drop/") + name;
        QDir::setCurrent(src);
        const auto r = arctest::RunTool("zip", QStringList{"-q", arc} + names);
        QDir::setCurrent(dirs.root());
        return r.exitCode == 0 ? arc : QString();
    }
    // Three registered titles before the drop, so that a roll-back has something to keep.
    void registerThreeOldTitles()
    {
        DDAdd d({drop("OLD1.D88"), drop("OLD2.D88"), drop("OLD3.D88")}, &model);
        ASSERT_TRUE(d.Begin());
        ASSERT_TRUE(d.Search());
        d.End();
        ASSERT_EQ(count(), 3);
        ASSERT_EQ(model.rowCount(), 3);
    }

    tvtest::GuardedDirs dirs;
    tvtest::ScriptedMsgBox boxes;
    TitleListModel model;
};

TEST_F(DDAddTest, Texts)
{
    EXPECT_EQ(kDDAddCaption, "Ｄ＆Ｄリスト登録");
    EXPECT_EQ(DDAddMaxCountText(4), "/ 4 件目を登録中．．．");
    EXPECT_EQ(DDAddDoneText(3, 1),
              "正常に登録したファイル数: 3\n登録不可能な件数: 1\nD&D登録が終了しました！！");
    EXPECT_EQ(DDAddDefaultExt(0), ".d88");
    EXPECT_EQ(DDAddDefaultExt(1), ".d77");
    EXPECT_EQ(DDAddDefaultExt(2), ".d88");
}

TEST_F(DDAddTest, ThreeImagesAndOneUnknownFile)
{
    const QStringList files{drop("ALPHA.D88"), drop("BETA.T88"), drop("NOTES.XYZ"),
                            drop("GAMMA.D88")};
    DDAdd d(files, &model);
    std::vector<int> seen;
    d.onFile = [&](int n, const QString& path) {
        seen.push_back(n);
        EXPECT_EQ(path, files[n - 1]);
        // The roll-back copy stands while the drop runs.
        EXPECT_TRUE(QFile::exists(AppDir + "/TORVANE.LSB"));
    };
    ASSERT_TRUE(d.Begin());
    EXPECT_EQ(d.firstNew(), 1);
    EXPECT_TRUE(d.Search());
    d.End();
    EXPECT_EQ(seen, (std::vector<int>{1, 2, 3, 4}));
    EXPECT_EQ(d.registered(), 3);
    EXPECT_EQ(d.failures(), 1);
    EXPECT_TRUE(boxes.texts().isEmpty()); // the final message belongs to the window
    EXPECT_FALSE(QFile::exists(AppDir + "/TORVANE.LSB"));
    ASSERT_EQ(count(), 3);
    ASSERT_EQ(model.rowCount(), 3);
    const Rec a = record(0), b = record(1), g = record(2);
    EXPECT_EQ(a.title, "ALPHA");
    EXPECT_EQ(a.start, "ALPHA.D88");
    EXPECT_EQ(a.jitu, dirs.path("drop/ALPHA.D88"));
    EXPECT_EQ(a.arc, 0);
    EXPECT_EQ(a.defEmu, 2); // the family's default options
    EXPECT_EQ(b.title, "BETA");
    EXPECT_EQ(g.title, "GAMMA");
    EXPECT_EQ(model.index(2, 0).data().toString(), "GAMMA");
}

TEST_F(DDAddTest, AFileOfTheImageDirectoryIsStoredByBareName)
{
    const QString inImageDir = ImageDir[0] + "/INDIR.D88";
    ASSERT_TRUE(tvtest::WriteFile(inImageDir, QByteArray(10, 'x')));
    DDAdd d({inImageDir, drop("OUTSIDE.D88")}, &model);
    ASSERT_TRUE(d.Begin());
    ASSERT_TRUE(d.Search());
    EXPECT_EQ(record(0).jitu, "INDIR.D88");
    EXPECT_EQ(record(1).jitu, dirs.path("drop/OUTSIDE.D88"));
}

TEST_F(DDAddTest, ADirectoryAndAMissingFileAreFailures)
{
    QDir().mkpath(dirs.path("drop/FOLDER.D88"));
    DDAdd d({dirs.path("drop/FOLDER.D88"), dirs.path("drop/GONE.D88"), drop("HERE.D88")}, &model);
    ASSERT_TRUE(d.Begin());
    ASSERT_TRUE(d.Search());
    EXPECT_EQ(d.failures(), 2);
    EXPECT_EQ(count(), 1);
}

TEST_F(DDAddTest, TextImportFitsTheFieldsAndFillsTheSideLists)
{
    Cfg.TxtIn = 1;
    const QString img = drop("LONG.D88");
    text(dirs.path("drop/LONG.txt"),
         QStringLiteral("タイトル:%1\r\nジャンル:RPG\r\nメーカー:ソフトハウス\r\n")
             .arg(QString(80, 'T')));
    const QString plain = drop("PLAIN.D88");
    DDAdd d({img, plain}, &model);
    ASSERT_TRUE(d.Begin());
    ASSERT_TRUE(d.Search());
    EXPECT_EQ(record(0).title, QString(72, 'T'));
    EXPECT_EQ(record(0).genre, "RPG");
    EXPECT_EQ(record(0).maker, "ソフトハウス");
    // Without a text file the title is the stem.
    EXPECT_EQ(record(1).title, "PLAIN");
    // No question was asked for the side lists.
    EXPECT_TRUE(boxes.texts().isEmpty());
    EXPECT_TRUE(LoadSideList(1).contains("ソフトハウス"));
    EXPECT_EQ(LoadSideList(0).count("RPG"), 1); // already among the default genres
}

TEST_F(DDAddTest, SideListsStayAloneWhenSuppressed)
{
    Cfg.TxtIn = 1;
    Cfg.ColNonMakeFlag = 1;
    const QString img = drop("QUIET.D88");
    text(dirs.path("drop/QUIET.txt"), QStringLiteral("メーカー:静かな会社\r\n"));
    DDAdd d({img}, &model);
    ASSERT_TRUE(d.Begin());
    ASSERT_TRUE(d.Search());
    EXPECT_EQ(record(0).maker, "静かな会社");
    EXPECT_FALSE(LoadSideList(1).contains("静かな会社"));
}

TEST_F(DDAddTest, TheScreenshotIsFoundBesideTheStem)
{
    Cfg.ScrAutoRead = 1;
    ASSERT_TRUE(tvtest::WriteFile(SnapDir[0] + "/SHOT.jpg", "jpg"));
    ASSERT_TRUE(tvtest::WriteFile(SnapDir[0] + "/SHOT.bmp", "bmp"));
    DDAdd d({drop("SHOT.D88"), drop("NOSHOT.D88")}, &model);
    ASSERT_TRUE(d.Begin());
    ASSERT_TRUE(d.Search());
    EXPECT_EQ(record(0).scr, "SHOT.jpg");
    EXPECT_EQ(record(1).scr, "");
}

TEST_F(DDAddTest, AnArchiveIsNotOpenedWhenInspectionIsOff)
{
    Cfg.ArcSerch = 1;
    // WorkDir isn't even there: nothing is unpacked.
    ASSERT_TRUE(QDir(WorkDir).removeRecursively());
    DDAdd d({drop("PACKED.LZH", "not really an archive")}, &model);
    ASSERT_TRUE(d.Begin());
    ASSERT_TRUE(d.Search());
    EXPECT_EQ(d.failures(), 0);
    const Rec r = record(0);
    EXPECT_EQ(r.title, "PACKED");
    EXPECT_EQ(r.start, "PACKED.d88");
    EXPECT_EQ(r.arc, 1);
    EXPECT_FALSE(QDir(WorkDir).exists());
}

TEST_F(DDAddTest, AnArchiveMembersTextWinsOverTheArchivesOwn)
{
    Cfg.TxtIn = 1;
    const QByteArray member = ToSjis(QStringLiteral("タイトル:メンバーの題\r\n"));
    const QByteArray own = ToSjis(QStringLiteral("タイトル:書庫の題\r\n"));
    const QString both = zip("BOTH.ZIP", {{"README.DOC", "x"},
                                          {"GAME.D88", QByteArray(200, 'g')},
                                          {"GAME.TXT", member},
                                          {"BOTH.TXT", own}});
    const QString onlyOwn = zip("OWN.ZIP", {{"DISK.D88", QByteArray(200, 'h')}, {"OWN.TXT", own}});
    const QString noImage = zip("EMPTY.ZIP", {{"README.TXT", "nothing to boot"}});
    ASSERT_FALSE(both.isEmpty());
    DDAdd d({both, onlyOwn, noImage, drop("BROKEN.ZIP", "not a zip")}, &model);
    ASSERT_TRUE(d.Begin());
    ASSERT_TRUE(d.Search());
    EXPECT_EQ(d.registered(), 2);
    EXPECT_EQ(d.failures(), 2);
    EXPECT_EQ(record(0).title, "メンバーの題");
    EXPECT_EQ(record(0).start, "GAME.D88");
    EXPECT_EQ(record(0).arc, 1);
    EXPECT_EQ(record(1).title, "書庫の題");
    EXPECT_EQ(record(1).start, "DISK.D88");
    // WorkDir is left empty after every archive, failed ones included.
    EXPECT_TRUE(arctest::Entries(WorkDir).isEmpty());
}

TEST_F(DDAddTest, AStopAnsweredYesRollsTheCatalogueAndTheListBack)
{
    registerThreeOldTitles();
    const QByteArray before = tvtest::ReadFile(AppDir + "/TORVANE.LST");
    QStringList rowsBefore;
    for (int r = 0; r < model.rowCount(); ++r)
        rowsBefore << model.key(r) + model.index(r, 0).data().toString();
    Cfg.TxtIn = 1;
    const QString first = drop("NEW1.D88");
    text(dirs.path("drop/NEW1.txt"), QStringLiteral("メーカー:残るメーカー\r\n"));
    DDAdd d({first, drop("NEW2.D88"), drop("NEW3.D88"), drop("NEW4.D88")}, &model);
    d.onFile = [&](int n, const QString&) {
        if (n == 2)
            d.StopFlag = 1; // the button, pressed during the second file
    };
    boxes.answer(MbResYes);
    ASSERT_TRUE(d.Begin());
    EXPECT_EQ(d.firstNew(), 4);
    EXPECT_FALSE(d.Search());
    EXPECT_TRUE(d.stopped());
    ASSERT_EQ(boxes.calls().size(), size_t(1));
    EXPECT_EQ(boxes.calls()[0].text, "中断しますか？");
    EXPECT_EQ(boxes.calls()[0].flags, 68);
    EXPECT_EQ(tvtest::ReadFile(AppDir + "/TORVANE.LST"), before);
    QStringList rowsAfter;
    for (int r = 0; r < model.rowCount(); ++r)
        rowsAfter << model.key(r) + model.index(r, 0).data().toString();
    EXPECT_EQ(rowsAfter, rowsBefore);
    EXPECT_EQ(LstObj.GetLstMaxCnt(), 3);
    // The side lists keep what the drop added.
    EXPECT_TRUE(LoadSideList(1).contains("残るメーカー"));
    d.End();
    EXPECT_FALSE(QFile::exists(AppDir + "/TORVANE.LSB"));
}

TEST_F(DDAddTest, AStopOfAnEmptyCatalogueClearsTheList)
{
    DDAdd d({drop("A.D88"), drop("B.D88")}, &model);
    d.onFile = [&](int n, const QString&) {
        if (n == 1)
            d.StopFlag = 1;
    };
    boxes.answer(MbResYes);
    ASSERT_TRUE(d.Begin());
    EXPECT_FALSE(d.Search());
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_EQ(tvtest::ReadFile(AppDir + "/TORVANE.LST"), LstHeader(0));
}

TEST_F(DDAddTest, AStopAnsweredNoGoesOn)
{
    DDAdd d({drop("A.D88"), drop("B.D88"), drop("C.D88")}, &model);
    d.onFile = [&](int n, const QString&) {
        if (n == 1)
            d.StopFlag = 1;
    };
    boxes.answer(MbResNo);
    ASSERT_TRUE(d.Begin());
    EXPECT_TRUE(d.Search());
    EXPECT_EQ(boxes.texts(), QStringList{"中断しますか？"});
    EXPECT_EQ(d.StopFlag, 0);
    EXPECT_EQ(count(), 3);
    EXPECT_EQ(model.rowCount(), 3);
}

TEST_F(DDAddTest, AStopDuringTheLastFileCountsAsFinished)
{
    DDAdd d({drop("A.D88"), drop("B.D88")}, &model);
    d.onFile = [&](int n, const QString&) {
        if (n == 2)
            d.StopFlag = 1;
    };
    ASSERT_TRUE(d.Begin());
    EXPECT_TRUE(d.Search());
    EXPECT_FALSE(d.stopped());
    EXPECT_TRUE(boxes.texts().isEmpty());
    EXPECT_EQ(count(), 2);
    d.End();
    EXPECT_FALSE(QFile::exists(AppDir + "/TORVANE.LSB"));
}

TEST_F(DDAddTest, AFullDiskMidwayRollsBackAndSaysSo)
{
    registerThreeOldTitles();
    const QString lst = AppDir + "/TORVANE.LST";
    const QByteArray before = tvtest::ReadFile(lst);
    DDAdd d({drop("N1.D88"), drop("N2.D88"), drop("N3.D88")}, &model);
    ASSERT_TRUE(d.Begin());
    // The disk holds the catalogue and one and a half records more.
    rlimit old{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &old), 0);
    const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit small = old;
    small.rlim_cur = rlim_t(before.size() + LstRecordLength(0) * 3 / 2);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    const bool result = d.Search();
    setrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, oldHandler);
    EXPECT_FALSE(result);
    EXPECT_TRUE(d.writeFailed());
    EXPECT_EQ(tvtest::ReadFile(lst), before);
    EXPECT_EQ(model.rowCount(), 3);
    EXPECT_EQ(boxes.texts(),
              QStringList{
                  "TORVANE.LST に書き込めませんでした。\nカタログを D&D登録前の状態に戻しました"});
    d.End();
    EXPECT_FALSE(QFile::exists(AppDir + "/TORVANE.LSB"));
}

TEST_F(DDAddTest, ACopyThatCantGoBackIsKeptAndNamed)
{
    registerThreeOldTitles();
    const QString lst = AppDir + "/TORVANE.LST";
    const QByteArray before = tvtest::ReadFile(lst);
    DDAdd d({drop("N1.D88")}, &model);
    ASSERT_TRUE(d.Begin());
    // Not even the catalogue's own size fits any more: the record and the way back both fail.
    rlimit old{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &old), 0);
    const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit small = old;
    small.rlim_cur = rlim_t(before.size() - 10);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    const bool result = d.Search();
    setrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, oldHandler);
    d.End();
    EXPECT_FALSE(result);
    ASSERT_EQ(boxes.calls().size(), size_t(1));
    EXPECT_EQ(boxes.calls()[0].text,
              "TORVANE.LST に書き込めませんでした。\nD&D登録前のカタログは " + AppDir +
                  "/TORVANE.LSB に残してあります");
    EXPECT_EQ(boxes.calls()[0].flags, 16);
    EXPECT_EQ(tvtest::ReadFile(AppDir + "/TORVANE.LSB"), before);
    EXPECT_EQ(tvtest::ReadFile(lst), before); // nothing of the record reached it
    QFile::remove(AppDir + "/TORVANE.LSB");
}

TEST_F(DDAddTest, ACatalogueBrokenMidwayRollsBack)
{
    registerThreeOldTitles();
    const QString lst = AppDir + "/TORVANE.LST";
    const QByteArray before = tvtest::ReadFile(lst);
    DDAdd d({drop("N1.D88"), drop("N2.D88")}, &model);
    d.onFile = [&](int n, const QString&) {
        if (n == 2) { // another writer spoils the header
            QFile f(lst);
            ASSERT_TRUE(f.open(QIODevice::ReadWrite));
            f.write("garbage");
        }
    };
    ASSERT_TRUE(d.Begin());
    EXPECT_FALSE(d.Search());
    EXPECT_EQ(tvtest::ReadFile(lst), before);
    EXPECT_EQ(model.rowCount(), 3);
    EXPECT_EQ(boxes.texts().size(), 1);
}

TEST_F(DDAddTest, NoRoomForTheCopyNoDrop)
{
    registerThreeOldTitles();
    const QByteArray before = tvtest::ReadFile(AppDir + "/TORVANE.LST");
    DDAdd d({drop("A.D88")}, &model);
    rlimit old{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &old), 0);
    const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit small = old;
    small.rlim_cur = rlim_t(before.size() / 2);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    const bool begun = d.Begin();
    setrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, oldHandler);
    EXPECT_FALSE(begun);
    EXPECT_FALSE(d.Search());
    EXPECT_EQ(boxes.texts(),
              QStringList{
                  "D&D登録前のカタログのコピー（TORVANE.LSB）を作れないため、D&D登録を行いません"});
    EXPECT_EQ(tvtest::ReadFile(AppDir + "/TORVANE.LST"), before);
    EXPECT_EQ(model.rowCount(), 3);
}

TEST_F(DDAddTest, NoCopyNoDrop)
{
    ASSERT_TRUE(QFile::remove(AppDir + "/TORVANE.LST"));
    DDAdd d({drop("A.D88")}, &model);
    EXPECT_FALSE(d.Begin());
    EXPECT_FALSE(d.Search());
    EXPECT_EQ(boxes.texts(), QStringList{"TORVANE.LST が読めないため、D&D登録を行いません"});
    EXPECT_FALSE(QFile::exists(AppDir + "/TORVANE.LST"));
    EXPECT_FALSE(QFile::exists(AppDir + "/TORVANE.LSB"));
}

} // namespace
