#include "adapters/xm7win/Xm7KeyMap.h"

#include "adapters/fm7x1/EmuOptFMX1.h"

#include <QSet>
#include <gtest/gtest.h>

using namespace tv;

namespace tv {
// Readable failures: the row's six texts.
void PrintTo(const Xm7KeyRow& r, std::ostream* os)
{
    *os << '{';
    for (const QString* t : {&r.text, &r.key, &r.caption, &r.kana, &r.dikName, &r.code})
        *os << '"' << t->toStdString() << "\" ";
    *os << '}';
}
} // namespace tv

namespace {

Xm7KeyArray Map(Xm7ReadyMap map)
{
    Xm7KeyArray keys{};
    ApplyXm7ReadyMap(keys, map);
    return keys;
}

void ExpectCodes(const Xm7KeyArray& keys, std::initializer_list<std::pair<int, int>> expected)
{
    for (auto [key, code] : expected)
        EXPECT_EQ(keys[key], code) << "key " << key;
}

Xm7KeyRow Row(const char* text, const char* key, const char* caption, const char* kana,
              const char* name, const char* code)
{
    return {QString::fromUtf8(text), QString::fromUtf8(key),  QString::fromUtf8(caption),
            QString::fromUtf8(kana), QString::fromUtf8(name), QString::fromUtf8(code)};
}

} // namespace

TEST(Xm7KeyMap, FmKeyTableHasHundredKeysWithCaptions)
{
    int count = 0;
    for (int k = 0; k <= 109; ++k)
        if (Xm7IsFmKey(k))
            ++count;
    EXPECT_EQ(count, 100);
    EXPECT_EQ(kXm7KeyRowCount, 100);
    const std::tuple<int, const char*, const char*> cases[] = {
        {1, "ESC", ""},        {2, "1", "ぬ"},        {11, "0", "わ"},
        {12, "-", "ほ"},       {13, "^", "へ"},       {14, "\\", "ー"},
        {15, "BS", ""},        {16, "TAB", ""},       {17, "Q", "た"},
        {26, "P", "せ"},       {27, "@", "゛"},       {28, "[", "゜"},
        {29, "RE", ""},        {30, "A", "ち"},       {38, "L", "り"},
        {39, ";", "れ"},       {40, ":", "け"},       {41, "]", "む"},
        {42, "Z", "つ"},       {48, "M", "も"},       {49, ",", "ね"},
        {52, "_", "ろ"},       {53, "SPACE(右)", ""}, {54, "*", "テンキー"},
        {61, "=", "テンキー"}, {65, ",", "テンキー"}, {69, "RETURN", "テンキー"},
        {71, ".", "テンキー"}, {72, "INS", ""},       {76, "DUP", ""},
        {77, "↑", ""},         {81, "→", ""},         {83, "SHIFT(左)", ""},
        {84, "SHIFT(右)", ""}, {87, "SPACE(左)", ""}, {88, "SPACE(中)", ""},
        {89, "", ""},          {90, "かな", ""},      {91, "", ""},
        {92, "BREAK", ""},     {93, "PF1", ""},       {102, "PF10", ""},
        {0, "", ""},           {103, "", ""}};
    for (const auto& [key, caption, kana] : cases) {
        EXPECT_EQ(Xm7FmKeyCaption(key), QString::fromUtf8(caption)) << "key " << key;
        EXPECT_EQ(Xm7FmKeyKana(key), QString::fromUtf8(kana)) << "key " << key;
    }
}

TEST(Xm7KeyMap, DirectInputNames)
{
    const std::pair<int, const char*> named[] = {
        {1, "DIK_ESCAPE"},         {2, "DIK_1"},           {11, "DIK_0"},
        {13, "DIK_EQUALS"},        {14, "DIK_BACK"},       {28, "DIK_RETURN"},
        {29, "DIK_LCONTROL"},      {43, "DIK_BACKSLASH"},  {55, "DIK_MULTIPLY"},
        {69, "DIK_NUMLOCK"},       {86, "DIK_OEM_102"},    {112, "DIK_KANA"},
        {121, "DIK_CONVERT"},      {123, "DIK_NOCONVERT"}, {125, "DIK_YEN"},
        {141, "DIK_NUMPADEQUALS"}, {144, "DIK_PREVTRACK"}, {145, "DIK_AT"},
        {146, "DIK_COLON"},        {147, "DIK_UNDERLINE"}, {148, "DIK_KANJI"},
        {156, "DIK_NUMPADENTER"},  {157, "DIK_RCONTROL"},  {179, "DIK_NUMPADCOMMA"},
        {181, "DIK_DIVIDE"},       {183, "DIK_SYSRQ"},     {199, "DIK_HOME"},
        {200, "DIK_UP"},           {211, "DIK_DELETE"},    {236, "DIK_MAIL"},
        {237, "DIK_MEDIASELECT"}};
    for (const auto& [code, name] : named)
        EXPECT_EQ(DikName(code), QString::fromLatin1(name)) << "code " << code;
    for (int code : {0, 84, 85, 89, 152, 238, 255, -1, 256})
        EXPECT_TRUE(DikName(code).isEmpty()) << "code " << code;

    const auto names = DikNames();
    QSet<QString> distinct;
    int count = 0;
    for (int code = 0; code <= 255; ++code) {
        EXPECT_EQ(names[code], DikName(code));
        if (!names[code].isEmpty()) {
            ++count;
            EXPECT_TRUE(names[code].startsWith(QStringLiteral("DIK_")));
            distinct.insert(names[code]);
        }
    }
    EXPECT_EQ(count, 144);
    EXPECT_EQ(distinct.size(), 144);
}

