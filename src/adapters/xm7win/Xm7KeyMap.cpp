#include "adapters/xm7win/Xm7KeyMap.h"

#include "adapters/fm7x1/EmuOptFMX1.h"

namespace tv {

namespace {

struct FmKey {
    const char* caption;
    const char* kana;
};

// Index is the FM-7 key number minus 1. Numbers 89 and 91 are holes in the keyboard's matrix.
constexpr FmKey kFmKeys[kXm7LastKey] = {
    {"ESC", ""},       {"1", "ぬ"},       {"2", "ふ"},
    {"3", "あ"},       {"4", "う"},       {"5", "え"},
    {"6", "お"},       {"7", "や"},       {"8", "ゆ"},
    {"9", "よ"},       {"0", "わ"},       {"-", "ほ"},
    {"^", "へ"},       {"\\", "ー"},      {"BS", ""},
    {"TAB", ""},       {"Q", "た"},       {"W", "て"},
    {"E", "い"},       {"R", "す"},       {"T", "か"},
    {"Y", "ん"},       {"U", "な"},       {"I", "に"},
    {"O", "ら"},       {"P", "せ"},       {"@", "゛"},
    {"[", "゜"},       {"RE", ""},        {"A", "ち"},
    {"S", "と"},       {"D", "し"},       {"F", "は"},
    {"G", "き"},       {"H", "く"},       {"J", "ま"},
    {"K", "の"},       {"L", "り"},       {";", "れ"},
    {":", "け"},       {"]", "む"},       {"Z", "つ"},
    {"X", "さ"},       {"C", "そ"},       {"V", "ひ"},
    {"B", "こ"},       {"N", "み"},       {"M", "も"},
    {",", "ね"},       {".", "る"},       {"/", "め"},
    {"_", "ろ"},       {"SPACE(右)", ""}, {"*", "テンキー"},
    {"/", "テンキー"}, {"+", "テンキー"}, {"-", "テンキー"},
    {"7", "テンキー"}, {"8", "テンキー"}, {"9", "テンキー"},
    {"=", "テンキー"}, {"4", "テンキー"}, {"5", "テンキー"},
    {"6", "テンキー"}, {",", "テンキー"}, {"1", "テンキー"},
    {"2", "テンキー"}, {"3", "テンキー"}, {"RETURN", "テンキー"},
    {"0", "テンキー"}, {".", "テンキー"}, {"INS", ""},
    {"EL", ""},        {"CLS", ""},       {"DEL", ""},
    {"DUP", ""},       {"↑", ""},         {"HOME", ""},
    {"←", ""},         {"↓", ""},         {"→", ""},
    {"CTRL", ""},      {"SHIFT(左)", ""}, {"SHIFT(右)", ""},
    {"CAP", ""},       {"GRAPH", ""},     {"SPACE(左)", ""},
    {"SPACE(中)", ""}, {"", ""},          {"かな", ""},
    {"", ""},          {"BREAK", ""},     {"PF1", ""},
    {"PF2", ""},       {"PF3", ""},       {"PF4", ""},
    {"PF5", ""},       {"PF6", ""},       {"PF7", ""},
    {"PF8", ""},       {"PF9", ""},       {"PF10", ""}};

struct DikConstant {
    uint8_t code;
    const char* name;
};

// The platform's keyboard code constants, by name and number. Code 0x90 carries the name by
// which the platform first published it (it is ^ on a Japanese keyboard).
constexpr DikConstant kDikConstants[] = {
    {0x01, "DIK_ESCAPE"},
    {0x02, "DIK_1"},
    {0x03, "DIK_2"},
    {0x04, "DIK_3"},
    {0x05, "DIK_4"},
    {0x06, "DIK_5"},
    {0x07, "DIK_6"},
    {0x08, "DIK_7"},
    {0x09, "DIK_8"},
    {0x0A, "DIK_9"},
    {0x0B, "DIK_0"},
    {0x0C, "DIK_MINUS"},
    {0x0D, "DIK_EQUALS"},
    {0x0E, "DIK_BACK"},
    {0x0F, "DIK_TAB"},
    {0x10, "DIK_Q"},
    {0x11, "DIK_W"},
    {0x12, "DIK_E"},
    {0x13, "DIK_R"},
    {0x14, "DIK_T"},
    {0x15, "DIK_Y"},
    {0x16, "DIK_U"},
    {0x17, "DIK_I"},
    {0x18, "DIK_O"},
    {0x19, "DIK_P"},
    {0x1A, "DIK_LBRACKET"},
    {0x1B, "DIK_RBRACKET"},
    {0x1C, "DIK_RETURN"},
    {0x1D, "DIK_LCONTROL"},
    {0x1E, "DIK_A"},
    {0x1F, "DIK_S"},
    {0x20, "DIK_D"},
    {0x21, "DIK_F"},
    {0x22, "DIK_G"},
    {0x23, "DIK_H"},
    {0x24, "DIK_J"},
    {0x25, "DIK_K"},
    {0x26, "DIK_L"},
    {0x27, "DIK_SEMICOLON"},
    {0x28, "DIK_APOSTROPHE"},
    {0x29, "DIK_GRAVE"},
    {0x2A, "DIK_LSHIFT"},
    {0x2B, "DIK_BACKSLASH"},
    {0x2C, "DIK_Z"},
    {0x2D, "DIK_X"},
    {0x2E, "DIK_C"},
    {0x2F, "DIK_V"},
    {0x30, "DIK_B"},
    {0x31, "DIK_N"},
    {0x32, "DIK_M"},
    {0x33, "DIK_COMMA"},
    {0x34, "DIK_PERIOD"},
    {0x35, "DIK_SLASH"},
    {0x36, "DIK_RSHIFT"},
    {0x37, "DIK_MULTIPLY"},
    {0x38, "DIK_LMENU"},
    {0x39, "DIK_SPACE"},
    {0x3A, "DIK_CAPITAL"},
    {0x3B, "DIK_F1"},
    {0x3C, "DIK_F2"},
    {0x3D, "DIK_F3"},
    {0x3E, "DIK_F4"},
    {0x3F, "DIK_F5"},
    {0x40, "DIK_F6"},
    {0x41, "DIK_F7"},
    {0x42, "DIK_F8"},
    {0x43, "DIK_F9"},
    {0x44, "DIK_F10"},
    {0x45, "DIK_NUMLOCK"},
    {0x46, "DIK_SCROLL"},
    {0x47, "DIK_NUMPAD7"},
    {0x48, "DIK_NUMPAD8"},
    {0x49, "DIK_NUMPAD9"},
    {0x4A, "DIK_SUBTRACT"},
    {0x4B, "DIK_NUMPAD4"},
    {0x4C, "DIK_NUMPAD5"},
    {0x4D, "DIK_NUMPAD6"},
    {0x4E, "DIK_ADD"},
    {0x4F, "DIK_NUMPAD1"},
    {0x50, "DIK_NUMPAD2"},
    {0x51, "DIK_NUMPAD3"},
    {0x52, "DIK_NUMPAD0"},
    {0x53, "DIK_DECIMAL"},
    {0x56, "DIK_OEM_102"},
    {0x57, "DIK_F11"},
    {0x58, "DIK_F12"},
    {0x64, "DIK_F13"},
    {0x65, "DIK_F14"},
    {0x66, "DIK_F15"},
    {0x70, "DIK_KANA"},
    {0x73, "DIK_ABNT_C1"},
    {0x79, "DIK_CONVERT"},
    {0x7B, "DIK_NOCONVERT"},
    {0x7D, "DIK_YEN"},
    {0x7E, "DIK_ABNT_C2"},
    {0x8D, "DIK_NUMPADEQUALS"},
    {0x90, "DIK_PREVTRACK"},
    {0x91, "DIK_AT"},
    {0x92, "DIK_COLON"},
    {0x93, "DIK_UNDERLINE"},
    {0x94, "DIK_KANJI"},
    {0x95, "DIK_STOP"},
    {0x96, "DIK_AX"},
    {0x97, "DIK_UNLABELED"},
    {0x99, "DIK_NEXTTRACK"},
    {0x9C, "DIK_NUMPADENTER"},
    {0x9D, "DIK_RCONTROL"},
    {0xA0, "DIK_MUTE"},
    {0xA1, "DIK_CALCULATOR"},
    {0xA2, "DIK_PLAYPAUSE"},
    {0xA4, "DIK_MEDIASTOP"},
    {0xAE, "DIK_VOLUMEDOWN"},
    {0xB0, "DIK_VOLUMEUP"},
    {0xB2, "DIK_WEBHOME"},
    {0xB3, "DIK_NUMPADCOMMA"},
    {0xB5, "DIK_DIVIDE"},
    {0xB7, "DIK_SYSRQ"},
    {0xB8, "DIK_RMENU"},
    {0xC5, "DIK_PAUSE"},
    {0xC7, "DIK_HOME"},
    {0xC8, "DIK_UP"},
    {0xC9, "DIK_PRIOR"},
    {0xCB, "DIK_LEFT"},
    {0xCD, "DIK_RIGHT"},
    {0xCF, "DIK_END"},
    {0xD0, "DIK_DOWN"},
    {0xD1, "DIK_NEXT"},
    {0xD2, "DIK_INSERT"},
    {0xD3, "DIK_DELETE"},
    {0xDB, "DIK_LWIN"},
    {0xDC, "DIK_RWIN"},
    {0xDD, "DIK_APPS"},
    {0xDE, "DIK_POWER"},
    {0xDF, "DIK_SLEEP"},
    {0xE3, "DIK_WAKE"},
    {0xE5, "DIK_WEBSEARCH"},
    {0xE6, "DIK_WEBFAVORITES"},
    {0xE7, "DIK_WEBREFRESH"},
    {0xE8, "DIK_WEBSTOP"},
    {0xE9, "DIK_WEBFORWARD"},
    {0xEA, "DIK_WEBBACK"},
    {0xEB, "DIK_MYCOMPUTER"},
    {0xEC, "DIK_MAIL"},
    {0xED, "DIK_MEDIASELECT"},
};

} // namespace

QString Xm7FmKeyCaption(int keyNo)
{
    if (keyNo < kXm7FirstKey || keyNo > kXm7LastKey)
        return {};
    return QString::fromUtf8(kFmKeys[keyNo - 1].caption);
}

QString Xm7FmKeyKana(int keyNo)
{
    if (keyNo < kXm7FirstKey || keyNo > kXm7LastKey)
        return {};
    return QString::fromUtf8(kFmKeys[keyNo - 1].kana);
}

bool Xm7IsFmKey(int keyNo)
{
    return !Xm7FmKeyCaption(keyNo).isEmpty();
}

QString DikName(int code)
{
    for (const auto& c : kDikConstants)
        if (c.code == code)
            return QString::fromLatin1(c.name);
    return {};
}

std::array<QString, 256> DikNames()
{
    std::array<QString, 256> names;
    for (const auto& c : kDikConstants)
        names[c.code] = QString::fromLatin1(c.name);
    return names;
}

std::vector<std::pair<QString, int>> DikChoices()
{
    const auto names = DikNames();
    std::vector<std::pair<QString, int>> out;
    for (int code = 0; code <= 255; ++code)
        if (!names[code].isEmpty())
            out.emplace_back(names[code], code);
    return out;
}

QString Xm7ReadyMapCaption(Xm7ReadyMap map)
{
    switch (map) {
    case Xm7ReadyMap::Map101:
        return QStringLiteral("10&1マップ");
    case Xm7ReadyMap::Map106:
        return QStringLiteral("10&6マップ");
    case Xm7ReadyMap::MapPc98:
        return QStringLiteral("PC-&98マップ");
    }
    return {};
}

void ApplyXm7ReadyMap(Xm7KeyArray& keys, Xm7ReadyMap map)
{
    // The tables live with the option block, whose default is the 106 map.
    ApplyXm7KeyMap(keys, static_cast<int>(map));
}

Xm7KeyRow MakeXm7KeyRow(int keyNo, int code)
{
    Xm7KeyRow row;
    row.text = QStringLiteral("%1").arg(keyNo, 2, 16, QLatin1Char('0')).toUpper();
    row.key = QStringLiteral("k") + QString::number(keyNo);
    row.caption = Xm7FmKeyCaption(keyNo);
    row.kana = Xm7FmKeyKana(keyNo);
    row.dikName = code == 0 ? QString() : DikName(code);
    row.code = QString::number(code);
    return row;
}

std::vector<Xm7KeyRow> Xm7KeyRows(const Xm7KeyArray& keys)
{
    std::vector<Xm7KeyRow> rows;
    rows.reserve(kXm7KeyRowCount);
    for (int k = kXm7FirstKey; k <= kXm7LastKey; ++k)
        if (Xm7IsFmKey(k))
            rows.push_back(MakeXm7KeyRow(k, keys[k]));
    return rows;
}

int Xm7KeyRowPosition(int keyNo)
{
    if (!Xm7IsFmKey(keyNo))
        return -1;
    int pos = 0;
    for (int k = kXm7FirstKey; k < keyNo; ++k)
        if (Xm7IsFmKey(k))
            ++pos;
    return pos;
}

void StoreXm7KeyRows(const std::vector<Xm7KeyRow>& rows, Xm7KeyArray& keys)
{
    for (const auto& row : rows) {
        const int n = row.key.mid(1).toInt();
        if (n >= 0 && n < static_cast<int>(keys.size()))
            keys[n] = static_cast<uint8_t>(row.code.toInt());
    }
}

bool AssignXm7KeyCode(Xm7KeyArray& keys, int keyNo, int code)
{
    if (!Xm7IsFmKey(keyNo) || code < 0 || code > 255 || keys[keyNo] == code)
        return false;
    // Only keys with a row give up the code: a damaged value in 89 or 91 isn't seen by the list.
    for (int k = kXm7FirstKey; k <= kXm7LastKey; ++k)
        if (Xm7IsFmKey(k) && keys[k] == code)
            keys[k] = 0;
    keys[keyNo] = static_cast<uint8_t>(code);
    return true;
}

std::vector<std::pair<QString, int>> Xm7JoyKeyItems()
{
    std::vector<std::pair<QString, int>> items{{QStringLiteral("使用しない"), 0}};
    for (int k = kXm7FirstKey; k <= kXm7LastKey; ++k)
        if (Xm7IsFmKey(k))
            items.emplace_back(Xm7FmKeyCaption(k), k);
    return items;
}

std::vector<std::pair<QString, int>> Xm7JoyDirItems()
{
    return {{QStringLiteral("使用しない"), 0}, {QStringLiteral("↑"), 112},
            {QStringLiteral("↓"), 113},        {QStringLiteral("←"), 114},
            {QStringLiteral("→"), 115},        {QStringLiteral("Aボタン"), 116},
            {QStringLiteral("Bボタン"), 117}};
}

} // namespace tv
