// The table of option dialogs by emulator, as the registration dialog will use it: each
// emulator with a dialog opens it modally on the block that TitleFlag chooses.
#include "adapters/OptionDialogs_ui.h"
#include "adapters/m88/frmM88Op.h"
#include "data/Cfg.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace tv;

class TestOptionDialogs : public QObject {
    Q_OBJECT

    // Opens M88's dialog through the table with `flag`, types 9 MHz and presses OK.
    bool openM88(int flag, uint8_t* seenFlag)
    {
        QTimer::singleShot(0, this, [seenFlag] {
            auto* d = qobject_cast<frmM88Op*>(QApplication::activeModalWidget());
            if (!d)
                return;
            *seenFlag = d->titleFlag();
            d->Control<QLineEdit>(QStringLiteral("txtM88_1Op"), 1)->setText(QStringLiteral("9"));
            QTest::mouseClick(d->Control<QPushButton>(QStringLiteral("cmdOK")), Qt::LeftButton);
        });
        return OpenOptionDialog(Emu::M88, flag, nullptr);
    }

private slots:
    void init()
    {
        SetDefaultEmuOpt88(Cfg.CfgEmuOpt88);
        SetDefaultEmuOpt88(CurEmuOpt88);
    }

    void titleFlagOneEditsTheCurrentTitle()
    {
        uint8_t seen = 0xFF;
        QVERIFY(openM88(1, &seen));
        QCOMPARE(seen, uint8_t(1));
        QCOMPARE(int(CurEmuOpt88.M88_1Op[1]), 9);
        QCOMPARE(int(Cfg.CfgEmuOpt88.M88_1Op[1]), 4);
    }

    void titleFlagZeroEditsTheDefaults()
    {
        uint8_t seen = 0xFF;
        QVERIFY(openM88(0, &seen));
        QCOMPARE(seen, uint8_t(0));
        QCOMPARE(int(Cfg.CfgEmuOpt88.M88_1Op[1]), 9);
        QCOMPARE(int(CurEmuOpt88.M88_1Op[1]), 4);
    }

    void emulatorsWithoutDialogOpenNothing()
    {
        for (Emu e : {Emu::Xm7Dos})
            QVERIFY(!OpenOptionDialog(e, 1, nullptr));
        QVERIFY(!QApplication::activeModalWidget());
    }

    void buttonsOfTheSettingsNameTheirEmulators()
    {
        QCOMPARE(OptionDialogControlsOf(QStringLiteral("cmdM88Op"))->emu, Emu::M88);
        QCOMPARE(OptionDialogControlsOf(QStringLiteral("cmdPc8Op"))->emu, Emu::PC88Win);
        QCOMPARE(OptionDialogControlsOf(QStringLiteral("cmdQ88Op"))->emu, Emu::QUASI88);
        QCOMPARE(OptionDialogControlsOf(QStringLiteral("cmdX1emuOp"))->switchText, "txtX1emuOp");
        QCOMPARE(OptionDialogControlsOf(QStringLiteral("cmdX1rOp"))->switchText, "txtX1rOp");
        QCOMPARE(OptionDialogControlsOf(QStringLiteral("cmdP88srOp"))->switchText, "txtP88srOp");
        QVERIFY(!OptionDialogControlsOf(QStringLiteral("cmdM88Op"))->switchText);
        // The ROM files of j80 are no option dialog.
        QVERIFY(!OptionDialogControlsOf(QStringLiteral("cmdJ80File")));
    }
};

QTEST_MAIN(TestOptionDialogs)
#include "tst_OptionDialogs.moc"
