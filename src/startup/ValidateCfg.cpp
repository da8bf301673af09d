#include "startup/ValidateCfg.h"

#include "data/EmuRegistry.h"
#include "platform/MsgBox.h"
#include "util/Globals.h"
#include "util/Sjis.h"
#include "util/SubFunction.h"

namespace tv {

QString FamilyName(int family)
{
    switch (family) {
    case 0:
        return QStringLiteral("PC-8x01");
    case 1:
        return QStringLiteral("FM-7 & FM77AV");
    case 2:
        return QStringLiteral("X1 & X1Turbo!");
    }
    return QString();
}

namespace {

const QString kRedo = QStringLiteral("正しいﾃﾞｨﾚｸﾄﾘを設定し直してください");

// Refuses with one exclamation box; the caller returns false.
bool fail(const QString& text, const QString& caption = QString())
{
    MsgBox(text, MbExclamation, caption);
    return false;
}

// A directory that must exist. Network paths are allowed: the files may live on a share.
bool dirOk(const QString& stored)
{
    return IsSafeDir(VbTrim(stored), 3, 1);
}
// A blank one falls back on the program's directory, which the start-up has checked.
bool dirOkOrBlank(const QString& stored)
{
    return VbTrim(stored).isEmpty() || dirOk(stored);
}
bool fileOk(const QString& path)
{
    return IsSafeDir(VbTrim(path), 2, 1);
}
// The directory and the program in it.
bool exeOk(const QString& dir, const QString& name)
{
    const QString d = VbTrim(dir);
    // The program may be installed as "m88.exe": the emulators come from a case-blind platform.
    return dirOk(d) && fileOk(ResolveFileNoCase(d, name));
}
bool sameText(const QString& a, const QString& b)
{
    return VbTrim(a).compare(VbTrim(b), Qt::CaseInsensitive) == 0;
}

} // namespace

bool ValidateCfg(const CfgRecord& c)
{
    // The image directories.
    for (int i = 0; i < 3; ++i)
        if (!dirOkOrBlank(c.ImageDir[i]))
            return fail(FamilyName(i) + QStringLiteral("用のｲﾒｰｼﾞﾌｧｲﾙ格納ﾃﾞｨﾚｸﾄﾘが不正です\n") +
                            kRedo,
                        QStringLiteral("ｲﾒｰｼﾞﾌｧｲﾙﾃﾞｨﾚｸﾄﾘが不正"));
    // P88SR's save directory.
    if (c.P88srUse == 1 && !dirOkOrBlank(c.P88SaveDir))
        return fail(QStringLiteral("P88SR Saveディレクトリが不正です。修正して下さい！"));
    // The snapshot directories; M88's save directory is compared inside the loop, at family 0.
    for (int i = 0; i < 3; ++i) {
        if (i == 0 && c.M88Use == 1) {
            if (!VbTrim(c.M88SaveDir).isEmpty() && sameText(c.M88SaveDir, c.M88Dir))
                return fail(QStringLiteral(
                    "M88SaveディレクトリとM88実行ディレクトリが同一です。修正して下さい！"));
            if (!dirOkOrBlank(c.M88SaveDir))
                return fail(QStringLiteral("M88 Saveディレクトリが不正です。修正して下さい！"));
        }
        if (!dirOkOrBlank(c.SnapDir[i]))
            return fail(FamilyName(i) +
                            QStringLiteral("用のScreenShot&生成ﾌｧｲﾙ格納ﾃﾞｨﾚｸﾄﾘが不正です\n") +
                            kRedo,
                        QStringLiteral("ScreenShotﾃﾞｨﾚｸﾄﾘが不正"));
    }
    // The other save directories ("Xmillenium" is the message's own spelling).
    const struct {
        uint8_t use;
        const QString& dir;
        const char* text;
    } saves[] = {
        {c.QUASI88Use, c.QUASI88SaveDir, "QUASI88 Saveディレクトリが不正です。修正して下さい！"},
        {c.Xm7DosUse, c.Xm7DosSaveDir, "XM7dos Saveディレクトリが不正です。修正して下さい！"},
        {c.Xm7WinUse, c.Xm7WinSaveDir, "XM7Win Saveディレクトリが不正です。修正して下さい！"},
        {c.XmilUse, c.XmilSaveDir, "Xmillenium Saveディレクトリが不正です。修正して下さい！"},
        {c.WinX1Use, c.WinX1SaveDir, "WinX1Ika Saveディレクトリが不正です。修正して下さい！"},
    };
    for (const auto& s : saves)
        if (s.use == 1 && !dirOkOrBlank(s.dir))
            return fail(QString::fromUtf8(s.text));
    // The .PAT directories.
    for (int i = 0; i < 3; ++i)
        if (!dirOkOrBlank(c.PatSaveDir[i]))
            return fail(FamilyName(i) + QStringLiteral("用のPATﾌｧｲﾙ格納ﾃﾞｨﾚｸﾄﾘが不正です\n") +
                            kRedo,
                        QStringLiteral("PAT用ﾃﾞｨﾚｸﾄﾘが不正"));
    // The manual directories.
    for (int i = 0; i < 3; ++i)
        if (!dirOkOrBlank(c.ManDir[i]))
            return fail(FamilyName(i) + QStringLiteral("用のﾏﾆｭｱﾙﾌｧｲﾙ格納ﾃﾞｨﾚｸﾄﾘが不正です\n") +
                            kRedo,
                        QStringLiteral("MANUAL用ﾃﾞｨﾚｸﾄﾘが不正"));
    // The FMPAN disk.
    if (c.PanUse == 1 && !fileOk(c.FmPanFile))
        return fail(QStringLiteral("FMPAN.D88ﾌｧｲﾙが不正です！"));
    // The programs of the emulators in use, with the files and the second build they need.
    for (const EmuRow& r : EmuRows()) {
        if (!r.inUse(c))
            continue;
        if (!exeOk(c.*r.dir, QString::fromUtf8(r.checkExe)))
            return fail(QString::fromUtf8(r.badDirText));
        for (const EmuRow::FileCheck& f : r.fileChecks)
            if (f.file && !fileOk(c.*f.file))
                return fail(QString::fromUtf8(f.badText));
        if (r.tuneDir && !VbTrim(c.*r.tuneDir).isEmpty()) {
            if (sameText(c.*r.dir, c.*r.tuneDir))
                return fail(QString::fromUtf8(r.sameTuneDirText));
            if (!exeOk(c.*r.tuneDir, QString::fromUtf8(r.checkExe)))
                return fail(QString::fromUtf8(r.badTuneDirText));
        }
    }
    return true;
}

void CfgDialogUnload(bool stored)
{
    const bool present = FileExists(AppDir + QStringLiteral("/") + kCfgFileName);
    if (stored) {
        ClearCfg();
        const bool read = present && ReadCfg();
        ResolveCfgDirs();
        CfgReady = 1;
        if (!read || !ValidateCfg())
            CfgReady = 0;
        return;
    }
    // Cancelled with no file yet (first start): the defaults stay and so does CfgReady.
    if (!present)
        return;
    ClearCfg();
    ReadCfg();
    ResolveCfgDirs();
    if (!ValidateCfg())
        CfgReady = 0;
}

SelectFilter SelectFileFilter(SelectKind kind)
{
    auto f = [](const char* d, const char* p) {
        return SelectFilter{QString::fromUtf8(d), QString::fromUtf8(p)};
    };
    // The emulators' kinds come first, in the order of the emulator table.
    const auto rows = EmuRows();
    const auto index = size_t(kind);
    if (index < rows.size())
        return f(rows[index].filterDisplay, rows[index].filterPattern);
    switch (kind) {
    case SelectKind::FmPan:
        return f("PAN Set for PC8801 (FMPAN.D88)", "FMPAN.D88");
    case SelectKind::JavaVM:
        // A Linux runtime has no extension; a Windows one, pointed at for Wine, has ".exe".
        return f("Sun JavaVM (java.exe,javaw.exe)", "java;javaw;java.exe;javaw.exe");
    case SelectKind::J80Rom:
        return f("j80 ROM File (*.ROM)", "*.ROM");
    case SelectKind::J80Font:
        return f("j80 FONT File (*.FON)", "*.FON");
    case SelectKind::J80Other:
        return f("j80 CRT/KEY/PEN File (*.*)", "*.*");
    case SelectKind::RunnerProgram:
        return f("プログラム (*)", "*");
    case SelectKind::Picture:
        return f("ピクチャ ファイル (*.png,*.jpg,*.bmp)", "*.png;*.jpg;*.bmp;*.PNG;*.JPG;*.BMP");
    default:
        break;
    }
    return {};
}

SelectKind SelectKindOf(const EmuRow& row)
{
    return SelectKind(&row - EmuRows().data());
}

QString QtFilterText(const SelectFilter& f)
{
    // Qt reads the patterns from the last parenthesis, separated by blanks. A display text
    // that already ends in exactly that parenthesis is shown as it is; otherwise one is added.
    const QString patterns = f.pattern.split(QLatin1Char(';')).join(QLatin1Char(' '));
    const QString tail = QStringLiteral("(") + patterns + QStringLiteral(")");
    if (f.display.endsWith(tail))
        return f.display;
    return f.display + QStringLiteral(" ") + tail;
}

bool FitsCfgPath(const QString& text)
{
    return SjisLen(VbTrim(text)) <= kCfgPathBytes;
}

} // namespace tv
