#include "adapters/xm7win/frmXm7WinOp.h"

#include "adapters/xm7win/Xm7KeyMap.h"
#include "data/Cfg.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>
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

const QString kChk = QStringLiteral("chkXm7Win_1Op");
const QString kCbx = QStringLiteral("cbxXm7Win_1Op");
const QString kList = QStringLiteral("lsvXm7Win_3Op");

// Columns of the key list.
enum { ColNo, ColCaption, ColKana, ColName, ColCode };

} // namespace

void InitXm7WinOp(uint8_t TitleFlag)
{
    Xm7WinOpTitleFlag = TitleFlag;
}

int ShowXm7WinOp(QWidget* parent)
{
    frmXm7WinOp dlg(parent);
    return dlg.exec();
}

frmXm7WinOp::frmXm7WinOp(QWidget* parent) : frmXm7WinOp(Xm7WinOpTitleFlag, parent) {}

frmXm7WinOp::frmXm7WinOp(uint8_t titleFlag, QWidget* parent)
    : OptionBlockDialog<EmuOptFM>(Cfg.CfgEmuOptFM, CurEmuOptFM, titleFlag, parent)
{
    setObjectName(QStringLiteral("frmXm7WinOp"));
    setWindowTitle(QStringLiteral("XM7設定"));
    BuildGeneral();
    BuildSound();
    BuildKeyboard();
    BuildJoystick();
    BuildScreen();
    BuildOption();
    FormLoad();
}

void frmXm7WinOp::Options(QLayout* into, int i, const char* name,
                          const std::vector<std::pair<int, const char*>>& buttons)
{
    QButtonGroup* group = NewButtonGroup();
    std::vector<std::pair<QRadioButton*, int>> made;
    for (const auto& [index, caption] : buttons) {
        auto* b = new QRadioButton(QString::fromUtf8(caption), this);
        b->setObjectName(ControlName(QString::fromLatin1(name), index));
        group->addButton(b);
        into->addWidget(b);
        made.emplace_back(b, index);
    }
    const OptElem e = E1(i);
    // A value that no button stands for (a damaged block) selects none and is kept.
    Custom(
        [group, made, e] {
            group->setExclusive(false);
            for (const auto& [b, index] : made)
                b->setChecked(index == static_cast<int>(e.get()));
            group->setExclusive(true);
        },
        [made, e] {
            for (const auto& [b, index] : made)
                if (b->isChecked())
                    e.set(index);
        });
}

QWidget* frmXm7WinOp::NumberLine(int i, const char* caption, const char* unit, int minimum,
                                 int maximum, int step, int fallback)
{
    auto* w = new QWidget(this);
    auto* h = new QHBoxLayout(w);
    h->setContentsMargins(0, 0, 0, 0);
    QLabel* l = Caption(QString::fromUtf8(caption));
    l->setMinimumWidth(150);
    h->addWidget(l);
    QLineEdit* box = Number(QStringLiteral("txtXm7Win_2Op"), i, E2(i), maximum, fallback);
    UpDown* ud = AddUpDown(box, QStringLiteral("updXm7Win_2Op"), i, minimum, maximum, step);
    h->addLayout(BoxRow(box, ud));
    if (unit)
        h->addWidget(Caption(QString::fromUtf8(unit)));
    h->addStretch(1);
    return w;
}

