// The X millennium option dialog: its two pages, load and store of every element with the
// fallbacks, the volume labels, Cancel after Apply, and the dialog table that opens it.
#include "adapters/OptionDialogs_ui.h"
#include "adapters/xmil/frmXmilOp.h"
#include "data/Cfg.h"

#include <QApplication>
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
#include <QTimer>

using namespace tv;

namespace {

EmuOptX1 Defaults()
{
    EmuOptX1 o;
    SetDefaultEmuOptX1(o);
    return o;
}

const int kChecks[] = {4, 5, 12, 14, 15, 16, 17, 19, 20, 21, 22, 25, 26, 27};

} // namespace

class TestFrmXmilOp : public QObject {
    Q_OBJECT

    template <typename T> T* c(frmXmilOp& d, const char* name, int index = -1)
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

    void pagesAndCaptions()
    {
        frmXmilOp d(0, nullptr);
        QCOMPARE(d.windowTitle(), QStringLiteral("Xmille設定"));
        QCOMPARE(d.tabs()->count(), 2);
        QCOMPARE(d.tabs()->tabText(0), QStringLiteral("Configure"));
        QCOMPARE(d.tabs()->tabText(1), QStringLiteral("その他オプション"));
        QVERIFY(d.findChild<QFrame*>(QStringLiteral("fraOp(1)")));
        QVERIFY(!d.findChild<QPushButton*>(QStringLiteral("cmdDefault")));
        QCOMPARE(c<QCheckBox>(d, "chkXmil_1Op", 25)->text(), QStringLiteral("Use ROEMO"));
        QCOMPARE(c<QComboBox>(d, "cbxXmil_1Op", 13)->itemText(2), QStringLiteral("9  - 62500"));
        QCOMPARE(c<QRadioButton>(d, "optXmil_111Op", 1)->text(), QStringLiteral("400line"));
        QCOMPARE(d.boxLimit(c<QLineEdit>(d, "txtXmil_1Op", 7)), 255.0);
        QCOMPARE(d.boxLimit(c<QLineEdit>(d, "txtXmil_1Op", 18)), 100.0);
        QCOMPARE(d.boxLimit(c<QLineEdit>(d, "txtXmil_2Op", 0)), 1000.0);
        QCOMPARE(d.boxLimit(c<QLineEdit>(d, "txtXmil_5Op", 0)), 48000.0);
        QCOMPARE(c<QSlider>(d, "sldXmil_1Op", 28)->maximum(), 50);
        QCOMPARE(c<QSlider>(d, "sldXmil_1Op", 28)->pageStep(), 5);
    }

    void loadShowsEveryElement()
    {
        EmuOptX1& o = CurEmuOptX1;
        for (int i : kChecks)
            o.Xmil_1Op[i] = uint8_t(i % 2);
        o.Xmil_1Op[2] = 3;
        o.Xmil_1Op[3] = 10;
        o.Xmil_1Op[6] = 2;
        o.Xmil_1Op[7] = 17;
        o.Xmil_1Op[8] = 200;
        o.Xmil_1Op[9] = 99;
        o.Xmil_1Op[10] = 1;
        o.Xmil_1Op[11] = 2;
        o.Xmil_1Op[13] = 9;
        o.Xmil_1Op[18] = 55;
        o.Xmil_1Op[28] = 0;
        o.Xmil_1Op[29] = 45;
        o.Xmil_2Op[0] = 250;
        o.Xmil_3Op = {1, 0, 0, 0, 0};
        o.Xmil_4Op = {0, 0, 1, 0, 0};
        o.Xmil_5Op[0] = 12000;
        frmXmilOp d(1, nullptr);
        for (int i : kChecks)
            QCOMPARE(c<QCheckBox>(d, "chkXmil_1Op", i)->isChecked(), i % 2 == 1);
        QCOMPARE(c<QComboBox>(d, "cbxXmil_1Op", 2)->currentText(), QStringLiteral("3 - turboZ"));
        QCOMPARE(c<QComboBox>(d, "cbxXmil_1Op", 3)->currentText(), QStringLiteral("10 - 10 MHz"));
        QCOMPARE(c<QComboBox>(d, "cbxXmil_1Op", 6)->currentText(), QStringLiteral("2 - 30 FPS"));
        QCOMPARE(c<QLineEdit>(d, "txtXmil_1Op", 7)->text(), QStringLiteral("17"));
        QCOMPARE(c<QLineEdit>(d, "txtXmil_1Op", 8)->text(), QStringLiteral("200"));
        QCOMPARE(c<QLineEdit>(d, "txtXmil_1Op", 9)->text(), QStringLiteral("99"));
        QVERIFY(c<QRadioButton>(d, "optXmil_110Op", 1)->isChecked());
        QVERIFY(c<QRadioButton>(d, "optXmil_111Op", 2)->isChecked());
        QCOMPARE(c<QComboBox>(d, "cbxXmil_1Op", 13)->currentText(), QStringLiteral("9  - 62500"));
        QCOMPARE(c<QLineEdit>(d, "txtXmil_1Op", 18)->text(), QStringLiteral("55"));
        QCOMPARE(c<QLabel>(d, "lblXmil_1Op", 28)->text(), QStringLiteral("Mute"));
        QCOMPARE(c<QLabel>(d, "lblXmil_1Op", 29)->text(), QStringLiteral("15"));
        QCOMPARE(c<QLineEdit>(d, "txtXmil_2Op", 0)->text(), QStringLiteral("250"));
        QCOMPARE(c<QComboBox>(d, "cbxXmil_3Op", 0)->currentText(), QStringLiteral("1 - ON"));
        QCOMPARE(c<QComboBox>(d, "cbxXmil_3Op", 1)->currentText(), QStringLiteral("0 - OFF"));
        QCOMPARE(c<QComboBox>(d, "cbxXmil_4Op", 0)->currentText(), QStringLiteral("0 - HIGH RESO"));
        QCOMPARE(c<QComboBox>(d, "cbxXmil_4Op", 2)->currentText(), QStringLiteral("1 - 2HD"));
        QCOMPARE(c<QLineEdit>(d, "txtXmil_5Op", 0)->text(), QStringLiteral("12000"));
        c<QSlider>(d, "sldXmil_1Op", 28)->setValue(30);
        QCOMPARE(c<QLabel>(d, "lblXmil_1Op", 28)->text(), QStringLiteral("0"));
        c<QSlider>(d, "sldXmil_1Op", 28)->setValue(10);
        QCOMPARE(c<QLabel>(d, "lblXmil_1Op", 28)->text(), QStringLiteral("-20"));
    }

