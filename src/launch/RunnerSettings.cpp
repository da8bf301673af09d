// The runner settings file: UTF-8 text beside the program, one section per emulator that has
// settings of its own, named by the emulator's key in the registry ("[M88]", "[X1r]").
//
//   [M88]
//   kind=wine
//   wineprefix=/home/user/.wine-m88
//   drive=D:=/srv/images
//   env=WINEESYNC=1
//
// A section holds its kind and the fields that differ from the defaults, so a default that
// changes in a later version reaches every emulator the user left alone; an emulator at the
// defaults has no section. Repeated keys ("drive", "env") give one list entry each.
//
// Reading: names of sections and keys are compared without regard to case; a line that is
// neither a section, a "key=value" nor a comment (";" or "#") is skipped, and so is a key
// whose value can't be taken (an unknown kind). Sections and keys this version doesn't know
// are kept: a save carries them over from the file it replaces, so a file shared with a newer
// version loses nothing.
#include "launch/Runner.h"

#include "data/EmuRegistry.h"
#include "util/Globals.h"

#include <QFile>
#include <QSaveFile>
#include <QStringConverter>
#include <QTextStream>

namespace tv {

namespace {

const QString kHeader =
    QStringLiteral("; TORVANE runner settings (UTF-8): one section per emulator");

struct KindName {
    RunnerKind kind;
    const char* name;
};
constexpr KindName kKindNames[] = {{RunnerKind::Auto, "auto"},
                                   {RunnerKind::Direct, "direct"},
                                   {RunnerKind::Wine, "wine"},
                                   {RunnerKind::DosBox, "dosbox"},
                                   {RunnerKind::Java, "java"}};

struct FlavourName {
    DosBoxFlavour flavour;
    const char* name;
};
constexpr FlavourName kFlavourNames[] = {{DosBoxFlavour::Classic, "classic"},
                                         {DosBoxFlavour::Staging, "staging"},
                                         {DosBoxFlavour::X, "x"}};

// The text fields, by key, in the order they are written.
struct TextField {
    const char* key;
    QString RunnerSettings::*field;
};
const TextField kTextFields[] = {
    {"wine", &RunnerSettings::wineProgram},     {"wineprefix", &RunnerSettings::winePrefix},
    {"winedebug", &RunnerSettings::wineDebug},  {"dlloverrides", &RunnerSettings::dllOverrides},
    {"dosbox", &RunnerSettings::dosboxProgram}, {"java", &RunnerSettings::javaProgram},
    {"jvmargs", &RunnerSettings::jvmArguments}, {"args", &RunnerSettings::extraArguments}};

struct ListField {
    const char* key;
    QStringList RunnerSettings::*field;
};
const ListField kListFields[] = {{"drive", &RunnerSettings::driveTable},
                                 {"env", &RunnerSettings::extraEnvironment}};

bool IsKey(const QString& key, const char* name)
{
    return key.compare(QLatin1String(name), Qt::CaseInsensitive) == 0;
}

std::optional<bool> ParseBool(const QString& v)
{
    const QString s = v.toLower();
    if (s == u"1" || s == u"true" || s == u"yes" || s == u"on")
        return true;
    if (s == u"0" || s == u"false" || s == u"no" || s == u"off")
        return false;
    return std::nullopt;
}

// Takes one "key=value" into `s`; false when the key is unknown or its value can't be taken.
bool TakeKey(RunnerSettings& s, const QString& key, const QString& value, bool* known)
{
    *known = true;
    if (IsKey(key, "kind")) {
        for (const KindName& k : kKindNames)
            if (value.compare(QLatin1String(k.name), Qt::CaseInsensitive) == 0) {
                s.kind = k.kind;
                return true;
            }
        return false;
    }
    if (IsKey(key, "dosboxflavour")) {
        for (const FlavourName& f : kFlavourNames)
            if (value.compare(QLatin1String(f.name), Qt::CaseInsensitive) == 0) {
                s.dosboxFlavour = f.flavour;
                return true;
            }
        return false;
    }
    if (IsKey(key, "japanese")) {
        const auto b = ParseBool(value);
        if (b)
            s.japaneseLocale = *b;
        return b.has_value();
    }
    for (const TextField& f : kTextFields)
        if (IsKey(key, f.key)) {
            s.*f.field = value;
            return true;
        }
    for (const ListField& f : kListFields)
        if (IsKey(key, f.key)) {
            if (!value.isEmpty())
                (s.*f.field).append(value);
            return true;
        }
    *known = false;
    return false;
}

const EmuRow* RowOfSection(const QString& name)
{
    for (const EmuRow& r : EmuRows())
        if (IsKey(name, r.key))
            return &r;
    return nullptr;
}

// What a file holds that this version doesn't read: whole sections, and keys of known
// sections, as their lines.
struct Foreign {
    std::map<Emu, QStringList> keys;
    std::vector<std::pair<QString, QStringList>> sections; // header, lines
};

// One walk over the lines of the file, filling `table` and `foreign`.
void ReadLines(const QString& text, RunnerTable& table, Foreign& foreign)
{
    const EmuRow* row = nullptr;
    QStringList* foreignSection = nullptr;
    for (QString line : text.split(u'\n')) {
        if (line.endsWith(u'\r'))
            line.chop(1);
        const QString t = line.trimmed();
        if (t.isEmpty() || t.startsWith(u';') || t.startsWith(u'#'))
            continue;
        if (t.startsWith(u'[')) {
            if (!t.endsWith(u']')) {
                row = nullptr; // a broken header: its keys have no home
                foreignSection = nullptr;
                continue;
            }
            row = RowOfSection(t.mid(1, t.size() - 2).trimmed());
            foreignSection = nullptr;
            if (row) {
                table.try_emplace(row->emu);
            } else {
                foreign.sections.push_back({t, {}});
                foreignSection = &foreign.sections.back().second;
            }
            continue;
        }
        const qsizetype eq = t.indexOf(u'=');
        if (eq <= 0)
            continue; // not a "key=value"
        if (foreignSection) {
            foreignSection->append(t);
            continue;
        }
        if (!row)
            continue; // a key before any section
        bool known = false;
        TakeKey(table[row->emu], t.left(eq).trimmed(), t.mid(eq + 1).trimmed(), &known);
        if (!known)
            foreign.keys[row->emu].append(t);
    }
}

// A value on one line: a line break in it would start a new key.
QString OneLine(const QString& v)
{
    QString s = v;
    s.replace(u'\r', u' ').replace(u'\n', u' ');
    return s.trimmed();
}

void WriteSection(QTextStream& out, const EmuRow& row, const RunnerSettings& s,
                  const QStringList& foreignKeys)
{
    const RunnerSettings d;
    out << "\n[" << row.key << "]\n";
    for (const KindName& k : kKindNames)
        if (k.kind == s.kind)
            out << "kind=" << k.name << "\n";
    for (const TextField& f : kTextFields) {
        if (s.*f.field != d.*f.field)
            out << f.key << "=" << OneLine(s.*f.field) << "\n";
        if (f.field == &RunnerSettings::winePrefix && s.japaneseLocale != d.japaneseLocale)
            out << "japanese=" << (s.japaneseLocale ? "1" : "0") << "\n";
        if (f.field == &RunnerSettings::dosboxProgram && s.dosboxFlavour != d.dosboxFlavour)
            for (const FlavourName& fl : kFlavourNames)
                if (fl.flavour == s.dosboxFlavour)
                    out << "dosboxflavour=" << fl.name << "\n";
    }
    for (const ListField& f : kListFields)
        for (const QString& v : s.*f.field)
            if (!OneLine(v).isEmpty())
                out << f.key << "=" << OneLine(v) << "\n";
    for (const QString& line : foreignKeys)
        out << line << "\n";
}

// The file's text; a missing or unreadable file reads as empty.
QString ReadText(const QString& path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return {};
    QString text = QString::fromUtf8(f.readAll());
    if (text.startsWith(QChar(0xFEFF)))
        text.remove(0, 1);
    return text;
}

} // namespace

QString RunnerSettingsPath()
{
    return AppDir + QStringLiteral("/TORVANE_RUNNER.INI");
}

RunnerTable LoadRunnerSettings(const QString& path)
{
    RunnerTable table;
    Foreign foreign;
    ReadLines(ReadText(path), table, foreign);
    return table;
}

bool SaveRunnerSettings(const QString& path, const RunnerTable& table)
{
    // What the file holds that this version doesn't read goes over into the new one.
    RunnerTable old;
    Foreign foreign;
    ReadLines(ReadText(path), old, foreign);

    QString text;
    QTextStream out(&text);
    out << kHeader << "\n";
    const RunnerSettings defaults;
    for (const EmuRow& row : EmuRows()) {
        const auto it = table.find(row.emu);
        const RunnerSettings s = it == table.end() ? defaults : it->second;
        const QStringList keys = foreign.keys[row.emu];
        if (s == defaults && keys.isEmpty())
            continue;
        WriteSection(out, row, s, keys);
    }
    for (const auto& [header, lines] : foreign.sections) {
        out << "\n" << header << "\n";
        for (const QString& line : lines)
            out << line << "\n";
    }
    out.flush();

    // The whole file through a temporary name: a crash leaves the old file or the new one.
    QSaveFile f(path);
    if (!f.open(QIODevice::WriteOnly))
        return false;
    const QByteArray bytes = text.toUtf8();
    if (f.write(bytes) != bytes.size())
        return false;
    return f.commit();
}

} // namespace tv
