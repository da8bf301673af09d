#include "launch/StartFailure.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace tv {

EmulatorStartError::EmulatorStartError(const QString& program, const QString& cause)
    : std::runtime_error(("cannot start " + program + ": " + cause).toStdString()),
      program_(program), cause_(cause)
{
}

QString StartFailureCause(const LaunchCommand& cmd)
{
    QString path = cmd.program;
    if (!path.contains(u'/')) {
        // A bare name ("java") is looked for on the search path, as the start does.
        path = QStandardPaths::findExecutable(cmd.program);
        if (path.isEmpty())
            return QStringLiteral("プログラムが検索パスに見つかりません。");
    } else if (QFileInfo(path).isRelative()) {
        path = QDir(cmd.workingDir.isEmpty() ? QDir::currentPath() : cmd.workingDir).filePath(path);
    }
    const QFileInfo fi(path);
    if (!fi.exists())
        return QStringLiteral("プログラムのファイルがありません。");
    if (fi.isDir())
        return QStringLiteral("プログラムの名前がフォルダを指しています。");
    if (!fi.isExecutable())
        return QStringLiteral("プログラムのファイルに実行の許可がありません。");
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return QStringLiteral("プログラムのファイルを読めません。");
    // "MZ" starts every Windows and DOS program; a header-less ".COM" is a DOS program too.
    if (f.read(2) == "MZ" || IsWindowsProgram(path))
        return QStringLiteral("Windows または DOS のプログラムです。このデスクトップには、"
                              "それを動かす実行環境（Wine など）が登録されていません。"
                              "「ランナー設定」で Wine か DOSBox を選んでください。");
    return QStringLiteral("このデスクトップでは起動できない形式のファイルです。");
}

QString StartFailureText(const EmulatorStartError& e)
{
    return kStartFailedText + QStringLiteral("\r\n\r\n") + e.program() +
           QStringLiteral("\r\n\r\n") + e.cause();
}

} // namespace tv
