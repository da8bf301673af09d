#pragma once
// The option dialog of X1R ("X1R設定"): edits the X1R members of the X1 option block,
// the defaults of the configuration (TitleFlag 0) or the current title's working copy
// (otherwise).
#include "adapters/common/frmOptionDialog.h"
#include "adapters/fm7x1/EmuOptFMX1.h"

namespace tv {

// The flag that the next frmX1rOp is opened with.
inline uint8_t X1rOpTitleFlag = 0;

// Stores the flag for the form; the caller then shows the form modally (ShowX1rOp).
void InitX1rOp(uint8_t TitleFlag);

class frmX1rOp : public OptionBlockDialog<EmuOptX1> {
    Q_OBJECT
public:
    // Opens with the flag that InitX1rOp stored.
    explicit frmX1rOp(QWidget* parent = nullptr);
    frmX1rOp(uint8_t titleFlag, QWidget* parent);

private:
    void Build();
};

// Creates the dialog with the stored flag and shows it modally; returns when it is closed.
int ShowX1rOp(QWidget* parent);

} // namespace tv
