// The X88000 option dialog: its pages, load and store of the item-data lists, the drives with
// their boxes and the count that enables them, the boost limit, Cancel after Apply.
#include "adapters/OptionDialogs_ui.h"
#include "adapters/x88000/frmX88kOp.h"
#include "data/Cfg.h"

#include <QCheckBox>
#include <QComboBox>
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

} // namespace

class TestFrmX88kOp : public QObject {
    Q_OBJECT

    template <typename T> T* c(frmX88kOp& d, const char* name, int index = -1)
    {
        T* w = d.Control<T>(QString::fromLatin1(name), index);
        if (!w)
            qFatal("no control %s(%d)", name, index);
        return w;
    }

private slots:
    void init()
    {
        Cfg.CfgEmuOpt88 = Defaults();
        CurEmuOpt88 = Defaults();
    }

    void pages()
    {
        frmX88kOp d(0, nullptr);
        const QStringList pages = {"一般(FD設定)", "画面", "一般", "サウンド", "入力"};
        QCOMPARE(d.tabs()->count(), pages.size());
        for (int i = 0; i < pages.size(); ++i)
            QCOMPARE(d.tabs()->tabText(i), pages[i]);
    }

    void loadOfTheDefaults()
    {
        frmX88kOp d(0, nullptr);
        QCOMPARE(c<QComboBox>(d, "cbxX88_1Op", 0)->currentText(), QStringLiteral("V2 Mode"));
        QCOMPARE(c<QComboBox>(d, "cbxX88_1Op", 1)->currentText(), QStringLiteral("4 MHz"));
        QVERIFY(!c<QCheckBox>(d, "chkX88_1Op", 2)->isChecked());
        QVERIFY(!c<QComboBox>(d, "cbxX88_1Op", 3)->isEnabled());
        QVERIFY(c<QRadioButton>(d, "optX88_14Op", 2)->isChecked());
        QVERIFY(c<QCheckBox>(d, "chkX88_1Op", 5)->isChecked());
        QCOMPARE(c<QLineEdit>(d, "txtX88_1Op", 6)->text(), QStringLiteral("2"));
        QVERIFY(!c<QCheckBox>(d, "chkX88_1Op", 7)->isChecked());
        QVERIFY(!c<QCheckBox>(d, "chkX88_1Op", 7)->isEnabled());
        QCOMPARE(c<QLineEdit>(d, "txtX88_1Op", 7)->text(), QString());
        QVERIFY(!c<QLineEdit>(d, "txtX88_1Op", 7)->isEnabled());
        QCOMPARE(c<QComboBox>(d, "cbxX88_1Op", 15)->currentText(), QStringLiteral("44100"));
        QCOMPARE(c<QSlider>(d, "sldX88_1Op", 18)->value(), 50);
        QVERIFY(c<QRadioButton>(d, "optX88_112Op", 1)->isChecked());
        QVERIFY(c<QRadioButton>(d, "optX88_121Op", 0)->isChecked());
    }

