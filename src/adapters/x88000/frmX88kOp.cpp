#include "adapters/x88000/frmX88kOp.h"

#include "data/Cfg.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
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

// A frame with the given widgets side by side.
QGroupBox* Beside(const QString& title, const QList<QWidget*>& widgets)
{
    auto* h = new QHBoxLayout;
    for (QWidget* w : widgets)
        h->addWidget(w);
    h->addStretch(1);
    return GroupBox(title, h);
}

// A drive whose box is off goes out as 255.
constexpr int kDriveOff = 255;

} // namespace

void InitX88kOp(uint8_t TitleFlag)
{
    X88kOpTitleFlag = TitleFlag;
}

int ShowX88kOp(QWidget* parent)
{
    frmX88kOp dlg(parent);
    return dlg.exec();
}

frmX88kOp::frmX88kOp(QWidget* parent) : frmX88kOp(X88kOpTitleFlag, parent) {}

frmX88kOp::frmX88kOp(uint8_t titleFlag, QWidget* parent)
    : OptionBlockDialog<EmuOpt88>(Cfg.CfgEmuOpt88, CurEmuOpt88, titleFlag, parent)
{
    setObjectName(QStringLiteral("frmX88kOp"));
    setWindowTitle(QStringLiteral("X88000設定"));
    BuildDrives();
    BuildScreen();
    BuildGeneral();
    BuildSound();
    BuildInput();
    FormLoad();
}

OptElem frmX88kOp::E(int i)
{
    return Elem(Op.X88_1Op, i);
}

void frmX88kOp::BuildDrives()
{
    auto* v = new QVBoxLayout(AddPage(QStringLiteral("一般(FD設定)")));
    OptGroup& count = Group(E(4), 2);
    QList<QWidget*> countButtons;
    for (int n = 1; n <= 4; ++n)
        countButtons << count.Add(QStringLiteral("optX88_14Op"), n,
                                  QString::number(n) + QStringLiteral("ドライブ"));
    v->addWidget(Beside(QStringLiteral("ドライブ数"), countButtons));

    auto* grid = new QGridLayout;
    QList<QCheckBox*> checks;
    for (int i = 5; i <= 8; ++i) {
        const int line = i - 5;
        QCheckBox* chk = PlainCheck(QStringLiteral("chkX88_1Op"), i,
                                    QStringLiteral("ドライブ ") + QChar(0xFF10 + i - 4));
        QLineEdit* txt = NumberBox(QStringLiteral("txtX88_1Op"), i, 64);
        UpDown* udn = AddUpDown(txt, QStringLiteral("udnX88"), i, 0, 64);
        grid->addWidget(chk, line, 0);
        grid->addLayout(BoxRow(txt, udn), line, 1);
        // Box on: the number typed, empty 0; box off: the drive is off.
        const OptElem e = E(i);
        Custom(
            [chk, txt, e] {
                const int value = static_cast<int>(e.get());
                chk->setChecked(value != kDriveOff);
                txt->setText(value == kDriveOff ? QString() : QString::number(value));
            },
            [chk, txt, e] { e.set(chk->isChecked() ? txt->text().toInt() : kDriveOff); });
        Governs(chk, {txt, udn});
        checks << chk;
    }
    grid->setColumnStretch(2, 1);
    v->addWidget(GroupBox(QStringLiteral("ドライブ設定"), grid));
    // The drives beyond the count can't be set.
    QList<QWidget*> sources = countButtons;
    Rule(sources, [checks, countButtons] {
        int n = 0;
        for (int k = 0; k < countButtons.size(); ++k)
            if (static_cast<QRadioButton*>(countButtons[k])->isChecked())
                n = k + 1;
        for (int k = 0; k < checks.size(); ++k)
            checks[k]->setEnabled(k < n);
    });
    v->addWidget(GroupBox(QStringLiteral("ディスク"),
                          Lines({{K::Check, "chkX88_1Op", 9, "読込専用", E(9)}})));
    v->addStretch(1);
}

void frmX88kOp::BuildScreen()
{
    auto* v = new QVBoxLayout(AddPage(QStringLiteral("画面")));
    QComboBox* rate = ComboData(QStringLiteral("cbxX88_1Op"), 10,
                                {{QStringLiteral("20フレーム/秒"), 20},
                                 {QStringLiteral("30フレーム/秒"), 30},
                                 {QStringLiteral("40フレーム/秒"), 40},
                                 {QStringLiteral("60フレーム/秒"), 60}},
                                E(10));
    v->addWidget(Beside(QStringLiteral("フレームレート"), {rate}));
    v->addWidget(GroupBox(QStringLiteral("インタレース"),
                          Lines({{K::Group, nullptr, -1, nullptr, E(11), 0, 0},
                                 {K::Option, "optX88_111Op", 1, "する"},
                                 {K::Option, "optX88_111Op", 0, "しない"}},
                                2)));
    v->addWidget(GroupBox(QStringLiteral("CRT垂直同期"),
                          Lines({{K::Group, nullptr, -1, nullptr, E(21), 0, 0},
                                 {K::Option, "optX88_121Op", 0, "24KHz"},
                                 {K::Option, "optX88_121Op", 1, "15KHz"}},
                                2)));
    v->addStretch(1);
}

