#include "adapters/x1r/X1rSwitches.h"

#include "util/SubFunction.h"

namespace tv {

QString MakeX1rSwitches(const EmuOptX1& block)
{
    const auto& on = block.X1r_1Op;
    const auto& v = block.X1r_2Op;
    QString t;
    if (on[0] == 1)
        t += QStringLiteral("/T") + QString::number(v[0]);
    if (on[1] == 1)
        t += QStringLiteral(" /R") + QString::number(v[1]);
    if (on[2] == 1)
        t += QStringLiteral(" /W") + QString::number(v[2]);
    if (on[3] == 1)
        t += QStringLiteral(" /U") + QString::number(v[3]);
    if (on[4] == 1)
        t += QStringLiteral(" /0");
    if (on[5] == 1)
        t += QStringLiteral(" /X") + QString::number(block.X1r_3Op[0]);
    return VbTrim(t);
}

LaunchCommand MakeX1rCommand(const QString& program, const QString& opts, const QString& first,
                             const QString& second)
{
    LaunchCommand cmd(program);
    cmd.args(opts.split(QLatin1Char(' '), Qt::SkipEmptyParts));
    cmd.arg(EmuPath(program, VbTrim(first)));
    cmd.arg(EmuPath(program, VbTrim(second)));
    return cmd;
}

QString X1rCommandLine(const QString& dir, const QString& opts, const QString& first,
                       const QString& second)
{
    return VbTrim(dir + QStringLiteral("\\X1R.COM ") + opts + u' ' + first + u' ' + second);
}

} // namespace tv
