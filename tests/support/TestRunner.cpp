#include "support/TestRunner.h"

#include <QFile>

namespace tvtest {

QString TestRunnerBinary()
{
    return QStringLiteral(TORVANE_BIN_DIR "/testrunner");
}

bool InstallTestRunner(const QString& dir)
{
    bool ok = true;
    for (const QString& name : kRunnerNames) {
        const QString target = dir + QLatin1Char('/') + name;
        QFile::remove(target);
        ok = QFile::link(TestRunnerBinary(), target) && ok;
    }
    return ok;
}

std::vector<TestRunnerRun> ReadTestRunnerLog(const QString& path)
{
    std::vector<TestRunnerRun> runs;
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return runs;
    for (const QByteArray& raw : f.readAll().split('\n')) {
        const QString line = QString::fromUtf8(raw);
        const qsizetype tab = line.indexOf(QLatin1Char('\t'));
        if (tab < 0)
            continue;
        const QString kind = line.left(tab);
        const QString rest = line.mid(tab + 1);
        if (kind == QLatin1String("run")) {
            runs.emplace_back();
            runs.back().name = rest.section(QLatin1Char('\t'), 0, 0);
            runs.back().pid = rest.section(QLatin1Char('\t'), 1, 1).toLongLong();
            continue;
        }
        if (runs.empty())
            continue;
        TestRunnerRun& r = runs.back();
        if (kind == QLatin1String("arg"))
            r.args << rest.section(QLatin1Char('\t'), 1);
        else if (kind == QLatin1String("cwd"))
            r.cwd = rest;
        else if (kind == QLatin1String("env"))
            r.env[rest.section(QLatin1Char('='), 0, 0)] = rest.section(QLatin1Char('='), 1);
        else if (kind == QLatin1String("conf"))
            r.conf << rest;
        else if (kind == QLatin1String("exec"))
            r.exec = rest;
        else if (kind == QLatin1String("fail"))
            r.fail = rest;
    }
    return runs;
}

} // namespace tvtest
