// j80's launch steps: its configuration in WorkDir goes after the run; the bare emulator runs on
// Java. The title can't start yet.
#include "launch/EmuAdapter.h"

#include "data/Cfg.h"
#include "launch/ExecEmulator.h"
#include "platform/Platform.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <QFileInfo>

#include <memory>

namespace tv {

namespace {

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

std::unique_ptr<EmuAdapter> MakeJ80Adapter()
{
    return std::make_unique<J80Adapter>();
}

} // namespace tv
