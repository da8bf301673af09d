// XM7 for Win32's launch steps; it runs with the user's own "XM7.INI" ("既存INI使用").
#include "launch/EmuAdapter.h"

#include "launch/EmuStaging.h"
#include "launch/ExecEmulator.h"

#include <memory>

namespace tv {

namespace {

class Xm7WinAdapter : public ExistingIniAdapter {
public:
    Xm7WinAdapter() : ExistingIniAdapter(Emu::Xm7Win) {}

    bool pciDebugWanted(uint8_t) const override { return true; }

    bool branch(LaunchState& st, EmuBranch& b) override
    {
        b.cmd.arg(EmuPath(st.Exe, st.Image)).arg(EmuPath(st.Exe, st.Second));
        return true;
    }

    QString fullScreenKeys(uint8_t) const override
    {
        return row().fullScreen() ? kKeysFullScreen : QString();
    }
};

} // namespace

std::unique_ptr<EmuAdapter> MakeXm7WinAdapter()
{
    return std::make_unique<Xm7WinAdapter>();
}

} // namespace tv
