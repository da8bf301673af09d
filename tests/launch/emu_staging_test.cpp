#include "data/Cfg.h"
#include "data/clsLst.h"
#include "launch/EmuStaging.h"
#include "support/GuardedDirs.h"
#include "support/ScriptedMsgBox.h"
#include "util/Globals.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <gtest/gtest.h>

using namespace tv;

namespace {

void Put(const QString& path, const QByteArray& content)
{
    QFile f(path);
    f.open(QIODevice::WriteOnly | QIODevice::Truncate);
    f.write(content);
}
QByteArray Get(const QString& path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return "<missing>";
    return f.readAll();
}
QStringList Files(const QString& dir)
{
    return QDir(dir).entryList(QDir::Files, QDir::Name);
}

class StagingTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        Cfg = CfgRecord{};
        for (const char* n : {"p88", "m88", "pc88w", "x88", "q88", "xm7d", "xm7w", "em7", "x1r",
                              "xmil", "xmilt", "x1emu", "winx1", "work", "pat0", "pat1", "pat2"})
            QDir().mkpath(root.path(n));
        Cfg.P88srDir = root.path("p88");
        // Text fields of the record are blank-filled: the directories are trimmed.
        Cfg.M88Dir = root.path("m88") + "   ";
        Cfg.PC88WinDir = root.path("pc88w");
        Cfg.X88kDir = root.path("x88");
        Cfg.QUASI88Dir = root.path("q88");
        Cfg.Xm7DosDir = root.path("xm7d");
        Cfg.Xm7WinDir = root.path("xm7w");
        Cfg.Em7WinDir = root.path("em7");
        Cfg.X1rDir = root.path("x1r");
        Cfg.XmilDir = root.path("xmil");
        Cfg.XmilTDir = root.path("xmilt");
        Cfg.X1emuDir = root.path("x1emu");
        Cfg.WinX1Dir = root.path("winx1");
        WorkDir = root.path("work");
        for (int i = 0; i < 3; ++i)
            PatSaveDir[i] = root.path(QStringLiteral("pat%1").arg(i));
    }
    void TearDown() override
    {
        Cfg = CfgRecord{};
        WorkDir.clear();
        PatSaveDir = {};
    }
    tvtest::GuardedDirs root;
};

struct BackupCase {
    int16_t code;
    const char* dir;
    const char* config;
    const char* backup;
    uint8_t tune, ika;
};

const BackupCase kCases[] = {
    {1, "p88", "P88SR.CFG", "P88SR.ORG", 0, 0},
    {2, "m88", "M88.INI", "M88.ORG", 0, 0},
    {3, "pc88w", "PC88WIN.INI", "PC88WIN.ORG", 0, 0},
    {12, "xm7w", "XM7.INI", "XM7.ORG", 0, 0},
    {13, "em7", "EM7.INI", "EM7.ORG", 0, 0},
    {22, "xmil", "Xmillennium.ini", "Xmillennium.org", 0, 0},
    {22, "xmilt", "Xmillennium.ini", "Xmillennium.org", 1, 0},
    {24, "winx1", "winx1.ini", "winx1.org", 0, 0},
    {24, "winx1", "WinX1_ika.ini", "WinX1_ika.org", 0, 1},
};

} // namespace

TEST_F(StagingTest, BackupAndRestoreForEveryCodeOfTheTable)
{
    for (const BackupCase& c : kCases) {
        SCOPED_TRACE(QStringLiteral("%1 %2").arg(c.code).arg(c.config).toStdString());
        Cfg.WinX1IkaUse = c.ika;
        const QString dir = root.path(c.dir);
        const QString config = dir + "/" + c.config, backup = dir + "/" + c.backup;
        Put(config, "user's settings");
        BackupEmuConfig(c.code, false, c.tune);
        EXPECT_EQ(Get(backup), QByteArray("user's settings"));
        Put(config, "written for the title");
        BackupEmuConfig(c.code, true, c.tune);
        EXPECT_EQ(Get(config), QByteArray("user's settings"));
        EXPECT_FALSE(QFile::exists(backup));
        QFile::remove(config);
    }
}

TEST_F(StagingTest, NeverConfiguredEmulatorKeepsWhatTheLaunchWrote)
{
    const QString dir = root.path("m88");
    BackupEmuConfig(2, false, 0);
    EXPECT_TRUE(Files(dir).isEmpty());
    Put(dir + "/M88.INI", "generated");
    BackupEmuConfig(2, true, 0);
    EXPECT_EQ(Files(dir), QStringList{"M88.INI"});
    EXPECT_EQ(Get(dir + "/M88.INI"), QByteArray("generated"));
}

