// The exact command lines of the archive service, the dispatch by extension and the boxes
// when a library can't be called.
#include "launch/ArcLibrary.h"
#include "launch/Archive.h"
#include "support/ScriptedMsgBox.h"

#include <gtest/gtest.h>

using namespace tv;

namespace {

struct Call {
    QString library;
    QString line;
    QObject* owner;
    int size;
};

class ArchiveLines : public ::testing::Test {
protected:
    void SetUp() override
    {
        auto rec = [this](const char* name) {
            return [this, name](QObject* o, const QString& line, QString& out, int32_t size) {
                calls.push_back({QString::fromLatin1(name), line, o, size});
                EXPECT_EQ(out, QString(1024, QChar(0)));
                return result;
            };
        };
        old = SetArcLibrary({rec("Unlha"), rec("UnZip"), rec("Zip"), rec("Cab")});
    }
    void TearDown() override { SetArcLibrary(old); }
    QString Last() const { return calls.empty() ? QString() : calls.back().line; }
    QString LastLib() const { return calls.empty() ? QString() : calls.back().library; }

    ArcLibrary old;
    std::vector<Call> calls;
    int32_t result = 0;
    const QString arc = QStringLiteral("/home/u/My Games/Title.lzh");
    const QString dir = QStringLiteral("/opt/tv/TORVBOOT");
};

const int16_t T = kArcTrue;
const int16_t F = kArcFalse;

} // namespace

TEST_F(ArchiveLines, LzhPack)
{
    LzhPack(nullptr, arc, dir, F);
    EXPECT_EQ(Last(), R"(a "/home/u/My Games/Title.lzh" "/opt/tv/TORVBOOT\*.*" -n)");
    LzhPack(nullptr, arc, dir, T);
    EXPECT_EQ(Last(), R"(a "/home/u/My Games/Title.lzh" "/opt/tv/TORVBOOT\*.*")");
    EXPECT_EQ(LastLib(), QStringLiteral("Unlha"));
}

TEST_F(ArchiveLines, LzhMelt)
{
    LzhMelt(nullptr, arc, dir, QString(), T, T);
    EXPECT_EQ(Last(), R"(e "/home/u/My Games/Title.lzh" "/opt/tv/TORVBOOT\" -y)");
    LzhMelt(nullptr, arc, dir, QStringLiteral("GAME.D88"), F, F);
    EXPECT_EQ(Last(), R"(e "/home/u/My Games/Title.lzh" "/opt/tv/TORVBOOT\" "GAME.D88" -n)");
    LzhMelt(nullptr, arc, dir, QStringLiteral("GAME.D88"), T, F);
    EXPECT_EQ(Last(), R"(e "/home/u/My Games/Title.lzh" "/opt/tv/TORVBOOT\" "GAME.D88" -n -y)");
    LzhMelt(nullptr, arc, dir, QString(), F, T);
    EXPECT_EQ(Last(), R"(e "/home/u/My Games/Title.lzh" "/opt/tv/TORVBOOT\")");
    EXPECT_EQ(LastLib(), QStringLiteral("Unlha"));
}

// A double quote that a name itself holds is doubled inside the quotes of the line, so the
// name stays one argument; names without one give the lines above unchanged.
TEST_F(ArchiveLines, QuoteInANameIsDoubled)
{
    const QString odd = QStringLiteral("/i/GA\"ME.ZIP");
    const QString oddDir = QStringLiteral("/o/a\"b");
    ZipMelt(nullptr, odd, oddDir, QString(), T, T);
    EXPECT_EQ(Last(), R"(-x -o "/i/GA""ME.ZIP" "/o/a""b\")");
    ZipPack(nullptr, odd, oddDir, T);
    EXPECT_EQ(Last(), R"(-j "/i/GA""ME.ZIP" "/o/a""b\*.*")");
    LzhMelt(nullptr, QStringLiteral("/i/\"Q\".LZH"), dir, QString(), T, T);
    EXPECT_EQ(Last(), R"(e "/i/""Q"".LZH" "/opt/tv/TORVBOOT\" -y)");
    CabPack(nullptr, QStringLiteral("/i/C\".CAB"), dir, T);
    EXPECT_EQ(Last(), R"(-a "/i/C"".CAB" "/opt/tv/TORVBOOT\" *.*)");
    EXPECT_EQ(SplitArcCommandLine(Last()),
              (QStringList{"-a", "/i/C\".CAB", "/opt/tv/TORVBOOT\\", "*.*"}));
}

