#include "adapters/p88sr/frmP88srOp.h"

#include "adapters/p88sr/P88srOption.h"
#include "data/Cfg.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace tv {

namespace {

// The value slot of a switch row, or -1 for a bare switch. Row 19's slot is the second value
// of row 18, so "s1" has none of its own.
int SlotOf(int row)
{
    if (row == 19)
        return -1;
    for (int k = 0; k < static_cast<int>(P88ValueIndex.size()); ++k)
        if (P88ValueIndex[k] == row)
            return k;
    return -1;
}

// The greatest value that each number box takes, by the box's index.
double BoxLimit(int t)
{
    switch (t) {
    case 0:
    case 1:
        return 64;
    case 18:
        return 127;
    case 19:
        return 255;
    case 13:
    case 14:
        return 60000;
    default:
        return 65535;
    }
}

QStringList LeadItems(int t)
{
    switch (t) {
    case 17:
        return {QStringLiteral("0 - 0088h"), QStringLiteral("1 - 0188h"),
                QStringLiteral("2 - 0288h")};
    case 29:
        return {QStringLiteral("1 -テキスト反転抑制"), QStringLiteral("2 -グラフィクス反転抑制"),
                QStringLiteral("3 -完全反転抑制")};
    case 31:
        return {QStringLiteral("1  - SHIFT"),        QStringLiteral("8  - GRPH"),
                QStringLiteral("9  - SHIFT + GRPH"), QStringLiteral("16 - CTRL"),
                QStringLiteral("17 - SHIFT + CTRL"), QStringLiteral("24 - GRPH + CTRL")};
    default: // 38
        return {QStringLiteral("1 - タイマ"),
                QStringLiteral("2 - VSYNC"),
                QStringLiteral("3 - タイマ＋VSYNC"),
                QStringLiteral("4 - FM音源"),
                QStringLiteral("5 - タイマ＋FM音源"),
                QStringLiteral("6 - VSYNC＋FM音源"),
                QStringLiteral("7 - タイマ＋VSYNC＋FM音源")};
    }
}

} // namespace

QStringList P88JoyKeyItems()
{
    QStringList items;
    for (int i = 0; i <= 7; ++i)
        items << QStringLiteral("0%1 - t %1").arg(i);
    for (const char* k : {"10 - t 8", "11 - t 9", "12 - t *", "13 - t +", "14 - t =", "15 - t ,",
                          "16 - t .", "17 - Return"})
        items << QString::fromUtf8(k);
    // Rows 2 to 7 of the keyboard matrix, eight keys each.
    const QString matrix = QStringLiteral("@ABCDEFGHIJKLMNOPQRSTUVWXYZ[¥]^-0123456789:;,./_");
    for (int n = 0; n < matrix.size(); ++n)
        items << QStringLiteral("%1%2 - %3").arg(2 + n / 8).arg(n % 8).arg(matrix[n]);
    for (const char* k :
         {"80 - Home",   "81 - ↑",       "82 - →",     "83 - Ins", "84 - Grph", "85 - ｶﾅ",
          "86 - Shift",  "87 - Ctrl",    "90 - Stop",  "91 - f.1", "92 - f.2",  "93 - f.3",
          "94 - f.4",    "95 - f.5",     "96 - Space", "97 - Esc", "A0 - Tab",  "A1 - ↓",
          "A2 - ←",      "A3 - Help",    "A4 - Copy",  "A5 - t -", "A6 - t /",  "A7 - CAPS",
          "B0 - RollUp", "B1 - RollDown"})
        items << QString::fromUtf8(k);
    return items;
}

void InitP88srOp(uint8_t TitleFlag)
{
    P88srOpTitleFlag = TitleFlag;
}

int ShowP88srOp(QWidget* parent)
{
    frmP88srOp dlg(parent);
    return dlg.exec();
}

frmP88srOp::frmP88srOp(QWidget* parent) : frmP88srOp(P88srOpTitleFlag, parent) {}

