#include "adapters/quasi88/frmQuasi88Op.h"

#include "adapters/quasi88/Quasi88Ini.h"
#include "adapters/quasi88/frmQuasi88Op2.h"
#include "data/Cfg.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
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

// Lets a point into a float box when the text with a point behind it is still a number, so
// that a second point is swallowed; every other key goes on to the number filter.
class PointFilter : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::KeyPress)
            return false;
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->text() != QLatin1String("."))
            return false;
        auto* box = qobject_cast<QLineEdit*>(watched);
        bool ok = false;
        (box->text() + QLatin1Char('.')).toDouble(&ok);
        if (ok)
            box->insert(QStringLiteral("."));
        return true;
    }
};

// The list entries by ListIndex.
QList<QPair<QString, int>> Indexed(const QStringList& texts)
{
    QList<QPair<QString, int>> out;
    for (int i = 0; i < texts.size(); ++i)
        out.append({texts[i], i});
    return out;
}

QStringList FunctionItems()
{
    QStringList items{QStringLiteral("default")};
    for (size_t f = 1; f < Quasi88FunctionName.size(); ++f)
        items << QString::fromLatin1(Quasi88FunctionName[f]);
    return items;
}

} // namespace

void InitQ88Op(uint8_t TitleFlag)
{
    Q88OpTitleFlag = TitleFlag;
}

int ShowQuasi88Op(QWidget* parent)
{
    frmQuasi88Op dlg(parent);
    return dlg.exec();
}

frmQuasi88Op::frmQuasi88Op(QWidget* parent) : frmQuasi88Op(Q88OpTitleFlag, parent) {}

frmQuasi88Op::frmQuasi88Op(uint8_t titleFlag, QWidget* parent)
    : OptionBlockDialog<EmuOpt88>(Cfg.CfgEmuOpt88, CurEmuOpt88, titleFlag, parent)
{
    setObjectName(QStringLiteral("frmQuasi88Op"));
    setWindowTitle(QStringLiteral("QUASI88設定"));
    BuildSystem();
    BuildCpu();
    BuildScreen();
    BuildSound();
    BuildKeys();
    // The DIP switches travel through Q88DipWork, filled on load and read back on store.
    Custom([this] { Q88DipWork = Op.Q88_2Op; }, [this] { Op.Q88_2Op = Q88DipWork; });
    FormLoad();
    // After the load, whose key preview the point must pass before.
    for (int i = 0; i < 4; ++i)
        if (QLineEdit* box = Control<QLineEdit>(QStringLiteral("txtQ88_4Op"), i))
            box->installEventFilter(new PointFilter(box));
}

OptElem frmQuasi88Op::E1(int i)
{
    return Elem(Op.Q88_1Op, size_t(i));
}

QLineEdit* frmQuasi88Op::FloatBox(int index, double limit, float fallback)
{
    QLineEdit* box = NumberBox(QStringLiteral("txtQ88_4Op"), index, limit);
    box->setFixedWidth(72);
    Custom([this, box, index] { box->setText(Quasi88FloatText(Op.Q88_4Op[size_t(index)])); },
           [this, box, index, fallback] {
               const float v = box->text().toFloat();
               // Empty, unreadable or 0: the emulator's own value.
               Op.Q88_4Op[size_t(index)] = v == 0.0f ? fallback : v;
           });
    return box;
}

