// The M88 option dialog and the option dialog frame under it: load, store, fallbacks, the
// key filter, the buttons, the tab strip and the interlocks.
#include "adapters/m88/frmM88Op.h"
#include "data/Cfg.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTabBar>
#include <QTest>
#include <QToolButton>

using namespace tv;

namespace {

EmuOpt88 Defaults()
{
    EmuOpt88 o;
    SetDefaultEmuOpt88(o);
    return o;
}

// A block in which every member of the other emulators holds a recognisable value.
EmuOpt88 Marked()
{
    EmuOpt88 o = Defaults();
    o.DefEmuRun = 5;
    o.P88_1Op.fill(1);
    o.X88_1Op.fill(7);
    o.Q88_1Op.fill(9);
    o.J80_2Op = {11, 12, 13};
    o.Pc8_2Op = {300, 301};
    return o;
}

} // namespace

class TestFrmM88Op : public QObject {
    Q_OBJECT

    template <typename T> T* c(frmM88Op& d, const char* name, int index = -1)
    {
        T* w = d.Control<T>(QString::fromLatin1(name), index);
        if (!w)
            qFatal("no control %s(%d)", name, index);
        return w;
    }
    QCheckBox* chk2(frmM88Op& d, int i) { return c<QCheckBox>(d, "chkM88_2Op", i); }

private slots:
    void init()
    {
        Cfg.CfgEmuOpt88 = Marked();
        CurEmuOpt88 = Marked();
    }

    void captionPagesAndEntry()
    {
        InitM88Op(0);
        frmM88Op d;
        QCOMPARE(d.windowTitle(), QStringLiteral("M88設定"));
        QCOMPARE(d.titleFlag(), uint8_t(0));
        const QStringList pages = {"CPU",    "画面", "音量",   "環境", "その他",
                                   "DIP-SW", "PCG",  "ろみお", "FM98", "モード"};
        QCOMPARE(d.tabs()->count(), pages.size());
        for (int i = 0; i < pages.size(); ++i) {
            QCOMPARE(d.tabs()->tabText(i), pages[i]);
            QVERIFY(d.findChild<QFrame*>(QStringLiteral("fraOp(%1)").arg(i)));
        }
        InitM88Op(1);
        frmM88Op d1;
        QCOMPARE(d1.titleFlag(), uint8_t(1));
        QCOMPARE(c<QCheckBox>(d, "chkM88_2Op", 0)->text(),
                 QStringLiteral("Sub CPU を常に駆動(&S)"));
        QCOMPARE(c<QPushButton>(d, "cmdDefault")->text(), QStringLiteral("Dfault"));
        QCOMPARE(c<QCheckBox>(d, "chkM88_1Op", 23)->text(),
                 QStringLiteral("RND4M88を併用(M88.EXEと同DIR)"));
        QCOMPARE(c<QRadioButton>(d, "optM88_10Op", 113)->text(), QStringLiteral("N88-V2(CD)"));
        QCOMPARE(c<QRadioButton>(d, "optM88_3op", 0)->text(), QStringLiteral("なし(V2時OPN)"));
        QCOMPARE(c<QCheckBox>(d, "chkM88_5Op", 0)->text(), QStringLiteral("diskdrv88+80"));
    }

    void defaultBlockRoundTripsUnchanged()
    {
        Cfg.CfgEmuOpt88 = Marked();
        frmM88Op d(0, nullptr);
        QTest::mouseClick(c<QPushButton>(d, "cmdOK"), Qt::LeftButton);
        QVERIFY(Cfg.CfgEmuOpt88 == Marked());
    }

