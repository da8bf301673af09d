// PC88Win's launch steps; it runs with the user's own "PC88WIN.INI" ("既存INI使用").
#include "launch/EmuAdapter.h"

#include "data/Cfg.h"
#include "launch/ExecEmulator.h"
#include "platform/Platform.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <QFileInfo>

#include <memory>

namespace tv {

namespace {

class Pc88WinAdapter : public ExistingIniAdapter {
public:
    Pc88WinAdapter() : ExistingIniAdapter(Emu::PC88Win) {}

    bool branch(LaunchState& st, EmuBranch& b) override
    {
        // With the FMPAN disk on the command line the title goes in by the file dialog.
        if (Cfg.PanUse == 1) {
            b.cmd.arg(VbTrim(st.PanArg));
            b.paste1 = st.Image;
        } else {
            b.cmd.arg(EmuPath(st.Exe, st.Image));
        }
        return true;
    }

    void sendImageNames(const LaunchCommand& cmd, const QString& Paste1,
                        const QString&) const override
    {
        // Without the FMPAN disk nothing is mounted: the emulator starts empty.
        if (!CommandHasPan(cmd))
            return;
        SleepMs(SendWaitMs());
        PasteKeys(Paste1, kKeysPc88WinDisk);
    }
};

} // namespace

std::unique_ptr<EmuAdapter> MakePc88WinAdapter()
{
    return std::make_unique<Pc88WinAdapter>();
}

} // namespace tv
