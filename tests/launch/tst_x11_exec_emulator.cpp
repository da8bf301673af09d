// ExecEmulator on a real X11 display: the test emulator is started through it under the
// emulators' names, takes the keys through XTest, and logs what it received and what the
// clipboard held at each Ctrl+V. The test ends each run by pressing the emulator's exit key
// once the launch has sent everything, which also shows that events are served in the wait.
#include "adapters/Adapters.h"
#include "data/Cfg.h"
#include "launch/ExecEmulator.h"
#include "platform/KeySend.h"
#include "support/ProcessState.h"
#include "support/StubWindow.h"
#include "support/TestEmu.h"

#include <QClipboard>
#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <QTimer>
#include <QWidget>
#include <QtTest>
#include <optional>

using namespace tv;
using namespace tvtest;

namespace {

QStringList KeysOf(const QStringList& notations)
{
    QStringList out;
    for (const QString& n : notations) {
        const auto strokes = ParseKeys(n);
        for (const KeyStroke& s : *strokes)
            out << s.text();
    }
    return out;
}

// The times of the key presses, in order.
std::vector<qint64> KeyTimes(const TestEmuRun& r)
{
    std::vector<qint64> out;
    for (const TestEmuEvent& e : r.events) {
        if (e.kind == QLatin1String("key"))
            out.push_back(e.ms);
    }
    return out;
}

} // namespace

class TstX11ExecEmulator : public QObject {
    Q_OBJECT

private:
    QTemporaryDir root;
    QString emuDir, workDir, logPath;
    std::optional<tvtest::ProcessState> state;

    // Runs one launch; `records` is how many clipboard texts and sequences the launch sends,
    // after which the test presses F12 to end the emulator.
    TestEmuRun Launch(const QString& exe, int16_t code, const QString& p1, const QString& p2,
                      uint8_t alt, const QStringList& args, int records)
    {
        QFile::remove(logPath);
        ClearInputLog();
        LaunchCommand cmd(InstallTestEmu(emuDir, exe));
        cmd.args(args);
        bool exitSent = false;
        QTimer t;
        connect(&t, &QTimer::timeout, [&] {
            if (!exitSent && int(InputLog().size()) >= records) {
                exitSent = true;
                SendKeys(QStringLiteral("{F12}"));
            }
        });
        t.start(20);
        ExecEmulator(cmd, code, p1, p2, alt);
        t.stop();
        auto runs = ReadTestEmuLog(logPath);
        if (runs.size() != 1)
            return {};
        return runs[0];
    }

private slots:
    void initTestCase()
    {
        RegisterAdapters();
        QVERIFY(KeyDeliveryAvailable());
        emuDir = root.filePath("emu");
        workDir = root.filePath("work");
        logPath = root.filePath("emu.log");
        QDir().mkpath(emuDir);
        QDir().mkpath(workDir);
        // The exit after 10 s only keeps a failing run from hanging.
        QVERIFY(WriteTestEmuConfig(emuDir,
                                   {{"log", logPath}, {"exitkey", "F12"}, {"exitafter", "10000"}}));
        state.emplace();
        QDir::setCurrent(workDir);
    }
    void cleanupTestCase() { state.reset(); }
    void init()
    {
        Cfg = CfgRecord{};
        Cfg.M88Dir = emuDir;
    }

