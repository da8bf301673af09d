// What a program file is, from its first bytes, and the runner that fits it. Kept apart from
// the rest of the runners so that the header reader can be fuzzed on its own.
#include "data/ByteCodec.h"
#include "launch/Runner.h"

#include <QFile>
#include <QFileInfo>

namespace tv {

namespace {

// The DOS header's field that points at a newer executable header.
constexpr qsizetype kLfanewOffset = 0x3C;

// The signature at e_lfanew of an "MZ" program: PE, NE, or anything else (LE and LX of the
// DOS extenders, or no newer header at all). `bits` gets 16 for NE, 32 or 64 for PE by the
// machine that follows the signature, 0 for anything else.
ProgramHeader NewHeaderOf(QFile& f, const QByteArray& head, int& bits)
{
    ByteReader r(head, kLfanewOffset);
    int32_t lfanew = 0;
    if (!r.i32(lfanew) || lfanew < 2 || lfanew > f.size() - 2)
        return ProgramHeader::Mz;
    if (!f.seek(lfanew))
        return ProgramHeader::Mz;
    QByteArray sig;
    const QByteArray bytes = f.read(6);
    ByteReader s(bytes);
    if (!s.raw(sig, 2))
        return ProgramHeader::Mz;
    if (sig == "NE") {
        bits = 16;
        return ProgramHeader::Ne;
    }
    QByteArray tail;
    if (sig != "PE" || !s.raw(tail, 2) || tail != QByteArray("\0\0", 2))
        return ProgramHeader::Mz;
    int16_t machine = 0;
    if (s.i16(machine)) {
        if (uint16_t(machine) == 0x014C)
            bits = 32;
        else if (uint16_t(machine) == 0x8664 || uint16_t(machine) == 0xAA64)
            bits = 64;
    }
    return ProgramHeader::Pe;
}

bool IsComName(const QString& path)
{
    return QFileInfo(path).suffix().compare(QLatin1String("COM"), Qt::CaseInsensitive) == 0;
}

ProgramHeader ReadHeader(const QString& programPath, int& bits)
{
    const QFileInfo fi(programPath);
    if (programPath.isEmpty() || !fi.isFile())
        return ProgramHeader::Missing;
    QFile f(programPath);
    if (!f.open(QIODevice::ReadOnly))
        return ProgramHeader::Missing;
    const QByteArray head = f.read(64);
    if (head.startsWith("\x7f"
                        "ELF"))
        return ProgramHeader::Elf;
    if (head.startsWith("#!"))
        return ProgramHeader::Script;
    if (head.startsWith("MZ") || head.startsWith("ZM"))
        return NewHeaderOf(f, head, bits);
    // A .COM is a memory image with no header at all: whatever it begins with is code.
    if (IsComName(programPath))
        return ProgramHeader::Com;
    return ProgramHeader::Unknown;
}

} // namespace

ProgramHeader ReadProgramHeader(const QString& programPath, int* windowsBits)
{
    int bits = 0;
    const ProgramHeader h = ReadHeader(programPath, bits);
    if (windowsBits)
        *windowsBits = bits;
    return h;
}

RunnerKind RunnerForHeader(ProgramHeader header)
{
    switch (header) {
    case ProgramHeader::Pe:
    case ProgramHeader::Ne:
        return RunnerKind::Wine;
    case ProgramHeader::Mz:
    case ProgramHeader::Com:
        return RunnerKind::DosBox;
    case ProgramHeader::Elf:
    case ProgramHeader::Script:
    case ProgramHeader::Missing:
    case ProgramHeader::Unknown:
        break;
    }
    return RunnerKind::Direct;
}

} // namespace tv
