#pragma once
// The five word lists that feed the drop-down fields of the registration dialog: genres,
// makers, the two free columns and dates of sale, shared by all families. Each is a file in
// AppDir: a 24-byte header, then items of the kind's width, Shift-JIS, blank-filled.
#include <QString>
#include <QStringList>

namespace tv {

inline constexpr int kSideListCount = 5;
inline constexpr int kSideHeaderSize = 24;
inline const QString kSideWorkFile = QStringLiteral("TORVANE.CTP");

struct SideListInfo {
    int width = 0;    // bytes of one item
    int oldWidth = 0; // bytes of one item in the older header-less format; 0 when none
    QString fileName; // "TORVANE.GNR" ...
};

// Kind 0 genres, 1 makers, 2 free column 1, 3 free column 2, 4 sale dates.
SideListInfo GetListInfo(int kind);
QString SideListPath(int kind);
// The 24 header bytes: the file's name and " Version 0.11".
QByteArray SideListHeader(int kind);
// Writes a new list: the header, and for genres the default genres.
bool NewSideList(int kind, const QString& path);
// The items of the list, trimmed, in file order, creating the file or converting the older
// format first. An unreadable list gives no items.
QStringList LoadSideList(int kind);
// Appends `text` after asking; true when it was added. Every refusal is told by a box.
bool AddSideItem(int kind, const QString& text);
// Appends `text` without asking or telling, unless it is empty or there already (a bulk
// registration); true when it was added.
bool AddSideItemQuietly(int kind, const QString& text);
// Removes every item equal to `text` after asking; true when the list was rewritten.
bool RemoveSideItem(int kind, const QString& text);

} // namespace tv
