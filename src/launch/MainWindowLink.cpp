#include "launch/MainWindowLink.h"

namespace tv {

namespace {

class NoWindow final : public MainWindowLink {
public:
    void LoadTitle() override {}
    void ShowTitle() override {}
    void UnloadTitle() override {}
    void SetTitleMsg1(const QString&) override {}
    void SetTitleMsg2(const QString&) override {}
    void SetTitleCount(const QString&, const QString&) override {}
    void FailStart() override {}
    void HideMain() override {}
    void ShowMain() override {}
    void SetMainMinimized() override {}
    void SetMainVisible() override {}
    void SetListExStyle() override {}
    void ApplyCfgToWindow() override {}
    void CreateLstObj() override {}
    void ReleaseLstObj() override {}
    // Without a catalogue no file can be read, so none is accepted.
    bool InitLst(int) override { return false; }
    void SelectFamily(int) override {}
    void PlaceWindow() override {}
    bool TrayAvailable() override { return false; }
    void SetTaskIcon() override {}
    void RemoveTaskIcon() override {}
    void ShowCfgDialog() override {}
    void CfgStored() override {}
    QString SelectedKey() override { return {}; }
    std::array<float, 6> ColumnWidths() override { return {}; }
    int WindowState() override { return 0; }
    void RestoreNormalVisible() override {}
    std::array<float, 4> WindowGeometry() override { return {}; }
    void UnloadOtherForms() override {}
    bool HasSelectedItem() override { return false; }
    void SetStatusText(const QString&) override {}
    void SetMainEnabled(bool) override {}
    void MinimiseMain() override {}
    void RestoreMain() override {}
    void RefreshItemDetail() override {}
    std::optional<int> P88SaveSlot() override { return std::nullopt; }
    QObject* Owner() override { return nullptr; }
};

MainWindowLink* installed = nullptr;

} // namespace

MainWindowLink& Window()
{
    static NoWindow none;
    return installed ? *installed : none;
}

MainWindowLink* InstallWindow(MainWindowLink* link)
{
    MainWindowLink* previous = installed;
    installed = link;
    return previous;
}

MainWindowLink* InstalledWindow()
{
    return installed;
}

} // namespace tv
