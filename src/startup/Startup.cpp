#include "startup/Startup.h"

#include "data/Cfg.h"
#include "launch/Runner.h"
#include "platform/MsgBox.h"
#include "startup/ValidateCfg.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <QCoreApplication>
#include <QDir>
#include <exception>

namespace tv {

int32_t SeekPointerOfKey(const QString& key)
{
    bool ok = false;
    const int32_t v = key.mid(1).toInt(&ok);
    return ok ? v : 0;
}

namespace {

// A refused start: one box, then StartFail, then the process ends.
struct Refusal {
    QString text;
};

QString cfgPath()
{
    return AppDir + QStringLiteral("/") + kCfgFileName;
}

} // namespace

Startup::Startup(StartupEnv env) : env_(std::move(env))
{
    if (!env_.sleep)
        env_.sleep = [](int ms) { SleepMs(ms); };
    if (!env_.yield)
        env_.yield = [] { DoEvents(); };
}

void Startup::Refuse(const QString& text)
{
    throw Refusal{text};
}

bool Startup::FormLoad()
{
    try {
        return Run();
    } catch (const Refusal& r) {
        MsgBox(r.text, MbExclamation, StartupText::LoadError);
        StartFail();
        return false;
    } catch (...) {
        MsgBox(StartupText::Unexpected, MbOkOnly);
        return false;
    }
}

bool Startup::Run()
{
    // The directories of an earlier start in this process mean nothing to this one.
    WorkDir.clear();
    PeekDir.clear();
    CfgReady = 0;

    // The splash.
    Window().LoadTitle();
    Yield();
    Sleep(100);

    // One instance per program directory.
    Window().SetTitleMsg1(StartupText::CheckInstance);
    Yield();
    const QString exe = env_.executablePath.isEmpty() ? QCoreApplication::applicationFilePath()
                                                      : env_.executablePath;
    lock_ = AcquireInstanceLock(exe);
    if (!lock_)
        Refuse(StartupText::TwoInstances);

    // The environment.
    Window().SetTitleMsg1(StartupText::CheckEnv);
    Yield();

    // TMP and TEMP: a variable that names no directory refuses, even when the other one is good.
    const QString tmp = EnvTempValue("TMP");
    if (VbTrim(tmp).isEmpty() || !DirExists(tmp))
        Refuse(StartupText::NoTmp);
    EnvTmpDir = TrimTrailingSeparators(tmp);
    const QString temp = EnvTempValue("TEMP");
    if (VbTrim(temp).isEmpty() || !DirExists(temp))
        Refuse(StartupText::NoTemp);
    EnvTempDir = TrimTrailingSeparators(temp);

    // The Windows and system directories.
    WindowsDir = GetWindowsDir();
    if (WindowsDir.isEmpty())
        Refuse(StartupText::NoWindowsDir);
    SystemDir = GetSystemDir();
    if (SystemDir.isEmpty())
        Refuse(StartupText::NoSystemDir);

    // The program directory.
    Window().SetTitleMsg2(QString());
    Window().SetTitleMsg1(StartupText::SetVars);
    Yield();
    AppDir = TrimTrailingSeparators(env_.programDir.isEmpty() ? ProgramDir() : env_.programDir);

    // A program directory that is safe to work in.
    if (!IsSafeDir(AppDir, 3, 0))
        Refuse(StartupText::UnsafeAppDir);

    // The working directories.
    if (!MakeBootDir() || !MakeTempBootDir())
        Refuse(StartupText::BootDirFailed);

    // The tables.
    InitTables(); // also names the help file

    // How each emulator is started on this desktop: its own file, so TORVANE.CFG keeps its
    // bytes; a missing file means the defaults.
    Runners() = LoadRunnerSettings(RunnerSettingsPath());

    // The list style.
    Window().SetListExStyle();

    // The configuration gate; when it fails it has spoken already, so no further box.
    Window().SetTitleMsg1(StartupText::ReadingCfg);
    Yield();
    HardWare = 0;
    CheckCfg();
    if (CfgReady != 1) {
        StartFail();
        return false;
    }

    // The configuration onto the window.
    Window().ApplyCfgToWindow();

    // The catalogue object: the title comes back over a closed frmCfg.
    Window().HideMain();
    Window().ShowTitle();
    Window().SetTitleMsg1(StartupText::ReadingLst);
    KeyPrefix = QStringLiteral("K");
    Yield();
    Window().CreateLstObj();

    // The catalogue files: every family's file is checked, not only the remembered one.
    for (int family = 0; family < 3; ++family) {
        const QString file = AppDir + QStringLiteral("/") + kLstFileNames[family];
        if (!FileExists(file))
            continue;
        if (!Window().InitLst(family))
            Refuse(kLstFileNames[family] + QStringLiteral("が不正です。\n") +
                   StartupText::LstBadLine2);
    }

    // The remembered family and the window place: errors are ignored and the start goes on.
    HardWare = 255; // any choice counts as a change
    try {
        Window().SelectFamily(Cfg.LastHardWare);
    } catch (...) {
    }
    try {
        Window().PlaceWindow();
    } catch (...) {
    }

    // The hand-over to the main window: the splash stays up at least one second.
    trayOn_ = Cfg.TaskIn == 1 && Window().TrayAvailable();
    if (trayOn_) {
        Sleep(1000);
        Window().SetTitleMsg1(StartupText::Resident);
        Yield();
        Window().SetTaskIcon();
        if (Cfg.TaskRunForm == 1) {
            Yield();
            Window().SetMainMinimized();
            TrayWindowState = Cfg.WinState == 1 ? 0 : Cfg.WinState;
            Window().ShowMain();
            Yield();
            Sleep(1000);
            Window().UnloadTitle();
            Window().SetMainVisible();
        } else {
            Yield();
            Sleep(1000);
            Window().UnloadTitle();
            Window().ShowMain();
        }
    } else {
        Window().SetTitleMsg1(StartupText::Starting);
        Yield();
        Sleep(1000);
        Window().UnloadTitle();
        Window().ShowMain();
    }
    return true;
}

bool Startup::MakeBootDir()
{
    WorkDir = AppDir + QStringLiteral("/TORVBOOT");
    if (!DirExists(WorkDir))
        return QDir().mkdir(WorkDir);
    // A stale directory means an earlier run died during a launch: ask, never overrule.
    if (MsgBox(StartupText::BootDirExists, MbExclamation | MbYesNo) != MbResYes)
        return false;
    if (!ShellDelete(WorkDir, 0))
        return false;
    return QDir().mkdir(WorkDir);
}

bool Startup::MakeTempBootDir()
{
    PeekDir = EnvTmpDir + QStringLiteral("/TORVBOOT");
    if (DirExists(PeekDir) && !ShellDelete(PeekDir, 0))
        return false;
    return QDir().mkdir(PeekDir);
}

void Startup::CheckCfg()
{
    const QString file = cfgPath();
    if (!FileExists(file)) {
        Window().HideMain();
        Window().ShowTitle();
        MsgBox(StartupText::NoCfgText, MbInformation, StartupText::NoCfgCaption);
        SetDefaultCfg();
        Window().ShowCfgDialog();
        return;
    }
    ClearCfg();
    ReadCfg();
    if (Cfg.CfgVersion.right(4) != kCfgVersion) {
        if (MsgBox(StartupText::CfgVersionDiffers, MbExclamation | MbYesNo) != MbResYes) {
            MsgBox(StartupText::CfgUpdateHint, MbExclamation, StartupText::CfgVersionCaption);
            return;
        }
        // The old file goes only once its backup stands: without one it stays where it is,
        // and the start ends as with the answer no.
        if (!ShellCopy(file, AppDir + QStringLiteral("/") + kCfgBackupName, 0)) {
            MsgBox(StartupText::CfgUpdateHint, MbExclamation, StartupText::CfgVersionCaption);
            return;
        }
        ShellDelete(file, 0);
        Window().ShowTitle();
        SetDefaultCfg();
        Window().ShowCfgDialog();
        return;
    }
    ResolveCfgDirs();
    if (ValidateCfg()) {
        CfgReady = 1;
        return;
    }
    CfgReady = 0;
    Window().ShowTitle();
    Window().ShowCfgDialog();
}

void Startup::StartFail()
{
    // Leave the directory first: the process may sit in the one that is to go.
    if (!WorkDir.isEmpty()) {
        QDir::setCurrent(AppDir);
        QDir().rmdir(WorkDir); // only an empty one: a leftover the user kept stays
    }
    Window().HideMain();
    Window().ShowTitle();
    Window().SetTitleMsg1(StartupText::StartFailed);
    Yield();
    Sleep(1000);
}

void Startup::FormUnload()
{
    if (FileExists(cfgPath()) && CfgReady == 1) {
        const QString key = Window().SelectedKey();
        Cfg.LstSelectPos = (Cfg.LstSelectSave == 1 && !key.isEmpty()) ? SeekPointerOfKey(key) : 0;
        if (HardWare <= 2)
            Cfg.LastHardWare = HardWare;
        Cfg.ColWidth = Window().ColumnWidths();
        Cfg.WinState = static_cast<uint8_t>(Window().WindowState());
        // Size and position are read from the restored window.
        if (Cfg.WinState != 0)
            Window().RestoreNormalVisible();
        const auto g = Window().WindowGeometry();
        Cfg.WinHeight = g[0];
        Cfg.WinWidth = g[1];
        Cfg.WinLeft = g[2];
        Cfg.WinTop = g[3];
        SaveCfg();
    }
    if (trayOn_)
        Window().RemoveTaskIcon();
    QDir::setCurrent(AppDir);
    // A directory that can't go (files left by a launch) ends the procedure here; the next
    // start meets it in MakeBootDir.
    if (!WorkDir.isEmpty() && DirExists(WorkDir) && !QDir().rmdir(WorkDir))
        return;
    Window().ReleaseLstObj();
    Window().UnloadOtherForms();
}

} // namespace tv
