// X1EMU's launch steps: "DOS4GW.EXE" goes after the run. The title can't start yet: its switches
// aren't made.
#include "launch/EmuAdapter.h"

#include "data/Cfg.h"
#include "launch/EmuStaging.h"
#include "launch/ExecEmulator.h"
#include "launch/IniFile.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <QFileInfo>

#include <memory>

namespace tv {

namespace {

class X1emuAdapter : public EmuAdapter {
public:
    X1emuAdapter() : EmuAdapter(Emu::X1emu) {}

    // DOS4GW.EXE goes in with the branch of its switches (not made yet) and away after the run.
    void stageAfter(LaunchState& st) override { UnstageDos4gw(st.HardWare, row().code()); }
};

} // namespace

std::unique_ptr<EmuAdapter> MakeX1emuAdapter()
{
    return std::make_unique<X1emuAdapter>();
}

} // namespace tv
