#pragma once
// How an emulator's program is started on this desktop: directly, through Wine, DOSBox or a
// Java runtime. A runner only wraps the command line that the launch builds for the emulator
// (program, arguments, working directory) in an outer command; it changes none of it, and
// nothing written for the emulator changes by a byte.
//
// The settings live in their own UTF-8 file beside the program, one section per emulator,
// so TORVANE.CFG keeps its fixed bytes.
#include "data/EmuCode.h"
#include "launch/LaunchCommand.h"

#include <QString>
#include <QStringList>
#include <map>
#include <optional>

namespace tv {

// The kinds offered per emulator; Auto reads the program's header.
enum class RunnerKind { Auto, Direct, Wine, DosBox, Java };

// What the first bytes of a program file say it is.
enum class ProgramHeader {
    Missing,   // no such file, or unreadable
    Elf,       // a native program
    Script,    // "#!"
    Pe,        // "MZ" with "PE\0\0" at e_lfanew: a Windows program
    Ne,        // "MZ" with "NE" at e_lfanew: a 16-bit Windows program
    Mz,        // any other "MZ" (DOS programs and DOS extenders, LE/LX included)
    Com,       // ".COM" without a header
    Unknown,   // anything else
};

// Which DOSBox the DOSBox runner speaks to (their command-line flags differ).
enum class DosBoxFlavour { Classic, Staging, X };

struct RunnerSettings {
    RunnerKind kind = RunnerKind::Auto;

    // Wine.
    QString wineProgram;          // "" → "wine" from the search path
    QString winePrefix;           // "" → Wine's own default prefix
    bool japaneseLocale = true;   // LANG and LC_ALL ja_JP.UTF-8 for the emulator
    QString wineDebug = QStringLiteral("-all");
    QString dllOverrides;         // WINEDLLOVERRIDES
    // Optional drive table: "D:=/native/dir" entries; the longest native prefix wins, and
    // "Z:" + the absolute path stays the fallback.
    QStringList driveTable;

    // DOSBox.
    QString dosboxProgram;        // "" → "dosbox" from the search path
    DosBoxFlavour dosboxFlavour = DosBoxFlavour::Classic;

    // Java.
    QString javaProgram;          // "" → the program options' Java runtime, else "java"
    QString jvmArguments;         // blank-separated, before "-jar"

    // Any runner (Direct included): extra arguments of the outer command, before the
    // emulator's, and extra environment entries "NAME=value".
    QString extraArguments;
    QStringList extraEnvironment;

    bool operator==(const RunnerSettings&) const = default;
};

// The runner settings of all thirteen emulators; an emulator without a section has the
// defaults.
using RunnerTable = std::map<Emu, RunnerSettings>;

// The process-wide table, read at start-up and written by the runner dialog.
RunnerTable& Runners();
const RunnerSettings& RunnerOf(Emu emu);

// The settings file beside the program: "TORVANE_RUNNER.INI" (UTF-8, one section per emulator,
// named by the emulator's caption key in the registry).
QString RunnerSettingsPath();
// Reads the file (a missing file gives the defaults, a bad line is skipped); writes it whole
// through a temporary name. Return false when the file can't be written.
RunnerTable LoadRunnerSettings(const QString& path);
bool SaveRunnerSettings(const QString& path, const RunnerTable& table);

// Reads the program's header.
ProgramHeader ReadProgramHeader(const QString& programPath);
// The kind that Auto stands for: ELF or script → Direct, PE/NE → Wine, other MZ and a
// header-less .COM → DOSBox, the j80 road → Java; Unknown/Missing → Direct (as today).
RunnerKind DetectRunner(Emu emu, const QString& programPath);
// The kind a launch uses: the setting, or the detected one for Auto.
RunnerKind EffectiveRunner(Emu emu, const QString& programPath, const RunnerSettings& s);

// The outer command that a launch starts: program, arguments, working directory, the
// environment entries it changes, and the files it generates for the run (a DOSBox
// configuration, its links), which are removed after the run.
struct RunnerCommand {
    QString program;
    QStringList arguments;
    QString workingDir;
    // Only the entries the runner sets ("NAME=value"); the rest of the environment is
    // inherited.
    QStringList environment;
    // The file that takes the process's output (never a pipe: Wine's server outlives the
    // emulator and would hold it open).
    QString outputFile;
    struct GeneratedFile {
        QString path;
        QString text; // empty for a link
        QString linkTarget;
    };
    std::vector<GeneratedFile> generated;
    RunnerKind kind = RunnerKind::Direct;
    // The whole outer command as one shell line, with only the changed environment in front.
    QString shellLine() const;
};

// Wraps the specified command in the runner of `s` for `emu`. An empty optional with `why`
// set when the runner can't take it (a name DOS can't reach, a missing runner program); the
// caller tells the user and starts nothing.
std::optional<RunnerCommand> WrapCommand(Emu emu, const LaunchCommand& specified,
                                         const RunnerSettings& s, QString* why);

} // namespace tv
