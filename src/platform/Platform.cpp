#include "platform/Platform.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace tv {

QString EnvTempValue(const char* name)
{
    // A set variable is taken as it stands, so that a TMP naming a missing directory still
    // refuses the start; only an unset one falls back to the system's temporary directory.
    if (qEnvironmentVariableIsSet(name))
        return qEnvironmentVariable(name);
    const QString tmpdir = qEnvironmentVariable("TMPDIR");
    if (!tmpdir.isEmpty())
        return tmpdir;
    return QStringLiteral("/tmp");
}

QString ProgramFile()
{
    // /proc/self/exe is the kernel's own resolved path; fall back to Qt elsewhere.
    char buf[PATH_MAX + 1];
    const ssize_t n = ::readlink("/proc/self/exe", buf, PATH_MAX);
    if (n > 0) {
        buf[n] = '\0';
        const QString path = QFile::decodeName(QByteArray(buf, n));
        const QString canonical = QFileInfo(path).canonicalFilePath();
        return canonical.isEmpty() ? path : canonical;
    }
    if (QCoreApplication::instance()) {
        const QString path = QCoreApplication::applicationFilePath();
        const QString canonical = QFileInfo(path).canonicalFilePath();
        return canonical.isEmpty() ? path : canonical;
    }
    return {};
}

QString ProgramDir()
{
    const QString file = ProgramFile();
    if (file.isEmpty())
        return {};
    return QFileInfo(file).absolutePath();
}

QString PlatformWindowsDir()
{
    return QStringLiteral("/etc");
}

QString PlatformSystemDir()
{
    return QStringLiteral("/usr");
}

namespace {

class FlockInstanceLock : public InstanceLock {
public:
    explicit FlockInstanceLock(int fd) : fd_(fd) {}
    ~FlockInstanceLock() override
    {
        // Closing the descriptor drops the lock. The file stays: unlinking a lock file
        // races with a process that has just opened it.
        ::close(fd_);
    }

private:
    int fd_;
};

QString ResolvedExecutable(const QString& executablePath)
{
    const QFileInfo fi(executablePath);
    const QString canonical = fi.canonicalFilePath();
    return canonical.isEmpty() ? QDir::cleanPath(fi.absoluteFilePath()) : canonical;
}

} // namespace

QString InstanceLockPath(const QString& executablePath, const QString& lockDirectory)
{
    const QString dir = lockDirectory.isEmpty() ? QStringLiteral("/tmp") : lockDirectory;
    const QByteArray hash = QCryptographicHash::hash(ResolvedExecutable(executablePath).toUtf8(),
                                                     QCryptographicHash::Sha256);
    return dir + QStringLiteral("/torvane-") + QString::fromLatin1(hash.toHex().left(32)) +
           QStringLiteral(".lock");
}

std::unique_ptr<InstanceLock> AcquireInstanceLock(const QString& executablePath,
                                                  const QString& lockDirectory)
{
    const QByteArray path = QFile::encodeName(InstanceLockPath(executablePath, lockDirectory));
    // O_CLOEXEC: an emulator started by us must not keep our lock alive after we are gone.
    int fd = ::open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    if (fd < 0) {
        // Another user's lock file in a sticky directory can still be locked read-only.
        fd = ::open(path.constData(), O_RDONLY | O_CLOEXEC);
        if (fd < 0)
            return nullptr;
    }
    int rc;
    do {
        rc = ::flock(fd, LOCK_EX | LOCK_NB);
    } while (rc != 0 && errno == EINTR);
    if (rc != 0) {
        ::close(fd);
        return nullptr;
    }
    return std::make_unique<FlockInstanceLock>(fd);
}

void SleepMs(int ms)
{
    if (ms > 0)
        QThread::msleep(static_cast<unsigned long>(ms));
}

void DoEvents()
{
    if (QCoreApplication::instance())
        QCoreApplication::processEvents();
}

} // namespace tv