void frmXm7WinOp::BuildGeneral()
{
    auto* v = new QVBoxLayout(AddPage(QStringLiteral("全般")));
    auto* top = new QHBoxLayout;
    auto* ver = new QVBoxLayout;
    Options(ver, 0, "optXm7Win_10Op", {{1, "FM-&7"}, {2, "FM77&AV"}, {3, "FM77AV40E&X"}});
    top->addWidget(GroupBox(QStringLiteral("動作機種"), ver));
    auto* cyc = new QVBoxLayout;
    Options(cyc, 1, "optXm7Win_11Op", {{0, "低速(&L) (FM-7互換)"}, {1, "高速(&H) (FM-77以降)"}});
    top->addWidget(GroupBox(QStringLiteral("動作モード"), cyc));
    v->addLayout(top);

    auto* speed = new QVBoxLayout;
    speed->addWidget(NumberLine(0, "メインCPU", "サイクル/ms", 1, 9999, 1, 1));
    speed->addWidget(NumberLine(1, "MMR使用時", "サイクル/ms", 1, 9999, 1, 1));
    speed->addWidget(NumberLine(5, "高速MMR時", "サイクル/ms", 1, 9999, 1, 1));
    speed->addWidget(NumberLine(2, "サブCPU", "サイクル/ms", 1, 9999, 1, 1));
    auto* defRow = new QHBoxLayout;
    defRow->addStretch(1);
    QPushButton* def = Button(QStringLiteral("cmdDefault"), -1, QStringLiteral("Default"));
    connect(def, &QPushButton::clicked, this, [this] { cmdDefault_Click(); });
    defRow->addWidget(def);
    speed->addLayout(defRow);
    v->addWidget(GroupBox(QStringLiteral("CPU速度"), speed));

    QCheckBox* tape = nullptr;
    QCheckBox* tapeMode = nullptr;
    auto* misc = new QVBoxLayout;
    const std::pair<int, const char*> checks[] = {
        {37, "全力駆動(&Z)"},
        {39, "自動速度調整(&S)"},
        {2, "テープモータオン時は、フルスピードで動作(&F)"},
        {38, "テープモータオン時の動作を速度調整省略にする(&C)"},
        {40, "フロッピーアクセス時にウェイトを挿入する(&W)"}};
    for (const auto& [i, caption] : checks) {
        QCheckBox* c = Check(kChk, i, QString::fromUtf8(caption), E1(i));
        misc->addWidget(c);
        if (i == 2)
            tape = c;
        if (i == 38) {
            tapeMode = c;
            c->setContentsMargins(20, 0, 0, 0);
        }
    }
    v->addWidget(GroupBox(QStringLiteral("動作"), misc));
    Rule({tape}, [tape, tapeMode] { tapeMode->setEnabled(tape->isChecked()); });
    v->addStretch(1);
}

void frmXm7WinOp::BuildSound()
{
    auto* v = new QVBoxLayout(AddPage(QStringLiteral("サウンド")));
    auto* rate = new QGridLayout;
    auto* rates = new QVBoxLayout;
    Options(rates, 3, "optXm7Win_13Op",
            {{0, "合成しない(&N)"},
             {2, "&22.050kHz"},
             {4, "&44.100kHz"},
             {5, "&48.000kHz"},
             {8, "&88.200kHz"},
             {9, "&96.000kHz"}});
    rate->addLayout(rates, 0, 0);
    v->addWidget(GroupBox(QStringLiteral("サンプリングレート"), rate));
    auto* buf = new QVBoxLayout;
    buf->addWidget(NumberLine(3, "バッファサイズ(&S)", "ms", 40, 1000, 10, 40));
    buf->addWidget(NumberLine(4, "BEEP発振周波数(&Ｆ)", "Hz", 100, 9999, 1, 100));
    v->addWidget(GroupBox(QStringLiteral("バッファ"), buf));
    auto* out = new QVBoxLayout;
    out->addWidget(Check(kChk, 4, QStringLiteral("線形補間(&I)"), E1(4)));
    auto* mode = new QHBoxLayout;
    mode->addWidget(Caption(QStringLiteral("出力モード")));
    mode->addWidget(ComboData(kCbx, 5,
                              {{QStringLiteral("モノラル"), 0},
                               {QStringLiteral("ステレオ"), 1},
                               {QStringLiteral("ステレオ(反転)"), 2},
                               {QStringLiteral("ステレオ(THG)"), 3}},
                              E1(5)));
    mode->addStretch(1);
    out->addLayout(mode);
    for (const auto& [i, caption] :
         std::vector<std::pair<int, const char*>>{{6, "テープ音モニタ(&T)"},
                                                  {41, "&ROMEOを使用する"},
                                                  {42, "FDDシーク音／CMTリレー音(&D)"}})
        out->addWidget(Check(kChk, i, QString::fromUtf8(caption), E1(i)));
    v->addWidget(GroupBox(QStringLiteral("出力"), out));
    v->addStretch(1);
}

