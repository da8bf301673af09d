#include "util/SubFunction.h"

#include "platform/FileOps.h"
#include "platform/MsgBox.h"
#include "platform/Platform.h"
#include "util/Globals.h"
#include "util/Help.h"
#include "util/Sjis.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>

namespace tv {

namespace {

const QString kCrLf = QStringLiteral("\r\n");

qsizetype LastSep(const QString& s)
{
    return std::max(s.lastIndexOf(QLatin1Char('\\')), s.lastIndexOf(QLatin1Char('/')));
}

// "*" any run of characters, "?" one character, everything else literal, case-insensitive as
// the names of the catalogues' home platform are. "*.*" matches names without a point too.
QRegularExpression WildcardRegex(const QString& pattern)
{
    const QString p = pattern == QLatin1String("*.*") ? QStringLiteral("*") : pattern;
    QString rx;
    for (const QChar c : p) {
        if (c == QLatin1Char('*'))
            rx += QLatin1String(".*");
        else if (c == QLatin1Char('?'))
            rx += QLatin1Char('.');
        else
            rx += QRegularExpression::escape(QString(c));
    }
    return QRegularExpression(QRegularExpression::anchoredPattern(rx),
                              QRegularExpression::CaseInsensitiveOption |
                                  QRegularExpression::DotMatchesEverythingOption);
}

// Entries of `dir` (hidden ones too, never "." and "..") whose names match `pattern`,
// sorted by name; directories only when `withDirs`.
QFileInfoList MatchEntries(const QString& dir, const QString& pattern, bool withDirs)
{
    QDir d(dir);
    QDir::Filters f = QDir::Files | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    if (withDirs)
        f |= QDir::Dirs;
    const QRegularExpression rx = WildcardRegex(pattern);
    QFileInfoList out;
    for (const QFileInfo& fi : d.entryInfoList(f, QDir::Name | QDir::IgnoreCase)) {
        if (rx.match(fi.fileName()).hasMatch())
            out << fi;
    }
    return out;
}

// Code point at `i`: its length in UTF-16 units and in Shift-JIS bytes.
int CodePointUnits(const QString& s, qsizetype i)
{
    return (s.at(i).isHighSurrogate() && i + 1 < s.size() && s.at(i + 1).isLowSurrogate()) ? 2 : 1;
}
int CodePointBytes(const QString& s, qsizetype i, int units)
{
    const char16_t u = s.at(i).unicode();
    if (u < 0x80 || (u >= 0xFF61 && u <= 0xFF9F))
        return 1; // ASCII and half-width katakana: one byte, no converter needed
    if (units == 1 && QChar::isSurrogate(u))
        return 2; // unpaired: the converter puts its two-byte substitute in its place
    return static_cast<int>(SjisLen(s.mid(i, units)));
}

// The cut of the fixed fields: take `limit` + 1 bytes of the Shift-JIS text, convert back and
// drop the last character. A double-byte character split at the boundary comes back as one
// replacement character, which is what is dropped then. Done on code points, so characters
// kept are never changed by the round trip and a surrogate pair is never split.
QString CutBytes(const QString& s, qint64 limit)
{
    const qint64 take = limit + 1;
    qint64 bytes = 0;
    qsizetype i = 0;
    qsizetype lastStart = 0;
    bool partial = false;
    while (i < s.size()) {
        const int units = CodePointUnits(s, i);
        const int len = CodePointBytes(s, i, units);
        if (bytes + len > take) {
            partial = bytes < take;
            break;
        }
        bytes += len;
        // A character the converter drops (no bytes) can't be the last one of the converted
        // text: the one dropped is the last that has bytes.
        if (len > 0)
            lastStart = i;
        i += units;
    }
    if (partial)
        return s.left(i);
    return s.left(lastStart);
}

bool IsInside(const QString& path, const QString& dir)
{
    const QString p = QFileInfo(path).absoluteFilePath();
    QString d = QFileInfo(dir).canonicalFilePath();
    if (d.isEmpty())
        d = QFileInfo(dir).absoluteFilePath();
    QString pc = QDir::cleanPath(p);
    // The part of `path` that exists decides (the rest is being made).
    QFileInfo probe(pc);
    QString tail;
    while (!probe.exists() && probe.fileName() != pc && !pc.isEmpty()) {
        tail = QLatin1Char('/') + probe.fileName() + tail;
        pc = probe.absolutePath();
        probe = QFileInfo(pc);
    }
    const QString canon = probe.canonicalFilePath().isEmpty() ? pc : probe.canonicalFilePath();
    const QString full = canon + tail;
    return full == d || full.startsWith(d + QLatin1Char('/'));
}

// A tree is removed depth first, going on past what can't be removed, as the shell does; a
// link is removed itself, never what it points to.
bool RemoveEntry(const QFileInfo& fi)
{
    if (fi.isDir() && !fi.isSymLink()) {
        bool ok = true;
        const QFileInfoList children = QDir(fi.absoluteFilePath())
                                           .entryInfoList(QDir::AllEntries | QDir::Hidden |
                                                          QDir::System | QDir::NoDotAndDotDot);
        for (const QFileInfo& c : children)
            ok = RemoveEntry(c) && ok;
        return PlatformRemoveDir(fi.absoluteFilePath()) && ok;
    }
    return PlatformRemoveFile(fi.absoluteFilePath());
}

bool CopyEntry(const QString& src, const QString& dst, QSet<QString>& chain)
{
    const QFileInfo s(src);
    const QFileInfo d(dst);
    if (s.isDir()) {
        const QString canon = s.canonicalFilePath();
        // A tree that reaches itself through a link, or a copy into its own subtree, would
        // never end.
        if (chain.contains(canon) || IsInside(dst, src))
            return false;
        if (d.exists() && !d.isDir())
            return false;
        if (!PlatformMakePath(dst))
            return false;
        chain.insert(canon);
        bool ok = true;
        const QFileInfoList children = QDir(src).entryInfoList(QDir::AllEntries | QDir::Hidden |
                                                               QDir::System | QDir::NoDotAndDotDot);
        for (const QFileInfo& c : children)
            ok =
                CopyEntry(c.absoluteFilePath(), dst + QLatin1Char('/') + c.fileName(), chain) && ok;
        chain.remove(canon);
        return ok;
    }
    if (!s.isFile() || d.isDir())
        return false;
    if (!PlatformMakePath(d.absolutePath()))
        return false;
    return PlatformCopyFile(src, dst);
}

bool MoveEntry(const QString& src, const QString& dst)
{
    const QFileInfo s(src);
    const QFileInfo d(dst);
    if (!s.exists() && !s.isSymLink())
        return false;
    if (s.isDir() && !s.isSymLink()) {
        if (IsInside(dst, src))
            return false;
        if (d.exists()) {
            if (!d.isDir())
                return false;
            // Into an existing directory of the same name: the trees are merged.
            bool ok = true;
            const QFileInfoList children = QDir(src).entryInfoList(
                QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
            for (const QFileInfo& c : children)
                ok = MoveEntry(c.absoluteFilePath(), dst + QLatin1Char('/') + c.fileName()) && ok;
            return ok && PlatformRemoveDir(src);
        }
    } else if (d.isDir() && !d.isSymLink()) {
        return false;
    }
    if (!PlatformMakePath(d.absolutePath()))
        return false;
    switch (PlatformRename(src, dst)) {
    case RenameResult::Ok:
        return true;
    case RenameResult::CrossDevice: {
        QSet<QString> chain;
        return CopyEntry(src, dst, chain) && RemoveEntry(s);
    }
    case RenameResult::Failed:
        break;
    }
    return false;
}

// The directory part of a path ("." without one, "/" for the root).
QString DirPart(const QString& path)
{
    const qsizetype sep = path.lastIndexOf(QLatin1Char('/'));
    return sep < 0 ? QStringLiteral(".") : (sep == 0 ? QStringLiteral("/") : path.left(sep));
}

// The sources an operation acts on: the matches of a pattern in the last component (only
// where the program made the pattern), or the path itself.
QFileInfoList ExpandSource(const QString& src, bool pattern)
{
    if (pattern)
        return MatchEntries(DirPart(src), src.mid(src.lastIndexOf(QLatin1Char('/')) + 1), true);
    return {QFileInfo(TrimTrailingSeparators(src))};
}

bool Confirm(int operation, const QString& src, const QString& dst)
{
    QString text;
    QString caption;
    switch (operation) {
    case 1:
        text = QStringLiteral("「%1」を「%2」へ移動してもよろしいですか？").arg(src, dst);
        caption = QStringLiteral("ファイルの移動");
        break;
    case 2:
        text = QStringLiteral("「%1」を「%2」へコピーしてもよろしいですか？").arg(src, dst);
        caption = QStringLiteral("ファイルのコピー");
        break;
    default:
        text = QStringLiteral("「%1」を削除してもよろしいですか？").arg(src);
        caption = QStringLiteral("ファイルの削除");
        break;
    }
    return MsgBox(text, MbYesNo | MbQuestion | MbDefaultButton2, caption) == MbResYes;
}

bool PerformFileOp(const QString& src, const QString& dst, int operation, bool pattern)
{
    const QFileInfoList sources = ExpandSource(src, pattern);
    if (sources.isEmpty())
        return false;
    bool ok = true;
    if (operation == 3) {
        for (const QFileInfo& fi : sources)
            ok = RemoveEntry(fi) && ok;
        return ok;
    }
    const QString target = TrimTrailingSeparators(dst);
    const QFileInfo t(target);
    bool intoDir = pattern;
    if (pattern) {
        // The matches of a pattern go into the target as a directory, made when missing.
        if (t.exists() && !t.isDir())
            return false;
        if (!PlatformMakePath(target))
            return false;
    } else {
        const QFileInfo& s = sources.first();
        intoDir = t.isDir() && t.canonicalFilePath() != s.canonicalFilePath();
    }
    for (const QFileInfo& fi : sources) {
        const QString to = intoDir ? target + QLatin1Char('/') + fi.fileName() : target;
        if (operation == 2) {
            QSet<QString> chain;
            ok = CopyEntry(fi.absoluteFilePath(), to, chain) && ok;
        } else {
            ok = MoveEntry(fi.absoluteFilePath(), to) && ok;
        }
    }
    return ok;
}

bool Exists(const QString& path)
{
    return FileExists(path) || DirExists(path);
}

bool AnyMatch(const NamePattern& pattern)
{
    return !FindFile(pattern, kAttrDirectory).isEmpty();
}

// The guarded operation on a literal path or on the matches of a pattern the program made.
bool GuardedFileOp(const QString& source, bool pattern, const QString& target, int operation,
                   uint8_t confirm)
{
    try {
        const QString src = VbTrim(source);
        // A pattern passes the guard's existence test when something matches it.
        const bool guarded =
            pattern ? IsSafeDir(src, 0, 1) &&
                          AnyMatch({DirPart(src), src.mid(src.lastIndexOf(QLatin1Char('/')) + 1)})
                    : IsSafeDir(source, 1, 1);
        if (!guarded)
            return false;
        if (src.size() < 7)
            return false;
        QString dst;
        if (operation != 3) {
            if (!IsSafeDir(target, 0, 1))
                return false;
            // The source is measured again, not the target: kept as it always was.
            if (src.size() < 7)
                return false;
            dst = VbTrim(target);
        }
        if (operation < 1 || operation > 3)
            return false;
        if (confirm == 1 && !Confirm(operation, src, dst))
            return false;
        return PerformFileOp(src, dst, operation, pattern);
    } catch (...) {
        return false;
    }
}

bool IsValid83Name(const QString& name)
{
    if (name == QLatin1String(".") || name == QLatin1String(".."))
        return true;
    if (name.isEmpty() || FromSjis(ToSjis(name)) != name)
        return false;
    const qsizetype dot = name.indexOf(QLatin1Char('.'));
    if (dot != name.lastIndexOf(QLatin1Char('.')))
        return false;
    const QString base = dot < 0 ? name : name.left(dot);
    const QString ext = dot < 0 ? QString() : name.mid(dot + 1);
    const qsizetype baseLen = SjisLen(base);
    const qsizetype extLen = SjisLen(ext);
    if (baseLen < 1 || baseLen > 8 || extLen > 3 || (dot >= 0 && extLen < 1))
        return false;
    static const QString kSigns = QStringLiteral("!#$%&'()-@^_`{}~");
    for (const QChar c : name) {
        if (c == QLatin1Char('.') || c.unicode() >= 0x80)
            continue;
        if (!(c.isLetterOrNumber() || kSigns.contains(c)))
            return false;
    }
    return true;
}

} // namespace

QString VbTrim(const QString& text)
{
    qsizetype b = 0;
    qsizetype e = text.size();
    while (b < e && text.at(b) == QLatin1Char(' '))
        ++b;
    while (e > b && text.at(e - 1) == QLatin1Char(' '))
        --e;
    return text.mid(b, e - b);
}

QString SplitFileName(QString& path)
{
    path = VbTrim(path);
    const qsizetype pos = LastSep(path);
    if (pos < 0)
        return path;
    const QString name = path.mid(pos + 1);
    path = path.left(pos);
    return name;
}

QString SplitFileExt(QString& path)
{
    path = VbTrim(path);
    const qsizetype pos = path.lastIndexOf(QLatin1Char('.'));
    if (pos < 0)
        return {};
    const QString ext = path.mid(pos + 1);
    path = path.left(pos);
    return ext;
}

QString GetFileExt(const QString& path)
{
    const QString t = VbTrim(path);
    const qsizetype pos = t.lastIndexOf(QLatin1Char('.'));
    if (pos < 0)
        return {};
    return t.mid(pos + 1).toUpper();
}

QString GetFileBase(const QString& path)
{
    const QString t = VbTrim(path);
    const qsizetype sep = LastSep(t);
    const qsizetype dot = t.lastIndexOf(QLatin1Char('.'));
    if (dot < 0 || dot < sep)
        return {};
    return t.mid(sep + 1, dot - sep - 1);
}

QString GetFileDir(const QString& path)
{
    const QString t = VbTrim(path);
    const qsizetype sep = LastSep(t);
    if (sep < 0)
        return {};
    return t.left(sep);
}

QString GetShortPath(const QString& path)
{
    const QString t = VbTrim(path);
    if (t.isEmpty() || t.contains(QChar(0)))
        return {};
    // The platform call writes into 256 bytes, its terminator included.
    if (QFile::encodeName(t).size() > 255)
        return {};
    const QFileInfo fi(t);
    if (!fi.exists())
        return {};
    const QString stripped = TrimTrailingSeparators(t);
    const QString name = stripped.mid(stripped.lastIndexOf(QLatin1Char('/')) + 1);
    if (name.isEmpty())
        return t; // the root
    return IsValid83Name(name) ? t : QString();
}

QString CutAtNull(const QString& text)
{
    const qsizetype pos = text.indexOf(QChar(0));
    return pos < 0 ? text : text.left(pos);
}

namespace {
QString TrimDirResult(const QString& value)
{
    QString s = CutAtNull(value);
    while (!s.isEmpty() && (s.endsWith(QLatin1Char('\\')) || s.endsWith(QLatin1Char('/'))))
        s.chop(1);
    return s;
}
} // namespace

QString GetSystemDir()
{
    return TrimDirResult(PlatformSystemDir());
}

QString GetWindowsDir()
{
    return TrimDirResult(PlatformWindowsDir());
}

QString FindFile(const QString& path, int attribute)
{
    try {
        if (path.isEmpty() || path.contains(QChar(0)))
            return {};
        const bool withDirs = (attribute & kAttrDirectory) != 0;
        const QString dir = DirPart(path);
        const QString name = path.mid(path.lastIndexOf(QLatin1Char('/')) + 1);
        if (name.isEmpty()) {
            // "dir/" looks into the directory: its own entry "." with the directory
            // attribute, else its first plain file.
            if (!QFileInfo(dir).isDir())
                return {};
            if (withDirs)
                return QStringLiteral(".");
            const QFileInfoList files = MatchEntries(dir, QStringLiteral("*"), false);
            return files.isEmpty() ? QString() : files.first().fileName();
        }
        const QFileInfo fi(path);
        if (!fi.exists())
            return {};
        if (fi.isDir())
            return withDirs ? name : QString();
        return name;
    } catch (...) {
        return {};
    }
}

QString FindFile(const NamePattern& pattern, int attribute)
{
    try {
        if (pattern.glob.isEmpty() || pattern.path().contains(QChar(0)) ||
            !QFileInfo(pattern.dir).isDir())
            return {};
        const QFileInfoList found =
            MatchEntries(pattern.dir, pattern.glob, (attribute & kAttrDirectory) != 0);
        return found.isEmpty() ? QString() : found.first().fileName();
    } catch (...) {
        return {};
    }
}

bool FileExists(const QString& path)
{
    return !FindFile(path).isEmpty();
}

bool DirExists(const QString& path)
{
    return !FindFile(path, kAttrDirectory).isEmpty();
}

QString FindFileNoCase(const QString& dir, const QString& name)
{
    if (name.isEmpty() || dir.isEmpty())
        return {};
    const QString exact = dir + u'/' + name;
    if (QFileInfo(exact).isFile())
        return exact;
    const QStringList all = QDir(dir).entryList(QDir::Files | QDir::Hidden | QDir::System);
    for (const QString& f : all)
        if (f.compare(name, Qt::CaseInsensitive) == 0)
            return dir + u'/' + f;
    return {};
}

QString ResolveFileNoCase(const QString& dir, const QString& name)
{
    const QString found = FindFileNoCase(dir, name);
    return found.isEmpty() ? dir + u'/' + name : found;
}

void DeleteFileAnyCase(const QString& dir, const QString& name)
{
    if (name.isEmpty() || dir.isEmpty())
        return;
    const QStringList all = QDir(dir).entryList(QDir::Files | QDir::Hidden | QDir::System);
    for (const QString& f : all)
        if (f.compare(name, Qt::CaseInsensitive) == 0)
            ShellDelete(dir + u'/' + f, 0);
}

bool IsSafeDir(const QString& path, uint8_t kind, uint8_t network)
{
    const QString t = VbTrim(path);
    const QString up = t.toUpper();
    // An empty directory value is found in every text, as a substring search finds it: with
    // the directories not yet known every path is refused.
    bool refused = t.isEmpty();
    for (const QString* dir : {&EnvTmpDir, &SystemDir, &WindowsDir, &EnvTempDir}) {
        if (up.contains(dir->toUpper()))
            refused = true;
    }
    if (refused && !(!PeekDir.isEmpty() && t.compare(PeekDir, Qt::CaseInsensitive) == 0))
        return false;
    // "\\server" is a network path; a leading "//" is the POSIX form with that meaning.
    if ((t.startsWith(QLatin1String("\\\\")) || t.startsWith(QLatin1String("//"))) && network != 1)
        return false;
    if (kind == 1 || kind == 2) {
        if (!FindFile(t).isEmpty())
            return true;
        if (kind == 2)
            return false;
    }
    if (kind == 1 || kind == 3) {
        if (FindFile(t, kAttrDirectory).isEmpty())
            return false;
    }
    return true;
}

bool ShellFileOp(const QString& source, const QString& target, int operation, uint8_t confirm)
{
    return GuardedFileOp(source, false, target, operation, confirm);
}

bool ShellDelete(const QString& path, uint8_t confirm)
{
    if (!ShellFileOp(path, QString(), 3, confirm))
        return false;
    return !Exists(VbTrim(path));
}

bool ShellMove(const QString& source, const QString& target, uint8_t confirm)
{
    if (!ShellFileOp(source, target, 1, confirm))
        return false;
    return !Exists(VbTrim(source)) && Exists(VbTrim(target));
}

bool ShellCopy(const QString& source, const QString& target, uint8_t confirm)
{
    if (!ShellFileOp(source, target, 2, confirm))
        return false;
    return Exists(VbTrim(source)) && Exists(VbTrim(target));
}

bool ShellFileOp(const NamePattern& source, const QString& target, int operation, uint8_t confirm)
{
    return GuardedFileOp(source.path(), true, target, operation, confirm);
}

bool ShellDelete(const NamePattern& pattern, uint8_t confirm)
{
    return ShellFileOp(pattern, QString(), 3, confirm) && !AnyMatch(pattern);
}

bool ShellMove(const NamePattern& source, const QString& target, uint8_t confirm)
{
    return ShellFileOp(source, target, 1, confirm) && !AnyMatch(source) && Exists(VbTrim(target));
}

bool ShellCopy(const NamePattern& source, const QString& target, uint8_t confirm)
{
    return ShellFileOp(source, target, 2, confirm) && AnyMatch(source) && Exists(VbTrim(target));
}

QString FitText(const QString& text, int lineWidth, int lineCount, int byteLimit)
{
    if (text.isEmpty())
        return text;
    const qint64 width = std::max(lineWidth, 0);
    const QStringList in = text.split(kCrLf);
    QStringList out;
    qint64 outBytes = 0; // Shift-JIS bytes of out joined with CR LF
    auto add = [&](const QString& line) {
        outBytes += SjisLen(line) + (out.isEmpty() ? 0 : 2);
        out << line;
    };
    QString cur = in.first();
    qsizetype next = 1;
    for (qint64 n = 1;; ++n) {
        // Past the line count the text is cut before the break that ends the last allowed
        // line: that break and all behind it go.
        if (n > lineCount)
            break;
        if (SjisLen(cur) <= width) {
            add(cur);
            if (next >= in.size())
                break;
            cur = in.at(next++);
        } else {
            const QString part = CutBytes(cur, width);
            if (part.isEmpty()) {
                // Too narrow for the next character: every further line is empty, up to the
                // line count (and no further than the byte cut below can reach).
                for (qint64 k = n; k <= lineCount && outBytes <= qint64(byteLimit) + 2; ++k)
                    add(QString());
                break;
            }
            add(part);
            cur = cur.mid(part.size());
        }
        // The byte cut below depends only on the first byteLimit + 2 bytes.
        if (outBytes > qint64(byteLimit) + 2)
            break;
    }
    QString result = out.join(kCrLf);
    if (SjisLen(result) > byteLimit) {
        result = CutBytes(result, byteLimit);
        // Never half a line break.
        if (result.endsWith(QLatin1Char('\r')))
            result.chop(1);
    }
    return result;
}

void InitTables()
{
    HelpFile = AppDir + QStringLiteral("/") + kHelpFileName;
    for (auto& row : ExtTable)
        for (auto& cell : row)
            cell.clear();
    const std::array<QStringList, 6> columns = {
        QStringList{"D88", "T88", "CMT", "N80", "*.LZH;*.ZIP;*.CAB;*.D88;*.T88;*.CMT;*.N80"},
        QStringList{"D77", "VFD", "2D", "T77", "VTP",
                    "*.LZH;*.ZIP;*.CAB;*.D77;*.VFD;*.2D;*.T77;*.VTP"},
        QStringList{"D88", "2D", "TAP", "*.LZH;*.ZIP;*.CAB;*.D88;*.2D;*.TAP"},
        QStringList{"LZH", "ZIP", "CAB", "*.LZH;*.ZIP;*.CAB"},
        QStringList{"PNG", "JPG", "BMP", "*.PNG;*.JPG;*.BMP"},
        QStringList{"TXT", "PDF", "HTML", "HTM", "MHT", "CHM", "DOC", "XLS", "PNG", "JPG", "BMP",
                    "*.TXT;*.PDF;*.HTML;*.HTM;*.MHT;*.CHM;*.DOC;*.XLS;*.PNG;*.JPG;*.BMP"},
    };
    for (size_t col = 0; col < columns.size(); ++col)
        for (qsizetype row = 0; row < columns[col].size(); ++row)
            ExtTable[static_cast<size_t>(row)][col] = columns[col].at(row);
}

namespace {
// Rows 1 to `lastRow` of one column, up to the first empty row.
bool FindInColumn(const QString& ext, size_t column, size_t lastRow)
{
    const QString e = VbTrim(ext).toUpper();
    for (size_t row = 0; row < lastRow && row < ExtTable.size(); ++row) {
        const QString& cell = ExtTable[row][column];
        if (cell.isEmpty())
            return false;
        if (cell == e)
            return true;
    }
    return false;
}
} // namespace

bool IsImageExt(const QString& ext)
{
    // HardWare is 255 only during start-up, before any family is chosen: no extension is an
    // image of "no family".
    if (HardWare > 2)
        return false;
    return FindInColumn(ext, HardWare, 19);
}

bool IsArcExt(const QString& ext)
{
    return FindInColumn(ext, 3, 10);
}

bool IsManualExt(const QString& ext)
{
    return FindInColumn(ext, 5, 19);
}

QString TrimTrailingSeparators(QString path)
{
    while (path.size() > 1 && (path.endsWith(QLatin1Char('/')) || path.endsWith(QLatin1Char('\\'))))
        path.chop(1);
    return path;
}

} // namespace tv
