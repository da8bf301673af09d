// Launches under a failing disk: every file operation of a launch (each write, rename and
// delete that goes through the platform's file operations) fails in turn with "no space" and
// with "permission denied", and each write also as the first of a disk that stays full (every
// later write fails too); after each launch nothing the user owns may be lost. The
// catalogued file is as it was or fully updated, the emulator's configuration and modules are
// back or kept in recovery, WorkDir is empty, and whatever didn't end as a launch without a
// fault ends was told in a message box.
#include "adapters/pc88/EmuOpt88.h"
#include "platform/FileOps.h"
#include "support/LaunchFixture.h"
#include "support/ScriptedMsgBox.h"

#include <QDirIterator>
#include <gtest/gtest.h>

#include <cerrno>
#include <cstdio>
#include <functional>

using namespace tv;
using namespace tvtest;

namespace {

using Tree = QMap<QString, QByteArray>;

// Every plain file under `dir`, hidden ones too, by its path relative to `dir`.
Tree TreeOf(const QString& dir)
{
    Tree t;
    QDirIterator it(dir, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString p = it.next();
        t[QDir(dir).relativeFilePath(p)] = ReadFile(p);
    }
    return t;
}

const char* KindName(FileOpKind k)
{
    switch (k) {
    case FileOpKind::Write:
        return "write";
    case FileOpKind::Rename:
        return "rename";
    case FileOpKind::Delete:
        return "delete";
    }
    return "?";
}

// What the user owns after a launch.
struct Owned {
    QByteArray catalogued;
    Tree members; // of an archive
    Tree emu, save, snap, recovery;
    QStringList work;
    bool ran = false; // the emulator ran
};

struct Scenario {
    const char* name;
    int16_t code;
};

class FaultWalk : public LaunchFixture {
protected:
    // A fresh program directory, emulators and title for each launch.
    void Fresh(const Scenario& sc)
    {
        TearDown();
        QDir(r_).removeRecursively();
        QDir().mkpath(r_);
        SetUp();
        if (sc.code == 12)
            ZipTitleOnXm7Win();
        else if (sc.code == 11)
            PlainTitleOnXm7Dos();
        else
            PlainTitleOnM88();
    }

    // XM7 for Win32 writes its INI for the run; a ZIP title re-packed without asking, with a
    // member the emulator changes, one it leaves, and a screen dump that goes to SnapDir.
    void ZipTitleOnXm7Win()
    {
        Cfg.Xm7WinCfgChk = 0;
        const QString dir =
            Emu(12, {{"change", "GAME.D77"}, {"save", "DUMP.BMP"}, {"exitafter", "100"}});
        WriteFile(dir + "/XM7.INI", "[Settings]\r\nUserSetting=1\r\n");
        for (const char* f : {"PCIDEBUG.DLL", "Pcidebug.sys", "pcidbg95.vxd"})
            WriteFile(PatSaveDir[1] + "/" + f, "driver");
        catalogued_ = Archive("GAME.ZIP", {{"GAME.D77", Image()}, {"README.TXT", "read me"}});
        Item(1, catalogued_, "GAME.D77", 1, 1);
    }

    // XM7 for DOS: the ROM set staged beside a plain image that is copied back.
    void PlainTitleOnXm7Dos()
    {
        const QString dir =
            Emu(11, {{"change", "GAME.D77"}, {"save", "DUMP.BMP"}, {"exitafter", "100"}});
        for (const char* rom :
             {"FBASIC30.ROM", "BOOT_BAS.ROM", "BOOT_DOS.ROM", "SUBSYS_C.ROM", "KANJI.ROM"})
            WriteFile(dir + "/" + rom, "rom");
        catalogued_ = r_ + "/images/GAME.D77";
        WriteFile(catalogued_, Image());
        Item(1, catalogued_, "GAME.D77");
    }

