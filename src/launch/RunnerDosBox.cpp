// The DOSBox runner: a configuration made per launch in a private temporary directory, with
// C: mounted on the working directory and D: on the emulator's directory through ASCII-only
// links, the program started from D: with the command's arguments as they stand, and DOSBox
// left at the end. DOS reaches only ASCII 8.3 names and a tail of 126 characters: a command
// that needs more is refused before anything starts.
#include "launch/Runner.h"

#include "util/Globals.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

namespace tv {

namespace {

// The signs DOS allows in a file name besides letters and digits.
const QString kDosSigns = QStringLiteral("!#$%&'()-@^_`{}~");

bool DosPartOk(const QString& part)
{
    const qsizetype dot = part.indexOf(QLatin1Char('.'));
    const QString stem = dot < 0 ? part : part.left(dot);
    const QString ext = dot < 0 ? QString() : part.mid(dot + 1);
    if (stem.isEmpty() || stem.size() > 8 || ext.size() > 3 || ext.contains(QLatin1Char('.')))
        return false;
    for (QChar c : stem + ext) {
        if (!c.isLetterOrNumber() && !kDosSigns.contains(c))
            return false;
    }
    return true;
}

bool IsOption(const QString& arg)
{
    return arg.startsWith(QLatin1Char('-')) || arg.startsWith(QLatin1Char('/'));
}

// Why DOS can't take an argument: its signs, and for a name its 8.3 form.
QString DosArgProblem(const QString& arg)
{
    for (QChar c : arg) {
        if (c.unicode() < 0x20 || c.unicode() > 0x7E)
            return QStringLiteral("「%1」に半角英数字以外の文字があります。").arg(arg);
        if (c == QLatin1Char('"'))
            return QStringLiteral("「%1」に引用符があります。").arg(arg);
    }
    return IsOption(arg) ? QString() : DosNameProblem(arg);
}

// A directory for the private one whose path DOSBox's configuration can carry as it stands.
QString AsciiTempBase()
{
    const QString base = EnvTmpDir.isEmpty() ? QDir::tempPath() : EnvTmpDir;
    for (QChar c : base) {
        if (c.unicode() <= 0x20 || c.unicode() > 0x7E || c == QLatin1Char('"') ||
            c == QLatin1Char('\''))
            return QStringLiteral("/tmp");
    }
    return base;
}

QStringList FlavourArguments(DosBoxFlavour f, const QString& conf)
{
    switch (f) {
    case DosBoxFlavour::Staging:
        return {QStringLiteral("-conf"), conf};
    case DosBoxFlavour::X:
        return {QStringLiteral("-userconf"), QStringLiteral("-conf"), conf,
                QStringLiteral("-nopromptfolder")};
    case DosBoxFlavour::Classic:
        break;
    }
    return {QStringLiteral("-userconf"), QStringLiteral("-conf"), conf};
}

} // namespace

QString DosNameProblem(const QString& name)
{
    for (QChar c : name) {
        if (c.unicode() < 0x20 || c.unicode() > 0x7E)
            return QStringLiteral("「%1」に半角英数字以外の文字があります。").arg(name);
        if (c == QLatin1Char('"'))
            return QStringLiteral("「%1」に引用符があります。").arg(name);
        if (c == QLatin1Char(' '))
            return QStringLiteral("「%1」に空白があります。").arg(name);
    }
    QString rest = name;
    if (rest.size() >= 2 && rest[1] == QLatin1Char(':'))
        rest = rest.mid(2);
    for (const QString& part : rest.split(QLatin1Char('\\'), Qt::SkipEmptyParts)) {
        if (part != QLatin1String(".") && part != QLatin1String("..") && !DosPartOk(part))
            return QStringLiteral(
                       "「%1」は8.3形式（名前8文字・拡張子3文字まで）の名前ではありません。")
                .arg(name);
    }
    return QString();
}

std::optional<RunnerCommand> WrapDosBox(const LaunchCommand& sp, const RunnerSettings& s,
                                        RunnerCommand rc, QString* why)
{
    auto refuse = [&](const QString& problem) -> std::optional<RunnerCommand> {
        if (why)
            *why = kDosNameText.arg(problem);
        return std::nullopt;
    };
    const QString cDir = !sp.workingDir.isEmpty() ? sp.workingDir
                         : !WorkDir.isEmpty()     ? WorkDir
                                                  : QDir::currentPath();
    const QFileInfo prog(QDir(cDir), sp.program);
    const QString name = prog.fileName();
    if (const QString p = DosNameProblem(name); !p.isEmpty())
        return refuse(p);
    QStringList words;
    for (const LaunchArg& a : sp.arguments) {
        QString p = DosArgProblem(a.value);
        if (p.isEmpty() && a.quoted)
            p = QStringLiteral("「%1」に引用符があります。").arg(a.value);
        if (!p.isEmpty())
            return refuse(p);
        words << a.value;
    }
    const QString tail = words.isEmpty() ? QString() : QLatin1Char(' ') + words.join(u' ');
    if (tail.size() > kDosTailMax)
        return refuse(QStringLiteral("引数が%1文字あり、DOSが渡せる%2文字を超えています。")
                          .arg(tail.size())
                          .arg(kDosTailMax));

    const QString priv = AsciiTempBase() + QStringLiteral("/torvane-run-") +
                         QString::number(QRandomGenerator::system()->generate(), 16);
    const QString conf = priv + QStringLiteral("/dosbox.conf");
    const QString text = QStringLiteral("[autoexec]\n"
                                        "mount c %1/c\n"
                                        "mount d %1/d\n"
                                        "c:\n"
                                        "d:\\%2%3\n"
                                        "exit\n")
                             .arg(priv, name, tail);
    rc.privateDir = priv;
    rc.generated.push_back({priv + QStringLiteral("/c"), QString(), QDir(cDir).absolutePath()});
    rc.generated.push_back({priv + QStringLiteral("/d"), QString(), prog.absolutePath()});
    rc.generated.push_back({conf, text, QString()});
    rc.program = s.dosboxProgram.isEmpty() ? QStringLiteral("dosbox") : s.dosboxProgram;
    rc.arguments = s.extraArguments.split(u' ', Qt::SkipEmptyParts);
    rc.arguments << FlavourArguments(s.dosboxFlavour, conf);
    // DOSBox's own files stay out of WorkDir; the program finds C: current.
    rc.workingDir = priv;
    return rc;
}

bool CreateRunnerFiles(const RunnerCommand& cmd, QString* why)
{
    if (cmd.privateDir.isEmpty())
        return true;
    auto fail = [&](const QString& what) {
        if (why)
            *why = kRunnerFilesText.arg(what);
        RemoveRunnerFiles(cmd);
        return false;
    };
    // A directory that stands already is someone else's: never write into it.
    if (QFileInfo::exists(cmd.privateDir) || !QDir().mkdir(cmd.privateDir))
        return fail(cmd.privateDir);
    QFile::setPermissions(cmd.privateDir,
                          QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    for (const RunnerCommand::GeneratedFile& g : cmd.generated) {
        if (!g.linkTarget.isEmpty()) {
            if (!QFile::link(g.linkTarget, g.path))
                return fail(g.path);
            continue;
        }
        QFile f(g.path);
        const QByteArray bytes = g.text.toUtf8();
        if (!f.open(QIODevice::WriteOnly | QIODevice::NewOnly) || f.write(bytes) != bytes.size())
            return fail(g.path);
    }
    return true;
}

void RemoveRunnerFiles(const RunnerCommand& cmd)
{
    if (cmd.privateDir.isEmpty())
        return;
    // One by one: a link goes, never what it points at.
    for (const RunnerCommand::GeneratedFile& g : cmd.generated)
        QFile::remove(g.path);
    QDir().rmdir(cmd.privateDir);
}

} // namespace tv
