// The WinX1 option dialog: its four pages, load and store of every element with the
// fallbacks, the slider steps, Cancel after Apply, and the dialog table that opens it.
#include "adapters/OptionDialogs_ui.h"
#include "adapters/winx1/frmWinX1Op.h"
#include "data/Cfg.h"

#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
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

} // namespace

class TestFrmWinX1Op : public QObject {
    Q_OBJECT

    template <typename T> T* c(frmWinX1Op& d, const char* name, int index = -1)
    {
        T* w = d.Control<T>(QString::fromLatin1(name), index);
        if (!w)
            qFatal("no control %s(%d)", name, index);
        return w;
    }
    static void Unselect(QRadioButton* r)
    {
        r->group()->setExclusive(false);
        r->setChecked(false);
    }

private slots:
    void init()
    {
        Cfg.CfgEmuOptX1 = Defaults();
        CurEmuOptX1 = Defaults();
    }

    void pagesAndCaptions()
    {
        frmWinX1Op d(0, nullptr);
        QCOMPARE(d.windowTitle(), QStringLiteral("WinX1設定"));
        const QStringList pages = {"表示設定", "サウンド設定", "X1設定", "ジョイスティック設定"};
        QCOMPARE(d.tabs()->count(), pages.size());
        for (int i = 0; i < pages.size(); ++i)
            QCOMPARE(d.tabs()->tabText(i), pages[i]);
        QVERIFY(!d.findChild<QPushButton*>(QStringLiteral("cmdDefault")));
        QCOMPARE(c<QCheckBox>(d, "chkWinX1_1Op", 0)->text(),
                 QStringLiteral("FM音源 （OPM） を使用する"));
        QCOMPARE(c<QCheckBox>(d, "chkWinX1_1Op", 19)->text(), QStringLiteral("ろみお"));
        QCOMPARE(c<QRadioButton>(d, "optWinX1_17Op", 12)->text(), QStringLiteral("1/12 (5Hz)"));
        QCOMPARE(c<QComboBox>(d, "cbxWinX1_1Op", 11)->itemText(0), QStringLiteral("0 - ボタン 0"));
        QCOMPARE(c<QComboBox>(d, "cbxWinX1_1Op", 18)->itemText(3), QStringLiteral("3 - ボタン 3"));
        int joy = 0;
        for (auto* g : d.findChildren<QGroupBox*>())
            joy += g->title() == QStringLiteral("JoyStick1");
        QCOMPARE(joy, 2);
        int notes = 0;
        for (auto* l : d.findChildren<QLabel*>())
            notes += l->text() == QStringLiteral("設定は、WinX1起動時に有効になります。");
        QCOMPARE(notes, 2);
        QCOMPARE(c<QSlider>(d, "sldWinX1_1Op", 1)->maximum(), 16);
        QCOMPARE(c<QSlider>(d, "sldWinX1_1Op", 2)->pageStep(), 3);
        QCOMPARE(c<QSlider>(d, "sldWinX1_1Op", 4)->minimum(), 10);
        QCOMPARE(c<QSlider>(d, "sldWinX1_1Op", 4)->maximum(), 200);
        QCOMPARE(c<QSlider>(d, "sldWinX1_1Op", 4)->pageStep(), 38);
    }

    void loadShowsEveryElement()
    {
        CurEmuOptX1.WinX1_1Op = {0, 5, 9, 4, 120, 0, 0, 6, 0, 1, 2, 1,
                                 0, 3, 2, 7, 6,   5, 4, 1, 0, 0, 0, 0};
        frmWinX1Op d(1, nullptr);
        QVERIFY(!c<QCheckBox>(d, "chkWinX1_1Op", 0)->isChecked());
        QCOMPARE(c<QSlider>(d, "sldWinX1_1Op", 1)->value(), 5);
        QCOMPARE(c<QSlider>(d, "sldWinX1_1Op", 2)->value(), 9);
        QCOMPARE(c<QLabel>(d, "lblWinX1_1Op", 2)->text(), QStringLiteral("9"));
        QVERIFY(c<QRadioButton>(d, "optWinX1_13Op", 4)->isChecked());
        QCOMPARE(c<QSlider>(d, "sldWinX1_1Op", 4)->value(), 120);
        QVERIFY(!c<QCheckBox>(d, "chkWinX1_1Op", 5)->isChecked());
        QVERIFY(c<QRadioButton>(d, "optWinX1_16Op", 0)->isChecked());
        QVERIFY(c<QRadioButton>(d, "optWinX1_17Op", 6)->isChecked());
        QVERIFY(!c<QCheckBox>(d, "chkWinX1_1Op", 8)->isChecked());
        QVERIFY(c<QRadioButton>(d, "optWinX1_19Op", 1)->isChecked());
        QVERIFY(c<QRadioButton>(d, "optWinX1_110Op", 2)->isChecked());
        const int buttons[] = {1, 0, 3, 2, 7, 6, 5, 4};
        for (int k = 0; k < 8; ++k)
            QCOMPARE(c<QComboBox>(d, "cbxWinX1_1Op", 11 + k)->currentIndex(), buttons[k]);
        QVERIFY(c<QCheckBox>(d, "chkWinX1_1Op", 19)->isChecked());
    }

