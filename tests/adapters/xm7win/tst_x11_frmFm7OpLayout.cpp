// The pages of the FM-7 option dialogs (XM7 for Win32 with its key choice, EM7) on a real
// display: every control inside the dialog, whole and apart (tests/support/DialogLayout.h),
// and the key list's columns whole.
#include "adapters/em7/frmEm7WinOp.h"
#include "adapters/xm7win/Xm7KeyMap.h"
#include "adapters/xm7win/frmXm7WinOp.h"
#include "data/Cfg.h"
#include "support/DialogLayout.h"

#include <QHeaderView>
#include <QTreeWidget>

using namespace tv;

class TestFrmFm7OpLayout : public QObject {
    Q_OBJECT

private slots:
    void xm7WinPages()
    {
        SetDefaultEmuOptFM(Cfg.CfgEmuOptFM);
        frmXm7WinOp d(0, nullptr);
        tvtest::CheckOptionPages(d);
        // The key list shows every column whole.
        QTreeWidget* l = d.keyList();
        for (int c = 0; c < 5; ++c)
            QVERIFY(l->columnWidth(c) >= l->header()->sectionSizeHint(c) - 1);
    }

    void xm7WinKeyChoice()
    {
        SetDefaultEmuOptFM(Cfg.CfgEmuOptFM);
        frmXm7WinOp owner(0, nullptr);
        frmXm7WinOp2 d(&owner);
        d.InitLoad(QStringLiteral("1E"), QStringLiteral("30"), DikNames());
        if (d.objectName().isEmpty())
            d.setObjectName(QStringLiteral("frmXm7WinOp2"));
        tvtest::CheckDialogPages(d, 1, [](int) {});
    }

    void em7Pages()
    {
        SetDefaultEmuOptFM(Cfg.CfgEmuOptFM);
        frmEm7WinOp d(0, nullptr);
        tvtest::CheckOptionPages(d);
    }
};

QTEST_MAIN(TestFrmFm7OpLayout)
#include "tst_x11_frmFm7OpLayout.moc"