void frmQuasi88Op::BuildSystem()
{
    auto* v = new QVBoxLayout(AddPage(QStringLiteral("システム")));
    auto* modes = new QHBoxLayout;
    modes->addWidget(GroupBox(QStringLiteral("BASICモード"),
                              Lines({{K::Group, nullptr, -1, nullptr, E1(0), 0, 3},
                                     {K::Option, "optQ88_10Op", 0, "N"},
                                     {K::Option, "optQ88_10Op", 1, "N88 V1S"},
                                     {K::Option, "optQ88_10Op", 2, "N88 V1H"},
                                     {K::Option, "optQ88_10Op", 3, "N88 V2"}},
                                    2)));
    modes->addWidget(GroupBox(QStringLiteral("CPUクロック"),
                              Lines({{K::Group, nullptr, -1, nullptr, E1(1), 0, 0},
                                     {K::Option, "optQ88_11Op", 0, "4MHz"},
                                     {K::Option, "optQ88_11Op", 1, "8MHz"}})));
    v->addLayout(modes);

    auto* grid = new QVBoxLayout;
    grid->addLayout(Lines({{K::Check, "chkQ88_1Op", 2, "プリンタ使用", E1(2)},
                           {K::Check, "chkQ88_1Op", 3, "シリアル出力", E1(3)}},
                          2));
    QCheckBox* ext =
        Check(QStringLiteral("chkQ88_1Op"), 4, QStringLiteral("拡張RAMを使用する"), E1(4));
    QLineEdit* cards = Number(QStringLiteral("txtQ88_1Op"), 5, E1(5), 16, 1);
    cards->setFixedWidth(40);
    auto* size = new QLabel(this);
    size->setObjectName(QStringLiteral("lblQ88_1Op(5)"));
    // One card is 128 KB.
    auto showSize = [cards, size] {
        size->setText(QString::number(cards->text().toInt() * 128) + QStringLiteral(" KB"));
    };
    connect(cards, &QLineEdit::textChanged, size, showSize);
    auto* extRow = new QHBoxLayout;
    extRow->addWidget(ext);
    extRow->addWidget(cards);
    extRow->addWidget(size);
    extRow->addStretch(1);
    grid->addLayout(extRow);
    QCheckBox* ver =
        Check(QStringLiteral("chkQ88_1Op"), 6, QStringLiteral("ROMバージョンを強制指定"), E1(6));
    QComboBox* verList =
        ComboData(QStringLiteral("cbxQ88_1Op"), 7,
                  Indexed({QStringLiteral("０"), QStringLiteral("１"), QStringLiteral("２"),
                           QStringLiteral("３"), QStringLiteral("４"), QStringLiteral("５"),
                           QStringLiteral("６"), QStringLiteral("７"), QStringLiteral("８"),
                           QStringLiteral("９")}),
                  E1(7));
    auto* verRow = new QHBoxLayout;
    verRow->addWidget(ver);
    verRow->addWidget(verList);
    verRow->addStretch(1);
    grid->addLayout(verRow);
    v->addWidget(GroupBox(QStringLiteral("ハードウェア"), grid));
    Governs(ext, {cards, size});
    Governs(ver, {verList});

    v->addWidget(GroupBox(
        QStringLiteral("その他"),
        Lines({{K::Check, "chkQ88_1Op", 8, "辞書ROM使用", E1(8)},
               {K::Check, "chkQ88_1Op", 9, "起動時にタイトルロゴを表示しない", E1(9)},
               {K::Check, "chkQ88_1Op", 10, "メニューを英語表記にする（English）", E1(10)},
               {K::Check, "chkQ88_1Op", 11, "ウエイト調整中sleep （CPU非占有）", E1(11)},
               {K::Check, "chkQ88_1Op", 12, "マウス中クリックでメニュー移行", E1(12)},
               {K::Check, "chkQ88_1Op", 13, "メニューモード起動", E1(13)},
               {K::Check, "chkQ88_1Op", 14, "内蔵時計を1985/1/1 00:00:00で固定", E1(14)}})));
    auto* dip = Button(QStringLiteral("cmdQ88_2Op"), -1, QStringLiteral("ディップスイッチ設定"));
    connect(dip, &QPushButton::clicked, this, [this] { cmdQ88_2Op_Click(); });
    auto* dipRow = new QHBoxLayout;
    dipRow->addWidget(dip);
    dipRow->addStretch(1);
    v->addLayout(dipRow);
    v->addStretch(1);
}

