// The edges of a launch on this desktop: an emulator that can't be started is told and
// everything the launch did is undone; a stale ".ORG" is kept before it goes; names that the
// program didn't choose (catalogued images, archive members, files an emulator writes) mean
// only themselves, whatever characters they hold.
#include "adapters/Adapters.h"
#include "data/Cfg.h"
#include "launch/EmuAdapter.h"
#include "launch/Launch.h"
#include "launch/Runner.h"
#include "launch/StartFailure.h"
#include "support/LaunchFixture.h"
#include "support/ScriptedMsgBox.h"
#include "support/TestEmu.h"
#include "util/Globals.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

using namespace tv;
using namespace tvtest;

namespace {

const QByteArray kUserM88Ini("[M88p2 for Windows]\r\nFlags=1\r\nMine=yes\r\n");
const QString kStartFailed = QStringLiteral("エミュレータを起動できませんでした。\r\n\r\n");

class LaunchEdges : public LaunchFixture {
protected:
    void SetUp() override
    {
        LaunchFixture::SetUp();
        Cfg.X88CfgChk = 1; // no switches: the image is the only argument
        Cfg.M88CfgChk = 0; // M88 gets a configuration written for the title
        Cfg.Xm7WinCfgChk = 0;
        // These launches start their programs directly: left on 自動, the test programs' "MZ"
        // headers would hand them to DOSBox, which would run them.
        for (const EmuRow& row : EmuRows())
            Runners()[row.emu].kind = RunnerKind::Direct;
    }
    void TearDown() override
    {
        Runners().clear();
        LaunchFixture::TearDown();
    }

    QString Plain(const QString& name, const QByteArray& bytes = Image())
    {
        const QString path = r_ + "/images/" + name;
        EXPECT_TRUE(WriteFile(path, bytes));
        return path;
    }

    QStringList SnapFiles()
    {
        return QDir(r_ + "/snap").entryList(QDir::NoDotAndDotDot | QDir::AllEntries);
    }

    // A start that failed for `cause`: one critical box under "Emu実行エラー" naming `exe`, and
    // the launch taken back: the user's M88.INI under its name, no M88.ORG, WorkDir empty, the
    // window enabled again and the detail pane shown anew.
    void ExpectM88StartFailureUndone(const ScriptedMsgBox& box, const QString& dir,
                                     const QString& cause)
    {
        ASSERT_EQ(box.calls().size(), 1u);
        EXPECT_EQ(box.calls()[0].flags, 16);
        EXPECT_EQ(box.calls()[0].caption, QStringLiteral("Emu実行エラー"));
        EXPECT_EQ(box.calls()[0].text, kStartFailed + dir + "/M88.EXE\r\n\r\n" + cause);
        EXPECT_EQ(ReadFile(dir + "/M88.INI"), kUserM88Ini);
        EXPECT_FALSE(QFileInfo::exists(dir + "/M88.ORG"));
        EXPECT_TRUE(WorkFiles().isEmpty());
        EXPECT_TRUE(window_->calls.lastIndexOf("Enable") > window_->calls.lastIndexOf("Disable"));
        EXPECT_EQ(window_->refreshed, 1);
    }

    // The window's calls from the minimise on.
    QStringList WindowCallsAfterMinimise()
    {
        const qsizetype at = window_->calls.indexOf("MinimiseMain");
        return at < 0 ? QStringList() : window_->calls.mid(at);
    }
};

// The M88 title of the start-failure tests: a plain image with a save state, the user's INI.
QString M88Title(const QString& r, const QString& dir)
{
    WriteFile(dir + "/M88.INI", kUserM88Ini);
    WriteFile(r + "/save/GAME_1.S88", "state one");
    return r + "/images/GAME.D88";
}

} // namespace

// ---------------------------------------------------------------------------------------
// An emulator that can't be started

// M88.EXE is gone: the launch says so under "Emu実行エラー" with the critical icon, names the
// program and the cause, and undoes everything: the user's M88.INI is back under its name,
// no M88.ORG is left, WorkDir is empty, the save state is where it was, the window is back
// and enabled, and the detail pane (with the status text) is shown anew.
TEST_F(LaunchEdges, MissingProgramIsToldAndUndone)
{
    const QString dir = Emu(2);
    ASSERT_TRUE(QFile::remove(dir + "/M88.EXE"));
    const QString image = M88Title(r_, dir);
    WriteFile(image, Image());
    Item(0, image, "GAME.D88");

    ScriptedMsgBox box;
    RunSelectedItem(2);

    ExpectM88StartFailureUndone(box, dir, QStringLiteral("プログラムのファイルがありません。"));
    EXPECT_TRUE(Runs().empty());
    EXPECT_EQ(ReadFile(r_ + "/save/GAME_1.S88"), "state one");
    EXPECT_EQ(ReadFile(image), Image());
    EXPECT_TRUE(SnapFiles().isEmpty());
    const QStringList after = WindowCallsAfterMinimise();
    ASSERT_FALSE(after.isEmpty());
    EXPECT_TRUE(after.contains("RestoreMain"));
}

