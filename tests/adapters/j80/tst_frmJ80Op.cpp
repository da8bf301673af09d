// The j80 option dialog (load, store, fallbacks, Cancel after Apply) and j80's file dialog
// (addresses from the file names, the refusals with their messages, what is stored).
#include "adapters/OptionDialogs_ui.h"
#include "adapters/j80/frmJ80Op.h"
#include "adapters/j80/frmJ80Rom.h"
#include "data/Cfg.h"
#include "support/ScriptedMsgBox.h"

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace tv;

namespace {

EmuOpt88 Defaults()
{
    EmuOpt88 o;
    SetDefaultEmuOpt88(o);
    return o;
}

} // namespace

class TestFrmJ80Op : public QObject {
    Q_OBJECT

    template <typename T, typename D> T* c(D& d, const char* name, int index = -1)
    {
        T* w = d.template findChild<T*>(ControlName(QString::fromLatin1(name), index));
        if (!w)
            qFatal("no control %s(%d)", name, index);
        return w;
    }
    QString Touch(const QString& name)
    {
        const QString p = dir_.path() + "/" + name;
        QFile f(p);
        f.open(QIODevice::WriteOnly);
        f.write("x");
        return p;
    }
    void SetCfgFiles()
    {
        Cfg.J80RomsFile = Touch("PC88.ROM");
        Cfg.J80RomsAddress = "16000";
        Cfg.J80Rom4File = QString();
        Cfg.J80Rom4Address = QString();
        Cfg.J80FontFile = Touch("PC-8001.FON");
        Cfg.J80FontAddress = QString();
        Cfg.J80DiskFile = QString();
        Cfg.J80DiskAddress = QString();
        Cfg.J80CrtFile = Touch("crt.gif");
        Cfg.J80KeyFile = Touch("key.txt");
        Cfg.J80PenDir = QString();
    }

    QTemporaryDir dir_;

private slots:
    void init()
    {
        Cfg.CfgEmuOpt88 = Defaults();
        CurEmuOpt88 = Defaults();
        SetCfgFiles();
    }

    void loadAndStore()
    {
        CurEmuOpt88.J80_1Op = {2, 70, 1, 1, 30, 0, 1};
        CurEmuOpt88.J80_2Op = {300, 0, 0};
        frmJ80Op d(1, nullptr);
        QVERIFY(c<QRadioButton>(d, "optJ80_10Op", 2)->isChecked());
        QCOMPARE(c<QLineEdit>(d, "txtJ80_1Op", 1)->text(), QStringLiteral("70"));
        QVERIFY(c<QCheckBox>(d, "chkJ80_1Op", 2)->isChecked());
        QCOMPARE(c<QCheckBox>(d, "chkJ80_1Op", 3)->text(), QStringLiteral("画面行数を制限する"));
        QCOMPARE(c<QLineEdit>(d, "txtJ80_1Op", 4)->text(), QStringLiteral("30"));
        QVERIFY(!c<QCheckBox>(d, "chkJ80_1Op", 5)->isChecked());
        QVERIFY(c<QRadioButton>(d, "optJ80_16Op", 1)->isChecked());
        QCOMPARE(c<QLineEdit>(d, "txtJ80_2Op", 0)->text(), QStringLiteral("300"));

        c<QRadioButton>(d, "optJ80_10Op", 0)->setChecked(true);
        c<QLineEdit>(d, "txtJ80_1Op", 1)->clear();
        c<QLineEdit>(d, "txtJ80_1Op", 4)->clear();
        c<QLineEdit>(d, "txtJ80_2Op", 0)->clear();
        c<QCheckBox>(d, "chkJ80_1Op", 5)->setChecked(true);
        c<QRadioButton>(d, "optJ80_16Op", 0)->setChecked(true);
        QTest::mouseClick(c<QPushButton>(d, "cmdApply"), Qt::LeftButton);
        QCOMPARE(CurEmuOpt88.J80_1Op[0], uint8_t(0));
        QCOMPARE(CurEmuOpt88.J80_1Op[1], uint8_t(50)); // empty: 50
        QCOMPARE(CurEmuOpt88.J80_1Op[4], uint8_t(25)); // empty: 25
        QCOMPARE(CurEmuOpt88.J80_1Op[5], uint8_t(1));
        QCOMPARE(CurEmuOpt88.J80_1Op[6], uint8_t(0));
        QCOMPARE(CurEmuOpt88.J80_2Op[0], int16_t(0));
        QCOMPARE(Cfg.CfgEmuOpt88, Defaults());
    }