frmP88srOp::frmP88srOp(uint8_t titleFlag, QWidget* parent)
    : OptionBlockDialog<EmuOpt88>(Cfg.CfgEmuOpt88, CurEmuOpt88, titleFlag, parent)
{
    setObjectName(QStringLiteral("frmP88srOp"));
    setWindowTitle(QStringLiteral("P88SR設定"));
    BuildPage(QStringLiteral("基本"), {{0, "ドライブ１にいれるディスクのナンバー ( 0 はなし )"},
                                       {1, "ドライブ２にいれるディスクのナンバー ( 0 はなし )"},
                                       {4, "起動時にディスク選択画面を出す"},
                                       {34, "標準フォーマットのフロッピーを直接アクセスする"},
                                       {35, "ディスクアクセスランプを表示する"}});
    BuildPage(QStringLiteral("モード選択"), {{5, "N-BASIC モードで起動"},
                                             {6, "V1S モードで起動"},
                                             {7, "V1H モードで起動"},
                                             {8, "4MHz で起動"},
                                             {9, "128KB 拡張メモリをエミュレート"},
                                             {10, "起動時にディップスイッチを設定する"},
                                             {11, "辞書ROMを使う ( JISHO.ROM が必要 )"}});
    BuildPage(QStringLiteral("動作関係"), {{2, "ウエイト"},
                                           {3, "[vf2] を押している間のウエイト"},
                                           {12, "割り込みレベルを弱める"},
                                           {13, "サブCPUの時間"},
                                           {14, "サブCPUの時間 ( -F より強力 )"},
                                           {15, "メインとサブCPUの同期をとる"},
                                           {38, "割り込みを安全に終える"}});
    BuildPage(QStringLiteral("音源"), {{16, "ADPCM に DRAM を使う ( 数字はウエイト )"},
                                       {17, "FM音源の I/O ポート"},
                                       {18, "FM音源 と ADPCM の音量"},
                                       {19, "サウンドボード１を強制する"},
                                       {20, "ADPCM をエミュレートしない"},
                                       {21, "FMアドレスとデータの間のウエイト"},
                                       {22, "FMポート 0A8H～0ADH をエミュレートしない"},
                                       {39, "OPNA を A8h に置く"}});
    BuildPage(QStringLiteral("画面処理"), {{23, "200ライン時のすき間を埋める"},
                                           {24, "デジタル画面出力"},
                                           {25, "テキスト画面を厳密に処理する"},
                                           {26, "全角漢字を定義する"},
                                           {27, "PCG-8100 のフォント書き換え"},
                                           {28, "7x13 の半角フォント"},
                                           {29, "モノクロ時の反転表示"}});
    BuildPage(QStringLiteral("キーボード"),
              {{30, "カーソルキーをテンキー 2, 4, 6, 8 にする"},
               {31, "[vf1]～[vf5] の代わりのホットキー"},
               {33, "ジョイスティックにキーボードのキーを割り当てる"}});
    BuildPage(QStringLiteral("その他"),
              {{32, "バスマウス"}, {36, "プリンタ"}, {37, "デバッグモード"}});
    FormLoad();
}

void frmP88srOp::BuildPage(const QString& caption,
                           std::initializer_list<std::pair<int, const char*>> rows)
{
    auto* v = new QVBoxLayout(AddPage(caption));
    auto* grid = new QGridLayout;
    grid->setColumnStretch(2, 1);
    for (const auto& [i, text] : rows)
        SwitchRow(grid, i, text);
    v->addLayout(grid);
    v->addStretch(1);
}

