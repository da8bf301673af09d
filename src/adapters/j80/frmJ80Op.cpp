#include "adapters/j80/frmJ80Op.h"

#include "data/Cfg.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QVBoxLayout>

namespace tv {

namespace {

using K = OptionDialog::RowKind;

QGroupBox* GroupBox(const QString& title, QLayout* content)
{
    auto* g = new QGroupBox(title);
    g->setLayout(content);
    return g;
}

} // namespace

void InitJ80Op(uint8_t TitleFlag)
{
    J80OpTitleFlag = TitleFlag;
}

int ShowJ80Op(QWidget* parent)
{
    frmJ80Op dlg(parent);
    return dlg.exec();
}

frmJ80Op::frmJ80Op(QWidget* parent) : frmJ80Op(J80OpTitleFlag, parent) {}

frmJ80Op::frmJ80Op(uint8_t titleFlag, QWidget* parent)
    : OptionBlockDialog<EmuOpt88>(Cfg.CfgEmuOpt88, CurEmuOpt88, titleFlag, parent)
{
    setObjectName(QStringLiteral("frmJ80Op"));
    setWindowTitle(QStringLiteral("j80設定"));
    auto e1 = [this](int i) { return Elem(Op.J80_1Op, i); };
    auto* v = new QVBoxLayout(SinglePage());
    v->addWidget(
        GroupBox(QStringLiteral("サウンド"), Lines({{K::Group, nullptr, -1, nullptr, e1(0), 0, 1},
                                                    {K::Option, "optJ80_10Op", 0, "サウンドなし"},
                                                    {K::Option, "optJ80_10Op", 1, "通常"},
                                                    {K::Option, "optJ80_10Op", 2, "軽量版"}},
                                                   3)));
    v->addWidget(GroupBox(QStringLiteral("調整"), Lines({{.kind = K::Number,
                                                          .name = "txtJ80_1Op",
                                                          .index = 1,
                                                          .caption = "調整強度",
                                                          .elem = e1(1),
                                                          .limit = 100,
                                                          .fallback = 50},
                                                         {.kind = K::Number,
                                                          .name = "txtJ80_2Op",
                                                          .index = 0,
                                                          .caption = "バッファサイズ (msec)",
                                                          .elem = Elem(Op.J80_2Op, 0),
                                                          .limit = 1000,
                                                          .width = 72}},
                                                        1, 0, 150)));
    v->addWidget(
        GroupBox(QStringLiteral("画面・ディスク"),
                 Lines({{K::Check, "chkJ80_1Op", 2, "ディスクシステムを使用しない", e1(2)},
                        {K::Check, "chkJ80_1Op", 3, "画面行数を制限する", e1(3)},
                        {.kind = K::Number,
                         .name = "txtJ80_1Op",
                         .index = 4,
                         .caption = "行数制限数",
                         .elem = e1(4),
                         .limit = 64,
                         .fallback = 25},
                        {K::Check, "chkJ80_1Op", 5, "VRAMバッファを２ページに増やす", e1(5)}},
                       1, 0, 150)));
    v->addWidget(GroupBox(QStringLiteral("起動時の電源状態"),
                          Lines({{K::Group, nullptr, -1, nullptr, e1(6), 0, 0},
                                 {K::Option, "optJ80_16Op", 0, "OFF"},
                                 {K::Option, "optJ80_16Op", 1, "ON"}},
                                2)));
    FormLoad();
}

} // namespace tv
