// The real program on a display: started from a fresh program directory with a catalogue of
// Japanese titles, the picture pane on and a remembered row, it shows the screenshot of the
// selected title. The screen is written to TORVANE_SHOTS/catalogue_program.png when that
// variable names a directory.
#include "support/CatalogueBytes.h"
#include "support/CatalogueProgram.h"

#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QProcess>
#include <QScreen>
#include <QTest>

class TstX11CatalogueProgram : public QObject {
    Q_OBJECT
private slots:
    void showsTheSelectedTitleWithItsScreenshot()
    {
        tvtest::CatalogueProgram dir;
        QString why;
        QVERIFY2(dir.setUp(&why), qPrintable(why));
        QProcess p;
        QVERIFY(dir.start(p, QStringLiteral("xcb")));
        const bool up = dir.waitUntilUp(p, 15000);
        QTest::qWait(500);
        QScreen* screen = QGuiApplication::primaryScreen();
        QVERIFY(screen);
        const QImage shot = screen->grabWindow(0).toImage().convertToFormat(QImage::Format_RGB32);
        tvtest::CatalogueProgram::stop(p);
        QVERIFY(up);
        QVERIFY(!shot.isNull());
        const QString out = qEnvironmentVariable("TORVANE_SHOTS");
        if (!out.isEmpty())
            QVERIFY(shot.save(out + "/catalogue_program.png"));

        // The solid block in the middle of the title's screenshot stands on the screen.
        const QRgb want = tvtest::CatalogueProgram::shotColour().rgb();
        int hits = 0;
        for (int y = 0; y < shot.height(); y += 2)
            for (int x = 0; x < shot.width(); x += 2)
                if (shot.pixel(x, y) == want)
                    ++hits;
        QVERIFY2(hits > 500, qPrintable(QString::number(hits)));
        QCOMPARE(tvtest::ReadBytes(dir.app() + "/TORVANE.LST"), dir.lstBytes());
    }
};

QTEST_MAIN(TstX11CatalogueProgram)
#include "tst_x11_catalogue_program.moc"
