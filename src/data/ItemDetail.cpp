#include "data/ItemDetail.h"

#include "data/clsLst.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace tv {

std::vector<int> FamilyEmuCodes(int family)
{
    switch (family) {
    case 0:
        return {1, 2, 3, 4, 5, 6};
    case 1:
        return {11, 12, 13};
    case 2:
        return {21, 22, 23, 24};
    default:
        return {};
    }
}

int FamilyOfEmuCode(int emuCode)
{
    if (emuCode >= 1 && emuCode <= 6)
        return 0;
    if (emuCode >= 11 && emuCode <= 13)
        return 1;
    if (emuCode >= 21 && emuCode <= 24)
        return 2;
    return -1;
}

bool EmuInUse(int emuCode, const CfgRecord& c)
{
    uint8_t flag = 0;
    switch (emuCode) {
    case 1:
        flag = c.P88srUse;
        break;
    case 2:
        flag = c.M88Use;
        break;
    case 3:
        flag = c.PC88WinUse;
        break;
    case 4:
        flag = c.X88kUse;
        break;
    case 5:
        flag = c.QUASI88Use;
        break;
    case 6:
        flag = c.J80Use;
        break;
    case 11:
        flag = c.Xm7DosUse;
        break;
    case 12:
        flag = c.Xm7WinUse;
        break;
    case 13:
        flag = c.Em7WinUse;
        break;
    case 21:
        flag = c.X1rUse;
        break;
    case 22:
        flag = c.XmilUse;
        break;
    case 23:
        flag = c.X1emuUse;
        break;
    case 24:
        flag = c.WinX1Use;
        break;
    default:
        flag = 0;
    }
    return flag == 1;
}

bool IsEmuImage(int emuCode, const QString& ext)
{
    static const std::vector<std::pair<int, std::vector<const char*>>> table = {
        {1, {"D88", "T88"}},
        {2, {"D88", "T88"}},
        {3, {"D88"}},
        {4, {"D88", "T88", "CMT", "N80"}},
        {5, {"D88"}},
        {6, {"D88", "T88", "CMT"}},
        {11, {"D77", "2D", "T77"}},
        {12, {"D77", "2D", "T77", "VFD"}},
        {13, {"VFD", "VTP"}},
        {21, {"D88", "2D", "TAP"}},
        {22, {"D88", "2D", "TAP"}},
        {23, {"D88", "2D", "TAP"}},
        {24, {"D88", "2D"}},
    };
    for (const auto& [code, types] : table) {
        if (code != emuCode)
            continue;
        for (const char* t : types)
            if (ext == QLatin1String(t))
                return true;
        return false;
    }
    return false;
}

bool EmuEnabledForItem(int emuCode, const QString& startFileName, const CfgRecord& c)
{
    if (!EmuInUse(emuCode, c))
        return false;
    const QString ext = GetFileExt(startFileName);
    if (!IsEmuImage(emuCode, ext))
        return false;
    if (emuCode == 22 && ext == QLatin1String("TAP")) {
        // Only the T-Tune build of X mil reads tapes.
        const QString dir = VbTrim(c.XmilTDir);
        return IsSafeDir(dir, 3, 0) && IsSafeDir(dir + QStringLiteral("/Xmillennium.exe"), 2, 0);
    }
    return true;
}

QString EmuRunCaption(int family, int entry)
{
    static const char* captions[3][6] = {
        {"P88SR(&P)", "M88(&M)", "PC88Win(&W)", "X88000(&X)", "QUASI88(&Q)", "j80(&J)"},
        {"XM7dos(&D)", "XM7win(&W)", "EM7(&7)", nullptr, nullptr, nullptr},
        {"X1R(&X)", "X mil(&M)", "X1EMU(&U)", "WinX1(&W)", nullptr, nullptr},
    };
    if (family >= 0 && family < 3 && entry >= 1 && entry <= 6 && captions[family][entry - 1])
        return QString::fromLatin1(captions[family][entry - 1]);
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
