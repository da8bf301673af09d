#include "adapters/pc88/frmM88Op.h"

#include "adapters/pc88/M88Modules.h"
#include "data/Cfg.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
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

const QString kChk2 = QStringLiteral("chkM88_2Op");
const QString kChk3 = QStringLiteral("chkM88_3Op");

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

// A number box with its up-down in one row.
QHBoxLayout* BoxRow(QLineEdit* box, QWidget* upDown, int width = 64)
{
    auto* row = new QHBoxLayout;
    row->setSpacing(1);
    box->setFixedWidth(width);
    row->addWidget(box);
    if (upDown)
        row->addWidget(upDown);
    return row;
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
    Build();
    ConnectInterlocks();
    FormLoad();
}

void frmM88Op::Build()
{
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
}

void frmM88Op::BuildCpu()
{
    QFrame* page = AddPage(QStringLiteral("CPU"));
    auto* v = new QVBoxLayout(page);

    auto* clock = new QGridLayout;
    QLineEdit* txtClock = Number(QStringLiteral("txtM88_1Op"), 1, Elem(Op.M88_1Op, 1), 100, 1);
    UpDown* udnClock = AddUpDown(txtClock, QStringLiteral("udnM88_1Op"), 1, 1, 100);
    clock->addWidget(Caption(QStringLiteral("CPU クロック")), 0, 0);
    clock->addLayout(BoxRow(txtClock, udnClock), 0, 1);
    clock->addWidget(Caption(QStringLiteral("MHz")), 0, 2);
    clock->addWidget(Check(kChk2, 2, QStringLiteral("全力駆動(&M)"), Elem(Op.M88_2Op, 2)), 1, 0, 1,
                     3);
    clock->setColumnStretch(3, 1);
    v->addWidget(GroupBox(QStringLiteral("CPU クロック"), clock));

    auto* speed = new QGridLayout;
    QSlider* sld = Slider(QStringLiteral("sldM88_1Op"), 2, Elem(Op.M88_1Op, 2), 20, 200, 10);
    // The speed moves in tens: a last digit of 5 or more rounds up.
    connect(sld, &QSlider::valueChanged, sld, [sld](int value) {
        const int rounded = (value + 5) / 10 * 10;
        if (rounded != value)
            sld->setValue(rounded);
    });
    speed->addWidget(Caption(QStringLiteral("速度"), QStringLiteral("lblM88_12Op(0)")), 0, 0);
    speed->addWidget(sld, 0, 1);
    speed->addWidget(ValueLabel(sld, QStringLiteral("lblM88_12Op"), 1,
                                [](int x) { return QString::number(x) + QStringLiteral(" %"); }),
                     0, 2);
    speed->addWidget(Check(kChk2, 9, QStringLiteral("速度調整省略(&N)"), Elem(Op.M88_2Op, 9)), 1, 0,
                     1, 3);
    speed->setColumnStretch(1, 1);
    v->addWidget(GroupBox(QStringLiteral("速度"), speed));

    auto* mode = new QHBoxLayout;
    OptGroup& g = Group(Elem(Op.M88_1Op, 7), 2);
    mode->addWidget(g.Add(QStringLiteral("optM88_17Op"), 0, QStringLiteral("1:1")));
    mode->addWidget(g.Add(QStringLiteral("optM88_17Op"), 1, QStringLiteral("2:1")));
    mode->addWidget(g.Add(QStringLiteral("optM88_17Op"), 2, QStringLiteral("自動")));
    mode->addStretch(1);
    v->addWidget(GroupBox(QStringLiteral("CPU モード (メイン:サブ)"), mode));

    auto* misc = new QVBoxLayout;
    misc->addWidget(
        Check(kChk2, 0, QStringLiteral("Sub CPU を常に駆動(&S)"), Elem(Op.M88_2Op, 0), true));
    misc->addWidget(Check(kChk2, 25, QStringLiteral("ウェイト(&W)"), Elem(Op.M88_2Op, 25)));
    misc->addWidget(
        Check(kChk3, 11, QStringLiteral("FDD ウェイト(&F)"), Elem(Op.M88_3Op, 11), true));
    v->addWidget(GroupBox(QStringLiteral("その他"), misc));
    v->addStretch(1);
}