TEST(Xm7KeyMap, ChoicesAreTheNamedCodesInAscendingOrder)
{
    const auto choices = DikChoices();
    ASSERT_EQ(choices.size(), 144u);
    EXPECT_EQ(choices.front(), std::make_pair(QStringLiteral("DIK_ESCAPE"), 1));
    EXPECT_EQ(choices[1], std::make_pair(QStringLiteral("DIK_1"), 2));
    EXPECT_EQ(choices.back(), std::make_pair(QStringLiteral("DIK_MEDIASELECT"), 237));
    for (size_t i = 1; i < choices.size(); ++i)
        EXPECT_LT(choices[i - 1].second, choices[i].second);
}

TEST(Xm7KeyMap, ReadyMapCaptions)
{
    EXPECT_EQ(Xm7ReadyMapCaption(Xm7ReadyMap::Map101), QStringLiteral("10&1マップ"));
    EXPECT_EQ(Xm7ReadyMapCaption(Xm7ReadyMap::Map106), QStringLiteral("10&6マップ"));
    EXPECT_EQ(Xm7ReadyMapCaption(Xm7ReadyMap::MapPc98), QStringLiteral("PC-&98マップ"));
}

TEST(Xm7KeyMap, Map101)
{
    ExpectCodes(Map(Xm7ReadyMap::Map101),
                {{1, 41},   {2, 2},    {7, 7},   {11, 11}, {12, 12},  {13, 13},  {14, 43},
                 {15, 14},  {20, 19},  {26, 25}, {27, 26}, {28, 27},  {29, 28},  {30, 30},
                 {39, 39},  {40, 40},  {41, 0},  {42, 44}, {51, 53},  {52, 0},   {53, 57},
                 {54, 55},  {55, 181}, {61, 0},  {65, 0},  {69, 156}, {72, 210}, {77, 200},
                 {81, 205}, {85, 58},  {86, 69}, {87, 0},  {88, 0},   {90, 157}, {92, 1},
                 {93, 59},  {102, 68}});
}

TEST(Xm7KeyMap, Map106)
{
    ExpectCodes(Map(Xm7ReadyMap::Map106),
                {{1, 148},  {3, 3},    {13, 144}, {14, 125}, {16, 15},  {22, 21}, {27, 145},
                 {28, 26},  {33, 33},  {40, 146}, {41, 27},  {45, 47},  {52, 43}, {56, 78},
                 {60, 73},  {61, 0},   {65, 0},   {71, 83},  {75, 211}, {83, 42}, {86, 123},
                 {87, 121}, {88, 112}, {90, 157}, {92, 1},   {98, 64}});
}

TEST(Xm7KeyMap, MapPc98)
{
    ExpectCodes(Map(Xm7ReadyMap::MapPc98),
                {{1, 1},    {4, 4},    {13, 144}, {14, 125}, {17, 16},  {24, 23},
                 {27, 145}, {28, 26},  {36, 36},  {40, 146}, {41, 27},  {48, 50},
                 {52, 147}, {57, 74},  {59, 72},  {61, 141}, {65, 179}, {66, 79},
                 {70, 82},  {74, 201}, {78, 209}, {80, 208}, {84, 54},  {86, 123},
                 {87, 0},   {88, 148}, {90, 112}, {92, 183}, {100, 66}});
}

TEST(Xm7KeyMap, EachReadyMapGivesACodeToOneKeyAtMost)
{
    for (auto map : {Xm7ReadyMap::Map101, Xm7ReadyMap::Map106, Xm7ReadyMap::MapPc98}) {
        const auto keys = Map(map);
        QSet<int> seen;
        for (int k = kXm7FirstKey; k <= kXm7LastKey; ++k) {
            if (keys[k] == 0)
                continue;
            EXPECT_FALSE(seen.contains(keys[k])) << "code " << int(keys[k]);
            seen.insert(keys[k]);
        }
    }
}

