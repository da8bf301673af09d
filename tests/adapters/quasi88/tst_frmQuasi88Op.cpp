// The QUASI88 option dialog and its DIP switch dialog: pages, load, store of every element
// with its fallbacks and adjustments, the float boxes' point, the sliders and their labels,
// the setting buttons, the sound reset, Cancel after Apply, and the DIP switches through
// Q88DipWork.
#include "adapters/OptionDialogs_ui.h"
#include "adapters/quasi88/frmQuasi88Op.h"
#include "adapters/quasi88/frmQuasi88Op2.h"
#include "data/Cfg.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTabBar>
#include <QTest>
#include <QTimer>

using namespace tv;

namespace {

EmuOpt88 Defaults()
{
    EmuOpt88 o;
    SetDefaultEmuOpt88(o);
    return o;
}

EmuOpt88 Marked()
{
    EmuOpt88 o = Defaults();
    o.M88_1Op.fill(3);
    o.P88_1Op.fill(1);
    o.Q88_1Op[58] = 7;
    o.Q88_1Op[59] = 8;
    return o;
}

} // namespace

class TestFrmQuasi88Op : public QObject {
    Q_OBJECT

    template <typename T, typename D> T* c(D& d, const char* name, int index = -1)
    {
        T* w = d.template findChild<T*>(ControlName(QString::fromLatin1(name), index));
        if (!w)
            qFatal("no control %s(%d)", name, index);
        return w;
    }

private slots:
    void init()
    {
        Cfg.CfgEmuOpt88 = Marked();
        CurEmuOpt88 = Marked();
        Q88DipWork = {};
    }

    void captionAndControls()
    {
        InitQ88Op(1);
        frmQuasi88Op d;
        QCOMPARE(d.titleFlag(), uint8_t(1));
        QCOMPARE(d.tabs()->count(), 5);
        QCOMPARE(c<QRadioButton>(d, "optQ88_10Op", 3)->text(), QStringLiteral("N88 V2"));
        QCOMPARE(c<QCheckBox>(d, "chkQ88_1Op", 22)->text(), QStringLiteral("-exhange"));
        QCOMPARE(c<QCheckBox>(d, "chkQ88_1Op", 14)->text(),
                 QStringLiteral("内蔵時計を1985/1/1 00:00:00で固定"));
        QCOMPARE(c<QPushButton>(d, "cmdQ88_2Op")->text(), QStringLiteral("ディップスイッチ設定"));
        QCOMPARE(c<QPushButton>(d, "cmdQ88_1Op")->text(), QStringLiteral("音関係を全Default"));
        QCOMPARE(c<QComboBox>(d, "cbxQ88_1Op", 24)->count(), 12);
        QCOMPARE(c<QComboBox>(d, "cbxQ88_1Op", 46)->count(), 27);
        QVERIFY(c<QComboBox>(d, "cbxQ88_1Op", 46)->itemText(0).startsWith("default"));
        QCOMPARE(c<QComboBox>(d, "cbxQ88_1Op", 50)->itemText(26), QStringLiteral("PC"));
        QCOMPARE(c<QSlider>(d, "sldQ88_1Op", 39)->maximum(), 32);
        QCOMPARE(c<QSlider>(d, "sldQ88_1Op", 43)->maximum(), 200);
        QCOMPARE(c<QSlider>(d, "sldQ88_1Op", 44)->maximum(), 100);
        QCOMPARE(d.boxLimit(c<QLineEdit>(d, "txtQ88_4Op", 1)), 100.0);
        QCOMPARE(d.boxLimit(c<QLineEdit>(d, "txtQ88_4Op", 2)), 240.0);
        QCOMPARE(d.boxLimit(c<QLineEdit>(d, "txtQ88_5Op", 0)), 48000.0);
        QCOMPARE(d.boxLimit(c<QLineEdit>(d, "txtQ88_3Op", 2)), 9999.0);
    }

    void defaultBlockRoundTripsUnchanged()
    {
        frmQuasi88Op d(0, nullptr);
        d.StoreOp();
        QVERIFY(Cfg.CfgEmuOpt88 == Marked());
    }