    void loadShowsTheBlock()
    {
        EmuOpt88 o = Marked();
        o.M88_1Op[0] = 33;
        o.M88_1Op[1] = 8;
        o.M88_1Op[2] = 150;
        o.M88_1Op[3] = 4;
        o.M88_1Op[4] = 9;
        o.M88_1Op[5] = 15;
        o.M88_1Op[9] = 60;
        o.M88_1Op[10] = 61;
        o.M88_1Op[18] = 120;
        o.M88_1Op[19] = 255;
        o.M88_1Op[20] = 1;
        o.M88_1Op[25] = 3;
        o.M88_2Op[0] = 0;  // inverted: shown checked
        o.M88_2Op[14] = 1; // inverted: shown unchecked
        o.M88_3Op[11] = 0; // inverted: shown checked
        o.M88_2Op[19] = 1;
        o.M88_4Op.fill(0);
        o.M88_4Op[3] = 1;
        o.M88_6Op = {70, 100, 110};
        o.M88_7Op[0] = 250;
        o.M88_8Op[0] = 44100;
        CurEmuOpt88 = o;
        frmM88Op d(1, nullptr);
        QVERIFY(c<QRadioButton>(d, "optM88_10Op", 33)->isChecked());
        QCOMPARE(c<QLineEdit>(d, "txtM88_1Op", 1)->text(), QStringLiteral("8"));
        QCOMPARE(c<QSlider>(d, "sldM88_1Op", 2)->value(), 150);
        QCOMPARE(c<QLabel>(d, "lblM88_12Op", 1)->text(), QStringLiteral("150 %"));
        QVERIFY(c<QRadioButton>(d, "optM88_13Op", 4)->isChecked());
        QVERIFY(c<QRadioButton>(d, "optM88_14Op", 9)->isChecked());
        QCOMPARE(c<QLineEdit>(d, "txtM88_1Op", 5)->text(), QStringLiteral("150"));
        QCOMPARE(c<QLabel>(d, "lblM88_1Op", 9)->text(), QStringLiteral("Mute"));
        QCOMPARE(c<QLabel>(d, "lblM88_1Op", 10)->text(), QStringLiteral("-39"));
        QCOMPARE(c<QLabel>(d, "lblM88_1Op", 18)->text(), QStringLiteral("20"));
        QCOMPARE(c<QLabel>(d, "lblM88_1Op", 11)->text(), QStringLiteral("0"));
        QCOMPARE(c<QLineEdit>(d, "txtM88_1Op", 19)->text(), QStringLiteral("256"));
        QCOMPARE(c<QLabel>(d, "lblM88_1Op", 19)->text(), QStringLiteral("8192 KB"));
        QCOMPARE(c<QComboBox>(d, "cbxM88_1Op", 25)->currentText(), QStringLiteral("3 - 0288"));
        QVERIFY(chk2(d, 0)->isChecked());
        QVERIFY(!chk2(d, 14)->isChecked());
        QVERIFY(c<QCheckBox>(d, "chkM88_3Op", 11)->isChecked());
        QVERIFY(c<QRadioButton>(d, "optM88_2Op", 19)->isChecked());
        QVERIFY(!c<QRadioButton>(d, "optM88_2Op", 18)->isChecked());
        QVERIFY(c<QRadioButton>(d, "optM88_44hOPN")->isChecked());
        QVERIFY(c<QRadioButton>(d, "optM88_4Op", 0)->isChecked());
        QVERIFY(c<QRadioButton>(d, "optM88_4Op", 7)->isChecked());
        QCOMPARE(c<QLabel>(d, "lblM88_6Op", 0)->text(), QStringLiteral("-30"));
        QCOMPARE(c<QLabel>(d, "lblM88_7Op")->text(), QStringLiteral("250 ms"));
        QCOMPARE(c<QLineEdit>(d, "txtM88_8Op", 0)->text(), QStringLiteral("44100"));
    }

    void loadOfAValueWithoutButtonOrItemSelectsNothing()
    {
        Cfg.CfgEmuOpt88.M88_1Op[0] = 7;
        Cfg.CfgEmuOpt88.M88_1Op[25] = 9;
        frmM88Op d(0, nullptr);
        for (int i : {0, 2, 18, 32, 33, 49, 113})
            QVERIFY(!c<QRadioButton>(d, "optM88_10Op", i)->isChecked());
        QCOMPARE(c<QComboBox>(d, "cbxM88_1Op", 25)->currentIndex(), -1);
        QTest::mouseClick(c<QPushButton>(d, "cmdApply"), Qt::LeftButton);
        QCOMPARE(int(Cfg.CfgEmuOpt88.M88_1Op[0]), 49); // the group's fallback
        QCOMPARE(int(Cfg.CfgEmuOpt88.M88_1Op[25]), 0);
    }

    void groupFallbacksWhenNothingIsSelected()
    {
        Cfg.CfgEmuOpt88.M88_1Op[3] = 0;
        Cfg.CfgEmuOpt88.M88_1Op[4] = 4; // no button 4
        Cfg.CfgEmuOpt88.M88_1Op[7] = 7;
        Cfg.CfgEmuOpt88.M88_1Op[8] = 5;
        frmM88Op d(0, nullptr);
        d.StoreOp();
        QCOMPARE(int(Cfg.CfgEmuOpt88.M88_1Op[3]), 2);
        QCOMPARE(int(Cfg.CfgEmuOpt88.M88_1Op[4]), 2);
        QCOMPARE(int(Cfg.CfgEmuOpt88.M88_1Op[7]), 2);
        QCOMPARE(int(Cfg.CfgEmuOpt88.M88_1Op[8]), 2);
    }