TEST_F(ArchiveLines, ZipPackKeepsTheLineWithoutProgressAsItIs)
{
    const QString zip = QStringLiteral("/home/u/My Games/Title.zip");
    ZipPack(nullptr, zip, dir, T);
    EXPECT_EQ(Last(), R"(-j "/home/u/My Games/Title.zip" "/opt/tv/TORVBOOT\*.*")");
    ZipPack(nullptr, zip, dir, F);
    EXPECT_EQ(Last(), R"(-j -q & Chr$(34) /home/u/My Games/Title.zip" "/opt/tv/TORVBOOT\*.*")");
    EXPECT_EQ(LastLib(), QStringLiteral("Zip"));
}

TEST_F(ArchiveLines, ZipMelt)
{
    const QString zip = QStringLiteral("/home/u/My Games/Title.zip");
    ZipMelt(nullptr, zip, dir, QString(), T, T);
    EXPECT_EQ(Last(), R"(-x -o "/home/u/My Games/Title.zip" "/opt/tv/TORVBOOT\")");
    ZipMelt(nullptr, zip, dir, QStringLiteral("GAME.D88"), T, F);
    EXPECT_EQ(Last(), R"(-x -o --i "/home/u/My Games/Title.zip" "/opt/tv/TORVBOOT\" "*GAME.D88")");
    ZipMelt(nullptr, zip, dir, QStringLiteral("GAME.D88"), F, F);
    EXPECT_EQ(Last(), R"(-x --i "/home/u/My Games/Title.zip" "/opt/tv/TORVBOOT\" "*GAME.D88")");
    ZipMelt(nullptr, zip, dir, QString(), F, T);
    EXPECT_EQ(Last(), R"(-x "/home/u/My Games/Title.zip" "/opt/tv/TORVBOOT\")");
    EXPECT_EQ(LastLib(), QStringLiteral("UnZip"));
}

TEST_F(ArchiveLines, CabPackAndMelt)
{
    const QString cab = QStringLiteral("/home/u/My Games/Title.cab");
    CabPack(nullptr, cab, dir, F);
    EXPECT_EQ(Last(), R"(-a -i "/home/u/My Games/Title.cab" "/opt/tv/TORVBOOT\" *.*)");
    CabPack(nullptr, cab, dir, T);
    EXPECT_EQ(Last(), R"(-a "/home/u/My Games/Title.cab" "/opt/tv/TORVBOOT\" *.*)");
    CabMelt(nullptr, cab, dir, QString(), T, T);
    EXPECT_EQ(Last(), R"(-x -o "/home/u/My Games/Title.cab" "/opt/tv/TORVBOOT\" *.*)");
    CabMelt(nullptr, cab, dir, QStringLiteral("GAME.D88"), T, F);
    EXPECT_EQ(Last(), R"(-x -o -i "/home/u/My Games/Title.cab" "/opt/tv/TORVBOOT\" "*GAME.D88")");
    CabMelt(nullptr, cab, dir, QStringLiteral("GAME.D88"), F, F);
    EXPECT_EQ(Last(), R"(-x -i "/home/u/My Games/Title.cab" "/opt/tv/TORVBOOT\" "*GAME.D88")");
    EXPECT_EQ(LastLib(), QStringLiteral("Cab"));
}

TEST_F(ArchiveLines, FlagsOtherThanAllOnesOrZero)
{
    // 1 is neither true nor false: the tests for false and for true both fail on it.
    LzhMelt(nullptr, arc, dir, QString(), 1, 1);
    EXPECT_EQ(Last(), R"(e "/home/u/My Games/Title.lzh" "/opt/tv/TORVBOOT\")");
    LzhPack(nullptr, arc, dir, 1);
    EXPECT_EQ(Last(), R"(a "/home/u/My Games/Title.lzh" "/opt/tv/TORVBOOT\*.*")");
    ZipPack(nullptr, QStringLiteral("/a/T.zip"), dir, 1);
    EXPECT_EQ(Last(), R"(-j -q & Chr$(34) /a/T.zip" "/opt/tv/TORVBOOT\*.*")");
    ZipMelt(nullptr, QStringLiteral("/a/T.zip"), dir, QString(), 1, 1);
    EXPECT_EQ(Last(), R"(-x "/a/T.zip" "/opt/tv/TORVBOOT\")");
    CabMelt(nullptr, QStringLiteral("/a/T.cab"), dir, QString(), 1, 1);
    EXPECT_EQ(Last(), R"(-x "/a/T.cab" "/opt/tv/TORVBOOT\" *.*)");
}

