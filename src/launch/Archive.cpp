#include "launch/Archive.h"

#include "launch/ArcLibrary.h"
#include "platform/MsgBox.h"
#include "util/SubFunction.h"

#include <exception>

namespace tv {

namespace {
const QString Q = QStringLiteral("\"");

// A name inside the double quotes of a command line: a double quote of the name itself is
// doubled, so that a path that holds one (Linux allows it) stays one argument.
QString QuoteSafe(const QString& text)
{
    QString t = text;
    return t.replace(Q, Q + Q);
}

// Calls one library entry. Only a failure of the call itself (no library, no entry, a
// run-time error inside) is told, with the critical icon; the library's own result is
// returned as it is.
int32_t CallLibrary(const ArcEntry& entry, QObject* hWnd, const QString& cmd, const QString& title,
                    const QString& text)
{
    try {
        if (!entry)
            throw std::runtime_error("archiver library missing");
        QString buffer(kArcOutputSize, QChar(0));
        return entry(hWnd, cmd, buffer, kArcOutputSize);
    } catch (...) {
        MsgBox(text, MbCritical, title);
        return -1;
    }
}

const QString kPackTitle = QStringLiteral("圧縮エラー");
const QString kMeltTitle = QStringLiteral("解凍エラー");
} // namespace

int32_t LzhPack(QObject* hWnd, const QString& ArcPath, const QString& SrcDir, int16_t ShowProgress)
{
    QString cmd;
    if (ShowProgress == kArcFalse)
        cmd = "a " + Q + QuoteSafe(ArcPath) + Q + " " + Q + QuoteSafe(SrcDir) + "\\*.*" + Q + " -n";
    else
        cmd = "a " + Q + QuoteSafe(ArcPath) + Q + " " + Q + QuoteSafe(SrcDir) + "\\*.*" + Q;
    return CallLibrary(CurrentArcLibrary().Unlha, hWnd, cmd, kPackTitle,
                       QStringLiteral("LZH圧縮に失敗しました。"));
}

int32_t ZipPack(QObject* hWnd, const QString& ArcPath, const QString& SrcDir, int16_t ShowProgress)
{
    QString cmd;
    if (ShowProgress == kArcTrue)
        cmd = "-j " + Q + QuoteSafe(ArcPath) + Q + " " + Q + QuoteSafe(SrcDir) + "\\*.*" + Q;
    else
        // Kept as it has always been: the fixed part is one literal, so no quote opens
        // before ArcPath. No present caller reaches this line.
        cmd = "-j -q & Chr$(34) " + ArcPath + Q + " " + Q + QuoteSafe(SrcDir) + "\\*.*" + Q;
    return CallLibrary(CurrentArcLibrary().Zip, hWnd, cmd, kPackTitle,
                       QStringLiteral("ZIP圧縮に失敗しました。"));
}

int32_t CabPack(QObject* hWnd, const QString& ArcPath, const QString& SrcDir, int16_t ShowProgress)
{
    QString cmd;
    if (ShowProgress == kArcFalse)
        cmd =
            "-a -i " + Q + QuoteSafe(ArcPath) + Q + " " + Q + QuoteSafe(SrcDir) + "\\" + Q + " *.*";
    else
        cmd = "-a " + Q + QuoteSafe(ArcPath) + Q + " " + Q + QuoteSafe(SrcDir) + "\\" + Q + " *.*";
    return CallLibrary(CurrentArcLibrary().Cab, hWnd, cmd, kPackTitle,
                       QStringLiteral("CAB圧縮に失敗しました。"));
}

int32_t LzhMelt(QObject* hWnd, const QString& ArcPath, const QString& DestDir, const QString& Mask,
                int16_t Overwrite, int16_t ShowProgress)
{
    QString cmd = "e " + Q + QuoteSafe(ArcPath) + Q + " " + Q + QuoteSafe(DestDir) + "\\" + Q;
    if (!Mask.isEmpty())
        cmd += " " + Q + QuoteSafe(Mask) + Q;
    if (ShowProgress == kArcFalse)
        cmd += " -n";
    if (Overwrite == kArcTrue)
        cmd += " -y";
    return CallLibrary(CurrentArcLibrary().Unlha, hWnd, cmd, kMeltTitle,
                       QStringLiteral("LZH解凍に失敗しました。"));
}

int32_t ZipMelt(QObject* hWnd, const QString& ArcPath, const QString& DestDir, const QString& Mask,
                int16_t Overwrite, int16_t ShowProgress)
{
    QString cmd = Q + QuoteSafe(ArcPath) + Q + " " + Q + QuoteSafe(DestDir) + "\\" + Q;
    if (!Mask.isEmpty())
        cmd += " " + Q + "*" + QuoteSafe(Mask) + Q; // found by its name inside any subdirectory
    if (ShowProgress == kArcFalse)
        cmd = "--i " + cmd;
    if (Overwrite == kArcTrue)
        cmd = "-o " + cmd;
    cmd = "-x " + cmd;
    return CallLibrary(CurrentArcLibrary().UnZip, hWnd, cmd, kMeltTitle,
                       QStringLiteral("ZIP解凍に失敗しました。"));
}

int32_t CabMelt(QObject* hWnd, const QString& ArcPath, const QString& DestDir, const QString& Mask,
                int16_t Overwrite, int16_t ShowProgress)
{
    QString cmd = Q + QuoteSafe(ArcPath) + Q + " " + Q + QuoteSafe(DestDir) + "\\" + Q;
    if (!Mask.isEmpty())
        cmd += " " + Q + "*" + QuoteSafe(Mask) + Q;
    else
        cmd += " *.*";
    if (ShowProgress == kArcFalse)
        cmd = "-i " + cmd;
    if (Overwrite == kArcTrue)
        cmd = "-o " + cmd;
    cmd = "-x " + cmd;
    return CallLibrary(CurrentArcLibrary().Cab, hWnd, cmd, kMeltTitle,
                       QStringLiteral("CAB解凍に失敗しました。"));
}

int32_t ArcPack(QObject* hWnd, const QString& ArcPath, const QString& SrcDir, int16_t ShowProgress)
{
    const QString ext = GetFileExt(ArcPath);
    if (ext == QLatin1String("LZH"))
        return LzhPack(hWnd, ArcPath, SrcDir, ShowProgress);
    if (ext == QLatin1String("ZIP"))
        return ZipPack(hWnd, ArcPath, SrcDir, ShowProgress);
    if (ext == QLatin1String("CAB"))
        return CabPack(hWnd, ArcPath, SrcDir, ShowProgress);
    return -1;
}

int32_t ArcMelt(QObject* hWnd, const QString& ArcPath, const QString& DestDir, const QString& Mask,
                int16_t Overwrite, int16_t ShowProgress)
{
    const QString ext = GetFileExt(ArcPath);
    if (ext == QLatin1String("LZH"))
        return LzhMelt(hWnd, ArcPath, DestDir, Mask, Overwrite, ShowProgress);
    if (ext == QLatin1String("ZIP"))
        return ZipMelt(hWnd, ArcPath, DestDir, Mask, Overwrite, ShowProgress);
    if (ext == QLatin1String("CAB"))
        return CabMelt(hWnd, ArcPath, DestDir, Mask, Overwrite, ShowProgress);
    return -1;
}

} // namespace tv
