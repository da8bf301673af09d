#include "data/ItemEntry.h"

#include "data/clsLst.h"
#include "util/Globals.h"
#include "util/SubFunction.h"
#include "util/WidthConv.h"

namespace tv {

bool CommentTooLong(const QString& comment)
{
    const QString trimmed = VbTrim(comment);
    return CodePageMeasure(trimmed) - 2 * CountLineBreaks(trimmed) > 500;
}

QString ValidateItemEntry(const ItemEntry& e)
{
    if (VbTrim(e.Title).isEmpty()) {
        return kNoTitleText;
    }
    if (VbTrim(e.JituFile).isEmpty()) {
        return kNoImageText;
    }
    if (VbTrim(e.StartFileName).isEmpty()) {
        return kNoStartText;
    }
    if (e.MeltMan && e.ManFile.isEmpty()) {
        return kNoMeltManText;
    }
    if (!VbTrim(e.ManFile).isEmpty() && !IsManualExt(GetFileExt(VbTrim(e.ManFile)))) {
        return kBadManText;
    }
    if (CommentTooLong(e.Comment)) {
        return kLongCommentText;
    }
    return {};
}

uint8_t ReArcCheckFlagOf(bool box0, bool box1)
{
    return uint8_t((box0 ? 1 : 0) + (box1 ? 1 : 0));
}

QString FindScreenshot(int family, const QString& startFile, const QString& jituFile)
{
    if (family < 0 || family > 2) {
        return {};
    }
    const QString dir = SnapDir[size_t(family)];
    for (const QString& source : {startFile, jituFile}) {
        const QString stem = GetFileBase(VbTrim(source));
        if (stem.isEmpty()) {
            continue;
        }
        for (const char* ext : {".png", ".jpg", ".bmp"}) {
            const QString found = FindFileNoCase(dir, stem + QLatin1String(ext));
            if (!found.isEmpty()) {
                QString path = found;
                return SplitFileName(path);
            }
        }
    }
    return {};
}

void PutItemEntry(const ItemEntry& e)
{
    LstObj.SetDefEmuRun(e.DefEmuRun);
    LstObj.SetArcCheckFlag(e.ArcCheck ? 1 : 0);
    LstObj.SetReArcCheckFlag(ReArcCheckFlagOf(e.ReArc0, e.ReArc1));
    LstObj.SetTitle(e.Title);
    LstObj.SetGenre(e.Col[0]);
    LstObj.SetMaker(e.Col[1]);
    LstObj.SetColumn1(e.Col[2]);
    LstObj.SetColumn2(e.Col[3]);
    LstObj.SetSaleDate(e.Col[4]);
    LstObj.SetComment(VbTrim(e.Comment));
    LstObj.SetJituFile(e.JituFile);
    LstObj.SetStartFileName(e.StartFileName);
    LstObj.SetSecondFile(e.SecondFile);
    LstObj.SetScrFile(e.ScrFile);
    LstObj.SetMeltManFlag(e.MeltMan ? 1 : 0);
    LstObj.SetManFile(e.ManFile);
}

QString ResolveJituPath(int family, const QString& jituFile)
{
    const QString j = VbTrim(jituFile);
    const bool hasSeparator = j.contains(u'/') || j.contains(u'\\');
    if ((hasSeparator && !FindFile(j).isEmpty()) || family < 0 || family > 2) {
        return j;
    }
    QString dir = j;
    return ImageDir[size_t(family)] + u'/' + SplitFileName(dir);
}

} // namespace tv
