// The start-up sequence, its refusals and the shut-down, headless with a recording window
// stand-in and scripted message boxes.
#include "startup/StartupFixture.h"
#include "startup/ValidateCfg.h"
#include "support/ScriptedMsgBox.h"

#include <QFileInfo>

using namespace tv;
using namespace tvtest;
namespace T = tv::StartupText;

namespace {

// What frmCfg does when the user presses OK with the record as it is.
void CfgOk()
{
    ASSERT_TRUE(SaveCfg());
    CfgDialogUnload(true);
}
void CfgCancel()
{
    CfgDialogUnload(false);
}

bool isDir(const QString& p)
{
    return QFileInfo(p).isDir();
}

} // namespace

TEST_F(StartupTest, ValidCfgStartsWithTheStepsInOrder)
{
    WriteValidCfg([](CfgRecord& c) { c.LastHardWare = 2; });
    ScriptedMsgBox boxes;
    Startup s(Env());
    ASSERT_TRUE(s.FormLoad());
    EXPECT_TRUE(boxes.calls().empty());
    EXPECT_EQ(ui.msg1, QStringList({T::CheckInstance, T::CheckEnv, T::SetVars, T::ReadingCfg,
                                    T::ReadingLst, T::Starting}));
    // The splash rule: 100 ms at the first step, one second before the hand-over.
    EXPECT_EQ(sleeps, std::vector<int>({100, 1000}));
    EXPECT_GE(yields, 7);
    const QStringList tail = ui.calls.mid(ui.calls.indexOf("ApplyCfgToWindow"));
    EXPECT_EQ(tail, QStringList({"ApplyCfgToWindow", "HideMain", "ShowTitle",
                                 "Msg1:" + T::ReadingLst, "CreateLstObj", "SelectFamily:2",
                                 "PlaceWindow", "Msg1:" + T::Starting, "UnloadTitle", "ShowMain"}));
    EXPECT_EQ(CfgReady, 1);
    EXPECT_EQ(AppDir, app);
    EXPECT_EQ(WorkDir, app + "/TORVBOOT");
    EXPECT_EQ(PeekDir, tmp + "/TORVBOOT");
    EXPECT_TRUE(isDir(WorkDir));
    EXPECT_TRUE(isDir(PeekDir));
    EXPECT_EQ(EnvTmpDir, tmp);
    EXPECT_EQ(EnvTempDir, temp);
    EXPECT_EQ(KeyPrefix, "K");
    EXPECT_EQ(HelpFile, app + "/TORVANE.html");
}

TEST_F(StartupTest, TrailingSeparatorsOfTmpAndTempAreRemoved)
{
    WriteValidCfg();
    qputenv("TMP", (tmp + "///").toLocal8Bit());
    qputenv("TEMP", (temp + "/").toLocal8Bit());
    ScriptedMsgBox boxes;
    Startup s(Env(app + "/"));
    ASSERT_TRUE(s.FormLoad());
    EXPECT_EQ(EnvTmpDir, tmp);
    EXPECT_EQ(EnvTempDir, temp);
    EXPECT_EQ(AppDir, app);
}

TEST_F(StartupTest, MissingCfgShowsInfoThenDefaultsAndCancelFails)
{
    ScriptedMsgBox boxes;
    bool sawDefaults = false;
    ui.onCfgDialog = [&] {
        sawDefaults = Cfg.CfgVersion == kCfgVersionText && Cfg.WinSendWait == 750 &&
                      Cfg.FreeColName1.trimmed() == "Free Col1";
        CfgCancel();
    };
    Startup s(Env());
    EXPECT_FALSE(s.FormLoad());
    ASSERT_EQ(boxes.calls().size(), 1u);
    EXPECT_EQ(boxes.calls()[0].text, T::NoCfgText);
    EXPECT_EQ(boxes.calls()[0].flags, 64);
    EXPECT_EQ(boxes.calls()[0].caption, T::NoCfgCaption);
    EXPECT_TRUE(sawDefaults);
    // The gate has spoken: no further box, the failure text on the splash.
    EXPECT_EQ(ui.msg1.last(), T::StartFailed);
    EXPECT_EQ(sleeps.back(), 1000);
    EXPECT_FALSE(QFileInfo::exists(app + "/TORVBOOT"));
    EXPECT_FALSE(QFileInfo::exists(app + "/TORVANE.CFG"));
    EXPECT_TRUE(isDir(tmp + "/TORVBOOT")); // PeekDir is left where it is
    const int info = ui.calls.indexOf("Msg1:" + T::ReadingCfg);
    EXPECT_EQ(ui.calls.mid(info + 1, 3), QStringList({"HideMain", "ShowTitle", "ShowCfgDialog"}));
}

