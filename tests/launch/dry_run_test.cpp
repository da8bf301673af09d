// The dry run: the selected title's whole launch road with the process, the keys and the
// clipboard recorded instead of started, sent and set; the report of what a launch does and
// of what was restored. The test emulator is installed, so a process that were started by
// mistake would show in its log.
#include "data/Cfg.h"
#include "data/clsLst.h"
#include "launch/DryRun.h"
#include "support/LaunchFixture.h"
#include "support/ScriptedMsgBox.h"

#include <QClipboard>
#include <QGuiApplication>

using namespace tv;
using namespace tvtest;

namespace {

class DryRunTest : public LaunchFixture {
protected:
    void SetUp() override
    {
        LaunchFixture::SetUp();
        QGuiApplication::clipboard()->setText(QStringLiteral("利用者のテキスト"));
    }
    void TearDown() override
    {
        // Nothing was started: the test emulator never wrote its log.
        EXPECT_FALSE(QFile::exists(log_));
        EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("利用者のテキスト"));
        LaunchFixture::TearDown();
    }
};

// A window whose owner is asked for while an archive unpacks: it drops a stray file into the
// emulator's directory, as a launch that failed to clean up would leave one.
class LeakyWindow : public StubWindow {
public:
    QString stray;
    QObject* Owner() override
    {
        if (!stray.isEmpty())
            WriteFile(stray, "stray");
        return nullptr;
    }
};

} // namespace

TEST_F(DryRunTest, M88TitleIsStagedWrittenRecordedAndRestored)
{
    const QString dir = Emu(2);
    Cfg.M88CfgChk = 0;
    const QByteArray userIni("[M88p2 for Windows]\r\nFlags=1\r\n");
    ASSERT_TRUE(WriteFile(dir + "/M88.INI", userIni));
    ASSERT_TRUE(WriteFile(r_ + "/images/GAME.D88", Image()));
    Item(0, r_ + "/images/GAME.D88", "GAME.D88");

    ASSERT_EQ(Runners().count(tv::Emu::M88), 0u);
    const DryRunReport rep = DryRunSelected(tv::Emu::M88, RunnerSettings{});
    // The settings of the run were the emulator's only while it lasted.
    EXPECT_EQ(Runners().count(tv::Emu::M88), 0u);
    EXPECT_EQ(rep.refusal, "");
    EXPECT_TRUE(rep.titleSelected);
    ASSERT_TRUE(rep.emulatorStarted);
    EXPECT_EQ(rep.specified.text(), dir + "/M88.EXE GAME.D88");
    EXPECT_EQ(rep.currentDir, WorkDir);
    EXPECT_EQ(rep.workDirAtStart, QStringList({"GAME.D88"}));
    EXPECT_TRUE(rep.companions.empty());
    EXPECT_TRUE(rep.input.empty());
    // M88's configuration was rewritten for the run, its user's copy set aside.
    ASSERT_EQ(rep.written.size(), 2u);
    EXPECT_EQ(rep.written[0].path, dir + "/M88.INI");
    EXPECT_FALSE(rep.written[0].isNew);
    EXPECT_NE(rep.written[0].bytes, userIni);
    EXPECT_TRUE(rep.written[0].bytes.contains("[M88p2 for Windows]"));
    EXPECT_EQ(rep.written[1].path, dir + "/M88.ORG");
    EXPECT_TRUE(rep.written[1].isNew);
    EXPECT_EQ(rep.written[1].bytes, userIni);
    // The main window was left alone; what the launch asked of it is in the report.
    EXPECT_EQ(rep.windowSteps,
              QStringList({"状態表示「Emulator起動中．．」", "メインウィンドウを最小化",
                           "メインウィンドウを無効に", "メインウィンドウを有効に",
                           "メインウィンドウを元に戻す", "詳細表示を更新"}));
    EXPECT_FALSE(window_->calls.contains("MinimiseMain"));
    EXPECT_EQ(window_->statusText, "");
    // Everything back.
    EXPECT_TRUE(rep.workDirLeft.isEmpty());
    EXPECT_TRUE(rep.notRestored.isEmpty()) << rep.notRestored.join("\n").toStdString();
    EXPECT_EQ(ReadFile(dir + "/M88.INI"), userIni);
    EXPECT_FALSE(QFile::exists(dir + "/M88.ORG"));
    EXPECT_TRUE(WorkFiles().isEmpty());
    // The process-wide switches are back too.
    EXPECT_FALSE(SetInputRecordOnly(false));
    EXPECT_EQ(InstallProcessRecorder(nullptr), nullptr);
    EXPECT_EQ(InstalledWindow(), &*window_);
}

