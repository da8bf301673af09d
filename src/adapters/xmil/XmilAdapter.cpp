// X millennium's launch steps: the T-Tune build for tapes, "Xmillennium.ini" generated from the
// title's block or the user's own corrected at the keys a launch depends on, the images
// through its file dialog.
#include "launch/EmuAdapter.h"

#include "adapters/xmil/XmilIni.h"

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

class XmilAdapter : public EmuAdapter {
public:
    XmilAdapter() : EmuAdapter(Emu::Xmil) {}

    bool ready(const CfgRecord&, QString*) const override { return true; }

    void stageBefore(LaunchState& st) override
    {
        // Only the T-Tune build reads tapes.
        const bool tape = GetFileExt(st.SecondFile) == QStringLiteral("TAP") ||
                          st.ImageExt == QStringLiteral("TAP");
        st.TuneUse = Cfg.XmilTUse == 1 || tape ? 1 : 0;
    }

    bool pciDebugWanted(uint8_t DefOpt) const override
    {
        const EmuOptX1 o = ChosenOptX1(DefOpt);
        // The T-Tune build, or ROMEO.
        return Cfg.XmilTUse == 1 || o.Xmil_1Op[25] == 1;
    }

    bool branch(LaunchState& st, EmuBranch& b) override
    {
        if (!row().existingIni()) {
            // The text first: a damaged block fails here, before the user's file is touched.
            const QString text = MakeXmilIni(ChosenOptX1(st.DefOpt), st.TuneUse);
            WriteConfText(st.Dir + u'/' + kXmilIniName, text);
        } else {
            const QString ini = ResolveFileNoCase(st.Dir, row().configName());
            const QString section = QStringLiteral("Xmillennium");
            SetIniValue(section, QStringLiteral("StartDir"), QString(), ini);
            SetIniValue(section, QStringLiteral("bmap_Dir"), EmuPath(st.Exe, SnapDir[st.HardWare]),
                        ini);
        }
        b.paste1 = st.First;
        b.paste2 = st.SecondOfBranch;
        return true;
    }

    void sendImageNames(const LaunchCommand&, const QString& Paste1,
                        const QString& Paste2) const override
    {
        PasteKeys(Paste1,
                  GetFileExt(Paste1) == QLatin1String("TAP") ? kKeysXmilTape : kKeysXmilDisk0);
        // The second drive follows at once, with no delay between.
        if (!Paste2.isEmpty())
            PasteKeys(Paste2, kKeysXmilDisk1);
    }

    QString fullScreenKeys(uint8_t) const override
    {
        return row().fullScreen() ? kKeysXmilFullScreen : QString();
    }

    LaunchCommand bareCommand() const override
    {
        const uint8_t tune = Cfg.XmilTUse == 1 ? 1 : 0;
        const QString dir = row().dirOf(Cfg, tune);
        // The one bare command that carries the directory, kept as it is.
        LaunchCommand cmd(!row().existingIni() && tune == 0 ? dir + u'/' + row().exeName()
                                                            : row().exeName());
        cmd.workingDir = dir;
        return cmd;
    }
};

} // namespace

std::unique_ptr<EmuAdapter> MakeXmilAdapter()
{
    return std::make_unique<XmilAdapter>();
}

} // namespace tv
