// X88000's road: its settings as switches on the command line, made from the title's block
// or left out with "既存INI使用"; a D88 goes on the command line, tapes and N80 images through
// its file dialog.
#include "launch/EmuAdapter.h"

#include "adapters/x88000/X88000Option.h"
#include "data/Cfg.h"
#include "launch/ExecEmulator.h"
#include "platform/Platform.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <memory>

namespace tv {

namespace {

class X88kAdapter : public EmuAdapter {
public:
    X88kAdapter() : EmuAdapter(Emu::X88k) {}

    bool ready(const CfgRecord&, QString*) const override { return true; }

    bool branch(LaunchState& st, EmuBranch& b) override
    {
        // With the user's own settings X88000 gets no switch at all.
        const QString options =
            row().existingIni() ? QString() : MakeX88000Option(ChosenOpt88(st.DefOpt));
        const X88000Command c = MakeX88000Command(st.Exe, st.Image, options);
        b.cmd = c.command;
        b.paste1 = c.paste1;
        return true;
    }

    void sendImageNames(const LaunchCommand&, const QString& Paste1, const QString&) const override
    {
        const QString ext = GetFileExt(Paste1);
        if (ext == QLatin1String("T88") || ext == QLatin1String("CMT"))
            PasteKeys(Paste1, kKeysX88Tape);
        else if (ext == QLatin1String("N80"))
            PasteKeys(Paste1, kKeysX88N80);
        else
            PasteKeys(Paste1, QString());
    }

    QString fullScreenKeys(uint8_t) const override
    {
        return row().fullScreen() ? kKeysFullScreen : QString();
    }
};

} // namespace

std::unique_ptr<EmuAdapter> MakeX88kAdapter()
{
    return std::make_unique<X88kAdapter>();
}

} // namespace tv
