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
    Missing, // no such file, or unreadable
    Elf,     // a native program
    Script,  // "#!"
    Pe,      // "MZ" with "PE\0\0" at e_lfanew: a Windows program
    Ne,      // "MZ" with "NE" at e_lfanew: a 16-bit Windows program
    Mz,      // any other "MZ" (DOS programs and DOS extenders, LE/LX included)
    Com,     // ".COM" without a header
    Unknown, // anything else
};

// Which DOSBox the DOSBox runner speaks to (their command-line flags differ).
enum class DosBoxFlavour { Classic, Staging, X };

struct RunnerSettings {
    RunnerKind kind = RunnerKind::Auto;

    // Wine.
    QString wineProgram;        // "" → "wine" from the search path
    QString winePrefix;         // "" → Wine's own default prefix
    bool japaneseLocale = true; // LANG and LC_ALL ja_JP.UTF-8 for the emulator
    QString wineDebug = QStringLiteral("-all");
    QString dllOverrides; // WINEDLLOVERRIDES
    // Optional drive table: "D:=/native/dir" entries; the longest native prefix wins, and
    // "Z:" + the absolute path stays the fallback.
    QStringList driveTable;

    // DOSBox.
    QString dosboxProgram; // "" → "dosbox" from the search path
    DosBoxFlavour dosboxFlavour = DosBoxFlavour::Classic;

    // Java.
    QString javaProgram;  // "" → the program options' Java runtime, else "java"
    QString jvmArguments; // blank-separated, before "-jar"

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

// Reads the program's header; `windowsBits`, when given, gets 16 for an NE program, 32 or 64
// for a PE program by its machine, else 0.
ProgramHeader ReadProgramHeader(const QString& programPath, int* windowsBits = nullptr);
// The kind that Auto stands for: ELF or script → Direct, PE/NE → Wine, other MZ and a
// header-less .COM → DOSBox, the j80 road → Java; Unknown/Missing → Direct (as today).
RunnerKind DetectRunner(Emu emu, const QString& programPath);
// The kind a header stands for, the Java archive aside.
RunnerKind RunnerForHeader(ProgramHeader header);
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
    // The private directory that holds the generated files ("" when there are none).
    QString privateDir;
    // The whole outer command as one shell line, with only the changed environment in front.
    QString shellLine() const;
};

// Wraps the specified command in the runner of `s` for `emu`. An empty optional with `why`
// set when the runner can't take it (a name DOS can't reach, a missing runner program); the
// caller tells the user and starts nothing.
std::optional<RunnerCommand> WrapCommand(Emu emu, const LaunchCommand& specified,
                                         const RunnerSettings& s, QString* why);

// --- What a launch does around the wrapped command ----------------------------------------

// The program a runner kind starts for `emu` (the configured one, else its usual name; the
// specified program for Direct), and whether it can be found (an absolute path that is an
// executable file, or a bare name on the search path).
QString RunnerProgram(RunnerKind kind, const RunnerSettings& s, const LaunchCommand& specified);
bool RunnerProgramFound(const QString& program);

// The Wine prefix a launch uses: the setting, else WINEPREFIX, else ~/.wine; it is prepared
// once "system.reg" or wineboot's ".update-timestamp" stands in it. The wineboot program beside the
// Wine program, else on the search path.
QString WinePrefixOf(const RunnerSettings& s);
bool WinePrefixPrepared(const RunnerSettings& s);
QString WinebootProgram(const RunnerSettings& s);

// A native path in Wine's form through the drive table ("D:=/native/dir" entries, the longest
// native prefix first), falling back to "Z:" + the path; a relative name gets "\" only.
QString WinePathOf(const QString& nativePath, const QStringList& driveTable);

// Why DOS can't reach `name` (a file name, or the path of names of an argument), or "" when
// it can: ASCII only, no quote or blank, each part of at most 8 and 3 characters.
QString DosNameProblem(const QString& name);
// The longest command tail DOS passes to a program.
inline constexpr int kDosTailMax = 126;

// What stands between a launch of `emu` and its runner, checked before anything of the
// user's is touched: the runner program is there, the names DOS must reach are reachable
// (program and images), and a Wine prefix that was never prepared is prepared now
// (`wineboot -i`, with a status text, the launch waiting for it). False with `why` set.
bool PrepareRunner(Emu emu, const QString& programPath, const QStringList& dosNames,
                   const RunnerSettings& s, QString* why);

// Creates the private directory with the generated files and links of a wrapped command;
// removes them again after the run.
bool CreateRunnerFiles(const RunnerCommand& cmd, QString* why);
void RemoveRunnerFiles(const RunnerCommand& cmd);
// Notes the process that uses the files. A detached start keeps its files while it runs (the
// runner reads them then); the next creation removes those of processes that have ended.
void NoteRunnerProcess(const RunnerCommand& cmd, int64_t pid);

// The texts a refused launch shows (caption "Emu実行エラー").
inline const QString kRunnerMissingText =
    QStringLiteral("エミュレータを起動するプログラム「%1」が見つかりません。\r\n\r\n"
                   "インストールするか、ランナー設定でプログラムを指定してください。");
inline const QString kDosNameText =
    QStringLiteral("DOSBoxのDOSから届かない名前があるため、起動できません。\r\n\r\n%1");
inline const QString kWinePrefixText =
    QStringLiteral("Wineの環境「%1」を準備できませんでした。\r\n\r\n"
                   "wineboot -i が失敗しました。ランナー設定を確認してください。");
inline const QString kRunnerFilesText =
    QStringLiteral("DOSBoxの設定ファイルを一時ディレクトリに作れませんでした。\r\n\r\n%1");
inline const QString kWinePrepareStatusText = QStringLiteral("Wine環境を準備中．．");

} // namespace tv
