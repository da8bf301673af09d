// The real program with a catalogue: copied into a fresh program directory with a valid
// configuration and a catalogue of Japanese titles built byte by byte, it starts, lists the
// remembered family with the remembered row, and leaves every file it only browsed as it was.
#include "support/CatalogueBytes.h"
#include "support/CatalogueProgram.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <gtest/gtest.h>

TEST(TorvaneProgramCatalogue, StartsWithTheCatalogueAndLeavesItByteIdentical)
{
    tvtest::CatalogueProgram dir;
    QString why;
    ASSERT_TRUE(dir.setUp(&why)) << why.toStdString();
    const QByteArray lst = dir.lstBytes();
    ASSERT_EQ(lst.size(), 24 + 6 * 2284);

    QProcess p;
    ASSERT_TRUE(dir.start(p, QStringLiteral("offscreen")));
    const bool up = dir.waitUntilUp(p, 15000);
    const QProcess::ProcessState state = p.state();
    const int exitCode = state == QProcess::NotRunning ? p.exitCode() : 0;
    tvtest::CatalogueProgram::stop(p);
    ASSERT_TRUE(up) << "the program ended during its start with code " << exitCode;
    EXPECT_EQ(state, QProcess::Running);

    EXPECT_EQ(tvtest::ReadBytes(dir.app() + "/TORVANE.LST"), lst);
    EXPECT_EQ(tvtest::ReadBytes(dir.app() + "/TORVANE.CFG"), dir.cfgBytes());
    // Only the remembered family was opened: no work file, no catalogue of another family.
    for (const char* name :
         {"TORVANE.LSB", "TORVANE.LFM", "TORVANE.LX1", "TORVANE.LFB", "TORVANE.LXB"})
        EXPECT_FALSE(QFileInfo::exists(dir.app() + "/" + name)) << name;
    // Nothing was written beside the screenshot or the save states.
    EXPECT_EQ(QDir(dir.app() + "/snap").entryList(QDir::Files),
              QStringList({QStringLiteral("ASTERION.PNG")}));
    EXPECT_EQ(QDir(dir.app() + "/save/p88").entryList(QDir::Files).size(), 2);
}
