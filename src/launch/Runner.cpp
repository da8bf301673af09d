// The runners: the outer command around the command a launch builds for an emulator, the
// process-wide table of their settings, and what must stand before a launch may use one
// (its program, a prepared Wine prefix).
#include "launch/Runner.h"

#include "data/EmuRegistry.h"
#include "launch/Launch.h"
#include "launch/MainWindowLink.h"
#include "platform/Platform.h"
#include "util/Globals.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

namespace tv {

// Defined in RunnerDosBox.cpp.
std::optional<RunnerCommand> WrapDosBox(const LaunchCommand& specified, const RunnerSettings& s,
                                        RunnerCommand rc, QString* why);

RunnerTable& Runners()
{
    static RunnerTable table;
    return table;
}

const RunnerSettings& RunnerOf(Emu emu)
{
    static const RunnerSettings defaults;
    const auto it = Runners().find(emu);
    return it == Runners().end() ? defaults : it->second;
}

namespace {

const QString kJapaneseLocale = QStringLiteral("ja_JP.UTF-8");

QStringList SplitBlanks(const QString& text)
{
    return text.split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts);
}

// "java" or "javaw", bare or with ".exe".
bool IsJavaProgram(const QString& program)
{
    QString name = QFileInfo(program).fileName().toLower();
    if (name.endsWith(QLatin1String(".exe")))
        name.chop(4);
    return name == QLatin1String("java") || name == QLatin1String("javaw");
}

// A word as the shell reads it back: bare when it holds only safe signs, else in single
// quotes.
QString ShellWord(const QString& w)
{
    static const QRegularExpression safe(QStringLiteral("^[A-Za-z0-9_@%+=:,./-]+$"));
    if (safe.match(w).hasMatch())
        return w;
    QString q = w;
    q.replace(QLatin1Char('\''), QLatin1String("'\\''"));
    return QLatin1Char('\'') + q + QLatin1Char('\'');
}

// The file that takes the output of an emulator's run, in the temporary directory.
QString OutputFileOf(Emu emu)
{
    const QString base = EnvTmpDir.isEmpty() ? QDir::tempPath() : EnvTmpDir;
    const EmuRow* row = FindEmu(static_cast<int>(emu));
    const QString key = row && row->key ? QString::fromLatin1(row->key) : QStringLiteral("emu");
    return base + QStringLiteral("/torvane-") + key + QStringLiteral(".log");
}

void AddWineEnvironment(const RunnerSettings& s, QStringList& env)
{
    if (!s.winePrefix.isEmpty())
        env << QStringLiteral("WINEPREFIX=") + s.winePrefix;
    if (!s.wineDebug.isEmpty())
        env << QStringLiteral("WINEDEBUG=") + s.wineDebug;
    if (!s.dllOverrides.isEmpty())
        env << QStringLiteral("WINEDLLOVERRIDES=") + s.dllOverrides;
    if (s.japaneseLocale)
        env << QStringLiteral("LANG=") + kJapaneseLocale
            << QStringLiteral("LC_ALL=") + kJapaneseLocale;
}

void WrapWine(const LaunchCommand& sp, const RunnerSettings& s, RunnerCommand& rc)
{
    rc.program = RunnerProgram(RunnerKind::Wine, s, sp);
    rc.arguments = SplitBlanks(s.extraArguments);
    rc.arguments << sp.program << sp.argumentValues();
    AddWineEnvironment(s, rc.environment);
}

void WrapJava(const LaunchCommand& sp, const RunnerSettings& s, RunnerCommand& rc)
{
    rc.program = RunnerProgram(RunnerKind::Java, s, sp);
    rc.arguments = SplitBlanks(s.jvmArguments) + SplitBlanks(s.extraArguments);
    if (!IsJavaProgram(sp.program)) {
        // Another program under Java: a jar is run as one, anything else as a class path.
        if (sp.program.endsWith(QLatin1String(".jar"), Qt::CaseInsensitive))
            rc.arguments << QStringLiteral("-jar");
        rc.arguments << sp.program;
    }
    rc.arguments << sp.argumentValues();
}

} // namespace

