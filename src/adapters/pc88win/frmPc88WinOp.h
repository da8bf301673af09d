#pragma once
// The option dialog of PC88Win ("PC88Win設定"), one page: edits the PC88Win members of the
// PC-88 option block, the defaults of the configuration (TitleFlag 0) or the current title's
// working copy (otherwise). Its list boxes carry the value in their leading characters.
#include "adapters/common/frmOptionDialog.h"
#include "adapters/pc88/EmuOpt88.h"

namespace tv {

// The flag that the next frmPc88WinOp is opened with.
inline uint8_t Pc88WinOpTitleFlag = 0;

void InitPc88WinOp(uint8_t TitleFlag);

class frmPc88WinOp : public OptionBlockDialog<EmuOpt88> {
    Q_OBJECT
public:
    explicit frmPc88WinOp(QWidget* parent = nullptr);
    frmPc88WinOp(uint8_t titleFlag, QWidget* parent);
};

// Creates the dialog with the stored flag and shows it modally; returns when it is closed.
int ShowPc88WinOp(QWidget* parent);

} // namespace tv