    // M88 writes its INI for the run, hides the modules the title doesn't want and takes a
    // save state in and out.
    void PlainTitleOnM88()
    {
        Cfg.M88CfgChk = 0;
        Cfg.DefOpt = 0;
        const QString dir =
            Emu(2, {{"change", "GAME.D88"}, {"save", "GAME_3.S88"}, {"exitafter", "100"}});
        WriteFile(dir + "/M88.INI", "[M88p2 for Windows]\r\nFlags=1\r\n");
        WriteFile(dir + "/cdif.m88", "cdif module");
        WriteFile(dir + "/FM98.m88", "fm98 module");
        WriteFile(M88SaveDir + "/GAME_3.S88", "old state");
        EmuOpt88 block;
        SetDefaultEmuOpt88(block);
        block.M88_5Op.fill(0);
        ItemBlock(block);
        catalogued_ = r_ + "/images/GAME.D88";
        WriteFile(catalogued_, Image());
        Item(0, catalogued_, "GAME.D88");
    }

    Owned Now()
    {
        Owned o;
        o.catalogued = ReadFile(catalogued_);
        if (LstObj.GetArcCheckFlag() == 1)
            o.members = Members(catalogued_);
        o.emu = TreeOf(r_ + "/emu");
        o.save = TreeOf(r_ + "/save");
        o.snap = TreeOf(r_ + "/snap");
        QDir app(AppDir);
        for (const QString& d : app.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
            if (d != "TORVBOOT")
                for (auto [k, v] : TreeOf(AppDir + "/" + d).asKeyValueRange())
                    o.recovery[d + "/" + k] = v;
        for (const QString& f : app.entryList({"TORVRECOVER_*"}, QDir::Files))
            o.recovery[f] = ReadFile(AppDir + "/" + f);
        o.work = TreeOf(WorkDir).keys();
        o.ran = !Runs().empty();
        return o;
    }

    // One launch with the `n`-th file operation failing with `err` (none for 0). Returns the
    // number of operations and what the launch told.
    // `start` gets what the user owned before it.
    int Launch(const Scenario& sc, int n, int err, QString* failed, QStringList* told,
               Owned* start = nullptr)
    {
        Fresh(sc);
        if (start)
            *start = Now();
        int count = 0;
        kinds_.clear();
        SetFileFaultHook([&](FileOpKind kind, const QString& path) {
            kinds_.push_back(kind);
            ++count;
            // A full disk: from the n-th on, every write fails (a rename or a delete needs no
            // room).
            if (err == kDiskFull && count > n && kind == FileOpKind::Write)
                return ENOSPC;
            if (count != n)
                return 0;
            *failed = QStringLiteral("%1 %2").arg(KindName(kind), QDir(r_).relativeFilePath(path));
            return err == kDiskFull ? ENOSPC : err;
        });
        ScriptedMsgBox box;
        RunSelectedItem(sc.code);
        SetFileFaultHook({});
        *told = box.texts();
        return count;
    }

    static constexpr int kDiskFull = -1; // ENOSPC on the n-th operation and every later write
    QString catalogued_;
    std::vector<FileOpKind> kinds_; // of the last launch, in order
};

// Where each file of `want` (name and bytes) is in `now`: in its place, or kept in recovery;
// "lost" when it is in neither.
QString Fate(const Tree& want, const Tree& now, const Tree& recovery)
{
    QString fate = "in place";
    for (auto [name, bytes] : want.asKeyValueRange()) {
        if (now.value(name) == bytes)
            continue;
        if (!recovery.values().contains(bytes))
            return "lost";
        fate = "recovery";
    }
    return fate;
}

// The outcome of a launch with a fault against the state before any launch (`start`) and
// after a launch without a fault (`done`). The catalogued file must be as in one of them,
// or its new content kept in recovery; the files of the emulator's directory as they were at
// the start, or kept in recovery; the save states and screen dumps of `done` delivered or kept
// in recovery (or not made at all when the launch ended before the run).
QString Outcome(const Owned& start, const Owned& done, const Owned& o)
{
    const bool archive = !done.members.isEmpty();
    const bool intact = o.catalogued == start.catalogued;
    const bool updated = archive ? o.members == done.members : o.catalogued == done.catalogued;
    bool kept = false;
    if (!intact && !updated)
        return "lost";
    // The new content of the title, when it didn't get in, kept in recovery.
    if (intact && !archive && o.recovery.values().contains(done.catalogued))
        kept = true;
    for (auto [name, bytes] : done.members.asKeyValueRange())
        if (intact && start.members.value(name) != bytes && o.recovery.values().contains(bytes))
            kept = true;
    const QString emu = Fate(start.emu, o.emu, o.recovery);
    if (emu == "lost")
        return "lost";
    kept = kept || emu == "recovery";
    // Save states and dumps: after a run all of a good launch's, else as at the start.
    for (const auto pair : {&Owned::save, &Owned::snap}) {
        const QString out = Fate((o.ran ? done : start).*pair, o.*pair, o.recovery);
        if (out == "lost")
            return "lost";
        kept = kept || out == "recovery";
    }
    if (kept)
        return "kept in recovery";
    return updated ? "fully updated" : "intact";
}

} // namespace

class FaultWalkTest : public FaultWalk {
protected:
    void RunWalk(const Scenario& sc);
};

void FaultWalkTest::RunWalk(const Scenario& sc)
{
    QString failed;
    QStringList told;
    Owned start;
    const int total = Launch(sc, 0, 0, &failed, &told, &start);
    const std::vector<FileOpKind> allKinds = kinds_;
    int launches = 0;
    ASSERT_TRUE(told.isEmpty()) << told.join(" | ").toStdString();
    const Owned done = Now();
    ASSERT_TRUE(done.ran);
    ASSERT_NE(done.catalogued, start.catalogued);
    ASSERT_TRUE(done.work.isEmpty());

    std::printf("\n%s: %d file operations\n", sc.name, total);
    std::printf("%4s %-7s %-48s %-17s %s\n", "N", "error", "operation", "outcome", "told");
    QMap<QString, int> outcomes;
    for (int n = 1; n <= total; ++n) {
        for (int err : {ENOSPC, EACCES, int(kDiskFull)}) {
            if (err == kDiskFull && allKinds[size_t(n - 1)] != FileOpKind::Write)
                continue;
            failed.clear();
            Launch(sc, n, err, &failed, &told, &start);
            ++launches;
            const Owned o = Now();
            const QString outcome = Outcome(start, done, o);
            ++outcomes[outcome];
            const char* errName = err == ENOSPC ? "ENOSPC" : err == EACCES ? "EACCES" : "FULL";
            std::printf("%4d %-7s %-48s %-17s %s\n", n, errName, qPrintable(failed.left(48)),
                        qPrintable(outcome),
                        qPrintable(told.join(" | ").replace('\n', ' ').left(60)));
            EXPECT_NE(outcome, "lost")
                << sc.name << " #" << n << " " << errName << " " << qPrintable(failed);
            EXPECT_TRUE(o.work.isEmpty())
                << sc.name << " #" << n << " " << errName << " " << qPrintable(failed) << ": "
                << qPrintable(o.work.join(", "));
            // A launch that didn't end as a launch without a fault says so.
            EXPECT_TRUE(outcome == "fully updated" || !told.isEmpty())
                << sc.name << " #" << n << " " << errName << " " << qPrintable(failed)
                << " was silent";
        }
    }
    std::printf("%s: %d operations visited, %d launches:", sc.name, total, launches);
    for (auto [k, v] : outcomes.asKeyValueRange())
        std::printf(" %s %d,", qPrintable(k), v);
    std::printf("\n");
    std::fflush(stdout);
}

TEST_F(FaultWalkTest, ZipTitleWithRepackOnXm7Win)
{
    RunWalk({"ZIP title re-packed (XM7win)", 12});
}

TEST_F(FaultWalkTest, PlainTitleWithCopyBackOnXm7Dos)
{
    RunWalk({"plain title copied back (XM7dos)", 11});
}

TEST_F(FaultWalkTest, M88WithItsIniAndModules)
{
    RunWalk({"M88 with INI and modules", 2});
}
