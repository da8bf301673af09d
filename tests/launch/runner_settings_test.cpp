// The runner settings file: golden texts of what a save writes, what a read makes of good,
// odd and broken files, and that a save keeps what it doesn't understand.
#include "launch/Runner.h"
#include "support/ProcessState.h"
#include "util/Globals.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <random>

using namespace tv;

namespace {

QByteArray Read(const QString& path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<missing>");
}

void Write(const QString& path, const QByteArray& bytes)
{
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(bytes);
}

class RunnerSettingsFile : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(root.isValid());
        path = root.path() + "/TORVANE_RUNNER.INI";
    }
    QTemporaryDir root;
    QString path;
};

} // namespace

TEST_F(RunnerSettingsFile, PathStandsBesideTheProgram)
{
    tvtest::ProcessState saved;
    AppDir = "/opt/torvane";
    EXPECT_EQ(RunnerSettingsPath(), "/opt/torvane/TORVANE_RUNNER.INI");
}

TEST_F(RunnerSettingsFile, MissingFileGivesTheDefaults)
{
    const RunnerTable t = LoadRunnerSettings(path);
    EXPECT_TRUE(t.empty());
    const RunnerSettings d;
    EXPECT_EQ(d.kind, RunnerKind::Auto);
    EXPECT_TRUE(d.japaneseLocale);
    EXPECT_EQ(d.wineDebug, "-all");
}

TEST_F(RunnerSettingsFile, DefaultsWriteOnlyTheHeader)
{
    RunnerTable t;
    t[Emu::M88] = RunnerSettings{};
    ASSERT_TRUE(SaveRunnerSettings(path, t));
    EXPECT_EQ(Read(path),
              QByteArray("; TORVANE runner settings (UTF-8): one section per emulator\n"));
}

TEST_F(RunnerSettingsFile, GoldenTextOfChangedEmulators)
{
    RunnerTable t;
    RunnerSettings m88;
    m88.kind = RunnerKind::Wine;
    m88.wineProgram = "/opt/wine/bin/wine";
    m88.winePrefix = "/home/利用者/.wine-m88";
    m88.japaneseLocale = false;
    m88.wineDebug = "";
    m88.dllOverrides = "mscoree,mshtml=";
    m88.driveTable = {"D:=/srv/images", "E:=/srv/イメージ"};
    m88.extraArguments = "-debug";
    m88.extraEnvironment = {"WINEESYNC=1"};
    t[Emu::M88] = m88;
    RunnerSettings x1r;
    x1r.kind = RunnerKind::DosBox;
    x1r.dosboxProgram = "dosbox-staging";
    x1r.dosboxFlavour = DosBoxFlavour::Staging;
    t[Emu::X1r] = x1r;
    RunnerSettings j80;
    j80.kind = RunnerKind::Java;
    j80.javaProgram = "/usr/lib/jvm/java-17/bin/java";
    j80.jvmArguments = "-Xmx256m -Dfile.encoding=UTF-8";
    t[Emu::J80] = j80;
    RunnerSettings xm7;
    xm7.kind = RunnerKind::Direct;
    t[Emu::Xm7Win] = xm7;
    ASSERT_TRUE(SaveRunnerSettings(path, t));

    const char* expected = "; TORVANE runner settings (UTF-8): one section per emulator\n"
                           "\n"
                           "[M88]\n"
                           "kind=wine\n"
                           "wine=/opt/wine/bin/wine\n"
                           "wineprefix=/home/利用者/.wine-m88\n"
                           "japanese=0\n"
                           "winedebug=\n"
                           "dlloverrides=mscoree,mshtml=\n"
                           "args=-debug\n"
                           "drive=D:=/srv/images\n"
                           "drive=E:=/srv/イメージ\n"
                           "env=WINEESYNC=1\n"
                           "\n"
                           "[J80]\n"
                           "kind=java\n"
                           "java=/usr/lib/jvm/java-17/bin/java\n"
                           "jvmargs=-Xmx256m -Dfile.encoding=UTF-8\n"
                           "\n"
                           "[Xm7Win]\n"
                           "kind=direct\n"
                           "\n"
                           "[X1r]\n"
                           "kind=dosbox\n"
                           "dosbox=dosbox-staging\n"
                           "dosboxflavour=staging\n";
    EXPECT_EQ(QString::fromUtf8(Read(path)), QString::fromUtf8(expected));
    // Nothing of the temporary name stays behind.
    EXPECT_EQ(QDir(root.path()).entryList(QDir::Files), QStringList{"TORVANE_RUNNER.INI"});

    const RunnerTable back = LoadRunnerSettings(path);
    ASSERT_EQ(back.size(), 4u);
    EXPECT_EQ(back.at(Emu::M88), m88);
    EXPECT_EQ(back.at(Emu::X1r), x1r);
    EXPECT_EQ(back.at(Emu::J80), j80);
    EXPECT_EQ(back.at(Emu::Xm7Win), xm7);
}

TEST_F(RunnerSettingsFile, ReadsOddSpellingsAndSkipsBadLines)
{
    Write(path, "\xEF\xBB\xBF"
                "; a comment\r\n"
                "kind=wine\r\n" // before any section: no home
                "[ m88 ]\r\n"
                "KIND = Wine\r\n"
                "this line is no key\r\n"
                "=novalue\r\n"
                "Japanese=off\r\n"
                "japanese=maybe\r\n" // a value that can't be taken leaves the last good one
                "WinePrefix= /tmp/p \r\n"
                "drive=\r\n" // an empty entry is no entry
                "# another comment\r\n"
                "[X1EMU\r\n" // a broken header: its keys are dropped
                "kind=java\r\n"
                "[x1emu]\r\n"
                "kind=emulator\r\n" // an unknown kind: the key is skipped
                "dosboxflavour=X\r\n");
    const RunnerTable t = LoadRunnerSettings(path);
    ASSERT_EQ(t.size(), 2u);
    const RunnerSettings& m = t.at(Emu::M88);
    EXPECT_EQ(m.kind, RunnerKind::Wine);
    EXPECT_FALSE(m.japaneseLocale);
    EXPECT_EQ(m.winePrefix, "/tmp/p");
    EXPECT_TRUE(m.driveTable.isEmpty());
    const RunnerSettings& x = t.at(Emu::X1emu);
    EXPECT_EQ(x.kind, RunnerKind::Auto);
    EXPECT_EQ(x.dosboxFlavour, DosBoxFlavour::X);
}