    void storeOfEveryElement()
    {
        frmM88Op d(1, nullptr);
        c<QRadioButton>(d, "optM88_10Op", 113)->setChecked(true);
        c<QLineEdit>(d, "txtM88_1Op", 1)->setText("8");
        c<QSlider>(d, "sldM88_1Op", 2)->setValue(180);
        c<QRadioButton>(d, "optM88_13Op", 1)->setChecked(true);
        c<QRadioButton>(d, "optM88_14Op", 8)->setChecked(true);
        c<QLineEdit>(d, "txtM88_1Op", 5)->setText("155");
        c<QSlider>(d, "sldM88_1Op", 6)->setValue(10);
        c<QRadioButton>(d, "optM88_17Op", 1)->setChecked(true);
        c<QRadioButton>(d, "optM88_18Op", 1)->setChecked(true);
        for (int i = 9; i <= 18; ++i)
            c<QSlider>(d, "sldM88_1Op", i)->setValue(60 + i);
        c<QLineEdit>(d, "txtM88_1Op", 19)->setText("2");
        c<QCheckBox>(d, "chkM88_3Op", 10)->setChecked(true);
        c<QLineEdit>(d, "txtM88_1Op", 21)->setText("24");
        c<QLineEdit>(d, "txtM88_1Op", 22)->setText("16");
        for (int i : {23, 24, 26, 27})
            c<QCheckBox>(d, "chkM88_1Op", i)->setChecked(true);
        c<QComboBox>(d, "cbxM88_1Op", 25)->setCurrentIndex(4);
        for (int k = 0; k < 8; ++k)
            c<QCheckBox>(d, "chkM88_5Op", k)->setChecked(k % 2 == 1);
        for (int i = 0; i < 3; ++i)
            c<QSlider>(d, "sldM88_6Op", i)->setValue(61 + i);
        c<QSlider>(d, "sldM88_7Op", 0)->setValue(420);
        c<QLineEdit>(d, "txtM88_7Op", 1)->setText("500");
        c<QRadioButton>(d, "optM88_14Op", 9)->setChecked(true);
        c<QLineEdit>(d, "txtM88_8Op", 0)->setText("110932");
        c<QLineEdit>(d, "txtM88_8Op", 1)->setText("999999");
        c<QLineEdit>(d, "txtM88_8Op", 2)->setText("12");
        for (int i = 0; i < 12; ++i)
            c<QRadioButton>(d, "optM88_4Op", 2 * i + (i % 3 == 0 ? 1 : 0))->setChecked(true);
        QTest::mouseClick(c<QPushButton>(d, "cmdApply"), Qt::LeftButton);

        const EmuOpt88& o = CurEmuOpt88;
        QCOMPARE(int(o.M88_1Op[0]), 113);
        QCOMPARE(int(o.M88_1Op[1]), 8);
        QCOMPARE(int(o.M88_1Op[2]), 180);
        QCOMPARE(int(o.M88_1Op[3]), 1);
        QCOMPARE(int(o.M88_1Op[4]), 9);
        QCOMPARE(int(o.M88_1Op[5]), 15); // 155 ms: the whole part of a tenth
        QCOMPARE(int(o.M88_1Op[6]), 10);
        QCOMPARE(int(o.M88_1Op[7]), 1);
        QCOMPARE(int(o.M88_1Op[8]), 1);
        for (int i = 9; i <= 18; ++i)
            QCOMPARE(int(o.M88_1Op[i]), 60 + i);
        QCOMPARE(int(o.M88_1Op[19]), 1);
        QCOMPARE(int(o.M88_1Op[20]), 1);
        QCOMPARE(int(o.M88_1Op[21]), 24);
        QCOMPARE(int(o.M88_1Op[22]), 16);
        for (int i : {23, 24, 26, 27})
            QCOMPARE(int(o.M88_1Op[i]), 1);
        QCOMPARE(int(o.M88_1Op[25]), 4);
        for (int k = 0; k < 8; ++k)
            QCOMPARE(int(o.M88_5Op[k]), k % 2);
        QCOMPARE(int(o.M88_6Op[0]), 61);
        QCOMPARE(int(o.M88_6Op[2]), 63);
        QCOMPARE(int(o.M88_7Op[0]), 420);
        QCOMPARE(int(o.M88_7Op[1]), 500);
        QCOMPARE(o.M88_8Op[0], 110932);
        QCOMPARE(o.M88_8Op[1], 999999);
        QCOMPARE(o.M88_8Op[2], 12);
        for (int i = 0; i < 12; ++i)
            QCOMPARE(int(o.M88_4Op[i]), i % 3 == 0 ? 1 : 0);
        // Only the working copy changed; the defaults and the other emulators' members stay.
        QVERIFY(Cfg.CfgEmuOpt88 == Marked());
        QCOMPARE(o.X88_1Op, Marked().X88_1Op);
        QCOMPARE(o.Q88_1Op, Marked().Q88_1Op);
        QCOMPARE(o.J80_2Op, Marked().J80_2Op);
        QCOMPARE(o.Pc8_2Op, Marked().Pc8_2Op);
        QCOMPARE(int(o.DefEmuRun), 5);
    }

