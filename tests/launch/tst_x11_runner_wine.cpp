// The real Wine, where it is installed: a Windows program of our own (tools/wincheck, built
// with mingw-w64) plays WinX1 and is started by ExecEmulator through the Wine runner on a real
// X display. A fresh prefix is prepared first; the program reports its Wine-form paths (one
// with a blank and Japanese), its working directory, the keys of WinX1's disk sequence and the
// clipboard text it pasted. Skipped, saying why, where Wine or the program is missing.
#include "adapters/Adapters.h"
#include "data/Cfg.h"
#include "launch/ExecEmulator.h"
#include "launch/Runner.h"
#include "platform/KeySend.h"
#include "support/ProcessState.h"
#include "util/Globals.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>
#include <optional>

using namespace tv;

namespace {

const QString kWinCheck = QStringLiteral(TORVANE_BIN_DIR "/wincheck.exe");

// ja_JP.UTF-8 for the program: the system's, else one made with localedef in `dir` and
// reached through LOCPATH. False when neither can be had.
bool JapaneseLocale(const QString& dir)
{
    QProcess p;
    p.start("locale", {"-a"});
    p.waitForFinished(10000);
    const QString all = QString::fromLocal8Bit(p.readAllStandardOutput()).toLower();
    if (all.contains("ja_jp.utf8") || all.contains("ja_jp.utf-8"))
        return true;
    QDir().mkpath(dir);
    const int rc =
        QProcess::execute("localedef", {"-i", "ja_JP", "-f", "UTF-8", dir + "/ja_JP.UTF-8"});
    if (rc != 0 && rc != 1) // 1: made, with warnings
        return false;
    qputenv("LOCPATH", dir.toUtf8());
    return QFileInfo::exists(dir + "/ja_JP.UTF-8");
}

} // namespace

class TstX11RunnerWine : public QObject {
    Q_OBJECT

private:
    QTemporaryDir root;
    QString emuDir, workDir, prefix;
    std::optional<tvtest::ProcessState> state;
    QByteArray home;

private slots:
    void initTestCase()
    {
        if (QStandardPaths::findExecutable("wine").isEmpty())
            QSKIP("wine is not installed (apt-get install wine64): real Wine test skipped");
        if (!QFile::exists(kWinCheck))
            QSKIP("wincheck.exe was not built (apt-get install gcc-mingw-w64-x86-64): real Wine "
                  "test skipped");
        RegisterAdapters();
        QVERIFY(KeyDeliveryAvailable());
        state.emplace();
        emuDir = root.filePath("emu");
        workDir = root.filePath("work");
        prefix = root.filePath("prefix");
        QDir().mkpath(emuDir);
        QDir().mkpath(workDir);
        QDir().mkpath(root.filePath("tmp"));
        EnvTmpDir = EnvTempDir = root.filePath("tmp");
        WorkDir = workDir;
        // Wine keeps its caches under HOME: the test's own.
        home = qgetenv("HOME");
        qputenv("HOME", root.path().toUtf8());
        QVERIFY(JapaneseLocale(root.filePath("locale")));
        QVERIFY(QFile::copy(kWinCheck, emuDir + "/winx1.exe"));
    }
    void cleanupTestCase()
    {
        if (!prefix.isEmpty() && QFileInfo::exists(prefix)) {
            QProcess k;
            QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
            env.insert("WINEPREFIX", prefix);
            k.setProcessEnvironment(env);
            k.start("wineserver", {"-k"});
            k.waitForFinished(10000);
        }
        if (!home.isNull())
            qputenv("HOME", home);
        Runners().clear();
        state.reset();
    }

    void winx1ThroughWine()
    {
        Cfg = CfgRecord{};
        Cfg.WinX1Dir = emuDir;
        Cfg.WinSendWait = 0;
        // Auto reads the program's PE header and takes Wine.
        RunnerSettings s;
        s.winePrefix = prefix;
        Runners()[tv::Emu::WinX1] = s;
        QCOMPARE(EffectiveRunner(tv::Emu::WinX1, emuDir + "/winx1.exe", s), RunnerKind::Wine);

        QElapsedTimer t;
        t.start();
        QString why;
        QVERIFY2(PrepareRunner(tv::Emu::WinX1, emuDir + "/winx1.exe", {}, s, &why),
                 qPrintable(why));
        const qint64 bootMs = t.elapsed();

        const QString disk = QStringLiteral("日本語 名.D88");
        QFile f(workDir + "/" + disk);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write("disk");
        f.close();
        QFile g(workDir + "/GAME.D88");
        QVERIFY(g.open(QIODevice::WriteOnly));
        g.close();
        LaunchCommand cmd(emuDir + "/winx1.exe");
        cmd.arg(ToWinePath(workDir + "/" + disk)).arg("GAME.D88");
        QDir::setCurrent(workDir);
        t.restart();
        ExecEmulator(cmd, 24, disk, QString(), 0);
        const qint64 runMs = t.elapsed();
        std::printf("[ timing ] wineboot -i of a fresh prefix %lld ms, the run with its keys "
                    "%lld ms\n",
                    (long long)bootMs, (long long)runMs);

        QFile r(workDir + "/WINCHECK.TXT");
        QVERIFY(r.open(QIODevice::ReadOnly));
        const QString report = QString::fromUtf8(r.readAll());
        const QString w = ToWinePath(workDir);
        QCOMPARE(report, QString("ARG 1 %1\\日本語 名.D88\r\n"
                                 "OPEN %1\\日本語 名.D88 FOUND\r\n"
                                 "ARG 2 GAME.D88\r\n"
                                 "OPEN GAME.D88 FOUND\r\n"
                                 "CWD %1\r\n"
                                 "KEY Alt+F\r\n"
                                 "KEY B\r\n"
                                 "KEY Ctrl+V\r\n"
                                 "PASTE 日本語 名.D88\r\n"
                                 "KEY Alt+O\r\n"
                                 "END alt-o\r\n")
                             .arg(w));
    }
};

QTEST_MAIN(TstX11RunnerWine)
#include "tst_x11_runner_wine.moc"
