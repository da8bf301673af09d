#pragma once
// A Windows program's first bytes, enough for the header sniffing of the runners: "MZ",
// e_lfanew 0x40, then the signature and, after it, the machine.
#include <QByteArray>

namespace tvtest {

inline QByteArray WindowsExe(const QByteArray& signature, quint16 machine)
{
    QByteArray b(0x80, '\0');
    b[0] = 'M';
    b[1] = 'Z';
    b[0x3C] = 0x40;
    b.replace(0x40, signature.size(), signature);
    b[0x40 + 4] = char(machine & 0xFF);
    b[0x40 + 5] = char(machine >> 8);
    return b;
}

// A 32-bit x86 Windows program.
inline QByteArray Pe32Exe()
{
    return WindowsExe(QByteArray("PE\0\0", 4), 0x014C);
}

} // namespace tvtest
