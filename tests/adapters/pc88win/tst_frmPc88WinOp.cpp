// The PC88Win option dialog: load, store with the list boxes' leading values, the fallbacks
// of the number boxes, the refresh rate that can't be 0, Cancel after Apply.
#include "adapters/OptionDialogs_ui.h"
#include "adapters/pc88win/frmPc88WinOp.h"
#include "data/Cfg.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
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

class TestFrmPc88WinOp : public QObject {
    Q_OBJECT

    template <typename T> T* c(frmPc88WinOp& d, const char* name, int index = -1)
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
        CurEmuOpt88.X88_1Op.fill(7);
    }

    void loadShowsTheBlock()
    {
        CurEmuOpt88.Pc8_1Op = {1, 1, 1, 30, 0, 0, 1, 0};
        CurEmuOpt88.Pc8_2Op = {100, 700};
        frmPc88WinOp d(1, nullptr);
        QCOMPARE(d.windowTitle(), QStringLiteral("PC88Win設定"));
        QCOMPARE(c<QComboBox>(d, "cbxPc8_1Op", 0)->currentText(), QStringLiteral("1 - V1H Mode"));
        QCOMPARE(c<QComboBox>(d, "cbxPc8_1Op", 1)->currentText(), QStringLiteral("1 - 8 MHz"));
        QCOMPARE(c<QComboBox>(d, "cbxPc8_1Op", 2)->currentText(), QStringLiteral("1 - 22 KHz"));
        QCOMPARE(c<QLineEdit>(d, "txtPc8_1Op", 3)->text(), QStringLiteral("30"));
        QCOMPARE(c<QComboBox>(d, "cbxPc8_1Op", 4)->currentText(), QStringLiteral("0 - OFF"));
        QCOMPARE(c<QComboBox>(d, "cbxPc8_1Op", 6)->currentText(), QStringLiteral("1 - ON"));
        QCOMPARE(c<QComboBox>(d, "cbxPc8_1Op", 7)->currentText(), QStringLiteral("0 - OPN"));
        QCOMPARE(c<QLineEdit>(d, "txtPc8_2Op", 0)->text(), QStringLiteral("100"));
        QCOMPARE(c<QLineEdit>(d, "txtPc8_2Op", 1)->text(), QStringLiteral("700"));
        QCOMPARE(c<QComboBox>(d, "cbxPc8_1Op", 6)->itemText(0), QStringLiteral("0 - OFF(106)"));
    }

    void storeTakesTheLeadingValuesAndFallbacks()
    {
        frmPc88WinOp d(0, nullptr);
        c<QComboBox>(d, "cbxPc8_1Op", 0)->setCurrentIndex(0);
        c<QComboBox>(d, "cbxPc8_1Op", 1)->setCurrentIndex(1);
        c<QComboBox>(d, "cbxPc8_1Op", 5)->setCurrentIndex(0);
        c<QComboBox>(d, "cbxPc8_1Op", 7)->setCurrentIndex(-1);
        c<QLineEdit>(d, "txtPc8_1Op", 3)->clear();
        c<QLineEdit>(d, "txtPc8_2Op", 0)->clear();
        c<QLineEdit>(d, "txtPc8_2Op", 1)->setText(QStringLiteral("1024"));
        QTest::mouseClick(c<QPushButton>(d, "cmdApply"), Qt::LeftButton);
        const EmuOpt88& o = Cfg.CfgEmuOpt88;
        QCOMPARE(o.Pc8_1Op[0], uint8_t(0));
        QCOMPARE(o.Pc8_1Op[1], uint8_t(1));
        QCOMPARE(o.Pc8_1Op[3], uint8_t(1)); // an empty refresh rate stores 1
        QCOMPARE(o.Pc8_1Op[5], uint8_t(0));
        QCOMPARE(o.Pc8_1Op[7], uint8_t(0)); // nothing selected
        QCOMPARE(o.Pc8_2Op[0], int16_t(0));
        QCOMPARE(o.Pc8_2Op[1], int16_t(1024));
        QCOMPARE(CurEmuOpt88.X88_1Op[0], uint8_t(7)); // the title's block is not the target
        QCOMPARE(Cfg.CfgEmuOpt88.X88_1Op, Defaults().X88_1Op);
    }

    void refreshRateCantBeZero()
    {
        frmPc88WinOp d(1, nullptr);
        QLineEdit* fps = c<QLineEdit>(d, "txtPc8_1Op", 3);
        fps->clear();
        QTest::keyClick(fps, Qt::Key_0);
        QCOMPARE(fps->text(), QString());
        QTest::keyClicks(fps, QStringLiteral("50"));
        QCOMPARE(fps->text(), QStringLiteral("50"));
        QTest::keyClick(fps, Qt::Key_1); // 501 is above the limit of 60
        QCOMPARE(fps->text(), QStringLiteral("50"));
        QTest::mouseClick(c<QPushButton>(d, "cmdApply"), Qt::LeftButton);
        QCOMPARE(CurEmuOpt88.Pc8_1Op[3], uint8_t(50));
    }

    void cancelAfterApplyKeepsWhatWasApplied()
    {
        frmPc88WinOp d(0, nullptr);
        c<QLineEdit>(d, "txtPc8_2Op", 1)->setText(QStringLiteral("300"));
        QTest::mouseClick(c<QPushButton>(d, "cmdApply"), Qt::LeftButton);
        c<QLineEdit>(d, "txtPc8_2Op", 1)->setText(QStringLiteral("400"));
        QTest::mouseClick(c<QPushButton>(d, "cmdCancel"), Qt::LeftButton);
        QCOMPARE(Cfg.CfgEmuOpt88.Pc8_2Op[1], int16_t(300));
    }

    void openedThroughTheDialogTable()
    {
        QTimer::singleShot(0, [] {
            auto* d = qobject_cast<frmPc88WinOp*>(QApplication::activeModalWidget());
            QVERIFY(d);
            QCOMPARE(d->titleFlag(), uint8_t(1));
            d->Control<QLineEdit>(QStringLiteral("txtPc8_1Op"), 3)->setText("45");
            QTest::mouseClick(d->Control<QPushButton>(QStringLiteral("cmdOK")), Qt::LeftButton);
        });
        QVERIFY(OpenOptionDialog(Emu::PC88Win, 1, nullptr));
        QCOMPARE(CurEmuOpt88.Pc8_1Op[3], uint8_t(45));
        QCOMPARE(Cfg.CfgEmuOpt88.Pc8_1Op[3], uint8_t(60));
    }
};

QTEST_MAIN(TestFrmPc88WinOp)
#include "tst_frmPc88WinOp.moc"
