// The EM7 option dialog: pages, load, store of every element, the group fallbacks, the value
// labels, cmdDefault, Cancel after Apply, and the opening through the dialog table.
#include "adapters/OptionDialogs_ui.h"
#include "adapters/em7/frmEm7WinOp.h"
#include "data/Cfg.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTabBar>
#include <QTest>
#include <QTimer>

using namespace tv;

namespace {

EmuOptFM Marked()
{
    EmuOptFM o;
    SetDefaultEmuOptFM(o);
    o.DefEmuRun = 4;
    o.Xm7Win_1Op.fill(1);
    o.Xm7Win_2Op.fill(77);
    o.Xm7Win_3Op.fill(9);
    return o;
}

} // namespace

class TestFrmEm7WinOp : public QObject {
    Q_OBJECT

    template <typename T> T* c(frmEm7WinOp& d, const char* name, int index = -1)
    {
        T* w = d.Control<T>(QString::fromLatin1(name), index);
        if (!w)
            qFatal("no control %s(%d)", name, index);
        return w;
    }

private slots:
    void init()
    {
        Cfg.CfgEmuOptFM = Marked();
        CurEmuOptFM = Marked();
    }

    void pagesAndCaptions()
    {
        frmEm7WinOp d(0, nullptr);
        const QStringList pages = {"キーボード他", "パフォーマンス", "タイマ"};
        QCOMPARE(d.tabs()->count(), pages.size());
        for (int i = 0; i < pages.size(); ++i) {
            QCOMPARE(d.tabs()->tabText(i), pages[i]);
            QVERIFY(d.findChild<QFrame*>(QStringLiteral("fraOp(%1)").arg(i)));
        }
        QCOMPARE(c<QCheckBox>(d, "chkEm7Win_1Op", 0)->text(),
                 QStringLiteral("キーレイアウトの変更"));
        QCOMPARE(c<QRadioButton>(d, "optEm7Win_11Op", 0)->text(), QStringLiteral("Basic"));
        QCOMPARE(c<QRadioButton>(d, "optEm7Win_11Op", 1)->text(), QStringLiteral("DOS"));
        QCOMPARE(c<QRadioButton>(d, "optEm7Win_12Op", 0)->text(), QStringLiteral("Windows"));
        QCOMPARE(c<QRadioButton>(d, "optEm7Win_12Op", 1)->text(), QStringLiteral("Full Screen"));
        QCOMPARE(c<QPushButton>(d, "cmdDefault")->text(), QStringLiteral("標準値"));
        const struct {
            const char* name;
            int index, min, max, page;
        } sliders[] = {{"sldEm7Win_1Op", 3, 0, 255, 16},
                       {"sldEm7Win_1Op", 4, 1, 60, 10},
                       {"sldEm7Win_1Op", 5, 10, 50, 5},
                       {"sldEm7Win_2Op", 0, 100, 500, 50}};
        for (const auto& s : sliders) {
            QSlider* sl = c<QSlider>(d, s.name, s.index);
            QCOMPARE(sl->minimum(), s.min);
            QCOMPARE(sl->maximum(), s.max);
            QCOMPARE(sl->pageStep(), s.page);
        }
    }

    void loadShowsTheBlockAndTheLabels()
    {
        EmuOptFM o = Marked();
        o.Em7Win_1Op = {1, 1, 1, 99, 45, 33, 0, 0, 0};
        o.Em7Win_2Op[0] = 350;
        Cfg.CfgEmuOptFM = o;
        frmEm7WinOp d(0, nullptr);
        QVERIFY(c<QCheckBox>(d, "chkEm7Win_1Op", 0)->isChecked());
        QVERIFY(c<QRadioButton>(d, "optEm7Win_11Op", 1)->isChecked());
        QVERIFY(c<QRadioButton>(d, "optEm7Win_12Op", 1)->isChecked());
        QCOMPARE(c<QSlider>(d, "sldEm7Win_1Op", 3)->value(), 99);
        QCOMPARE(c<QLabel>(d, "lblEm7Win_1Op", 3)->text(), QStringLiteral("99"));
        QCOMPARE(c<QLabel>(d, "lblEm7Win_1Op", 4)->text(), QStringLiteral("45"));
        QCOMPARE(c<QLabel>(d, "lblEm7Win_1Op", 5)->text(), QStringLiteral("33"));
        QCOMPARE(c<QLabel>(d, "lblEm7Win_2Op", 0)->text(), QStringLiteral("3.50"));
    }

    void defaultLabelOfTheMainTimer()
    {
        Cfg.CfgEmuOptFM.Em7Win_2Op[0] = 203;
        frmEm7WinOp d(0, nullptr);
        QCOMPARE(c<QLabel>(d, "lblEm7Win_2Op", 0)->text(), QStringLiteral("2.03"));
    }

