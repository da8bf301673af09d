// The working directories and the last stage of a launch: copy back, re-pack, snapshots.
#include "launch/ArcEngine.h"
#include "launch/ArcLibrary.h"
#include "launch/ArcTestUtil.h"
#include "launch/Repack.h"
#include "support/ProcessState.h"
#include "support/ScriptedMsgBox.h"
#include "support/StubWindow.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <QDateTime>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <optional>

using namespace tv;
using namespace arctest;

namespace {

class Repack : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(root.isValid());
        state.emplace();
        InitTables();
        WorkDir = root.filePath(QStringLiteral("prog/TORVBOOT"));
        EnvTmpDir = EnvTempDir = root.filePath(QStringLiteral("tmpenv"));
        SystemDir = QStringLiteral("/usr");
        WindowsDir = QStringLiteral("/etc");
        PeekDir.clear();
        SnapDir[0] = root.filePath(QStringLiteral("snap"));
        images = root.filePath(QStringLiteral("images"));
        for (const QString& d : {WorkDir, EnvTmpDir, SnapDir[0], images})
            ASSERT_TRUE(QDir().mkpath(d));
        QDir::setCurrent(root.path());
    }
    void TearDown() override { state.reset(); }
    QString W(const QString& n) const { return WorkDir + u'/' + n; }
    static void SetTime(const QString& path, const QDateTime& t)
    {
        QFile f(path);
        ASSERT_TRUE(f.open(QIODevice::ReadWrite));
        f.setFileTime(t, QFileDevice::FileModificationTime);
    }
    // What stage 1 records.
    FileList Stage1() const
    {
        FileList list;
        for (const QString& f : QDir(WorkDir).entryList(QDir::Files, QDir::Name))
            list.push_back({f, FileDateTimeText(W(f))});
        return list;
    }
    // A ZIP title of two disks and a text, unpacked into WorkDir as stage 1 does.
    QString MakeZipTitle()
    {
        const QString src = root.filePath(QStringLiteral("src"));
        QDir().mkpath(src);
        WriteFile(src + QStringLiteral("/GAME.D88"), "disk 1");
        WriteFile(src + QStringLiteral("/DATA.D88"), "disk 2");
        WriteFile(src + QStringLiteral("/README.TXT"), "read me");
        for (const QString& f : Entries(src))
            SetTime(src + u'/' + f, old);
        const QString arc = images + QStringLiteral("/Title One.zip");
        EXPECT_EQ(PackDirectory(ArcFormat::Zip, arc, src, QStringLiteral("*.*")), ArcOk);
        ArcExtractOptions o;
        o.overwrite = true;
        EXPECT_EQ(ExtractArchiveFlat(ArcFormat::Zip, arc, WorkDir, o), ArcOk);
        return arc;
    }
    QStringList ZipMembers(const QString& arc)
    {
        QTemporaryDir d;
        ArcExtractOptions o;
        EXPECT_EQ(ExtractArchiveFlat(ArcFormat::Zip, arc, d.path(), o), ArcOk);
        return Entries(d.path());
    }
    QByteArray ZipMember(const QString& arc, const QString& name)
    {
        QTemporaryDir d;
        ArcExtractOptions o;
        o.masks = {QStringLiteral("*") + name};
        o.match = ArcMaskMatch::WholePath;
        EXPECT_EQ(ExtractArchiveFlat(ArcFormat::Zip, arc, d.path(), o), ArcOk);
        return ReadAll(d.path() + u'/' + name);
    }
    void EmulatorWrites(const QString& name, const QByteArray& data)
    {
        WriteFile(W(name), data);
        SetTime(W(name), QDateTime::currentDateTime());
    }

    QTemporaryDir root;
    std::optional<tvtest::ProcessState> state;
    QString images;
    tvtest::StubWindow window;
    const QDateTime old{QDate(2001, 2, 3), QTime(4, 5, 6)};
    const QString repackText =
        QStringLiteral("イメージファイルは変更されています。\n再圧縮しますか？");
};

} // namespace

TEST_F(Repack, DateTimeTextIsTheSameForTheSameTime)
{
    WriteFile(W(QStringLiteral("A.D88")), "a");
    SetTime(W(QStringLiteral("A.D88")), old);
    const QString t1 = FileDateTimeText(W(QStringLiteral("A.D88")));
    EXPECT_EQ(t1, QStringLiteral("2001/02/03 04:05:06.000"));
    EXPECT_EQ(FileDateTimeText(W(QStringLiteral("A.D88"))), t1);
    SetTime(W(QStringLiteral("A.D88")), old.addMSecs(1));
    EXPECT_NE(FileDateTimeText(W(QStringLiteral("A.D88"))), t1);
    EXPECT_EQ(FileDateTimeText(W(QStringLiteral("NONE"))), QString());
}

