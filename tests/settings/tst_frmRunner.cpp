// frmRunner: the emulators by family, the kind with its detection and warning, the fields of
// the kind, OK into the file and the table, Cancel dropping everything, the check with a
// scripted probe, a dry run from the dialog, and keyboard access.
#include "adapters/Adapters.h"
#include "data/Cfg.h"
#include "settings/frmRunner.h"
#include "support/GuardedDirs.h"
#include "support/ProcessState.h"
#include "support/ProgramBytes.h"
#include "support/ScriptedMsgBox.h"
#include "support/ScriptedPickers.h"
#include "support/ScriptedProbe.h"
#include "support/StubWindow.h"
#include "util/Globals.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <QTreeWidget>
#include <optional>

using namespace tv;

namespace {

void SetKind(frmRunner& d, RunnerKind k)
{
    d.cbxRunnerKind->setCurrentIndex(d.cbxRunnerKind->findData(int(k)));
}

} // namespace

class TstFrmRunner : public QObject {
    Q_OBJECT
    QTemporaryDir root;
    std::optional<tvtest::ProcessState> state;
    std::optional<tvtest::StubWindow> window;
    QString m88;

private slots:
    void initTestCase() { RegisterAdapters(); }

    void init()
    {
        QVERIFY(root.isValid());
        state.emplace();
        window.emplace();
        Runners().clear();
        AppDir = root.path() + "/app";
        WorkDir = AppDir + "/TORVBOOT";
        EnvTmpDir = EnvTempDir = root.path() + "/tmp";
        QDir().mkpath(WorkDir);
        QDir().mkpath(EnvTmpDir);
        QFile::remove(AppDir + "/TORVANE_RUNNER.INI");
        SetDefaultCfg(Cfg);
        Cfg.WinSendWait = 0;
        m88 = root.path() + "/m88";
        QDir().mkpath(m88);
        QVERIFY(tvtest::WriteFile(m88 + "/M88.EXE", tvtest::Pe32Exe()));
        Cfg.M88Dir = m88;
        Cfg.M88Use = 1;
    }
    void cleanup()
    {
        Runners().clear();
        window.reset();
        state.reset();
    }

    void emulatorsByFamilyAndControlNames()
    {
        frmRunner d;
        QCOMPARE(d.objectName(), QStringLiteral("frmRunner"));
        QCOMPARE(d.windowTitle(), QStringLiteral("ランナー設定"));
        const QList<QStringList> expected = {
            {"PC-8x01", "P88SR", "M88", "PC88Win", "X88000", "QUASI88", "j80"},
            {"FM-7 & FM77AV", "XM7 for DOS", "XM7 for Win32", "Em7 for Win32"},
            {"X1 & X1Turbo!", "X1R", "Xmillennium", "X1EMU", "WinX1"}};
        QCOMPARE(d.lstRunnerEmu->topLevelItemCount(), 3);
        for (int f = 0; f < 3; ++f) {
            QTreeWidgetItem* fam = d.lstRunnerEmu->topLevelItem(f);
            QStringList got{fam->text(0)};
            for (int i = 0; i < fam->childCount(); ++i)
                got << fam->child(i)->text(0);
            QCOMPARE(got, expected[f]);
        }
        QStringList kinds;
        for (int i = 0; i < d.cbxRunnerKind->count(); ++i)
            kinds << d.cbxRunnerKind->itemText(i);
        QCOMPARE(kinds, QStringList({"自動", "直接", "Wine", "DOSBox", "Java"}));
        for (const char* name : {"lstRunnerEmu",     "cbxRunnerKind",
                                 "lblRunnerDetect",  "lblRunnerWarn",
                                 "fraRunnerKind",    "txtWineProgram",
                                 "txtWinePrefix",    "chkWineJapanese",
                                 "txtWineDebug",     "txtWineDllOverrides",
                                 "txtWineDrives",    "txtDosBoxProgram",
                                 "cbxDosBoxFlavour", "txtJavaProgram",
                                 "txtJvmArguments",  "txtRunnerArgs",
                                 "txtRunnerEnv",     "cmdRunnerCheck",
                                 "cmdRunnerCommand", "cmdRunnerDryRun",
                                 "txtRunnerReport",  "cmdOK",
                                 "cmdCancel",        "cmdWineProgram",
                                 "cmdWinePrefix",    "cmdDosBoxProgram",
                                 "cmdJavaProgram"})
            QVERIFY2(d.findChild<QWidget*>(QLatin1String(name)), name);
        // Every control the user reaches carries a name.
        for (QWidget* w : d.findChildren<QWidget*>())
            if (w->focusPolicy() != Qt::NoFocus && !w->objectName().startsWith("qt_") &&
                w->parentWidget() && !qobject_cast<QAbstractScrollArea*>(w->parentWidget()) &&
                !w->inherits("QComboBoxPrivateContainer") && w->isWindow() == false)
                QVERIFY2(!w->objectName().isEmpty(), w->metaObject()->className());
    }