    void flagBitsWithInversionsForcedBitAndUnownedBits()
    {
        Cfg.CfgEmuOpt88.M88_2Op[11] = 1;
        Cfg.CfgEmuOpt88.M88_2Op[16] = 1;
        Cfg.CfgEmuOpt88.M88_2Op[28] = 1;
        Cfg.CfgEmuOpt88.M88_2Op[31] = 1;
        frmM88Op d(0, nullptr);
        const QList<int> plain = {2,  3,  5,  6,  7,  8,  9,  10, 12, 13, 15,
                                  17, 20, 22, 23, 24, 25, 26, 27, 29, 30};
        // Check all in an order that the interlocks don't undo: 2 and 9, 3/10 and 26 exclude.
        for (int i : plain)
            if (i != 9 && i != 26)
                chk2(d, i)->setChecked(true);
        for (int i : {0, 14, 21})
            chk2(d, i)->setChecked(true); // inverted: checked stores 0
        chk2(d, 1)->setChecked(false);    // forced: stored 1 all the same
        c<QRadioButton>(d, "optM88_2Op", 4)->setChecked(true);
        c<QRadioButton>(d, "optM88_2Op", 18)->setChecked(true);
        for (int i : {1, 5, 6, 7, 8, 9, 10, 12})
            c<QCheckBox>(d, "chkM88_3Op", i)->setChecked(true);
        c<QCheckBox>(d, "chkM88_3Op", 11)->setChecked(true); // inverted
        d.StoreOp();
        const EmuOpt88& o = Cfg.CfgEmuOpt88;
        for (int i : plain)
            QCOMPARE(int(o.M88_2Op[i]), (i == 9 || i == 26) ? 0 : 1);
        QCOMPARE(int(o.M88_2Op[0]), 0);
        QCOMPARE(int(o.M88_2Op[14]), 0);
        QCOMPARE(int(o.M88_2Op[21]), 0);
        QCOMPARE(int(o.M88_2Op[1]), 1);
        QCOMPARE(int(o.M88_2Op[4]), 1);
        QCOMPARE(int(o.M88_2Op[18]), 1);
        QCOMPARE(int(o.M88_2Op[19]), 0);
        for (int i : {11, 16, 28, 31})
            QCOMPARE(int(o.M88_2Op[i]), 1); // no control: passed through
        QCOMPARE(int(o.M88_3Op[0]), 0);
        for (int i : {1, 5, 6, 7, 8, 9, 10, 12})
            QCOMPARE(int(o.M88_3Op[i]), 1);
        QCOMPARE(int(o.M88_3Op[11]), 0);

        // And the other way round.
        for (int i : {0, 14, 21})
            chk2(d, i)->setChecked(false);
        c<QCheckBox>(d, "chkM88_3Op", 11)->setChecked(false);
        c<QRadioButton>(d, "optM88_3op", 0)->setChecked(true);
        c<QRadioButton>(d, "optM88_A8hNone")->setChecked(true);
        d.StoreOp();
        QCOMPARE(int(o.M88_2Op[0]), 1);
        QCOMPARE(int(o.M88_2Op[14]), 1);
        QCOMPARE(int(o.M88_2Op[21]), 1);
        QCOMPARE(int(o.M88_3Op[11]), 1);
        QCOMPARE(int(o.M88_3Op[0]), 1);
        QCOMPARE(int(o.M88_2Op[4]), 0);
        QCOMPARE(int(o.M88_2Op[18]), 0);
        QCOMPARE(int(o.M88_2Op[19]), 0);
    }

