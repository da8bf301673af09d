#include "adapters/pc88win/Pc88WinIni.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tv;

namespace {

EmuOpt88 Defaults()
{
    EmuOpt88 o;
    SetDefaultEmuOpt88(o);
    return o;
}

QByteArray ReadAll(const QString& path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return QByteArray("<unreadable>");
    return f.readAll();
}

} // namespace

TEST(Pc88WinIni, DefaultBlock)
{
    EXPECT_EQ(MakePc88WinIni(Defaults()), QStringLiteral("[PC88Win]\r\n"
                                                         "Mode=2\r\n"
                                                         "Speed=0\r\n"
                                                         "Sampling=0\r\n"
                                                         "FMvolume=512\r\n"
                                                         "SSGvolume=256\r\n"
                                                         "FPS=60\r\n"
                                                         "Imode=1\r\n"
                                                         "SoundPriority=1\r\n"
                                                         "VirtualKey=0\r\n"
                                                         "FMdevice=1\r\n"));
}

TEST(Pc88WinIni, EveryElementInItsPlace)
{
    EmuOpt88 o = Defaults();
    o.Pc8_1Op = {1, 1, 1, 30, 0, 0, 1, 0};
    o.Pc8_2Op = {1024, 1000};
    EXPECT_EQ(MakePc88WinIni(o), QStringLiteral("[PC88Win]\r\n"
                                                "Mode=1\r\n"
                                                "Speed=1\r\n"
                                                "Sampling=1\r\n"
                                                "FMvolume=512\r\n"
                                                "SSGvolume=1000\r\n"
                                                "FPS=30\r\n"
                                                "Imode=0\r\n"
                                                "SoundPriority=0\r\n"
                                                "VirtualKey=1\r\n"
                                                "FMdevice=0\r\n"));
}

TEST(Pc88WinIni, FmVolumeOfTheBlockNeverReachesTheFile)
{
    EmuOpt88 o = Defaults();
    o.Pc8_2Op[0] = 100;
    EXPECT_EQ(MakePc88WinIni(o), QStringLiteral("[PC88Win]\r\n"
                                                "Mode=2\r\n"
                                                "Speed=0\r\n"
                                                "Sampling=0\r\n"
                                                "FMvolume=512\r\n"
                                                "SSGvolume=256\r\n"
                                                "FPS=60\r\n"
                                                "Imode=1\r\n"
                                                "SoundPriority=1\r\n"
                                                "VirtualKey=0\r\n"
                                                "FMdevice=1\r\n"));
    o.Pc8_2Op[0] = 0;
    EXPECT_TRUE(
        MakePc88WinIni(o).contains(QStringLiteral("\r\nFMvolume=512\r\nSSGvolume=256\r\n")));
}

TEST(Pc88WinIni, WriteEndsInAnEmptyLine)
{
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString path = dir.filePath(kPc88WinIniName);
    {
        // The user's longer file is replaced whole.
        QFile old(path);
        ASSERT_TRUE(old.open(QIODevice::WriteOnly));
        old.write(QByteArray(400, 'x'));
    }
    ASSERT_TRUE(WritePc88WinIni(path, MakePc88WinIni(Defaults())));
    EXPECT_EQ(ReadAll(path), QByteArray("[PC88Win]\r\n"
                                        "Mode=2\r\n"
                                        "Speed=0\r\n"
                                        "Sampling=0\r\n"
                                        "FMvolume=512\r\n"
                                        "SSGvolume=256\r\n"
                                        "FPS=60\r\n"
                                        "Imode=1\r\n"
                                        "SoundPriority=1\r\n"
                                        "VirtualKey=0\r\n"
                                        "FMdevice=1\r\n"
                                        "\r\n"));
}

TEST(Pc88WinIni, WriteFailsWhereNoFileCanBeMade)
{
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    EXPECT_FALSE(WritePc88WinIni(dir.filePath(QStringLiteral("missing/PC88WIN.INI")),
                                 QStringLiteral("[PC88Win]\r\n")));
}