void frmXm7WinOp::BuildKeyboard()
{
    auto* v = new QVBoxLayout(AddPage(QStringLiteral("キーボード")));
    lsv_ = new QTreeWidget(this);
    lsv_->setObjectName(kList);
    lsv_->setRootIsDecorated(false);
    lsv_->setUniformRowHeights(true);
    lsv_->setAllColumnsShowFocus(true);
    lsv_->setHeaderLabels({QStringLiteral("No."), QStringLiteral("英　数"),
                           QStringLiteral("か　な"), QStringLiteral("DirectXｷｰID"),
                           QStringLiteral("ｷｰ")});
    QFont f(QStringLiteral("ＭＳ ゴシック"));
    f.setStyleHint(QFont::Monospace);
    lsv_->setFont(f);
    lsv_->setMinimumHeight(220);
    connect(lsv_, &QTreeWidget::itemDoubleClicked, this, [this] { lsvXm7Win_3Op_DblClick(); });
    Custom([this] { FillKeyList(); }, [this] { StoreKeyList(); });
    v->addWidget(lsv_, 1);

    auto* maps = new QHBoxLayout;
    for (int i = 0; i <= 2; ++i) {
        QPushButton* b = Button(QStringLiteral("cmdXm7Win_3Op"), i,
                                Xm7ReadyMapCaption(static_cast<Xm7ReadyMap>(i)));
        connect(b, &QPushButton::clicked, this, [this, i] { cmdXm7Win_3Op_Click(i); });
        maps->addWidget(b);
    }
    maps->addStretch(1);
    v->addLayout(maps);

    QCheckBox* c43 = Check(kChk, 43, QStringLiteral("疑似リアルタイムキースキャン(&R)"), E1(43));
    QCheckBox* c44 =
        Check(kChk, 44, QStringLiteral("カーソルキーをテンキーに対応させる(&T)"), E1(44));
    QCheckBox* c45 = Check(
        kChk, 45, QStringLiteral("カーソルキーの２つ同時押しを斜め方向に対応させる(&8)"), E1(45));
    c45->setContentsMargins(20, 0, 0, 0);
    v->addWidget(c43);
    v->addWidget(c44);
    v->addWidget(c45);
    Rule({c44}, [c44, c45] { c45->setEnabled(c44->isChecked()); });
}

void frmXm7WinOp::FillKeyList()
{
    lsv_->clear();
    Xm7KeyArray keys{};
    std::copy(Op.Xm7Win_3Op.begin(), Op.Xm7Win_3Op.end(), keys.begin());
    for (const Xm7KeyRow& r : Xm7KeyRows(keys)) {
        auto* item =
            new QTreeWidgetItem(lsv_, QStringList{r.text, r.caption, r.kana, r.dikName, r.code});
        item->setData(ColNo, Qt::UserRole, r.key);
    }
    for (int c = ColNo; c <= ColCode; ++c)
        lsv_->resizeColumnToContents(c);
}

void frmXm7WinOp::StoreKeyList()
{
    for (int i = 0; i < lsv_->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* item = lsv_->topLevelItem(i);
        // The row's key is "k" and the key number.
        const int n = item->data(ColNo, Qt::UserRole).toString().mid(1).toInt();
        if (n >= 0 && n < static_cast<int>(Op.Xm7Win_3Op.size()))
            Op.Xm7Win_3Op[n] = static_cast<uint8_t>(item->text(ColCode).toInt());
    }
}

void frmXm7WinOp::SetDIKNo(const QString& KeyNo, const QString& Code)
{
    dikKeyNo_ = KeyNo;
    dikCode_ = Code;
}

