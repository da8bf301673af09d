#pragma once
// The option dialog of QUASI88: edits the QUASI88 members of the PC-88 option block, the
// defaults of the configuration (TitleFlag 0) or the current title's working copy (otherwise).
// The DIP switches are edited in frmQuasi88Op2.
#include "adapters/common/frmOptionDialog.h"
#include "adapters/pc88/EmuOpt88.h"

namespace tv {

// The flag that the next frmQuasi88Op is opened with.
inline uint8_t Q88OpTitleFlag = 0;

// Stores the flag for the form; the caller then shows the form modally (ShowQuasi88Op).
void InitQ88Op(uint8_t TitleFlag);

class frmQuasi88Op : public OptionBlockDialog<EmuOpt88> {
    Q_OBJECT
public:
    // Opens with the flag that InitQ88Op stored.
    explicit frmQuasi88Op(QWidget* parent = nullptr);
    frmQuasi88Op(uint8_t titleFlag, QWidget* parent);

    // Opens frmQuasi88Op2 on Q88DipWork, modally.
    void cmdQ88_2Op_Click();
    // The sound page back to its defaults.
    void cmdQ88_1Op_Click();

private:
    OptElem E1(int i);
    QLineEdit* FloatBox(int index, double limit, float fallback);
    void BuildSystem();
    void BuildCpu();
    void BuildScreen();
    void BuildSound();
    void BuildKeys();
};

// Creates the dialog with the stored flag and shows it modally; returns when it is closed.
int ShowQuasi88Op(QWidget* parent);

} // namespace tv
