#include "startup/ValidateCfg.h"

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
    // 1
    for (int i = 0; i < 3; ++i)
        if (!dirOkOrBlank(c.ImageDir[i]))
            return fail(FamilyName(i) + QStringLiteral("用のｲﾒｰｼﾞﾌｧｲﾙ格納ﾃﾞｨﾚｸﾄﾘが不正です\n") +
                            kRedo,
                        QStringLiteral("ｲﾒｰｼﾞﾌｧｲﾙﾃﾞｨﾚｸﾄﾘが不正"));
    // 2
    if (c.P88srUse == 1 && !dirOkOrBlank(c.P88SaveDir))
        return fail(QStringLiteral("P88SR Saveディレクトリが不正です。修正して下さい！"));
    // 3: M88's save directory is compared inside the loop, at family 0.
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
    // 4 ("Xmillenium" is the message's own spelling)
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
    // 5
    for (int i = 0; i < 3; ++i)
        if (!dirOkOrBlank(c.PatSaveDir[i]))
            return fail(FamilyName(i) + QStringLiteral("用のPATﾌｧｲﾙ格納ﾃﾞｨﾚｸﾄﾘが不正です\n") +
                            kRedo,
                        QStringLiteral("PAT用ﾃﾞｨﾚｸﾄﾘが不正"));
    // 6
    for (int i = 0; i < 3; ++i)
        if (!dirOkOrBlank(c.ManDir[i]))
            return fail(FamilyName(i) + QStringLiteral("用のﾏﾆｭｱﾙﾌｧｲﾙ格納ﾃﾞｨﾚｸﾄﾘが不正です\n") +
                            kRedo,
                        QStringLiteral("MANUAL用ﾃﾞｨﾚｸﾄﾘが不正"));
    // 7
    if (c.PanUse == 1 && !fileOk(c.FmPanFile))
        return fail(QStringLiteral("FMPAN.D88ﾌｧｲﾙが不正です！"));
    // 8
    if (c.P88srUse == 1 && !exeOk(c.P88srDir, QStringLiteral("P88SR.EXE")))
        return fail(QStringLiteral("P88SRの実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！"));
    if (c.M88Use == 1 && !exeOk(c.M88Dir, QStringLiteral("M88.EXE")))
        return fail(QStringLiteral("M88の実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！"));
    if (c.PC88WinUse == 1 && !exeOk(c.PC88WinDir, QStringLiteral("PC88WIN.EXE")))
        return fail(QStringLiteral("PC88Winの実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！"));
    if (c.X88kUse == 1 && !exeOk(c.X88kDir, QStringLiteral("X88000.EXE")))
        return fail(QStringLiteral("X88000の実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！"));
    if (c.QUASI88Use == 1 && !exeOk(c.QUASI88Dir, QStringLiteral("QUASI88.EXE")))
        return fail(QStringLiteral("QUASI88の実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！"));
    if (c.J80Use == 1) {
        if (!exeOk(c.J80Dir, QStringLiteral("j80.jar")))
            return fail(QStringLiteral("j80の実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！"));
        if (!fileOk(c.J80RomsFile))
            return fail(QStringLiteral("j80のROMsファイルが不正です！"));
        if (!fileOk(c.J80FontFile))
            return fail(QStringLiteral("j80のFONTファイルが不正です！"));
        if (!fileOk(c.J80CrtFile))
            return fail(QStringLiteral("j80のCRTファイルが不正です！"));
        if (!fileOk(c.J80KeyFile))
            return fail(QStringLiteral("j80のKEYファイルが不正です！"));
    }
    if (c.Xm7DosUse == 1 && !exeOk(c.Xm7DosDir, QStringLiteral("XM7.EXE")))
        return fail(QStringLiteral("XM7 for Dosの実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！"));
    if (c.Xm7WinUse == 1 && !exeOk(c.Xm7WinDir, QStringLiteral("XM7.EXE")))
        return fail(QStringLiteral("XM7 for Win32(V3.0)の実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！"));
    if (c.Em7WinUse == 1 && !exeOk(c.Em7WinDir, QStringLiteral("EM7.EXE")))
        return fail(QStringLiteral("EM7 for Win32の実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！"));
    if (c.X1rUse == 1 && !exeOk(c.X1rDir, QStringLiteral("X1R.COM")))
        return fail(QStringLiteral("X1EMU RealMode(X1R.COM)の実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！"));
    if (c.XmilUse == 1) {
        if (!exeOk(c.XmilDir, QStringLiteral("Xmillennium.exe")))
            return fail(QStringLiteral("X millennium の実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！"));
        if (!VbTrim(c.XmilTDir).isEmpty()) {
            if (sameText(c.XmilDir, c.XmilTDir))
                return fail(QStringLiteral("X millennium本体とT-Tune/Ika-"
                                           "Tuneは別ディレクトリに指定してください！"));
            if (!exeOk(c.XmilTDir, QStringLiteral("Xmillennium.exe")))
                return fail(QStringLiteral("X millennium T-Tune/Ika-Tune用ﾃﾞｨﾚｸﾄﾘが不正です！"));
        }
    }
    if (c.X1emuUse == 1 && !exeOk(c.X1emuDir, QStringLiteral("X1EMU.EXE")))
        return fail(QStringLiteral("X1EMU の実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！"));
    // The plain build's program is looked for also when the Ika build is chosen.
    if (c.WinX1Use == 1 && !exeOk(c.WinX1Dir, QStringLiteral("winx1.exe")))
        return fail(QStringLiteral("WinX1 の実行ファイルﾃﾞｨﾚｸﾄﾘが不正です！"));
    return true;
}

