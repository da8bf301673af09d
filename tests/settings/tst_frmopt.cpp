// frmOpt: its pages and captions, the store's checks in order with nothing written on a
// failure, the filter order through the image file selection, the wait box's key filter, the
// main window's column headers after a store, and cancel dropping every click.
#include "adapters/common/frmOptionDialog.h"
#include "data/Cfg.h"
#include "mainwindow/frmMain.h"
#include "platform/Shell.h"
#include "registration/frmFileSelect.h"
#include "settings/frmOpt.h"
#include "support/GuardedDirs.h"
#include "support/ScriptedMsgBox.h"
#include "support/ScriptedPickers.h"
#include "support/StubWindow.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QStandardItemModel>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <QUrl>
#include <optional>

using namespace tv;

class TstFrmOpt : public QObject {
    Q_OBJECT
    std::optional<tvtest::GuardedDirs> dirs;
    std::optional<tvtest::StubWindow> window;
    QString cfgPath;

    QByteArray cfgBytes() const { return tvtest::ReadFile(cfgPath); }
    QString touch(const QString& rel)
    {
        const QString p = dirs->path(rel);
        if (!tvtest::WriteFile(p, "x"))
            return {};
        return p;
    }
    // Answers the image file selection that cmdFilter opens: one row down, then OK.
    static void moveFirstRowDownInFileSelect()
    {
        QTimer::singleShot(0, [] {
            auto* fs = qobject_cast<frmFileSelect*>(QApplication::activeModalWidget());
            QVERIFY(fs);
            QCOMPARE(fs->lblTitle->text(), QStringLiteral("フィルタオプションの設定"));
            fs->lstFileR->setCurrentRow(0);
            QTest::mouseClick(fs->cmdDown, Qt::LeftButton);
            QTest::mouseClick(fs->cmdOK, Qt::LeftButton);
        });
    }

private slots:
    void init()
    {
        dirs.emplace();
        QVERIFY(dirs->isValid());
        WorkDir = AppDir + "/TORVBOOT";
        InitTables();
        HardWare = 0;
        SetDefaultCfg(Cfg);
        QVERIFY(SaveCfg());
        cfgPath = AppDir + "/TORVANE.CFG";
        window.emplace();
    }
    void cleanup()
    {
        window.reset();
        dirs.reset();
    }