TEST_F(Repack, CleanWorkDirAndTempDir)
{
    WriteFile(W(QStringLiteral("A.D88")), "a");
    WriteFile(W(QStringLiteral("B.D88")), "b");
    CleanWorkDir();
    EXPECT_TRUE(Entries(WorkDir).isEmpty());
    CleanWorkDir(); // nothing there: nothing happens
    EXPECT_TRUE(QFileInfo(WorkDir).isDir());

    CleanTempDir(); // no TempDir: nothing happens
    ASSERT_TRUE(QDir().mkpath(TempDir()));
    WriteFile(TempDir() + QStringLiteral("/X.D88"), "x");
    QDir::setCurrent(TempDir());
    CleanTempDir();
    EXPECT_FALSE(QFileInfo::exists(TempDir()));
    EXPECT_EQ(QDir::current().absolutePath(), QDir(WorkDir).absolutePath());
}

TEST_F(Repack, RestoreTempDirMovesEverythingBack)
{
    ASSERT_TRUE(QDir().mkpath(TempDir()));
    WriteFile(TempDir() + QStringLiteral("/X.D88"), "x");
    WriteFile(TempDir() + QStringLiteral("/Y.TXT"), "y");
    RestoreTempDir();
    EXPECT_EQ(Entries(WorkDir), (QStringList{QStringLiteral("X.D88"), QStringLiteral("Y.TXT")}));
    EXPECT_EQ(ReadAll(W(QStringLiteral("X.D88"))), QByteArray("x"));
}

TEST_F(Repack, PlainImageGoesBackEvenWhenUnchanged)
{
    tvtest::ScriptedMsgBox box;
    const QString jitu = images + QStringLiteral("/Game.d88");
    WriteFile(jitu, "image");
    SetTime(jitu, old);
    WriteFile(W(QStringLiteral("Game.d88")), "image"); // not a byte changed
    SetTime(W(QStringLiteral("Game.d88")), old.addYears(5));
    WriteFile(W(QStringLiteral("SCREEN01.BMP")), "shot");
    const FileList list; // plays no part for a plain image
    EXPECT_EQ(CheckRepack(0, 0, 1, jitu, QStringLiteral("  GAME.D88 "), list), -1);
    EXPECT_EQ(ReadAll(jitu), QByteArray("image"));
    EXPECT_NE(QFileInfo(jitu).lastModified(), old); // a new copy over the catalogued file
    EXPECT_EQ(ReadAll(SnapDir[0] + QStringLiteral("/SCREEN01.BMP")), QByteArray("shot"));
    EXPECT_FALSE(QFileInfo::exists(images + QStringLiteral("/SCREEN01.BMP")));
    EXPECT_TRUE(Entries(WorkDir).isEmpty());
    EXPECT_EQ(window.refreshed, 1);
    EXPECT_TRUE(box.calls().empty());
}

TEST_F(Repack, PlainImageChangedIsCopiedBack)
{
    const QString jitu = images + QStringLiteral("/GAME.D88");
    WriteFile(jitu, "image");
    WriteFile(W(QStringLiteral("GAME.D88")), "saved game");
    CheckRepack(0, 2, 2, jitu, QStringLiteral("GAME.D88"), {});
    EXPECT_EQ(ReadAll(jitu), QByteArray("saved game"));
}

TEST_F(Repack, ArchiveRepackedWithoutAskingForFlag1)
{
    tvtest::ScriptedMsgBox box;
    const QString arc = MakeZipTitle();
    const FileList list = Stage1();
    EmulatorWrites(QStringLiteral("GAME.D88"), "disk 1 saved");
    EXPECT_EQ(CheckRepack(0, 1, 1, arc, QStringLiteral("GAME.D88"), list), -1);
    EXPECT_TRUE(box.calls().empty());
    EXPECT_EQ(ZipMember(arc, QStringLiteral("GAME.D88")), QByteArray("disk 1 saved"));
    EXPECT_EQ(ZipMembers(arc), (QStringList{QStringLiteral("DATA.D88"), QStringLiteral("GAME.D88"),
                                            QStringLiteral("README.TXT")}));
    EXPECT_TRUE(Entries(WorkDir).isEmpty());
    EXPECT_FALSE(QFileInfo::exists(TempDir()));
    EXPECT_EQ(window.refreshed, 1);
}

