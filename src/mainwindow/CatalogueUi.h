#pragma once
// The catalogue on the main window: the title list lstD88 with its sorts and views, the
// footers fraFotter of the three families, and the detail pane. It works on controls that the
// main window owns and adds what belongs to it (footer buttons, save-state labels, popup menu).
// The splash counters and a start that fails go to the window link.
#include "data/TitleListModel.h"

#include <QColor>
#include <QLabel>
#include <QObject>
#include <QPointer>
#include <array>
#include <functional>
#include <map>
#include <optional>

class QAction;
class QCheckBox;
class QDropEvent;
class QFrame;
class QMainWindow;
class QMenu;
class QPushButton;
class QStatusBar;
class QTableView;
class QTextEdit;
class QTimer;

namespace tv {

struct MainMenus;

// A label that reports clicks: the P88SR save-state labels choose a state by colour.
class ClickLabel : public QLabel {
    Q_OBJECT
public:
    using QLabel::QLabel;
signals:
    void clicked();

protected:
    void mousePressEvent(QMouseEvent* e) override;
};

struct CatalogueWidgets {
    QWidget* window = nullptr; // takes the caption
    QTableView* lstD88 = nullptr;
    QFrame* fraScrCom = nullptr;
    QLabel* imgScr = nullptr;
    QTextEdit* txtSyosai = nullptr;
    std::array<QFrame*, 3> fraFotter{};
    QStatusBar* statusBar = nullptr;
    // The main window's menus; null for none.
    const MainMenus* menus = nullptr;
    // Serves pending events (the yield of the fill); empty means processEvents.
    std::function<void()> yield;
};

class CatalogueUi : public QObject {
    Q_OBJECT
public:
    explicit CatalogueUi(const CatalogueWidgets& w, QObject* parent = nullptr);

    // Builds a bare main window with the controls the catalogue needs and the main window's
    // menus (into `menus`, which outlives the catalogue), for tests and benchmarks.
    static CatalogueWidgets BuildStandalone(QMainWindow* window, MainMenus* menus);

    TitleListModel* model() const { return model_; }
    QTableView* listView() const { return w_.lstD88; }
    QMenu* popupMenu() const { return mnuPop_; }
    const MainMenus* menus() const { return w_.menus; }
    QLabel* statusPanel1() const { return stbPanel1_; }
    QPushButton* cmdEmuRun(int emuCode) const;
    QCheckBox* chkDefOpt(int family) const { return chkDefOpt_[size_t(family)]; }
    QCheckBox* chkPatUse(int family) const { return chkPatUse_[size_t(family)]; }
    QCheckBox* chkPanUse() const { return chkPanUse_; }
    QPushButton* cmdManFile(int family) const { return cmdManFile_[size_t(family)]; }
    QPushButton* cmdNoSelect(int family) const { return cmdNoSelect_[size_t(family)]; }
    QPushButton* cmdHelpContext(int family) const { return cmdHelpContext_[size_t(family)]; }
    ClickLabel* lblP88Save() const { return lblP88Save_; }
    ClickLabel* lblP88SaveData(int slot) const { return lblP88SaveData_[size_t(slot)]; }
    // The slot the user marked for P88SR: while lblP88Save is enabled and black, the first
    // slot label in pure red; none otherwise.
    std::optional<int> P88SaveSlot() const;
    QLabel* lblM88Save() const { return lblM88Save_; }
    QLabel* lblM88SaveData(int slot) const { return lblM88SaveData_[size_t(slot)]; }
    QAction* mnuPop(const QString& name) const;
    QImage shownPicture() const { return picture_; }
    // The path the last ShowItemDetail loaded its picture from; "" for none.
    QString shownPicturePath() const { return picturePath_; }

    // cbxHardWare_Click once HardWare is the new family: steps 2 to 5.
    void FamilyChanged(int family);
    void LoadList();
    void SortList(int key);
    void ClearSortCheck();
    void SetSortCheck(int key);
    void PutFreeColName();
    // The configuration onto the window, at start-up and again after a settings dialog stored
    // it: what it sets on the list, the footers and the pane; a selected row is shown anew.
    void ApplyCfg();
    void lstD88_ColumnClick(int column);
    void mnuViewSortRun_Click(int key);
    void mnuViewGrid_Click();
    void mnuViewScrCom_Click();
    void munViewColumnClear_Click();
    void ShowItemDetail();
    void ClearItemDetail();
    // The popup menu mnuPop at a point of the screen (right button, menu key, Space).
    void ShowPopup(const QPoint& globalPos);
    void lblP88Save_Click();
    void lblP88SaveData_Click(int index);
    // Deletes the selected title after the user's yes; the list and the file stay in step.
    void mnuPopDeleteItem_Click();
    // The manual of the selected title, handed to the desktop.
    void cmdManFile_Click(int family);
    // Help at the main window's topic.
    void cmdHelpContext_Click();
    // frmSearch on the list, modal.
    void mnuEditSearch_Click();
    // While the left button is held over the list: the row under the pointer carries the drop
    // highlight; it becomes the selection at release.
    bool tracking() const { return tracking_; }
    // Key of the selected row, "" with none.
    QString SelectedKey() const;
    int selectedRow() const;
    void selectRow(int row);

    static QColor labelColour(const QLabel* l);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    // A launch button or its menu entry: the launch takes it from here.
    void emuRunRequested(int emuCode);
    void manFileRequested(int family);

private:
    // lstD88_OLEDragDrop: a drag of local files is taken, and its drop registers them.
    bool fileDropEvent(QDropEvent* event);
    void trackPress(const QPoint& pos);
    void trackMove(const QPoint& pos);
    void trackRelease();
    void trackStep(); // one step at the pointer's last position: highlight, edge scroll
    void setDeleteEnabled(bool on);
    void resetSaveLabels();
    void buildFooters();
    void buildSaveLabels();
    void buildPopup();
    void connectMenus();
    void setEmuEnabled(int emuCode, bool on);
    QAction* mainRunEntry(int entry) const; // null without menus
    QAction* mainSortEntry(int key) const;  // null without menus or for a key out of range
    void setCaption();
    void setStatus(const QString& text);
    void showPicture(const QImage& img);
    void applyColumnWidths();
    static void setLabelColour(QLabel* l, const QColor& c);

    CatalogueWidgets w_;
    TitleListModel* model_ = nullptr;
    QLabel* stbPanel1_ = nullptr;
    QMenu* mnuPop_ = nullptr;
    std::map<QString, QAction*> popActions_;
    std::map<int, QPushButton*> cmdEmuRun_;
    std::array<QCheckBox*, 3> chkDefOpt_{}, chkPatUse_{};
    QCheckBox* chkPanUse_ = nullptr;
    std::array<QPushButton*, 3> cmdManFile_{}, cmdNoSelect_{};
    ClickLabel* lblP88Save_ = nullptr;
    std::array<ClickLabel*, 10> lblP88SaveData_{};
    QLabel* lblM88Save_ = nullptr;
    std::array<QLabel*, 10> lblM88SaveData_{};
    QImage picture_;
    QString picturePath_;
    bool sortReentry_ = false;
    bool widthsApplied_ = false;
    bool tracking_ = false;
    QPoint trackPos_;
    QTimer* trackTimer_ = nullptr;
    std::array<QPushButton*, 3> cmdHelpContext_{};
};

} // namespace tv
