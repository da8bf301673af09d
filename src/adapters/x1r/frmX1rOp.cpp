#include "adapters/x1r/frmX1rOp.h"

#include "data/Cfg.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QVBoxLayout>

namespace tv {

namespace {
using K = OptionDialog::RowKind;
} // namespace

void InitX1rOp(uint8_t TitleFlag)
{
    X1rOpTitleFlag = TitleFlag;
}

int ShowX1rOp(QWidget* parent)
{
    frmX1rOp dlg(parent);
    return dlg.exec();
}

frmX1rOp::frmX1rOp(QWidget* parent) : frmX1rOp(X1rOpTitleFlag, parent) {}

frmX1rOp::frmX1rOp(uint8_t titleFlag, QWidget* parent)
    : OptionBlockDialog<EmuOptX1>(Cfg.CfgEmuOptX1, CurEmuOptX1, titleFlag, parent)
{
    setObjectName(QStringLiteral("frmX1rOp"));
    setWindowTitle(QStringLiteral("X1R設定"));
    Build();
    FormLoad();
}

void frmX1rOp::Build()
{
    auto* box = new QGroupBox(QStringLiteral("基本"));
    auto* v = new QVBoxLayout(SinglePage());
    v->addWidget(box);
    auto* grid = new QGridLayout(box);
    auto on = [this](int i) { return Elem(Op.X1r_1Op, i); };
    auto val = [this](int i) { return Elem(Op.X1r_2Op, i); };
    // One line per switch: its check box in front, its value behind.
    auto check = [&](int i, const char* caption, int row) {
        QCheckBox* c = Check(QStringLiteral("chkX1r_1Op"), i, QString::fromUtf8(caption), on(i));
        grid->addWidget(c, row, 0);
        return c;
    };
    auto options = [&](int elem, double fallback, const QList<QPair<int, const char*>>& items,
                       int row) {
        OptGroup& g = Group(val(elem), fallback);
        auto* h = new QHBoxLayout;
        QList<QWidget*> out;
        for (const auto& [index, caption] : items) {
            QRadioButton* r =
                g.Add(QStringLiteral("optX1r_2%1Op").arg(elem), index, QString::fromUtf8(caption));
            h->addWidget(r);
            out << r;
        }
        h->addStretch(1);
        grid->addLayout(h, row, 1);
        return out;
    };

    QCheckBox* t = check(0, " /T　　　IPL-ROM の指定", 0);
    Governs(t, options(0, 1, {{1, "IPLROM.X1"}, {2, "IPLROM.X1T"}}, 0));
    QCheckBox* r = check(1, " /R　　　解像度", 1);
    Governs(r, options(1, 0, {{0, "Standard"}, {1, "HighReso"}}, 1));
    QCheckBox* w = check(2, " /W　　　ウェイト", 2);
    Governs(w, options(2, 0, {{0, "OFF"}, {1, "ON"}}, 2));
    QCheckBox* u = check(3, " /U　　　フレームスキップ", 3);
    QComboBox* skip = ComboLead(QStringLiteral("cbxX1r_2Op"), 3,
                                {QStringLiteral("0 - 60 FPS"), QStringLiteral("1 - 30 FPS"),
                                 QStringLiteral("2 - 20 FPS"), QStringLiteral("3 - 15 FPS")},
                                val(3));
    grid->addWidget(skip, 3, 1, Qt::AlignLeft);
    Governs(u, {skip});
    check(4, " /0　　　スキップラインなし", 4);
    QCheckBox* x = check(5, " /X　　　1ラスタのサイクル数", 5);
    QLineEdit* cycles = Number(QStringLiteral("txtX1r_3Op"), 0, Elem(Op.X1r_3Op, 0), 65535, 250);
    UpDown* udn = AddUpDown(cycles, QStringLiteral("udnX1r_3Op"), 0, 0, 65535, 50);
    grid->addLayout(BoxRow(cycles, udn, 72), 5, 1, Qt::AlignLeft);
    Governs(x, {cycles, udn});
    grid->setColumnStretch(1, 1);
    v->addStretch(1);
}

} // namespace tv
