#include "launch/Launch.h"

#include "adapters/pc88/M88Ini.h"
#include "adapters/pc88/M88Launch.h"
#include "adapters/pc88/M88Modules.h"
#include "data/ItemDetail.h"
#include "data/clsLst.h"
#include "launch/Archive.h"
#include "launch/D88Uty.h"
#include "launch/EmuStaging.h"
#include "launch/ExecEmulator.h"
#include "launch/IniFile.h"
#include "launch/LaunchCommand.h"
#include "launch/MainWindowLink.h"
#include "platform/MsgBox.h"
#include "platform/Platform.h"
#include "util/Globals.h"
#include "util/Sjis.h"
#include "util/SubFunction.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <exception>

namespace tv {

namespace {

QString Trimmed(const QString& s)
{
    return VbTrim(s);
}

// Stored names may differ from what stands on disk only in case (the catalogue comes from a
// case-blind file system), so files of a directory are found without regard to case.
QString FindNoCase(const QString& dir, const QString& name)
{
    return FindFileNoCase(dir, name);
}

// Deletes a file of WorkDir whatever the case of its name; the result is ignored, as the
// launch ignores the results of its file operations.
void DeleteWorkFile(const QString& name)
{
    const QString p = FindNoCase(WorkDir, name);
    if (!p.isEmpty())
        ShellDelete(p, 0);
}

bool IsFamilyCode(uint8_t HardWare, int EmuCode)
{
    return HardWare <= 2 && IsLaunchCode(EmuCode) && LaunchFamily(EmuCode) == HardWare;
}

// Creates `path` anew with the whole text and one line end behind it, in Shift-JIS.
bool WriteConfText(const QString& path, const QString& text)
{
    // The user's file may be spelt "m88.ini": no second spelling may stay beside ours.
    const QFileInfo fi(path);
    DeleteFileAnyCase(fi.path(), fi.fileName());
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return false;
    const QByteArray bytes = ToSjis(text) + QByteArrayLiteral("\r\n");
    return f.write(bytes) == bytes.size();
}

EmuOpt88 ChosenOpt88(uint8_t DefOpt)
{
    if (DefOpt == 1)
        return Cfg.CfgEmuOpt88;
    LstObj.GetEmuOpt88();
    return CurEmuOpt88;
}
EmuOptFM ChosenOptFM(uint8_t DefOpt)
{
    if (DefOpt == 1)
        return Cfg.CfgEmuOptFM;
    LstObj.GetEmuOptFM();
    return CurEmuOptFM;
}
EmuOptX1 ChosenOptX1(uint8_t DefOpt)
{
    if (DefOpt == 1)
        return Cfg.CfgEmuOptX1;
    LstObj.GetEmuOptX1();
    return CurEmuOptX1;
}

struct Branch {
    LaunchCommand cmd;
    QString paste1, paste2;
    uint8_t altFlag = 0;
    bool ok = true;
};

} // namespace

bool IsLaunchCode(int EmuCode)
{
    return LaunchFamily(EmuCode) >= 0;
}

int LaunchFamily(int EmuCode)
{
    switch (EmuCode) {
    case 1:
    case 2:
    case 3:
    case 4:
    case 5:
    case 6:
        return 0;
    case 11:
    case 12:
    case 13:
        return 1;
    case 21:
    case 22:
    case 23:
    case 24:
        return 2;
    default:
        return -1;
    }
}

QString EmuExeName(int EmuCode, const CfgRecord& cfg)
{
    switch (EmuCode) {
    case 1:
        return QStringLiteral("P88SR.EXE");
    case 2:
        return QStringLiteral("M88.EXE");
    case 3:
        return QStringLiteral("PC88WIN.EXE");
    case 4:
        return QStringLiteral("X88000.EXE");
    case 5:
        return QStringLiteral("QUASI88.EXE");
    case 6:
        return QStringLiteral("j80.jar");
    case 11:
        return QStringLiteral("XM7.EXE");
    case 12:
        return QStringLiteral("XM7.EXE");
    case 13:
        return QStringLiteral("EM7.EXE");
    case 21:
        return QStringLiteral("X1R.COM");
    case 22:
        return QStringLiteral("Xmillennium.exe");
    case 23:
        return QStringLiteral("X1EMU.EXE");
    case 24:
        return cfg.WinX1IkaUse == 1 ? QStringLiteral("WinX1_ika.exe") : QStringLiteral("winx1.exe");
    default:
        return {};
    }
}

QString EmuDirOf(int EmuCode, const CfgRecord& cfg, uint8_t TuneUse)
{
    switch (EmuCode) {
    case 1:
        return Trimmed(cfg.P88srDir);
    case 2:
        return Trimmed(cfg.M88Dir);
    case 3:
        return Trimmed(cfg.PC88WinDir);
    case 4:
        return Trimmed(cfg.X88kDir);
    case 5:
        return Trimmed(cfg.QUASI88Dir);
    case 6:
        return Trimmed(cfg.J80Dir);
    case 11:
        return Trimmed(cfg.Xm7DosDir);
    case 12:
        return Trimmed(cfg.Xm7WinDir);
    case 13:
        return Trimmed(cfg.Em7WinDir);
    case 21:
        return Trimmed(cfg.X1rDir);
    case 22:
        return Trimmed(TuneUse == 1 ? cfg.XmilTDir : cfg.XmilDir);
    case 23:
        return Trimmed(cfg.X1emuDir);
    case 24:
        return Trimmed(cfg.WinX1Dir);
    default:
        return {};
    }
}

bool LaunchRoadReady(int EmuCode, const CfgRecord& cfg, QString* why)
{
    const QString needsIni =
        QStringLiteral("この設定ではエミュレータの設定ファイルを生成する必要がありますが、"
                       "その生成はまだ組み込まれていません。\n"
                       "環境設定で「既存INI使用」をオンにすると起動できます。");
    const QString needsSwitches =
        QStringLiteral("このエミュレータのオプション（設定ファイル・コマンドライン）の生成は"
                       "まだ組み込まれていないため、タイトルを起動できません。");
    bool ready = false;
    bool switches = false;
    switch (EmuCode) {
    case 11:
        ready = true;
        break;
    case 2:
        ready = true; // the adapter generates M88.INI
        break;
    case 3:
        ready = cfg.Pc8CfgChk == 1 || bool(optionMakers.pc88win);
        break;
    case 12:
        ready = cfg.Xm7WinCfgChk == 1 || bool(optionMakers.xm7win);
        break;
    case 13:
        ready = cfg.Em7WinCfgChk == 1 || bool(optionMakers.em7);
        break;
    case 22:
        ready = cfg.XmilCfgChk == 1 || bool(optionMakers.xmil);
        break;
    case 24:
        ready = cfg.WinX1CfgChk == 1 || bool(optionMakers.winx1);
        break;
    default:
        switches = true;
        break;
    }
    if (!ready && why)
        *why = switches ? needsSwitches : needsIni;
    return ready;
}

// ---------------------------------------------------------------------------------------
// RunSelectedItem

void RunSelectedItem(int16_t EmuCode)
{
    try {
        const bool selected = Window().HasSelectedItem();
        if (!selected) {
            RunEmulatorOnly(HardWare, EmuCode);
            return;
        }
        QString JituFile = LstObj.GetJituFile();
        uint8_t ArcCheckFlag = LstObj.GetArcCheckFlag();
        FileList fileList;

        QElapsedTimer t;
        t.start();
        const bool prepared = PrepareWorkDir(HardWare, EmuCode, ArcCheckFlag, JituFile, fileList);
        lastLaunchTimings.stage1Ns = t.nsecsElapsed();
        if (!prepared) {
            MsgBox(kPrepareErrorText, MbCritical, kEmuRunErrorCaption);
            CleanWorkDir();
            return;
        }

        const QString StartFile = LstObj.GetStartFileName();
        const QString SecondFile = LstObj.GetSecondFile();
        if (!RunEmulatorItem(HardWare, EmuCode, StartFile, SecondFile, Cfg.DefOpt)) {
            CleanWorkDir();
            return;
        }

        ArcCheckFlag = LstObj.GetArcCheckFlag();
        const uint8_t ReArcCheckFlag = LstObj.GetReArcCheckFlag();
        const QString StartAgain = LstObj.GetStartFileName();
        t.restart();
        const bool repacked =
            CheckRepack(HardWare, ArcCheckFlag, ReArcCheckFlag, JituFile, StartAgain, fileList);
        lastLaunchTimings.stage3Ns = t.nsecsElapsed();
        if (!repacked)
            CleanWorkDir();
    } catch (const std::exception&) {
        // A run-time error ends the launch silently; what stands in WorkDir stays there until
        // the next CleanWorkDir. The window comes back so that the user isn't left without it.
        Window().SetMainEnabled(true);
        Window().RestoreMain();
    }
}

// ---------------------------------------------------------------------------------------
// Stage 1

bool PrepareWorkDir(uint8_t HardWare, int16_t EmuCode, uint8_t ArcCheckFlag, QString& JituFile,
                    FileList& fileList)
{
    if (!IsLaunchCode(EmuCode) || HardWare > 2)
        return false;
    Window().SetStatusText(kLaunchStatusText);

    // A registered path that is dead, or a bare name, is looked for in the family's image
    // directory: first as given, then by its bare name (a catalogue moved with its images).
    const bool hasSeparator = JituFile.contains(u'\\') || JituFile.contains(u'/');
    if (FindFile(JituFile).isEmpty() || !hasSeparator) {
        const QString imageDir = ImageDir[HardWare];
        const QString asGiven = imageDir + u'/' + Trimmed(JituFile);
        if (!FindFile(asGiven).isEmpty()) {
            JituFile = asGiven;
        } else {
            QString dir = JituFile;
            JituFile = imageDir + u'/' + SplitFileName(dir);
        }
    }
    if (!IsSafeDir(JituFile, 2, 1))
        return false;

    const QString ext = GetFileExt(JituFile);
    bool ok = false;
    if (ArcCheckFlag != 1) {
        ok = ShellCopy(JituFile, WorkDir + u'/' + GetFileBase(JituFile) + u'.' + ext, 0);
    } else if (IsArcExt(ext)) {
        ok = ArcMelt(Window().Owner(), JituFile, WorkDir, QString(), kArcTrue, kArcTrue) == 0;
    }
    if (!ok) {
        CleanWorkDir();
        return false;
    }

    // Record each file's name and time. The walk drains WorkDir into TempDir and takes the
    // first match anew each time, since a pattern search can't survive the moves.
    fileList.clear();
    CleanTempDir();
    QDir().mkpath(TempDir());
    for (;;) {
        const QString first = FindFile(WorkDir + QStringLiteral("/*"));
        if (first.isEmpty())
            break;
        const QString name = QFileInfo(first).fileName();
        const QString path = WorkDir + u'/' + name;
        fileList.push_back({name, FileDateTimeText(path)});
        if (!ShellMove(path, TempDir() + u'/' + name, 0))
            break; // a file that can't move would be met again and again
    }
    RestoreTempDir();
    return true;
}

// ---------------------------------------------------------------------------------------
// GetWorkImageName

QString GetWorkImageName(int16_t EmuCode, const QString& FileName)
{
    const QString ext = GetFileExt(FileName);
    switch (EmuCode) {
    case 1:
    case 11:
    case 21:
    case 23: {
        // DOS programs: the 8.3 name.
        const QString real = FindNoCase(WorkDir, Trimmed(FileName));
        const QString shortPath = GetShortPath(real.isEmpty() ? WorkDir + u'/' + FileName : real);
        if (IsSafeDir(shortPath, 2, 0) && IsEmuImage(EmuCode, GetFileExt(shortPath))) {
            QString p = shortPath;
            return SplitFileName(p);
        }
        return {};
    }
    case 2:
    case 3:
    case 4:
    case 5:
    case 6:
    case 12:
    case 13:
    case 22:
    case 24: {
        if (FileName.isEmpty())
            return {};
        const QString real = FindNoCase(WorkDir, Trimmed(FileName));
        if (!real.isEmpty() && IsEmuImage(EmuCode, ext))
            return QFileInfo(real).fileName();
        return {};
    }
    default:
        return {};
    }
}

// ---------------------------------------------------------------------------------------
// Stage 2, the frame

bool RunEmulatorItem(uint8_t HardWare, int16_t EmuCode, const QString& StartFile,
                     const QString& SecondFile, uint8_t DefOpt)
{
    QElapsedTimer t;
    t.start();
    // 1.
    if (!IsFamilyCode(HardWare, EmuCode))
        return false;
    // A road whose generated options aren't built in yet is closed in the main window too.
    if (!LaunchRoadReady(EmuCode))
        return false;

    // 2.
    const QString Image = GetWorkImageName(EmuCode, StartFile);
    if (Image.isEmpty())
        return false;
    QString ImageStem = Image;
    const QString ImageExt = SplitFileExt(ImageStem).toUpper();

    // 3.
    QString Second;
    if (HardWare == 1 || HardWare == 2) {
        if (!Trimmed(SecondFile).isEmpty())
            Second = GetWorkImageName(EmuCode, SecondFile);
    } else {
        Second = SecondFile;
    }

    // 4. Module staging before the run.
    uint8_t pciFlag = 0;
    uint8_t TuneUse = 0;
    if (EmuCode == 12 || EmuCode == 24)
        StagePciDebug(pciFlag, EmuCode, DefOpt);
    if (EmuCode == 22) {
        TuneUse = (Cfg.XmilTUse == 1 || GetFileExt(SecondFile) == QStringLiteral("TAP") ||
                   ImageExt == QStringLiteral("TAP"))
                      ? 1
                      : 0;
        StagePciDebug(pciFlag, EmuCode, DefOpt);
    }

    // 5. Save states in.
    ModuleState moduleState{};
    const bool panUse = Cfg.PanUse == 1;
    if (EmuCode == 1 && !panUse) {
        for (int n = 0; n <= 9; ++n) {
            const QString name = ImageStem + QStringLiteral(".SV") + QString::number(n);
            const QString src = FindNoCase(P88SaveDir, name);
            if (!src.isEmpty())
                ShellCopy(src, WorkDir + u'/' + name, 0);
        }
    }
    if (EmuCode == 2) {
        for (int n = 0; n <= 9; ++n) {
            const QString name = ImageStem + u'_' + QString::number(n) + QStringLiteral(".S88");
            const QString src = FindNoCase(M88SaveDir, name);
            if (!src.isEmpty())
                ShellCopy(src, WorkDir + u'/' + name, 0);
        }
        if (DefOpt != 1)
            LstObj.GetEmuOpt88();
        HideM88Modules(moduleState, DefOpt);
        StagePciDebug(pciFlag, EmuCode, DefOpt);
    }

    // 6.
    BackupEmuConfig(EmuCode, false, TuneUse);

    // 7. FMPAN.
    QString PanArg;
    if (HardWare == 0 && panUse && IsSafeDir(Trimmed(Cfg.FmPanFile), 2, 0)) {
        ShellCopy(Trimmed(Cfg.FmPanFile), WorkDir + u'/' + kFmPanFile, 0);
        PanArg = kFmPanFile + u' ';
    }

    // 8. PAT: the source's stem is the catalogue's long name, the target's that of Image.
    if ((EmuCode == 1 || EmuCode == 2) && Cfg.PatUse == 1) {
        const QString src =
            FindNoCase(PatSaveDir[HardWare], GetFileBase(StartFile) + QStringLiteral(".PAT"));
        if (!src.isEmpty())
            ShellCopy(src, WorkDir + u'/' + ImageStem + QStringLiteral(".PAT"), 0);
    }

    // 10. Split for X1 (before the branch that takes its pieces).
    bool SplitDone = false;
    QStringList DiskList;
    QString splitPath; // the file that was split, under its name on disk
    QString First = Image;
    QString SecondOfBranch = Second;
    if ((EmuCode == 21 || EmuCode == 22 || EmuCode == 23) && Second.isEmpty() &&
        ImageExt == QStringLiteral("D88")) {
        const QString startPath = FindNoCase(WorkDir, Trimmed(StartFile));
        if (!startPath.isEmpty() && D88DiskCount(startPath) >= 2) {
            if (!D88Split(startPath, WorkDir, DiskList, EmuCode == 22 ? 0 : 1)) {
                MsgBox(kSplitErrorText, MbCritical, kEmuRunErrorCaption);
                return false;
            }
            SplitDone = true;
            splitPath = startPath;
            First = QFileInfo(DiskList.value(0)).fileName();
            SecondOfBranch = QFileInfo(DiskList.value(1)).fileName();
        }
    }

    // 9. The adapter branch.
    const QString Dir = EmuDirOf(EmuCode, Cfg, TuneUse);
    // The emulators come from a case-blind platform: "m88.exe" is M88.EXE as well.
    const QString exe = ResolveFileNoCase(Dir, EmuExeName(EmuCode));
    Branch b;
    b.cmd = LaunchCommand(exe);
    switch (EmuCode) {
    case 2: {
        const QString ini = ResolveFileNoCase(Dir, QStringLiteral("M88.INI"));
        if (Cfg.M88CfgChk != 1) {
            b.altFlag = WriteGeneratedM88Ini(ChosenOpt88(DefOpt));
        } else {
            // The user's INI stays; only the keys a launch depends on are corrected.
            const QString section = QStringLiteral("M88p2 for Windows");
            QString flags;
            GetIniValue(section, QStringLiteral("Flags"), QString(), flags, ini);
            if (const auto corrected = CorrectM88Flags(flags))
                SetIniValue(section, QStringLiteral("Flags"), *corrected, ini);
            SetIniValue(section, QStringLiteral("BIOSPath"), M88PathForm(Dir), ini);
            SetIniValue(section, QStringLiteral("Directory"), M88PathForm(WorkDir), ini);
        }
        const M88Command mc = MakeM88Command(Image, PanArg);
        b.cmd = LaunchCommand(mc.Program);
        b.cmd.args(mc.Args);
        b.paste1 = mc.Paste1;
        break;
    }
    case 3: {
        if (Cfg.Pc8CfgChk != 1)
            WriteConfText(Dir + QStringLiteral("/PC88WIN.INI"),
                          optionMakers.pc88win(ChosenOpt88(DefOpt)));
        if (panUse) {
            b.cmd.arg(Trimmed(PanArg));
            b.paste1 = Image;
        } else {
            b.cmd.arg(EmuPath(exe, Image));
        }
        break;
    }
    case 11:
        StageXm7Rom(HardWare, EmuCode);
        b.cmd.arg(EmuPath(exe, Image)).arg(EmuPath(exe, Second));
        break;
    case 12:
        if (Cfg.Xm7WinCfgChk != 1)
            WriteConfText(Dir + QStringLiteral("/XM7.INI"),
                          optionMakers.xm7win(ChosenOptFM(DefOpt)));
        b.cmd.arg(EmuPath(exe, Image)).arg(EmuPath(exe, Second));
        break;
    case 13:
        if (Cfg.Em7WinCfgChk != 1)
            WriteConfText(Dir + QStringLiteral("/EM7.INI"), optionMakers.em7(ChosenOptFM(DefOpt)));
        b.cmd.arg(EmuPath(exe, Image));
        break;
    case 22: {
        const QString ini = ResolveFileNoCase(Dir, QStringLiteral("Xmillennium.ini"));
        if (Cfg.XmilCfgChk == 1) {
            SetIniValue(QStringLiteral("Xmillennium"), QStringLiteral("StartDir"), QString(), ini);
            SetIniValue(QStringLiteral("Xmillennium"), QStringLiteral("bmap_Dir"),
                        EmuPath(exe, SnapDir[HardWare]), ini);
        } else {
            WriteConfText(ini, optionMakers.xmil(ChosenOptX1(DefOpt), TuneUse));
        }
        b.paste1 = First;
        b.paste2 = SecondOfBranch;
        break;
    }
    case 24: {
        const QString stem = QFileInfo(EmuExeName(24)).completeBaseName();
        const QString ini = ResolveFileNoCase(Dir, stem + QStringLiteral(".ini"));
        if (Cfg.WinX1CfgChk == 1)
            SetIniValue(QStringLiteral("WinX1"), QStringLiteral("StartDir"), EmuPath(exe, WorkDir),
                        ini);
        else
            WriteConfText(ini, optionMakers.winx1(ChosenOptX1(DefOpt)));
        b.paste1 = Trimmed(StartFile);
        break;
    }
    default:
        // Codes 1, 4, 5, 6, 21 and 23 need their adapters' switches; LaunchRoadReady keeps
        // them closed above.
        return false;
    }

    // 11.
    QDir::setCurrent(WorkDir);
    lastLaunchTimings.stage2StagingNs = t.nsecsElapsed();

    // 12. - 15.
    Window().MinimiseMain();
    ExecEmulator(b.cmd, EmuCode, b.paste1, b.paste2, b.altFlag);
    SleepMs(100);
    Window().RestoreMain();
    DoEvents();
    t.restart();

    // 16.
    // The pieces go back into the file that was split: the record's StartFile may differ
    // from the name on disk in case, and stage 3 looks for the name that stage 1 recorded.
    if ((EmuCode == 21 || EmuCode == 22 || EmuCode == 23) && SplitDone) {
        if (!D88Join(splitPath, DiskList)) {
            lastLaunchTimings.stage2StagingNs += t.nsecsElapsed();
            MsgBox(kJoinErrorText, MbCritical, kEmuRunErrorCaption);
            return false;
        }
    }
    // 17.
    if (EmuCode == 23)
        UnstageDos4gw(HardWare, EmuCode);
    if (EmuCode == 11)
        UnstageXm7Rom(HardWare, EmuCode);
    // 18.
    if (HardWare == 0)
        DeleteWorkFile(kFmPanFile);
    // 19. A .PAT only travels in.
    DeleteWorkFile(GetFileBase(Image) + QStringLiteral(".PAT"));
    // 20. Save states out, under upper-cased stems.
    if (EmuCode == 1) {
        for (int n = 0; n <= 9; ++n) {
            const QString src =
                FindNoCase(WorkDir, ImageStem + QStringLiteral(".SV") + QString::number(n));
            if (src.isEmpty())
                continue;
            ShellCopy(src,
                      P88SaveDir + u'/' + ImageStem.toUpper() + QStringLiteral(".SV") +
                          QString::number(n),
                      0);
            ShellDelete(src, 0);
        }
    }
    if (EmuCode == 2) {
        for (int n = 0; n <= 9; ++n) {
            const QString tail = u'_' + QString::number(n) + QStringLiteral(".S88");
            const QString src = FindNoCase(WorkDir, ImageStem + tail);
            if (src.isEmpty())
                continue;
            ShellCopy(src, M88SaveDir + u'/' + ImageStem.toUpper() + tail, 0);
            ShellDelete(src, 0);
        }
        RestoreM88Modules(moduleState);
        UnstagePciDebug(pciFlag, EmuCode);
    }
    // 21.
    if (EmuCode == 12 || EmuCode == 22 || EmuCode == 24)
        UnstagePciDebug(pciFlag, EmuCode);
    // 22.
    if (EmuCode == 5)
        DeleteWorkFile(QStringLiteral("QUASI88.INI"));
    if (EmuCode == 6)
        DeleteWorkFile(QStringLiteral("j80.cfg"));
    // 23.
    BackupEmuConfig(EmuCode, true, TuneUse);
    lastLaunchTimings.stage2StagingNs += t.nsecsElapsed();
    return true;
}

// ---------------------------------------------------------------------------------------
// RunEmulatorOnly

LaunchCommand EmulatorOnlyCommand(uint8_t HardWare, int16_t EmuCode)
{
    if (!IsFamilyCode(HardWare, EmuCode))
        return {};
    const uint8_t tune = (EmuCode == 22 && Cfg.XmilTUse == 1) ? 1 : 0;
    const QString Dir = EmuDirOf(EmuCode, Cfg, tune);
    LaunchCommand cmd;
    if (EmuCode == 6) {
        const QString java = Trimmed(Cfg.JavaVMPath);
        if (!java.isEmpty() && QFileInfo(java).isFile())
            cmd = LaunchCommand(java);
        else
            cmd = LaunchCommand(QStringLiteral("java"));
        cmd.arg(QStringLiteral("-jar")).arg(QStringLiteral("j80.jar"));
    } else if (EmuCode == 22 && Cfg.XmilCfgChk != 1 && tune == 0) {
        // The one command that carries the directory, kept as it is.
        cmd = LaunchCommand(Dir + QStringLiteral("/Xmillennium.exe"));
    } else {
        cmd = LaunchCommand(EmuExeName(EmuCode));
    }
    cmd.workingDir = Dir;
    return cmd;
}

void RunEmulatorOnly(uint8_t HardWare, int16_t EmuCode)
{
    LaunchCommand cmd = EmulatorOnlyCommand(HardWare, EmuCode);
    if (cmd.program.isEmpty())
        return;
    QDir::setCurrent(cmd.workingDir);
    // A bare name is found in the current directory, as the emulator's home platform does;
    // a POSIX start would only search the PATH.
    if (!cmd.program.contains(u'/')) {
        const QString found = FindFileNoCase(cmd.workingDir, cmd.program);
        if (!found.isEmpty())
            cmd.program = found;
    }
    StartDetached(cmd);
}

} // namespace tv
