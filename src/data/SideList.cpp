#include "data/SideList.h"

#include "platform/MsgBox.h"
#include "util/Globals.h"
#include "util/Sjis.h"
#include "util/SubFunction.h"

#include <QFile>

namespace tv {

namespace {

const char* const kFileNames[kSideListCount] = {"TORVANE.GNR", "TORVANE.MKR", "TORVANE.CL1",
                                                "TORVANE.CL2", "TORVANE.SAL"};
const int kWidths[kSideListCount] = {20, 30, 20, 20, 20};
const int kOldWidths[kSideListCount] = {12, 20, 0, 0, 0};
const char* const kDefaultGenres[] = {"ACT", "ADV", "ETC", "PZL", "QIZ",
                                      "RCG", "RPG", "SLG", "STG", "TBL"};

// One item at the kind's width: cut to the width without half a character, blank-filled.
QByteArray ItemBytes(const QString& text, int width)
{
    QByteArray b = ToSjis(FitText(text, width, 1, width));
    b = b.left(width);
    b.append(QByteArray(width - b.size(), ' '));
    return b;
}

QString WorkPath()
{
    return AppDir + QLatin1Char('/') + kSideWorkFile;
}

// The items behind the header, trimmed; a short last piece is not an item.
QStringList ReadItems(const QByteArray& bytes, int offset, int width)
{
    QStringList items;
    for (qsizetype pos = offset; pos + width <= bytes.size(); pos += width) {
        items << VbTrim(FromSjis(bytes.mid(pos, width)));
    }
    return items;
}

bool ReadWhole(const QString& path, QByteArray& bytes)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) {
        return false;
    }
    bytes = f.readAll();
    return true;
}

bool WriteWhole(const QString& path, const QByteArray& bytes)
{
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        return false;
    }
    return f.write(bytes) == bytes.size();
}

// Rewrites a genre or maker list of the older format at the new width through the work file.
void ConvertOldList(int kind)
{
    const SideListInfo info = GetListInfo(kind);
    const QString path = SideListPath(kind);
    QByteArray old;
    if (!ReadWhole(path, old)) {
        return;
    }
    if (old.size() >= kSideHeaderSize && old.mid(20, 4) == "0.11") {
        return;
    }
    const QString work = WorkPath();
    if (QFile::exists(work)) {
        ShellDelete(work, 0);
    }
    QByteArray out = SideListHeader(kind);
    for (const QString& item : ReadItems(old, 0, info.oldWidth)) {
        out += ItemBytes(item, info.width);
    }
    if (!WriteWhole(work, out)) {
        return; // the left-over work file goes at the next conversion
    }
    ShellCopy(work, path, 0);
    ShellDelete(work, 0);
}

} // namespace

SideListInfo GetListInfo(int kind)
{
    if (kind < 0 || kind >= kSideListCount) {
        return {};
    }
    return {kWidths[kind], kOldWidths[kind], QString::fromLatin1(kFileNames[kind])};
}

QString SideListPath(int kind)
{
    return AppDir + QLatin1Char('/') + GetListInfo(kind).fileName;
}

QByteArray SideListHeader(int kind)
{
    return (GetListInfo(kind).fileName + QStringLiteral(" Version 0.11")).toLatin1();
}

bool NewSideList(int kind, const QString& path)
{
    QByteArray out = SideListHeader(kind);
    if (kind == 0) {
        for (const char* g : kDefaultGenres) {
            out += ItemBytes(QString::fromLatin1(g), kWidths[0]);
        }
    }
    return WriteWhole(path, out);
}

namespace {

// The list's bytes, after a list of the older format was converted and a missing one made.
bool ReadPreparedList(int kind, const QString& path, QByteArray& bytes)
{
    if (QFile::exists(path) && GetListInfo(kind).oldWidth != 0) {
        ConvertOldList(kind);
    }
    if (!QFile::exists(path)) {
        NewSideList(kind, path);
    }
    return ReadWhole(path, bytes);
}

// Opens the list to append to; a torn last item (short read earlier) would shift every later
// one, so the file is first cut back to whole items. `size` is what was read of it.
bool OpenForAppend(QFile& f, qsizetype size, int width)
{
    if (!f.open(QIODevice::WriteOnly | QIODevice::Append)) {
        return false;
    }
    const qsizetype torn = (size - kSideHeaderSize) % width;
    if (torn != 0) {
        f.resize(size - torn);
        f.seek(f.size());
    }
    return true;
}

} // namespace

