#pragma once
// The command line of P88SR (EmuCode 1). The options travel in "P88SR.CFG" (P88srOption.h);
// the command line carries the images only: drive 1, then drive 2, with the FMPAN disk, when in
// use, in the place of drive 1 pushing the others along. Nothing goes in by the file dialog.
#include "launch/LaunchCommand.h"

#include <QString>
#include <functional>

namespace tv {

// What the branch needs to build the command.
struct P88srCommandInput {
    QString dir;    // P88SR's directory of the configuration, native, trimmed
    QString image;  // Image: the (8.3) name of the first image in WorkDir
    QString second; // Second: the second image as the record holds it, may be empty
    QString panArg; // "FMPAN.D88 " when the FMPAN disk was staged, else empty
};

// The command "P88SR.EXE " PanArg Image " " Second, trimmed; a T88 tape image leaves PanArg
// out. No part is quoted, so the arguments are the text behind the program cut at its blanks,
// as the emulator's home platform cuts them. `pathForm` turns a name into the form in which
// the emulator sees it.
LaunchCommand MakeP88srCommand(const P88srCommandInput& in,
                               const std::function<QString(const QString&)>& pathForm);

// The same in Wine's path form, since P88SR is a DOS program.
LaunchCommand MakeP88srCommand(const P88srCommandInput& in);

// The same from the configuration's P88SR directory.
LaunchCommand MakeP88srCommand(const QString& image, const QString& second, const QString& panArg);

} // namespace tv