void frmX88kOp::BuildGeneral()
{
    auto* v = new QVBoxLayout(AddPage(QStringLiteral("一般")));
    QComboBox* basic = ComboData(QStringLiteral("cbxX88_1Op"), 0,
                                 {{QStringLiteral("N Basic"), 0},
                                  {QStringLiteral("V1S Mode"), 1},
                                  {QStringLiteral("V1H Mode"), 2},
                                  {QStringLiteral("V2 Mode"), 3},
                                  {QStringLiteral("N80 V1"), 4},
                                  {QStringLiteral("N80 V2"), 5}},
                                 E(0));
    QComboBox* clock =
        ComboData(QStringLiteral("cbxX88_1Op"), 1,
                  {{QStringLiteral("4 MHz"), 4}, {QStringLiteral("8 MHz"), 8}}, E(1));
    v->addWidget(Beside(QStringLiteral("BASICモード・CPUクロック"), {basic, clock}));

    QCheckBox* boost = Check(QStringLiteral("chkX88_1Op"), 2, QStringLiteral("ON"), E(2));
    QComboBox* limit = ComboData(QStringLiteral("cbxX88_1Op"), 3,
                                 {{QStringLiteral("V-MAX"), 0},
                                  {QStringLiteral("25%"), 1},
                                  {QStringLiteral("50%"), 2},
                                  {QStringLiteral("75%"), 3},
                                  {QStringLiteral("150%"), 6},
                                  {QStringLiteral("200%"), 8},
                                  {QStringLiteral("300%"), 12},
                                  {QStringLiteral("400%"), 16}},
                                 E(3));
    v->addWidget(Beside(QStringLiteral("ブーストモード"),
                        {boost, Caption(QStringLiteral("リミッタ")), limit}));
    Governs(boost, {limit});

    QComboBox* parallel =
        ComboData(QStringLiteral("cbxX88_1Op"), 20,
                  {{QStringLiteral("なし"), 0}, {QStringLiteral("PC-PR201"), 1}}, E(20));
    v->addWidget(Beside(QStringLiteral("パラレルポート"), {parallel}));
    v->addWidget(
        GroupBox(QStringLiteral("IME"), Lines({{K::Group, nullptr, -1, nullptr, E(13), 0, 0},
                                               {K::Option, "optX88_113Op", 1, "禁止する"},
                                               {K::Option, "optX88_113Op", 0, "許可する"}},
                                              2)));
    v->addWidget(GroupBox(QStringLiteral("エミュレーション"),
                          Lines({{K::Check, "chkX88_1Op", 22, "ウェイト(&W)", E(22)},
                                 {K::Check, "chkX88_1Op", 23, "旧機種互換(&O)", E(23)}},
                                2)));
    v->addStretch(1);
}

void frmX88kOp::BuildSound()
{
    auto* v = new QVBoxLayout(AddPage(QStringLiteral("サウンド")));
    v->addWidget(GroupBox(QStringLiteral("DirectSound"),
                          Lines({{K::Group, nullptr, -1, nullptr, E(14), 0, 0},
                                 {K::Option, "optX88_114Op", 1, "使用する"},
                                 {K::Option, "optX88_114Op", 0, "使用しない"}},
                                2)));
    QComboBox* freq = ComboData(QStringLiteral("cbxX88_1Op"), 15,
                                {{QStringLiteral("11025"), 1},
                                 {QStringLiteral("22050"), 2},
                                 {QStringLiteral("44100"), 4},
                                 {QStringLiteral("48000"), 0}},
                                E(15));
    QComboBox* bits =
        ComboData(QStringLiteral("cbxX88_1Op"), 16,
                  {{QStringLiteral("8ビット"), 8}, {QStringLiteral("16ビット"), 16}}, E(16));
    QComboBox* channels =
        ComboData(QStringLiteral("cbxX88_1Op"), 17,
                  {{QStringLiteral("モノラル"), 1}, {QStringLiteral("ステレオ"), 2}}, E(17));
    v->addWidget(Beside(QStringLiteral("フォーマット"), {freq, bits, channels}));
    v->addWidget(GroupBox(QStringLiteral("BEEP"),
                          Lines({{.kind = K::Slider,
                                  .name = "sldX88_1Op",
                                  .index = 18,
                                  .caption = "BEEP音量(&V)",
                                  .elem = E(18),
                                  .limit = 100,
                                  .format = [](int x) { return QString::number(x); }},
                                 {K::Check, "chkX88_1Op", 19, "ミュート(&M)", E(19)}})));
    v->addStretch(1);
}

void frmX88kOp::BuildInput()
{
    auto* v = new QVBoxLayout(AddPage(QStringLiteral("入力")));
    v->addWidget(GroupBox(QStringLiteral("DirectInput"),
                          Lines({{K::Group, nullptr, -1, nullptr, E(12), 0, 0},
                                 {K::Option, "optX88_112Op", 1, "使用する"},
                                 {K::Option, "optX88_112Op", 0, "使用しない"}},
                                2)));
    v->addStretch(1);
}

} // namespace tv
