// The pages of the X1 family's option dialogs on a real display: every control lies inside the
// dialog, has at least the room its contents need, and overlaps no other control. With
// TORVANE_SHOTS_DIR set, each page is also saved as a PNG there.
#include "adapters/fm7x1/EmuOptFMX1.h"
#include "adapters/winx1/frmWinX1Op.h"
#include "adapters/x1emu/frmX1emuOp.h"
#include "adapters/x1r/frmX1rOp.h"
#include "adapters/xmil/frmXmilOp.h"
#include "data/Cfg.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>
#include <QTabBar>
#include <QTest>
#include <QToolButton>

using namespace tv;

class TestFrmX1OpLayout : public QObject {
    Q_OBJECT

    static bool IsLeaf(QWidget* w)
    {
        return qobject_cast<QAbstractButton*>(w) || qobject_cast<QLabel*>(w) ||
               qobject_cast<QLineEdit*>(w) || qobject_cast<QSlider*>(w) ||
               qobject_cast<QComboBox*>(w);
    }

    // Every page of `d`: inside the dialog, each control with its room, none overlapping;
    // the whole dialog fits a 1024x768 screen.
    void CheckPages(OptionDialog& d)
    {
        d.show();
        QVERIFY(QTest::qWaitForWindowExposed(&d));
        QVERIFY2(d.width() <= 1024 && d.height() <= 740,
                 qPrintable(d.objectName() + QStringLiteral(" too large")));
        const QString shots = qEnvironmentVariable("TORVANE_SHOTS_DIR");
        if (!shots.isEmpty())
            QDir().mkpath(shots);
        const QRect inside = d.rect();
        for (int p = 0; p < d.pageCount(); ++p) {
            if (d.tabs())
                d.tabs()->setCurrentIndex(p);
            QTest::qWait(50);
            QList<QWidget*> leaves;
            for (QWidget* w : d.findChildren<QWidget*>()) {
                if (!w->isVisible() || !IsLeaf(w) || qobject_cast<QToolButton*>(w))
                    continue;
                if (w->objectName().startsWith(QStringLiteral("qt_")))
                    continue;
                leaves << w;
            }
            QVERIFY(leaves.size() > 3);
            for (QWidget* w : leaves) {
                const QRect r(w->mapTo(&d, QPoint(0, 0)), w->size());
                QVERIFY2(inside.contains(r), qPrintable(QStringLiteral("%1 page %2: %3 outside")
                                                            .arg(d.objectName())
                                                            .arg(p)
                                                            .arg(w->objectName())));
                const QSize need = w->minimumSizeHint();
                QVERIFY2(w->width() >= need.width() && w->height() >= need.height(),
                         qPrintable(QStringLiteral("%1 page %2: %3 cut off")
                                        .arg(d.objectName())
                                        .arg(p)
                                        .arg(w->objectName())));
            }
            for (int i = 0; i < leaves.size(); ++i)
                for (int j = i + 1; j < leaves.size(); ++j) {
                    const QRect a(leaves[i]->mapTo(&d, QPoint(0, 0)), leaves[i]->size());
                    const QRect b(leaves[j]->mapTo(&d, QPoint(0, 0)), leaves[j]->size());
                    QVERIFY2(
                        !a.intersects(b),
                        qPrintable(QStringLiteral("%1 page %2: %3 overlaps %4")
                                       .arg(d.objectName())
                                       .arg(p)
                                       .arg(leaves[i]->objectName(), leaves[j]->objectName())));
                }
            if (!shots.isEmpty())
                d.grab().save(QStringLiteral("%1/%2_%3.png").arg(shots, d.objectName()).arg(p));
        }
    }

private slots:
    void init() { SetDefaultEmuOptX1(Cfg.CfgEmuOptX1); }

    void xmil()
    {
        frmXmilOp d(0, nullptr);
        CheckPages(d);
    }
    void winx1()
    {
        frmWinX1Op d(0, nullptr);
        CheckPages(d);
    }
    void x1r()
    {
        frmX1rOp d(0, nullptr);
        CheckPages(d);
    }
    void x1emu()
    {
        frmX1emuOp d(0, nullptr);
        CheckPages(d);
    }
};

QTEST_MAIN(TestFrmX1OpLayout)
#include "tst_x11_frmX1OpLayout.moc"