QString RunnerCommand::shellLine() const
{
    QStringList words;
    for (const QString& e : environment) {
        const qsizetype eq = e.indexOf(QLatin1Char('='));
        words << (eq > 0 ? e.left(eq + 1) + ShellWord(e.mid(eq + 1)) : ShellWord(e));
    }
    words << ShellWord(program);
    for (const QString& a : arguments)
        words << ShellWord(a);
    return words.join(QLatin1Char(' '));
}

QString RunnerProgram(RunnerKind kind, const RunnerSettings& s, const LaunchCommand& specified)
{
    switch (kind) {
    case RunnerKind::Wine:
        return s.wineProgram.isEmpty() ? QStringLiteral("wine") : s.wineProgram;
    case RunnerKind::DosBox:
        return s.dosboxProgram.isEmpty() ? QStringLiteral("dosbox") : s.dosboxProgram;
    case RunnerKind::Java:
        if (!s.javaProgram.isEmpty())
            return s.javaProgram;
        return IsJavaProgram(specified.program) ? specified.program : QStringLiteral("java");
    case RunnerKind::Auto:
    case RunnerKind::Direct:
        break;
    }
    return specified.program;
}

bool RunnerProgramFound(const QString& program)
{
    if (program.isEmpty())
        return false;
    if (program.contains(QLatin1Char('/'))) {
        const QFileInfo fi(program);
        return fi.isFile() && fi.isExecutable();
    }
    return !QStandardPaths::findExecutable(program).isEmpty();
}

std::optional<RunnerCommand> WrapCommand(Emu emu, const LaunchCommand& specified,
                                         const RunnerSettings& s, QString* why)
{
    RunnerCommand rc;
    rc.kind = EffectiveRunner(emu, specified.program, s);
    rc.workingDir = specified.workingDir;
    rc.outputFile = OutputFileOf(emu);
    switch (rc.kind) {
    case RunnerKind::Wine:
        WrapWine(specified, s, rc);
        break;
    case RunnerKind::Java:
        WrapJava(specified, s, rc);
        break;
    case RunnerKind::DosBox: {
        auto dos = WrapDosBox(specified, s, rc, why);
        if (!dos)
            return std::nullopt;
        rc = *dos;
        break;
    }
    case RunnerKind::Auto:
    case RunnerKind::Direct:
        rc.kind = RunnerKind::Direct;
        rc.program = specified.program;
        rc.arguments = SplitBlanks(s.extraArguments) + specified.argumentValues();
        break;
    }
    for (const QString& e : s.extraEnvironment) {
        if (e.indexOf(QLatin1Char('=')) > 0)
            rc.environment << e;
    }
    // A runner that only keeps the specified program (Java without a runtime of its own) is
    // started as the launch always started it.
    if (rc.kind != RunnerKind::Direct && rc.program != specified.program &&
        !RunnerProgramFound(rc.program)) {
        if (why)
            *why = kRunnerMissingText.arg(rc.program);
        return std::nullopt;
    }
    return rc;
}

// --- Wine ---------------------------------------------------------------------------------

QString WinePrefixOf(const RunnerSettings& s)
{
    if (!s.winePrefix.isEmpty())
        return s.winePrefix;
    const QString env = qEnvironmentVariable("WINEPREFIX");
    if (!env.isEmpty())
        return env;
    return QDir::homePath() + QStringLiteral("/.wine");
}

bool WinePrefixPrepared(const RunnerSettings& s)
{
    // Wine's server writes the registry a few seconds after the last program ended; the
    // stamp of wineboot stands at once.
    const QString prefix = WinePrefixOf(s);
    return QFileInfo(prefix + QStringLiteral("/system.reg")).isFile() ||
           QFileInfo(prefix + QStringLiteral("/.update-timestamp")).isFile();
}