void frmXm7WinOp::lsvXm7Win_3Op_DblClick()
{
    QTreeWidgetItem* sel = lsv_->currentItem();
    if (!sel || !sel->isSelected())
        return;
    const QString keyNo = sel->text(ColNo);
    const QString code = sel->text(ColCode);
    dikKeyNo_.clear();
    dikCode_.clear();
    frmXm7WinOp2 dlg(this);
    dlg.InitLoad(keyNo, code, DikNames());
    dlg.exec();
    // Only OK hands back the row's own text; anything else was a cancel.
    if (dikKeyNo_ != keyNo || dikCode_ == code)
        return;
    // A code belongs to one FM-7 key at most: whoever held it gives it up.
    for (int i = 0; i < lsv_->topLevelItemCount(); ++i) {
        QTreeWidgetItem* item = lsv_->topLevelItem(i);
        if (item->text(ColCode) == dikCode_) {
            item->setText(ColName, QString());
            item->setText(ColCode, QStringLiteral("0"));
        }
    }
    sel->setText(ColName, DikName(dikCode_.toInt()));
    sel->setText(ColCode, dikCode_);
}

void frmXm7WinOp::cmdXm7Win_3Op_Click(int Index)
{
    // The map is written by key number into the codes of the rows; the rows keep their places.
    Xm7KeyArray keys{};
    for (int i = 0; i < lsv_->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* item = lsv_->topLevelItem(i);
        keys[item->data(ColNo, Qt::UserRole).toString().mid(1).toInt()] =
            static_cast<uint8_t>(item->text(ColCode).toInt());
    }
    ApplyXm7ReadyMap(keys, static_cast<Xm7ReadyMap>(Index));
    for (int i = 0; i < lsv_->topLevelItemCount(); ++i) {
        QTreeWidgetItem* item = lsv_->topLevelItem(i);
        const int code = keys[item->data(ColNo, Qt::UserRole).toString().mid(1).toInt()];
        item->setText(ColCode, QString::number(code));
        item->setText(ColName, code == 0 ? QString() : DikName(code));
    }
}

void frmXm7WinOp::BuildJoystick()
{
    auto* v = new QVBoxLayout(AddPage(QStringLiteral("ジョイスティック")));
    const QList<QPair<QString, int>> types = {{QStringLiteral("使用しない"), 0},
                                              {QStringLiteral("標準JOY I/F(Port1)"), 1},
                                              {QStringLiteral("標準JOY I/F(Port2)"), 2},
                                              {QStringLiteral("キーボード"), 3},
                                              {QStringLiteral("電波新聞社JOY I/F"), 4}};
    QList<QPair<QString, int>> rapid;
    const char* const rates[] = {"なし", "1/秒", "2/秒", "3/秒",  "4/秒",
                                 "5/秒", "6/秒", "8/秒", "12/秒", "25/秒"};
    for (int i = 0; i < 10; ++i)
        rapid.append({QString::fromUtf8(rates[i]), i});
    const char* const codes[] = {"↑", "↓", "←", "→", "センター", "Aボタン", "Bボタン"};
    auto* ports = new QHBoxLayout;
    for (int port = 0; port <= 1; ++port) {
        const int base = port == 0 ? 7 : 17;
        auto* grid = new QGridLayout;
        grid->addWidget(Caption(QStringLiteral("タイプ")), 0, 0);
        // The type first: its load fills the code lists that the code combos then select in.
        QComboBox* type = ComboData(kCbx, base, types, E1(base));
        grid->addWidget(type, 0, 1);
        connect(type, &QComboBox::currentIndexChanged, this,
                [this, base](int) { cbxXm7Win_1Op_Click(base); });
        // Loading the type selects its item without a change when it is already current: the
        // lists are put in place here too, before the code combos select in them.
        Custom([this, base] { cbxXm7Win_1Op_Click(base); }, [] {});
        grid->addWidget(Caption(QStringLiteral("連射 A")), 1, 0);
        grid->addWidget(ComboData(kCbx, base + 1, rapid, E1(base + 1)), 1, 1);
        grid->addWidget(Caption(QStringLiteral("連射 B")), 2, 0);
        grid->addWidget(ComboData(kCbx, base + 2, rapid, E1(base + 2)), 2, 1);
        for (int k = 0; k < 7; ++k) {
            grid->addWidget(Caption(QString::fromUtf8(codes[k])), 3 + k, 0);
            QComboBox* c = ComboData(kCbx, base + 3 + k, {}, E1(base + 3 + k));
            c->setMaxVisibleItems(20);
            grid->addWidget(c, 3 + k, 1);
        }
        grid->setColumnStretch(1, 1);
        ports->addWidget(
            GroupBox(port == 0 ? QStringLiteral("ポート1") : QStringLiteral("ポート2"), grid));
    }
    v->addLayout(ports);
    v->addStretch(1);
}

