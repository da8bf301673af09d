// The environment settings open P88SR's and QUASI88's option dialogs on the default block, and
// txtP88srOp shows the switch line of the defaults, anew after the dialog has stored.
#include "adapters/p88sr/frmP88srOp.h"
#include "adapters/quasi88/frmQuasi88Op.h"
#include "data/Cfg.h"
#include "settings/frmCfg.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace tv;

class TestFrmCfgP88srOp : public QObject {
    Q_OBJECT
private slots:
    void init()
    {
        SetDefaultCfg(Cfg);
        Cfg.P88srUse = 1;
        Cfg.QUASI88Use = 1;
        SetDefaultEmuOpt88(CurEmuOpt88);
    }

    void switchLineOfTheDefaultsFollowsTheDialog()
    {
        P88srOpTitleFlag = 1; // whatever the last caller left, the settings edit the defaults
        frmCfg cfg;
        QCOMPARE(cfg.Ctl<QLineEdit>(QStringLiteral("txtP88srOp"))->text(),
                 QStringLiteral("-a1 -b2"));
        auto* b = cfg.Ctl<QPushButton>(QStringLiteral("cmdP88srOp"));
        QVERIFY(b && b->isEnabled());
        bool seen = false;
        QTimer::singleShot(0, this, [&] {
            auto* d = qobject_cast<frmP88srOp*>(QApplication::activeModalWidget());
            QVERIFY(d);
            seen = true;
            QCOMPARE(d->titleFlag(), uint8_t(0));
            d->Control<QCheckBox>(QStringLiteral("chkP88_1Op"), 9)->setChecked(true);
            QTest::mouseClick(d->Control<QPushButton>(QStringLiteral("cmdOK")), Qt::LeftButton);
        });
        QTest::mouseClick(b, Qt::LeftButton);
        QVERIFY(seen);
        QCOMPARE(int(Cfg.CfgEmuOpt88.P88_1Op[9]), 1);
        QCOMPARE(int(CurEmuOpt88.P88_1Op[9]), 0);
        QCOMPARE(cfg.Ctl<QLineEdit>(QStringLiteral("txtP88srOp"))->text(),
                 QStringLiteral("-a1 -b2 -M"));
    }

    void quasi88ButtonOpensItsDialogOnTheDefaults()
    {
        Q88OpTitleFlag = 1;
        frmCfg cfg;
        auto* b = cfg.Ctl<QPushButton>(QStringLiteral("cmdQ88Op"));
        QVERIFY(b && b->isEnabled());
        bool seen = false;
        QTimer::singleShot(0, this, [&] {
            auto* d = qobject_cast<frmQuasi88Op*>(QApplication::activeModalWidget());
            QVERIFY(d);
            seen = true;
            QCOMPARE(d->titleFlag(), uint8_t(0));
            d->Control<QCheckBox>(QStringLiteral("chkQ88_1Op"), 9)->setChecked(true);
            QTest::mouseClick(d->Control<QPushButton>(QStringLiteral("cmdOK")), Qt::LeftButton);
        });
        QTest::mouseClick(b, Qt::LeftButton);
        QVERIFY(seen);
        QCOMPARE(int(Cfg.CfgEmuOpt88.Q88_1Op[9]), 1);
        QCOMPARE(int(CurEmuOpt88.Q88_1Op[9]), 0);
    }
};

QTEST_MAIN(TestFrmCfgP88srOp)
#include "tst_frmCfgP88srOp.moc"
