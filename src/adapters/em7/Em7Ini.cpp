#include "adapters/em7/Em7Ini.h"

#include <utility>

namespace tv {

QString MakeEm7Ini(const EmuOptFM& block)
{
    const auto& b = block.Em7Win_1Op;
    const auto& w = block.Em7Win_2Op;
    const std::pair<const char*, int> lines[] = {
        {"CpuWait=", b[3]},   {"FlipFreq=", b[4]}, {"SubNmi=", b[5]}, {"McpuIrq=", w[0]},
        {"KeyCh_ESC=", b[0]}, {"BootMode=", b[1]}, {"DspMode=", b[2]}};
    QString out = QStringLiteral("[T1_SETTING]\r\n");
    // Values go out as they stand, also outside the dialog's ranges: the block is kept as read.
    for (const auto& [key, value] : lines)
        out += QString::fromLatin1(key) + QString::number(value) + QStringLiteral("\r\n");
    // The closing trim takes blanks only, and no line ends in one: the last CR LF stays, and
    // the launch's write puts one more behind it.
    return out;
}

} // namespace tv
