#include "platform/Platform.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <utility>

#include <cerrno>
#include <climits>
#include <csignal>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
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
    FlockInstanceLock(int fd, QByteArray path) : fd_(fd), path_(std::move(path)) {}
    ~FlockInstanceLock() override
    {
        // The file goes while the lock is still held, so that lock files don't pile up; a
        // process that opened it just before sees it unlinked and tries again (OpenAndLock).
        ::unlink(path_.constData());
        ::close(fd_);
    }

private:
    int fd_;
    QByteArray path_;
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

namespace {
// Opens the lock file (made when missing) and takes the lock; -1 with errno set on failure.
int OpenAndLockOnce(const QByteArray& path)
{
    // O_CLOEXEC: an emulator started by us must not keep our lock alive after we are gone.
    int fd = ::open(path.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    if (fd < 0) {
        // Another user's lock file in a sticky directory can still be locked read-only.
        fd = ::open(path.constData(), O_RDONLY | O_CLOEXEC);
        if (fd < 0)
            return -1;
    }
    int rc;
    do {
        rc = ::flock(fd, LOCK_EX | LOCK_NB);
    } while (rc != 0 && errno == EINTR);
    if (rc != 0) {
        const int err = errno;
        ::close(fd);
        errno = err;
        return -1;
    }
    return fd;
}

// Opens the lock file (made when missing) and takes the lock; -1 with errno set on failure.
// The lock counts only when the locked file still is the one under the name: a holder that
// ends unlinks it, and a lock on the unlinked file would exclude nobody.
int OpenAndLock(const QString& lockPath, QByteArray* path)
{
    *path = QFile::encodeName(lockPath);
    for (int attempt = 0; attempt < 8; ++attempt) {
        const int fd = OpenAndLockOnce(*path);
        if (fd < 0)
            return -1;
        struct stat held;
        struct stat named;
        if (::fstat(fd, &held) == 0 && ::stat(path->constData(), &named) == 0 &&
            held.st_dev == named.st_dev && held.st_ino == named.st_ino)
            return fd;
        ::close(fd);
    }
    errno = EWOULDBLOCK;
    return -1;
}
} // namespace

std::unique_ptr<InstanceLock> AcquireInstanceLock(const QString& executablePath,
                                                  const QString& lockDirectory)
{
    QByteArray path;
    int fd = OpenAndLock(InstanceLockPath(executablePath, lockDirectory), &path);
    if (fd < 0 && errno != EWOULDBLOCK && lockDirectory.isEmpty()) {
        // No usable /tmp: the lock goes beside the executable, where every copy started
        // from there finds it as well.
        const QString beside = QFileInfo(ResolvedExecutable(executablePath)).absolutePath();
        fd = OpenAndLock(InstanceLockPath(executablePath, beside), &path);
    }
    if (fd < 0)
        return nullptr;
    return std::make_unique<FlockInstanceLock>(fd, path);
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

bool ProcessRunning(int64_t pid)
{
    if (pid <= 0)
        return false;
    if (::kill(static_cast<pid_t>(pid), 0) != 0 && errno != EPERM)
        return false;
    // An ended process that nobody has reaped yet (a detached one under an init that doesn't
    // reap) is a zombie: the state after the name in /proc/<pid>/stat.
    const QList<QByteArray> fields = ProcStatFields(pid);
    return fields.isEmpty() || !fields[0].startsWith('Z');
}

QList<QByteArray> ProcStatFields(int64_t pid)
{
    QFile stat(QStringLiteral("/proc/%1/stat").arg(pid));
    if (!stat.open(QIODevice::ReadOnly))
        return {};
    const QByteArray text = stat.read(512);
    const qsizetype close = text.lastIndexOf(')');
    if (close < 0 || close + 2 >= text.size())
        return {};
    return text.mid(close + 2).split(' ');
}

} // namespace tv
