#include "launch/Recovery.h"

#include "platform/FileOps.h"
#include "platform/MsgBox.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <QDateTime>
#include <QFileInfo>

namespace tv {

QString KeepInRecovery(const QString& file, const QString& tag, const QString& keptName)
{
    if (AppDir.isEmpty() || !QFileInfo(AppDir).isDir())
        return {};
    const QString name = keptName.isEmpty() ? QFileInfo(file).fileName() : keptName;
    const QString stamp = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd_HHmmss"));
    const QString suffix = tag.isEmpty() ? QString() : u'_' + tag;
    QString dir = AppDir + QStringLiteral("/TORVRECOVER_") + stamp + suffix;
    for (int n = 2; QFileInfo::exists(dir + u'/' + name); ++n)
        dir = AppDir + QStringLiteral("/TORVRECOVER_%1-%2").arg(stamp).arg(n) + suffix;
    if (PlatformMakePath(dir)) {
        const QString kept = dir + u'/' + name;
        // A rename first: it needs no room; a move across file systems copies.
        if (PlatformRename(file, kept) == RenameResult::Ok || ShellMove(file, kept, 0))
            return kept;
        PlatformRemoveDir(dir); // only when it is empty
    }
    // A disk too full for a new directory still takes a rename beside the program.
    QString beside = AppDir + QStringLiteral("/TORVRECOVER_") + stamp + suffix + u'_' + name;
    for (int n = 2; QFileInfo::exists(beside); ++n)
        beside =
            AppDir + QStringLiteral("/TORVRECOVER_%1-%2").arg(stamp).arg(n) + suffix + u'_' + name;
    if (PlatformRename(file, beside) == RenameResult::Ok)
        return beside;
    return {};
}

bool CopyOutOrKeep(const QString& source, const QString& target)
{
    if (ShellCopy(source, target, 0))
        return true;
    const QString name = QFileInfo(source).fileName();
    const QString kept = KeepInRecovery(source);
    if (!kept.isEmpty())
        MsgBox(QStringLiteral("%1 に書き込めませんでした。\r\n\r\n%2 を次の場所に保存しました。"
                              "\r\n\r\n%3")
                   .arg(target, name, kept),
               MbExclamation);
    else
        MsgBox(QStringLiteral("%1 に書き込めませんでした。\r\n\r\n%2 を保存できませんでした。")
                   .arg(target, name),
               MbCritical);
    return false;
}

} // namespace tv