    void captionsPagesAndSwitches()
    {
        frmOpt d;
        QCOMPARE(d.windowTitle(), QStringLiteral("TORVANE ｵﾌﾟｼｮﾝ"));
        QCOMPARE(d.tbsOptions->count(), 3);
        QCOMPARE(d.tbsOptions->tabText(0), QStringLiteral("基本設定"));
        QCOMPARE(d.tbsOptions->tabText(1), QStringLiteral("拡張設定"));
        QCOMPARE(d.tbsOptions->tabText(2), QStringLiteral("フィルタ"));
        const QStringList names{"optLstSelectSave(0)",
                                "optLstSelectSave(1)",
                                "chkReArcCheck(0)",
                                "chkReArcCheck(1)",
                                "txtWinSendWait",
                                "updWinSendWait",
                                "chkScrAutoRead",
                                "chkArcSerch",
                                "chkScrSearchRead",
                                "chkWinChangeFlag",
                                "optWinAppearance(0)",
                                "optWinAppearance(1)",
                                "optDblClickProc(0)",
                                "optDblClickProc(1)",
                                "txtFreeColName1",
                                "txtFreeColName2",
                                "chkTaskIn",
                                "fraTaskIn",
                                "chkTaskRunForm",
                                "chkTxtIn",
                                "fraTxtIn",
                                "chkTxtInConv",
                                "txtJavaVMPath",
                                "cmdJavaVMPath",
                                "chkDefScrFlag",
                                "txtDefScrPath",
                                "cmdDefScr",
                                "imgDefScr",
                                "chkColNonMakeFlag",
                                "cbxFilter(5)",
                                "cmdFilter(5)",
                                "lblFilter(5)",
                                "fraOp(2)",
                                "cmdOK",
                                "cmdCancel",
                                "cmdApply",
                                "cmdHelpContext"};
        for (const QString& n : names)
            QVERIFY2(d.findChild<QWidget*>(n), qPrintable(n));
        QCOMPARE(d.chkTaskIn->text(), QStringLiteral("タスクトレイに常駐する"));
        QCOMPARE(d.chkTaskRunForm->text(), QStringLiteral("起動時 フォーム非表示"));
        QCOMPARE(d.chkArcSerch->text(), QStringLiteral("登録時、圧縮ﾌｧｲﾙを検査しない"));
        QCOMPARE(d.chkReArcCheck[1]->text(), QStringLiteral("[再圧縮確認]をチェック "));
        QCOMPARE(d.optDblClickProc[1]->text(), QStringLiteral("Default起動Emulator 起動"));
        QCOMPARE(d.lblFilter[3]->text(), QStringLiteral("書庫（圧縮） ファイル"));
        QCOMPARE(d.lblFilter[5]->text(), QStringLiteral("マニュアルドキュメント ファイル"));
        // The defaults of the record: the first option of each pair, the wait, the names.
        QVERIFY(d.optLstSelectSave[0]->isChecked());
        QVERIFY(d.optDblClickProc[0]->isChecked());
        QCOMPARE(d.txtWinSendWait->text(), QStringLiteral("750"));
        QCOMPARE(d.txtFreeColName1->text(), QStringLiteral("Free Col1"));
        // The frames follow their switches.
        QVERIFY(!d.fraTaskIn->isEnabled());
        d.chkTaskIn->click();
        QVERIFY(d.fraTaskIn->isEnabled());
        QCOMPARE(int(Cfg.TaskIn), 1);          // written to the record at once
        QVERIFY(cfgBytes() != EncodeCfg(Cfg)); // but not to the file
        // Ctrl+Tab walks the pages and wraps.
        d.show();
        for (int expected : {1, 2, 0}) {
            QTest::keyClick(&d, Qt::Key_Tab, Qt::ControlModifier);
            QCOMPARE(d.tbsOptions->currentIndex(), expected);
            QCOMPARE(d.pages->currentIndex(), expected);
        }
        // From inside a box too.
        d.tbsOptions->setCurrentIndex(1);
        d.txtFreeColName1->setFocus();
        QTest::keyClick(d.txtFreeColName1, Qt::Key_Tab, Qt::ControlModifier);
        QCOMPARE(d.tbsOptions->currentIndex(), 2);
        // The filter lists, column by column, from the table.
        QCOMPARE(d.cbxFilter[3]->count(), 4);
        QCOMPARE(d.cbxFilter[3]->itemText(0), QStringLiteral("LZH"));
        QCOMPARE(d.cbxFilter[5]->count(), 12);
    }

    void storeChecksInOrderAndWritesNothingOnAFailure()
    {
        tvtest::ScriptedMsgBox boxes;
        frmOpt d;
        const QByteArray before = cfgBytes();
        d.txtFreeColName1->clear();
        d.txtFreeColName2->clear();
        d.chkDefScrFlag->setChecked(true);
        d.txtDefScrPath->setText(dirs->path("nowhere.png"));

        d.txtJavaVMPath->setText(dirs->path("jre/bin/java"));
        QVERIFY(!d.Store());
        const QString notJava = touch("jre/bin/kava");
        d.txtJavaVMPath->setText(notJava);
        QVERIFY(!d.Store());
        d.txtJavaVMPath->setText(touch("jre/bin/java.bin"));
        QVERIFY(!d.Store());
        const QString java = touch("jre/bin/java");
        d.txtJavaVMPath->setText(java);
        QVERIFY(!d.Store());
        d.txtDefScrPath->setText(touch("pics/none.png"));
        QVERIFY(!d.Store()); // both names empty: only the first message
        d.txtFreeColName1->setText(QStringLiteral("媒体"));
        QVERIFY(!d.Store());
        QCOMPARE(boxes.texts(),
                 QStringList({"JavaVMが正しく指定されていません",
                              "JavaVMは java.exe,javaw.exe 以外は指定できません",
                              "JavaVMは java.exe,javaw.exe 以外は指定できません",
                              "ﾃﾞﾌｫﾙﾄｽｸﾘｰﾝｼｮｯﾄが正しく指定されていません",
                              "[任意カラム１名称]が空白です", "[任意カラム２名称]が空白です"}));
        for (const auto& c : boxes.calls())
            QCOMPARE(c.flags, 48);
        QCOMPARE(cfgBytes(), before);
        QVERIFY(window->calls.indexOf("CfgStored") < 0);

        boxes.clear();
        d.txtFreeColName2->setText(QStringLiteral("備考欄"));
        d.txtWinSendWait->clear(); // empty: the record's default
        Cfg.WinSendWait = 1000;
        QVERIFY(d.Store());
        QCOMPARE(boxes.texts(), QStringList{"設定を保存しました！"});
        QCOMPARE(boxes.calls()[0].flags, 64);
        QVERIFY(window->calls.contains("CfgStored"));
        CfgRecord stored;
        QVERIFY(ReadCfg(stored));
        QCOMPARE(VbTrim(stored.JavaVMPath), java);
        QCOMPARE(VbTrim(stored.FreeColName1), QStringLiteral("媒体"));
        QCOMPARE(VbTrim(stored.FreeColName2), QStringLiteral("備考欄"));
        QCOMPARE(int(stored.WinSendWait), 750);
        QCOMPARE(int(stored.DefScrFlag), 1);
    }

