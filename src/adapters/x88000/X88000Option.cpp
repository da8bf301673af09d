#include "adapters/x88000/X88000Option.h"

#include "util/SubFunction.h"

#include <QStringList>

namespace tv {

namespace {

// A switch of two states. The dialog stores only 0 and 1; any other value in a damaged block
// leaves the switch out, so that X88000 keeps its own setting instead of getting a guess.
QString OnOff(const char* name, uint8_t v)
{
    if (v > 1)
        return QString();
    return QString::fromLatin1(name) + (v == 1 ? QStringLiteral("on") : QStringLiteral("off"));
}

QString Num(const char* name, long long v)
{
    return QString::fromLatin1(name) + QString::number(v);
}

QString BasicSwitch(uint8_t v)
{
    static const char* const modes[] = {"n", "v1s", "v1h", "v2", "n80v1", "n80v2"};
    if (v > 5)
        return QString();
    return QStringLiteral(" -basic:") + QString::fromLatin1(modes[v]);
}

} // namespace

QString MakeX88000Option(const EmuOpt88& record)
{
    const auto& o = record.X88_1Op;
    QString t = QStringLiteral("-saveenv:off");
    t += BasicSwitch(o[0]);
    t += Num(" -clock:", o[1]);
    t += OnOff(" -boost:", o[2]);
    if (o[2] == 1)
        t += o[3] == 0 ? QStringLiteral(" -boostlim:v-max") : Num(" -boostlim:", o[3] * 25);
    t += Num(" -drives:", o[4]);
    // A drive within the count goes out even when its box is off: its value is then 255.
    for (int i = 5; i <= 8; ++i) {
        const int d = i - 4;
        if (d <= o[4])
            t += QStringLiteral(" -drive") + QString::number(d) + QLatin1Char(':') +
                 QString::number(o[i]);
    }
    t += OnOff(" -readonly:", o[9]);
    t += Num(" -framerate:", o[10]);
    t += OnOff(" -interlace:", o[11]);
    t += OnOff(" -directinput:", o[12]);
    t += OnOff(" -imedisable:", o[13]);
    t += OnOff(" -directsound:", o[14]);
    t += o[15] == 0 ? QStringLiteral(" -dsoundfreq:48000") : Num(" -dsoundfreq:", o[15] * 11025);
    t += Num(" -dsoundbit:", o[16]);
    t += Num(" -dsoundch:", o[17]);
    t += Num(" -beepvolume:", o[18]);
    t += OnOff(" -beepmute:", o[19]);
    if (o[20] == 1)
        t += QStringLiteral(" -parallel:pr201");
    else if (o[20] == 0)
        t += QStringLiteral(" -parallel:null");
    if (o[21] == 0)
        t += QStringLiteral(" -crtvsync:24");
    else if (o[21] == 1)
        t += QStringLiteral(" -crtvsync:15");
    t += OnOff(" -waitemu:", o[22]);
    t += OnOff(" -oldcompat:", o[23]);
    return VbTrim(t);
}

X88000Command MakeX88000Command(const QString& program, const QString& image,
                                const QString& options)
{
    X88000Command c;
    c.command = LaunchCommand(program);
    c.command.args(options.split(QLatin1Char(' '), Qt::SkipEmptyParts));
    const QString img = EmuPath(program, image);
    if (GetFileExt(image) == QLatin1String("D88")) {
        c.cmdLine =
            program + QLatin1Char(' ') + options + QStringLiteral(" \"") + img + QLatin1Char('"');
        c.command.arg(img, true);
    } else {
        c.cmdLine = program + QLatin1Char(' ') + options;
        c.paste1 = img;
    }
    return c;
}

} // namespace tv
