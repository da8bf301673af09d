// The test emulator itself: what it records and the file actions it performs on request.
#include "support/TestEmu.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tvtest;

TEST(TestEmulator, RecordsItsStartAndActsOnFiles)
{
    QTemporaryDir root;
    const QString emu = root.filePath("emu"), work = root.filePath("work");
    QDir().mkpath(emu);
    QDir().mkpath(work);
    const QString log = root.filePath("log.txt");
    const QString exe = InstallTestEmu(emu, "XM7.EXE");
    ASSERT_FALSE(exe.isEmpty());
    QFile disk(work + "/GAME.D77");
    ASSERT_TRUE(disk.open(QIODevice::WriteOnly));
    disk.write(QByteArray(64, '\0'));
    disk.close();
    const QDateTime before = QFileInfo(disk).lastModified();
    QFile(work + "/OLD.TXT").open(QIODevice::WriteOnly);
    ASSERT_TRUE(WriteTestEmuConfig(emu, {{"log", log},
                                         {"change", "GAME.D77"},
                                         {"save", "GAME_0.S88, GAME_1.S88"},
                                         {"delete", "OLD.TXT"},
                                         {"dump", "screen.png"},
                                         {"exitafter", "100"},
                                         {"exitcode", "4"}}));
    QProcess p;
    p.setWorkingDirectory(work);
    p.start(exe, {"GAME.D77", "two words"});
    ASSERT_TRUE(p.waitForFinished(10000));
    EXPECT_EQ(p.exitCode(), 4);

    auto runs = ReadTestEmuLog(log);
    ASSERT_EQ(runs.size(), 1u);
    const TestEmuRun& r = runs[0];
    EXPECT_EQ(r.exeName, QStringLiteral("XM7.EXE"));
    EXPECT_EQ(r.args, (QStringList{exe, "GAME.D77", "two words"}));
    EXPECT_EQ(QDir(r.cwd).canonicalPath(), QDir(work).canonicalPath());
    EXPECT_EQ(r.files, (QStringList{"GAME.D77", "OLD.TXT"}));
    EXPECT_TRUE(r.exited);
    EXPECT_EQ(r.exitCode, 4);
    EXPECT_EQ(r.done.size(), 5);

    QFile changed(work + "/GAME.D77");
    ASSERT_TRUE(changed.open(QIODevice::ReadOnly));
    const QByteArray bytes = changed.readAll();
    EXPECT_EQ(bytes.size(), 64);
    EXPECT_EQ(bytes.mid(32, 16), QByteArray("TESTEMU CHANGED!"));
    EXPECT_GE(QFileInfo(changed).lastModified(), before.addSecs(2));
    EXPECT_TRUE(QFile::exists(work + "/GAME_0.S88"));
    EXPECT_TRUE(QFile::exists(work + "/GAME_1.S88"));
    EXPECT_FALSE(QFile::exists(work + "/OLD.TXT"));
    EXPECT_GT(QFileInfo(work + "/screen.png").size(), 0);
}

TEST(TestEmulator, InstallsUnderEveryEmulatorName)
{
    QTemporaryDir root;
    for (const QString& name : kEmuExecutables) {
        const QString path = InstallTestEmu(root.path(), name);
        EXPECT_EQ(path, root.path() + "/" + name);
        EXPECT_TRUE(QFileInfo(path).isExecutable());
    }
}

// "show=" and "list=": what stands in files and directories when the emulator starts, before
// its own actions change anything.
TEST(TestEmulator, ShowsFilesAndListsDirectoriesAtItsStart)
{
    QTemporaryDir root;
    const QString emu = root.filePath("emu"), side = root.filePath("side"),
                  empty = root.filePath("empty");
    for (const QString& d : {emu, side, empty})
        QDir().mkpath(d);
    const QString log = root.filePath("log.txt");
    const QString exe = InstallTestEmu(emu, "M88.EXE");
    ASSERT_FALSE(exe.isEmpty());
    // Bytes that no text form would keep: CR LF, NUL, Shift-JIS, a tab.
    static const char raw[] = "[A]\r\nKey=\x83\x65\x83\x58\x83\x67\0\t\xff\r\n";
    const QByteArray ini(raw, sizeof raw - 1);
    QFile f(side + "/M88.INI");
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(ini);
    f.close();
    QFile(side + "/b._m88").open(QIODevice::WriteOnly);
    QFile(side + "/A.m88").open(QIODevice::WriteOnly);
    ASSERT_TRUE(WriteTestEmuConfig(emu, {{"log", log},
                                         {"show", side + "/M88.INI, " + side + "/NONE.INI"},
                                         {"list", side + "," + empty},
                                         {"delete", side + "/M88.INI"},
                                         {"exitafter", "100"}}));
    QProcess p;
    p.setWorkingDirectory(root.path());
    p.start(exe, QStringList());
    ASSERT_TRUE(p.waitForFinished(10000));

    const auto runs = ReadTestEmuLog(log);
    ASSERT_EQ(runs.size(), 1u);
    const TestEmuRun& r = runs[0];
    ASSERT_EQ(ini.size(), 20);
    EXPECT_EQ(r.shown.keys(), QStringList{side + "/M88.INI"});
    EXPECT_EQ(r.shown.value(side + "/M88.INI"), ini);
    EXPECT_EQ(r.unreadable, QStringList{side + "/NONE.INI"});
    EXPECT_EQ(r.listed.value(side), (QStringList{"A.m88", "M88.INI", "b._m88"}));
    ASSERT_TRUE(r.listed.contains(empty));
    EXPECT_TRUE(r.listed.value(empty).isEmpty());
    // The delete came after: the file shown is gone now.
    EXPECT_FALSE(QFile::exists(side + "/M88.INI"));
}
