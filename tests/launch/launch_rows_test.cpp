// The road that every emulator shares, run for each row of the emulator table: a new
// emulator gets these tests by its row.
#include "adapters/Adapters.h"
#include "data/EmuRegistry.h"
#include "launch/EmuAdapter.h"
#include "launch/EmuStaging.h"
#include "launch/Launch.h"
#include "support/LaunchFixture.h"
#include "support/ScriptedMsgBox.h"

#include <QDir>
#include <gtest/gtest.h>

using namespace tv;
using namespace tvtest;

namespace {

class LaunchRow : public LaunchFixture, public ::testing::WithParamInterface<const EmuRow*> {
protected:
    const EmuRow& row() const { return *GetParam(); }
    int16_t code() const { return row().code(); }
    QString firstType() const { return QString::fromUtf8(row().types[0]); }
    // The emulator's directory with the files it holds.
    QStringList EmuDirFiles(const QString& dir) const
    {
        return QDir(dir).entryList(QDir::Files, QDir::Name);
    }
    // The program the launch starts: j80 runs on a Java runtime, here the test emulator
    // installed as "java" and named by the configuration; the others are their own program.
    QString ProgramName()
    {
        if (row().emu != tv::Emu::J80)
            return row().exeName();
        const QString d = r_ + "/jre";
        QDir().mkpath(d);
        Cfg.JavaVMPath = InstallTestEmu(d, "java");
        EXPECT_FALSE(Cfg.JavaVMPath.isEmpty());
        EXPECT_TRUE(WriteTestEmuConfig(d, {{"log", log_}, {"exitafter", "300"}}));
        return QStringLiteral("java");
    }
    // A title of the row's first type starts its program in WorkDir, and WorkDir is empty
    // afterwards.
    void ExpectTitleRuns()
    {
        Emu(code());
        const QString program = ProgramName();
        const QString image = r_ + "/images/GAME." + firstType();
        WriteFile(image, Image());
        Item(uint8_t(row().family), image, "GAME." + firstType());

        ScriptedMsgBox box;
        RunSelectedItem(code());

        EXPECT_TRUE(box.calls().empty());
        const auto runs = Runs();
        ASSERT_EQ(runs.size(), 1u);
        EXPECT_EQ(runs[0].exeName, program);
        EXPECT_EQ(QFileInfo(runs[0].cwd).canonicalFilePath(),
                  QFileInfo(WorkDir).canonicalFilePath());
        EXPECT_TRUE(WorkFiles().isEmpty());
    }
};

std::vector<const EmuRow*> Rows()
{
    std::vector<const EmuRow*> out;
    for (const EmuRow& r : EmuRows())
        out.push_back(&r);
    return out;
}

std::string RowName(const ::testing::TestParamInfo<const EmuRow*>& info)
{
    return info.param->key + std::string("_") + std::to_string(info.param->code());
}

} // namespace

// Every type of the row is reached in WorkDir; a type it lacks is not.
TEST_P(LaunchRow, AcceptsExactlyItsTypes)
{
    for (const char* t : row().types) {
        if (!t)
            continue;
        const QString name = QStringLiteral("GAME.") + QString::fromUtf8(t);
        WriteFile(WorkDir + "/" + name, Image());
        EXPECT_FALSE(GetWorkImageName(code(), name).isEmpty()) << t;
        QFile::remove(WorkDir + "/" + name);
    }
    WriteFile(WorkDir + "/GAME.ZZZ", Image());
    EXPECT_TRUE(GetWorkImageName(code(), QStringLiteral("GAME.ZZZ")).isEmpty());
}

// With its road ready (the user's own INI where the row has the flag), a title of its first
// type starts the emulator's program in WorkDir, and WorkDir is empty afterwards.
TEST_P(LaunchRow, ReadyRoadStartsTheProgram)
{
    if (row().cfgChk)
        Cfg.*row().cfgChk = 1;
    if (!LaunchRoadReady(code()))
        GTEST_SKIP() << "road not ready yet";
    ExpectTitleRuns();
}

// The same on the road of the generated configuration, for the rows whose adapter makes it.
TEST_P(LaunchRow, GeneratedRoadStartsTheProgram)
{
    if (row().cfgChk)
        Cfg.*row().cfgChk = 0;
    if (!LaunchRoadReady(code()))
        GTEST_SKIP() << "generated road not ready yet";
    Cfg.DefOpt = 1;
    ExpectTitleRuns();
}

// A road that can't run: RunEmulatorItem refuses, nothing runs, WorkDir and the emulator's
// directory stay as they were.
// An emulator whose adapter hasn't landed has the default one, which is never ready: its
// launch starts nothing and touches nothing.
TEST_P(LaunchRow, NotReadyRoadLeavesEverythingUntouched)
{
    struct Restore {
        ~Restore() { RegisterAdapters(); }
    } restore;
    RegisterAdapter(row().emu, std::make_unique<EmuAdapter>(row().emu));
    QString why;
    EXPECT_FALSE(LaunchRoadReady(code(), Cfg, &why));
    EXPECT_FALSE(why.isEmpty());
    const QString dir = Emu(code());
    if (row().config)
        WriteFile(dir + "/" + row().configName(), "user");
    const QStringList before = EmuDirFiles(dir);
    const QString name = "GAME." + firstType();
    WriteFile(WorkDir + "/" + name, Image());

    EXPECT_FALSE(RunEmulatorItem(uint8_t(row().family), code(), name, QString(), 1));

    EXPECT_TRUE(Runs().empty());
    EXPECT_EQ(WorkFiles(), QStringList{name});
    EXPECT_EQ(EmuDirFiles(dir), before);
    if (row().config) {
        EXPECT_EQ(ReadFile(dir + "/" + row().configName()), "user");
    }
}

// The user's configuration file goes to its backup name before the run and comes back after.
TEST_P(LaunchRow, ConfigBackupAndRestore)
{
    if (!row().config)
        GTEST_SKIP() << "no configuration file";
    const QString dir = Emu(code());
    const QString config = dir + "/" + row().configName();
    const QString backup = dir + "/" + row().backupName();
    WriteFile(config, "user");

    BackupEmuConfig(code(), false, 0);
    EXPECT_EQ(ReadFile(backup), "user");
    WriteFile(config, "generated");
    BackupEmuConfig(code(), true, 0);

    EXPECT_EQ(ReadFile(config), "user");
    EXPECT_FALSE(QFileInfo::exists(backup));
}

// A family that isn't the emulator's is refused before anything is staged.
TEST_P(LaunchRow, OtherFamilyIsRefused)
{
    if (row().cfgChk)
        Cfg.*row().cfgChk = 1;
    Emu(code());
    const QString name = "GAME." + firstType();
    WriteFile(WorkDir + "/" + name, Image());
    const uint8_t other = uint8_t((row().family + 1) % 3);
    EXPECT_FALSE(RunEmulatorItem(other, code(), name, QString(), 1));
    EXPECT_TRUE(Runs().empty());
}

INSTANTIATE_TEST_SUITE_P(EveryEmulator, LaunchRow, ::testing::ValuesIn(Rows()), RowName);