QString WinebootProgram(const RunnerSettings& s)
{
    if (s.wineProgram.contains(QLatin1Char('/'))) {
        const QString beside =
            QFileInfo(s.wineProgram).absolutePath() + QStringLiteral("/wineboot");
        if (QFileInfo(beside).isExecutable())
            return beside;
    }
    return QStringLiteral("wineboot");
}

namespace {

// `wineboot -i` in the prefix, the launch waiting for it with events served. The DLLs that
// would ask to download their installers are left out unless the user named overrides.
bool BootWinePrefix(const RunnerSettings& s, const QString& outputFile)
{
    QProcess p;
    p.setProgram(WinebootProgram(s));
    p.setArguments({QStringLiteral("-i")});
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("WINEPREFIX"), WinePrefixOf(s));
    env.insert(QStringLiteral("WINEDEBUG"), s.wineDebug);
    env.insert(QStringLiteral("WINEDLLOVERRIDES"),
               s.dllOverrides.isEmpty() ? QStringLiteral("mscoree,mshtml=") : s.dllOverrides);
    p.setProcessEnvironment(env);
    p.setStandardInputFile(QProcess::nullDevice());
    p.setStandardOutputFile(outputFile, QIODevice::Append);
    p.setStandardErrorFile(outputFile, QIODevice::Append);
    p.start();
    if (!p.waitForStarted(-1))
        return false;
    QElapsedTimer t;
    t.start();
    while (!p.waitForFinished(200)) {
        DoEvents();
        if (t.elapsed() > 300000) {
            p.kill();
            p.waitForFinished(-1);
            return false;
        }
    }
    return p.exitStatus() == QProcess::NormalExit && WinePrefixPrepared(s);
}

} // namespace

bool PrepareRunner(Emu emu, const QString& programPath, const QStringList& dosNames,
                   const RunnerSettings& s, QString* why)
{
    const RunnerKind kind = EffectiveRunner(emu, programPath, s);
    if (kind == RunnerKind::Direct)
        return true;
    // Java without a runtime of its own takes the one the launch picks, as it always did.
    const bool ownProgram = kind != RunnerKind::Java || !s.javaProgram.isEmpty();
    const QString program = RunnerProgram(kind, s, LaunchCommand(programPath));
    if (ownProgram && program != programPath && !RunnerProgramFound(program)) {
        if (why)
            *why = kRunnerMissingText.arg(program);
        return false;
    }
    if (kind == RunnerKind::DosBox) {
        QStringList names{QFileInfo(programPath).fileName()};
        names << dosNames;
        for (const QString& n : names) {
            const QString problem = n.isEmpty() ? QString() : DosNameProblem(n);
            if (!problem.isEmpty()) {
                if (why)
                    *why = kDosNameText.arg(problem);
                return false;
            }
        }
    }
    if (kind == RunnerKind::Wine && !WinePrefixPrepared(s)) {
        // The window serves its events meanwhile but takes no second launch.
        Window().SetMainEnabled(false);
        Window().SetStatusText(kWinePrepareStatusText);
        const bool ok = BootWinePrefix(s, OutputFileOf(emu));
        Window().SetStatusText(kLaunchStatusText);
        Window().SetMainEnabled(true);
        if (!ok) {
            if (why)
                *why = kWinePrefixText.arg(WinePrefixOf(s));
            return false;
        }
    }
    return true;
}

RunnerKind DetectRunner(Emu emu, const QString& programPath)
{
    if (RowOf(emu).javaArchive)
        return RunnerKind::Java;
    return RunnerForHeader(ReadProgramHeader(programPath));
}

RunnerKind EffectiveRunner(Emu emu, const QString& programPath, const RunnerSettings& s)
{
    return s.kind == RunnerKind::Auto ? DetectRunner(emu, programPath) : s.kind;
}

} // namespace tv
