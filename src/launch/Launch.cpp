#include "launch/Launch.h"

#include "data/EmuRegistry.h"
#include "data/ItemDetail.h"
#include "data/clsLst.h"
#include "launch/Archive.h"
#include "launch/D88Uty.h"
#include "launch/EmuAdapter.h"
#include "launch/EmuStaging.h"
#include "launch/ExecEmulator.h"
#include "launch/LaunchCommand.h"
#include "launch/MainWindowLink.h"
#include "launch/Runner.h"
#include "platform/FileOps.h"
#include "platform/MsgBox.h"
#include "platform/Platform.h"
#include "util/Globals.h"
#include "util/Sjis.h"
#include "util/SubFunction.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
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

} // namespace

bool IsLaunchCode(int EmuCode)
{
    return LaunchFamily(EmuCode) >= 0;
}

int LaunchFamily(int EmuCode)
{
    const EmuRow* r = FindEmu(EmuCode);
    return r ? r->family : -1;
}

QString EmuExeName(int EmuCode, const CfgRecord& cfg)
{
    const EmuRow* r = FindEmu(EmuCode);
    return r ? r->exeName(cfg) : QString();
}

QString EmuDirOf(int EmuCode, const CfgRecord& cfg, uint8_t TuneUse)
{
    const EmuRow* r = FindEmu(EmuCode);
    return r ? r->dirOf(cfg, TuneUse) : QString();
}

bool LaunchRoadReady(int EmuCode, const CfgRecord& cfg, QString* why)
{
    const EmuAdapter* a = AdapterOf(EmuCode);
    if (a)
        return a->ready(cfg, why);
    if (why)
        *why = kNeedsSwitchesText;
    return false;
}

// ---------------------------------------------------------------------------------------
// RunSelectedItem

namespace {

// A launch that ends without stage 3: WorkDir is emptied and the detail pane, with the status
// text that the launch replaced, is shown anew.
void EndWithoutRepack()
{
    CleanWorkDir();
    Window().RefreshItemDetail();
}

} // namespace

void RunSelectedItem(int16_t EmuCode)
{
    enum class Stage { One, Two, Three } stage = Stage::One;
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
            EndWithoutRepack();
            return;
        }

        const QString StartFile = LstObj.GetStartFileName();
        const QString SecondFile = LstObj.GetSecondFile();
        stage = Stage::Two;
        if (!RunEmulatorItem(HardWare, EmuCode, StartFile, SecondFile, Cfg.DefOpt)) {
            EndWithoutRepack();
            return;
        }

        ArcCheckFlag = LstObj.GetArcCheckFlag();
        const uint8_t ReArcCheckFlag = LstObj.GetReArcCheckFlag();
        const QString StartAgain = LstObj.GetStartFileName();
        stage = Stage::Three;
        t.restart();
        const bool repacked =
            CheckRepack(HardWare, ArcCheckFlag, ReArcCheckFlag, JituFile, StartAgain, fileList);
        lastLaunchTimings.stage3Ns = t.nsecsElapsed();
        if (!repacked)
            CleanWorkDir();
    } catch (const std::exception&) {
        // A run-time error ends the launch without a word. In stage 2 the frame has taken back
        // what it did, so WorkDir is emptied as well; in stage 3 WorkDir may hold the changed
        // image, which stays for the question of the next start.
        Window().SetMainEnabled(true);
        Window().RestoreMain();
        if (stage == Stage::Two)
            CleanWorkDir();
        Window().RefreshItemDetail();
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
    OpenTempDir();
    for (;;) {
        const QString first = FindFile(Matches(WorkDir, QStringLiteral("*")));
        if (first.isEmpty())
            break;
        const QString name = QFileInfo(first).fileName();
        const QString path = WorkDir + u'/' + name;
        fileList.push_back({name, FileDateTimeText(path)});
        if (!ShellMove(path, TempDir() + u'/' + name, 0)) {
            // A file left out of the record would pass for a new one in stage 3, and never
            // go back into its archive: the stage fails.
            RestoreTempDir();
            return false;
        }
    }
    RestoreTempDir();
    return true;
}

// ---------------------------------------------------------------------------------------
// GetWorkImageName

