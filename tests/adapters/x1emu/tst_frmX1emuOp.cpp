// The X1EMU option dialog: one frame "基本" without tab strip, load and store of every element
// with its fallbacks, the check boxes that enable their values, Cancel after Apply, and the
// dialog table that opens it and gives frmCfg the defaults' switches.
#include "adapters/OptionDialogs_ui.h"
#include "adapters/x1emu/frmX1emuOp.h"
#include "data/Cfg.h"

#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTest>
#include <QTimer>

using namespace tv;

namespace {

EmuOptX1 Defaults()
{
    EmuOptX1 o;
    SetDefaultEmuOptX1(o);
    return o;
}

} // namespace

class TestFrmX1emuOp : public QObject {
    Q_OBJECT

    template <typename T> T* c(frmX1emuOp& d, const char* name, int index = -1)
    {
        T* w = d.Control<T>(QString::fromLatin1(name), index);
        if (!w)
            qFatal("no control %s(%d)", name, index);
        return w;
    }

private slots:
    void init()
    {
        Cfg.CfgEmuOptX1 = Defaults();
        CurEmuOptX1 = Defaults();
    }

    void oneFrameWithoutTabs()
    {
        frmX1emuOp d(0, nullptr);
        QCOMPARE(d.windowTitle(), QStringLiteral("X1EMU設定"));
        QVERIFY(!d.tabs() || d.tabs()->isHidden());
        QVERIFY(!d.findChild<QFrame*>(QStringLiteral("fraOp(1)")));
        QCOMPARE(c<QCheckBox>(d, "chkX1emu_1Op", 0)->text(),
                 QStringLiteral(" /M0　　メニュー・オフ　（F10終了）"));
        QCOMPARE(c<QCheckBox>(d, "chkX1emu_1Op", 2)->text(), QStringLiteral(" /Ｔ　　　IPL-ROM"));
        QCOMPARE(c<QCheckBox>(d, "chkX1emu_1Op", 8)->text(), QStringLiteral(" 機種別設定"));
        QCOMPARE(c<QComboBox>(d, "cbxX1emu_3Op", 4)->count(), 16);
        QCOMPARE(c<QComboBox>(d, "cbxX1emu_2Op", 6)->itemText(7), QStringLiteral("32 - 2 FPS"));
        QCOMPARE(c<QComboBox>(d, "cbxX1emu_2Op", 8)->itemText(4),
                 QStringLiteral("4 - PC-98モード（マシンチェック無し V-SYNC 周期 70.01Hz）"));
        QCOMPARE(d.boxLimit(c<QLineEdit>(d, "txtX1emu_2Op", 1)), 27.0);
    }

    void loadShowsEveryElement()
    {
        CurEmuOptX1.X1emu_1Op = {1, 1, 0, 1, 1, 0, 1, 0, 1, 0, 0, 0};
        CurEmuOptX1.X1emu_2Op = {12, 2, 1, 2, 16, 1, 3, 0, 0, 0};
        CurEmuOptX1.X1emu_3Op = 'B';
        frmX1emuOp d(1, nullptr);
        QVERIFY(c<QCheckBox>(d, "chkX1emu_1Op", 0)->isChecked());
        QVERIFY(!c<QCheckBox>(d, "chkX1emu_1Op", 2)->isChecked());
        QCOMPARE(c<QLineEdit>(d, "txtX1emu_2Op", 1)->text(), QStringLiteral("12"));
        QVERIFY(c<QRadioButton>(d, "optX1emu_22Op", 2)->isChecked());
        QVERIFY(c<QRadioButton>(d, "optX1emu_23Op", 1)->isChecked());
        QCOMPARE(c<QComboBox>(d, "cbxX1emu_3Op", 4)->currentText(), QStringLiteral("B"));
        QVERIFY(c<QRadioButton>(d, "optX1emu_25Op", 2)->isChecked());
        QCOMPARE(c<QComboBox>(d, "cbxX1emu_2Op", 6)->currentText(), QStringLiteral("16 - 3 FPS"));
        QVERIFY(c<QRadioButton>(d, "optX1emu_27Op", 1)->isChecked());
        QVERIFY(c<QComboBox>(d, "cbxX1emu_2Op", 8)->currentText().startsWith("3 - PC-AT"));
        QVERIFY(c<QLineEdit>(d, "txtX1emu_2Op", 1)->isEnabled());
        QVERIFY(!c<QRadioButton>(d, "optX1emu_22Op", 0)->isEnabled());
        QVERIFY(!c<QRadioButton>(d, "optX1emu_25Op", 0)->isEnabled());
        QVERIFY(c<QComboBox>(d, "cbxX1emu_2Op", 8)->isEnabled());
        c<QCheckBox>(d, "chkX1emu_1Op", 2)->click();
        QVERIFY(c<QRadioButton>(d, "optX1emu_22Op", 0)->isEnabled());
        c<QCheckBox>(d, "chkX1emu_1Op", 8)->click();
        QVERIFY(!c<QComboBox>(d, "cbxX1emu_2Op", 8)->isEnabled());
    }

