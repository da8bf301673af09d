#include "adapters/quasi88/Quasi88Launch.h"
#include "data/Cfg.h"
#include "util/Globals.h"

#include <gtest/gtest.h>

using namespace tv;

namespace {

Quasi88CommandInput Plain()
{
    Quasi88CommandInput in;
    in.dir = QStringLiteral("/emu/quasi88");
    in.workDir = QStringLiteral("/app/TORVBOOT");
    in.image = QStringLiteral("GAME.D88");
    return in;
}

LaunchArg Bare(const char* s)
{
    return {QString::fromUtf8(s), false};
}

LaunchArg Quoted(const char* s)
{
    return {QString::fromUtf8(s), true};
}

// The arguments that the home platform splits from the text behind the program.
std::vector<LaunchArg> SplitTail(const LaunchCommand& c)
{
    return LaunchCommand::FromText(QStringLiteral("X") + c.text().mid(c.program.size())).arguments;
}

} // namespace

TEST(Quasi88CommandTest, PanOffPutsTheImageInQuotes)
{
    const Quasi88Command q = MakeQuasi88Command(Plain());
    EXPECT_EQ(q.command.program, QStringLiteral("/emu/quasi88/QUASI88.EXE"));
    EXPECT_EQ(q.command.text(), QStringLiteral("/emu/quasi88/QUASI88.EXE -romdir "
                                               "\"Z:\\emu\\quasi88\" -diskdir "
                                               "\"Z:\\app\\TORVBOOT\" \"GAME.D88\""));
    const std::vector<LaunchArg> expected = {Bare("-romdir"), Quoted("Z:\\emu\\quasi88"),
                                             Bare("-diskdir"), Quoted("Z:\\app\\TORVBOOT"),
                                             Quoted("GAME.D88")};
    EXPECT_EQ(q.command.arguments, expected);
    EXPECT_EQ(SplitTail(q.command), expected);
    EXPECT_EQ(q.paste1, QString());
    EXPECT_EQ(q.paste2, QString());
}

TEST(Quasi88CommandTest, PanOnPutsPanArgWithItsBlankInQuotesAndPastesTheImage)
{
    Quasi88CommandInput in = Plain();
    in.panUse = true;
    in.panArg = QStringLiteral("FMPAN.D88 ");
    const Quasi88Command q = MakeQuasi88Command(in);
    EXPECT_EQ(q.command.text(), QStringLiteral("/emu/quasi88/QUASI88.EXE -romdir "
                                               "\"Z:\\emu\\quasi88\" -diskdir "
                                               "\"Z:\\app\\TORVBOOT\" \"FMPAN.D88 \""));
    const std::vector<LaunchArg> expected = {Bare("-romdir"), Quoted("Z:\\emu\\quasi88"),
                                             Bare("-diskdir"), Quoted("Z:\\app\\TORVBOOT"),
                                             Quoted("FMPAN.D88 ")};
    EXPECT_EQ(q.command.arguments, expected);
    EXPECT_EQ(SplitTail(q.command), expected);
    EXPECT_EQ(q.paste1, QStringLiteral("GAME.D88"));
    EXPECT_EQ(q.paste2, QString());
}

TEST(Quasi88CommandTest, PanOnWithoutThePanDiskGivesAnEmptyQuotedArgument)
{
    Quasi88CommandInput in = Plain();
    in.panUse = true;
    const Quasi88Command q = MakeQuasi88Command(in);
    EXPECT_EQ(q.command.text(), QStringLiteral("/emu/quasi88/QUASI88.EXE -romdir "
                                               "\"Z:\\emu\\quasi88\" -diskdir "
                                               "\"Z:\\app\\TORVBOOT\" \"\""));
    const std::vector<LaunchArg> expected = {Bare("-romdir"), Quoted("Z:\\emu\\quasi88"),
                                             Bare("-diskdir"), Quoted("Z:\\app\\TORVBOOT"),
                                             Quoted("")};
    EXPECT_EQ(q.command.arguments, expected);
    EXPECT_EQ(SplitTail(q.command), expected);
    EXPECT_EQ(q.paste1, QStringLiteral("GAME.D88"));
}

