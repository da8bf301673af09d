#include "adapters/em7/frmEm7WinOp.h"

#include "data/Cfg.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
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

// The main CPU timer works in hundredths of a millisecond.
QString Hundredths(int v)
{
    return QString::number(v / 100.0, 'f', 2);
}

} // namespace

void InitEm7WinOp(uint8_t TitleFlag)
{
    Em7WinOpTitleFlag = TitleFlag;
}

int ShowEm7WinOp(QWidget* parent)
{
    frmEm7WinOp dlg(parent);
    return dlg.exec();
}

frmEm7WinOp::frmEm7WinOp(QWidget* parent) : frmEm7WinOp(Em7WinOpTitleFlag, parent) {}

frmEm7WinOp::frmEm7WinOp(uint8_t titleFlag, QWidget* parent)
    : OptionBlockDialog<EmuOptFM>(Cfg.CfgEmuOptFM, CurEmuOptFM, titleFlag, parent)
{
    setObjectName(QStringLiteral("frmEm7WinOp"));
    setWindowTitle(QStringLiteral("EM7設定"));
    BuildKeyboard();
    BuildPerformance();
    BuildTimer();
    FormLoad();
}

void frmEm7WinOp::BuildKeyboard()
{
    auto* v = new QVBoxLayout(AddPage(QStringLiteral("キーボード他")));
    auto* key = new QVBoxLayout;
    key->addWidget(Check(QStringLiteral("chkEm7Win_1Op"), 0, QStringLiteral("キーレイアウトの変更"),
                         Elem(Op.Em7Win_1Op, 0)));
    for (const char* note : {"［半角/全角］ --> ［ESC］", "［ESC］ --> ［BREAK］"}) {
        QLabel* l = Caption(QString::fromUtf8(note));
        l->setIndent(24);
        key->addWidget(l);
    }
    v->addWidget(GroupBox(QStringLiteral("キーボード"), key));
    v->addWidget(GroupBox(QStringLiteral("Boot mode"),
                          Lines({{K::Group, nullptr, -1, nullptr, Elem(Op.Em7Win_1Op, 1), 0, 0},
                                 {K::Option, "optEm7Win_11Op", 0, "Basic"},
                                 {K::Option, "optEm7Win_11Op", 1, "DOS"}},
                                2)));
    v->addWidget(GroupBox(QStringLiteral("ディスプレイモード"),
                          Lines({{K::Group, nullptr, -1, nullptr, Elem(Op.Em7Win_1Op, 2), 0, 0},
                                 {K::Option, "optEm7Win_12Op", 0, "Windows"},
                                 {K::Option, "optEm7Win_12Op", 1, "Full Screen"}},
                                2)));
    v->addStretch(1);
}

QSlider* frmEm7WinOp::SliderLine(QGridLayout* grid, int line, const QString& name, int index,
                                 OptElem e, int minimum, int maximum, int pageStep,
                                 const QString& caption, const QString& unit,
                                 const QStringList& marks, std::function<QString(int)> format)
{
    QSlider* s = Slider(name, index, e, minimum, maximum);
    s->setPageStep(pageStep);
    grid->addWidget(Caption(caption), line, 0);
    grid->addWidget(s, line, 1);
    grid->addWidget(ValueLabel(s, QStringLiteral("lbl") + name.mid(3), index, format), line, 2);
    if (!unit.isEmpty())
        grid->addWidget(Caption(unit), line, 3);
    // The marks stand under the slider, the first at its left end, the last at its right.
    auto* row = new QHBoxLayout;
    for (int i = 0; i < marks.size(); ++i) {
        if (i > 0)
            row->addStretch(1);
        row->addWidget(Caption(marks[i]));
    }
    grid->addLayout(row, line + 1, 1);
    return s;
}

void frmEm7WinOp::BuildPerformance()
{
    auto* v = new QVBoxLayout(AddPage(QStringLiteral("パフォーマンス")));
    auto* grid = new QGridLayout;
    SliderLine(grid, 0, QStringLiteral("sldEm7Win_1Op"), 3, Elem(Op.Em7Win_1Op, 3), 0, 255, 16,
               QStringLiteral("CPU速度"), QString(),
               {QStringLiteral("遅い"), QStringLiteral("速い")}, Plain);
    SliderLine(grid, 2, QStringLiteral("sldEm7Win_1Op"), 4, Elem(Op.Em7Win_1Op, 4), 1, 60, 10,
               QStringLiteral("画面更新"), QStringLiteral("回/秒"),
               {QStringLiteral("1"), QStringLiteral("30"), QStringLiteral("60")}, Plain);
    v->addWidget(GroupBox(QStringLiteral("パフォーマンス"), grid));
    v->addStretch(1);
}

void frmEm7WinOp::BuildTimer()
{
    auto* v = new QVBoxLayout(AddPage(QStringLiteral("タイマ")));
    auto* grid = new QGridLayout;
    SliderLine(grid, 0, QStringLiteral("sldEm7Win_1Op"), 5, Elem(Op.Em7Win_1Op, 5), 10, 50, 5,
               QStringLiteral("サブCPUタイマ"), QStringLiteral("ms"),
               {QStringLiteral("10"), QStringLiteral("50")}, Plain);
    SliderLine(grid, 2, QStringLiteral("sldEm7Win_2Op"), 0, Elem(Op.Em7Win_2Op, 0), 100, 500, 50,
               QStringLiteral("メインCPUタイマ"), QStringLiteral("ms"),
               {QStringLiteral("1.0"), QStringLiteral("5.0")}, Hundredths);
    v->addWidget(GroupBox(QStringLiteral("タイマ"), grid));
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    QPushButton* def = Button(QStringLiteral("cmdDefault"), -1, QStringLiteral("標準値"));
    connect(def, &QPushButton::clicked, this, [this] { cmdDefault_Click(); });
    row->addWidget(def);
    v->addLayout(row);
    v->addStretch(1);
}

void frmEm7WinOp::cmdDefault_Click()
{
    // The emulator's own timer values; the speed and the refresh stay as they are.
    Control<QSlider>(QStringLiteral("sldEm7Win_1Op"), 5)->setValue(20);
    Control<QSlider>(QStringLiteral("sldEm7Win_2Op"), 0)->setValue(203);
}

} // namespace tv
