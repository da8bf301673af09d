#pragma once
// The option dialog of P88SR ("P88SR設定"): its switches and their values in the PC-88 option
// block, the defaults of the configuration (TitleFlag 0) or the current title's working copy.
#include "adapters/common/frmOptionDialog.h"
#include "adapters/pc88/EmuOpt88.h"

#include <QStringList>

namespace tv {

// The flag that the next frmP88srOp is opened with.
inline uint8_t P88srOpTitleFlag = 0;

// Stores the flag for the form; the caller then shows the form modally (ShowP88srOp).
void InitP88srOp(uint8_t TitleFlag);

// The 90 keys that the joystick switch can take, code and key name.
QStringList P88JoyKeyItems();

class frmP88srOp : public OptionBlockDialog<EmuOpt88> {
    Q_OBJECT
public:
    // Opens with the flag that InitP88srOp stored.
    explicit frmP88srOp(QWidget* parent = nullptr);
    frmP88srOp(uint8_t titleFlag, QWidget* parent);

private:
    // One switch row: its check box with its caption, and behind it the value controls.
    void SwitchRow(QGridLayout* grid, int i, const char* caption);
    void BuildPage(const QString& caption, std::initializer_list<std::pair<int, const char*>> rows);
    void BuildJoyKeys(QGridLayout* grid);
    void cbxP88_4Op_Click();
};

// Creates the dialog with the stored flag and shows it modally; returns when it is closed.
int ShowP88srOp(QWidget* parent);

} // namespace tv
