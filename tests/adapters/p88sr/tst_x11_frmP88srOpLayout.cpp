// The pages of the P88SR option dialog on a real display: every control inside the dialog,
// whole and apart (tests/support/DialogLayout.h).
#include "adapters/p88sr/frmP88srOp.h"
#include "data/Cfg.h"
#include "support/DialogLayout.h"

using namespace tv;

class TestFrmP88srOpLayout : public QObject {
    Q_OBJECT

private slots:
    void pagesHaveRoomForEveryControl()
    {
        SetDefaultEmuOpt88(Cfg.CfgEmuOpt88);
        Cfg.CfgEmuOpt88.P88_1Op[33] = 1;
        frmP88srOp d(0, nullptr);
        tvtest::CheckOptionPages(d);
    }
};

QTEST_MAIN(TestFrmP88srOpLayout)
#include "tst_x11_frmP88srOpLayout.moc"