void frmM88Op::BuildScreen()
{
    QFrame* page = AddPage(QStringLiteral("画面"));
    auto* v = new QVBoxLayout(page);

    auto* refresh = new QHBoxLayout;
    OptGroup& g = Group(Elem(Op.M88_1Op, 3), 2);
    const char* const texts[] = {"1:1(60Hz)", "1:2(30Hz)", "1:3(20Hz)", "1:4(15Hz)"};
    for (int i = 1; i <= 4; ++i)
        refresh->addWidget(
            g.Add(QStringLiteral("optM88_13Op"), i, QString::fromLatin1(texts[i - 1])));
    refresh->addStretch(1);
    v->addWidget(GroupBox(QStringLiteral("画面更新頻度"), refresh));

    auto* flags = new QVBoxLayout;
    const std::pair<int, const char*> rows[] = {{7, "PCG を使用(&P)"},
                                                {8, "15KHz モニターモード(&1)"},
                                                {15, "ディジタルパレットモード(&D)"},
                                                {17, "全画面時 640x480 にする(切り替え時有効)(&V)"},
                                                {20, "描画の優先度を下げる(&L)"},
                                                {22, "偶数ラインを表示する(&F)"}};
    for (auto [i, text] : rows)
        flags->addWidget(Check(kChk2, i, QString::fromUtf8(text), Elem(Op.M88_2Op, i)));
    flags->addWidget(
        Check(kChk3, 8, QStringLiteral("全画面モードでVSync に同期(&S)"), Elem(Op.M88_3Op, 8)));
    v->addWidget(GroupBox(QStringLiteral("表示"), flags));

    auto* status = new QVBoxLayout;
    for (auto [i, text] : {std::pair<int, const char*>{5, "Show Register"},
                           {23, "Show Status"},
                           {24, "Show ＦＤＣ Status"}})
        status->addWidget(Check(kChk2, i, QString::fromUtf8(text), Elem(Op.M88_2Op, i)));
    v->addWidget(GroupBox(QStringLiteral("ステータス"), status));
    v->addStretch(1);
}

void frmM88Op::BuildVolume()
{
    QFrame* page = AddPage(QStringLiteral("音量"));
    auto* v = new QVBoxLayout(page);
    const char* const names[] = {"FM", "SSG", "ADPCM", "Rhythm", "BD",
                                 "SD", "TOP", "HH",    "TOM",    "RIM"};
    auto sliderRows = [&](int from, int to) {
        auto* grid = new QGridLayout;
        for (int i = from; i <= to; ++i) {
            QSlider* s = Slider(QStringLiteral("sldM88_1Op"), i, Elem(Op.M88_1Op, i), 60, 120);
            const int row = i - from;
            QLabel* name = Caption(QString::fromLatin1(names[i - 9]));
            name->setMinimumWidth(64); // the sliders of both groups line up
            grid->addWidget(name, row, 0);
            grid->addWidget(s, row, 1);
            grid->addWidget(ValueLabel(s, QStringLiteral("lblM88_1Op"), i, VolumeText), row, 2);
        }
        grid->setColumnStretch(1, 1);
        return grid;
    };
    auto* source = sliderRows(9, 12);
    QPushButton* r9 = Button(QStringLiteral("cmdR_Sound"), 9, QStringLiteral("Reset Source"));
    source->addWidget(r9, 4, 1, Qt::AlignRight);
    connect(r9, &QPushButton::clicked, this, [this] {
        for (int i = 9; i <= 12; ++i)
            Control<QSlider>(QStringLiteral("sldM88_1Op"), i)->setValue(100);
    });
    v->addWidget(GroupBox(QStringLiteral("音源 (dB)"), source));

    auto* rhythm = sliderRows(13, 18);
    QPushButton* r13 = Button(QStringLiteral("cmdR_Sound"), 13, QStringLiteral("Reset Rhythm"));
    rhythm->addWidget(r13, 6, 1, Qt::AlignRight);
    connect(r13, &QPushButton::clicked, this, [this] {
        for (int i = 13; i <= 18; ++i)
            Control<QSlider>(QStringLiteral("sldM88_1Op"), i)->setValue(100);
    });
    v->addWidget(GroupBox(QStringLiteral("リズム (dB)"), rhythm));
    v->addStretch(1);
}