TEST_F(DryRunTest, GoldenTextsOfTheCommandViewAndTheReport)
{
    const QString dir = Emu(2);
    Cfg.M88CfgChk = 1; // the user's INI, corrected at the keys a launch depends on
    Cfg.M88AllScr = 1;
    ASSERT_TRUE(WriteFile(dir + "/M88.INI", "[M88p2 for Windows]\r\nFlags=0\r\n"));
    ASSERT_TRUE(WriteFile(r_ + "/images/GAME.T88", "tape"));
    Item(0, r_ + "/images/GAME.T88", "GAME.T88");
    LstObj.SetTitle(QStringLiteral("テープの題名"));
    RunnerSettings s;
    s.kind = RunnerKind::Direct;
    s.extraEnvironment = {"SDL_AUDIODRIVER=dummy"};

    const DryRunReport rep = DryRunSelected(tv::Emu::M88, s);
    ASSERT_TRUE(rep.emulatorStarted);
    // {D} stands for M88's directory, {W} for WorkDir, {T} for TMP; {I} for the size of M88's
    // corrected INI, whose lines hold the two directories in Wine's form ({WD}, {WW}).
    const auto wine = [](QString p) { return "Z:" + p.replace('/', '\\'); };
    const QString ini = "[M88p2 for Windows]\r\nFlags=2\r\nBIOSPath=" + wine(dir) +
                        "\r\nDirectory=" + wine(WorkDir) + "\r\n";
    const auto fill = [&](const char* text) {
        return QString::fromUtf8(text)
            .replace("{D}", dir)
            .replace("{WD}", wine(dir))
            .replace("{WW}", wine(WorkDir))
            .replace("{W}", WorkDir)
            .replace("{T}", EnvTmpDir)
            .replace("{I}", QString::number(ini.size()))
            .toStdString();
    };
    EXPECT_EQ(CommandViewText(rep).toStdString(),
              fill("コマンド表示: M88 — タイトル「テープの題名」\n"
                   "指定のコマンドライン:\n"
                   "  {D}/M88.EXE\n"
                   "作業ディレクトリ: {W}\n"
                   "ランナー: 直接\n"
                   "外側のコマンド:\n"
                   "  SDL_AUDIODRIVER=dummy {D}/M88.EXE\n"
                   "外側の作業ディレクトリ: {W}\n"
                   "出力の行き先: {T}/torvane-M88.log\n"
                   "Emulator のために書かれるファイル:\n"
                   "  {D}/M88.INI（変更、{I} バイト）\n"
                   "    [M88p2 for Windows]\n"
                   "    Flags=2\n"
                   "    BIOSPath={WD}\n"
                   "    Directory={WW}\n"
                   "  {D}/M88.ORG（利用者の設定の控え、30 バイト）\n"
                   "    [M88p2 for Windows]\n"
                   "    Flags=0\n"
                   "クリップボードとキー（順に）:\n"
                   "  クリップボード: GAME.T88\n"
                   "  キー: %TT^V%O\n"
                   "  キー: %{ENTER}\n"));
    EXPECT_EQ(DryRunReportText(rep).toStdString(),
              fill("試験起動: M88 — タイトル「テープの題名」\n"
                   "プロセス・キー・クリップボードは記録だけで、実際には何も起動していません。\n"
                   "1. TORVBOOT に用意されたファイル: GAME.T88\n"
                   "2. Emulator のために書かれたファイル: 2\n"
                   "  {D}/M88.INI（変更）\n"
                   "  {D}/M88.ORG（利用者の設定の控え）\n"
                   "3. 起動するコマンド（{W} で）:\n"
                   "  {D}/M88.EXE\n"
                   "  外側（直接）: SDL_AUDIODRIVER=dummy {D}/M88.EXE\n"
                   "4. クリップボードとキー:\n"
                   "  クリップボード: GAME.T88\n"
                   "  キー: %TT^V%O\n"
                   "  キー: %{ENTER}\n"
                   "メインウィンドウ: 状態表示「Emulator起動中．．」 → メインウィンドウを最小化 → "
                   "メインウィンドウを無効に → メインウィンドウを有効に → "
                   "メインウィンドウを元に戻す → 詳細表示を更新\n"
                   "後片付けの確認:\n"
                   "[OK] TORVBOOT は空です\n"
                   "[OK] Emulator のディレクトリ・スナップショット・イメージは元のとおりです"
                   "（4 ファイルをバイト単位で比較）\n"));
}

