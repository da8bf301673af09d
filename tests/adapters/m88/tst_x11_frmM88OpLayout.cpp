// The pages of the M88 option dialog on a real display: every control inside the dialog, whole
// and apart (tests/support/DialogLayout.h).
#include "adapters/m88/frmM88Op.h"
#include "data/Cfg.h"
#include "support/DialogLayout.h"

using namespace tv;

class TestFrmM88OpLayout : public QObject {
    Q_OBJECT

private slots:
    void pagesHaveRoomForEveryControl()
    {
        SetDefaultEmuOpt88(Cfg.CfgEmuOpt88);
        Cfg.CfgEmuOpt88.M88_3Op[10] = 1;
        frmM88Op d(0, nullptr);
        tvtest::CheckOptionPages(d);
    }
};

QTEST_MAIN(TestFrmM88OpLayout)
#include "tst_x11_frmM88OpLayout.moc"
