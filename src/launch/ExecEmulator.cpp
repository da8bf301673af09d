#include "launch/ExecEmulator.h"
#include "data/Cfg.h"
#include "launch/EmuAdapter.h"
#include "launch/MainWindowLink.h"
#include "launch/Runner.h"
#include "platform/KeySend.h"
#include "platform/Platform.h"
#include "util/SubFunction.h"

#include <QDir>
#include <QFile>
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
        r->started(cmd, nullptr, false);
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

namespace {

// The outer command on a process: its environment over ours, stdin from nothing, stdout and
// stderr appended to its output file (emptied first).
void Configure(QProcess& p, const RunnerCommand& rc)
{
    p.setProgram(rc.program);
    p.setArguments(rc.arguments);
    p.setWorkingDirectory(rc.workingDir.isEmpty() ? QDir::currentPath() : rc.workingDir);
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    for (const QString& e : rc.environment) {
        const qsizetype eq = e.indexOf(u'=');
        if (eq > 0)
            env.insert(e.left(eq), e.mid(eq + 1));
    }
    p.setProcessEnvironment(env);
    p.setStandardInputFile(QProcess::nullDevice());
    if (rc.outputFile.isEmpty()) {
        p.setProcessChannelMode(QProcess::ForwardedChannels);
        return;
    }
    QFile out(rc.outputFile);
    if (out.open(QIODevice::WriteOnly | QIODevice::Truncate))
        out.close();
    p.setStandardOutputFile(rc.outputFile, QIODevice::Append);
    p.setStandardErrorFile(rc.outputFile, QIODevice::Append);
}

} // namespace

bool EmuProcess::start(const RunnerCommand& cmd, const LaunchCommand* specified)
{
    if (ProcessRecorder* r = Recorder()) {
        r->started(specified ? *specified : LaunchCommand(cmd.program), &cmd, false);
        recorded_ = true;
        return true;
    }
    proc_ = std::make_unique<QProcess>();
    Configure(*proc_, cmd);
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
        r->started(cmd, nullptr, true);
        return true;
    }
    return QProcess::startDetached(cmd.program, cmd.argumentValues(),
                                   cmd.workingDir.isEmpty() ? QDir::currentPath() : cmd.workingDir);
}

bool StartDetached(Emu emu, const LaunchCommand& cmd, QString* why)
{
    auto outer = WrapCommand(emu, cmd, RunnerOf(emu), why);
    if (ProcessRecorder* r = Recorder(); r && outer) {
        r->started(cmd, &*outer, true);
        return true;
    }
    // The generated files of a detached run stay while it runs: the runner reads them.
    if (!outer || !CreateRunnerFiles(*outer, why))
        return false;
    QProcess p;
    Configure(p, *outer);
    qint64 pid = 0;
    if (!p.startDetached(&pid)) {
        RemoveRunnerFiles(*outer);
        return false;
    }
    NoteRunnerProcess(*outer, pid);
    return true;
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
    // The runner wraps the command; what it generates lives only for this run.
    const Emu emu = static_cast<Emu>(EmuCode);
    QString why;
    auto outer = WrapCommand(emu, CmdLine, RunnerOf(emu), &why);
    if (!outer || !CreateRunnerFiles(*outer, &why)) {
        EnableMain(true);
        throw EmulatorStartError(CmdLine.program, why);
    }
    EmuProcess proc;
    if (!proc.start(*outer, &CmdLine)) {
        // The launch ends here; a main window left disabled could never be used again.
        RemoveRunnerFiles(*outer);
        EnableMain(true);
        // The runner itself, or the emulator when it starts directly, is what failed.
        throw EmulatorStartError(outer->program, StartFailureCause(LaunchCommand(outer->program)));
    }
    // Should the launcher die during the run, a later launch sweeps the files once it has ended.
    NoteRunnerProcess(*outer, proc.pid());
    SetKeyTarget(proc.pid());
    SetClipSettle(outer->kind == RunnerKind::Wine ? kWineClipSettleMs : 0);

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

    SetClipSettle(0);
    SetKeyTarget(0);
    RemoveRunnerFiles(*outer);
    EnableMain(true);
}

} // namespace tv
