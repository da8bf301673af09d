#include "adapters/pc88win/frmPc88WinOp.h"

#include "data/Cfg.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
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

void InitPc88WinOp(uint8_t TitleFlag)
{
    Pc88WinOpTitleFlag = TitleFlag;
}

int ShowPc88WinOp(QWidget* parent)
{
    frmPc88WinOp dlg(parent);
    return dlg.exec();
}

frmPc88WinOp::frmPc88WinOp(QWidget* parent) : frmPc88WinOp(Pc88WinOpTitleFlag, parent) {}

frmPc88WinOp::frmPc88WinOp(uint8_t titleFlag, QWidget* parent)
    : OptionBlockDialog<EmuOpt88>(Cfg.CfgEmuOpt88, CurEmuOpt88, titleFlag, parent)
{
    setObjectName(QStringLiteral("frmPc88WinOp"));
    setWindowTitle(QStringLiteral("PC88Win設定"));
    auto e1 = [this](int i) { return Elem(Op.Pc8_1Op, i); };
    auto e2 = [this](int i) { return Elem(Op.Pc8_2Op, i); };
    const QStringList offOn{QStringLiteral("0 - OFF"), QStringLiteral("1 - ON")};
    auto* v = new QVBoxLayout(SinglePage());
    v->addWidget(GroupBox(QStringLiteral("動作設定  ( Options )"),
                          Lines({{.kind = K::Lead,
                                  .name = "cbxPc8_1Op",
                                  .index = 0,
                                  .caption = "動作モード",
                                  .elem = e1(0),
                                  .items = {"0 - N Mode", "1 - V1H Mode", "2 - V2 Mode"}},
                                 {.kind = K::Lead,
                                  .name = "cbxPc8_1Op",
                                  .index = 1,
                                  .caption = "CPUクロック",
                                  .elem = e1(1),
                                  .items = {"0 - 4 MHz", "1 - 8 MHz"}},
                                 {.kind = K::Number,
                                  .name = "txtPc8_1Op",
                                  .index = 3,
                                  .caption = "リフレッシュレート",
                                  .elem = e1(3),
                                  .limit = 60,
                                  .fallback = 1,
                                  .minimum = 1},
                                 {.kind = K::Lead,
                                  .name = "cbxPc8_1Op",
                                  .index = 4,
                                  .caption = "インタレースモード",
                                  .elem = e1(4),
                                  .items = offOn},
                                 {.kind = K::Lead,
                                  .name = "cbxPc8_1Op",
                                  .index = 6,
                                  .caption = "仮想キーコード",
                                  .elem = e1(6),
                                  .items = {"0 - OFF(106)", "1 - ON"}}},
                                1, 0, 150)));
    v->addWidget(GroupBox(QStringLiteral("サウンド設定  ( Sound )"),
                          Lines({{.kind = K::Lead,
                                  .name = "cbxPc8_1Op",
                                  .index = 2,
                                  .caption = "サンプリングレート",
                                  .elem = e1(2),
                                  .items = {"0 - 44 KHz", "1 - 22 KHz"}},
                                 {.kind = K::Lead,
                                  .name = "cbxPc8_1Op",
                                  .index = 5,
                                  .caption = "音の優先",
                                  .elem = e1(5),
                                  .items = offOn},
                                 {.kind = K::Lead,
                                  .name = "cbxPc8_1Op",
                                  .index = 7,
                                  .caption = "音源デバイス",
                                  .elem = e1(7),
                                  .items = {"0 - OPN", "1 - OPNA"}},
                                 {.kind = K::Number,
                                  .name = "txtPc8_2Op",
                                  .index = 0,
                                  .caption = "FM音源のボリューム",
                                  .elem = e2(0),
                                  .limit = 1024,
                                  .unit = "( Max 1024 )",
                                  .width = 72},
                                 {.kind = K::Number,
                                  .name = "txtPc8_2Op",
                                  .index = 1,
                                  .caption = "SSG･BEEP音源ボリューム",
                                  .elem = e2(1),
                                  .limit = 1024,
                                  .unit = "( Max 1024 )",
                                  .width = 72}},
                                1, 0, 150)));
    // The refresh rate can't be 0: a "0" typed into the box is taken out at once.
    QLineEdit* fps = Control<QLineEdit>(QStringLiteral("txtPc8_1Op"), 3);
    connect(fps, &QLineEdit::textChanged, fps, [fps](const QString& t) {
        if (t == QLatin1String("0"))
            fps->clear();
    });
    FormLoad();
}

} // namespace tv