void frmQuasi88Op::BuildCpu()
{
    auto* v = new QVBoxLayout(AddPage(QStringLiteral("CPU")));
    v->addWidget(
        GroupBox(QStringLiteral("CPU処理"), Lines({{K::Group, nullptr, -1, nullptr, E1(15), 0, 0},
                                                   {K::Option, "optQ88_115Op", 0, "-cpu 0"},
                                                   {K::Option, "optQ88_115Op", 1, "-cpu 1"},
                                                   {K::Option, "optQ88_115Op", 2, "-cpu 2"},
                                                   {K::Option, "optQ88_115Op", 3, "-cpu 3"}},
                                                  4)));

    auto* grid = new QGridLayout;
    int line = 0;
    // CPU load: sub and main.
    QCheckBox* load =
        Check(QStringLiteral("chkQ88_1Op"), 16, QStringLiteral("CPU負荷有効"), E1(16));
    QLineEdit* sub = Number(QStringLiteral("txtQ88_3Op"), 0, Elem(Op.Q88_3Op, 0), 9999, 6);
    QLineEdit* main = Number(QStringLiteral("txtQ88_3Op"), 1, Elem(Op.Q88_3Op, 1), 9999, 0);
    sub->setFixedWidth(56);
    main->setFixedWidth(56);
    QPushButton* loadDefault = Button(QStringLiteral("cmdQ88_3Op"), 0, QStringLiteral("default"));
    connect(loadDefault, &QPushButton::clicked, this, [sub, main] {
        sub->setText(QStringLiteral("6"));
        main->setText(QStringLiteral("0"));
    });
    auto* loadRow = new QHBoxLayout;
    loadRow->addWidget(new QLabel(QStringLiteral("サブ")));
    loadRow->addWidget(sub);
    loadRow->addWidget(new QLabel(QStringLiteral("メイン")));
    loadRow->addWidget(main);
    loadRow->addWidget(loadDefault);
    loadRow->addStretch(1);
    grid->addWidget(load, line, 0);
    grid->addLayout(loadRow, line++, 1);
    Governs(load, {sub, main, loadDefault});

    // CPU clock.
    QCheckBox* clock = Check(QStringLiteral("chkQ88_1Op"), 17,
                             QStringLiteral("CPUクロック設定を有効にする"), E1(17));
    QLineEdit* clk = FloatBox(0, 100, 3.9936f);
    QPushButton* mhz4 = Button(QStringLiteral("cmdQ88_40Op"), 0, QStringLiteral("4MHzに設定"));
    QPushButton* mhz8 = Button(QStringLiteral("cmdQ88_40Op"), 1, QStringLiteral("8MHzに設定"));
    connect(mhz4, &QPushButton::clicked, clk, [clk] { clk->setText(QStringLiteral("3.9936")); });
    connect(mhz8, &QPushButton::clicked, clk, [clk] { clk->setText(QStringLiteral("7.9872")); });
    auto* clkRow = new QHBoxLayout;
    clkRow->addWidget(clk);
    clkRow->addWidget(new QLabel(QStringLiteral("MHz")));
    clkRow->addWidget(mhz4);
    clkRow->addWidget(mhz8);
    clkRow->addStretch(1);
    grid->addWidget(clock, line, 0);
    grid->addLayout(clkRow, line++, 1);
    Governs(clock, {clk, mhz4, mhz8});

    // Sound clock and VSYNC.
    QCheckBox* snd = Check(QStringLiteral("chkQ88_1Op"), 18,
                           QStringLiteral("サウンドクロックとVSYNC設定を有効にする"), E1(18));
    QLineEdit* sclk = FloatBox(1, 100, 3.9936f);
    QPushButton* sync = Button(QStringLiteral("cmdQ88_4Op"), 1, QStringLiteral("CPU同期"));
    connect(sync, &QPushButton::clicked, sclk, [clk, sclk] { sclk->setText(clk->text()); });
    QLineEdit* vsync = FloatBox(2, 240, 55.4f);
    QPushButton* vsyncDefault = Button(QStringLiteral("cmdQ88_4Op"), 2, QStringLiteral("default"));
    connect(vsyncDefault, &QPushButton::clicked, vsync,
            [vsync] { vsync->setText(QStringLiteral("55.4")); });
    auto* sndRow = new QHBoxLayout;
    sndRow->addWidget(sclk);
    sndRow->addWidget(new QLabel(QStringLiteral("MHz")));
    sndRow->addWidget(sync);
    sndRow->addWidget(vsync);
    sndRow->addWidget(new QLabel(QStringLiteral("Hz")));
    sndRow->addWidget(vsyncDefault);
    sndRow->addStretch(1);
    grid->addWidget(snd, line++, 0, 1, 2);
    grid->addLayout(sndRow, line++, 1);
    Governs(snd, {sclk, sync, vsync, vsyncDefault});

    grid->addWidget(
        Check(QStringLiteral("chkQ88_1Op"), 19, QStringLiteral("ウエイトなしにする"), E1(19)),
        line++, 0);
    QCheckBox* wait = Check(QStringLiteral("chkQ88_1Op"), 20,
                            QStringLiteral("ウエイト用周期設定を有効にする"), E1(20));
    QLineEdit* freq = FloatBox(3, 240, 55.4f);
    QPushButton* freqDefault = Button(QStringLiteral("cmdQ88_4Op"), 3, QStringLiteral("default"));
    connect(freqDefault, &QPushButton::clicked, freq,
            [freq] { freq->setText(QStringLiteral("55.4")); });
    auto* waitRow = new QHBoxLayout;
    waitRow->addWidget(freq);
    waitRow->addWidget(new QLabel(QStringLiteral("Hz")));
    waitRow->addWidget(freqDefault);
    waitRow->addStretch(1);
    grid->addWidget(wait, line, 0);
    grid->addLayout(waitRow, line++, 1);
    Governs(wait, {freq, freqDefault});
    v->addWidget(GroupBox(QStringLiteral("速度"), grid));

    // The caption keeps the emulator's own misspelling; the switch is "-exchange".
    v->addWidget(GroupBox(QStringLiteral("ディスク・BASIC"),
                          Lines({{K::Check, "chkQ88_1Op", 21, "-fdc_wait", E1(21)},
                                 {K::Check, "chkQ88_1Op", 22, "-exhange", E1(22)},
                                 {K::Check, "chkQ88_1Op", 23, "-hsbasic", E1(23)}},
                                3)));
    v->addStretch(1);
}

