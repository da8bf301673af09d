#pragma once
// What the image file selection shows and keeps: the members of an archive unpacked into
// WorkDir (start file, further disks, manual), and the order of one column of the file
// dialogs' filter list.
#include <QString>
#include <QStringList>
#include <cstdint>
#include <vector>

namespace tv {

inline const QString kFileSelectBadWorkDir = QStringLiteral("解凍用ディレクトリが不正です");
inline const QString kFileSelectCantUnpack = QStringLiteral("アーカイブが解凍できませんでした");
inline const QString kFileSelectNoChoice = QStringLiteral("ファイルを選択してください");

enum class MemberListResult { Ok, BadWorkDir, CantUnpack };

// Modes 0 (start file), 1 (further disks), 3 (manual). Checks WorkDir (named, existing,
// empty), unpacks `image` there when it is an archive, and lists the files that the mode
// takes: images, or manuals in mode 3; mode 1 leaves `startFile` out. WorkDir keeps the files
// (the caller cleans it when the choice is made). Refusals are told by their boxes; after a
// failed unpack WorkDir is emptied.
MemberListResult ListMembers(uint8_t mode, const QString& image, const QString& startFile,
                             QStringList& members);

struct FilterRow {
    QString text;
    uint8_t row = 0; // 1-based row of ExtTable
};
// Column `kind` of Cfg.FilterOrder as the rows of the list, up to a 0 or an empty cell.
std::vector<FilterRow> FilterRows(int kind);
// Writes the rows' numbers in the given order into column `kind` of Cfg.FilterOrder.
void StoreFilterRows(int kind, const std::vector<uint8_t>& rows);

} // namespace tv
