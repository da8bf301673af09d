// The test emulator: a small window that plays one of the outside emulators. Copied under an
// emulator's executable name (M88.EXE, XM7.EXE, Xmillennium.exe, ...), it records what the
// launch gave it and did to it, and on request acts on files as an emulator would.
//
// Log file: the path in the environment variable TESTEMU_LOG; else "log=" of the
// configuration; else "testemu.log" beside the executable. Lines are appended, UTF-8, fields
// separated by tabs, times in milliseconds since the epoch:
//   start <ms> <executable name> <pid>
//   arg <n> <text>                 one line per argument (0 is the program)
//   cwd <path>
//   file <name>                    each plain file in the current directory at the start
//   show <path> <base64>           the bytes of a file named by "show=", at the start;
//                                  "!missing" in place of the bytes when it can't be read
//   list <dir> <name> <name> ...   the plain files of a directory named by "list=", sorted by
//                                  name, at the start (only the directory for an empty one)
//   key <ms> <keys>                each key press, "Alt+I", "Ctrl+V", "ENTER", "F10"
//   paste <ms> <text>              the clipboard text at each Ctrl+V
//   done <ms> <action> <name>      an action of the configuration, when done
//   exit <ms> <code>
//
// Configuration: the file named by TESTEMU_CONFIG, else "testemu.ini" beside the executable
// (lines "key=value", "#" starts a comment), then arguments "--testemu-key=value" (logged as
// arguments like all others). Keys:
//   log=PATH          the log file (see above)
//   show=PATH[,PATH]  records the bytes of each PATH at the start (see "show" above)
//   list=DIR[,DIR]    records the files of each DIR at the start (see "list" above)
//   dump=NAME         writes a PNG screen dump of the window to NAME
//   change=NAME       changes 16 bytes at offset 32 of NAME ("TESTEMU CHANGED!"), and moves
//                     its modification time at least two seconds on
//   save=NAME[,NAME]  writes each NAME as a save state (a short text)
//   delete=NAME       deletes NAME
//   exitafter=MS      exits MS milliseconds after the start
//   exitkey=KEY       exits when KEY (as logged, e.g. "F12", "Ctrl+Q") is pressed
//   exitcode=N        the exit code (default 0)
// Relative names are taken in the current directory. The actions run once the window is up.
#include <QApplication>
#include <QClipboard>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QTextStream>
#include <QTimer>
#include <QVBoxLayout>
#include <QWidget>

namespace {

QMap<QString, QString> g_cfg;
QString g_logPath;
int g_exitCode = 0;

qint64 Now()
{
    return QDateTime::currentMSecsSinceEpoch();
}

void Log(const QStringList& fields)
{
    QFile f(g_logPath);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Append))
        return;
    QString line = fields.join(QLatin1Char('\t'));
    line.replace(QLatin1Char('\n'), QLatin1String("\\n"));
    f.write(line.toUtf8() + '\n');
}

void ReadConfig(const QString& path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return;
    for (const QString& raw : QString::fromUtf8(f.readAll()).split(QLatin1Char('\n'))) {
        QString line = raw.trimmed();
        if (line.isEmpty() || line.startsWith(QLatin1Char('#')))
            continue;
        qsizetype eq = line.indexOf(QLatin1Char('='));
        if (eq > 0)
            g_cfg[line.left(eq).trimmed()] = line.mid(eq + 1).trimmed();
    }
}

QString KeyName(int key)
{
    if (key >= Qt::Key_A && key <= Qt::Key_Z)
        return QString(QChar('A' + (key - Qt::Key_A)));
    if (key >= Qt::Key_0 && key <= Qt::Key_9)
        return QString(QChar('0' + (key - Qt::Key_0)));
    if (key >= Qt::Key_F1 && key <= Qt::Key_F35)
        return QStringLiteral("F%1").arg(key - Qt::Key_F1 + 1);
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return QStringLiteral("ENTER");
    case Qt::Key_Tab:
        return QStringLiteral("TAB");
    case Qt::Key_Escape:
        return QStringLiteral("ESC");
    case Qt::Key_Backspace:
        return QStringLiteral("BS");
    case Qt::Key_Space:
        return QStringLiteral("SPACE");
    default:
        return QKeySequence(key).toString();
    }
}

void Exit()
{
    Log({QStringLiteral("exit"), QString::number(Now()), QString::number(g_exitCode)});
    QCoreApplication::exit(g_exitCode);
}

