// Environment, program directory, instance lock, sleep and yield.
#include "platform/FileOps.h"
#include "platform/Platform.h"
#include "support/GuardedDirs.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>
#include <gtest/gtest.h>

#include <cstdio>
#include <optional>

using namespace tv;

namespace {

// Sets or unsets an environment variable for one test and puts it back afterwards.
class EnvVar {
public:
    explicit EnvVar(const char* name) : name_(name)
    {
        if (qEnvironmentVariableIsSet(name))
            saved_ = qgetenv(name);
    }
    ~EnvVar()
    {
        if (saved_)
            qputenv(name_, *saved_);
        else
            qunsetenv(name_);
    }
    void set(const QByteArray& v) { qputenv(name_, v); }
    void unset() { qunsetenv(name_); }

private:
    const char* name_;
    std::optional<QByteArray> saved_;
};

// The test program started again as a helper process: it runs PlatformChild.Run only, which
// does what TORVANE_TEST_CHILD says.
QProcess* StartChild(const QString& program, const QString& mode, const QString& arg1 = {},
                     const QString& arg2 = {})
{
    auto* p = new QProcess;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("TORVANE_TEST_CHILD"), mode);
    env.insert(QStringLiteral("TORVANE_TEST_ARG1"), arg1);
    env.insert(QStringLiteral("TORVANE_TEST_ARG2"), arg2);
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    p->setProcessEnvironment(env);
    p->start(program, {QStringLiteral("--gtest_filter=PlatformChild.Run")});
    return p;
}

QString ChildOutput(QProcess* p)
{
    p->waitForFinished(20000);
    return QString::fromUtf8(p->readAllStandardOutput());
}

QString Self()
{
    return QCoreApplication::applicationFilePath();
}

} // namespace

// Helper for the tests below, run in a child process; does nothing in the normal run.
TEST(PlatformChild, Run)
{
    const QString mode = qEnvironmentVariable("TORVANE_TEST_CHILD");
    if (mode.isEmpty())
        GTEST_SKIP() << "helper for child processes";
    const QString arg1 = qEnvironmentVariable("TORVANE_TEST_ARG1");
    const QString arg2 = qEnvironmentVariable("TORVANE_TEST_ARG2");
    if (mode == QLatin1String("programdir")) {
        std::printf("PROGRAMDIR=%s\n", qPrintable(ProgramDir()));
        std::printf("PROGRAMFILE=%s\n", qPrintable(ProgramFile()));
    } else if (mode == QLatin1String("lock-try")) {
        auto lock = AcquireInstanceLock(arg1, arg2);
        std::printf(lock ? "ACQUIRED\n" : "BUSY\n");
    } else if (mode == QLatin1String("lock-hold")) {
        auto lock = AcquireInstanceLock(arg1, arg2);
        std::printf(lock ? "HELD\n" : "BUSY\n");
        std::fflush(stdout);
        if (lock)
            SleepMs(30000); // until the parent kills us
    }
    std::fflush(stdout);
}

TEST(EnvTempValue, SetVariableIsTakenAsItIs)
{
    EnvVar tmp("TMP");
    tmp.set("/no/such/directory");
    EXPECT_EQ(EnvTempValue("TMP"), QStringLiteral("/no/such/directory"));
    tmp.set("/some/dir\\");
    EXPECT_EQ(EnvTempValue("TMP"), QStringLiteral("/some/dir\\"));
    tmp.set("");
    EXPECT_EQ(EnvTempValue("TMP"), QString());
}

TEST(EnvTempValue, UnsetVariableFallsBackToTmpdirThenSlashTmp)
{
    EnvVar temp("TEMP");
    EnvVar tmpdir("TMPDIR");
    temp.unset();
    tmpdir.set("/var/tmp/x");
    EXPECT_EQ(EnvTempValue("TEMP"), QStringLiteral("/var/tmp/x"));
    tmpdir.set("");
    EXPECT_EQ(EnvTempValue("TEMP"), QStringLiteral("/tmp"));
    tmpdir.unset();
    EXPECT_EQ(EnvTempValue("TEMP"), QStringLiteral("/tmp"));
}

