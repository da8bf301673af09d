// X88000's, PC88Win's and j80's option dialogs and j80's file dialog on a real display: every
// page with its controls inside the dialog, whole and apart (tests/support/DialogLayout.h).
#include "adapters/j80/frmJ80Op.h"
#include "adapters/j80/frmJ80Rom.h"
#include "adapters/pc88/EmuOpt88.h"
#include "adapters/pc88win/frmPc88WinOp.h"
#include "adapters/x88000/frmX88kOp.h"
#include "data/Cfg.h"
#include "support/DialogLayout.h"

using namespace tv;

class TestFrmPc88OpLayout : public QObject {
    Q_OBJECT

private slots:
    void init() { SetDefaultEmuOpt88(Cfg.CfgEmuOpt88); }

    void x88000()
    {
        frmX88kOp d(0, nullptr);
        tvtest::CheckOptionPages(d);
    }
    void pc88win()
    {
        frmPc88WinOp d(0, nullptr);
        tvtest::CheckOptionPages(d);
    }
    void j80()
    {
        frmJ80Op d(0, nullptr);
        tvtest::CheckOptionPages(d);
    }
    void j80Files()
    {
        frmJ80Rom d(nullptr);
        tvtest::CheckDialogPages(d, 1, [](int) {});
    }
};

QTEST_MAIN(TestFrmPc88OpLayout)
#include "tst_x11_frmPc88OpLayout.moc"