void frmM88Op::BuildSound()
{
    QFrame* page = AddPage(QStringLiteral("環境"));
    auto* grid = new QGridLayout(page);

    auto* rate = new QGridLayout;
    OptGroup& g = Group(Elem(Op.M88_1Op, 4), 2);
    const std::pair<int, const char*> rates[] = {{0, "Silent"}, {1, "11k"}, {2, "22k"},
                                                 {3, "44k"},    {5, "48k"}, {6, "55k"},
                                                 {7, "88k"},    {8, "96k"}, {9, "直指定"}};
    int n = 0;
    for (auto [i, text] : rates) {
        rate->addWidget(g.Add(QStringLiteral("optM88_14Op"), i, QString::fromUtf8(text)), n / 3,
                        n % 3);
        ++n;
    }
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

    auto* buffer = new QGridLayout;
    QLineEdit* txtBuf = Number(QStringLiteral("txtM88_1Op"), 5, Elem(Op.M88_1Op, 5), 1000, 5, 10);
    UpDown* udnBuf = AddUpDown(txtBuf, QStringLiteral("udnM88_1Op"), 5, 50, 1000, 10);
    buffer->addWidget(Caption(QStringLiteral("バッファ")), 0, 0);
    buffer->addLayout(BoxRow(txtBuf, udnBuf), 0, 1);
    buffer->addWidget(Caption(QStringLiteral("ms")), 0, 2);
    buffer->setColumnStretch(3, 1);
    buffer->addWidget(
        Check(kChk3, 1, QStringLiteral("waveOUT API で再生(&W)"), Elem(Op.M88_3Op, 1)), 1, 0, 1, 4);
    buffer->addWidget(
        Check(kChk3, 12, QStringLiteral("DirectSound&Notify を使う"), Elem(Op.M88_3Op, 12)), 2, 0,
        1, 4);
    buffer->setRowStretch(3, 1);
    grid->addWidget(GroupBox(QStringLiteral("再生"), buffer), 1, 0);

    auto* fm44 = new QVBoxLayout;
    QButtonGroup* g44 = NewButtonGroup();
    fm44->addWidget(RadioBit(g44, QStringLiteral("optM88_3op"), 0, QStringLiteral("なし(V2時OPN)"),
                             Elem(Op.M88_3Op, 0)));
    fm44->addWidget(
        RadioNone(g44, QStringLiteral("optM88_44hOPN"), -1, QStringLiteral("OPN 相当")));
    fm44->addWidget(RadioBit(g44, QStringLiteral("optM88_2Op"), 4, QStringLiteral("OPNA 相当(&2)"),
                             Elem(Op.M88_2Op, 4)));
    auto* fmA8 = new QVBoxLayout;
    QButtonGroup* gA8 = NewButtonGroup();
    fmA8->addWidget(RadioNone(gA8, QStringLiteral("optM88_A8hNone"), -1, QStringLiteral("なし")));
    fmA8->addWidget(RadioBit(gA8, QStringLiteral("optM88_2Op"), 18, QStringLiteral("OPN 相当"),
                             Elem(Op.M88_2Op, 18)));
    fmA8->addWidget(RadioBit(gA8, QStringLiteral("optM88_2Op"), 19, QStringLiteral("OPNA 相当"),
                             Elem(Op.M88_2Op, 19)));
    auto* sources = new QHBoxLayout;
    sources->addWidget(GroupBox(QStringLiteral("44h"), fm44));
    sources->addWidget(GroupBox(QStringLiteral("A8h"), fmA8));
    grid->addWidget(GroupBox(QStringLiteral("FM 音源"), sources), 0, 1);

    auto* synth = new QGridLayout;
    synth->addWidget(Check(kChk2, 29, QStringLiteral("音の合成を優先(&S)"), Elem(Op.M88_2Op, 29)),
                     0, 0, 1, 4);
    synth->addWidget(Check(kChk2, 30, QStringLiteral("高精度合成(&P)"), Elem(Op.M88_2Op, 30)), 1, 0,
                     1, 4);
    synth->addWidget(
        Check(kChk3, 6, QStringLiteral("FM 音を実クロックで合成(&F)"), Elem(Op.M88_3Op, 6)), 2, 0,
        1, 4);
    synth->addWidget(Check(kChk3, 10, QStringLiteral("&LPF を通す"), Elem(Op.M88_3Op, 10)), 3, 0, 1,
                     4);
    QLineEdit* txtCut = Number(QStringLiteral("txtM88_1Op"), 21, Elem(Op.M88_1Op, 21), 24, 1);
    QLineEdit* txtOrder = Number(QStringLiteral("txtM88_1Op"), 22, Elem(Op.M88_1Op, 22), 16, 1);
    synth->addWidget(Caption(QStringLiteral("カットオフ")), 4, 0);
    synth->addLayout(BoxRow(txtCut, AddUpDown(txtCut, QStringLiteral("udnM88_1Op"), 21, 1, 24), 48),
                     4, 1);
    synth->addWidget(Caption(QStringLiteral("kHz")), 4, 2);
    synth->addWidget(Caption(QStringLiteral("次数")), 5, 0);
    synth->addLayout(
        BoxRow(txtOrder, AddUpDown(txtOrder, QStringLiteral("udnM88_1Op"), 22, 1, 16), 48), 5, 1);
    synth->setColumnStretch(3, 1);
    grid->addWidget(GroupBox(QStringLiteral("合成"), synth), 1, 1);
    grid->setRowStretch(2, 1);
}

