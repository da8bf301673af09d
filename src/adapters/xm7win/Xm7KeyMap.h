#pragma once
// The key map of XM7 for Win32: which key of the PC's keyboard (a DirectInput key code) stands
// for each key of the FM-7. The block keeps it by FM-7 key number (Xm7Win_3Op); the page
// "キーボード" of the option dialog shows it as a list with one row per FM-7 key.
#include <QString>

#include <array>
#include <cstdint>
#include <utility>
#include <vector>

namespace tv {

using Xm7KeyArray = std::array<uint8_t, 110>;

inline constexpr int kXm7FirstKey = 1;
inline constexpr int kXm7LastKey = 102;
// Key numbers 89 and 91 are no keys, so the list has 100 rows.
inline constexpr int kXm7KeyRowCount = 100;

// Caption and kana caption of FM-7 key `keyNo`; empty for 89, 91 and numbers outside 1 to 102.
QString Xm7FmKeyCaption(int keyNo);
QString Xm7FmKeyKana(int keyNo);
// True for the key numbers that have a caption, that is a row in the list.
bool Xm7IsFmKey(int keyNo);

// Name of DirectInput key code `code` ("DIK_ESCAPE" for 1); empty for a code with no constant
// and for numbers outside 0 to 255.
QString DikName(int code);
// The 256 names by code, empty where a code has no constant.
std::array<QString, 256> DikNames();
// The items of the code choice: every code from 0 to 255 that has a name, ascending, as
// (name, code).
std::vector<std::pair<QString, int>> DikChoices();

// The three ready maps, in the order of their buttons.
enum class Xm7ReadyMap { Map101 = 0, Map106 = 1, MapPc98 = 2 };
// Caption of the button of `map`: "10&1マップ", "10&6マップ", "PC-&98マップ".
QString Xm7ReadyMapCaption(Xm7ReadyMap map);
// Writes the map into `keys`, replacing every assignment it names (also hand-made ones). Key
// numbers outside the map's tables (0, 89, 91, 103 to 109) keep their value.
void ApplyXm7ReadyMap(Xm7KeyArray& keys, Xm7ReadyMap map);

// One row of the list: the key number as two hexadecimal digits ("0A"), the row's key ("k10"),
// the caption, the kana caption, the name of the code (empty for code 0) and the code in
// decimal.
struct Xm7KeyRow {
    QString text;
    QString key;
    QString caption;
    QString kana;
    QString dikName;
    QString code;

    bool operator==(const Xm7KeyRow&) const = default;
};

Xm7KeyRow MakeXm7KeyRow(int keyNo, int code);
// The rows of the list for `keys`, one per FM-7 key in ascending key number.
std::vector<Xm7KeyRow> Xm7KeyRows(const Xm7KeyArray& keys);
// Place of key `keyNo` in the list, from 0; -1 for a number without a row.
int Xm7KeyRowPosition(int keyNo);
// Writes the codes of `rows` back into `keys` by the number in each row's key; elements
// without a row are not touched.
void StoreXm7KeyRows(const std::vector<Xm7KeyRow>& rows, Xm7KeyArray& keys);

// Gives `code` to FM-7 key `keyNo`. A code belongs to one FM-7 key at most, so every other key
// of the list that held it is left with 0. Assigning a key the code it already holds changes
// nothing. Returns whether anything changed; false also for a number without a row.
bool AssignXm7KeyCode(Xm7KeyArray& keys, int keyNo, int code);

// Items of a joystick code combo, as (text, item data). A port of type "キーボード" offers
// "使用しない" (0) and every FM-7 key by its caption and number; any other type offers
// "使用しない" and the directions and buttons, codes 112 to 117.
std::vector<std::pair<QString, int>> Xm7JoyKeyItems();
std::vector<std::pair<QString, int>> Xm7JoyDirItems();
// What each of a port's seven combos selects when the direction lists are put in place: ↑ ↓ ←
// → centre A B.
inline constexpr std::array<int, 7> kXm7JoyDirDefaults = {112, 113, 114, 115, 0, 116, 117};

} // namespace tv
