// PC88Win from end to end: the test emulator runs as PC88WIN.EXE and records the bytes of
// "PC88WIN.INI" it finds at its start; the user's file is back, byte for byte, afterwards.
#include "adapters/pc88/EmuOpt88.h"
#include "data/Cfg.h"
#include "launch/Launch.h"
#include "support/LaunchFixture.h"
#include "support/ScriptedMsgBox.h"
#include "support/TestEmu.h"
#include "util/Globals.h"

#include <gtest/gtest.h>

using namespace tv;
using namespace tvtest;

namespace {

const QByteArray kUserIni("[PC88Win]\r\nMode=0\r\nFMvolume=300\r\nUserOnly=1\r\n");

class LaunchPc88Win : public LaunchFixture {
protected:
    void SetUp() override
    {
        LaunchFixture::SetUp();
        Cfg.Pc8CfgChk = 0;
        dir_ = r_ + "/emu/3";
        EXPECT_EQ(Emu(3, {{"show", dir_ + "/PC88WIN.INI"}, {"list", dir_}}), dir_);
        WriteFile(dir_ + "/PC88WIN.INI", kUserIni);
    }

    void Title(const QString& name)
    {
        const QString path = r_ + "/images/" + name;
        ASSERT_TRUE(WriteFile(path, Image()));
        Item(0, path, name);
    }

    TestEmuRun Launch()
    {
        ScriptedMsgBox box;
        RunSelectedItem(3);
        EXPECT_TRUE(box.calls().empty());
        const auto runs = Runs();
        EXPECT_EQ(runs.size(), 1u);
        return runs.empty() ? TestEmuRun{} : runs.back();
    }

    QString dir_;
};

} // namespace

// The file during the run is the one the defaults make, the whole of it new; afterwards the
// user's file is back and its backup gone.
TEST_F(LaunchPc88Win, GeneratedIniDuringTheRun)
{
    Cfg.DefOpt = 1;
    Title("GAME.D88");

    const TestEmuRun run = Launch();

    EXPECT_EQ(run.exeName, "PC88WIN.EXE");
    EXPECT_EQ(run.args.mid(1), QStringList{"GAME.D88"});
    EXPECT_EQ(run.shown.value(dir_ + "/PC88WIN.INI"),
              QByteArray("[PC88Win]\r\nMode=2\r\nSpeed=0\r\nSampling=0\r\nFMvolume=512\r\n"
                         "SSGvolume=256\r\nFPS=60\r\nImode=1\r\nSoundPriority=1\r\n"
                         "VirtualKey=0\r\nFMdevice=1\r\n\r\n"));
    EXPECT_EQ(run.listed.value(dir_),
              (QStringList{"PC88WIN.EXE", "PC88WIN.INI", "PC88WIN.ORG", "testemu.ini"}));
    EXPECT_EQ(ReadFile(dir_ + "/PC88WIN.INI"), kUserIni);
    EXPECT_FALSE(QFileInfo::exists(dir_ + "/PC88WIN.ORG"));
    EXPECT_TRUE(WorkFiles().isEmpty());
}

// The title's block: its FM volume of 100 leaves the file at 512, its SSG volume goes in.
TEST_F(LaunchPc88Win, TitlesBlockWithItsFmVolumeLeftOut)
{
    Cfg.DefOpt = 0;
    EmuOpt88 b;
    SetDefaultEmuOpt88(b);
    b.Pc8_1Op[0] = 1;
    b.Pc8_1Op[3] = 30;
    b.Pc8_2Op = {100, 700};
    ItemBlock(b);
    Title("GAME.D88");

    const TestEmuRun run = Launch();

    EXPECT_EQ(run.shown.value(dir_ + "/PC88WIN.INI"),
              QByteArray("[PC88Win]\r\nMode=1\r\nSpeed=0\r\nSampling=0\r\nFMvolume=512\r\n"
                         "SSGvolume=700\r\nFPS=30\r\nImode=1\r\nSoundPriority=1\r\n"
                         "VirtualKey=0\r\nFMdevice=1\r\n\r\n"));
    EXPECT_EQ(ReadFile(dir_ + "/PC88WIN.INI"), kUserIni);
}

// With "既存INI使用" PC88Win finds the user's own file.
TEST_F(LaunchPc88Win, ExistingIniIsLeftAlone)
{
    Cfg.Pc8CfgChk = 1;
    Title("GAME.D88");

    const TestEmuRun run = Launch();

    EXPECT_EQ(run.shown.value(dir_ + "/PC88WIN.INI"), kUserIni);
    EXPECT_EQ(ReadFile(dir_ + "/PC88WIN.INI"), kUserIni);
    EXPECT_FALSE(QFileInfo::exists(dir_ + "/PC88WIN.ORG"));
    EXPECT_TRUE(WorkFiles().isEmpty());
}

// A user's file spelt in lower case is not left beside the generated one, and comes back
// under the emulator's own spelling.
TEST_F(LaunchPc88Win, LowerCaseUserFileComesBack)
{
    QFile::remove(dir_ + "/PC88WIN.INI");
    WriteFile(dir_ + "/pc88win.ini", kUserIni);
    Cfg.DefOpt = 1;
    Title("GAME.D88");

    const TestEmuRun run = Launch();

    EXPECT_TRUE(run.shown.value(dir_ + "/PC88WIN.INI").startsWith("[PC88Win]\r\nMode=2\r\n"));
    EXPECT_FALSE(run.listed.value(dir_).contains("pc88win.ini"));
    QStringList after = QDir(dir_).entryList(QDir::Files, QDir::Name);
    EXPECT_EQ(after, (QStringList{"PC88WIN.EXE", "PC88WIN.INI", "testemu.ini"}));
    EXPECT_EQ(ReadFile(dir_ + "/PC88WIN.INI"), kUserIni);
}