QStringList LoadSideList(int kind)
{
    const SideListInfo info = GetListInfo(kind);
    if (info.width == 0) {
        return {};
    }
    QByteArray bytes;
    if (!ReadPreparedList(kind, SideListPath(kind), bytes)) {
        return {};
    }
    return ReadItems(bytes, kSideHeaderSize, info.width);
}

bool AddSideItem(int kind, const QString& text)
{
    const SideListInfo info = GetListInfo(kind);
    const QString item = VbTrim(FitText(VbTrim(text), info.width, 1, info.width));
    if (item.isEmpty()) {
        MsgBox(QStringLiteral("追加項目を入力して下さい"), MbExclamation);
        return false;
    }
    const QString path = SideListPath(kind);
    QByteArray bytes;
    if (!ReadWhole(path, bytes)) {
        if (!NewSideList(kind, path) || !ReadWhole(path, bytes)) {
            MsgBox(path + QStringLiteral(" に書き込めません"), MbExclamation);
            return false;
        }
    }
    if (ReadItems(bytes, kSideHeaderSize, info.width).contains(item)) {
        MsgBox(QStringLiteral("登録済みです"), MbExclamation);
        return false;
    }
    if (MsgBox(QStringLiteral("[") + item + QStringLiteral("]") +
                   QStringLiteral(" を追加しますか？"),
               MbYesNo) != MbResYes) {
        return false;
    }
    if (bytes.size() < kSideHeaderSize) {
        // A file cut off inside its header holds no item: appended there, the item would be
        // read back shifted. It gets its header again, then the item.
        if (!WriteWhole(path, SideListHeader(kind) + ItemBytes(item, info.width))) {
            MsgBox(path + QStringLiteral(" に書き込めません"), MbExclamation);
            return false;
        }
        return true;
    }
    QFile f(path);
    if (!OpenForAppend(f, bytes.size(), info.width)) {
        MsgBox(path + QStringLiteral(" に書き込めません"), MbExclamation);
        return false;
    }
    return f.write(ItemBytes(item, info.width)) == info.width;
}

bool AddSideItemQuietly(int kind, const QString& text)
{
    const SideListInfo info = GetListInfo(kind);
    const QString item = VbTrim(FitText(VbTrim(text), info.width, 1, info.width));
    if (item.isEmpty()) {
        return false;
    }
    const QString path = SideListPath(kind);
    QByteArray bytes;
    if (!ReadPreparedList(kind, path, bytes) || bytes.size() < kSideHeaderSize ||
        ReadItems(bytes, kSideHeaderSize, info.width).contains(item)) {
        return false;
    }
    QFile f(path);
    if (!OpenForAppend(f, bytes.size(), info.width)) {
        return false;
    }
    return f.write(ItemBytes(item, info.width)) == info.width;
}

bool RemoveSideItem(int kind, const QString& text)
{
    const SideListInfo info = GetListInfo(kind);
    const QString item = VbTrim(text);
    const QString path = SideListPath(kind);
    QByteArray bytes;
    ReadWhole(path, bytes);
    QByteArray out = SideListHeader(kind);
    bool matched = false;
    for (const QString& existing : ReadItems(bytes, kSideHeaderSize, info.width)) {
        if (existing == item) {
            matched = true;
        } else {
            out += ItemBytes(existing, info.width);
        }
    }
    const QString work = WorkPath();
    WriteWhole(work, out);
    bool removed = false;
    if (!matched) {
        MsgBox(item + QStringLiteral(" に存在しません"), MbExclamation);
    } else if (MsgBox(QStringLiteral("[") + item + QStringLiteral("]") +
                          QStringLiteral(" を削除しますか？"),
                      MbYesNo) == MbResYes) {
        removed = ShellCopy(work, path, 0);
    }
    if (QFile::exists(work)) {
        ShellDelete(work, 0);
    }
    return removed;
}

} // namespace tv
