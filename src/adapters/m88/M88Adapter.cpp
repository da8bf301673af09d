// M88's road: save states and modules around the run, its generated or corrected "M88.INI",
// the image through its file dialog when the command line can't carry it, RND4M88 beside it.
#include "launch/EmuAdapter.h"

#include "adapters/m88/M88Ini.h"
#include "adapters/m88/M88Launch.h"
#include "adapters/m88/M88Modules.h"
#include "data/Cfg.h"
#include "launch/EmuAdapter.h"
#include "launch/ExecEmulator.h"
#include "launch/IniFile.h"
#include "platform/Platform.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <memory>

namespace tv {

namespace {

QString StateName(const QString& stem, int n)
{
    return stem + u'_' + QString::number(n) + QStringLiteral(".S88");
}

class M88Adapter : public EmuAdapter {
public:
    M88Adapter() : EmuAdapter(Emu::M88) {}

    bool ready(const CfgRecord&, QString*) const override { return true; }

    void saveStatesIn(LaunchState& st) override
    {
        for (int n = 0; n <= 9; ++n) {
            const QString name = StateName(st.ImageStem, n);
            const QString src = FindFileNoCase(M88SaveDir, name);
            if (!src.isEmpty())
                ShellCopy(src, WorkDir + u'/' + name, 0);
        }
        ModuleState modules{};
        HideM88Modules(modules, st.DefOpt);
        st.adapterState = modules;
    }

    bool pciDebugWanted(uint8_t DefOpt) const override
    {
        const EmuOpt88 o = ChosenOpt88(DefOpt);
        // ROMEO, or when it is off, the FM98 module.
        return o.M88_1Op[24] == 1 || o.M88_5Op[7] == 1;
    }

    bool branch(LaunchState& st, EmuBranch& b) override
    {
        if (!row().existingIni()) {
            b.altFlag = WriteGeneratedM88Ini(ChosenOpt88(st.DefOpt));
        } else {
            // The user's INI stays; only the keys a launch depends on are corrected.
            const QString ini = ResolveFileNoCase(st.Dir, kM88IniName);
            const QString section = QStringLiteral("M88p2 for Windows");
            QString flags;
            GetIniValue(section, QStringLiteral("Flags"), QString(), flags, ini);
            if (const auto corrected = CorrectM88Flags(flags))
                SetIniValue(section, QStringLiteral("Flags"), *corrected, ini);
            SetIniValue(section, QStringLiteral("BIOSPath"), M88PathForm(st.Dir), ini);
            SetIniValue(section, QStringLiteral("Directory"), M88PathForm(WorkDir), ini);
        }
        const M88Command mc = MakeM88Command(st.Image, st.PanArg);
        b.cmd = LaunchCommand(mc.Program);
        b.cmd.args(mc.Args);
        b.paste1 = mc.Paste1;
        return true;
    }

    void saveStatesOut(LaunchState& st) override
    {
        // Back under upper-cased stems.
        for (int n = 0; n <= 9; ++n) {
            const QString src = FindFileNoCase(WorkDir, StateName(st.ImageStem, n));
            if (src.isEmpty())
                continue;
            ShellCopy(src, M88SaveDir + u'/' + StateName(st.ImageStem.toUpper(), n), 0);
            ShellDelete(src, 0);
        }
        auto* modules = std::any_cast<ModuleState>(&st.adapterState);
        if (modules)
            RestoreM88Modules(*modules);
    }

    void sendImageNames(const LaunchCommand& cmd, const QString& Paste1,
                        const QString&) const override
    {
        const QString ext = GetFileExt(Paste1);
        if (ext != QLatin1String("D88") && ext != QLatin1String("T88"))
            return;
        // The FMPAN disk of the command line runs first; the title is mounted behind it.
        if (CommandHasPan(cmd))
            SleepMs(SendWaitMs());
        PasteKeys(Paste1, ext == QLatin1String("D88") ? kKeysM88Disk : kKeysM88Tape);
    }

    void startCompanions(uint8_t AltFlag) const override
    {
        if (AltFlag != 1)
            return;
        const QString rnd = row().dirOf() + QStringLiteral("/RND4M88.EXE");
        if (IsSafeDir(rnd, 2, 0))
            StartDetached(Emu::M88, LaunchCommand(rnd)); // with M88's runner
    }

    QString fullScreenKeys(uint8_t AltFlag) const override
    {
        if (!row().fullScreen())
            return {};
        // With RND4M88 beside it the hot key is its own.
        return AltFlag == 1 ? kKeysRnd4m88FullScreen : kKeysFullScreen;
    }
};

} // namespace

std::unique_ptr<EmuAdapter> MakeM88Adapter()
{
    return std::make_unique<M88Adapter>();
}

} // namespace tv
