// The registration dialogs, the drop's progress window and the program options on a real
// display at 1024x768: each fits the screen, every control lies inside its dialog with the room
// its contents need, and no two controls overlap. With TORVANE_SHOTS_DIR set, each is also
// saved as a PNG there.
#include "data/Cfg.h"
#include "registration/frmColEditor.h"
#include "registration/frmDDAdd.h"
#include "registration/frmFileSelect.h"
#include "registration/frmLstMake.h"
#include "settings/frmOpt.h"
#include "support/CatalogueBytes.h"
#include "support/DialogLayout.h"
#include "support/ProcessState.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProcess>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTest>
#include <optional>

using namespace tv;

class TestRegistrationLayout : public QObject {
    Q_OBJECT

    QTemporaryDir root;
    std::optional<tvtest::ProcessState> state;
    QString arc;

    static bool IsLeaf(QWidget* w)
    {
        return qobject_cast<QAbstractButton*>(w) || qobject_cast<QLabel*>(w) ||
               qobject_cast<QLineEdit*>(w) || qobject_cast<QComboBox*>(w) ||
               qobject_cast<QListWidget*>(w) || qobject_cast<QPlainTextEdit*>(w);
    }

    void check(QDialog& d, const QString& shot)
    {
        d.show();
        QVERIFY(QTest::qWaitForWindowExposed(&d));
        QTest::qWait(50);
        QVERIFY2(d.frameGeometry().width() <= 1024 && d.frameGeometry().height() <= 768,
                 qPrintable(shot + QStringLiteral(" larger than 1024x768")));
        const QRect inside = d.rect();
        QList<QWidget*> leaves;
        for (QWidget* w : d.findChildren<QWidget*>()) {
            if (!w->isVisible() || !IsLeaf(w) || w->objectName().startsWith(QStringLiteral("qt_")))
                continue;
            if (qobject_cast<QLineEdit*>(w) && qobject_cast<QComboBox*>(w->parentWidget()))
                continue; // the editor of a drop-down field
            leaves << w;
        }
        QVERIFY(leaves.size() > 3);
        for (QWidget* w : leaves) {
            const QRect r(w->mapTo(&d, QPoint(0, 0)), w->size());
            QVERIFY2(inside.contains(r),
                     qPrintable(shot + QLatin1Char(' ') + w->objectName() + " outside"));
            const QSize need = w->minimumSizeHint();
            QVERIFY2(w->width() >= need.width() && w->height() >= need.height(),
                     qPrintable(shot + QLatin1Char(' ') + w->objectName() + " cut off"));
        }
        for (int i = 0; i < leaves.size(); ++i)
            for (int j = i + 1; j < leaves.size(); ++j) {
                const QRect a(leaves[i]->mapTo(&d, QPoint(0, 0)), leaves[i]->size());
                const QRect b(leaves[j]->mapTo(&d, QPoint(0, 0)), leaves[j]->size());
                QVERIFY2(!a.intersects(b),
                         qPrintable(shot + QLatin1Char(' ') + leaves[i]->objectName() +
                                    " overlaps " + leaves[j]->objectName()));
            }
        const QString shots = qEnvironmentVariable("TORVANE_SHOTS_DIR");
        if (!shots.isEmpty()) {
            QDir().mkpath(shots);
            d.grab().save(shots + QLatin1Char('/') + shot + QStringLiteral(".png"));
        }
    }

private slots:
    void init()
    {
        QVERIFY(root.isValid());
        state.emplace();
        for (const char* d : {"app", "tmp", "src"})
            QDir(root.path()).mkpath(d);
        AppDir = root.path() + "/app";
        EnvTmpDir = EnvTempDir = root.path() + "/tmp";
        WindowsDir = "/etc";
        SystemDir = "/usr";
        WorkDir = AppDir + "/TORVBOOT";
        QDir().mkpath(WorkDir);
        SetDefaultCfg(Cfg);
        Cfg.FreeColName1 = QStringLiteral("フリーカラム１");
        Cfg.FreeColName2 = QStringLiteral("フリーカラム２");
        InitTables();
        for (int f = 0; f < 3; ++f)
            QVERIFY(
                tvtest::WriteBytes(AppDir + "/" + tvtest::LstNameOf(f), tvtest::LstHeaderBytes(f)));
        const QString src = root.path() + "/src";
        for (const char* f : {"DISK_A.D88", "DISK_B.D88", "DISK_C.D88", "MANUAL.TXT"})
            QVERIFY(tvtest::WriteBytes(src + "/" + f, QByteArray(300, f[5])));
        arc = root.path() + "/T.ZIP";
        QProcess p;
        p.setWorkingDirectory(src);
        p.start("zip", {"-q", arc, "DISK_A.D88", "DISK_B.D88", "DISK_C.D88", "MANUAL.TXT"});
        QVERIFY(p.waitForFinished());
    }
    void cleanup() { state.reset(); }

    void lstMakeForEachFamily()
    {
        for (int f = 0; f < 3; ++f) {
            HardWare = uint8_t(f);
            frmLstMake d(0, nullptr);
            check(d, QStringLiteral("frmLstMake_%1").arg(f));
        }
    }
    void fileSelectModes()
    {
        HardWare = 0;
        for (int mode : {0, 1, 3}) {
            frmFileSelect d(uint8_t(mode), 0, arc, QStringLiteral("DISK_A.D88"));
            QVERIFY(d.ready());
            check(d, QStringLiteral("frmFileSelect_%1").arg(mode));
            d.reject();
        }
    }
    void colEditor()
    {
        frmColEditor d;
        check(d, QStringLiteral("frmColEditor"));
    }
    void dropProgress()
    {
        HardWare = 0;
        frmDDAdd d({root.path() + "/src/DISK_A.D88"}, nullptr, nullptr);
        d.lblFileName->setText(root.path() + "/src/DISK_A.D88");
        tvtest::CheckDialogPages(d, 1, [](int) {});
    }
    void programOptions()
    {
        frmOpt d;
        tvtest::CheckDialogPages(d, 3, [&d](int p) { d.tbsOptions->setCurrentIndex(p); });
    }
};

QTEST_MAIN(TestRegistrationLayout)
#include "tst_x11_registrationLayout.moc"
