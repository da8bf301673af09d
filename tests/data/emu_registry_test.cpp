// The emulator table against the facts of the thirteen emulators, written out here one by one.
#include "data/EmuRegistry.h"

#include <gtest/gtest.h>

using namespace tv;

namespace {

struct Expected {
    int code, family, entry;
    const char* caption;
    const char* exe;
    QStringList types;
    const char* config; // "" none
    const char* backup;
    bool shortNames;
};

const Expected kExpected[] = {
    {1, 0, 1, "P88SR(&P)", "P88SR.EXE", {"D88", "T88"}, "P88SR.CFG", "P88SR.ORG", true},
    {2, 0, 2, "M88(&M)", "M88.EXE", {"D88", "T88"}, "M88.INI", "M88.ORG", false},
    {3, 0, 3, "PC88Win(&W)", "PC88WIN.EXE", {"D88"}, "PC88WIN.INI", "PC88WIN.ORG", false},
    {4, 0, 4, "X88000(&X)", "X88000.EXE", {"D88", "T88", "CMT", "N80"}, "", "", false},
    {5, 0, 5, "QUASI88(&Q)", "QUASI88.EXE", {"D88"}, "", "", false},
    {6, 0, 6, "j80(&J)", "j80.jar", {"D88", "T88", "CMT"}, "", "", false},
    {11, 1, 1, "XM7dos(&D)", "XM7.EXE", {"D77", "2D", "T77"}, "", "", true},
    {12, 1, 2, "XM7win(&W)", "XM7.EXE", {"D77", "2D", "T77", "VFD"}, "XM7.INI", "XM7.ORG", false},
    {13, 1, 3, "EM7(&7)", "EM7.EXE", {"VFD", "VTP"}, "EM7.INI", "EM7.ORG", false},
    {21, 2, 1, "X1R(&X)", "X1R.COM", {"D88", "2D", "TAP"}, "", "", true},
    {22,
     2,
     2,
     "X mil(&M)",
     "Xmillennium.exe",
     {"D88", "2D", "TAP"},
     "Xmillennium.ini",
     "Xmillennium.org",
     false},
    {23, 2, 3, "X1EMU(&U)", "X1EMU.EXE", {"D88", "2D", "TAP"}, "", "", true},
    {24, 2, 4, "WinX1(&W)", "winx1.exe", {"D88", "2D"}, "winx1.ini", "winx1.org", false},
};

} // namespace

TEST(EmuRegistry, ThirteenRowsInCodeOrder)
{
    const auto rows = EmuRows();
    ASSERT_EQ(rows.size(), std::size(kExpected));
    for (size_t i = 0; i < rows.size(); ++i)
        EXPECT_EQ(rows[i].code(), kExpected[i].code) << i;
}

TEST(EmuRegistry, FactsOfEachEmulator)
{
    CfgRecord c;
    SetDefaultCfg(c);
    for (const Expected& e : kExpected) {
        const EmuRow* r = FindEmu(e.code);
        ASSERT_NE(r, nullptr) << e.code;
        EXPECT_EQ(r->family, e.family) << e.code;
        EXPECT_EQ(r->entry, e.entry) << e.code;
        EXPECT_EQ(r->captionText(), QString::fromUtf8(e.caption)) << e.code;
        EXPECT_EQ(r->exeName(c), QString::fromUtf8(e.exe)) << e.code;
        QStringList types;
        for (const char* t : r->types)
            if (t)
                types << QString::fromUtf8(t);
        EXPECT_EQ(types, e.types) << e.code;
        EXPECT_EQ(r->configName(c), QString::fromUtf8(e.config)) << e.code;
        EXPECT_EQ(r->backupName(c), QString::fromUtf8(e.backup)) << e.code;
        EXPECT_EQ(r->shortNames, e.shortNames) << e.code;
    }
}

TEST(EmuRegistry, CodesOutsideTheTableHaveNoRow)
{
    for (int code : {0, 7, 9, 10, 14, 20, 25, 31, -1})
        EXPECT_EQ(FindEmu(code), nullptr) << code;
}

TEST(EmuRegistry, WinX1IkaBuildChoosesItsProgramAndFiles)
{
    CfgRecord c;
    SetDefaultCfg(c);
    c.WinX1IkaUse = 1;
    const EmuRow& r = RowOf(Emu::WinX1);
    EXPECT_EQ(r.exeName(c), QStringLiteral("WinX1_ika.exe"));
    EXPECT_EQ(r.configName(c), QStringLiteral("WinX1_ika.ini"));
    EXPECT_EQ(r.backupName(c), QStringLiteral("WinX1_ika.org"));
}

TEST(EmuRegistry, XmillenniumTuneUseChoosesTheTTuneDirectory)
{
    CfgRecord c;
    SetDefaultCfg(c);
    c.XmilDir = QStringLiteral("/emu/xmil ");
    c.XmilTDir = QStringLiteral("/emu/xmilt ");
    const EmuRow& r = RowOf(Emu::Xmil);
    EXPECT_EQ(r.dirOf(c, 0), QStringLiteral("/emu/xmil"));
    EXPECT_EQ(r.dirOf(c, 1), QStringLiteral("/emu/xmilt"));
    // Only X millennium has a second build's directory.
    EXPECT_EQ(RowOf(Emu::M88).dirOf(c, 1), RowOf(Emu::M88).dirOf(c, 0));
}

TEST(EmuRegistry, SplitRowsAndTheirModes)
{
    // The DOS programs take the pieces under short names.
    EXPECT_EQ(RowOf(Emu::X1r).splitMode, 1);
    EXPECT_EQ(RowOf(Emu::Xmil).splitMode, 0);
    EXPECT_EQ(RowOf(Emu::X1emu).splitMode, 1);
    for (Emu e : {Emu::P88sr, Emu::M88, Emu::PC88Win, Emu::X88k, Emu::QUASI88, Emu::J80,
                  Emu::Xm7Dos, Emu::Xm7Win, Emu::Em7Win, Emu::WinX1})
        EXPECT_EQ(RowOf(e).splitMode, -1) << CodeOf(e);
}

TEST(EmuRegistry, OnlyJ80IsAJavaArchive)
{
    for (const EmuRow& r : EmuRows())
        EXPECT_EQ(r.javaArchive, r.emu == Emu::J80) << r.code();
}
