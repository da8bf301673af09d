#include "adapters/j80/J80Cfg.h"
#include "util/Globals.h"
#include "util/Sjis.h"

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

// As the configuration holds them: blank-filled to their widths.
QString Field(const char* text, int width)
{
    return QString::fromUtf8(text).leftJustified(width, QLatin1Char(' '));
}

CfgRecord J80Settings()
{
    CfgRecord c;
    c.J80RomsFile = Field("/roms/PC88.ROM", 256);
    c.J80RomsAddress = Field("16000", 8);
    c.J80Rom4File = Field("/roms/N80_10.ROM", 256);
    c.J80Rom4Address = Field("6000", 8);
    c.J80FontFile = Field("/roms/PC-8001.FON", 256);
    c.J80FontAddress = Field("", 8);
    c.J80DiskFile = Field("/roms/PC88.ROM", 256);
    c.J80DiskAddress = Field("14000", 8);
    c.J80CrtFile = Field("/j80/pc8001.crt", 256);
    c.J80KeyFile = Field("/j80/jp.key", 256);
    c.J80PenDir = Field("/j80/pen", 256);
    return c;
}

const QString kWork = QStringLiteral("/app/TORVBOOT");

QByteArray ReadAll(const QString& path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return QByteArray("<unreadable>");
    return f.readAll();
}

} // namespace

TEST(J80Cfg, DefaultBlockWithEverySettingGiven)
{
    EXPECT_EQ(MakeJ80Cfg(Defaults(), J80Settings(), kWork),
              QStringLiteral("\tROMs\t/roms/PC88.ROM\t0x16000\r\n"
                             "\tROM4\t/roms/N80_10.ROM\t0x6000\r\n"
                             "\tFONT\t/roms/PC-8001.FON\r\n"
                             "\tDISK\t/roms/PC88.ROM\t0x14000\r\n"
                             "\t-CRT\t/j80/pc8001.crt\r\n"
                             "\t-KEY\t/j80/jp.key\r\n"
                             "\t-CMT\t/app/TORVBOOT/\r\n"
                             "\t-D88\t/app/TORVBOOT/\r\n"
                             "\t-TMP\t/app/TORVBOOT/\r\n"
                             "\t-PEN\t/j80/pen\r\n"
                             "\tSOUND\t100\t50\r\n"));
}

TEST(J80Cfg, EmptyRom4AndDiskLeaveTheBareKeysWithoutLineEnds)
{
    CfgRecord c = J80Settings();
    c.J80Rom4File = Field("", 256);
    c.J80DiskFile = Field("", 256);
    EXPECT_EQ(MakeJ80Cfg(Defaults(), c, kWork), QStringLiteral("\tROMs\t/roms/PC88.ROM\t0x16000\r\n"
                                                               "\tROM4\tFONT\t/roms/PC-8001.FON\r\n"
                                                               "\tDISK\t-CRT\t/j80/pc8001.crt\r\n"
                                                               "\t-KEY\t/j80/jp.key\r\n"
                                                               "\t-CMT\t/app/TORVBOOT/\r\n"
                                                               "\t-D88\t/app/TORVBOOT/\r\n"
                                                               "\t-TMP\t/app/TORVBOOT/\r\n"
                                                               "\t-PEN\t/j80/pen\r\n"
                                                               "\tSOUND\t100\t50\r\n"));
}

TEST(J80Cfg, OptionalEntriesWithAPathButNoAddressHaveNoAddressField)
{
    CfgRecord c = J80Settings();
    c.J80Rom4Address = Field("", 8);
    c.J80DiskAddress = Field("", 8);
    EXPECT_EQ(MakeJ80Cfg(Defaults(), c, kWork), QStringLiteral("\tROMs\t/roms/PC88.ROM\t0x16000\r\n"
                                                               "\tROM4\t/roms/N80_10.ROM\r\n"
                                                               "\tFONT\t/roms/PC-8001.FON\r\n"
                                                               "\tDISK\t/roms/PC88.ROM\r\n"
                                                               "\t-CRT\t/j80/pc8001.crt\r\n"
                                                               "\t-KEY\t/j80/jp.key\r\n"
                                                               "\t-CMT\t/app/TORVBOOT/\r\n"
                                                               "\t-D88\t/app/TORVBOOT/\r\n"
                                                               "\t-TMP\t/app/TORVBOOT/\r\n"
                                                               "\t-PEN\t/j80/pen\r\n"
                                                               "\tSOUND\t100\t50\r\n"));
}

TEST(J80Cfg, AnAddressWithoutAnOptionalPathIsDropped)
{
    CfgRecord c = J80Settings();
    c.J80Rom4File = Field("", 256);
    EXPECT_TRUE(MakeJ80Cfg(Defaults(), c, kWork)
                    .contains(QStringLiteral("\r\n\tROM4\tFONT\t/roms/PC-8001.FON\r\n")));
}

