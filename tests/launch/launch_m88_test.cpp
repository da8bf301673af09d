// M88 from end to end with "既存INI使用" off (Cfg.M88CfgChk 0): the test emulator runs as
// M88.EXE and records what it finds at its start; the checks look at that and at what stands
// in M88's directory, M88SaveDir and WorkDir after the launch.
#include "adapters/m88/M88Ini.h"
#include "adapters/pc88/EmuOpt88.h"
#include "data/Cfg.h"
#include "data/clsLst.h"
#include "launch/Launch.h"
#include "support/GuardedDirs.h"
#include "support/LaunchFixture.h"
#include "support/ScriptedMsgBox.h"
#include "support/TestEmu.h"
#include "util/Globals.h"
#include "util/Sjis.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QMap>
#include <QThread>
#include <gtest/gtest.h>

using namespace tv;
using namespace tvtest;

namespace {

class LaunchM88 : public LaunchFixture {
protected:
    void SetUp() override
    {
        LaunchFixture::SetUp();
        Cfg.M88CfgChk = 0;
        dir_ = r_ + "/emu/2";
    }

    // The test emulator as M88.EXE. Besides `actions` it records the bytes of M88's "M88.INI"
    // and the files of M88's directory at its start.
    QString M88(QMap<QString, QString> actions = {})
    {
        const QString show = dir_ + "/M88.INI";
        actions["show"] = actions.contains("show") ? show + "," + actions["show"] : show;
        actions["list"] = dir_;
        EXPECT_EQ(Emu(2, actions), dir_);
        return dir_;
    }

    // A plain D88 title in ImageDir, registered under `name`.
    void Title(const QString& name)
    {
        const QString path = r_ + "/images/" + name;
        ASSERT_TRUE(WriteFile(path, Image()));
        Item(0, path, name);
    }

    // The one run of M88.EXE, after a launch that must have told nothing.
    TestEmuRun Launch()
    {
        ScriptedMsgBox box;
        RunSelectedItem(2);
        EXPECT_TRUE(box.calls().empty());
        const auto runs = Runs();
        EXPECT_EQ(runs.size(), 1u);
        return runs.empty() ? TestEmuRun{} : runs.back();
    }

    // The bytes of the INI that the launch writes for `block`.
    static QByteArray GeneratedIni(const EmuOpt88& block)
    {
        return ToSjis(MakeM88Ini(block)) + QByteArrayLiteral("\r\n");
    }

    // A title's block that differs from the defaults in what the INI shows: the BASIC mode,
    // the CPU clock, a volume, and the PCG and FM98 sections.
    static EmuOpt88 TitleBlock()
    {
        EmuOpt88 b;
        SetDefaultEmuOpt88(b);
        b.M88_1Op[0] = 33;
        b.M88_1Op[1] = 8;
        b.M88_1Op[11] = 90;
        b.M88_1Op[26] = 0;
        b.M88_5Op[4] = 1;
        b.M88_5Op[7] = 1;
        b.M88_6Op = {70, 80, 110};
        b.M88_7Op[1] = 45;
        return b;
    }

    // Name and bytes of every plain file of a directory.
    static QMap<QString, QByteArray> Contents(const QString& dir)
    {
        QMap<QString, QByteArray> out;
        for (const QString& f : QDir(dir).entryList(QDir::Files | QDir::Hidden))
            out[f] = ReadFile(dir + "/" + f);
        return out;
    }

    static QStringList Sorted(QStringList names)
    {
        names.sort(Qt::CaseSensitive);
        return names;
    }

    QString dir_;
};

} // namespace

// With "Def Opt" the INI that M88 finds during the run is the one made from the defaults of
// the configuration, not the user's and not the title's.
TEST_F(LaunchM88, IniDuringTheRunIsMadeFromTheDefaults)
{
    Cfg.DefOpt = 1;
    M88();
    WriteFile(dir_ + "/M88.INI", "[M88p2 for Windows]\r\nFlags=1\r\nUserOnly=1\r\n");
    ItemBlock(TitleBlock());
    Title("GAME.D88");

    const TestEmuRun run = Launch();

    ASSERT_TRUE(run.shown.contains(dir_ + "/M88.INI")) << run.unreadable.join(",").toStdString();
    const QByteArray found = run.shown.value(dir_ + "/M88.INI");
    EXPECT_EQ(found, GeneratedIni(Cfg.CfgEmuOpt88));
    EXPECT_NE(found, GeneratedIni(TitleBlock()));
    EXPECT_TRUE(found.startsWith("[M88p2 for Windows]\r\nBIOSPath="));
    EXPECT_FALSE(found.contains("UserOnly"));
    EXPECT_EQ(run.args.mid(1), QStringList{"GAME.D88"});
}

