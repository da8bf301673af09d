#include "mainwindow/MainCatalogue.h"

#include "data/ItemDetail.h"
#include "data/clsLst.h"
#include "mainwindow/CatalogueUi.h"
#include "mainwindow/LaunchUi.h"
#include "mainwindow/frmMain.h"
#include "util/Globals.h"

#include <QAction>
#include <QLabel>
#include <QStatusBar>
#include <QTableView>

namespace tv {

CatalogueUi* MainCatalogue::ensureUi(frmMain& w)
{
    if (ui_)
        return ui_;
    CatalogueWidgets cw;
    cw.window = &w;
    cw.lstD88 = w.lstD88;
    cw.fraScrCom = w.fraScrCom;
    cw.imgScr = w.imgScr;
    cw.txtSyosai = w.txtSyosai;
    cw.fraFotter = w.fraFotter;
    cw.statusBar = w.statusBar();
    cw.menus = &w.menus;
    ui_ = new CatalogueUi(cw, &w);
    // The emulator buttons, their menus and Enter on the list start the launch.
    launch_ = new LaunchUi(ui_, w.lstD88, &w);
    // The popup's edit entry opens the registration dialog on the selected title.
    if (QAction* change = ui_->mnuPop(QStringLiteral("mnuPopChangeItem"))) {
        change->setEnabled(true);
        QObject::connect(change, &QAction::triggered, &w, [&w] { w.OpenItemEditor(false); });
    }
    return ui_;
}

void MainCatalogue::CreateLstObj(frmMain& w)
{
    LstObj = clsLst();
    ensureUi(w);
}

void MainCatalogue::ReleaseLstObj(frmMain&)
{
    LstObj = clsLst();
}

bool MainCatalogue::InitLst(frmMain&, int family)
{
    return family >= 0 && family <= 2 && LstObj.InitLst(uint8_t(family));
}

void MainCatalogue::FamilyChanged(frmMain& w, int family)
{
    ensureUi(w)->FamilyChanged(family);
}

void MainCatalogue::CfgApplied(frmMain& w)
{
    if (NoImagePicture.isNull())
        NoImagePicture = w.NoImagePicture.toImage();
    ensureUi(w)->ApplyCfg();
}

void MainCatalogue::RefreshDetail(frmMain& w)
{
    CatalogueUi* ui = ensureUi(w);
    ui->PutFreeColName();
    ui->ShowItemDetail(); // nothing without a selected row
}

// The launch's calls find the catalogue's controls made already; before that they do nothing.
void MainCatalogue::RefreshAfterLaunch(frmMain&)
{
    if (!ui_)
        return;
    if (ui_->selectedRow() >= 0)
        ui_->ShowItemDetail();
    else
        ui_->ClearItemDetail();
}

QString MainCatalogue::SelectedKey(frmMain& w)
{
    return ensureUi(w)->SelectedKey();
}

std::optional<int> MainCatalogue::P88SaveSlot(frmMain&)
{
    return ui_ ? ui_->P88SaveSlot() : std::nullopt;
}

bool MainCatalogue::HasSelectedItem(frmMain&)
{
    return ui_ && ui_->selectedRow() >= 0;
}

void MainCatalogue::SetStatusText(frmMain&, const QString& text)
{
    if (QLabel* l = ui_ ? ui_->statusPanel1() : nullptr)
        l->setText(text);
}

} // namespace tv
