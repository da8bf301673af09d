// EM7's launch steps; it runs with the user's own "EM7.INI" ("既存INI使用").
#include "launch/EmuAdapter.h"

#include "launch/EmuStaging.h"
#include "launch/ExecEmulator.h"

#include <memory>

namespace tv {

namespace {

class Em7Adapter : public ExistingIniAdapter {
public:
    Em7Adapter() : ExistingIniAdapter(Emu::Em7Win) {}

    bool branch(LaunchState& st, EmuBranch& b) override
    {
        b.cmd.arg(EmuPath(st.Exe, st.Image));
        return true;
    }
};

} // namespace

std::unique_ptr<EmuAdapter> MakeEm7Adapter()
{
    return std::make_unique<Em7Adapter>();
}

} // namespace tv
