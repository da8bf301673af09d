#include "launch/DDAdd.h"

#include "data/Cfg.h"
#include "data/ItemEntry.h"
#include "data/ItemText.h"
#include "data/SideList.h"
#include "data/TitleListModel.h"
#include "data/clsLst.h"
#include "launch/Archive.h"
#include "launch/MainWindowLink.h"
#include "launch/Repack.h"
#include "platform/MsgBox.h"
#include "util/Globals.h"
#include "util/Sjis.h"
#include "util/SubFunction.h"

#include <QDir>
#include <QFileInfo>

namespace tv {

namespace {

// Widths of the fields a drop fills, in Shift-JIS bytes.
constexpr int kTitleBytes = 100, kStartFileBytes = 100, kJituFileBytes = 256;

bool SameDir(const QString& a, const QString& b)
{
    return !b.isEmpty() && QDir::cleanPath(a).toUpper() == QDir::cleanPath(b).toUpper();
}

bool WorkDirReady()
{
    if (WorkDir.isEmpty() || !QFileInfo(WorkDir).isDir())
        return false;
    return QDir(WorkDir)
        .entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System)
        .isEmpty();
}

// The first image among the files unpacked into WorkDir. The walk drains WorkDir into TempDir
// and takes the first file anew each time, since a pattern search doesn't survive the moves.
QString FirstImageMember()
{
    QString member;
    if (!OpenTempDir())
        return member;
    for (;;) {
        const QString first = FindFile(Matches(WorkDir, QStringLiteral("*")));
        if (first.isEmpty())
            break;
        const QString name = QFileInfo(first).fileName();
        if (member.isEmpty() && IsImageExt(GetFileExt(name)))
            member = name;
        if (!ShellMove(WorkDir + u'/' + name, TempDir() + u'/' + name, 0))
            break; // a file that can't move would be met again and again
    }
    RestoreTempDir();
    return member;
}

bool SameSize(const QString& a, const QString& b)
{
    const QFileInfo fa(a), fb(b);
    return fa.exists() && fb.exists() && fa.size() == fb.size();
}

} // namespace

QString DDAddMaxCountText(int count)
{
    return QStringLiteral("/ ") + QString::number(count) + QStringLiteral(" 件目を登録中．．．");
}

QString DDAddDoneText(int registered, int failures)
{
    return QStringLiteral("正常に登録したファイル数: ") + QString::number(registered) +
           QStringLiteral("\n登録不可能な件数: ") + QString::number(failures) +
           QStringLiteral("\nD&D登録が終了しました！！");
}

QString DDAddDefaultExt(int family)
{
    return family == 1 ? QStringLiteral(".d77") : QStringLiteral(".d88");
}

DDAdd::DDAdd(QStringList files, TitleListModel* model) : files_(std::move(files)), model_(model) {}

DDAdd::~DDAdd()
{
    End();
}

QString DDAdd::lstPath() const
{
    return LstFilePath(family_);
}

QString DDAdd::workPath() const
{
    return LstWorkFilePath(family_);
}

bool DDAdd::Begin()
{
    if (HardWare > 2)
        return false;
    family_ = HardWare;
    const QString name = LstFileName(family_);
    if (!LstObj.InitLst(family_)) {
        MsgBox(name + QStringLiteral(" が読めないため、D&D登録を行いません"), MbExclamation);
        return false;
    }
    // The roll-back copy: without it nothing may be registered, since a stop or a full disk
    // could then leave the catalogue half done.
    if (!ShellCopy(lstPath(), workPath(), 0) || !SameSize(lstPath(), workPath())) {
        if (FileExists(workPath()))
            ShellDelete(workPath(), 0);
        MsgBox(QStringLiteral("D&D登録前のカタログのコピー（") + LstWorkFileName(family_) +
                   QStringLiteral("）を作れないため、D&D登録を行いません"),
               MbExclamation);
        return false;
    }
    firstNew_ = LstObj.GetLstMaxCnt() + 1;
    StopFlag = 0;
    begun_ = true;
    return true;
}

bool DDAdd::Search()
{
    if (!begun_)
        return false;
    const int n = fileCount();
    int i = 0;
    for (; i < n; ++i) {
        if (StopFlag == 1) {
            if (MsgBox(kDDAddStopQuestion, kDDAddStopFlags) == MbResYes)
                break;
            StopFlag = 0;
        }
        if (onFile)
            onFile(i + 1, files_[i]);
        Yield();
        const Outcome o = AddOne(files_[i]);
        if (o == Outcome::WriteFailed) {
            writeFailed_ = true;
            RollBack();
            const QString head =
                LstFileName(family_) + QStringLiteral(" に書き込めませんでした。\n");
            if (keepCopy_)
                MsgBox(head + QStringLiteral("D&D登録前のカタログは ") + workPath() +
                           QStringLiteral(" に残してあります"),
                       MbCritical);
            else
                MsgBox(head + QStringLiteral("カタログを D&D登録前の状態に戻しました"),
                       MbExclamation);
            return false;
        }
        if (o == Outcome::Failed)
            ++failures_;
        else
            ++registered_;
        Yield();
    }
    // A stop asked for during the last file finds no file left to ask at: the drop is done.
    stopped_ = StopFlag == 1 && i < n;
    if (stopped_) {
        RollBack();
        if (keepCopy_)
            MsgBox(LstFileName(family_) + QStringLiteral(" を元に戻せませんでした。\n") +
                       QStringLiteral("D&D登録前のカタログは ") + workPath() +
                       QStringLiteral(" に残してあります"),
                   MbCritical);
        return false;
    }
    return true;
}