    void javaRuntimeNames()
    {
        QVERIFY(IsJavaRuntimeName("/usr/lib/jvm/bin/java"));
        QVERIFY(IsJavaRuntimeName("/opt/jre/bin/javaw"));
        QVERIFY(IsJavaRuntimeName("C:/jre/bin/JAVAW.EXE"));
        QVERIFY(IsJavaRuntimeName("/w/java.exe"));
        QVERIFY(!IsJavaRuntimeName("/w/java.sh"));
        QVERIFY(!IsJavaRuntimeName("/w/javac"));
        // An empty path is allowed: the runtime is then taken from the search path.
        tvtest::ScriptedMsgBox boxes;
        frmOpt d;
        d.txtJavaVMPath->clear();
        QVERIFY(d.Store());
        QCOMPARE(boxes.texts(), QStringList{"設定を保存しました！"});
    }

    void theBrowseButtonsFillTheirBoxes()
    {
        tvtest::ScriptedPickers pickers;
        const QString java = touch("jre/bin/java");
        pickers.file(java);
        pickers.file(QString()); // the picture dialog cancelled
        frmOpt d;
        d.txtDefScrPath->setText(QStringLiteral("/kept.png"));
        d.cmdJavaVMPath->click();
        d.cmdDefScr->click();
        QCOMPARE(d.txtJavaVMPath->text(), java);
        QCOMPARE(d.txtDefScrPath->text(), QStringLiteral("/kept.png"));
        QCOMPARE(pickers.calls,
                 QStringList({QStringLiteral("file:%1").arg(int(SelectKind::JavaVM)),
                              QStringLiteral("file:%1").arg(int(SelectKind::Picture))}));
    }

    void theFilterOrderGoesThroughTheFileSelectionIntoTheFile()
    {
        tvtest::ScriptedMsgBox boxes;
        frmOpt d;
        d.show();
        QCOMPARE(d.cbxFilter[4]->itemText(0), QStringLiteral("PNG"));
        moveFirstRowDownInFileSelect();
        d.cmdFilter[4]->click();
        QCOMPARE(d.cbxFilter[4]->itemText(0), QStringLiteral("JPG"));
        QCOMPARE(d.cbxFilter[4]->itemText(1), QStringLiteral("PNG"));
        QCOMPARE(int(Cfg.FilterOrder[0][4]), 2);
        QCOMPARE(int(Cfg.FilterOrder[1][4]), 1);
        d.cmdApply->click();
        // FilterOrder is at 11212 + row * 6 + column.
        const QByteArray file = cfgBytes();
        QCOMPARE(int(uint8_t(file[11212 + 0 * 6 + 4])), 2);
        QCOMPARE(int(uint8_t(file[11212 + 1 * 6 + 4])), 1);
        QVERIFY(d.isVisible()); // apply stays
        d.cmdOK->click();
        QVERIFY(!d.isVisible());
    }

