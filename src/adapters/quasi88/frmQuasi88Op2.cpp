#include "adapters/quasi88/frmQuasi88Op2.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace tv {

namespace {

struct DipRow {
    const char* label;
    const char* even; // element 0
    const char* odd;  // element 1
};

// By element; element 6 is the baud rate's list, not a pair.
constexpr std::array<DipRow, 13> kDipRows = {{
    {"立ち上げモード", "ターミナル", "BASIC"},
    {"１行あたりの文字数", "80 文字", "40 文字"},
    {"１画面あたりの行数", "25 行", "20 行"},
    {"システムパラメータ", "有効", "無効"},
    {"DELコード", "有効", "無効"},
    {"システムの立ち上げ", "ディスク", "ROM"},
    {"通信速度［ボー］", nullptr, nullptr},
    {"パリティチェック", "有り", "無し"},
    {"パリティ", "偶数", "奇数"},
    {"データビット", "8 ビット", "7 ビット"},
    {"ストップビット", "2 ビット", "1 ビット"},
    {"Xパラメータ", "有効", "無効"},
    {"通信方式", "半二重", "全二重"},
}};

// The buttons that give the defaults of the block: the odd one of each pair whose element is 1.
constexpr std::array<int, 12> kDefaultButtons = {1, 2, 5, 7, 8, 10, 15, 16, 18, 21, 23, 25};

} // namespace

frmQuasi88Op2::frmQuasi88Op2(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("frmQuasi88Op2"));
    setWindowTitle(QStringLiteral("ディップスイッチ設定"));
    auto* v = new QVBoxLayout(this);
    auto* grid = new QGridLayout;
    for (int i = 0; i < 13; ++i) {
        auto* label = new QLabel(QString::fromUtf8(kDipRows[size_t(i)].label), this);
        label->setObjectName(QStringLiteral("lblQ88_2Op(%1)").arg(i));
        grid->addWidget(label, i, 0);
        if (i == 6) {
            baud_ = new QComboBox(this);
            baud_->setObjectName(QStringLiteral("cbxQ88_2Op(6)"));
            baud_->addItems({QStringLiteral("75"), QStringLiteral("150"), QStringLiteral("300"),
                             QStringLiteral("600"), QStringLiteral("1200"), QStringLiteral("2400"),
                             QStringLiteral("4800"), QStringLiteral("9600"),
                             QStringLiteral("19200")});
            grid->addWidget(baud_, i, 1, 1, 2);
            continue;
        }
        auto* group = new QButtonGroup(this);
        for (int b = 0; b < 2; ++b) {
            auto* r = new QRadioButton(
                QString::fromUtf8(b == 0 ? kDipRows[size_t(i)].even : kDipRows[size_t(i)].odd),
                this);
            r->setObjectName(QStringLiteral("optQ88_2Op(%1)").arg(2 * i + b));
            group->addButton(r);
            grid->addWidget(r, i, 1 + b);
            opt_[size_t(2 * i + b)] = r;
        }
    }
    v->addLayout(grid);
    auto* buttons = new QHBoxLayout;
    auto* def = new QPushButton(QStringLiteral("Dfault"), this);
    def->setObjectName(QStringLiteral("cmdDefault"));
    def->setAutoDefault(false);
    auto* ok = new QPushButton(QStringLiteral("戻る"), this);
    ok->setObjectName(QStringLiteral("cmdOK"));
    ok->setDefault(true);
    buttons->addStretch(1);
    buttons->addWidget(def);
    buttons->addWidget(ok);
    v->addLayout(buttons);
    connect(def, &QPushButton::clicked, this, [this] { cmdDefault_Click(); });
    connect(ok, &QPushButton::clicked, this, [this] { cmdOK_Click(); });
    Load();
}

void frmQuasi88Op2::Load()
{
    for (int i = 0; i < 13; ++i) {
        if (i == 6)
            continue;
        opt_[size_t(2 * i + (Q88DipWork[size_t(i)] == 1 ? 1 : 0))]->setChecked(true);
    }
    baud_->setCurrentIndex(Q88DipWork[6] <= 8 ? Q88DipWork[6] : -1);
}

void frmQuasi88Op2::cmdDefault_Click()
{
    for (int b : kDefaultButtons)
        opt_[size_t(b)]->setChecked(true);
    baud_->setCurrentIndex(2);
}

void frmQuasi88Op2::cmdOK_Click()
{
    for (int i = 0; i < 13; ++i) {
        if (i == 6)
            continue;
        Q88DipWork[size_t(i)] = opt_[size_t(2 * i + 1)]->isChecked() ? 1 : 0;
    }
    // No entry keeps the rate that was there.
    if (baud_->currentIndex() >= 0)
        Q88DipWork[6] = static_cast<uint8_t>(baud_->currentIndex());
    accept();
}

} // namespace tv
