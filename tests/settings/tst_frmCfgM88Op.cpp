// The environment settings open M88's option dialog on the default block.
#include "adapters/m88/frmM88Op.h"
#include "data/Cfg.h"
#include "settings/frmCfg.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace tv;

class TestFrmCfgM88Op : public QObject {
    Q_OBJECT
private slots:
    void defSettingsButtonOpensTheDialogOnTheDefaults()
    {
        SetDefaultCfg(Cfg);
        Cfg.M88Use = 1; // the emulator's frame is enabled only when it is in use
        SetDefaultEmuOpt88(CurEmuOpt88);
        M88OpTitleFlag = 1; // whatever the last caller left, the settings edit the defaults
        frmCfg cfg;
        auto* b = cfg.Ctl<QPushButton>(QStringLiteral("cmdM88Op"));
        QVERIFY(b);
        QCOMPARE(b->text(), QStringLiteral("Def 設定"));
        QVERIFY(b->isEnabled());
        bool seen = false;
        QTimer::singleShot(0, this, [&] {
            auto* d = qobject_cast<frmM88Op*>(QApplication::activeModalWidget());
            QVERIFY(d);
            seen = true;
            QCOMPARE(d->titleFlag(), uint8_t(0));
            d->Control<QLineEdit>(QStringLiteral("txtM88_1Op"), 1)->setText(QStringLiteral("8"));
            QTest::mouseClick(d->Control<QPushButton>(QStringLiteral("cmdOK")), Qt::LeftButton);
        });
        QTest::mouseClick(b, Qt::LeftButton);
        QVERIFY(seen);
        QCOMPARE(int(Cfg.CfgEmuOpt88.M88_1Op[1]), 8);
        QCOMPARE(int(CurEmuOpt88.M88_1Op[1]), 4);
    }
};

QTEST_MAIN(TestFrmCfgM88Op)
#include "tst_frmCfgM88Op.moc"
