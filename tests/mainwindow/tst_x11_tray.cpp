// The tray on a real display: without a tray host the program starts as if the option were
// off; with one (trayer, started here) the icon sits in the host with its tip, a left double
// click brings back the last state that was not minimised, and the close entry of its right
// button menu runs the whole exit sequence. The pointer is moved and clicked by the X server's
// test extension, so the events travel the way a user's do.
#include "data/Cfg.h"
#include "mainwindow/frmMain.h"
#include "support/ScriptedMsgBox.h"
#include "util/Globals.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QMenu>
#include <QProcess>
#include <QStandardPaths>
#include <QSystemTrayIcon>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <QToolTip>

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>

namespace {

class Pointer {
public:
    Pointer() : dpy_(XOpenDisplay(nullptr)) {}
    ~Pointer()
    {
        if (dpy_)
            XCloseDisplay(dpy_);
    }
    bool ok() const { return dpy_ != nullptr; }
    void moveTo(const QPoint& p)
    {
        XTestFakeMotionEvent(dpy_, -1, p.x(), p.y(), CurrentTime);
        XFlush(dpy_);
    }
    void click(unsigned button)
    {
        XTestFakeButtonEvent(dpy_, button, True, CurrentTime);
        XTestFakeButtonEvent(dpy_, button, False, CurrentTime);
        XFlush(dpy_);
    }
    // Where the server shows window `w`, in screen coordinates: a window embedded by another
    // program may be placed where its own toolkit doesn't know.
    QRect screenRect(unsigned long w)
    {
        XWindowAttributes a;
        if (!XGetWindowAttributes(dpy_, w, &a))
            return {};
        int x = 0, y = 0;
        ::Window child = 0;
        XTranslateCoordinates(dpy_, w, DefaultRootWindow(dpy_), 0, 0, &x, &y, &child);
        return QRect(x, y, a.width, a.height);
    }
    // Whether X window `w` has been embedded by the tray host: one of its ancestors is a
    // window of the host program (class "trayer"), and a host holds the tray selection.
    bool insideTrayHost(unsigned long w)
    {
        const Atom sel = XInternAtom(dpy_, "_NET_SYSTEM_TRAY_S0", False);
        if (XGetSelectionOwner(dpy_, sel) == None)
            return false;
        ::Window cur = w;
        for (int depth = 0; depth < 16; ++depth) {
            ::Window root = 0, parent = 0, *kids = nullptr;
            unsigned n = 0;
            if (!XQueryTree(dpy_, cur, &root, &parent, &kids, &n))
                return false;
            if (kids)
                XFree(kids);
            if (parent == root || parent == None)
                return false;
            cur = parent;
            XClassHint hint{};
            if (XGetClassHint(dpy_, cur, &hint)) {
                const bool host =
                    QByteArray(hint.res_class ? hint.res_class : "").toLower().contains("trayer") ||
                    QByteArray(hint.res_name ? hint.res_name : "").toLower().contains("trayer");
                if (hint.res_name)
                    XFree(hint.res_name);
                if (hint.res_class)
                    XFree(hint.res_class);
                if (host)
                    return true;
            }
        }
        return false;
    }

private:
    Display* dpy_;
};

} // namespace

using namespace tv;

class TstX11Tray : public QObject {
    Q_OBJECT
    QTemporaryDir root;
    QString app, tmp, temp;
    QProcess trayer;
    Pointer pointer;

    StartupEnv env()
    {
        StartupEnv e;
        e.programDir = app;
        e.executablePath = app + "/torvane";
        e.sleep = [](int) {};
        return e;
    }
    void writeCfg(uint8_t taskRunForm, uint8_t winState)
    {
        CfgRecord c;
        SetDefaultCfg(c);
        c.TaskIn = 1;
        c.TaskRunForm = taskRunForm;
        c.WinChangeFlag = 1;
        c.WinState = winState;
        QFile f(app + "/TORVANE.CFG");
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(EncodeCfg(c));
    }
    CfgRecord readCfg()
    {
        CfgRecord c;
        QFile f(app + "/TORVANE.CFG");
        if (f.open(QIODevice::ReadOnly))
            DecodeCfg(f.readAll(), c);
        return c;
    }
    static QWidget* iconWidget()
    {
        for (QWidget* w : QApplication::topLevelWidgets())
            if (QByteArray(w->metaObject()->className()) == "QSystemTrayIconSys")
                return w;
        return nullptr;
    }

private slots:
    void init()
    {
        QVERIFY(root.isValid());
        QVERIFY(pointer.ok());
        app = root.path() + "/app";
        tmp = root.path() + "/tmp";
        temp = root.path() + "/temp";
        QDir(app).removeRecursively();
        for (const auto& d : {app, tmp, temp})
            QVERIFY(QDir().mkpath(d));
        qputenv("TMP", tmp.toLocal8Bit());
        qputenv("TEMP", temp.toLocal8Bit());
        Cfg = CfgRecord{};
        CfgReady = 0;
        HardWare = 255;
        QCoreApplication::setApplicationVersion(QStringLiteral("1.2.3"));
    }

