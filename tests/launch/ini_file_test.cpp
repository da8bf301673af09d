#include "launch/IniFile.h"
#include "util/Sjis.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tv;

namespace {
QByteArray ReadBytes(const QString& path)
{
    QFile f(path);
    f.open(QIODevice::ReadOnly);
    return f.readAll();
}
void WriteBytes(const QString& path, const QByteArray& b)
{
    QFile f(path);
    f.open(QIODevice::WriteOnly | QIODevice::Truncate);
    f.write(b);
}
} // namespace

TEST(IniFile, NewFileIsCreatedWithTheSection)
{
    QTemporaryDir d;
    const QString f = d.filePath("M88.INI");
    EXPECT_TRUE(SetIniValue("M88p2 for Windows", "BIOSPath", "Z:\\emu\\m88", f));
    EXPECT_EQ(ReadBytes(f), QByteArray("[M88p2 for Windows]\r\nBIOSPath=Z:\\emu\\m88\r\n"));
}

TEST(IniFile, CommentsBlankLinesAndUnknownSectionsSurviveAWrite)
{
    QTemporaryDir d;
    const QString f = d.filePath("Xmillennium.ini");
    const QByteArray before = "; user's notes\r\n"
                              "[Other]\r\n"
                              "StartDir=keep\r\n"
                              "\r\n"
                              "[Xmillennium]\r\n"
                              "; a comment inside\r\n"
                              "StartDir=C:\\old\r\n"
                              "bmap_Dir=C:\\bmp\r\n"
                              "\r\n"
                              "[Tail]\n"
                              "x=1\n";
    WriteBytes(f, before);
    EXPECT_TRUE(SetIniValue("XMILLENNIUM", "startdir", "Z:\\work", f));
    const QByteArray after = "; user's notes\r\n"
                             "[Other]\r\n"
                             "StartDir=keep\r\n"
                             "\r\n"
                             "[Xmillennium]\r\n"
                             "; a comment inside\r\n"
                             "StartDir=Z:\\work\r\n"
                             "bmap_Dir=C:\\bmp\r\n"
                             "\r\n"
                             "[Tail]\n"
                             "x=1\n";
    EXPECT_EQ(ReadBytes(f), after);
}

TEST(IniFile, NewKeyGoesBehindTheSectionsLastLineBeforeItsBlankSeparator)
{
    QTemporaryDir d;
    const QString f = d.filePath("winx1.ini");
    WriteBytes(f, "[WinX1]\r\nA=1\r\n\r\n[Next]\r\nB=2");
    EXPECT_TRUE(SetIniValue("WinX1", "StartDir", "Z:\\w", f));
    EXPECT_TRUE(SetIniValue("New", "K", "v", f));
    EXPECT_EQ(
        ReadBytes(f),
        QByteArray("[WinX1]\r\nA=1\r\nStartDir=Z:\\w\r\n\r\n[Next]\r\nB=2\r\n[New]\r\nK=v\r\n"));
}

TEST(IniFile, KeysAndSectionsMatchWithoutCase)
{
    QTemporaryDir d;
    const QString f = d.filePath("a.ini");
    WriteBytes(f, "[Sec]\r\n  Flags = 0x10 \r\n");
    QString v;
    EXPECT_EQ(GetIniValue("sEC", "FLAGS", "def", v, f), 4);
    EXPECT_EQ(v, QStringLiteral("0x10"));
    EXPECT_TRUE(SetIniValue("SEC", "flags", "0x20", f));
    // The key keeps its spelling; blanks around "=" go with the rewritten line.
    EXPECT_EQ(ReadBytes(f), QByteArray("[Sec]\r\nFlags=0x20\r\n"));
}

TEST(IniFile, MissingFileSectionOrKeyGivesTheDefault)
{
    QTemporaryDir d;
    const QString f = d.filePath("a.ini");
    QString v = "x";
    EXPECT_EQ(GetIniValue("S", "K", "dflt  ", v, f), 4);
    EXPECT_EQ(v, QStringLiteral("dflt"));
    WriteBytes(f, "[S]\r\nOther=1\r\n[T]\r\nK=inT\r\n");
    EXPECT_EQ(GetIniValue("S", "K", "", v, f), 0);
    EXPECT_EQ(v, QString());
    EXPECT_EQ(GetIniValue("T", "K", "", v, f), 3);
    EXPECT_EQ(v, QStringLiteral("inT"));
    // A commented-out key is no key.
    WriteBytes(f, "[S]\r\n;K=1\r\n");
    EXPECT_EQ(GetIniValue("S", "K", "d", v, f), 1);
    EXPECT_EQ(v, QStringLiteral("d"));
}

TEST(IniFile, EnclosingQuotesAreDropped)
{
    QTemporaryDir d;
    const QString f = d.filePath("a.ini");
    WriteBytes(f, "[S]\r\nA=\"quoted value\"\r\nB=\"half\r\nC='x'\r\n");
    QString v;
    GetIniValue("S", "A", "", v, f);
    EXPECT_EQ(v, QStringLiteral("quoted value"));
    GetIniValue("S", "B", "", v, f);
    EXPECT_EQ(v, QStringLiteral("\"half"));
    GetIniValue("S", "C", "", v, f);
    EXPECT_EQ(v, QStringLiteral("x"));
}

TEST(IniFile, ShiftJisTextBothWays)
{
    QTemporaryDir d;
    const QString f = d.filePath("a.ini");
    const QString dir = QStringLiteral("Z:\\ゲーム\\表示");
    EXPECT_TRUE(SetIniValue("セクション", "キー", dir, f));
    EXPECT_EQ(ReadBytes(f), QByteArray("[") + ToSjis("セクション") + "]\r\n" + ToSjis("キー") +
                                "=" + ToSjis(dir) + "\r\n");
    QString v;
    EXPECT_EQ(GetIniValue("セクション", "キー", "", v, f), ToSjis(dir).size());
    EXPECT_EQ(v, dir);
}

TEST(IniFile, ValueIsCutAsTheBufferOf128BytesCutsIt)
{
    QTemporaryDir d;
    const QString f = d.filePath("a.ini");
    const QString longAscii(200, QLatin1Char('a'));
    SetIniValue("S", "A", longAscii, f);
    QString v;
    EXPECT_EQ(GetIniValue("S", "A", "", v, f), 127);
    EXPECT_EQ(v, QString(127, QLatin1Char('a')));
    // 64 double-byte characters are 128 bytes: the 64th doesn't fit whole and is dropped.
    const QString kana(64, QChar(0x30A2));
    SetIniValue("S", "B", kana, f);
    EXPECT_EQ(GetIniValue("S", "B", "", v, f), 126);
    EXPECT_EQ(v, QString(63, QChar(0x30A2)));
    // The default is cut the same way.
    EXPECT_EQ(GetIniValue("S", "none", longAscii, v, f), 127);
}

TEST(IniFile, WriteFailsWhereNoFileCanBe)
{
    QTemporaryDir d;
    EXPECT_FALSE(SetIniValue("S", "K", "v", d.filePath("missing/dir/a.ini")));
}