TEST_F(Repack, Flag2AsksOnlyWhenAMemberChanged)
{
    tvtest::ScriptedMsgBox box;
    const QString arc = MakeZipTitle();
    const QByteArray before = ReadAll(arc);
    CheckRepack(0, 1, 2, arc, QStringLiteral("GAME.D88"), Stage1());
    EXPECT_TRUE(box.calls().empty());
    EXPECT_EQ(ReadAll(arc), before);

    // Changed, answered no: the archive stays as it was.
    ArcExtractOptions o;
    o.overwrite = true;
    ASSERT_EQ(ExtractArchiveFlat(ArcFormat::Zip, arc, WorkDir, o), ArcOk);
    FileList list = Stage1();
    EmulatorWrites(QStringLiteral("DATA.D88"), "disk 2 saved");
    box.answer(MbResNo);
    CheckRepack(0, 1, 2, arc, QStringLiteral("GAME.D88"), list);
    ASSERT_EQ(box.calls().size(), 1u);
    EXPECT_EQ(box.calls()[0].text, repackText);
    EXPECT_EQ(box.calls()[0].caption, QStringLiteral("再圧縮チェック"));
    EXPECT_EQ(box.calls()[0].flags, MbYesNo);
    EXPECT_EQ(ReadAll(arc), before);
    EXPECT_TRUE(Entries(WorkDir).isEmpty());

    // Changed, answered yes.
    ASSERT_EQ(ExtractArchiveFlat(ArcFormat::Zip, arc, WorkDir, o), ArcOk);
    list = Stage1();
    EmulatorWrites(QStringLiteral("DATA.D88"), "disk 2 saved");
    box.answer(MbResYes);
    CheckRepack(0, 1, 2, arc, QStringLiteral("GAME.D88"), list);
    EXPECT_EQ(box.calls().size(), 2u);
    EXPECT_EQ(ZipMember(arc, QStringLiteral("DATA.D88")), QByteArray("disk 2 saved"));
}

TEST_F(Repack, Flag0NeverRepacks)
{
    tvtest::ScriptedMsgBox box;
    const QString arc = MakeZipTitle();
    const QByteArray before = ReadAll(arc);
    const FileList list = Stage1();
    EmulatorWrites(QStringLiteral("GAME.D88"), "lost");
    for (uint8_t flag : {0, 3, 255})
        CheckRepack(0, 1, flag, arc, QStringLiteral("GAME.D88"), list);
    EXPECT_TRUE(box.calls().empty());
    EXPECT_EQ(ReadAll(arc), before);
    EXPECT_TRUE(Entries(WorkDir).isEmpty());
}

TEST_F(Repack, NewFileGoesToSnapDirNotIntoTheArchive)
{
    const QString arc = MakeZipTitle();
    const FileList list = Stage1();
    EmulatorWrites(QStringLiteral("GAME.D88"), "disk 1 saved");
    EmulatorWrites(QStringLiteral("SCREEN01.BMP"), "shot");
    CheckRepack(0, 1, 1, arc, QStringLiteral("GAME.D88"), list);
    EXPECT_EQ(ReadAll(SnapDir[0] + QStringLiteral("/SCREEN01.BMP")), QByteArray("shot"));
    EXPECT_FALSE(ZipMembers(arc).contains(QStringLiteral("SCREEN01.BMP")));
    EXPECT_EQ(ZipMember(arc, QStringLiteral("GAME.D88")), QByteArray("disk 1 saved"));
}

TEST_F(Repack, MemberDeletedByTheEmulator)
{
    const QString arc = MakeZipTitle();
    const QByteArray before = ReadAll(arc);
    FileList list = Stage1();
    // Only deleted: not noticed, the archive stays.
    QFile::remove(W(QStringLiteral("README.TXT")));
    CheckRepack(0, 1, 1, arc, QStringLiteral("GAME.D88"), list);
    EXPECT_EQ(ReadAll(arc), before);

    // Deleted and something else changed: re-packed without it.
    ArcExtractOptions o;
    o.overwrite = true;
    ASSERT_EQ(ExtractArchiveFlat(ArcFormat::Zip, arc, WorkDir, o), ArcOk);
    list = Stage1();
    QFile::remove(W(QStringLiteral("README.TXT")));
    EmulatorWrites(QStringLiteral("GAME.D88"), "disk 1 saved");
    CheckRepack(0, 1, 1, arc, QStringLiteral("GAME.D88"), list);
    EXPECT_EQ(ZipMembers(arc),
              (QStringList{QStringLiteral("DATA.D88"), QStringLiteral("GAME.D88")}));
}