    void emptyBoxesStoreTheirFallbacks()
    {
        Cfg.CfgEmuOpt88.M88_1Op[4] = 9;
        Cfg.CfgEmuOpt88.M88_3Op[10] = 1;
        frmM88Op d(0, nullptr);
        for (auto [name, index] : {std::pair<const char*, int>{"txtM88_1Op", 1},
                                   {"txtM88_1Op", 5},
                                   {"txtM88_1Op", 19},
                                   {"txtM88_1Op", 21},
                                   {"txtM88_1Op", 22},
                                   {"txtM88_7Op", 1},
                                   {"txtM88_8Op", 0},
                                   {"txtM88_8Op", 1},
                                   {"txtM88_8Op", 2}})
            c<QLineEdit>(d, name, index)->clear();
        QCOMPARE(c<QLabel>(d, "lblM88_1Op", 19)->text(), QStringLiteral("Nothing"));
        Cfg.CfgEmuOpt88.M88_7Op[1] = 99;
        Cfg.CfgEmuOpt88.M88_8Op[1] = 99;
        QTest::mouseClick(c<QPushButton>(d, "cmdOK"), Qt::LeftButton);
        const EmuOpt88& o = Cfg.CfgEmuOpt88;
        QCOMPARE(int(o.M88_1Op[1]), 1);
        QCOMPARE(int(o.M88_1Op[5]), 5);
        QCOMPARE(int(o.M88_1Op[20]), 0);
        QCOMPARE(int(o.M88_1Op[19]), 3); // the bank count is kept when absent
        QCOMPARE(int(o.M88_1Op[21]), 1);
        QCOMPARE(int(o.M88_1Op[22]), 1);
        QCOMPARE(int(o.M88_7Op[1]), 0);
        QCOMPARE(o.M88_8Op[0], 22050);
        QCOMPARE(o.M88_8Op[1], 0);
        QCOMPARE(o.M88_8Op[2], 0);
    }

    void bankCountZeroMeansNoExtensionRam()
    {
        frmM88Op d(0, nullptr);
        auto* t = c<QLineEdit>(d, "txtM88_1Op", 19);
        QCOMPARE(t->text(), QStringLiteral("4"));
        QCOMPARE(c<QLabel>(d, "lblM88_1Op", 19)->text(), QStringLiteral("128 KB"));
        t->setText("0");
        QCOMPARE(c<QLabel>(d, "lblM88_1Op", 19)->text(), QStringLiteral("Nothing"));
        d.StoreOp();
        QCOMPARE(int(Cfg.CfgEmuOpt88.M88_1Op[20]), 0);
        t->setText("256");
        d.StoreOp();
        QCOMPARE(int(Cfg.CfgEmuOpt88.M88_1Op[20]), 1);
        QCOMPARE(int(Cfg.CfgEmuOpt88.M88_1Op[19]), 255);
    }

    void keyFilterOfNumberBoxes()
    {
        frmM88Op d(0, nullptr);
        auto* t = c<QLineEdit>(d, "txtM88_1Op", 1); // limit 100
        t->setText("10");
        t->setCursorPosition(0);
        QTest::keyClick(t, Qt::Key_5); // would read 105 when appended: refused
        QCOMPARE(t->text(), QStringLiteral("10"));
        QTest::keyClick(t, Qt::Key_A);
        QTest::keyClick(t, Qt::Key_Minus);
        QTest::keyClick(t, Qt::Key_Period);
        QCOMPARE(t->text(), QStringLiteral("10"));
        t->setCursorPosition(2);
        QTest::keyClick(t, Qt::Key_0);
        QCOMPARE(t->text(), QStringLiteral("100"));
        // A full box refuses a digit at its start as at its end.
        t->setCursorPosition(0);
        QTest::keyClick(t, Qt::Key_0);
        QCOMPARE(t->text(), QStringLiteral("100"));
        t->setCursorPosition(3);
        QTest::keyClick(t, Qt::Key_0);
        QCOMPARE(t->text(), QStringLiteral("100"));
        QTest::keyClick(t, Qt::Key_Backspace);
        QCOMPARE(t->text(), QStringLiteral("10"));

        c<QRadioButton>(d, "optM88_14Op", 9)->setChecked(true); // enables the free rate
        auto* big = c<QLineEdit>(d, "txtM88_8Op", 0);           // limit 110932
        big->setText("11093");
        big->setCursorPosition(5);
        QTest::keyClick(big, Qt::Key_3);
        QCOMPARE(big->text(), QStringLiteral("11093"));
        QTest::keyClick(big, Qt::Key_2);
        QCOMPARE(big->text(), QStringLiteral("110932"));
        QCOMPARE(d.boxLimit(c<QLineEdit>(d, "txtM88_1Op", 5)), 1000.0);
        QCOMPARE(d.boxLimit(c<QLineEdit>(d, "txtM88_1Op", 19)), 256.0);
        QCOMPARE(d.boxLimit(c<QLineEdit>(d, "txtM88_1Op", 21)), 24.0);
        QCOMPARE(d.boxLimit(c<QLineEdit>(d, "txtM88_1Op", 22)), 16.0);
        QCOMPARE(d.boxLimit(c<QLineEdit>(d, "txtM88_7Op", 1)), 500.0);
        QCOMPARE(d.boxLimit(c<QLineEdit>(d, "txtM88_8Op", 1)), 999999.0);
        QCOMPARE(d.boxLimit(c<QLineEdit>(d, "txtM88_8Op", 2)), 999999.0);
    }

