#include "adapters/x1emu/X1emuSwitches.h"

#include "util/Sjis.h"
#include "util/SubFunction.h"

namespace tv {

QString MakeX1emuSwitches(const EmuOptX1& block)
{
    const auto& on = block.X1emu_1Op;
    const auto& v = block.X1emu_2Op;
    QString t;
    if (on[0] == 1)
        t += QStringLiteral("/M0");
    if (on[1] == 1)
        t += QStringLiteral(" /I") + QString::number(v[0]);
    if (on[2] == 1)
        t += QStringLiteral(" /T") + QString::number(v[1]);
    if (on[3] == 1)
        t += QStringLiteral(" /R") + QString::number(v[2]);
    if (on[4] == 1) {
        // The value is the block's one Shift-JIS byte as a character; a blank stays a blank.
        const char c = static_cast<char>(block.X1emu_3Op);
        t += QStringLiteral(" /D") + FromSjis(&c, 1);
    }
    if (on[5] == 1)
        t += QStringLiteral(" /K") + QString::number(v[3]);
    if (on[6] == 1)
        t += QStringLiteral(" /U") + QString::number(v[4]);
    if (on[7] == 1)
        t += QStringLiteral(" /W") + QString::number(v[5]);
    if (on[8] == 1) {
        switch (v[6]) {
        case 0:
            t += QStringLiteral(" /A");
            break;
        case 1:
            t += QStringLiteral(" /9");
            break;
        case 2:
            t += QStringLiteral(" /!");
            break;
        case 3:
            t += QStringLiteral(" /A6000");
            break;
        case 4:
            t += QStringLiteral(" /97001");
            break;
        default:
            break; // a machine the emulator doesn't know: no switch
        }
    }
    return VbTrim(t);
}

LaunchCommand MakeX1emuCommand(const QString& program, const QString& opts, const QString& first,
                               const QString& second)
{
    LaunchCommand cmd(program);
    cmd.args(opts.split(QLatin1Char(' '), Qt::SkipEmptyParts));
    cmd.arg(EmuPath(program, VbTrim(first)));
    cmd.arg(EmuPath(program, VbTrim(second)));
    return cmd;
}

QString X1emuCommandLine(const QString& dir, const QString& opts, const QString& first,
                         const QString& second)
{
    return VbTrim(dir + QStringLiteral("\\X1EMU.EXE ") + opts + u' ' + first + u' ' + second);
}

} // namespace tv
