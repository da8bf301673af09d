#include "adapters/p88sr/P88srOption.h"

#include "launch/EmuAdapter.h"
#include "util/SubFunction.h"

namespace tv {

namespace {

// The value of value slot k: slots 0 to 7 are small values, 8 to 14 large ones.
QString SlotValue(const EmuOpt88& r, int k)
{
    return k < 8 ? QString::number(r.P88_2Op[k]) : QString::number(r.P88_3Op[k]);
}

// The value written directly behind the switch of row i; empty for a bare switch.
QString RowValue(const EmuOpt88& r, int i)
{
    if (i == 18) // FM volume, a blank, ADPCM volume: slots 3 and 4
        return SlotValue(r, 3) + QLatin1Char(' ') + SlotValue(r, 4);
    if (i == 19) // "s1" stays bare; slot 4 belongs to row 18
        return {};
    if (i == 33) {
        // The key codes are fixed fields of two characters, written one behind the other.
        QString keys;
        for (const QString& k : r.P88_4Op)
            keys += k.leftJustified(2, QLatin1Char(' '), true);
        return keys;
    }
    for (int k = 0; k < static_cast<int>(P88ValueIndex.size()); ++k)
        if (P88ValueIndex[k] == i)
            return SlotValue(r, k);
    return {};
}

} // namespace

QString MakeP88srOption(const EmuOpt88& r)
{
    QString line;
    for (int i = 0; i <= 43; ++i) {
        if (r.P88_1Op[i] != 1)
            continue;
        line += QStringLiteral(" -") +
                QString::fromLatin1(P88SwitchName[i]).remove(QLatin1Char(' ')) + RowValue(r, i);
    }
    return VbTrim(line);
}

QString MakeP88srCfg(const EmuOpt88& record, bool panUse, std::optional<int> saveSlot)
{
    QString line = MakeP88srOption(record);
    while (line.startsWith(QLatin1Char(' ')))
        line.remove(0, 1);
    // A save state is loaded only when the first drive holds the title, not the FMPAN disk.
    // The slot goes behind the trimmed line, so with no switch on the line starts with a blank.
    if (!panUse && saveSlot)
        line += QStringLiteral(" -L") + QString::number(*saveSlot);
    return line;
}

bool WriteP88srCfg(const QString& path, const QString& text)
{
    return WriteConfText(path, text);
}

} // namespace tv
