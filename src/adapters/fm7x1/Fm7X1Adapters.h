#pragma once
// The launch adapters of the FM-7 & FM77AV and X1 & X1Turbo! families' emulators.
#include "launch/EmuAdapter.h"

#include <memory>

namespace tv {

std::unique_ptr<EmuAdapter> MakeXm7DosAdapter();
std::unique_ptr<EmuAdapter> MakeXm7WinAdapter();
std::unique_ptr<EmuAdapter> MakeEm7Adapter();
std::unique_ptr<EmuAdapter> MakeX1rAdapter();
std::unique_ptr<EmuAdapter> MakeXmilAdapter();
std::unique_ptr<EmuAdapter> MakeX1emuAdapter();
std::unique_ptr<EmuAdapter> MakeWinX1Adapter();

} // namespace tv
