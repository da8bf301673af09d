#pragma once
// The registration dialog: a title entered or edited by hand, with its image or archive, start
// file, further disks, screenshot, manual, side-list fields and its own emulator options.
#include <QDialog>
#include <array>
#include <cstdint>
#include <functional>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace tv {

class CatalogueUi;

class frmLstMake : public QDialog {
    Q_OBJECT
public:
    // `seekPointer` 0 enters a new title; otherwise the record at it is edited. `list` is the
    // main window's catalogue, which takes the new or changed row (null: none).
    frmLstMake(int32_t seekPointer, CatalogueUi* list, QWidget* parent = nullptr);

    // The open-file dialog with a filter in Qt's form; tests replace it.
    static std::function<QString(const QString& filter, QWidget* owner)> openFile;

    QGroupBox* fraItemInfo = nullptr;
    QGroupBox* fraImageFile = nullptr;
    QGroupBox* fraScrFile = nullptr;
    QGroupBox* Frame1 = nullptr;
    QGroupBox* fraFunction = nullptr;
    QGroupBox* frmEmuOp = nullptr;
    QLineEdit* txtTitle = nullptr;
    std::array<QComboBox*, 5> cbxColFile{}; // by side-list kind
    QLabel* lblFreeColName1 = nullptr;
    QLabel* lblFreeColName2 = nullptr;
    QPlainTextEdit* txtComment = nullptr;
    QLineEdit* txtJituFile = nullptr;
    QPushButton* cmdJituFile = nullptr;
    QLineEdit* txtFileName = nullptr;
    QPushButton* cmdFileName = nullptr;
    QLabel* lblSecondFile = nullptr;
    QLineEdit* txtSecondFile = nullptr;
    QPushButton* cmdSecondFile = nullptr;
    QLineEdit* txtScrFile = nullptr;
    QPushButton* cmdScrFile = nullptr;
    QPushButton* cmdGetScr = nullptr;
    QLabel* imgPreScr = nullptr;
    QLineEdit* txtManFile = nullptr;
    QPushButton* cmdManFile = nullptr;
    QCheckBox* chkMeltManFlag = nullptr;
    QCheckBox* chkArcCheck = nullptr;
    std::array<QCheckBox*, 2> chkReArcCheck{};
    QComboBox* cbxDefEmuRun = nullptr;
    std::array<QPushButton*, 9> cmdEmuOp{}; // cmdEmuOp1 .. cmdEmuOp9
    QCheckBox* chkTxtIn = nullptr;
    QCheckBox* chkTxtInConv = nullptr;
    QCheckBox* chkArcSerch = nullptr;
    QCheckBox* chkScrAutoRead = nullptr;
    QCheckBox* chkColNonMakeFlag = nullptr;
    QLineEdit* txtHdd1File = nullptr;
    QLineEdit* txtHdd2File = nullptr;
    QCheckBox* chkHdd1Default = nullptr;
    QCheckBox* chkHdd2Default = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdApply = nullptr;
    QPushButton* cmdCancel = nullptr;
    QPushButton* cmdNew = nullptr;

    // True when the last SaveItem stored the record.
    bool SaveItem();
    void cmdNew_Click();
    void cmdEmuOp_Click(int n);
    void cmdGetScr_Click();
    void cmdFileName_Click();
    void cmdSecondFile_Click();
    void cmdManFile_Click();
    void cmdJituFile_Click();
    int32_t recordPosition() const { return seek_; }
    bool isNewItem() const { return newItem_; }

private:
    void Build();
    void FormLoad();
    void FillSideLists();
    void ClearItemForm();
    void ShowImportedItem();
    void chkArcCheck_Click();
    void chkReArcCheck0_Click();
    void txtJituFile_Change();
    void txtScrFile_Change();
    void EnableByArcCheck();
    void LoadCurrentOptions();
    void StoreCurrentOptions();
    QString JituPath() const;

    CatalogueUi* list_;
    int32_t seek_ = 0;
    bool newItem_ = true;
    bool loading_ = false;
    bool failed_ = false;
};

} // namespace tv