void frmQuasi88Op::BuildScreen()
{
    auto* v = new QVBoxLayout(AddPage(QStringLiteral("画面")));
    v->addWidget(
        GroupBox(QStringLiteral("フレームスキップ"),
                 Lines({{.kind = K::Lead,
                         .name = "cbxQ88_1Op",
                         .index = 24,
                         .caption = "-frameskip",
                         .elem = E1(24),
                         .items = {"1  - 60 fps", "2  - 30 fps", "3  - 20 fps", "4  - 15 fps",
                                   "5  - 12 fps", "6  - 10 fps", "10 -  6 fps", "12 -  5 fps",
                                   "15 -  4 fps", "20 -  3 fps", "30 -  2 fps", "60 -  1 fps"}},
                        {K::Check, "chkQ88_1Op", 25, "-autoskip", E1(25)}})));

    auto* grid = new QGridLayout;
    QCheckBox* sized =
        Check(QStringLiteral("chkQ88_1Op"), 26, QStringLiteral("画面サイズを指定する"), E1(26));
    QLineEdit* w = NumberBox(QStringLiteral("txtQ88_3Op"), 2, 9999);
    QLineEdit* h = NumberBox(QStringLiteral("txtQ88_3Op"), 3, 9999);
    w->setFixedWidth(56);
    h->setFixedWidth(56);
    // Widths go by 8 from 320 up, heights by 2 from 200 up; the boxes show what is stored.
    Custom([this, w] { w->setText(QString::number(Op.Q88_3Op[2])); },
           [this, w] {
               int x = w->text().isEmpty() ? 640 : w->text().toInt();
               x = x < 320 ? 320 : x - x % 8;
               Op.Q88_3Op[2] = static_cast<int16_t>(x);
               w->setText(QString::number(x));
           });
    Custom([this, h] { h->setText(QString::number(Op.Q88_3Op[3])); },
           [this, h] {
               int y = h->text().isEmpty() ? 400 : h->text().toInt();
               y = y < 200 ? 200 : y - y % 2;
               Op.Q88_3Op[3] = static_cast<int16_t>(y);
               h->setText(QString::number(y));
           });
    QCheckBox* full =
        Check(QStringLiteral("chkQ88_1Op"), 27, QStringLiteral("全画面時640x480とする"), E1(27));
    auto* sizeRow = new QHBoxLayout;
    sizeRow->addWidget(w);
    sizeRow->addWidget(new QLabel(QStringLiteral("x")));
    sizeRow->addWidget(h);
    sizeRow->addStretch(1);
    grid->addWidget(sized, 0, 0);
    grid->addLayout(sizeRow, 0, 1);
    grid->addWidget(full, 1, 0, 1, 2);
    Governs(sized, {w, h, full});
    v->addWidget(GroupBox(QStringLiteral("画面サイズ"), grid));

    v->addWidget(
        GroupBox(QStringLiteral("表示"), Lines({{K::Group, nullptr, -1, nullptr, E1(28), 0, 0},
                                                {K::Option, "optQ88_128Op", 0, "-full"},
                                                {K::Option, "optQ88_128Op", 1, "-half"}},
                                               2)));
    v->addWidget(GroupBox(QStringLiteral("その他"),
                          Lines({{K::Check, "chkQ88_1Op", 29, "-hide_mouse", E1(29)},
                                 {K::Check, "chkQ88_1Op", 30, "-15k", E1(30)},
                                 {K::Check, "chkQ88_1Op", 31, "-digital", E1(31)},
                                 {K::Check, "chkQ88_1Op", 32, "-nointerp", E1(32)},
                                 {K::Check, "chkQ88_1Op", 33, "-interlace", E1(33)}},
                                3)));
    v->addStretch(1);
}