TEST(PlatformDirs, WindowsAndSystemTrees)
{
    EXPECT_EQ(PlatformWindowsDir(), QStringLiteral("/etc"));
    EXPECT_EQ(PlatformSystemDir(), QStringLiteral("/usr"));
}

TEST(ProgramDir, DirectoryOfTheRunningExecutable)
{
    const QString dir = ProgramDir();
    EXPECT_TRUE(QFileInfo(dir).isAbsolute());
    EXPECT_EQ(QFileInfo(dir).canonicalFilePath(), dir);
    EXPECT_EQ(ProgramFile(), QFileInfo(Self()).canonicalFilePath());
    EXPECT_EQ(QFileInfo(ProgramFile()).absolutePath(), dir);
    EXPECT_FALSE(dir.endsWith(QLatin1Char('/')));
}

TEST(ProgramDir, SymbolicLinksAreResolved)
{
    QTemporaryDir tmp;
    ASSERT_TRUE(tmp.isValid());
    const QString link = tmp.path() + QStringLiteral("/linked-tests");
    ASSERT_TRUE(QFile::link(Self(), link));
    std::unique_ptr<QProcess> p(StartChild(link, QStringLiteral("programdir")));
    const QString out = ChildOutput(p.get());
    const QString realDir = QFileInfo(QFileInfo(Self()).canonicalFilePath()).absolutePath();
    EXPECT_TRUE(out.contains(QStringLiteral("PROGRAMDIR=") + realDir + QLatin1Char('\n')))
        << out.toStdString();
}

class InstanceLockTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(dir.isValid());
        exe = dir.path() + QStringLiteral("/a/torvane");
        otherExe = dir.path() + QStringLiteral("/b/torvane");
        tvtest::WriteFile(exe, "#!");
        tvtest::WriteFile(otherExe, "#!");
        locks = dir.path() + QStringLiteral("/locks");
        QDir().mkpath(locks);
    }
    QTemporaryDir dir;
    QString exe, otherExe, locks;
};

TEST_F(InstanceLockTest, SecondAcquireInTheSameProcessFails)
{
    auto first = AcquireInstanceLock(exe, locks);
    ASSERT_TRUE(first);
    EXPECT_FALSE(AcquireInstanceLock(exe, locks));
    first.reset();
    EXPECT_TRUE(AcquireInstanceLock(exe, locks));
}

TEST_F(InstanceLockTest, CopyInAnotherDirectoryMayRunBeside)
{
    auto first = AcquireInstanceLock(exe, locks);
    ASSERT_TRUE(first);
    auto other = AcquireInstanceLock(otherExe, locks);
    EXPECT_TRUE(other);
    EXPECT_NE(InstanceLockPath(exe, locks), InstanceLockPath(otherExe, locks));
}

TEST_F(InstanceLockTest, KeyedByTheResolvedAbsolutePath)
{
    const QString link = dir.path() + QStringLiteral("/link-to-torvane");
    ASSERT_TRUE(QFile::link(exe, link));
    auto first = AcquireInstanceLock(exe, locks);
    ASSERT_TRUE(first);
    EXPECT_FALSE(AcquireInstanceLock(link, locks));
    EXPECT_FALSE(AcquireInstanceLock(dir.path() + QStringLiteral("/b/../a/torvane"), locks));
    EXPECT_EQ(InstanceLockPath(link, locks), InstanceLockPath(exe, locks));
}

TEST_F(InstanceLockTest, LockFileNameAndDefaultPlace)
{
    const QString path = InstanceLockPath(exe, locks);
    EXPECT_EQ(QFileInfo(path).absolutePath(), locks);
    EXPECT_TRUE(QFileInfo(path).fileName().startsWith(QStringLiteral("torvane-")));
    EXPECT_TRUE(path.endsWith(QStringLiteral(".lock")));
    EXPECT_EQ(QFileInfo(InstanceLockPath(exe)).absolutePath(), QStringLiteral("/tmp"));
    auto lock = AcquireInstanceLock(exe, locks);
    EXPECT_TRUE(QFileInfo::exists(path));
}

