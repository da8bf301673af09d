// A side list of arbitrary bytes, as a damaged or older-format file gives it: the load never
// fails on content, converts an older genre or maker list once, and gives items that fit the
// kind's width; a second load finds the same items and leaves the file as it is; an item
// added is read back behind them, and removed leaves them as they were.
#include "data/SideList.h"
#include "fuzz/FuzzDirs.h"
#include "platform/MsgBox.h"
#include "util/Sjis.h"
#include "util/SubFunction.h"

#include <QFile>

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    tvfuzz::FuzzAppDir();
    // No box may come up while a list is loaded.
    tv::SetMsgBoxHandler([](const tv::MsgBoxCall&) -> int { std::abort(); });

    if (size < 1)
        return 0;
    const int kind = data[0] % tv::kSideListCount;
    const QByteArray bytes(reinterpret_cast<const char*>(data + 1), qsizetype(size - 1));
    const QString path = tv::SideListPath(kind);
    const tv::SideListInfo info = tv::GetListInfo(kind);
    tvfuzz::WriteBytes(path, bytes);

    const QStringList items = tv::LoadSideList(kind);
    for (const QString& item : items) {
        Check(tv::SjisLen(item) <= info.width);
        Check(item == tv::VbTrim(item));
    }
    const QByteArray after = tvfuzz::ReadBytes(path);
    const bool current = bytes.size() >= tv::kSideHeaderSize && bytes.mid(20, 4) == "0.11";
    if (info.oldWidth != 0 && !current) {
        // An older list is rewritten at the new width behind the header.
        Check(after.startsWith(tv::SideListHeader(kind)));
        Check((after.size() - tv::kSideHeaderSize) % info.width == 0);
    } else {
        Check(after == bytes);
    }
    Check(!QFile::exists(tv::AppDir + "/" + tv::kSideWorkFile));

    Check(tv::LoadSideList(kind) == items);
    Check(tvfuzz::ReadBytes(path) == after);

    // An item added (the question answered yes) is read back behind the ones there were, and
    // removed again leaves the others.
    tv::SetMsgBoxHandler([](const tv::MsgBoxCall&) { return tv::MbResYes; });
    const QString added = QStringLiteral("ＦＵＺＺ項目");
    if (!items.contains(added)) {
        Check(tv::AddSideItem(kind, added));
        const QStringList more = tv::LoadSideList(kind);
        Check(more == items + QStringList{added});
        Check(tv::RemoveSideItem(kind, added));
        Check(tv::LoadSideList(kind) == items);
    }
    QFile::remove(path);
    return 0;
}