    void numberLimits()
    {
        frmJ80Op d(0, nullptr);
        QLineEdit* lines = c<QLineEdit>(d, "txtJ80_1Op", 4);
        lines->clear();
        QTest::keyClicks(lines, QStringLiteral("65"));
        QCOMPARE(lines->text(), QStringLiteral("6"));
        QLineEdit* buffer = c<QLineEdit>(d, "txtJ80_2Op", 0);
        buffer->clear();
        QTest::keyClicks(buffer, QStringLiteral("10001"));
        QCOMPARE(buffer->text(), QStringLiteral("1000"));
    }

    void cancelAfterApply()
    {
        frmJ80Op d(0, nullptr);
        c<QCheckBox>(d, "chkJ80_1Op", 2)->setChecked(true);
        QTest::mouseClick(c<QPushButton>(d, "cmdApply"), Qt::LeftButton);
        c<QCheckBox>(d, "chkJ80_1Op", 3)->setChecked(true);
        QTest::mouseClick(c<QPushButton>(d, "cmdCancel"), Qt::LeftButton);
        QCOMPARE(Cfg.CfgEmuOpt88.J80_1Op[2], uint8_t(1));
        QCOMPARE(Cfg.CfgEmuOpt88.J80_1Op[3], uint8_t(0));
    }

    void openedThroughTheDialogTable()
    {
        QTimer::singleShot(0, [] {
            auto* d = qobject_cast<frmJ80Op*>(QApplication::activeModalWidget());
            QVERIFY(d);
            d->Control<QCheckBox>(QStringLiteral("chkJ80_1Op"), 2)->setChecked(true);
            QTest::mouseClick(d->Control<QPushButton>(QStringLiteral("cmdOK")), Qt::LeftButton);
        });
        QVERIFY(OpenOptionDialog(Emu::J80, 1, nullptr));
        QCOMPARE(CurEmuOpt88.J80_1Op[2], uint8_t(1));
    }

    void romLoadKeepsTheStoredAddresses()
    {
        Cfg.J80RomsAddress = "ABC";
        frmJ80Rom d;
        QCOMPARE(c<QLineEdit>(d, "txtJ80RomsFile")->text(), Cfg.J80RomsFile);
        QCOMPARE(c<QLineEdit>(d, "txtJ80RomsAddress")->text(), QStringLiteral("ABC"));
    }

    void romAddressesFollowTheFileNames()
    {
        frmJ80Rom d;
        c<QLineEdit>(d, "txtJ80RomsFile")->setText("/x/pc88.rom");
        QCOMPARE(c<QLineEdit>(d, "txtJ80RomsAddress")->text(), QStringLiteral("16000"));
        c<QLineEdit>(d, "txtJ80RomsFile")->setText("/x/other.rom");
        QCOMPARE(c<QLineEdit>(d, "txtJ80RomsAddress")->text(), QString());
        c<QLineEdit>(d, "txtJ80Rom4File")->setText("/x/PC88.ROM");
        QCOMPARE(c<QLineEdit>(d, "txtJ80Rom4Address")->text(), QStringLiteral("8000"));
        for (const char* n : {"8801-N80.ROM", "n_12.rom", "N_14.ROM", "N80_10.ROM", "N80_12.ROM"}) {
            c<QLineEdit>(d, "txtJ80Rom4File")->setText(QStringLiteral("C:\\j80\\") + n);
            QCOMPARE(c<QLineEdit>(d, "txtJ80Rom4Address")->text(), QStringLiteral("6000"));
        }
        c<QLineEdit>(d, "txtJ80DiskFile")->setText("/x/PC88.ROM");
        QCOMPARE(c<QLineEdit>(d, "txtJ80DiskAddress")->text(), QStringLiteral("14000"));
        c<QLineEdit>(d, "txtJ80FontAddress")->setText("FF");
        c<QLineEdit>(d, "txtJ80FontFile")->setText("/x/PC-8001.FON");
        QCOMPARE(c<QLineEdit>(d, "txtJ80FontAddress")->text(), QString());
    }

