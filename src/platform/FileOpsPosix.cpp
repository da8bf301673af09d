#include "platform/FileOps.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tv {

namespace {

std::atomic<qint64> g_copyFaultAfter{-1};
std::atomic<bool> g_anonymous{true};
FileFaultHook g_faultHook;

const char kTempInfix[] = ".tvcopy-";
constexpr int kTempSuffixLen = 6;

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

// Copies the contents from `in` to `out`; false on any error.
bool CopyData(int in, int out)
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
            return true;
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
}

// The name a temporary of `target` gets while it is written (without anonymous files) or for
// the moment between its link and its rename: hidden, beside the target.
QByteArray TempPrefix(const QFileInfo& target)
{
    return QFile::encodeName(target.absolutePath() + QStringLiteral("/.") + target.fileName()) +
           kTempInfix;
}

bool IsOurTempName(const QByteArray& name, const QByteArray& prefixName)
{
    if (name.size() != prefixName.size() + kTempSuffixLen || !name.startsWith(prefixName))
        return false;
    for (qsizetype i = prefixName.size(); i < name.size(); ++i) {
        const char c = name.at(i);
        if (!((c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9')))
            return false;
    }
    return true;
}

// Removes what a copy to `target` that was cut off (a crash, a kill) left under a temporary
// name beside it. Only plain files of exactly our pattern for this target are touched.
void SweepStaleTemps(const QFileInfo& target)
{
    SweepStaleTemporaries(target.absolutePath(),
                          QStringLiteral(".") + target.fileName() + QLatin1String(kTempInfix));
}

QByteArray RandomSuffix()
{
    static const char kChars[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
    QByteArray s(kTempSuffixLen, 'X');
    for (char& c : s)
        c = kChars[QRandomGenerator::global()->bounded(int(sizeof kChars - 1))];
    return s;
}

// A file being written for `target`: anonymous when the file system allows it, else under a
// temporary name. `fd` is -1 when none could be made.
struct PendingFile {
    int fd = -1;
    bool anonymous = false;
    QByteArray tempName; // the named form only
};

PendingFile OpenPending(const QFileInfo& target)
{
    PendingFile p;
    const QByteArray dir = QFile::encodeName(target.absolutePath());
    // An anonymous file gets its name through /proc: without it, the named road.
    static const bool procFds = ::access("/proc/self/fd", X_OK) == 0;
    if (g_anonymous.load() && procFds) {
        p.fd = ::open(dir.constData(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600);
        if (p.fd >= 0) {
            p.anonymous = true;
            return p;
        }
        // EISDIR or EOPNOTSUPP: a kernel or file system without anonymous files; anything
        // else (no directory, no right to write) fails the named road as well.
        if (errno != EISDIR && errno != EOPNOTSUPP)
            return p;
    }
    p.tempName = TempPrefix(target) + "XXXXXX";
    p.fd = ::mkostemp(p.tempName.data(), O_CLOEXEC);
    return p;
}

// Gives an anonymous file the name `name`; EEXIST when that name is taken.
bool LinkAnonymous(int fd, const QByteArray& name)
{
    const QByteArray proc = "/proc/self/fd/" + QByteArray::number(fd);
    return ::linkat(AT_FDCWD, proc.constData(), AT_FDCWD, name.constData(), AT_SYMLINK_FOLLOW) == 0;
}

// Puts the whole file under the target's name. An anonymous file is linked straight to an
// absent target, else to a temporary name that is renamed over the target at once.
bool CommitPending(PendingFile& p, const QFileInfo& target)
{
    const QByteArray dst = QFile::encodeName(target.absoluteFilePath());
    if (p.anonymous) {
        if (LinkAnonymous(p.fd, dst))
            return true;
        if (errno != EEXIST)
            return false;
        for (int tries = 0; tries < 100 && p.tempName.isEmpty(); ++tries) {
            const QByteArray name = TempPrefix(target) + RandomSuffix();
            if (LinkAnonymous(p.fd, name))
                p.tempName = name;
            else if (errno != EEXIST)
                return false;
        }
        if (p.tempName.isEmpty())
            return false;
    }
    if (::rename(p.tempName.constData(), dst.constData()) == 0) {
        p.tempName.clear();
        return true;
    }
    return false;
}

// Closes the file and removes its temporary name, if it still has one.
void DropPending(PendingFile& p)
{
    if (p.fd >= 0)
        ::close(p.fd);
    p.fd = -1;
    if (!p.tempName.isEmpty())
        ::unlink(p.tempName.constData());
    p.tempName.clear();
}

// Writes a pending file with `fill`, sets its mode and times, and gives it the target's name;
// the target is either untouched or the whole new file.
template <typename Fill>
bool WriteThrough(const QString& target, mode_t mode, const struct timespec* times, Fill fill)
{
    const QFileInfo tfi(target);
    SweepStaleTemps(tfi);
    PendingFile p = OpenPending(tfi);
    if (p.fd < 0)
        return false;
    const bool replacing = ::access(QFile::encodeName(target).constData(), F_OK) == 0;
    // Only a file that replaces one (a catalogued image coming back) must be on the disk
    // before the rename; staging copies into the working directory need not wait for it.
    bool ok = fill(p.fd) && ::fchmod(p.fd, mode) == 0 && (!times || ::futimens(p.fd, times) == 0) &&
              (!replacing || ::fsync(p.fd) == 0);
    ok = ok && CommitPending(p, tfi);
    DropPending(p);
    return ok;
}

} // namespace

void SweepStaleTemporaries(const QString& dir, const QString& prefix)
{
    const QByteArray dirPath = QFile::encodeName(dir);
    const QByteArray prefixName = QFile::encodeName(prefix);
    DIR* d = ::opendir(dirPath.constData());
    if (!d)
        return;
    while (const dirent* e = ::readdir(d)) {
        const QByteArray name(e->d_name);
        if (!IsOurTempName(name, prefixName))
            continue;
        struct stat st;
        if (::fstatat(::dirfd(d), e->d_name, &st, AT_SYMLINK_NOFOLLOW) == 0 && S_ISREG(st.st_mode))
            ::unlinkat(::dirfd(d), e->d_name, 0);
    }
    ::closedir(d);
}

void SetFileFaultHook(FileFaultHook hook)
{
    g_faultHook = std::move(hook);
}

bool FileOpAllowed(FileOpKind kind, const QString& path)
{
    if (!g_faultHook)
        return true;
    const int err = g_faultHook(kind, path);
    if (err == 0)
        return true;
    errno = err;
    return false;
}

bool PlatformCopyFile(const QString& source, const QString& target)
{
    const QByteArray src = QFile::encodeName(source);
    // O_NONBLOCK: a named pipe must not hang the copy (it is refused below).
    const int in = ::open(src.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (in < 0)
        return false;
    struct stat st;
    if (::fstat(in, &st) != 0 || !S_ISREG(st.st_mode) ||
        !FileOpAllowed(FileOpKind::Write, target)) {
        ::close(in);
        return false;
    }
    // The launch compares file times before and after a run: a copy keeps the source's.
    const struct timespec times[2] = {st.st_atim, st.st_mtim};
    const bool ok = WriteThrough(target, st.st_mode & 07777, times,
                                 [in](int out) { return CopyData(in, out); });
    ::close(in);
    return ok;
}

bool PlatformWriteFile(const QString& path, const QByteArray& data)
{
    if (!FileOpAllowed(FileOpKind::Write, path))
        return false;
    struct stat st;
    mode_t mode = 0;
    if (::stat(QFile::encodeName(path).constData(), &st) == 0) {
        mode = st.st_mode & 07777;
    } else {
        // A new file gets what the process's mask allows of 0666, as an open would give it.
        const mode_t mask = ::umask(0);
        ::umask(mask);
        mode = 0666 & ~mask;
    }
    return WriteThrough(path, mode, nullptr, [&data](int out) {
        return WriteAll(out, data.constData(), static_cast<size_t>(data.size()));
    });
}

RenameResult PlatformRename(const QString& source, const QString& target)
{
    if (!FileOpAllowed(FileOpKind::Rename, source))
        return RenameResult::Failed;
    const QByteArray src = QFile::encodeName(source);
    const QByteArray dst = QFile::encodeName(target);
    if (::rename(src.constData(), dst.constData()) == 0)
        return RenameResult::Ok;
    return errno == EXDEV ? RenameResult::CrossDevice : RenameResult::Failed;
}

bool PlatformRemoveFile(const QString& path)
{
    if (!FileOpAllowed(FileOpKind::Delete, path))
        return false;
    return ::unlink(QFile::encodeName(path).constData()) == 0;
}

bool PlatformRemoveDir(const QString& path)
{
    if (!FileOpAllowed(FileOpKind::Delete, path))
        return false;
    return ::rmdir(QFile::encodeName(path).constData()) == 0;
}

bool PlatformMakePath(const QString& path)
{
    if (QFileInfo(path).isDir())
        return true;
    if (!FileOpAllowed(FileOpKind::Write, path))
        return false;
    return QDir().mkpath(path);
}

void SetCopyFaultAfterBytes(qint64 bytes)
{
    g_copyFaultAfter.store(bytes);
}

void SetAnonymousTempFiles(bool use)
{
    g_anonymous.store(use);
}

} // namespace tv
