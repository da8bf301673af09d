#include "launch/RunnerCheck.h"

#include "data/Cfg.h"
#include "data/EmuRegistry.h"
#include "launch/LaunchCommand.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTextStream>
#include <utility>

namespace tv {

namespace {

class RealProbe : public RunnerProbe {
public:
    Result run(const QString& program, const QStringList& args, const QStringList& env,
               int timeoutMs) override
    {
        Result r;
        QProcess p;
        QProcessEnvironment e = QProcessEnvironment::systemEnvironment();
        for (const QString& entry : env) {
            const qsizetype eq = entry.indexOf(u'=');
            if (eq > 0)
                e.insert(entry.left(eq), entry.mid(eq + 1));
        }
        p.setProcessEnvironment(e);
        p.start(program, args, QIODevice::ReadOnly);
        if (!p.waitForStarted(timeoutMs))
            return r;
        r.started = true;
        p.closeWriteChannel();
        if (!p.waitForFinished(timeoutMs)) {
            r.timedOut = true;
            p.kill();
            p.waitForFinished(1000);
        }
        r.exitCode = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
        r.output = QString::fromLocal8Bit(p.readAllStandardOutput()) +
                   QString::fromLocal8Bit(p.readAllStandardError());
        return r;
    }
    bool exists(const QString& path) override { return QFileInfo::exists(path); }
};

RunnerProbe*& Installed()
{
    static RunnerProbe* probe = nullptr;
    return probe;
}

constexpr int kVersionTimeoutMs = 5000;
// A first call of Wine starts its server, which takes a few seconds.
constexpr int kWinePathTimeoutMs = 20000;

QString FirstLine(const QString& text)
{
    for (const QString& line : text.split(u'\n'))
        if (!line.trimmed().isEmpty())
            return line.trimmed();
    return {};
}

// "[OK] ", "[NG] " or "[--] " (not checked) in front of a line of the report.
QString Line(const char* mark, const QString& text)
{
    return QStringLiteral("[%1] %2\n").arg(QLatin1String(mark), text);
}

QString VersionLine(const QString& what, const QString& program, const QStringList& args)
{
    const RunnerProbe::Result r = Probe().run(program, args, {}, kVersionTimeoutMs);
    if (!r.started)
        return Line("NG", QStringLiteral("%1 が見つかりません: %2").arg(what, program));
    if (r.timedOut)
        return Line("NG",
                    QStringLiteral("%1 が応答しません: %2 %3").arg(what, program, args.join(u' ')));
    const QString v = FirstLine(r.output);
    return Line("OK", QStringLiteral("%1: %2").arg(what, v.isEmpty() ? program : v));
}

QString CheckWinePath(const RunnerSettings& s)
{
    const QString ours = WinePathOf(WorkDir, s.driveTable);
    const QString prefix = WinePrefixOf(s);
    // A call into a prefix that was never prepared would prepare it, which takes long and is
    // the first launch's business.
    if (!Probe().exists(prefix + QStringLiteral("/system.reg")))
        return Line("--", QStringLiteral("winepath: プレフィックス %1 は未作成です"
                                         "（最初の起動で作成されます）。TORVANE の形: %2")
                              .arg(prefix, ours));
    QStringList env{QStringLiteral("WINEDEBUG=-all")};
    if (!s.winePrefix.isEmpty())
        env << QStringLiteral("WINEPREFIX=") + s.winePrefix;
    const QString program = WinePathProgramOf(s);
    const RunnerProbe::Result r =
        Probe().run(program, {QStringLiteral("-w"), WorkDir}, env, kWinePathTimeoutMs);
    if (!r.started || r.timedOut || r.exitCode != 0)
        return Line("NG", QStringLiteral("winepath -w %1 が答えません（%2）。TORVANE の形: %3")
                              .arg(WorkDir, program, ours));
    const QString theirs = FirstLine(r.output);
    if (theirs.compare(ours, Qt::CaseInsensitive) == 0)
        return Line(
            "OK", QStringLiteral("winepath -w %1 → %2（TORVANE の形と同じ）").arg(WorkDir, theirs));
    return Line("NG", QStringLiteral("winepath -w %1 → %2 ですが、TORVANE は %3 を渡します。"
                                     "ドライブ表を確かめてください")
                          .arg(WorkDir, theirs, ours));
}

QString CheckJapaneseLocale(const RunnerSettings& s)
{
    if (!s.japaneseLocale)
        return Line("--", QStringLiteral("日本語ロケール: 使わない設定です"));
    const RunnerProbe::Result r =
        Probe().run(QStringLiteral("locale"), {QStringLiteral("-a")}, {}, kVersionTimeoutMs);
    for (const QString& line : r.output.split(u'\n')) {
        const QString n = line.trimmed().toLower().remove(u'-');
        if (n == u"ja_jp.utf8")
            return Line("OK", QStringLiteral("日本語ロケール ja_JP.UTF-8 があります"));
    }
    return Line("NG", QStringLiteral("日本語ロケール ja_JP.UTF-8 がありません"
                                     "（sudo dpkg-reconfigure locales で ja_JP.UTF-8 を作成）"));
}

QString CheckWine32(int bits)
{
    if (bits != 32 && bits != 16)
        return Line("--", QStringLiteral("32ビット用 Wine: 64ビットのプログラムには不要です"));
    for (const char* p : {"/usr/lib/wine/wine", "/usr/lib/i386-linux-gnu/wine"})
        if (Probe().exists(QLatin1String(p)))
            return Line("OK",
                        QStringLiteral("32ビット用 Wine があります (%1)").arg(QLatin1String(p)));
    return Line("NG",
                QStringLiteral("%1ビットの Windows プログラムですが、32ビット用 Wine がありません"
                               "（sudo dpkg --add-architecture i386 && sudo apt-get update"
                               " && sudo apt-get install wine32）")
                    .arg(bits));
}

} // namespace

RunnerProbe& Probe()
{
    static RealProbe real;
    return Installed() ? *Installed() : real;
}

RunnerProbe* InstallProbe(RunnerProbe* probe)
{
    return std::exchange(Installed(), probe);
}

QString RunnerKindText(RunnerKind kind)
{
    switch (kind) {
    case RunnerKind::Auto:
        return QStringLiteral("自動");
    case RunnerKind::Direct:
        return QStringLiteral("直接");
    case RunnerKind::Wine:
        return QStringLiteral("Wine");
    case RunnerKind::DosBox:
        return QStringLiteral("DOSBox");
    case RunnerKind::Java:
        return QStringLiteral("Java");
    }
    return {};
}

QString ProgramHeaderText(ProgramHeader h, int peBits)
{
    switch (h) {
    case ProgramHeader::Missing:
        return QStringLiteral("プログラムがありません");
    case ProgramHeader::Elf:
        return QStringLiteral("Linux のプログラム (ELF)");
    case ProgramHeader::Script:
        return QStringLiteral("スクリプト (#!)");
    case ProgramHeader::Pe:
        return peBits ? QStringLiteral("Windows のプログラム (PE, %1ビット)").arg(peBits)
                      : QStringLiteral("Windows のプログラム (PE)");
    case ProgramHeader::Ne:
        return QStringLiteral("16ビット Windows のプログラム (NE)");
    case ProgramHeader::Mz:
        return QStringLiteral("DOS のプログラム (MZ)");
    case ProgramHeader::Com:
        return QStringLiteral("DOS のプログラム (.COM)");
    case ProgramHeader::Unknown:
        return QStringLiteral("種類の分からないファイル");
    }
    return {};
}

int WindowsProgramBits(const QString& programPath)
{
    int bits = 0;
    ReadProgramHeader(programPath, &bits);
    return bits;
}

QString RunnerMismatchText(Emu emu, ProgramHeader h, RunnerKind chosen)
{
    const bool windows = h == ProgramHeader::Pe || h == ProgramHeader::Ne;
    const bool dos = h == ProgramHeader::Mz || h == ProgramHeader::Com;
    const bool native = h == ProgramHeader::Elf || h == ProgramHeader::Script;
    const bool jar =
        QLatin1String(RowOf(emu).exe).endsWith(QLatin1String(".jar"), Qt::CaseInsensitive);
    switch (chosen) {
    case RunnerKind::Auto:
        return {};
    case RunnerKind::Direct:
        if (h == ProgramHeader::Com)
            return QStringLiteral(
                "ヘッダのない .COM は直接には起動できません（DOSBox を選んでください）");
        if (dos)
            return QStringLiteral(
                "DOS のプログラムは直接には起動できません（DOSBox を選んでください）");
        if (windows)
            return QStringLiteral("直接起動は Wine が実行形式に登録されているときだけ動きます"
                                  "（ヘッダは %1）")
                .arg(ProgramHeaderText(h));
        return {};
    case RunnerKind::Wine:
        if (dos || native || jar)
            return QStringLiteral("ヘッダは %1 です。Wine では起動できません")
                .arg(ProgramHeaderText(h));
        return {};
    case RunnerKind::DosBox:
        if (windows || native || jar)
            return QStringLiteral("ヘッダは %1 です。DOSBox では起動できません")
                .arg(ProgramHeaderText(h));
        return {};
    case RunnerKind::Java:
        if (!jar)
            return QStringLiteral("Java で起動するのは j80 だけです");
        return {};
    }
    return {};
}

QString EmuProgramPath(Emu emu)
{
    const EmuRow& row = RowOf(emu);
    const QString dir = row.dirOf(Cfg);
    if (dir.isEmpty())
        return {};
    return ResolveFileNoCase(dir, row.exeName(Cfg));
}

QString WineProgramOf(const RunnerSettings& s)
{
    return s.wineProgram.isEmpty() ? QStringLiteral("wine") : s.wineProgram;
}

QString WinePathProgramOf(const RunnerSettings& s)
{
    if (!s.wineProgram.contains(u'/'))
        return QStringLiteral("winepath");
    return QFileInfo(s.wineProgram).absolutePath() + QStringLiteral("/winepath");
}

QString DosBoxProgramOf(const RunnerSettings& s)
{
    return s.dosboxProgram.isEmpty() ? QStringLiteral("dosbox") : s.dosboxProgram;
}

QString JavaProgramOf(const RunnerSettings& s)
{
    if (!s.javaProgram.isEmpty())
        return s.javaProgram;
    const QString java = VbTrim(Cfg.JavaVMPath);
    return java.isEmpty() || FindFile(java).isEmpty() ? QStringLiteral("java") : java;
}

QString CheckRunner(Emu emu, const RunnerSettings& s)
{
    const EmuRow& row = RowOf(emu);
    const QString program = EmuProgramPath(emu);
    int bits = 0;
    const ProgramHeader h = ReadProgramHeader(program, &bits);
    const RunnerKind kind = EffectiveRunner(emu, program, s);

    QString out;
    out += QStringLiteral("%1 の確認（ランナー: %2%3）\n")
               .arg(QLatin1String(row.listName), RunnerKindText(kind),
                    s.kind == RunnerKind::Auto ? QStringLiteral("、自動判定") : QString());
    out += QStringLiteral("プログラム: %1 — %2\n")
               .arg(program.isEmpty() ? QStringLiteral("（ディレクトリ未設定）") : program,
                    ProgramHeaderText(h, bits));
    switch (kind) {
    case RunnerKind::Auto:
    case RunnerKind::Direct:
        if (RunnerProgramFound(program))
            out += Line("OK",
                        QStringLiteral("ランナーなしで直接起動します（実行できるファイルです）"));
        else if (h == ProgramHeader::Missing)
            out += Line("NG",
                        QStringLiteral("ランナーなしで直接起動しますが、プログラムがありません"));
        else
            out += Line("NG",
                        QStringLiteral("ランナーなしで直接起動しますが、実行の許可がありません"));
        break;
    case RunnerKind::Wine:
        out += VersionLine(QStringLiteral("Wine"), WineProgramOf(s), {QStringLiteral("--version")});
        out += CheckWinePath(s);
        out += CheckJapaneseLocale(s);
        out += CheckWine32(bits);
        break;
    case RunnerKind::DosBox: {
        // DOSBox Staging takes the long option, the others the short one.
        const QString opt = s.dosboxFlavour == DosBoxFlavour::Staging ? QStringLiteral("--version")
                                                                      : QStringLiteral("-version");
        out += VersionLine(QStringLiteral("DOSBox"), DosBoxProgramOf(s), {opt});
        break;
    }
    case RunnerKind::Java:
        out += VersionLine(QStringLiteral("Java"), JavaProgramOf(s), {QStringLiteral("-version")});
        break;
    }
    return out;
}

} // namespace tv
