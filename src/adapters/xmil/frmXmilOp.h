#pragma once
// The option dialog of X millennium ("Xmille設定"): edits the X millennium members of the X1 option
// block, the defaults of the configuration (TitleFlag 0) or the current title's working copy
// (otherwise).
#include "adapters/common/frmOptionDialog.h"
#include "adapters/fm7x1/EmuOptFMX1.h"

namespace tv {

// The flag that the next frmXmilOp is opened with.
inline uint8_t XmilOpTitleFlag = 0;

// Stores the flag for the form; the caller then shows the form modally (ShowXmilOp).
void InitXmilOp(uint8_t TitleFlag);

class frmXmilOp : public OptionBlockDialog<EmuOptX1> {
    Q_OBJECT
public:
    // Opens with the flag that InitXmilOp stored.
    explicit frmXmilOp(QWidget* parent = nullptr);
    frmXmilOp(uint8_t titleFlag, QWidget* parent);

private:
    void BuildConfigure();
    void BuildOther();
};

// Creates the dialog with the stored flag and shows it modally; returns when it is closed.
int ShowXmilOp(QWidget* parent);

} // namespace tv
