// The P88SR option dialog: pages, load, store of every element with its fallbacks, the
// enabling of value controls by their switches, the joystick label, Cancel after Apply, and
// the line that the settings show for the defaults.
#include "adapters/OptionDialogs_ui.h"
#include "adapters/p88sr/P88srOption.h"
#include "adapters/p88sr/frmP88srOp.h"
#include "data/Cfg.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
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

// A block in which the members of the other emulators hold recognisable values.
EmuOpt88 Marked()
{
    EmuOpt88 o = Defaults();
    o.M88_1Op.fill(3);
    o.Q88_1Op.fill(9);
    o.X88_1Op.fill(7);
    o.P88_1Op[40] = 1;
    return o;
}

} // namespace

class TestFrmP88srOp : public QObject {
    Q_OBJECT

    template <typename T> T* c(frmP88srOp& d, const char* name, int index = -1)
    {
        T* w = d.Control<T>(QString::fromLatin1(name), index);
        if (!w)
            qFatal("no control %s(%d)", name, index);
        return w;
    }

private slots:
    void init()
    {
        Cfg.CfgEmuOpt88 = Marked();
        CurEmuOpt88 = Marked();
    }

    void captionPagesAndControls()
    {
        InitP88srOp(0);
        frmP88srOp d;
        QCOMPARE(d.windowTitle(), QStringLiteral("P88SR設定"));
        const QStringList pages = {"基本",     "モード選択", "動作関係", "音源",
                                   "画面処理", "キーボード", "その他"};
        QCOMPARE(d.tabs()->count(), pages.size());
        for (int i = 0; i < pages.size(); ++i)
            QCOMPARE(d.tabs()->tabText(i), pages[i]);
        for (int i = 0; i <= 39; ++i)
            QVERIFY(d.Control<QCheckBox>(QStringLiteral("chkP88_1Op"), i));
        QVERIFY(!d.Control<QCheckBox>(QStringLiteral("chkP88_1Op"), 40));
        QCOMPARE(c<QCheckBox>(d, "chkP88_1Op", 0)->text(),
                 QStringLiteral(" -a  ドライブ１にいれるディスクのナンバー ( 0 はなし )"));
        QCOMPARE(c<QCheckBox>(d, "chkP88_1Op", 39)->text().left(5), QStringLiteral(" -R9 "));
        for (int t : {0, 1, 18, 19})
            QVERIFY(d.Control<QLineEdit>(QStringLiteral("txtP88_2Op"), t));
        for (int t : {2, 3, 13, 14, 16, 21, 32}) {
            QVERIFY(d.Control<QLineEdit>(QStringLiteral("txtP88_3Op"), t));
            QVERIFY(d.Control<QWidget>(QStringLiteral("udnP88"), t));
        }
        for (int t : {17, 29, 31, 38})
            QVERIFY(d.Control<QComboBox>(QStringLiteral("cbxP88_2Op"), t));
        QCOMPARE(c<QComboBox>(d, "cbxP88_2Op", 31)->itemText(5),
                 QStringLiteral("24 - GRPH + CTRL"));
        QCOMPARE(d.boxLimit(c<QLineEdit>(d, "txtP88_2Op", 18)), 127.0);
        QCOMPARE(d.boxLimit(c<QLineEdit>(d, "txtP88_2Op", 19)), 255.0);
        QCOMPARE(d.boxLimit(c<QLineEdit>(d, "txtP88_3Op", 13)), 60000.0);
        QCOMPARE(d.boxLimit(c<QLineEdit>(d, "txtP88_3Op", 32)), 65535.0);
        QCOMPARE(d.boxLimit(c<QLineEdit>(d, "txtP88_2Op", 0)), 64.0);
    }

    void joystickKeysOfferNinetyEntries()
    {
        const QStringList keys = P88JoyKeyItems();
        QCOMPARE(keys.size(), 90);
        QCOMPARE(keys.first(), QStringLiteral("00 - t 0"));
        QCOMPARE(keys[8], QStringLiteral("10 - t 8"));
        QCOMPARE(keys[15], QStringLiteral("17 - Return"));
        QCOMPARE(keys[16], QStringLiteral("20 - @"));
        QCOMPARE(keys[63], QStringLiteral("77 - _"));
        QCOMPARE(keys[64], QStringLiteral("80 - Home"));
        QCOMPARE(keys[69], QStringLiteral("85 - ｶﾅ"));
        QCOMPARE(keys[88], QStringLiteral("B0 - RollUp"));
        QCOMPARE(keys.last(), QStringLiteral("B1 - RollDown"));
    }

    void defaultBlockRoundTripsUnchanged()
    {
        frmP88srOp d(0, nullptr);
        d.StoreOp();
        QVERIFY(Cfg.CfgEmuOpt88 == Marked());
        QVERIFY(CurEmuOpt88 == Marked());
    }

