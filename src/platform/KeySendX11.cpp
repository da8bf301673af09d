// XTest key injection and the waits around it. The keys go to whatever window has the input
// focus; the server takes each event before the next is sent (XSync), and a sequence counts
// as handled when the focused client answers a _NET_WM_PING sent behind it: a client handles
// its events in order, so the answer comes after the keys. While waiting, the program's own
// events are served, so a target that pastes can fetch the clipboard text from us.
#include "platform/KeySend.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QGuiApplication>

#include <X11/XKBlib.h>
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

#include <thread>

namespace tv::detail {

namespace {

// How long a sequence waits for the target's answer before it goes on regardless.
constexpr int kHandledWaitMs = 3000;

struct X11 {
    Display* dpy = nullptr;
    Window root = 0;
    Atom wmProtocols = 0, netWmPing = 0, netWmPid = 0;
};

X11& Conn()
{
    static X11 x;
    static bool tried = false;
    if (tried)
        return x;
    tried = true;
    // Only when the program itself runs on X11: offscreen test runs record instead.
    if (QGuiApplication::platformName() != QLatin1String("xcb"))
        return x;
    Display* d = XOpenDisplay(nullptr);
    if (!d)
        return x;
    int ev = 0, err = 0, major = 0, minor = 0;
    if (!XTestQueryExtension(d, &ev, &err, &major, &minor)) {
        XCloseDisplay(d);
        return x;
    }
    x.dpy = d;
    x.root = DefaultRootWindow(d);
    x.wmProtocols = XInternAtom(d, "WM_PROTOCOLS", False);
    x.netWmPing = XInternAtom(d, "_NET_WM_PING", False);
    x.netWmPid = XInternAtom(d, "_NET_WM_PID", False);
    // Ping answers go to the root window with the (sub)structure-notify masks.
    XSelectInput(d, x.root, SubstructureNotifyMask | StructureNotifyMask);
    XSync(d, False);
    return x;
}

void Drain(X11& x)
{
    while (XPending(x.dpy)) {
        XEvent e;
        XNextEvent(x.dpy, &e);
    }
}

Window Parent(X11& x, Window w)
{
    Window rootRet = 0, parent = 0, *children = nullptr;
    unsigned int n = 0;
    if (!XQueryTree(x.dpy, w, &rootRet, &parent, &children, &n))
        return 0;
    if (children)
        XFree(children);
    return parent;
}

Window Focus(X11& x)
{
    Window w = 0;
    int revert = 0;
    XGetInputFocus(x.dpy, &w, &revert);
    return w == PointerRoot ? 0 : w;
}

int64_t WindowPid(X11& x, Window w)
{
    Atom type = 0;
    int format = 0;
    unsigned long count = 0, after = 0;
    unsigned char* data = nullptr;
    int64_t pid = 0;
    if (XGetWindowProperty(x.dpy, w, x.netWmPid, 0, 1, False, XA_CARDINAL, &type, &format, &count,
                           &after, &data) == Success &&
        data) {
        if (format == 32 && count == 1)
            pid = static_cast<int64_t>(*reinterpret_cast<unsigned long*>(data));
        XFree(data);
    }
    return pid;
}

bool TakesPing(X11& x, Window w)
{
    Atom* protocols = nullptr;
    int n = 0;
    bool yes = false;
    if (XGetWMProtocols(x.dpy, w, &protocols, &n)) {
        for (int i = 0; i < n; ++i)
            yes = yes || protocols[i] == x.netWmPing;
        XFree(protocols);
    }
    return yes;
}

// The focused window or its nearest ancestor for which `pred` holds; 0 when none.
template <class Pred> Window FocusedAncestor(X11& x, Pred pred)
{
    for (Window w = Focus(x); w && w != x.root; w = Parent(x, w)) {
        if (pred(w))
            return w;
    }
    return 0;
}

void Serve()
{
    QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
}

void Fake(X11& x, KeyCode code, bool press)
{
    XTestFakeKeyEvent(x.dpy, code, press ? True : False, CurrentTime);
    XSync(x.dpy, False);
}

KeySym Sym(const QString& key)
{
    static const std::pair<const char*, KeySym> named[] = {
        {"ENTER", XK_Return},      {"TAB", XK_Tab},     {"ESC", XK_Escape},  {"BS", XK_BackSpace},
        {"DEL", XK_Delete},        {"INS", XK_Insert},  {"HOME", XK_Home},   {"END", XK_End},
        {"PGUP", XK_Prior},        {"PGDN", XK_Next},   {"UP", XK_Up},       {"DOWN", XK_Down},
        {"LEFT", XK_Left},         {"RIGHT", XK_Right}, {"SPACE", XK_space}, {"BREAK", XK_Break},
        {"CAPSLOCK", XK_Caps_Lock}};
    for (const auto& [name, sym] : named) {
        if (key == QLatin1String(name))
            return sym;
    }
    if (key.size() >= 2 && key[0] == QLatin1Char('F')) {
        bool ok = false;
        int n = key.mid(1).toInt(&ok);
        if (ok && n >= 1 && n <= 16)
            return XK_F1 + (n - 1);
    }
    if (key.size() == 1) {
        QChar c = key[0];
        if (c >= QLatin1Char('A') && c <= QLatin1Char('Z'))
            return XK_a + (c.unicode() - 'A');
        return static_cast<KeySym>(c.unicode()); // Latin-1 keysyms equal their code
    }
    return NoSymbol;
}

// Waits for the answer of the focused client to a ping sent now.
void WaitHandled(X11& x)
{
    Window w = FocusedAncestor(x, [&](Window c) { return TakesPing(x, c); });
    if (!w) {
        // Nobody to ask: give the target a moment and serve our own events meanwhile.
        QElapsedTimer t;
        t.start();
        while (t.elapsed() < 50)
            Serve();
        return;
    }
    static long cookie = 0;
    const long mine = ++cookie;
    Drain(x);
    XEvent ev{};
    ev.xclient.type = ClientMessage;
    ev.xclient.window = w;
    ev.xclient.message_type = x.wmProtocols;
    ev.xclient.format = 32;
    ev.xclient.data.l[0] = static_cast<long>(x.netWmPing);
    ev.xclient.data.l[1] = mine;
    ev.xclient.data.l[2] = static_cast<long>(w);
    XSendEvent(x.dpy, w, False, NoEventMask, &ev);
    XSync(x.dpy, False);
    QElapsedTimer t;
    t.start();
    while (t.elapsed() < kHandledWaitMs) {
        while (XPending(x.dpy)) {
            XEvent e;
            XNextEvent(x.dpy, &e);
            if (e.type == ClientMessage && e.xclient.message_type == x.wmProtocols &&
                static_cast<Atom>(e.xclient.data.l[0]) == x.netWmPing &&
                e.xclient.data.l[1] == mine)
                return;
        }
        Serve();
    }
}

} // namespace

bool X11Available()
{
    return Conn().dpy != nullptr;
}

bool X11WaitForFocus(int64_t pid, int timeoutMs)
{
    X11& x = Conn();
    if (!x.dpy)
        return false;
    QElapsedTimer t;
    t.start();
    for (;;) {
        if (FocusedAncestor(x, [&](Window w) {
                const int64_t owner = WindowPid(x, w);
                return owner == pid || (owner > 0 && ProcessDescendsFrom(owner, pid));
            }))
            return true;
        if (t.elapsed() >= timeoutMs)
            return false;
        Serve();
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

bool X11SendStrokes(const std::vector<KeyStroke>& strokes, bool wait)
{
    X11& x = Conn();
    if (!x.dpy)
        return false;
    const KeyCode shift = XKeysymToKeycode(x.dpy, XK_Shift_L);
    const KeyCode ctrl = XKeysymToKeycode(x.dpy, XK_Control_L);
    const KeyCode alt = XKeysymToKeycode(x.dpy, XK_Alt_L);
    bool all = true;
    for (const KeyStroke& s : strokes) {
        KeySym sym = Sym(s.key);
        KeyCode code = sym == NoSymbol ? 0 : XKeysymToKeycode(x.dpy, sym);
        if (!code) {
            all = false;
            continue;
        }
        int mods = s.mods;
        // A sign that sits on the shifted level of its key needs Shift to come out.
        if (XkbKeycodeToKeysym(x.dpy, code, 0, 0) != sym &&
            XkbKeycodeToKeysym(x.dpy, code, 0, 1) == sym)
            mods |= KeyModShift;
        if (mods & KeyModCtrl)
            Fake(x, ctrl, true);
        if (mods & KeyModAlt)
            Fake(x, alt, true);
        if (mods & KeyModShift)
            Fake(x, shift, true);
        Fake(x, code, true);
        Fake(x, code, false);
        if (mods & KeyModShift)
            Fake(x, shift, false);
        if (mods & KeyModAlt)
            Fake(x, alt, false);
        if (mods & KeyModCtrl)
            Fake(x, ctrl, false);
        if (wait)
            WaitHandled(x);
    }
    return all;
}

} // namespace tv::detail
