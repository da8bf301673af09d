#include "launch/ExecEmulator.h"
#include "data/Cfg.h"
#include "launch/MainWindowLink.h"
#include "platform/KeySend.h"
#include "platform/Platform.h"
#include "util/SubFunction.h"

#include <QDir>
#include <QProcess>

namespace tv {

EmuProcess::EmuProcess() = default;
EmuProcess::~EmuProcess() = default;

bool EmuProcess::start(const LaunchCommand& cmd)
{
    proc_ = std::make_unique<QProcess>();
    proc_->setProgram(cmd.program);
    proc_->setArguments(cmd.argumentValues());
    proc_->setWorkingDirectory(cmd.workingDir.isEmpty() ? QDir::currentPath() : cmd.workingDir);
    proc_->setProcessChannelMode(QProcess::ForwardedChannels);
    proc_->start(QIODevice::ReadOnly);
    if (!proc_->waitForStarted(-1)) {
        proc_.reset();
        return false;
    }
    return true;
}

int64_t EmuProcess::pid() const
{
    return proc_ ? proc_->processId() : 0;
}

int EmuProcess::exitCode()
{
    if (!proc_)
        return 1;
    if (proc_->state() != QProcess::NotRunning)
        proc_->waitForFinished(0);
    if (proc_->state() != QProcess::NotRunning)
        return kStillActive;
    return proc_->exitStatus() == QProcess::NormalExit ? proc_->exitCode() : 1;
}

bool StartDetached(const LaunchCommand& cmd)
{
    return QProcess::startDetached(cmd.program, cmd.argumentValues(),
                                   cmd.workingDir.isEmpty() ? QDir::currentPath() : cmd.workingDir);
}

namespace {

void EnableMain(bool on)
{
    Window().SetMainEnabled(on);
}

int SendWait()
{
    // A negative setting waits not at all.
    return Cfg.WinSendWait > 0 ? Cfg.WinSendWait : 0;
}

void Clip(const QString& text)
{
    SetClipText(text);
}

void Keys(const QString& notation)
{
    SendKeys(notation, true);
}

// Step 3: the image names, by the first row that applies.
void SendImageNames(const LaunchCommand& CmdLine, int16_t EmuCode, const QString& Paste1,
                    const QString& Paste2)
{
    if (Paste1.isEmpty())
        return;
    const QString ext = GetFileExt(Paste1);
    const bool pan = CmdLine.text().toUpper().contains(QLatin1String("FMPAN.D88"));
    switch (EmuCode) {
    case 4:
        Clip(Paste1);
        if (ext == QLatin1String("T88") || ext == QLatin1String("CMT"))
            Keys(kKeysX88Tape);
        else if (ext == QLatin1String("N80"))
            Keys(kKeysX88N80);
        return;
    case 2:
        if (ext != QLatin1String("D88") && ext != QLatin1String("T88"))
            return;
        // The FMPAN disk of the command line runs first; the title is mounted behind it.
        if (pan)
            SleepMs(SendWait());
        Clip(Paste1);
        Keys(ext == QLatin1String("D88") ? kKeysM88Disk : kKeysM88Tape);
        return;
    case 3:
        if (!pan)
            return;
        SleepMs(SendWait());
        Clip(Paste1);
        Keys(kKeysPc88WinDisk);
        return;
    case 22:
        Clip(Paste1);
        Keys(ext == QLatin1String("TAP") ? kKeysXmilTape : kKeysXmilDisk0);
        // The second drive follows at once, with no delay between.
        if (!Paste2.isEmpty()) {
            Clip(Paste2);
            Keys(kKeysXmilDisk1);
        }
        return;
    case 24:
        Clip(Paste1);
        Keys(kKeysWinX1Disk);
        return;
    default:
        return;
    }
}

// Step 5: the full-screen hot key, by the first row that applies.
void SendFullScreen(int16_t EmuCode, uint8_t AltFlag)
{
    QString keys;
    if ((EmuCode == 4 && Cfg.X88AllScr == 1) || (EmuCode == 12 && Cfg.Xm7WinAllScr == 1) ||
        (EmuCode == 24 && Cfg.WinX1AllScr == 1) ||
        (EmuCode == 2 && Cfg.M88AllScr == 1 && AltFlag != 1))
        keys = kKeysFullScreen;
    else if (EmuCode == 22 && Cfg.XmilAllScr == 1)
        keys = kKeysXmilFullScreen;
    else if (EmuCode == 2 && Cfg.M88AllScr == 1 && AltFlag == 1)
        keys = kKeysRnd4m88FullScreen;
    if (keys.isEmpty())
        return;
    SleepMs(SendWait());
    DoEvents();
    Keys(keys);
}

} // namespace

void ExecEmulator(const LaunchCommand& CmdLine, int16_t EmuCode, const QString& Paste1,
                  const QString& Paste2, uint8_t AltFlag)
{
    EnableMain(false);
    EmuProcess proc;
    if (!proc.start(CmdLine)) {
        // The launch ends here; a main window left disabled could never be used again.
        EnableMain(true);
        throw EmulatorStartError(("cannot start " + CmdLine.program).toStdString());
    }
    SetKeyTarget(proc.pid());

    SendImageNames(CmdLine, EmuCode, Paste1, Paste2);

    if (EmuCode == 2 && AltFlag == 1) {
        const QString rnd = VbTrim(Cfg.M88Dir) + QStringLiteral("/RND4M88.EXE");
        if (IsSafeDir(rnd, 2, 0))
            StartDetached(LaunchCommand(rnd));
    }

    SendFullScreen(EmuCode, AltFlag);

    // Poll, sleep, serve events; the exit code itself is not looked at.
    int code = kStillActive;
    do {
        code = proc.exitCode();
        SleepMs(200);
        DoEvents();
    } while (code == kStillActive);

    SetKeyTarget(0);
    EnableMain(true);
}

} // namespace tv
