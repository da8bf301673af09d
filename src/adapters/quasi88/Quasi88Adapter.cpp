// QUASI88's launch steps: its INI in WorkDir goes after the run. The title can't start yet: its
// switches aren't made.
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

class Quasi88Adapter : public EmuAdapter {
public:
    Quasi88Adapter() : EmuAdapter(Emu::QUASI88) {}
    QStringList workLeftovers() const override { return {QStringLiteral("QUASI88.INI")}; }
};

} // namespace

std::unique_ptr<EmuAdapter> MakeQuasi88Adapter()
{
    return std::make_unique<Quasi88Adapter>();
}

} // namespace tv
