// The pages of the X1 family's option dialogs on a real display: every control inside the
// dialog, whole and apart (tests/support/DialogLayout.h).
#include "adapters/fm7x1/EmuOptFMX1.h"
#include "adapters/winx1/frmWinX1Op.h"
#include "adapters/x1emu/frmX1emuOp.h"
#include "adapters/x1r/frmX1rOp.h"
#include "adapters/xmil/frmXmilOp.h"
#include "data/Cfg.h"
#include "support/DialogLayout.h"

using namespace tv;

class TestFrmX1OpLayout : public QObject {
    Q_OBJECT

private slots:
    void init() { SetDefaultEmuOptX1(Cfg.CfgEmuOptX1); }

    void xmil()
    {
        frmXmilOp d(0, nullptr);
        tvtest::CheckOptionPages(d);
    }
    void winx1()
    {
        frmWinX1Op d(0, nullptr);
        tvtest::CheckOptionPages(d);
    }
    void x1r()
    {
        frmX1rOp d(0, nullptr);
        tvtest::CheckOptionPages(d);
    }
    void x1emu()
    {
        frmX1emuOp d(0, nullptr);
        tvtest::CheckOptionPages(d);
    }
};

QTEST_MAIN(TestFrmX1OpLayout)
#include "tst_x11_frmX1OpLayout.moc"