TEST_F(StartupTest, MissingCfgFilledInAndOkStarts)
{
    ScriptedMsgBox boxes;
    ui.onCfgDialog = [] { CfgOk(); };
    Startup s(Env());
    ASSERT_TRUE(s.FormLoad());
    EXPECT_EQ(CfgReady, 1);
    EXPECT_EQ(ReadFile(app + "/TORVANE.CFG").size(), kCfgSize);
    EXPECT_EQ(ui.msg1.last(), T::Starting);
}

TEST_F(StartupTest, OldVersionAnsweredYesKeepsABackup)
{
    WriteValidCfg([](CfgRecord& c) { c.CfgVersion = "TORVANE.CFG Version 0.15"; });
    const QByteArray old = ReadFile(app + "/TORVANE.CFG");
    ScriptedMsgBox boxes;
    boxes.answer(MbResYes);
    bool fileGoneInDialog = false;
    ui.onCfgDialog = [&] {
        fileGoneInDialog = !QFileInfo::exists(app + "/TORVANE.CFG");
        CfgOk();
    };
    Startup s(Env());
    ASSERT_TRUE(s.FormLoad());
    ASSERT_EQ(boxes.calls().size(), 1u);
    EXPECT_EQ(boxes.calls()[0].text, T::CfgVersionDiffers);
    EXPECT_EQ(boxes.calls()[0].flags, 52);
    EXPECT_EQ(boxes.calls()[0].caption, kAppTitle);
    EXPECT_TRUE(fileGoneInDialog);
    EXPECT_EQ(ReadFile(app + "/TORVANE_CFG.BAK"), old);
    EXPECT_EQ(ReadFile(app + "/TORVANE.CFG").left(24), QByteArray("TORVANE.CFG Version 0.16"));
}

TEST_F(StartupTest, OldVersionWhoseBackupFailsIsLeftInPlace)
{
    WriteValidCfg([](CfgRecord& c) { c.CfgVersion = "TORVANE.CFG Version 0.15"; });
    const QByteArray old = ReadFile(app + "/TORVANE.CFG");
    // The backup can't be made: a directory stands where the copy would go.
    ASSERT_TRUE(QDir().mkpath(app + "/TORVANE_CFG.BAK/TORVANE.CFG/inner"));
    ScriptedMsgBox boxes;
    boxes.answer(MbResYes);
    Startup s(Env());
    EXPECT_FALSE(s.FormLoad());
    ASSERT_EQ(boxes.calls().size(), 2u);
    EXPECT_EQ(boxes.calls()[0].text, T::CfgVersionDiffers);
    EXPECT_EQ(boxes.calls()[1].text, T::CfgUpdateHint);
    EXPECT_EQ(boxes.calls()[1].flags, 48);
    EXPECT_EQ(boxes.calls()[1].caption, T::CfgVersionCaption);
    EXPECT_FALSE(ui.calls.contains("ShowCfgDialog"));
    EXPECT_EQ(ReadFile(app + "/TORVANE.CFG"), old);
    EXPECT_EQ(ui.msg1.last(), T::StartFailed);
}