    void storeWritesEveryElementAndNothingElse()
    {
        frmEm7WinOp d(1, nullptr);
        c<QCheckBox>(d, "chkEm7Win_1Op", 0)->setChecked(false);
        c<QRadioButton>(d, "optEm7Win_11Op", 1)->setChecked(true);
        c<QRadioButton>(d, "optEm7Win_12Op", 1)->setChecked(true);
        c<QSlider>(d, "sldEm7Win_1Op", 3)->setValue(17);
        c<QSlider>(d, "sldEm7Win_1Op", 4)->setValue(59);
        c<QSlider>(d, "sldEm7Win_1Op", 5)->setValue(11);
        c<QSlider>(d, "sldEm7Win_2Op", 0)->setValue(499);
        QTest::mouseClick(c<QPushButton>(d, "cmdOK"), Qt::LeftButton);
        EmuOptFM want = Marked();
        want.Em7Win_1Op[0] = 0;
        want.Em7Win_1Op[1] = 1;
        want.Em7Win_1Op[2] = 1;
        want.Em7Win_1Op[3] = 17;
        want.Em7Win_1Op[4] = 59;
        want.Em7Win_1Op[5] = 11;
        want.Em7Win_2Op[0] = 499;
        QVERIFY(CurEmuOptFM == want);
        QVERIFY(Cfg.CfgEmuOptFM == Marked());
    }

    void groupsWithNoButtonOnStoreZero()
    {
        EmuOptFM o = Marked();
        o.Em7Win_1Op[1] = 7;
        o.Em7Win_1Op[2] = 9;
        Cfg.CfgEmuOptFM = o;
        frmEm7WinOp d(0, nullptr);
        QVERIFY(!c<QRadioButton>(d, "optEm7Win_11Op", 0)->isChecked());
        QVERIFY(!c<QRadioButton>(d, "optEm7Win_11Op", 1)->isChecked());
        QTest::mouseClick(c<QPushButton>(d, "cmdOK"), Qt::LeftButton);
        QCOMPARE(Cfg.CfgEmuOptFM.Em7Win_1Op[1], uint8_t(0));
        QCOMPARE(Cfg.CfgEmuOptFM.Em7Win_1Op[2], uint8_t(0));
    }

    void defaultButtonSetsTheTimersOnly()
    {
        frmEm7WinOp d(0, nullptr);
        c<QSlider>(d, "sldEm7Win_1Op", 3)->setValue(5);
        c<QSlider>(d, "sldEm7Win_1Op", 4)->setValue(6);
        c<QSlider>(d, "sldEm7Win_1Op", 5)->setValue(44);
        c<QSlider>(d, "sldEm7Win_2Op", 0)->setValue(400);
        QTest::mouseClick(c<QPushButton>(d, "cmdDefault"), Qt::LeftButton);
        QCOMPARE(c<QSlider>(d, "sldEm7Win_1Op", 5)->value(), 20);
        QCOMPARE(c<QSlider>(d, "sldEm7Win_2Op", 0)->value(), 203);
        QCOMPARE(c<QLabel>(d, "lblEm7Win_2Op", 0)->text(), QStringLiteral("2.03"));
        QCOMPARE(c<QSlider>(d, "sldEm7Win_1Op", 3)->value(), 5);
        QCOMPARE(c<QSlider>(d, "sldEm7Win_1Op", 4)->value(), 6);
        // Nothing stored until Apply or OK.
        QVERIFY(Cfg.CfgEmuOptFM == Marked());
    }

    void cancelAfterApplyKeepsTheApplied()
    {
        frmEm7WinOp d(0, nullptr);
        c<QSlider>(d, "sldEm7Win_1Op", 4)->setValue(12);
        QTest::mouseClick(c<QPushButton>(d, "cmdApply"), Qt::LeftButton);
        c<QSlider>(d, "sldEm7Win_1Op", 4)->setValue(13);
        QTest::mouseClick(c<QPushButton>(d, "cmdCancel"), Qt::LeftButton);
        QCOMPARE(Cfg.CfgEmuOptFM.Em7Win_1Op[4], uint8_t(12));
    }

    void openedThroughTheTableForATitle()
    {
        bool seen = false;
        QTimer::singleShot(0, this, [&] {
            auto* d = qobject_cast<frmEm7WinOp*>(QApplication::activeModalWidget());
            QVERIFY(d);
            seen = true;
            QCOMPARE(d->titleFlag(), uint8_t(1));
            d->Control<QSlider>(QStringLiteral("sldEm7Win_1Op"), 3)->setValue(3);
            QTest::mouseClick(d->Control<QPushButton>(QStringLiteral("cmdOK")), Qt::LeftButton);
        });
        QVERIFY(OpenOptionDialog(Emu::Em7Win, 1, nullptr));
        QVERIFY(seen);
        QCOMPARE(CurEmuOptFM.Em7Win_1Op[3], uint8_t(3));
        QVERIFY(Cfg.CfgEmuOptFM == Marked());
    }
};

QTEST_MAIN(TestFrmEm7WinOp)
#include "tst_frmEm7WinOp.moc"
