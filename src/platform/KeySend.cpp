#include "platform/KeySend.h"
#include "platform/Platform.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QDateTime>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QSet>
#include <utility>

namespace tv {

namespace {

std::vector<InputRecord>& Log()
{
    static std::vector<InputRecord> log;
    return log;
}

bool& RecordOnly()
{
    static bool on = false;
    return on;
}

int64_t& Target()
{
    static int64_t pid = 0;
    return pid;
}

int& Settle()
{
    static int ms = 0;
    return ms;
}

// How long a sequence waits for the started program's window to take the focus.
constexpr int kFocusWaitMs = 5000;

const QSet<QString>& KeyNames()
{
    static const QSet<QString> names = [] {
        QSet<QString> s{"ENTER", "TAB",   "ESC",   "BS",    "DEL",     "INS",
                        "HOME",  "END",   "PGUP",  "PGDN",  "UP",      "DOWN",
                        "LEFT",  "RIGHT", "SPACE", "BREAK", "CAPSLOCK"};
        for (int i = 1; i <= 16; ++i)
            s.insert(QStringLiteral("F%1").arg(i));
        return s;
    }();
    return names;
}

// The key name of a braced name, or empty when it names none. Synonyms fold to one name.
QString BraceKey(const QString& name)
{
    const QString n = name.toUpper();
    if (n == QLatin1String("ESCAPE"))
        return QStringLiteral("ESC");
    if (n == QLatin1String("BACKSPACE") || n == QLatin1String("BKSP"))
        return QStringLiteral("BS");
    if (n == QLatin1String("DELETE"))
        return QStringLiteral("DEL");
    if (n == QLatin1String("INSERT"))
        return QStringLiteral("INS");
    if (KeyNames().contains(n))
        return n;
    return QString();
}

QString CharKey(QChar c)
{
    return c.isLetter() && c.unicode() < 128 ? QString(c.toUpper()) : QString(c);
}

} // namespace

QString KeyStroke::text() const
{
    QString t;
    if (mods & KeyModCtrl)
        t += QStringLiteral("Ctrl+");
    if (mods & KeyModAlt)
        t += QStringLiteral("Alt+");
    if (mods & KeyModShift)
        t += QStringLiteral("Shift+");
    return t + key;
}

std::optional<std::vector<KeyStroke>> ParseKeys(const QString& notation)
{
    std::vector<KeyStroke> out;
    int pending = 0;   // modifiers for the next key or group
    int groupMods = 0; // modifiers of the open parenthesis group
    bool inGroup = false;
    const qsizetype n = notation.size();
    auto add = [&](const QString& key, int count) {
        for (int i = 0; i < count; ++i)
            out.push_back({pending | groupMods, key});
        pending = 0;
    };
    for (qsizetype i = 0; i < n; ++i) {
        const QChar c = notation[i];
        if (c == QLatin1Char('%') || c == QLatin1Char('^') || c == QLatin1Char('+')) {
            pending |= c == QLatin1Char('%')   ? KeyModAlt
                       : c == QLatin1Char('^') ? KeyModCtrl
                                               : KeyModShift;
        } else if (c == QLatin1Char('(')) {
            if (inGroup)
                return std::nullopt;
            inGroup = true;
            groupMods = pending;
            pending = 0;
        } else if (c == QLatin1Char(')')) {
            if (!inGroup || pending)
                return std::nullopt;
            inGroup = false;
            groupMods = 0;
        } else if (c == QLatin1Char('~')) {
            add(QStringLiteral("ENTER"), 1);
        } else if (c == QLatin1Char('{')) {
            // "{}}" and "{{}" give the brace itself: the name is at least one character.
            qsizetype close = notation.indexOf(QLatin1Char('}'), i + 2);
            if (close < 0)
                return std::nullopt;
            QString inner = notation.mid(i + 1, close - i - 1);
            int count = 1;
            qsizetype blank = inner.lastIndexOf(QLatin1Char(' '));
            if (blank > 0) {
                bool ok = false;
                count = inner.mid(blank + 1).toInt(&ok);
                if (!ok || count < 0)
                    return std::nullopt;
                inner = inner.left(blank);
            }
            QString key = inner.size() == 1 ? CharKey(inner[0]) : BraceKey(inner);
            if (key.isEmpty())
                return std::nullopt;
            add(key, count);
            i = close;
        } else if (c == QLatin1Char('}') || c == QLatin1Char('[') || c == QLatin1Char(']')) {
            return std::nullopt; // signs that the notation reserves must stand in braces
        } else if (c == QLatin1Char(' ')) {
            add(QStringLiteral("SPACE"), 1);
        } else {
            if (c.unicode() >= 128 || !c.isPrint())
                return std::nullopt;
            add(CharKey(c), 1);
        }
    }
    if (pending || inGroup)
        return std::nullopt;
    return out;
}

bool KeyDeliveryAvailable()
{
    return detail::X11Available();
}

bool SendKeys(const QString& notation, bool wait)
{
    auto strokes = ParseKeys(notation);
    if (!strokes)
        return false;
    InputRecord rec{InputRecord::Keys, notation, false, QDateTime::currentMSecsSinceEpoch()};
    if (!RecordOnly() && detail::X11Available()) {
        if (Target() != 0)
            detail::X11WaitForFocus(Target(), kFocusWaitMs);
        rec.msecs = QDateTime::currentMSecsSinceEpoch();
        rec.delivered = detail::X11SendStrokes(*strokes, wait);
    }
    Log().push_back(rec);
    return true;
}

void SetClipText(const QString& text)
{
    if (RecordOnly()) {
        Log().push_back({InputRecord::Clip, text, false, QDateTime::currentMSecsSinceEpoch()});
        return;
    }
    QClipboard* cb = QGuiApplication::clipboard();
    cb->clear();
    cb->setText(text);
    if (Settle() > 0) {
        if (cb->supportsSelection())
            cb->setText(text, QClipboard::Selection);
        QElapsedTimer t;
        t.start();
        while (t.elapsed() < Settle())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    Log().push_back({InputRecord::Clip, text, true, QDateTime::currentMSecsSinceEpoch()});
}

bool SetInputRecordOnly(bool on)
{
    return std::exchange(RecordOnly(), on);
}

void SetClipSettle(int settleMs)
{
    Settle() = settleMs < 0 ? 0 : settleMs;
}

bool ProcessDescendsFrom(int64_t pid, int64_t ancestor)
{
    // Up the parent chain: the parent is the field after the state.
    for (int depth = 0; pid > 1 && depth < 64; ++depth) {
        if (pid == ancestor)
            return true;
        const QList<QByteArray> fields = ProcStatFields(pid);
        if (fields.size() < 2)
            return false;
        pid = fields[1].toLongLong();
    }
    return pid == ancestor && pid > 0;
}

void SetKeyTarget(int64_t pid)
{
    Target() = pid;
}

const std::vector<InputRecord>& InputLog()
{
    return Log();
}

void ClearInputLog()
{
    Log().clear();
}

} // namespace tv
