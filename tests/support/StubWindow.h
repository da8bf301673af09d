#pragma once
// The main window for tests of the core: records what the start-up, the shut-down and the
// launch ask of it, and answers as the test sets. It installs itself while it lives and puts
// back the window that was installed before.
#include "launch/MainWindowLink.h"

#include <QStringList>
#include <functional>

namespace tvtest {

class StubWindow : public tv::MainWindowLink {
public:
    StubWindow();
    ~StubWindow() override;
    StubWindow(const StubWindow&) = delete;
    StubWindow& operator=(const StubWindow&) = delete;

    QStringList calls;
    QStringList msg1;
    std::function<void()> onCfgDialog; // what the user does in frmCfg
    std::function<bool(int)> initLst = [](int) { return true; };
    bool trayAvailable = true;
    QString selectedKey;
    int windowState = 0;
    bool hasSelectedItem = false;
    QString statusText;
    int refreshed = 0;
    std::optional<int> p88SaveSlot; // the slot marked in the detail pane
    QObject* owner = nullptr;
    std::function<void(bool)> onSetEnabled; // what the window does when (dis)abled

    void LoadTitle() override { calls << "LoadTitle"; }
    void ShowTitle() override { calls << "ShowTitle"; }
    void UnloadTitle() override { calls << "UnloadTitle"; }
    void SetTitleMsg1(const QString& t) override;
    void SetTitleMsg2(const QString& t) override { calls << "Msg2:" + t; }
    void SetTitleCount(const QString& ken, const QString& cap) override;
    void FailStart() override { calls << "FailStart"; }
    void HideMain() override { calls << "HideMain"; }
    void ShowMain() override { calls << "ShowMain"; }
    void SetMainMinimized() override { calls << "SetMainMinimized"; }
    void SetMainVisible() override { calls << "SetMainVisible"; }
    void SetListExStyle() override { calls << "SetListExStyle"; }
    void ApplyCfgToWindow() override { calls << "ApplyCfgToWindow"; }
    void CreateLstObj() override { calls << "CreateLstObj"; }
    void ReleaseLstObj() override { calls << "ReleaseLstObj"; }
    bool InitLst(int f) override;
    void SelectFamily(int f) override { calls << QStringLiteral("SelectFamily:%1").arg(f); }
    void PlaceWindow() override { calls << "PlaceWindow"; }
    bool TrayAvailable() override { return trayAvailable; }
    void SetTaskIcon() override { calls << "SetTaskIcon"; }
    void RemoveTaskIcon() override { calls << "RemoveTaskIcon"; }
    void ShowCfgDialog() override;
    void CfgStored() override { calls << "CfgStored"; }
    QString SelectedKey() override { return selectedKey; }
    std::array<float, 6> ColumnWidths() override { return {1, 2, 3, 4, 5, 6}; }
    int WindowState() override { return windowState; }
    void RestoreNormalVisible() override { calls << "RestoreNormalVisible"; }
    std::array<float, 4> WindowGeometry() override { return {600, 800, 30, 40}; }
    void UnloadOtherForms() override { calls << "UnloadOtherForms"; }

    bool HasSelectedItem() override { return hasSelectedItem; }
    void SetStatusText(const QString& t) override;
    void SetMainEnabled(bool on) override;
    void MinimiseMain() override { calls << "MinimiseMain"; }
    void RestoreMain() override { calls << "RestoreMain"; }
    void RefreshItemDetail() override;
    std::optional<int> P88SaveSlot() override { return p88SaveSlot; }
    QObject* Owner() override { return owner; }

private:
    tv::MainWindowLink* previous_ = nullptr;
};

} // namespace tvtest