TEST_F(StartupTest, OldVersionAnsweredNoEndsAndLeavesTheFile)
{
    WriteValidCfg([](CfgRecord& c) { c.CfgVersion = "TORVANE.CFG Version 0.15"; });
    const QByteArray old = ReadFile(app + "/TORVANE.CFG");
    ScriptedMsgBox boxes;
    boxes.answer(MbResNo);
    Startup s(Env());
    EXPECT_FALSE(s.FormLoad());
    ASSERT_EQ(boxes.calls().size(), 2u);
    EXPECT_EQ(boxes.calls()[1].text, T::CfgUpdateHint);
    EXPECT_EQ(boxes.calls()[1].flags, 48);
    EXPECT_EQ(boxes.calls()[1].caption, T::CfgVersionCaption);
    EXPECT_FALSE(ui.calls.contains("ShowCfgDialog"));
    EXPECT_EQ(ReadFile(app + "/TORVANE.CFG"), old);
    EXPECT_FALSE(QFileInfo::exists(app + "/TORVANE_CFG.BAK"));
    EXPECT_EQ(ui.msg1.last(), T::StartFailed);
}

TEST_F(StartupTest, InvalidCfgGoesToTheDialogAndItsCancelFails)
{
    WriteValidCfg([this](CfgRecord& c) { c.ImageDir[1] = root.path() + "/nowhere"; });
    ScriptedMsgBox boxes;
    ui.onCfgDialog = [] { CfgCancel(); };
    Startup s(Env());
    EXPECT_FALSE(s.FormLoad());
    // Once at the gate, once at the re-read of the cancelled dialog.
    ASSERT_EQ(boxes.calls().size(), 2u);
    EXPECT_EQ(boxes.calls()[0].caption, "ｲﾒｰｼﾞﾌｧｲﾙﾃﾞｨﾚｸﾄﾘが不正");
    EXPECT_TRUE(ui.calls.contains("ShowCfgDialog"));
    EXPECT_EQ(CfgReady, 0);
}

TEST_F(StartupTest, TmpNamingAMissingDirectoryRefusesAlthoughTempIsGood)
{
    WriteValidCfg();
    qputenv("TMP", (root.path() + "/missing").toLocal8Bit());
    ScriptedMsgBox boxes;
    Startup s(Env());
    EXPECT_FALSE(s.FormLoad());
    ASSERT_EQ(boxes.calls().size(), 1u);
    EXPECT_EQ(boxes.calls()[0].text, T::NoTmp);
    EXPECT_EQ(boxes.calls()[0].flags, 48);
    EXPECT_EQ(boxes.calls()[0].caption, T::LoadError);
    EXPECT_EQ(ui.msg1.last(), T::StartFailed);
    EXPECT_FALSE(QFileInfo::exists(app + "/TORVBOOT"));
}

TEST_F(StartupTest, TempNamingAMissingDirectoryRefuses)
{
    WriteValidCfg();
    qputenv("TEMP", (root.path() + "/missing").toLocal8Bit());
    ScriptedMsgBox boxes;
    Startup s(Env());
    EXPECT_FALSE(s.FormLoad());
    ASSERT_EQ(boxes.calls().size(), 1u);
    EXPECT_EQ(boxes.calls()[0].text, T::NoTemp);
}

TEST_F(StartupTest, UnsetTmpFallsBackOnTmpdir)
{
    WriteValidCfg();
    const QString tmpdir = root.path() + "/tmpdir";
    ASSERT_TRUE(QDir().mkpath(tmpdir));
    const QByteArray savedTmpdir = qgetenv("TMPDIR");
    qunsetenv("TMP");
    qputenv("TMPDIR", tmpdir.toLocal8Bit());
    ScriptedMsgBox boxes;
    Startup s(Env());
    const bool ok = s.FormLoad();
    if (savedTmpdir.isNull())
        qunsetenv("TMPDIR");
    else
        qputenv("TMPDIR", savedTmpdir);
    EXPECT_TRUE(ok);
    EXPECT_TRUE(boxes.calls().empty());
    EXPECT_EQ(EnvTmpDir, tmpdir);
    EXPECT_TRUE(isDir(tmpdir + "/TORVBOOT"));
}