    // Runs first, before any tray host is there.
    void withoutATrayHostTheProgramStartsNormally()
    {
        QVERIFY(!QSystemTrayIcon::isSystemTrayAvailable());
        writeCfg(1, 0); // tray and hidden start asked for
        tvtest::ScriptedMsgBox boxes;
        frmMain w;
        QVERIFY(w.Load(env()));
        QVERIFY(boxes.calls().empty());
        QVERIFY(w.TrayIcon() == nullptr);
        QTRY_VERIFY(w.isVisible());
        QVERIFY(!w.isMinimized());
        QVERIFY(!w.Title());
        w.close();
        QVERIFY(!QFileInfo::exists(app + "/TORVBOOT"));
        QCOMPARE(int(readCfg().TaskIn), 1); // the option itself stays as the user set it
    }

    void startTheTrayHost()
    {
        QVERIFY2(!QStandardPaths::findExecutable("trayer").isEmpty(), "trayer is not installed");
        trayer.start("trayer", {"--edge", "bottom", "--align", "right", "--widthtype", "request",
                                "--height", "32", "--transparent", "false", "--expand", "false"});
        QVERIFY(trayer.waitForStarted(5000));
        QTRY_VERIFY_WITH_TIMEOUT(QSystemTrayIcon::isSystemTrayAvailable(), 10000);
    }

    void theIconSitsInTheHostAndItsMenuEndsTheProgram()
    {
        writeCfg(0, 2); // remembered maximised
        tvtest::ScriptedMsgBox boxes;
        frmMain w;
        QVERIFY(w.Load(env()));
        QSystemTrayIcon* tray = w.TrayIcon();
        QVERIFY(tray);
        QVERIFY(tray->isVisible());
        QCOMPARE(tray->toolTip(), QStringLiteral("TORVANE  Ver 1.23"));
        QTRY_VERIFY_WITH_TIMEOUT(tray->geometry().width() > 0, 10000);
        QWidget* icon = iconWidget();
        QVERIFY(icon);
        QTRY_VERIFY(pointer.insideTrayHost(icon->winId()));
        // The host may still move the icon while it lays itself out: each try takes the place
        // anew, comes from outside and rests on the icon.
        QPoint at;
        bool tipShown = false;
        for (int attempt = 0; attempt < 8 && !tipShown; ++attempt) {
            const QRect shown = pointer.screenRect(icon->winId());
            QVERIFY(shown.width() > 0 && shown.height() > 0);
            at = shown.center();
            pointer.moveTo(QPoint(5, 5));
            QTest::qWait(100);
            pointer.moveTo(at - QPoint(2, 0));
            QTest::qWait(50);
            pointer.moveTo(at);
            tipShown = QTest::qWaitFor(
                [] { return QToolTip::text() == QStringLiteral("TORVANE  Ver 1.23"); }, 2500);
        }
        QVERIFY2(tipShown, "the tip did not show over the icon");

        // Maximised, then minimised: a double click brings it back maximised.
        QTRY_VERIFY(w.isMaximized());
        QCOMPARE(int(TrayWindowState), 2);
        w.showMinimized();
        QTRY_VERIFY(w.isMinimized());
        QCOMPARE(int(TrayWindowState), 2);
        // While the window is held (a dialog, a drop) the tray does nothing.
        w.setEnabled(false);
        pointer.click(1);
        QThread::msleep(60);
        pointer.click(1);
        QTest::qWait(500);
        QVERIFY(w.isMinimized());
        pointer.click(3);
        QTest::qWait(500);
        QVERIFY(!w.menus.mnuTaskBar->isVisible());
        w.setEnabled(true);
        QTest::qWait(400); // no double click out of the clicks before
        pointer.click(1);
        QThread::msleep(60);
        pointer.click(1);
        QTRY_VERIFY_WITH_TIMEOUT(!w.isMinimized() && w.isMaximized() && w.isVisible(), 10000);

        // The right button: the menu with its two entries; its close runs the exit sequence.
        pointer.click(3);
        QMenu* menu = w.menus.mnuTaskBar;
        QTRY_VERIFY_WITH_TIMEOUT(menu->isVisible(), 10000);
        QCOMPARE(menu->actions().size(), 2);
        QCOMPARE(menu->actions()[0]->text(), QStringLiteral("TORVANE を開く(&O)"));
        QCOMPARE(menu->actions()[1]->text(), QStringLiteral("TORVANE を終了(&X)"));
        QVERIFY(w.menus.mnuTaskBarTORVClose->isEnabled());
        QVERIFY(QFileInfo::exists(app + "/TORVBOOT"));
        const QRect entry = menu->actionGeometry(w.menus.mnuTaskBarTORVClose);
        pointer.moveTo(menu->mapToGlobal(entry.center()));
        QThread::msleep(100);
        pointer.click(1);
        QTRY_VERIFY_WITH_TIMEOUT(!QFileInfo::exists(app + "/TORVBOOT"), 10000);
        QVERIFY(!tray->isVisible());
        const CfgRecord back = readCfg();
        QCOMPARE(int(back.WinState), 2);
        QVERIFY(back.WinWidth > 0);
        QVERIFY(boxes.calls().empty());
    }

