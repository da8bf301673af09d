// The pages of the QUASI88 option dialog on a real display: every control lies inside the dialog,
// has at least the room its contents need, and overlaps no other control. With
// TORVANE_SHOTS_DIR set, each page is also saved as a PNG there.
#include "adapters/quasi88/frmQuasi88Op.h"
#include "adapters/quasi88/frmQuasi88Op2.h"
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

class TestFrmQuasi88OpLayout : public QObject {
    Q_OBJECT

    static bool IsLeaf(QWidget* w)
    {
        return qobject_cast<QAbstractButton*>(w) || qobject_cast<QLabel*>(w) ||
               qobject_cast<QLineEdit*>(w) || qobject_cast<QSlider*>(w) ||
               qobject_cast<QComboBox*>(w);
    }

private slots:
    void pagesHaveRoomForEveryControl()
    {
        SetDefaultEmuOpt88(Cfg.CfgEmuOpt88);
        frmQuasi88Op d(0, nullptr);
        d.show();
        QVERIFY(QTest::qWaitForWindowExposed(&d));
        const QString shots = qEnvironmentVariable("TORVANE_SHOTS_DIR");
        if (!shots.isEmpty())
            QDir().mkpath(shots);
        // The dialog fits a screen of 1024 by 768.
        QVERIFY(d.width() <= 1024 && d.height() <= 740);
        const QRect inside = d.rect();
        for (int p = 0; p < d.pageCount(); ++p) {
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
                QVERIFY2(inside.contains(r),
                         qPrintable(QStringLiteral("page %1: %2 outside")
                                        .arg(p)
                                        .arg(w->objectName() + QLatin1Char(' ') +
                                             w->metaObject()->className())));
                const QSize need = w->minimumSizeHint();
                QVERIFY2(w->width() >= need.width() && w->height() >= need.height(),
                         qPrintable(QStringLiteral("page %1: %2 cut off")
                                        .arg(p)
                                        .arg(w->objectName() + QLatin1Char(' ') +
                                             (qobject_cast<QAbstractButton*>(w)
                                                  ? qobject_cast<QAbstractButton*>(w)->text()
                                                  : QString()))));
            }
            for (int i = 0; i < leaves.size(); ++i)
                for (int j = i + 1; j < leaves.size(); ++j) {
                    const QRect a(leaves[i]->mapTo(&d, QPoint(0, 0)), leaves[i]->size());
                    const QRect b(leaves[j]->mapTo(&d, QPoint(0, 0)), leaves[j]->size());
                    QVERIFY2(!a.intersects(b), qPrintable(QStringLiteral("page %1: %2 overlaps %3")
                                                              .arg(p)
                                                              .arg(leaves[i]->objectName(),
                                                                   leaves[j]->objectName())));
                }
            if (!shots.isEmpty())
                d.grab().save(QStringLiteral("%1/frmQuasi88Op_%2_%3.png")
                                  .arg(shots)
                                  .arg(p)
                                  .arg(d.tabs()->tabText(p)));
        }
    }

    void dipDialogHasRoomForEveryControl()
    {
        SetDefaultEmuOpt88(Cfg.CfgEmuOpt88);
        Q88DipWork = Cfg.CfgEmuOpt88.Q88_2Op;
        frmQuasi88Op2 d;
        d.show();
        QVERIFY(QTest::qWaitForWindowExposed(&d));
        QList<QWidget*> leaves;
        for (QWidget* w : d.findChildren<QWidget*>())
            if (w->isVisible() && IsLeaf(w) && !w->objectName().startsWith(QStringLiteral("qt_")))
                leaves << w;
        QCOMPARE(leaves.size(), 13 + 24 + 1 + 2);
        for (QWidget* w : leaves) {
            const QRect r(w->mapTo(&d, QPoint(0, 0)), w->size());
            QVERIFY2(d.rect().contains(r), qPrintable(w->objectName()));
            QVERIFY2(w->width() >= w->minimumSizeHint().width(), qPrintable(w->objectName()));
        }
        for (int i = 0; i < leaves.size(); ++i)
            for (int j = i + 1; j < leaves.size(); ++j) {
                const QRect a(leaves[i]->mapTo(&d, QPoint(0, 0)), leaves[i]->size());
                const QRect b(leaves[j]->mapTo(&d, QPoint(0, 0)), leaves[j]->size());
                QVERIFY2(!a.intersects(b),
                         qPrintable(leaves[i]->objectName() + " " + leaves[j]->objectName()));
            }
        const QString shots = qEnvironmentVariable("TORVANE_SHOTS_DIR");
        if (!shots.isEmpty())
            d.grab().save(shots + QStringLiteral("/frmQuasi88Op2.png"));
    }
};

QTEST_MAIN(TestFrmQuasi88OpLayout)
#include "tst_x11_frmQuasi88OpLayout.moc"
