#include "mainwindow/LaunchUi.h"

#include "data/ItemDetail.h"
#include "data/clsLst.h"
#include "launch/Launch.h"
#include "mainwindow/CatalogueUi.h"
#include "mainwindow/MainMenus.h"
#include "util/Globals.h"

#include <QAction>
#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTableView>

namespace tv {

LaunchUi::LaunchUi(CatalogueUi* catalogue, QTableView* lstD88, QObject* parent)
    : QObject(parent), catalogue_(catalogue), lstD88_(lstD88)
{
    connect(catalogue_, &CatalogueUi::emuRunRequested, this, &LaunchUi::cmdEmuRun_Click);

    if (lstD88_) {
        lstD88_->installEventFilter(this);
        connect(lstD88_, &QTableView::doubleClicked, this, &LaunchUi::lstD88_DblClick);
    }
    for (int fam = 0; fam < 3; ++fam)
        for (int code : FamilyEmuCodes(fam))
            if (QPushButton* b = catalogue_->cmdEmuRun(code)) {
                b->installEventFilter(this);
                gateButton(code, b);
            }
    for (int entry = 1; entry <= 9; ++entry) {
        const QString name = QStringLiteral("mnuPopEmuRunEach(%1)").arg(entry);
        if (QAction* a = catalogue_->mnuPop(name))
            connect(a, &QAction::changed, this, [this, entry, a] { gateAction(entry, a); });
        if (const MainMenus* menus = catalogue_->menus()) {
            QAction* m = menus->runEntry(entry);
            connect(m, &QAction::changed, this, [this, entry, m] { gateAction(entry, m); });
        }
    }
}

LaunchUi::~LaunchUi() = default;

bool LaunchUi::hasSelection() const
{
    return catalogue_->selectedRow() >= 0;
}

void LaunchUi::cmdEmuRun_Click(int emuCode)
{
    RunSelectedItem(int16_t(emuCode));
}

void LaunchUi::lstD88_KeyPress(int keyAscii)
{
    if (keyAscii != 13 || HardWare > 2 || !hasSelection())
        return;
    const int def = LstObj.GetDefEmuRun();
    if (def == 0)
        return;
    QPushButton* b = catalogue_->cmdEmuRun(HardWare * 10 + def);
    if (b && b->isEnabled())
        b->click();
}

void LaunchUi::lstD88_DblClick()
{
    // With the option off the double-click opens the item editor, which isn't the launch's.
    if (Cfg.DblClickProc == 1)
        lstD88_KeyPress(13);
}

bool LaunchUi::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == lstD88_ && event->type() == QEvent::KeyPress) {
        const auto* k = static_cast<QKeyEvent*>(event);
        if (k->key() == Qt::Key_Return || k->key() == Qt::Key_Enter) {
            lstD88_KeyPress(13);
            return true;
        }
    }
    if (event->type() == QEvent::EnabledChange)
        if (auto* b = qobject_cast<QPushButton*>(watched))
            for (int fam = 0; fam < 3; ++fam)
                for (int code : FamilyEmuCodes(fam))
                    if (catalogue_->cmdEmuRun(code) == b)
                        gateButton(code, b);
    return QObject::eventFilter(watched, event);
}

void LaunchUi::gateButton(int emuCode, QPushButton* button)
{
    if (gating_)
        return;
    gating_ = true;
    QString why;
    // Without a title the bare emulator starts, which needs no generated options.
    if (button->isEnabled() && hasSelection() && !LaunchRoadReady(emuCode, Cfg, &why)) {
        button->setEnabled(false);
        button->setToolTip(why);
    } else if (LaunchRoadReady(emuCode, Cfg, &why)) {
        button->setToolTip(QString());
    } else {
        button->setToolTip(why);
    }
    gating_ = false;
}

void LaunchUi::gateAction(int entry, QAction* action)
{
    if (gating_ || HardWare > 2)
        return;
    gating_ = true;
    QString why;
    const int code = HardWare * 10 + entry;
    if (action->isEnabled() && hasSelection() && IsLaunchCode(code) &&
        !LaunchRoadReady(code, Cfg, &why)) {
        action->setEnabled(false);
        action->setToolTip(why);
    }
    gating_ = false;
}

} // namespace tv
