#pragma once
// The project's test runner (tools/testrunner) in tests: installed under the names of the
// runners in a test's directory, and its log read.
#include <QMap>
#include <QString>
#include <QStringList>
#include <vector>

namespace tvtest {

// The names it plays.
inline const QStringList kRunnerNames{"wine", "winepath", "wineboot", "dosbox", "java"};

QString TestRunnerBinary();

// Links the test runner into `dir` under every name of kRunnerNames; false on failure.
bool InstallTestRunner(const QString& dir);

struct TestRunnerRun {
    QString name;
    qint64 pid = 0;
    QStringList args; // args[0] is the program as started
    QString cwd;
    QMap<QString, QString> env;
    QStringList conf; // the lines of DOSBox's configuration
    QString exec;     // what it handed over to
    QString fail;
};

// The runs recorded in a log file, in order.
std::vector<TestRunnerRun> ReadTestRunnerLog(const QString& path);

} // namespace tvtest
