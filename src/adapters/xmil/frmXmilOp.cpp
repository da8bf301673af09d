#include "adapters/xmil/frmXmilOp.h"

#include "data/Cfg.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
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

// The volumes go out as the slider less 30; the bottom of the slider is silence.
QString VolumeText(int v)
{
    return v > 0 ? QString::number(v - 30) : QStringLiteral("Mute");
}

const QStringList kOnOff{QStringLiteral("0 - OFF"), QStringLiteral("1 - ON")};

} // namespace

void InitXmilOp(uint8_t TitleFlag)
{
    XmilOpTitleFlag = TitleFlag;
}

int ShowXmilOp(QWidget* parent)
{
    frmXmilOp dlg(parent);
    return dlg.exec();
}

frmXmilOp::frmXmilOp(QWidget* parent) : frmXmilOp(XmilOpTitleFlag, parent) {}

frmXmilOp::frmXmilOp(uint8_t titleFlag, QWidget* parent)
    : OptionBlockDialog<EmuOptX1>(Cfg.CfgEmuOptX1, CurEmuOptX1, titleFlag, parent)
{
    setObjectName(QStringLiteral("frmXmilOp"));
    setWindowTitle(QStringLiteral("Xmille設定"));
    // Store walks Xmil_1Op from 0 upward, then the other arrays: the pages are built so.
    BuildConfigure();
    BuildOther();
    FormLoad();
}

void frmXmilOp::BuildConfigure()
{
    auto e1 = [this](int i) { return Elem(Op.Xmil_1Op, i); };
    auto* grid = new QGridLayout(AddPage(QStringLiteral("Configure")));
    grid->addWidget(GroupBox(QStringLiteral("CPU"),
                             Lines({{.kind = K::Lead,
                                     .name = "cbxXmil_1Op",
                                     .index = 2,
                                     .caption = "IPL-ROM",
                                     .elem = e1(2),
                                     .items = {"1 - X1", "2 - turbo", "3 - turboZ"}},
                                    {.kind = K::Lead,
                                     .name = "cbxXmil_1Op",
                                     .index = 3,
                                     .caption = "CPU Clock",
                                     .elem = e1(3),
                                     .items = {"4 - 4 MHz", "5 - 5 MHz", "6 - 6 MHz", "8 - 8 MHz",
                                               "10 - 10 MHz", "12 - 12 MHz"}},
                                    {K::Check, "chkXmil_1Op", 4, "Skip Line", e1(4)},
                                    {K::Check, "chkXmil_1Op", 5, "No Wait", e1(5)},
                                    {.kind = K::Lead,
                                     .name = "cbxXmil_1Op",
                                     .index = 6,
                                     .caption = "SkipFlame",
                                     .elem = e1(6),
                                     .items = {"0 - Raster", "1 - 60 FPS", "2 - 30 FPS",
                                               "3 - 20 FPS", "4 - 15 FPS"}}})),
                    0, 0);
    grid->addWidget(GroupBox(QStringLiteral("Screen"), Lines({{.kind = K::Number,
                                                               .name = "txtXmil_1Op",
                                                               .index = 7,
                                                               .caption = "Skipline Light",
                                                               .elem = e1(7),
                                                               .limit = 255},
                                                              {.kind = K::Number,
                                                               .name = "txtXmil_1Op",
                                                               .index = 8,
                                                               .caption = "Black Light",
                                                               .elem = e1(8),
                                                               .limit = 255}})),
                    1, 0);
    grid->addWidget(
        GroupBox(QStringLiteral("Text Type"), Lines({{K::Group, nullptr, -1, nullptr, e1(10), 0, 0},
                                                     {K::Option, "optXmil_110Op", 0, "Real"},
                                                     {K::Option, "optXmil_110Op", 1, "Enhanced"}},
                                                    2)),
        2, 0);
    // The custom value belongs to the last button of the group.
    QGridLayout* effect = Lines({{K::Group, nullptr, -1, nullptr, e1(11), 0, 0},
                                 {K::Option, "optXmil_111Op", 0, "Real"},
                                 {K::Option, "optXmil_111Op", 1, "400line"},
                                 {K::Option, "optXmil_111Op", 2, "Custom"}},
                                3, 1);
    QLineEdit* custom = Number(QStringLiteral("txtXmil_1Op"), 9, e1(9), 255, 0);
    UpDown* udn = AddUpDown(custom, QStringLiteral("udnXmil_1Op"), 9, 0, 255);
    effect->addLayout(BoxRow(custom, udn, 48), 1, 2);
    grid->addWidget(GroupBox(QStringLiteral("Text Effect"), effect), 3, 0);

    grid->addWidget(
        GroupBox(QStringLiteral("Sound"),
                 Lines({{K::Check, "chkXmil_1Op", 12, "FM Board", e1(12)},
                        {.kind = K::Lead,
                         .name = "cbxXmil_1Op",
                         .index = 13,
                         .caption = "Sampling Rate",
                         .elem = e1(13),
                         .items = {"11 - 96000", "10 - 88200", "9  - 62500", "8  - 55500",
                                   "7  - 48000", "6  - 44100", "5  - 33075", "4  - 32000",
                                   "3  - 24000", "2  - 22050", "1  - 16000", "0  - 11025"}},
                        {K::Check, "chkXmil_1Op", 14, "Sound High Priority", e1(14)},
                        {K::Check, "chkXmil_1Op", 15, "Force DirectSound3", e1(15)},
                        {K::Check, "chkXmil_1Op", 16, "Use PuchiNoise Gen", e1(16)},
                        {K::Check, "chkXmil_1Op", 17, "SeekSound", e1(17)},
                        {.kind = K::Number,
                         .name = "txtXmil_1Op",
                         .index = 18,
                         .caption = "Seek Volume",
                         .elem = e1(18),
                         .limit = 100,
                         .fallback = 80},
                        {.kind = K::Number,
                         .name = "txtXmil_2Op",
                         .index = 0,
                         .caption = "Buffer",
                         .elem = Elem(Op.Xmil_2Op, 0),
                         .limit = 1000,
                         .fallback = 100,
                         .minimum = 100,
                         .unit = "ms"}})),
        0, 1, 3, 1);
    grid->setRowStretch(4, 1);
}