    void kindShowsDetectionWarningAndFields()
    {
        frmRunner d;
        d.show();
        d.selectEmu(Emu::M88);
        QCOMPARE(d.currentEmu(), Emu::M88);
        QCOMPARE(d.lblRunnerDetect->text(),
                 QStringLiteral("判定: Windows のプログラム (PE, 32ビット) → Wine"));
        QCOMPARE(d.cbxRunnerKind->currentText(), QStringLiteral("自動"));
        QVERIFY(!d.lblRunnerWarn->isVisible());
        QCOMPARE(d.fraRunnerKind->currentIndex(), 1); // Wine's fields for 自動
        QVERIFY(d.chkWineJapanese->isChecked());
        QCOMPARE(d.txtWineDebug->text(), QStringLiteral("-all"));

        SetKind(d, RunnerKind::DosBox);
        QVERIFY(d.lblRunnerWarn->isVisible());
        QCOMPARE(
            d.lblRunnerWarn->text(),
            QStringLiteral("⚠ ヘッダは Windows のプログラム (PE) です。DOSBox では起動できません"));
        QCOMPARE(d.fraRunnerKind->currentIndex(), 2);
        SetKind(d, RunnerKind::Java);
        QCOMPARE(d.fraRunnerKind->currentIndex(), 3);
        SetKind(d, RunnerKind::Direct);
        QCOMPARE(d.fraRunnerKind->currentIndex(), 0);
        SetKind(d, RunnerKind::Wine);
        QVERIFY(!d.lblRunnerWarn->isVisible());
        QCOMPARE(d.fraRunnerKind->currentIndex(), 1);

        // An emulator whose directory isn't set: nothing to read.
        d.selectEmu(Emu::X1r);
        QCOMPARE(d.lblRunnerDetect->text(), QStringLiteral("判定: プログラムがありません → 直接"));
    }

    void okWritesTheFileAndTheTable()
    {
        tvtest::ScriptedMsgBox boxes;
        frmRunner d;
        d.selectEmu(Emu::M88);
        SetKind(d, RunnerKind::Wine);
        d.txtWinePrefix->setText(" /srv/wine-m88 ");
        d.txtWineDrives->setPlainText("D:=/srv/images\n\n");
        d.txtRunnerEnv->setPlainText("WINEESYNC=1");
        d.selectEmu(Emu::X1r);
        SetKind(d, RunnerKind::DosBox);
        d.cbxDosBoxFlavour->setCurrentIndex(1);
        // Back and forth keeps what was typed.
        d.selectEmu(Emu::M88);
        QCOMPARE(d.txtWinePrefix->text(), QStringLiteral("/srv/wine-m88"));
        QTest::mouseClick(d.cmdOK, Qt::LeftButton);
        QCOMPARE(d.result(), int(QDialog::Accepted));
        QVERIFY(boxes.calls().empty());
        QCOMPARE(tvtest::ReadFile(AppDir + "/TORVANE_RUNNER.INI"),
                 QByteArray("; TORVANE runner settings (UTF-8): one section per emulator\n"
                            "\n"
                            "[M88]\n"
                            "kind=wine\n"
                            "wineprefix=/srv/wine-m88\n"
                            "drive=D:=/srv/images\n"
                            "env=WINEESYNC=1\n"
                            "\n"
                            "[X1r]\n"
                            "kind=dosbox\n"
                            "dosboxflavour=staging\n"));
        QCOMPARE(Runners().size(), size_t(2));
        QCOMPARE(RunnerOf(Emu::M88).winePrefix, QStringLiteral("/srv/wine-m88"));
        QCOMPARE(RunnerOf(Emu::X1r).dosboxFlavour, DosBoxFlavour::Staging);
    }