    void loadShowsTheBlock()
    {
        frmQuasi88Op d(0, nullptr);
        QVERIFY(c<QRadioButton>(d, "optQ88_10Op", 3)->isChecked());
        QVERIFY(c<QRadioButton>(d, "optQ88_11Op", 0)->isChecked());
        QCOMPARE(c<QLineEdit>(d, "txtQ88_1Op", 5)->text(), QStringLiteral("1"));
        QCOMPARE(c<QComboBox>(d, "cbxQ88_1Op", 7)->currentText(), QStringLiteral("９"));
        QCOMPARE(c<QComboBox>(d, "cbxQ88_1Op", 24)->currentText(), QStringLiteral("12 -  5 fps"));
        QCOMPARE(c<QLineEdit>(d, "txtQ88_4Op", 0)->text(), QStringLiteral("3.9936"));
        QCOMPARE(c<QLineEdit>(d, "txtQ88_4Op", 2)->text(), QStringLiteral("55.4"));
        QCOMPARE(c<QLineEdit>(d, "txtQ88_3Op", 2)->text(), QStringLiteral("640"));
        QCOMPARE(c<QLineEdit>(d, "txtQ88_5Op", 0)->text(), QStringLiteral("22050"));
        QVERIFY(c<QRadioButton>(d, "optQ88_136Op", 2)->isChecked());
        QCOMPARE(c<QComboBox>(d, "cbxQ88_1Op", 37)->currentText(), QStringLiteral("1024"));
        QCOMPARE(c<QSlider>(d, "sldQ88_1Op", 41)->value(), 20);
        QCOMPARE(c<QLabel>(d, "lblQ88_1Op", 39)->text(), QStringLiteral("0"));
        QCOMPARE(c<QComboBox>(d, "cbxQ88_1Op", 57)->currentIndex(), 1);
        QCOMPARE(Q88DipWork, Defaults().Q88_2Op);
        // Off switches leave their values disabled.
        QVERIFY(!c<QLineEdit>(d, "txtQ88_1Op", 5)->isEnabled());
        QVERIFY(!c<QLineEdit>(d, "txtQ88_4Op", 0)->isEnabled());
        QVERIFY(!c<QLineEdit>(d, "txtQ88_3Op", 2)->isEnabled());
        QVERIFY(!c<QLineEdit>(d, "txtQ88_5Op", 0)->isEnabled());
        QVERIFY(c<QComboBox>(d, "cbxQ88_1Op", 46)->isEnabled());
    }

