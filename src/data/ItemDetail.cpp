#include "data/ItemDetail.h"

#include "data/EmuRegistry.h"
#include "data/clsLst.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace tv {

std::vector<int> FamilyEmuCodes(int family)
{
    std::vector<int> codes;
    for (const EmuRow& r : EmuRows())
        if (r.family == family)
            codes.push_back(r.code());
    return codes;
}

int FamilyOfEmuCode(int emuCode)
{
    const EmuRow* r = FindEmu(emuCode);
    return r ? r->family : -1;
}

bool EmuInUse(int emuCode, const CfgRecord& c)
{
    const EmuRow* r = FindEmu(emuCode);
    return r && r->inUse(c);
}

bool IsEmuImage(int emuCode, const QString& ext)
{
    const EmuRow* r = FindEmu(emuCode);
    return r && r->takesType(ext);
}

bool EmuEnabledForItem(int emuCode, const QString& startFileName, const CfgRecord& c)
{
    if (!EmuInUse(emuCode, c))
        return false;
    const QString ext = GetFileExt(startFileName);
    if (!IsEmuImage(emuCode, ext))
        return false;
    const EmuRow& row = *FindEmu(emuCode);
    if (row.tuneDir && ext == QLatin1String("TAP")) {
        // Only the T-Tune build reads tapes.
        const QString dir = row.dirOf(c, 1);
        return IsSafeDir(dir, 3, 0) && IsSafeDir(dir + u'/' + row.exeName(c), 2, 0);
    }
    return true;
}

QString EmuRunCaption(int family, int entry)
{
    for (const EmuRow& r : EmuRows())
        if (r.family == family && r.entry == entry)
            return r.captionText();
    return QStringLiteral("-----");
}

bool LoadPictureFile(QImage& target, const QString& path, int mode)
{
    target = QImage();
    bool ok = false;
    const QString p = VbTrim(path);
    if (IsSafeDir(p, 2, 1) && QFileInfo(p).isFile()) {
        const QString ext = GetFileExt(p);
        if (ext == QLatin1String("PNG") || ext == QLatin1String("JPG") ||
            ext == QLatin1String("BMP")) {
            QFile f(p);
            if (f.open(QIODevice::ReadOnly)) {
                // A GIF is refused whatever its name says.
                const QByteArray magic = f.read(3).toUpper();
                f.close();
                if (magic != "GIF") {
                    QImage img;
                    // The content decides the decoder; the extension only admits the file.
                    if (img.load(p) && !img.isNull()) {
                        target = img;
                        ok = true;
                    }
                }
            }
        }
    }
    if (!ok && mode == 1)
        ShowNoImage(target);
    return ok;
}

void ShowNoImage(QImage& target)
{
    if (Cfg.DefScrFlag == 1 && LoadPictureFile(target, VbTrim(Cfg.DefScrPath), 2))
        return;
    target = NoImagePicture;
}

namespace {

// A name in a directory: exactly, else the one entry that matches it without regard to case,
// since names written on another system may differ in case from the files here.
QString inDir(const QString& dir, const QString& name)
{
    const QString exact = dir + QStringLiteral("/") + name;
    if (QFileInfo(exact).isFile() || name.isEmpty() || name.contains(QLatin1Char('/')))
        return exact;
    QDir d(dir);
    const QStringList hits = d.entryList(QDir::Files | QDir::Hidden);
    for (const QString& h : hits)
        if (h.compare(name, Qt::CaseInsensitive) == 0)
            return d.filePath(h);
    return exact;
}

} // namespace

