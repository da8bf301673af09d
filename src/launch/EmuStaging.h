#pragma once
// The files carried into WorkDir for one run and away after it, and the backup of the
// emulator's own configuration file under its ".ORG" name. None of these procedures reports
// anything: the results of copies and deletes are ignored, and an emulator that misses a
// file will say so itself.
#include <QString>
#include <QStringList>
#include <cstdint>

namespace tv {

// The emulator's configuration file and its backup, in the emulator's directory; all empty
// for the codes that have none.
struct EmuConfigFiles {
    QString dir, config, backup;
    bool has() const { return !config.isEmpty(); }
};
EmuConfigFiles GetEmuConfigFiles(int16_t EmuCode, uint8_t TuneUse);

// Restore false: before the run (a stale backup goes, the config file is copied to the
// backup name). Restore true: after the run (the backup goes back over the config file).
// False when the backup couldn't be made, or when the user's file couldn't go back (it is
// then kept in recovery and the user has been told).
bool BackupEmuConfig(int16_t EmuCode, bool Restore, uint8_t TuneUse);

// The ROM set of XM7 for DOS, in the order it is copied and deleted.
inline const QStringList kXm7RomFiles{"FBASIC30.ROM", "BOOT_BAS.ROM", "BOOT_DOS.ROM",
                                      "SUBSYS_C.ROM", "KANJI.ROM"};
void StageXm7Rom(uint8_t HardWare, int16_t EmuCode);
void UnstageXm7Rom(uint8_t HardWare, int16_t EmuCode);

inline const QString kDos4gwFile = QStringLiteral("DOS4GW.EXE");
void StageDos4gw(uint8_t HardWare, int16_t EmuCode);
void UnstageDos4gw(uint8_t HardWare, int16_t EmuCode);

// The driver for a real sound chip on a PCI card, in the order it is copied.
inline const QStringList kPciDebugFiles{"PCIDEBUG.DLL", "Pcidebug.sys", "pcidbg95.vxd"};

// Copied from the family's .PAT directory when the emulator's adapter wants the driver for
// this launch. Flag is cleared and has no other use.
void StagePciDebug(uint8_t& Flag, int16_t EmuCode, uint8_t DefOpt);
void UnstagePciDebug(uint8_t& Flag, int16_t EmuCode);

} // namespace tv
