// Runs launches of a plain 1 MB image (XM7 for DOS) and of a ZIP with a two-disk D88 that
// X millennium changes, so that it is split, joined and re-packed, and prints the median and
// the worst time of each stage in milliseconds.
#include "adapters/Adapters.h"
#include "data/ByteCodec.h"
#include "data/Cfg.h"
#include "data/clsLst.h"
#include "launch/Archive.h"
#include "launch/D88Uty.h"
#include "launch/Launch.h"
#include "util/Globals.h"
#include "util/SubFunction.h"
#include "support/ScriptedMsgBox.h"
#include "support/StubWindow.h"
#include "support/TestEmu.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <vector>

using namespace tv;

namespace {

QByteArray Disk(const QByteArray& name, int size, char fill)
{
    QByteArray d;
    ByteWriter w(d);
    w.raw(name, 17);
    w.raw(QByteArray(9, '\0'), 9);
    w.u8(0);
    w.u8(0x20);
    w.i32(size);
    // Sector data that doesn't compress to nothing: a byte stream of a small generator.
    uint32_t x = uint8_t(fill) * 2654435761u;
    d.reserve(size);
    for (int i = kD88HeaderSize; i < size; ++i) {
        x = x * 1103515245u + 12345u;
        d.append(char((x >> 16) & ((i & 1024) ? 0xff : 0x0f)));
    }
    return d;
}

void Write(const QString& path, const QByteArray& bytes)
{
    QFile f(path);
    if (f.open(QIODevice::WriteOnly | QIODevice::Truncate))
        f.write(bytes);
}

double Ms(qint64 ns)
{
    return double(ns) / 1e6;
}

void Report(const char* name, std::vector<LaunchTimings> runs)
{
    auto stat = [&](auto field, const char* label) {
        std::vector<qint64> v;
        for (const auto& r : runs)
            v.push_back(field(r));
        std::sort(v.begin(), v.end());
        std::printf("  %-16s median %7.2f ms  max %7.2f ms\n", label, Ms(v[v.size() / 2]),
                    Ms(v.back()));
    };
    std::printf("%s (%zu launches)\n", name, runs.size());
    stat([](const LaunchTimings& t) { return t.stage1Ns; }, "stage 1");
    stat([](const LaunchTimings& t) { return t.stage2StagingNs; }, "stage 2 staging");
    stat([](const LaunchTimings& t) { return t.stage3Ns; }, "stage 3");
    stat([](const LaunchTimings& t) { return t.stage1Ns + t.stage2StagingNs + t.stage3Ns; },
         "total");
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    tv::RegisterAdapters();
    const int n = argc > 1 ? std::max(1, atoi(argv[1])) : 10;

    QTemporaryDir root;
    const QString r = root.path();
    for (const char* d : {"tmp", "app/TORVBOOT", "images", "snap", "emu11", "emu22"})
        QDir().mkpath(r + "/" + d);
    EnvTmpDir = EnvTempDir = r + "/tmp";
    WindowsDir = "/etc";
    SystemDir = "/usr";
    AppDir = r + "/app";
    WorkDir = AppDir + "/TORVBOOT";
    PeekDir = EnvTmpDir + "/TORVBOOT";
    InitTables();
    SetDefaultCfg(Cfg);
    for (int f = 0; f < 3; ++f)
        ImageDir[f] = SnapDir[f] = PatSaveDir[f] = r + "/images";
    SnapDir[2] = r + "/snap";
    tvtest::StubWindow window; // a title is selected
    window.hasSelectedItem = true;
    tvtest::ScriptedMsgBox box;

    Cfg.Xm7DosDir = r + "/emu11";
    tvtest::InstallTestEmu(Cfg.Xm7DosDir, "XM7.EXE");
    tvtest::WriteTestEmuConfig(Cfg.Xm7DosDir, {{"exitafter", "0"}, {"log", r + "/log"}});
    for (const char* rom : {"FBASIC30.ROM", "BOOT_BAS.ROM", "BOOT_DOS.ROM", "SUBSYS_C.ROM"})
        Write(Cfg.Xm7DosDir + "/" + QString::fromLatin1(rom), QByteArray(32768, 'r'));
    Write(Cfg.Xm7DosDir + "/KANJI.ROM", QByteArray(131072, 'k'));
    Cfg.XmilDir = r + "/emu22";
    Cfg.XmilCfgChk = 1;
    tvtest::InstallTestEmu(Cfg.XmilDir, "Xmillennium.exe");
    tvtest::WriteTestEmuConfig(
        Cfg.XmilDir, {{"exitafter", "0"}, {"log", r + "/log"}, {"change", "GAME#02_DISK_B.D88"}});

    Write(r + "/images/PLAIN.D77", Disk("PLAIN", 1 << 20, 'p'));
    std::vector<LaunchTimings> plain;
    HardWare = 1;
    LstObj.SetJituFile(r + "/images/PLAIN.D77");
    LstObj.SetStartFileName("PLAIN.D77");
    LstObj.SetSecondFile("");
    LstObj.SetArcCheckFlag(0);
    for (int i = 0; i < n; ++i) {
        RunSelectedItem(11);
        plain.push_back(lastLaunchTimings);
    }

    // The same image on EM7 with its own INI: no ROM set to stage, one backup copy.
    Cfg.Em7WinDir = r + "/emu13";
    Cfg.Em7WinCfgChk = 1;
    QDir().mkpath(Cfg.Em7WinDir);
    tvtest::InstallTestEmu(Cfg.Em7WinDir, "EM7.EXE");
    tvtest::WriteTestEmuConfig(Cfg.Em7WinDir, {{"exitafter", "0"}, {"log", r + "/log"}});
    Write(Cfg.Em7WinDir + "/EM7.INI", "[EM7]\r\nDspMode=0\r\n");
    Write(r + "/images/PLAIN.VFD", Disk("PLAIN", 1 << 20, 'v'));
    LstObj.SetJituFile(r + "/images/PLAIN.VFD");
    LstObj.SetStartFileName("PLAIN.VFD");
    std::vector<LaunchTimings> em7;
    for (int i = 0; i < n; ++i) {
        RunSelectedItem(13);
        em7.push_back(lastLaunchTimings);
    }

    const QString src = r + "/pack";
    QDir().mkpath(src);
    Write(src + "/GAME.D88", Disk("DISK A", 348848, 'a') + Disk("DISK B", 348848, 'b'));
    ArcPack(nullptr, r + "/images/GAME.ZIP", src, kArcTrue);
    std::vector<LaunchTimings> zip;
    HardWare = 2;
    LstObj.SetJituFile(r + "/images/GAME.ZIP");
    LstObj.SetStartFileName("GAME.D88");
    LstObj.SetArcCheckFlag(1);
    LstObj.SetReArcCheckFlag(1);
    for (int i = 0; i < n; ++i) {
        RunSelectedItem(22);
        zip.push_back(lastLaunchTimings);
    }

    // The emulator's change must have come back: otherwise the figures measure no re-pack.
    const QString check = r + "/check";
    QDir().mkpath(check);
    ArcMelt(nullptr, r + "/images/GAME.ZIP", check, QString(), kArcTrue, kArcFalse);
    QFile joined(check + "/GAME.D88");
    joined.open(QIODevice::ReadOnly);
    const bool repacked = joined.readAll().mid(348848 + 32, 16) == "TESTEMU CHANGED!";
    std::printf("re-packed archive holds the emulator's change: %s\n", repacked ? "yes" : "NO");

    Report("plain 1 MB image, XM7 for DOS", plain);
    Report("plain 1 MB image, EM7 with its own INI", em7);
    Report("ZIP of two disks, split, joined, re-packed, X millennium", zip);
    return 0;
}
