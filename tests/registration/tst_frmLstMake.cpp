// A title entered and edited through the registration dialog as a user would, against a
// catalogue built byte by byte and a bare main window's list.
#include "adapters/OptionDialogs_ui.h"
#include "data/Cfg.h"
#include "data/EmuRegistry.h"
#include "data/clsLst.h"
#include "mainwindow/CatalogueUi.h"
#include "mainwindow/MainMenus.h"
#include "registration/frmLstMake.h"
#include "support/CatalogueBytes.h"
#include "support/ProcessState.h"
#include "support/ScriptedMsgBox.h"
#include "support/StubWindow.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <optional>

using namespace tv;

// Types text key by key as a keyboard with an input method would, Japanese included.
static void TypeText(QWidget* w, const QString& text)
{
    for (const QChar c : text)
        QTest::sendKeyEvent(QTest::Click, w, Qt::Key_unknown, QString(c), Qt::NoModifier);
}

class TstFrmLstMake : public QObject {
    Q_OBJECT
private:
    QTemporaryDir root;
    std::optional<tvtest::ProcessState> state;
    QMainWindow* win = nullptr;
    MainMenus menus;
    CatalogueWidgets w;
    CatalogueUi* ui = nullptr;
    std::optional<tvtest::StubWindow> window;
    QByteArray before;
    QString picked;

    static constexpr int kLen = 2284;

    tvtest::LstFields Existing(int i)
    {
        tvtest::LstFields f;
        f.title = i == 0 ? QStringLiteral("ザルバード") : QStringLiteral("イルマータ");
        f.start = i == 0 ? QStringLiteral("XALBARD.D88") : QStringLiteral("YULA.D88");
        f.jitu = f.start;
        return f;
    }
    QByteArray Record(int i) const
    {
        return tvtest::ReadBytes(AppDir + "/TORVANE.LST").mid(24 + i * kLen, kLen);
    }
    static int Opt() { return tvtest::LstLayoutOf(0).opt; }

private slots:
    void init()
    {
        QVERIFY(root.isValid());
        state.emplace();
        for (const char* d : {"app", "tmp", "img", "snap"})
            QDir(root.path()).mkpath(d);
        AppDir = root.path() + "/app";
        EnvTmpDir = EnvTempDir = root.path() + "/tmp";
        PeekDir = EnvTmpDir + "/TORVBOOT";
        WorkDir = AppDir + "/TORVBOOT";
        QDir().mkpath(WorkDir);
        WindowsDir = "/etc";
        SystemDir = "/usr";
        KeyPrefix = "K";
        TitleClosed = 1;
        SetDefaultCfg(Cfg);
        Cfg.ImageDir[0] = root.path() + "/img";
        Cfg.SnapDir[0] = root.path() + "/snap";
        Cfg.TxtIn = Cfg.TxtInConv = Cfg.ArcSerch = Cfg.ScrAutoRead = 0;
        Cfg.ColNonMakeFlag = 1;
        ResolveCfgDirs(Cfg);
        InitTables();
        QByteArray b = tvtest::LstHeaderBytes(0);
        for (int i = 0; i < 2; ++i)
            b += tvtest::MakeLstRecord(0, Existing(i));
        QVERIFY(tvtest::WriteBytes(AppDir + "/TORVANE.LST", b));
        before = b;
        HardWare = 0;
        win = new QMainWindow;
        w = CatalogueUi::BuildStandalone(win, &menus);
        window.emplace();
        ui = new CatalogueUi(w, win);
        ui->LoadList();
        picked.clear();
        frmLstMake::openFile = [this](const QString&, QWidget*) { return picked; };
    }
    void cleanup()
    {
        delete win;
        win = nullptr;
        window.reset();
        state.reset();
        QDir(root.path()).removeRecursively();
    }