    void storeOfEveryElement()
    {
        frmQuasi88Op d(0, nullptr);
        c<QRadioButton>(d, "optQ88_10Op", 1)->setChecked(true);
        c<QRadioButton>(d, "optQ88_11Op", 1)->setChecked(true);
        for (int i : {2,  3,  4,  6,  8,  9,  10, 11, 12, 13, 14, 16, 17, 18, 19, 20,
                      21, 22, 23, 25, 26, 27, 29, 30, 31, 32, 33, 51, 52, 53, 56})
            c<QCheckBox>(d, "chkQ88_1Op", i)->setChecked(true);
        c<QLineEdit>(d, "txtQ88_1Op", 5)->setText("4");
        c<QComboBox>(d, "cbxQ88_1Op", 7)->setCurrentIndex(3);
        c<QRadioButton>(d, "optQ88_115Op", 2)->setChecked(true);
        c<QComboBox>(d, "cbxQ88_1Op", 24)->setCurrentIndex(6);
        c<QRadioButton>(d, "optQ88_128Op", 1)->setChecked(true);
        c<QRadioButton>(d, "optQ88_134Op", 2)->setChecked(true);
        c<QRadioButton>(d, "optQ88_135Op", 1)->setChecked(true);
        c<QRadioButton>(d, "optQ88_136Op", 0)->setChecked(true);
        c<QComboBox>(d, "cbxQ88_1Op", 37)->setCurrentIndex(4);
        c<QLineEdit>(d, "txtQ88_1Op", 38)->setText("8");
        for (int i = 39; i <= 44; ++i)
            c<QSlider>(d, "sldQ88_1Op", i)->setValue(i - 30);
        c<QRadioButton>(d, "optQ88_145Op", 2)->setChecked(true);
        for (int i = 46; i <= 50; ++i)
            c<QComboBox>(d, "cbxQ88_1Op", i)->setCurrentIndex(i - 40);
        c<QComboBox>(d, "cbxQ88_1Op", 54)->setCurrentIndex(2);
        c<QRadioButton>(d, "optQ88_155Op", 4)->setChecked(true);
        c<QComboBox>(d, "cbxQ88_1Op", 57)->setCurrentIndex(3);
        c<QLineEdit>(d, "txtQ88_3Op", 0)->setText("12");
        c<QLineEdit>(d, "txtQ88_3Op", 1)->setText("3");
        c<QLineEdit>(d, "txtQ88_3Op", 2)->setText("645");
        c<QLineEdit>(d, "txtQ88_3Op", 3)->setText("401");
        c<QLineEdit>(d, "txtQ88_4Op", 0)->setText("7.9872");
        c<QLineEdit>(d, "txtQ88_4Op", 1)->setText("2");
        c<QLineEdit>(d, "txtQ88_4Op", 2)->setText("60");
        c<QLineEdit>(d, "txtQ88_4Op", 3)->setText("61.5");
        c<QLineEdit>(d, "txtQ88_5Op", 0)->setText("44100");
        d.StoreOp();

        const EmuOpt88& o = Cfg.CfgEmuOpt88;
        QCOMPARE(int(o.Q88_1Op[0]), 1);
        QCOMPARE(int(o.Q88_1Op[1]), 1);
        for (int i : {2,  3,  4,  6,  8,  9,  10, 11, 12, 13, 14, 16, 17, 18, 19, 20,
                      21, 22, 23, 25, 26, 27, 29, 30, 31, 32, 33, 51, 52, 53, 56})
            QCOMPARE(int(o.Q88_1Op[i]), 1);
        QCOMPARE(int(o.Q88_1Op[5]), 4);
        QCOMPARE(int(o.Q88_1Op[7]), 3);
        QCOMPARE(int(o.Q88_1Op[15]), 2);
        QCOMPARE(int(o.Q88_1Op[24]), 10);
        QCOMPARE(int(o.Q88_1Op[28]), 1);
        QCOMPARE(int(o.Q88_1Op[34]), 2);
        QCOMPARE(int(o.Q88_1Op[35]), 1);
        QCOMPARE(int(o.Q88_1Op[36]), 0);
        QCOMPARE(int(o.Q88_1Op[37]), 4);
        QCOMPARE(int(o.Q88_1Op[38]), 8);
        for (int i = 39; i <= 44; ++i)
            QCOMPARE(int(o.Q88_1Op[i]), i - 30);
        QCOMPARE(int(o.Q88_1Op[45]), 2);
        for (int i = 46; i <= 50; ++i)
            QCOMPARE(int(o.Q88_1Op[i]), i - 40);
        QCOMPARE(int(o.Q88_1Op[54]), 2);
        QCOMPARE(int(o.Q88_1Op[55]), 4);
        QCOMPARE(int(o.Q88_1Op[57]), 3);
        QCOMPARE(int(o.Q88_1Op[58]), 7); // no control: passes through
        QCOMPARE(int(o.Q88_1Op[59]), 8);
        QCOMPARE(o.Q88_3Op[0], int16_t(12));
        QCOMPARE(o.Q88_3Op[1], int16_t(3));
        QCOMPARE(o.Q88_3Op[2], int16_t(640)); // down to a multiple of 8
        QCOMPARE(o.Q88_3Op[3], int16_t(400)); // down to a multiple of 2
        QCOMPARE(c<QLineEdit>(d, "txtQ88_3Op", 2)->text(), QStringLiteral("640"));
        QCOMPARE(c<QLineEdit>(d, "txtQ88_3Op", 3)->text(), QStringLiteral("400"));
        QCOMPARE(o.Q88_4Op[0], 7.9872f);
        QCOMPARE(o.Q88_4Op[1], 2.0f);
        QCOMPARE(o.Q88_4Op[2], 60.0f);
        QCOMPARE(o.Q88_4Op[3], 61.5f);
        QCOMPARE(o.Q88_5Op[0], 44100);
        QCOMPARE(o.P88_1Op, Marked().P88_1Op);
        QVERIFY(CurEmuOpt88 == Marked());
    }

