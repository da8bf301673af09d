// The start-up reads the runner settings beside the program into the process-wide table, and
// leaves TORVANE.CFG as it is.
#include "launch/Runner.h"
#include "startup/StartupFixture.h"
#include "support/ScriptedMsgBox.h"

using namespace tv;
using namespace tvtest;

namespace {

// The table is process-wide: each test leaves it empty.
struct RunnerTableGuard {
    RunnerTableGuard() { Runners().clear(); }
    ~RunnerTableGuard() { Runners().clear(); }
};

} // namespace

TEST_F(StartupTest, RunnerSettingsAreReadAtTheStart)
{
    RunnerTableGuard guard;
    WriteValidCfg();
    const QByteArray cfg = ReadFile(app + "/TORVANE.CFG");
    WriteFile(app + "/TORVANE_RUNNER.INI", "[M88]\nkind=wine\nwineprefix=/srv/wine-m88\n"
                                           "[X1r]\nkind=dosbox\n");
    ScriptedMsgBox boxes;
    Startup s(Env());
    ASSERT_TRUE(s.FormLoad());
    ASSERT_EQ(Runners().size(), 2u);
    EXPECT_EQ(RunnerOf(Emu::M88).kind, RunnerKind::Wine);
    EXPECT_EQ(RunnerOf(Emu::M88).winePrefix, "/srv/wine-m88");
    EXPECT_EQ(RunnerOf(Emu::X1r).kind, RunnerKind::DosBox);
    EXPECT_EQ(RunnerOf(Emu::QUASI88), RunnerSettings{});
    EXPECT_EQ(ReadFile(app + "/TORVANE.CFG"), cfg);
}

TEST_F(StartupTest, NoRunnerFileMeansTheDefaults)
{
    RunnerTableGuard guard;
    Runners()[Emu::M88].kind = RunnerKind::Java; // left by an earlier start in this process
    WriteValidCfg();
    ScriptedMsgBox boxes;
    Startup s(Env());
    ASSERT_TRUE(s.FormLoad());
    EXPECT_TRUE(Runners().empty());
    EXPECT_EQ(RunnerOf(Emu::M88), RunnerSettings{});
    EXPECT_FALSE(QFile::exists(app + "/TORVANE_RUNNER.INI"));
}