// Without "Def Opt" the INI is made from the title's own block of the catalogue record, which
// the launch fetches itself (the working copy holds another block).
TEST_F(LaunchM88, IniDuringTheRunIsMadeFromTheTitlesBlock)
{
    Cfg.DefOpt = 0;
    M88();
    WriteFile(dir_ + "/M88.INI", "[M88p2 for Windows]\r\nFlags=1\r\n");
    const EmuOpt88 title = TitleBlock();
    ItemBlock(title);
    ASSERT_NE(CurEmuOpt88, title);
    Title("GAME.D88");

    const TestEmuRun run = Launch();

    ASSERT_TRUE(run.shown.contains(dir_ + "/M88.INI"));
    const QByteArray found = run.shown.value(dir_ + "/M88.INI");
    EXPECT_EQ(found, GeneratedIni(title));
    EXPECT_NE(found, GeneratedIni(Cfg.CfgEmuOpt88));
    for (const char* line :
         {"\r\nBASICMode=33\r\n", "\r\nCPUClock=80\r\n", "\r\nVolumeADPCM=90\r\n",
          "\r\n[PCG_SOUND]\r\nVolume0=70\r\n", "\r\n[FM98]\r\nLATENCY=45\r\n"})
        EXPECT_TRUE(found.contains(line)) << line;
    EXPECT_TRUE(found.endsWith("USE_0AXH=0\r\n"));
}

// During the run M88's directory holds exactly the modules that the title wants: unwanted ones
// hidden, a wanted one with a file in neither directory hidden whole, wanted files missing
// beside M88 copied in from M88SaveDir. After the run the directory is as it was.
TEST_F(LaunchM88, ModulesHiddenDuringTheRunAndRestoredAfter)
{
    Cfg.DefOpt = 0;
    M88({{"show", dir_ + "/diskdrv._m88," + dir_ + "/JS.ini"}});
    WriteFile(dir_ + "/M88.INI", "[M88p2 for Windows]\r\n");
    // diskdrv88+80: wanted, but "E8.ROM" is nowhere.
    WriteFile(dir_ + "/diskdrv.m88", "diskdrv module");
    WriteFile(dir_ + "/e1.rom", "e1 rom");
    // cdif: not wanted.
    WriteFile(dir_ + "/cdif.m88", "cdif module");
    // JS: wanted, its INI only in M88SaveDir.
    WriteFile(dir_ + "/JS.m88", "js module");
    WriteFile(M88SaveDir + "/JS.ini", "[JS]\r\n");
    // PcgSound: wanted and there. SeekSnd: wanted, only in M88SaveDir.
    WriteFile(dir_ + "/PcgSound.m88", "pcg module");
    WriteFile(M88SaveDir + "/SeekSnd.m88", "seek module");
    EmuOpt88 block;
    SetDefaultEmuOpt88(block);
    for (int k : {0, 2, 4, 6})
        block.M88_5Op[k] = 1;
    ItemBlock(block);
    Title("GAME.D88");
    const QMap<QString, QByteArray> before = Contents(dir_);
    const QMap<QString, QByteArray> saveBefore = Contents(M88SaveDir);

    const TestEmuRun run = Launch();

    EXPECT_EQ(run.listed.value(dir_),
              Sorted({"JS.ini", "JS.m88", "M88.EXE", "M88.INI", "M88.ORG", "PcgSound.m88",
                      "SeekSnd.m88", "cdif._m88", "diskdrv._m88", "e1._rom", "testemu.ini"}));
    EXPECT_EQ(run.shown.value(dir_ + "/diskdrv._m88"), "diskdrv module");
    EXPECT_EQ(run.shown.value(dir_ + "/JS.ini"), "[JS]\r\n");
    // The INI follows the block: PcgSound is wanted, so its section is there.
    EXPECT_TRUE(run.shown.value(dir_ + "/M88.INI").contains("\r\n[PCG_SOUND]\r\n"));

    EXPECT_EQ(Contents(dir_), before);
    EXPECT_EQ(Contents(M88SaveDir), saveBefore);
    EXPECT_TRUE(WorkFiles().isEmpty());
}