void frmXmilOp::BuildOther()
{
    auto e1 = [this](int i) { return Elem(Op.Xmil_1Op, i); };
    auto* grid = new QGridLayout(AddPage(QStringLiteral("その他オプション")));
    grid->addWidget(GroupBox(QStringLiteral("Input"),
                             Lines({{K::Check, "chkXmil_1Op", 19, "Joystick", e1(19)},
                                    {K::Check, "chkXmil_1Op", 20, "Joy Rapid", e1(20)},
                                    {K::Check, "chkXmil_1Op", 21, "Joy Reverse", e1(21)},
                                    {K::Check, "chkXmil_1Op", 22, "MOUSE", e1(22)}})),
                    0, 0);
    grid->addWidget(GroupBox(QStringLiteral("Misc"),
                             Lines({{K::Check, "chkXmil_1Op", 25, "Use ROEMO", e1(25)},
                                    {K::Check, "chkXmil_1Op", 26, "Information Bar", e1(26)},
                                    {K::Check, "chkXmil_1Op", 27, "Use YMF288 SSG", e1(27)}})),
                    1, 0);
    grid->addWidget(GroupBox(QStringLiteral("Volume"), Lines({{.kind = K::Slider,
                                                               .name = "sldXmil_1Op",
                                                               .index = 28,
                                                               .caption = "OPM Volume",
                                                               .elem = e1(28),
                                                               .limit = 50,
                                                               .format = VolumeText},
                                                              {.kind = K::Slider,
                                                               .name = "sldXmil_1Op",
                                                               .index = 29,
                                                               .caption = "PSG Volume",
                                                               .elem = e1(29),
                                                               .limit = 50,
                                                               .format = VolumeText}})),
                    2, 0);
    for (int i : {28, 29})
        Control<QSlider>(QStringLiteral("sldXmil_1Op"), i)->setPageStep(5);
    grid->addWidget(GroupBox(QStringLiteral("Status"), Lines({{.kind = K::Lead,
                                                               .name = "cbxXmil_3Op",
                                                               .index = 0,
                                                               .caption = "Clock Disp",
                                                               .elem = Elem(Op.Xmil_3Op, 0),
                                                               .items = kOnOff},
                                                              {.kind = K::Lead,
                                                               .name = "cbxXmil_3Op",
                                                               .index = 1,
                                                               .caption = "Flame Disp",
                                                               .elem = Elem(Op.Xmil_3Op, 1),
                                                               .items = kOnOff}})),
                    0, 1);
    grid->addWidget(
        GroupBox(QStringLiteral("DIP-SW"), Lines({{.kind = K::Lead,
                                                   .name = "cbxXmil_4Op",
                                                   .index = 0,
                                                   .caption = "Display",
                                                   .elem = Elem(Op.Xmil_4Op, 0),
                                                   .items = {"0 - HIGH RESO", "1 - Standard"}},
                                                  {.kind = K::Lead,
                                                   .name = "cbxXmil_4Op",
                                                   .index = 2,
                                                   .caption = "Boot Mode",
                                                   .elem = Elem(Op.Xmil_4Op, 2),
                                                   .items = {"0 - 2D", "1 - 2HD"}}})),
        1, 1);
    grid->addWidget(GroupBox(QStringLiteral("Filter"), Lines({{.kind = K::Number,
                                                               .name = "txtXmil_5Op",
                                                               .index = 0,
                                                               .caption = "LPF Cutoff Freq",
                                                               .elem = Elem(Op.Xmil_5Op, 0),
                                                               .limit = 48000,
                                                               .step = 100,
                                                               .unit = "Hz",
                                                               .width = 72}})),
                    2, 1);
    grid->setRowStretch(3, 1);
}

} // namespace tv
