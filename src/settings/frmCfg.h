#pragma once
// The environment settings: per family the directories, per emulator its use, directory,
// save directory, start flags and default options. It edits the configuration record directly;
// ValidateCfg guards the way out and a close without a store reads the file back. Its browse
// buttons open the file pickers (FilePickers.h); a store tells the window link.
#include "startup/ValidateCfg.h"

#include <QDialog>
#include <array>
#include <functional>

class QCheckBox;
class QComboBox;
class QFrame;
class QLineEdit;
class QPushButton;
class QStackedWidget;
class QTabBar;

namespace tv {

class frmCfg : public QDialog {
    Q_OBJECT
public:
    explicit frmCfg(QWidget* parent = nullptr);
    ~frmCfg() override;

    QTabBar* tbsHardWare;
    QStackedWidget* pages;
    std::array<QFrame*, 3> fraHardWare{};
    std::array<QLineEdit*, 3> txtImageDir{}, txtSnapDir{}, txtPatSaveDir{}, txtManDir{};
    std::array<QComboBox*, 3> cbxDefEmuRun{};
    std::array<QCheckBox*, 3> chkParUse{}, chkDefOpt{};
    QLineEdit* txtFmPanFile;
    QCheckBox* chkFmPanUse;
    QPushButton *cmdOK, *cmdCancel, *cmdApply, *cmdHelpContext;

    // Any control by its name ("txtM88Dir", "chkWinX1IkaUse", "fraXmilUse", ...).
    template <typename T> T* Ctl(const QString& name) const { return findChild<T*>(name); }

    bool StoredOk() const { return stored_; }
    bool CfgErrFlag() const { return errFlag_; }

    // cmdOK and cmdApply: store, check, write. True when the record was written.
    bool StoreCfg(bool unload);

    using Emu = EmuRow; // one emulator's controls and fields

protected:
    void done(int r) override;

private:
    void BuildFamilyPage(int family);
    QFrame* BuildEmuFrame(const Emu& e, QWidget* parent);
    void LoadFromCfg();
    void RefreshOptionTexts();
    void chkUse_Click(const Emu& e);
    void chkDefOpt_Click(int index);
    void chkParUse_Click(int index);
    void UpdateIkaRule();
    void UpdateXmilTRule();
    void UpdateFmPanRule();

    bool mirroring_ = false; // stops the mirrored check boxes from re-entering
    bool stored_ = false;
    bool errFlag_ = false;
    bool unloaded_ = false;
};

} // namespace tv
