// frmCfg: mirrored switches, enabling rules, the store and the re-read on cancel.
#include "adapters/OptionDialogs_ui.h"
#include "data/Cfg.h"
#include "settings/frmCfg.h"
#include "settings/frmDirSansyo.h"
#include "startup/ValidateCfg.h"
#include "support/ScriptedMsgBox.h"
#include "support/ScriptedPickers.h"
#include "support/StubWindow.h"
#include "util/Globals.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileSystemModel>
#include <QFrame>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>

#include "platform/Shell.h"
#include "util/SubFunction.h"

#include <QUrl>

using namespace tv;

class TestFrmCfg : public QObject {
    Q_OBJECT
    QTemporaryDir root;
    QString app, good;

    void touch(const QString& path)
    {
        QFile f(path);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write("MZ");
    }
    bool itemEnabled(QComboBox* c, int i)
    {
        return qobject_cast<QStandardItemModel*>(c->model())->item(i)->isEnabled();
    }

private slots:
    void init()
    {
        app = root.path() + "/app";
        good = root.path() + "/good";
        QDir().mkpath(app);
        QDir().mkpath(good);
        QFile::remove(app + "/TORVANE.CFG");
        AppDir = app;
        EnvTmpDir = root.path() + "/tmp";
        EnvTempDir = root.path() + "/temp";
        WindowsDir = "/etc";
        SystemDir = "/usr";
        PeekDir = EnvTmpDir + "/TORVBOOT";
        HardWare = 0;
        CfgReady = 0;
        SetDefaultCfg(Cfg);
        OptionDialogTable().clear();
    }

    void helpButtonOpensTheDialogsTopic()
    {
        InitTables();
        QFile f(HelpFile);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write("<html></html>");
        f.close();
        QList<QUrl> opened;
        UrlOpener previous = SetUrlOpener([&](const QUrl& u) {
            opened << u;
            return true;
        });
        frmCfg d;
        auto* help = d.Ctl<QPushButton>("cmdHelpContext");
        QVERIFY(help && help->isEnabled());
        help->click();
        SetUrlOpener(std::move(previous));
        QCOMPARE(opened.size(), 1);
        QCOMPARE(opened[0].fragment(), QStringLiteral("cfg"));
        QFile::remove(HelpFile);
    }

    void captionsAndPages()
    {
        frmCfg d;
        QCOMPARE(d.windowTitle(), QStringLiteral("Emulator基本設定"));
        QCOMPARE(d.tbsHardWare->count(), 3);
        QCOMPARE(d.tbsHardWare->tabText(0), QStringLiteral("PC-8x01"));
        QCOMPARE(d.tbsHardWare->tabText(2), QStringLiteral("X1"));
        QVERIFY(d.Ctl<QFrame>("fraHardWare(2)"));
        QCOMPARE(d.cbxDefEmuRun[0]->count(), 7);
        QCOMPARE(d.cbxDefEmuRun[1]->itemText(3), QStringLiteral("Em7 for Win32"));
        QCOMPARE(d.cbxDefEmuRun[2]->itemText(4), QStringLiteral("WinX1"));
        QCOMPARE(d.cbxDefEmuRun[2]->itemText(0), QStringLiteral("未設定"));
        QCOMPARE(d.Ctl<QCheckBox>("chkX1rUse")->text(),
                 QStringLiteral("X1EMU Real (X1R)を使用する"));
        QCOMPARE(d.Ctl<QCheckBox>("chkM88CfgChk")->text(), QStringLiteral("既存INI使用"));
        QCOMPARE(d.Ctl<QCheckBox>("chkQ88AllScr")->text(), QStringLiteral("全画面起動"));
        QCOMPARE(d.Ctl<QCheckBox>("chkXmilTUse")->text(), QStringLiteral("T・IkaTune常用"));
        QCOMPARE(d.Ctl<QPushButton>("cmdJ80File")->text(), QStringLiteral("ROM 設定"));
        QCOMPARE(d.Ctl<QPushButton>("cmdImageDir(1)")->text(), QStringLiteral("参照"));
        for (const char* n :
             {"txtP88SaveDir", "txtM88SaveDir", "txtQUASI88SaveDir", "txtXm7DosSaveDir",
              "txtXm7WinSaveDir", "txtXmilSaveDir", "txtWinX1SaveDir", "txtXmilTDir", "txtP88srOp",
              "txtX1rOp", "txtX1emuOp", "txtFmPanFile"})
            QVERIFY2(d.Ctl<QLineEdit>(n), n);
    }

