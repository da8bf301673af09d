// The image file selection and the side-list editor as a user works them.
#include "data/Cfg.h"
#include "data/SideList.h"
#include "registration/frmColEditor.h"
#include "registration/frmFileSelect.h"
#include "support/CatalogueBytes.h"
#include "support/ProcessState.h"
#include "support/ScriptedMsgBox.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <optional>

using namespace tv;

// Types text key by key as a keyboard with an input method would, Japanese included.
static void TypeText(QWidget* w, const QString& text)
{
    for (const QChar c : text)
        QTest::sendKeyEvent(QTest::Click, w, Qt::Key_unknown, QString(c), Qt::NoModifier);
}

class TstFrmFileSelect : public QObject {
    Q_OBJECT
private:
    QTemporaryDir root;
    std::optional<tvtest::ProcessState> state;
    QString arc;

    bool WorkEmpty() const
    {
        return QDir(WorkDir).isEmpty(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden);
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
        InitTables();
        HardWare = 0;
        const QString src = root.path() + "/src";
        for (const char* f : {"A.D88", "B.D88", "C.D88", "READ.TXT"})
            QVERIFY(tvtest::WriteBytes(src + "/" + f, QByteArray(300, f[0])));
        arc = root.path() + "/T.LZH";
        QProcess p;
        p.setWorkingDirectory(src);
        p.start("lha", {"a", arc, "A.D88", "B.D88", "C.D88", "READ.TXT"});
        QVERIFY(p.waitForFinished());
        QCOMPARE(p.exitCode(), 0);
    }
    void cleanup()
    {
        state.reset();
        QDir(root.path()).removeRecursively();
    }

    void startFileMode()
    {
        tvtest::ScriptedMsgBox boxes;
        frmFileSelect dlg(0, 0, arc, QString());
        QVERIFY(dlg.ready());
        QCOMPARE(dlg.windowTitle(), QStringLiteral("イメージファイルの選択"));
        QCOMPARE(dlg.lblTitle->text(), QStringLiteral("スタートファイルの指定"));
        QVERIFY(dlg.lstFileR->isHidden());
        QCOMPARE(dlg.lstFileL->count(), 3);
        QTest::mouseClick(dlg.cmdOK, Qt::LeftButton);
        QCOMPARE(boxes.texts(), QStringList({"ファイルを選択してください"}));
        dlg.lstFileL->setCurrentRow(1);
        QTest::mouseClick(dlg.cmdOK, Qt::LeftButton);
        QCOMPARE(dlg.chosen, QStringLiteral("B.D88"));
        QCOMPARE(dlg.result(), int(QDialog::Accepted));
        QVERIFY(WorkEmpty());
    }

    void furtherDisksMode()
    {
        frmFileSelect dlg(1, 0, arc, QStringLiteral("a.d88"));
        QVERIFY(dlg.ready());
        dlg.show();
        QCOMPARE(dlg.lblTitle->text(),
                 QStringLiteral("２番目以降のファイル順序\n(右側リストへの格納順)"));
        QCOMPARE(dlg.lstFileL->count(), 2); // the start file is left out
        QVERIFY(!dlg.cmdUp->isHidden());
        dlg.lstFileL->setCurrentRow(1);
        QTest::mouseClick(dlg.cmdRight, Qt::LeftButton);
        dlg.lstFileL->setCurrentRow(0);
        QTest::mouseClick(dlg.cmdRight, Qt::LeftButton);
        QCOMPARE(dlg.lstFileR->count(), 2);
        dlg.lstFileR->setCurrentRow(1);
        QTest::mouseClick(dlg.cmdUp, Qt::LeftButton);
        QTest::mouseClick(dlg.cmdOK, Qt::LeftButton);
        QCOMPARE(dlg.secondFiles, QStringLiteral("B.D88 C.D88"));
        QVERIFY(WorkEmpty());
    }

    void furtherDisksOutsidePc88HideTheOrder()
    {
        HardWare = 2;
        frmFileSelect dlg(1, 0, arc, QStringLiteral("A.D88"));
        QVERIFY(dlg.cmdUp->isHidden());
        QVERIFY(dlg.cmdDown->isHidden());
        dlg.reject();
        QVERIFY(WorkEmpty());
    }

