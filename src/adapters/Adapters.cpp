#include "adapters/Adapters.h"

#include "launch/EmuAdapter.h"

#include <memory>

namespace tv {

// Each emulator's folder makes its adapter; this list is the one place that knows them all.
std::unique_ptr<EmuAdapter> MakeP88srAdapter();
std::unique_ptr<EmuAdapter> MakeM88Adapter();
std::unique_ptr<EmuAdapter> MakePc88WinAdapter();
std::unique_ptr<EmuAdapter> MakeX88kAdapter();
std::unique_ptr<EmuAdapter> MakeQuasi88Adapter();
std::unique_ptr<EmuAdapter> MakeJ80Adapter();
std::unique_ptr<EmuAdapter> MakeXm7DosAdapter();
std::unique_ptr<EmuAdapter> MakeXm7WinAdapter();
std::unique_ptr<EmuAdapter> MakeEm7Adapter();
std::unique_ptr<EmuAdapter> MakeX1rAdapter();
std::unique_ptr<EmuAdapter> MakeXmilAdapter();
std::unique_ptr<EmuAdapter> MakeX1emuAdapter();
std::unique_ptr<EmuAdapter> MakeWinX1Adapter();

void RegisterAdapters()
{
    RegisterAdapter(Emu::P88sr, MakeP88srAdapter());
    RegisterAdapter(Emu::M88, MakeM88Adapter());
    RegisterAdapter(Emu::PC88Win, MakePc88WinAdapter());
    RegisterAdapter(Emu::X88k, MakeX88kAdapter());
    RegisterAdapter(Emu::QUASI88, MakeQuasi88Adapter());
    RegisterAdapter(Emu::J80, MakeJ80Adapter());
    RegisterAdapter(Emu::Xm7Dos, MakeXm7DosAdapter());
    RegisterAdapter(Emu::Xm7Win, MakeXm7WinAdapter());
    RegisterAdapter(Emu::Em7Win, MakeEm7Adapter());
    RegisterAdapter(Emu::X1r, MakeX1rAdapter());
    RegisterAdapter(Emu::Xmil, MakeXmilAdapter());
    RegisterAdapter(Emu::X1emu, MakeX1emuAdapter());
    RegisterAdapter(Emu::WinX1, MakeWinX1Adapter());
}

} // namespace tv