void frmM88Op::BuildOther()
{
    QFrame* page = AddPage(QStringLiteral("その他"));
    auto* grid = new QGridLayout(page);

    auto* keyboard = new QVBoxLayout;
    OptGroup& g = Group(Elem(Op.M88_1Op, 8), 2);
    keyboard->addWidget(
        g.Add(QStringLiteral("optM88_18Op"), 0, QStringLiteral("日本語 106 キーボード(&J)")));
    keyboard->addWidget(
        g.Add(QStringLiteral("optM88_18Op"), 1, QStringLiteral("PC-9801 キーボード(&9)")));
    for (auto [i, text] : {std::pair<int, const char*>{10, "キーによるメニュー起動を抑制(&K)"},
                           {12, "方向キーをテンキーに対応(&H)"},
                           {14, "CMD SIN&G を使う"},
                           {21, "F12 を Reset とする(&F)"}})
        keyboard->addWidget(
            Check(kChk2, i, QString::fromUtf8(text), Elem(Op.M88_2Op, i), i == 14 || i == 21));
    grid->addWidget(GroupBox(QStringLiteral("キーボード"), keyboard), 0, 0);

    auto* input = new QGridLayout;
    const std::pair<int, const char*> inputs[] = {{3, "ジョイパッドを使う(&J)"},
                                                  {13, "ジョイパッドのボタンを入れ替える(&S)"},
                                                  {26, "マウスを使う(&M)"},
                                                  {27, "マウスをジョイスティックモードで使用(&O)"}};
    int row = 0;
    for (auto [i, text] : inputs)
        input->addWidget(Check(kChk2, i, QString::fromUtf8(text), Elem(Op.M88_2Op, i)), row++, 0, 1,
                         3);
    QSlider* mouse = Slider(QStringLiteral("sldM88_1Op"), 6, Elem(Op.M88_1Op, 6), 1, 10);
    input->addWidget(Caption(QStringLiteral("マウス感度")), row, 0);
    input->addWidget(mouse, row, 1);
    input->addWidget(ValueLabel(mouse, QStringLiteral("lblM88_1Op"), 6,
                                [](int x) { return QString::number(x); }),
                     row, 2);
    input->setColumnStretch(1, 1);
    grid->addWidget(GroupBox(QStringLiteral("入力"), input), 1, 0);

    auto* env = new QVBoxLayout;
    env->addWidget(Check(kChk2, 6, QStringLiteral("リセット及び終了の際に確認をとる(&E)"),
                         Elem(Op.M88_2Op, 6)));
    // M88 must remember its directory for the launch to point it at the working directory.
    env->addWidget(Check(kChk2, 1, QStringLiteral("終了時のディレクトリを記憶(&D)"),
                         Elem(Op.M88_2Op, 1), false, 1));
    for (auto [i, text] :
         {std::pair<int, const char*>{5, "スクリーンショットのファイル名を自動生成(&C)"},
          {7, "スナップショットファイルを圧縮する(&M)"},
          {9, "ファイルダイアログの位置バーを表示する(&P)"}})
        env->addWidget(Check(kChk3, i, QString::fromUtf8(text), Elem(Op.M88_3Op, i)));
    env->addWidget(Check(QStringLiteral("chkM88_1Op"), 23,
                         QStringLiteral("RND4M88を併用(M88.EXEと同DIR)"), Elem(Op.M88_1Op, 23)));
    env->addStretch(1);
    grid->addWidget(GroupBox(QStringLiteral("動作"), env), 0, 1, 2, 1);
    grid->setRowStretch(2, 1);
}