void frmXm7WinOp::cbxXm7Win_1Op_Click(int Index)
{
    if (Index != 7 && Index != 17)
        return;
    const int port = Index == 7 ? 0 : 1;
    const QComboBox* type = Control<QComboBox>(kCbx, Index);
    const bool keyboard = type->currentIndex() >= 0 && type->currentData().toInt() == 3;
    if (keyboard && joyKeys_[port] != 1)
        SetJoyCodeKeys(port);
    else if (!keyboard && joyKeys_[port] != 0)
        SetJoyCodeDirs(port);
}

void frmXm7WinOp::SetJoyCodeKeys(int port)
{
    const int first = port == 0 ? 10 : 20;
    for (int i = first; i < first + 7; ++i) {
        QComboBox* c = Control<QComboBox>(kCbx, i);
        c->clear();
        for (const auto& [text, data] : Xm7JoyKeyItems())
            c->addItem(text, data);
        // The list starts with nothing chosen, as after a clear.
        c->setCurrentIndex(-1);
    }
    joyKeys_[port] = 1;
}

void frmXm7WinOp::SetJoyCodeDirs(int port)
{
    const int first = port == 0 ? 10 : 20;
    for (int i = 0; i < 7; ++i) {
        QComboBox* c = Control<QComboBox>(kCbx, first + i);
        c->clear();
        for (const auto& [text, data] : Xm7JoyDirItems())
            c->addItem(text, data);
        c->setCurrentIndex(c->findData(kXm7JoyDirDefaults[i]));
    }
    joyKeys_[port] = 0;
}

void frmXm7WinOp::BuildScreen()
{
    auto* v = new QVBoxLayout(AddPage(QStringLiteral("スクリーン")));
    auto* full = new QVBoxLayout;
    Options(full, 27, "optXm7Win_127Op",
            {{0, "640×4&00×16 (アスペクト比同一)"}, {1, "640×4&80×16 (VGA上位互換)"}});
    full->addWidget(
        Check(kChk, 29, QStringLiteral("640×480フルスクリーン時に、ステータス表示(&S)"), E1(29)));
    v->addWidget(GroupBox(QStringLiteral("フルスクリーン"), full));
    auto* scan = new QVBoxLayout;
    scan->addWidget(
        Check(kChk, 28, QStringLiteral("ウィンドウモード時に24kHz表示をエミュレート(&2)"), E1(28)));
    scan->addWidget(Check(
        kChk, 46, QStringLiteral("フルスクリーンモード時に24kHz表示をエミュレート(&F)"), E1(46)));
    scan->addWidget(
        Check(kChk, 47, QStringLiteral("フルスクリーン時にTrueColorモードを優先する(&T)"), E1(47)));
    v->addWidget(GroupBox(QStringLiteral("表示"), scan));
    v->addStretch(1);
}

