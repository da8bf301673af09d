#include "launch/D88Uty.h"

#include "data/ByteCodec.h"
#include "platform/FileOps.h"
#include "util/Globals.h"
#include "util/Sjis.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <cerrno>

using namespace tv;

namespace {

// One disk: a 32-byte header and a body whose bytes tell disk and offset apart.
QByteArray MakeDisk(const QByteArray& name, int32_t size, uint8_t wp = 0, uint8_t media = 0,
                    char fill = 'A')
{
    QByteArray d;
    ByteWriter w(d);
    w.raw(name, 17);
    // Reserved bytes carry junk that the pieces must not keep.
    w.raw(QByteArray(9, '\x5a'), 9);
    w.u8(wp);
    w.u8(media);
    w.i32(size);
    for (int i = kD88HeaderSize; i < size; ++i)
        d.append(char(fill + (i % 7)));
    return d;
}

QByteArray MakeImage(int disks, int32_t size = 300)
{
    QByteArray all;
    for (int i = 0; i < disks; ++i)
        all +=
            MakeDisk(QByteArray("DISK") + QByteArray::number(i), size, 0, 0x20, char('A' + i % 20));
    return all;
}

// The disk as a piece holds it: header bytes 16 to 25 cleared.
QByteArray AsPiece(QByteArray disk)
{
    disk.replace(16, 10, QByteArray(10, '\0'));
    return disk;
}

QByteArray ReadAll(const QString& path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

class D88Uty : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(root_.isValid());
        const QString r = root_.path();
        QDir().mkpath(r + "/tmp");
        QDir().mkpath(r + "/app/TORVBOOT");
        saved_ = {EnvTmpDir, EnvTempDir, WindowsDir, SystemDir, PeekDir};
        // The guard refuses paths that contain TMP; the work directory lies beside it.
        EnvTmpDir = r + "/tmp";
        EnvTempDir = r + "/tmp";
        WindowsDir = "/etc";
        SystemDir = "/usr";
        PeekDir = EnvTmpDir + "/TORVBOOT";
        dir_ = r + "/app/TORVBOOT";
    }
    void TearDown() override
    {
        EnvTmpDir = saved_[0];
        EnvTempDir = saved_[1];
        WindowsDir = saved_[2];
        SystemDir = saved_[3];
        PeekDir = saved_[4];
    }
    QString Write(const QString& name, const QByteArray& bytes)
    {
        const QString p = dir_ + "/" + name;
        QFile f(p);
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(bytes);
        return p;
    }
    QStringList Files() const { return QDir(dir_).entryList(QDir::Files, QDir::Name); }

    QTemporaryDir root_;
    QString dir_;
    std::array<QString, 5> saved_;
};

} // namespace

TEST_F(D88Uty, CountsOneDisk)
{
    EXPECT_EQ(D88DiskCount(Write("ONE.D88", MakeImage(1))), 1);
}

TEST_F(D88Uty, CountsTwoAndSixtyThreeDisks)
{
    EXPECT_EQ(D88DiskCount(Write("TWO.D88", MakeImage(2))), 2);
    EXPECT_EQ(D88DiskCount(Write("MANY.D88", MakeImage(63, 40))), 63);
}

TEST_F(D88Uty, SixtyFourDisksAreNoD88)
{
    EXPECT_EQ(D88DiskCount(Write("M64.D88", MakeImage(64, 40))), 0);
}

TEST_F(D88Uty, TrailingGarbageGivesZero)
{
    EXPECT_EQ(D88DiskCount(Write("G1.D88", MakeImage(2) + QByteArray("garbage"))), 0);
    // A tail that passes the header test but whose size runs past the end.
    QByteArray tail(40, '\0');
    tail[28] = 100;
    EXPECT_EQ(D88DiskCount(Write("G2.D88", MakeImage(2) + tail)), 0);
}

