// The FM-7 & FM77AV emulators. XM7 for DOS runs from the command line with its ROM set in
// WorkDir; XM7 for Win32 and EM7 run with the user's own INI.
#include "adapters/fm7x1/Fm7X1Adapters.h"

#include "launch/EmuStaging.h"
#include "launch/ExecEmulator.h"

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

std::unique_ptr<EmuAdapter> MakeXm7DosAdapter()
{
    return std::make_unique<Xm7DosAdapter>();
}
std::unique_ptr<EmuAdapter> MakeXm7WinAdapter()
{
    return std::make_unique<Xm7WinAdapter>();
}
std::unique_ptr<EmuAdapter> MakeEm7Adapter()
{
    return std::make_unique<Em7Adapter>();
}

} // namespace tv
