// The real program on an X11 display with a window manager, as a new user meets it: with no
// TORVANE.CFG it shows the information box above its splash, then the environment settings
// with the defaults; OK stores the file and the main window comes up. The program ends from
// its File menu, by keyboard. The next start reads the file and goes straight to the main
// window, without any box or dialog. A second copy from the same directory is refused with
// its message and leaves the first one alone.
#include "data/Cfg.h"
#include "platform/KeySend.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

#include <X11/Xatom.h>
#include <X11/Xlib.h>

#include <functional>
#include <vector>

using namespace tv;

namespace {

// One window that the window manager shows, as the desktop sees it.
struct Win {
    Window id = 0;
    QString name;
    bool splash = false;
    bool dialog = false;
};

class Desktop {
public:
    Desktop() : dpy_(XOpenDisplay(nullptr)) {}
    ~Desktop()
    {
        if (dpy_)
            XCloseDisplay(dpy_);
    }
    bool ok() const { return dpy_ != nullptr; }

    // The managed windows of process `pid`, from bottom to top of the stacking order.
    std::vector<Win> windows(qint64 pid)
    {
        std::vector<Win> out;
        for (Window w : windowList(atom("_NET_CLIENT_LIST_STACKING"))) {
            if (cardinal(w, atom("_NET_WM_PID")) != pid)
                continue;
            XWindowAttributes a;
            if (!XGetWindowAttributes(dpy_, w, &a) || a.map_state != IsViewable)
                continue;
            Win x;
            x.id = w;
            x.name = utf8(w, atom("_NET_WM_NAME"));
            const std::vector<Atom> types = atoms(w, atom("_NET_WM_WINDOW_TYPE"));
            x.splash = !types.empty() && types[0] == atom("_NET_WM_WINDOW_TYPE_SPLASH");
            x.dialog = !types.empty() && types[0] == atom("_NET_WM_WINDOW_TYPE_DIALOG");
            out.push_back(x);
        }
        return out;
    }

    Window active()
    {
        const std::vector<Window> w = windowList(atom("_NET_ACTIVE_WINDOW"));
        return w.empty() ? 0 : w[0];
    }

private:
    Atom atom(const char* name) { return XInternAtom(dpy_, name, False); }

    std::vector<Window> windowList(Atom prop)
    {
        std::vector<Window> out;
        Atom type;
        int format;
        unsigned long n = 0, after = 0;
        unsigned char* data = nullptr;
        if (XGetWindowProperty(dpy_, DefaultRootWindow(dpy_), prop, 0, 4096, False, XA_WINDOW,
                               &type, &format, &n, &after, &data) == Success &&
            data && format == 32) {
            auto* w = reinterpret_cast<Window*>(data);
            out.assign(w, w + n);
        }
        if (data)
            XFree(data);
        return out;
    }
    std::vector<Atom> atoms(Window w, Atom prop)
    {
        std::vector<Atom> out;
        Atom type;
        int format;
        unsigned long n = 0, after = 0;
        unsigned char* data = nullptr;
        if (XGetWindowProperty(dpy_, w, prop, 0, 64, False, XA_ATOM, &type, &format, &n, &after,
                               &data) == Success &&
            data && format == 32) {
            auto* a = reinterpret_cast<Atom*>(data);
            out.assign(a, a + n);
        }
        if (data)
            XFree(data);
        return out;
    }
    qint64 cardinal(Window w, Atom prop)
    {
        qint64 v = -1;
        Atom type;
        int format;
        unsigned long n = 0, after = 0;
        unsigned char* data = nullptr;
        if (XGetWindowProperty(dpy_, w, prop, 0, 1, False, XA_CARDINAL, &type, &format, &n, &after,
                               &data) == Success &&
            data && n == 1 && format == 32)
            v = static_cast<qint64>(*reinterpret_cast<unsigned long*>(data));
        if (data)
            XFree(data);
        return v;
    }
    QString utf8(Window w, Atom prop)
    {
        QString s;
        Atom type;
        int format;
        unsigned long n = 0, after = 0;
        unsigned char* data = nullptr;
        if (XGetWindowProperty(dpy_, w, prop, 0, 1024, False, atom("UTF8_STRING"), &type, &format,
                               &n, &after, &data) == Success &&
            data && format == 8)
            s = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<int>(n));
        if (data)
            XFree(data);
        return s;
    }

    Display* dpy_;
};

const QString kNoCfgCaption = QStringLiteral("TORVANE.CFG がありません");
const QString kCfgCaption = QStringLiteral("Emulator基本設定");

int IndexOf(const std::vector<Win>& ws, const std::function<bool(const Win&)>& pred)
{
    for (size_t i = 0; i < ws.size(); ++i)
        if (pred(ws[i]))
            return static_cast<int>(i);
    return -1;
}
bool IsMain(const Win& w)
{
    return !w.splash && !w.dialog && w.name.startsWith(QStringLiteral("TORVANE"));
}

} // namespace