TEST(J80Cfg, EmptyPenDirectoryIsWorkDirWithoutASlash)
{
    CfgRecord c = J80Settings();
    c.J80PenDir = Field("", 256);
    EXPECT_EQ(MakeJ80Cfg(Defaults(), c, kWork),
              QStringLiteral("\tROMs\t/roms/PC88.ROM\t0x16000\r\n"
                             "\tROM4\t/roms/N80_10.ROM\t0x6000\r\n"
                             "\tFONT\t/roms/PC-8001.FON\r\n"
                             "\tDISK\t/roms/PC88.ROM\t0x14000\r\n"
                             "\t-CRT\t/j80/pc8001.crt\r\n"
                             "\t-KEY\t/j80/jp.key\r\n"
                             "\t-CMT\t/app/TORVBOOT/\r\n"
                             "\t-D88\t/app/TORVBOOT/\r\n"
                             "\t-TMP\t/app/TORVBOOT/\r\n"
                             "\t-PEN\t/app/TORVBOOT\r\n"
                             "\tSOUND\t100\t50\r\n"));
}

TEST(J80Cfg, EmptyObligatoryPathsGiveEmptyFields)
{
    CfgRecord c;
    c.J80RomsAddress = Field("16000", 8);
    EXPECT_EQ(MakeJ80Cfg(Defaults(), c, kWork), QStringLiteral("\tROMs\t\t0x16000\r\n"
                                                               "\tROM4\tFONT\t\r\n"
                                                               "\tDISK\t-CRT\t\r\n"
                                                               "\t-KEY\t\r\n"
                                                               "\t-CMT\t/app/TORVBOOT/\r\n"
                                                               "\t-D88\t/app/TORVBOOT/\r\n"
                                                               "\t-TMP\t/app/TORVBOOT/\r\n"
                                                               "\t-PEN\t/app/TORVBOOT\r\n"
                                                               "\tSOUND\t100\t50\r\n"));
}

TEST(J80Cfg, BackslashesBecomeForwardSlashes)
{
    CfgRecord c = J80Settings();
    c.J80RomsFile = Field("C:\\j80\\rom\\PC88.ROM", 256);
    c.J80CrtFile = Field("C:\\j80\\pc8001.crt", 256);
    c.J80PenDir = Field("C:\\j80\\pen", 256);
    const QString t = MakeJ80Cfg(Defaults(), c, QStringLiteral("D:\\torv\\TORVBOOT"));
    EXPECT_TRUE(t.startsWith(QStringLiteral("\tROMs\tC:/j80/rom/PC88.ROM\t0x16000\r\n")));
    EXPECT_TRUE(t.contains(QStringLiteral("\r\n\t-CRT\tC:/j80/pc8001.crt\r\n")));
    EXPECT_TRUE(t.contains(QStringLiteral("\r\n\t-CMT\tD:/torv/TORVBOOT/\r\n")));
    EXPECT_TRUE(t.contains(QStringLiteral("\r\n\t-PEN\tC:/j80/pen\r\n")));
}

TEST(J80Cfg, SoundLineTakesBufferThenStrength)
{
    EmuOpt88 o = Defaults();
    o.J80_2Op[0] = 1000;
    o.J80_1Op[1] = 7;
    EXPECT_TRUE(MakeJ80Cfg(o, J80Settings(), kWork)
                    .endsWith(QStringLiteral("\t-PEN\t/j80/pen\r\n\tSOUND\t1000\t7\r\n")));
}

TEST(J80Cfg, WithoutArgumentsTakesTheConfigurationAndWorkDir)
{
    const CfgRecord saved = Cfg;
    const QString savedWork = WorkDir;
    Cfg = J80Settings();
    Cfg.J80Rom4File = Field("", 256);
    WorkDir = QStringLiteral("/home/u/torvane/TORVBOOT");
    const QString t = MakeJ80Cfg(Defaults());
    Cfg = saved;
    WorkDir = savedWork;
    EXPECT_EQ(t, QStringLiteral("\tROMs\t/roms/PC88.ROM\t0x16000\r\n"
                                "\tROM4\tFONT\t/roms/PC-8001.FON\r\n"
                                "\tDISK\t/roms/PC88.ROM\t0x14000\r\n"
                                "\t-CRT\t/j80/pc8001.crt\r\n"
                                "\t-KEY\t/j80/jp.key\r\n"
                                "\t-CMT\t/home/u/torvane/TORVBOOT/\r\n"
                                "\t-D88\t/home/u/torvane/TORVBOOT/\r\n"
                                "\t-TMP\t/home/u/torvane/TORVBOOT/\r\n"
                                "\t-PEN\t/j80/pen\r\n"
                                "\tSOUND\t100\t50\r\n"));
}

