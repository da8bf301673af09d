#pragma once
// The menus of the main window as typed members, built in one place. Every action carries its
// control name as objectName ("mnuEmuRunEach(3)" for an entry of an array). Entries whose
// dialogs or commands come with the catalogue, the registration and the launch are built
// disabled; those parts enable and connect them.
#include <QString>
#include <array>

class QAction;
class QMainWindow;
class QMenu;

namespace tv {

// The seven sort families, by their ascending key / 2: the part of the control names between
// "mnuViewSort" (or "mnuPopSort") and "Run", and the caption of their submenu.
struct SortFamily {
    const char* name;    // "Title"
    const char* caption; // "Title(&T)"
};
inline constexpr std::array<SortFamily, 7> kSortFamilies = {{{"Regist", "登録順(&R)"},
                                                             {"Title", "Title(&T)"},
                                                             {"Genre", "Genre(&G)"},
                                                             {"Maker", "Maker(&M)"},
                                                             {"Col1", "Column 1(&1)"},
                                                             {"Col2", "Column 2(&2)"},
                                                             {"Sale", "Sale Date(&S)"}}};

// The control name of the entry of a sort key: "mnuViewSortTitleRun(2)", "mnuPopSortCol1Run(8)".
QString SortEntryName(const QString& prefix, int key);

struct MainMenus {
    QMenu* mnuFile = nullptr;
    QAction* mnuFileEnd = nullptr;

    QMenu* mnuEdit = nullptr;
    QAction* mnuEditAddItem = nullptr;
    QAction* mnuEditChangeItem = nullptr;
    QAction* mnuEditDeleteItem = nullptr;
    QAction* mnuEditNoSelect = nullptr;
    QAction* mnuEditSearch = nullptr;

    QMenu* mnuView = nullptr;
    QMenu* mnuViewSort = nullptr;
    // "mnuViewSortRegist" ... "mnuViewSortSale", by family.
    std::array<QMenu*, 7> mnuViewSortFamily{};
    // By sort key 0 to 13: "mnuViewSortRegistRun(0)" ... "mnuViewSortSaleRun(13)".
    std::array<QAction*, 14> mnuViewSortRun{};
    QAction* mnuViewScrCom = nullptr;
    QAction* mnuViewGrid = nullptr;
    QAction* munViewColumnClear = nullptr;

    QMenu* mnuEmuRun = nullptr;
    // Entries 1 to 9 at indices 0 to 8: "mnuEmuRunEach(1)" ... "mnuEmuRunEach(9)".
    std::array<QAction*, 9> mnuEmuRunEach{};
    QAction* mnuEmuRunMan = nullptr;

    QMenu* mnuTool = nullptr;
    QAction* mnuToolColEditor = nullptr;

    QMenu* munOption = nullptr;
    QAction* mnuOptionCfg = nullptr;
    QAction* mnuOptionTORVOp = nullptr;
    QAction* mnuOptionRunner = nullptr; // "ランナー設定": how each emulator is started here

    QMenu* mnuHelp = nullptr;
    QAction* mnuHelpTORVANE = nullptr;
    QAction* mnuHelpTopic = nullptr;
    QAction* mnuHelpVersion = nullptr;

    // The tray's menu, owned by the window.
    QMenu* mnuTaskBar = nullptr;
    QAction* mnuTaskBarTORVOpen = nullptr;
    QAction* mnuTaskBarTORVClose = nullptr;

    // Entry 1 to 9 of the run menu.
    QAction* runEntry(int entry) const { return mnuEmuRunEach[size_t(entry - 1)]; }
};

// Builds the menu bar of `window` and the tray's menu; nothing is connected.
MainMenus BuildMainMenus(QMainWindow* window);

} // namespace tv
