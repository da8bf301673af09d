#pragma once
// The writer of "QUASI88.INI": QUASI88 reads its switches one per line from this file in the
// current directory, so the launch writes the title's QUASI88 options there and the command
// line carries only the directories and the image.
#include "adapters/pc88/EmuOpt88.h"

#include <QString>
#include <array>

namespace tv {

inline const QString kQuasi88IniName = QStringLiteral("QUASI88.INI");

// How a row of Q88_1Op turns into lines.
enum class Quasi88RowKind {
    Flag,     // its switch when the element is 1
    Value,    // always: the switch, a blank, the element in decimal
    Choice,   // the text of the element's entry; an element outside the list writes nothing
    Pair,     // when the element is 1: switches with values of other members
    Computed, // always: the switch and a value derived from the element
    Unused,   // read by another row, or not used at all
};

struct Quasi88Row {
    Quasi88RowKind kind;
    // Flag and Value: texts[0] is the switch. Choice: the entries by value. Pair and Computed:
    // the switches in the order of their lines, each with its trailing blank.
    std::array<const char*, 5> texts;
};

// One row per element of Q88_1Op, 60 in all.
inline constexpr std::array<Quasi88Row, 60> Quasi88SwitchTable = {{
    /* 0 */ {Quasi88RowKind::Choice, {"-n", "-v1s", "-v1h", "-v2"}},
    /* 1 */ {Quasi88RowKind::Choice, {"-4mhz", "-8mhz"}},
    /* 2 */ {Quasi88RowKind::Flag, {"-printer TORV_QUASI88_PRN.TXT"}},
    /* 3 */ {Quasi88RowKind::Flag, {"-serialout TORV_QUASI88_SER.TXT"}},
    /* 4 */ {Quasi88RowKind::Pair, {"-extram "}},
    /* 5 */ {Quasi88RowKind::Unused, {}},
    /* 6 */ {Quasi88RowKind::Pair, {"-setver "}},
    /* 7 */ {Quasi88RowKind::Unused, {}},
    /* 8 */ {Quasi88RowKind::Flag, {"-jisho"}},
    /* 9 */ {Quasi88RowKind::Flag, {"-nologo"}},
    /* 10 */ {Quasi88RowKind::Flag, {"-english"}},
    /* 11 */ {Quasi88RowKind::Flag, {"-sleep"}},
    /* 12 */ {Quasi88RowKind::Flag, {"-button2menu"}},
    /* 13 */ {Quasi88RowKind::Flag, {"-menu"}},
    /* 14 */ {Quasi88RowKind::Flag, {"-timestop"}},
    /* 15 */ {Quasi88RowKind::Value, {"-cpu"}},
    /* 16 */ {Quasi88RowKind::Pair, {"-subload ", "-load "}},
    /* 17 */ {Quasi88RowKind::Pair, {"-clock "}},
    /* 18 */ {Quasi88RowKind::Pair, {"-soundclock ", "-vsync "}},
    /* 19 */ {Quasi88RowKind::Flag, {"-nowait"}},
    /* 20 */ {Quasi88RowKind::Pair, {"-waitfreq "}},
    /* 21 */ {Quasi88RowKind::Flag, {"-fdc_wait"}},
    /* 22 */ {Quasi88RowKind::Flag, {"-exchange"}},
    /* 23 */ {Quasi88RowKind::Flag, {"-hsbasic"}},
    /* 24 */ {Quasi88RowKind::Value, {"-frameskip"}},
    /* 25 */ {Quasi88RowKind::Flag, {"-autoskip"}},
    /* 26 */ {Quasi88RowKind::Pair, {"-width ", "-height "}},
    /* 27 */ {Quasi88RowKind::Unused, {}},
    /* 28 */ {Quasi88RowKind::Flag, {"-half"}},
    /* 29 */ {Quasi88RowKind::Flag, {"-hide_mouse"}},
    /* 30 */ {Quasi88RowKind::Flag, {"-15k"}},
    /* 31 */ {Quasi88RowKind::Flag, {"-digital"}},
    /* 32 */ {Quasi88RowKind::Flag, {"-nointerp"}},
    /* 33 */ {Quasi88RowKind::Flag, {"-interlace"}},
    /* 34 */ {Quasi88RowKind::Choice, {"-nosound", "-sd", "-sd2"}},
    /* 35 */ {Quasi88RowKind::Flag, {"-fmgen"}},
    // Entry 0 takes the free sample rate of Q88_5Op[0] behind it.
    /* 36 */
    {Quasi88RowKind::Choice,
     {"-samplefreq ", "-samplefreq 11025", "-samplefreq 22050", "-samplefreq 44100",
      "-samplefreq 48000"}},
    /* 37 */
    {Quasi88RowKind::Choice,
     {"-sdlbufsize 512", "-sdlbufsize 1024", "-sdlbufsize 2048", "-sdlbufsize 4096",
      "-sdlbufsize 8192"}},
    /* 38 */ {Quasi88RowKind::Value, {"-sdlbufnum"}},
    /* 39 */ {Quasi88RowKind::Computed, {"-volume "}},
    /* 40 */ {Quasi88RowKind::Value, {"-fmvol"}},
    /* 41 */ {Quasi88RowKind::Value, {"-psgvol"}},
    /* 42 */ {Quasi88RowKind::Value, {"-beepvol"}},
    /* 43 */ {Quasi88RowKind::Value, {"-rhythmvol"}},
    /* 44 */ {Quasi88RowKind::Value, {"-adpcmvol"}},
    // Entry 0 assigns the functions of rows 46 to 50 to the keys f6 to f10.
    /* 45 */ {Quasi88RowKind::Choice, {"", "-menukey", "-kanjikey"}},
    /* 46 */ {Quasi88RowKind::Unused, {"-f6 "}},
    /* 47 */ {Quasi88RowKind::Unused, {"-f7 "}},
    /* 48 */ {Quasi88RowKind::Unused, {"-f8 "}},
    /* 49 */ {Quasi88RowKind::Unused, {"-f9 "}},
    /* 50 */ {Quasi88RowKind::Unused, {"-f10 "}},
    /* 51 */ {Quasi88RowKind::Flag, {"-tenkey"}},
    /* 52 */ {Quasi88RowKind::Flag, {"-cursor"}},
    /* 53 */ {Quasi88RowKind::Flag, {"-numlock"}},
    /* 54 */ {Quasi88RowKind::Value, {"-romaji"}},
    /* 55 */
    {Quasi88RowKind::Choice, {"-nomouse", "-mouse", "-joymouse", "-joystick", "-joykey"}},
    /* 56 */ {Quasi88RowKind::Flag, {"-joyswap"}},
    /* 57 */ {Quasi88RowKind::Value, {"-joyassign"}},
    /* 58 */ {Quasi88RowKind::Unused, {}},
    /* 59 */ {Quasi88RowKind::Unused, {}},
}};

// The functions that the keys f6 to f10 can be given; 0 is no function.
inline constexpr std::array<const char*, 27> Quasi88FunctionName = {
    "",         "FRATE-UP", "FRATE-DOWN",  "VOLUME-UP",   "VOLUME-DOWN", "PAUSE",
    "RESIZE",   "NOWAIT",   "SPEED-UP",    "SPEED-DOWN",  "MOUSE-HIDE",  "DGA",
    "SNAPSHOT", "SUSPEND",  "IMAGE-NEXT1", "IMAGE-PREV1", "IMAGE-NEXT2", "IMAGE-PREV2",
    "NUMLOCK",  "RESET",    "KANA",        "ROMAJI",      "CAPS",        "KETTEI",
    "HENKAN",   "ZENKAKU",  "PC"};

// The text of "QUASI88.INI" for `record`: one switch per line, lines ending in CR LF, trimmed
// at the end (the last line has no line end; the write puts one back). `allScreen` is the
// configuration's full-screen choice for QUASI88 (Cfg.Q88AllScr), which turns a given screen
// size into 640 by 480 when the record asks for that.
QString MakeQuasi88Ini(const EmuOpt88& record, bool allScreen);

// The same with the configuration's full-screen choice.
QString MakeQuasi88Ini(const EmuOpt88& record);

// The value of "-dipsw" in capital hexadecimal: the DIP bits of Q88_2Op from bit 1 upward.
QString Quasi88DipSwitchHex(const EmuOpt88& record);

// A 32-bit float in the fewest decimal digits that read back as the same float, never in
// exponent form: "3.9936", "55.4", "8".
QString Quasi88FloatText(float value);

// Creates `path` anew and writes `text` with one line end behind it, in Shift-JIS. False when
// the file can't be written.
bool WriteQuasi88Ini(const QString& path, const QString& text);

} // namespace tv