void frmM88Op::BuildDipSw()
{
    QFrame* page = AddPage(QStringLiteral("DIP-SW"));
    auto* v = new QVBoxLayout(page);
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
    QFrame* page = AddPage(QStringLiteral("PCG"));
    auto* v = new QVBoxLayout(page);
    auto* grid = new QGridLayout;
    for (int i = 0; i <= 2; ++i) {
        QSlider* s = Slider(QStringLiteral("sldM88_6Op"), i, Elem(Op.M88_6Op, i), 60, 120);
        grid->addWidget(Caption(QStringLiteral("Volume") + QString::number(i)), i, 0);
        grid->addWidget(s, i, 1);
        grid->addWidget(ValueLabel(s, QStringLiteral("lblM88_6Op"), i, VolumeText), i, 2);
    }
    grid->setColumnStretch(1, 1);
    v->addWidget(GroupBox(QStringLiteral("PcgSound 音量 (dB)"), grid));
    v->addWidget(Caption(QStringLiteral("PcgSound モジュールを使うときに有効です。")));
    v->addStretch(1);
}

void frmM88Op::BuildRomeo()
{
    QFrame* page = AddPage(QStringLiteral("ろみお"));
    auto* v = new QVBoxLayout(page);
    v->addWidget(Check(QStringLiteral("chkM88_1Op"), 24, QStringLiteral("ROMEO(ろみお)を使用する"),
                       Elem(Op.M88_1Op, 24)));
    auto* grid = new QGridLayout;
    QSlider* s = Slider(QStringLiteral("sldM88_7Op"), 0, Elem(Op.M88_7Op, 0), 0, 500, 10);
    grid->addWidget(Caption(QStringLiteral("レイテンシ")), 0, 0);
    grid->addWidget(s, 0, 1);
    grid->addWidget(ValueLabel(s, QStringLiteral("lblM88_7Op"), -1,
                               [](int x) { return QString::number(x) + QStringLiteral(" ms"); }),
                    0, 2);
    grid->setColumnStretch(1, 1);
    v->addWidget(GroupBox(QStringLiteral("ROMEO"), grid));
    v->addWidget(Caption(QStringLiteral("PCIDEBUG のファイルは PAT 保存ディレクトリに置きます。")));
    v->addStretch(1);
}

