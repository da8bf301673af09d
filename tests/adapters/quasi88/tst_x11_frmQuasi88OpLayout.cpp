// The pages of the QUASI88 option dialog and its DIP switch dialog on a real display: every
// control inside the dialog, whole and apart (tests/support/DialogLayout.h).
#include "adapters/quasi88/frmQuasi88Op.h"
#include "adapters/quasi88/frmQuasi88Op2.h"
#include "data/Cfg.h"
#include "support/DialogLayout.h"

using namespace tv;

class TestFrmQuasi88OpLayout : public QObject {
    Q_OBJECT

private slots:
    void pagesHaveRoomForEveryControl()
    {
        SetDefaultEmuOpt88(Cfg.CfgEmuOpt88);
        frmQuasi88Op d(0, nullptr);
        tvtest::CheckOptionPages(d);
    }

    void dipDialogHasRoomForEveryControl()
    {
        SetDefaultEmuOpt88(Cfg.CfgEmuOpt88);
        Q88DipWork = Cfg.CfgEmuOpt88.Q88_2Op;
        frmQuasi88Op2 d;
        d.setObjectName(QStringLiteral("frmQuasi88Op2"));
        tvtest::CheckDialogPages(d, 1, [](int) {});
        // Every control the dialog is built with was seen, none hidden.
        int leaves = 0;
        for (QWidget* w : d.findChildren<QWidget*>())
            if (w->isVisible() && tvtest::IsLayoutLeaf(w) &&
                !w->objectName().startsWith(QStringLiteral("qt_")))
                ++leaves;
        QCOMPARE(leaves, 13 + 24 + 1 + 2);
    }
};

QTEST_MAIN(TestFrmQuasi88OpLayout)
#include "tst_x11_frmQuasi88OpLayout.moc"