    void emptyAndSmallValuesStoreTheirFallbacks()
    {
        frmQuasi88Op d(0, nullptr);
        c<QLineEdit>(d, "txtQ88_1Op", 5)->setText("");
        c<QLineEdit>(d, "txtQ88_1Op", 38)->setText("");
        c<QLineEdit>(d, "txtQ88_3Op", 0)->setText("");
        c<QLineEdit>(d, "txtQ88_3Op", 1)->setText("");
        c<QLineEdit>(d, "txtQ88_3Op", 2)->setText("100");
        c<QLineEdit>(d, "txtQ88_3Op", 3)->setText("");
        c<QLineEdit>(d, "txtQ88_4Op", 0)->setText("0");
        c<QLineEdit>(d, "txtQ88_4Op", 1)->setText("");
        c<QLineEdit>(d, "txtQ88_4Op", 2)->setText("0");
        c<QLineEdit>(d, "txtQ88_4Op", 3)->setText("");
        c<QLineEdit>(d, "txtQ88_5Op", 0)->setText("7999");
        d.StoreOp();
        const EmuOpt88& o = Cfg.CfgEmuOpt88;
        QCOMPARE(int(o.Q88_1Op[5]), 1);
        QCOMPARE(int(o.Q88_1Op[38]), 4);
        QCOMPARE(o.Q88_3Op[0], int16_t(6));
        QCOMPARE(o.Q88_3Op[1], int16_t(0));
        QCOMPARE(o.Q88_3Op[2], int16_t(320));
        QCOMPARE(c<QLineEdit>(d, "txtQ88_3Op", 2)->text(), QStringLiteral("320"));
        QCOMPARE(o.Q88_3Op[3], int16_t(400));
        QCOMPARE(o.Q88_4Op[0], 3.9936f);
        QCOMPARE(o.Q88_4Op[1], 3.9936f);
        QCOMPARE(o.Q88_4Op[2], 55.4f);
        QCOMPARE(o.Q88_4Op[3], 55.4f);
        QCOMPARE(o.Q88_5Op[0], 8000);
        c<QLineEdit>(d, "txtQ88_5Op", 0)->setText("");
        d.StoreOp();
        QCOMPARE(Cfg.CfgEmuOpt88.Q88_5Op[0], 22050);
    }

    void groupsWithNothingSelectedStoreTheirFallbacks()
    {
        Cfg.CfgEmuOpt88.Q88_1Op[0] = 9;
        Cfg.CfgEmuOpt88.Q88_1Op[1] = 9;
        Cfg.CfgEmuOpt88.Q88_1Op[28] = 9;
        Cfg.CfgEmuOpt88.Q88_1Op[34] = 9;
        Cfg.CfgEmuOpt88.Q88_1Op[35] = 9;
        Cfg.CfgEmuOpt88.Q88_1Op[36] = 9;
        Cfg.CfgEmuOpt88.Q88_1Op[45] = 9;
        Cfg.CfgEmuOpt88.Q88_1Op[55] = 9;
        frmQuasi88Op d(0, nullptr);
        d.StoreOp();
        const EmuOpt88& o = Cfg.CfgEmuOpt88;
        QCOMPARE(int(o.Q88_1Op[0]), 3);
        QCOMPARE(int(o.Q88_1Op[1]), 0);
        QCOMPARE(int(o.Q88_1Op[28]), 0);
        QCOMPARE(int(o.Q88_1Op[34]), 1);
        QCOMPARE(int(o.Q88_1Op[35]), 0);
        QCOMPARE(int(o.Q88_1Op[36]), 2);
        QCOMPARE(int(o.Q88_1Op[45]), 0);
        QCOMPARE(int(o.Q88_1Op[55]), 0);
    }

    void floatBoxTakesOnePoint()
    {
        frmQuasi88Op d(0, nullptr);
        d.show();
        c<QCheckBox>(d, "chkQ88_1Op", 17)->setChecked(true);
        auto* t = c<QLineEdit>(d, "txtQ88_4Op", 0);
        t->setFocus();
        t->setText("3");
        t->setCursorPosition(1);
        QTest::keyClick(t, Qt::Key_Period);
        QTest::keyClick(t, Qt::Key_9);
        QTest::keyClick(t, Qt::Key_Period);
        QTest::keyClick(t, Qt::Key_A);
        QCOMPARE(t->text(), QStringLiteral("3.9"));
    }