    void defOptIsMirroredAndSavedOnlyWithTheDialog()
    {
        frmCfg d;
        d.chkDefOpt[1]->click();
        QVERIFY(d.chkDefOpt[0]->isChecked());
        QVERIFY(d.chkDefOpt[2]->isChecked());
        QCOMPARE(Cfg.DefOpt, uint8_t(0));
        d.chkDefOpt[2]->click();
        QVERIFY(!d.chkDefOpt[0]->isChecked());
        QVERIFY(!d.chkDefOpt[1]->isChecked());
        d.chkParUse[2]->click();
        QVERIFY(d.chkParUse[0]->isChecked());
    }

    void useFlagEnablesItsFrameAndListEntry()
    {
        frmCfg d;
        auto* use = d.Ctl<QCheckBox>("chkXm7WinUse");
        auto* fra = d.Ctl<QFrame>("fraXm7WinUse");
        QVERIFY(!fra->isEnabled());
        QVERIFY(!itemEnabled(d.cbxDefEmuRun[1], 2));
        QVERIFY(itemEnabled(d.cbxDefEmuRun[1], 0));
        use->click();
        QVERIFY(fra->isEnabled());
        QVERIFY(itemEnabled(d.cbxDefEmuRun[1], 2));
        use->click();
        QVERIFY(!fra->isEnabled());
    }

    void ikaTTuneAndPanFollowTheirFiles()
    {
        const QString wx = root.path() + "/winx1";
        QDir().mkpath(wx);
        Cfg.WinX1Use = 1;
        Cfg.WinX1IkaUse = 1;
        Cfg.WinX1Dir = wx;
        frmCfg d;
        auto* ika = d.Ctl<QCheckBox>("chkWinX1IkaUse");
        QVERIFY(!ika->isEnabled());
        QVERIFY(!ika->isChecked()); // cleared, since the Ika program isn't there
        touch(wx + "/WinX1_ika.exe");
        d.Ctl<QLineEdit>("txtWinX1Dir")->setText(wx + " ");
        QVERIFY(ika->isEnabled());

        d.Ctl<QCheckBox>("chkXmilUse")->click();
        auto* tuse = d.Ctl<QCheckBox>("chkXmilTUse");
        QVERIFY(!tuse->isEnabled());
        const QString xt = root.path() + "/xmilt";
        QDir().mkpath(xt);
        touch(xt + "/Xmillennium.exe");
        d.Ctl<QLineEdit>("txtXmilTDir")->setText(xt);
        QVERIFY(tuse->isEnabled());

        QVERIFY(!d.chkFmPanUse->isEnabled());
        touch(root.path() + "/FMPAN.D88");
        d.txtFmPanFile->setText(root.path() + "/FMPAN.D88");
        QVERIFY(d.chkFmPanUse->isEnabled());
    }

    void optionButtonsWaitForTheirDialogs()
    {
        {
            frmCfg d;
            QVERIFY(!d.Ctl<QPushButton>("cmdM88Op")->isEnabled());
            QCOMPARE(d.Ctl<QPushButton>("cmdM88Op")->text(), QStringLiteral("Def 設定"));
        }
        int opened = 0;
        OptionDialogTable()[tv::Emu::M88].open = [&](int, QWidget*) {
            ++opened;
            Cfg.CfgEmuOpt88.M88_1Op[0] = 5;
        };
        OptionDialogTable()[tv::Emu::P88sr].defaultsText = [] {
            return QStringLiteral("-x %1").arg(Cfg.CfgEmuOpt88.M88_1Op[0]);
        };
        frmCfg d;
        d.Ctl<QCheckBox>("chkM88Use")->click();
        auto* b = d.Ctl<QPushButton>("cmdM88Op");
        QVERIFY(b->isEnabled());
        b->click();
        QCOMPARE(opened, 1);
        QCOMPARE(d.Ctl<QLineEdit>("txtP88srOp")->text(), QStringLiteral("-x 5"));
    }

