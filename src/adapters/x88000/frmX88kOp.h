#pragma once
// The option dialog of X88000: edits the X88000 members of the PC-88 option block (the
// switches of its command line), the defaults of the configuration (TitleFlag 0) or the
// current title's working copy (otherwise). Its lists store each entry's item data.
#include "adapters/common/frmOptionDialog.h"
#include "adapters/pc88/EmuOpt88.h"

namespace tv {

// The flag that the next frmX88kOp is opened with.
inline uint8_t X88kOpTitleFlag = 0;

void InitX88kOp(uint8_t TitleFlag);

class frmX88kOp : public OptionBlockDialog<EmuOpt88> {
    Q_OBJECT
public:
    explicit frmX88kOp(QWidget* parent = nullptr);
    frmX88kOp(uint8_t titleFlag, QWidget* parent);

private:
    OptElem E(int i);
    void BuildDrives();
    void BuildScreen();
    void BuildGeneral();
    void BuildSound();
    void BuildInput();
};

// Creates the dialog with the stored flag and shows it modally; returns when it is closed.
int ShowX88kOp(QWidget* parent);

} // namespace tv
