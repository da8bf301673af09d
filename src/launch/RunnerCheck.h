#pragma once
// The check of an emulator's runner from the runner dialog ("確認"): whether the runner
// program answers and with which version, whether Wine names WorkDir as the launch does,
// whether the Japanese locale is there, and whether a 32-bit Windows program finds a 32-bit
// Wine. Every outside call goes through one replaceable service, so tests script the answers.
// Also the texts the dialog shows about a program's header and a choice that contradicts it.
#include "data/EmuCode.h"
#include "launch/Runner.h"

#include <QString>
#include <QStringList>

namespace tv {

class RunnerProbe {
public:
    struct Result {
        bool started = false; // false: the program isn't there or can't run
        bool timedOut = false;
        int exitCode = -1;
        QString output; // standard output and error, in that order
    };
    virtual ~RunnerProbe() = default;
    // Runs `program` with `args` and the environment entries `env` ("NAME=value") added to
    // the inherited ones, waiting at most `timeoutMs`.
    virtual Result run(const QString& program, const QStringList& args, const QStringList& env,
                       int timeoutMs) = 0;
    virtual bool exists(const QString& path) = 0;
};

// The installed probe, or the one that runs real programs.
RunnerProbe& Probe();
// Installs `probe` (null: the real one) and returns the one it replaces.
RunnerProbe* InstallProbe(RunnerProbe* probe);

// "自動", "直接", "Wine", "DOSBox", "Java".
QString RunnerKindText(RunnerKind kind);
// What the header says, for a person: "Windows (PE, 32ビット)", "DOS (.COM)", ...
QString ProgramHeaderText(ProgramHeader h, int peBits = 0);
// 16 for an NE program, 32 or 64 for a PE program by its machine, else 0.
int WindowsProgramBits(const QString& programPath);
// The warning when `chosen` contradicts what the header says ("" when it doesn't, and for
// 自動 or a header that says nothing).
QString RunnerMismatchText(Emu emu, ProgramHeader h, RunnerKind chosen);

// The emulator's program as a launch finds it: its directory in the configuration and its
// file there, whatever the case of the name.
QString EmuProgramPath(Emu emu);

// The programs a runner setting names, with the defaults filled in.
QString WineProgramOf(const RunnerSettings& s);
QString WinePathProgramOf(const RunnerSettings& s); // "winepath" beside the Wine program
QString DosBoxProgramOf(const RunnerSettings& s);
QString JavaProgramOf(const RunnerSettings& s);

// The report of "確認" for an emulator with the settings `s` (as the dialog holds them).
QString CheckRunner(Emu emu, const RunnerSettings& s);

} // namespace tv