TEST(Xm7KeyMap, ReadyMapReplacesHandMadeKeysAndLeavesKeysOutsideItsTables)
{
    Xm7KeyArray keys;
    keys.fill(77);
    ApplyXm7ReadyMap(keys, Xm7ReadyMap::Map101);
    // Keys that the 101 map leaves empty are cleared, not kept.
    ExpectCodes(keys, {{41, 0}, {52, 0}, {61, 0}, {65, 0}, {87, 0}, {88, 0}, {1, 41}});
    for (int k : {0, 89, 91, 103, 104, 105, 106, 107, 108, 109})
        EXPECT_EQ(keys[k], 77) << "key " << k;
}

TEST(Xm7KeyMap, DefaultBlockHoldsThe106Map)
{
    EmuOptFM o;
    SetDefaultEmuOptFM(o);
    EXPECT_EQ(o.Xm7Win_3Op, Map(Xm7ReadyMap::Map106));
}

TEST(Xm7KeyMap, RowTexts)
{
    EXPECT_EQ(MakeXm7KeyRow(1, 148), Row("01", "k1", "ESC", "", "DIK_KANJI", "148"));
    EXPECT_EQ(MakeXm7KeyRow(10, 10), Row("0A", "k10", "9", "よ", "DIK_9", "10"));
    EXPECT_EQ(MakeXm7KeyRow(13, 144), Row("0D", "k13", "^", "へ", "DIK_PREVTRACK", "144"));
    EXPECT_EQ(MakeXm7KeyRow(14, 125), Row("0E", "k14", "\\", "ー", "DIK_YEN", "125"));
    EXPECT_EQ(MakeXm7KeyRow(54, 55), Row("36", "k54", "*", "テンキー", "DIK_MULTIPLY", "55"));
    EXPECT_EQ(MakeXm7KeyRow(61, 0), Row("3D", "k61", "=", "テンキー", "", "0"));
    EXPECT_EQ(MakeXm7KeyRow(90, 157), Row("5A", "k90", "かな", "", "DIK_RCONTROL", "157"));
    EXPECT_EQ(MakeXm7KeyRow(102, 68), Row("66", "k102", "PF10", "", "DIK_F10", "68"));
    // A code without a constant shows no name but its number.
    EXPECT_EQ(MakeXm7KeyRow(5, 84), Row("05", "k5", "4", "う", "", "84"));
}

TEST(Xm7KeyMap, RowsOfTheDefaultBlock)
{
    const auto rows = Xm7KeyRows(Map(Xm7ReadyMap::Map106));
    ASSERT_EQ(rows.size(), 100u);
    EXPECT_EQ(rows[0], Row("01", "k1", "ESC", "", "DIK_KANJI", "148"));
    EXPECT_EQ(rows[87], Row("58", "k88", "SPACE(中)", "", "DIK_KANA", "112"));
    EXPECT_EQ(rows[88], Row("5A", "k90", "かな", "", "DIK_RCONTROL", "157"));
    EXPECT_EQ(rows[89], Row("5C", "k92", "BREAK", "", "DIK_ESCAPE", "1"));
    EXPECT_EQ(rows[90], Row("5D", "k93", "PF1", "", "DIK_F1", "59"));
    EXPECT_EQ(rows[99], Row("66", "k102", "PF10", "", "DIK_F10", "68"));
}

// Places count from 0; counted from 1, key 90 stands at 89, key 92 at 90 and key 93 at 91.
TEST(Xm7KeyMap, RowPositionsSkipTheTwoHoles)
{
    EXPECT_EQ(Xm7KeyRowPosition(1), 0);
    EXPECT_EQ(Xm7KeyRowPosition(88), 87);
    EXPECT_EQ(Xm7KeyRowPosition(89), -1);
    EXPECT_EQ(Xm7KeyRowPosition(90), 88);
    EXPECT_EQ(Xm7KeyRowPosition(91), -1);
    EXPECT_EQ(Xm7KeyRowPosition(92), 89);
    EXPECT_EQ(Xm7KeyRowPosition(93), 90);
    EXPECT_EQ(Xm7KeyRowPosition(102), 99);
    EXPECT_EQ(Xm7KeyRowPosition(0), -1);
    EXPECT_EQ(Xm7KeyRowPosition(103), -1);
}