    // The browse buttons ask the pickers: an executable gives its directory, a directory
    // picker starts at the box's trimmed text, and a cancel leaves the box as it was.
    void browseButtonsAskThePickers()
    {
        tvtest::ScriptedPickers pickers;
        pickers.file(QStringLiteral("/opt/emu/m88/M88.EXE"));
        pickers.dir(good);
        frmCfg d;
        d.Ctl<QCheckBox>("chkM88Use")->click();
        d.Ctl<QPushButton>("cmdM88Dir")->click();
        QCOMPARE(d.Ctl<QLineEdit>("txtM88Dir")->text(), QStringLiteral("/opt/emu/m88"));
        d.txtImageDir[0]->setText(QStringLiteral(" /start "));
        d.Ctl<QPushButton>("cmdImageDir(0)")->click();
        QCOMPARE(d.txtImageDir[0]->text(), good);
        d.txtImageDir[1]->setText(QStringLiteral("/kept"));
        d.Ctl<QPushButton>("cmdImageDir(1)")->click();
        QCOMPARE(d.txtImageDir[1]->text(), QStringLiteral("/kept"));
        QCOMPARE(pickers.calls, QStringList({"file:1", "dir:/start", "dir:/kept"}));
    }

    void okStoresValidatesAndWrites()
    {
        tvtest::ScriptedMsgBox boxes;
        tvtest::StubWindow window;
        frmCfg d;
        d.txtImageDir[0]->setText("  " + good + " ");
        d.chkDefOpt[0]->click();
        d.cbxDefEmuRun[2]->setCurrentIndex(0);
        d.show();
        d.cmdOK->click();
        QVERIFY(window.calls.contains("CfgStored"));
        QCOMPARE(boxes.texts(), QStringList({QStringLiteral("設定を保存しました！")}));
        QVERIFY(QFile::exists(app + "/TORVANE.CFG"));
        QCOMPARE(CfgReady, uint8_t(1));
        QVERIFY(!d.isVisible());
        CfgRecord back;
        QFile f(app + "/TORVANE.CFG");
        QVERIFY(f.open(QIODevice::ReadOnly));
        DecodeCfg(f.readAll(), back);
        QCOMPARE(back.ImageDir[0].trimmed(), good);
        QCOMPARE(back.DefOpt, uint8_t(1));
        QCOMPARE(ImageDir[0], good);
    }

    void failedCheckKeepsTheDialogAndWritesNothing()
    {
        tvtest::ScriptedMsgBox boxes;
        frmCfg d;
        d.show();
        d.txtSnapDir[2]->setText(root.path() + "/missing");
        d.cmdOK->click();
        QVERIFY(d.isVisible());
        QVERIFY(d.CfgErrFlag());
        QCOMPARE(boxes.calls().size(), size_t(1));
        QCOMPARE(boxes.calls()[0].caption, QStringLiteral("ScreenShotﾃﾞｨﾚｸﾄﾘが不正"));
        QVERIFY(!QFile::exists(app + "/TORVANE.CFG"));
        d.reject();
    }

    void overlongPathIsRefusedBeforeTheRecord()
    {
        tvtest::ScriptedMsgBox boxes;
        frmCfg d;
        d.show();
        const QString longPath = "/" + QString(200, QChar(0x3042)); // 401 bytes in Shift-JIS
        d.Ctl<QLineEdit>("txtX1emuDir")->setText(longPath);
        d.cmdApply->click();
        QCOMPARE(boxes.texts(), QStringList({kPathTooLong}));
        QVERIFY(Cfg.X1emuDir.trimmed().isEmpty());
        QCOMPARE(d.tbsHardWare->currentIndex(), 2);
        QVERIFY(!QFile::exists(app + "/TORVANE.CFG"));
        d.reject();
    }

    void cancelReadsTheFileBack()
    {
        QVERIFY(SaveCfg());
        CfgReady = 1;
        tvtest::ScriptedMsgBox boxes;
        frmCfg d;
        d.show();
        Cfg.CfgEmuOpt88.M88_1Op[0] = 7; // a default option edited with "Def 設定"
        d.txtManDir[1]->setText(good);
        d.cmdCancel->click();
        QCOMPARE(Cfg.CfgEmuOpt88.M88_1Op[0], uint8_t(49));
        QVERIFY(Cfg.ManDir[1].trimmed().isEmpty());
        QCOMPARE(CfgReady, uint8_t(1));
        QVERIFY(boxes.calls().empty());
    }