class EmuWindow : public QWidget {
public:
    EmuWindow()
    {
        setWindowTitle(QFileInfo(QCoreApplication::applicationFilePath()).fileName());
        auto* l = new QVBoxLayout(this);
        auto* label = new QLabel(QStringLiteral("testemu: %1").arg(windowTitle()), this);
        l->addWidget(label);
        resize(320, 200);
        setFocusPolicy(Qt::StrongFocus);
    }

protected:
    void keyPressEvent(QKeyEvent* e) override
    {
        const int key = e->key();
        if (key == Qt::Key_Control || key == Qt::Key_Alt || key == Qt::Key_Shift ||
            key == Qt::Key_Meta || key == Qt::Key_AltGr)
            return;
        QString mods;
        if (e->modifiers() & Qt::ControlModifier)
            mods += QStringLiteral("Ctrl+");
        if (e->modifiers() & Qt::AltModifier)
            mods += QStringLiteral("Alt+");
        if (e->modifiers() & Qt::ShiftModifier)
            mods += QStringLiteral("Shift+");
        const QString keys = mods + KeyName(key);
        Log({QStringLiteral("key"), QString::number(Now()), keys});
        if (keys == QLatin1String("Ctrl+V"))
            Log({QStringLiteral("paste"), QString::number(Now()),
                 QGuiApplication::clipboard()->text()});
        if (g_cfg.contains(QStringLiteral("exitkey")) && keys == g_cfg.value("exitkey"))
            Exit();
    }
    // Alt+letter must reach keyPressEvent rather than end as a shortcut.
    bool event(QEvent* e) override
    {
        if (e->type() == QEvent::ShortcutOverride) {
            e->accept();
            return true;
        }
        return QWidget::event(e);
    }
    void closeEvent(QCloseEvent*) override { Exit(); }
};

void RunActions(EmuWindow& w)
{
    if (g_cfg.contains("dump")) {
        const QString name = g_cfg.value("dump");
        bool ok = w.grab().save(name, "PNG");
        Log({"done", QString::number(Now()), "dump", name + (ok ? "" : " (failed)")});
    }
    if (g_cfg.contains("change")) {
        const QString name = g_cfg.value("change");
        QFile f(name);
        const QDateTime before = QFileInfo(name).lastModified();
        bool ok = f.open(QIODevice::ReadWrite) && f.seek(32) && f.write("TESTEMU CHANGED!") == 16;
        f.close();
        // Catalogue checks compare times in seconds: make the change visible even after a
        // run shorter than that.
        QDateTime later = before.addSecs(2);
        if (ok && QFileInfo(name).lastModified() < later && f.open(QIODevice::ReadWrite)) {
            f.setFileTime(later, QFileDevice::FileModificationTime);
            f.close();
        }
        Log({"done", QString::number(Now()), "change", name + (ok ? "" : " (failed)")});
    }
    if (g_cfg.contains("save")) {
        for (const QString& name : g_cfg.value("save").split(QLatin1Char(','))) {
            QFile f(name.trimmed());
            bool ok = f.open(QIODevice::WriteOnly) && f.write("testemu save state\n") > 0;
            Log({"done", QString::number(Now()), "save", name.trimmed() + (ok ? "" : " (failed)")});
        }
    }
    if (g_cfg.contains("delete")) {
        const QString name = g_cfg.value("delete");
        bool ok = QFile::remove(name);
        Log({"done", QString::number(Now()), "delete", name + (ok ? "" : " (failed)")});
    }
}

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    const QString exeDir = QCoreApplication::applicationDirPath();
    QString cfgPath = qEnvironmentVariable("TESTEMU_CONFIG");
    if (cfgPath.isEmpty())
        cfgPath = exeDir + QStringLiteral("/testemu.ini");
    ReadConfig(cfgPath);
    const QStringList args = QCoreApplication::arguments();
    for (const QString& a : args) {
        if (a.startsWith(QLatin1String("--testemu-")) && a.contains(QLatin1Char('='))) {
            qsizetype eq = a.indexOf(QLatin1Char('='));
            g_cfg[a.mid(10, eq - 10)] = a.mid(eq + 1);
        }
    }
    g_logPath = qEnvironmentVariable("TESTEMU_LOG");
    if (g_logPath.isEmpty())
        g_logPath = g_cfg.value("log", exeDir + QStringLiteral("/testemu.log"));
    g_exitCode = g_cfg.value("exitcode", "0").toInt();

    Log({"start", QString::number(Now()),
         QFileInfo(QCoreApplication::applicationFilePath()).fileName(),
         QString::number(QCoreApplication::applicationPid())});
    // The arguments as the process got them, before any interpretation.
    for (int i = 0; i < argc; ++i)
        Log({"arg", QString::number(i), QString::fromLocal8Bit(argv[i])});
    Log({"cwd", QDir::currentPath()});
    for (const QString& name : QDir::current().entryList(QDir::Files, QDir::Name))
        Log({"file", name});
    // What the emulator finds in the files and directories named, before it acts on anything.
    if (g_cfg.contains("show")) {
        for (const QString& raw : g_cfg.value("show").split(QLatin1Char(','))) {
            const QString path = raw.trimmed();
            QFile f(path);
            if (f.open(QIODevice::ReadOnly))
                Log({"show", path, QString::fromLatin1(f.readAll().toBase64())});
            else
                Log({"show", path, QStringLiteral("!missing")});
        }
    }
    if (g_cfg.contains("list")) {
        for (const QString& raw : g_cfg.value("list").split(QLatin1Char(','))) {
            const QString dir = raw.trimmed();
            QStringList names = QDir(dir).entryList(QDir::Files | QDir::Hidden);
            names.sort(Qt::CaseSensitive);
            Log(QStringList{"list", dir} + names);
        }
    }

    EmuWindow w;
    w.show();
    w.raise();
    w.activateWindow();
    QTimer::singleShot(0, &w, [&w] { RunActions(w); });
    if (g_cfg.contains("exitafter"))
        QTimer::singleShot(g_cfg.value("exitafter").toInt(), &app, [] { Exit(); });
    return app.exec();
}
