#include "adapters/m88/M88Ini.h"
#include "adapters/m88/M88Launch.h"
#include "data/Cfg.h"
#include "util/Globals.h"
#include "util/Sjis.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tv;

namespace {

class M88LaunchTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(root_.isValid());
        QDir r(root_.path());
        for (const char* d : {"tmp", "m88", "app/TORVBOOT"})
            ASSERT_TRUE(r.mkpath(QString::fromLatin1(d)));
        saved_ = {EnvTmpDir, EnvTempDir, SystemDir, WindowsDir, WorkDir, Cfg.M88Dir};
        savedPan_ = Cfg.PanUse;
        EnvTmpDir = EnvTempDir = r.filePath(QStringLiteral("tmp"));
        SystemDir = QStringLiteral("/usr");
        WindowsDir = QStringLiteral("/etc");
        emu_ = r.filePath(QStringLiteral("m88"));
        WorkDir = r.filePath(QStringLiteral("app/TORVBOOT"));
        Cfg.M88Dir = emu_ + QStringLiteral("  ");
        Cfg.PanUse = 0;
    }
    void TearDown() override
    {
        EnvTmpDir = saved_[0];
        EnvTempDir = saved_[1];
        SystemDir = saved_[2];
        WindowsDir = saved_[3];
        WorkDir = saved_[4];
        Cfg.M88Dir = saved_[5];
        Cfg.PanUse = savedPan_;
    }
    QTemporaryDir root_;
    std::array<QString, 6> saved_;
    uint8_t savedPan_ = 0;
    QString emu_;
};

} // namespace

TEST_F(M88LaunchTest, GeneratedIniReplacesTheUsersFileWhole)
{
    const QString path = emu_ + QStringLiteral("/M88.INI");
    {
        QFile f(path);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write("[M88p2 for Windows]\r\nUnknownKey=1\r\n" + QByteArray(3000, ';'));
    }
    EmuOpt88 o;
    SetDefaultEmuOpt88(o);
    o.M88_1Op[23] = 1;
    EXPECT_EQ(WriteGeneratedM88Ini(o), 1);
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QByteArray bytes = f.readAll();
    EXPECT_EQ(bytes, ToSjis(MakeM88Ini(o)) + "\r\n");
    EXPECT_FALSE(bytes.contains("UnknownKey"));
    EXPECT_TRUE(bytes.startsWith("[M88p2 for Windows]\r\nBIOSPath=Z:" +
                                 M88PathForm(emu_).mid(2).toUtf8() + "\r\nDirectory=Z:"));
    o.M88_1Op[23] = 0;
    EXPECT_EQ(WriteGeneratedM88Ini(o), 0);
}

TEST_F(M88LaunchTest, GeneratedIniWithoutAUsersFile)
{
    EmuOpt88 o;
    SetDefaultEmuOpt88(o);
    EXPECT_EQ(WriteGeneratedM88Ini(o), 0);
    EXPECT_TRUE(QFile::exists(emu_ + QStringLiteral("/M88.INI")));
}

TEST(M88Flags, CorrectionOfAnExistingIni)
{
    EXPECT_EQ(CorrectM88Flags(QString()), QStringLiteral("3"));
    EXPECT_EQ(CorrectM88Flags(QStringLiteral("abc")), QStringLiteral("3"));
    EXPECT_EQ(CorrectM88Flags(QStringLiteral("12345678901")), QStringLiteral("3")); // 11 chars
    // Words that a number parser may take for infinities or not-a-number are no numbers.
    for (const char* word : {"inf", "nan", "-inf", "infinity", "NaN"})
        EXPECT_EQ(CorrectM88Flags(QString::fromLatin1(word)), QStringLiteral("3")) << word;
    // 8 digits ending in hexadecimal 3 are left alone: 12345683 = 0xBC6153.
    EXPECT_EQ(CorrectM88Flags(QStringLiteral("12345683")), std::nullopt);
    EXPECT_EQ(CorrectM88Flags(QStringLiteral("3")), std::nullopt);
    EXPECT_EQ(CorrectM88Flags(QStringLiteral("2")), std::nullopt);
    EXPECT_EQ(CorrectM88Flags(QStringLiteral("15")), std::nullopt); // F
    // Last hexadecimal digit 0, 1, 4, 5, 8, 9, C, D: bit 1 clear, so plus 2.
    const std::pair<int, int> clear[] = {{0, 2},  {1, 3},   {4, 6},   {5, 7},   {8, 10},
                                         {9, 11}, {12, 14}, {13, 15}, {16, 18}, {253, 255}};
    for (auto [in, out] : clear)
        EXPECT_EQ(CorrectM88Flags(QString::number(in)), QString::number(out)) << in;
    // 10 characters are still a number: 0x499602D1.
    EXPECT_EQ(CorrectM88Flags(QStringLiteral("1234567890")), std::nullopt); // ...D2
    EXPECT_EQ(CorrectM88Flags(QStringLiteral("1234567889")), QStringLiteral("1234567891"));
}

TEST_F(M88LaunchTest, CommandLineWithTheImage)
{
    const M88Command c = MakeM88Command(QStringLiteral("Game Disk.d88"), QString());
    EXPECT_EQ(c.Program, emu_ + QStringLiteral("/M88.EXE"));
    EXPECT_EQ(c.CmdLine, emu_ + QStringLiteral("/M88.EXE Game Disk.d88"));
    EXPECT_EQ(c.Args, QStringList{QStringLiteral("Game Disk.d88")});
    EXPECT_TRUE(c.Paste1.isEmpty());
    EXPECT_TRUE(c.Paste2.isEmpty());
}

TEST_F(M88LaunchTest, CommandLineWithTheFmpanDisk)
{
    Cfg.PanUse = 1;
    const M88Command c = MakeM88Command(QStringLiteral("GAME.D88"), QStringLiteral("FMPAN.D88 "));
    EXPECT_EQ(c.CmdLine, emu_ + QStringLiteral("/M88.EXE FMPAN.D88 "));
    EXPECT_EQ(c.Args, QStringList{QStringLiteral("FMPAN.D88")});
    EXPECT_EQ(c.Paste1, QStringLiteral("GAME.D88"));
    EXPECT_TRUE(c.Paste2.isEmpty());
    // PanUse on and the FMPAN file missing: the image still goes in by the file dialog.
    const M88Command d = MakeM88Command(QStringLiteral("GAME.D88"), QString());
    EXPECT_EQ(d.CmdLine, emu_ + QStringLiteral("/M88.EXE "));
    EXPECT_TRUE(d.Args.isEmpty());
    EXPECT_EQ(d.Paste1, QStringLiteral("GAME.D88"));
}

TEST_F(M88LaunchTest, TapeImageNeverStandsOnTheCommandLine)
{
    for (uint8_t pan : {0, 1}) {
        Cfg.PanUse = pan;
        const M88Command c =
            MakeM88Command(QStringLiteral("tape.t88"), pan ? QStringLiteral("FMPAN.D88 ") : "");
        EXPECT_EQ(c.CmdLine, emu_ + QStringLiteral("/M88.EXE"));
        EXPECT_TRUE(c.Args.isEmpty());
        EXPECT_EQ(c.Paste1, QStringLiteral("tape.t88"));
        EXPECT_TRUE(c.Paste2.isEmpty());
    }
}
