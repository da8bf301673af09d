#pragma once
// The project's test emulator (tools/testemu) in tests: installed under the outside
// emulators' executable names in a test's emulator directory, configured, and its log read.
#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>
#include <vector>

namespace tvtest {

// The executable names the launch starts, and the helper program RND4M88.
inline const QStringList kEmuExecutables{
    "P88SR.EXE", "M88.EXE",       "PC88WIN.EXE", "X88000.EXE",      "QUASI88.EXE",
    "XM7.EXE",   "EM7.EXE",       "X1R.COM",     "Xmillennium.exe", "X1EMU.EXE",
    "winx1.exe", "WinX1_ika.exe", "RND4M88.EXE"};

// The built test emulator.
QString TestEmuBinary();

// Copies the test emulator into `dir` under `exeName` (a copy, not a link, so that it finds
// its configuration beside that name). Returns the path, or "" on failure.
QString InstallTestEmu(const QString& dir, const QString& exeName);

// Writes `dir`/testemu.ini from key=value pairs (see tools/testemu/main.cpp).
bool WriteTestEmuConfig(const QString& dir, const QMap<QString, QString>& values);

struct TestEmuEvent {
    QString kind; // "key" or "paste"
    qint64 ms = 0;
    QString text;
};

struct TestEmuRun {
    qint64 startMs = 0;
    QString exeName;
    qint64 pid = 0;
    QStringList args; // args[0] is the program as started
    QString cwd;
    QStringList files;
    // "show=": the bytes of each file as the emulator found it at its start; the files that
    // it couldn't read are in `unreadable`.
    QMap<QString, QByteArray> shown;
    QStringList unreadable;
    // "list=": the plain files of each directory at the start, sorted by name.
    QMap<QString, QStringList> listed;
    std::vector<TestEmuEvent> events; // keys and pastes in order
    QStringList done;                 // "action\tname" of the actions done
    bool exited = false;
    int exitCode = -1;

    QStringList keys() const;   // the key texts in order
    QStringList pastes() const; // the pasted texts in order
};

// The runs recorded in a log file, in order (one per start).
std::vector<TestEmuRun> ReadTestEmuLog(const QString& path);

} // namespace tvtest
