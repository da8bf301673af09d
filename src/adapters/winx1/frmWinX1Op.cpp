#include "adapters/winx1/frmWinX1Op.h"

#include "data/Cfg.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <QSlider>
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

QString Plain(int v)
{
    return QString::number(v);
}

const char* const kNote = "設定は、WinX1起動時に有効になります。";

// The emulator's joystick buttons, each led by its number.
QStringList ButtonItems()
{
    QStringList items;
    for (int i = 0; i < 8; ++i)
        items << QStringLiteral("%1 - ボタン %1").arg(i);
    return items;
}

} // namespace

void InitWinX1Op(uint8_t TitleFlag)
{
    WinX1OpTitleFlag = TitleFlag;
}

int ShowWinX1Op(QWidget* parent)
{
    frmWinX1Op dlg(parent);
    return dlg.exec();
}

frmWinX1Op::frmWinX1Op(QWidget* parent) : frmWinX1Op(WinX1OpTitleFlag, parent) {}

frmWinX1Op::frmWinX1Op(uint8_t titleFlag, QWidget* parent)
    : OptionBlockDialog<EmuOptX1>(Cfg.CfgEmuOptX1, CurEmuOptX1, titleFlag, parent)
{
    setObjectName(QStringLiteral("frmWinX1Op"));
    setWindowTitle(QStringLiteral("WinX1設定"));
    BuildScreen();
    BuildSound();
    BuildX1();
    BuildJoystick();
    FormLoad();
}

void frmWinX1Op::BuildScreen()
{
    auto e = [this](int i) { return Elem(Op.WinX1_1Op, i); };
    auto* v = new QVBoxLayout(AddPage(QStringLiteral("表示設定")));
    v->addWidget(GroupBox(QStringLiteral("ラインスキップ"),
                          Lines({{K::Group, nullptr, -1, nullptr, e(6), 0, 1},
                                 {K::Option, "optWinX1_16Op", 0, "OFF"},
                                 {K::Option, "optWinX1_16Op", 1, "ON"}},
                                2)));
    v->addWidget(GroupBox(QStringLiteral("表示フレーム数"),
                          Lines({{K::Group, nullptr, -1, nullptr, e(7), 0, 1},
                                 {K::Option, "optWinX1_17Op", 1, "フル (60Hz)"},
                                 {K::Option, "optWinX1_17Op", 2, "1/2 (30Hz)"},
                                 {K::Option, "optWinX1_17Op", 3, "1/3 (20Hz)"},
                                 {K::Option, "optWinX1_17Op", 4, "1/4 (15Hz)"},
                                 {K::Option, "optWinX1_17Op", 6, "1/6 (10Hz)"},
                                 {K::Option, "optWinX1_17Op", 12, "1/12 (5Hz)"}},
                                3)));
    v->addWidget(
        GroupBox(QStringLiteral("その他"),
                 Lines({{K::Check, "chkWinX1_1Op", 8, "FDDアクセスランプを表示する", e(8)}})));
    v->addWidget(Caption(QString::fromUtf8(kNote), QStringLiteral("lblWinX1Note(0)")));
    v->addStretch(1);
}

void frmWinX1Op::BuildSound()
{
    auto e = [this](int i) { return Elem(Op.WinX1_1Op, i); };
    auto* v = new QVBoxLayout(AddPage(QStringLiteral("サウンド設定")));
    v->addWidget(GroupBox(QStringLiteral("音源"),
                          Lines({{K::Check, "chkWinX1_1Op", 0, "FM音源 （OPM） を使用する", e(0)},
                                 {.kind = K::Slider,
                                  .name = "sldWinX1_1Op",
                                  .index = 1,
                                  .caption = "OPM音量",
                                  .elem = e(1),
                                  .limit = 16,
                                  .format = Plain},
                                 {.kind = K::Slider,
                                  .name = "sldWinX1_1Op",
                                  .index = 2,
                                  .caption = "PSG音量",
                                  .elem = e(2),
                                  .limit = 16,
                                  .format = Plain},
                                 {K::Check, "chkWinX1_1Op", 19, "ろみお", e(19)}})));
    v->addWidget(GroupBox(QStringLiteral("サンプリングレート"),
                          Lines({{K::Group, nullptr, -1, nullptr, e(3), 0, 2},
                                 {K::Option, "optWinX1_13Op", 0, "サウンド無し"},
                                 {K::Option, "optWinX1_13Op", 1, "11kHz"},
                                 {K::Option, "optWinX1_13Op", 2, "22kHz"},
                                 {K::Option, "optWinX1_13Op", 4, "44kHz"}},
                                4)));
    v->addWidget(GroupBox(
        QStringLiteral("再生"),
        Lines({{.kind = K::Slider,
                .name = "sldWinX1_1Op",
                .index = 4,
                .caption = "バッファサイズ",
                .elem = e(4),
                .limit = 200,
                .minimum = 10,
                .format = Plain},
               {K::Check, "chkWinX1_1Op", 5, "起動時のDirectSound初期化失敗を警告する", e(5)}})));
    for (const auto& [i, page] : {std::pair{1, 3}, {2, 3}, {4, 38}})
        Control<QSlider>(QStringLiteral("sldWinX1_1Op"), i)->setPageStep(page);
    v->addStretch(1);
}

void frmWinX1Op::BuildX1()
{
    auto e = [this](int i) { return Elem(Op.WinX1_1Op, i); };
    auto* v = new QVBoxLayout(AddPage(QStringLiteral("X1設定")));
    v->addWidget(
        GroupBox(QStringLiteral("画面モード"), Lines({{K::Group, nullptr, -1, nullptr, e(9), 0, 0},
                                                      {K::Option, "optWinX1_19Op", 0, "ハイレゾ"},
                                                      {K::Option, "optWinX1_19Op", 1, "ノーマル"}},
                                                     2)));
    v->addWidget(
        GroupBox(QStringLiteral("IPL-ROM"), Lines({{K::Group, nullptr, -1, nullptr, e(10), 0, 1},
                                                   {K::Option, "optWinX1_110Op", 1, "X1"},
                                                   {K::Option, "optWinX1_110Op", 2, "X1turbo"}},
                                                  2)));
    v->addWidget(Caption(QString::fromUtf8(kNote), QStringLiteral("lblWinX1Note(1)")));
    v->addStretch(1);
}

void frmWinX1Op::BuildJoystick()
{
    auto* v = new QVBoxLayout(AddPage(QStringLiteral("ジョイスティック設定")));
    v->addWidget(Caption(QStringLiteral("JoyStick 名称"), QStringLiteral("lblWinX1JoyName")));
    const QStringList items = ButtonItems();
    auto* h = new QHBoxLayout;
    // Both frames carry the caption of the first stick, as the emulator's own dialog does.
    for (int first : {11, 15}) {
        std::vector<Row> rows;
        static const char* const captions[] = {"Btn1:", "Btn2:", "Btn3:", "Btn4:"};
        for (int k = 0; k < 4; ++k)
            rows.push_back({.kind = K::Lead,
                            .name = "cbxWinX1_1Op",
                            .index = first + k,
                            .caption = captions[k],
                            .elem = Elem(Op.WinX1_1Op, first + k),
                            .items = items});
        h->addWidget(GroupBox(QStringLiteral("JoyStick1"), Lines(rows)));
    }
    v->addLayout(h);
    v->addStretch(1);
}

} // namespace tv