TEST_F(D88Uty, LastDiskClaimingTooMuchGivesZero)
{
    QByteArray img = MakeImage(2);
    img.chop(1);
    EXPECT_EQ(D88DiskCount(Write("SHORT.D88", img)), 0);
}

TEST_F(D88Uty, HeaderFieldsAreChecked)
{
    EXPECT_EQ(D88DiskCount(Write("WP10.D88", MakeDisk("A", 64, 0x10, 0x10))), 1);
    EXPECT_EQ(D88DiskCount(Write("WP01.D88", MakeDisk("A", 64, 0x01))), 0);
    EXPECT_EQ(D88DiskCount(Write("M30.D88", MakeDisk("A", 64, 0, 0x30))), 0);
    QByteArray neg = MakeDisk("A", 64);
    neg[28] = '\xff', neg[29] = '\xff', neg[30] = '\xff', neg[31] = '\xff';
    EXPECT_EQ(D88DiskCount(Write("NEG.D88", neg)), 0);
    QByteArray zero = MakeDisk("A", 64);
    zero[28] = 0;
    EXPECT_EQ(D88DiskCount(Write("ZERO.D88", zero)), 0);
    // The size limit is 10,000,000 bytes, header included.
    QByteArray big = MakeDisk("A", 64);
    const int32_t tooBig = kD88MaxDiskSize + 1;
    for (int i = 0; i < 4; ++i)
        big[28 + i] = char((tooBig >> (8 * i)) & 0xff);
    EXPECT_EQ(D88DiskCount(Write("BIG.D88", big)), 0);
}

TEST_F(D88Uty, EmptyOrMissingFileGivesZero)
{
    EXPECT_EQ(D88DiskCount(Write("EMPTY.D88", QByteArray())), 0);
    EXPECT_EQ(D88DiskCount(dir_ + "/NONE.D88"), 0);
    // The path is trimmed of blanks.
    const QString p = Write("TRIM.D88", MakeImage(2));
    EXPECT_EQ(D88DiskCount("  " + p + "  "), 2);
}

TEST_F(D88Uty, SplitLongFormNamesPiecesByDiskName)
{
    const QByteArray d1 = MakeDisk("GAME A/B", 200, 0, 0, 'a');
    const QByteArray d2 = MakeDisk("{SYS} DISK", 300, 0x10, 0x20, 'k');
    const QString path = Write("My Game.D88", d1 + d2);
    QStringList list;
    ASSERT_TRUE(D88Split(path, dir_ + "/", list, 0));
    ASSERT_EQ(list.size(), 2);
    EXPECT_EQ(list[0], dir_ + "/My Game#01_GAME_A_B.D88");
    EXPECT_EQ(list[1], dir_ + "/My Game#02_(SYS)_DISK.D88");
    EXPECT_FALSE(QFileInfo::exists(path));
    EXPECT_EQ(ReadAll(list[0]), AsPiece(d1));
    EXPECT_EQ(ReadAll(list[1]), AsPiece(d2));
}

TEST_F(D88Uty, SplitLongFormReplacesEverySign)
{
    const QByteArray d1 = MakeDisk("a\\b?c*d}e", 64);
    const QByteArray d2 = MakeDisk("", 64);
    QStringList list;
    ASSERT_TRUE(D88Split(Write("S.D88", d1 + d2), dir_, list, 0));
    EXPECT_EQ(list[0], dir_ + "/S#01_a_b_c_d)e.D88");
    // An empty disk name leaves the underscore before the extension.
    EXPECT_EQ(list[1], dir_ + "/S#02_.D88");
}

