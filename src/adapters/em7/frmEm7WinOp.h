#pragma once
// The option dialog of EM7: edits the EM7 members of the FM-7 option block, the defaults of the
// configuration (TitleFlag 0) or the current title's working copy (otherwise).
#include "adapters/common/frmOptionDialog.h"
#include "adapters/fm7x1/EmuOptFMX1.h"

namespace tv {

// The flag that the next frmEm7WinOp is opened with.
inline uint8_t Em7WinOpTitleFlag = 0;

// Stores the flag for the form; the caller then shows the form modally (ShowEm7WinOp).
void InitEm7WinOp(uint8_t TitleFlag);

class frmEm7WinOp : public OptionBlockDialog<EmuOptFM> {
    Q_OBJECT
public:
    // Opens with the flag that InitEm7WinOp stored.
    explicit frmEm7WinOp(QWidget* parent = nullptr);
    frmEm7WinOp(uint8_t titleFlag, QWidget* parent);

private:
    void BuildKeyboard();
    void BuildPerformance();
    void BuildTimer();
    // A slider with its caption, value label, unit and marks under it, in `grid` at `line`.
    QSlider* SliderLine(class QGridLayout* grid, int line, const QString& name, int index,
                        OptElem e, int minimum, int maximum, int pageStep, const QString& caption,
                        const QString& unit, const QStringList& marks,
                        std::function<QString(int)> format);
    void cmdDefault_Click();
};

// Creates the dialog with the stored flag and shows it modally; returns when it is closed.
int ShowEm7WinOp(QWidget* parent);

} // namespace tv
