#pragma once
// The widget-free cores of the list commands: the deletion of a title with the re-keying of
// every row, and the search over the displayed texts of the rows.
#include "data/TitleListModel.h"

#include <QString>
#include <cstdint>

namespace tv {

// "K" becomes "Y" and anything else "K": the prefix changes at every deletion, so that a new
// key never equals the old key of a row not yet rewritten.
QString NextKeyPrefix(const QString& prefix);

// The key of a row once the record at `removedSeek` has gone: records behind it move down by
// one record length; the prefix is the new one.
QString RekeyAfterRemoval(const QString& key, const QString& prefix, int32_t removedSeek,
                          int recordLength);

enum class DeleteItemResult { Deleted, NoRow, RemoveFailed };

// Removes the record of `row` from the catalogue of LstObj and the row from the list, then
// changes KeyPrefix and re-keys every row, whatever order the list shows. A removal that fails
// leaves the file, the rows, their keys and KeyPrefix as they were.
DeleteItemResult DeleteListItem(TitleListModel& model, int row);

// Search kinds: the title column, or the sub-items (genre, maker, the two free columns, the
// sale date).
inline constexpr int kFindTitle = 0;
inline constexpr int kFindSubItems = 1;

// The first row from `startRow` (0-based) to the end whose text matches, or -1. Case is
// ignored; `whole` asks for the displayed text to equal `text`, otherwise to begin with it.
// A row matches for kind 1 when any of its sub-items matches. There is no wrap to the top.
int FindListRow(const TitleListModel& model, const QString& text, int kind, int startRow,
                bool whole);

} // namespace tv
