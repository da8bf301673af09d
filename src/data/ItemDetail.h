#pragma once
// What the detail pane shows for the record in the working copy of LstObj, and which
// emulators can take it. No widgets: the pane puts these results on its controls.
#include "data/Cfg.h"

#include <QImage>
#include <QString>
#include <array>
#include <vector>

namespace tv {

class clsLst;

// The picture of imgScr at design time, shown when a title has none.
inline QImage NoImagePicture;

// The emulator codes of a family, in EmuCode order: 1..6, 11..13, 21..24.
std::vector<int> FamilyEmuCodes(int family);
// The family of an emulator code; -1 for none.
int FamilyOfEmuCode(int emuCode);
// The use flag of the emulator in the configuration is 1.
bool EmuInUse(int emuCode, const CfgRecord& cfg = Cfg);
// True when the extension (upper case, no point) stands in the emulator's table of types.
bool IsEmuImage(int emuCode, const QString& ext);
// The decision of ShowItemDetail for one emulator: in use, the start file's extension is one
// of its types, and for X mil with a tape the T-Tune build is installed.
bool EmuEnabledForItem(int emuCode, const QString& startFileName, const CfgRecord& cfg = Cfg);

// Entry 1..9 of mnuEmuRunEach and mnuPopEmuRunEach for a family, "-----" where it has none.
QString EmuRunCaption(int family, int entry);

// mode 1 shows the no-picture image on failure, any other mode leaves the target empty.
bool LoadPictureFile(QImage& target, const QString& path, int mode);
// DefScrPath when DefScrFlag is 1 and it loads, else NoImagePicture.
void ShowNoImage(QImage& target);

// The picture search of ShowItemDetail for the working copy; the path that loaded, or ""
// with the no-picture image in `target`.
QString FindItemPicture(const clsLst& lst, int family, QImage& target);

// The text of txtSyosai, lines ending in CR LF.
QString ItemDetailText(const clsLst& lst, const CfgRecord& cfg = Cfg);
// Status bar panel 1 while an item is selected.
QString ItemStatusText(const clsLst& lst);
inline const QString kNothingSelectedText = QStringLiteral("未選択．． ");

// Save states of a start file's base name: P88SR "base.SVn", M88 "base_n.S88".
std::array<bool, 10> P88SaveSlots(const QString& startFileName);
std::array<bool, 10> M88SaveSlots(const QString& startFileName);

} // namespace tv
