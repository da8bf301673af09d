#include "platform/Shell.h"
#include "support/ScriptedMsgBox.h"
#include "util/Globals.h"
#include "util/Help.h"
#include "util/SubFunction.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tv;

namespace {

class HelpTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(dir.isValid());
        AppDir = dir.path();
        InitTables();
        previous = SetUrlOpener([this](const QUrl& u) {
            opened.push_back(u);
            return openResult;
        });
    }
    void TearDown() override
    {
        SetUrlOpener(std::move(previous));
        AppDir.clear();
        HelpFile.clear();
    }
    QTemporaryDir dir;
    std::vector<QUrl> opened;
    bool openResult = true;
    UrlOpener previous;
};

TEST_F(HelpTest, HelpFileStandsBesideTheProgram)
{
    EXPECT_EQ(HelpFile, dir.path() + "/TORVANE.html");
}

TEST_F(HelpTest, MissingFileIsToldAndNothingOpens)
{
    tvtest::ScriptedMsgBox boxes;
    EXPECT_FALSE(ShowHelpTopic(kHelpCfg));
    ASSERT_EQ(boxes.calls().size(), 1u);
    EXPECT_EQ(boxes.calls()[0].flags, 48);
    EXPECT_TRUE(boxes.calls()[0].text.startsWith(QStringLiteral("ヘルプファイルが見つかりません")));
    EXPECT_TRUE(opened.empty());
}

TEST_F(HelpTest, TopicOpensAtItsAnchor)
{
    QFile f(HelpFile);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("<html></html>");
    f.close();
    tvtest::ScriptedMsgBox boxes;
    EXPECT_TRUE(ShowHelpTopic(kHelpCfg));
    ASSERT_EQ(opened.size(), 1u);
    EXPECT_EQ(opened[0].toLocalFile(), HelpFile);
    EXPECT_EQ(opened[0].fragment(), QStringLiteral("cfg"));
    EXPECT_TRUE(boxes.calls().empty());

    openResult = false; // no browser to hand it to
    EXPECT_FALSE(ShowHelpTopic(kHelpMain));
    ASSERT_EQ(boxes.calls().size(), 1u);
    EXPECT_TRUE(boxes.calls()[0].text.startsWith(QStringLiteral("ヘルプを表示できませんでした")));
}

// Every topic the program opens is an anchor of the help file that ships with it.
TEST(HelpFile, ShippedFileHoldsEveryTopic)
{
    QFile f(QStringLiteral(TORVANE_BIN_DIR) + "/TORVANE.html");
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QString html = QString::fromUtf8(f.readAll());
    for (const QString& topic :
         {kHelpContents, kHelpMain, kHelpSearch, kHelpCfg, kHelpDirSansyo, kHelpOpt})
        EXPECT_TRUE(html.contains(QStringLiteral("id=\"%1\"").arg(topic))) << topic.toStdString();
}

} // namespace
