#pragma once
// The option dialog of XM7 for Win32: edits the XM7 members of the FM-7 option block, the
// defaults of the configuration (TitleFlag 0) or the current title's working copy (otherwise).
// Its page "キーボード" holds the key map list; frmXm7WinOp2 changes one assignment of it.
#include "adapters/common/frmOptionDialog.h"
#include "adapters/fm7x1/EmuOptFMX1.h"

#include <array>

class QComboBox;
class QTreeWidget;
class QTreeWidgetItem;

namespace tv {

// The flag that the next frmXm7WinOp is opened with.
inline uint8_t Xm7WinOpTitleFlag = 0;

// Stores the flag for the form; the caller then shows the form modally (ShowXm7WinOp).
void InitXm7WinOp(uint8_t TitleFlag);

class frmXm7WinOp : public OptionBlockDialog<EmuOptFM> {
    Q_OBJECT
public:
    // Opens with the flag that InitXm7WinOp stored.
    explicit frmXm7WinOp(QWidget* parent = nullptr);
    frmXm7WinOp(uint8_t titleFlag, QWidget* parent);

    QTreeWidget* keyList() const { return lsv_; }
    // What frmXm7WinOp2 hands back on OK: the row's text and the chosen code, both as text.
    void SetDIKNo(const QString& KeyNo, const QString& Code);
    // The editing entry of the list: the selected row's code through frmXm7WinOp2.
    void lsvXm7Win_3Op_DblClick();
    void cmdXm7Win_3Op_Click(int Index);

private:
    OptElem E1(int i) { return Elem(Op.Xm7Win_1Op, i); }
    OptElem E2(int i) { return Elem(Op.Xm7Win_2Op, i); }
    // A group of option buttons for element i whose value stays as it was when none is on.
    void Options(QLayout* into, int i, const char* name,
                 const std::vector<std::pair<int, const char*>>& buttons);
    QWidget* NumberLine(int i, const char* caption, const char* unit, int minimum, int maximum,
                        int step, int fallback);
    void BuildGeneral();
    void BuildSound();
    void BuildKeyboard();
    void BuildJoystick();
    void BuildScreen();
    void BuildOption();
    void FillKeyList();
    void StoreKeyList();
    void cbxXm7Win_1Op_Click(int Index);
    void SetJoyCodeKeys(int port);
    void SetJoyCodeDirs(int port);
    void cmdDefault_Click();

    QTreeWidget* lsv_ = nullptr;
    // Per port whether the keyboard lists are in place: 1 yes, 0 no, 255 not yet known.
    std::array<uint8_t, 2> joyKeys_{255, 255};
    QString dikKeyNo_, dikCode_;
};

// The choice of one DirectInput code for an FM-7 key ("割り当てキーの選択").
class frmXm7WinOp2 : public QDialog {
    Q_OBJECT
public:
    explicit frmXm7WinOp2(frmXm7WinOp* owner);
    // The row's text, its code as text and the 256 names.
    void InitLoad(const QString& KeyNo, const QString& Code, const std::array<QString, 256>& Names);

private:
    void cmdOK_Click();

    frmXm7WinOp* owner_;
    QComboBox* cbxDIKMap_;
    class QLabel* msg_;
    QString keyNo_;
};

// Creates the dialog with the stored flag and shows it modally; returns when it is closed.
int ShowXm7WinOp(QWidget* parent);

} // namespace tv
