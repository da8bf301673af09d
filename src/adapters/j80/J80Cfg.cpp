#include "adapters/j80/J80Cfg.h"

#include "launch/EmuAdapter.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

namespace tv {

namespace {

const QString kTab = QStringLiteral("\t");
const QString kCrLf = QStringLiteral("\r\n");

QString Slashes(const QString& path)
{
    QString p = VbTrim(path);
    p.replace(QLatin1Char('\\'), QLatin1Char('/'));
    return p;
}

// An entry of a file with its load address; without an address the "0x" field is left out.
QString RomEntry(const char* key, const QString& file, const QString& address)
{
    QString t = kTab + QString::fromLatin1(key) + kTab + Slashes(file);
    const QString a = VbTrim(address);
    if (!a.isEmpty())
        t += kTab + QStringLiteral("0x") + a;
    return t + kCrLf;
}

// The optional entries: with no file the key stands alone and without a line end, so the
// next entry continues its line. The files j80 has been given this way ever since, so it
// stays.
QString OptionalRomEntry(const char* key, const QString& file, const QString& address)
{
    if (VbTrim(file).isEmpty())
        return kTab + QString::fromLatin1(key);
    return RomEntry(key, file, address);
}

QString Entry(const char* key, const QString& value)
{
    return kTab + QString::fromLatin1(key) + kTab + value + kCrLf;
}

} // namespace

QString MakeJ80Cfg(const EmuOpt88& record)
{
    return MakeJ80Cfg(record, Cfg, WorkDir);
}

QString MakeJ80Cfg(const EmuOpt88& r, const CfgRecord& c, const QString& workDir)
{
    const QString work = Slashes(workDir);
    const QString pen = VbTrim(c.J80PenDir).isEmpty() ? work : Slashes(c.J80PenDir);
    QString t;
    t += RomEntry("ROMs", c.J80RomsFile, c.J80RomsAddress);
    t += OptionalRomEntry("ROM4", c.J80Rom4File, c.J80Rom4Address);
    t += RomEntry("FONT", c.J80FontFile, c.J80FontAddress);
    t += OptionalRomEntry("DISK", c.J80DiskFile, c.J80DiskAddress);
    t += Entry("-CRT", Slashes(c.J80CrtFile));
    t += Entry("-KEY", Slashes(c.J80KeyFile));
    t += Entry("-CMT", work + QLatin1Char('/'));
    t += Entry("-D88", work + QLatin1Char('/'));
    t += Entry("-TMP", work + QLatin1Char('/'));
    t += Entry("-PEN", pen);
    t += Entry("SOUND", QString::number(r.J80_2Op[0]) + kTab + QString::number(r.J80_1Op[1]));
    return VbTrim(t);
}

QString MakeJ80Option(const EmuOpt88& r)
{
    const auto& o = r.J80_1Op;
    QString t;
    if (o[0] == 0)
        t += QStringLiteral(" -silent");
    else if (o[0] == 2)
        t += QStringLiteral(" -light");
    if (o[2] == 1)
        t += QStringLiteral(" -nodisk");
    if (o[3] == 1)
        t += QStringLiteral(" col=") + QString::number(o[4]);
    if (o[5] == 1)
        t += QStringLiteral(" -dusty");
    if (o[6] == 1)
        t += QStringLiteral(" -on");
    return VbTrim(t);
}

bool WriteJ80Cfg(const QString& path, const QString& text)
{
    return WriteConfText(path, text);
}

J80Command MakeJ80Command(const QString& java, const QString& j80Dir, const QString& options)
{
    J80Command c;
    const QString program = java.isEmpty() ? QStringLiteral("java") : java;
    const QString jar = j80Dir + QStringLiteral("/j80.jar");
    c.command = LaunchCommand(program);
    c.command.arg(QStringLiteral("-jar")).arg(jar).arg(kJ80CfgName);
    c.command.args(options.split(QLatin1Char(' '), Qt::SkipEmptyParts));
    c.cmdLine =
        VbTrim(VbTrim(program + QStringLiteral(" -jar ") + jar + QLatin1Char(' ') + kJ80CfgName) +
               QLatin1Char(' ') + options);
    return c;
}

} // namespace tv
