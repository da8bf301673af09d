#pragma once
// The registration of every emulator's launch adapter. The program calls it at its start and
// the test programs in their mains; until then every emulator has the default adapter, which
// is never ready.

namespace tv {

void RegisterAdapters();

} // namespace tv
