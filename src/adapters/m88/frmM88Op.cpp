#include "adapters/m88/frmM88Op.h"

#include "adapters/m88/M88Modules.h"
#include "data/Cfg.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QVBoxLayout>

namespace tv {

namespace {

using K = OptionDialog::RowKind;

QString VolumeText(int v)
{
    return v < 61 ? QStringLiteral("Mute") : QString::number(v - 100);
}

QGroupBox* GroupBox(const QString& title, QLayout* content)
{
    auto* g = new QGroupBox(title);
    g->setLayout(content);
    return g;
}

} // namespace

void InitM88Op(uint8_t TitleFlag)
{
    M88OpTitleFlag = TitleFlag;
}

int ShowM88Op(QWidget* parent)
{
    frmM88Op dlg(parent);
    return dlg.exec();
}

frmM88Op::frmM88Op(QWidget* parent) : frmM88Op(M88OpTitleFlag, parent) {}

frmM88Op::frmM88Op(uint8_t titleFlag, QWidget* parent)
    : OptionBlockDialog<EmuOpt88>(Cfg.CfgEmuOpt88, CurEmuOpt88, titleFlag, parent)
{
    setObjectName(QStringLiteral("frmM88Op"));
    setWindowTitle(QStringLiteral("M88設定"));
    BuildCpu();
    BuildScreen();
    BuildVolume();
    BuildSound();
    BuildOther();
    BuildDipSw();
    BuildPcg();
    BuildRomeo();
    BuildFm98();
    BuildMode();
    ConnectInterlocks();
    FormLoad();
}

// The elements of the block's arrays, as the tables name them.
OptElem frmM88Op::E1(int i)
{
    return Elem(Op.M88_1Op, i);
}
OptElem frmM88Op::E2(int i)
{
    return Elem(Op.M88_2Op, i);
}
OptElem frmM88Op::E3(int i)
{
    return Elem(Op.M88_3Op, i);
}

void frmM88Op::BuildCpu()
{
    auto* v = new QVBoxLayout(AddPage(QStringLiteral("CPU")));
    v->addWidget(GroupBox(QStringLiteral("CPU クロック"),
                          Lines({{.kind = K::Number,
                                  .name = "txtM88_1Op",
                                  .index = 1,
                                  .caption = "CPU クロック",
                                  .elem = E1(1),
                                  .limit = 100,
                                  .fallback = 1,
                                  .minimum = 1,
                                  .unit = "MHz"},
                                 {K::Check, "chkM88_2Op", 2, "全力駆動(&M)", E2(2)}})));
    v->addWidget(GroupBox(QStringLiteral("速度"),
                          Lines({{.kind = K::Slider,
                                  .name = "sldM88_1Op",
                                  .index = 2,
                                  .caption = "速度",
                                  .elem = E1(2),
                                  .limit = 200,
                                  .minimum = 20,
                                  .step = 10,
                                  .format = [](int x) { return QString::number(x) + " %"; },
                                  .valueName = "lblM88_12Op(1)",
                                  .captionName = "lblM88_12Op(0)"},
                                 {K::Check, "chkM88_2Op", 9, "速度調整省略(&N)", E2(9)}})));
    // The speed moves in tens: a last digit of 5 or more rounds up.
    QSlider* sld = Control<QSlider>(QStringLiteral("sldM88_1Op"), 2);
    connect(sld, &QSlider::valueChanged, sld, [sld](int value) {
        const int rounded = (value + 5) / 10 * 10;
        if (rounded != value)
            sld->setValue(rounded);
    });
    v->addWidget(GroupBox(QStringLiteral("CPU モード (メイン:サブ)"),
                          Lines({{K::Group, nullptr, -1, nullptr, E1(7), 0, 2},
                                 {K::Option, "optM88_17Op", 0, "1:1"},
                                 {K::Option, "optM88_17Op", 1, "2:1"},
                                 {K::Option, "optM88_17Op", 2, "自動"}},
                                3)));
    v->addWidget(GroupBox(QStringLiteral("その他"),
                          Lines({{K::CheckNot, "chkM88_2Op", 0, "Sub CPU を常に駆動(&S)", E2(0)},
                                 {K::Check, "chkM88_2Op", 25, "ウェイト(&W)", E2(25)},
                                 {K::CheckNot, "chkM88_3Op", 11, "FDD ウェイト(&F)", E3(11)}})));
    v->addStretch(1);
}

void frmM88Op::BuildScreen()
{
    auto* v = new QVBoxLayout(AddPage(QStringLiteral("画面")));
    v->addWidget(GroupBox(QStringLiteral("画面更新頻度"),
                          Lines({{K::Group, nullptr, -1, nullptr, E1(3), 0, 2},
                                 {K::Option, "optM88_13Op", 1, "1:1(60Hz)"},
                                 {K::Option, "optM88_13Op", 2, "1:2(30Hz)"},
                                 {K::Option, "optM88_13Op", 3, "1:3(20Hz)"},
                                 {K::Option, "optM88_13Op", 4, "1:4(15Hz)"}},
                                4)));
    v->addWidget(GroupBox(
        QStringLiteral("表示"),
        Lines({{K::Check, "chkM88_2Op", 7, "PCG を使用(&P)", E2(7)},
               {K::Check, "chkM88_2Op", 8, "15KHz モニターモード(&1)", E2(8)},
               {K::Check, "chkM88_2Op", 15, "ディジタルパレットモード(&D)", E2(15)},
               {K::Check, "chkM88_2Op", 17, "全画面時 640x480 にする(切り替え時有効)(&V)", E2(17)},
               {K::Check, "chkM88_2Op", 20, "描画の優先度を下げる(&L)", E2(20)},
               {K::Check, "chkM88_2Op", 22, "偶数ラインを表示する(&F)", E2(22)},
               {K::Check, "chkM88_3Op", 8, "全画面モードでVSync に同期(&S)", E3(8)}})));
    v->addWidget(GroupBox(QStringLiteral("ステータス"),
                          Lines({{K::Check, "chkM88_2Op", 5, "Show Register", E2(5)},
                                 {K::Check, "chkM88_2Op", 23, "Show Status", E2(23)},
                                 {K::Check, "chkM88_2Op", 24, "Show ＦＤＣ Status", E2(24)}})));
    v->addStretch(1);
}

void frmM88Op::BuildVolume()
{
    auto* v = new QVBoxLayout(AddPage(QStringLiteral("音量")));
    const char* const names[] = {"FM", "SSG", "ADPCM", "Rhythm", "BD",
                                 "SD", "TOP", "HH",    "TOM",    "RIM"};
    // The volumes from..to, with the button that resets them to 100 below.
    auto volumes = [&](int from, int to, int reset, const char* caption) {
        std::vector<Row> rows;
        for (int i = from; i <= to; ++i)
            rows.push_back({.kind = K::Slider,
                            .name = "sldM88_1Op",
                            .index = i,
                            .caption = names[i - 9],
                            .elem = E1(i),
                            .limit = 120,
                            .minimum = 60,
                            .format = VolumeText});
        // The captions of both groups have one width, so that their sliders line up.
        QGridLayout* grid = Lines(rows, 1, 1, 64);
        QPushButton* b = Button(QStringLiteral("cmdR_Sound"), reset, QString::fromUtf8(caption));
        grid->addWidget(b, to - from + 1, 1, Qt::AlignRight);
        connect(b, &QPushButton::clicked, this, [this, from, to] {
            for (int i = from; i <= to; ++i)
                Control<QSlider>(QStringLiteral("sldM88_1Op"), i)->setValue(100);
        });
        return grid;
    };
    v->addWidget(GroupBox(QStringLiteral("音源 (dB)"), volumes(9, 12, 9, "Reset Source")));
    v->addWidget(GroupBox(QStringLiteral("リズム (dB)"), volumes(13, 18, 13, "Reset Rhythm")));
    v->addStretch(1);
}

void frmM88Op::BuildSound()
{
    auto* grid = new QGridLayout(AddPage(QStringLiteral("環境")));

    QGridLayout* rate = Lines({{K::Group, nullptr, -1, nullptr, E1(4), 0, 2},
                               {K::Option, "optM88_14Op", 0, "Silent"},
                               {K::Option, "optM88_14Op", 1, "11k"},
                               {K::Option, "optM88_14Op", 2, "22k"},
                               {K::Option, "optM88_14Op", 3, "44k"},
                               {K::Option, "optM88_14Op", 5, "48k"},
                               {K::Option, "optM88_14Op", 6, "55k"},
                               {K::Option, "optM88_14Op", 7, "88k"},
                               {K::Option, "optM88_14Op", 8, "96k"},
                               {K::Option, "optM88_14Op", 9, "直指定"}},
                              3, 1);
    QLineEdit* txtRate =
        Number(QStringLiteral("txtM88_8Op"), 0, Elem(Op.M88_8Op, 0), 110932, 22050);
    UpDown* udnRate = AddUpDown(txtRate, QStringLiteral("udnM88_8Op"), 0, 8000, 110932, 100);
    auto* direct = new QHBoxLayout;
    direct->addWidget(Caption(QStringLiteral("レート"), QStringLiteral("lblM88_81Op")));
    direct->addLayout(BoxRow(txtRate, udnRate, 72));
    direct->addWidget(Caption(QStringLiteral("Hz"), QStringLiteral("lblM88_82Op")));
    direct->addStretch(1);
    rate->addLayout(direct, 3, 0, 1, 3);
    grid->addWidget(GroupBox(QStringLiteral("サンプリングレート"), rate), 0, 0);

    grid->addWidget(
        GroupBox(QStringLiteral("再生"),
                 Lines({{.kind = K::Number,
                         .name = "txtM88_1Op",
                         .index = 5,
                         .caption = "バッファ",
                         .elem = E1(5),
                         .limit = 1000,
                         .fallback = 5,
                         .minimum = 50,
                         .step = 10,
                         .unit = "ms",
                         .scale = 10},
                        {K::Check, "chkM88_3Op", 1, "waveOUT API で再生(&W)", E3(1)},
                        {K::Check, "chkM88_3Op", 12, "DirectSound&Notify を使う", E3(12)}})),
        1, 0);

    auto* fm44 = new QVBoxLayout;
    QButtonGroup* g44 = NewButtonGroup();
    fm44->addWidget(
        RadioBit(g44, QStringLiteral("optM88_3op"), 0, QStringLiteral("なし(V2時OPN)"), E3(0)));
    fm44->addWidget(
        RadioNone(g44, QStringLiteral("optM88_44hOPN"), -1, QStringLiteral("OPN 相当")));
    fm44->addWidget(
        RadioBit(g44, QStringLiteral("optM88_2Op"), 4, QStringLiteral("OPNA 相当(&2)"), E2(4)));
    auto* fmA8 = new QVBoxLayout;
    QButtonGroup* gA8 = NewButtonGroup();
    fmA8->addWidget(RadioNone(gA8, QStringLiteral("optM88_A8hNone"), -1, QStringLiteral("なし")));
    fmA8->addWidget(
        RadioBit(gA8, QStringLiteral("optM88_2Op"), 18, QStringLiteral("OPN 相当"), E2(18)));
    fmA8->addWidget(
        RadioBit(gA8, QStringLiteral("optM88_2Op"), 19, QStringLiteral("OPNA 相当"), E2(19)));
    auto* sources = new QHBoxLayout;
    sources->addWidget(GroupBox(QStringLiteral("44h"), fm44));
    sources->addWidget(GroupBox(QStringLiteral("A8h"), fmA8));
    grid->addWidget(GroupBox(QStringLiteral("FM 音源"), sources), 0, 1);

    grid->addWidget(
        GroupBox(QStringLiteral("合成"),
                 Lines({{K::Check, "chkM88_2Op", 29, "音の合成を優先(&S)", E2(29)},
                        {K::Check, "chkM88_2Op", 30, "高精度合成(&P)", E2(30)},
                        {K::Check, "chkM88_3Op", 6, "FM 音を実クロックで合成(&F)", E3(6)},
                        {K::Check, "chkM88_3Op", 10, "&LPF を通す", E3(10)},
                        {.kind = K::Number,
                         .name = "txtM88_1Op",
                         .index = 21,
                         .caption = "カットオフ",
                         .elem = E1(21),
                         .limit = 24,
                         .fallback = 1,
                         .minimum = 1,
                         .unit = "kHz",
                         .width = 48},
                        {.kind = K::Number,
                         .name = "txtM88_1Op",
                         .index = 22,
                         .caption = "次数",
                         .elem = E1(22),
                         .limit = 16,
                         .fallback = 1,
                         .minimum = 1,
                         .width = 48}})),
        1, 1);
    grid->setRowStretch(2, 1);
}

void frmM88Op::BuildOther()
{
    auto* grid = new QGridLayout(AddPage(QStringLiteral("その他")));
    grid->addWidget(
        GroupBox(QStringLiteral("キーボード"),
                 Lines({{K::Group, nullptr, -1, nullptr, E1(8), 0, 2},
                        {K::Option, "optM88_18Op", 0, "日本語 106 キーボード(&J)"},
                        {K::Option, "optM88_18Op", 1, "PC-9801 キーボード(&9)"},
                        {K::Check, "chkM88_2Op", 10, "キーによるメニュー起動を抑制(&K)", E2(10)},
                        {K::Check, "chkM88_2Op", 12, "方向キーをテンキーに対応(&H)", E2(12)},
                        {K::CheckNot, "chkM88_2Op", 14, "CMD SIN&G を使う", E2(14)},
                        {K::CheckNot, "chkM88_2Op", 21, "F12 を Reset とする(&F)", E2(21)}})),
        0, 0);
    grid->addWidget(
        GroupBox(
            QStringLiteral("入力"),
            Lines({{K::Check, "chkM88_2Op", 3, "ジョイパッドを使う(&J)", E2(3)},
                   {K::Check, "chkM88_2Op", 13, "ジョイパッドのボタンを入れ替える(&S)", E2(13)},
                   {K::Check, "chkM88_2Op", 26, "マウスを使う(&M)", E2(26)},
                   {K::Check, "chkM88_2Op", 27, "マウスをジョイスティックモードで使用(&O)", E2(27)},
                   {.kind = K::Slider,
                    .name = "sldM88_1Op",
                    .index = 6,
                    .caption = "マウス感度",
                    .elem = E1(6),
                    .limit = 10,
                    .minimum = 1,
                    .format = [](int x) { return QString::number(x); }}})),
        1, 0);
    // M88 must remember its directory for the launch to point it at the working directory, so
    // that box always stores 1.
    grid->addWidget(
        GroupBox(
            QStringLiteral("動作"),
            Lines(
                {{K::Check, "chkM88_2Op", 6, "リセット及び終了の際に確認をとる(&E)", E2(6)},
                 {K::CheckSet, "chkM88_2Op", 1, "終了時のディレクトリを記憶(&D)", E2(1), 0, 1},
                 {K::Check, "chkM88_3Op", 5, "スクリーンショットのファイル名を自動生成(&C)", E3(5)},
                 {K::Check, "chkM88_3Op", 7, "スナップショットファイルを圧縮する(&M)", E3(7)},
                 {K::Check, "chkM88_3Op", 9, "ファイルダイアログの位置バーを表示する(&P)", E3(9)},
                 {K::Check, "chkM88_1Op", 23, "RND4M88を併用(M88.EXEと同DIR)", E1(23)}})),
        0, 1, 2, 1);
    grid->setRowStretch(2, 1);
}

void frmM88Op::BuildDipSw()
{
    auto* v = new QVBoxLayout(AddPage(QStringLiteral("DIP-SW")));
    auto* grid = new QGridLayout;
    const std::array<std::array<const char*, 3>, 12> rows = {{
        {"起動時のモード(&M)", "ターミナル", "BASIC"},
        {"１行あたりの文字数(&W)", "80 文字", "40 文字"},
        {"１画面あたりの行数(&H)", "25 行", "20 行"},
        {"S パラメータ(&S)", "有効", "無効"},
        {"DELコード受信時(&J)", "処理する", "無視する"},
        {"パリティチェック(&P)", "パリティあり", "パリティ無し"},
        {"パリティ指定(&Q)", "偶数", "奇数"},
        {"データビット長(&D)", "8 ビット", "7 ビット"},
        {"ストップビット長(&T)", "2 ビット", "1 ビット"},
        {"X パラメータ(&X)", "有効", "無効"},
        {"通信方式(&H)", "半二重", "全二重"},
        {"FDD より起動(&B)", "自動", "起動しない"},
    }};
    for (int i = 0; i < 12; ++i) {
        OptGroup& g = Group(Elem(Op.M88_4Op, i), 0);
        QRadioButton* even =
            g.Add(QStringLiteral("optM88_4Op"), 2 * i, QString::fromUtf8(rows[i][1]), 0);
        QRadioButton* odd =
            g.Add(QStringLiteral("optM88_4Op"), 2 * i + 1, QString::fromUtf8(rows[i][2]), 1);
        QLabel* label = Caption(QString::fromUtf8(rows[i][0]));
        label->setBuddy(even);
        grid->addWidget(label, i, 0);
        grid->addWidget(even, i, 1);
        grid->addWidget(odd, i, 2);
    }
    grid->setColumnStretch(3, 1);
    v->addWidget(GroupBox(QStringLiteral("ディップスイッチ"), grid));
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    QPushButton* def = Button(QStringLiteral("cmdDefault"), -1, QStringLiteral("Dfault"));
    connect(def, &QPushButton::clicked, this, [this] { cmdDefault_Click(); });
    row->addWidget(def);
    v->addLayout(row);
    v->addStretch(1);
}

void frmM88Op::cmdDefault_Click()
{
    // The emulator's own DIP switch defaults; only the controls change until Apply or OK.
    for (int i : {1, 2, 5, 6, 8, 11, 12, 14, 17, 19, 21, 22})
        Control<QRadioButton>(QStringLiteral("optM88_4Op"), i)->setChecked(true);
}

void frmM88Op::BuildPcg()
{
    auto* v = new QVBoxLayout(AddPage(QStringLiteral("PCG")));
    std::vector<Row> rows;
    const char* const captions[] = {"Volume0", "Volume1", "Volume2"};
    for (int i = 0; i <= 2; ++i)
        rows.push_back({.kind = K::Slider,
                        .name = "sldM88_6Op",
                        .index = i,
                        .caption = captions[i],
                        .elem = Elem(Op.M88_6Op, i),
                        .limit = 120,
                        .minimum = 60,
                        .format = VolumeText});
    v->addWidget(GroupBox(QStringLiteral("PcgSound 音量 (dB)"), Lines(rows)));
    v->addWidget(Caption(QStringLiteral("PcgSound モジュールを使うときに有効です。")));
    v->addStretch(1);
}

void frmM88Op::BuildRomeo()
{
    auto* v = new QVBoxLayout(AddPage(QStringLiteral("ろみお")));
    v->addWidget(
        Check(QStringLiteral("chkM88_1Op"), 24, QStringLiteral("ROMEO(ろみお)を使用する"), E1(24)));
    v->addWidget(GroupBox(QStringLiteral("ROMEO"),
                          Lines({{.kind = K::Slider,
                                  .name = "sldM88_7Op",
                                  .index = 0,
                                  .caption = "レイテンシ",
                                  .elem = Elem(Op.M88_7Op, 0),
                                  .limit = 500,
                                  .step = 10,
                                  .format = [](int x) { return QString::number(x) + " ms"; },
                                  .valueName = "lblM88_7Op"}})));
    v->addWidget(Caption(QStringLiteral("PCIDEBUG のファイルは PAT 保存ディレクトリに置きます。")));
    v->addStretch(1);
}

void frmM88Op::BuildFm98()
{
    auto* v = new QVBoxLayout(AddPage(QStringLiteral("FM98")));
    auto number = [](const char* caption, const char* name, int index, OptElem e, int limit,
                     const char* unit) {
        return Row{.kind = K::Number,
                   .name = name,
                   .index = index,
                   .caption = caption,
                   .elem = e,
                   .limit = double(limit),
                   .unit = unit,
                   .width = 72};
    };
    v->addWidget(
        GroupBox(QStringLiteral("FM98"),
                 Lines({{.kind = K::Lead,
                         .name = "cbxM88_1Op",
                         .index = 25,
                         .caption = "I/O ポート",
                         .elem = E1(25),
                         .items = {QStringLiteral("0 - AUTO"), QStringLiteral("1 - 0088"),
                                   QStringLiteral("2 - 0188"), QStringLiteral("3 - 0288"),
                                   QStringLiteral("4 - 0388")}},
                        number("レイテンシ", "txtM88_7Op", 1, Elem(Op.M88_7Op, 1), 500, "ms"),
                        number("FM ウェイト", "txtM88_8Op", 1, Elem(Op.M88_8Op, 1), 999999, ""),
                        {K::Check, "chkM88_1Op", 26, "ADPCMのDRAMを使用", E1(26)},
                        number("DRAM ウェイト", "txtM88_8Op", 2, Elem(Op.M88_8Op, 2), 999999, ""),
                        {K::Check, "chkM88_1Op", 27, "ポートA8H～ADHを使用", E1(27)}})));
    v->addWidget(Caption(QStringLiteral("FM98 モジュールを使うときに有効です。")));
    v->addStretch(1);
}

void frmM88Op::BuildMode()
{
    auto* grid = new QGridLayout(AddPage(QStringLiteral("モード")));
    grid->addWidget(GroupBox(QStringLiteral("BASIC モード"),
                             Lines({{K::Group, nullptr, -1, nullptr, E1(0), 0, 49},
                                    {K::Option, "optM88_10Op", 0, "N mode"},
                                    {K::Option, "optM88_10Op", 2, "N80-V1"},
                                    {K::Option, "optM88_10Op", 18, "N80-V2"},
                                    {K::Option, "optM88_10Op", 32, "N88-V1(S)"},
                                    {K::Option, "optM88_10Op", 33, "N88-V1(H)"},
                                    {K::Option, "optM88_10Op", 49, "N88-V2"},
                                    {K::Option, "optM88_10Op", 113, "N88-V2(CD)"}})),
                    0, 0, 2, 1);

    auto* eram = new QGridLayout;
    QLineEdit* txtBanks = NumberBox(QStringLiteral("txtM88_1Op"), 19, 256);
    QLabel* lblBanks = Caption(QString(), QStringLiteral("lblM88_1Op(19)"));
    auto showBanks = [txtBanks, lblBanks] {
        const int n = txtBanks->text().toInt();
        lblBanks->setText(n == 0 ? QStringLiteral("Nothing")
                                 : QString::number(32 * n) + QStringLiteral(" KB"));
    };
    connect(txtBanks, &QLineEdit::textChanged, lblBanks, showBanks);
    // The block holds the bank count less one and a flag of presence.
    Custom(
        [this, txtBanks, showBanks] {
            txtBanks->setText(QString::number(Op.M88_1Op[20] == 1 ? Op.M88_1Op[19] + 1 : 0));
            showBanks();
        },
        [this, txtBanks] {
            const int n = txtBanks->text().toInt();
            if (n == 0) {
                Op.M88_1Op[20] = 0;
                return;
            }
            Op.M88_1Op[20] = 1;
            Op.M88_1Op[19] = static_cast<uint8_t>(n - 1);
        });
    eram->addWidget(Caption(QStringLiteral("バンク数")), 0, 0);
    eram->addLayout(
        BoxRow(txtBanks, AddUpDown(txtBanks, QStringLiteral("udnM88_1Op"), 19, 0, 256), 48), 0, 1);
    eram->addWidget(lblBanks, 0, 2);
    eram->setColumnStretch(3, 1);
    grid->addWidget(GroupBox(QStringLiteral("拡張 RAM"), eram), 0, 1);

    std::vector<Row> modules;
    for (int k = 0; k < 8; ++k)
        modules.push_back({K::Check, "chkM88_5Op", k, M88ModuleCaptions[k], Elem(Op.M88_5Op, k)});
    grid->addWidget(GroupBox(QStringLiteral("拡張モジュール"), Lines(modules, 2)), 1, 1);
    grid->setRowStretch(2, 1);
    grid->setColumnStretch(1, 1);
}

void frmM88Op::ConnectInterlocks()
{
    auto chk2 = [this](int i) { return Control<QCheckBox>(QStringLiteral("chkM88_2Op"), i); };
    auto txt1 = [this](int i) { return Control<QLineEdit>(QStringLiteral("txtM88_1Op"), i); };

    // Switches that exclude one another: checking one clears the others.
    Clears(chk2(2), {chk2(9)});
    Clears(chk2(3), {chk2(26)});
    Clears(chk2(9), {chk2(2)});
    Clears(chk2(10), {chk2(26)});
    Clears(chk2(26), {chk2(10), chk2(3)});

    // What each switch enables.
    Rule({chk2(2)}, [=] { SetValueEnabled(txt1(1), !chk2(2)->isChecked()); });
    Rule({chk2(3)}, [=] { chk2(13)->setEnabled(chk2(3)->isChecked()); });
    Rule({chk2(9)}, [=, this] {
        const bool on = !chk2(9)->isChecked();
        Control<QLabel>(QStringLiteral("lblM88_12Op"), 0)->setEnabled(on);
        Control<QLabel>(QStringLiteral("lblM88_12Op"), 1)->setEnabled(on);
        Control<QSlider>(QStringLiteral("sldM88_1Op"), 2)->setEnabled(on);
    });
    Rule({chk2(26)}, [=] { chk2(27)->setEnabled(chk2(26)->isChecked()); });
    auto* lpf = Control<QCheckBox>(QStringLiteral("chkM88_3Op"), 10);
    Rule({lpf}, [=] {
        SetValueEnabled(txt1(21), lpf->isChecked());
        SetValueEnabled(txt1(22), lpf->isChecked());
    });
    // Every rate button decides whether the free rate can be typed.
    QList<QWidget*> rates;
    for (int i : {0, 1, 2, 3, 5, 6, 7, 8, 9})
        rates << Control<QRadioButton>(QStringLiteral("optM88_14Op"), i);
    Rule(rates, [this] {
        const bool on = Control<QRadioButton>(QStringLiteral("optM88_14Op"), 9)->isChecked();
        Control<QLabel>(QStringLiteral("lblM88_81Op"))->setEnabled(on);
        Control<QLabel>(QStringLiteral("lblM88_82Op"))->setEnabled(on);
        SetValueEnabled(Control<QLineEdit>(QStringLiteral("txtM88_8Op"), 0), on);
    });
}

} // namespace tv
