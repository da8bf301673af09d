#pragma once
// The command line of QUASI88 (EmuCode 5). The options travel in "QUASI88.INI" in WorkDir
// (Quasi88Ini.h); the command line carries the directories and the first image, or the FMPAN
// disk with the image going in through the emulator's file dialog.
#include "launch/LaunchCommand.h"

#include <QString>
#include <functional>

namespace tv {

// What the branch needs to build the command; all paths native.
struct Quasi88CommandInput {
    QString dir;               // QUASI88's directory of the configuration, trimmed
    QString workDir;           // WorkDir
    QString image;             // Image: the name of the first image in WorkDir
    QString panArg;            // "FMPAN.D88 " when the FMPAN disk was staged, else empty
    bool panUse = false;       // "Use PAN"
    bool allScreen = false;    // full screen for QUASI88 (Cfg.Q88AllScr)
    bool compatRomUse = false; // the compatible ROM file "PC88.ROM" (Cfg.Q88CompatRomUse)
};

// What the branch hands to ExecEmulator.
struct Quasi88Command {
    LaunchCommand command;
    QString paste1; // the image, when FMPAN takes its place on the command line
    QString paste2; // never used by QUASI88: always empty
};

// The command: QUASI88's "QUASI88.EXE", then " -dga", " -compatrom " and the ROM file, " -romdir "
// and the emulator's directory in double quotes, " -diskdir " and WorkDir in double quotes, and
// the image in double quotes (or PanArg, its trailing blank inside the quotes). Its arguments
// are those that the emulator's home platform splits from that text: the quotes only group,
// and the unquoted ROM path is cut at its blanks as it would be there. `pathForm` turns a
// native path into the form in which the emulator sees it.
Quasi88Command MakeQuasi88Command(const Quasi88CommandInput& in,
                                  const std::function<QString(const QString&)>& pathForm);

// The same in Wine's path form, since QUASI88 is a Windows program.
Quasi88Command MakeQuasi88Command(const Quasi88CommandInput& in);

// The same from the configuration (QUASI88's directory, "Use PAN", full screen, compatible
// ROM) and WorkDir.
Quasi88Command MakeQuasi88Command(const QString& image, const QString& panArg);

} // namespace tv