    void cancelDropsEverything()
    {
        Runners()[Emu::M88].kind = RunnerKind::Java;
        const RunnerTable before = Runners();
        frmRunner d;
        d.selectEmu(Emu::M88);
        QCOMPARE(d.cbxRunnerKind->currentText(), QStringLiteral("Java"));
        SetKind(d, RunnerKind::Wine);
        d.txtWinePrefix->setText("/x");
        QTest::mouseClick(d.cmdCancel, Qt::LeftButton);
        QCOMPARE(d.result(), int(QDialog::Rejected));
        QVERIFY(Runners() == before);
        QVERIFY(!QFile::exists(AppDir + "/TORVANE_RUNNER.INI"));
    }

    void aFileThatCannotBeWrittenIsToldAndTheDialogStays()
    {
        AppDir = root.path() + "/missing";
        tvtest::ScriptedMsgBox boxes;
        frmRunner d;
        d.show();
        SetKind(d, RunnerKind::Direct);
        QTest::mouseClick(d.cmdOK, Qt::LeftButton);
        QVERIFY(d.isVisible());
        QCOMPARE(boxes.calls().size(), size_t(1));
        QCOMPARE(boxes.calls()[0].text, QStringLiteral("ランナー設定を保存できませんでした。\n") +
                                            AppDir + "/TORVANE_RUNNER.INI");
        QCOMPARE(boxes.calls()[0].flags, 48);
        QVERIFY(Runners().empty());
    }

    void checkPutsItsReportInTheDialog()
    {
        tvtest::ScriptedProbe probe;
        probe.answer("/opt/wine --version", "wine-8.0\n");
        probe.answer("locale -a", "ja_JP.UTF-8\n");
        probe.file("/usr/lib/i386-linux-gnu/wine");
        frmRunner d;
        d.selectEmu(Emu::M88);
        d.txtWineProgram->setText("/opt/wine");
        d.txtWinePrefix->setText(root.path() + "/pfx");
        QTest::mouseClick(d.cmdRunnerCheck, Qt::LeftButton);
        QCOMPARE(d.txtRunnerReport->toPlainText(),
                 "M88 の確認（ランナー: Wine、自動判定）\n"
                 "プログラム: " +
                     m88 +
                     "/M88.EXE — Windows のプログラム (PE, 32ビット)\n"
                     "[OK] Wine: wine-8.0\n"
                     "[--] winepath: プレフィックス " +
                     root.path() +
                     "/pfx は未作成です"
                     "（最初の起動で作成されます）。TORVANE の形: Z:" +
                     QString(WorkDir).replace('/', '\\') +
                     "\n"
                     "[OK] 日本語ロケール ja_JP.UTF-8 があります\n"
                     "[OK] 32ビット用 Wine があります (/usr/lib/i386-linux-gnu/wine)\n");
    }

