#pragma once
// "ランナー設定": how each of the thirteen emulators is started on this desktop. Per
// emulator the kind (自動, 直接, Wine, DOSBox, Java) with what its program's header says and a
// warning when the choice contradicts it, and the fields of the kind. "確認" checks the runner,
// "コマンド表示" and "試験起動" show what a launch of the selected title would do, without
// starting anything. OK writes TORVANE_RUNNER.INI and the process-wide table; Cancel drops
// every change.
#include "launch/Runner.h"

#include <QDialog>
#include <functional>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QStackedWidget;
class QToolButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace tv {

class frmRunner : public QDialog {
    Q_OBJECT
public:
    explicit frmRunner(QWidget* parent = nullptr);

    QTreeWidget* lstRunnerEmu;
    QComboBox* cbxRunnerKind;
    QLabel* lblRunnerDetect;
    QLabel* lblRunnerWarn;
    QStackedWidget* fraRunnerKind; // pages: none, Wine, DOSBox, Java
    QLineEdit *txtWineProgram, *txtWinePrefix, *txtWineDebug, *txtWineDllOverrides;
    QToolButton *cmdWineProgram, *cmdWinePrefix, *cmdDosBoxProgram, *cmdJavaProgram;
    QCheckBox* chkWineJapanese;
    QPlainTextEdit* txtWineDrives;
    QLineEdit* txtDosBoxProgram;
    QComboBox* cbxDosBoxFlavour;
    QLineEdit *txtJavaProgram, *txtJvmArguments;
    QLineEdit* txtRunnerArgs;
    QPlainTextEdit* txtRunnerEnv;
    QPushButton *cmdRunnerCheck, *cmdRunnerCommand, *cmdRunnerDryRun;
    QPlainTextEdit* txtRunnerReport;
    QPushButton *cmdOK, *cmdCancel;

    // The emulator whose settings are shown, and the choice of another.
    Emu currentEmu() const { return current_; }
    void selectEmu(Emu emu);
    // The settings as the dialog holds them, the shown emulator's controls included.
    RunnerTable edits();

    // OK: the settings into the file and the process-wide table; false (told) when the file
    // can't be written, and the dialog stays.
    bool Store();

private:
    void build();
    void buildEmuList();
    QFormLayout* buildKindPanel();
    QLineEdit* PathRow(QFormLayout* form, const QString& stem, const QString& label,
                       const QString& placeholder, bool directory, QToolButton*& button);
    QWidget* buildWinePage();
    QWidget* buildDosBoxPage();
    QWidget* buildJavaPage();
    void load(Emu emu);
    void storeShown();
    void updateKind();
    void runBusy(const QString& what, const std::function<QString()>& work);
    void runCheck();
    void runCommandView();
    void runDryRun();

    RunnerTable edits_;
    Emu current_ = Emu::P88sr;
    bool loading_ = false;
    bool loaded_ = false; // the controls hold an emulator's settings
};

} // namespace tv
