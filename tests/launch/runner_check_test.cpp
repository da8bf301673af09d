// The runner check of the runner dialog, with every outside call scripted: the report texts
// for each kind, the calls made and their environment, and the texts about program headers.
#include "data/Cfg.h"
#include "launch/RunnerCheck.h"
#include "support/GuardedDirs.h"
#include "support/ProcessState.h"
#include "support/ProgramBytes.h"
#include "support/ScriptedProbe.h"
#include "util/Globals.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tv;
using namespace tvtest;

namespace {

QByteArray Pe(quint16 machine)
{
    return WindowsExe(QByteArray("PE\0\0", 4), machine);
}

QString WineForm(QString path)
{
    return "Z:" + path.replace('/', '\\');
}

class RunnerCheckTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(root.isValid());
        r = root.path();
        AppDir = r + "/app";
        WorkDir = AppDir + "/TORVBOOT";
        QDir().mkpath(WorkDir);
        SetDefaultCfg(Cfg);
        emu = r + "/emu";
        QDir().mkpath(emu);
        Cfg.M88Dir = emu;
        Cfg.X1rDir = emu;
        Cfg.J80Dir = emu;
    }
    QTemporaryDir root;
    ProcessState state;
    QString r, emu;
};

} // namespace

TEST(RunnerCheckTexts, WindowsProgramBitsByHeader)
{
    QTemporaryDir d;
    const QString p = d.path() + "/P.EXE";
    ASSERT_TRUE(WriteFile(p, Pe(0x014C)));
    EXPECT_EQ(WindowsProgramBits(p), 32);
    ASSERT_TRUE(WriteFile(p, Pe(0x8664)));
    EXPECT_EQ(WindowsProgramBits(p), 64);
    ASSERT_TRUE(WriteFile(p, WindowsExe("NE", 0)));
    EXPECT_EQ(WindowsProgramBits(p), 16);
    ASSERT_TRUE(WriteFile(p, WindowsExe("LE", 0)));
    EXPECT_EQ(WindowsProgramBits(p), 0);
    ASSERT_TRUE(WriteFile(p, Pe(0x014C).left(0x42)));
    EXPECT_EQ(WindowsProgramBits(p), 0);
    ASSERT_TRUE(WriteFile(p, "MZ"));
    EXPECT_EQ(WindowsProgramBits(p), 0);
    EXPECT_EQ(WindowsProgramBits(d.path() + "/none"), 0);
}

TEST(RunnerCheckTexts, MismatchWarnings)
{
    using H = ProgramHeader;
    using K = RunnerKind;
    EXPECT_EQ(RunnerMismatchText(Emu::M88, H::Pe, K::Auto), "");
    EXPECT_EQ(RunnerMismatchText(Emu::M88, H::Pe, K::Wine), "");
    EXPECT_EQ(RunnerMismatchText(Emu::X1r, H::Com, K::DosBox), "");
    EXPECT_EQ(RunnerMismatchText(Emu::M88, H::Elf, K::Direct), "");
    EXPECT_EQ(RunnerMismatchText(Emu::J80, H::Unknown, K::Java), "");
    EXPECT_EQ(RunnerMismatchText(Emu::M88, H::Pe, K::DosBox),
              "ヘッダは Windows のプログラム (PE) です。DOSBox では起動できません");
    EXPECT_EQ(RunnerMismatchText(Emu::X1emu, H::Mz, K::Wine),
              "ヘッダは DOS のプログラム (MZ) です。Wine では起動できません");
    EXPECT_EQ(RunnerMismatchText(Emu::X1r, H::Com, K::Direct),
              "ヘッダのない .COM は直接には起動できません（DOSBox を選んでください）");
    EXPECT_EQ(RunnerMismatchText(Emu::M88, H::Pe, K::Direct),
              "直接起動は Wine が実行形式に登録されているときだけ動きます"
              "（ヘッダは Windows のプログラム (PE)）");
    EXPECT_EQ(RunnerMismatchText(Emu::X1emu, H::Mz, K::Direct),
              "DOS のプログラムは直接には起動できません（DOSBox を選んでください）");
    EXPECT_EQ(RunnerMismatchText(Emu::M88, H::Pe, K::Java), "Java で起動するのは j80 だけです");
    EXPECT_EQ(RunnerMismatchText(Emu::J80, H::Unknown, K::Wine),
              "ヘッダは 種類の分からないファイル です。Wine では起動できません");
    // A header that says nothing gives no warning.
    EXPECT_EQ(RunnerMismatchText(Emu::M88, H::Missing, K::DosBox), "");
}

