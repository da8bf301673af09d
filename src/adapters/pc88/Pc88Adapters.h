#pragma once
// The launch adapters of the PC-8x01 family's emulators.
#include "launch/EmuAdapter.h"

#include <memory>

namespace tv {

std::unique_ptr<EmuAdapter> MakeP88srAdapter();
std::unique_ptr<EmuAdapter> MakeM88Adapter();
std::unique_ptr<EmuAdapter> MakePc88WinAdapter();
std::unique_ptr<EmuAdapter> MakeX88kAdapter();
std::unique_ptr<EmuAdapter> MakeQuasi88Adapter();
std::unique_ptr<EmuAdapter> MakeJ80Adapter();

} // namespace tv