// RND4M88 is started beside M88 when the block that DefOpt chooses asks for it
// (M88_1Op[23]), and not when it doesn't, even if the other block does.
TEST_F(LaunchM88, Rnd4m88StartedOnlyWhenTheBlockAsks)
{
    M88();
    ASSERT_FALSE(InstallTestEmu(dir_, "RND4M88.EXE").isEmpty());
    ASSERT_EQ(Cfg.CfgEmuOpt88.M88_1Op[23], 0);
    EmuOpt88 title;
    SetDefaultEmuOpt88(title);
    title.M88_1Op[23] = 1;
    ItemBlock(title);
    Title("GAME.D88");
    auto starts = [this](const QString& exe) {
        std::vector<TestEmuRun> out;
        for (const TestEmuRun& r : Runs())
            if (r.exeName == exe)
                out.push_back(r);
        return out;
    };

    // The defaults don't ask, the title does: with "Def Opt" nothing beside M88.
    Cfg.DefOpt = 1;
    {
        ScriptedMsgBox box;
        RunSelectedItem(2);
    }
    ASSERT_EQ(starts("M88.EXE").size(), 1u);
    // RND4M88 would have been started before the launch returned, while M88 ran.
    EXPECT_TRUE(starts("RND4M88.EXE").empty());
    // With the title's block it starts.
    Cfg.DefOpt = 0;
    {
        ScriptedMsgBox box;
        RunSelectedItem(2);
    }
    // RND4M88 isn't waited for: give it the time to start and to end by itself. The two
    // programs write into one log at the same time, so only its start lines are told apart;
    // the end is seen by the count of exit lines (two of M88 and one of RND4M88).
    auto exits = [this] {
        int n = 0;
        for (const QByteArray& line : ReadFile(log_).split('\n'))
            n += line.startsWith("exit\t");
        return n;
    };
    QElapsedTimer t;
    t.start();
    while ((starts("RND4M88.EXE").empty() || exits() < 3) && t.elapsed() < 5000)
        QThread::msleep(50);
    const auto m88 = starts("M88.EXE");
    const auto rnd = starts("RND4M88.EXE");
    ASSERT_EQ(m88.size(), 2u);
    // Started with the second launch: the processes stamp their own start lines, so the
    // order of the two stamps of one launch says nothing.
    ASSERT_EQ(rnd.size(), 1u);
    EXPECT_GT(rnd[0].startMs, m88[0].startMs);
    EXPECT_EQ(exits(), 3);
}

// Save states of the title come into WorkDir from M88SaveDir under the image's stem and go
// back under the upper-cased stem, a changed one with its change and a new one beside it;
// those of other titles stay where they are.
TEST_F(LaunchM88, SaveStatesGoInAndOut)
{
    Cfg.DefOpt = 1;
    M88({{"change", "game_1.S88"}, {"save", "game_4.S88"}, {"show", "game_1.S88"}});
    const QByteArray state1(64, 's');
    WriteFile(M88SaveDir + "/GAME_1.S88", state1);
    WriteFile(M88SaveDir + "/GAME_9.S88", "state nine");
    WriteFile(M88SaveDir + "/OTHER_2.S88", "other title");
    Title("game.d88");

    const TestEmuRun run = Launch();

    // Stage 1 gives the image its upper-cased extension; the stem stays as it is.
    EXPECT_EQ(run.args.mid(1), QStringList{"game.D88"});
    EXPECT_EQ(run.files, (QStringList{"game.D88", "game_1.S88", "game_9.S88"}));
    EXPECT_EQ(run.shown.value("game_1.S88"), state1);
    EXPECT_EQ(QDir(M88SaveDir).entryList(QDir::Files, QDir::Name),
              (QStringList{"GAME_1.S88", "GAME_4.S88", "GAME_9.S88", "OTHER_2.S88"}));
    const QByteArray changed = ReadFile(M88SaveDir + "/GAME_1.S88");
    EXPECT_EQ(changed.size(), 64);
    EXPECT_EQ(changed.mid(32, 16), kChanged);
    EXPECT_EQ(ReadFile(M88SaveDir + "/GAME_4.S88"), "testemu save state\n");
    EXPECT_EQ(ReadFile(M88SaveDir + "/GAME_9.S88"), "state nine");
    EXPECT_EQ(ReadFile(M88SaveDir + "/OTHER_2.S88"), "other title");
    // Neither taken for new files of the title nor left behind.
    EXPECT_TRUE(QDir(r_ + "/snap").entryList(QDir::Files).isEmpty());
    EXPECT_TRUE(WorkFiles().isEmpty());
}

