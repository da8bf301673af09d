#include "adapters/x1emu/frmX1emuOp.h"

#include "data/Cfg.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QVBoxLayout>

namespace tv {

void InitX1emuOp(uint8_t TitleFlag)
{
    X1emuOpTitleFlag = TitleFlag;
}

int ShowX1emuOp(QWidget* parent)
{
    frmX1emuOp dlg(parent);
    return dlg.exec();
}

frmX1emuOp::frmX1emuOp(QWidget* parent) : frmX1emuOp(X1emuOpTitleFlag, parent) {}

frmX1emuOp::frmX1emuOp(uint8_t titleFlag, QWidget* parent)
    : OptionBlockDialog<EmuOptX1>(Cfg.CfgEmuOptX1, CurEmuOptX1, titleFlag, parent)
{
    setObjectName(QStringLiteral("frmX1emuOp"));
    setWindowTitle(QStringLiteral("X1EMU設定"));
    Build();
    FormLoad();
}

void frmX1emuOp::Build()
{
    auto* box = new QGroupBox(QStringLiteral("基本"));
    auto* v = new QVBoxLayout(SinglePage());
    v->addWidget(box);
    auto* grid = new QGridLayout(box);
    auto val = [this](int i) { return Elem(Op.X1emu_2Op, i); };
    auto check = [&](int i, const char* caption, int row) {
        QCheckBox* c = Check(QStringLiteral("chkX1emu_1Op"), i, QString::fromUtf8(caption),
                             Elem(Op.X1emu_1Op, i));
        grid->addWidget(c, row, 0);
        return c;
    };
    // The option buttons of a value: the control's name carries the check box's index.
    auto options = [&](int ctl, int elem, const QList<const char*>& captions, int row) {
        OptGroup& g = Group(val(elem), 0);
        auto* h = new QHBoxLayout;
        QList<QWidget*> out;
        for (int i = 0; i < captions.size(); ++i) {
            QRadioButton* r =
                g.Add(QStringLiteral("optX1emu_2%1Op").arg(ctl), i, QString::fromUtf8(captions[i]));
            h->addWidget(r);
            out << r;
        }
        h->addStretch(1);
        grid->addLayout(h, row, 1);
        return out;
    };
    auto place = [&](QWidget* w, int row) {
        grid->addWidget(w, row, 1, Qt::AlignLeft);
        return QList<QWidget*>{w};
    };

    check(0, " /M0　　メニュー・オフ　（F10終了）", 0);
    QCheckBox* ipl = check(1, " /I　　　 IPLスキップ 2D'n'番起動", 1);
    QLineEdit* boot = Number(QStringLiteral("txtX1emu_2Op"), 1, val(0), 27, 0);
    UpDown* udn = AddUpDown(boot, QStringLiteral("udnX1emu_2Op"), 1, 0, 27);
    grid->addLayout(BoxRow(boot, udn, 48), 1, 1, Qt::AlignLeft);
    Governs(ipl, {boot, udn});
    Governs(check(2, " /Ｔ　　　IPL-ROM", 2),
            options(2, 1, {"無し", "IPLROM.X1", "IPLROM.X1T"}, 2));
    Governs(check(3, " /R　　　X1解像度", 3), options(3, 2, {"Standard", "HighReso"}, 3));
    QStringList digits;
    for (const char* d :
         {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "A", "B", "C", "D", "E", "F"})
        digits << QString::fromLatin1(d);
    Governs(check(4, " /D　　　ディップスイッチ", 4),
            place(ComboChar(QStringLiteral("cbxX1emu_3Op"), 4, digits, Elem(Op.X1emu_3Op)), 4));
    Governs(check(5, " /K　　　キーボード", 5),
            options(5, 3, {"ノーマル", "割込無し", "使わない"}, 5));
    Governs(check(6, " /U　　　フレームスキップ", 6),
            place(ComboLead(QStringLiteral("cbxX1emu_2Op"), 6,
                            {QStringLiteral("0 - 60 FPS"), QStringLiteral("1 - 30 FPS"),
                             QStringLiteral("2 - 20 FPS"), QStringLiteral("3 - 15 FPS"),
                             QStringLiteral("4 - 12 FPS"), QStringLiteral("8 - 7 FPS"),
                             QStringLiteral("16 - 3 FPS"), QStringLiteral("32 - 2 FPS")},
                            val(4)),
                  6));
    Governs(check(7, " /W　　　ウェイト", 7), options(7, 5, {"OFF", "V-SYNC", "TIMER"}, 7));
    Governs(check(8, " 機種別設定", 8),
            place(ComboLead(
                      QStringLiteral("cbxX1emu_2Op"), 8,
                      {QStringLiteral("0 - PC-ATモード（マシンチェック無し）"),
                       QStringLiteral("1 - PC-98モード（マシンチェック無し）"),
                       QStringLiteral("2 - PC-98モード（マシンチェック無し テキスト ON）"),
                       QStringLiteral("3 - PC-ATモード（マシンチェック無し V-SYNC 周期 60.00Hz）"),
                       QStringLiteral("4 - PC-98モード（マシンチェック無し V-SYNC 周期 70.01Hz）")},
                      val(6)),
                  8));
    grid->setColumnStretch(1, 1);
    v->addStretch(1);
}

} // namespace tv
