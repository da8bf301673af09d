// A drop from another program onto the real program's list, the way a file manager does it:
// this test is the drag source (a window that starts a drag of file URLs when pressed), the
// pointer is pressed, moved over the program's list and released by the X server's test
// extension, and the program receives the drop through the desktop's drag protocol. Its final
// message is answered with Enter; the catalogue has grown by the dropped images.
#include "platform/KeySend.h"
#include "support/CatalogueBytes.h"
#include "support/CatalogueProgram.h"

#include <QDir>
#include <QDrag>
#include <QElapsedTimer>
#include <QFile>
#include <QMimeData>
#include <QMouseEvent>
#include <QProcess>
#include <QTest>
#include <QThread>
#include <QUrl>
#include <QWidget>
#include <atomic>
#include <thread>

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>

namespace {

// The drag source: a press starts a drag of the files.
class Source : public QWidget {
public:
    QList<QUrl> urls;
    Qt::DropAction result = Qt::IgnoreAction;

protected:
    void mousePressEvent(QMouseEvent*) override
    {
        auto* drag = new QDrag(this);
        auto* data = new QMimeData;
        data->setUrls(urls);
        drag->setMimeData(data);
        result = drag->exec(Qt::CopyAction);
    }
};

// The managed top-level of process `pid` whose name starts with `prefix`, or 0.
::Window FindWindow(Display* d, qint64 pid, const QString& prefix, QRect* where)
{
    const Atom list = XInternAtom(d, "_NET_CLIENT_LIST", False);
    const Atom wmPid = XInternAtom(d, "_NET_WM_PID", False);
    const Atom name = XInternAtom(d, "_NET_WM_NAME", False);
    const Atom utf8 = XInternAtom(d, "UTF8_STRING", False);
    Atom type;
    int format;
    unsigned long n = 0, after = 0;
    unsigned char* data = nullptr;
    ::Window found = 0;
    if (XGetWindowProperty(d, DefaultRootWindow(d), list, 0, 4096, False, XA_WINDOW, &type, &format,
                           &n, &after, &data) != Success ||
        !data)
        return 0;
    auto* ws = reinterpret_cast<::Window*>(data);
    for (unsigned long i = 0; i < n && !found; ++i) {
        unsigned char* p = nullptr;
        unsigned long pn = 0;
        qint64 owner = -1;
        if (XGetWindowProperty(d, ws[i], wmPid, 0, 1, False, XA_CARDINAL, &type, &format, &pn,
                               &after, &p) == Success &&
            p && pn == 1)
            owner = qint64(*reinterpret_cast<unsigned long*>(p));
        if (p)
            XFree(p);
        if (owner != pid)
            continue;
        p = nullptr;
        QString title;
        if (XGetWindowProperty(d, ws[i], name, 0, 1024, False, utf8, &type, &format, &pn, &after,
                               &p) == Success &&
            p)
            title = QString::fromUtf8(reinterpret_cast<const char*>(p), int(pn));
        if (p)
            XFree(p);
        XWindowAttributes a;
        if (!title.startsWith(prefix) || !XGetWindowAttributes(d, ws[i], &a) ||
            a.map_state != IsViewable)
            continue;
        int x = 0, y = 0;
        ::Window child;
        XTranslateCoordinates(d, ws[i], DefaultRootWindow(d), 0, 0, &x, &y, &child);
        *where = QRect(x, y, a.width, a.height);
        found = ws[i];
    }
    XFree(data);
    return found;
}

} // namespace