TEST_F(StartupTest, ProgramDirectoryBelowTmpOrTempOrSystemTreesIsRefused)
{
    const QString underTmp = tmp + "/prog";
    const QString underTemp = temp + "/prog";
    ASSERT_TRUE(QDir().mkpath(underTmp));
    ASSERT_TRUE(QDir().mkpath(underTemp));
    for (const QString& dir :
         {underTmp, underTemp, QStringLiteral("/etc"), QStringLiteral("/usr/share")}) {
        SCOPED_TRACE(dir.toStdString());
        ScriptedMsgBox boxes;
        StubWindow local;
        Startup s(Env(dir));
        EXPECT_FALSE(s.FormLoad());
        ASSERT_EQ(boxes.calls().size(), 1u);
        EXPECT_EQ(boxes.calls()[0].text, T::UnsafeAppDir);
        EXPECT_EQ(boxes.calls()[0].caption, T::LoadError);
        EXPECT_FALSE(QFileInfo::exists(dir + "/TORVBOOT"));
    }
}

TEST_F(StartupTest, StaleBootDirAnsweredYesIsRemadeEmpty)
{
    WriteValidCfg();
    ASSERT_TRUE(QDir().mkpath(app + "/TORVBOOT"));
    WriteFile(app + "/TORVBOOT/GAME.D88", "left over");
    ScriptedMsgBox boxes;
    boxes.answer(MbResYes);
    Startup s(Env());
    ASSERT_TRUE(s.FormLoad());
    ASSERT_EQ(boxes.calls().size(), 1u);
    EXPECT_EQ(boxes.calls()[0].text, T::BootDirExists);
    EXPECT_EQ(boxes.calls()[0].flags, 52);
    EXPECT_TRUE(isDir(app + "/TORVBOOT"));
    EXPECT_TRUE(QDir(app + "/TORVBOOT").isEmpty());
}

TEST_F(StartupTest, StaleBootDirAnsweredNoEndsAndTheLeftoverStays)
{
    WriteValidCfg();
    ASSERT_TRUE(QDir().mkpath(app + "/TORVBOOT"));
    WriteFile(app + "/TORVBOOT/GAME.D88", "left over");
    ScriptedMsgBox boxes;
    boxes.answer(MbResNo);
    Startup s(Env());
    EXPECT_FALSE(s.FormLoad());
    ASSERT_EQ(boxes.calls().size(), 2u);
    EXPECT_EQ(boxes.calls()[1].text, T::BootDirFailed);
    EXPECT_EQ(boxes.calls()[1].caption, T::LoadError);
    EXPECT_EQ(ReadFile(app + "/TORVBOOT/GAME.D88"), QByteArray("left over"));
}

TEST_F(StartupTest, StaleBootDirUnderTmpGoesWithoutAQuestion)
{
    WriteValidCfg();
    ASSERT_TRUE(QDir().mkpath(tmp + "/TORVBOOT/sub"));
    WriteFile(tmp + "/TORVBOOT/sub/A.LZH", "x");
    ScriptedMsgBox boxes;
    Startup s(Env());
    ASSERT_TRUE(s.FormLoad());
    EXPECT_TRUE(boxes.calls().empty());
    EXPECT_TRUE(isDir(tmp + "/TORVBOOT"));
    EXPECT_TRUE(QDir(tmp + "/TORVBOOT").isEmpty());
}

TEST_F(StartupTest, SecondInstanceOfTheSameProgramIsRefused)
{
    WriteValidCfg();
    auto first = AcquireInstanceLock(app + "/torvane");
    ASSERT_TRUE(first);
    ScriptedMsgBox boxes;
    Startup s(Env());
    EXPECT_FALSE(s.FormLoad());
    ASSERT_EQ(boxes.calls().size(), 1u);
    EXPECT_EQ(boxes.calls()[0].text, T::TwoInstances);
    EXPECT_EQ(boxes.calls()[0].caption, T::LoadError);
    EXPECT_FALSE(QFileInfo::exists(app + "/TORVBOOT"));
}

TEST_F(StartupTest, CopyInAnotherDirectoryMayRunBeside)
{
    WriteValidCfg();
    auto other = AcquireInstanceLock(root.path() + "/elsewhere/torvane");
    ASSERT_TRUE(other);
    ScriptedMsgBox boxes;
    Startup s(Env());
    EXPECT_TRUE(s.FormLoad());
    EXPECT_TRUE(s.HoldsInstanceLock());
}

