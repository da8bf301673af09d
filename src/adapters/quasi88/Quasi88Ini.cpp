#include "adapters/quasi88/Quasi88Ini.h"

#include "data/Cfg.h"
#include "launch/EmuAdapter.h"

#include <charconv>

namespace tv {

namespace {

const QString kCrLf = QStringLiteral("\r\n");

QString Text(const char* s)
{
    return QString::fromLatin1(s);
}

// The entry `value` of a choice row, or nothing when the value lies outside its list.
bool ChoiceText(const Quasi88Row& row, int value, QString& out)
{
    if (value < 0 || value >= static_cast<int>(row.texts.size()) || row.texts[value] == nullptr)
        return false;
    out = Text(row.texts[value]);
    return true;
}

} // namespace

QString Quasi88FloatText(float value)
{
    // Fixed notation in the shortest form that reads back as the same float; to_chars does not
    // depend on the locale, so the point is always ".".
    char buf[64];
    const auto r = std::to_chars(buf, buf + sizeof buf, value, std::chars_format::fixed);
    return QString::fromLatin1(buf, r.ptr - buf);
}

QString Quasi88DipSwitchHex(const EmuOpt88& r)
{
    // Elements 5 (boot from ROM) and 6 (baud rate) are not DIP bits; the others are placed
    // from bit 1 upward, bit 0 is never set.
    qint64 sum = 0;
    for (int i = 0; i <= 12; ++i) {
        if (i == 5 || i == 6)
            continue;
        sum += (qint64{1} << (i + 1)) * r.Q88_2Op[i];
    }
    return QString::number(sum, 16).toUpper();
}

QString MakeQuasi88Ini(const EmuOpt88& record)
{
    return MakeQuasi88Ini(record, Cfg.Q88AllScr == 1);
}

QString MakeQuasi88Ini(const EmuOpt88& r, bool allScreen)
{
    const auto& o = r.Q88_1Op;
    QString t;
    auto line = [&t](const QString& s) { t += s + kCrLf; };

    for (int i = 0; i <= 59; ++i) {
        const Quasi88Row& row = Quasi88SwitchTable[i];
        const int v = o[i];
        switch (row.kind) {
        case Quasi88RowKind::Flag:
            if (v == 1)
                line(Text(row.texts[0]));
            break;
        case Quasi88RowKind::Value:
            line(Text(row.texts[0]) + QLatin1Char(' ') + QString::number(v));
            break;
        case Quasi88RowKind::Computed:
            // The volume slider runs from 0 to 32; the emulator wants 0 for the loudest.
            line(Text(row.texts[0]) + QString::number(v - 32));
            break;
        case Quasi88RowKind::Choice: {
            QString s;
            if (!ChoiceText(row, v, s))
                break;
            if (i == 36 && v == 0) {
                line(s + QString::number(r.Q88_5Op[0]));
            } else if (i == 45 && v == 0) {
                for (int k = 46; k <= 50; ++k) {
                    const int f = o[k];
                    // A function number beyond the table has no name to write.
                    if (f != 0 && f < static_cast<int>(Quasi88FunctionName.size()))
                        line(Text(Quasi88SwitchTable[k].texts[0]) + Text(Quasi88FunctionName[f]));
                }
            } else {
                line(s);
            }
            break;
        }
        case Quasi88RowKind::Pair: {
            if (v != 1)
                break;
            const QString a = Text(row.texts[0]);
            switch (i) {
            case 4:
            case 6:
                line(a + QString::number(o[i + 1]));
                break;
            case 16:
                line(a + QString::number(r.Q88_3Op[0]));
                line(Text(row.texts[1]) + QString::number(r.Q88_3Op[1]));
                break;
            case 17:
                line(a + Quasi88FloatText(r.Q88_4Op[0]));
                break;
            case 18:
                line(a + Quasi88FloatText(r.Q88_4Op[1]));
                line(Text(row.texts[1]) + Quasi88FloatText(r.Q88_4Op[2]));
                break;
            case 20:
                line(a + Quasi88FloatText(r.Q88_4Op[3]));
                break;
            case 26:
                if (o[27] == 1 && allScreen) {
                    line(QStringLiteral("-width 640"));
                    line(QStringLiteral("-height 480"));
                } else {
                    line(a + QString::number(r.Q88_3Op[2]));
                    line(Text(row.texts[1]) + QString::number(r.Q88_3Op[3]));
                }
                break;
            default:
                break;
            }
            break;
        }
        case Quasi88RowKind::Unused:
            break;
        }
    }

    line(QStringLiteral("-dipsw 0x") + Quasi88DipSwitchHex(r));
    if (r.Q88_2Op[5] == 1)
        line(QStringLiteral("-romboot"));
    static const char* const baud[] = {"75",   "150",  "300",  "600",  "1200",
                                       "2400", "4800", "9600", "19200"};
    if (r.Q88_2Op[6] <= 8)
        line(QStringLiteral("-baudrate ") + Text(baud[r.Q88_2Op[6]]));

    // Trimmed: the last line end goes, and the write puts one back.
    qsizetype n = t.size();
    while (n > 0 && (t[n - 1] == QLatin1Char(' ') || t[n - 1] == QLatin1Char('\r') ||
                     t[n - 1] == QLatin1Char('\n')))
        --n;
    t.truncate(n);
    return t;
}

bool WriteQuasi88Ini(const QString& path, const QString& text)
{
    return WriteConfText(path, text);
}

} // namespace tv
