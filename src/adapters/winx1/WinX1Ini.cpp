#include "adapters/winx1/WinX1Ini.h"

#include "launch/LaunchCommand.h"
#include "util/Globals.h"

#include <string>

namespace tv {

namespace {

// The index into the pair "false", "true": any other value is out of its bounds.
QString Bool(int value, const char* key)
{
    if (value == 0)
        return QStringLiteral("false");
    if (value == 1)
        return QStringLiteral("true");
    throw WinX1IniError(std::string("WinX1 INI: ") + key +
                        " out of bounds: " + std::to_string(value));
}

} // namespace

QString WinX1Stem(uint8_t ikaUse)
{
    return ikaUse == 1 ? QStringLiteral("WinX1_ika") : QStringLiteral("winx1");
}

QString WinX1IniName(uint8_t ikaUse)
{
    return WinX1Stem(ikaUse) + QStringLiteral(".ini");
}

QString WinX1FrameNum(int divisor)
{
    if (divisor == 0)
        throw WinX1IniError("WinX1 INI: FrameNum divided by zero");
    // The quotient is a single-precision number; it prints with seven significant digits at
    // most and without trailing zeros, as such a number did in the emulator's home platform.
    const float q = 60.0f / static_cast<float>(divisor);
    return QString::number(static_cast<double>(q), 'g', 7);
}

QString MakeWinX1Ini(const EmuOptX1& block)
{
    // WinX1 is a Windows program: it sees paths in Wine's form.
    return MakeWinX1Ini(block, ToWinePath(WorkDir));
}

QString MakeWinX1Ini(const EmuOptX1& block, const QString& startDir)
{
    const auto& o = block.WinX1_1Op;
    QString t;
    auto line = [&t](const QString& key, const QString& value) {
        t += key + value + QStringLiteral("\r\n");
    };
    auto num = [](qint64 v) { return QString::number(v); };

    t += QStringLiteral("[WinX1]\r\n");
    line(QStringLiteral("WinPosX="), {});
    line(QStringLiteral("WinPosY="), {});
    line(QStringLiteral("StartDir="), startDir);
    line(QStringLiteral("OPM="), Bool(o[0], "OPM"));
    line(QStringLiteral("OPM_Volume="), num(o[1]));
    line(QStringLiteral("PSG_Volume="), num(o[2]));
    line(QStringLiteral("SampleRate="), num(qint64(o[3]) * 11025));
    line(QStringLiteral("BufferSize="), num(o[4]));
    line(QStringLiteral("DSFailAlert="), Bool(o[5], "DSFailAlert"));
    // The last element of the array, written here in the emulator's own order.
    line(QStringLiteral("UseRomeo="), Bool(o[19], "UseRomeo"));
    line(QStringLiteral("SkipLine="), Bool(o[6], "SkipLine"));
    line(QStringLiteral("FrameNum="), WinX1FrameNum(o[7]));
    line(QStringLiteral("FDD_LED="), Bool(o[8], "FDD_LED"));
    line(QStringLiteral("DIP_SW="), QString::number(o[9]).rightJustified(2, QLatin1Char('0')));
    line(QStringLiteral("IPL_TYPE="), num(o[10]));
    for (int i = 0; i < 4; ++i)
        line(QStringLiteral("Joy1Button%1=").arg(i + 1), num(o[11 + i]));
    for (int i = 0; i < 4; ++i)
        line(QStringLiteral("Joy2Button%1=").arg(i + 1), num(o[15 + i]));
    // The trim of blanks at the end finds none: the text keeps its last CR LF.
    return t;
}

} // namespace tv
