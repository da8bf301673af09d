#include "launch/ExecEmulator.h"
#include "data/Cfg.h"
#include "launch/EmuAdapter.h"
#include "launch/MainWindowLink.h"
#include "platform/KeySend.h"
#include "platform/Platform.h"
#include "util/SubFunction.h"

#include <QDir>
#include <QProcess>
#include <utility>

namespace tv {

namespace {

ProcessRecorder*& Recorder()
{
    static ProcessRecorder* recorder = nullptr;
    return recorder;
}

} // namespace

ProcessRecorder* InstallProcessRecorder(ProcessRecorder* recorder)
{
    return std::exchange(Recorder(), recorder);
}

EmuProcess::EmuProcess() = default;
EmuProcess::~EmuProcess() = default;

bool EmuProcess::start(const LaunchCommand& cmd)
{
    if (ProcessRecorder* r = Recorder()) {
        r->started(cmd, false);
        recorded_ = true;
        return true;
    }
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
    if (recorded_)
        return 0;
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
    if (ProcessRecorder* r = Recorder()) {
        r->started(cmd, true);
        return true;
    }
    return QProcess::startDetached(cmd.program, cmd.argumentValues(),
                                   cmd.workingDir.isEmpty() ? QDir::currentPath() : cmd.workingDir);
}

namespace {

void EnableMain(bool on)
{
    Window().SetMainEnabled(on);
}

// The full-screen hot key of the emulator, after the delay that lets it finish its start.
void SendFullScreen(const EmuAdapter* adapter, uint8_t AltFlag)
{
    const QString keys = adapter ? adapter->fullScreenKeys(AltFlag) : QString();
    if (keys.isEmpty())
        return;
    SleepMs(SendWaitMs());
    DoEvents();
    SendKeys(keys, true);
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

    // The image names through the emulator's file dialogs, what starts beside it, and its
    // full-screen hot key.
    const EmuAdapter* adapter = AdapterOf(EmuCode);
    if (adapter && !Paste1.isEmpty())
        adapter->sendImageNames(CmdLine, Paste1, Paste2);
    if (adapter)
        adapter->startCompanions(AltFlag);
    SendFullScreen(adapter, AltFlag);

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
