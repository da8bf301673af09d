#include "launch/ArcLibrary.h"

#include "launch/ArcEngine.h"
#include "launch/ArcProgress.h"

#include <QFileInfo>

namespace tv {

namespace {

ArcLibrary& current()
{
    static ArcLibrary lib = BuiltInArcLibrary();
    return lib;
}

bool IsSeparator(QChar c)
{
    return c == u'\\' || c == u'/';
}

// "DIR\" names a directory: the one separator at its end goes.
bool TakeDirArg(const QString& arg, QString& dir)
{
    if (arg.size() < 2 || !IsSeparator(arg.back()))
        return false;
    dir = arg.left(arg.size() - 1);
    return true;
}

// "DIR\PATTERN": the directory and the pattern behind the last separator.
bool SplitPathPattern(const QString& pathPattern, QString& dir, QString& pattern)
{
    qsizetype p = pathPattern.size() - 1;
    while (p >= 0 && !IsSeparator(pathPattern[p]))
        --p;
    if (p <= 0)
        return false;
    dir = pathPattern.left(p);
    pattern = pathPattern.mid(p + 1);
    return !pattern.isEmpty();
}

struct Parsed {
    QStringList switches; // in lower case
    QStringList args;
};

Parsed Parse(const QString& cmdLine)
{
    Parsed p;
    for (const QString& t : SplitArcCommandLine(cmdLine)) {
        if (t.size() > 1 && t.startsWith(u'-'))
            p.switches << t.toLower();
        else
            p.args << t;
    }
    return p;
}

std::unique_ptr<ArcProgress> ProgressFor(QObject* hWnd, bool wanted, const QString& title)
{
    return wanted ? MakeArcProgress(hWnd, title) : nullptr;
}

// Unpack: ARCHIVE DEST\ [MASK...]
int32_t Melt(ArcFormat format, ArcMaskMatch match, const QStringList& args, bool overwrite,
             std::unique_ptr<ArcProgress> progress)
{
    if (args.size() < 2)
        return ArcErrCommand;
    ArcExtractOptions o;
    QString dest;
    if (!TakeDirArg(args[1], dest))
        return ArcErrCommand;
    o.masks = args.mid(2);
    if (o.masks == QStringList{QStringLiteral("*.*")})
        o.masks.clear();
    o.match = match;
    o.overwrite = overwrite;
    return ExtractArchiveFlat(format, args[0], dest, o, progress.get());
}

} // namespace

QStringList SplitArcCommandLine(const QString& cmdLine)
{
    QStringList out;
    QString cur;
    bool quoted = false, any = false;
    for (qsizetype i = 0; i < cmdLine.size(); ++i) {
        const QChar c = cmdLine[i];
        if (c == u'"' && quoted && i + 1 < cmdLine.size() && cmdLine[i + 1] == u'"') {
            cur += c; // a doubled quote inside quotes is one quote of the name
            ++i;
        } else if (c == u'"') {
            quoted = !quoted;
            any = true;
        } else if (c == u' ' && !quoted) {
            if (any)
                out << cur;
            cur.clear();
            any = false;
        } else {
            cur += c;
            any = true;
        }
    }
    if (any)
        out << cur;
    return out;
}

ArcLibrary BuiltInArcLibrary()
{
    return ArcLibrary{UnlhaCommand, UnZipCommand, ZipCommand, CabCommand};
}

ArcLibrary& CurrentArcLibrary()
{
    return current();
}

ArcLibrary SetArcLibrary(ArcLibrary lib)
{
    ArcLibrary old = std::move(current());
    current() = std::move(lib);
    return old;
}

// "a ARCHIVE SRC\*.*" packs, "e ARCHIVE DEST\ [MASK]" unpacks without paths; "-n" shows no
// progress, "-y" overwrites without asking (else existing files are kept).
int32_t UnlhaCommand(QObject* hWnd, const QString& cmdLine, QString&, int32_t)
{
    Parsed p = Parse(cmdLine);
    if (p.args.isEmpty())
        return ArcErrCommand;
    const QString verb = p.args.takeFirst().toLower();
    const bool quiet = p.switches.contains(QStringLiteral("-n"));
    if (verb == QLatin1String("a")) {
        QString dir, pattern;
        if (p.args.size() != 2 || !SplitPathPattern(p.args[1], dir, pattern))
            return ArcErrCommand;
        auto progress = ProgressFor(hWnd, !quiet, QStringLiteral("LZH圧縮"));
        return PackDirectory(ArcFormat::Lzh, p.args[0], dir, pattern, progress.get());
    }
    if (verb == QLatin1String("e"))
        return Melt(ArcFormat::Lzh, ArcMaskMatch::BareName, p.args,
                    p.switches.contains(QStringLiteral("-y")),
                    ProgressFor(hWnd, !quiet, QStringLiteral("LZH解凍")));
    return ArcErrCommand;
}

// "-x [-o] [--i] ARCHIVE DEST\ [MASK]": unpack without paths; "-o" overwrites, "--i" shows
// no progress.
int32_t UnZipCommand(QObject* hWnd, const QString& cmdLine, QString&, int32_t)
{
    const Parsed p = Parse(cmdLine);
    if (!p.switches.contains(QStringLiteral("-x")))
        return ArcErrCommand;
    return Melt(
        ArcFormat::Zip, ArcMaskMatch::WholePath, p.args, p.switches.contains(QStringLiteral("-o")),
        ProgressFor(hWnd, !p.switches.contains(QStringLiteral("--i")), QStringLiteral("ZIP解凍")));
}

// "-j [-q] ARCHIVE SRC\*.*": the matching files without paths into a new archive.
int32_t ZipCommand(QObject* hWnd, const QString& cmdLine, QString&, int32_t)
{
    const Parsed p = Parse(cmdLine);
    if (p.args.size() < 2)
        return ArcErrCommand;
    const QString archivePath = p.args[0];
    QString dir, pattern;
    // One directory and pattern; anything else names files that aren't there.
    if (p.args.size() != 2 || !SplitPathPattern(p.args[1], dir, pattern) || !QFileInfo(dir).isDir())
        return ArcErrNoFiles;
    auto progress =
        ProgressFor(hWnd, !p.switches.contains(QStringLiteral("-q")), QStringLiteral("ZIP圧縮"));
    return PackDirectory(ArcFormat::Zip, archivePath, dir, pattern, progress.get());
}

// "-a [-i] ARCHIVE SRC\ PATTERN" packs, "-x [-o] [-i] ARCHIVE DEST\ MASK" unpacks without
// paths; "-o" overwrites, "-i" shows no progress.
int32_t CabCommand(QObject* hWnd, const QString& cmdLine, QString&, int32_t)
{
    const Parsed p = Parse(cmdLine);
    const bool quiet = p.switches.contains(QStringLiteral("-i"));
    if (p.switches.contains(QStringLiteral("-a"))) {
        QString dir;
        if (p.args.size() != 3 || !TakeDirArg(p.args[1], dir))
            return ArcErrCommand;
        auto progress = ProgressFor(hWnd, !quiet, QStringLiteral("CAB圧縮"));
        return PackDirectory(ArcFormat::Cab, p.args[0], dir, p.args[2], progress.get());
    }
    if (p.switches.contains(QStringLiteral("-x")))
        return Melt(ArcFormat::Cab, ArcMaskMatch::WholePath, p.args,
                    p.switches.contains(QStringLiteral("-o")),
                    ProgressFor(hWnd, !quiet, QStringLiteral("CAB解凍")));
    return ArcErrCommand;
}

} // namespace tv