    void loadShowsTheBlock()
    {
        frmP88srOp d(1, nullptr);
        QVERIFY(c<QCheckBox>(d, "chkP88_1Op", 0)->isChecked());
        QVERIFY(c<QCheckBox>(d, "chkP88_1Op", 1)->isChecked());
        QVERIFY(!c<QCheckBox>(d, "chkP88_1Op", 2)->isChecked());
        QCOMPARE(c<QLineEdit>(d, "txtP88_2Op", 0)->text(), QStringLiteral("1"));
        QCOMPARE(c<QLineEdit>(d, "txtP88_2Op", 1)->text(), QStringLiteral("2"));
        QCOMPARE(c<QLineEdit>(d, "txtP88_2Op", 18)->text(), QStringLiteral("9"));
        QCOMPARE(c<QLineEdit>(d, "txtP88_2Op", 19)->text(), QStringLiteral("128"));
        QCOMPARE(c<QComboBox>(d, "cbxP88_2Op", 17)->currentText(), QStringLiteral("0 - 0088h"));
        QCOMPARE(c<QComboBox>(d, "cbxP88_2Op", 38)->currentText(),
                 QStringLiteral("7 - タイマ＋VSYNC＋FM音源"));
        const QStringList joy = {"10 - t 8", "02 - t 2", "04 - t 4",
                                 "06 - t 6", "50 - X",   "52 - Z"};
        for (int n = 0; n < 6; ++n)
            QCOMPARE(c<QComboBox>(d, "cbxP88_4Op", n)->currentText(), joy[n]);
        // Off switches leave their value controls disabled, on ones enabled.
        QVERIFY(c<QLineEdit>(d, "txtP88_2Op", 0)->isEnabled());
        QVERIFY(!c<QLineEdit>(d, "txtP88_3Op", 2)->isEnabled());
        QVERIFY(!c<QComboBox>(d, "cbxP88_2Op", 31)->isEnabled());
        QVERIFY(!c<QComboBox>(d, "cbxP88_4Op", 0)->isEnabled());
        QCOMPARE(c<QLabel>(d, "lblP88_4Op")->text(), QString());
    }

    void storeOfEveryElement()
    {
        frmP88srOp d(0, nullptr);
        for (int i = 0; i <= 39; ++i)
            c<QCheckBox>(d, "chkP88_1Op", i)->setChecked(i % 3 == 0);
        c<QLineEdit>(d, "txtP88_2Op", 0)->setText("64");
        c<QLineEdit>(d, "txtP88_2Op", 1)->setText("");
        c<QLineEdit>(d, "txtP88_2Op", 18)->setText("127");
        c<QLineEdit>(d, "txtP88_2Op", 19)->setText("255");
        c<QComboBox>(d, "cbxP88_2Op", 17)->setCurrentIndex(2);
        c<QComboBox>(d, "cbxP88_2Op", 29)->setCurrentIndex(1);
        c<QComboBox>(d, "cbxP88_2Op", 31)->setCurrentIndex(3);
        c<QComboBox>(d, "cbxP88_2Op", 38)->setCurrentIndex(0);
        const int boxes[] = {2, 3, 13, 14, 16, 21, 32};
        for (int n = 0; n < 7; ++n)
            c<QLineEdit>(d, "txtP88_3Op", boxes[n])->setText(QString::number(100 + n));
        c<QLineEdit>(d, "txtP88_3Op", 2)->setText("");
        c<QComboBox>(d, "cbxP88_4Op", 0)->setCurrentIndex(89);
        c<QComboBox>(d, "cbxP88_4Op", 5)->setCurrentIndex(0);
        d.StoreOp();

        const EmuOpt88& o = Cfg.CfgEmuOpt88;
        for (int i = 0; i <= 39; ++i)
            QCOMPARE(int(o.P88_1Op[i]), i % 3 == 0 ? 1 : 0);
        QCOMPARE(int(o.P88_1Op[40]), 1); // no control: passes through
        QCOMPARE(int(o.P88_2Op[0]), 64);
        QCOMPARE(int(o.P88_2Op[1]), 0);
        QCOMPARE(int(o.P88_2Op[2]), 2);
        QCOMPARE(int(o.P88_2Op[3]), 127);
        QCOMPARE(int(o.P88_2Op[4]), 255);
        QCOMPARE(int(o.P88_2Op[5]), 2);
        QCOMPARE(int(o.P88_2Op[6]), 16);
        QCOMPARE(int(o.P88_2Op[7]), 1);
        QCOMPARE(o.P88_3Op[8], 0); // an empty box stores 0
        for (int k = 9; k <= 14; ++k)
            QCOMPARE(o.P88_3Op[k], 100 + k - 8);
        QCOMPARE(o.P88_4Op[0], QStringLiteral("B1"));
        QCOMPARE(o.P88_4Op[5], QStringLiteral("00"));
        QCOMPARE(o.P88_4Op[1], QStringLiteral("02"));
        // Other emulators' members are untouched.
        QCOMPARE(o.M88_1Op, Marked().M88_1Op);
        QCOMPARE(o.Q88_1Op, Marked().Q88_1Op);
        QVERIFY(CurEmuOpt88 == Marked());
    }