TEST_F(RunnerCheckTest, WineWithEverythingInPlace)
{
    ASSERT_TRUE(WriteFile(emu + "/M88.EXE", Pe(0x014C)));
    ScriptedProbe probe;
    probe.answer("wine --version", "wine-8.0 (Debian 8.0~repack-4)\n");
    probe.file(r + "/prefix/system.reg");
    probe.answer("winepath -w " + WorkDir, WineForm(WorkDir) + "\n");
    probe.answer("locale -a", "C\nC.utf8\nja_JP.utf8\nPOSIX\n");
    probe.file("/usr/lib/wine/wine");
    RunnerSettings s;
    s.kind = RunnerKind::Wine;
    s.winePrefix = r + "/prefix";

    EXPECT_EQ(CheckRunner(Emu::M88, s),
              "M88 の確認（ランナー: Wine）\n"
              "プログラム: " +
                  emu +
                  "/M88.EXE — Windows のプログラム (PE, 32ビット)\n"
                  "[OK] Wine: wine-8.0 (Debian 8.0~repack-4)\n"
                  "[OK] winepath -w " +
                  WorkDir + " → " + WineForm(WorkDir) +
                  "（TORVANE の形と同じ）\n"
                  "[OK] 日本語ロケール ja_JP.UTF-8 があります\n"
                  "[OK] 32ビット用 Wine があります (/usr/lib/wine/wine)\n");
    EXPECT_EQ(probe.calls, QStringList({"wine --version", "winepath -w " + WorkDir, "locale -a"}));
    // winepath runs in the emulator's prefix, quietly.
    EXPECT_EQ(probe.envs[1], QStringList({"WINEDEBUG=-all", "WINEPREFIX=" + r + "/prefix"}));
}

TEST_F(RunnerCheckTest, WineWithNothingInPlace)
{
    ASSERT_TRUE(WriteFile(emu + "/M88.EXE", WindowsExe("NE", 0)));
    ScriptedProbe probe;
    probe.answer("locale -a", "C\nPOSIX\n");
    RunnerSettings s;
    s.wineProgram = "/opt/wine/bin/wine";
    s.winePrefix = r + "/fresh";

    EXPECT_EQ(CheckRunner(Emu::M88, s),
              "M88 の確認（ランナー: Wine、自動判定）\n"
              "プログラム: " +
                  emu +
                  "/M88.EXE — 16ビット Windows のプログラム (NE)\n"
                  "[NG] Wine が見つかりません: /opt/wine/bin/wine\n"
                  "[--] winepath: プレフィックス " +
                  r +
                  "/fresh は未作成です"
                  "（最初の起動で作成されます）。TORVANE の形: " +
                  WineForm(WorkDir) +
                  "\n"
                  "[NG] 日本語ロケール ja_JP.UTF-8 がありません"
                  "（sudo dpkg-reconfigure locales で ja_JP.UTF-8 を作成）\n"
                  "[NG] 16ビットの Windows プログラムですが、32ビット用 Wine がありません"
                  "（sudo dpkg --add-architecture i386 && sudo apt-get update"
                  " && sudo apt-get install wine32）\n");
    // An unprepared prefix is never touched by the check.
    EXPECT_EQ(probe.calls, QStringList({"/opt/wine/bin/wine --version", "locale -a"}));
}

TEST_F(RunnerCheckTest, WinePathThatDiffersAndA64BitProgram)
{
    ASSERT_TRUE(WriteFile(emu + "/M88.EXE", Pe(0x8664)));
    ScriptedProbe probe;
    probe.answer("/opt/wine/bin/wine --version", "wine-9.0\n");
    probe.file(QDir::homePath() + "/.wine/system.reg");
    probe.answer("/opt/wine/bin/winepath -w " + WorkDir, "D:\\TORVBOOT\n");
    RunnerSettings s;
    s.kind = RunnerKind::Wine;
    s.wineProgram = "/opt/wine/bin/wine";
    s.japaneseLocale = false;

    EXPECT_EQ(CheckRunner(Emu::M88, s),
              "M88 の確認（ランナー: Wine）\n"
              "プログラム: " +
                  emu +
                  "/M88.EXE — Windows のプログラム (PE, 64ビット)\n"
                  "[OK] Wine: wine-9.0\n"
                  "[NG] winepath -w " +
                  WorkDir + " → D:\\TORVBOOT ですが、TORVANE は " + WineForm(WorkDir) +
                  " を渡します。ドライブ表を確かめてください\n"
                  "[--] 日本語ロケール: 使わない設定です\n"
                  "[--] 32ビット用 Wine: 64ビットのプログラムには不要です\n");
    EXPECT_EQ(probe.envs[1], QStringList({"WINEDEBUG=-all"}));
}

