#pragma once
// Every fact about the thirteen emulators, one row each: what the launch, the detail pane,
// the main window's buttons, the settings dialog and its checks read about an emulator. An
// emulator that differs in behaviour, not in facts, does so through its launch adapter.
#include "data/Cfg.h"
#include "data/EmuCode.h"

#include <QString>
#include <QStringList>
#include <span>

namespace tv {

struct EmuRow {
    Emu emu = Emu::P88sr;
    int family = 0; // 0 PC-8x01, 1 FM-7 & FM77AV, 2 X1 & X1Turbo!
    int entry = 0;  // within the family: the menu entry and the list index of DefEmuRun
    const char* caption = nullptr; // of cmdEmuRun and of the menu entries

    // The program file, and the other build's file chosen by `exeAltFlag` (or null).
    const char* exe = nullptr;
    const char* exeAlt = nullptr;
    uint8_t CfgRecord::*exeAltFlag = nullptr;
    // The program the settings check looks for in the directory.
    const char* checkExe = nullptr;

    // Configuration fields; null where the emulator has none.
    QString CfgRecord::*dir = nullptr;
    QString CfgRecord::*tuneDir =
        nullptr; // the T-Tune build's directory, chosen by the launch's TuneUse
    uint8_t CfgRecord::*use = nullptr;
    uint8_t CfgRecord::*cfgChk = nullptr; // "既存INI使用"
    uint8_t CfgRecord::*allScr = nullptr; // "全画面起動"
    QString CfgRecord::*saveDir = nullptr;

    // The emulator's own configuration file and its backup in its directory (null: none);
    // the pair behind them belongs to the build that `exeAltFlag` chooses.
    const char* config = nullptr;
    const char* backup = nullptr;
    const char* configAlt = nullptr;
    const char* backupAlt = nullptr;

    // Image types (upper-case extensions), null-terminated.
    const char* types[5] = {};
    // A DOS program that reaches files by their 8.3 names.
    bool shortNames = false;
    // A .PAT of the title travels into WorkDir.
    bool pat = false;
    // A multi-disk D88 is split for it, in this mode of the split (-1: never split).
    int splitMode = -1;
    // It may want the PCI sound-card driver files in WorkDir.
    bool pciDebug = false;
    // The program is a Java archive: 自動 starts it on a Java runtime.
    bool javaArchive = false;

    // The settings dialog's open-file filter of the program.
    const char* filterDisplay = nullptr;
    const char* filterPattern = nullptr;

    // Names in the settings dialog: chk<key>Use, fra<key>Use, txt<key>Dir, cmd<key>Dir;
    // txt<saveKey>SaveDir; chk<flagKey>CfgChk and chk<flagKey>AllScr; null where absent.
    const char* key = nullptr;
    const char* listName = nullptr;   // entry of cbxDefEmuRun
    const char* useCaption = nullptr; // "…を使用する"
    const char* saveKey = nullptr;
    const char* flagKey = nullptr;
    const char* opButton = nullptr;
    const char* opText = nullptr;
    // The settings check's refusal when the program is not in the directory.
    const char* badDirText = nullptr;
    // Files that must exist when the emulator is in use: field and refusal, in order.
    struct FileCheck {
        QString CfgRecord::*file = nullptr;
        const char* badText = nullptr;
    };
    FileCheck fileChecks[4] = {};
    // The T-Tune build's directory checks: the same directory as the plain build's, and no
    // program in it.
    const char* sameTuneDirText = nullptr;
    const char* badTuneDirText = nullptr;

    int16_t code() const { return CodeOf(emu); }
    QString captionText() const { return QString::fromUtf8(caption); }
    // The program file as the configuration chooses it.
    QString exeName(const CfgRecord& cfg = Cfg) const;
    // The emulator's directory, trimmed; the T-Tune build's when TuneUse is 1.
    QString dirOf(const CfgRecord& cfg = Cfg, uint8_t TuneUse = 0) const;
    bool inUse(const CfgRecord& cfg = Cfg) const;
    bool existingIni(const CfgRecord& cfg = Cfg) const;
    bool fullScreen(const CfgRecord& cfg = Cfg) const;
    bool takesType(const QString& ext) const;
    // The configuration file and backup names as the configuration chooses them ("" none).
    QString configName(const CfgRecord& cfg = Cfg) const;
    QString backupName(const CfgRecord& cfg = Cfg) const;
};

// The thirteen rows, in code order.
std::span<const EmuRow> EmuRows();
// The row of a code, or null.
const EmuRow* FindEmu(int code);
const EmuRow& RowOf(Emu emu);

} // namespace tv
