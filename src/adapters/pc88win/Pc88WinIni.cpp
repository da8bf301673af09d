#include "adapters/pc88win/Pc88WinIni.h"

#include "launch/EmuAdapter.h"
#include "util/SubFunction.h"

namespace tv {

namespace {

QString Line(const char* key, long long value)
{
    return QString::fromLatin1(key) + QString::number(value) + QStringLiteral("\r\n");
}

} // namespace

QString MakePc88WinIni(const EmuOpt88& r)
{
    const auto& o = r.Pc8_1Op;
    QString t = QStringLiteral("[PC88Win]\r\n");
    t += Line("Mode=", o[0]);
    t += Line("Speed=", o[1]);
    t += Line("Sampling=", o[2]);
    // PC88Win gets its fixed FM volume; the block's FM volume (Pc8_2Op[0]) is kept and shown
    // by the dialog but has never reached the file, unlike the SSG volume below.
    t += QStringLiteral("FMvolume=512\r\n");
    t += Line("SSGvolume=", r.Pc8_2Op[1]);
    t += Line("FPS=", o[3]);
    t += Line("Imode=", o[4]);
    t += Line("SoundPriority=", o[5]);
    t += Line("VirtualKey=", o[6]);
    t += Line("FMdevice=", o[7]);
    return VbTrim(t);
}

bool WritePc88WinIni(const QString& path, const QString& text)
{
    return WriteConfText(path, text);
}

} // namespace tv