// An ".EXE" without its run bit: the same message with its own cause, the same undo.
TEST_F(LaunchEdges, ExeWithoutRunBitIsToldAndUndone)
{
    const QString dir = Emu(2);
    QFile::remove(dir + "/M88.EXE");
    ASSERT_TRUE(
        WriteFile(dir + "/M88.EXE", QByteArray("MZ\x90\0\3\0\0\0", 8) + QByteArray(120, '\0')));
    QFile::setPermissions(dir + "/M88.EXE", QFile::ReadOwner | QFile::WriteOwner);
    const QString image = M88Title(r_, dir);
    WriteFile(image, Image());
    Item(0, image, "GAME.D88");

    ScriptedMsgBox box;
    RunSelectedItem(2);

    ExpectM88StartFailureUndone(box, dir,
                                QStringLiteral("プログラムのファイルに実行の許可がありません。"));
}

// A Windows program with its run bit, started directly, on a desktop that has no runner
// registered for it: the start is refused, and the message says why.
TEST_F(LaunchEdges, WindowsProgramWithoutARunnerIsToldAndUndone)
{
    for (const QString& f : QDir("/proc/sys/fs/binfmt_misc").entryList(QDir::Files))
        if (f != "register" && f != "status")
            GTEST_SKIP() << "this desktop runs foreign programs through binfmt_misc: "
                         << f.toStdString();
    const QString dir = Emu(2);
    QFile::remove(dir + "/M88.EXE");
    ASSERT_TRUE(
        WriteFile(dir + "/M88.EXE", QByteArray("MZ\x90\0\3\0\0\0", 8) + QByteArray(120, '\0')));
    QFile::setPermissions(dir + "/M88.EXE", QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    const QString image = M88Title(r_, dir);
    WriteFile(image, Image());
    Item(0, image, "GAME.D88");

    ScriptedMsgBox box;
    RunSelectedItem(2);

    ExpectM88StartFailureUndone(
        box, dir,
        QStringLiteral("Windows または DOS のプログラムです。このデスクトップには、"
                       "それを動かす実行環境（Wine など）が登録されていません。"
                       "「ランナー設定」で Wine か DOSBox を選んでください。"));
}

namespace {

// An adapter for PC88Win whose branch writes the emulator's configuration and then starts the
// test emulator, and which fails in a way chosen by the test: a runner that refuses the start
// with its own reason, or a run-time error while the emulator runs.
class FailingAdapter : public EmuAdapter {
public:
    enum class How { RunnerRefuses, ErrorDuringRun };
    explicit FailingAdapter(How how) : EmuAdapter(tv::Emu::PC88Win), how_(how) {}
    bool ready(const CfgRecord&, QString*) const override { return true; }
    bool branch(LaunchState& st, EmuBranch& b) override
    {
        WriteFile(st.Dir + "/PC88WIN.INI", "written for the title");
        if (how_ == How::RunnerRefuses)
            throw EmulatorStartError(st.Exe, QStringLiteral("実行環境が決められていません。"));
        b.cmd = LaunchCommand(st.Exe);
        b.paste1 = st.Image;
        return true;
    }
    void sendImageNames(const LaunchCommand&, const QString&, const QString&) const override
    {
        throw std::runtime_error("the keys can't be sent");
    }

private:
    How how_;
};

struct AdaptersBack {
    ~AdaptersBack() { RegisterAdapters(); }
};

} // namespace

// A start refused with a reason of the runner's own: the message carries that reason, and the
// launch is taken back as for any start that fails.
TEST_F(LaunchEdges, ARunnersReasonReachesTheMessage)
{
    AdaptersBack back;
    RegisterAdapter(tv::Emu::PC88Win,
                    std::make_unique<FailingAdapter>(FailingAdapter::How::RunnerRefuses));
    const QString dir = Emu(3);
    WriteFile(dir + "/PC88WIN.INI", "users own");
    Item(0, Plain("GAME.D88"), "GAME.D88");

    ScriptedMsgBox box;
    RunSelectedItem(3);

    ASSERT_EQ(box.calls().size(), 1u);
    EXPECT_EQ(box.calls()[0].flags, 16);
    EXPECT_EQ(box.calls()[0].text, kStartFailed + dir + "/PC88WIN.EXE\r\n\r\n" +
                                       QStringLiteral("実行環境が決められていません。"));
    EXPECT_EQ(ReadFile(dir + "/PC88WIN.INI"), "users own");
    EXPECT_FALSE(QFileInfo::exists(dir + "/PC88WIN.ORG"));
    EXPECT_TRUE(WorkFiles().isEmpty());
    EXPECT_EQ(window_->refreshed, 1);
}

// A run-time error while the emulator runs ends the launch without a word, but after the same
// taking back: the user's configuration under its name, no ".ORG", WorkDir empty, the window
// back and enabled, the detail pane shown anew.
TEST_F(LaunchEdges, RunTimeErrorDuringTheRunIsTakenBack)
{
    AdaptersBack back;
    RegisterAdapter(tv::Emu::PC88Win,
                    std::make_unique<FailingAdapter>(FailingAdapter::How::ErrorDuringRun));
    const QString dir = Emu(3);
    WriteFile(dir + "/PC88WIN.INI", "users own");
    const QString image = Plain("GAME.D88");
    Item(0, image, "GAME.D88");

    ScriptedMsgBox box;
    RunSelectedItem(3);

    EXPECT_TRUE(box.calls().empty());
    EXPECT_EQ(ReadFile(dir + "/PC88WIN.INI"), "users own");
    EXPECT_FALSE(QFileInfo::exists(dir + "/PC88WIN.ORG"));
    EXPECT_TRUE(WorkFiles().isEmpty());
    EXPECT_EQ(ReadFile(image), Image());
    EXPECT_TRUE(window_->calls.lastIndexOf("Enable") > window_->calls.lastIndexOf("Disable"));
    EXPECT_TRUE(window_->calls.lastIndexOf("RestoreMain") >
                window_->calls.lastIndexOf("MinimiseMain"));
    EXPECT_EQ(window_->refreshed, 1);
}

// ---------------------------------------------------------------------------------------
// A stale ".ORG"

// A launch that died left M88.ORG (the user's own INI) beside the INI written for its title.
// Before the next run that backup is kept in a recovery directory beside the program, named
// with the date and the emulator, and the user is told where; the rule goes on as before.
TEST_F(LaunchEdges, StaleBackupIsKeptInRecoveryAndTold)
{
    const QString dir = Emu(2);
    WriteFile(dir + "/M88.INI", "[M88p2 for Windows]\r\nWrittenForATitle=1\r\n");
    WriteFile(dir + "/M88.ORG", kUserM88Ini);
    const QString image = Plain("GAME.D88");
    Item(0, image, "GAME.D88");

    ScriptedMsgBox box;
    RunSelectedItem(2);

    ASSERT_EQ(Runs().size(), 1u);
    const QStringList kept =
        QDir(AppDir).entryList({"TORVRECOVER*"}, QDir::Dirs | QDir::NoDotAndDotDot);
    ASSERT_EQ(kept.size(), 1);
    const QString today = QDate::currentDate().toString("yyyyMMdd");
    EXPECT_TRUE(kept[0].startsWith("TORVRECOVER_" + today + "_")) << kept[0].toStdString();
    EXPECT_TRUE(kept[0].endsWith("_M88")) << kept[0].toStdString();
    const QString keptFile = AppDir + "/" + kept[0] + "/M88.INI";
    EXPECT_EQ(ReadFile(keptFile), kUserM88Ini);
    ASSERT_EQ(box.calls().size(), 1u);
    EXPECT_EQ(box.calls()[0].flags, 64);
    EXPECT_EQ(box.calls()[0].text,
              QStringLiteral("前回の起動で元に戻せなかった M88 の設定ファイルを、次の場所に"
                             "保存しました。\r\n\r\n") +
                  keptFile +
                  QStringLiteral("\r\n\r\n元の設定に戻すには、このファイルを M88 のフォルダへ"
                                 "コピーしてください。"));
    // The rest of the rule is as it was: the INI that stood there is the one backed up.
    EXPECT_EQ(ReadFile(dir + "/M88.INI"), "[M88p2 for Windows]\r\nWrittenForATitle=1\r\n");
    EXPECT_FALSE(QFileInfo::exists(dir + "/M88.ORG"));

    // A second launch without a stale backup keeps nothing and says nothing.
    box.clear();
    RunSelectedItem(2);
    EXPECT_TRUE(box.calls().empty());
    EXPECT_EQ(QDir(AppDir).entryList({"TORVRECOVER*"}, QDir::Dirs | QDir::NoDotAndDotDot).size(),
              1);
}

// ---------------------------------------------------------------------------------------
// Names are literal

// An image named with "*" and "?" is copied into WorkDir as itself, starts, and comes back
// changed; a file that the pattern would match is not touched.
TEST_F(LaunchEdges, ImageNamedWithStarAndQuestionMark)
{
    Emu(4, {{"change", "GAME*1?.D88"}});
    const QString image = Plain("GAME*1?.D88");
    const QString lookalike = Plain("GAMEX1Z.D88", Disk("OTHER", 2048, 'o'));
    Item(0, image, "GAME*1?.D88");

    ScriptedMsgBox box;
    RunSelectedItem(4);

    EXPECT_TRUE(box.calls().empty());
    const auto runs = Runs();
    ASSERT_EQ(runs.size(), 1u);
    EXPECT_EQ(runs[0].args.mid(1), QStringList{"GAME*1?.D88"});
    EXPECT_EQ(ReadFile(image).mid(32, 16), kChanged);
    EXPECT_EQ(ReadFile(lookalike), Disk("OTHER", 2048, 'o'));
    EXPECT_TRUE(WorkFiles().isEmpty());
    EXPECT_TRUE(SnapFiles().isEmpty());
}

// An emulator that writes "*.D77" beside a plain image: the image goes back changed, and
// "*.D77" lands in SnapDir as a plain file of that name.
TEST_F(LaunchEdges, EmulatorWritesStarD77BesideAPlainImage)
{
    const QString dir = Emu(11, {{"change", "GAME.D77"}, {"save", "*.D77"}});
    const QString image = Plain("GAME.D77");
    Item(1, image, "GAME.D77");

    ScriptedMsgBox box;
    RunSelectedItem(11);

    EXPECT_TRUE(box.calls().empty());
    ASSERT_EQ(Runs().size(), 1u);
    EXPECT_EQ(ReadFile(image).mid(32, 16), kChanged);
    EXPECT_EQ(SnapFiles(), QStringList{"*.D77"});
    EXPECT_TRUE(QFileInfo(r_ + "/snap/*.D77").isFile());
    EXPECT_TRUE(WorkFiles().isEmpty());
    (void)dir;
}

// The same in an archive re-packed without asking: the archive takes the changed image and
// only its members; "*.D77" goes to SnapDir.
TEST_F(LaunchEdges, EmulatorWritesStarD77BesideAnArchivedImage)
{
    Emu(11, {{"change", "GAME.D77"}, {"save", "*.D77,?.D77"}});
    const QString arc = Archive("GAME.ZIP", {{"GAME.D77", Image()}, {"DISK2.D77", Image(2048)}});
    Item(1, arc, "GAME.D77", 1, 1);

    ScriptedMsgBox box;
    RunSelectedItem(11);

    EXPECT_TRUE(box.calls().empty());
    const auto members = Members(arc);
    EXPECT_EQ(members.keys(), (QStringList{"DISK2.D77", "GAME.D77"}));
    EXPECT_EQ(members.value("GAME.D77").mid(32, 16), kChanged);
    EXPECT_EQ(members.value("DISK2.D77"), Image(2048));
    EXPECT_EQ(SnapFiles(), (QStringList{"*.D77", "?.D77"}));
    EXPECT_TRUE(WorkFiles().isEmpty());
}

// A member named "temp", the name of the holding directory of the drain: every member is
// recorded in stage 1, none goes to SnapDir, and with ReArcCheckFlag 1 the changed image is
// re-packed with all its members.
TEST_F(LaunchEdges, ArchiveMemberNamedTempWithRepack)
{
    Emu(4, {{"change", "GAME.D88"}});
    const QString arc =
        Archive("GAME.ZIP", {{"GAME.D88", Image()}, {"temp", "a member"}, {"README.TXT", "doc"}});
    Item(0, arc, "GAME.D88", 1, 1);

    ScriptedMsgBox box;
    RunSelectedItem(4);

    EXPECT_TRUE(box.calls().empty()) << box.texts().join("|").toStdString();
    const auto runs = Runs();
    ASSERT_EQ(runs.size(), 1u);
    for (const char* f : {"GAME.D88", "temp", "README.TXT"})
        EXPECT_TRUE(runs[0].files.contains(f)) << f;
    const auto members = Members(arc);
    EXPECT_EQ(members.keys(), (QStringList{"GAME.D88", "README.TXT", "temp"}));
    EXPECT_EQ(members.value("GAME.D88").mid(32, 16), kChanged);
    EXPECT_EQ(members.value("temp"), "a member");
    EXPECT_TRUE(SnapFiles().isEmpty());
    EXPECT_TRUE(WorkFiles().isEmpty());
}

// ---------------------------------------------------------------------------------------
// The characters that Windows refuses in names

// An archive whose own name holds a double quote, with members named with " * ? < > |, in
// each of the three archive formats: the members are unpacked under their names, the start
// file and the second file reach the emulator, and the re-pack keeps every member.
TEST_F(LaunchEdges, OddCharactersInArchiveAndMemberNames)
{
    const QString first = QStringLiteral("A\"B*C?.D77");
    const QString second = QStringLiteral("x<y>z|.D77");
    for (const QString ext : {"ZIP", "LZH", "CAB"}) {
        SCOPED_TRACE(ext.toStdString());
        QFile::remove(log_);
        const QString dir = Emu(12, {{"change", first}});
        WriteFile(dir + "/XM7.INI", "[General]\r\nMine=1\r\n");
        const QString packed = Archive("PACKED." + ext, {{first, Image()}, {second, Image(2048)}});
        const QString arc = r_ + "/images/GA\"ME." + ext;
        QFile::remove(arc);
        ASSERT_TRUE(QFile::rename(packed, arc));
        Item(1, arc, first, 1, 1, second);

        ScriptedMsgBox box;
        RunSelectedItem(12);

        EXPECT_TRUE(box.calls().empty()) << box.texts().join("|").toStdString();
        const auto runs = Runs();
        ASSERT_EQ(runs.size(), 1u);
        EXPECT_EQ(runs[0].args.mid(1), (QStringList{first, second}));
        const auto members = Members(arc);
        EXPECT_EQ(members.keys(), (QStringList{first, second}));
        EXPECT_EQ(members.value(first).mid(32, 16), kChanged);
        EXPECT_EQ(members.value(second), Image(2048));
        EXPECT_EQ(ReadFile(dir + "/XM7.INI"), "[General]\r\nMine=1\r\n");
        EXPECT_TRUE(SnapFiles().isEmpty());
        EXPECT_TRUE(WorkFiles().isEmpty());
    }
}

// A plain image with the same characters takes the same road.
TEST_F(LaunchEdges, OddCharactersInAPlainImageName)
{
    const QString name = QStringLiteral("q\"<>|.D77");
    Emu(12, {{"change", name}});
    const QString image = Plain(name);
    Item(1, image, name);

    ScriptedMsgBox box;
    RunSelectedItem(12);

    EXPECT_TRUE(box.calls().empty());
    ASSERT_EQ(Runs().size(), 1u);
    EXPECT_EQ(Runs()[0].args.mid(1), QStringList{name});
    EXPECT_EQ(ReadFile(image).mid(32, 16), kChanged);
    EXPECT_TRUE(WorkFiles().isEmpty());
}

// A DOS emulator reaches its images by 8.3 names, which a name with these characters doesn't
// have: the launch is refused with a message, the first image or the second, and nothing runs.
TEST_F(LaunchEdges, DosEmulatorRefusesOddNamesWithAMessage)
{
    Emu(11);
    const QString first = QStringLiteral("A*B.D77");
    const QString arc = Archive("GAME.ZIP", {{first, Image()}, {"DISK2.D77", Image(2048)}});
    Item(1, arc, first, 1, 1, "DISK2.D77");

    ScriptedMsgBox box;
    RunSelectedItem(11);

    ASSERT_EQ(box.calls().size(), 1u);
    EXPECT_EQ(box.calls()[0].flags, 48);
    EXPECT_EQ(box.calls()[0].caption, QStringLiteral("Emu実行エラー"));
    EXPECT_EQ(box.calls()[0].text,
              QStringLiteral("「A*B.D77」は名前に \" * ? < > | のいずれかを含むため、XM7 for DOS "
                             "には渡せません。"));
    EXPECT_TRUE(Runs().empty());
    EXPECT_TRUE(WorkFiles().isEmpty());

    // The second image likewise.
    box.clear();
    const QString second = QStringLiteral("x<y>.D77");
    const QString arc2 = Archive("TWO.ZIP", {{"GAME.D77", Image()}, {second, Image(2048)}});
    Item(1, arc2, "GAME.D77", 1, 1, second);
    RunSelectedItem(11);
    ASSERT_EQ(box.calls().size(), 1u);
    EXPECT_EQ(box.calls()[0].text,
              QStringLiteral("「x<y>.D77」は名前に \" * ? < > | のいずれかを含むため、XM7 for DOS "
                             "には渡せません。"));
    EXPECT_TRUE(Runs().empty());
    EXPECT_TRUE(WorkFiles().isEmpty());
}
