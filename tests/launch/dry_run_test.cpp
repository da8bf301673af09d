// The dry run: the selected title's whole launch road with the process, the keys and the
// clipboard recorded instead of started, sent and set; the report of what a launch does and
// of what was restored. The test emulator is installed, so a process that were started by
// mistake would show in its log.
#include "data/Cfg.h"
#include "data/clsLst.h"
#include "launch/DryRun.h"
#include "support/LaunchFixture.h"

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

    const DryRunReport rep = DryRunSelected(tv::Emu::M88, RunnerSettings{});
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

TEST_F(DryRunTest, XmilKeysAndClipboardAreRecordedNotSent)
{
    Emu(22);
    Cfg.XmilCfgChk = 0;
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
    const QString text = DryRunReportText(rep);
    EXPECT_TRUE(text.endsWith("後片付けの確認:\n"
                              "[OK] TORVBOOT は空です\n"
                              "[NG] 元に戻っていません:\n"
                              "  増えた: " +
                              dir + "/STRAY.TMP\n"))
        << text.toStdString();
}
