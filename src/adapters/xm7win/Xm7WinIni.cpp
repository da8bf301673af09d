#include "adapters/xm7win/Xm7WinIni.h"

namespace tv {

namespace {

// One "key=value" line; values are plain decimal, a byte as it stands.
void Put(QString& out, const QString& key, int value)
{
    out += key + QString::number(value) + QStringLiteral("\r\n");
}

void Put(QString& out, const char* key, int value)
{
    Put(out, QString::fromLatin1(key), value);
}

void Header(QString& out, const char* name, bool first)
{
    if (!first)
        out += QStringLiteral("\r\n");
    out += QString::fromLatin1(name) + QStringLiteral("\r\n");
}

} // namespace

int Xm7WinSampleRateHz(int code)
{
    switch (code) {
    case 0:
    case 2:
    case 4:
    case 8:
        return code * 11025;
    case 5:
        return 48000;
    case 9:
        return 96000;
    default:
        return 44100;
    }
}

QString MakeXm7WinIni(const EmuOptFM& block)
{
    const auto& b = block.Xm7Win_1Op;
    const auto& w = block.Xm7Win_2Op;
    const auto& k = block.Xm7Win_3Op;
    // Only the FM77AV40EX knows the fast MMR, TrueColor full screen and the 768 KB RAM card.
    const bool av40ex = b[0] == 3;
    QString out;

    Header(out, "[General]", true);
    Put(out, "Version=", b[0]);
    Put(out, "CycleSteal=", b[1]);
    Put(out, "MainSpeed=", w[0]);
    Put(out, "MMRSpeed=", w[1]);
    if (av40ex)
        Put(out, "FastMMRSpeed=", w[5]);
    Put(out, "SubSpeed=", w[2]);
    Put(out, "TapeFullSpeed=", b[2]);
    Put(out, "TapeFullSpeedMode=", b[38]);
    Put(out, "FullSpeed=", b[37]);
    Put(out, "AutoSpeedAdjust=", b[39]);
    Put(out, "FDDWait=", b[40]);

    Header(out, "[Sound]", false);
    Put(out, "SampleRate=", Xm7WinSampleRateHz(b[3]));
    Put(out, "SoundBuffer=", w[3]);
    Put(out, "BeepFreq=", w[4]);
    Put(out, "FMHQmode=", b[4]);
    Put(out, "StereoOut=", b[5]);
    Put(out, "TapeMon=", b[6]);
    Put(out, "UseROMEO=", b[41]);
    Put(out, "FDDSound=", b[42]);

    Header(out, "[Keyboard]", false);
    Put(out, "RealTimeKeyScan=", b[43]);
    Put(out, "UseArrowFor10Key=", b[44]);
    Put(out, "Arrow8Dir=", b[45]);
    out += QStringLiteral("\r\n");
    // The file is keyed by the PC's code, the block by the FM-7 key: for each code the lowest
    // FM-7 key holding it wins, so a code held twice (a damaged block) is written once.
    for (int code = 1; code <= 255; ++code) {
        for (int key = 1; key <= 102; ++key) {
            if (k[key] == code) {
                out += QStringLiteral("Key%1=%2\r\n").arg(code).arg(key);
                break;
            }
        }
    }

    Header(out, "[JoyStick]", false);
    Put(out, "Type0=", b[7]);
    Put(out, "Rapid0=", b[8]);
    Put(out, "Rapid1=", b[9]);
    for (int i = 0; i <= 6; ++i)
        Put(out, QStringLiteral("Code%1=").arg(i), b[10 + i]);
    Put(out, "Type1=", b[17]);
    Put(out, "Rapid10=", b[18]);
    Put(out, "Rapid11=", b[19]);
    for (int i = 0; i <= 6; ++i)
        Put(out, QStringLiteral("Code1%1=").arg(i), b[20 + i]);

    Header(out, "[Screen]", false);
    Put(out, "DD480Line=", b[27]);
    Put(out, "FullScan=", b[28]);
    Put(out, "FullScanFS=", b[46]);
    Put(out, "DD480Status=", b[29]);
    if (av40ex)
        Put(out, "DDTrueColor=", b[47]);

    Header(out, "[Option]", false);
    Put(out, "OPNEnable=", b[48]);
    Put(out, "WHGEnable=", b[30]);
    Put(out, "THGEnable=", b[31]);
    Put(out, "DigitizeEnable=", b[32]);
    if (av40ex)
        Put(out, "ExtRAMEnable=", b[33]);
    Put(out, "MouseEmulation=", b[35]);
    // Port 0 doesn't exist; the emulator gets port 1 instead.
    Put(out, "MousePort=", b[36] == 0 ? 1 : b[36]);
    // Only the "off" state of the BUSY delay is written; otherwise the emulator's default holds.
    if (b[34] == 1)
        out += QStringLiteral("SubBusyDelay=0\r\n");
    // Every line ends in CR LF and no line ends in a blank, so the closing trim of blanks
    // leaves the text as it is.
    return out;
}

} // namespace tv