void frmM88Op::BuildFm98()
{
    QFrame* page = AddPage(QStringLiteral("FM98"));
    auto* v = new QVBoxLayout(page);
    auto* grid = new QGridLayout;
    grid->addWidget(Caption(QStringLiteral("I/O ポート")), 0, 0);
    grid->addWidget(ComboLead(QStringLiteral("cbxM88_1Op"), 25,
                              {QStringLiteral("0 - AUTO"), QStringLiteral("1 - 0088"),
                               QStringLiteral("2 - 0188"), QStringLiteral("3 - 0288"),
                               QStringLiteral("4 - 0388")},
                              Elem(Op.M88_1Op, 25)),
                    0, 1, 1, 2);
    auto numberRow = [&](int row, const QString& caption, const QString& name, int index, OptElem e,
                         int limit, const QString& unit) {
        QLineEdit* t = Number(name, index, e, limit, 0);
        grid->addWidget(Caption(caption), row, 0);
        grid->addLayout(
            BoxRow(t, AddUpDown(t, QStringLiteral("udn") + name.mid(3), index, 0, limit), 72), row,
            1);
        grid->addWidget(Caption(unit), row, 2);
    };
    numberRow(1, QStringLiteral("レイテンシ"), QStringLiteral("txtM88_7Op"), 1, Elem(Op.M88_7Op, 1),
              500, QStringLiteral("ms"));
    numberRow(2, QStringLiteral("FM ウェイト"), QStringLiteral("txtM88_8Op"), 1,
              Elem(Op.M88_8Op, 1), 999999, QString());
    grid->addWidget(Check(QStringLiteral("chkM88_1Op"), 26, QStringLiteral("ADPCMのDRAMを使用"),
                          Elem(Op.M88_1Op, 26)),
                    3, 0, 1, 3);
    numberRow(4, QStringLiteral("DRAM ウェイト"), QStringLiteral("txtM88_8Op"), 2,
              Elem(Op.M88_8Op, 2), 999999, QString());
    grid->addWidget(Check(QStringLiteral("chkM88_1Op"), 27, QStringLiteral("ポートA8H～ADHを使用"),
                          Elem(Op.M88_1Op, 27)),
                    5, 0, 1, 3);
    grid->setColumnStretch(3, 1);
    v->addWidget(GroupBox(QStringLiteral("FM98"), grid));
    v->addWidget(Caption(QStringLiteral("FM98 モジュールを使うときに有効です。")));
    v->addStretch(1);
}

void frmM88Op::BuildMode()
{
    QFrame* page = AddPage(QStringLiteral("モード"));
    auto* grid = new QGridLayout(page);

    auto* basic = new QVBoxLayout;
    OptGroup& g = Group(Elem(Op.M88_1Op, 0), 49);
    const std::pair<int, const char*> modes[] = {
        {0, "N mode"},     {2, "N80-V1"},  {18, "N80-V2"},     {32, "N88-V1(S)"},
        {33, "N88-V1(H)"}, {49, "N88-V2"}, {113, "N88-V2(CD)"}};
    for (auto [i, text] : modes)
        basic->addWidget(g.Add(QStringLiteral("optM88_10Op"), i, QString::fromLatin1(text)));
    grid->addWidget(GroupBox(QStringLiteral("BASIC モード"), basic), 0, 0, 2, 1);

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

    auto* modules = new QGridLayout;
    for (int k = 0; k < 8; ++k)
        modules->addWidget(Check(QStringLiteral("chkM88_5Op"), k,
                                 QString::fromLatin1(M88ModuleCaptions[k]), Elem(Op.M88_5Op, k)),
                           k / 2, k % 2);
    grid->addWidget(GroupBox(QStringLiteral("拡張モジュール"), modules), 1, 1);
    grid->setRowStretch(2, 1);
    grid->setColumnStretch(1, 1);
}