    void manualMode()
    {
        frmFileSelect dlg(3, 0, arc, QString());
        QCOMPARE(dlg.lblTitle->text(), QStringLiteral("マニュアルドキュメントの指定"));
        QCOMPARE(dlg.lstFileL->count(), 1);
        dlg.lstFileL->setCurrentRow(0);
        QTest::mouseClick(dlg.cmdOK, Qt::LeftButton);
        QCOMPARE(dlg.chosen, QStringLiteral("READ.TXT"));
        QVERIFY(WorkEmpty());
    }

    void leftOverInWorkDirRefuses()
    {
        QVERIFY(tvtest::WriteBytes(WorkDir + "/OLD.D88", "x"));
        tvtest::ScriptedMsgBox boxes;
        frmFileSelect dlg(0, 0, arc, QString());
        QVERIFY(!dlg.ready());
        QCOMPARE(boxes.texts(), QStringList({"解凍用ディレクトリが不正です"}));
    }

    void filterOrderMode()
    {
        for (auto& row : Cfg.FilterOrder)
            row.fill(0);
        Cfg.FilterOrder[0][3] = 1;
        Cfg.FilterOrder[1][3] = 2;
        Cfg.FilterOrder[2][3] = 3;
        frmFileSelect dlg(2, 3, QString(), QString());
        dlg.show();
        QCOMPARE(dlg.lblTitle->text(), QStringLiteral("フィルタオプションの設定"));
        QVERIFY(dlg.lstFileL->isHidden());
        QCOMPARE(dlg.lstFileR->count(), 3);
        QCOMPARE(dlg.lstFileR->item(0)->text(), QStringLiteral("LZHﾌｧｲﾙ (*.LZH)"));
        QCOMPARE(dlg.lstFileR->currentRow(), 0);
        QTest::mouseClick(dlg.cmdDown, Qt::LeftButton);
        QTest::mouseClick(dlg.cmdOK, Qt::LeftButton);
        QCOMPARE(int(Cfg.FilterOrder[0][3]), 2);
        QCOMPARE(int(Cfg.FilterOrder[1][3]), 1);
        QCOMPARE(int(Cfg.FilterOrder[2][3]), 3);
    }

    void colEditorAddsAndRemoves()
    {
        Cfg.FreeColName1 = QStringLiteral("媒体");
        Cfg.FreeColName2 = QStringLiteral("備考欄");
        tvtest::ScriptedMsgBox boxes;
        frmColEditor dlg;
        QCOMPARE(dlg.lblFreeColName1->text(), QStringLiteral("媒体"));
        QCOMPARE(dlg.lblFreeColName2->text(), QStringLiteral("備考欄"));
        QCOMPARE(dlg.cbxColFile[0]->count(), 10);
        TypeText(dlg.cbxColFile[2]->lineEdit(), QStringLiteral("5インチ2D"));
        boxes.answer(MbResYes);
        QTest::mouseClick(dlg.cmdColFile[4], Qt::LeftButton);
        QCOMPARE(dlg.cbxColFile[2]->count(), 1);
        QCOMPARE(dlg.cbxColFile[2]->itemText(0), QStringLiteral("5インチ2D"));
        dlg.cbxColFile[0]->setEditText(QStringLiteral("ACT"));
        boxes.answer(MbResYes);
        QTest::mouseClick(dlg.cmdColFile[1], Qt::LeftButton);
        QCOMPARE(dlg.cbxColFile[0]->count(), 9);
        QCOMPARE(boxes.texts(),
                 QStringList({"[5インチ2D] を追加しますか？", "[ACT] を削除しますか？"}));
        // Typing is held to the list's width (20 bytes).
        dlg.cbxColFile[3]->lineEdit()->clear();
        TypeText(dlg.cbxColFile[3]->lineEdit(), QString(25, QLatin1Char('z')));
        QCOMPARE(dlg.cbxColFile[3]->currentText(), QString(20, QLatin1Char('z')));
    }
};

QTEST_MAIN(TstFrmFileSelect)
#include "tst_frmFileSelect.moc"
