// XM7 for Win32's launch steps: its whole "XM7.INI" made from the chosen block (or the user's
// own with "既存INI使用"), the images on the command line, the full-screen key when asked.
#include "launch/EmuAdapter.h"

#include "adapters/xm7win/Xm7WinIni.h"
#include "launch/ExecEmulator.h"

#include <memory>

namespace tv {

namespace {

class Xm7WinAdapter : public EmuAdapter {
public:
    Xm7WinAdapter() : EmuAdapter(Emu::Xm7Win) {}

    bool ready(const CfgRecord&, QString*) const override { return true; }

    bool pciDebugWanted(uint8_t) const override { return true; }

    bool branch(LaunchState& st, EmuBranch& b) override
    {
        if (!row().existingIni()) {
            // The generated file replaces the user's whole; the frame has kept it as the
            // backup and brings it back after the run.
            const QString text = MakeXm7WinIni(ChosenOptFM(st.DefOpt));
            if (!WriteConfText(st.Dir + u'/' + kXm7WinIniName, text))
                return false;
        }
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