void DDAdd::End()
{
    if (ended_)
        return;
    ended_ = true;
    // The roll-back copy never outlives the window, unless it is all that is left.
    if (begun_ && !keepCopy_ && FileExists(workPath()))
        ShellDelete(workPath(), 0);
}

void DDAdd::Yield()
{
    if (yield)
        yield();
}

void DDAdd::RollBack()
{
    if (model_) {
        if (firstNew_ < 2) {
            model_->clear();
        } else {
            while (model_->rowCount() > firstNew_ - 1)
                model_->removeListRow(model_->rowCount() - 1);
        }
    }
    if (!ShellCopy(workPath(), lstPath(), 0) || !SameSize(workPath(), lstPath()))
        keepCopy_ = true;
    LstObj.InitLst(family_);
}

DDAdd::Outcome DDAdd::AddOne(const QString& path)
{
    // Plain files only: a dropped directory is not descended into.
    if (FindFile(path).isEmpty())
        return Outcome::Failed;
    const QString ext = GetFileExt(path);
    QString dir = path;
    const QString name = SplitFileName(dir);
    if (!LstObj.InitLst(family_))
        return Outcome::WriteFailed;
    const QString jitu = SameDir(dir, ImageDir[family_]) ? name : path;
    if (SjisLen(jitu) > kJituFileBytes)
        return Outcome::Failed; // the field would cut the path
    LstObj.SetJituFile(jitu);
    if (family_ == 0) {
        CurEmuOpt88 = Cfg.CfgEmuOpt88;
        LstObj.SetDefEmuRun(Cfg.CfgEmuOpt88.DefEmuRun);
    } else if (family_ == 1) {
        CurEmuOptFM = Cfg.CfgEmuOptFM;
        LstObj.SetDefEmuRun(Cfg.CfgEmuOptFM.DefEmuRun);
    } else {
        CurEmuOptX1 = Cfg.CfgEmuOptX1;
        LstObj.SetDefEmuRun(Cfg.CfgEmuOptX1.DefEmuRun);
    }
    if (IsImageExt(ext))
        return AddImage(path, name);
    if (IsArcExt(ext))
        return AddArchive(path, name);
    return Outcome::Failed;
}

DDAdd::Outcome DDAdd::AddImage(const QString& path, const QString& name)
{
    if (SjisLen(name) > kStartFileBytes)
        return Outcome::Failed;
    LstObj.SetStartFileName(name);
    if (Cfg.TxtIn == 1) {
        ImportItemText(path);
        FitImported();
    }
    TitleFromStem(name);
    if (Cfg.ScrAutoRead == 1)
        ScreenshotFor(name);
    return SaveDDItem();
}

DDAdd::Outcome DDAdd::AddArchive(const QString& path, const QString& name)
{
    LstObj.SetArcCheckFlag(1);
    if (Cfg.ArcSerch == 1) {
        // No look inside: the start file is assumed from the archive's name.
        const QString start = GetFileBase(name) + DDAddDefaultExt(family_);
        if (SjisLen(start) > kStartFileBytes)
            return Outcome::Failed;
        LstObj.SetStartFileName(start);
        TitleFromStem(name);
        if (Cfg.ScrAutoRead == 1)
            ScreenshotFor(name);
        return SaveDDItem();
    }
    if (!WorkDirReady())
        return Outcome::Failed;
    QObject* owner = progressOwner ? progressOwner : Window().Owner();
    if (ArcMelt(owner, path, WorkDir, QString(), kArcFalse, kArcTrue) != 0) {
        CleanWorkDir();
        return Outcome::Failed;
    }
    const QString member = FirstImageMember();
    if (member.isEmpty() || SjisLen(member) > kStartFileBytes) {
        CleanWorkDir();
        return Outcome::Failed;
    }
    LstObj.SetStartFileName(member);
    if (Cfg.TxtIn == 1) {
        // The member's own text first, then one named after the archive.
        if (!ImportItemText(WorkDir + u'/' + member))
            ImportItemText(WorkDir + u'/' + name);
        FitImported();
    }
    TitleFromStem(name);
    if (Cfg.ScrAutoRead == 1)
        ScreenshotFor(name);
    const Outcome o = SaveDDItem();
    CleanWorkDir();
    return o;
}

void DDAdd::FitImported()
{
    LstObj.SetTitle(FitText(LstObj.GetTitle(), 72, 1, 72));
    LstObj.SetMaker(FitText(LstObj.GetMaker(), 30, 1, 30));
    LstObj.SetGenre(FitText(LstObj.GetGenre(), 20, 1, 20));
    if (!LstObj.GetComment().isEmpty())
        LstObj.SetComment(FitText(LstObj.GetComment(), 70, 6, 210));
}

void DDAdd::TitleFromStem(const QString& name)
{
    if (!LstObj.GetTitle().isEmpty())
        return;
    // An empty title never reaches the catalogue: a name without a stem gives itself.
    QString stem = GetFileBase(name);
    if (VbTrim(stem).isEmpty())
        stem = name;
    LstObj.SetTitle(FitText(stem, kTitleBytes, 1, kTitleBytes));
}

void DDAdd::ScreenshotFor(const QString& name)
{
    const QString scr = FindScreenshot(family_, name, QString());
    if (!scr.isEmpty())
        LstObj.SetScrFile(scr);
}

DDAdd::Outcome DDAdd::SaveDDItem()
{
    const int32_t seek = LstObj.GetLstMaxSeekPointer();
    if (!LstObj.SetLst(seek))
        return Outcome::WriteFailed;
    if (Cfg.ColNonMakeFlag != 1) {
        AddSideItemQuietly(0, LstObj.GetGenre());
        AddSideItemQuietly(1, LstObj.GetMaker());
    }
    if (model_)
        model_->AddListRow(seek);
    return Outcome::Registered;
}

} // namespace tv