    void newTitleAsAUser()
    {
        QVERIFY(tvtest::WriteBytes(ImageDir[0] + "/SORCER.D88", QByteArray(700, 's')));
        tvtest::ScriptedMsgBox boxes;
        frmLstMake dlg(0, ui);
        QCOMPARE(dlg.windowTitle(), QStringLiteral("アイテム編集"));
        QVERIFY(!dlg.cmdNew->isEnabled());
        TypeText(dlg.txtTitle, QStringLiteral("ソーサリアン"));
        dlg.cbxColFile[0]->setEditText(QStringLiteral("RPG"));
        TypeText(dlg.txtComment, QStringLiteral("剣と魔法"));
        picked = ImageDir[0] + "/SORCER.D88";
        QTest::mouseClick(dlg.cmdJituFile, Qt::LeftButton);
        QCOMPARE(dlg.txtJituFile->text(), QStringLiteral("SORCER.D88"));
        QCOMPARE(dlg.txtFileName->text(), QStringLiteral("SORCER.D88"));
        // A plain image: its second-disk controls stand disabled.
        QVERIFY(!dlg.chkArcCheck->isChecked());
        QVERIFY(!dlg.txtSecondFile->isEnabled());
        QVERIFY(!dlg.cmdSecondFile->isEnabled());
        QVERIFY(!dlg.lblSecondFile->isEnabled());
        QVERIFY(!dlg.chkReArcCheck[0]->isEnabled());
        QTest::mouseClick(dlg.cmdOK, Qt::LeftButton);
        QCOMPARE(dlg.result(), int(QDialog::Accepted));
        QCOMPARE(boxes.texts(), QStringList({"リストを登録しました"}));
        QCOMPARE(boxes.calls()[0].caption, QStringLiteral("TORVANE ( 3 Images )"));

        const QByteArray after = tvtest::ReadBytes(AppDir + "/TORVANE.LST");
        QCOMPARE(after.size(), before.size() + kLen);
        QCOMPARE(after.left(before.size()), before);
        tvtest::LstFields f;
        f.title = QStringLiteral("ソーサリアン");
        f.genre = QStringLiteral("RPG");
        f.comment = QStringLiteral("剣と魔法");
        f.jitu = QStringLiteral("SORCER.D88");
        f.start = QStringLiteral("SORCER.D88");
        QCOMPARE(Record(2).left(Opt()), tvtest::MakeLstRecord(0, f).left(Opt()));

        QCOMPARE(ui->model()->rowCount(), 3);
        const int row = ui->model()->rowOfSeek(25 + 2 * kLen);
        QVERIFY(row >= 0);
        QCOMPARE(ui->selectedRow(), row);
        QCOMPARE(ui->model()->index(row, 0).data().toString(), QStringLiteral("ソーサリアン"));
    }

    void editedRecordInPlace()
    {
        tvtest::ScriptedMsgBox boxes;
        const int32_t seek = 25 + kLen;
        frmLstMake dlg(seek, ui);
        QCOMPARE(dlg.txtTitle->text(), QStringLiteral("イルマータ"));
        QVERIFY(dlg.cmdNew->isEnabled());
        dlg.txtTitle->clear();
        TypeText(dlg.txtTitle, QStringLiteral("イルマータ改"));
        QTest::mouseClick(dlg.cmdApply, Qt::LeftButton);
        QCOMPARE(boxes.texts(), QStringList({"リストを更新しました"}));
        QCOMPARE(boxes.calls()[0].caption, QStringLiteral("TORVANE ( 2 Images )"));
        const QByteArray after = tvtest::ReadBytes(AppDir + "/TORVANE.LST");
        QCOMPARE(after.size(), before.size());
        QCOMPARE(Record(0), before.mid(24, kLen));
        tvtest::LstFields f = Existing(1);
        f.title = QStringLiteral("イルマータ改");
        QCOMPARE(Record(1), tvtest::MakeLstRecord(0, f));
        QCOMPARE(ui->model()->index(ui->model()->rowOfSeek(seek), 0).data().toString(),
                 QStringLiteral("イルマータ改"));
    }