    void storeOfEveryElementAndFallbacks()
    {
        frmWinX1Op d(1, nullptr);
        c<QCheckBox>(d, "chkWinX1_1Op", 0)->setChecked(false);
        c<QSlider>(d, "sldWinX1_1Op", 1)->setValue(16);
        c<QSlider>(d, "sldWinX1_1Op", 2)->setValue(0);
        c<QRadioButton>(d, "optWinX1_13Op", 0)->setChecked(true);
        c<QSlider>(d, "sldWinX1_1Op", 4)->setValue(200);
        c<QCheckBox>(d, "chkWinX1_1Op", 5)->setChecked(false);
        c<QRadioButton>(d, "optWinX1_16Op", 0)->setChecked(true);
        c<QRadioButton>(d, "optWinX1_17Op", 12)->setChecked(true);
        c<QCheckBox>(d, "chkWinX1_1Op", 8)->setChecked(false);
        c<QRadioButton>(d, "optWinX1_19Op", 1)->setChecked(true);
        c<QRadioButton>(d, "optWinX1_110Op", 2)->setChecked(true);
        for (int k = 0; k < 8; ++k)
            c<QComboBox>(d, "cbxWinX1_1Op", 11 + k)->setCurrentIndex(7 - k);
        c<QCheckBox>(d, "chkWinX1_1Op", 19)->setChecked(false);
        d.StoreOp();
        const auto& o = CurEmuOptX1.WinX1_1Op;
        const std::array<int, 20> want = {0, 16, 0, 0, 200, 0, 0, 12, 0, 1,
                                          2, 7,  6, 5, 4,   3, 2, 1,  0, 0};
        for (int i = 0; i < 20; ++i)
            QCOMPARE(int(o[i]), want[i]);
        QCOMPARE(Cfg.CfgEmuOptX1, Defaults());

        for (const char* g :
             {"optWinX1_13Op", "optWinX1_16Op", "optWinX1_17Op", "optWinX1_19Op", "optWinX1_110Op"})
            for (auto* r : d.findChildren<QRadioButton*>())
                if (r->objectName().startsWith(QString::fromLatin1(g) + "("))
                    Unselect(r);
        c<QComboBox>(d, "cbxWinX1_1Op", 11)->setCurrentIndex(-1);
        d.StoreOp();
        QCOMPARE(int(o[3]), 2);
        QCOMPARE(int(o[6]), 1);
        QCOMPARE(int(o[7]), 1);
        QCOMPARE(int(o[9]), 0);
        QCOMPARE(int(o[10]), 1);
        QCOMPARE(int(o[11]), 0);
    }

    void cancelAfterApplyKeepsTheApplied()
    {
        frmWinX1Op d(0, nullptr);
        c<QRadioButton>(d, "optWinX1_17Op", 4)->setChecked(true);
        QTest::mouseClick(c<QPushButton>(d, "cmdApply"), Qt::LeftButton);
        c<QRadioButton>(d, "optWinX1_17Op", 2)->setChecked(true);
        QTest::mouseClick(c<QPushButton>(d, "cmdCancel"), Qt::LeftButton);
        QCOMPARE(int(Cfg.CfgEmuOptX1.WinX1_1Op[7]), 4);
        QCOMPARE(CurEmuOptX1, Defaults());
    }

    void tableOpensWithEitherFlag()
    {
        for (int flag : {0, 1}) {
            init();
            QTimer::singleShot(0, this, [] {
                auto* d = qobject_cast<frmWinX1Op*>(QApplication::activeModalWidget());
                if (!d)
                    return;
                d->Control<QRadioButton>(QStringLiteral("optWinX1_17Op"), 3)->setChecked(true);
                QTest::mouseClick(d->Control<QPushButton>(QStringLiteral("cmdOK")), Qt::LeftButton);
            });
            QVERIFY(OpenOptionDialog(Emu::WinX1, flag, nullptr));
            const EmuOptX1& edited = flag == 0 ? Cfg.CfgEmuOptX1 : CurEmuOptX1;
            const EmuOptX1& other = flag == 0 ? CurEmuOptX1 : Cfg.CfgEmuOptX1;
            QCOMPARE(int(edited.WinX1_1Op[7]), 3);
            QCOMPARE(other, Defaults());
        }
    }
};

QTEST_MAIN(TestFrmWinX1Op)
#include "tst_frmWinX1Op.moc"
