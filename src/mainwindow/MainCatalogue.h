#pragma once
// The catalogue installed on frmMain: LstObj, the list of the chosen family, the footers and
// the detail pane on the main window's controls, and the launch from them.
#include <QString>
#include <optional>

namespace tv {

class CatalogueUi;
class LaunchUi;
class frmMain;

class MainCatalogue {
public:
    void CreateLstObj(frmMain& w);
    void ReleaseLstObj(frmMain& w);
    bool InitLst(frmMain& w, int family);
    // cbxHardWare_Click after HardWare has been set: LoadList and the footer of the family.
    void FamilyChanged(frmMain& w, int family);
    // The configuration has been applied to the window by the start-up: PutFreeColName,
    // column widths, footer switches, the no-picture image.
    void CfgApplied(frmMain& w);
    // A store of frmCfg: with a row selected the detail pane is shown anew.
    void RefreshDetail(frmMain& w);
    // The end of a launch: the detail pane shown anew, or cleared without a selected row.
    void RefreshAfterLaunch(frmMain& w);
    // The P88SR save-state slot marked in the detail pane, none without one.
    std::optional<int> P88SaveSlot(frmMain& w);
    // Key of the selected row of lstD88 ("K25"), "" with none.
    QString SelectedKey(frmMain& w);
    bool HasSelectedItem(frmMain& w);
    // The first panel of stbMain.
    void SetStatusText(frmMain& w, const QString& text);

    CatalogueUi* Ui() const { return ui_; }
    LaunchUi* Launch() const { return launch_; }

private:
    CatalogueUi* ensureUi(frmMain& w);
    CatalogueUi* ui_ = nullptr;  // owned by the main window
    LaunchUi* launch_ = nullptr; // owned by the main window
};

} // namespace tv