    void validationKeepsTheDialogAndStoresNothing()
    {
        tvtest::ScriptedMsgBox boxes;
        frmLstMake dlg(0, ui);
        dlg.show();
        QTest::mouseClick(dlg.cmdOK, Qt::LeftButton);
        dlg.txtTitle->setText("T");
        QTest::mouseClick(dlg.cmdOK, Qt::LeftButton);
        dlg.txtJituFile->setText("X.D88");
        QTest::mouseClick(dlg.cmdOK, Qt::LeftButton);
        dlg.txtFileName->setText("X.D88");
        dlg.txtComment->setPlainText(QString(251, QLatin1Char('a')));
        QTest::mouseClick(dlg.cmdOK, Qt::LeftButton);
        QCOMPARE(
            boxes.texts(),
            QStringList({"ソフトのタイトルを入力してください！", "対象イメージを指定してください！",
                         "スタートファイル名を指定してください！",
                         "コメントは500バイト(半角500字、全角250字、改行2バイト含む)までです！"}));
        for (const auto& c : boxes.calls())
            QCOMPARE(c.flags, 48);
        QVERIFY(dlg.isVisible());
        QCOMPARE(tvtest::ReadBytes(AppDir + "/TORVANE.LST"), before);
        boxes.clear();
        dlg.txtComment->setPlainText(QString(250, QLatin1Char('a')));
        QTest::mouseClick(dlg.cmdOK, Qt::LeftButton);
        QCOMPARE(boxes.texts(), QStringList({"リストを登録しました"}));
    }

    void archiveSetsStartFileAndReArcFlag()
    {
        const QString src = root.path() + "/src";
        QDir().mkpath(src);
        QVERIFY(tvtest::WriteBytes(src + "/DISK1.D88", QByteArray(700, '1')));
        QVERIFY(tvtest::WriteBytes(src + "/DISK2.D88", QByteArray(700, '2')));
        QProcess zip;
        zip.setWorkingDirectory(src);
        zip.start("zip", {"-q", ImageDir[0] + "/GAME.ZIP", "DISK1.D88", "DISK2.D88"});
        QVERIFY(zip.waitForFinished());
        QCOMPARE(zip.exitCode(), 0);
        Cfg.ReArcCheck = 0;
        tvtest::ScriptedMsgBox boxes;
        frmLstMake dlg(0, ui);
        dlg.txtTitle->setText("Z");
        dlg.txtJituFile->setText(ImageDir[0] + "/GAME.ZIP");
        dlg.txtJituFile->setModified(true);
        emit dlg.txtJituFile->editingFinished();
        QCOMPARE(dlg.txtJituFile->text(), QStringLiteral("GAME.ZIP"));
        QVERIFY(dlg.chkArcCheck->isChecked());
        QCOMPARE(dlg.txtFileName->text(), QStringLiteral("DISK1.D88"));
        QVERIFY(dlg.cmdSecondFile->isEnabled());
        QVERIFY(QDir(WorkDir).isEmpty());
        dlg.chkReArcCheck[0]->setChecked(true);
        QVERIFY(dlg.chkReArcCheck[1]->isEnabled());
        QTest::mouseClick(dlg.cmdOK, Qt::LeftButton);
        QCOMPARE(boxes.texts(), QStringList({"リストを登録しました"}));
        const QByteArray rec = Record(2);
        const auto& l = tvtest::LstLayoutOf(0);
        QCOMPARE(int(uint8_t(rec[l.arc])), 1);
        QCOMPARE(int(uint8_t(rec[l.arc + 1])), 1);
    }

    void badTypedPath()
    {
        tvtest::ScriptedMsgBox boxes;
        frmLstMake dlg(0, ui);
        dlg.txtJituFile->setText("/no/such/dir/X.D88");
        dlg.txtJituFile->setModified(true);
        emit dlg.txtJituFile->editingFinished();
        QCOMPARE(boxes.texts(),
                 QStringList({"指定が間違っているか、ドライブが準備されていません"}));
        QVERIFY(dlg.txtFileName->text().isEmpty());
    }

