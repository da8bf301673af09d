#include "data/ListCommands.h"

#include "data/clsLst.h"
#include "util/Globals.h"

#include <algorithm>

namespace tv {

QString NextKeyPrefix(const QString& prefix)
{
    return prefix == QLatin1String("K") ? QStringLiteral("Y") : QStringLiteral("K");
}

QString RekeyAfterRemoval(const QString& key, const QString& prefix, int32_t removedSeek,
                          int recordLength)
{
    int32_t q = SeekOfListKey(key);
    if (q > removedSeek)
        q -= recordLength;
    return MakeListKey(prefix, q);
}

DeleteItemResult DeleteListItem(TitleListModel& model, int row)
{
    if (row < 0 || row >= model.rowCount())
        return DeleteItemResult::NoRow;
    const int32_t p = model.seekPointer(row);
    const int length = LstObj.GetLstLength();
    if (!LstObj.RemoveLst(p))
        return DeleteItemResult::RemoveFailed;
    model.removeListRow(row);
    KeyPrefix = NextKeyPrefix(KeyPrefix);
    // The rows may stand in any sorted order, so every one is visited.
    const QString prefix = KeyPrefix;
    model.rekeyRows([&](const QString& key) { return RekeyAfterRemoval(key, prefix, p, length); });
    return DeleteItemResult::Deleted;
}

namespace {

bool textMatches(const QString& shown, const QString& text, bool whole)
{
    return whole ? shown.compare(text, Qt::CaseInsensitive) == 0
                 : shown.startsWith(text, Qt::CaseInsensitive);
}

} // namespace

int FindListRow(const TitleListModel& model, const QString& text, int kind, int startRow,
                bool whole)
{
    if (text.isEmpty())
        return -1;
    const int n = model.rowCount();
    for (int r = std::max(0, startRow); r < n; ++r) {
        const auto& shown = model.row(r).text;
        if (kind == kFindTitle) {
            if (textMatches(shown[0], text, whole))
                return r;
            continue;
        }
        for (int c = 1; c < kListColumns; ++c)
            if (textMatches(shown[size_t(c)], text, whole))
                return r;
    }
    return -1;
}

} // namespace tv