QString GetWorkImageName(int16_t EmuCode, const QString& FileName)
{
    const EmuRow* row = FindEmu(EmuCode);
    if (!row)
        return {};
    if (row->shortNames) {
        // DOS programs: the 8.3 name.
        const QString real = FindNoCase(WorkDir, Trimmed(FileName));
        const QString shortPath = GetShortPath(real.isEmpty() ? WorkDir + u'/' + FileName : real);
        if (IsSafeDir(shortPath, 2, 0) && row->takesType(GetFileExt(shortPath))) {
            QString p = shortPath;
            return SplitFileName(p);
        }
        return {};
    }
    if (FileName.isEmpty())
        return {};
    const QString real = FindNoCase(WorkDir, Trimmed(FileName));
    if (!real.isEmpty() && row->takesType(GetFileExt(FileName)))
        return QFileInfo(real).fileName();
    return {};
}

// ---------------------------------------------------------------------------------------
// Stage 2, the frame

namespace {

// A DOS emulator reaches files by 8.3 names only, and a name with one of " * ? < > | has
// none: such an image in WorkDir is refused with a message rather than left out in silence.
bool RefusedForDos(const LaunchState& st, const QString& name)
{
    static const QString kOdd = QStringLiteral("\"*?<>|");
    const QString n = Trimmed(name);
    if (!st.row.shortNames || FindNoCase(WorkDir, n).isEmpty() ||
        std::none_of(n.begin(), n.end(), [](QChar c) { return kOdd.contains(c); }))
        return false;
    MsgBox(QStringLiteral("「%1」は名前に \" * ? < > | のいずれかを含むため、%2 には渡せません。")
               .arg(n, QString::fromUtf8(st.row.listName)),
           MbExclamation, kEmuRunErrorCaption);
    return true;
}

// The images under the names the emulator reaches them by; false when the first is missing
// or of a type the emulator doesn't take (the launch then ends without a word), or when a
// DOS emulator can't be given an image by its name (told).
bool NameImages(LaunchState& st)
{
    const int16_t code = st.row.code();
    st.Image = GetWorkImageName(code, st.StartFile);
    if (st.Image.isEmpty()) {
        RefusedForDos(st, st.StartFile);
        return false;
    }
    st.ImageStem = st.Image;
    st.ImageExt = SplitFileExt(st.ImageStem).toUpper();
    // The PC-88 family takes the second disk as the record names it.
    if (st.HardWare == 1 || st.HardWare == 2) {
        if (!Trimmed(st.SecondFile).isEmpty()) {
            st.Second = GetWorkImageName(code, st.SecondFile);
            if (st.Second.isEmpty() && RefusedForDos(st, st.SecondFile))
                return false;
        }
    } else {
        st.Second = st.SecondFile;
    }
    st.First = st.Image;
    st.SecondOfBranch = st.Second;
    return true;
}

// The FMPAN disk goes in as the command line's first disk.
void StageFmPan(LaunchState& st)
{
    if (st.HardWare == 0 && Cfg.PanUse == 1 && IsSafeDir(Trimmed(Cfg.FmPanFile), 2, 0)) {
        ShellCopy(Trimmed(Cfg.FmPanFile), WorkDir + u'/' + kFmPanFile, 0);
        st.PanArg = kFmPanFile + u' ';
    }
}

// The title's .PAT: the source's stem is the catalogue's long name, the target's that of
// Image.
void StagePat(const LaunchState& st)
{
    if (!st.row.pat || Cfg.PatUse != 1)
        return;
    const QString src =
        FindNoCase(PatSaveDir[st.HardWare], GetFileBase(st.StartFile) + QStringLiteral(".PAT"));
    if (!src.isEmpty())
        ShellCopy(src, WorkDir + u'/' + st.ImageStem + QStringLiteral(".PAT"), 0);
}

// A multi-disk D88 that the emulator reads one disk at a time.
struct Split {
    bool done = false;
    QStringList disks;
    QString path; // the file that was split, under its name on disk
};

// Splits the start disk for the rows that take pieces; false (told) when the split fails.
bool SplitDisk(LaunchState& st, Split& split)
{
    if (st.row.splitMode < 0 || !st.Second.isEmpty() || st.ImageExt != QStringLiteral("D88"))
        return true;
    const QString startPath = FindNoCase(WorkDir, Trimmed(st.StartFile));
    if (startPath.isEmpty() || D88DiskCount(startPath) < 2)
        return true;
    if (!D88Split(startPath, WorkDir, split.disks, st.row.splitMode)) {
        MsgBox(kSplitErrorText, MbCritical, kEmuRunErrorCaption);
        return false;
    }
    split.done = true;
    split.path = startPath;
    st.First = QFileInfo(split.disks.value(0)).fileName();
    st.SecondOfBranch = QFileInfo(split.disks.value(1)).fileName();
    return true;
}

// The pieces go back into the file that was split: the record's StartFile may differ from
// the name on disk in case, and stage 3 looks for the name that stage 1 recorded.
bool JoinDisk(Split& split)
{
    if (!split.done)
        return true;
    split.done = false; // joined once, whatever comes of it
    if (D88Join(split.path, split.disks))
        return true;
    MsgBox(kJoinErrorText, MbCritical, kEmuRunErrorCaption);
    return false;
}

// Everything the launch staged around the run goes away, and the user's configuration comes
// back.
void UnstageAfterRun(EmuAdapter& adapter, LaunchState& st, uint8_t& pciFlag)
{
    const int16_t EmuCode = st.row.code();
    // The branch's staged files out.
    adapter.stageAfter(st);
    // FMPAN and .PAT out: a .PAT only travels in.
    if (st.HardWare == 0)
        DeleteWorkFile(kFmPanFile);
    DeleteWorkFile(GetFileBase(st.Image) + QStringLiteral(".PAT"));
    // Save states out, the PCI driver out.
    adapter.saveStatesOut(st);
    UnstagePciDebug(pciFlag, EmuCode);
    // What the emulator leaves in WorkDir would pass for new files of the title.
    for (const QString& name : adapter.workLeftovers())
        DeleteWorkFile(name);
    // The user's configuration back.
    BackupEmuConfig(EmuCode, true, st.TuneUse);
}

// The window back, brought to the front, with its events served.
void WindowBack()
{
    Window().RestoreMain();
    DoEvents();
}

// The emulator's runner can take this launch: its program is there, DOS reaches the names,
// a Wine prefix is prepared. Told before anything of the user's is touched.
bool RunnerReady(const LaunchState& st)
{
    const QString program = ResolveFileNoCase(st.row.dirOf(Cfg, 0), st.row.exeName());
    QString why;
    if (PrepareRunner(st.row.emu, program, {st.Image, st.Second}, RunnerOf(st.row.emu), &why))
        return true;
    MsgBox(why, MbExclamation, kEmuRunErrorCaption);
    return false;
}

// While the branch makes the command and the files, the paths of an emulator under Wine go
// through its drive table.
struct WineDrives {
    explicit WineDrives(const LaunchState& st)
    {
        const RunnerSettings& s = RunnerOf(st.row.emu);
        if (!s.driveTable.isEmpty() && EffectiveRunner(st.row.emu, st.Exe, s) == RunnerKind::Wine)
            SetWineDriveTable(s.driveTable);
    }
    ~WineDrives() { SetWineDriveTable({}); }
    WineDrives(const WineDrives&) = delete;
    WineDrives& operator=(const WineDrives&) = delete;
};

// The emulator runs with WorkDir current and the main window minimised; the window comes
// back when it has ended.
void RunWithWindowAway(const EmuBranch& b, int16_t EmuCode)
{
    Window().MinimiseMain();
    ExecEmulator(b.cmd, EmuCode, b.paste1, b.paste2, b.altFlag);
    SleepMs(100);
    WindowBack();
}

// An emulator that couldn't start is told, over the window that has come back.
void TellStartFailure(const EmulatorStartError& e)
{
    WindowBack();
    MsgBox(StartFailureText(e), MbCritical, kEmuRunErrorCaption);
}

// The frame from FMPAN to its end: staging after the backup, the split, the adapter's branch,
// the run, the join and `takeBack`. A branch that can't make the emulator's configuration
// ends the launch without a run, after `takeBack`; a failed split or join ends it as told
// there, with what the frame keeps.
bool ConfigureAndRun(EmuAdapter& adapter, LaunchState& st, Split& split, QElapsedTimer& t,
                     const std::function<void()>& takeBack)
{
    const int16_t EmuCode = st.row.code();
    // FMPAN and .PAT.
    StageFmPan(st);
    StagePat(st);
    // The split of a multi-disk D88, before the branch that takes its pieces.
    if (!SplitDisk(st, split))
        return false;

    // The adapter's branch.
    st.Dir = st.row.dirOf(Cfg, st.TuneUse);
    // The emulators come from a case-blind platform: "m88.exe" is M88.EXE as well.
    st.Exe = ResolveFileNoCase(st.Dir, st.row.exeName());
    EmuBranch b;
    b.cmd = LaunchCommand(st.Exe);
    bool branched = false;
    {
        const WineDrives drives(st);
        branched = adapter.branch(st, b);
    }
    if (!branched) {
        takeBack();
        MsgBox(kConfWriteErrorText, MbCritical, kEmuRunErrorCaption);
        return false;
    }
    // A command the runner can't take (a tail too long for DOS), or a program other than the
    // one checked before (the T-Tune build) whose runner isn't ready, goes back like any launch.
    const RunnerSettings& runner = RunnerOf(st.row.emu);
    if (QString why; !PrepareRunner(st.row.emu, st.Exe, {}, runner, &why) ||
                     !WrapCommand(st.row.emu, b.cmd, runner, &why)) {
        takeBack();
        MsgBox(why, MbExclamation, kEmuRunErrorCaption);
        return false;
    }

    // The run, from WorkDir.
    QDir::setCurrent(WorkDir);
    lastLaunchTimings.stage2StagingNs = t.nsecsElapsed();
    RunWithWindowAway(b, EmuCode);
    t.restart();

    // The join; on failure nothing after it is done.
    if (!JoinDisk(split)) {
        lastLaunchTimings.stage2StagingNs += t.nsecsElapsed();
        return false;
    }
    takeBack(); // the pieces are joined: the rest of the frame's end
    lastLaunchTimings.stage2StagingNs += t.nsecsElapsed();
    return true;
}

} // namespace

