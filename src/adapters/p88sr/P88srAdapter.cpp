// P88SR's launch steps: its save states in and out. The title can't start yet: its switch line
// isn't made.
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

} // namespace

std::unique_ptr<EmuAdapter> MakeP88srAdapter()
{
    return std::make_unique<P88srAdapter>();
}

} // namespace tv
