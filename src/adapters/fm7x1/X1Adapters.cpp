// The X1 & X1Turbo! emulators. X millennium and WinX1 run with the user's own INI, corrected
// at the keys a launch depends on, and take their images through their file dialogs; X1R and
// X1EMU can't start a title yet (their switches aren't made).
#include "adapters/fm7x1/Fm7X1Adapters.h"

#include "data/Cfg.h"
#include "launch/EmuStaging.h"
#include "launch/ExecEmulator.h"
#include "launch/IniFile.h"
#include "shell/Globals.h"
#include "shell/SubFunction.h"

#include <QFileInfo>

namespace tv {

namespace {

class X1rAdapter : public EmuAdapter {
public:
    X1rAdapter() : EmuAdapter(Emu::X1r) {}
};

class XmilAdapter : public ExistingIniAdapter {
public:
    XmilAdapter() : ExistingIniAdapter(Emu::Xmil) {}

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
        const QString ini = ResolveFileNoCase(st.Dir, row().configName());
        const QString section = QStringLiteral("Xmillennium");
        SetIniValue(section, QStringLiteral("StartDir"), QString(), ini);
        SetIniValue(section, QStringLiteral("bmap_Dir"), EmuPath(st.Exe, SnapDir[st.HardWare]),
                    ini);
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

class X1emuAdapter : public EmuAdapter {
public:
    X1emuAdapter() : EmuAdapter(Emu::X1emu) {}

    // DOS4GW.EXE goes in with the branch of its switches (not made yet) and away after the run.
    void stageAfter(LaunchState& st) override { UnstageDos4gw(st.HardWare, row().code()); }
};

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

std::unique_ptr<EmuAdapter> MakeX1rAdapter()
{
    return std::make_unique<X1rAdapter>();
}
std::unique_ptr<EmuAdapter> MakeXmilAdapter()
{
    return std::make_unique<XmilAdapter>();
}
std::unique_ptr<EmuAdapter> MakeX1emuAdapter()
{
    return std::make_unique<X1emuAdapter>();
}
std::unique_ptr<EmuAdapter> MakeWinX1Adapter()
{
    return std::make_unique<WinX1Adapter>();
}

} // namespace tv