bool RunEmulatorItem(uint8_t HardWare, int16_t EmuCode, const QString& StartFile,
                     const QString& SecondFile, uint8_t DefOpt)
{
    QElapsedTimer t;
    t.start();
    // Code and family.
    if (!IsFamilyCode(HardWare, EmuCode))
        return false;
    EmuAdapter& adapter = *AdapterOf(EmuCode);
    // A road that can't run yet is closed in the main window too.
    if (!adapter.ready(Cfg, nullptr))
        return false;
    LaunchState st(adapter.row());
    st.HardWare = HardWare;
    st.StartFile = StartFile;
    st.SecondFile = SecondFile;
    st.DefOpt = DefOpt;

    // The images.
    if (!NameImages(st))
        return false;
    if (!RunnerReady(st))
        return false;
    // Module staging, save states in, the PCI driver.
    uint8_t pciFlag = 0;
    adapter.stageBefore(st);
    adapter.saveStatesIn(st);
    StagePciDebug(pciFlag, EmuCode, DefOpt);
    // The user's configuration to its backup name. Without a backup the configuration written
    // for the run would replace the user's for good: the launch stops, its staging undone.
    if (!BackupEmuConfig(EmuCode, false, st.TuneUse)) {
        const EmuConfigFiles files = GetEmuConfigFiles(EmuCode, st.TuneUse);
        MsgBox(kBackupErrorText.arg(files.dir + u'/' + files.config, files.backup), MbCritical,
               kEmuRunErrorCaption);
        UnstageAfterRun(adapter, st, pciFlag);
        return false;
    }

    // From here on, a launch that ends without its run takes back what it did, in the order
    // of the frame's own end: pieces joined, staged files and save states out, the user's
    // configuration back.
    Split split;
    auto takeBack = [&] {
        JoinDisk(split);
        UnstageAfterRun(adapter, st, pciFlag);
    };
    try {
        return ConfigureAndRun(adapter, st, split, t, takeBack);
    } catch (const EmulatorStartError& e) {
        TellStartFailure(e);
        takeBack();
        return false;
    } catch (const std::exception&) {
        takeBack();
        throw;
    }
}

// ---------------------------------------------------------------------------------------
// RunEmulatorOnly

LaunchCommand EmulatorOnlyCommand(uint8_t HardWare, int16_t EmuCode)
{
    if (!IsFamilyCode(HardWare, EmuCode))
        return {};
    return AdapterOf(EmuCode)->bareCommand();
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
    // Through the emulator's runner; a start that fails is silent, as it always was, but a
    // runner that can't take the command says why.
    const Emu emu = static_cast<Emu>(EmuCode);
    QString why;
    if (!PrepareRunner(emu, cmd.program, {}, RunnerOf(emu), &why) ||
        !StartDetached(emu, cmd, &why)) {
        if (!why.isEmpty())
            MsgBox(why, MbExclamation, kEmuRunErrorCaption);
    }
}

} // namespace tv