TEST_F(DryRunTest, XmilKeysAndClipboardAreRecordedNotSent)
{
    const QString dir = Emu(22);
    Cfg.XmilCfgChk = 0;
    ASSERT_TRUE(WriteFile(dir + "/Xmillennium.ini", "[Xmillennium]\r\n"));
    // The second disk travels beside the first in an archive.
    const QString arc = Archive("AB.ZIP", {{"A.D88", Image()}, {"B.D88", Image()}});
    Item(2, arc, "A.D88", 1, 0, "B.D88");

    const DryRunReport rep = DryRunSelected(tv::Emu::Xmil, RunnerSettings{});
    ASSERT_TRUE(rep.emulatorStarted) << rep.refusal.toStdString();
    ASSERT_EQ(rep.input.size(), 4u);
    EXPECT_EQ(rep.input[0].kind, InputRecord::Clip);
    EXPECT_EQ(rep.input[0].text, "A.D88");
    EXPECT_EQ(rep.input[1].kind, InputRecord::Keys);
    EXPECT_EQ(rep.input[1].text, "{F10}0O^V%O");
    EXPECT_EQ(rep.input[2].text, "B.D88");
    EXPECT_EQ(rep.input[3].text, "{F10}1O^V%O");
    for (const InputRecord& in : rep.input)
        EXPECT_FALSE(in.delivered);
    EXPECT_TRUE(rep.workDirLeft.isEmpty());
    EXPECT_TRUE(rep.notRestored.isEmpty()) << rep.notRestored.join("\n").toStdString();
    EXPECT_TRUE(rep.keptConfigs.isEmpty());
    EXPECT_EQ(ReadFile(dir + "/Xmillennium.ini"), "[Xmillennium]\r\n");
}

TEST_F(DryRunTest, WithoutATitleTheBareEmulatorIsRecorded)
{
    const QString dir = Emu(2);
    window_->hasSelectedItem = false;
    HardWare = 1; // the main window shows another family
    const DryRunReport rep = DryRunSelected(tv::Emu::M88, RunnerSettings{});
    EXPECT_EQ(rep.refusal, "");
    EXPECT_FALSE(rep.titleSelected);
    EXPECT_FALSE(rep.emulatorStarted);
    ASSERT_EQ(rep.companions.size(), 1u);
    EXPECT_EQ(rep.companions[0].program, dir + "/M88.EXE");
    EXPECT_EQ(rep.companions[0].workingDir, dir);
    EXPECT_EQ(HardWare, 1);
    EXPECT_EQ(CommandViewText(rep),
              "コマンド表示: M88 — タイトルの選択なし（Emulator のみの起動）\n"
              "Emulator だけを起動します（待たずに戻ります）:\n"
              "  " +
                  dir + "/M88.EXE（" + dir + " で）\n");
}