TEST(Quasi88CommandTest, FullScreenAndCompatibleRomComeFirst)
{
    Quasi88CommandInput in = Plain();
    in.allScreen = true;
    in.compatRomUse = true; // no "PC88.ROM" exists: the switch is written all the same
    const Quasi88Command q = MakeQuasi88Command(in);
    EXPECT_EQ(q.command.text(),
              QStringLiteral("/emu/quasi88/QUASI88.EXE -dga -compatrom Z:\\emu\\quasi88\\PC88.ROM "
                             "-romdir \"Z:\\emu\\quasi88\" -diskdir \"Z:\\app\\TORVBOOT\" "
                             "\"GAME.D88\""));
    const std::vector<LaunchArg> expected = {Bare("-dga"),
                                             Bare("-compatrom"),
                                             Bare("Z:\\emu\\quasi88\\PC88.ROM"),
                                             Bare("-romdir"),
                                             Quoted("Z:\\emu\\quasi88"),
                                             Bare("-diskdir"),
                                             Quoted("Z:\\app\\TORVBOOT"),
                                             Quoted("GAME.D88")};
    EXPECT_EQ(q.command.arguments, expected);
    EXPECT_EQ(SplitTail(q.command), expected);
}

TEST(Quasi88CommandTest, NamesWithBlanksAndJapanese)
{
    Quasi88CommandInput in;
    in.dir = QStringLiteral("/emu/QUASI 88");
    in.workDir = QStringLiteral("/home/ユーザー/TORV BOOT");
    in.image = QStringLiteral("ゲーム ディスク.D88");
    in.compatRomUse = true;
    const Quasi88Command q = MakeQuasi88Command(in);
    EXPECT_EQ(q.command.program, QStringLiteral("/emu/QUASI 88/QUASI88.EXE"));
    EXPECT_EQ(q.command.text(),
              QStringLiteral("/emu/QUASI 88/QUASI88.EXE -compatrom Z:\\emu\\QUASI 88\\PC88.ROM "
                             "-romdir \"Z:\\emu\\QUASI 88\" -diskdir "
                             "\"Z:\\home\\ユーザー\\TORV BOOT\" \"ゲーム ディスク.D88\""));
    // The unquoted ROM path falls apart at its blank, as it does on the home platform; the
    // quoted names stay whole.
    const std::vector<LaunchArg> expected = {Bare("-compatrom"),
                                             Bare("Z:\\emu\\QUASI"),
                                             Bare("88\\PC88.ROM"),
                                             Bare("-romdir"),
                                             Quoted("Z:\\emu\\QUASI 88"),
                                             Bare("-diskdir"),
                                             Quoted("Z:\\home\\ユーザー\\TORV BOOT"),
                                             Quoted("ゲーム ディスク.D88")};
    EXPECT_EQ(q.command.arguments, expected);
    EXPECT_EQ(SplitTail(q.command), expected);

    in.panUse = true;
    in.panArg = QStringLiteral("FMPAN.D88 ");
    const Quasi88Command p = MakeQuasi88Command(in);
    EXPECT_EQ(p.command.arguments.back(), Quoted("FMPAN.D88 "));
    EXPECT_EQ(p.paste1, QStringLiteral("ゲーム ディスク.D88"));
}

TEST(Quasi88CommandTest, PathFormIsTheCallers)
{
    const Quasi88Command q = MakeQuasi88Command(
        Plain(), [](const QString& p) { return QStringLiteral("<") + p + QStringLiteral(">"); });
    EXPECT_EQ(q.command.text(), QStringLiteral("/emu/quasi88/QUASI88.EXE -romdir "
                                               "\"</emu/quasi88>\" -diskdir "
                                               "\"</app/TORVBOOT>\" \"<GAME.D88>\""));
}

TEST(Quasi88CommandTest, FromTheConfiguration)
{
    const CfgRecord savedCfg = Cfg;
    const QString savedWork = WorkDir;
    // As the configuration holds it: blank-filled to its width.
    Cfg.QUASI88Dir = QStringLiteral("/emu/quasi88") + QString(30, QLatin1Char(' '));
    Cfg.PanUse = 1;
    Cfg.Q88AllScr = 1;
    Cfg.Q88CompatRomUse = 0;
    WorkDir = QStringLiteral("/app/TORVBOOT");
    const Quasi88Command q =
        MakeQuasi88Command(QStringLiteral("GAME.D88"), QStringLiteral("FMPAN.D88 "));
    Cfg = savedCfg;
    WorkDir = savedWork;
    EXPECT_EQ(q.command.text(), QStringLiteral("/emu/quasi88/QUASI88.EXE -dga -romdir "
                                               "\"Z:\\emu\\quasi88\" -diskdir "
                                               "\"Z:\\app\\TORVBOOT\" \"FMPAN.D88 \""));
    EXPECT_EQ(q.paste1, QStringLiteral("GAME.D88"));
}