void frmQuasi88Op::BuildSound()
{
    auto* v = new QVBoxLayout(AddPage(QStringLiteral("サウンド")));
    auto* top = new QHBoxLayout;
    top->addWidget(GroupBox(QStringLiteral("サウンドボード"),
                            Lines({{K::Group, nullptr, -1, nullptr, E1(34), 0, 1},
                                   {K::Option, "optQ88_134Op", 0, "サウンドなし"},
                                   {K::Option, "optQ88_134Op", 1, "サウンドボード (OPN)"},
                                   {K::Option, "optQ88_134Op", 2, "サウンドボードII (OPNA)"}})));
    top->addWidget(
        GroupBox(QStringLiteral("FM音源"), Lines({{K::Group, nullptr, -1, nullptr, E1(35), 0, 0},
                                                  {K::Option, "optQ88_135Op", 0, "XMAME"},
                                                  {K::Option, "optQ88_135Op", 1, "fmgen"}})));
    v->addLayout(top);

    auto* rate = new QVBoxLayout;
    rate->addLayout(Lines({{K::Group, nullptr, -1, nullptr, E1(36), 0, 2},
                           {K::Option, "optQ88_136Op", 0, "直指定"},
                           {K::Option, "optQ88_136Op", 1, "11k"},
                           {K::Option, "optQ88_136Op", 2, "22k"},
                           {K::Option, "optQ88_136Op", 3, "44k"},
                           {K::Option, "optQ88_136Op", 4, "48k"}},
                          5));
    QLineEdit* freq = NumberBox(QStringLiteral("txtQ88_5Op"), 0, 48000);
    freq->setFixedWidth(64);
    Custom([this, freq] { freq->setText(QString::number(Op.Q88_5Op[0])); },
           [this, freq] {
               const int f = freq->text().isEmpty() ? 22050 : freq->text().toInt();
               Op.Q88_5Op[0] = f < 8000 ? 8000 : f;
           });
    auto* freqRow = new QHBoxLayout;
    freqRow->addWidget(freq);
    freqRow->addWidget(new QLabel(QStringLiteral("Hz")));
    freqRow->addStretch(1);
    rate->addLayout(freqRow);
    v->addWidget(GroupBox(QStringLiteral("サンプリング周波数"), rate));
    Governs(Control<QRadioButton>(QStringLiteral("optQ88_136Op"), 0), {freq});

    auto* buf = new QHBoxLayout;
    buf->addWidget(new QLabel(QStringLiteral("-sdlbufsize")));
    buf->addWidget(
        ComboData(QStringLiteral("cbxQ88_1Op"), 37,
                  Indexed({QStringLiteral("512"), QStringLiteral("1024"), QStringLiteral("2048"),
                           QStringLiteral("4096"), QStringLiteral("8192")}),
                  E1(37)));
    buf->addWidget(new QLabel(QStringLiteral("-sdlbufnum")));
    QLineEdit* num = Number(QStringLiteral("txtQ88_1Op"), 38, E1(38), 99, 4);
    num->setFixedWidth(40);
    buf->addWidget(num);
    buf->addStretch(1);
    v->addLayout(buf);

    struct Vol {
        int i;
        const char* caption;
        int max;
    };
    static const Vol kVolumes[] = {{39, "-volume", 32},     {40, "-fmvol", 100},
                                   {41, "-psgvol", 100},    {42, "-beepvol", 100},
                                   {43, "-rhythmvol", 200}, {44, "-adpcmvol", 100}};
    std::vector<Row> rows;
    for (const Vol& s : kVolumes)
        rows.push_back({.kind = K::Slider,
                        .name = "sldQ88_1Op",
                        .index = s.i,
                        .caption = s.caption,
                        .elem = E1(s.i),
                        .limit = double(s.max),
                        .minimum = 0,
                        .format = s.i == 39 ? std::function<QString(int)>(
                                                  [](int x) { return QString::number(x - 32); })
                                            : [](int x) { return QString::number(x); }});
    v->addWidget(GroupBox(QStringLiteral("音量"), Lines(rows)));

    auto* reset = Button(QStringLiteral("cmdQ88_1Op"), -1, QStringLiteral("音関係を全Default"));
    connect(reset, &QPushButton::clicked, this, [this] { cmdQ88_1Op_Click(); });
    auto* resetRow = new QHBoxLayout;
    resetRow->addStretch(1);
    resetRow->addWidget(reset);
    v->addLayout(resetRow);
    v->addStretch(1);
}