void frmM88Op::ConnectInterlocks()
{
    auto chk2 = [this](int i) { return Control<QCheckBox>(kChk2, i); };
    const QString txt1 = QStringLiteral("txtM88_1Op");

    connect(chk2(2), &QCheckBox::toggled, this, [this, chk2, txt1](bool on) {
        if (on)
            chk2(9)->setChecked(false);
        SetValueEnabled(Control<QLineEdit>(txt1, 1), !on);
    });
    connect(chk2(3), &QCheckBox::toggled, this, [chk2](bool on) {
        if (on)
            chk2(26)->setChecked(false);
        chk2(13)->setEnabled(on);
    });
    connect(chk2(9), &QCheckBox::toggled, this, [this, chk2](bool on) {
        if (on)
            chk2(2)->setChecked(false);
        Control<QLabel>(QStringLiteral("lblM88_12Op"), 0)->setEnabled(!on);
        Control<QLabel>(QStringLiteral("lblM88_12Op"), 1)->setEnabled(!on);
        Control<QSlider>(QStringLiteral("sldM88_1Op"), 2)->setEnabled(!on);
    });
    connect(chk2(10), &QCheckBox::toggled, this, [chk2](bool on) {
        if (on)
            chk2(26)->setChecked(false);
    });
    connect(chk2(26), &QCheckBox::toggled, this, [chk2](bool on) {
        if (on) {
            chk2(10)->setChecked(false);
            chk2(3)->setChecked(false);
        }
        chk2(27)->setEnabled(on);
    });
    connect(Control<QCheckBox>(kChk3, 10), &QCheckBox::toggled, this, [this, txt1](bool on) {
        SetValueEnabled(Control<QLineEdit>(txt1, 21), on);
        SetValueEnabled(Control<QLineEdit>(txt1, 22), on);
    });
    // Every rate button decides whether the free rate can be typed.
    for (int i : {0, 1, 2, 3, 5, 6, 7, 8, 9}) {
        auto* b = Control<QRadioButton>(QStringLiteral("optM88_14Op"), i);
        connect(b, &QRadioButton::toggled, this, [this] {
            const bool on = Control<QRadioButton>(QStringLiteral("optM88_14Op"), 9)->isChecked();
            Control<QLabel>(QStringLiteral("lblM88_81Op"))->setEnabled(on);
            Control<QLabel>(QStringLiteral("lblM88_82Op"))->setEnabled(on);
            SetValueEnabled(Control<QLineEdit>(QStringLiteral("txtM88_8Op"), 0), on);
        });
    }
}

void frmM88Op::AfterLoad()
{
    // The enabled states that follow the loaded values, without clearing anything.
    auto chk2 = [this](int i) { return Control<QCheckBox>(kChk2, i)->isChecked(); };
    const QString txt1 = QStringLiteral("txtM88_1Op");
    SetValueEnabled(Control<QLineEdit>(txt1, 1), !chk2(2));
    Control<QCheckBox>(kChk2, 13)->setEnabled(chk2(3));
    for (int i : {0, 1})
        Control<QLabel>(QStringLiteral("lblM88_12Op"), i)->setEnabled(!chk2(9));
    Control<QSlider>(QStringLiteral("sldM88_1Op"), 2)->setEnabled(!chk2(9));
    Control<QCheckBox>(kChk2, 27)->setEnabled(chk2(26));
    const bool lpf = Control<QCheckBox>(kChk3, 10)->isChecked();
    SetValueEnabled(Control<QLineEdit>(txt1, 21), lpf);
    SetValueEnabled(Control<QLineEdit>(txt1, 22), lpf);
    const bool direct = Control<QRadioButton>(QStringLiteral("optM88_14Op"), 9)->isChecked();
    Control<QLabel>(QStringLiteral("lblM88_81Op"))->setEnabled(direct);
    Control<QLabel>(QStringLiteral("lblM88_82Op"))->setEnabled(direct);
    SetValueEnabled(Control<QLineEdit>(QStringLiteral("txtM88_8Op"), 0), direct);
}

} // namespace tv
