#pragma once
// The program's own options: start-up selection, double click, window state, the names of the
// free columns, the wait before keystrokes, the Java runtime, the default screenshot, text
// import, the tray, and the order of the file dialogs' filter lists. The check boxes and option
// buttons write the configuration record at once; only the store writes the file, after its
// checks. A close without a store reads the file back, so unsaved clicks are dropped.
#include <QDialog>
#include <array>
#include <cstdint>
#include <utility>

class QCheckBox;
class QComboBox;
class QFrame;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QStackedWidget;
class QTabBar;

namespace tv {

struct CfgRecord;

class UpDown;

// The texts of the store's checks, in the order in which they are made.
inline const QString kOptBadJavaText = QStringLiteral("JavaVMが正しく指定されていません");
inline const QString kOptJavaNameText =
    QStringLiteral("JavaVMは java.exe,javaw.exe 以外は指定できません");
inline const QString kOptBadDefScrText =
    QStringLiteral("ﾃﾞﾌｫﾙﾄｽｸﾘｰﾝｼｮｯﾄが正しく指定されていません");
inline const QString kOptNoCol1Text = QStringLiteral("[任意カラム１名称]が空白です");
inline const QString kOptNoCol2Text = QStringLiteral("[任意カラム２名称]が空白です");
inline const QString kOptStoredText = QStringLiteral("設定を保存しました！");

// The stem check of the Java runtime: "java" or "javaw" in any case, with no extension or
// ".exe" (a Windows runtime the user points at).
bool IsJavaRuntimeName(const QString& path);

class frmOpt : public QDialog {
    Q_OBJECT
public:
    explicit frmOpt(QWidget* parent = nullptr);

    QTabBar* tbsOptions = nullptr;
    QStackedWidget* pages = nullptr;
    std::array<QFrame*, 3> fraOp{};
    std::array<QRadioButton*, 2> optLstSelectSave{}, optWinAppearance{}, optDblClickProc{};
    std::array<QCheckBox*, 2> chkReArcCheck{};
    QLineEdit* txtWinSendWait = nullptr;
    UpDown* updWinSendWait = nullptr;
    QCheckBox *chkScrAutoRead = nullptr, *chkArcSerch = nullptr, *chkScrSearchRead = nullptr,
              *chkWinChangeFlag = nullptr, *chkTaskIn = nullptr, *chkTaskRunForm = nullptr,
              *chkTxtIn = nullptr, *chkTxtInConv = nullptr, *chkDefScrFlag = nullptr,
              *chkColNonMakeFlag = nullptr;
    QFrame *fraTaskIn = nullptr, *fraTxtIn = nullptr;
    QLineEdit *txtFreeColName1 = nullptr, *txtFreeColName2 = nullptr;
    QLineEdit *txtJavaVMPath = nullptr, *txtDefScrPath = nullptr;
    QPushButton *cmdJavaVMPath = nullptr, *cmdDefScr = nullptr;
    QLabel* imgDefScr = nullptr;
    std::array<QComboBox*, 6> cbxFilter{};
    std::array<QPushButton*, 6> cmdFilter{};
    std::array<QLabel*, 6> lblFilter{};
    QPushButton *cmdOK = nullptr, *cmdCancel = nullptr, *cmdApply = nullptr,
                *cmdHelpContext = nullptr;

    // Column `kind` of the filter table into cbxFilter(kind).
    void LoadFilter(int kind);
    // The filter order of column `index` through the image file selection in its mode 2.
    void cmdFilter_Click(int index);
    void cmdJavaVMPath_Click();
    void cmdDefScr_Click();
    // cmdOK and cmdApply: the checks in order, then the record into the file. True when stored.
    bool Store();
    // Whether a free column name changed since the dialog opened.
    bool FreeColNameChanged() const { return freeColChanged_; }

protected:
    void done(int r) override;
    void keyPressEvent(QKeyEvent* e) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildBasicPage(QFrame* page);
    void BuildExtraPage(QFrame* page);
    void BuildFilterPage(QFrame* page);
    void LoadFromCfg();
    void ConnectFlags();
    // Every switch and option into the record.
    void StoreFlags();
    // The switches that are one field each, and the options (second button checked: 1).
    std::array<std::pair<QCheckBox*, uint8_t CfgRecord::*>, 10> flagFields() const;
    std::array<std::pair<QRadioButton*, uint8_t CfgRecord::*>, 3> optionFields() const;
    // ReArcCheck: 1 re-pack, 2 after asking.
    uint8_t reArcValue() const;
    void txtDefScrPath_Change();

    bool freeColChanged_ = false;
    bool unloaded_ = false;
};

} // namespace tv