    void keysThatTypeNoCharacterStillEditTheBox()
    {
        // Delete and the arrows are no key presses of a character: the filter never sees them.
        frmM88Op d(0, nullptr);
        auto* t = c<QLineEdit>(d, "txtM88_1Op", 1);
        QVERIFY(t->isEnabled());
        t->setText("16");
        t->setCursorPosition(0);
        // The X11 keyboard gives Delete the text DEL (127), as the test events do not.
        QTest::sendKeyEvent(QTest::Press, t, Qt::Key_Delete, QString(QChar(127)), Qt::NoModifier);
        QTest::sendKeyEvent(QTest::Release, t, Qt::Key_Delete, QString(QChar(127)), Qt::NoModifier);
        QCOMPARE(t->text(), QStringLiteral("6"));
        QTest::keyClick(t, Qt::Key_Right);
        QTest::keyClick(t, Qt::Key_Backspace);
        QCOMPARE(t->text(), QString());
    }

    void upDownStepsWithinItsLimits()
    {
        frmM88Op d(0, nullptr);
        auto* t = c<QLineEdit>(d, "txtM88_1Op", 1);
        auto* u = c<UpDown>(d, "udnM88_1Op", 1);
        t->setText("99");
        QTest::mouseClick(u->upButton(), Qt::LeftButton);
        QCOMPARE(t->text(), QStringLiteral("100"));
        QTest::mouseClick(u->upButton(), Qt::LeftButton);
        QCOMPARE(t->text(), QStringLiteral("100"));
        QTest::mouseClick(u->downButton(), Qt::LeftButton);
        QCOMPARE(t->text(), QStringLiteral("99"));
    }

    void cancelAfterApplyKeepsTheAppliedValues()
    {
        frmM88Op d(0, nullptr);
        c<QLineEdit>(d, "txtM88_1Op", 1)->setText("8");
        QTest::mouseClick(c<QPushButton>(d, "cmdApply"), Qt::LeftButton);
        QCOMPARE(int(Cfg.CfgEmuOpt88.M88_1Op[1]), 8);
        c<QLineEdit>(d, "txtM88_1Op", 1)->setText("2");
        QTest::mouseClick(c<QPushButton>(d, "cmdCancel"), Qt::LeftButton);
        QCOMPARE(d.result(), int(QDialog::Rejected));
        QCOMPARE(int(Cfg.CfgEmuOpt88.M88_1Op[1]), 8);
        QVERIFY(CurEmuOpt88 == Marked());
    }

    void enterAndEscapeInANumberBoxAreOkAndCancel()
    {
        frmM88Op ok(0, nullptr);
        ok.show();
        auto* t = c<QLineEdit>(ok, "txtM88_1Op", 1);
        t->setFocus();
        t->setText("8");
        QTest::keyClick(t, Qt::Key_Return);
        QCOMPARE(ok.result(), int(QDialog::Accepted));
        QCOMPARE(int(Cfg.CfgEmuOpt88.M88_1Op[1]), 8);

        frmM88Op cancel(0, nullptr);
        cancel.show();
        t = c<QLineEdit>(cancel, "txtM88_1Op", 1);
        t->setFocus();
        t->setText("2");
        QTest::keyClick(t, Qt::Key_Escape);
        QCOMPARE(cancel.result(), int(QDialog::Rejected));
        QVERIFY(!cancel.isVisible());
        QCOMPARE(int(Cfg.CfgEmuOpt88.M88_1Op[1]), 8);
    }

    void okStoresAndCloses()
    {
        frmM88Op d(1, nullptr);
        d.show();
        c<QLineEdit>(d, "txtM88_1Op", 1)->setText("2");
        QTest::mouseClick(c<QPushButton>(d, "cmdOK"), Qt::LeftButton);
        QCOMPARE(d.result(), int(QDialog::Accepted));
        QVERIFY(!d.isVisible());
        QCOMPARE(int(CurEmuOpt88.M88_1Op[1]), 2);
        QVERIFY(Cfg.CfgEmuOpt88 == Marked());
    }

