// A plain image copied back over the catalogued file while the program dies: the catalogued
// file stays whole and no half copy stays beside it under any name.
#include "launch/Repack.h"
#include "platform/FileOps.h"
#include "support/LaunchFixture.h"

#include <QDir>
#include <QRegularExpression>
#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace tv;
using namespace tvtest;

namespace {

class CopyBackKill : public LaunchFixture {
protected:
    void TearDown() override
    {
        SetAnonymousTempFiles(true);
        LaunchFixture::TearDown();
    }
    QStringList ImageDirEntries()
    {
        return QDir(r_ + "/images")
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                       QDir::Name);
    }
    // Runs stage 3 of a plain title in a child process that the kernel kills once a file it
    // writes reaches 100,000 bytes: in the middle of the copy of the 256 KiB image back over
    // the catalogued one. Returns the signal that ended the child.
    int KilledCopyBack(const QString& image, bool anonymous)
    {
        WriteFile(WorkDir + "/GAME.D88", QByteArray(256 * 1024, 'n'));
        const pid_t pid = ::fork();
        if (pid == 0) {
            SetAnonymousTempFiles(anonymous);
            struct rlimit core = {0, 0};
            ::setrlimit(RLIMIT_CORE, &core);
            struct rlimit size = {100000, 100000};
            ::setrlimit(RLIMIT_FSIZE, &size);
            CheckRepack(0, 0, 0, image, "GAME.D88", {});
            ::_exit(0); // not killed: the parent's checks fail
        }
        int status = 0;
        EXPECT_EQ(::waitpid(pid, &status, 0), pid);
        return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    }
};

} // namespace

TEST_F(CopyBackKill, KillDuringCopyBackLeavesOnlyTheWholeOldImage)
{
    const QString image = r_ + "/images/GAME.D88";
    WriteFile(image, QByteArray(200 * 1024, 'o'));
    ASSERT_EQ(KilledCopyBack(image, true), SIGXFSZ);
    EXPECT_EQ(ReadFile(image), QByteArray(200 * 1024, 'o'));
    EXPECT_EQ(ImageDirEntries().join(", "), "GAME.D88");
}

TEST_F(CopyBackKill, WithoutAnonymousFilesTheNextCopyThereSweepsTheHalfCopy)
{
    const QString image = r_ + "/images/GAME.D88";
    WriteFile(image, QByteArray(200 * 1024, 'o'));
    // Names of other targets and names that only look like ours are not touched.
    WriteFile(r_ + "/images/.OTHER.D88.tvcopy-Ab12Cd", "other");
    WriteFile(r_ + "/images/.GAME.D88.tvcopy-short", "mine");
    ASSERT_EQ(KilledCopyBack(image, false), SIGXFSZ);
    EXPECT_EQ(ReadFile(image), QByteArray(200 * 1024, 'o'));
    // The half copy of the kill, under a temporary name.
    const QStringList left = ImageDirEntries();
    ASSERT_EQ(left.size(), 4) << left.join(", ").toStdString();
    EXPECT_EQ(left.filter(QRegularExpression("^\\.GAME\\.D88\\.tvcopy-[A-Za-z0-9]{6}$")).size(), 1);

    SetAnonymousTempFiles(false);
    WriteFile(WorkDir + "/GAME.D88", "new image");
    CheckRepack(0, 0, 0, image, "GAME.D88", {});
    EXPECT_EQ(ReadFile(image), QByteArray("new image"));
    EXPECT_EQ(ImageDirEntries().join(", "),
              ".GAME.D88.tvcopy-short, .OTHER.D88.tvcopy-Ab12Cd, GAME.D88");
}
