#pragma once
// The launch branch of M88 (EmuCode 2). Its adapter (M88Adapter.cpp) calls, in the frame's
// order:
//   1. before BackupEmuConfig: the save states in, then HideM88Modules (M88Modules.h) and the
//      PCIDEBUG staging;
//   2. in the adapter branch: PrepareM88Config, then MakeM88Command;
//   3. after the run: the save states out, then RestoreM88Modules, then the PCIDEBUG files
//      out, and BackupEmuConfig restores the user's "M88.INI" from "M88.ORG".
#include "adapters/pc88/EmuOpt88.h"

#include <QString>
#include <QStringList>
#include <cstdint>
#include <optional>

namespace tv {

// What the branch hands to ExecEmulator.
struct M88Command {
    QString Program;  // M88's directory + "/M88.EXE", native
    QStringList Args; // the arguments, in the emulator's form
    QString CmdLine;  // the text form of the command line
    QString Paste1;   // the image, when it goes in through the emulator's file dialog
    QString Paste2;   // never used by M88: always empty
};

// The road with "既存INI使用" (Cfg.M88CfgChk) off: deletes M88's "M88.INI" and writes it anew
// from the block (MakeM88Ini) with one write and a line end behind it. Returns AltFlag, the
// block's "use RND4M88" (M88_1Op[23]); `written` tells whether the file could be written.
uint8_t WriteGeneratedM88Ini(const EmuOpt88& block, bool* written = nullptr);

// The road with "既存INI使用" on regenerates nothing (AltFlag stays 0) and corrects three keys of
// section "M88p2 for Windows" of M88's "M88.INI" through the profile interface: "Flags" as
// CorrectM88Flags says (read with "" as default), "BIOSPath" = M88PathForm of M88's directory,
// "Directory" = M88PathForm(WorkDir). The launch frame makes these writes with SetIniValue.
//
// The correction of "Flags" on the road with "既存INI使用" on: the text to write, or nothing
// when the value stays. Longer than 10 characters or not a number: "3". Otherwise, when bit 1
// ("終了時のディレクトリを記憶", which the launch depends on) is clear, the number plus 2.
std::optional<QString> CorrectM88Flags(const QString& flags);

// The command line from Image (the name of the first image in WorkDir) and PanArg
// ("FMPAN.D88 " or empty): a T88 image never stands on the command line; with PanUse on the
// FMPAN disk does and the image goes in by the file dialog.
M88Command MakeM88Command(const QString& Image, const QString& PanArg);

} // namespace tv