    void ctrlTabWrapsAndPagesFollowTheTabs()
    {
        frmM88Op d(0, nullptr);
        d.show();
        QCOMPARE(d.tabs()->currentIndex(), 0);
        QVERIFY(d.page(0)->isVisible());
        auto* box = c<QLineEdit>(d, "txtM88_1Op", 1);
        QTest::keyClick(box, Qt::Key_Tab, Qt::ControlModifier);
        QCOMPARE(d.tabs()->currentIndex(), 1);
        QVERIFY(!d.page(0)->isVisible());
        QVERIFY(d.page(1)->isVisible());
        d.tabs()->setCurrentIndex(d.pageCount() - 1);
        QTest::keyClick(c<QRadioButton>(d, "optM88_10Op", 49), Qt::Key_Tab, Qt::ControlModifier);
        QCOMPARE(d.tabs()->currentIndex(), 0);
        for (int i = 1; i < d.pageCount(); ++i)
            QVERIFY(!d.page(i)->isVisible());
        // The same key on the dialog itself.
        QTest::keyClick(&d, Qt::Key_Tab, Qt::ControlModifier);
        QCOMPARE(d.tabs()->currentIndex(), 1);
        // Ctrl+Tab in a number box types nothing.
        QCOMPARE(box->text(), QStringLiteral("4"));
    }

    void interlockFullSpeedAndNoSpeedAdjust()
    {
        frmM88Op d(0, nullptr);
        auto* txt = c<QLineEdit>(d, "txtM88_1Op", 1);
        auto* udn = c<UpDown>(d, "udnM88_1Op", 1);
        chk2(d, 9)->setChecked(true);
        QVERIFY(!c<QSlider>(d, "sldM88_1Op", 2)->isEnabled());
        QVERIFY(!c<QLabel>(d, "lblM88_12Op", 0)->isEnabled());
        QVERIFY(!c<QLabel>(d, "lblM88_12Op", 1)->isEnabled());
        chk2(d, 2)->setChecked(true);
        QVERIFY(!chk2(d, 9)->isChecked());
        QVERIFY(c<QSlider>(d, "sldM88_1Op", 2)->isEnabled());
        QVERIFY(c<QLabel>(d, "lblM88_12Op", 0)->isEnabled());
        QVERIFY(!txt->isEnabled());
        QVERIFY(!udn->isEnabled());
        QCOMPARE(txt->palette().color(QPalette::Base), d.palette().color(QPalette::Window));
        chk2(d, 9)->setChecked(true);
        QVERIFY(!chk2(d, 2)->isChecked());
        QVERIFY(txt->isEnabled());
        QVERIFY(udn->isEnabled());
        QCOMPARE(txt->palette().color(QPalette::Base), QColor(255, 255, 255));
    }

    void interlockJoypadMouseAndMenuKey()
    {
        frmM88Op d(0, nullptr);
        QVERIFY(!chk2(d, 13)->isEnabled());
        QVERIFY(!chk2(d, 27)->isEnabled());
        chk2(d, 3)->setChecked(true);
        QVERIFY(chk2(d, 13)->isEnabled());
        chk2(d, 26)->setChecked(true);
        QVERIFY(!chk2(d, 3)->isChecked());
        QVERIFY(!chk2(d, 13)->isEnabled());
        QVERIFY(chk2(d, 27)->isEnabled());
        chk2(d, 3)->setChecked(true);
        QVERIFY(!chk2(d, 26)->isChecked());
        QVERIFY(!chk2(d, 27)->isEnabled());
        chk2(d, 26)->setChecked(true);
        QVERIFY(!chk2(d, 10)->isChecked());
        chk2(d, 10)->setChecked(true);
        QVERIFY(!chk2(d, 26)->isChecked());
        QVERIFY(!chk2(d, 27)->isEnabled());
    }

    void interlocksFollowTheLoadedBlock()
    {
        Cfg.CfgEmuOpt88.M88_2Op[3] = 1;
        Cfg.CfgEmuOpt88.M88_2Op[9] = 1;
        Cfg.CfgEmuOpt88.M88_3Op[10] = 1;
        Cfg.CfgEmuOpt88.M88_1Op[4] = 9;
        frmM88Op d(0, nullptr);
        QVERIFY(chk2(d, 13)->isEnabled());
        QVERIFY(!c<QSlider>(d, "sldM88_1Op", 2)->isEnabled());
        QVERIFY(c<QLineEdit>(d, "txtM88_1Op", 21)->isEnabled());
        QVERIFY(c<QLineEdit>(d, "txtM88_8Op", 0)->isEnabled());
        QVERIFY(c<QLabel>(d, "lblM88_81Op")->isEnabled());
    }

