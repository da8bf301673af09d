#include "adapters/p88sr/P88srLaunch.h"

#include "data/Cfg.h"
#include "util/SubFunction.h"

namespace tv {

LaunchCommand MakeP88srCommand(const P88srCommandInput& in,
                               const std::function<QString(const QString&)>& pathForm)
{
    LaunchCommand c(in.dir + QStringLiteral("/P88SR.EXE"));
    const QString image = pathForm(in.image);
    const QString second = in.second.isEmpty() ? QString() : pathForm(in.second);
    // P88SR takes a tape image only in its own place, never behind the FMPAN disk.
    const QString tail = GetFileExt(in.image) == QLatin1String("T88")
                             ? image + QLatin1Char(' ') + second
                             : in.panArg + image + QLatin1Char(' ') + second;
    // Trimmed, and cut at blanks: an empty Second leaves no argument and no trailing blank.
    c.args(tail.split(QLatin1Char(' '), Qt::SkipEmptyParts));
    return c;
}

LaunchCommand MakeP88srCommand(const P88srCommandInput& in)
{
    return MakeP88srCommand(in, ToWinePath);
}

LaunchCommand MakeP88srCommand(const QString& image, const QString& second, const QString& panArg)
{
    return MakeP88srCommand(P88srCommandInput{VbTrim(Cfg.P88srDir), image, second, panArg});
}

} // namespace tv
