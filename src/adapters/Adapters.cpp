#include "adapters/Adapters.h"

#include "adapters/fm7x1/Fm7X1Adapters.h"
#include "adapters/pc88/Pc88Adapters.h"

namespace tv {

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
