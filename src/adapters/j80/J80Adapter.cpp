// j80's road: "j80.cfg" made in WorkDir on every launch from the title's block and the j80
// files of the configuration, then j80 on a Java runtime with the file and the block's
// options; the images are found through the directories the file names. The file goes after
// the run.
#include "launch/EmuAdapter.h"

#include "adapters/j80/J80Cfg.h"
#include "data/Cfg.h"
#include "launch/ExecEmulator.h"
#include "platform/Platform.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <QFileInfo>

#include <memory>

namespace tv {

namespace {

// The Java program of the settings when it is there, else "" (java from the search path).
QString ConfiguredJava()
{
    const QString java = VbTrim(Cfg.JavaVMPath);
    if (java.isEmpty() || FindFile(java).isEmpty())
        return QString();
    return java;
}

class J80Adapter : public EmuAdapter {
public:
    J80Adapter() : EmuAdapter(Emu::J80) {}

    bool ready(const CfgRecord&, QString*) const override { return true; }

    bool branch(LaunchState& st, EmuBranch& b) override
    {
        const EmuOpt88 block = ChosenOpt88(st.DefOpt);
        WriteJ80Cfg(WorkDir + u'/' + kJ80CfgName, MakeJ80Cfg(block));
        b.cmd = MakeJ80Command(ConfiguredJava(), st.Dir, MakeJ80Option(block)).command;
        return true;
    }

    QStringList workLeftovers() const override { return {kJ80CfgName}; }

    LaunchCommand bareCommand() const override
    {
        const QString java = ConfiguredJava();
        LaunchCommand cmd(java.isEmpty() ? QStringLiteral("java") : java);
        cmd.arg(QStringLiteral("-jar")).arg(QStringLiteral("j80.jar"));
        cmd.workingDir = row().dirOf();
        return cmd;
    }
};

} // namespace

std::unique_ptr<EmuAdapter> MakeJ80Adapter()
{
    return std::make_unique<J80Adapter>();
}

} // namespace tv
