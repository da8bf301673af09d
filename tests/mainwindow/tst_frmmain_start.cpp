// The real main window through its start-up: a first start cancelled at frmCfg, a first start
// filled in, and a start with a valid configuration up to the shown window and its close.
#include "data/Cfg.h"
#include "mainwindow/CatalogueUi.h"
#include "mainwindow/MainCatalogue.h"
#include "mainwindow/frmMain.h"
#include "settings/frmCfg.h"
#include "shell/Globals.h"
#include "support/CatalogueBytes.h"
#include "support/ScriptedMsgBox.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardItemModel>
#include <QStatusBar>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace tv;

class TestFrmMainStart : public QObject {
    Q_OBJECT
    QTemporaryDir root;
    QString app, tmp, temp;

    StartupEnv env()
    {
        StartupEnv e;
        e.programDir = app;
        e.executablePath = app + "/torvane";
        e.sleep = [](int) {};
        return e;
    }
    // Runs `act` on frmCfg once it is up as a modal dialog.
    void whenCfgShows(std::function<void(frmCfg*)> act)
    {
        auto* t = new QTimer(this);
        t->setInterval(20);
        connect(t, &QTimer::timeout, this, [t, act] {
            for (QWidget* w : QApplication::topLevelWidgets())
                if (auto* d = qobject_cast<frmCfg*>(w); d && d->isVisible()) {
                    t->stop();
                    t->deleteLater();
                    act(d);
                    return;
                }
        });
        t->start();
    }

private slots:
    void init()
    {
        app = root.path() + "/app";
        tmp = root.path() + "/tmp";
        temp = root.path() + "/temp";
        QDir(app).removeRecursively();
        for (const auto& d : {app, tmp, temp})
            QDir().mkpath(d);
        qputenv("TMP", tmp.toLocal8Bit());
        qputenv("TEMP", temp.toLocal8Bit());
        Cfg = CfgRecord{};
        CfgReady = 0;
        HardWare = 255;
    }

    void firstStartCancelledEndsWithTheFailureText()
    {
        tvtest::ScriptedMsgBox boxes;
        frmMain w;
        QString defaultsSeen;
        whenCfgShows([&](frmCfg* d) {
            defaultsSeen = QString::number(d->cbxDefEmuRun[0]->currentIndex()) + "|" +
                           d->txtImageDir[0]->text();
            d->cmdCancel->click();
        });
        QVERIFY(!w.Load(env()));
        QCOMPARE(defaultsSeen, QStringLiteral("0|"));
        QCOMPARE(boxes.calls().size(), size_t(1));
        QCOMPARE(boxes.calls()[0].caption, QStringLiteral("TORVANE.CFG がありません"));
        QVERIFY(w.Title());
        QCOMPARE(w.Title()->lblMsg1->text(), QStringLiteral("起動に失敗しました．．．"));
        QVERIFY(!w.isVisible());
        QVERIFY(!QFileInfo::exists(app + "/TORVBOOT"));
    }

    void firstStartFilledInComesUp()
    {
        tvtest::ScriptedMsgBox boxes;
        frmMain w;
        whenCfgShows([&](frmCfg* d) { d->cmdOK->click(); });
        QVERIFY(w.Load(env()));
        QVERIFY(QFile::exists(app + "/TORVANE.CFG"));
        QVERIFY(w.isVisible());
        QVERIFY(!w.Title()); // the splash is gone
        QCOMPARE(HardWare, uint8_t(0));
        QCOMPARE(w.cbxHardWare->currentIndex(), 0);
        w.close();
        QVERIFY(!QFileInfo::exists(app + "/TORVBOOT"));
    }

