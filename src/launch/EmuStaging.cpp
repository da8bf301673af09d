#include "launch/EmuStaging.h"

#include "data/Cfg.h"
#include "data/clsLst.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

namespace tv {

namespace {

QString Join(const QString& dir, const QString& name)
{
    return dir + QLatin1Char('/') + name;
}

bool Exists(const QString& path)
{
    return !FindFile(path).isEmpty();
}

} // namespace

EmuConfigFiles GetEmuConfigFiles(int16_t EmuCode, uint8_t TuneUse)
{
    switch (EmuCode) {
    case 1:
        return {VbTrim(Cfg.P88srDir), "P88SR.CFG", "P88SR.ORG"};
    case 2:
        return {VbTrim(Cfg.M88Dir), "M88.INI", "M88.ORG"};
    case 3:
        return {VbTrim(Cfg.PC88WinDir), "PC88WIN.INI", "PC88WIN.ORG"};
    case 12:
        return {VbTrim(Cfg.Xm7WinDir), "XM7.INI", "XM7.ORG"};
    case 13:
        return {VbTrim(Cfg.Em7WinDir), "EM7.INI", "EM7.ORG"};
    case 22:
        return {VbTrim(TuneUse == 1 ? Cfg.XmilTDir : Cfg.XmilDir), "Xmillennium.ini",
                "Xmillennium.org"};
    case 24:
        if (Cfg.WinX1IkaUse == 1)
            return {VbTrim(Cfg.WinX1Dir), "WinX1_ika.ini", "WinX1_ika.org"};
        return {VbTrim(Cfg.WinX1Dir), "winx1.ini", "winx1.org"};
    default:
        return {};
    }
}

void BackupEmuConfig(int16_t EmuCode, bool Restore, uint8_t TuneUse)
{
    const EmuConfigFiles f = GetEmuConfigFiles(EmuCode, TuneUse);
    if (!f.has())
        return;
    // The emulators come from a case-blind platform: "m88.ini" is their M88.INI as well.
    const QString config = ResolveFileNoCase(f.dir, f.config), backup = Join(f.dir, f.backup);
    if (!Restore) {
        // A backup still standing is the remainder of a launch that failed midway.
        if (Exists(backup))
            ShellDelete(backup, 0);
        if (!Exists(config))
            return;
        ShellCopy(config, backup, 0);
        return;
    }
    // Without a backup the emulator had no configuration: it keeps what the launch wrote.
    if (!Exists(backup))
        return;
    DeleteFileAnyCase(f.dir, f.config);
    ShellMove(backup, Join(f.dir, f.config), 0);
}

void StageXm7Rom(uint8_t HardWare, int16_t EmuCode)
{
    if (HardWare != 1 || EmuCode != 11)
        return;
    const QString dir = VbTrim(Cfg.Xm7DosDir);
    for (const QString& name : kXm7RomFiles)
        ShellCopy(Join(dir, name), Join(WorkDir, name), 0);
}

void UnstageXm7Rom(uint8_t HardWare, int16_t EmuCode)
{
    if (HardWare != 1 || EmuCode != 11)
        return;
    for (const QString& name : kXm7RomFiles)
        ShellDelete(Join(WorkDir, name), 0);
}

void StageDos4gw(uint8_t HardWare, int16_t EmuCode)
{
    if (HardWare != 2 || EmuCode != 23)
        return;
    ShellCopy(Join(VbTrim(Cfg.X1emuDir), kDos4gwFile), Join(WorkDir, kDos4gwFile), 0);
}

void UnstageDos4gw(uint8_t HardWare, int16_t EmuCode)
{
    if (HardWare != 2 || EmuCode != 23)
        return;
    ShellDelete(Join(WorkDir, kDos4gwFile), 0);
}

bool PciDebugNeeded(int16_t EmuCode, const EmuOpt88& opt88, const EmuOptX1& optX1,
                    QString& sourceDir)
{
    switch (EmuCode) {
    case 2:
        sourceDir = PatSaveDir[0];
        // ROMEO, or when it is off, the FM98 module.
        return opt88.M88_1Op[24] == 1 || opt88.M88_5Op[7] == 1;
    case 12:
        sourceDir = PatSaveDir[1];
        return true;
    case 22:
        sourceDir = PatSaveDir[2];
        return Cfg.XmilTUse == 1 || optX1.Xmil_1Op[25] == 1;
    case 24:
        sourceDir = PatSaveDir[2];
        return true;
    default:
        sourceDir.clear();
        return false;
    }
}

void StagePciDebug(uint8_t& Flag, int16_t EmuCode, uint8_t DefOpt)
{
    Flag = 0;
    if (EmuCode != 2 && EmuCode != 12 && EmuCode != 22 && EmuCode != 24)
        return;
    EmuOpt88 opt88;
    EmuOptX1 optX1;
    if (DefOpt == 1) {
        opt88 = Cfg.CfgEmuOpt88;
        optX1 = Cfg.CfgEmuOptX1;
    } else if (EmuCode == 2) {
        // The title's own block, fetched from the record the catalogue holds.
        LstObj.GetEmuOpt88();
        opt88 = CurEmuOpt88;
    } else if (EmuCode == 22) {
        LstObj.GetEmuOptX1();
        optX1 = CurEmuOptX1;
    }
    QString source;
    if (!PciDebugNeeded(EmuCode, opt88, optX1, source))
        return;
    // The driver lies in the family's .PAT directory, where the user puts it once.
    for (const QString& name : kPciDebugFiles)
        ShellCopy(Join(source, name), Join(WorkDir, name), 0);
}

void UnstagePciDebug(uint8_t& Flag, int16_t EmuCode)
{
    if (EmuCode != 2 && EmuCode != 12 && EmuCode != 22 && EmuCode != 24)
        return;
    for (const QString& name : kPciDebugFiles)
        ShellDelete(Join(WorkDir, name), 0);
}

} // namespace tv
