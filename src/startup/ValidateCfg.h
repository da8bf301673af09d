#pragma once
// The checks that guard the way out of the environment settings, the re-read when that dialog
// closes, and the file-dialog filters of its browse buttons. No widgets: the dialog calls in.
#include "data/Cfg.h"
#include "data/EmuRegistry.h"

#include <QString>
#include <QStringList>

namespace tv {

// "PC-8x01", "FM-7 & FM77AV", "X1 & X1Turbo!".
QString FamilyName(int family);

// True only when every check passes. Stops at the first failure with one exclamation box.
bool ValidateCfg(const CfgRecord& c = Cfg);

// frmCfg's Form_Unload. After a successful store the file is read back, CfgReady is set and
// the record validated (CfgReady = 0 on failure or with no file). Otherwise the record is read
// again from the file, so that what the option dialogs wrote into the default blocks is
// dropped; a re-read record that fails the checks takes CfgReady down.
void CfgDialogUnload(bool stored);

// Kinds of the open-file dialog of the settings: the emulators' first, in the order of the
// emulator table (SelectKindOf), then the other files.
enum class SelectKind {
    P88sr,
    M88,
    PC88Win,
    X88k,
    QUASI88,
    J80,
    Xm7Dos,
    Xm7Win,
    Em7Win,
    X1r,
    Xmil,
    X1emu,
    WinX1,
    FmPan,
    JavaVM,
    J80Rom,
    J80Font,
    J80Other,
    RunnerProgram, // Wine, DOSBox or Java for the runner settings
    Picture,
};
inline const QString kSelectFileTitle = QStringLiteral("ファイルを選択して下さい。");
struct SelectFilter {
    QString display;
    QString pattern; // ";"-separated, as the filter row holds it
};
SelectFilter SelectFileFilter(SelectKind kind);
// The kind of an emulator's program.
SelectKind SelectKindOf(const EmuRow& row);
// The same filter in the form Qt's file dialog takes: "display (pat1 pat2)".
QString QtFilterText(const SelectFilter& f);

// Byte limit of the path fields of the record, measured in Shift-JIS.
inline constexpr int kCfgPathBytes = 256;
inline const QString kPathTooLong =
    QStringLiteral("パスが長すぎます（256バイトを超えています）。\n短いパスを指定して下さい。");
// True when the trimmed text fits a 256-byte field of the record.
bool FitsCfgPath(const QString& text);

} // namespace tv
