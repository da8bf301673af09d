#pragma once
// The one way the core reaches the main window. The window implements it and installs itself;
// with none installed the core talks to a window that does nothing, so it runs headless.
// The start-up and shut-down use the first group, the launch the second.
#include <QString>
#include <array>
#include <optional>

class QObject;

namespace tv {

class MainWindowLink {
public:
    virtual ~MainWindowLink() = default;

    // The splash frmTitle.
    virtual void LoadTitle() = 0; // load and show it modelessly
    virtual void ShowTitle() = 0;
    virtual void UnloadTitle() = 0;
    virtual void SetTitleMsg1(const QString& text) = 0;
    virtual void SetTitleMsg2(const QString& text) = 0;
    // The splash counters lblLstKen and lblLstCap while the catalogue loads.
    virtual void SetTitleCount(const QString& ken, const QString& cap) = 0;
    // A catalogue that can't be read at all: StartFail, then the process ends.
    virtual void FailStart() = 0;

    // The main window during the start-up.
    virtual void HideMain() = 0;
    virtual void ShowMain() = 0;
    virtual void SetMainMinimized() = 0;
    virtual void SetMainVisible() = 0;
    virtual void SetListExStyle() = 0;   // full-row select on lstD88
    virtual void ApplyCfgToWindow() = 0; // picture, detail, columns, footer, view
    virtual void CreateLstObj() = 0;
    virtual void ReleaseLstObj() = 0;
    // InitLst of the catalogue object for one family; false when the file is not one of ours.
    virtual bool InitLst(int family) = 0;
    // cbxHardWare.ListIndex = family; its click event loads the list.
    virtual void SelectFamily(int family) = 0;
    virtual void PlaceWindow() = 0;
    // Without a system tray the program runs as if TaskIn were off until it ends.
    virtual bool TrayAvailable() = 0;
    virtual void SetTaskIcon() = 0;
    virtual void RemoveTaskIcon() = 0;
    // frmCfg, modal. It decides CfgReady itself when it closes.
    virtual void ShowCfgDialog() = 0;
    // A settings dialog stored the configuration: the window's switches and detail follow.
    virtual void CfgStored() = 0;

    // The shut-down: the state that is stored in the configuration.
    virtual QString SelectedKey() = 0; // key of the selected row of lstD88, "" with none
    virtual std::array<float, 6> ColumnWidths() = 0; // twips
    virtual int WindowState() = 0;                   // 0 normal, 1 minimised, 2 maximised
    virtual void RestoreNormalVisible() = 0;
    virtual std::array<float, 4> WindowGeometry() = 0; // height, width, left, top in twips
    virtual void UnloadOtherForms() = 0;

    // The launch.
    virtual bool HasSelectedItem() = 0;                  // a row of lstD88 is selected
    virtual void SetStatusText(const QString& text) = 0; // the first panel of stbMain
    virtual void SetMainEnabled(bool on) = 0;
    virtual void MinimiseMain() = 0;
    // Back to the state before the last minimise, visible, brought to the front.
    virtual void RestoreMain() = 0;
    // The detail pane shown anew at the end of a launch (cleared without a selected row).
    virtual void RefreshItemDetail() = 0;
    // The P88SR save-state slot marked in the detail pane: the first slot label in red while
    // the row's own label is black; none when no slot is marked.
    virtual std::optional<int> P88SaveSlot() = 0;
    // The owner of the dialogs the core opens (the archivers' progress); null for none.
    virtual QObject* Owner() = 0;
};

// The installed window, or one that does nothing (no selection, no tray, no catalogue file
// accepted, nothing to store).
MainWindowLink& Window();
// Installs `link` (null: none) and returns the one it replaces.
MainWindowLink* InstallWindow(MainWindowLink* link);
// The installed window itself; null when none is.
MainWindowLink* InstalledWindow();

} // namespace tv