TEST_F(InstanceLockTest, ReleaseRemovesTheLockFile)
{
    auto lock = AcquireInstanceLock(exe, locks);
    ASSERT_TRUE(lock);
    EXPECT_TRUE(QFileInfo::exists(InstanceLockPath(exe, locks)));
    lock.reset();
    EXPECT_FALSE(QFileInfo::exists(InstanceLockPath(exe, locks)));
    EXPECT_TRUE(QDir(locks).isEmpty());
}

TEST_F(InstanceLockTest, LeftoverLockFileIsNoLock)
{
    // A crashed run leaves its file behind, but no lock on it.
    tvtest::WriteFile(InstanceLockPath(exe, locks), "");
    auto lock = AcquireInstanceLock(exe, locks);
    EXPECT_TRUE(lock);
    EXPECT_FALSE(AcquireInstanceLock(exe, locks));
}

TEST_F(InstanceLockTest, ManyAcquireReleaseRoundsStayExclusive)
{
    for (int i = 0; i < 50; ++i) {
        auto lock = AcquireInstanceLock(exe, locks);
        ASSERT_TRUE(lock) << i;
        ASSERT_FALSE(AcquireInstanceLock(exe, locks)) << i;
    }
}

TEST_F(InstanceLockTest, MissingLockDirectoryGivesNoLock)
{
    EXPECT_FALSE(AcquireInstanceLock(exe, dir.path() + QStringLiteral("/no/such/dir")));
}

TEST_F(InstanceLockTest, ChildProcessCannotAcquireWhileHeld)
{
    auto first = AcquireInstanceLock(exe, locks);
    ASSERT_TRUE(first);
    std::unique_ptr<QProcess> busy(StartChild(Self(), QStringLiteral("lock-try"), exe, locks));
    EXPECT_TRUE(ChildOutput(busy.get()).contains(QStringLiteral("BUSY\n")));
    std::unique_ptr<QProcess> other(
        StartChild(Self(), QStringLiteral("lock-try"), otherExe, locks));
    EXPECT_TRUE(ChildOutput(other.get()).contains(QStringLiteral("ACQUIRED\n")));
    first.reset();
    std::unique_ptr<QProcess> free(StartChild(Self(), QStringLiteral("lock-try"), exe, locks));
    EXPECT_TRUE(ChildOutput(free.get()).contains(QStringLiteral("ACQUIRED\n")));
}

TEST_F(InstanceLockTest, KilledHolderLeavesNoStaleLock)
{
    std::unique_ptr<QProcess> holder(StartChild(Self(), QStringLiteral("lock-hold"), exe, locks));
    QString out;
    QElapsedTimer t;
    t.start();
    while (!out.contains(QStringLiteral("HELD")) && t.elapsed() < 20000) {
        holder->waitForReadyRead(200);
        out += QString::fromUtf8(holder->readAllStandardOutput());
    }
    ASSERT_TRUE(out.contains(QStringLiteral("HELD"))) << out.toStdString();
    EXPECT_FALSE(AcquireInstanceLock(exe, locks));
    holder->kill(); // as a crash would end it
    holder->waitForFinished(5000);
    EXPECT_TRUE(QFileInfo::exists(InstanceLockPath(exe, locks))); // left behind, unlocked
    auto lock = AcquireInstanceLock(exe, locks);
    EXPECT_TRUE(lock);
}

TEST(SleepMs, WaitsAtLeastTheTime)
{
    QElapsedTimer t;
    t.start();
    SleepMs(50);
    EXPECT_GE(t.elapsed(), 49);
    t.restart();
    SleepMs(0);
    SleepMs(-5);
    EXPECT_LT(t.elapsed(), 40);
}

TEST(DoEvents, ServesPendingEvents)
{
    bool fired = false;
    QTimer::singleShot(0, [&fired] { fired = true; });
    EXPECT_FALSE(fired);
    DoEvents();
    EXPECT_TRUE(fired);
}
