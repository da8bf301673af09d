// X88000's launch steps: tapes and N80 images through its file dialog. The title can't start yet:
// its switches aren't made.
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

} // namespace

std::unique_ptr<EmuAdapter> MakeX88kAdapter()
{
    return std::make_unique<X88kAdapter>();
}

} // namespace tv
