#pragma once
// A fresh program directory, TMP and TEMP for one start, and the stub window that records
// what the start-up asks of the windows.
#include "data/Cfg.h"
#include "util/Globals.h"
#include "startup/Startup.h"
#include "support/ProcessState.h"
#include "support/StubWindow.h"

#include <QDir>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>

namespace tvtest {

class StartupTest : public ::testing::Test {
protected:
    QTemporaryDir root;
    ProcessState state; // after root: back before the directory goes
    QString app, tmp, temp;
    StubWindow ui; // installed for the whole test
    std::vector<int> sleeps;
    int yields = 0;

    void SetUp() override
    {
        ASSERT_TRUE(root.isValid());
        app = root.path() + "/app";
        tmp = root.path() + "/tmp";
        temp = root.path() + "/temp";
        for (const auto& d : {app, tmp, temp})
            ASSERT_TRUE(QDir().mkpath(d));
        qputenv("TMP", tmp.toLocal8Bit());
        qputenv("TEMP", temp.toLocal8Bit());
        tv::Cfg = tv::CfgRecord{};
        tv::CfgReady = 0;
        tv::HardWare = 255;
        tv::TrayWindowState = 0;
        tv::AppDir.clear();
    }

    tv::StartupEnv Env(const QString& programDir = QString())
    {
        tv::StartupEnv e;
        e.programDir = programDir.isEmpty() ? app : programDir;
        e.executablePath = e.programDir + "/torvane";
        e.sleep = [this](int ms) { sleeps.push_back(ms); };
        e.yield = [this] { ++yields; };
        return e;
    }

    // A valid configuration file of the current version in the program directory.
    void WriteValidCfg(const std::function<void(tv::CfgRecord&)>& change = {})
    {
        tv::CfgRecord c;
        tv::SetDefaultCfg(c);
        if (change)
            change(c);
        QFile f(app + "/TORVANE.CFG");
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(tv::EncodeCfg(c));
    }
    QByteArray ReadFile(const QString& path)
    {
        QFile f(path);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }
    void WriteFile(const QString& path, const QByteArray& bytes)
    {
        QFile f(path);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(bytes);
    }
};

} // namespace tvtest
