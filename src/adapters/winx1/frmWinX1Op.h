#pragma once
// The option dialog of WinX1 ("WinX1設定"): edits the WinX1 members of the X1 option block,
// the defaults of the configuration (TitleFlag 0) or the current title's working copy
// (otherwise).
#include "adapters/common/frmOptionDialog.h"
#include "adapters/fm7x1/EmuOptFMX1.h"

namespace tv {

// The flag that the next frmWinX1Op is opened with.
inline uint8_t WinX1OpTitleFlag = 0;

// Stores the flag for the form; the caller then shows the form modally (ShowWinX1Op).
void InitWinX1Op(uint8_t TitleFlag);

class frmWinX1Op : public OptionBlockDialog<EmuOptX1> {
    Q_OBJECT
public:
    // Opens with the flag that InitWinX1Op stored.
    explicit frmWinX1Op(QWidget* parent = nullptr);
    frmWinX1Op(uint8_t titleFlag, QWidget* parent);

private:
    void BuildScreen();
    void BuildSound();
    void BuildX1();
    void BuildJoystick();
};

// Creates the dialog with the stored flag and shows it modally; returns when it is closed.
int ShowWinX1Op(QWidget* parent);

} // namespace tv