TEST_F(RunnerCheckTest, DosBoxAskedForItsVersionByFlavour)
{
    ASSERT_TRUE(WriteFile(emu + "/X1R.COM", QByteArray("\xEB\x10 x1r", 6)));
    ScriptedProbe probe;
    probe.answer("dosbox -version", "\nDOSBox version 0.74-3, copyright 2002-2019 DOSBox Team.\n");
    probe.hang("dosbox-staging --version");
    RunnerSettings s;
    s.kind = RunnerKind::DosBox;
    EXPECT_EQ(CheckRunner(Emu::X1r, s),
              "X1R の確認（ランナー: DOSBox）\n"
              "プログラム: " +
                  emu +
                  "/X1R.COM — DOS のプログラム (.COM)\n"
                  "[OK] DOSBox: DOSBox version 0.74-3, copyright 2002-2019 DOSBox Team.\n");
    s.dosboxProgram = "dosbox-staging";
    s.dosboxFlavour = DosBoxFlavour::Staging;
    EXPECT_EQ(CheckRunner(Emu::X1r, s),
              "X1R の確認（ランナー: DOSBox）\n"
              "プログラム: " +
                  emu +
                  "/X1R.COM — DOS のプログラム (.COM)\n"
                  "[NG] DOSBox が応答しません: dosbox-staging --version\n");
}

TEST_F(RunnerCheckTest, JavaAndDirect)
{
    ASSERT_TRUE(WriteFile(emu + "/j80.jar", QByteArray("PK\x03\x04", 4)));
    ASSERT_TRUE(WriteFile(emu + "/M88.EXE", "#!/bin/sh\n"));
    QFile::setPermissions(emu + "/M88.EXE", QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    ScriptedProbe probe;
    probe.answer("/usr/lib/jvm/bin/java -version", "openjdk version \"17.0.2\"\nOpenJDK RE\n");
    RunnerSettings s;
    s.javaProgram = "/usr/lib/jvm/bin/java";
    // {E} stands for the emulator's directory.
    const auto fill = [&](const char* t) { return QString::fromUtf8(t).replace("{E}", emu); };
    EXPECT_EQ(CheckRunner(Emu::J80, s), fill("j80 の確認（ランナー: Java、自動判定）\n"
                                             "プログラム: {E}/j80.jar — 種類の分からないファイル\n"
                                             "[OK] Java: openjdk version \"17.0.2\"\n"));
    EXPECT_EQ(CheckRunner(Emu::M88, RunnerSettings{}),
              fill("M88 の確認（ランナー: 直接、自動判定）\n"
                   "プログラム: {E}/M88.EXE — スクリプト (#!)\n"
                   "[OK] ランナーなしで直接起動します（実行できるファイルです）\n"));
    QFile::setPermissions(emu + "/M88.EXE", QFile::ReadOwner | QFile::WriteOwner);
    EXPECT_EQ(CheckRunner(Emu::M88, RunnerSettings{}),
              fill("M88 の確認（ランナー: 直接、自動判定）\n"
                   "プログラム: {E}/M88.EXE — スクリプト (#!)\n"
                   "[NG] ランナーなしで直接起動しますが、実行の許可がありません\n"));
    EXPECT_EQ(probe.calls, QStringList({"/usr/lib/jvm/bin/java -version"}));
}

TEST_F(RunnerCheckTest, AnEmulatorWithoutDirectory)
{
    Cfg.M88Dir.clear();
    ScriptedProbe probe;
    EXPECT_EQ(CheckRunner(Emu::M88, RunnerSettings{}),
              "M88 の確認（ランナー: 直接、自動判定）\n"
              "プログラム: （ディレクトリ未設定） — プログラムがありません\n"
              "[NG] ランナーなしで直接起動しますが、プログラムがありません\n");
}

TEST_F(RunnerCheckTest, WinePathThroughTheDriveTable)
{
    ASSERT_TRUE(WriteFile(emu + "/M88.EXE", Pe(0x8664)));
    ScriptedProbe probe;
    probe.answer("wine --version", "wine-8.0\n");
    probe.file(r + "/prefix/system.reg");
    probe.answer("winepath -w " + WorkDir, "T:\\TORVBOOT\n");
    RunnerSettings s;
    s.kind = RunnerKind::Wine;
    s.winePrefix = r + "/prefix";
    s.japaneseLocale = false;
    s.driveTable = {"T:=" + AppDir + "/", "R:=" + r};
    EXPECT_EQ(CheckRunner(Emu::M88, s).split('\n').value(3),
              "[OK] winepath -w " + WorkDir + " → T:\\TORVBOOT（TORVANE の形と同じ）");
}
