// X1R: the title can't start yet (its switches aren't made).
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

class X1rAdapter : public EmuAdapter {
public:
    X1rAdapter() : EmuAdapter(Emu::X1r) {}
};

} // namespace

std::unique_ptr<EmuAdapter> MakeX1rAdapter()
{
    return std::make_unique<X1rAdapter>();
}

} // namespace tv
