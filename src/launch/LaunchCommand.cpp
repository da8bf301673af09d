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

QString ToWinePath(const QString& nativePath)
{
    QString p = nativePath;
    p.replace(QLatin1Char('/'), QLatin1Char('\\'));
    if (nativePath.startsWith(QLatin1Char('/')))
        return QStringLiteral("Z:") + p;
    return p;
}

QString EmuPath(const QString& program, const QString& nativePath)
{
    return IsWindowsProgram(program) ? ToWinePath(nativePath) : nativePath;
}

} // namespace tv