TEST_F(StagingTest, StaleBackupIsDeletedBeforeTheRunNeverRestored)
{
    const QString dir = root.path("xm7w");
    Put(dir + "/XM7.ORG", "stale");
    Put(dir + "/XM7.INI", "current");
    BackupEmuConfig(12, false, 0);
    EXPECT_EQ(Get(dir + "/XM7.ORG"), QByteArray("current"));
    // Without a config file the stale backup goes and none is made.
    QFile::remove(dir + "/XM7.INI");
    Put(dir + "/XM7.ORG", "stale");
    BackupEmuConfig(12, false, 0);
    EXPECT_TRUE(Files(dir).isEmpty());
}

// Before it goes, a stale backup is kept beside the program under the configuration's name,
// in a directory named with the date and the emulator; one box for each file kept.
TEST_F(StagingTest, StaleBackupIsKeptInARecoveryDirectoryFirst)
{
    const QString savedApp = AppDir;
    AppDir = root.path("app");
    QDir().mkpath(AppDir);
    const QString dir = root.path("xm7w");
    Put(dir + "/XM7.ORG", "users own");
    Put(dir + "/XM7.INI", "written for a title");
    tvtest::ScriptedMsgBox box;
    BackupEmuConfig(12, false, 0);
    Put(dir + "/XM7.ORG", "users own again");
    BackupEmuConfig(12, false, 0);

    const QStringList kept = QDir(AppDir).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    ASSERT_EQ(kept.size(), 2);
    for (const QString& k : kept)
        EXPECT_TRUE(k.startsWith("TORVRECOVER_") && k.endsWith("_XM7_for_Win32"))
            << k.toStdString();
    QByteArrayList contents{Get(AppDir + "/" + kept[0] + "/XM7.INI"),
                            Get(AppDir + "/" + kept[1] + "/XM7.INI")};
    std::sort(contents.begin(), contents.end());
    EXPECT_EQ(contents, (QByteArrayList{"users own", "users own again"}));
    EXPECT_EQ(Get(dir + "/XM7.ORG"), QByteArray("written for a title"));
    ASSERT_EQ(box.calls().size(), 2u);
    EXPECT_EQ(box.calls()[0].flags, 64);
    EXPECT_TRUE(box.calls()[0].text.contains(AppDir + "/" + kept[0] + "/XM7.INI") ||
                box.calls()[0].text.contains(AppDir + "/" + kept[1] + "/XM7.INI"));
    AppDir = savedApp;
}

TEST_F(StagingTest, RestoreWithoutConfigMovesTheBackupBack)
{
    const QString dir = root.path("em7");
    Put(dir + "/EM7.ORG", "saved");
    BackupEmuConfig(13, true, 0);
    EXPECT_EQ(Files(dir), QStringList{"EM7.INI"});
    EXPECT_EQ(Get(dir + "/EM7.INI"), QByteArray("saved"));
}

TEST_F(StagingTest, XmillenniumTuneUseTakesTheOtherDirectoryBothWays)
{
    Put(root.path("xmil/Xmillennium.ini"), "plain");
    Put(root.path("xmilt/Xmillennium.ini"), "tune");
    BackupEmuConfig(22, false, 1);
    EXPECT_EQ(Files(root.path("xmil")), QStringList{"Xmillennium.ini"});
    EXPECT_EQ(Get(root.path("xmilt/Xmillennium.org")), QByteArray("tune"));
    Put(root.path("xmilt/Xmillennium.ini"), "generated");
    BackupEmuConfig(22, true, 1);
    EXPECT_EQ(Get(root.path("xmilt/Xmillennium.ini")), QByteArray("tune"));
    EXPECT_EQ(Get(root.path("xmil/Xmillennium.ini")), QByteArray("plain"));
}

TEST_F(StagingTest, WinX1KeepsTwoIndependentBackupPairs)
{
    const QString dir = root.path("winx1");
    Put(dir + "/winx1.ini", "plain");
    Put(dir + "/WinX1_ika.ini", "ika");
    Cfg.WinX1IkaUse = 0;
    BackupEmuConfig(24, false, 0);
    Cfg.WinX1IkaUse = 1;
    BackupEmuConfig(24, false, 0);
    EXPECT_EQ(Files(dir),
              (QStringList{"WinX1_ika.ini", "WinX1_ika.org", "winx1.ini", "winx1.org"}));
    Put(dir + "/WinX1_ika.ini", "gen");
    BackupEmuConfig(24, true, 0);
    EXPECT_EQ(Get(dir + "/WinX1_ika.ini"), QByteArray("ika"));
    EXPECT_TRUE(QFile::exists(dir + "/winx1.org"));
}

