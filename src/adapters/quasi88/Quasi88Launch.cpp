#include "adapters/quasi88/Quasi88Launch.h"

#include "data/Cfg.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

namespace tv {

namespace {

// A quoted argument reaches the program even when empty: `""` is an argument of its own.
void AddQuoted(LaunchCommand& c, const QString& value)
{
    c.arguments.push_back({value, true});
}

} // namespace

Quasi88Command MakeQuasi88Command(const Quasi88CommandInput& in,
                                  const std::function<QString(const QString&)>& pathForm)
{
    Quasi88Command q;
    LaunchCommand& c = q.command;
    c.program = in.dir + QStringLiteral("/QUASI88.EXE");
    if (in.allScreen)
        c.arg(QStringLiteral("-dga"));
    if (in.compatRomUse) {
        // Written whether or not the file is there; unquoted, so blanks in the path separate
        // arguments just as they do on the emulator's home platform.
        c.arg(QStringLiteral("-compatrom"));
        c.args(pathForm(in.dir + QStringLiteral("/PC88.ROM"))
                   .split(QLatin1Char(' '), Qt::SkipEmptyParts));
    }
    c.arg(QStringLiteral("-romdir"));
    AddQuoted(c, pathForm(in.dir));
    c.arg(QStringLiteral("-diskdir"));
    AddQuoted(c, pathForm(in.workDir));
    if (in.panUse) {
        AddQuoted(c, in.panArg);
        q.paste1 = pathForm(in.image);
    } else {
        AddQuoted(c, pathForm(in.image));
    }
    q.paste2.clear();
    return q;
}

Quasi88Command MakeQuasi88Command(const Quasi88CommandInput& in)
{
    return MakeQuasi88Command(in, ToWinePath);
}

Quasi88Command MakeQuasi88Command(const QString& image, const QString& panArg)
{
    Quasi88CommandInput in;
    in.dir = VbTrim(Cfg.QUASI88Dir);
    in.workDir = WorkDir;
    in.image = image;
    in.panArg = panArg;
    in.panUse = Cfg.PanUse == 1;
    in.allScreen = Cfg.Q88AllScr == 1;
    in.compatRomUse = Cfg.Q88CompatRomUse == 1;
    return MakeQuasi88Command(in);
}

} // namespace tv
