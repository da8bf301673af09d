#include "adapters/m88/M88Launch.h"

#include "adapters/m88/M88Ini.h"
#include "data/Cfg.h"
#include "util/SubFunction.h"

#include <cmath>

namespace tv {

namespace {

QString M88Dir()
{
    return VbTrim(Cfg.M88Dir);
}

// The numeric test of the profile value: blanks around a decimal number (with sign, point or
// exponent) are allowed, as are hexadecimal "&H" numbers.
std::optional<double> ProfileNumber(const QString& text)
{
    const QString t = text.trimmed();
    if (t.isEmpty())
        return std::nullopt;
    if (t.startsWith(QLatin1String("&H"), Qt::CaseInsensitive)) {
        bool ok = false;
        const qlonglong v = t.mid(2).toLongLong(&ok, 16);
        return ok ? std::optional<double>(static_cast<double>(v)) : std::nullopt;
    }
    bool ok = false;
    const double v = t.toDouble(&ok);
    // The parser also reads "inf" and "nan", which are words, not numbers.
    return ok && std::isfinite(v) ? std::optional<double>(v) : std::nullopt;
}

} // namespace

uint8_t WriteGeneratedM88Ini(const EmuOpt88& block, bool* written)
{
    // The user's file may be spelt "m88.ini": the writer leaves no second spelling beside ours.
    const bool ok = WriteM88Ini(M88Dir() + QLatin1Char('/') + kM88IniName, MakeM88Ini(block));
    if (written)
        *written = ok;
    return block.M88_1Op[23];
}

std::optional<QString> CorrectM88Flags(const QString& flags)
{
    const std::optional<double> n = ProfileNumber(flags);
    if (flags.size() > 10 || !n)
        return QStringLiteral("3");
    const long long v = std::llround(*n);
    // The last hexadecimal digit is one of 0, 1, 4, 5, 8, 9, C, D exactly when bit 1 is clear.
    if ((v & 2) == 0)
        return QString::number(v + 2);
    return std::nullopt;
}

M88Command MakeM88Command(const QString& Image, const QString& PanArg)
{
    M88Command c;
    c.Program = ResolveFileNoCase(M88Dir(), QStringLiteral("M88.EXE"));
    const QString image = M88PathForm(Image);
    const QString ext = GetFileExt(Image);
    if (ext == QLatin1String("T88")) {
        c.CmdLine = c.Program;
        c.Paste1 = image;
    } else if (Cfg.PanUse == 1) {
        c.CmdLine = c.Program + QLatin1Char(' ') + PanArg;
        c.Args = PanArg.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        c.Paste1 = image;
    } else {
        c.CmdLine = c.Program + QLatin1Char(' ') + image;
        c.Args << image;
    }
    c.Paste2.clear();
    return c;
}

} // namespace tv
