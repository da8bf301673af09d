// QUASI88's road: its switches in "QUASI88.INI" in WorkDir, generated from the option block or
// the user's own copied there, and a command line with the directories and the image. The INI
// goes after the run, lest it pass for a new file of the title.
#include "launch/EmuAdapter.h"

#include "adapters/quasi88/Quasi88Ini.h"
#include "adapters/quasi88/Quasi88Launch.h"
#include "data/Cfg.h"
#include "platform/Platform.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <memory>

namespace tv {

namespace {

class Quasi88Adapter : public EmuAdapter {
public:
    Quasi88Adapter() : EmuAdapter(Emu::QUASI88) {}

    bool ready(const CfgRecord&, QString*) const override { return true; }

    bool branch(LaunchState& st, EmuBranch& b) override
    {
        const QString ini = WorkDir + u'/' + kQuasi88IniName;
        if (!row().existingIni()) {
            if (!WriteConfText(ini, MakeQuasi88Ini(ChosenOpt88(st.DefOpt))))
                return false;
        } else {
            // The user's own INI, untouched; without one the emulator runs on its built-in
            // settings.
            const QString own = FindFileNoCase(st.Dir, kQuasi88IniName);
            if (!own.isEmpty())
                ShellCopy(own, ini, 0);
        }
        Quasi88CommandInput in;
        in.dir = st.Dir;
        in.workDir = WorkDir;
        in.image = st.Image;
        in.panArg = st.PanArg;
        in.panUse = Cfg.PanUse == 1;
        in.allScreen = Cfg.Q88AllScr == 1;
        in.compatRomUse = Cfg.Q88CompatRomUse == 1;
        const Quasi88Command q = MakeQuasi88Command(in);
        b.cmd = q.command;
        // The program as found in its directory, whatever the case of its name.
        b.cmd.program = st.Exe;
        b.paste1 = q.paste1;
        b.paste2 = q.paste2;
        return true;
    }

    QStringList workLeftovers() const override { return {kQuasi88IniName}; }
};

} // namespace

std::unique_ptr<EmuAdapter> MakeQuasi88Adapter()
{
    return std::make_unique<Quasi88Adapter>();
}

} // namespace tv
