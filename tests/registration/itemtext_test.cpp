// The metadata reader against the corpus of text files beside this test: each file with the
// title, genre, maker and comment it must give, with the narrowing off and on.
#include "data/Cfg.h"
#include "data/ItemText.h"
#include "data/clsLst.h"

#include "support/GuardedDirs.h"
#include "util/Globals.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace {

using namespace tv;

struct Expected {
    const char* file;
    uint8_t conv;
    const char* title;
    const char* genre;
    const char* maker;
    const char* comment;
};

const char* const kLongTitle =
    "ＳＵＰＥＲ　ＬＯＮＧ　ＴＩＴＬＥ　ＯＦ　Ａ　ＧＡＭＥ　ＷＩＴＨ　ＭＡＮＹ"
    "　ＷＯＲＤＳ　ＩＮ　ＩＴ　ＮＯＷ";

const Expected kCorpus[] = {
    {"01_halfkeys", 0, "Hydlide", "RPG", "T&E SOFT", "line1\r\nline2"},
    {"02_fullkeys", 0, "ザナドゥ", "ＲＰＧ", "日本ファルコム", ""},
    {"03_japanese", 0, "夢幻の心臓", "RPG", "クリスタルソフト", "名作"},
    {"04_bothcolons", 0, "本題", "", "A：B", ""},
    {"05_position2", 0, "Real", "SLG", "", ""},
    {"06_comment_by_key", 0, "Later", "", "", "first\r\nsecond\r\nthird\r\n"},
    {"07_comment_by_eof", 0, "", "", "", "\r\nline a\r\nline b"},
    {"08_long_title", 0, kLongTitle, "アクションシューティング", "", ""},
    {"08_long_title", 1, "SUPER LONG TITLE OF A GAME WITH MANY WORDS IN IT NOW", "ｱｸｼｮﾝｼｭｰﾃｨﾝｸﾞ",
     "", ""},
    {"09_first_wins", 0, "First", "", "Maker X", ""},
    {"10_substrings", 0, "", "ADV", "ASCII", "note"},
    {"11_other_key_ends", 0, "", "", "", "c1\r\ncont\r\n"},
    {"12_lowercase", 0, "lower", "act", "someone", ""},
    {"13_nokeys", 0, "", "", "", ""},
    {"14_all_found", 0, "A", "B", "C", "D\r\n"},
    {"15_blanks", 0, "Spaced Out", "", "", ""},
    {"16_lf_only", 0, "LF only", "G", "M", ""},
    {"17_halfkana_key", 0, "ｶﾅ", "", "", ""},
    {"18_long_comment", 0, "", "", "",
     "あいうえおかきくけこあいうえおかきくけこあいうえおかきくけこあいうえおかきくけこＡＢ\r\n"
     "　次の行　"},
    {"18_long_comment", 1, "", "", "",
     "あいうえおかきくけこあいうえおかきくけこあいうえおかきくけこあいうえおかきくけこAB\r\n"
     "　次の行　"},
    // A short value stays full width with the narrowing on.
    {"02_fullkeys", 1, "ザナドゥ", "ＲＰＧ", "日本ファルコム", ""},
};

class ItemTextTest : public ::testing::TestWithParam<Expected> {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(dirs.isValid());
        ASSERT_TRUE(QDir().mkpath(dirs.path("img")));
        savedConv = Cfg.TxtInConv;
    }
    void TearDown() override { Cfg.TxtInConv = savedConv; }
    // Copies the corpus file beside an image of the same stem; the image's path.
    QString Stage(const char* stem)
    {
        const QString src = QStringLiteral(TORVANE_SOURCE_DIR "/tests/registration/corpus/%1.txt")
                                .arg(QLatin1String(stem));
        const QString txt = dirs.path(QStringLiteral("img/%1.txt").arg(QLatin1String(stem)));
        EXPECT_TRUE(QFile::copy(src, txt)) << src.toStdString();
        return dirs.path(QStringLiteral("img/%1.d88").arg(QLatin1String(stem)));
    }
    tvtest::GuardedDirs dirs;
    uint8_t savedConv = 0;
};

TEST_P(ItemTextTest, GivesTheFourFields)
{
    const Expected& e = GetParam();
    Cfg.TxtInConv = e.conv;
    LstObj.InitLst(0);
    LstObj.SetTitle(QStringLiteral("old title"));
    LstObj.SetComment(QStringLiteral("old comment"));
    EXPECT_TRUE(ImportItemText(Stage(e.file)));
    EXPECT_EQ(LstObj.GetTitle(), QString::fromUtf8(e.title));
    EXPECT_EQ(LstObj.GetGenre(), QString::fromUtf8(e.genre));
    EXPECT_EQ(LstObj.GetMaker(), QString::fromUtf8(e.maker));
    EXPECT_EQ(LstObj.GetComment(), QString::fromUtf8(e.comment));
}

INSTANTIATE_TEST_SUITE_P(Corpus, ItemTextTest, ::testing::ValuesIn(kCorpus),
                         [](const ::testing::TestParamInfo<Expected>& info) {
                             return std::string(info.param.file).substr(0, 2) + "_conv" +
                                    std::to_string(info.param.conv);
                         });

TEST(ItemText, NoTextFileStillClearsTheFields)
{
    tvtest::GuardedDirs dirs;
    LstObj.InitLst(0);
    LstObj.SetTitle(QStringLiteral("t"));
    LstObj.SetGenre(QStringLiteral("g"));
    LstObj.SetMaker(QStringLiteral("m"));
    LstObj.SetComment(QStringLiteral("c"));
    EXPECT_FALSE(ImportItemText(dirs.path("none/GAME.D88")));
    EXPECT_EQ(LstObj.GetTitle(), QString());
    EXPECT_EQ(LstObj.GetGenre(), QString());
    EXPECT_EQ(LstObj.GetMaker(), QString());
    EXPECT_EQ(LstObj.GetComment(), QString());
}

TEST(ItemText, OtherEncodingReadsWithoutHarm)
{
    tvtest::GuardedDirs dirs;
    ASSERT_TRUE(QDir().mkpath(dirs.path("img")));
    ASSERT_TRUE(
        QFile::copy(QStringLiteral(TORVANE_SOURCE_DIR "/tests/registration/corpus/19_utf8.txt"),
                    dirs.path("img/U.txt")));
    LstObj.InitLst(0);
    // UTF-8 bytes read as Shift-JIS give no key word: the fields stay empty.
    EXPECT_TRUE(ImportItemText(dirs.path("img/U.d88")));
    EXPECT_EQ(LstObj.GetTitle(), QString());
    EXPECT_EQ(LstObj.GetComment(), QString());
}

} // namespace