    void settingButtons()
    {
        frmQuasi88Op d(0, nullptr);
        // The buttons work while their switches are on.
        QVERIFY(!c<QPushButton>(d, "cmdQ88_40Op", 1)->isEnabled());
        for (int i : {16, 17, 18, 20})
            c<QCheckBox>(d, "chkQ88_1Op", i)->setChecked(true);
        QVERIFY(c<QPushButton>(d, "cmdQ88_40Op", 1)->isEnabled());
        auto* clk = c<QLineEdit>(d, "txtQ88_4Op", 0);
        c<QPushButton>(d, "cmdQ88_40Op", 1)->click();
        QCOMPARE(clk->text(), QStringLiteral("7.9872"));
        c<QPushButton>(d, "cmdQ88_4Op", 1)->click();
        QCOMPARE(c<QLineEdit>(d, "txtQ88_4Op", 1)->text(), QStringLiteral("7.9872"));
        c<QPushButton>(d, "cmdQ88_40Op", 0)->click();
        QCOMPARE(clk->text(), QStringLiteral("3.9936"));
        c<QLineEdit>(d, "txtQ88_4Op", 2)->setText("1");
        c<QLineEdit>(d, "txtQ88_4Op", 3)->setText("2");
        c<QPushButton>(d, "cmdQ88_4Op", 2)->click();
        c<QPushButton>(d, "cmdQ88_4Op", 3)->click();
        QCOMPARE(c<QLineEdit>(d, "txtQ88_4Op", 2)->text(), QStringLiteral("55.4"));
        QCOMPARE(c<QLineEdit>(d, "txtQ88_4Op", 3)->text(), QStringLiteral("55.4"));
        c<QLineEdit>(d, "txtQ88_3Op", 0)->setText("99");
        c<QLineEdit>(d, "txtQ88_3Op", 1)->setText("98");
        c<QPushButton>(d, "cmdQ88_3Op", 0)->click();
        QCOMPARE(c<QLineEdit>(d, "txtQ88_3Op", 0)->text(), QStringLiteral("6"));
        QCOMPARE(c<QLineEdit>(d, "txtQ88_3Op", 1)->text(), QStringLiteral("0"));
    }

    void slidersAndSoundReset()
    {
        frmQuasi88Op d(0, nullptr);
        c<QSlider>(d, "sldQ88_1Op", 39)->setValue(0);
        QCOMPARE(c<QLabel>(d, "lblQ88_1Op", 39)->text(), QStringLiteral("-32"));
        c<QSlider>(d, "sldQ88_1Op", 43)->setValue(150);
        QCOMPARE(c<QLabel>(d, "lblQ88_1Op", 43)->text(), QStringLiteral("150"));
        c<QRadioButton>(d, "optQ88_134Op", 0)->setChecked(true);
        c<QRadioButton>(d, "optQ88_135Op", 1)->setChecked(true);
        c<QRadioButton>(d, "optQ88_136Op", 4)->setChecked(true);
        c<QComboBox>(d, "cbxQ88_1Op", 37)->setCurrentIndex(3);
        c<QLineEdit>(d, "txtQ88_1Op", 38)->setText("9");
        c<QLineEdit>(d, "txtQ88_5Op", 0)->setText("9000");
        for (int i = 40; i <= 44; ++i)
            c<QSlider>(d, "sldQ88_1Op", i)->setValue(1);
        c<QPushButton>(d, "cmdQ88_1Op")->click();
        QVERIFY(c<QRadioButton>(d, "optQ88_134Op", 1)->isChecked());
        QVERIFY(c<QRadioButton>(d, "optQ88_135Op", 0)->isChecked());
        QVERIFY(c<QRadioButton>(d, "optQ88_136Op", 2)->isChecked());
        QCOMPARE(c<QComboBox>(d, "cbxQ88_1Op", 37)->currentIndex(), 1);
        QCOMPARE(c<QLineEdit>(d, "txtQ88_1Op", 38)->text(), QStringLiteral("4"));
        QCOMPARE(c<QLineEdit>(d, "txtQ88_5Op", 0)->text(), QStringLiteral("22050"));
        const int volumes[] = {32, 100, 20, 60, 100, 100};
        for (int i = 39; i <= 44; ++i)
            QCOMPARE(c<QSlider>(d, "sldQ88_1Op", i)->value(), volumes[i - 39]);
        QCOMPARE(c<QLabel>(d, "lblQ88_1Op", 39)->text(), QStringLiteral("0"));
    }

    void cancelAfterApplyKeepsTheAppliedValues()
    {
        frmQuasi88Op d(1, nullptr);
        c<QCheckBox>(d, "chkQ88_1Op", 9)->setChecked(true);
        QTest::mouseClick(c<QPushButton>(d, "cmdApply"), Qt::LeftButton);
        QCOMPARE(int(CurEmuOpt88.Q88_1Op[9]), 1);
        c<QCheckBox>(d, "chkQ88_1Op", 9)->setChecked(false);
        QTest::mouseClick(c<QPushButton>(d, "cmdCancel"), Qt::LeftButton);
        QCOMPARE(d.result(), int(QDialog::Rejected));
        QCOMPARE(int(CurEmuOpt88.Q88_1Op[9]), 1);
        QVERIFY(Cfg.CfgEmuOpt88 == Marked());
    }