TEST_F(Repack, MembersThatCantBeRepackedAreKeptInRecovery)
{
    tvtest::ScriptedMsgBox box;
    AppDir = root.filePath(QStringLiteral("prog"));
    const QString arc = MakeZipTitle();
    FileList list = Stage1();
    EmulatorWrites(QStringLiteral("GAME.D88"), "changed");
    ArcLibrary failing = BuiltInArcLibrary();
    failing.Zip = [](QObject*, const QString&, QString&, int32_t) { return 2; };
    ArcLibrary old = SetArcLibrary(failing);
    CheckRepack(0, 1, 1, arc, QStringLiteral("GAME.D88"), list);
    SetArcLibrary(old);
    const QStringList kept = QDir(AppDir).entryList({QStringLiteral("TORVRECOVER_*")}, QDir::Dirs);
    ASSERT_EQ(kept.size(), 1);
    const QString dir = AppDir + u'/' + kept[0];
    EXPECT_EQ(ReadAll(dir + QStringLiteral("/GAME.D88")), QByteArray("changed"));
    ASSERT_EQ(box.calls().size(), 2u);
    EXPECT_EQ(box.calls()[0].text, QStringLiteral("再圧縮できませんでした"));
    EXPECT_EQ(box.calls()[1].text,
              QStringLiteral("変更されたイメージを次の場所に保存しました。\r\n\r\n") + dir);
    EXPECT_EQ(box.calls()[1].flags, MbExclamation);
    EXPECT_TRUE(Entries(WorkDir).isEmpty());
}

TEST_F(Repack, RepackFailureIsTold)
{
    tvtest::ScriptedMsgBox box;
    // An archive flag on a file whose extension isn't an archive's.
    const QString jitu = images + QStringLiteral("/GAME.D88");
    WriteFile(jitu, "image");
    WriteFile(W(QStringLiteral("GAME.D88")), "image");
    SetTime(W(QStringLiteral("GAME.D88")), old);
    FileList list = Stage1();
    EmulatorWrites(QStringLiteral("GAME.D88"), "changed");
    CheckRepack(0, 1, 1, jitu, QStringLiteral("GAME.D88"), list);
    ASSERT_EQ(box.calls().size(), 1u);
    EXPECT_EQ(box.calls()[0].text, QStringLiteral("再圧縮できませんでした"));
    EXPECT_EQ(box.calls()[0].flags, 0);
    EXPECT_EQ(box.calls()[0].caption, QStringLiteral("TORVANE"));
    EXPECT_EQ(ReadAll(jitu), QByteArray("image"));

    // The archiver fails.
    const QString arc = MakeZipTitle();
    list = Stage1();
    EmulatorWrites(QStringLiteral("GAME.D88"), "changed");
    ArcLibrary failing = BuiltInArcLibrary();
    failing.Zip = [](QObject*, const QString&, QString&, int32_t) { return 2; };
    ArcLibrary old = SetArcLibrary(failing);
    CheckRepack(0, 1, 1, arc, QStringLiteral("GAME.D88"), list);
    SetArcLibrary(old);
    ASSERT_EQ(box.calls().size(), 2u);
    EXPECT_EQ(box.calls()[1].text, QStringLiteral("再圧縮できませんでした"));
    EXPECT_TRUE(Entries(WorkDir).isEmpty());
}

TEST_F(Repack, RepackLineGoesToTheArchiveWithProgress)
{
    std::vector<QString> lines;
    ArcLibrary rec;
    rec.Zip = [&](QObject*, const QString& l, QString&, int32_t) {
        lines.push_back(l);
        return 0;
    };
    ArcLibrary previous = SetArcLibrary(rec);
    const QString arc = images + QStringLiteral("/T.zip");
    WriteFile(W(QStringLiteral("GAME.D88")), "x");
    SetTime(W(QStringLiteral("GAME.D88")), old);
    FileList list = Stage1();
    EmulatorWrites(QStringLiteral("GAME.D88"), "y");
    CheckRepack(0, 1, 1, arc, QStringLiteral("GAME.D88"), list);
    SetArcLibrary(previous);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0], "-j \"" + arc + "\" \"" + WorkDir + "\\*.*\"");
}
