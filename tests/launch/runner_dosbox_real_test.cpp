// The real DOSBox, where it is installed: a DOS program of our own (tools/doscheck, assembled
// with nasm in the build) plays X1EMU through the whole launch road. Its report, a new file of
// WorkDir that the launch sends to the snapshot directory, tells that it found its command
// tail, the title's disk in C: and the staged DOS4GW.EXE. Skipped, saying why, where DOSBox or
// the program is missing.
#include "adapters/fm7x1/EmuOptFMX1.h"
#include "data/Cfg.h"
#include "launch/Launch.h"
#include "launch/Runner.h"
#include "support/LaunchFixture.h"
#include "support/ScriptedMsgBox.h"
#include "util/Globals.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QStandardPaths>
#include <gtest/gtest.h>

using namespace tv;
using namespace tvtest;

namespace {

const QString kDosCheck = QStringLiteral(TORVANE_BIN_DIR "/DOSCHECK.COM");

class RunnerDosBoxReal : public LaunchFixture {
protected:
    void SetUp() override
    {
        LaunchFixture::SetUp();
        if (QStandardPaths::findExecutable("dosbox").isEmpty())
            GTEST_SKIP() << "dosbox is not installed (apt-get install dosbox): real DOSBox test "
                            "skipped";
        if (!QFile::exists(kDosCheck))
            GTEST_SKIP() << "DOSCHECK.COM was not assembled (apt-get install nasm): real DOSBox "
                            "test skipped";
        // DOSBox writes its own configuration under HOME; it gets one of the test's.
        home_ = qgetenv("HOME");
        QDir().mkpath(r_ + "/home");
        qputenv("HOME", (r_ + "/home").toUtf8());
        qputenv("SDL_VIDEODRIVER", "dummy");
        qputenv("SDL_AUDIODRIVER", "dummy");
        Cfg.DefOpt = 1;
        SetDefaultEmuOptX1(Cfg.CfgEmuOptX1);
        Runners().clear();
    }
    void TearDown() override
    {
        Runners().clear();
        if (!home_.isNull())
            qputenv("HOME", home_);
        qunsetenv("SDL_VIDEODRIVER");
        qunsetenv("SDL_AUDIODRIVER");
        LaunchFixture::TearDown();
    }
    QByteArray home_;
};

TEST_F(RunnerDosBoxReal, OurDosProgramFindsItsTailDiskAndStagedFiles)
{
    const QString dir = r_ + "/emu/23";
    QDir().mkpath(dir);
    ASSERT_TRUE(QFile::copy(kDosCheck, dir + "/X1EMU.EXE"));
    ASSERT_TRUE(WriteFile(dir + "/DOS4GW.EXE", "extender"));
    Cfg.X1emuDir = dir;
    // Auto would read DOSCHECK's header as a .COM's only under that name: the kind is set.
    RunnerSettings s;
    s.kind = RunnerKind::DosBox;
    Runners()[tv::Emu::X1emu] = s;
    const QString image = r_ + "/images/GAME.D88";
    ASSERT_TRUE(WriteFile(image, Image()));
    Item(2, image, "GAME.D88");

    QElapsedTimer t;
    t.start();
    ScriptedMsgBox box;
    RunSelectedItem(23);
    const qint64 ms = t.elapsed();
    std::printf("[ timing ] a launch through the real DOSBox took %lld ms\n", (long long)ms);

    EXPECT_TRUE(box.calls().empty()) << box.texts().join("|").toStdString();
    const QString report = QString::fromLatin1(ReadFile(r_ + "/snap/REPORT.TXT"));
    EXPECT_EQ(report, "DRIVE=C\r\n"
                      "TAIL= GAME.D88\r\n"
                      "GAME.D88 FOUND\r\n"
                      "DOS4GW.EXE FOUND\r\n");
    EXPECT_TRUE(WorkFiles().isEmpty());
    EXPECT_TRUE(
        QDir(EnvTmpDir)
            .entryList({"torvane-run-*"}, QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
            .isEmpty());
    EXPECT_FALSE(QFile::exists(dir + "/REPORT.TXT"));
    EXPECT_EQ(ReadFile(dir + "/DOS4GW.EXE"), "extender");
}

} // namespace
