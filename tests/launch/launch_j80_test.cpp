// j80 from end to end: a small Java runtime (the test emulator installed as "java") records
// "-jar", the jar path and the rest, and the bytes of "j80.cfg" in WorkDir at its start. The
// file is made on every launch and gone afterwards.
#include "adapters/pc88/EmuOpt88.h"
#include "data/Cfg.h"
#include "launch/Launch.h"
#include "support/LaunchFixture.h"
#include "support/ScriptedMsgBox.h"
#include "support/TestEmu.h"
#include "util/Globals.h"

#include <QDir>
#include <gtest/gtest.h>

using namespace tv;
using namespace tvtest;

namespace {

class LaunchJ80 : public LaunchFixture {
protected:
    void SetUp() override
    {
        LaunchFixture::SetUp();
        path_ = qgetenv("PATH");
        dir_ = Emu(6);
        Cfg.J80RomsFile = r_ + "/rom/PC88.ROM";
        Cfg.J80RomsAddress = "16000";
        Cfg.J80FontFile = r_ + "/rom/PC-8001.FON";
        Cfg.J80CrtFile = r_ + "/rom/crt.gif";
        Cfg.J80KeyFile = r_ + "/rom/key.txt";
        Cfg.JavaVMPath = QString();
    }
    void TearDown() override
    {
        qputenv("PATH", path_);
        LaunchFixture::TearDown();
    }

    // The test Java runtime, installed in `sub` of the root under the name "java".
    QString Java(const QString& sub)
    {
        const QString d = r_ + "/" + sub;
        QDir().mkpath(d);
        const QString java = InstallTestEmu(d, "java");
        EXPECT_FALSE(java.isEmpty());
        EXPECT_TRUE(WriteTestEmuConfig(
            d, {{"log", log_}, {"exitafter", "300"}, {"show", WorkDir + "/j80.cfg"}}));
        return java;
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
        RunSelectedItem(6);
        EXPECT_TRUE(box.calls().empty());
        const auto runs = Runs();
        EXPECT_EQ(runs.size(), 1u);
        return runs.empty() ? TestEmuRun{} : runs.back();
    }

    QByteArray path_;
    QString dir_;
};

} // namespace

// The configured Java runtime runs j80's jar with "j80.cfg" from WorkDir; the defaults give no
// options. The file holds the configuration's files and WorkDir, in forward slashes.
TEST_F(LaunchJ80, ConfiguredJavaWithTheDefaults)
{
    Cfg.JavaVMPath = Java("jre/bin");
    Cfg.DefOpt = 1;
    Title("GAME.D88");

    const TestEmuRun run = Launch();

    EXPECT_EQ(run.exeName, "java");
    EXPECT_EQ(run.args.mid(1), (QStringList{"-jar", dir_ + "/j80.jar", "j80.cfg"}));
    EXPECT_EQ(QFileInfo(run.cwd).canonicalFilePath(), QFileInfo(WorkDir).canonicalFilePath());
    EXPECT_TRUE(run.files.contains("j80.cfg"));
    const QString w = WorkDir;
    EXPECT_EQ(QString::fromUtf8(run.shown.value(WorkDir + "/j80.cfg")),
              "\tROMs\t" + r_ + "/rom/PC88.ROM\t0x16000\r\n" + //
                  "\tROM4" +                                   //
                  "\tFONT\t" + r_ + "/rom/PC-8001.FON\r\n" +   //
                  "\tDISK" +                                   //
                  "\t-CRT\t" + r_ + "/rom/crt.gif\r\n" +       //
                  "\t-KEY\t" + r_ + "/rom/key.txt\r\n" +       //
                  "\t-CMT\t" + w + "/\r\n" +                   //
                  "\t-D88\t" + w + "/\r\n" +                   //
                  "\t-TMP\t" + w + "/\r\n" +                   //
                  "\t-PEN\t" + w + "\r\n" +                    //
                  "\tSOUND\t100\t50\r\n\r\n");
    EXPECT_TRUE(WorkFiles().isEmpty());
}

// An empty Java setting takes "java" from the search path; the title's block gives the options.
TEST_F(LaunchJ80, JavaFromTheSearchPathWithTheTitlesOptions)
{
    const QString java = Java("path");
    qputenv("PATH", (QFileInfo(java).path() + ":" + QString::fromLocal8Bit(path_)).toLocal8Bit());
    Cfg.DefOpt = 0;
    EmuOpt88 b;
    SetDefaultEmuOpt88(b);
    b.J80_1Op[0] = 0;
    b.J80_1Op[3] = 1;
    b.J80_1Op[6] = 1;
    b.J80_2Op[0] = 250;
    ItemBlock(b);
    Title("GAME.T88");

    const TestEmuRun run = Launch();

    EXPECT_EQ(run.exeName, "java");
    EXPECT_EQ(run.args.mid(1),
              (QStringList{"-jar", dir_ + "/j80.jar", "j80.cfg", "-silent", "col=25", "-on"}));
    EXPECT_TRUE(run.shown.value(WorkDir + "/j80.cfg").endsWith("\tSOUND\t250\t50\r\n\r\n"));
    EXPECT_TRUE(Clips().isEmpty());
    EXPECT_TRUE(WorkFiles().isEmpty());
}

// A Java setting that names no file falls back on the search path too.
TEST_F(LaunchJ80, MissingConfiguredJavaFallsBackOnThePath)
{
    Cfg.JavaVMPath = r_ + "/nowhere/java";
    const QString java = Java("path");
    qputenv("PATH", QFileInfo(java).path().toLocal8Bit());
    Cfg.DefOpt = 1;
    Title("GAME.D88");

    const TestEmuRun run = Launch();

    EXPECT_EQ(run.exeName, "java");
    EXPECT_EQ(QFileInfo(run.args.value(0)).path(), QFileInfo(java).path());
    EXPECT_EQ(run.args.mid(1), (QStringList{"-jar", dir_ + "/j80.jar", "j80.cfg"}));
}

// No Java at all: nothing runs, the launch ends without a crash and the configuration is as
// it was.
TEST_F(LaunchJ80, NoJavaAnywhereEndsTheLaunch)
{
    const QString empty = r_ + "/emptypath";
    QDir().mkpath(empty);
    qputenv("PATH", empty.toLocal8Bit());
    Cfg.DefOpt = 1;
    Title("GAME.D88");
    const CfgRecord before = Cfg;

    ScriptedMsgBox box;
    RunSelectedItem(6);

    EXPECT_TRUE(Runs().empty());
    EXPECT_EQ(Cfg.JavaVMPath, before.JavaVMPath);
    EXPECT_EQ(Cfg.J80RomsFile, before.J80RomsFile);
    EXPECT_TRUE(window_->calls.contains("RestoreMain"));
}