void frmP88srOp::SwitchRow(QGridLayout* grid, int i, const char* caption)
{
    const int line = grid->rowCount();
    const QString sw = QString::fromLatin1(P88SwitchName[size_t(i)]).trimmed();
    QCheckBox* chk =
        Check(QStringLiteral("chkP88_1Op"), i,
              QStringLiteral(" -") + sw + QStringLiteral("  ") + QString::fromUtf8(caption),
              Elem(Op.P88_1Op, size_t(i)));
    grid->addWidget(chk, line, 0);
    if (i == 33) {
        BuildJoyKeys(grid);
        return;
    }
    const int k = SlotOf(i);
    if (k < 0)
        return;
    auto* values = new QHBoxLayout;
    QList<QWidget*> governed;
    if (k == 2 || (k >= 5 && k <= 7)) {
        QComboBox* cbx =
            ComboLead(QStringLiteral("cbxP88_2Op"), i, LeadItems(i), Elem(Op.P88_2Op, size_t(k)));
        values->addWidget(cbx);
        governed << cbx;
    } else if (k < 8) {
        // Row 18 carries two values: its own slot and the slot that row 19 holds.
        const QList<int> boxes = i == 18 ? QList<int>{18, 19} : QList<int>{i};
        for (const int t : boxes) {
            const int slot = t == 19 ? 4 : k;
            QLineEdit* box = Number(QStringLiteral("txtP88_2Op"), t, Elem(Op.P88_2Op, size_t(slot)),
                                    BoxLimit(t), 0);
            box->setFixedWidth(56);
            values->addWidget(box);
            governed << box;
        }
    } else {
        QLineEdit* box =
            Number(QStringLiteral("txtP88_3Op"), i, Elem(Op.P88_3Op, size_t(k)), BoxLimit(i), 0);
        UpDown* udn = AddUpDown(box, QStringLiteral("udnP88"), i, 0, int(BoxLimit(i)));
        values->addLayout(BoxRow(box, udn));
        governed << box;
    }
    values->addStretch(1);
    grid->addLayout(values, line, 1);
    Governs(chk, governed);
}

void frmP88srOp::BuildJoyKeys(QGridLayout* grid)
{
    QCheckBox* chk = Control<QCheckBox>(QStringLiteral("chkP88_1Op"), 33);
    const QStringList items = P88JoyKeyItems();
    static const char* const kDirections[] = {"上", "下", "左", "右", "A", "B"};
    auto* keys = new QGridLayout;
    QList<QWidget*> governed;
    for (int n = 0; n < 6; ++n) {
        auto* cbx = new QComboBox;
        cbx->setObjectName(ControlName(QStringLiteral("cbxP88_4Op"), n));
        cbx->addItems(items);
        keys->addWidget(new QLabel(QString::fromUtf8(kDirections[n])), n / 3, (n % 3) * 2);
        keys->addWidget(cbx, n / 3, (n % 3) * 2 + 1);
        governed << cbx;
        // The code is the first two characters of the entry.
        Custom(
            [this, cbx, n] {
                const QString code = Op.P88_4Op[size_t(n)].left(2);
                int found = -1;
                for (int j = 0; j < cbx->count(); ++j)
                    if (cbx->itemText(j).left(2) == code) {
                        found = j;
                        break;
                    }
                cbx->setCurrentIndex(found);
            },
            [this, cbx, n] {
                if (cbx->currentIndex() >= 0)
                    Op.P88_4Op[size_t(n)] = cbx->currentText().left(2);
            });
        connect(cbx, &QComboBox::currentIndexChanged, this, [this] { cbxP88_4Op_Click(); });
    }
    auto* lbl = new QLabel;
    lbl->setObjectName(QStringLiteral("lblP88_4Op"));
    governed << lbl;
    const int line = grid->rowCount();
    grid->addLayout(keys, line, 0, 1, 2);
    grid->addWidget(lbl, line + 1, 0, 1, 2);
    Governs(chk, governed);
    Rule({chk}, [this] { cbxP88_4Op_Click(); });
}

void frmP88srOp::cbxP88_4Op_Click()
{
    auto* lbl = findChild<QLabel*>(QStringLiteral("lblP88_4Op"));
    QCheckBox* chk = Control<QCheckBox>(QStringLiteral("chkP88_1Op"), 33);
    if (!lbl || !chk)
        return;
    if (!chk->isChecked()) {
        lbl->clear();
        return;
    }
    QString text = QStringLiteral("-j");
    for (int n = 0; n < 6; ++n)
        if (auto* cbx = Control<QComboBox>(QStringLiteral("cbxP88_4Op"), n))
            text += cbx->currentText().left(2);
    lbl->setText(text);
}

} // namespace tv
