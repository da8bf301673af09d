// Whether a process descends from another, as the keys' wait for the started program's window
// asks of a runner's emulator.
#include "platform/KeySend.h"

#include <QCoreApplication>
#include <QProcess>
#include <gtest/gtest.h>

using namespace tv;

TEST(ProcessDescent, ChildrenAndGrandchildrenDescendTheOtherWayNot)
{
    const int64_t self = QCoreApplication::applicationPid();
    EXPECT_TRUE(ProcessDescendsFrom(self, self));
    // A shell that starts a sleeping grandchild and says its pid.
    QProcess sh;
    sh.start("sh", {"-c", "sleep 5 & echo $!; wait"});
    ASSERT_TRUE(sh.waitForStarted(5000));
    ASSERT_TRUE(sh.waitForReadyRead(5000));
    const int64_t grandchild = sh.readLine().trimmed().toLongLong();
    ASSERT_GT(grandchild, 0);
    EXPECT_TRUE(ProcessDescendsFrom(sh.processId(), self));
    EXPECT_TRUE(ProcessDescendsFrom(grandchild, sh.processId()));
    EXPECT_TRUE(ProcessDescendsFrom(grandchild, self));
    EXPECT_FALSE(ProcessDescendsFrom(self, sh.processId()));
    EXPECT_FALSE(ProcessDescendsFrom(self, grandchild));
    EXPECT_FALSE(ProcessDescendsFrom(1, self));
    EXPECT_FALSE(ProcessDescendsFrom(0, self));
    EXPECT_FALSE(ProcessDescendsFrom(999999999, self));
    sh.kill();
    sh.waitForFinished(5000);
    QProcess::execute("kill", {QString::number(grandchild)});
}
