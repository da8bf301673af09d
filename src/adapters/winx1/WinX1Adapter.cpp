// WinX1's launch steps: the user's INI corrected at its start directory, the image through its
// file dialog.
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

class WinX1Adapter : public ExistingIniAdapter {
public:
    WinX1Adapter() : ExistingIniAdapter(Emu::WinX1) {}

    bool pciDebugWanted(uint8_t) const override { return true; }

    bool branch(LaunchState& st, EmuBranch& b) override
    {
        // The INI of the build that runs: "winx1.ini" or "WinX1_ika.ini".
        const QString stem = QFileInfo(row().exeName()).completeBaseName();
        const QString ini = ResolveFileNoCase(st.Dir, stem + QStringLiteral(".ini"));
        SetIniValue(QStringLiteral("WinX1"), QStringLiteral("StartDir"), EmuPath(st.Exe, WorkDir),
                    ini);
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
