#include "launch/EmuStaging.h"

#include "data/Cfg.h"
#include "data/EmuRegistry.h"
#include "launch/EmuAdapter.h"
#include "launch/Recovery.h"
#include "platform/MsgBox.h"
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

// `EmuCode` is the code of `emu` and belongs to `HardWare`.
bool IsEmuOf(uint8_t HardWare, int16_t EmuCode, Emu emu)
{
    const EmuRow& r = RowOf(emu);
    return r.code() == EmuCode && r.family == HardWare;
}

// The rows that may want the PCI driver.
const EmuRow* PciDebugRow(int16_t EmuCode)
{
    const EmuRow* r = FindEmu(EmuCode);
    return r && r->pciDebug ? r : nullptr;
}

// A backup still standing is the remainder of a launch that ended midway: the user's own file.
// Before the rule removes it, it is kept under the configuration's own name in a recovery
// directory beside the program, named with the date and the emulator, and the user is told
// where, once for each file kept. Where nothing can be kept, the rule goes on as it was.
void KeepStaleBackup(const EmuRow& row, const EmuConfigFiles& f, const QString& backup)
{
    const QString name = QString::fromUtf8(row.listName);
    const QString kept = KeepInRecovery(backup, QString(name).replace(u' ', u'_'), f.config);
    if (kept.isEmpty()) {
        ShellDelete(backup, 0);
        return;
    }
    MsgBox(QStringLiteral("前回の起動で元に戻せなかった %1 の設定ファイルを、次の場所に"
                          "保存しました。\r\n\r\n%2\r\n\r\n元の設定に戻すには、この"
                          "ファイルを %1 のフォルダへコピーしてください。")
               .arg(name, kept),
           MbInformation);
}

} // namespace

EmuConfigFiles GetEmuConfigFiles(int16_t EmuCode, uint8_t TuneUse)
{
    const EmuRow* r = FindEmu(EmuCode);
    if (!r || !r->config)
        return {};
    return {r->dirOf(Cfg, TuneUse), r->configName(), r->backupName()};
}

bool BackupEmuConfig(int16_t EmuCode, bool Restore, uint8_t TuneUse)
{
    const EmuConfigFiles f = GetEmuConfigFiles(EmuCode, TuneUse);
    if (!f.has())
        return true;
    // The emulators come from a case-blind platform: "m88.ini" is their M88.INI as well.
    const QString config = ResolveFileNoCase(f.dir, f.config), backup = Join(f.dir, f.backup);
    if (!Restore) {
        if (Exists(backup))
            KeepStaleBackup(*FindEmu(EmuCode), f, backup);
        if (!Exists(config))
            return true;
        return ShellCopy(config, backup, 0);
    }
    // Without a backup the emulator had no configuration: it keeps what the launch wrote.
    if (!Exists(backup))
        return true;
    DeleteFileAnyCase(f.dir, f.config);
    if (ShellMove(backup, Join(f.dir, f.config), 0))
        return true;
    // The user's file would stay under the backup name until the next launch of the emulator:
    // it is kept in recovery now, and the user is told.
    const QString kept = KeepInRecovery(backup);
    MsgBox(QStringLiteral("%1 を元に戻せませんでした。").arg(Join(f.dir, f.config)) +
               (kept.isEmpty()
                    ? QStringLiteral("\r\n\r\n元の設定は %1 に残っています。").arg(backup)
                    : QStringLiteral("\r\n\r\n元の設定を次の場所に保存しました。"
                                     "\r\n\r\n%1")
                          .arg(kept)),
           MbExclamation);
    return false;
}

void StageXm7Rom(uint8_t HardWare, int16_t EmuCode)
{
    if (IsEmuOf(HardWare, EmuCode, Emu::Xm7Dos))
        StageFiles(RowOf(Emu::Xm7Dos).dirOf(), kXm7RomFiles);
}

void UnstageXm7Rom(uint8_t HardWare, int16_t EmuCode)
{
    if (IsEmuOf(HardWare, EmuCode, Emu::Xm7Dos))
        UnstageFiles(kXm7RomFiles);
}

void StageDos4gw(uint8_t HardWare, int16_t EmuCode)
{
    if (IsEmuOf(HardWare, EmuCode, Emu::X1emu))
        StageFiles(RowOf(Emu::X1emu).dirOf(), {kDos4gwFile});
}

void UnstageDos4gw(uint8_t HardWare, int16_t EmuCode)
{
    if (IsEmuOf(HardWare, EmuCode, Emu::X1emu))
        UnstageFiles({kDos4gwFile});
}

void StagePciDebug(uint8_t& Flag, int16_t EmuCode, uint8_t DefOpt)
{
    Flag = 0;
    const EmuRow* r = PciDebugRow(EmuCode);
    if (!r || !AdapterOf(EmuCode)->pciDebugWanted(DefOpt))
        return;
    // The driver lies in the family's .PAT directory, where the user puts it once.
    StageFiles(PatSaveDir[r->family], kPciDebugFiles);
}

void UnstagePciDebug(uint8_t& Flag, int16_t EmuCode)
{
    (void)Flag;
    if (PciDebugRow(EmuCode))
        UnstageFiles(kPciDebugFiles);
}

} // namespace tv
