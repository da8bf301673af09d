#include "launch/Repack.h"

#include "launch/Archive.h"
#include "launch/MainWindowLink.h"
#include "launch/Recovery.h"
#include "platform/FileOps.h"
#include "platform/MsgBox.h"
#include "platform/Platform.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace tv {

namespace {
QString InWork(const QString& name)
{
    return WorkDir + u'/' + name;
}

// The loops below restart from the first match after each file operation. Should an operation
// leave the file where it is (a guard refused it), the file is taken away by a plain removal
// so that the loop can't turn forever on it.
void EnsureGone(const QString& path)
{
    if (QFileInfo::exists(path))
        PlatformRemoveFile(path);
}
void EnsureMoved(const QString& source, const QString& target)
{
    if (QFileInfo::exists(source))
        PlatformRename(source, target);
    EnsureGone(source);
}
// The members of an archive that couldn't be re-packed, the changed image among them, go to
// recovery instead of being deleted with WorkDir; the user is told where.
void KeepChangedMembers()
{
    QString dir;
    for (;;) {
        const QString f = FindFile(Matches(WorkDir, QStringLiteral("*")));
        if (f.isEmpty())
            break;
        const QString kept = KeepInRecovery(InWork(f));
        if (kept.isEmpty())
            break;
        dir = QFileInfo(kept).absolutePath();
    }
    if (!dir.isEmpty())
        MsgBox(QStringLiteral("変更されたイメージを次の場所に保存しました。\r\n\r\n%1").arg(dir),
               MbExclamation);
}

} // namespace

QString DateTimeText(const QDateTime& time)
{
    return time.toLocalTime().toString(QStringLiteral("yyyy/MM/dd HH:mm:ss.zzz"));
}

QString FileDateTimeText(const QString& path)
{
    const QFileInfo fi(path);
    if (!fi.exists())
        return {};
    return DateTimeText(fi.lastModified());
}

namespace {
const QString kTempName = QStringLiteral("temp");
QString g_tempName = kTempName; // the holding directory's name while a drain runs
} // namespace

QString TempDir()
{
    return InWork(g_tempName);
}

bool OpenTempDir()
{
    CleanTempDir();
    g_tempName = kTempName;
    // A member or an emulator's file may be called "temp": the holding directory takes a name
    // that nothing in WorkDir has, so no file of the drain can meet it.
    for (int n = 1; QFileInfo(TempDir()).exists() || QFileInfo(TempDir()).isSymLink(); ++n)
        g_tempName = kTempName + QString::number(n);
    return PlatformMakePath(TempDir());
}

void CleanWorkDir()
{
    if (FindFile(Matches(WorkDir, QStringLiteral("*"))).isEmpty())
        return;
    ShellDelete(Matches(WorkDir, QStringLiteral("*")), 0);
    // A file the pattern's delete left (it goes on past what it can't remove) gets a second
    // try of its own: what stays would be taken for part of the next title.
    const QStringList left =
        QDir(WorkDir).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
    for (const QString& f : left)
        EnsureGone(InWork(f));
}

void CleanTempDir()
{
    const QFileInfo held(TempDir());
    if (held.isDir() && !held.isSymLink()) {
        if (!FindFile(Matches(TempDir(), QStringLiteral("*"))).isEmpty())
            ShellDelete(Matches(TempDir(), QStringLiteral("*")), 0);
        // The current directory may stand inside TempDir after a launch.
        QDir::setCurrent(WorkDir);
        PlatformRemoveDir(TempDir());
    }
    g_tempName = kTempName;
}

void RestoreTempDir()
{
    for (;;) {
        const QString f = FindFile(Matches(TempDir(), QStringLiteral("*")));
        if (f.isEmpty())
            break;
        ShellMove(TempDir() + u'/' + f, InWork(f), 0);
        EnsureMoved(TempDir() + u'/' + f, InWork(f));
    }
    CleanTempDir();
}

int16_t CheckRepack(uint8_t HardWare, uint8_t ArcCheckFlag, uint8_t ReArcCheckFlag,
                    const QString& JituFile, QString StartFile, const FileList& FileList)
{
    DoEvents();
    StartFile = VbTrim(StartFile);
    const QString snapDir = HardWare < SnapDir.size() ? SnapDir[HardWare] : QString();

    if (ArcCheckFlag != 1) {
        // A plain image: the image goes back over the catalogued file, changed or not;
        // anything else is something the emulator produced.
        for (;;) {
            const QString f = FindFile(Matches(WorkDir, QStringLiteral("*")));
            if (f.isEmpty())
                break;
            // What can't be written where it belongs is kept, never deleted with WorkDir.
            if (VbTrim(f).toUpper() != StartFile.toUpper())
                CopyOutOrKeep(InWork(f), snapDir + u'/' + f);
            else
                CopyOutOrKeep(InWork(f), JituFile);
            ShellDelete(InWork(f), 0);
            EnsureGone(InWork(f));
        }
        CleanWorkDir();
        Window().RefreshItemDetail();
        return -1;
    }

    bool Changed = false;
    bool Found = false;
    OpenTempDir();
    // One pass: members are held in TempDir, new files leave for SnapDir at once, so that the
    // re-pack sees members only.
    for (;;) {
        const QString f = FindFile(Matches(WorkDir, QStringLiteral("*")));
        if (f.isEmpty())
            break;
        for (const FileListRow& row : FileList) {
            if (row.name.toUpper() == f.toUpper()) {
                Found = true;
                if (FileDateTimeText(InWork(f)) != row.dateTime) {
                    Changed = true;
                    break;
                }
            }
        }
        if (Found) {
            Found = false;
            ShellMove(InWork(f), TempDir() + u'/' + f, 0);
            EnsureMoved(InWork(f), TempDir() + u'/' + f);
        } else {
            CopyOutOrKeep(InWork(f), snapDir + u'/' + f);
            ShellDelete(InWork(f), 0);
            EnsureGone(InWork(f));
        }
    }
    RestoreTempDir();

    if ((ReArcCheckFlag == 1 || ReArcCheckFlag == 2) && Changed) {
        DoEvents();
        int answer = MbResYes;
        if (ReArcCheckFlag == 2)
            answer =
                MsgBox(QStringLiteral("イメージファイルは変更されています。\n再圧縮しますか？"),
                       MbYesNo, QStringLiteral("再圧縮チェック"));
        if (answer == MbResYes) {
            bool ok = false;
            if (IsArcExt(GetFileExt(JituFile)))
                ok = ArcPack(Window().Owner(), JituFile, WorkDir, kArcTrue) == 0;
            if (!ok) {
                MsgBox(QStringLiteral("再圧縮できませんでした"));
                KeepChangedMembers();
            }
        }
    }
    CleanWorkDir();
    Window().RefreshItemDetail();
    return -1;
}

} // namespace tv