    void cancelDropsEveryClick()
    {
        tvtest::ScriptedMsgBox boxes;
        const CfgRecord before = Cfg;
        const QByteArray file = cfgBytes();
        {
            frmOpt d;
            d.show();
            d.chkTxtIn->click();
            d.chkColNonMakeFlag->click();
            d.optDblClickProc[1]->click();
            d.chkReArcCheck[0]->click();
            moveFirstRowDownInFileSelect();
            d.cmdFilter[0]->click();
            QCOMPARE(int(Cfg.TxtIn), 1);
            QCOMPARE(int(Cfg.DblClickProc), 1);
            // The first button of the pair writes 0 back, as soon as it is clicked.
            d.optDblClickProc[0]->click();
            QCOMPARE(int(Cfg.DblClickProc), 0);
            d.optDblClickProc[1]->click();
            QCOMPARE(int(Cfg.FilterOrder[0][0]), 2);
            d.cmdCancel->click();
        }
        QCOMPARE(int(Cfg.TxtIn), int(before.TxtIn));
        QCOMPARE(int(Cfg.ColNonMakeFlag), int(before.ColNonMakeFlag));
        QCOMPARE(int(Cfg.DblClickProc), int(before.DblClickProc));
        QCOMPARE(int(Cfg.ReArcCheck), int(before.ReArcCheck));
        QCOMPARE(Cfg.FilterOrder, before.FilterOrder);
        QCOMPARE(EncodeCfg(Cfg), file);
        QVERIFY(boxes.texts().isEmpty());
    }

    void theWaitBoxTakesDigitsUpToItsMaximum()
    {
        frmOpt d;
        d.show();
        d.txtWinSendWait->clear();
        d.txtWinSendWait->setFocus();
        QTest::keyClicks(d.txtWinSendWait, QStringLiteral("2a0x00"));
        QCOMPARE(d.txtWinSendWait->text(), QStringLiteral("200"));
        d.txtWinSendWait->setText(QStringLiteral("150"));
        d.txtWinSendWait->setCursorPosition(0);
        QTest::keyClick(d.txtWinSendWait, Qt::Key_1); // 1501 judged as appended
        QCOMPARE(d.txtWinSendWait->text(), QStringLiteral("150"));
        QTest::keyClick(d.txtWinSendWait, Qt::Key_End);
        QTest::keyClick(d.txtWinSendWait, Qt::Key_0);
        QCOMPARE(d.txtWinSendWait->text(), QStringLiteral("1500"));
        d.updWinSendWait->stepBy(1);
        QCOMPARE(d.txtWinSendWait->text(), QStringLiteral("1500"));
        d.updWinSendWait->stepBy(-2);
        QCOMPARE(d.txtWinSendWait->text(), QStringLiteral("1450"));
    }

    void aStoreRenamesTheMainWindowsColumns()
    {
        tvtest::ScriptedMsgBox boxes;
        frmMain w;
        frmOpt d(&w);
        d.txtFreeColName1->setText(QStringLiteral("媒体"));
        d.txtFreeColName2->setText(QStringLiteral("枚数"));
        QVERIFY(d.Store());
        QCOMPARE(w.lstModel->headerData(3, Qt::Horizontal).toString(), QStringLiteral("媒体"));
        QCOMPARE(w.lstModel->headerData(4, Qt::Horizontal).toString(), QStringLiteral("枚数"));
    }

    void helpOpensTheDialogsTopic()
    {
        QVERIFY(tvtest::WriteFile(HelpFile, "<html></html>"));
        QList<QUrl> opened;
        UrlOpener previous = SetUrlOpener([&](const QUrl& u) {
            opened << u;
            return true;
        });
        frmOpt d;
        d.cmdHelpContext->click();
        SetUrlOpener(std::move(previous));
        QCOMPARE(opened.size(), 1);
        QCOMPARE(opened[0].fragment(), QStringLiteral("opt"));
    }

    void theMenuEntryOpensTheDialog()
    {
        frmMain w;
        QVERIFY(w.menus.mnuOptionTORVOp->isEnabled());
        QString seen;
        QTimer::singleShot(0, [&] {
            QWidget* m = QApplication::activeModalWidget();
            seen = m ? m->objectName() : QString();
            if (m)
                static_cast<frmOpt*>(m)->cmdCancel->click();
        });
        w.menus.mnuOptionTORVOp->trigger();
        QCOMPARE(seen, QStringLiteral("frmOpt"));
    }
};

QTEST_MAIN(TstFrmOpt)
#include "tst_frmopt.moc"
