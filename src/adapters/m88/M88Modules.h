#pragma once
// M88's extension modules are files beside its executable. Before a launch the emulator's
// directory is made to hold exactly the modules that the title wants: wanted ones missing
// there are copied in from M88SaveDir, unwanted ones are hidden under another name. After the
// run everything is put back as it was.
#include "adapters/pc88/EmuOpt88.h"

#include <QString>
#include <array>
#include <cstdint>

namespace tv {

inline constexpr int kM88ModuleCount = 8;
inline constexpr int kM88ModuleFiles = 3;

struct M88ModuleFile {
    const char* visible; // nullptr: no such file
    const char* hidden;
};

// Per module (the index of chkM88_5Op and of M88_5Op) its files, visible and hidden names.
extern const std::array<std::array<M88ModuleFile, kM88ModuleFiles>, kM88ModuleCount> M88Modules;
// The captions of chkM88_5Op(0..7).
extern const std::array<const char*, kM88ModuleCount> M88ModuleCaptions;

// One entry per module; its decimal digit j tells what was done to file j: 1 copied in,
// 2 hidden, 0 nothing (21: file 0 copied in, file 1 hidden).
using ModuleState = std::array<uint8_t, kM88ModuleCount>;

// Makes M88's directory (Cfg.M88Dir) hold the modules that M88_5Op of the block chosen by
// DefOpt wants; with DefOpt other than 1 the title's block is first fetched from the catalogue's
// record (clsLst.GetEmuOpt88). A wanted module with a file in neither M88's directory nor
// M88SaveDir can't be made whole and is hidden as a whole. Reports nothing; failed file operations
// are ignored.
void HideM88Modules(ModuleState& out, uint8_t DefOpt);
void HideM88Modules(ModuleState& out, const EmuOpt88& block);

// Undoes what HideM88Modules did: copied-in files are deleted, hidden ones get their names
// back. The entries are consumed digit by digit and are 0 afterwards.
void RestoreM88Modules(ModuleState& state);

} // namespace tv
