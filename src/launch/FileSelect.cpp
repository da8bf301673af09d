#include "launch/FileSelect.h"

#include "data/Cfg.h"
#include "launch/Archive.h"
#include "launch/Repack.h"
#include "platform/MsgBox.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <QDir>
#include <QFileInfo>

namespace tv {

MemberListResult ListMembers(uint8_t mode, const QString& image, const QString& startFile,
                             QStringList& members)
{
    members.clear();
    const QDir work(WorkDir);
    if (WorkDir.isEmpty() || !QFileInfo(WorkDir).isDir() ||
        !work.entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System)
             .isEmpty()) {
        MsgBox(kFileSelectBadWorkDir);
        return MemberListResult::BadWorkDir;
    }
    if (IsArcExt(GetFileExt(image))) {
        if (ArcMelt(nullptr, image, WorkDir, QString(), kArcTrue, kArcTrue) != 0) {
            MsgBox(kFileSelectCantUnpack);
            CleanWorkDir();
            return MemberListResult::CantUnpack;
        }
    }
    // The walk drains WorkDir into TempDir and takes the first file anew each time, since a
    // pattern search doesn't survive the moves.
    const QString start = VbTrim(startFile).toUpper();
    OpenTempDir();
    for (;;) {
        const QString first = FindFile(Matches(WorkDir, QStringLiteral("*")));
        if (first.isEmpty()) {
            break;
        }
        const QString name = QFileInfo(first).fileName();
        const QString ext = GetFileExt(name);
        const bool wanted = mode == 3 ? IsManualExt(ext) : IsImageExt(ext);
        if (wanted && !(mode == 1 && name.toUpper() == start)) {
            members << name;
        }
        if (!ShellMove(WorkDir + u'/' + name, TempDir() + u'/' + name, 0)) {
            break; // a file that can't move would be met again and again
        }
    }
    RestoreTempDir();
    return MemberListResult::Ok;
}

std::vector<FilterRow> FilterRows(int kind)
{
    std::vector<FilterRow> rows;
    if (kind < 0 || kind >= 6) {
        return rows;
    }
    for (int i = 0; i < 20; ++i) {
        const uint8_t row = Cfg.FilterOrder[size_t(i)][size_t(kind)];
        if (row == 0 || row > 20) {
            break;
        }
        const QString cell = ExtTable[size_t(row - 1)][size_t(kind)];
        if (cell.isEmpty()) {
            break;
        }
        const QString text =
            cell.size() < 7 ? cell + QStringLiteral("ﾌｧｲﾙ (*.") + cell + QStringLiteral(")") : cell;
        rows.push_back({text, row});
    }
    return rows;
}

void StoreFilterRows(int kind, const std::vector<uint8_t>& rows)
{
    if (kind < 0 || kind >= 6) {
        return;
    }
    for (size_t i = 0; i < rows.size() && i < 20; ++i) {
        Cfg.FilterOrder[i][size_t(kind)] = rows[i];
    }
}

} // namespace tv
