// The PC-8x01 emulators besides M88. P88SR, X88000, QUASI88 and j80 can't start a title yet
// (their switches and configuration files aren't made); what they need of the frame is here
// all the same. PC88Win runs with the user's own "PC88WIN.INI".
#include "adapters/pc88/Pc88Adapters.h"

#include "data/Cfg.h"
#include "launch/ExecEmulator.h"
#include "platform/Platform.h"
#include "shell/Globals.h"
#include "shell/SubFunction.h"

#include <QFileInfo>

namespace tv {

namespace {

// P88SR's save states: "stem.SVn" beside the image.
QString P88StateName(const QString& stem, int n)
{
    return stem + QStringLiteral(".SV") + QString::number(n);
}

class P88srAdapter : public EmuAdapter {
public:
    P88srAdapter() : EmuAdapter(Emu::P88sr) {}

    void saveStatesIn(LaunchState& st) override
    {
        // With the FMPAN disk first no state of the title is offered.
        if (Cfg.PanUse == 1)
            return;
        for (int n = 0; n <= 9; ++n) {
            const QString name = P88StateName(st.ImageStem, n);
            const QString src = FindFileNoCase(P88SaveDir, name);
            if (!src.isEmpty())
                ShellCopy(src, WorkDir + u'/' + name, 0);
        }
    }

    void saveStatesOut(LaunchState& st) override
    {
        // Collected whatever PanUse says, under upper-cased stems.
        for (int n = 0; n <= 9; ++n) {
            const QString src = FindFileNoCase(WorkDir, P88StateName(st.ImageStem, n));
            if (src.isEmpty())
                continue;
            ShellCopy(src, P88SaveDir + u'/' + P88StateName(st.ImageStem.toUpper(), n), 0);
            ShellDelete(src, 0);
        }
    }
};

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

class X88kAdapter : public EmuAdapter {
public:
    X88kAdapter() : EmuAdapter(Emu::X88k) {}

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

class Quasi88Adapter : public EmuAdapter {
public:
    Quasi88Adapter() : EmuAdapter(Emu::QUASI88) {}
    QStringList workLeftovers() const override { return {QStringLiteral("QUASI88.INI")}; }
};

class J80Adapter : public EmuAdapter {
public:
    J80Adapter() : EmuAdapter(Emu::J80) {}
    QStringList workLeftovers() const override { return {QStringLiteral("j80.cfg")}; }

    LaunchCommand bareCommand() const override
    {
        // The Java program of the settings when it is there, else the one on the path.
        const QString java = VbTrim(Cfg.JavaVMPath);
        LaunchCommand cmd(!java.isEmpty() && QFileInfo(java).isFile() ? java
                                                                      : QStringLiteral("java"));
        cmd.arg(QStringLiteral("-jar")).arg(QStringLiteral("j80.jar"));
        cmd.workingDir = row().dirOf();
        return cmd;
    }
};

} // namespace

std::unique_ptr<EmuAdapter> MakeP88srAdapter()
{
    return std::make_unique<P88srAdapter>();
}
std::unique_ptr<EmuAdapter> MakePc88WinAdapter()
{
    return std::make_unique<Pc88WinAdapter>();
}
std::unique_ptr<EmuAdapter> MakeX88kAdapter()
{
    return std::make_unique<X88kAdapter>();
}
std::unique_ptr<EmuAdapter> MakeQuasi88Adapter()
{
    return std::make_unique<Quasi88Adapter>();
}
std::unique_ptr<EmuAdapter> MakeJ80Adapter()
{
    return std::make_unique<J80Adapter>();
}

} // namespace tv