TEST_F(RunnerSettingsFile, KeepsWhatItDoesNotKnow)
{
    Write(path, "[M88]\n"
                "kind=wine\n"
                "futurekey=42\n"
                "[Emulator14]\n"
                "kind=wine\n"
                "colour=blue\n");
    RunnerTable t = LoadRunnerSettings(path);
    ASSERT_EQ(t.size(), 1u);
    t[Emu::M88].kind = RunnerKind::Direct;
    ASSERT_TRUE(SaveRunnerSettings(path, t));
    EXPECT_EQ(Read(path), QByteArray("; TORVANE runner settings (UTF-8): one section per emulator\n"
                                     "\n"
                                     "[M88]\n"
                                     "kind=direct\n"
                                     "futurekey=42\n"
                                     "\n"
                                     "[Emulator14]\n"
                                     "kind=wine\n"
                                     "colour=blue\n"));
    // An emulator back at the defaults keeps its section for the key it doesn't know.
    t[Emu::M88] = RunnerSettings{};
    ASSERT_TRUE(SaveRunnerSettings(path, t));
    EXPECT_EQ(Read(path), QByteArray("; TORVANE runner settings (UTF-8): one section per emulator\n"
                                     "\n"
                                     "[M88]\n"
                                     "kind=auto\n"
                                     "futurekey=42\n"
                                     "\n"
                                     "[Emulator14]\n"
                                     "kind=wine\n"
                                     "colour=blue\n"));
}

TEST_F(RunnerSettingsFile, LineBreaksInAValueStayOnOneLine)
{
    RunnerTable t;
    t[Emu::QUASI88].extraArguments = "-a\n[M88]\nkind=java";
    ASSERT_TRUE(SaveRunnerSettings(path, t));
    EXPECT_EQ(Read(path), QByteArray("; TORVANE runner settings (UTF-8): one section per emulator\n"
                                     "\n"
                                     "[QUASI88]\n"
                                     "kind=auto\n"
                                     "args=-a [M88] kind=java\n"));
    EXPECT_EQ(LoadRunnerSettings(path).size(), 1u);
}

TEST_F(RunnerSettingsFile, APlaceThatCannotBeWrittenIsReported)
{
    RunnerTable t;
    t[Emu::M88].kind = RunnerKind::Java;
    EXPECT_FALSE(SaveRunnerSettings(root.path() + "/missing/TORVANE_RUNNER.INI", t));
    // A directory standing under the file's name stays as it is.
    ASSERT_TRUE(QDir().mkpath(path + "/inside"));
    EXPECT_FALSE(SaveRunnerSettings(path, t));
    EXPECT_TRUE(QDir(path + "/inside").exists());
    EXPECT_TRUE(LoadRunnerSettings(path).empty());
}

// Files made of the pieces a settings file has, in any order: reading never fails, and what
// a save writes reads back as the same table (what was understood is never lost or changed).
TEST_F(RunnerSettingsFile, AnyFileReadsAndRoundTrips)
{
    const QStringList pieces = {"[M88]",
                                "[x1r]",
                                "[J80]",
                                "[Nowhere]",
                                "[broken",
                                "kind=wine",
                                "kind=DOSBOX",
                                "kind=nothing",
                                "japanese=0",
                                "japanese=yes",
                                "wine=/opt/w",
                                "wineprefix= /p x ",
                                "drive=D:=/d",
                                "env=A=1",
                                "env=",
                                "dosboxflavour=x",
                                "args=-a -b",
                                "jvmargs=-X",
                                "unknown=1",
                                "=",
                                "; c",
                                "# c",
                                "",
                                " ",
                                "\r",
                                "ねこ=1",
                                "[M88]x",
                                "winedebug=",
                                "dlloverrides=a,b=n"};
    std::mt19937 rng(18);
    const QString second = root.path() + "/second.ini";
    for (int round = 0; round < 300; ++round) {
        QStringList lines;
        const int n = int(rng() % 30);
        for (int i = 0; i < n; ++i)
            lines << pieces[int(rng() % pieces.size())];
        Write(path, lines.join(rng() % 2 ? "\n" : "\r\n").toUtf8());
        const RunnerTable first = LoadRunnerSettings(path);
        QFile::remove(second);
        ASSERT_TRUE(SaveRunnerSettings(second, first));
        const RunnerTable again = LoadRunnerSettings(second);
        // Emulators at the defaults have no section in what is written.
        RunnerTable expected;
        for (const auto& [emu, s] : first)
            if (!(s == RunnerSettings{}))
                expected[emu] = s;
        for (const auto& [emu, s] : again)
            EXPECT_TRUE(expected.count(emu) ? expected.at(emu) == s : s == RunnerSettings{})
                << lines.join(" | ").toStdString();
        for (const auto& [emu, s] : expected)
            EXPECT_TRUE(again.count(emu) && again.at(emu) == s) << lines.join(" | ").toStdString();
        if (HasFailure())
            break;
    }
}
