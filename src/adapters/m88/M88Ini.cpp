#include "adapters/m88/M88Ini.h"

#include "launch/EmuAdapter.h"
#include "launch/LaunchCommand.h"

#include "data/Cfg.h"
#include "util/Globals.h"

#include <QDir>

#include <cmath>

namespace tv {

namespace {

// The sums are formed in double precision, as the file format was defined, and printed as
// plain decimal integers.
template <size_t N> qint64 BitSum(const std::array<uint8_t, N>& a, std::initializer_list<int> bits)
{
    double sum = 0;
    for (int i : bits)
        if (a[i] == 1)
            sum += std::pow(2.0, i);
    return static_cast<qint64>(sum);
}

QString Line(const char* key, qint64 value)
{
    return QString::fromLatin1(key) + QString::number(value) + QStringLiteral("\r\n");
}

QString SoundLine(const EmuOpt88& r)
{
    switch (r.M88_1Op[4]) {
    case 0:
        return QStringLiteral("Sound=0");
    case 1:
        return QStringLiteral("Sound=11025");
    case 2:
        return QStringLiteral("Sound=22050");
    case 3:
    case 4:
        return QStringLiteral("Sound=44100");
    case 5:
        return QStringLiteral("Sound=48000");
    case 6:
        return QStringLiteral("Sound=55467");
    case 7:
        return QStringLiteral("Sound=88200");
    case 8:
        return QStringLiteral("Sound=96000");
    case 9:
        return QStringLiteral("Sound=") + QString::number(r.M88_8Op[0]);
    default:
        return QStringLiteral("Sound=22050");
    }
}

} // namespace

qint64 M88FlagsValue(const EmuOpt88& r)
{
    double sum = 0;
    for (int i = 0; i <= 31; ++i) {
        if (i == 11 || i == 28 || i == 31)
            continue;
        if (r.M88_2Op[i] == 1)
            sum += std::pow(2.0, i);
    }
    return static_cast<qint64>(sum);
}

qint64 M88Flag2Value(const EmuOpt88& r)
{
    return BitSum(r.M88_3Op, {0, 1, 5, 6, 7, 8, 9, 10, 11, 12});
}

qint64 M88SwitchesValue(const EmuOpt88& r)
{
    return BitSum(r.M88_4Op, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11});
}

QString M88PathForm(const QString& nativePath)
{
    // M88 is a Windows program: it sees paths in Wine's form.
    return ToWinePath(nativePath);
}

QString MakeM88Ini(const EmuOpt88& record)
{
    return MakeM88Ini(record, M88PathForm(Cfg.M88Dir.trimmed()), M88PathForm(WorkDir));
}

QString MakeM88Ini(const EmuOpt88& r, const QString& biosPath, const QString& directory)
{
    const auto& o1 = r.M88_1Op;
    QString t;
    t += QStringLiteral("[M88p2 for Windows]\r\n");
    t += QStringLiteral("BIOSPath=") + biosPath + QStringLiteral("\r\n");
    t += QStringLiteral("Directory=") + directory + QStringLiteral("\r\n");
    t += Line("Flags=", M88FlagsValue(r));
    t += Line("Flag2=", M88Flag2Value(r));
    t += Line("CPUClock=", o1[1] * 10);
    t += Line("Speed=", o1[2] * 10);
    t += Line("RefreshTiming=", o1[3]);
    t += Line("BASICMode=", o1[0]);
    t += SoundLine(r) + QStringLiteral("\r\n");
    t += Line("Switches=", M88SwitchesValue(r));
    t += Line("SoundBuffer=", o1[5] * 10);
    t += Line("MouseSensibility=", o1[6]);
    t += Line("CPUMode=", o1[7]);
    t += Line("KeyboardType=", o1[8]);
    t += Line("ROMEOLatency=", r.M88_7Op[0]);
    t += Line("ERAMBank=", o1[20] == 1 ? o1[19] + 1 : 0);
    t += Line("LPFCutoff=", o1[21] * 1000);
    t += Line("LPFOrder=", o1[22]);

    const bool fm98 = r.M88_5Op[7] == 1;
    const bool romeo = o1[24] == 1;
    static const char* const volumeKeys[] = {
        "VolumeFM=", "VolumeSSG=", "VolumeADPCM=", "VolumeRhythm=", "VolumeBD=",
        "VolumeSD=", "VolumeTOP=", "VolumeHH=",    "VolumeTOM=",    "VolumeRIM="};
    if (fm98 || romeo) {
        // A real chip (ROMEO) or the FM98 board sounds instead of the emulated one; ADPCM
        // stays audible unless FM98 plays it from its own DRAM.
        for (int i = 0; i < 10; ++i) {
            qint64 v = 0;
            if (i == 2 && (romeo || o1[26] == 0))
                v = o1[11];
            t += Line(volumeKeys[i], v);
        }
    } else {
        for (int i = 0; i < 10; ++i)
            t += Line(volumeKeys[i], o1[9 + i]);
    }

    if (r.M88_5Op[4] == 1) {
        t += QStringLiteral("\r\n[PCG_SOUND]\r\n");
        t += Line("Volume0=", r.M88_6Op[0]);
        t += Line("Volume1=", r.M88_6Op[1]);
        t += Line("Volume2=", r.M88_6Op[2]);
    }
    if (fm98) {
        t += QStringLiteral("\r\n[FM98]\r\n");
        t += Line("LATENCY=", r.M88_7Op[1]);
        t += Line("IOPORT=", o1[25]);
        t += Line("FMWAIT=", r.M88_8Op[1]);
        t += Line("USE_DRAM=", o1[26]);
        t += Line("DRAM_WAIT=", r.M88_8Op[2]);
        t += Line("USE_0AXH=", o1[27]);
    }

    // Trimmed at the end: the last line end goes, and the write puts one back.
    qsizetype n = t.size();
    while (n > 0 && (t[n - 1] == QLatin1Char(' ') || t[n - 1] == QLatin1Char('\r') ||
                     t[n - 1] == QLatin1Char('\n')))
        --n;
    t.truncate(n);
    return t;
}

bool WriteM88Ini(const QString& path, const QString& text)
{
    return WriteConfText(path, text);
}

} // namespace tv