    void dryRunFromTheDialogStartsNothing()
    {
        window->hasSelectedItem = false;
        HardWare = 0;
        Runners()[Emu::M88].winePrefix = root.path() + "/pfx";
        frmRunner d;
        d.selectEmu(Emu::M88);
        // Through Wine, the prefix would be prepared first: not in a dry run.
        QTest::mouseClick(d.cmdRunnerDryRun, Qt::LeftButton);
        QCOMPARE(d.txtRunnerReport->toPlainText(),
                 "試験起動: M88 — タイトルの選択なし（Emulator のみの起動）\n"
                 "Wine の環境 " +
                     root.path() +
                     "/pfx はまだ準備されていません。最初の起動で"
                     " wineboot -i が準備します（試験起動では準備しません）\n");
        // Directly, the bare emulator's start is recorded.
        QFile::setPermissions(m88 + "/M88.EXE",
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        SetKind(d, RunnerKind::Direct);
        QTest::mouseClick(d.cmdRunnerDryRun, Qt::LeftButton);
        const QString text = d.txtRunnerReport->toPlainText();
        QVERIFY2(text.startsWith(
                     "試験起動: M88 — タイトルの選択なし（Emulator のみの起動）\n"
                     "プロセス・キー・クリップボードは記録だけで、実際には何も起動していません。\n"
                     "Emulator の起動には至りませんでした。\n"
                     "一緒に起動するもの:\n"
                     "  " +
                     m88 + "/M88.EXE（" + m88 + " で）\n"),
                 qPrintable(text));
        QVERIFY2(
            text.endsWith("[OK] TORVBOOT は空です\n"
                          "[OK] Emulator のディレクトリ・スナップショット・イメージは元のとおりです"
                          "（1 ファイルをバイト単位で比較）\n"),
            qPrintable(text));
        QTest::mouseClick(d.cmdRunnerCommand, Qt::LeftButton);
        QCOMPARE(d.txtRunnerReport->toPlainText(),
                 "コマンド表示: M88 — タイトルの選択なし（Emulator のみの起動）\n"
                 "Emulator だけを起動します（待たずに戻ります）:\n"
                 "  " +
                     m88 + "/M88.EXE（" + m88 + " で）\n");
    }

    void browseButtonsFillTheFields()
    {
        tvtest::ScriptedPickers pickers;
        pickers.file("/opt/wine/bin/wine");
        pickers.dir(root.path() + "/pfx");
        pickers.file(""); // cancelled
        pickers.file("/usr/lib/jvm/bin/java");
        frmRunner d;
        d.selectEmu(Emu::M88);
        d.txtWinePrefix->setText("/start");
        QTest::mouseClick(d.cmdWineProgram, Qt::LeftButton);
        QTest::mouseClick(d.cmdWinePrefix, Qt::LeftButton);
        d.txtDosBoxProgram->setText("dosbox-x");
        QTest::mouseClick(d.cmdDosBoxProgram, Qt::LeftButton);
        QTest::mouseClick(d.cmdJavaProgram, Qt::LeftButton);
        QCOMPARE(d.txtWineProgram->text(), QStringLiteral("/opt/wine/bin/wine"));
        QCOMPARE(d.txtWinePrefix->text(), root.path() + "/pfx");
        QCOMPARE(d.txtDosBoxProgram->text(), QStringLiteral("dosbox-x"));
        QCOMPARE(d.txtJavaProgram->text(), QStringLiteral("/usr/lib/jvm/bin/java"));
        const QString program = QStringLiteral("file:%1").arg(int(SelectKind::RunnerProgram));
        QCOMPARE(pickers.calls, QStringList({program, "dir:/start", program, program}));
        QCOMPARE(SelectFileFilter(SelectKind::RunnerProgram).display,
                 QStringLiteral("プログラム (*)"));
    }

    void keyboardReachesTheFields()
    {
        frmRunner d;
        d.show();
        d.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&d));
        d.selectEmu(Emu::M88);
        QTest::keyClick(&d, Qt::Key_K, Qt::AltModifier);
        QCOMPARE(QApplication::focusWidget(), d.cbxRunnerKind);
        QTest::keyClick(&d, Qt::Key_P, Qt::AltModifier);
        QCOMPARE(QApplication::focusWidget(), d.txtWinePrefix);
        QTest::keyClick(&d, Qt::Key_E, Qt::AltModifier);
        QCOMPARE(QApplication::focusWidget(), d.lstRunnerEmu);
        // Down in the list moves to the next emulator.
        QTest::keyClick(d.lstRunnerEmu, Qt::Key_Down);
        QCOMPARE(d.currentEmu(), Emu::PC88Win);
        QTest::keyClick(&d, Qt::Key_Escape);
        QCOMPARE(d.result(), int(QDialog::Rejected));
    }
};

QTEST_MAIN(TstFrmRunner)
#include "tst_frmRunner.moc"