QString FindItemPicture(const clsLst& lst, int family, QImage& target)
{
    target = QImage();
    if (family < 0 || family > 2) {
        ShowNoImage(target);
        return {};
    }
    const QString snap = SnapDir[size_t(family)];
    const QString scr = lst.GetScrFile();
    auto tryName = [&](const QString& name) -> QString {
        if (name.isEmpty())
            return {};
        const QString p = inDir(snap, name);
        return LoadPictureFile(target, p, 1) ? p : QString();
    };

    if (!scr.isEmpty() && QFileInfo(scr).isFile()) {
        if (LoadPictureFile(target, scr, 1))
            return scr;
        return {};
    }
    QString hit;
    if (!scr.isEmpty())
        hit = tryName(scr);
    if (hit.isEmpty() && Cfg.ScrSearchRead == 1) {
        if (!scr.isEmpty()) {
            QString dir = scr;
            hit = tryName(SplitFileName(dir));
        }
        const QString startBase = GetFileBase(lst.GetStartFileName());
        for (const char* ext : {".png", ".jpg", ".bmp"}) {
            if (!hit.isEmpty() || startBase.isEmpty())
                break;
            hit = tryName(startBase + QLatin1String(ext));
        }
        const QString jitu = lst.GetJituFile();
        if (hit.isEmpty() && !jitu.isEmpty()) {
            QString dir = jitu;
            const QString jituName = SplitFileName(dir);
            const QString imageDir = ImageDir[size_t(family)];
            const bool exists = QFileInfo(jitu).exists() ||
                                QFileInfo(imageDir + QStringLiteral("/") + jitu).exists() ||
                                QFileInfo(inDir(imageDir, jituName)).exists();
            const QString jituBase = GetFileBase(jitu);
            if (exists && !jituBase.isEmpty()) {
                for (const char* ext : {".png", ".jpg", ".bmp"}) {
                    hit = tryName(jituBase + QLatin1String(ext));
                    if (!hit.isEmpty())
                        break;
                }
            }
        }
    }
    if (hit.isEmpty())
        ShowNoImage(target);
    return hit;
}

QString ItemDetailText(const clsLst& lst, const CfgRecord& c)
{
    const QString crlf = QStringLiteral("\r\n");
    QString t = QStringLiteral("[Title] ") + lst.GetTitle() + QStringLiteral("　( ") +
                lst.GetStartFileName() + QStringLiteral(" )");
    auto line = [&](const QString& label, const QString& value) {
        if (!value.isEmpty())
            t += crlf + label + value;
    };
    line(QStringLiteral("[Genre] "), lst.GetGenre());
    line(QStringLiteral("[Maker] "), lst.GetMaker());
    line(QStringLiteral("[") + VbTrim(c.FreeColName1) + QStringLiteral("] "), lst.GetColumn1());
    line(QStringLiteral("[") + VbTrim(c.FreeColName2) + QStringLiteral("] "), lst.GetColumn2());
    line(QStringLiteral("[SaleDate] "), lst.GetSaleDate());
    t += crlf + QStringLiteral("[状 態] ");
    if (lst.GetArcCheckFlag() == 1) {
        const QString ext = GetFileExt(lst.GetJituFile());
        t += QStringLiteral("圧縮ファイル");
        if (ext == QLatin1String("LZH"))
            t += QStringLiteral("(*.LZH) / 再圧縮:");
        else if (ext == QLatin1String("ZIP"))
            t += QStringLiteral("(*.ZIP) / 再圧縮:");
        else if (ext == QLatin1String("CAB"))
            t += QStringLiteral("(*.CAB) / 再圧縮:");
        else
            t += QStringLiteral("(不明な形式) / 再圧縮:");
        const uint8_t re = lst.GetReArcCheckFlag();
        t += re == 1   ? QStringLiteral("Yes")
             : re == 2 ? QStringLiteral("Check")
                       : QStringLiteral("No");
    } else {
        t += QStringLiteral("イメージファイル直接指定");
    }
    t += crlf + crlf + QStringLiteral("[Comment]") + crlf + lst.GetComment();
    return t;
}

QString ItemStatusText(const clsLst& lst)
{
    QString dir = lst.GetJituFile();
    const QString name = SplitFileName(dir);
    return lst.GetTitle() + QStringLiteral("選択中．． ") + QStringLiteral(" (") + name +
           QStringLiteral(")");
}

std::array<bool, 10> P88SaveSlots(const QString& startFileName)
{
    std::array<bool, 10> found{};
    const QString base = GetFileBase(startFileName);
    for (int i = 0; i < 10; ++i)
        found[size_t(i)] = QFileInfo(P88SaveDir + QStringLiteral("/") + base +
                                     QStringLiteral(".SV") + QString::number(i))
                               .isFile();
    return found;
}

std::array<bool, 10> M88SaveSlots(const QString& startFileName)
{
    std::array<bool, 10> found{};
    const QString base = GetFileBase(startFileName);
    for (int i = 0; i < 10; ++i)
        found[size_t(i)] = QFileInfo(M88SaveDir + QStringLiteral("/") + base + QStringLiteral("_") +
                                     QString::number(i) + QStringLiteral(".S88"))
                               .isFile();
    return found;
}

} // namespace tv
