// X1EMU's launch steps: no configuration file; the title's switches and its images (8.3 names,
// or the pieces of a split disk) on the command line, and its DOS extender "DOS4GW.EXE" beside
// the images in WorkDir for the run.
#include "launch/EmuAdapter.h"

#include "adapters/x1emu/X1emuSwitches.h"
#include "launch/EmuStaging.h"

#include <memory>

namespace tv {

namespace {

class X1emuAdapter : public EmuAdapter {
public:
    X1emuAdapter() : EmuAdapter(Emu::X1emu) {}

    bool ready(const CfgRecord&, QString*) const override { return true; }

    bool branch(LaunchState& st, EmuBranch& b) override
    {
        // The switches first: a damaged block fails before anything is staged.
        const QString opts = MakeX1emuSwitches(ChosenOptX1(st.DefOpt));
        StageDos4gw(st.HardWare, row().code());
        b.cmd = MakeX1emuCommand(st.Exe, opts, st.First, st.SecondOfBranch);
        return true;
    }

    // The extender goes after the join of a split disk.
    void stageAfter(LaunchState& st) override { UnstageDos4gw(st.HardWare, row().code()); }
};

} // namespace

std::unique_ptr<EmuAdapter> MakeX1emuAdapter()
{
    return std::make_unique<X1emuAdapter>();
}

} // namespace tv