    void interlockLpfAndFreeRate()
    {
        frmM88Op d(0, nullptr);
        auto* cut = c<QLineEdit>(d, "txtM88_1Op", 21);
        auto* order = c<QLineEdit>(d, "txtM88_1Op", 22);
        QVERIFY(!cut->isEnabled());
        QVERIFY(!order->isEnabled());
        c<QCheckBox>(d, "chkM88_3Op", 10)->setChecked(true);
        QVERIFY(cut->isEnabled());
        QVERIFY(order->isEnabled());
        QCOMPARE(cut->palette().color(QPalette::Base), QColor(255, 255, 255));
        c<QCheckBox>(d, "chkM88_3Op", 10)->setChecked(false);
        QVERIFY(!cut->isEnabled());

        auto* rate = c<QLineEdit>(d, "txtM88_8Op", 0);
        QVERIFY(!rate->isEnabled());
        QVERIFY(!c<UpDown>(d, "udnM88_8Op", 0)->isEnabled());
        c<QRadioButton>(d, "optM88_14Op", 9)->setChecked(true);
        QVERIFY(rate->isEnabled());
        QVERIFY(c<UpDown>(d, "udnM88_8Op", 0)->isEnabled());
        QVERIFY(c<QLabel>(d, "lblM88_81Op")->isEnabled());
        QVERIFY(c<QLabel>(d, "lblM88_82Op")->isEnabled());
        c<QRadioButton>(d, "optM88_14Op", 0)->setChecked(true);
        QVERIFY(!rate->isEnabled());
        QVERIFY(!c<QLabel>(d, "lblM88_81Op")->isEnabled());
        QVERIFY(!c<QLabel>(d, "lblM88_82Op")->isEnabled());
    }

    void resetButtonsOfTheVolumes()
    {
        frmM88Op d(0, nullptr);
        for (int i = 9; i <= 18; ++i)
            c<QSlider>(d, "sldM88_1Op", i)->setValue(70);
        QTest::mouseClick(c<QPushButton>(d, "cmdR_Sound", 9), Qt::LeftButton);
        for (int i = 9; i <= 18; ++i)
            QCOMPARE(c<QSlider>(d, "sldM88_1Op", i)->value(), i <= 12 ? 100 : 70);
        QTest::mouseClick(c<QPushButton>(d, "cmdR_Sound", 13), Qt::LeftButton);
        for (int i = 13; i <= 18; ++i)
            QCOMPARE(c<QSlider>(d, "sldM88_1Op", i)->value(), 100);
        QCOMPARE(c<QPushButton>(d, "cmdR_Sound", 9)->text(), QStringLiteral("Reset Source"));
        QCOMPARE(c<QPushButton>(d, "cmdR_Sound", 13)->text(), QStringLiteral("Reset Rhythm"));
    }

    void sliderLabelsAndSpeedRounding()
    {
        frmM88Op d(0, nullptr);
        auto* s = c<QSlider>(d, "sldM88_6Op", 1);
        s->setValue(60);
        QCOMPARE(c<QLabel>(d, "lblM88_6Op", 1)->text(), QStringLiteral("Mute"));
        s->setValue(61);
        QCOMPARE(c<QLabel>(d, "lblM88_6Op", 1)->text(), QStringLiteral("-39"));
        auto* speed = c<QSlider>(d, "sldM88_1Op", 2);
        QCOMPARE(speed->singleStep(), 10);
        QCOMPARE(speed->minimum(), 20);
        QCOMPARE(speed->maximum(), 200);
        speed->setValue(125);
        QCOMPARE(speed->value(), 130);
        // The label shows the rounded value, not the one the slider passed through.
        QCOMPARE(c<QLabel>(d, "lblM88_12Op", 1)->text(), QStringLiteral("130 %"));
        speed->setValue(124);
        QCOMPARE(speed->value(), 120);
        c<QSlider>(d, "sldM88_7Op", 0)->setValue(37);
        QCOMPARE(c<QLabel>(d, "lblM88_7Op")->text(), QStringLiteral("37 ms"));
    }

    void defaultButtonSetsTheDipSwitchDefaults()
    {
        Cfg.CfgEmuOpt88.M88_4Op.fill(0);
        Cfg.CfgEmuOpt88.M88_4Op[1] = 1;
        frmM88Op d(0, nullptr);
        QTest::mouseClick(c<QPushButton>(d, "cmdDefault"), Qt::LeftButton);
        for (int i : {1, 2, 5, 6, 8, 11, 12, 14, 17, 19, 21, 22})
            QVERIFY(c<QRadioButton>(d, "optM88_4Op", i)->isChecked());
        // Only the controls changed.
        QCOMPARE(int(Cfg.CfgEmuOpt88.M88_4Op[0]), 0);
        d.StoreOp();
        QCOMPARE(Cfg.CfgEmuOpt88.M88_4Op, Defaults().M88_4Op);
    }
};

QTEST_MAIN(TestFrmM88Op)
#include "tst_frmM88Op.moc"
