// The real program, started offscreen from a fresh program directory with a valid
// configuration: it prepares both working directories and clears the stale one under TMP.
#include "data/Cfg.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <gtest/gtest.h>

TEST(TorvaneProgram, StartsFromItsOwnDirectoryAndPreparesTheWorkingDirectories)
{
    QTemporaryDir root;
    ASSERT_TRUE(root.isValid());
    const QString app = root.path() + "/app", tmp = root.path() + "/tmp",
                  temp = root.path() + "/temp";
    for (const auto& d : {app, tmp, temp})
        ASSERT_TRUE(QDir().mkpath(d));
    // A copy, not a link: the program directory is that of the resolved executable.
    ASSERT_TRUE(QFile::copy(QStringLiteral(TORVANE_BIN_DIR) + "/torvane", app + "/torvane"));
    QFile(app + "/torvane").setPermissions(QFileDevice::ExeOwner | QFileDevice::ReadOwner);
    tv::CfgRecord c;
    tv::SetDefaultCfg(c);
    const QByteArray cfg = tv::EncodeCfg(c);
    {
        QFile f(app + "/TORVANE.CFG");
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(cfg);
    }
    ASSERT_TRUE(QDir().mkpath(tmp + "/TORVBOOT"));
    {
        QFile f(tmp + "/TORVBOOT/OLD.D88");
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write("stale");
    }

    QProcess p;
    QProcessEnvironment e = QProcessEnvironment::systemEnvironment();
    e.insert("TMP", tmp);
    e.insert("TEMP", temp);
    e.insert("QT_QPA_PLATFORM", "offscreen");
    p.setProcessEnvironment(e);
    p.setWorkingDirectory(root.path());
    p.start(app + "/torvane", {});
    ASSERT_TRUE(p.waitForStarted(5000));

    // The start ends with the one-second splash; wait for the directories, then a little more.
    QElapsedTimer t;
    t.start();
    while (t.elapsed() < 10000 &&
           !(QFileInfo(app + "/TORVBOOT").isDir() && !QFileInfo::exists(tmp + "/TORVBOOT/OLD.D88")))
        QThread::msleep(50);
    QThread::msleep(300);
    EXPECT_EQ(p.state(), QProcess::Running); // no refusal: it is up and waiting for the user
    EXPECT_TRUE(QFileInfo(app + "/TORVBOOT").isDir());
    EXPECT_TRUE(QFileInfo(tmp + "/TORVBOOT").isDir());
    EXPECT_FALSE(QFileInfo::exists(tmp + "/TORVBOOT/OLD.D88"));
    QFile f(app + "/TORVANE.CFG");
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), cfg);
    EXPECT_FALSE(QFileInfo::exists(app + "/TORVANE_CFG.BAK"));
    p.terminate();
    if (!p.waitForFinished(3000)) {
        p.kill();
        p.waitForFinished(3000);
    }
}