TEST_F(StagingTest, CodesWithoutAConfigFileTouchNothing)
{
    // QUASI88 and j80 write theirs in WorkDir; the others are driven by command line alone.
    Put(root.path("q88/QUASI88.INI"), "q");
    Put(root.path("x88/X88000.INI"), "x");
    for (int16_t code : {0, 4, 5, 6, 11, 21, 23, 99, -1}) {
        BackupEmuConfig(code, false, 0);
        BackupEmuConfig(code, true, 0);
        EXPECT_FALSE(GetEmuConfigFiles(code, 0).has());
    }
    EXPECT_EQ(Files(root.path("q88")), QStringList{"QUASI88.INI"});
    EXPECT_EQ(Files(root.path("x88")), QStringList{"X88000.INI"});
}

TEST_F(StagingTest, Xm7RomSetOnlyForFamily1AndXm7Dos)
{
    for (const QString& n : kXm7RomFiles)
        Put(Cfg.Xm7DosDir + "/" + n, n.toLatin1());
    Put(Cfg.Xm7DosDir + "/XM7.EXE", "exe");
    StageXm7Rom(1, 12);
    StageXm7Rom(2, 11);
    StageXm7Rom(0, 11);
    EXPECT_TRUE(Files(WorkDir).isEmpty());
    StageXm7Rom(1, 11);
    QStringList sorted = kXm7RomFiles;
    sorted.sort();
    EXPECT_EQ(Files(WorkDir), sorted);
    EXPECT_EQ(Get(WorkDir + "/KANJI.ROM"), QByteArray("KANJI.ROM"));
    UnstageXm7Rom(1, 12);
    EXPECT_EQ(Files(WorkDir).size(), 5);
    UnstageXm7Rom(1, 11);
    EXPECT_TRUE(Files(WorkDir).isEmpty());
    EXPECT_EQ(Files(Cfg.Xm7DosDir).size(), 6);
}

TEST_F(StagingTest, Xm7RomCopiesThatFailAreIgnored)
{
    Put(Cfg.Xm7DosDir + "/BOOT_DOS.ROM", "b");
    StageXm7Rom(1, 11);
    EXPECT_EQ(Files(WorkDir), QStringList{"BOOT_DOS.ROM"});
    UnstageXm7Rom(1, 11);
    EXPECT_TRUE(Files(WorkDir).isEmpty());
}

TEST_F(StagingTest, Dos4gwOnlyForFamily2AndX1emu)
{
    Put(Cfg.X1emuDir + "/DOS4GW.EXE", "dos4gw");
    StageDos4gw(2, 21);
    StageDos4gw(1, 23);
    EXPECT_TRUE(Files(WorkDir).isEmpty());
    StageDos4gw(2, 23);
    EXPECT_EQ(Get(WorkDir + "/DOS4GW.EXE"), QByteArray("dos4gw"));
    UnstageDos4gw(2, 21);
    EXPECT_TRUE(QFile::exists(WorkDir + "/DOS4GW.EXE"));
    UnstageDos4gw(2, 23);
    EXPECT_TRUE(Files(WorkDir).isEmpty());
    EXPECT_TRUE(QFile::exists(Cfg.X1emuDir + "/DOS4GW.EXE"));
}

namespace {
void PutDriver(const QString& dir)
{
    for (const QString& n : kPciDebugFiles)
        Put(dir + "/" + n, (dir + n).toUtf8());
}
QStringList DriverSorted()
{
    QStringList s = kPciDebugFiles;
    s.sort();
    return s;
}
} // namespace

TEST_F(StagingTest, PciDebugAlwaysForXm7WinAndWinX1FromTheirPatDirectory)
{
    PutDriver(PatSaveDir[1]);
    PutDriver(PatSaveDir[2]);
    uint8_t flag = 7;
    StagePciDebug(flag, 12, 1);
    EXPECT_EQ(flag, 0);
    EXPECT_EQ(Files(WorkDir), DriverSorted());
    EXPECT_EQ(Get(WorkDir + "/Pcidebug.sys"), (PatSaveDir[1] + "Pcidebug.sys").toUtf8());
    UnstagePciDebug(flag, 12);
    EXPECT_TRUE(Files(WorkDir).isEmpty());
    StagePciDebug(flag, 24, 0);
    EXPECT_EQ(Get(WorkDir + "/pcidbg95.vxd"), (PatSaveDir[2] + "pcidbg95.vxd").toUtf8());
    UnstagePciDebug(flag, 24);
    EXPECT_TRUE(Files(WorkDir).isEmpty());
}

