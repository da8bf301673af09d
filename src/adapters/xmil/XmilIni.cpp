#include "adapters/xmil/XmilIni.h"

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
    throw XmilIniError(std::string("Xmillennium.ini: ") + key +
                       " out of bounds: " + std::to_string(value));
}

// Upper-case hexadecimal with at least two digits ("0A", "FF"); a wider value keeps its digits.
QString Hex2(qint64 value)
{
    return QString::number(value, 16).toUpper().rightJustified(2, QLatin1Char('0'));
}

QString SampleLine(int code)
{
    switch (code) {
    case 0:
        return QStringLiteral("SampleHz=11025");
    case 1:
        return QStringLiteral("SampleHz=16000");
    case 3:
        return QStringLiteral("SampleHz=24000");
    case 4:
        return QStringLiteral("SampleHz=32000");
    case 5:
        return QStringLiteral("SampleHz=33075");
    case 6:
        return QStringLiteral("SampleHz=44100");
    case 7:
        return QStringLiteral("SampleHz=48000");
    case 8:
        return QStringLiteral("SampleHz=55500");
    case 9:
        return QStringLiteral("SampleHz=62500");
    case 10:
        return QStringLiteral("SampleHz=88200");
    case 11:
        return QStringLiteral("SampleHz=96000");
    default:
        return QStringLiteral("SampleHz=22050");
    }
}

} // namespace

QString MakeXmilIni(const EmuOptX1& block, uint8_t TuneUse)
{
    // X millennium is a Windows program: it sees paths in Wine's form. The X1 family is 2.
    return MakeXmilIni(block, TuneUse, ToWinePath(SnapDir[2]));
}

QString MakeXmilIni(const EmuOptX1& block, uint8_t TuneUse, const QString& snapDir)
{
    const auto& o = block.Xmil_1Op;
    QString t;
    auto line = [&t](const char* key, const QString& value) {
        t += QLatin1String(key) + value + QStringLiteral("\r\n");
    };
    auto num = [](qint64 v) { return QString::number(v); };
    auto flag = [&o](int i, const char* key) { return Bool(o[i], key); };

    t += QStringLiteral("[Xmillennium]\r\n");
    line("WindposX=", {});
    // The second key differs in case from the first; the emulator's own file has it so.
    line("WindPosY=", {});
    line("Win_Snap=", flag(0, "Win_Snap"));
    line("backgrnd=", num(o[1]));
    line("DspClock=", num(block.Xmil_3Op[0] + 2 * block.Xmil_3Op[1]));
    // The working directory reaches the emulator as its current directory, not here.
    line("StartDir=", {});
    line("bmap_Dir=", snapDir + QLatin1Char('\\'));
    line("IPL_TYPE=", num(o[2]));
    if (TuneUse == 1)
        line("cpu_8MHz=", num(o[3]));
    else // the plain build knows two speeds: 4 MHz, and the fast one for every other value
        line("cpu_8MHz=", o[3] == 4 ? QStringLiteral("false") : QStringLiteral("true"));
    line("Resolute=", Hex2(block.Xmil_4Op[0] + 4 * block.Xmil_4Op[2]));
    line("SkipLine=", flag(4, "SkipLine"));
    line("s_NOWAIT=", flag(5, "s_NOWAIT"));
    line("SkpFrame=", num(o[6]));
    line("LinLIGHT=", Hex2(o[7]));
    line("BlkLIGHT=", Hex2(o[8]));
    line("TxtLIGHT=", Hex2(o[9]));
    line("Text_Ext=", flag(10, "Text_Ext"));
    line("Text_400=", num(o[11]));
    line("OPMsound=", flag(12, "OPMsound"));
    t += SampleLine(o[13]) + QStringLiteral("\r\n");
    line("Latencys=", num(block.Xmil_2Op[0]));
    line("SoundPly=", flag(14, "SoundPly"));
    line("D_Sound3=", flag(15, "D_Sound3"));
    line("PUCHInos=", flag(16, "PUCHInos"));
    line("Seek_Snd=", flag(17, "Seek_Snd"));
    line("Seek_Vol=", num(o[18]));
    line("Joystick=", flag(19, "Joystick"));
    line("btnRAPID=", flag(20, "btnRAPID"));
    line("btn_MODE=", flag(21, "btn_MODE"));
    line("MouseInt=", flag(22, "MouseInt"));
    line("Info_Bar=", flag(26, "Info_Bar"));
    line("ROMEO_SW=", flag(25, "ROMEO_SW"));
    // The element means "use the YMF288's SSG"; the key means the opposite.
    line("OPM_ONLY=", Bool(o[27], "OPM_ONLY") == QLatin1String("true") ? QStringLiteral("false")
                                                                       : QStringLiteral("true"));
    line("OPM_Mvol=", num(o[28] - 30));
    line("PSG_Mvol=", num(o[29] - 30));
    line("OPMLPFFr=", num(block.Xmil_5Op[0]));
    line("clocknow=", num(o[23]));
    line("clockfnt=", num(o[24]));

    // The trim of blanks at the end finds none: the text keeps its last CR LF.
    return t;
}

} // namespace tv
