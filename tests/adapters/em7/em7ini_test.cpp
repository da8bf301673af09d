#include "adapters/em7/Em7Ini.h"

#include <gtest/gtest.h>

using namespace tv;

namespace {

EmuOptFM Defaults()
{
    EmuOptFM o;
    SetDefaultEmuOptFM(o);
    return o;
}

} // namespace

TEST(Em7Ini, DefaultBlockGivesTheWholeFile)
{
    EXPECT_EQ(MakeEm7Ini(Defaults()), QStringLiteral("[T1_SETTING]\r\n"
                                                     "CpuWait=240\r\n"
                                                     "FlipFreq=30\r\n"
                                                     "SubNmi=20\r\n"
                                                     "McpuIrq=203\r\n"
                                                     "KeyCh_ESC=1\r\n"
                                                     "BootMode=0\r\n"
                                                     "DspMode=0\r\n"));
}

TEST(Em7Ini, EveryElementReachesItsLine)
{
    EmuOptFM o = Defaults();
    o.Em7Win_1Op = {0, 1, 1, 255, 60, 50, 0, 0, 0};
    o.Em7Win_2Op = {500, 0, 0};
    EXPECT_EQ(MakeEm7Ini(o), QStringLiteral("[T1_SETTING]\r\n"
                                            "CpuWait=255\r\n"
                                            "FlipFreq=60\r\n"
                                            "SubNmi=50\r\n"
                                            "McpuIrq=500\r\n"
                                            "KeyCh_ESC=0\r\n"
                                            "BootMode=1\r\n"
                                            "DspMode=1\r\n"));
}

TEST(Em7Ini, ValuesOutsideTheDialogsRangesAreWrittenAsTheyStand)
{
    EmuOptFM o = Defaults();
    o.Em7Win_1Op = {7, 2, 3, 0, 0, 200, 0, 0, 0};
    o.Em7Win_2Op = {-5, 0, 0};
    EXPECT_EQ(MakeEm7Ini(o), QStringLiteral("[T1_SETTING]\r\n"
                                            "CpuWait=0\r\n"
                                            "FlipFreq=0\r\n"
                                            "SubNmi=200\r\n"
                                            "McpuIrq=-5\r\n"
                                            "KeyCh_ESC=7\r\n"
                                            "BootMode=2\r\n"
                                            "DspMode=3\r\n"));
}

TEST(Em7Ini, UnusedElementsAndTheOtherEmulatorsPartsLeaveNoTrace)
{
    EmuOptFM o = Defaults();
    o.Em7Win_1Op[6] = 9;
    o.Em7Win_1Op[7] = 9;
    o.Em7Win_1Op[8] = 9;
    o.Em7Win_2Op[1] = 99;
    o.Em7Win_2Op[2] = 99;
    o.Xm7Win_1Op.fill(1);
    o.Xm7Win_2Op.fill(1);
    o.Xm7Win_3Op.fill(0);
    o.DefEmuRun = 3;
    EXPECT_EQ(MakeEm7Ini(o), QStringLiteral("[T1_SETTING]\r\n"
                                            "CpuWait=240\r\n"
                                            "FlipFreq=30\r\n"
                                            "SubNmi=20\r\n"
                                            "McpuIrq=203\r\n"
                                            "KeyCh_ESC=1\r\n"
                                            "BootMode=0\r\n"
                                            "DspMode=0\r\n"));
}
