#include "adapters/m88/M88Modules.h"

#include "launch/EmuAdapter.h"

#include "data/Cfg.h"
#include "data/clsLst.h"
#include "platform/MsgBox.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <QFileInfo>

namespace tv {

const std::array<std::array<M88ModuleFile, kM88ModuleFiles>, kM88ModuleCount> M88Modules = {{
    {{{"diskdrv.m88", "diskdrv._m88"}, {"e1.rom", "e1._rom"}, {"E8.ROM", "E8._ROM"}}},
    {{{"cdif.m88", "cdif._m88"}, {nullptr, nullptr}, {nullptr, nullptr}}},
    {{{"JS.m88", "JS._m88"}, {"JS.ini", "JS._ini"}, {nullptr, nullptr}}},
    {{{"lpt_sample.m88", "lpt_sample._m88"}, {nullptr, nullptr}, {nullptr, nullptr}}},
    {{{"PcgSound.m88", "PcgSound._m88"}, {nullptr, nullptr}, {nullptr, nullptr}}},
    {{{"sndlog.m88", "sndlog._m88"}, {nullptr, nullptr}, {nullptr, nullptr}}},
    {{{"SeekSnd.m88", "SeekSnd._m88"}, {nullptr, nullptr}, {nullptr, nullptr}}},
    {{{"FM98.m88", "FM98._m88"}, {nullptr, nullptr}, {nullptr, nullptr}}},
}};

const std::array<const char*, kM88ModuleCount> M88ModuleCaptions = {
    "diskdrv88+80", "cdif", "JS", "lpt_sample", "PcgSound", "sndlog", "SeekSnd", "FM98"};

namespace {

QString In(const QString& dir, const char* name)
{
    return dir + QLatin1Char('/') + QString::fromLatin1(name);
}

// The file `name` in `dir` in its real spelling, or "" when there is none. The emulator and
// its modules come from a case-blind file system, where "FM98.M88" is "FM98.m88" as well.
QString Found(const QString& dir, const char* name)
{
    return FindFileNoCase(dir, QString::fromLatin1(name));
}

int Power10(int j)
{
    int p = 1;
    while (j-- > 0)
        p *= 10;
    return p;
}

// A hidden module goes back under its name: by a rename, which needs no room, else by a copy
// whose source goes only once the copy stands. One that stays hidden is told.
void BringBack(const QString& hidden, const QString& visible)
{
    if (ShellMove(hidden, visible, 0))
        return;
    if (ShellCopy(hidden, visible, 0)) {
        ShellDelete(hidden, 0);
        return;
    }
    MsgBox(QStringLiteral("M88のモジュール %1 を元に戻せませんでした。\r\n\r\n%2 "
                          "として残っています。")
               .arg(QFileInfo(visible).fileName(), hidden),
           MbExclamation);
}

} // namespace

void HideM88Modules(ModuleState& out, uint8_t DefOpt)
{
    HideM88Modules(out, ChosenOpt88(DefOpt));
}

void HideM88Modules(ModuleState& out, const EmuOpt88& block)
{
    const QString dir = VbTrim(Cfg.M88Dir);
    const QString saveDir = M88SaveDir;
    out.fill(0);
    for (int k = 0; k < kM88ModuleCount; ++k) {
        const auto& files = M88Modules[k];
        bool wanted = block.M88_5Op[k] == 1;
        if (wanted) {
            for (int j = kM88ModuleFiles - 1; j >= 0; --j) {
                const char* name = files[j].visible;
                if (name == nullptr || *name == 0)
                    continue;
                // A module that can't be made whole is hidden as a whole.
                if (Found(dir, name).isEmpty() && Found(saveDir, name).isEmpty()) {
                    wanted = false;
                    break;
                }
            }
        }
        for (int j = 0; j < kM88ModuleFiles; ++j) {
            const char* name = files[j].visible;
            if (name == nullptr || *name == 0)
                continue;
            const QString here = Found(dir, name);
            if (wanted) {
                const QString saved = Found(saveDir, name);
                if (here.isEmpty() && !saved.isEmpty()) {
                    ShellCopy(saved, In(dir, name), 0);
                    out[k] = static_cast<uint8_t>(out[k] + 1 * Power10(j));
                }
            } else if (!here.isEmpty()) {
                // Copy and delete rather than rename, as the file operations verify each step;
                // a module whose copy failed stays where it is, never deleted.
                if (ShellCopy(here, In(dir, files[j].hidden), 0)) {
                    ShellDelete(here, 0);
                    out[k] = static_cast<uint8_t>(out[k] + 2 * Power10(j));
                }
            }
        }
    }
}

void RestoreM88Modules(ModuleState& state)
{
    const QString dir = VbTrim(Cfg.M88Dir);
    for (int k = 0; k < kM88ModuleCount; ++k) {
        const auto& files = M88Modules[k];
        for (int j = kM88ModuleFiles - 1; j >= 0; --j) {
            const int p = Power10(j);
            const int d = state[k] / p;
            const char* name = files[j].visible;
            if (name != nullptr && *name != 0) {
                if (const QString here = Found(dir, name); d == 1 && !here.isEmpty()) {
                    ShellDelete(here, 0);
                } else if (const QString hidden = Found(dir, files[j].hidden);
                           d == 2 && !hidden.isEmpty()) {
                    BringBack(hidden, In(dir, name));
                }
            }
            state[k] = static_cast<uint8_t>(state[k] % p);
        }
    }
}

} // namespace tv