// The user's "M88.INI" is byte for byte what it was, although the emulator wrote into the
// generated one during the run; a stale "M88.ORG" of a failed launch isn't what comes back,
// and no ".ORG" stays.
TEST_F(LaunchM88, UsersIniIsBackAfterTheRun)
{
    Cfg.DefOpt = 1;
    M88({{"change", dir_ + "/M88.INI"}});
    static const char raw[] = "[M88p2 for Windows]\r\nFlags=1\r\n"
                              "Comment=\x83\x65\x83\x58\x83\x67\r\n\r\n[Other]\nKey=Value";
    const QByteArray user(raw, sizeof raw - 1);
    WriteFile(dir_ + "/M88.INI", user);
    WriteFile(dir_ + "/M88.ORG", "stale backup");
    Title("GAME.D88");

    ScriptedMsgBox box;
    RunSelectedItem(2);
    ASSERT_EQ(Runs().size(), 1u);
    const TestEmuRun run = Runs().back();

    // The stale backup was kept beside the program first, and the user told where.
    ASSERT_EQ(box.calls().size(), 1u);
    EXPECT_EQ(box.calls()[0].flags, 64);
    const QStringList kept = QDir(AppDir).entryList({"TORVRECOVER_*_M88"}, QDir::Dirs);
    ASSERT_EQ(kept.size(), 1);
    EXPECT_EQ(ReadFile(AppDir + "/" + kept[0] + "/M88.INI"), "stale backup");
    EXPECT_EQ(run.shown.value(dir_ + "/M88.INI"), GeneratedIni(Cfg.CfgEmuOpt88));
    EXPECT_TRUE(run.done.contains("change\t" + dir_ + "/M88.INI"));
    EXPECT_EQ(ReadFile(dir_ + "/M88.INI"), user);
    EXPECT_FALSE(QFileInfo::exists(dir_ + "/M88.ORG"));
    EXPECT_EQ(Sorted(QDir(dir_).entryList(QDir::Files)),
              Sorted({"M88.EXE", "M88.INI", "testemu.ini"}));
}

// An M88 that was never configured: the launch writes the INI, and after the run it stays
// (there is no user's file to bring back), with no ".ORG".
TEST_F(LaunchM88, IniOfAnUnconfiguredM88Stays)
{
    Cfg.DefOpt = 1;
    M88();
    Title("GAME.D88");

    const TestEmuRun run = Launch();

    EXPECT_EQ(run.shown.value(dir_ + "/M88.INI"), GeneratedIni(Cfg.CfgEmuOpt88));
    EXPECT_EQ(ReadFile(dir_ + "/M88.INI"), GeneratedIni(Cfg.CfgEmuOpt88));
    EXPECT_FALSE(QFileInfo::exists(dir_ + "/M88.ORG"));
}

namespace {
// An emulator installed with a lower-case program name still starts: its platform is case-blind.
TEST_F(LaunchM88, ProgramWithALowerCaseNameStarts)
{
    Cfg.DefOpt = 1;
    M88();
    ASSERT_TRUE(QFile::rename(dir_ + "/M88.EXE", dir_ + "/m88.exe"));
    Title("GAME.D88");

    const TestEmuRun run = Launch();

    EXPECT_EQ(run.shown.value(dir_ + "/M88.INI"), GeneratedIni(Cfg.CfgEmuOpt88));
}
} // namespace

namespace {
// A user's INI spelt "m88.ini" is the emulator's INI as well: during the run only the generated
// one stands in M88's directory, and afterwards the user's bytes are back, under the one name.
TEST_F(LaunchM88, UsersIniInAnotherCaseIsSetAsideAndBack)
{
    Cfg.DefOpt = 1;
    M88();
    const QByteArray user = "[M88p2 for Windows]\r\nFlags=1\r\nMine=yes\r\n";
    ASSERT_TRUE(WriteFile(dir_ + "/m88.ini", user));
    Title("GAME.D88");

    const TestEmuRun run = Launch();

    EXPECT_EQ(run.shown.value(dir_ + "/M88.INI"), GeneratedIni(Cfg.CfgEmuOpt88));
    int inis = 0;
    for (const QString& f : run.listed.value(dir_))
        inis += f.compare("M88.INI", Qt::CaseInsensitive) == 0;
    EXPECT_EQ(inis, 1);
    // Name filters match without regard to case.
    const QStringList after = QDir(dir_).entryList({"M88.INI", "M88.ORG"}, QDir::Files);
    EXPECT_EQ(after, QStringList{"M88.INI"});
    EXPECT_EQ(ReadFile(dir_ + "/M88.INI"), user);
}
} // namespace