    void validCfgAppliesToTheWindow()
    {
        CfgRecord c;
        SetDefaultCfg(c);
        c.LastHardWare = 2;
        c.ViewScrCom = 1;
        c.ViewGrid = 1;
        c.FreeColName1 = "年代";
        QFile f(app + "/TORVANE.CFG");
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(EncodeCfg(c));
        f.close();
        tvtest::ScriptedMsgBox boxes;
        frmMain w;
        QVERIFY(w.Load(env()));
        QVERIFY(boxes.calls().empty());
        QCOMPARE(w.cbxHardWare->currentIndex(), 2);
        QCOMPARE(w.cbxHardWare->itemText(1), QStringLiteral("FM-7 & FM77AV"));
        QVERIFY(w.fraScrCom->isVisible());
        QVERIFY(w.lstD88->showGrid());
        QVERIFY(w.Menu("mnuViewScrCom")->isChecked());
        QCOMPARE(w.lstModel->headerData(3, Qt::Horizontal).toString(), QStringLiteral("年代"));
        QVERIFY(w.Menu("mnuOptionCfg")->isEnabled());
        QVERIFY(!w.Menu("mnuEditAddItem")->isEnabled());
        QVERIFY(w.findChild<QWidget*>("fraFotter(2)")->isVisible());
        QVERIFY(!w.findChild<QWidget*>("fraFotter(0)")->isVisible());
        w.close();
        CfgRecord back;
        QVERIFY(f.open(QIODevice::ReadOnly));
        DecodeCfg(f.readAll(), back);
        QCOMPARE(back.LastHardWare, uint8_t(2));
        QVERIFY(back.WinWidth > 0);
    }
    void settingsStoredFromTheMenuReachTheMainWindow()
    {
        CfgRecord c;
        SetDefaultCfg(c);
        c.LastHardWare = 1;
        QFile f(app + "/TORVANE.CFG");
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(EncodeCfg(c));
        f.close();
        const QString images = root.path() + "/images-fm7";
        QVERIFY(QDir().mkpath(images));
        tvtest::ScriptedMsgBox boxes;
        frmMain w;
        w.SetCatalogue(std::make_unique<MainCatalogue>());
        QVERIFY(w.Load(env()));
        auto* defOpt = w.findChild<QCheckBox*>("chkDefOpt(1)");
        auto* patUse = w.findChild<QCheckBox*>("chkPatUse(1)");
        QVERIFY(defOpt && patUse);
        QVERIFY(!defOpt->isChecked());
        QVERIFY(!patUse->isChecked());
        const QList<int> widthsBefore = {w.lstD88->columnWidth(0), w.lstD88->columnWidth(1)};

        whenCfgShows([&](frmCfg* d) {
            d->chkDefOpt[2]->setChecked(true); // mirrored to the other pages
            d->chkParUse[0]->setChecked(true);
            d->txtImageDir[1]->setText(images);
            d->cmdOK->click();
        });
        w.Menu("mnuOptionCfg")->trigger();
        QCOMPARE(Cfg.DefOpt, uint8_t(1));
        QVERIFY(defOpt->isChecked());
        QVERIFY(patUse->isChecked());
        QCOMPARE(w.statusBar()->currentMessage(), images);
        QCOMPARE(QList<int>({w.lstD88->columnWidth(0), w.lstD88->columnWidth(1)}), widthsBefore);
        w.close();
    }
    void settingsStoredRefreshTheSelectedTitle()
    {
        CfgRecord c;
        SetDefaultCfg(c);
        QFile f(app + "/TORVANE.CFG");
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(EncodeCfg(c));
        f.close();
        tvtest::LstFields t;
        t.title = QStringLiteral("ザルバード");
        t.start = QStringLiteral("XALBARD.D88");
        QVERIFY(tvtest::WriteBytes(app + "/TORVANE.LST",
                                   tvtest::LstHeaderBytes(0) + tvtest::MakeLstRecord(0, t)));
        const QString m88 = root.path() + "/m88";
        QVERIFY(QDir().mkpath(m88));
        QVERIFY(tvtest::WriteBytes(m88 + "/M88.EXE", "MZ"));
        tvtest::ScriptedMsgBox boxes;
        frmMain w;
        auto* cat = new MainCatalogue;
        w.SetCatalogue(std::unique_ptr<MainCatalogue>(cat));
        QVERIFY(w.Load(env()));
        QCOMPARE(w.lstD88->model()->rowCount(), 1);
        w.lstD88->setCurrentIndex(w.lstD88->model()->index(0, 0));
        w.lstD88->selectRow(0);
        cat->Ui()->ShowItemDetail();
        QPushButton* runM88 = cat->Ui()->cmdEmuRun(2);
        QVERIFY(runM88);
        QVERIFY(!runM88->isEnabled()); // M88 is not in use yet

        whenCfgShows([&](frmCfg* d) {
            d->Ctl<QCheckBox>("chkM88Use")->setChecked(true);
            d->Ctl<QLineEdit>("txtM88Dir")->setText(m88);
            d->cmdOK->click();
        });
        w.Menu("mnuOptionCfg")->trigger();
        QCOMPARE(Cfg.M88Use, uint8_t(1));
        QVERIFY(runM88->isEnabled());
        w.close();
    }
};

QTEST_MAIN(TestFrmMainStart)
#include "tst_frmmain_start.moc"
