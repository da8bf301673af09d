// WinX1's launch steps: the INI of the build that runs ("winx1.ini" or "WinX1_ika.ini")
// generated from the title's block or the user's own corrected at its start directory, the
// image through its file dialog.
#include "launch/EmuAdapter.h"

#include "adapters/winx1/WinX1Ini.h"

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

class WinX1Adapter : public EmuAdapter {
public:
    WinX1Adapter() : EmuAdapter(Emu::WinX1) {}

    bool ready(const CfgRecord&, QString*) const override { return true; }

    bool pciDebugWanted(uint8_t) const override { return true; }

    bool branch(LaunchState& st, EmuBranch& b) override
    {
        // The INI of the build that runs: "winx1.ini" or "WinX1_ika.ini".
        const QString name = WinX1IniName(Cfg.WinX1IkaUse);
        if (!row().existingIni()) {
            // The text first: a damaged block fails here, before the user's file is touched.
            const QString text = MakeWinX1Ini(ChosenOptX1(st.DefOpt));
            WriteConfText(st.Dir + u'/' + name, text);
        } else {
            SetIniValue(QStringLiteral("WinX1"), QStringLiteral("StartDir"),
                        EmuPath(st.Exe, WorkDir), ResolveFileNoCase(st.Dir, name));
        }
        b.paste1 = VbTrim(st.StartFile);
        return true;
    }

    void sendImageNames(const LaunchCommand&, const QString& Paste1, const QString&) const override
    {
        PasteKeys(Paste1, kKeysWinX1Disk);
    }

    QString fullScreenKeys(uint8_t) const override
    {
        return row().fullScreen() ? kKeysFullScreen : QString();
    }
};

} // namespace

std::unique_ptr<EmuAdapter> MakeWinX1Adapter()
{
    return std::make_unique<WinX1Adapter>();
}

} // namespace tv
