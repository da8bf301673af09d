// Unpacks any input as a CAB archive into a scratch directory: no crash, no file outside it.
#include "UnpackFuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    return FuzzUnpack(tv::ArcFormat::Cab, data, size);
}
