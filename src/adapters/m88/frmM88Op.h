#pragma once
// The option dialog of M88 ("M88設定"): edits the M88 members of the PC-88 option block, the
// defaults of the configuration (TitleFlag 0) or the current title's working copy (otherwise).
#include "adapters/common/frmOptionDialog.h"
#include "adapters/pc88/EmuOpt88.h"

namespace tv {

// The flag that the next frmM88Op is opened with.
inline uint8_t M88OpTitleFlag = 0;

// Stores the flag for the form; the caller then shows the form modally (ShowM88Op).
void InitM88Op(uint8_t TitleFlag);

class frmM88Op : public OptionBlockDialog<EmuOpt88> {
    Q_OBJECT
public:
    // Opens with the flag that InitM88Op stored.
    explicit frmM88Op(QWidget* parent = nullptr);
    frmM88Op(uint8_t titleFlag, QWidget* parent);

private:
    OptElem E1(int i);
    OptElem E2(int i);
    OptElem E3(int i);
    void BuildCpu();
    void BuildScreen();
    void BuildVolume();
    void BuildSound();
    void BuildOther();
    void BuildDipSw();
    void BuildPcg();
    void BuildRomeo();
    void BuildFm98();
    void BuildMode();
    void ConnectInterlocks();
    void cmdDefault_Click();
};

// Creates the dialog with the stored flag and shows it modally; returns when it is closed.
int ShowM88Op(QWidget* parent);

} // namespace tv