class TstX11TorvaneFirstStart : public QObject {
    Q_OBJECT

private:
    QTemporaryDir root;
    QString app, tmp, temp;
    Desktop desk;
    QStringList seen;        // every window name met while waiting
    QStringList seenDialogs; // and those of the dialogs among them

    void start(QProcess& p)
    {
        QProcessEnvironment e = QProcessEnvironment::systemEnvironment();
        e.insert("TMP", tmp);
        e.insert("TEMP", temp);
        e.insert("QT_QPA_PLATFORM", "xcb");
        p.setProcessEnvironment(e);
        p.setWorkingDirectory(root.path());
        p.start(app + "/torvane", {});
        QVERIFY(p.waitForStarted(5000));
        SetKeyTarget(p.processId());
    }

    // Waits until `pred` holds for the windows of `p`; what was shown meanwhile is in `seen`.
    std::vector<Win> waitFor(QProcess& p, const std::function<bool(const std::vector<Win>&)>& pred,
                             int timeoutMs = 20000)
    {
        QElapsedTimer t;
        t.start();
        std::vector<Win> ws;
        while (t.elapsed() < timeoutMs && p.state() == QProcess::Running) {
            ws = desk.windows(p.processId());
            for (const Win& w : ws) {
                if (!seen.contains(w.name))
                    seen << w.name;
                if (w.dialog && !seenDialogs.contains(w.name))
                    seenDialogs << w.name;
            }
            if (pred(ws))
                return ws;
            QThread::msleep(30);
        }
        return {};
    }

    // The window of that name is active, then the keys go.
    bool keysTo(QProcess& p, const QString& name, const QString& keys)
    {
        return keysTo(
            p, [&](const Win& w) { return w.name == name; }, keys);
    }
    bool keysTo(QProcess& p, const std::function<bool(const Win&)>& which, const QString& keys)
    {
        const auto ws = waitFor(p, [&](const std::vector<Win>& ws) {
            const int i = IndexOf(ws, which);
            return i >= 0 && desk.active() == ws[i].id;
        });
        if (ws.empty())
            return false;
        return SendKeys(keys);
    }

    // Ends the program from its File menu and waits for the process.
    void quitByMenu(QProcess& p)
    {
        SetKeyTarget(p.processId());
        const auto ws = waitFor(p, [&](const std::vector<Win>& ws) {
            const int i = IndexOf(ws, IsMain);
            return i >= 0 && desk.active() == ws[i].id;
        });
        QVERIFY(!ws.empty());
        QVERIFY(SendKeys(QStringLiteral("%F")));
        QThread::msleep(300);
        QVERIFY(SendKeys(QStringLiteral("X")));
        // The key sending serves events, so the end may have been seen already.
        if (p.state() != QProcess::NotRunning)
            QVERIFY(p.waitForFinished(15000));
        QCOMPARE(p.state(), QProcess::NotRunning);
        QCOMPARE(p.exitStatus(), QProcess::NormalExit);
        QCOMPARE(p.exitCode(), 0);
    }

private slots:
    void initTestCase()
    {
        QVERIFY(root.isValid());
        QVERIFY(desk.ok());
        QVERIFY(KeyDeliveryAvailable());
        app = root.path() + "/app";
        tmp = root.path() + "/tmp";
        temp = root.path() + "/temp";
        for (const auto& d : {app, tmp, temp})
            QVERIFY(QDir().mkpath(d));
        QVERIFY(QFile::copy(QStringLiteral(TORVANE_BIN_DIR) + "/torvane", app + "/torvane"));
        QFile(app + "/torvane").setPermissions(QFileDevice::ExeOwner | QFileDevice::ReadOwner);
    }

