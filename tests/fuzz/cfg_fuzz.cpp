// The configuration record read from arbitrary bytes, as a damaged or foreign TORVANE.CFG
// would give them: the read never fails on content, every field stays in its place (the
// record written back is always 12124 bytes), and what is written back reads back to the
// same bytes.
#include "data/Cfg.h"
#include "fuzz/FuzzDirs.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString app = tvfuzz::FuzzAppDir();
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    tvfuzz::WriteBytes(app + "/" + tv::kCfgFileName, bytes);

    tv::CfgRecord c;
    tv::SetDefaultCfg(c);
    Check(tv::ReadCfg(c));
    const QByteArray once = tv::EncodeCfg(c);
    Check(once.size() == tv::kCfgSize);

    tv::CfgRecord again;
    tv::SetDefaultCfg(again);
    tv::DecodeCfg(once, again);
    Check(tv::EncodeCfg(again) == once);

    // The directories resolve from whatever the record holds: a blank one is the program's.
    tv::ResolveCfgDirs(c);
    Check(!tv::ImageDir[0].isEmpty());
    return 0;
}
