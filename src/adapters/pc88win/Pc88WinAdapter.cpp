// PC88Win's road: a "PC88WIN.INI" made from the title's block beside the program, or the
// user's own with "既存INI使用"; the image on the command line, or through the file dialog
// behind the FMPAN disk.
#include "launch/EmuAdapter.h"

#include "adapters/pc88win/Pc88WinIni.h"
#include "data/Cfg.h"
#include "launch/ExecEmulator.h"
#include "platform/Platform.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <memory>

namespace tv {

namespace {

class Pc88WinAdapter : public EmuAdapter {
public:
    Pc88WinAdapter() : EmuAdapter(Emu::PC88Win) {}

    bool ready(const CfgRecord&, QString*) const override { return true; }

    bool branch(LaunchState& st, EmuBranch& b) override
    {
        // The whole file is new for the run; the user's keys come back with its backup.
        if (!row().existingIni())
            WritePc88WinIni(st.Dir + u'/' + kPc88WinIniName,
                            MakePc88WinIni(ChosenOpt88(st.DefOpt)));
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
