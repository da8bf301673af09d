// P88SR's road: its switch line in "P88SR.CFG" beside the program, with the save-state slot
// that the user picked in the detail pane, the images on the command line, and its save
// states carried in and out.
#include "launch/EmuAdapter.h"

#include "adapters/p88sr/P88srLaunch.h"
#include "adapters/p88sr/P88srOption.h"
#include "data/Cfg.h"
#include "launch/MainWindowLink.h"
#include "launch/Recovery.h"
#include "platform/Platform.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <memory>

namespace tv {

namespace {

// P88SR's save states: "stem.SVn" beside the image.
QString P88StateName(const QString& stem, int n)
{
    return stem + QStringLiteral(".SV") + QString::number(n);
}

class P88srAdapter : public EmuAdapter {
public:
    P88srAdapter() : EmuAdapter(Emu::P88sr) {}

    bool ready(const CfgRecord&, QString*) const override { return true; }

    void saveStatesIn(LaunchState& st) override
    {
        // With the FMPAN disk first no state of the title is offered.
        if (Cfg.PanUse == 1)
            return;
        for (int n = 0; n <= 9; ++n) {
            const QString name = P88StateName(st.ImageStem, n);
            const QString src = FindFileNoCase(P88SaveDir, name);
            if (!src.isEmpty())
                ShellCopy(src, WorkDir + u'/' + name, 0);
        }
    }

    bool branch(LaunchState& st, EmuBranch& b) override
    {
        // P88SR has no dialog switch for the user's own file; the configuration's flag alone
        // keeps it.
        if (Cfg.P88CfgChk != 1) {
            const QString text =
                MakeP88srCfg(ChosenOpt88(st.DefOpt), Cfg.PanUse == 1, Window().P88SaveSlot());
            if (!WriteConfText(st.Dir + u'/' + kP88srCfgName, text))
                return false;
        }
        b.cmd = MakeP88srCommand(P88srCommandInput{st.Dir, st.Image, st.Second, st.PanArg});
        // The program as found in its directory, whatever the case of its name.
        b.cmd.program = st.Exe;
        b.paste1.clear();
        b.paste2.clear();
        return true;
    }

    void saveStatesOut(LaunchState& st) override
    {
        // Collected whatever PanUse says, under upper-cased stems.
        for (int n = 0; n <= 9; ++n) {
            const QString src = FindFileNoCase(WorkDir, P88StateName(st.ImageStem, n));
            if (src.isEmpty())
                continue;
            CopyOutOrKeep(src, P88SaveDir + u'/' + P88StateName(st.ImageStem.toUpper(), n));
            ShellDelete(src, 0);
        }
    }
};

} // namespace

std::unique_ptr<EmuAdapter> MakeP88srAdapter()
{
    return std::make_unique<P88srAdapter>();
}

} // namespace tv