TEST_F(StagingTest, PciDebugForM88ByRomeoOrFm98FromTheDefaultRecord)
{
    PutDriver(PatSaveDir[0]);
    uint8_t flag = 1;
    StagePciDebug(flag, 2, 1);
    EXPECT_TRUE(Files(WorkDir).isEmpty());
    Cfg.CfgEmuOpt88.M88_5Op[7] = 1;
    StagePciDebug(flag, 2, 1);
    EXPECT_EQ(Files(WorkDir), DriverSorted());
    UnstagePciDebug(flag, 2);
    Cfg.CfgEmuOpt88.M88_5Op[7] = 0;
    Cfg.CfgEmuOpt88.M88_1Op[24] = 1;
    StagePciDebug(flag, 2, 1);
    EXPECT_EQ(Files(WorkDir), DriverSorted());
    UnstagePciDebug(flag, 2);
    EXPECT_TRUE(Files(WorkDir).isEmpty());
}

TEST_F(StagingTest, PciDebugTakesTheCurrentItemsRecordWhenDefOptIsOff)
{
    PutDriver(PatSaveDir[0]);
    PutDriver(PatSaveDir[2]);
    Cfg.CfgEmuOpt88.M88_1Op[24] = 1; // the default would stage it
    // The title's block stands in the catalogue's record buffer.
    CurEmuOpt88 = EmuOpt88{};
    LstObj.SetEmuOpt88();
    uint8_t flag = 0;
    StagePciDebug(flag, 2, 0);
    EXPECT_TRUE(Files(WorkDir).isEmpty());
    CurEmuOpt88.M88_5Op[7] = 1;
    LstObj.SetEmuOpt88();
    CurEmuOpt88 = EmuOpt88{}; // the launch fetches it anew from the record
    StagePciDebug(flag, 2, 0);
    EXPECT_EQ(Files(WorkDir), DriverSorted());
    UnstagePciDebug(flag, 2);

    CurEmuOptX1 = EmuOptX1{};
    LstObj.SetEmuOptX1();
    StagePciDebug(flag, 22, 0);
    EXPECT_TRUE(Files(WorkDir).isEmpty());
    CurEmuOptX1.Xmil_1Op[25] = 1;
    LstObj.SetEmuOptX1();
    CurEmuOptX1 = EmuOptX1{};
    StagePciDebug(flag, 22, 0);
    EXPECT_EQ(Files(WorkDir), DriverSorted());
    UnstagePciDebug(flag, 22);
}

TEST_F(StagingTest, PciDebugForXmillenniumByTuneBuildOrRomeo)
{
    PutDriver(PatSaveDir[2]);
    uint8_t flag = 0;
    StagePciDebug(flag, 22, 1);
    EXPECT_TRUE(Files(WorkDir).isEmpty());
    Cfg.XmilTUse = 1;
    StagePciDebug(flag, 22, 1);
    EXPECT_EQ(Files(WorkDir), DriverSorted());
    UnstagePciDebug(flag, 22);
    Cfg.XmilTUse = 0;
    Cfg.CfgEmuOptX1.Xmil_1Op[25] = 1;
    StagePciDebug(flag, 22, 1);
    EXPECT_EQ(Files(WorkDir), DriverSorted());
    UnstagePciDebug(flag, 22);
}

TEST_F(StagingTest, PciDebugOtherCodesDoNothingAndUnstageIsUnconditional)
{
    PutDriver(PatSaveDir[0]);
    PutDriver(PatSaveDir[1]);
    uint8_t flag = 5;
    for (int16_t code : {1, 3, 4, 5, 6, 11, 13, 21, 23})
        StagePciDebug(flag, code, 1);
    EXPECT_TRUE(Files(WorkDir).isEmpty());
    // Put by something else: the unstage of a code of the table deletes them anyway.
    PutDriver(WorkDir);
    UnstagePciDebug(flag, 3);
    EXPECT_EQ(Files(WorkDir).size(), 3);
    UnstagePciDebug(flag, 12);
    EXPECT_TRUE(Files(WorkDir).isEmpty());
}