TEST_F(DryRunTest, RefusalsComeBeforeAnythingIsTouched)
{
    const QString dir = Emu(2);
    ASSERT_TRUE(WriteFile(r_ + "/images/GAME.D88", Image()));
    Item(1, r_ + "/images/GAME.D88", "GAME.D88"); // an FM-7 title is selected
    DryRunReport rep = DryRunSelected(tv::Emu::M88, RunnerSettings{});
    EXPECT_EQ(rep.refusal, "選択中のタイトルは M88 の機種のものではありません");
    EXPECT_EQ(DryRunReportText(rep), "試験起動: M88 — タイトル「」\n"
                                     "選択中のタイトルは M88 の機種のものではありません\n");

    Item(0, r_ + "/images/GAME.D88", "GAME.D88");
    ASSERT_TRUE(WriteFile(WorkDir + "/LEFT.D88", "left"));
    rep = DryRunSelected(tv::Emu::M88, RunnerSettings{});
    EXPECT_EQ(rep.refusal, "TORVBOOT にファイルが残っているため試験起動できません");
    EXPECT_EQ(WorkFiles(), QStringList({"LEFT.D88"}));
    EXPECT_EQ(ReadFile(WorkDir + "/LEFT.D88"), "left");
    EXPECT_FALSE(QFile::exists(dir + "/M88.ORG"));
}

TEST_F(DryRunTest, WhatIsNotRestoredIsReported)
{
    const QString dir = Emu(2);
    Cfg.M88CfgChk = 0;
    const QString arc = Archive("GAME.ZIP", {{"GAME.D88", Image()}});
    Item(0, arc, "GAME.D88", 1);
    window_.reset();
    LeakyWindow leaky;
    leaky.hasSelectedItem = true;
    leaky.stray = dir + "/STRAY.TMP";

    const DryRunReport rep = DryRunSelected(tv::Emu::M88, RunnerSettings{});
    ASSERT_TRUE(rep.emulatorStarted);
    EXPECT_EQ(rep.notRestored, QStringList({"増えた: " + dir + "/STRAY.TMP"}));
    // M88 had no configuration: the one the launch wrote stays, as after any launch.
    EXPECT_EQ(rep.keptConfigs, QStringList({dir + "/M88.INI"}));
    const QString text = DryRunReportText(rep);
    EXPECT_TRUE(text.endsWith("後片付けの確認:\n"
                              "[OK] TORVBOOT は空です\n"
                              "[NG] 元に戻っていません:\n"
                              "  増えた: " +
                              dir +
                              "/STRAY.TMP\n"
                              "[--] " +
                              dir +
                              "/M88.INI は元々なかったため、起動で書かれたものが"
                              "残ります（通常の起動と同じ）\n"))
        << text.toStdString();
}

