#pragma once
// Keystrokes and clipboard text for an outside program. The key notation is parsed here:
// a plain character is its key (a letter names the key, its case adds no Shift), "%" holds
// Alt, "^" Ctrl and "+" Shift for the next key or for a group in parentheses, "~" is Enter,
// braces name a key ("{ENTER}", "{F10}", "{TAB}", ...) or give a sign literally ("{%}",
// "{{}"), with an optional repeat count ("{TAB 3}").
//
// On an X11 display the keys go to the focused window through XTest, each event taken by
// the server before the next is sent, and a sequence returns when the target window has
// handled it (or when it doesn't answer within a short time). Without X11 the sequence is
// recorded and not sent. Every sequence and clipboard text is recorded in order, so tests can
// read what was done.
#include <QString>
#include <cstdint>
#include <optional>
#include <vector>

namespace tv {

enum KeyMod : int { KeyModShift = 1, KeyModCtrl = 2, KeyModAlt = 4 };

struct KeyStroke {
    int mods = 0;
    // "A".."Z", "0".."9", a sign, or a key name such as "ENTER", "F10", "TAB".
    QString key;
    // "Ctrl+Alt+Shift+" as held, then the key: "Alt+I", "Ctrl+V", "ENTER".
    QString text() const;
    bool operator==(const KeyStroke&) const = default;
};

// The strokes of a notation, or nothing when the notation is malformed or names an unknown key.
std::optional<std::vector<KeyStroke>> ParseKeys(const QString& notation);

struct InputRecord {
    enum Kind { Clip, Keys } kind = Keys;
    QString text; // the clipboard text, or the key notation
    // Keys sent to a display; a clipboard text set (all but those of a dry run).
    bool delivered = false;
    int64_t msecs = 0; // wall clock, milliseconds since the epoch
};

// Sends a key sequence. `wait` asks to return only when the target has handled the keys.
// Returns false when the notation is malformed (nothing is sent then).
bool SendKeys(const QString& notation, bool wait = true);

// Clears the clipboard and puts plain text on it.
void SetClipText(const QString& text);

// The process that has just been started for the user: before a sequence is sent, the keys
// wait (a few seconds at most) until a window of this process, or of a process it started
// (a runner's emulator), has the input focus, as a program started with a focused window has
// it. 0 forgets the target.
void SetKeyTarget(int64_t pid);

// A dry run of a launch: sequences and clipboard texts are recorded as always, but no key is
// sent and the clipboard is left as it is. Returns the setting it replaces.
bool SetInputRecordOnly(bool on);
// For a target that reads the X11 selections through a bridge of its own (Wine): a non-zero
// value puts each clipboard text on PRIMARY as well as on CLIPBOARD and then serves events
// for that many milliseconds, so the bridge can fetch the text before the keys that paste it.
// 0 (the default) sets the clipboard only.
void SetClipSettle(int settleMs);

// True when `pid` is `ancestor` or one of its descendants (Linux /proc; false elsewhere).
bool ProcessDescendsFrom(int64_t pid, int64_t ancestor);

// True when keys can be sent to an X11 display.
bool KeyDeliveryAvailable();

const std::vector<InputRecord>& InputLog();
void ClearInputLog();

namespace detail {
// The X11 side (KeySendX11.cpp). Both return false without a display.
bool X11Available();
bool X11SendStrokes(const std::vector<KeyStroke>& strokes, bool wait);
bool X11WaitForFocus(int64_t pid, int timeoutMs);
} // namespace detail

} // namespace tv
