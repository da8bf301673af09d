#pragma once
// The layout check of a dialog on a real display, page by page: every control lies inside the
// dialog, has at least the room its contents need, and overlaps no other control; the whole
// dialog fits a 1024x768 screen. With TORVANE_SHOTS_DIR set, each page is saved there as a PNG
// named after the dialog and the page, for a person to look at.
#include "adapters/common/frmOptionDialog.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>
#include <QTabBar>
#include <QTest>
#include <QToolButton>
#include <functional>

namespace tvtest {

inline bool IsLayoutLeaf(QWidget* w)
{
    return qobject_cast<QAbstractButton*>(w) || qobject_cast<QLabel*>(w) ||
           qobject_cast<QLineEdit*>(w) || qobject_cast<QSlider*>(w) ||
           qobject_cast<QComboBox*>(w) || qobject_cast<QAbstractItemView*>(w);
}

// A list's own header and scroll bars lie inside it and are its business.
inline bool InsideItemView(QWidget* w)
{
    for (QWidget* p = w->parentWidget(); p; p = p->parentWidget())
        if (qobject_cast<QAbstractItemView*>(p))
            return true;
    return false;
}

// The page now shown of `d`; the failures name the dialog and the page.
inline void CheckShownPage(QDialog& d, int page)
{
    QList<QWidget*> leaves;
    for (QWidget* w : d.findChildren<QWidget*>()) {
        if (!w->isVisible() || !IsLayoutLeaf(w) || qobject_cast<QToolButton*>(w) ||
            InsideItemView(w))
            continue;
        if (w->objectName().startsWith(QStringLiteral("qt_")))
            continue;
        leaves << w;
    }
    QVERIFY2(leaves.size() > 3, qPrintable(d.objectName() + QStringLiteral(" shows nothing")));
    const QRect inside = d.rect();
    auto where = [&](const QString& what) {
        return qPrintable(QStringLiteral("%1 page %2: %3").arg(d.objectName()).arg(page).arg(what));
    };
    for (QWidget* w : leaves) {
        const QRect r(w->mapTo(&d, QPoint(0, 0)), w->size());
        QVERIFY2(inside.contains(r), where(w->objectName() + QStringLiteral(" outside")));
        const QSize need = w->minimumSizeHint();
        QVERIFY2(w->width() >= need.width() && w->height() >= need.height(),
                 where(w->objectName() + QStringLiteral(" cut off")));
    }
    for (int i = 0; i < leaves.size(); ++i)
        for (int j = i + 1; j < leaves.size(); ++j) {
            const QRect a(leaves[i]->mapTo(&d, QPoint(0, 0)), leaves[i]->size());
            const QRect b(leaves[j]->mapTo(&d, QPoint(0, 0)), leaves[j]->size());
            QVERIFY2(!a.intersects(b),
                     where(leaves[i]->objectName() + QStringLiteral(" overlaps ") +
                           leaves[j]->objectName()));
        }
    const QString shots = qEnvironmentVariable("TORVANE_SHOTS_DIR");
    if (!shots.isEmpty()) {
        QDir().mkpath(shots);
        d.grab().save(QStringLiteral("%1/%2_%3.png").arg(shots, d.objectName()).arg(page));
    }
}

// Shows `d` and checks each of its `pages`, `select` bringing page p to the front.
inline void CheckDialogPages(QDialog& d, int pages, const std::function<void(int)>& select)
{
    d.show();
    QVERIFY(QTest::qWaitForWindowExposed(&d));
    QVERIFY2(d.width() <= 1024 && d.height() <= 740,
             qPrintable(d.objectName() + QStringLiteral(" too large")));
    for (int p = 0; p < pages; ++p) {
        select(p);
        QTest::qWait(50);
        CheckShownPage(d, p);
        if (QTest::currentTestFailed())
            return;
    }
}

// An option dialog: its pages through its tab strip.
inline void CheckOptionPages(tv::OptionDialog& d)
{
    CheckDialogPages(d, d.pageCount(), [&d](int p) {
        if (d.tabs())
            d.tabs()->setCurrentIndex(p);
    });
}

} // namespace tvtest
