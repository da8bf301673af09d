// Fuzzes the program header reader with arbitrary file contents. The first input byte chooses
// the file's extension; the rest is the file. Checks the answer against the bytes: a native
// or script signature is recognised, a PE or NE answer has its signature where e_lfanew
// points, a DOS header is never taken for anything but MZ, PE or NE, and only a .COM without
// a signature is a .COM. The detected runner follows the answer.
#include "launch/Runner.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdint>
#include <cstdlib>

namespace {

QTemporaryDir* root = nullptr;

uint32_t Lfanew(const QByteArray& b)
{
    uint32_t v = 0;
    for (int i = 0; i < 4; ++i)
        v |= uint32_t(uint8_t(b[0x3C + i])) << (8 * i);
    return v;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (!root) {
        root = new QTemporaryDir();
        if (!root->isValid())
            std::abort();
    }
    if (size < 1)
        return 0;
    static const char* const names[] = {"/PROG.EXE", "/PROG.COM", "/prog.com", "/prog"};
    const QString path = root->path() + names[data[0] % 4];
    const QByteArray b(reinterpret_cast<const char*>(data + 1), qsizetype(size - 1));
    {
        QFile f(path);
        if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate) || f.write(b) != b.size())
            std::abort();
    }
    const bool com = data[0] % 4 == 1 || data[0] % 4 == 2;
    const tv::ProgramHeader h = tv::ReadProgramHeader(path);
    using H = tv::ProgramHeader;
    if (b.startsWith("\x7f"
                     "ELF")) {
        if (h != H::Elf)
            std::abort();
    } else if (b.startsWith("#!")) {
        if (h != H::Script)
            std::abort();
    } else if (b.startsWith("MZ") || b.startsWith("ZM")) {
        if (h != H::Mz && h != H::Pe && h != H::Ne)
            std::abort();
        if (h != H::Mz) {
            if (b.size() < 0x40)
                std::abort();
            const uint32_t at = Lfanew(b);
            const QByteArray sig = b.mid(qsizetype(at), h == H::Pe ? 4 : 2);
            if (sig != (h == H::Pe ? QByteArray("PE\0\0", 4) : QByteArray("NE")))
                std::abort();
        }
    } else if (h != (com ? H::Com : H::Unknown)) {
        std::abort();
    }
    const tv::RunnerKind k = tv::RunnerForHeader(h);
    const bool wine = h == H::Pe || h == H::Ne;
    const bool dos = h == H::Mz || h == H::Com;
    if ((k == tv::RunnerKind::Wine) != wine || (k == tv::RunnerKind::DosBox) != dos)
        std::abort();
    QFile::remove(path);
    return 0;
}
