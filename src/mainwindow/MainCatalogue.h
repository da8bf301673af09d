#pragma once
// The catalogue installed on frmMain: LstObj, the list of the chosen family, the footers and
// the detail pane on the main window's controls.
#include "mainwindow/frmMain.h"

#include <memory>

namespace tv {

class CatalogueUi;

class MainCatalogue : public CatalogueHooks {
public:
    void CreateLstObj(frmMain& w) override;
    void ReleaseLstObj(frmMain& w) override;
    bool InitLst(frmMain& w, int family) override;
    void FamilyChanged(frmMain& w, int family) override;
    void CfgApplied(frmMain& w) override;
    void RefreshDetail(frmMain& w) override;
    QString SelectedKey(frmMain& w) override;

    CatalogueUi* Ui() const { return ui_; }

private:
    CatalogueUi* ensureUi(frmMain& w);
    CatalogueUi* ui_ = nullptr; // owned by the main window
};

} // namespace tv
