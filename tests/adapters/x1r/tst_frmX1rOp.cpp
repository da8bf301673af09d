// The X1R option dialog: one frame "基本" without tab strip, load and store of every element
// with its fallbacks, the check boxes that enable their values, Cancel after Apply, and the
// dialog table that opens it and gives frmCfg the defaults' switches.
#include "adapters/OptionDialogs_ui.h"
#include "adapters/x1r/frmX1rOp.h"
#include "data/Cfg.h"

#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
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

class TestFrmX1rOp : public QObject {
    Q_OBJECT

    template <typename T> T* c(frmX1rOp& d, const char* name, int index = -1)
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
        frmX1rOp d(0, nullptr);
        QCOMPARE(d.windowTitle(), QStringLiteral("X1R設定"));
        QVERIFY(!d.tabs() || d.tabs()->isHidden());
        QVERIFY(d.findChild<QFrame*>(QStringLiteral("fraOp(0)")));
        QVERIFY(!d.findChild<QFrame*>(QStringLiteral("fraOp(1)")));
        QVERIFY(d.findChild<QGroupBox*>()->title() == QStringLiteral("基本"));
        QCOMPARE(c<QCheckBox>(d, "chkX1r_1Op", 0)->text(),
                 QStringLiteral(" /T　　　IPL-ROM の指定"));
        QCOMPARE(c<QCheckBox>(d, "chkX1r_1Op", 5)->text(),
                 QStringLiteral(" /X　　　1ラスタのサイクル数"));
        QCOMPARE(c<QRadioButton>(d, "optX1r_20Op", 2)->text(), QStringLiteral("IPLROM.X1T"));
        QCOMPARE(c<QComboBox>(d, "cbxX1r_2Op", 3)->itemText(3), QStringLiteral("3 - 15 FPS"));
        QCOMPARE(d.boxLimit(c<QLineEdit>(d, "txtX1r_3Op", 0)), 65535.0);
    }

    void loadShowsEveryElement()
    {
        CurEmuOptX1.X1r_1Op = {1, 0, 1, 0, 1, 1, 0, 0, 0};
        CurEmuOptX1.X1r_2Op = {2, 1, 1, 2, 0, 0, 0};
        CurEmuOptX1.X1r_3Op[0] = 1234;
        frmX1rOp d(1, nullptr);
        QVERIFY(c<QCheckBox>(d, "chkX1r_1Op", 0)->isChecked());
        QVERIFY(!c<QCheckBox>(d, "chkX1r_1Op", 1)->isChecked());
        QVERIFY(c<QCheckBox>(d, "chkX1r_1Op", 4)->isChecked());
        QVERIFY(c<QRadioButton>(d, "optX1r_20Op", 2)->isChecked());
        QVERIFY(c<QRadioButton>(d, "optX1r_21Op", 1)->isChecked());
        QVERIFY(c<QRadioButton>(d, "optX1r_22Op", 1)->isChecked());
        QCOMPARE(c<QComboBox>(d, "cbxX1r_2Op", 3)->currentText(), QStringLiteral("2 - 20 FPS"));
        QCOMPARE(c<QLineEdit>(d, "txtX1r_3Op", 0)->text(), QStringLiteral("1234"));
        // Enabling by the check boxes, as loaded.
        QVERIFY(c<QRadioButton>(d, "optX1r_20Op", 1)->isEnabled());
        QVERIFY(!c<QRadioButton>(d, "optX1r_21Op", 0)->isEnabled());
        QVERIFY(!c<QComboBox>(d, "cbxX1r_2Op", 3)->isEnabled());
        QVERIFY(c<QLineEdit>(d, "txtX1r_3Op", 0)->isEnabled());
    }

    void checkBoxesEnableTheirValues()
    {
        CurEmuOptX1.X1r_1Op.fill(0);
        frmX1rOp d(1, nullptr);
        QVERIFY(!c<QLineEdit>(d, "txtX1r_3Op", 0)->isEnabled());
        c<QCheckBox>(d, "chkX1r_1Op", 5)->click();
        QVERIFY(c<QLineEdit>(d, "txtX1r_3Op", 0)->isEnabled());
        c<QCheckBox>(d, "chkX1r_1Op", 3)->click();
        QVERIFY(c<QComboBox>(d, "cbxX1r_2Op", 3)->isEnabled());
        c<QCheckBox>(d, "chkX1r_1Op", 3)->click();
        QVERIFY(!c<QComboBox>(d, "cbxX1r_2Op", 3)->isEnabled());
    }

    void storeOfEveryElementAndFallbacks()
    {
        frmX1rOp d(1, nullptr);
        for (int i = 0; i < 6; ++i)
            c<QCheckBox>(d, "chkX1r_1Op", i)->setChecked(i % 2 == 0);
        c<QRadioButton>(d, "optX1r_20Op", 2)->setChecked(true);
        c<QRadioButton>(d, "optX1r_21Op", 1)->setChecked(true);
        c<QRadioButton>(d, "optX1r_22Op", 1)->setChecked(true);
        c<QComboBox>(d, "cbxX1r_2Op", 3)->setCurrentIndex(3);
        c<QLineEdit>(d, "txtX1r_3Op", 0)->setText(QStringLiteral("300"));
        d.StoreOp();
        QCOMPARE(CurEmuOptX1.X1r_1Op[0], uint8_t(1));
        QCOMPARE(CurEmuOptX1.X1r_1Op[1], uint8_t(0));
        QCOMPARE(CurEmuOptX1.X1r_1Op[4], uint8_t(1));
        QCOMPARE(CurEmuOptX1.X1r_1Op[5], uint8_t(0));
        QCOMPARE(CurEmuOptX1.X1r_2Op[0], uint8_t(2));
        QCOMPARE(CurEmuOptX1.X1r_2Op[1], uint8_t(1));
        QCOMPARE(CurEmuOptX1.X1r_2Op[2], uint8_t(1));
        QCOMPARE(CurEmuOptX1.X1r_2Op[3], uint8_t(3));
        QCOMPARE(CurEmuOptX1.X1r_3Op[0], 300);
        QCOMPARE(Cfg.CfgEmuOptX1, Defaults());

        // Nothing selected and an empty box: the fallbacks, a disabled box stored as well.
        c<QRadioButton>(d, "optX1r_20Op", 2)->group()->setExclusive(false);
        c<QRadioButton>(d, "optX1r_20Op", 2)->setChecked(false);
        c<QRadioButton>(d, "optX1r_21Op", 1)->group()->setExclusive(false);
        c<QRadioButton>(d, "optX1r_21Op", 1)->setChecked(false);
        c<QComboBox>(d, "cbxX1r_2Op", 3)->setCurrentIndex(-1);
        c<QLineEdit>(d, "txtX1r_3Op", 0)->clear();
        QVERIFY(!c<QLineEdit>(d, "txtX1r_3Op", 0)->isEnabled());
        d.StoreOp();
        QCOMPARE(CurEmuOptX1.X1r_2Op[0], uint8_t(1));
        QCOMPARE(CurEmuOptX1.X1r_2Op[1], uint8_t(0));
        QCOMPARE(CurEmuOptX1.X1r_2Op[3], uint8_t(0));
        QCOMPARE(CurEmuOptX1.X1r_3Op[0], 250);
    }

    void cancelAfterApplyKeepsTheApplied()
    {
        frmX1rOp d(0, nullptr);
        c<QCheckBox>(d, "chkX1r_1Op", 4)->setChecked(true);
        QTest::mouseClick(c<QPushButton>(d, "cmdApply"), Qt::LeftButton);
        c<QCheckBox>(d, "chkX1r_1Op", 0)->setChecked(true);
        QTest::mouseClick(c<QPushButton>(d, "cmdCancel"), Qt::LeftButton);
        QCOMPARE(Cfg.CfgEmuOptX1.X1r_1Op[4], uint8_t(1));
        QCOMPARE(Cfg.CfgEmuOptX1.X1r_1Op[0], Defaults().X1r_1Op[0]);
        QCOMPARE(CurEmuOptX1, Defaults());
    }

    void tableOpensWithEitherFlagAndGivesTheDefaultsText()
    {
        for (int flag : {0, 1}) {
            init();
            QTimer::singleShot(0, this, [] {
                auto* d = qobject_cast<frmX1rOp*>(QApplication::activeModalWidget());
                if (!d)
                    return;
                d->Control<QCheckBox>(QStringLiteral("chkX1r_1Op"), 1)->setChecked(true);
                d->Control<QRadioButton>(QStringLiteral("optX1r_21Op"), 0)->setChecked(true);
                d->Control<QCheckBox>(QStringLiteral("chkX1r_1Op"), 4)->setChecked(true);
                QTest::mouseClick(d->Control<QPushButton>(QStringLiteral("cmdOK")), Qt::LeftButton);
            });
            QVERIFY(OpenOptionDialog(Emu::X1r, flag, nullptr));
            const EmuOptX1& edited = flag == 0 ? Cfg.CfgEmuOptX1 : CurEmuOptX1;
            const EmuOptX1& other = flag == 0 ? CurEmuOptX1 : Cfg.CfgEmuOptX1;
            QCOMPARE(edited.X1r_1Op[1], uint8_t(1));
            QCOMPARE(other, Defaults());
        }
        Cfg.CfgEmuOptX1.X1r_1Op = {1, 1, 0, 0, 0, 1, 0, 0, 0};
        Cfg.CfgEmuOptX1.X1r_2Op = {1, 0, 0, 0, 0, 0, 0};
        Cfg.CfgEmuOptX1.X1r_3Op[0] = 250;
        QCOMPARE(OptionDialogTable().at(Emu::X1r).defaultsText(), QStringLiteral("/T1 /R0 /X250"));
    }
};

QTEST_MAIN(TestFrmX1rOp)
#include "tst_frmX1rOp.moc"