void frmXm7WinOp::BuildOption()
{
    auto* v = new QVBoxLayout(AddPage(QStringLiteral("オプション")));
    auto* snd = new QVBoxLayout;
    snd->addWidget(Check(kChk, 48, QStringLiteral("標準FM音源有効(&O)"), E1(48)));
    snd->addWidget(Check(kChk, 30, QStringLiteral("WHG音源有効(&W)"), E1(30)));
    snd->addWidget(Check(kChk, 31, QStringLiteral("THG音源有効(&T)"), E1(31)));
    v->addWidget(GroupBox(QStringLiteral("音源"), snd));
    auto* cards = new QHBoxLayout;
    const std::tuple<int, const char*, const char*> boxes[] = {
        {32, "ビデオディジタイズカード", "有効(&V)"},
        {33, "増設RAMカード(768KB)", "有効(&R)"},
        {34, "BUSY信号遅延", "無効(&B)"}};
    for (const auto& [i, title, caption] : boxes) {
        auto* l = new QVBoxLayout;
        l->addWidget(Check(kChk, i, QString::fromUtf8(caption), E1(i)));
        cards->addWidget(GroupBox(QString::fromUtf8(title), l));
    }
    v->addLayout(cards);
    auto* mouse = new QVBoxLayout;
    mouse->addWidget(Check(kChk, 35, QStringLiteral("マウスを使用する(&M)"), E1(35)));
    Options(mouse, 36, "optXm7Win_136Op",
            {{1, "ポート&1にマウスを接続"}, {2, "ポート&2にマウスを接続"}});
    v->addWidget(GroupBox(QStringLiteral("マウス"), mouse));
    v->addStretch(1);
}

void frmXm7WinOp::cmdDefault_Click()
{
    // The emulator's own CPU speeds; only the boxes change until Apply or OK.
    const std::pair<int, const char*> values[] = {
        {0, "1799"}, {1, "1565"}, {2, "1998"}, {5, "2016"}};
    for (const auto& [i, text] : values)
        Control<QLineEdit>(QStringLiteral("txtXm7Win_2Op"), i)->setText(QString::fromLatin1(text));
}

// ---------------------------------------------------------------------------------------
// frmXm7WinOp2

frmXm7WinOp2::frmXm7WinOp2(frmXm7WinOp* owner) : QDialog(owner), owner_(owner)
{
    setObjectName(QStringLiteral("frmXm7WinOp2"));
    setWindowTitle(QStringLiteral("割り当てキーの選択"));
    auto* v = new QVBoxLayout(this);
    msg_ = new QLabel(this);
    msg_->setObjectName(QStringLiteral("lblXm7WinOp2Msg"));
    v->addWidget(msg_);
    auto* row = new QHBoxLayout;
    row->addWidget(new QLabel(QStringLiteral("現在のキー"), this));
    cbxDIKMap_ = new QComboBox(this);
    cbxDIKMap_->setObjectName(QStringLiteral("cbxDIKMap"));
    cbxDIKMap_->setMaxVisibleItems(20);
    cbxDIKMap_->setMinimumWidth(200);
    row->addWidget(cbxDIKMap_, 1);
    v->addLayout(row);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    auto* ok = new QPushButton(QStringLiteral("OK"), this);
    ok->setObjectName(QStringLiteral("cmdOK"));
    ok->setDefault(true);
    auto* cancel = new QPushButton(QStringLiteral("キャンセル"), this);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    v->addLayout(buttons);
    connect(ok, &QPushButton::clicked, this, [this] { cmdOK_Click(); });
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmXm7WinOp2::InitLoad(const QString& KeyNo, const QString& Code,
                            const std::array<QString, 256>& Names)
{
    keyNo_ = KeyNo;
    cbxDIKMap_->clear();
    for (int code = 0; code < 256; ++code)
        if (!Names[code].isEmpty())
            cbxDIKMap_->addItem(Names[code], code);
    cbxDIKMap_->setCurrentIndex(cbxDIKMap_->findData(Code.toInt()));
    msg_->setText(QStringLiteral("キー番号") + KeyNo + QStringLiteral("へ割り当てるキーを、\n") +
                  QStringLiteral("コンボボックスから選択して下さい。\n") +
                  QStringLiteral("([OK]で決定します)"));
}

void frmXm7WinOp2::cmdOK_Click()
{
    // With nothing chosen the item data reads as 0.
    const int code = cbxDIKMap_->currentIndex() < 0 ? 0 : cbxDIKMap_->currentData().toInt();
    owner_->SetDIKNo(keyNo_, QString::number(code));
    accept();
}

} // namespace tv