    void storeOfEveryElementAndFallbacks()
    {
        EmuOptX1 marked = Defaults();
        marked.Xmil_1Op[0] = 1;
        marked.Xmil_1Op[1] = 7;
        marked.Xmil_1Op[23] = 3;
        marked.Xmil_1Op[24] = 4;
        marked.WinX1_1Op[0] = 0;
        CurEmuOptX1 = marked;
        frmXmilOp d(1, nullptr);
        for (int i : kChecks)
            c<QCheckBox>(d, "chkXmil_1Op", i)->setChecked(i % 2 == 0);
        c<QComboBox>(d, "cbxXmil_1Op", 2)->setCurrentIndex(1);
        c<QComboBox>(d, "cbxXmil_1Op", 3)->setCurrentIndex(5);
        c<QComboBox>(d, "cbxXmil_1Op", 6)->setCurrentIndex(4);
        c<QLineEdit>(d, "txtXmil_1Op", 7)->setText("1");
        c<QLineEdit>(d, "txtXmil_1Op", 8)->setText("2");
        c<QLineEdit>(d, "txtXmil_1Op", 9)->setText("3");
        c<QRadioButton>(d, "optXmil_110Op", 1)->setChecked(true);
        c<QRadioButton>(d, "optXmil_111Op", 1)->setChecked(true);
        c<QComboBox>(d, "cbxXmil_1Op", 13)->setCurrentIndex(0);
        c<QLineEdit>(d, "txtXmil_1Op", 18)->setText("60");
        c<QSlider>(d, "sldXmil_1Op", 28)->setValue(50);
        c<QSlider>(d, "sldXmil_1Op", 29)->setValue(0);
        c<QLineEdit>(d, "txtXmil_2Op", 0)->setText("500");
        c<QComboBox>(d, "cbxXmil_3Op", 0)->setCurrentIndex(0);
        c<QComboBox>(d, "cbxXmil_3Op", 1)->setCurrentIndex(1);
        c<QComboBox>(d, "cbxXmil_4Op", 0)->setCurrentIndex(1);
        c<QComboBox>(d, "cbxXmil_4Op", 2)->setCurrentIndex(1);
        c<QLineEdit>(d, "txtXmil_5Op", 0)->setText("4400");
        d.StoreOp();
        const EmuOptX1& o = CurEmuOptX1;
        for (int i : kChecks)
            QCOMPARE(int(o.Xmil_1Op[i]), i % 2 == 0 ? 1 : 0);
        QCOMPARE(int(o.Xmil_1Op[2]), 2);
        QCOMPARE(int(o.Xmil_1Op[3]), 12);
        QCOMPARE(int(o.Xmil_1Op[6]), 4);
        QCOMPARE(int(o.Xmil_1Op[7]), 1);
        QCOMPARE(int(o.Xmil_1Op[8]), 2);
        QCOMPARE(int(o.Xmil_1Op[9]), 3);
        QCOMPARE(int(o.Xmil_1Op[10]), 1);
        QCOMPARE(int(o.Xmil_1Op[11]), 1);
        QCOMPARE(int(o.Xmil_1Op[13]), 11);
        QCOMPARE(int(o.Xmil_1Op[18]), 60);
        QCOMPARE(int(o.Xmil_1Op[28]), 50);
        QCOMPARE(int(o.Xmil_1Op[29]), 0);
        QCOMPARE(int(o.Xmil_2Op[0]), 500);
        QCOMPARE(int(o.Xmil_3Op[0]), 0);
        QCOMPARE(int(o.Xmil_3Op[1]), 1);
        QCOMPARE(int(o.Xmil_4Op[0]), 1);
        QCOMPARE(int(o.Xmil_4Op[2]), 1);
        QCOMPARE(o.Xmil_5Op[0], 4400);
        // The elements without a control pass through.
        QCOMPARE(int(o.Xmil_1Op[0]), 1);
        QCOMPARE(int(o.Xmil_1Op[1]), 7);
        QCOMPARE(int(o.Xmil_1Op[23]), 3);
        QCOMPARE(int(o.Xmil_1Op[24]), 4);
        QCOMPARE(o.WinX1_1Op, marked.WinX1_1Op);

        // Empty boxes and nothing selected: the fallbacks.
        for (int i : {7, 8, 9, 18})
            c<QLineEdit>(d, "txtXmil_1Op", i)->clear();
        c<QLineEdit>(d, "txtXmil_2Op", 0)->clear();
        c<QLineEdit>(d, "txtXmil_5Op", 0)->clear();
        for (const char* g : {"optXmil_110Op", "optXmil_111Op"}) {
            QRadioButton* r = c<QRadioButton>(d, g, 1);
            r->group()->setExclusive(false);
            r->setChecked(false);
        }
        c<QComboBox>(d, "cbxXmil_1Op", 3)->setCurrentIndex(-1);
        d.StoreOp();
        QCOMPARE(int(o.Xmil_1Op[7]), 0);
        QCOMPARE(int(o.Xmil_1Op[8]), 0);
        QCOMPARE(int(o.Xmil_1Op[9]), 0);
        QCOMPARE(int(o.Xmil_1Op[18]), 80);
        QCOMPARE(int(o.Xmil_2Op[0]), 100);
        QCOMPARE(o.Xmil_5Op[0], 0);
        QCOMPARE(int(o.Xmil_1Op[10]), 0);
        QCOMPARE(int(o.Xmil_1Op[11]), 0);
        QCOMPARE(int(o.Xmil_1Op[3]), 0);
        QCOMPARE(Cfg.CfgEmuOptX1, Defaults());
    }