TEST_F(DryRunTest, DosBoxRunnerFilesAreShownAndGoneAfterwards)
{
    const QString dir = Emu(21);
    const QString dosbox = r_ + "/bin/dosbox";
    ASSERT_TRUE(WriteFile(dosbox, "#!/bin/sh\nexit 0\n"));
    QFile::setPermissions(dosbox, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    ASSERT_TRUE(WriteFile(r_ + "/images/GAME.D88", Image()));
    Item(2, r_ + "/images/GAME.D88", "GAME.D88");
    RunnerSettings s;
    s.kind = RunnerKind::DosBox;
    s.dosboxProgram = dosbox;

    const DryRunReport rep = DryRunSelected(tv::Emu::X1r, s);
    ASSERT_TRUE(rep.emulatorStarted)
        << rep.refusal.toStdString() << rep.messages.join("\n").toStdString();
    ASSERT_TRUE(rep.outer.has_value());
    EXPECT_EQ(rep.outer->kind, RunnerKind::DosBox);
    EXPECT_EQ(rep.specified.program, dir + "/X1R.COM");
    EXPECT_EQ(rep.specified.argumentValues().last(), "GAME.D88");
    const QString priv = rep.outer->privateDir;
    ASSERT_FALSE(priv.isEmpty());
    // The private directory lived for the run only.
    EXPECT_FALSE(QFileInfo::exists(priv));
    const QString tail = rep.specified.argumentValues().join(' ');
    const QString view = CommandViewText(rep);
    const QString expected = "ランナー: DOSBox\n"
                             "外側のコマンド:\n"
                             "  " +
                             dosbox + " -userconf -conf " + priv +
                             "/dosbox.conf\n"
                             "外側の作業ディレクトリ: " +
                             priv + "\n";
    EXPECT_TRUE(view.contains(expected)) << view.toStdString();
    const QString files = "起動のために作るファイル（終了後に消します）:\n"
                          "  " +
                          priv + "/c → " + WorkDir +
                          "（リンク）\n"
                          "  " +
                          priv + "/d → " + dir +
                          "（リンク）\n"
                          "  " +
                          priv +
                          "/dosbox.conf\n"
                          "    [autoexec]\n"
                          "    mount c " +
                          priv +
                          "/c\n"
                          "    mount d " +
                          priv +
                          "/d\n"
                          "    c:\n"
                          "    d:\\X1R.COM " +
                          tail +
                          "\n"
                          "    exit\n";
    EXPECT_TRUE(view.contains(files)) << view.toStdString();
    EXPECT_TRUE(rep.workDirLeft.isEmpty());
    EXPECT_TRUE(rep.notRestored.isEmpty()) << rep.notRestored.join("\n").toStdString();
}

TEST_F(DryRunTest, MessagesOfTheRoadGoToTheReport)
{
    const QString dir = Emu(2);
    Item(0, r_ + "/images/MISSING.D88", "MISSING.D88");
    tvtest::ScriptedMsgBox boxes; // none may reach the user
    const DryRunReport rep = DryRunSelected(tv::Emu::M88, RunnerSettings{});
    EXPECT_TRUE(boxes.calls().empty());
    EXPECT_FALSE(rep.emulatorStarted);
    EXPECT_EQ(
        rep.messages,
        QStringList({"Emu実行エラー: 実行ファイルが不正です。 解凍エラー・もしくはコピーエラー"}));
    const QString text = DryRunReportText(rep);
    EXPECT_TRUE(text.contains(
        "Emulator の起動には至りませんでした。\n"
        "表示されたメッセージ:\n"
        "  Emu実行エラー: 実行ファイルが不正です。 解凍エラー・もしくはコピーエラー\n"))
        << text.toStdString();
    EXPECT_TRUE(rep.workDirLeft.isEmpty());
    EXPECT_FALSE(QFile::exists(dir + "/M88.ORG"));
}

TEST_F(DryRunTest, WineRunnerWithADriveTable)
{
    const QString dir = Emu(2);
    Cfg.M88CfgChk = 1;
    const QByteArray userIni("[M88p2 for Windows]\r\nFlags=0\r\n");
    ASSERT_TRUE(WriteFile(dir + "/M88.INI", userIni));
    const QString wine = r_ + "/bin/wine";
    ASSERT_TRUE(WriteFile(wine, "#!/bin/sh\nexit 0\n"));
    QFile::setPermissions(wine, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    ASSERT_TRUE(WriteFile(r_ + "/pfx/system.reg", "WINE REGISTRY\n"));
    ASSERT_TRUE(WriteFile(r_ + "/images/GAME.D88", Image()));
    Item(0, r_ + "/images/GAME.D88", "GAME.D88");
    RunnerSettings s;
    s.kind = RunnerKind::Wine;
    s.wineProgram = wine;
    s.winePrefix = r_ + "/pfx";
    s.driveTable = {"W:=" + WorkDir, "E:=" + dir};

    const DryRunReport rep = DryRunSelected(tv::Emu::M88, s);
    ASSERT_TRUE(rep.emulatorStarted)
        << rep.refusal.toStdString() << rep.messages.join("\n").toStdString();
    ASSERT_TRUE(rep.outer.has_value());
    EXPECT_EQ(rep.outer->shellLine(), "WINEPREFIX=" + r_ +
                                          "/pfx WINEDEBUG=-all LANG=ja_JP.UTF-8 "
                                          "LC_ALL=ja_JP.UTF-8 " +
                                          wine + " " + dir + "/M88.EXE GAME.D88");
    // The paths written for the emulator take the drive table's drives.
    ASSERT_FALSE(rep.written.empty());
    EXPECT_EQ(rep.written[0].path, dir + "/M88.INI");
    EXPECT_TRUE(rep.written[0].bytes.contains("BIOSPath=E:\\\r\n"))
        << rep.written[0].bytes.toStdString();
    EXPECT_TRUE(rep.written[0].bytes.contains("Directory=W:\\\r\n"))
        << rep.written[0].bytes.toStdString();
    EXPECT_TRUE(rep.notRestored.isEmpty()) << rep.notRestored.join("\n").toStdString();
    EXPECT_EQ(ReadFile(dir + "/M88.INI"), userIni);
}
