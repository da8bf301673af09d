#pragma once
// The option dialog of j80, one page: edits the j80 members of the PC-88 option block, the
// defaults of the configuration (TitleFlag 0) or the current title's working copy (otherwise).
#include "adapters/common/frmOptionDialog.h"
#include "adapters/pc88/EmuOpt88.h"

namespace tv {

// The flag that the next frmJ80Op is opened with.
inline uint8_t J80OpTitleFlag = 0;

void InitJ80Op(uint8_t TitleFlag);

class frmJ80Op : public OptionBlockDialog<EmuOpt88> {
    Q_OBJECT
public:
    explicit frmJ80Op(QWidget* parent = nullptr);
    frmJ80Op(uint8_t titleFlag, QWidget* parent);
};

// Creates the dialog with the stored flag and shows it modally; returns when it is closed.
int ShowJ80Op(QWidget* parent);

} // namespace tv
