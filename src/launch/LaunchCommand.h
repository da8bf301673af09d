#pragma once
// A launch command: the program, its arguments and the directory it starts in. Its text form
// is exactly the command line an emulator was given on its home platform; it is started
// directly, without a shell, so names with blanks, quotes or shell signs reach the program
// as one argument each.
#include <QString>
#include <QStringList>
#include <vector>

namespace tv {

struct LaunchArg {
    QString value;
    // Shown in double quotes in the text form (X88000's image); the program gets the bare value.
    bool quoted = false;
    bool operator==(const LaunchArg&) const = default;
};

struct LaunchCommand {
    QString program;
    std::vector<LaunchArg> arguments;
    // Empty: the current directory at the start, which the launch has set to WorkDir.
    QString workingDir;

    LaunchCommand() = default;
    explicit LaunchCommand(const QString& prog) : program(prog) {}

    // Appends an argument; an empty one is left out, as a trimmed command line drops it.
    LaunchCommand& arg(const QString& value, bool quoted = false);
    LaunchCommand& args(const QStringList& values);

    QStringList argumentValues() const;
    // Program and arguments joined by single blanks, quoted arguments in double quotes.
    QString text() const;

    // Reads a command-line text: blanks separate arguments, double quotes group blanks into
    // one argument (and mark it as quoted), there is no escape character.
    static LaunchCommand FromText(const QString& commandLine);

    bool operator==(const LaunchCommand&) const = default;
};

// True for the programs that are Windows or DOS programs (".EXE", ".COM", any case): on
// POSIX they run under Wine and take paths in Wine's form.
bool IsWindowsProgram(const QString& program);

// A path in Wine's form: an absolute native path becomes "Z:" followed by the path with "\"
// separators; a relative name keeps its place and gets "\" separators. While a drive table is
// set, a path under one of its directories takes that drive instead.
QString ToWinePath(const QString& nativePath);

// The same through a drive table of "D:=/native/dir" entries, the longest native directory
// first, "Z:" + the path where none holds it.
QString WinePathOf(const QString& nativePath, const QStringList& driveTable);

// The drive table of the emulator whose command and files are being made (empty: none). The
// launch sets it for an emulator that runs under Wine and clears it afterwards.
void SetWineDriveTable(const QStringList& table);

// The path as the given program takes it: Wine's form for a Windows program, else unchanged.
QString EmuPath(const QString& program, const QString& nativePath);

} // namespace tv
