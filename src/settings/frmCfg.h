#pragma once
// The environment settings: per family the directories, per emulator its use, directory,
// save directory, start flags and default options. It edits the configuration record directly;
// ValidateCfg guards the way out and a close without a store reads the file back.
#include "shell/ValidateCfg.h"

#include <QDialog>
#include <array>
#include <functional>
#include <map>

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

    // The open-file dialog of the browse buttons: the chosen path, "" on cancel. Replaceable
    // so that tests need no file dialog.
    static std::function<QString(SelectKind, QWidget*)> SelectFileFn;
    static QString SelectFile(SelectKind kind, QWidget* owner);
    // The directory picker of the family directories (frmDirSansyo); false on cancel.
    static std::function<bool(QString&, QWidget*)> PickDirFn;

    // The default-option dialogs of the emulators, by the name of their button ("cmdM88Op",
    // "cmdJ80File", ...): the adapters register them, and a button stays disabled until its
    // dialog is there.
    static std::map<QString, std::function<void(QWidget*)>>& OptionDialogs();
    // The switch texts shown read-only ("txtP88srOp", "txtX1rOp", "txtX1emuOp") from the
    // default blocks, registered by the adapters that make them.
    static std::map<QString, std::function<QString()>>& OptionTexts();
    // Called after a successful store, so that the main window updates its switches.
    std::function<void()> onStored;

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