void frmQuasi88Op::BuildKeys()
{
    auto* v = new QVBoxLayout(AddPage(QStringLiteral("キー・マウス")));
    auto* fkeys = new QVBoxLayout;
    fkeys->addLayout(Lines({{K::Group, nullptr, -1, nullptr, E1(45), 0, 0},
                            {K::Option, "optQ88_145Op", 0, "下記指定機能を割り当て"},
                            {K::Option, "optQ88_145Op", 1, "QUASI88設定割り当て"},
                            {K::Option, "optQ88_145Op", 2, "漢字変換キー割り当て"}},
                           3));
    auto* keys = new QGridLayout;
    QList<QWidget*> lists;
    const QStringList functions = FunctionItems();
    for (int i = 46; i <= 50; ++i) {
        QComboBox* c = ComboData(QStringLiteral("cbxQ88_1Op"), i, Indexed(functions), E1(i));
        keys->addWidget(new QLabel(QStringLiteral("f%1").arg(i - 40)), (i - 46) / 3,
                        (i - 46) % 3 * 2);
        keys->addWidget(c, (i - 46) / 3, (i - 46) % 3 * 2 + 1);
        lists << c;
    }
    fkeys->addLayout(keys);
    v->addWidget(GroupBox(QStringLiteral("ファンクションキー f6～f10"), fkeys));
    Governs(Control<QRadioButton>(QStringLiteral("optQ88_145Op"), 0), lists);

    auto* kb = new QVBoxLayout;
    kb->addLayout(Lines({{K::Check, "chkQ88_1Op", 51, "-tenkey", E1(51)},
                         {K::Check, "chkQ88_1Op", 52, "-cursor", E1(52)},
                         {K::Check, "chkQ88_1Op", 53, "-numlock", E1(53)}},
                        3));
    auto* romaji = new QHBoxLayout;
    romaji->addWidget(new QLabel(QStringLiteral("ローマ字変換")));
    romaji->addWidget(ComboData(
        QStringLiteral("cbxQ88_1Op"), 54,
        Indexed({QStringLiteral("egg"), QStringLiteral("MS-IME"), QStringLiteral("ATOK")}),
        E1(54)));
    romaji->addStretch(1);
    kb->addLayout(romaji);
    v->addWidget(GroupBox(QStringLiteral("キーボード"), kb));

    auto* mouse = new QVBoxLayout;
    mouse->addLayout(Lines({{K::Group, nullptr, -1, nullptr, E1(55), 0, 0},
                            {K::Option, "optQ88_155Op", 0, "-nomouse"},
                            {K::Option, "optQ88_155Op", 1, "-mouse"},
                            {K::Option, "optQ88_155Op", 2, "-joymouse"},
                            {K::Option, "optQ88_155Op", 3, "-joystick"},
                            {K::Option, "optQ88_155Op", 4, "-joykey"},
                            {K::Check, "chkQ88_1Op", 56, "-joyswap", E1(56)}},
                           3));
    auto* assign = new QHBoxLayout;
    assign->addWidget(new QLabel(QStringLiteral("-joyassign")));
    assign->addWidget(
        ComboData(QStringLiteral("cbxQ88_1Op"), 57,
                  Indexed({QStringLiteral("キー割り当てなし"), QStringLiteral("A:Z  B:X"),
                           QStringLiteral("A:X  B:Z"), QStringLiteral("A:SPACE  B:RETURN"),
                           QStringLiteral("A:RETURN  B:SPACE")}),
                  E1(57)));
    assign->addStretch(1);
    mouse->addLayout(assign);
    v->addWidget(GroupBox(QStringLiteral("マウス・ジョイスティック"), mouse));
    v->addStretch(1);
}

void frmQuasi88Op::cmdQ88_2Op_Click()
{
    frmQuasi88Op2 dlg(this);
    dlg.exec();
}

void frmQuasi88Op::cmdQ88_1Op_Click()
{
    Control<QRadioButton>(QStringLiteral("optQ88_134Op"), 1)->setChecked(true);
    Control<QRadioButton>(QStringLiteral("optQ88_135Op"), 0)->setChecked(true);
    Control<QRadioButton>(QStringLiteral("optQ88_136Op"), 2)->setChecked(true);
    Control<QComboBox>(QStringLiteral("cbxQ88_1Op"), 37)->setCurrentIndex(1);
    Control<QLineEdit>(QStringLiteral("txtQ88_1Op"), 38)->setText(QStringLiteral("4"));
    const int volumes[] = {32, 100, 20, 60, 100, 100};
    for (int i = 39; i <= 44; ++i)
        Control<QSlider>(QStringLiteral("sldQ88_1Op"), i)->setValue(volumes[i - 39]);
    Control<QLineEdit>(QStringLiteral("txtQ88_5Op"), 0)->setText(QStringLiteral("22050"));
}

} // namespace tv
