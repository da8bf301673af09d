#pragma once
// The editor of the five side lists: per list a drop-down field with an add and a delete
// button.
#include <QDialog>
#include <array>

class QComboBox;
class QLabel;
class QPushButton;

namespace tv {

class frmColEditor : public QDialog {
    Q_OBJECT
public:
    explicit frmColEditor(QWidget* parent = nullptr);

    // By kind: 0 genres, 1 makers, 2 free column 1, 3 free column 2, 4 sale dates.
    std::array<QComboBox*, 5> cbxColFile{};
    // Index 2 * kind adds, 2 * kind + 1 deletes.
    std::array<QPushButton*, 10> cmdColFile{};
    QLabel* lblFreeColName1 = nullptr;
    QLabel* lblFreeColName2 = nullptr;
    QPushButton* cmdOK = nullptr;

    void cmdColFile_Click(int index);

private:
    void FillList(int kind);
    void cbxColFile_Change(int kind);
};

} // namespace tv