TEST_F(D88Uty, SplitLongFormTakesShiftJisNamesAndClearsByteSixteen)
{
    // 8 double-byte characters and a lead byte in byte 16, which the pieces clear.
    QByteArray name = ToSjis(QStringLiteral("ドラゴン・ディスク"));
    ASSERT_EQ(name.size(), 18);
    const QByteArray d1 = MakeDisk(name.left(17), 64);
    const QByteArray d2 = MakeDisk(ToSjis(QStringLiteral("ゲーム　２")), 64);
    QStringList list;
    ASSERT_TRUE(D88Split(Write("日本語.D88", d1 + d2), dir_, list, 0));
    EXPECT_EQ(list[0], dir_ + QStringLiteral("/日本語#01_ドラゴン・ディス.D88"));
    // A full-width blank is no blank for the name rule.
    EXPECT_EQ(list[1], dir_ + QStringLiteral("/日本語#02_ゲーム　２.D88"));
    EXPECT_EQ(ReadAll(list[0]).at(16), '\0');
}

TEST_F(D88Uty, SplitShortFormUsesFiveByteStemAndTwoDigits)
{
    const QByteArray img = MakeImage(3);
    QStringList list;
    ASSERT_TRUE(D88Split(Write("ADVENTUR.D88", img), dir_, list, 1));
    ASSERT_EQ(list.size(), 3);
    EXPECT_EQ(list[0], dir_ + "/ADVEN_01.D88");
    EXPECT_EQ(list[2], dir_ + "/ADVEN_03.D88");
    EXPECT_EQ(ReadAll(list[1]), AsPiece(img.mid(300, 300)));
}

TEST_F(D88Uty, SplitShortFormNeverCutsADoubleByteCharacter)
{
    // "ゲーム" is 6 bytes: a cut at 5 bytes keeps only whole characters.
    QStringList list;
    ASSERT_TRUE(D88Split(Write(QStringLiteral("ゲーム.D88"), MakeImage(2)), dir_, list, 1));
    ASSERT_EQ(list.size(), 2);
    const QString stem = QFileInfo(list[0]).fileName().section(u'_', 0, 0);
    EXPECT_LE(SjisLen(stem), 5);
    EXPECT_TRUE(QStringLiteral("ゲーム").startsWith(stem));
    EXPECT_FALSE(stem.contains(QChar(0xfffd)));
    EXPECT_TRUE(list[0].endsWith("_01.D88"));
}

TEST_F(D88Uty, SplitSixtyThreeAndSixtyFourDisks)
{
    QStringList list;
    ASSERT_TRUE(D88Split(Write("M63.D88", MakeImage(63, 40)), dir_, list, 1));
    EXPECT_EQ(list.size(), 63);
    EXPECT_EQ(list.last(), dir_ + "/M63_63.D88");
    // The split's own limit is a last index of 63: a 64-disk file splits though the count
    // refuses it, and the launch never asks for it.
    QStringList list64;
    ASSERT_TRUE(D88Split(Write("M64.D88", MakeImage(64, 40)), dir_, list64, 1));
    EXPECT_EQ(list64.size(), 64);
    QStringList list65;
    const QString p65 = Write("M65.D88", MakeImage(65, 40));
    EXPECT_FALSE(D88Split(p65, dir_, list65, 1));
    EXPECT_TRUE(list65.isEmpty());
    EXPECT_TRUE(QFileInfo::exists(p65));
    EXPECT_FALSE(QFileInfo::exists(dir_ + "/M65_01.D88"));
}

TEST_F(D88Uty, SplitOfOneDiskFailsAndRemovesThePiece)
{
    const QString p = Write("ONE.D88", MakeImage(1));
    QStringList list;
    EXPECT_FALSE(D88Split(p, dir_, list, 0));
    EXPECT_TRUE(list.isEmpty());
    EXPECT_EQ(Files(), QStringList{"ONE.D88"});
}

TEST_F(D88Uty, SplitOfTooShortFileRemovesPieces)
{
    QByteArray img = MakeImage(3);
    img.chop(10);
    const QString p = Write("CUT.D88", img);
    QStringList list;
    EXPECT_FALSE(D88Split(p, dir_, list, 1));
    EXPECT_TRUE(list.isEmpty());
    EXPECT_EQ(Files(), QStringList{"CUT.D88"});
    EXPECT_EQ(ReadAll(p), img);
}

