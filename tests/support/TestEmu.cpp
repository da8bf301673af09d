#include "support/TestEmu.h"

#include <QFile>

namespace tvtest {

QString TestEmuBinary()
{
    return QStringLiteral(TORVANE_BIN_DIR "/testemu");
}

QString InstallTestEmu(const QString& dir, const QString& exeName)
{
    const QString target = dir + QLatin1Char('/') + exeName;
    QFile::remove(target);
    if (!QFile::copy(TestEmuBinary(), target))
        return QString();
    QFile::setPermissions(target, QFile::permissions(target) | QFile::ExeOwner | QFile::ReadOwner |
                                      QFile::WriteOwner);
    return target;
}

bool WriteTestEmuConfig(const QString& dir, const QMap<QString, QString>& values)
{
    QFile f(dir + QStringLiteral("/testemu.ini"));
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return false;
    for (auto it = values.begin(); it != values.end(); ++it)
        f.write((it.key() + QLatin1Char('=') + it.value() + QLatin1Char('\n')).toUtf8());
    return true;
}

QStringList TestEmuRun::keys() const
{
    QStringList out;
    for (const TestEmuEvent& e : events) {
        if (e.kind == QLatin1String("key"))
            out << e.text;
    }
    return out;
}

QStringList TestEmuRun::pastes() const
{
    QStringList out;
    for (const TestEmuEvent& e : events) {
        if (e.kind == QLatin1String("paste"))
            out << e.text;
    }
    return out;
}

std::vector<TestEmuRun> ReadTestEmuLog(const QString& path)
{
    std::vector<TestEmuRun> runs;
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return runs;
    for (const QByteArray& raw : f.readAll().split('\n')) {
        if (raw.isEmpty())
            continue;
        const QStringList p = QString::fromUtf8(raw).split(QLatin1Char('\t'));
        const QString& kind = p[0];
        if (kind == QLatin1String("start")) {
            TestEmuRun r;
            r.startMs = p.value(1).toLongLong();
            r.exeName = p.value(2);
            r.pid = p.value(3).toLongLong();
            runs.push_back(r);
            continue;
        }
        if (runs.empty())
            continue;
        TestEmuRun& r = runs.back();
        if (kind == QLatin1String("arg"))
            r.args << p.mid(2).join(QLatin1Char('\t'));
        else if (kind == QLatin1String("cwd"))
            r.cwd = p.mid(1).join(QLatin1Char('\t'));
        else if (kind == QLatin1String("file"))
            r.files << p.mid(1).join(QLatin1Char('\t'));
        else if (kind == QLatin1String("show")) {
            const QString bytes = p.value(2);
            if (bytes.startsWith(QLatin1Char('!')))
                r.unreadable << p.value(1);
            else
                r.shown[p.value(1)] = QByteArray::fromBase64(bytes.toLatin1());
        } else if (kind == QLatin1String("list"))
            r.listed[p.value(1)] = p.mid(2);
        else if (kind == QLatin1String("key") || kind == QLatin1String("paste"))
            r.events.push_back({kind, p.value(1).toLongLong(), p.mid(2).join(QLatin1Char('\t'))});
        else if (kind == QLatin1String("done"))
            r.done << p.value(2) + QLatin1Char('\t') + p.value(3);
        else if (kind == QLatin1String("exit")) {
            r.exited = true;
            r.exitCode = p.value(2).toInt();
        }
    }
    return runs;
}

} // namespace tvtest
