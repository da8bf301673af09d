#include "launch/LaunchCommand.h"

#include <QFileInfo>

namespace tv {

LaunchCommand& LaunchCommand::arg(const QString& value, bool quoted)
{
    if (!value.isEmpty())
        arguments.push_back({value, quoted});
    return *this;
}

LaunchCommand& LaunchCommand::args(const QStringList& values)
{
    for (const QString& v : values)
        arg(v);
    return *this;
}

QStringList LaunchCommand::argumentValues() const
{
    QStringList out;
    for (const LaunchArg& a : arguments)
        out << a.value;
    return out;
}

QString LaunchCommand::text() const
{
    QString t = program;
    for (const LaunchArg& a : arguments) {
        t += QLatin1Char(' ');
        if (a.quoted)
            t += QLatin1Char('"') + a.value + QLatin1Char('"');
        else
            t += a.value;
    }
    return t;
}

LaunchCommand LaunchCommand::FromText(const QString& commandLine)
{
    std::vector<LaunchArg> parts;
    QString cur;
    bool inQuotes = false, any = false, quoted = false;
    for (QChar c : commandLine) {
        if (c == QLatin1Char('"')) {
            inQuotes = !inQuotes;
            any = true;
            quoted = true;
        } else if (c == QLatin1Char(' ') && !inQuotes) {
            if (any)
                parts.push_back({cur, quoted});
            cur.clear();
            any = quoted = false;
        } else {
            cur += c;
            any = true;
        }
    }
    if (any)
        parts.push_back({cur, quoted});
    LaunchCommand cmd;
    if (parts.empty())
        return cmd;
    cmd.program = parts.front().value;
    for (size_t i = 1; i < parts.size(); ++i)
        cmd.arguments.push_back(parts[i]);
    return cmd;
}

bool IsWindowsProgram(const QString& program)
{
    const QString suffix = QFileInfo(program).suffix().toUpper();
    return suffix == QLatin1String("EXE") || suffix == QLatin1String("COM");
}

namespace {

QStringList& DriveTable()
{
    static QStringList table;
    return table;
}

QString ZForm(const QString& nativePath)
{
    QString p = nativePath;
    p.replace(QLatin1Char('/'), QLatin1Char('\\'));
    if (nativePath.startsWith(QLatin1Char('/')))
        return QStringLiteral("Z:") + p;
    return p;
}

} // namespace

void SetWineDriveTable(const QStringList& table)
{
    DriveTable() = table;
}

QString ToWinePath(const QString& nativePath)
{
    return DriveTable().isEmpty() ? ZForm(nativePath) : WinePathOf(nativePath, DriveTable());
}

QString WinePathOf(const QString& nativePath, const QStringList& driveTable)
{
    if (!nativePath.startsWith(QLatin1Char('/')))
        return ZForm(nativePath);
    QString bestDrive, bestDir;
    for (const QString& entry : driveTable) {
        const qsizetype eq = entry.indexOf(QLatin1Char('='));
        if (eq <= 0)
            continue;
        QString dir = entry.mid(eq + 1);
        while (dir.size() > 1 && dir.endsWith(QLatin1Char('/')))
            dir.chop(1);
        const bool under = nativePath == dir || dir == QLatin1String("/") ||
                           nativePath.startsWith(dir + QLatin1Char('/'));
        if (under && dir.size() > bestDir.size()) {
            bestDir = dir;
            bestDrive = entry.left(eq);
        }
    }
    if (bestDrive.isEmpty())
        return ZForm(nativePath);
    QString rest = nativePath.mid(bestDir == QLatin1String("/") ? 0 : bestDir.size());
    rest.replace(QLatin1Char('/'), QLatin1Char('\\'));
    return bestDrive + (rest.isEmpty() ? QStringLiteral("\\") : rest);
}

QString EmuPath(const QString& program, const QString& nativePath)
{
    return IsWindowsProgram(program) ? ToWinePath(nativePath) : nativePath;
}

} // namespace tv
