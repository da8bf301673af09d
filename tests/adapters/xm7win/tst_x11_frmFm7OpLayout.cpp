// The pages of the FM-7 option dialogs (XM7 for Win32 with its key choice, EM7) on a real
// display: each dialog fits a 1024x768 screen, every control lies inside it, has the room its
// contents need and overlaps no other control. With TORVANE_SHOTS_DIR set, each page is also
// saved as a PNG there.
#include "adapters/em7/frmEm7WinOp.h"
#include "adapters/xm7win/Xm7KeyMap.h"
#include "adapters/xm7win/frmXm7WinOp.h"
#include "data/Cfg.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDir>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>
#include <QTabBar>
#include <QTest>
#include <QToolButton>
#include <QTreeWidget>

using namespace tv;

class TestFrmFm7OpLayout : public QObject {
    Q_OBJECT

    static bool IsLeaf(QWidget* w)
    {
        return qobject_cast<QAbstractButton*>(w) || qobject_cast<QLabel*>(w) ||
               qobject_cast<QLineEdit*>(w) || qobject_cast<QSlider*>(w) ||
               qobject_cast<QComboBox*>(w) || qobject_cast<QTreeWidget*>(w);
    }

    static QString Shots()
    {
        const QString shots = qEnvironmentVariable("TORVANE_SHOTS_DIR");
        if (!shots.isEmpty())
            QDir().mkpath(shots);
        return shots;
    }

    // The visible controls of `d` lie inside it, have their room and overlap nothing.
    static void CheckPage(QWidget& d, const QString& where)
    {
        QList<QWidget*> leaves;
        for (QWidget* w : d.findChildren<QWidget*>()) {
            if (!w->isVisible() || !IsLeaf(w) || qobject_cast<QToolButton*>(w))
                continue;
            if (w->objectName().startsWith(QStringLiteral("qt_")))
                continue;
            // The list's own header and scroll bars are inside it.
            if (w->parentWidget() && qobject_cast<QTreeWidget*>(w->parentWidget()->parentWidget()))
                continue;
            leaves << w;
        }
        QVERIFY(leaves.size() >= 3);
        const QRect inside = d.rect();
        for (QWidget* w : leaves) {
            const QRect r(w->mapTo(&d, QPoint(0, 0)), w->size());
            QVERIFY2(inside.contains(r), qPrintable(where + QStringLiteral(": ") + w->objectName() +
                                                    QStringLiteral(" outside")));
            const QSize need = w->minimumSizeHint();
            QVERIFY2(w->width() >= need.width() && w->height() >= need.height(),
                     qPrintable(where + QStringLiteral(": ") + w->objectName() +
                                QStringLiteral(" cut off")));
        }
        for (int i = 0; i < leaves.size(); ++i)
            for (int j = i + 1; j < leaves.size(); ++j) {
                const QRect a(leaves[i]->mapTo(&d, QPoint(0, 0)), leaves[i]->size());
                const QRect b(leaves[j]->mapTo(&d, QPoint(0, 0)), leaves[j]->size());
                QVERIFY2(!a.intersects(b),
                         qPrintable(where + QStringLiteral(": ") + leaves[i]->objectName() +
                                    QStringLiteral(" overlaps ") + leaves[j]->objectName()));
            }
    }

    static void CheckDialog(OptionDialog& d, const QString& name)
    {
        d.show();
        QVERIFY(QTest::qWaitForWindowExposed(&d));
        const QString shots = Shots();
        for (int p = 0; p < d.pageCount(); ++p) {
            d.tabs()->setCurrentIndex(p);
            QTest::qWait(50);
            QVERIFY2(
                d.width() <= 1024 && d.height() <= 740,
                qPrintable(QStringLiteral("%1 is %2x%3").arg(name).arg(d.width()).arg(d.height())));
            CheckPage(d, QStringLiteral("%1 page %2").arg(name).arg(p));
            if (!shots.isEmpty())
                d.grab().save(QStringLiteral("%1/%2_%3_%4.png")
                                  .arg(shots, name)
                                  .arg(p)
                                  .arg(d.tabs()->tabText(p)));
        }
    }

private slots:
    void xm7WinPages()
    {
        SetDefaultEmuOptFM(Cfg.CfgEmuOptFM);
        frmXm7WinOp d(0, nullptr);
        CheckDialog(d, QStringLiteral("frmXm7WinOp"));
        // The key list shows every column whole.
        QTreeWidget* l = d.keyList();
        for (int c = 0; c < 5; ++c)
            QVERIFY(l->columnWidth(c) >= l->header()->sectionSizeHint(c) - 1);
    }

    void xm7WinKeyChoice()
    {
        SetDefaultEmuOptFM(Cfg.CfgEmuOptFM);
        frmXm7WinOp owner(0, nullptr);
        frmXm7WinOp2 d(&owner);
        d.InitLoad(QStringLiteral("1E"), QStringLiteral("30"), DikNames());
        d.show();
        QVERIFY(QTest::qWaitForWindowExposed(&d));
        QTest::qWait(50);
        CheckPage(d, QStringLiteral("frmXm7WinOp2"));
        const QString shots = Shots();
        if (!shots.isEmpty())
            d.grab().save(shots + QStringLiteral("/frmXm7WinOp2.png"));
    }

    void em7Pages()
    {
        SetDefaultEmuOptFM(Cfg.CfgEmuOptFM);
        frmEm7WinOp d(0, nullptr);
        CheckDialog(d, QStringLiteral("frmEm7WinOp"));
    }
};

QTEST_MAIN(TestFrmFm7OpLayout)
#include "tst_x11_frmFm7OpLayout.moc"
