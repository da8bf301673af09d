#pragma once
// The main window: owner of the process. Its Form_Load is the start-up (startup/Startup.h), its
// close the shut-down. The core reaches it through the window link it installs while it lives.
// The list, the detail pane and the footers are filled by the catalogue (MainCatalogue).
#include "launch/MainWindowLink.h"
#include "mainwindow/MainMenus.h"
#include "mainwindow/frmTitle.h"
#include "startup/Startup.h"

#include <QMainWindow>
#include <QPixmap>
#include <QPointer>
#include <array>
#include <functional>
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

class MainCatalogue;

class frmMain : public QMainWindow, public MainWindowLink {
    Q_OBJECT
public:
    explicit frmMain(QWidget* parent = nullptr);
    ~frmMain() override;

    // The catalogue; without one no catalogue file is accepted and the list stays empty.
    void SetCatalogue(std::unique_ptr<MainCatalogue> c);
    MainCatalogue* Catalogue() const { return catalogue_.get(); }

    // Form_Load. False: the start was refused and the process is to end.
    bool Load(StartupEnv env = {});
    Startup* StartupState() const { return startup_.get(); }
    frmTitle* Title() const { return title_; }

    // Twips per pixel of the screen (15 at 96 dpi).
    double TwipsPerPixel() const;

    // A settings dialog stored the configuration.
    void CfgStored() override;

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

    // The menu bar and the tray's menu.
    MainMenus menus;
    QSystemTrayIcon* TrayIcon() const { return tray_; }

    // Opens frmCfg modally (start-up gate and mnuOptionCfg).
    std::function<void(frmMain&)> showCfgDialog;

    // MainWindowLink
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
    // frmLstMake on a new title, or on the selected one.
    void OpenItemEditor(bool newItem);
    QString SelectedKey() override;
    std::array<float, 6> ColumnWidths() override;
    int WindowState() override;
    void RestoreNormalVisible() override;
    std::array<float, 4> WindowGeometry() override;
    void UnloadOtherForms() override;
    void SetTitleCount(const QString& ken, const QString& cap) override;
    void FailStart() override;
    bool HasSelectedItem() override;
    void SetStatusText(const QString& text) override;
    void SetMainEnabled(bool on) override;
    void MinimiseMain() override;
    void RestoreMain() override;
    void RefreshItemDetail() override;
    std::optional<int> P88SaveSlot() override;
    QObject* Owner() override;

    // The current family's image directory in txtHardImagePath.
    void ShowFamilyPath();

protected:
    void closeEvent(QCloseEvent* e) override;
    void changeEvent(QEvent* e) override;

private:
    void ConnectMenus();
    void BuildControls();
    void cbxHardWare_Click(int index);
    void TrayOpen();
    void CenterOnScreen();

    std::unique_ptr<MainCatalogue> catalogue_;
    MainWindowLink* previousLink_ = nullptr;
    std::unique_ptr<Startup> startup_;
    QPointer<frmTitle> title_;
    QSystemTrayIcon* tray_ = nullptr;
    bool unloaded_ = false;
};

} // namespace tv