    void firstStartAsksForTheSettingsAndComesUp()
    {
        QProcess p;
        start(p);
        // The information box stands above the splash; no main window yet.
        auto ws = waitFor(p, [](const std::vector<Win>& ws) {
            return IndexOf(ws, [](const Win& w) { return w.name == kNoCfgCaption; }) >= 0;
        });
        QVERIFY2(!ws.empty(), qPrintable(seen.join(", ")));
        const int box = IndexOf(ws, [](const Win& w) { return w.name == kNoCfgCaption; });
        const int splash = IndexOf(ws, [](const Win& w) { return w.splash; });
        QVERIFY(splash >= 0);
        QVERIFY(box > splash);
        QCOMPARE(IndexOf(ws, IsMain), -1);
        QVERIFY(!QFileInfo::exists(app + "/TORVANE.CFG"));

        // OK, then the settings with the defaults, above the splash.
        QVERIFY(keysTo(p, kNoCfgCaption, QStringLiteral("{ENTER}")));
        ws = waitFor(p, [](const std::vector<Win>& ws) {
            return IndexOf(ws, [](const Win& w) { return w.name == kCfgCaption; }) >= 0 &&
                   IndexOf(ws, [](const Win& w) { return w.name == kNoCfgCaption; }) < 0;
        });
        QVERIFY2(!ws.empty(), qPrintable(seen.join(", ")));
        QVERIFY(IndexOf(ws, [](const Win& w) { return w.name == kCfgCaption; }) >
                IndexOf(ws, [](const Win& w) { return w.splash; }));
        QCOMPARE(IndexOf(ws, IsMain), -1);

        // Enter takes OK; the store says so in a box of its own.
        QVERIFY(keysTo(p, kCfgCaption, QStringLiteral("{ENTER}")));
        ws = waitFor(p, [](const std::vector<Win>& ws) {
            return IndexOf(ws, [](const Win& w) { return w.dialog && w.name == "TORVANE"; }) >= 0;
        });
        QVERIFY2(!ws.empty(), qPrintable(seen.join(", ")));
        CfgRecord defaults;
        SetDefaultCfg(defaults);
        {
            QFile f(app + "/TORVANE.CFG");
            QVERIFY(f.open(QIODevice::ReadOnly));
            QCOMPARE(f.readAll(), EncodeCfg(defaults));
        }
        QVERIFY(keysTo(
            p, [](const Win& w) { return w.dialog && w.name == "TORVANE"; },
            QStringLiteral("{ENTER}")));

        // The main window, and the splash gone.
        ws = waitFor(p, [](const std::vector<Win>& ws) {
            return IndexOf(ws, IsMain) >= 0 &&
                   IndexOf(ws, [](const Win& w) { return w.splash; }) < 0 && ws.size() == 1;
        });
        QVERIFY2(!ws.empty(), qPrintable(seen.join(", ")));
        QVERIFY(QFileInfo(app + "/TORVBOOT").isDir());

        quitByMenu(p);
        // The exit wrote the record back and removed the working directory.
        QFile f(app + "/TORVANE.CFG");
        QVERIFY(f.open(QIODevice::ReadOnly));
        QCOMPARE(f.size(), qint64(kCfgSize));
        QCOMPARE(f.read(24), QByteArray("TORVANE.CFG Version 0.16"));
        QVERIFY(!QFileInfo::exists(app + "/TORVBOOT"));
    }

    void nextStartGoesStraightToTheMainWindow()
    {
        QVERIFY(QFileInfo::exists(app + "/TORVANE.CFG"));
        seen.clear();
        seenDialogs.clear();
        QProcess p;
        start(p);
        const auto ws =
            waitFor(p, [](const std::vector<Win>& ws) { return ws.size() == 1 && IsMain(ws[0]); });
        QVERIFY2(!ws.empty(), qPrintable(seen.join(", ")));
        // Only the splash and the main window were shown: no box, no dialog.
        QVERIFY2(seenDialogs.isEmpty(), qPrintable(seenDialogs.join(", ")));
        QVERIFY2(seen.contains(QStringLiteral("TORVANE")), qPrintable(seen.join(", ")));
        quitByMenu(p);
        QVERIFY(!QFileInfo::exists(app + "/TORVBOOT"));
    }
    void secondCopyFromTheSameDirectoryIsRefused()
    {
        QProcess first;
        start(first);
        QVERIFY(!waitFor(first, [](const std::vector<Win>& ws) {
                     return ws.size() == 1 && IsMain(ws[0]);
                 }).empty());
        seen.clear();
        seenDialogs.clear();
        QProcess second;
        start(second);
        const auto ws = waitFor(second, [](const std::vector<Win>& ws) {
            return IndexOf(ws, [](const Win& w) { return w.name == "APP Load Error"; }) >= 0;
        });
        QVERIFY2(!ws.empty(), qPrintable(seen.join(", ")));
        QVERIFY(IndexOf(ws, [](const Win& w) { return w.name == "APP Load Error"; }) >
                IndexOf(ws, [](const Win& w) { return w.splash; }));
        QVERIFY(keysTo(second, QStringLiteral("APP Load Error"), QStringLiteral("{ENTER}")));
        // The failure text stays a second on the splash, then the copy ends.
        if (second.state() != QProcess::NotRunning)
            QVERIFY(second.waitForFinished(15000));
        QCOMPARE(second.exitCode(), 1);
        // The first copy runs on with its working directory.
        QCOMPARE(first.state(), QProcess::Running);
        QVERIFY(QFileInfo(app + "/TORVBOOT").isDir());
        quitByMenu(first);
    }
};

QTEST_MAIN(TstX11TorvaneFirstStart)
#include "tst_x11_torvane_first_start.moc"