TEST(J80Cfg, WriteEndsInAnEmptyLine)
{
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString path = dir.filePath(kJ80CfgName);
    CfgRecord c = J80Settings();
    c.J80DiskFile = Field("", 256);
    ASSERT_TRUE(WriteJ80Cfg(path, MakeJ80Cfg(Defaults(), c, kWork)));
    EXPECT_EQ(ReadAll(path), QByteArray("\tROMs\t/roms/PC88.ROM\t0x16000\r\n"
                                        "\tROM4\t/roms/N80_10.ROM\t0x6000\r\n"
                                        "\tFONT\t/roms/PC-8001.FON\r\n"
                                        "\tDISK\t-CRT\t/j80/pc8001.crt\r\n"
                                        "\t-KEY\t/j80/jp.key\r\n"
                                        "\t-CMT\t/app/TORVBOOT/\r\n"
                                        "\t-D88\t/app/TORVBOOT/\r\n"
                                        "\t-TMP\t/app/TORVBOOT/\r\n"
                                        "\t-PEN\t/j80/pen\r\n"
                                        "\tSOUND\t100\t50\r\n"
                                        "\r\n"));
}

TEST(J80Cfg, WriteIsShiftJis)
{
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString path = dir.filePath(kJ80CfgName);
    ASSERT_TRUE(WriteJ80Cfg(path, QStringLiteral("\t-PEN\t/ペン\r\n")));
    // "ペン" in Shift-JIS is 83 79 83 93.
    EXPECT_EQ(ReadAll(path), QByteArray("\t-PEN\t/\x83\x79\x83\x93\r\n\r\n"));
}

TEST(J80Option, DefaultBlockGivesNothing)
{
    EXPECT_EQ(MakeJ80Option(Defaults()), QString());
}

TEST(J80Option, SoundModes)
{
    EmuOpt88 o = Defaults();
    o.J80_1Op[0] = 0;
    EXPECT_EQ(MakeJ80Option(o), QStringLiteral("-silent"));
    o.J80_1Op[0] = 2;
    EXPECT_EQ(MakeJ80Option(o), QStringLiteral("-light"));
    o.J80_1Op[0] = 3;
    EXPECT_EQ(MakeJ80Option(o), QString());
}

TEST(J80Option, LineLimitHasABlankAndNoDash)
{
    EmuOpt88 o = Defaults();
    o.J80_1Op[3] = 1;
    EXPECT_EQ(MakeJ80Option(o), QStringLiteral("col=25"));
    o.J80_1Op[4] = 20;
    o.J80_1Op[5] = 1;
    EXPECT_EQ(MakeJ80Option(o), QStringLiteral("col=20 -dusty"));
}

TEST(J80Option, AllInTheirOrder)
{
    EmuOpt88 o = Defaults();
    o.J80_1Op[0] = 0;
    o.J80_1Op[2] = 1;
    o.J80_1Op[3] = 1;
    o.J80_1Op[5] = 1;
    o.J80_1Op[6] = 1;
    EXPECT_EQ(MakeJ80Option(o), QStringLiteral("-silent -nodisk col=25 -dusty -on"));
}

TEST(J80Option, TheLineCountAloneWritesNothing)
{
    EmuOpt88 o = Defaults();
    o.J80_1Op[4] = 40;
    EXPECT_EQ(MakeJ80Option(o), QString());
}

TEST(J80Command, DefaultEndsInTheConfigurationFile)
{
    const J80Command c = MakeJ80Command(QString(), QStringLiteral("/emu/j80"), QString());
    EXPECT_EQ(c.cmdLine, QStringLiteral("java -jar /emu/j80/j80.jar j80.cfg"));
    EXPECT_EQ(c.command.program, QStringLiteral("java"));
    EXPECT_EQ(c.command.argumentValues(),
              QStringList({QStringLiteral("-jar"), QStringLiteral("/emu/j80/j80.jar"),
                           QStringLiteral("j80.cfg")}));
}

TEST(J80Command, GivenJavaAndOptions)
{
    const J80Command c =
        MakeJ80Command(QStringLiteral("/opt/jre/bin/java"), QStringLiteral("/emu/j80"),
                       QStringLiteral("-light col=25"));
    EXPECT_EQ(c.cmdLine,
              QStringLiteral("/opt/jre/bin/java -jar /emu/j80/j80.jar j80.cfg -light col=25"));
    EXPECT_EQ(c.command.program, QStringLiteral("/opt/jre/bin/java"));
    EXPECT_EQ(c.command.argumentValues(),
              QStringList({QStringLiteral("-jar"), QStringLiteral("/emu/j80/j80.jar"),
                           QStringLiteral("j80.cfg"), QStringLiteral("-light"),
                           QStringLiteral("col=25")}));
    EXPECT_EQ(c.command.text(), c.cmdLine);
}
