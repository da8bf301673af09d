// X1R's launch steps: no configuration file; the title's switches and its images (8.3 names,
// or the pieces of a split disk) on the command line.
#include "launch/EmuAdapter.h"

#include "adapters/x1r/X1rSwitches.h"

#include <memory>

namespace tv {

namespace {

class X1rAdapter : public EmuAdapter {
public:
    X1rAdapter() : EmuAdapter(Emu::X1r) {}

    bool ready(const CfgRecord&, QString*) const override { return true; }

    bool branch(LaunchState& st, EmuBranch& b) override
    {
        // The switches are always made: no control sets the flag that stands where the others
        // have "既存INI使用".
        const QString opts = MakeX1rSwitches(ChosenOptX1(st.DefOpt));
        b.cmd = MakeX1rCommand(st.Exe, opts, st.First, st.SecondOfBranch);
        return true;
    }
};

} // namespace

std::unique_ptr<EmuAdapter> MakeX1rAdapter()
{
    return std::make_unique<X1rAdapter>();
}

} // namespace tv
