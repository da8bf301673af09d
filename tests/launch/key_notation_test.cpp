#include "platform/KeySend.h"

#include <QStringList>

#include <gtest/gtest.h>

using namespace tv;

namespace {
QStringList Texts(const QString& notation)
{
    auto strokes = ParseKeys(notation);
    if (!strokes)
        return {QStringLiteral("<invalid>")};
    QStringList out;
    for (const KeyStroke& s : *strokes)
        out << s.text();
    return out;
}
} // namespace

TEST(KeyNotation, TheSequencesOfTheLaunch)
{
    EXPECT_EQ(Texts("%ITO^V%O{ENTER}"),
              (QStringList{"Alt+I", "T", "O", "Ctrl+V", "Alt+O", "ENTER"}));
    EXPECT_EQ(Texts("%IM^V%O"), (QStringList{"Alt+I", "M", "Ctrl+V", "Alt+O"}));
    EXPECT_EQ(Texts("%DC^V%O"), (QStringList{"Alt+D", "C", "Ctrl+V", "Alt+O"}));
    EXPECT_EQ(Texts("%TT^V%O"), (QStringList{"Alt+T", "T", "Ctrl+V", "Alt+O"}));
    EXPECT_EQ(Texts("%D{ENTER}{ENTER}^V%O"),
              (QStringList{"Alt+D", "ENTER", "ENTER", "Ctrl+V", "Alt+O"}));
    EXPECT_EQ(Texts("{F10}CO^V%O"), (QStringList{"F10", "C", "O", "Ctrl+V", "Alt+O"}));
    EXPECT_EQ(Texts("{F10}0O^V%O"), (QStringList{"F10", "0", "O", "Ctrl+V", "Alt+O"}));
    EXPECT_EQ(Texts("{F10}1O^V%O"), (QStringList{"F10", "1", "O", "Ctrl+V", "Alt+O"}));
    EXPECT_EQ(Texts("%FB^V%O"), (QStringList{"Alt+F", "B", "Ctrl+V", "Alt+O"}));
    EXPECT_EQ(Texts("%{ENTER}"), (QStringList{"Alt+ENTER"}));
    EXPECT_EQ(Texts("{F10}SF"), (QStringList{"F10", "S", "F"}));
    EXPECT_EQ(Texts("%F"), (QStringList{"Alt+F"}));
}

TEST(KeyNotation, ModifiersHoldForOneKeyOrAGroup)
{
    EXPECT_EQ(Texts("+a^%b"), (QStringList{"Shift+A", "Ctrl+Alt+B"}));
    EXPECT_EQ(Texts("^(ab)c"), (QStringList{"Ctrl+A", "Ctrl+B", "C"}));
    EXPECT_EQ(Texts("a~"), (QStringList{"A", "ENTER"}));
    // A letter names its key: its case adds no Shift.
    EXPECT_EQ(Texts("iI"), (QStringList{"I", "I"}));
}

TEST(KeyNotation, BracesNameKeysOrGiveSignsLiterally)
{
    EXPECT_EQ(Texts("{%}{^}{+}{~}{{}{}}{(}"), (QStringList{"%", "^", "+", "~", "{", "}", "("}));
    EXPECT_EQ(Texts("{TAB 3}"), (QStringList{"TAB", "TAB", "TAB"}));
    EXPECT_EQ(Texts("{escape}{Esc}{F1}{F16}"), (QStringList{"ESC", "ESC", "F1", "F16"}));
}

TEST(KeyNotation, MalformedNotationIsRefused)
{
    EXPECT_FALSE(ParseKeys("{ENTER").has_value());
    EXPECT_FALSE(ParseKeys("{NOKEY}").has_value());
    EXPECT_FALSE(ParseKeys("{F17}").has_value());
    EXPECT_FALSE(ParseKeys("%").has_value());
    EXPECT_FALSE(ParseKeys("^(ab").has_value());
    EXPECT_FALSE(ParseKeys("a}").has_value());
    EXPECT_FALSE(ParseKeys(QStringLiteral("あ")).has_value());
    EXPECT_TRUE(ParseKeys("").has_value());
}

TEST(KeyNotation, WithoutX11TheSequenceIsRecordedNotSent)
{
    ASSERT_FALSE(KeyDeliveryAvailable()); // the core tests run offscreen
    ClearInputLog();
    SetClipText(QStringLiteral("ゲーム 1.d88"));
    EXPECT_TRUE(SendKeys(QStringLiteral("%DC^V%O")));
    EXPECT_FALSE(SendKeys(QStringLiteral("{BAD}")));
    ASSERT_EQ(InputLog().size(), 2u);
    EXPECT_EQ(InputLog()[0].kind, InputRecord::Clip);
    EXPECT_EQ(InputLog()[0].text, QStringLiteral("ゲーム 1.d88"));
    EXPECT_EQ(InputLog()[1].kind, InputRecord::Keys);
    EXPECT_EQ(InputLog()[1].text, QStringLiteral("%DC^V%O"));
    EXPECT_FALSE(InputLog()[1].delivered);
    ClearInputLog();
}
