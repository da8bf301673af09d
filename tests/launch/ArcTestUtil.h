#pragma once
// Helpers of the archive tests: fixture paths, file contents, outside archivers.
#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QString>
#include <QStringList>

namespace arctest {

inline QString Fixture(const QString& name)
{
    return QStringLiteral(TORVANE_SOURCE_DIR "/tests/launch/fixtures/") + name;
}

inline QByteArray ReadAll(const QString& path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return QByteArray("<missing>");
    return f.readAll();
}

inline void WriteFile(const QString& path, const QByteArray& data)
{
    QFile f(path);
    if (f.open(QIODevice::WriteOnly | QIODevice::Truncate))
        f.write(data);
}

// The entries of a directory, hidden ones included, sorted.
inline QStringList Entries(const QString& dir)
{
    return QDir(dir).entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

struct ToolRun {
    int exitCode = -1;
    QByteArray out;
};

// Runs an outside program; exit code -1 when it can't be started.
inline ToolRun RunTool(const QString& program, const QStringList& args)
{
    ToolRun r;
    if (QStandardPaths::findExecutable(program).isEmpty())
        return r;
    QProcess p;
    p.setProcessChannelMode(QProcess::MergedChannels);
    p.start(program, args);
    if (!p.waitForFinished(30000))
        return r;
    r.out = p.readAll();
    r.exitCode = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
    return r;
}

// "seq 1 400" as the fixtures' README.TXT holds it.
inline QByteArray Seq400()
{
    QByteArray b;
    for (int i = 1; i <= 400; ++i)
        b += QByteArray::number(i) + '\n';
    return b;
}

} // namespace arctest