    void dirPickerCreatesOnRequest()
    {
        tvtest::ScriptedMsgBox boxes;
        frmDirSansyo p;
        QCOMPARE(p.windowTitle(), QStringLiteral("ディレクトリの参照"));
        p.Start(root.path() + "/gone"); // a stored directory that no longer exists
        QCOMPARE(p.txtSansyoDir->text(), QDir::currentPath());
        p.Start(good);
        QCOMPARE(p.txtSansyoDir->text(), good);

        p.txtSansyoDir->setText(root.path() + "/new");
        boxes.answer(MbResNo);
        p.cmdOK_Click();
        QCOMPARE(p.result(), 0);
        QVERIFY(!QFileInfo::exists(root.path() + "/new"));
        QCOMPARE(boxes.calls().back().text,
                 QStringLiteral(
                     "指定したディレクトリは存在しません\n新しいディレクトリを作成しますか？"));
        QCOMPARE(boxes.calls().back().flags, 36);

        boxes.answer(MbResYes);
        p.cmdOK_Click();
        QVERIFY(QFileInfo(root.path() + "/new").isDir());
        QCOMPARE(p.Result(), root.path() + "/new");
    }

    void dirPickerOpensExpandedAtItsDirectory()
    {
        const QString deep = root.path() + "/a/b/c";
        QVERIFY(QDir().mkpath(deep));
        frmDirSansyo p;
        p.show();
        p.Start(deep);
        auto* model = qobject_cast<QFileSystemModel*>(p.dirSansyo->model());
        QVERIFY(model);
        // The tree comes down to the directory, every parent open, as the model reads them.
        QTRY_COMPARE(model->filePath(p.dirSansyo->currentIndex()), deep);
        for (const QString& d : {root.path(), root.path() + "/a", root.path() + "/a/b"})
            QTRY_VERIFY2(p.dirSansyo->isExpanded(model->index(d)), qPrintable(d));
        QCOMPARE(p.txtSansyoDir->text(), deep);
    }

    void dirPickerRefusesBadPaths()
    {
        tvtest::ScriptedMsgBox boxes;
        frmDirSansyo p;
        p.txtSansyoDir->setText(root.path() + "/no/parent");
        boxes.answer(MbResYes);
        p.cmdOK_Click();
        QCOMPARE(boxes.calls().back().text, QStringLiteral("無効なパス名です"));
        QVERIFY(p.Result().isEmpty());
        p.txtSansyoDir->setText("relative/dir");
        p.cmdOK_Click();
        QCOMPARE(boxes.calls().back().text, QStringLiteral("ドライブ名が無効です"));
        QCOMPARE(boxes.calls().back().flags, 48);
    }
    void dirPickerTakesTheHighlightedEntryOnEnterOrSpace()
    {
        tvtest::ScriptedMsgBox boxes;
        QDir().mkpath(good + "/sub1");
        QDir().mkpath(good + "/sub2");
        frmDirSansyo p;
        p.Start(good);
        p.show();
        QVERIFY(QTest::qWaitForWindowExposed(&p));
        auto* model = qobject_cast<QFileSystemModel*>(p.dirSansyo->model());
        QVERIFY(model);
        p.dirSansyo->setFocus();
        for (const auto& [key, name] : {std::pair{Qt::Key_Return, QStringLiteral("sub1")},
                                        std::pair{Qt::Key_Space, QStringLiteral("sub2")}}) {
            // The highlight moves without telling the text box; the key takes it.
            const QModelIndex idx = model->index(good + "/" + name);
            QVERIFY(idx.isValid());
            {
                const QSignalBlocker block(p.dirSansyo->selectionModel());
                p.dirSansyo->selectionModel()->setCurrentIndex(idx, QItemSelectionModel::NoUpdate);
            }
            p.txtSansyoDir->setText(good);
            QTest::keyClick(p.dirSansyo, key);
            QCOMPARE(p.txtSansyoDir->text(), good + "/" + name);
            QVERIFY(p.isVisible()); // the key doesn't close the picker
        }
        QVERIFY(boxes.calls().empty());
    }
};

QTEST_MAIN(TestFrmCfg)
#include "tst_frmcfg.moc"