    void storeOfEveryKind()
    {
        frmX88kOp d(1, nullptr);
        c<QComboBox>(d, "cbxX88_1Op", 0)->setCurrentIndex(5);
        c<QCheckBox>(d, "chkX88_1Op", 2)->setChecked(true);
        QVERIFY(c<QComboBox>(d, "cbxX88_1Op", 3)->isEnabled());
        c<QComboBox>(d, "cbxX88_1Op", 3)->setCurrentIndex(7);
        c<QRadioButton>(d, "optX88_14Op", 3)->setChecked(true);
        QVERIFY(c<QCheckBox>(d, "chkX88_1Op", 7)->isEnabled());
        QVERIFY(!c<QCheckBox>(d, "chkX88_1Op", 8)->isEnabled());
        c<QCheckBox>(d, "chkX88_1Op", 7)->setChecked(true);
        QVERIFY(c<QLineEdit>(d, "txtX88_1Op", 7)->isEnabled());
        c<QLineEdit>(d, "txtX88_1Op", 7)->clear();           // box on, empty: 0
        c<QCheckBox>(d, "chkX88_1Op", 6)->setChecked(false); // box off: 255
        c<QComboBox>(d, "cbxX88_1Op", 10)->setCurrentIndex(3);
        c<QRadioButton>(d, "optX88_111Op", 1)->setChecked(true);
        c<QRadioButton>(d, "optX88_113Op", 1)->setChecked(true);
        c<QComboBox>(d, "cbxX88_1Op", 15)->setCurrentIndex(3);
        c<QComboBox>(d, "cbxX88_1Op", 16)->setCurrentIndex(1);
        c<QComboBox>(d, "cbxX88_1Op", 17)->setCurrentIndex(1);
        c<QSlider>(d, "sldX88_1Op", 18)->setValue(80);
        c<QCheckBox>(d, "chkX88_1Op", 19)->setChecked(true);
        c<QComboBox>(d, "cbxX88_1Op", 20)->setCurrentIndex(1);
        c<QRadioButton>(d, "optX88_121Op", 1)->setChecked(true);
        c<QCheckBox>(d, "chkX88_1Op", 23)->setChecked(true);
        QTest::mouseClick(c<QPushButton>(d, "cmdApply"), Qt::LeftButton);
        const auto& o = CurEmuOpt88.X88_1Op;
        QCOMPARE(o[0], uint8_t(5));
        QCOMPARE(o[2], uint8_t(1));
        QCOMPARE(o[3], uint8_t(16));
        QCOMPARE(o[4], uint8_t(3));
        QCOMPARE(o[5], uint8_t(1));
        QCOMPARE(o[6], uint8_t(255));
        QCOMPARE(o[7], uint8_t(0));
        QCOMPARE(o[8], uint8_t(255));
        QCOMPARE(o[10], uint8_t(60));
        QCOMPARE(o[11], uint8_t(1));
        QCOMPARE(o[13], uint8_t(1));
        QCOMPARE(o[15], uint8_t(0));
        QCOMPARE(o[16], uint8_t(16));
        QCOMPARE(o[17], uint8_t(2));
        QCOMPARE(o[18], uint8_t(80));
        QCOMPARE(o[19], uint8_t(1));
        QCOMPARE(o[20], uint8_t(1));
        QCOMPARE(o[21], uint8_t(1));
        QCOMPARE(o[23], uint8_t(1));
        QCOMPARE(Cfg.CfgEmuOpt88, Defaults());
    }

    void nothingSelectedStoresZero()
    {
        frmX88kOp d(0, nullptr);
        c<QComboBox>(d, "cbxX88_1Op", 1)->setCurrentIndex(-1);
        QTest::mouseClick(c<QPushButton>(d, "cmdApply"), Qt::LeftButton);
        QCOMPARE(Cfg.CfgEmuOpt88.X88_1Op[1], uint8_t(0));
    }

    void driveBoxLimit()
    {
        frmX88kOp d(0, nullptr);
        QLineEdit* box = c<QLineEdit>(d, "txtX88_1Op", 5);
        box->clear();
        QTest::keyClicks(box, QStringLiteral("65"));
        QCOMPARE(box->text(), QStringLiteral("6"));
    }

    void cancelAfterApplyKeepsWhatWasApplied()
    {
        frmX88kOp d(0, nullptr);
        c<QCheckBox>(d, "chkX88_1Op", 9)->setChecked(true);
        QTest::mouseClick(c<QPushButton>(d, "cmdApply"), Qt::LeftButton);
        c<QCheckBox>(d, "chkX88_1Op", 22)->setChecked(true);
        QTest::mouseClick(c<QPushButton>(d, "cmdCancel"), Qt::LeftButton);
        QCOMPARE(Cfg.CfgEmuOpt88.X88_1Op[9], uint8_t(1));
        QCOMPARE(Cfg.CfgEmuOpt88.X88_1Op[22], uint8_t(0));
    }

    void openedThroughTheDialogTable()
    {
        QTimer::singleShot(0, [] {
            auto* d = qobject_cast<frmX88kOp*>(QApplication::activeModalWidget());
            QVERIFY(d);
            QCOMPARE(d->titleFlag(), uint8_t(0));
            d->Control<QCheckBox>(QStringLiteral("chkX88_1Op"), 23)->setChecked(true);
            QTest::mouseClick(d->Control<QPushButton>(QStringLiteral("cmdOK")), Qt::LeftButton);
        });
        QVERIFY(OpenOptionDialog(Emu::X88k, 0, nullptr));
        QCOMPARE(Cfg.CfgEmuOpt88.X88_1Op[23], uint8_t(1));
    }
};

QTEST_MAIN(TestFrmX88kOp)
#include "tst_frmX88kOp.moc"