    void storeOfEveryElementAndFallbacks()
    {
        frmX1emuOp d(1, nullptr);
        for (int i = 0; i < 9; ++i)
            c<QCheckBox>(d, "chkX1emu_1Op", i)->setChecked(i % 2 == 1);
        c<QLineEdit>(d, "txtX1emu_2Op", 1)->setText(QStringLiteral("27"));
        c<QRadioButton>(d, "optX1emu_22Op", 1)->setChecked(true);
        c<QRadioButton>(d, "optX1emu_23Op", 1)->setChecked(true);
        c<QComboBox>(d, "cbxX1emu_3Op", 4)->setCurrentIndex(15);
        c<QRadioButton>(d, "optX1emu_25Op", 1)->setChecked(true);
        c<QComboBox>(d, "cbxX1emu_2Op", 6)->setCurrentIndex(6);
        c<QRadioButton>(d, "optX1emu_27Op", 2)->setChecked(true);
        c<QComboBox>(d, "cbxX1emu_2Op", 8)->setCurrentIndex(4);
        d.StoreOp();
        for (int i = 0; i < 9; ++i)
            QCOMPARE(int(CurEmuOptX1.X1emu_1Op[i]), i % 2);
        QCOMPARE(int(CurEmuOptX1.X1emu_2Op[0]), 27);
        QCOMPARE(int(CurEmuOptX1.X1emu_2Op[1]), 1);
        QCOMPARE(int(CurEmuOptX1.X1emu_2Op[2]), 1);
        QCOMPARE(int(CurEmuOptX1.X1emu_2Op[3]), 1);
        QCOMPARE(int(CurEmuOptX1.X1emu_2Op[4]), 16);
        QCOMPARE(int(CurEmuOptX1.X1emu_2Op[5]), 2);
        QCOMPARE(int(CurEmuOptX1.X1emu_2Op[6]), 4);
        QCOMPARE(int(CurEmuOptX1.X1emu_3Op), int('F'));
        QCOMPARE(Cfg.CfgEmuOptX1, Defaults());

        c<QLineEdit>(d, "txtX1emu_2Op", 1)->clear();
        c<QComboBox>(d, "cbxX1emu_3Op", 4)->setCurrentIndex(-1);
        c<QComboBox>(d, "cbxX1emu_2Op", 6)->setCurrentIndex(-1);
        QRadioButton* k = c<QRadioButton>(d, "optX1emu_25Op", 1);
        k->group()->setExclusive(false);
        k->setChecked(false);
        d.StoreOp();
        QCOMPARE(int(CurEmuOptX1.X1emu_2Op[0]), 0);
        QCOMPARE(int(CurEmuOptX1.X1emu_3Op), int(' '));
        QCOMPARE(int(CurEmuOptX1.X1emu_2Op[4]), 0);
        QCOMPARE(int(CurEmuOptX1.X1emu_2Op[3]), 0);
    }

    void cancelAfterApplyKeepsTheApplied()
    {
        frmX1emuOp d(1, nullptr);
        c<QCheckBox>(d, "chkX1emu_1Op", 0)->setChecked(true);
        QTest::mouseClick(c<QPushButton>(d, "cmdApply"), Qt::LeftButton);
        c<QCheckBox>(d, "chkX1emu_1Op", 7)->setChecked(true);
        QTest::mouseClick(c<QPushButton>(d, "cmdCancel"), Qt::LeftButton);
        QCOMPARE(CurEmuOptX1.X1emu_1Op[0], uint8_t(1));
        QCOMPARE(CurEmuOptX1.X1emu_1Op[7], Defaults().X1emu_1Op[7]);
        QCOMPARE(Cfg.CfgEmuOptX1, Defaults());
    }

    void tableOpensWithEitherFlagAndGivesTheDefaultsText()
    {
        for (int flag : {0, 1}) {
            init();
            QTimer::singleShot(0, this, [] {
                auto* d = qobject_cast<frmX1emuOp*>(QApplication::activeModalWidget());
                if (!d)
                    return;
                d->Control<QCheckBox>(QStringLiteral("chkX1emu_1Op"), 0)->setChecked(true);
                QTest::mouseClick(d->Control<QPushButton>(QStringLiteral("cmdOK")), Qt::LeftButton);
            });
            QVERIFY(OpenOptionDialog(Emu::X1emu, flag, nullptr));
            const EmuOptX1& edited = flag == 0 ? Cfg.CfgEmuOptX1 : CurEmuOptX1;
            const EmuOptX1& other = flag == 0 ? CurEmuOptX1 : Cfg.CfgEmuOptX1;
            QCOMPARE(edited.X1emu_1Op[0], uint8_t(1));
            QCOMPARE(other, Defaults());
        }
        Cfg.CfgEmuOptX1.X1emu_1Op = {1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0};
        Cfg.CfgEmuOptX1.X1emu_2Op[6] = 2;
        Cfg.CfgEmuOptX1.X1emu_3Op = 'A';
        QCOMPARE(OptionDialogTable().at(Emu::X1emu).defaultsText(), QStringLiteral("/M0 /DA /!"));
    }
};

QTEST_MAIN(TestFrmX1emuOp)
#include "tst_frmX1emuOp.moc"
