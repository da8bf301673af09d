#pragma once
// Which option dialog belongs to which emulator. The environment settings open the dialogs on
// the default blocks (TitleFlag 0) and show the switch texts of those emulators that are given
// switches; the registration dialog opens them on the current title (TitleFlag 1).
#include "data/EmuCode.h"

#include <QString>
#include <functional>
#include <map>

class QWidget;

namespace tv {

struct OptionDialogEntry {
    // Opens the emulator's option dialog modally on the block that TitleFlag chooses.
    std::function<void(int TitleFlag, QWidget* owner)> open;
    // The switches that the default block gives, as frmCfg shows them.
    std::function<QString()> defaultsText;
};

// Per emulator its entry; an emulator without one has no dialog yet.
std::map<Emu, OptionDialogEntry>& OptionDialogTable();

// Opens the option dialog of `emu` on the block that TitleFlag chooses; false when the
// emulator has none.
bool OpenOptionDialog(Emu emu, int TitleFlag, QWidget* owner);

// The controls of frmCfg that stand for an emulator's dialog: its button and, for emulators
// given switches, the read-only box of the default switches.
struct OptionDialogControls {
    Emu emu;
    const char* button;
    const char* switchText; // or null
};
extern const OptionDialogControls kOptionDialogControls[12];

// The emulator whose option dialog the frmCfg button `name` opens, or null.
const OptionDialogControls* OptionDialogControlsOf(const QString& button);

} // namespace tv