    void romAddressTakesHexOnly()
    {
        frmJ80Rom d;
        QLineEdit* a = c<QLineEdit>(d, "txtJ80Rom4Address");
        a->clear();
        QTest::keyClicks(a, QStringLiteral("1g2Fz3456789"));
        QCOMPARE(a->text(), QStringLiteral("12F34567"));
    }

    void romRefusalsWithTheirMessages()
    {
        struct Case {
            const char* box;
            QString text;
            const char* message;
        };
        const QString missing = dir_.path() + "/missing.rom";
        const std::vector<Case> cases = {
            {"txtJ80RomsFile", missing, "ROMsファイルが存在しません。"},
            {"txtJ80RomsFile", QString(), "ROMsファイルは省略できません。"},
            {"txtJ80Rom4File", missing, "ROM4ファイルが存在しません。"},
            {"txtJ80FontFile", missing, "FONTファイルが存在しません。"},
            {"txtJ80FontFile", QString(), "FONTファイルは省略できません。"},
            {"txtJ80DiskFile", missing, "DISKファイルが存在しません。"},
            {"txtJ80CrtFile", missing, "CRTファイルが存在しません。"},
            {"txtJ80CrtFile", QString(), "CRTファイルは省略できません。"},
            {"txtJ80KeyFile", missing, "KEYファイルが存在しません。"},
            {"txtJ80KeyFile", QString(), "KEYファイルは省略できません。"},
            {"txtJ80PenDir", dir_.path() + "/nodir", "PENディレクトリが存在しません。"},
        };
        for (const Case& k : cases) {
            SetCfgFiles();
            const CfgRecord before = Cfg;
            frmJ80Rom d;
            c<QLineEdit>(d, k.box)->setText(k.text);
            tvtest::ScriptedMsgBox box;
            QTest::mouseClick(c<QPushButton>(d, "cmdOK"), Qt::LeftButton);
            QCOMPARE(box.calls().size(), size_t(1));
            QCOMPARE(box.calls()[0].text, QString::fromUtf8(k.message));
            QCOMPARE(box.calls()[0].caption, QStringLiteral("ディレクトリ/ファイルが不正です"));
            QCOMPARE(box.calls()[0].flags, int(MbExclamation));
            QCOMPARE(c<QLineEdit>(d, k.box)->text(), k.text); // the box keeps what it had
            QVERIFY(d.isVisible() || d.result() != QDialog::Accepted);
            QCOMPARE(Cfg.J80KeyFile, before.J80KeyFile);
            QCOMPARE(Cfg.J80PenDir, before.J80PenDir);
        }
    }

    void romStoreStopsAtTheFirstRefusal()
    {
        frmJ80Rom d;
        const QString rom4 = Touch("N_12.ROM");
        c<QLineEdit>(d, "txtJ80Rom4File")->setText(rom4);
        c<QLineEdit>(d, "txtJ80CrtFile")->setText(dir_.path() + "/missing.gif");
        c<QLineEdit>(d, "txtJ80PenDir")->setText(dir_.path());
        tvtest::ScriptedMsgBox box;
        QVERIFY(!d.StoreRom());
        // The entries before the refused one are stored, that one and the rest are not.
        QCOMPARE(Cfg.J80Rom4File, rom4);
        QCOMPARE(Cfg.J80Rom4Address, QStringLiteral("6000"));
        QCOMPARE(Cfg.J80CrtFile, dir_.path() + "/crt.gif");
        QCOMPARE(Cfg.J80PenDir, QString());
    }

    void romStoresEverything()
    {
        frmJ80Rom d;
        const QString disk = Touch("DISK.ROM");
        c<QLineEdit>(d, "txtJ80DiskFile")->setText(disk);
        c<QLineEdit>(d, "txtJ80DiskAddress")->setText("C000");
        c<QLineEdit>(d, "txtJ80PenDir")->setText(dir_.path());
        tvtest::ScriptedMsgBox box;
        QVERIFY(d.StoreRom());
        QVERIFY(box.calls().empty());
        QCOMPARE(Cfg.J80DiskFile, disk);
        QCOMPARE(Cfg.J80DiskAddress, QStringLiteral("C000"));
        QCOMPARE(Cfg.J80RomsAddress, QStringLiteral("16000"));
        QCOMPARE(Cfg.J80PenDir, dir_.path());
    }
};

QTEST_MAIN(TestFrmJ80Op)
#include "tst_frmJ80Op.moc"
