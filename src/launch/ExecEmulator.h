#pragma once
// The run of an outside emulator: start it, type what its command line can't carry, switch
// it to full screen, and wait for its end while the main window stays disabled but keeps
// serving its events.
#include "data/EmuCode.h"
#include "launch/LaunchCommand.h"
#include "launch/StartFailure.h"

#include <QString>
#include <cstdint>
#include <functional>
#include <memory>
#include <stdexcept>

class QProcess;

namespace tv {

struct RunnerCommand;

// The exit code a process has while it is still running.
inline constexpr int kStillActive = 259;

// A dry run takes the place of the processes a launch starts: each start is handed to it
// instead, and the process counts as ended at once with code 0. Null: processes start.
class ProcessRecorder {
public:
    virtual ~ProcessRecorder() = default;
    // The emulator's specified command (`detached` false, waited for), or a program started
    // beside it; `outer` is the runner's command that would have been started, when there is one.
    virtual void started(const LaunchCommand& cmd, const RunnerCommand* outer, bool detached) = 0;
};
// Installs `recorder` (null: none) and returns the one it replaces.
ProcessRecorder* InstallProcessRecorder(ProcessRecorder* recorder);

// An emulator process started from a launch command, in the current directory unless the
// command names one. Its output goes where the program's own goes; started from a runner's
// outer command, the runner's environment reaches it and its output goes to the runner's file
// (never a pipe, which a Wine server outliving the emulator would hold open).
class EmuProcess {
public:
    EmuProcess();
    ~EmuProcess();
    EmuProcess(const EmuProcess&) = delete;
    EmuProcess& operator=(const EmuProcess&) = delete;

    bool start(const LaunchCommand& cmd);
    // `specified` is the command the runner wraps, for a dry run's recorder.
    bool start(const RunnerCommand& cmd, const LaunchCommand* specified = nullptr);
    int64_t pid() const;
    // kStillActive while the process runs, else its exit code (8 bits on POSIX, so a
    // process can't end with the code that means running); a crash gives 1.
    int exitCode();

private:
    std::unique_ptr<QProcess> proc_;
    bool recorded_ = false; // handed to the dry run's recorder
};

// Starts a program without keeping anything of it.
bool StartDetached(const LaunchCommand& cmd);
// The same through the runner of `emu` (RND4M88 goes with M88's); false with `why` set when
// the runner can't take the command.
bool StartDetached(Emu emu, const LaunchCommand& cmd, QString* why = nullptr);

// How long the events are served after a clipboard text is set for a Wine emulator before
// the keys that paste it: Wine's clipboard bridge fetches the text from us meanwhile.
inline constexpr int kWineClipSettleMs = 300;

// The key sequences, by the first row that applies (exposed for the launch's own checks).
inline const QString kKeysX88Tape = QStringLiteral("%ITO^V%O{ENTER}");
inline const QString kKeysX88N80 = QStringLiteral("%IM^V%O");
inline const QString kKeysM88Disk = QStringLiteral("%DC^V%O");
inline const QString kKeysM88Tape = QStringLiteral("%TT^V%O");
inline const QString kKeysPc88WinDisk = QStringLiteral("%D{ENTER}{ENTER}^V%O");
inline const QString kKeysXmilTape = QStringLiteral("{F10}CO^V%O");
inline const QString kKeysXmilDisk0 = QStringLiteral("{F10}0O^V%O");
inline const QString kKeysXmilDisk1 = QStringLiteral("{F10}1O^V%O");
inline const QString kKeysWinX1Disk = QStringLiteral("%FB^V%O");
inline const QString kKeysFullScreen = QStringLiteral("%{ENTER}");
inline const QString kKeysXmilFullScreen = QStringLiteral("{F10}SF");
inline const QString kKeysRnd4m88FullScreen = QStringLiteral("%F");

// Disables the main window, starts CmdLine through the emulator's runner, sends the image names
// and the full-screen keys, starts RND4M88 when asked, waits for the end polling every 200 ms
// with events served, and enables the main window. Throws EmulatorStartError, with the cause,
// when the start fails (the main window is enabled again first).
void ExecEmulator(const LaunchCommand& CmdLine, int16_t EmuCode, const QString& Paste1,
                  const QString& Paste2, uint8_t AltFlag);

} // namespace tv