TEST_F(D88Uty, SplitOfTrailingGarbageRemovesPieces)
{
    const QString p = Write("TAIL.D88", MakeImage(2) + QByteArray(5, 'x'));
    QStringList list;
    EXPECT_FALSE(D88Split(p, dir_, list, 0));
    EXPECT_EQ(Files(), QStringList{"TAIL.D88"});
}

TEST_F(D88Uty, SplitStopsAtAnExistingPieceAndLeavesEarlierOnes)
{
    const QString p = Write("DUP.D88", MakeImage(3));
    Write("DUP_02.D88", "old");
    QStringList list;
    EXPECT_FALSE(D88Split(p, dir_, list, 1));
    EXPECT_TRUE(QFileInfo::exists(dir_ + "/DUP_01.D88"));
    EXPECT_EQ(ReadAll(dir_ + "/DUP_02.D88"), QByteArray("old"));
    EXPECT_TRUE(QFileInfo::exists(p));
}

TEST_F(D88Uty, SplitRefusesUnsafeDirectories)
{
    QStringList list;
    // The destination lies under TMP.
    const QString p = Write("SAFE.D88", MakeImage(2));
    EXPECT_FALSE(D88Split(p, EnvTmpDir, list, 0));
    EXPECT_FALSE(D88Split(p, dir_ + "/nodir", list, 0));
    EXPECT_FALSE(D88Split(dir_ + "/NONE.D88", dir_, list, 0));
    EXPECT_TRUE(list.isEmpty());
    EXPECT_EQ(Files(), QStringList{"SAFE.D88"});
}

TEST_F(D88Uty, SplitOfADiskSmallerThanItsHeaderFails)
{
    QByteArray img = MakeDisk("A", 64) + MakeDisk("B", 16);
    img.chop(16);
    const QString p = Write("SMALL.D88", img);
    QStringList list;
    EXPECT_FALSE(D88Split(p, dir_, list, 1));
    EXPECT_TRUE(list.isEmpty());
    EXPECT_EQ(Files(), QStringList{"SMALL.D88"});
}

TEST_F(D88Uty, JoinRebuildsTheFileWithClearedHeaderBytes)
{
    const QByteArray d1 = MakeDisk("ONE", 500, 0, 0, 'a');
    const QByteArray d2 = MakeDisk("TWO", 700, 0, 0x10, 'p');
    const QString p = Write("JOIN.D88", d1 + d2);
    QStringList list;
    ASSERT_TRUE(D88Split(p, dir_, list, 0));
    // The emulator writes into the second disk.
    {
        QFile f(list[1]);
        ASSERT_TRUE(f.open(QIODevice::ReadWrite));
        f.seek(100);
        f.write("CHANGED");
    }
    ASSERT_TRUE(D88Join(p, list));
    EXPECT_TRUE(list.isEmpty());
    QByteArray expected = AsPiece(d1) + AsPiece(d2);
    expected.replace(500 + 100, 7, "CHANGED");
    EXPECT_EQ(ReadAll(p), expected);
    EXPECT_EQ(Files(), QStringList{"JOIN.D88"});
    EXPECT_EQ(D88DiskCount(p), 2);
}

TEST_F(D88Uty, JoinRefusesAnExistingTargetOrAShortList)
{
    const QString p = Write("X.D88", MakeImage(2));
    QStringList list{dir_ + "/a", dir_ + "/b"};
    EXPECT_FALSE(D88Join(p, list));
    EXPECT_EQ(list.size(), 2);
    QStringList one{Write("PIECE.D88", "abc")};
    EXPECT_FALSE(D88Join(dir_ + "/NEW.D88", one));
    EXPECT_FALSE(QFileInfo::exists(dir_ + "/NEW.D88"));
    EXPECT_TRUE(QFileInfo::exists(one[0]));
}

