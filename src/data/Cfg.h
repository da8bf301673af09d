#pragma once
// The configuration record TORVANE.CFG: 12124 bytes, packed, written and read field by field.
#include "adapters/fm7x1/EmuOptFMX1.h"
#include "adapters/pc88/EmuOpt88.h"

#include <QString>
#include <array>
#include <cstdint>

namespace tv {

inline constexpr int kCfgSize = 12124;
inline const QString kCfgVersionText = QStringLiteral("TORVANE.CFG Version 0.16");
inline const QString kCfgVersion = QStringLiteral("0.16");
inline const QString kCfgFileName = QStringLiteral("TORVANE.CFG");
inline const QString kCfgBackupName = QStringLiteral("TORVANE_CFG.BAK");

// Text fields hold what the file holds, blank-filled to their width; callers trim.
struct CfgRecord {
    QString CfgVersion; // 24
    uint8_t LastHardWare = 0;
    uint8_t P88srUse = 0, M88Use = 0, PC88WinUse = 0, X88kUse = 0, QUASI88Use = 0, J80Use = 0;
    uint8_t Xm7DosUse = 0, Xm7WinUse = 0, Em7WinUse = 0;
    uint8_t X1rUse = 0, XmilUse = 0, XmilTUse = 0, X1emuUse = 0, WinX1Use = 0, WinX1IkaUse = 0;
    uint8_t P88CfgChk = 0, M88CfgChk = 0, Pc8CfgChk = 0, X88CfgChk = 0, Q88CfgChk = 0,
            J80CfgChk = 0;
    uint8_t Reserved46 = 0;
    uint8_t Xm7WinCfgChk = 0, Em7WinCfgChk = 0, X1rCfgChk = 0, XmilCfgChk = 0, X1emuCfgChk = 0,
            WinX1CfgChk = 0;
    uint8_t M88AllScr = 0, Pc8AllScr = 0, X88AllScr = 0, Q88AllScr = 0, J80AllScr = 0,
            Xm7WinAllScr = 0, Em7WinAllScr = 0, XmilAllScr = 0, WinX1AllScr = 0;
    uint8_t Q88CompatRomUse = 0;
    uint8_t ScrAutoRead = 0, ScrSearchRead = 0;
    uint8_t WinChangeFlag = 0, WinState = 0, WinAppearance = 0, LstSelectSave = 0;
    uint8_t TxtIn = 0, TxtInConv = 0, ArcSerch = 0, TaskIn = 0, TaskRunForm = 0;
    uint8_t DefScrFlag = 0, ColNonMakeFlag = 0;
    std::array<uint8_t, 2> Reserved76{};
    std::array<QString, 3> ImageDir, SnapDir, ManDir, PatSaveDir; // 256 each, by family
    QString P88srDir, M88Dir, PC88WinDir, X88kDir, QUASI88Dir, J80Dir, Xm7DosDir, Xm7WinDir,
        Em7WinDir, X1rDir, XmilDir, XmilTDir, X1emuDir, WinX1Dir; // 256 each
    QString P88SaveDir, M88SaveDir, QUASI88SaveDir, Xm7DosSaveDir, Xm7WinSaveDir, XmilSaveDir,
        WinX1SaveDir; // 256 each
    QString J80RomsFile, J80Rom4File, J80FontFile, J80DiskFile, J80CrtFile, J80KeyFile, J80PenDir,
        FmPanFile, JavaVMPath, DefScrPath;                                  // 256 each
    QString J80RomsAddress, J80Rom4Address, J80FontAddress, J80DiskAddress; // 8 each
    QString FreeColName1, FreeColName2;                                     // 20 each
    int16_t WinSendWait = 0;
    std::array<float, 6> ColWidth{}; // ColWidth1..ColWidth6, twips
    float WinWidth = 0, WinHeight = 0, WinLeft = 0, WinTop = 0;
    int32_t LstSelectPos = 0;
    uint8_t DefOpt = 0, PanUse = 0, PatUse = 0, ViewScrCom = 0, ViewGrid = 0, SortKey = 0,
            DblClickProc = 0, ReArcCheck = 0;
    std::array<std::array<uint8_t, 6>, 20> FilterOrder{}; // [row][column]
    EmuOpt88 CfgEmuOpt88;
    EmuOptFM CfgEmuOptFM;
    EmuOptX1 CfgEmuOptX1;
};

// The process-wide record.
inline CfgRecord Cfg;

QByteArray EncodeCfg(const CfgRecord& c);
// Reads as much of the record as `bytes` holds; the fields it doesn't reach stay as they are.
void DecodeCfg(const QByteArray& bytes, CfgRecord& c);

// Blanks every text field and leaves the numbers alone.
void ClearCfg(CfgRecord& c = Cfg);
void SetDefaultCfg(CfgRecord& c = Cfg);
// Reads AppDir\TORVANE.CFG into the record; false when the file can't be read.
bool ReadCfg(CfgRecord& c = Cfg);
// Writes the whole record to AppDir\TORVANE.CFG; false on failure.
bool SaveCfg(const CfgRecord& c = Cfg);
// Sets the run-time directories from the record: blank means AppDir.
void ResolveCfgDirs(const CfgRecord& c = Cfg);

} // namespace tv