    void cancelAfterApplyKeepsTheApplied()
    {
        frmXmilOp d(0, nullptr);
        c<QLineEdit>(d, "txtXmil_1Op", 18)->setText("33");
        QTest::mouseClick(c<QPushButton>(d, "cmdApply"), Qt::LeftButton);
        c<QLineEdit>(d, "txtXmil_1Op", 18)->setText("44");
        QTest::mouseClick(c<QPushButton>(d, "cmdCancel"), Qt::LeftButton);
        QCOMPARE(int(Cfg.CfgEmuOptX1.Xmil_1Op[18]), 33);
        QCOMPARE(CurEmuOptX1, Defaults());
    }

    void tableOpensWithEitherFlag()
    {
        for (int flag : {0, 1}) {
            init();
            QTimer::singleShot(0, this, [] {
                auto* d = qobject_cast<frmXmilOp*>(QApplication::activeModalWidget());
                if (!d)
                    return;
                d->Control<QLineEdit>(QStringLiteral("txtXmil_1Op"), 7)->setText("42");
                QTest::mouseClick(d->Control<QPushButton>(QStringLiteral("cmdOK")), Qt::LeftButton);
            });
            QVERIFY(OpenOptionDialog(Emu::Xmil, flag, nullptr));
            const EmuOptX1& edited = flag == 0 ? Cfg.CfgEmuOptX1 : CurEmuOptX1;
            const EmuOptX1& other = flag == 0 ? CurEmuOptX1 : Cfg.CfgEmuOptX1;
            QCOMPARE(int(edited.Xmil_1Op[7]), 42);
            QCOMPARE(other, Defaults());
        }
    }
};

QTEST_MAIN(TestFrmXmilOp)
#include "tst_frmXmilOp.moc"
