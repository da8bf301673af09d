#include "support/GuardedDirs.h"

#include "util/Globals.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace tvtest {

GuardedDirs::GuardedDirs()
{
    QDir().mkpath(app());
    QDir().mkpath(tmp());
    QDir().mkpath(temp());
    tv::EnvTmpDir = tmp();
    tv::EnvTempDir = temp();
    tv::WindowsDir = QStringLiteral("/etc");
    tv::SystemDir = QStringLiteral("/usr");
    tv::AppDir = app();
    tv::PeekDir = tmp() + QStringLiteral("/TORVBOOT");
}

GuardedDirs::~GuardedDirs() = default;

bool WriteFile(const QString& path, const QByteArray& bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return false;
    return f.write(bytes) == bytes.size();
}

QByteArray ReadFile(const QString& path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return {};
    QByteArray b = f.readAll();
    if (b.isNull())
        b = QByteArray("");
    return b;
}

} // namespace tvtest
