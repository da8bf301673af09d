#pragma once
// QUASI88's DIP switches ("ディップスイッチ設定"): pairs of buttons over Q88DipWork, which the
// option dialog fills from its private block before and reads back when it stores.
#include <QDialog>

#include <array>
#include <cstdint>

class QComboBox;
class QRadioButton;

namespace tv {

// The DIP switches being edited: elements 0 to 4 and 7 to 12 are switch bits, 5 the boot
// device, 6 the baud-rate entry.
inline std::array<uint8_t, 13> Q88DipWork{};

class frmQuasi88Op2 : public QDialog {
    Q_OBJECT
public:
    explicit frmQuasi88Op2(QWidget* parent = nullptr);

    // The buttons of the defaults and baud entry 2.
    void cmdDefault_Click();
    // Every pair and the list into Q88DipWork, and the dialog closes.
    void cmdOK_Click();

private:
    void Load();
    std::array<QRadioButton*, 26> opt_{};
    QComboBox* baud_ = nullptr;
};

} // namespace tv
