// EM7's launch steps: its "EM7.INI" made from the chosen block (or the user's own with
// "既存INI使用") and the first image on the command line. Its full-screen mode is a line of
// that file, so no key is sent.
#include "launch/EmuAdapter.h"

#include "adapters/em7/Em7Ini.h"
#include "launch/ExecEmulator.h"

#include <memory>

namespace tv {

namespace {

class Em7Adapter : public EmuAdapter {
public:
    Em7Adapter() : EmuAdapter(Emu::Em7Win) {}

    bool ready(const CfgRecord&, QString*) const override { return true; }

    bool branch(LaunchState& st, EmuBranch& b) override
    {
        if (!row().existingIni()) {
            const QString text = MakeEm7Ini(ChosenOptFM(st.DefOpt));
            if (!WriteConfText(st.Dir + u'/' + kEm7IniName, text))
                return false;
        }
        // EM7 takes one image; a second one of the title stays in its record.
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