    void optionButtonsByFamily()
    {
        tvtest::ScriptedMsgBox boxes;
        {
            frmLstMake dlg(0, ui);
            const char* captions[] = {"P88SR", "M88",   "PC88Win", "X88000", "QUASI88",
                                      "j80",   "-----", "-----",   "-----"};
            for (int n = 0; n < 9; ++n)
                QCOMPARE(dlg.cmdEmuOp[size_t(n)]->text(), QString::fromUtf8(captions[n]));
            QCOMPARE(dlg.cbxDefEmuRun->itemText(0), QStringLiteral("未設定!"));
            QCOMPARE(dlg.lblSecondFile->text(),
                     QStringLiteral("2番目以降のイメージ名（P88SRでのみ有効）"));
            QVERIFY(dlg.cmdEmuOp[1]->isEnabled()); // M88 has its dialog
            for (int n = 6; n < 9; ++n)
                QVERIFY(!dlg.cmdEmuOp[size_t(n)]->isEnabled());
            for (int n = 1; n <= 6; ++n) {
                const EmuRow* row = FindEmu(n);
                const bool has = OptionDialogTable().count(row->emu) != 0;
                QCOMPARE(dlg.cmdEmuOp[size_t(n - 1)]->isEnabled(), has);
                QCOMPARE(dlg.cmdEmuOp[size_t(n - 1)]->toolTip().isEmpty(), has);
            }
            // The M88 button opens its dialog on the title's block.
            QString opened;
            QTimer::singleShot(0, [&] {
                if (QWidget* m = QApplication::activeModalWidget()) {
                    opened = m->objectName();
                    m->close();
                }
            });
            QTest::mouseClick(dlg.cmdEmuOp[1], Qt::LeftButton);
            QCOMPARE(opened, QStringLiteral("frmM88Op"));
        }
        HardWare = 1;
        {
            frmLstMake dlg(0, nullptr);
            QCOMPARE(dlg.cmdEmuOp[0]->text(), QStringLiteral("XM7dos"));
            QCOMPARE(dlg.cmdEmuOp[3]->text(), QStringLiteral("-----"));
            QCOMPARE(dlg.cbxDefEmuRun->itemText(2), QStringLiteral("XM7 for Win32"));
            QCOMPARE(dlg.lblSecondFile->text(),
                     QStringLiteral("2番目指定イメージ名（XM7DOSのみ有効）"));
            dlg.cmdEmuOp_Click(1);
            dlg.cmdEmuOp_Click(5);
        }
        HardWare = 2;
        {
            frmLstMake dlg(0, nullptr);
            QCOMPARE(dlg.cmdEmuOp[1]->text(), QStringLiteral("Xmille設定"));
            QCOMPARE(dlg.cbxDefEmuRun->itemText(2), QStringLiteral("Xmillennium"));
            QCOMPARE(dlg.lblSecondFile->text(),
                     QStringLiteral("2番目指定イメージ名（WinX1以外有効）"));
            dlg.cmdEmuOp_Click(6);
        }
        QCOMPARE(boxes.texts(),
                 QStringList({"XM7dosはオプション設定できません", "FM7はオプション設定できません",
                              "X1はオプション設定できません"}));
    }

    void sideListsTakeUpNewTexts()
    {
        Cfg.ColNonMakeFlag = 0;
        tvtest::ScriptedMsgBox boxes;
        boxes.answer(MbResYes);
        frmLstMake dlg(0, ui);
        dlg.txtTitle->setText("T");
        dlg.txtJituFile->setText("T.D88");
        dlg.txtFileName->setText("T.D88");
        dlg.cbxColFile[1]->setEditText(QStringLiteral("ボーステック"));
        dlg.cbxColFile[0]->setEditText(QStringLiteral("RPG")); // already in the genres
        QTest::mouseClick(dlg.cmdOK, Qt::LeftButton);
        QCOMPARE(boxes.texts(),
                 QStringList({"リストを登録しました", "[ボーステック] を追加しますか？"}));
        QCOMPARE(dlg.cbxColFile[1]->findText(QStringLiteral("ボーステック")), 0);
    }

    void unwritableCatalogueKeepsRecords()
    {
        tvtest::ScriptedMsgBox boxes;
        frmLstMake dlg(0, ui);
        dlg.txtTitle->setText("T");
        dlg.txtJituFile->setText("T.D88");
        dlg.txtFileName->setText("T.D88");
        // The catalogue's directory goes away under the open dialog.
        const QString app = AppDir;
        AppDir = root.path() + "/gone";
        QTest::mouseClick(dlg.cmdOK, Qt::LeftButton);
        AppDir = app;
        QCOMPARE(boxes.texts().size(), 1);
        QVERIFY(boxes.texts()[0].endsWith(QStringLiteral(" に書き込めませんでした")));
        QVERIFY(dlg.result() != int(QDialog::Accepted));
        QCOMPARE(tvtest::ReadBytes(AppDir + "/TORVANE.LST"), before);
        QCOMPARE(ui->model()->rowCount(), 2);
    }
};

QTEST_MAIN(TstFrmLstMake)
#include "tst_frmLstMake.moc"