    void switchesEnableTheirValues()
    {
        frmP88srOp d(0, nullptr);
        auto* chk = c<QCheckBox>(d, "chkP88_1Op", 18);
        chk->setChecked(false);
        QVERIFY(!c<QLineEdit>(d, "txtP88_2Op", 18)->isEnabled());
        QVERIFY(!c<QLineEdit>(d, "txtP88_2Op", 19)->isEnabled());
        chk->setChecked(true);
        QVERIFY(c<QLineEdit>(d, "txtP88_2Op", 18)->isEnabled());
        QVERIFY(c<QLineEdit>(d, "txtP88_2Op", 19)->isEnabled());
        // "s1" has no value of its own.
        c<QCheckBox>(d, "chkP88_1Op", 19)->setChecked(false);
        QVERIFY(c<QLineEdit>(d, "txtP88_2Op", 19)->isEnabled());
        c<QCheckBox>(d, "chkP88_1Op", 2)->setChecked(true);
        QVERIFY(c<QLineEdit>(d, "txtP88_3Op", 2)->isEnabled());
        QVERIFY(c<QWidget>(d, "udnP88", 2)->isEnabled());
        c<QCheckBox>(d, "chkP88_1Op", 31)->setChecked(true);
        QVERIFY(c<QComboBox>(d, "cbxP88_2Op", 31)->isEnabled());
    }

    void joystickLabelFollowsTheLists()
    {
        frmP88srOp d(0, nullptr);
        auto* lbl = c<QLabel>(d, "lblP88_4Op");
        c<QCheckBox>(d, "chkP88_1Op", 33)->setChecked(true);
        QCOMPARE(lbl->text(), QStringLiteral("-j100204065052"));
        QVERIFY(c<QComboBox>(d, "cbxP88_4Op", 3)->isEnabled());
        c<QComboBox>(d, "cbxP88_4Op", 3)->setCurrentIndex(88);
        QCOMPARE(lbl->text(), QStringLiteral("-j100204B05052"));
        c<QCheckBox>(d, "chkP88_1Op", 33)->setChecked(false);
        QCOMPARE(lbl->text(), QString());
    }

    void cancelAfterApplyKeepsTheAppliedValues()
    {
        frmP88srOp d(0, nullptr);
        c<QLineEdit>(d, "txtP88_2Op", 0)->setText("5");
        QTest::mouseClick(c<QPushButton>(d, "cmdApply"), Qt::LeftButton);
        QCOMPARE(int(Cfg.CfgEmuOpt88.P88_2Op[0]), 5);
        c<QLineEdit>(d, "txtP88_2Op", 0)->setText("7");
        QTest::mouseClick(c<QPushButton>(d, "cmdCancel"), Qt::LeftButton);
        QCOMPARE(d.result(), int(QDialog::Rejected));
        QCOMPARE(int(Cfg.CfgEmuOpt88.P88_2Op[0]), 5);
        QVERIFY(CurEmuOpt88 == Marked());
    }

    // Through the dialog table: TitleFlag 1 edits the title's working copy, and the settings'
    // line of the defaults is made from the default block.
    void dialogTableOpensOnTheTitleAndShowsTheDefaultLine()
    {
        QTimer::singleShot(0, [] {
            auto* d = qobject_cast<frmP88srOp*>(QApplication::activeModalWidget());
            QVERIFY(d);
            d->Control<QCheckBox>(QStringLiteral("chkP88_1Op"), 9)->setChecked(true);
            QTest::mouseClick(d->Control<QPushButton>(QStringLiteral("cmdOK")), Qt::LeftButton);
        });
        QVERIFY(OpenOptionDialog(Emu::P88sr, 1, nullptr));
        QCOMPARE(int(CurEmuOpt88.P88_1Op[9]), 1);
        QVERIFY(Cfg.CfgEmuOpt88 == Marked());
        Cfg.CfgEmuOpt88 = Defaults();
        QCOMPARE(OptionDialogTable().at(Emu::P88sr).defaultsText(), QStringLiteral("-a1 -b2"));
        Cfg.CfgEmuOpt88.P88_1Op[33] = 1;
        QCOMPARE(OptionDialogTable().at(Emu::P88sr).defaultsText(),
                 QStringLiteral("-a1 -b2 -j100204065052"));
    }
};

QTEST_MAIN(TestFrmP88srOp)
#include "tst_frmP88srOp.moc"