TEST_F(D88Uty, JoinFailsOnAMissingPiece)
{
    QStringList list{Write("P1.D88", "abc"), dir_ + "/P2.D88"};
    EXPECT_FALSE(D88Join(dir_ + "/OUT.D88", list));
    EXPECT_FALSE(list.isEmpty());
    // Nothing was lost on the way: the first piece is still there, no half file is left.
    EXPECT_EQ(ReadAll(list[0]), QByteArray("abc"));
    EXPECT_EQ(Files(), QStringList{"P1.D88"});
}

TEST_F(D88Uty, JoinOnAFullDiskKeepsEveryPieceAndMakesNoFile)
{
    const QStringList pieces{Write("J#01.D88", MakeDisk("A", 400)),
                             Write("J#02.D88", MakeDisk("B", 400))};
    QStringList list = pieces;
    SetFileFaultHook(
        [](FileOpKind kind, const QString&) { return kind == FileOpKind::Write ? ENOSPC : 0; });
    const bool joined = D88Join(dir_ + "/J.D88", list);
    SetFileFaultHook({});
    EXPECT_FALSE(joined);
    EXPECT_EQ(list, pieces);
    EXPECT_EQ(Files(), (QStringList{"J#01.D88", "J#02.D88"}));
    EXPECT_EQ(ReadAll(pieces[1]), MakeDisk("B", 400));
}

TEST(ReplaceText, ReplacesEveryOccurrenceFromTheLeft)
{
    EXPECT_EQ(ReplaceText("a/b/c", "/", "_", 0), "a_b_c");
    EXPECT_EQ(ReplaceText("C:\\A\\B", "\\", "/", 0), "C:/A/B");
    EXPECT_EQ(ReplaceText("aaa", "a", "b", -1), "bbb");
    EXPECT_EQ(ReplaceText("abc", "", "x", 0), "abc");
    EXPECT_EQ(ReplaceText("", "a", "x", 0), "");
    EXPECT_EQ(ReplaceText("abab", "ab", "", 0), "");
}

TEST(ReplaceText, SearchGoesOnBehindTheInsertedText)
{
    // Repl holds Find: with Whole all ones each occurrence is replaced once, never again.
    EXPECT_EQ(ReplaceText("a.b.c", ".", "..", -1), "a..b..c");
    EXPECT_EQ(ReplaceText("x", "x", "xx", -1), "xx");
}

TEST(ReplaceText, WholeZeroKeepsAnOccurrenceThatAlreadyIsRepl)
{
    EXPECT_EQ(ReplaceText("a..b.c", ".", "..", 0), "a..b..c");
    EXPECT_EQ(ReplaceText("a\\\\b\\c", "\\", "\\\\", 0), "a\\\\b\\\\c");
    // The occurrence inside the replacement need not be at its start.
    EXPECT_EQ(ReplaceText("[x] x", "x", "[x]", 0), "[x] [x]");
    // With Whole all ones the same text is replaced throughout.
    EXPECT_EQ(ReplaceText("a..b", ".", "..", -1), "a....b");
}

namespace {
// The count takes disk sizes from 1 up, but a disk shorter than its own 32-byte header can't be
// cut out: the split refuses the file, leaves no piece and keeps the file whole.
TEST_F(D88Uty, DiskShorterThanItsHeaderIsCountedButNotSplit)
{
    const QByteArray bytes = QByteArray::fromBase64(
        "QQAAAAAA//////////8AAAAAAAAAAAAAAAAAAAgAAAAAAAAgMQAAAAAAIAAAAAAAAAAAAA"
        "AAAEFB");
    ASSERT_EQ(bytes.size(), 57);
    const QString p = Write("SHORT.D88", bytes);
    EXPECT_EQ(D88DiskCount(p), 2);
    QStringList pieces;
    EXPECT_FALSE(D88Split(p, dir_, pieces, 0));
    EXPECT_TRUE(pieces.isEmpty());
    EXPECT_EQ(Files(), QStringList{"SHORT.D88"});
    QFile f(p);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), bytes);
}
} // namespace
