#include "platform/FileOps.h"

#include <QByteArray>
#include <QFile>
#include <QFileInfo>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tv {

namespace {

std::atomic<qint64> g_copyFaultAfter{-1};

bool WriteAll(int fd, const char* data, size_t len)
{
    while (len > 0) {
        const ssize_t n = ::write(fd, data, len);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            return false;
        }
        data += n;
        len -= static_cast<size_t>(n);
    }
    return true;
}

// Copies the contents and attributes from `in` to `out`; false on any error.
bool CopyContents(int in, int out, const struct stat& st, bool durable)
{
    const qint64 faultAfter = g_copyFaultAfter.load();
    qint64 written = 0;
    char buf[64 * 1024];
    for (;;) {
        const ssize_t n = ::read(in, buf, sizeof buf);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            return false;
        }
        if (n == 0)
            break;
        size_t len = static_cast<size_t>(n);
        if (faultAfter >= 0 && written + static_cast<qint64>(len) > faultAfter) {
            WriteAll(out, buf, static_cast<size_t>(faultAfter - written));
            errno = ENOSPC;
            return false;
        }
        if (!WriteAll(out, buf, len))
            return false;
        written += static_cast<qint64>(len);
    }
    if (::fchmod(out, st.st_mode & 07777) != 0)
        return false;
    // The launch compares file times before and after a run: a copy keeps the source's.
    const struct timespec times[2] = {st.st_atim, st.st_mtim};
    if (::futimens(out, times) != 0)
        return false;
    // Only a copy that replaces a file (a catalogued image coming back) must be on the disk
    // before the rename; staging copies into the working directory need not wait for it.
    return !durable || ::fsync(out) == 0;
}

} // namespace

bool PlatformCopyFile(const QString& source, const QString& target)
{
    const QByteArray src = QFile::encodeName(source);
    // O_NONBLOCK: a named pipe must not hang the copy (it is refused below).
    const int in = ::open(src.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (in < 0)
        return false;
    struct stat st;
    if (::fstat(in, &st) != 0 || !S_ISREG(st.st_mode)) {
        ::close(in);
        return false;
    }
    const QFileInfo tfi(target);
    QByteArray tmpl = QFile::encodeName(tfi.absolutePath() + QStringLiteral("/.") + tfi.fileName() +
                                        QStringLiteral(".tvcopy-XXXXXX"));
    const int out = ::mkostemp(tmpl.data(), O_CLOEXEC);
    if (out < 0) {
        ::close(in);
        return false;
    }
    const QByteArray dst = QFile::encodeName(target);
    const bool replacing = ::access(dst.constData(), F_OK) == 0;
    bool ok = CopyContents(in, out, st, replacing);
    ::close(in);
    if (::close(out) != 0)
        ok = false;
    if (ok && ::rename(tmpl.constData(), dst.constData()) == 0)
        return true;
    ::unlink(tmpl.constData());
    return false;
}

RenameResult PlatformRename(const QString& source, const QString& target)
{
    const QByteArray src = QFile::encodeName(source);
    const QByteArray dst = QFile::encodeName(target);
    if (::rename(src.constData(), dst.constData()) == 0)
        return RenameResult::Ok;
    return errno == EXDEV ? RenameResult::CrossDevice : RenameResult::Failed;
}

void SetCopyFaultAfterBytes(qint64 bytes)
{
    g_copyFaultAfter.store(bytes);
}

} // namespace tv