    void dipDialogLoadsAndStoresTheWork()
    {
        Q88DipWork = {0, 1, 0, 0, 1, 1, 8, 0, 1, 1, 0, 0, 1};
        frmQuasi88Op2 d;
        QCOMPARE(d.windowTitle(), QStringLiteral("ディップスイッチ設定"));
        QVERIFY(c<QRadioButton>(d, "optQ88_2Op", 0)->isChecked());
        QVERIFY(c<QRadioButton>(d, "optQ88_2Op", 3)->isChecked());
        QVERIFY(c<QRadioButton>(d, "optQ88_2Op", 11)->isChecked());
        QCOMPARE(c<QRadioButton>(d, "optQ88_2Op", 11)->text(), QStringLiteral("ROM"));
        QCOMPARE(c<QComboBox>(d, "cbxQ88_2Op", 6)->currentText(), QStringLiteral("19200"));
        c<QRadioButton>(d, "optQ88_2Op", 1)->setChecked(true);
        c<QRadioButton>(d, "optQ88_2Op", 24)->setChecked(true);
        c<QComboBox>(d, "cbxQ88_2Op", 6)->setCurrentIndex(4);
        QTest::mouseClick(c<QPushButton>(d, "cmdOK"), Qt::LeftButton);
        QCOMPARE(d.result(), int(QDialog::Accepted));
        const std::array<uint8_t, 13> expected = {1, 1, 0, 0, 1, 1, 4, 0, 1, 1, 0, 0, 0};
        QCOMPARE(Q88DipWork, expected);
    }

    void dipDefaultButtonGivesTheDefaults()
    {
        Q88DipWork = {0, 1, 0, 0, 1, 1, 8, 0, 1, 1, 0, 0, 0};
        frmQuasi88Op2 d;
        QCOMPARE(c<QPushButton>(d, "cmdDefault")->text(), QStringLiteral("Dfault"));
        QCOMPARE(c<QPushButton>(d, "cmdOK")->text(), QStringLiteral("戻る"));
        c<QPushButton>(d, "cmdDefault")->click();
        c<QPushButton>(d, "cmdOK")->click();
        const std::array<uint8_t, 13> expected = {1, 0, 1, 1, 0, 0, 2, 1, 0, 0, 1, 1, 1};
        QCOMPARE(Q88DipWork, expected);
        QCOMPARE(Q88DipWork, Defaults().Q88_2Op);
    }

    // The option dialog hands its DIP switches to the DIP dialog and stores what comes back.
    void dipSwitchesTravelThroughTheOptionDialog()
    {
        frmQuasi88Op d(0, nullptr);
        QTimer::singleShot(0, [this] {
            auto* dip = qobject_cast<frmQuasi88Op2*>(QApplication::activeModalWidget());
            QVERIFY(dip);
            QVERIFY(c<QRadioButton>(*dip, "optQ88_2Op", 1)->isChecked());
            c<QRadioButton>(*dip, "optQ88_2Op", 0)->setChecked(true);
            c<QRadioButton>(*dip, "optQ88_2Op", 11)->setChecked(true);
            c<QPushButton>(*dip, "cmdOK")->click();
        });
        c<QPushButton>(d, "cmdQ88_2Op")->click();
        d.StoreOp();
        EmuOpt88 expected = Marked();
        expected.Q88_2Op[0] = 0;
        expected.Q88_2Op[5] = 1;
        QVERIFY(Cfg.CfgEmuOpt88 == expected);
    }

    void dialogTableOpensOnTheDefaults()
    {
        QTimer::singleShot(0, [this] {
            auto* d = qobject_cast<frmQuasi88Op*>(QApplication::activeModalWidget());
            QVERIFY(d);
            QCOMPARE(d->titleFlag(), uint8_t(0));
            c<QCheckBox>(*d, "chkQ88_1Op", 13)->setChecked(true);
            c<QPushButton>(*d, "cmdOK")->click();
        });
        QVERIFY(OpenOptionDialog(Emu::QUASI88, 0, nullptr));
        QCOMPARE(int(Cfg.CfgEmuOpt88.Q88_1Op[13]), 1);
        QVERIFY(CurEmuOpt88 == Marked());
    }
};

QTEST_MAIN(TestFrmQuasi88Op)
#include "tst_frmQuasi88Op.moc"
