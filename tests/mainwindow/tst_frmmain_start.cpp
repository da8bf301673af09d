// The real main window through its start-up: a first start cancelled at frmCfg, a first start
// filled in, and a start with a valid configuration up to the shown window and its close.
#include "data/Cfg.h"
#include "mainwindow/CatalogueUi.h"
#include "mainwindow/MainCatalogue.h"
#include "mainwindow/frmMain.h"
#include "settings/frmCfg.h"
#include "util/Globals.h"
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
#include <QMenu>
#include <QPushButton>
#include <QStandardItemModel>
#include <QStatusBar>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTextEdit>
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
        QVERIFY(w.menus.mnuViewScrCom->isChecked());
        QCOMPARE(w.lstModel->headerData(3, Qt::Horizontal).toString(), QStringLiteral("年代"));
        QVERIFY(w.menus.mnuOptionCfg->isEnabled());
        QVERIFY(!w.menus.mnuEditAddItem->isEnabled());
        QVERIFY(w.findChild<QWidget*>("fraFotter(2)")->isVisible());
        QVERIFY(!w.findChild<QWidget*>("fraFotter(0)")->isVisible());
        w.close();
        CfgRecord back;
        QVERIFY(f.open(QIODevice::ReadOnly));
        DecodeCfg(f.readAll(), back);
        QCOMPARE(back.LastHardWare, uint8_t(2));
        QVERIFY(back.WinWidth > 0);
    }

    // With the catalogue installed: the remembered family and row come up, the run menu has
    // its nine entries captioned by family, the image directory is shown, and browsing writes
    // nothing to the catalogue.
    void catalogueComesUpWithTheRememberedRow()
    {
        QByteArray lst = tvtest::LstHeaderBytes(0);
        const char* titles[] = {"雪花物語", "魔導城アステリオン", "銀河探偵ミルフィ"};
        const char* starts[] = {"SETSUKA.D88", "ASTERION.T88", "MILFY.CMT"};
        for (int i = 0; i < 3; ++i) {
            tvtest::LstFields f;
            f.title = QString::fromUtf8(titles[i]);
            f.start = QString::fromLatin1(starts[i]);
            f.jitu = QStringLiteral("C:\\GAMES\\PC88\\") + QString::fromLatin1(starts[i]);
            lst += tvtest::MakeLstRecord(0, f);
        }
        QVERIFY(tvtest::WriteBytes(app + "/TORVANE.LST", lst));
        QDir().mkpath(app + "/images");
        CfgRecord c;
        SetDefaultCfg(c);
        c.LastHardWare = 0;
        c.LstSelectSave = 1;
        c.LstSelectPos = 25 + 2284;
        c.ImageDir[0] = app + "/images";
        QVERIFY(tvtest::WriteBytes(app + "/TORVANE.CFG", EncodeCfg(c)));

        tvtest::ScriptedMsgBox boxes;
        frmMain w;
        auto* cat = new MainCatalogue;
        w.SetCatalogue(std::unique_ptr<MainCatalogue>(cat));
        QVERIFY(w.Load(env()));
        QVERIFY(boxes.calls().empty());
        QCOMPARE(w.lstD88->model()->rowCount(), 3);
        QCOMPARE(w.SelectedKey(), QStringLiteral("K2309"));
        QVERIFY(
            w.txtSyosai->toPlainText().startsWith(QStringLiteral("[Title] 魔導城アステリオン")));
        QCOMPARE(w.windowTitle(), QStringLiteral("TORVANE　- Torvane for PC8801mk2SR on MS Windows "
                                                 "- ( 3 Images )"));
        QCOMPARE(w.txtHardImagePath->text(), app + "/images");
        QVERIFY(w.txtHardImagePath->isReadOnly());
        const char* family0[] = {"P88SR(&P)", "M88(&M)", "PC88Win(&W)", "X88000(&X)", "QUASI88(&Q)",
                                 "j80(&J)",   "-----",   "-----",       "-----"};
        for (int i = 1; i <= 9; ++i) {
            QAction* a = w.menus.runEntry(i);
            QVERIFY2(a, qPrintable(QString::number(i)));
            QCOMPARE(a->text(), QString::fromLatin1(family0[i - 1]));
            QCOMPARE(cat->Ui()->mnuPop(QStringLiteral("mnuPopEmuRunEach(%1)").arg(i))->text(),
                     QString::fromLatin1(family0[i - 1]));
        }
        w.cbxHardWare->setCurrentIndex(1);
        QCOMPARE(w.menus.runEntry(3)->text(), QStringLiteral("EM7(&7)"));
        QCOMPARE(w.menus.runEntry(4)->text(), QStringLiteral("-----"));
        QCOMPARE(w.SelectedKey(), QString()); // a later change of family selects nothing
        w.cbxHardWare->setCurrentIndex(0);
        QCOMPARE(w.SelectedKey(), QString());
        w.close();
        QCOMPARE(tvtest::ReadBytes(app + "/TORVANE.LST"), lst);
        QCOMPARE(tvtest::ReadBytes(app + "/TORVANE.LFM"), tvtest::LstHeaderBytes(1));
        QVERIFY(!QFileInfo::exists(app + "/TORVANE.LSB"));
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
        w.menus.mnuOptionCfg->trigger();
        QCOMPARE(Cfg.DefOpt, uint8_t(1));
        QVERIFY(defOpt->isChecked());
        QVERIFY(patUse->isChecked());
        QCOMPARE(w.txtHardImagePath->text(), images);
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
        w.menus.mnuOptionCfg->trigger();
        QCOMPARE(Cfg.M88Use, uint8_t(1));
        QVERIFY(runM88->isEnabled());
        w.close();
    }
};

QTEST_MAIN(TestFrmMainStart)
#include "tst_frmmain_start.moc"
