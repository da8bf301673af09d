// XM7 for DOS: a DOS program that looks for its ROM set in the current directory.
#include "launch/EmuAdapter.h"

#include "launch/EmuStaging.h"
#include "launch/ExecEmulator.h"

#include <memory>

namespace tv {

namespace {

class Xm7DosAdapter : public EmuAdapter {
public:
    Xm7DosAdapter() : EmuAdapter(Emu::Xm7Dos) {}

    bool ready(const CfgRecord&, QString*) const override { return true; }

    bool branch(LaunchState& st, EmuBranch& b) override
    {
        // A DOS program: it looks for its ROMs in the current directory.
        StageXm7Rom(st.HardWare, row().code());
        b.cmd.arg(EmuPath(st.Exe, st.Image)).arg(EmuPath(st.Exe, st.Second));
        return true;
    }

    void stageAfter(LaunchState& st) override { UnstageXm7Rom(st.HardWare, row().code()); }
};

} // namespace

std::unique_ptr<EmuAdapter> MakeXm7DosAdapter()
{
    return std::make_unique<Xm7DosAdapter>();
}

} // namespace tv
