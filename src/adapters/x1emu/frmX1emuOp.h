#pragma once
// The option dialog of X1EMU ("X1EMU設定"): edits the X1EMU members of the X1 option block,
// the defaults of the configuration (TitleFlag 0) or the current title's working copy
// (otherwise).
#include "adapters/common/frmOptionDialog.h"
#include "adapters/fm7x1/EmuOptFMX1.h"

namespace tv {

// The flag that the next frmX1emuOp is opened with.
inline uint8_t X1emuOpTitleFlag = 0;

// Stores the flag for the form; the caller then shows the form modally (ShowX1emuOp).
void InitX1emuOp(uint8_t TitleFlag);

class frmX1emuOp : public OptionBlockDialog<EmuOptX1> {
    Q_OBJECT
public:
    // Opens with the flag that InitX1emuOp stored.
    explicit frmX1emuOp(QWidget* parent = nullptr);
    frmX1emuOp(uint8_t titleFlag, QWidget* parent);

private:
    void Build();
};

// Creates the dialog with the stored flag and shows it modally; returns when it is closed.
int ShowX1emuOp(QWidget* parent);

} // namespace tv
