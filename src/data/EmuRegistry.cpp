#include "data/EmuRegistry.h"

#include "util/SubFunction.h"

#include <array>

namespace tv {

namespace {

using R = CfgRecord;

const std::array<EmuRow, 13> kRows{{
    {.emu = Emu::P88sr,
     .family = 0,
     .entry = 1,
     .caption = "P88SR(&P)",
     .exe = "P88SR.EXE",
     .checkExe = "P88SR.EXE",
     .dir = &R::P88srDir,
     .use = &R::P88srUse,
     .saveDir = &R::P88SaveDir,
     .config = "P88SR.CFG",
     .backup = "P88SR.ORG",
     .types = {"D88", "T88"},
     .shortNames = true,
     .pat = true,
     .splitMode = -1,
     .filterDisplay = "P88SR (P88SR.EXE)",
     .filterPattern = "P88SR.EXE",
     .key = "P88sr",
     .listName = "P88SR",
     .useCaption = "P88SRを使用する",
     .saveKey = "P88",
     .opButton = "cmdP88srOp",
     .opText = "txtP88srOp",
     .badDirText = "P88SRの実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！"},
    {.emu = Emu::M88,
     .family = 0,
     .entry = 2,
     .caption = "M88(&M)",
     .exe = "M88.EXE",
     .checkExe = "M88.EXE",
     .dir = &R::M88Dir,
     .use = &R::M88Use,
     .cfgChk = &R::M88CfgChk,
     .allScr = &R::M88AllScr,
     .saveDir = &R::M88SaveDir,
     .config = "M88.INI",
     .backup = "M88.ORG",
     .types = {"D88", "T88"},
     .pat = true,
     .splitMode = -1,
     .pciDebug = true,
     .filterDisplay = "M88 (M88.EXE)",
     .filterPattern = "M88.EXE",
     .key = "M88",
     .listName = "M88",
     .useCaption = "M88を使用する",
     .saveKey = "M88",
     .flagKey = "M88",
     .opButton = "cmdM88Op",
     .badDirText = "M88の実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！"},
    {.emu = Emu::PC88Win,
     .family = 0,
     .entry = 3,
     .caption = "PC88Win(&W)",
     .exe = "PC88WIN.EXE",
     .checkExe = "PC88WIN.EXE",
     .dir = &R::PC88WinDir,
     .use = &R::PC88WinUse,
     .cfgChk = &R::Pc8CfgChk,
     .allScr = &R::Pc8AllScr,
     .config = "PC88WIN.INI",
     .backup = "PC88WIN.ORG",
     .types = {"D88"},
     .splitMode = -1,
     .filterDisplay = "PC88WIN (PC88WIN.EXE)",
     .filterPattern = "PC88WIN.EXE",
     .key = "PC88Win",
     .listName = "PC88Win",
     .useCaption = "PC88Winを使用する",
     .flagKey = "Pc8",
     .opButton = "cmdPc8Op",
     .badDirText = "PC88Winの実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！"},
    {.emu = Emu::X88k,
     .family = 0,
     .entry = 4,
     .caption = "X88000(&X)",
     .exe = "X88000.EXE",
     .checkExe = "X88000.EXE",
     .dir = &R::X88kDir,
     .use = &R::X88kUse,
     .cfgChk = &R::X88CfgChk,
     .allScr = &R::X88AllScr,
     .types = {"D88", "T88", "CMT", "N80"},
     .splitMode = -1,
     .filterDisplay = "X88000 (X88000.EXE)",
     .filterPattern = "X88000.EXE",
     .key = "X88k",
     .listName = "X88000",
     .useCaption = "X88000を使用する",
     .flagKey = "X88",
     .opButton = "cmdX88Op",
     .badDirText = "X88000の実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！"},
    {.emu = Emu::QUASI88,
     .family = 0,
     .entry = 5,
     .caption = "QUASI88(&Q)",
     .exe = "QUASI88.EXE",
     .checkExe = "QUASI88.EXE",
     .dir = &R::QUASI88Dir,
     .use = &R::QUASI88Use,
     .cfgChk = &R::Q88CfgChk,
     .allScr = &R::Q88AllScr,
     .saveDir = &R::QUASI88SaveDir,
     .types = {"D88"},
     .splitMode = -1,
     .filterDisplay = "QUASI88 (QUASI88.EXE)",
     .filterPattern = "QUASI88.EXE",
     .key = "QUASI88",
     .listName = "QUASI88",
     .useCaption = "QUASI88を使用する",
     .saveKey = "QUASI88",
     .flagKey = "Q88",
     .opButton = "cmdQ88Op",
     .badDirText = "QUASI88の実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！"},
    {.emu = Emu::J80,
     .family = 0,
     .entry = 6,
     .caption = "j80(&J)",
     .exe = "j80.jar",
     .checkExe = "j80.jar",
     .dir = &R::J80Dir,
     .use = &R::J80Use,
     .cfgChk = &R::J80CfgChk,
     .allScr = &R::J80AllScr,
     .types = {"D88", "T88", "CMT"},
     .splitMode = -1,
     .javaArchive = true,
     .filterDisplay = "j80 (j80.jar)",
     .filterPattern = "j80.jar",
     .key = "J80",
     .listName = "j80",
     .useCaption = "j80を使用する",
     .flagKey = "J80",
     .opButton = "cmdJ80Op",
     .badDirText = "j80の実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！",
     .fileChecks = {{&R::J80RomsFile, "j80のROMsファイルが不正です！"},
                    {&R::J80FontFile, "j80のFONTファイルが不正です！"},
                    {&R::J80CrtFile, "j80のCRTファイルが不正です！"},
                    {&R::J80KeyFile, "j80のKEYファイルが不正です！"}}},
    {.emu = Emu::Xm7Dos,
     .family = 1,
     .entry = 1,
     .caption = "XM7dos(&D)",
     .exe = "XM7.EXE",
     .checkExe = "XM7.EXE",
     .dir = &R::Xm7DosDir,
     .use = &R::Xm7DosUse,
     .saveDir = &R::Xm7DosSaveDir,
     .types = {"D77", "2D", "T77"},
     .shortNames = true,
     .splitMode = -1,
     .filterDisplay = "XM7 for DOS (XM7.EXE)",
     .filterPattern = "XM7.EXE",
     .key = "Xm7Dos",
     .listName = "XM7 for DOS",
     .useCaption = "XM7 for DOSを使用する",
     .saveKey = "Xm7Dos",
     .badDirText = "XM7 for Dosの実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！"},
    {.emu = Emu::Xm7Win,
     .family = 1,
     .entry = 2,
     .caption = "XM7win(&W)",
     .exe = "XM7.EXE",
     .checkExe = "XM7.EXE",
     .dir = &R::Xm7WinDir,
     .use = &R::Xm7WinUse,
     .cfgChk = &R::Xm7WinCfgChk,
     .allScr = &R::Xm7WinAllScr,
     .saveDir = &R::Xm7WinSaveDir,
     .config = "XM7.INI",
     .backup = "XM7.ORG",
     .types = {"D77", "2D", "T77", "VFD"},
     .splitMode = -1,
     .pciDebug = true,
     .filterDisplay = "XM7 for Win32 (XM7.EXE)",
     .filterPattern = "XM7.EXE",
     .key = "Xm7Win",
     .listName = "XM7 for Win32",
     .useCaption = "XM7 for Win32を使用する",
     .saveKey = "Xm7Win",
     .flagKey = "Xm7Win",
     .opButton = "cmdXm7WinOp",
     .badDirText = "XM7 for Win32(V3.0)の実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！"},
    {.emu = Emu::Em7Win,
     .family = 1,
     .entry = 3,
     .caption = "EM7(&7)",
     .exe = "EM7.EXE",
     .checkExe = "EM7.EXE",
     .dir = &R::Em7WinDir,
     .use = &R::Em7WinUse,
     .cfgChk = &R::Em7WinCfgChk,
     .allScr = &R::Em7WinAllScr,
     .config = "EM7.INI",
     .backup = "EM7.ORG",
     .types = {"VFD", "VTP"},
     .splitMode = -1,
     .filterDisplay = "EM7 for Win32 (EM7.EXE)",
     .filterPattern = "EM7.EXE",
     .key = "Em7Win",
     .listName = "Em7 for Win32",
     .useCaption = "EM7 for Win32を使用する",
     .flagKey = "Em7Win",
     .opButton = "cmdEm7WinOp",
     .badDirText = "EM7 for Win32の実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！"},
    {.emu = Emu::X1r,
     .family = 2,
     .entry = 1,
     .caption = "X1R(&X)",
     .exe = "X1R.COM",
     .checkExe = "X1R.COM",
     .dir = &R::X1rDir,
     .use = &R::X1rUse,
     .types = {"D88", "2D", "TAP"},
     .shortNames = true,
     .splitMode = 1,
     .filterDisplay = "X1R (X1R.COM)",
     .filterPattern = "X1R.COM",
     .key = "X1r",
     .listName = "X1R",
     .useCaption = "X1EMU Real (X1R)を使用する",
     .opButton = "cmdX1rOp",
     .opText = "txtX1rOp",
     .badDirText = "X1EMU RealMode(X1R.COM)の実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！"},
    {.emu = Emu::Xmil,
     .family = 2,
     .entry = 2,
     .caption = "X mil(&M)",
     .exe = "Xmillennium.exe",
     .checkExe = "Xmillennium.exe",
     .dir = &R::XmilDir,
     .tuneDir = &R::XmilTDir,
     .use = &R::XmilUse,
     .cfgChk = &R::XmilCfgChk,
     .allScr = &R::XmilAllScr,
     .saveDir = &R::XmilSaveDir,
     .config = "Xmillennium.ini",
     .backup = "Xmillennium.org",
     .types = {"D88", "2D", "TAP"},
     .splitMode = 0,
     .pciDebug = true,
     .filterDisplay = "X millennium and T-Tune/ika-Tune(Xmillennium.exe)",
     .filterPattern = "Xmillennium.exe",
     .key = "Xmil",
     .listName = "Xmillennium",
     .useCaption = "X millenniumを使用する",
     .saveKey = "Xmil",
     .flagKey = "Xmil",
     .opButton = "cmdXmilOp",
     .badDirText = "X millennium の実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！",
     .sameTuneDirText = "X millennium本体とT-Tune/Ika-Tuneは別ディレクトリに指定してください！",
     .badTuneDirText = "X millennium T-Tune/Ika-Tune用ﾃﾞｨﾚｸﾄﾘが不正です！"},
    {.emu = Emu::X1emu,
     .family = 2,
     .entry = 3,
     .caption = "X1EMU(&U)",
     .exe = "X1EMU.EXE",
     .checkExe = "X1EMU.EXE",
     .dir = &R::X1emuDir,
     .use = &R::X1emuUse,
     .types = {"D88", "2D", "TAP"},
     .shortNames = true,
     .splitMode = 1,
     .filterDisplay = "X1EMU (X1EMU.EXE)",
     .filterPattern = "X1EMU.EXE",
     .key = "X1emu",
     .listName = "X1EMU",
     .useCaption = "X1EMUを使用する",
     .opButton = "cmdX1emuOp",
     .opText = "txtX1emuOp",
     .badDirText = "X1EMU の実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！"},
    // The settings check looks for the plain build's program whichever build is chosen.
    {.emu = Emu::WinX1,
     .family = 2,
     .entry = 4,
     .caption = "WinX1(&W)",
     .exe = "winx1.exe",
     .exeAlt = "WinX1_ika.exe",
     .exeAltFlag = &R::WinX1IkaUse,
     .checkExe = "winx1.exe",
     .dir = &R::WinX1Dir,
     .use = &R::WinX1Use,
     .cfgChk = &R::WinX1CfgChk,
     .allScr = &R::WinX1AllScr,
     .saveDir = &R::WinX1SaveDir,
     .config = "winx1.ini",
     .backup = "winx1.org",
     .configAlt = "WinX1_ika.ini",
     .backupAlt = "WinX1_ika.org",
     .types = {"D88", "2D"},
     .splitMode = -1,
     .pciDebug = true,
     .filterDisplay = "WinX1 (winx1.exe)",
     .filterPattern = "winx1.exe",
     .key = "WinX1",
     .listName = "WinX1",
     .useCaption = "WinX1を使用する",
     .saveKey = "WinX1",
     .flagKey = "WinX1",
     .opButton = "cmdWinX1Op",
     .badDirText = "WinX1 の実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！"},
}};

bool Flag(const CfgRecord& cfg, uint8_t CfgRecord::*field)
{
    return field && cfg.*field == 1;
}

bool AltBuild(const EmuRow& r, const CfgRecord& cfg)
{
    return Flag(cfg, r.exeAltFlag);
}

} // namespace

QString EmuRow::exeName(const CfgRecord& cfg) const
{
    return QString::fromUtf8(exeAlt && AltBuild(*this, cfg) ? exeAlt : exe);
}

QString EmuRow::dirOf(const CfgRecord& cfg, uint8_t TuneUse) const
{
    return VbTrim(cfg.*(tuneDir && TuneUse == 1 ? tuneDir : dir));
}

bool EmuRow::inUse(const CfgRecord& cfg) const
{
    return Flag(cfg, use);
}

bool EmuRow::existingIni(const CfgRecord& cfg) const
{
    return Flag(cfg, cfgChk);
}

bool EmuRow::fullScreen(const CfgRecord& cfg) const
{
    return Flag(cfg, allScr);
}

bool EmuRow::takesType(const QString& ext) const
{
    for (const char* t : types)
        if (t && ext == QLatin1String(t))
            return true;
    return false;
}

QString EmuRow::configName(const CfgRecord& cfg) const
{
    return QString::fromUtf8(configAlt && AltBuild(*this, cfg) ? configAlt : config);
}

QString EmuRow::backupName(const CfgRecord& cfg) const
{
    return QString::fromUtf8(backupAlt && AltBuild(*this, cfg) ? backupAlt : backup);
}

std::span<const EmuRow> EmuRows()
{
    return kRows;
}

const EmuRow* FindEmu(int code)
{
    for (const EmuRow& r : kRows)
        if (r.code() == code)
            return &r;
    return nullptr;
}

const EmuRow& RowOf(Emu emu)
{
    return *FindEmu(CodeOf(emu));
}

} // namespace tv