void CfgDialogUnload(bool stored)
{
    const bool present = !FindFile(AppDir + QStringLiteral("/") + kCfgFileName).isEmpty();
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
    switch (kind) {
    case SelectKind::P88sr:
        return f("P88SR (P88SR.EXE)", "P88SR.EXE");
    case SelectKind::M88:
        return f("M88 (M88.EXE)", "M88.EXE");
    case SelectKind::PC88Win:
        return f("PC88WIN (PC88WIN.EXE)", "PC88WIN.EXE");
    case SelectKind::X88k:
        return f("X88000 (X88000.EXE)", "X88000.EXE");
    case SelectKind::QUASI88:
        return f("QUASI88 (QUASI88.EXE)", "QUASI88.EXE");
    case SelectKind::J80:
        return f("j80 (j80.jar)", "j80.jar");
    case SelectKind::Xm7Dos:
        return f("XM7 for DOS (XM7.EXE)", "XM7.EXE");
    case SelectKind::Xm7Win:
        return f("XM7 for Win32 (XM7.EXE)", "XM7.EXE");
    case SelectKind::Em7Win:
        return f("EM7 for Win32 (EM7.EXE)", "EM7.EXE");
    case SelectKind::X1r:
        return f("X1R (X1R.COM)", "X1R.COM");
    case SelectKind::Xmil:
        return f("X millennium and T-Tune/ika-Tune(Xmillennium.exe)", "Xmillennium.exe");
    case SelectKind::X1emu:
        return f("X1EMU (X1EMU.EXE)", "X1EMU.EXE");
    case SelectKind::WinX1:
        return f("WinX1 (winx1.exe)", "winx1.exe");
    case SelectKind::FmPan:
        return f("PAN Set for PC8801 (FMPAN.D88)", "FMPAN.D88");
    case SelectKind::JavaVM:
        return f("Sun JavaVM (java.exe,javaw.exe)", "java.exe;javaw.exe");
    case SelectKind::J80Rom:
        return f("j80 ROM File (*.ROM)", "*.ROM");
    case SelectKind::J80Font:
        return f("j80 FONT File (*.FON)", "*.FON");
    case SelectKind::J80Other:
        return f("j80 CRT/KEY/PEN File (*.*)", "*.*");
    }
    return {};
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