class TstX11DropProgram : public QObject {
    Q_OBJECT
private slots:
    void aDropFromAnotherProgramRegistersTheFiles()
    {
        tvtest::CatalogueProgram dir;
        QString why;
        QVERIFY2(dir.setUp(&why), qPrintable(why));
        QStringList files;
        for (const char* n : {"DROP_A.D88", "DROP_B.D88", "NOTES.XYZ"}) {
            const QString p = dir.root() + "/drop/" + n;
            QVERIFY(QDir().mkpath(dir.root() + "/drop"));
            QVERIFY(tvtest::WriteBytes(p, QByteArray(64, 'd')));
            files << p;
        }
        QProcess p;
        QVERIFY(dir.start(p, QStringLiteral("xcb")));
        QVERIFY(dir.waitUntilUp(p, 15000));
        Display* d = XOpenDisplay(nullptr);
        QVERIFY(d);
        QRect main;
        QElapsedTimer t;
        t.start();
        while (!FindWindow(d, p.processId(), QStringLiteral("TORVANE"), &main) &&
               t.elapsed() < 10000)
            QTest::qWait(50);
        QVERIFY(main.isValid());
        // The list fills the left of the window below the family's row.
        const QPoint target = main.topLeft() + QPoint(120, main.height() / 2);

        Source src;
        for (const QString& f : files)
            src.urls << QUrl::fromLocalFile(f);
        src.setWindowTitle(QStringLiteral("drag source"));
        src.resize(120, 80);
        src.move(1100, 900);
        src.show();
        QVERIFY(QTest::qWaitForWindowExposed(&src));
        QTest::qWait(300);
        const QPoint from = src.mapToGlobal(src.rect().center());

        // The press starts the drag, whose loop runs until the release: the pointer is moved
        // and released from a thread of its own meanwhile.
        std::atomic<bool> moved{false};
        std::thread hand([&] {
            Display* h = XOpenDisplay(nullptr);
            QThread::msleep(400);
            for (int i = 1; i <= 20; ++i) {
                const QPoint at = from + (target - from) * i / 20;
                XTestFakeMotionEvent(h, -1, at.x(), at.y(), CurrentTime);
                XFlush(h);
                QThread::msleep(40);
            }
            QThread::msleep(300);
            XTestFakeButtonEvent(h, 1, False, CurrentTime);
            XFlush(h);
            XCloseDisplay(h);
            moved = true;
        });
        XTestFakeMotionEvent(d, -1, from.x(), from.y(), CurrentTime);
        XFlush(d);
        QTest::qWait(200);
        XTestFakeButtonEvent(d, 1, True, CurrentTime);
        XFlush(d);
        QTRY_VERIFY_WITH_TIMEOUT(moved.load(), 15000);
        hand.join();
        QTRY_COMPARE_WITH_TIMEOUT(src.result, Qt::CopyAction, 5000);

        // The final message of the program, answered with Enter.
        const int record = 2284;
        const qsizetype before = dir.lstBytes().size();
        t.restart();
        bool grown = false;
        while (t.elapsed() < 15000 && !grown) {
            grown = QFile(dir.app() + "/TORVANE.LST").size() == before + 2 * record;
            QTest::qWait(50);
        }
        QVERIFY2(grown, "the catalogue did not grow by the two images");
        // The progress window stays while the final message waits for its answer.
        QRect progress;
        t.restart();
        while (!FindWindow(d, p.processId(), QStringLiteral("Ｄ＆Ｄリスト登録"), &progress) &&
               t.elapsed() < 5000)
            QTest::qWait(50);
        QVERIFY(progress.isValid());
        tv::SetKeyTarget(p.processId());
        QTest::qWait(500);
        QVERIFY(tv::SendKeys(QStringLiteral("~")));
        t.restart();
        while (FindWindow(d, p.processId(), QStringLiteral("Ｄ＆Ｄリスト登録"), &progress) &&
               t.elapsed() < 5000)
            QTest::qWait(50);
        QVERIFY2(!FindWindow(d, p.processId(), QStringLiteral("Ｄ＆Ｄリスト登録"), &progress),
                 "the final message was not answered");
        QVERIFY(p.state() == QProcess::Running);
        XCloseDisplay(d);
        tvtest::CatalogueProgram::stop(p);
        QVERIFY(!QFile::exists(dir.app() + "/TORVANE.LSB"));
        const QByteArray lst = tvtest::ReadBytes(dir.app() + "/TORVANE.LST");
        QCOMPARE(lst.left(before), dir.lstBytes()); // the titles before the drop are untouched
    }
};

QTEST_MAIN(TstX11DropProgram)
#include "tst_x11_drop_program.moc"
