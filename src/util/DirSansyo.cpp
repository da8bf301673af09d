#include "util/DirSansyo.h"

#include "platform/MsgBox.h"
#include "util/SubFunction.h"

#include <QDir>

namespace tv {

namespace {
// The "drive" of a path: its root on POSIX, where a relative text names no drive at all.
QString driveOf(const QString& path)
{
    if (!QDir::isAbsolutePath(path))
        return QString();
    return QDir(path).isRoot() ? path : QDir::rootPath();
}
} // namespace

bool DirSansyoAccept(const QString& text, QString& result)
{
    const QString dir = VbTrim(text);
    if (!dir.isEmpty() && !FindFile(dir, kAttrDirectory).isEmpty()) {
        result = dir;
        return true;
    }
    const QString drive = driveOf(dir);
    if (drive.isEmpty() || FindFile(drive, kAttrDirectory).isEmpty()) {
        MsgBox(QStringLiteral("ドライブ名が無効です"), MbExclamation);
        return false;
    }
    if (MsgBox(QStringLiteral(
                   "指定したディレクトリは存在しません\n新しいディレクトリを作成しますか？"),
               MbQuestion | MbYesNo) != MbResYes)
        return false;
    // One level only: the parent has to exist.
    if (!QDir().mkdir(dir)) {
        MsgBox(QStringLiteral("無効なパス名です"), MbExclamation);
        return false;
    }
    result = dir;
    return true;
}

} // namespace tv