TEST_F(StartupTest, BadCatalogueOfAnyFamilyStopsTheStart)
{
    WriteValidCfg([](CfgRecord& c) { c.LastHardWare = 0; });
    WriteFile(app + "/TORVANE.LST", "ok");
    WriteFile(app + "/TORVANE.LFM", "bad");
    ui.initLst = [](int f) { return f != 1; };
    ScriptedMsgBox boxes;
    Startup s(Env());
    EXPECT_FALSE(s.FormLoad());
    ASSERT_EQ(boxes.calls().size(), 1u);
    EXPECT_EQ(boxes.calls()[0].text, "TORVANE.LFMが不正です。\nRECASTnnでコンバートして下さい。");
    EXPECT_EQ(boxes.calls()[0].caption, T::LoadError);
    EXPECT_TRUE(ui.calls.contains("InitLst:0"));
    EXPECT_FALSE(ui.calls.contains("InitLst:2")); // no file, no fault
    EXPECT_FALSE(ui.calls.contains("SelectFamily:0"));
}

TEST_F(StartupTest, TrayAndHiddenFormStartMinimised)
{
    WriteValidCfg([](CfgRecord& c) {
        c.TaskIn = 1;
        c.TaskRunForm = 1;
        c.WinState = 1;
    });
    ScriptedMsgBox boxes;
    Startup s(Env());
    ASSERT_TRUE(s.FormLoad());
    EXPECT_EQ(sleeps, std::vector<int>({100, 1000, 1000}));
    EXPECT_EQ(ui.msg1.last(), T::Resident);
    EXPECT_EQ(TrayWindowState, 0); // a remembered minimised state is not restored
    const QStringList tail = ui.calls.mid(ui.calls.indexOf("Msg1:" + T::Resident));
    EXPECT_EQ(tail, QStringList({"Msg1:" + T::Resident, "SetTaskIcon", "SetMainMinimized",
                                 "ShowMain", "UnloadTitle", "SetMainVisible"}));
}

TEST_F(StartupTest, TrayWithFormRestoresMaximisedState)
{
    WriteValidCfg([](CfgRecord& c) {
        c.TaskIn = 1;
        c.TaskRunForm = 1;
        c.WinState = 2;
    });
    ScriptedMsgBox boxes;
    Startup s(Env());
    ASSERT_TRUE(s.FormLoad());
    EXPECT_EQ(TrayWindowState, 2);
}

TEST_F(StartupTest, TrayWithoutHiddenForm)
{
    WriteValidCfg([](CfgRecord& c) { c.TaskIn = 1; });
    ScriptedMsgBox boxes;
    Startup s(Env());
    ASSERT_TRUE(s.FormLoad());
    EXPECT_EQ(sleeps, std::vector<int>({100, 1000, 1000}));
    const QStringList tail = ui.calls.mid(ui.calls.indexOf("SetTaskIcon"));
    EXPECT_EQ(tail, QStringList({"SetTaskIcon", "UnloadTitle", "ShowMain"}));
}

TEST_F(StartupTest, NoSystemTrayRunsAsIfTheOptionWereOff)
{
    WriteValidCfg([](CfgRecord& c) {
        c.TaskIn = 1;
        c.TaskRunForm = 1;
    });
    ui.trayAvailable = false;
    ScriptedMsgBox boxes;
    Startup s(Env());
    ASSERT_TRUE(s.FormLoad());
    EXPECT_FALSE(ui.calls.contains("SetTaskIcon"));
    EXPECT_EQ(ui.msg1.last(), T::Starting);
}