    // A hidden start: the icon's double click shows the window in its remembered state, and a
    // remembered minimised state comes back as normal.
    void aHiddenStartComesBackInTheRememberedState_data()
    {
        QTest::addColumn<int>("remembered");
        QTest::addColumn<bool>("maximised");
        QTest::newRow("maximised") << 2 << true;
        QTest::newRow("minimised") << 1 << false;
    }
    void aHiddenStartComesBackInTheRememberedState()
    {
        QFETCH(int, remembered);
        QFETCH(bool, maximised);
        writeCfg(1, uint8_t(remembered));
        tvtest::ScriptedMsgBox boxes;
        frmMain w;
        QVERIFY(w.Load(env()));
        QVERIFY(w.TrayIcon() && w.TrayIcon()->isVisible());
        QTRY_VERIFY(w.isMinimized() || !w.isVisible());
        QCOMPARE(int(TrayWindowState), maximised ? 2 : 0);
        QWidget* icon = iconWidget();
        QVERIFY(icon);
        QTRY_VERIFY_WITH_TIMEOUT(pointer.insideTrayHost(icon->winId()), 10000);
        QTest::qWait(300); // the host lays its icons out
        const QPoint at = pointer.screenRect(icon->winId()).center();
        pointer.moveTo(at);
        QTest::qWait(100);
        pointer.click(1);
        QThread::msleep(60);
        pointer.click(1);
        QTRY_VERIFY_WITH_TIMEOUT(w.isVisible() && !w.isMinimized(), 10000);
        QTRY_COMPARE(w.isMaximized(), maximised);
        w.close();
        QVERIFY(!QFileInfo::exists(app + "/TORVBOOT"));
    }

    // A modal dialog over the window: the tray's menu entries do nothing until it closes.
    void theMenuIsHeldByAModalDialog()
    {
        frmMain w;
        w.show();
        w.SetTaskIcon();
        QMenu* menu = w.menus.mnuTaskBar;
        bool heldOpen = true, heldClose = true;
        QTimer::singleShot(0, [&] {
            menu->popup(QPoint(40, 40));
            heldOpen = menu->isVisible() && !w.menus.mnuTaskBarTORVOpen->isEnabled();
            heldClose = !w.menus.mnuTaskBarTORVClose->isEnabled();
            menu->hide();
            if (QWidget* m = QApplication::activeModalWidget())
                static_cast<QDialog*>(m)->reject();
        });
        QDialog modal(&w);
        modal.exec();
        QVERIFY(heldOpen);
        QVERIFY(heldClose);
        menu->popup(QPoint(40, 40));
        QTRY_VERIFY(menu->isVisible());
        QVERIFY(w.menus.mnuTaskBarTORVOpen->isEnabled());
        QVERIFY(w.menus.mnuTaskBarTORVClose->isEnabled());
        menu->hide();
        w.RemoveTaskIcon();
    }

    void cleanupTestCase()
    {
        if (trayer.state() != QProcess::NotRunning) {
            trayer.terminate();
            if (!trayer.waitForFinished(3000))
                trayer.kill();
        }
    }
};

QTEST_MAIN(TstX11Tray)
#include "tst_x11_tray.moc"
