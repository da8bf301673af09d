#include "launch/IniFile.h"
#include "platform/FileOps.h"
#include "util/Sjis.h"

#include <QFile>
#include <vector>

namespace tv {

namespace {

// One line of the file as it stands: its bytes without and with the line end.
struct IniLine {
    QByteArray body;
    QByteArray end; // "\r\n", "\n", "\r" or "" for a last line without end
};

std::vector<IniLine> SplitLines(const QByteArray& bytes)
{
    std::vector<IniLine> lines;
    qsizetype i = 0, n = bytes.size();
    while (i < n) {
        qsizetype j = i;
        while (j < n && bytes[j] != '\r' && bytes[j] != '\n')
            ++j;
        IniLine l{bytes.mid(i, j - i), {}};
        if (j < n) {
            if (bytes[j] == '\r' && j + 1 < n && bytes[j + 1] == '\n')
                l.end = "\r\n";
            else
                l.end = QByteArray(1, bytes[j]);
        }
        i = j + l.end.size();
        lines.push_back(l);
    }
    return lines;
}

QString Blanks(const QString& s)
{
    // Profile names and values lose blanks and tabs at both ends.
    qsizetype a = 0, b = s.size();
    while (a < b && (s[a] == QLatin1Char(' ') || s[a] == QLatin1Char('\t')))
        ++a;
    while (b > a && (s[b - 1] == QLatin1Char(' ') || s[b - 1] == QLatin1Char('\t')))
        --b;
    return s.mid(a, b - a);
}

// The name of a section header line, or a null text when the line isn't one.
QString SectionName(const QString& line)
{
    QString t = Blanks(line);
    if (!t.startsWith(QLatin1Char('[')))
        return QString();
    qsizetype close = t.indexOf(QLatin1Char(']'));
    QString name = close < 0 ? t.mid(1) : t.mid(1, close - 1);
    return Blanks(name).isNull() ? QStringLiteral("") : Blanks(name);
}

// Splits a key line; false for comments and lines without "=".
bool KeyLine(const QString& line, QString& key, QString& value)
{
    QString t = Blanks(line);
    if (t.startsWith(QLatin1Char(';')))
        return false;
    qsizetype eq = t.indexOf(QLatin1Char('='));
    if (eq < 0)
        return false;
    key = Blanks(t.left(eq));
    value = Blanks(t.mid(eq + 1));
    return true;
}

bool SameName(const QString& a, const QString& b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

// Cuts Shift-JIS text to at most `limit` bytes without splitting a double-byte character.
QByteArray CutSjis(const QByteArray& bytes, int limit)
{
    if (bytes.size() <= limit)
        return bytes;
    int i = 0;
    while (i < limit) {
        auto c = static_cast<uint8_t>(bytes[i]);
        bool lead = (c >= 0x81 && c <= 0x9F) || (c >= 0xE0 && c <= 0xFC);
        int w = lead ? 2 : 1;
        if (i + w > limit)
            break;
        i += w;
    }
    return bytes.left(i);
}

bool ReadAll(const QString& file, QByteArray& bytes, bool& exists)
{
    QFile f(file);
    exists = f.exists();
    if (!exists)
        return true;
    if (!f.open(QIODevice::ReadOnly))
        return false;
    bytes = f.readAll();
    return true;
}

} // namespace

bool SetIniValue(const QString& Section, const QString& Key, const QString& Value,
                 const QString& File)
{
    QByteArray bytes;
    bool exists = false;
    if (!ReadAll(File, bytes, exists))
        return false;
    std::vector<IniLine> lines = SplitLines(bytes);
    const QByteArray crlf("\r\n");
    const QString section = Blanks(Section), key = Blanks(Key);

    // Find the first section of that name, the key in it, and the last line that belongs to
    // it and isn't blank (a new key goes behind that line, before any blank separator).
    qsizetype secLine = -1, keyLine = -1, lastContent = -1;
    for (qsizetype i = 0; i < qsizetype(lines.size()); ++i) {
        QString text = FromSjis(lines[i].body);
        QString name = SectionName(text);
        if (!name.isNull()) {
            if (secLine >= 0)
                break;
            if (SameName(name, section)) {
                secLine = lastContent = i;
            }
            continue;
        }
        if (secLine < 0)
            continue;
        if (!Blanks(text).isEmpty())
            lastContent = i;
        QString k, v;
        if (KeyLine(text, k, v) && SameName(k, key)) {
            keyLine = i;
            break;
        }
    }

    if (keyLine >= 0) {
        // The key keeps the spelling it has in the file; only its value changes.
        QString k, v;
        KeyLine(FromSjis(lines[keyLine].body), k, v);
        lines[keyLine].body = ToSjis(k + QLatin1Char('=') + Value);
        if (lines[keyLine].end.isEmpty())
            lines[keyLine].end = crlf;
    } else if (secLine >= 0) {
        if (lines[lastContent].end.isEmpty())
            lines[lastContent].end = crlf;
        lines.insert(lines.begin() + lastContent + 1,
                     IniLine{ToSjis(key + QLatin1Char('=') + Value), crlf});
    } else {
        if (!lines.empty() && lines.back().end.isEmpty())
            lines.back().end = crlf;
        lines.push_back({ToSjis(QLatin1Char('[') + section + QLatin1Char(']')), crlf});
        lines.push_back({ToSjis(key + QLatin1Char('=') + Value), crlf});
    }

    QByteArray out;
    for (const IniLine& l : lines)
        out += l.body + l.end;
    return PlatformWriteFile(File, out);
}

int GetIniValue(const QString& Section, const QString& Key, const QString& Default, QString& Value,
                const QString& File)
{
    QByteArray bytes;
    bool exists = false;
    QString found;
    bool have = false;
    if (ReadAll(File, bytes, exists) && exists) {
        const QString section = Blanks(Section), key = Blanks(Key);
        bool inSection = false;
        for (const IniLine& l : SplitLines(bytes)) {
            QString text = FromSjis(l.body);
            QString name = SectionName(text);
            if (!name.isNull()) {
                if (inSection)
                    break;
                inSection = SameName(name, section);
                continue;
            }
            QString k, v;
            if (inSection && KeyLine(text, k, v) && SameName(k, key)) {
                if (v.size() >= 2 &&
                    (v.front() == QLatin1Char('"') || v.front() == QLatin1Char('\'')) &&
                    v.back() == v.front())
                    v = v.mid(1, v.size() - 2);
                found = v;
                have = true;
                break;
            }
        }
    }
    if (!have) {
        // The default loses its trailing blanks, as the profile function does.
        found = Default;
        while (found.endsWith(QLatin1Char(' ')))
            found.chop(1);
    }
    QByteArray cut = CutSjis(ToSjis(found), kIniValueBuffer - 1);
    Value = FromSjis(cut);
    return int(cut.size());
}

} // namespace tv