TEST_F(ArchiveLines, DispatchByExtensionInAnyCase)
{
    QObject owner;
    result = 7;
    EXPECT_EQ(ArcMelt(&owner, QStringLiteral("/a/t.lzh"), dir, QString(), T, T), 7);
    EXPECT_EQ(LastLib(), QStringLiteral("Unlha"));
    EXPECT_EQ(calls.back().owner, &owner);
    EXPECT_EQ(calls.back().size, 1024);
    EXPECT_EQ(ArcMelt(&owner, QStringLiteral("/a/t.Zip"), dir, QString(), T, T), 7);
    EXPECT_EQ(LastLib(), QStringLiteral("UnZip"));
    EXPECT_EQ(ArcMelt(&owner, QStringLiteral("/a/t.cab"), dir, QString(), T, T), 7);
    EXPECT_EQ(LastLib(), QStringLiteral("Cab"));
    EXPECT_EQ(ArcPack(&owner, QStringLiteral("/a/t.LZH"), dir, T), 7);
    EXPECT_EQ(LastLib(), QStringLiteral("Unlha"));
    EXPECT_EQ(ArcPack(&owner, QStringLiteral("/a/t.zip"), dir, T), 7);
    EXPECT_EQ(LastLib(), QStringLiteral("Zip"));
    EXPECT_EQ(ArcPack(&owner, QStringLiteral("/a/t.cab"), dir, T), 7);
    EXPECT_EQ(LastLib(), QStringLiteral("Cab"));
    const size_t n = calls.size();
    EXPECT_EQ(ArcMelt(&owner, QStringLiteral("/a/t.d88"), dir, QString(), T, T), -1);
    EXPECT_EQ(ArcPack(&owner, QStringLiteral("/a/t.rar"), dir, T), -1);
    EXPECT_EQ(ArcPack(&owner, QStringLiteral("/a/noext"), dir, T), -1);
    EXPECT_EQ(calls.size(), n);
}

TEST(ArchiveLibraryMissing, CriticalBoxesAndMinusOne)
{
    ArcLibrary old = SetArcLibrary({});
    tvtest::ScriptedMsgBox box;
    const QString d = QStringLiteral("/w");
    EXPECT_EQ(LzhPack(nullptr, QStringLiteral("/a.lzh"), d, kArcTrue), -1);
    EXPECT_EQ(ZipPack(nullptr, QStringLiteral("/a.zip"), d, kArcTrue), -1);
    EXPECT_EQ(CabPack(nullptr, QStringLiteral("/a.cab"), d, kArcTrue), -1);
    EXPECT_EQ(LzhMelt(nullptr, QStringLiteral("/a.lzh"), d, QString(), kArcTrue, kArcTrue), -1);
    EXPECT_EQ(ZipMelt(nullptr, QStringLiteral("/a.zip"), d, QString(), kArcTrue, kArcTrue), -1);
    EXPECT_EQ(CabMelt(nullptr, QStringLiteral("/a.cab"), d, QString(), kArcTrue, kArcTrue), -1);
    SetArcLibrary(old);
    ASSERT_EQ(box.calls().size(), 6u);
    const QStringList texts = {"LZH圧縮に失敗しました。", "ZIP圧縮に失敗しました。",
                               "CAB圧縮に失敗しました。", "LZH解凍に失敗しました。",
                               "ZIP解凍に失敗しました。", "CAB解凍に失敗しました。"};
    for (int i = 0; i < 6; ++i) {
        EXPECT_EQ(box.calls()[i].text, texts[i]);
        EXPECT_EQ(box.calls()[i].flags, MbCritical);
        EXPECT_EQ(box.calls()[i].caption,
                  i < 3 ? QStringLiteral("圧縮エラー") : QStringLiteral("解凍エラー"));
    }
}

TEST(ArchiveLibraryMissing, ALibraryResultIsNotTold)
{
    tvtest::ScriptedMsgBox box;
    ArcLibrary lib;
    lib.UnZip = [](QObject*, const QString&, QString&, int32_t) { return 11; };
    ArcLibrary old = SetArcLibrary(lib);
    EXPECT_EQ(ZipMelt(nullptr, QStringLiteral("/a.zip"), QStringLiteral("/w"), QString(), kArcTrue,
                      kArcTrue),
              11);
    SetArcLibrary(old);
    EXPECT_TRUE(box.calls().empty());
}
