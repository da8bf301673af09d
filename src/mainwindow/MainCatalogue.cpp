#include "mainwindow/MainCatalogue.h"

#include "data/ItemDetail.h"
#include "data/clsLst.h"
#include "mainwindow/CatalogueUi.h"
#include "mainwindow/LaunchUi.h"
#include "shell/Globals.h"

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
    frmMain* win = &w;
    cw.menu = [win](const QString& name) { return win->Menu(name); };
    cw.splashCount = [win](const QString& ken, const QString& cap) {
        if (frmTitle* t = win->Title()) {
            t->lblLstKen->setText(ken);
            t->lblLstCap->setText(cap);
        }
    };
    cw.startFail = [win] {
        if (Startup* s = win->StartupState())
            s->StartFail();
        std::exit(1);
    };
    ui_ = new CatalogueUi(cw, &w);
    // The emulator buttons, their menus and Enter on the list start the launch.
    new LaunchUi(ui_, &w, w.lstD88, &w);
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
    ensureUi(w)->ShowItemDetail(); // nothing without a selected row
}

QString MainCatalogue::SelectedKey(frmMain& w)
{
    return ensureUi(w)->SelectedKey();
}

} // namespace tv