TEST_F(StartupTest, ShutDownStoresStateWritesTheFileAndRemovesWorkDir)
{
    WriteValidCfg([](CfgRecord& c) {
        c.LstSelectSave = 1;
        c.LastHardWare = 1;
    });
    ScriptedMsgBox boxes;
    Startup s(Env());
    ASSERT_TRUE(s.FormLoad());
    HardWare = 1;
    ui.selectedKey = "Y1234";
    ui.windowState = 2;
    s.FormUnload();
    CfgRecord back;
    DecodeCfg(ReadFile(app + "/TORVANE.CFG"), back);
    EXPECT_EQ(back.LstSelectPos, 1234);
    EXPECT_EQ(back.LastHardWare, 1);
    EXPECT_EQ(back.WinState, 2);
    EXPECT_FLOAT_EQ(back.WinHeight, 600);
    EXPECT_FLOAT_EQ(back.WinWidth, 800);
    EXPECT_FLOAT_EQ(back.WinLeft, 30);
    EXPECT_FLOAT_EQ(back.WinTop, 40);
    EXPECT_FLOAT_EQ(back.ColWidth[5], 6);
    EXPECT_TRUE(ui.calls.contains("RestoreNormalVisible"));
    EXPECT_FALSE(QFileInfo::exists(app + "/TORVBOOT"));
    EXPECT_EQ(QDir::currentPath(), app);
    EXPECT_EQ(ui.calls.mid(ui.calls.size() - 2),
              QStringList({"ReleaseLstObj", "UnloadOtherForms"}));
}

TEST_F(StartupTest, ShutDownWithoutSelectionSaveStoresZero)
{
    WriteValidCfg([](CfgRecord& c) { c.LstSelectPos = 77; });
    ScriptedMsgBox boxes;
    Startup s(Env());
    ASSERT_TRUE(s.FormLoad());
    ui.selectedKey = "K25";
    s.FormUnload();
    CfgRecord back;
    DecodeCfg(ReadFile(app + "/TORVANE.CFG"), back);
    EXPECT_EQ(back.LstSelectPos, 0);
    EXPECT_FALSE(ui.calls.contains("RestoreNormalVisible"));
}

TEST_F(StartupTest, ShutDownWithSelectionSaveAndNothingSelectedStoresZero)
{
    WriteValidCfg([](CfgRecord& c) {
        c.LstSelectSave = 1;
        c.LstSelectPos = 25 + 2284; // an old selection that must not survive
    });
    ScriptedMsgBox boxes;
    Startup s(Env());
    ASSERT_TRUE(s.FormLoad());
    ASSERT_EQ(Cfg.LstSelectPos, 25 + 2284);
    ui.selectedKey = "";
    s.FormUnload();
    CfgRecord back;
    DecodeCfg(ReadFile(app + "/TORVANE.CFG"), back);
    EXPECT_EQ(back.LstSelectSave, 1);
    EXPECT_EQ(back.LstSelectPos, 0);
}

TEST_F(StartupTest, ShutDownKeepsAWorkDirWithFilesAndStopsThere)
{
    WriteValidCfg();
    ScriptedMsgBox boxes;
    Startup s(Env());
    ASSERT_TRUE(s.FormLoad());
    WriteFile(app + "/TORVBOOT/LEFT.D88", "x");
    s.FormUnload();
    EXPECT_TRUE(QFileInfo::exists(app + "/TORVBOOT/LEFT.D88"));
    EXPECT_FALSE(ui.calls.contains("ReleaseLstObj"));
}

TEST_F(StartupTest, ShutDownAfterARemovedCfgWritesNothing)
{
    WriteValidCfg();
    ScriptedMsgBox boxes;
    Startup s(Env());
    ASSERT_TRUE(s.FormLoad());
    QFile::remove(app + "/TORVANE.CFG");
    s.FormUnload();
    EXPECT_FALSE(QFileInfo::exists(app + "/TORVANE.CFG"));
}

TEST(StartupHelpers, TrimAndKeys)
{
    EXPECT_EQ(TrimTrailingSeparators("/a/b///"), "/a/b");
    EXPECT_EQ(TrimTrailingSeparators("C:\\x\\\\"), "C:\\x");
    EXPECT_EQ(TrimTrailingSeparators("/"), "/");
    EXPECT_EQ(SeekPointerOfKey("K25"), 25);
    EXPECT_EQ(SeekPointerOfKey("Y12345"), 12345);
    EXPECT_EQ(SeekPointerOfKey(""), 0);
}