    void x88000Tape()
    {
        TestEmuRun r = Launch("X88000.EXE", 4, "ゲーム テープ.T88", {}, 0, {}, 2);
        QCOMPARE(r.keys().join(" "), KeysOf({kKeysX88Tape, "{F12}"}).join(" "));
        QCOMPARE(r.pastes(), QStringList{"ゲーム テープ.T88"});
    }
    void x88000N80AndOtherExtension()
    {
        TestEmuRun r = Launch("X88000.EXE", 4, "PROG.N80", {}, 0, {}, 2);
        QCOMPARE(r.keys().join(" "), KeysOf({kKeysX88N80, "{F12}"}).join(" "));
        QCOMPARE(r.pastes(), QStringList{"PROG.N80"});
        Cfg.X88AllScr = 1;
        r = Launch("X88000.EXE", 4, "DISK.D88", {}, 0, {}, 2);
        QCOMPARE(r.keys().join(" "), KeysOf({kKeysFullScreen, "{F12}"}).join(" "));
    }
    void m88DiskAndFullScreenWithWait0()
    {
        Cfg.M88AllScr = 1;
        Cfg.WinSendWait = 0;
        TestEmuRun r = Launch("M88.EXE", 2, "GAME.D88", {}, 0, {}, 3);
        QCOMPARE(r.keys().join(" "), KeysOf({kKeysM88Disk, kKeysFullScreen, "{F12}"}).join(" "));
        QCOMPARE(r.pastes(), QStringList{"GAME.D88"});
        // Sleep(0): the full-screen key follows the mount at once.
        const auto t = KeyTimes(r);
        QCOMPARE(t.size(), 6u);
        QVERIFY2(t[4] - t[3] < 500, qPrintable(QString::number(t[4] - t[3])));
    }
    void m88TapeBehindFmpanWithWait750()
    {
        Cfg.M88AllScr = 1;
        Cfg.WinSendWait = 750;
        const qint64 t0 = QDateTime::currentMSecsSinceEpoch();
        TestEmuRun r = Launch("M88.EXE", 2, "GAME.T88", {}, 0, {"FMPAN.D88"}, 3);
        QCOMPARE(r.keys().join(" "), KeysOf({kKeysM88Tape, kKeysFullScreen, "{F12}"}).join(" "));
        QCOMPARE(r.pastes(), QStringList{"GAME.T88"});
        // The first key comes after the wait; the full-screen key 750 ms after the mount.
        const auto t = KeyTimes(r);
        QCOMPARE(t.size(), 6u);
        QVERIFY2(t[0] - t0 >= 750, qPrintable(QString::number(t[0] - t0)));
        QVERIFY2(t[4] - t[3] >= 750, qPrintable(QString::number(t[4] - t[3])));
    }
    void m88WithRnd4m88FullScreen()
    {
        Cfg.M88AllScr = 1;
        TestEmuRun r = Launch("M88.EXE", 2, {}, {}, 1, {"GAME.D88"}, 1);
        QCOMPARE(r.keys().join(" "), KeysOf({kKeysRnd4m88FullScreen, "{F12}"}).join(" "));
        QCOMPARE(r.args.value(1), QStringLiteral("GAME.D88"));
    }
    void pc88WinBehindFmpan()
    {
        TestEmuRun r = Launch("PC88WIN.EXE", 3, "GAME.D88", {}, 0, {"FMPAN.D88"}, 2);
        QCOMPARE(r.keys().join(" "), KeysOf({kKeysPc88WinDisk, "{F12}"}).join(" "));
        QCOMPARE(r.pastes(), QStringList{"GAME.D88"});
    }
    void xmillenniumTwoImagesAndFullScreen()
    {
        Cfg.XmilAllScr = 1;
        Cfg.WinSendWait = 0;
        TestEmuRun r = Launch("Xmillennium.exe", 22, "DISK A.D88", "DISK B.D88", 0, {}, 5);
        QCOMPARE(r.keys(), KeysOf({kKeysXmilDisk0, kKeysXmilDisk1, kKeysXmilFullScreen, "{F12}"}));
        // Each paste sees its own image, though the second follows the first at once.
        QCOMPARE(r.pastes(), (QStringList{"DISK A.D88", "DISK B.D88"}));
    }
    void xmillenniumTape()
    {
        TestEmuRun r = Launch("Xmillennium.exe", 22, "GAME.TAP", {}, 0, {}, 2);
        QCOMPARE(r.keys().join(" "), KeysOf({kKeysXmilTape, "{F12}"}).join(" "));
        QCOMPARE(r.pastes(), QStringList{"GAME.TAP"});
    }
    void winX1AndXm7FullScreen()
    {
        Cfg.WinX1AllScr = 1;
        Cfg.Xm7WinAllScr = 1;
        TestEmuRun r = Launch("winx1.exe", 24, "GAME.2D", {}, 0, {}, 3);
        QCOMPARE(r.keys().join(" "), KeysOf({kKeysWinX1Disk, kKeysFullScreen, "{F12}"}).join(" "));
        QCOMPARE(r.pastes(), QStringList{"GAME.2D"});
        r = Launch("XM7.EXE", 12, {}, {}, 0, {"GAME.D77"}, 1);
        QCOMPARE(r.keys().join(" "), KeysOf({kKeysFullScreen, "{F12}"}).join(" "));
    }
    void mainWindowDisabledWhileTheEmulatorRuns()
    {
        QWidget main;
        main.setWindowTitle("main");
        main.show();
        QVERIFY(QTest::qWaitForWindowExposed(&main));
        tvtest::StubWindow window;
        window.onSetEnabled = [&](bool on) { main.setEnabled(on); };
        int ticks = 0;
        bool allDisabled = true;
        QTimer probe;
        connect(&probe, &QTimer::timeout, [&] {
            ++ticks;
            allDisabled = allDisabled && !main.isEnabled();
        });
        probe.start(100);
        TestEmuRun r = Launch("M88.EXE", 2, {}, {}, 0, {"a b \"c\" $d;e 日本語.d88"}, 0);
        probe.stop();
        QVERIFY(main.isEnabled());
        QVERIFY(ticks >= 1);
        QVERIFY(allDisabled);
        QCOMPARE(r.args.value(1), QStringLiteral("a b \"c\" $d;e 日本語.d88"));
        QCOMPARE(r.keys(), QStringList{"F12"});
        QVERIFY(r.exited);
    }

    // For a Wine emulator a clipboard text goes on both selections, and our events are served
    // for the settle time before the keys: a text taken meanwhile by another client arrives.
    void clipSettleServesBothSelections()
    {
        QClipboard* cb = QGuiApplication::clipboard();
        QVERIFY(cb->supportsSelection());
        SetClipSettle(kWineClipSettleMs);
        QElapsedTimer t;
        t.start();
        SetClipText(QStringLiteral("ゲーム 選択.D88"));
        const qint64 ms = t.elapsed();
        SetClipSettle(0);
        QVERIFY(ms >= kWineClipSettleMs);
        QCOMPARE(cb->text(QClipboard::Clipboard), QStringLiteral("ゲーム 選択.D88"));
        QCOMPARE(cb->text(QClipboard::Selection), QStringLiteral("ゲーム 選択.D88"));
        // Without the settle only the clipboard changes, at once.
        t.restart();
        SetClipText(QStringLiteral("PLAIN.D88"));
        QVERIFY(t.elapsed() < kWineClipSettleMs);
        QCOMPARE(cb->text(QClipboard::Clipboard), QStringLiteral("PLAIN.D88"));
        QCOMPARE(cb->text(QClipboard::Selection), QStringLiteral("ゲーム 選択.D88"));
    }
};

QTEST_MAIN(TstX11ExecEmulator)
#include "tst_x11_exec_emulator.moc"
