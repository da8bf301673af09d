#pragma once
// The main window: owner of the process. Its Form_Load is the start-up (shell/Startup.h), its
// close the shut-down. The list, the detail pane and the footers are filled by the catalogue
// code through CatalogueHooks.
#include "mainwindow/frmTitle.h"
#include "shell/Startup.h"

#include <QMainWindow>
#include <QPixmap>
#include <QPointer>
#include <array>
#include <functional>
#include <map>
#include <memory>

class QAction;
class QComboBox;
class QFrame;
class QLabel;
class QLineEdit;
class QMenu;
class QSplitter;
class QStandardItemModel;
class QSystemTrayIcon;
class QTableView;
class QTextEdit;

namespace tv {

class frmMain;

// What the catalogue brings to the main window: LstObj and the list fill of the chosen
// family. Installed with frmMain::SetCatalogue before Load.
class CatalogueHooks {
public:
    virtual ~CatalogueHooks() = default;
    virtual void CreateLstObj(frmMain& w) = 0;
    virtual void ReleaseLstObj(frmMain& w) = 0;
    virtual bool InitLst(frmMain& w, int family) = 0;
    // cbxHardWare_Click after HardWare has been set: LoadList and the footer of the family.
    virtual void FamilyChanged(frmMain& w, int family) = 0;
    // The configuration has been applied to the window by the start-up: PutFreeColName,
    // column widths, footer switches, the no-picture image. A store of frmCfg only updates
    // the current family's switches and path, and the detail pane (frmMain::CfgStored).
    virtual void CfgApplied(frmMain& w) = 0;
    // A store of frmCfg: with a row selected the detail pane is shown anew.
    virtual void RefreshDetail(frmMain& w) {}
    // Key of the selected row of lstD88 ("K25"), "" with none.
    virtual QString SelectedKey(frmMain& w) = 0;
};

class frmMain : public QMainWindow, public StartupUi {
    Q_OBJECT
public:
    explicit frmMain(QWidget* parent = nullptr);
    ~frmMain() override;

    void SetCatalogue(std::unique_ptr<CatalogueHooks> c) { catalogue_ = std::move(c); }
    CatalogueHooks* Catalogue() const { return catalogue_.get(); }

    // Form_Load. False: the start was refused and the process is to end.
    bool Load(StartupEnv env = {});
    Startup* StartupState() const { return startup_.get(); }
    frmTitle* Title() const { return title_; }

    // Twips per pixel of the screen (15 at 96 dpi).
    double TwipsPerPixel() const;

    // Called by frmCfg after a successful store.
    void CfgStored();

    // Controls, by the names of the forms.
    QComboBox* cbxHardWare;
    QLineEdit* txtHardImagePath;
    QTableView* lstD88;
    QStandardItemModel* lstModel; // design-time columns until the catalogue sets its own
    QSplitter* splMain;
    QFrame* fraScrCom;
    QLabel* imgScr;
    QTextEdit* txtSyosai;
    std::array<QFrame*, 3> fraFotter{};
    QPixmap NoImagePicture;

    // Menus: the entries by their names.
    QAction* Menu(const QString& name) const;
    QMenu* mnuTaskBar = nullptr;
    QSystemTrayIcon* TrayIcon() const { return tray_; }

    // Opens frmCfg modally (start-up gate and mnuOptionCfg).
    std::function<void(frmMain&)> showCfgDialog;

    // StartupUi
    void LoadTitle() override;
    void ShowTitle() override;
    void UnloadTitle() override;
    void SetTitleMsg1(const QString& text) override;
    void SetTitleMsg2(const QString& text) override;
    void HideMain() override;
    void ShowMain() override;
    void SetMainMinimized() override;
    void SetMainVisible() override;
    void SetListExStyle() override;
    void ApplyCfgToWindow() override;
    void CreateLstObj() override;
    void ReleaseLstObj() override;
    bool InitLst(int family) override;
    void SelectFamily(int family) override;
    void PlaceWindow() override;
    bool TrayAvailable() override;
    void SetTaskIcon() override;
    void RemoveTaskIcon() override;
    void ShowCfgDialog() override;
    QString SelectedKey() override;
    std::array<float, 6> ColumnWidths() override;
    int WindowState() override;
    void RestoreNormalVisible() override;
    std::array<float, 4> WindowGeometry() override;
    void UnloadOtherForms() override;

    // The current family's image directory in txtHardImagePath.
    void ShowFamilyPath();

protected:
    void closeEvent(QCloseEvent* e) override;
    void changeEvent(QEvent* e) override;

private:
    void BuildMenus();
    void BuildControls();
    void cbxHardWare_Click(int index);
    void TrayOpen();
    void CenterOnScreen();

    std::unique_ptr<CatalogueHooks> catalogue_;
    std::unique_ptr<Startup> startup_;
    QPointer<frmTitle> title_;
    QSystemTrayIcon* tray_ = nullptr;
    std::map<QString, QAction*> menus_;
    bool unloaded_ = false;
};

} // namespace tv