TEST(Xm7KeyMap, StoreWritesOnlyKeysWithARow)
{
    Xm7KeyArray source = Map(Xm7ReadyMap::Map106);
    auto rows = Xm7KeyRows(source);
    rows[Xm7KeyRowPosition(30)].code = QStringLiteral("84");
    Xm7KeyArray target;
    target.fill(200);
    StoreXm7KeyRows(rows, target);
    EXPECT_EQ(target[30], 84);
    EXPECT_EQ(target[1], 148);
    EXPECT_EQ(target[61], 0);
    EXPECT_EQ(target[102], 68);
    for (int k : {0, 89, 91, 103, 109})
        EXPECT_EQ(target[k], 200) << "key " << k;
}

TEST(Xm7KeyMap, AssigningATakenCodeMovesIt)
{
    Xm7KeyArray keys = Map(Xm7ReadyMap::Map106);
    // Key 30 ("A") takes DIK_KANJI from key 1 ("ESC").
    EXPECT_TRUE(AssignXm7KeyCode(keys, 30, 148));
    EXPECT_EQ(keys[30], 148);
    EXPECT_EQ(keys[1], 0);
    EXPECT_EQ(MakeXm7KeyRow(1, keys[1]), Row("01", "k1", "ESC", "", "", "0"));
    EXPECT_EQ(MakeXm7KeyRow(30, keys[30]), Row("1E", "k30", "A", "ち", "DIK_KANJI", "148"));
    // Nothing else moved: the old code of key 30 is simply free now.
    Xm7KeyArray expected = Map(Xm7ReadyMap::Map106);
    expected[30] = 148;
    expected[1] = 0;
    EXPECT_EQ(keys, expected);
}

TEST(Xm7KeyMap, AssigningAFreeCodeChangesOneKey)
{
    Xm7KeyArray keys = Map(Xm7ReadyMap::Map106);
    EXPECT_TRUE(AssignXm7KeyCode(keys, 61, 141));
    Xm7KeyArray expected = Map(Xm7ReadyMap::Map106);
    expected[61] = 141;
    EXPECT_EQ(keys, expected);
}

TEST(Xm7KeyMap, AssigningAKeyItsOwnCodeChangesNothing)
{
    Xm7KeyArray keys = Map(Xm7ReadyMap::Map106);
    keys[89] = 30; // a damaged block: the hole holds the same code
    const Xm7KeyArray before = keys;
    EXPECT_FALSE(AssignXm7KeyCode(keys, 30, 30));
    EXPECT_EQ(keys, before);
}

TEST(Xm7KeyMap, KeysWithoutARowNeitherTakeNorGiveUpACode)
{
    Xm7KeyArray keys = Map(Xm7ReadyMap::Map106);
    keys[89] = 148;
    keys[91] = 148;
    EXPECT_TRUE(AssignXm7KeyCode(keys, 30, 148));
    EXPECT_EQ(keys[1], 0);
    EXPECT_EQ(keys[89], 148);
    EXPECT_EQ(keys[91], 148);
    const Xm7KeyArray before = keys;
    EXPECT_FALSE(AssignXm7KeyCode(keys, 89, 30));
    EXPECT_FALSE(AssignXm7KeyCode(keys, 0, 30));
    EXPECT_FALSE(AssignXm7KeyCode(keys, 103, 30));
    EXPECT_EQ(keys, before);
}

TEST(Xm7KeyMap, JoystickKeyboardItems)
{
    const auto items = Xm7JoyKeyItems();
    ASSERT_EQ(items.size(), 101u);
    EXPECT_EQ(items[0], std::make_pair(QStringLiteral("使用しない"), 0));
    EXPECT_EQ(items[1], std::make_pair(QStringLiteral("ESC"), 1));
    EXPECT_EQ(items[14], std::make_pair(QStringLiteral("\\"), 14));
    EXPECT_EQ(items[88], std::make_pair(QStringLiteral("SPACE(中)"), 88));
    EXPECT_EQ(items[89], std::make_pair(QStringLiteral("かな"), 90));
    EXPECT_EQ(items[90], std::make_pair(QStringLiteral("BREAK"), 92));
    EXPECT_EQ(items[100], std::make_pair(QStringLiteral("PF10"), 102));
}

TEST(Xm7KeyMap, JoystickDirectionItems)
{
    const std::vector<std::pair<QString, int>> expected = {
        {QStringLiteral("使用しない"), 0}, {QStringLiteral("↑"), 112},
        {QStringLiteral("↓"), 113},        {QStringLiteral("←"), 114},
        {QStringLiteral("→"), 115},        {QStringLiteral("Aボタン"), 116},
        {QStringLiteral("Bボタン"), 117}};
    EXPECT_EQ(Xm7JoyDirItems(), expected);
    EXPECT_EQ(kXm7JoyDirDefaults, (std::array<int, 7>{112, 113, 114, 115, 0, 116, 117}));
}
