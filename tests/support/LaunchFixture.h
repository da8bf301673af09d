#pragma once
// The fixture of the launch tests: a program directory with its WorkDir, the per-family
// image, snapshot, save-state and .PAT directories, and the test emulator installed in a
// directory of its own under an emulator's executable name. Everything lives in a fresh
// temporary root; the globals it changes are put back when the test ends.
#include "data/ByteCodec.h"
#include "data/Cfg.h"
#include "data/EmuRegistry.h"
#include "data/clsLst.h"
#include "launch/Archive.h"
#include "launch/D88Uty.h"
#include "launch/ExecEmulator.h"
#include "launch/Launch.h"
#include "platform/KeySend.h"
#include "util/Globals.h"
#include "util/SubFunction.h"
#include "support/GuardedDirs.h"
#include "support/ProcessState.h"
#include "support/StubWindow.h"
#include "support/TestEmu.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <optional>

namespace tvtest {

// A D88 disk of `size` bytes named `name`, its data filled with `fill`.
inline QByteArray Disk(const QByteArray& name, int size, char fill)
{
    QByteArray d;
    tv::ByteWriter w(d);
    w.raw(name, 17);
    w.raw(QByteArray(9, '\0'), 9);
    w.u8(0);
    w.u8(0x20);
    w.i32(size);
    d.append(QByteArray(size - tv::kD88HeaderSize, fill));
    return d;
}

// An image of `size` bytes whose content the test emulator's change (16 bytes at 32) shows.
inline QByteArray Image(int size = 4096)
{
    return Disk("IMAGE", size, 'i');
}

// What the test emulator's "change" writes at offset 32.
inline const QByteArray kChanged("TESTEMU CHANGED!");

class LaunchFixture : public ::testing::Test {
protected:
    void SetUp() override
    {
        using namespace tv;
        ASSERT_TRUE(root_.isValid());
        r_ = root_.path();
        for (const char* d : {"tmp", "app/TORVBOOT", "images", "snap", "save", "pat", "emu"})
            QDir().mkpath(r_ + "/" + d);
        saved_.emplace();
        EnvTmpDir = EnvTempDir = r_ + "/tmp";
        WindowsDir = "/etc";
        SystemDir = "/usr";
        AppDir = r_ + "/app";
        WorkDir = AppDir + "/TORVBOOT";
        PeekDir = EnvTmpDir + "/TORVBOOT";
        InitTables();
        SetDefaultCfg(Cfg);
        Cfg.WinSendWait = 0;
        for (int f = 0; f < 3; ++f) {
            ImageDir[f] = r_ + "/images";
            SnapDir[f] = r_ + "/snap";
            PatSaveDir[f] = r_ + "/pat";
        }
        M88SaveDir = P88SaveDir = r_ + "/save";
        window_.emplace();
        window_->hasSelectedItem = true;
        log_ = r_ + "/emu.log";
        ClearInputLog();
        ResetItemBlock();
    }
    void TearDown() override
    {
        ResetItemBlock();
        window_.reset();
        saved_.reset();
    }

    // Installs the test emulator for a code in its own directory with the given actions.
    QString Emu(int code, QMap<QString, QString> actions = {})
    {
        using namespace tv;
        const QString dir = r_ + "/emu/" + QString::number(code);
        QDir().mkpath(dir);
        EXPECT_FALSE(InstallTestEmu(dir, EmuExeName(code)).isEmpty());
        actions["log"] = log_;
        if (!actions.contains("exitafter"))
            actions["exitafter"] = "300";
        EXPECT_TRUE(WriteTestEmuConfig(dir, actions));
        // The emulator's directory field of the configuration points at it.
        if (const EmuRow* row = FindEmu(code))
            Cfg.*row->dir = dir;
        return dir;
    }

    void Item(uint8_t hw, const QString& jitu, const QString& start, uint8_t arc = 0,
              uint8_t rearc = 0, const QString& second = QString())
    {
        using namespace tv;
        HardWare = hw;
        LstObj.SetJituFile(jitu);
        LstObj.SetStartFileName(start);
        LstObj.SetSecondFile(second);
        LstObj.SetArcCheckFlag(arc);
        LstObj.SetReArcCheckFlag(rearc);
    }

    // The current catalogue record's PC-88 option block, as the launch fetches it when DefOpt
    // is 0; CurEmuOpt88, the working copy, is left holding something else.
    void ItemBlock(const tv::EmuOpt88& block)
    {
        tv::CurEmuOpt88 = block;
        tv::LstObj.SetEmuOpt88();
        tv::CurEmuOpt88 = tv::EmuOpt88{};
    }
    // No title's block stays behind for the next test.
    void ResetItemBlock() { ItemBlock(tv::EmuOpt88{}); }

    // Packs `files` (name, bytes) into an archive through the archive service.
    QString Archive(const QString& name, const QMap<QString, QByteArray>& files)
    {
        const QString src = r_ + "/pack";
        QDir(src).removeRecursively();
        QDir().mkpath(src);
        for (auto it = files.begin(); it != files.end(); ++it)
            WriteFile(src + "/" + it.key(), it.value());
        const QString path = r_ + "/images/" + name;
        EXPECT_EQ(tv::ArcPack(nullptr, path, src, tv::kArcTrue), 0);
        QDir(src).removeRecursively();
        return path;
    }

    // The members of an archive, unpacked into a fresh directory.
    QMap<QString, QByteArray> Members(const QString& archive)
    {
        const QString dst = r_ + "/unpack";
        QDir(dst).removeRecursively();
        QDir().mkpath(dst);
        EXPECT_EQ(tv::ArcMelt(nullptr, archive, dst, QString(), tv::kArcTrue, tv::kArcFalse), 0);
        QMap<QString, QByteArray> out;
        for (const QString& f : QDir(dst).entryList(QDir::Files))
            out[f] = ReadFile(dst + "/" + f);
        return out;
    }

    std::vector<TestEmuRun> Runs() { return ReadTestEmuLog(log_); }
    QStringList WorkFiles()
    {
        return QDir(tv::WorkDir).entryList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot);
    }
    QStringList Clips()
    {
        QStringList out;
        for (const tv::InputRecord& r : tv::InputLog())
            if (r.kind == tv::InputRecord::Clip)
                out << r.text;
        return out;
    }
    QStringList KeySeqs()
    {
        QStringList out;
        for (const tv::InputRecord& r : tv::InputLog())
            if (r.kind == tv::InputRecord::Keys)
                out << r.text;
        return out;
    }

    QTemporaryDir root_;
    QString r_, log_;
    std::optional<StubWindow> window_; // a row selected unless the test says otherwise
    std::optional<ProcessState> saved_;
};

} // namespace tvtest
