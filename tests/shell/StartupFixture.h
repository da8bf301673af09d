#pragma once
// A fresh program directory, TMP and TEMP for one start, and a window stand-in that records
// what the start-up asks of the windows.
#include "data/Cfg.h"
#include "shell/Globals.h"
#include "shell/Startup.h"

#include <QDir>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>

namespace tvtest {

class RecordingUi : public tv::StartupUi {
public:
    QStringList calls;
    QStringList msg1;
    std::function<void()> onCfgDialog; // what the user does in frmCfg
    std::function<bool(int)> initLst = [](int) { return true; };
    bool trayAvailable = true;
    QString selectedKey;
    int windowState = 0;

    void LoadTitle() override { calls << "LoadTitle"; }
    void ShowTitle() override { calls << "ShowTitle"; }
    void UnloadTitle() override { calls << "UnloadTitle"; }
    void SetTitleMsg1(const QString& t) override
    {
        calls << "Msg1:" + t;
        msg1 << t;
    }
    void SetTitleMsg2(const QString& t) override { calls << "Msg2:" + t; }
    void HideMain() override { calls << "HideMain"; }
    void ShowMain() override { calls << "ShowMain"; }
    void SetMainMinimized() override { calls << "SetMainMinimized"; }
    void SetMainVisible() override { calls << "SetMainVisible"; }
    void SetListExStyle() override { calls << "SetListExStyle"; }
    void ApplyCfgToWindow() override { calls << "ApplyCfgToWindow"; }
    void CreateLstObj() override { calls << "CreateLstObj"; }
    void ReleaseLstObj() override { calls << "ReleaseLstObj"; }
    bool InitLst(int f) override
    {
        calls << QStringLiteral("InitLst:%1").arg(f);
        return initLst(f);
    }
    void SelectFamily(int f) override { calls << QStringLiteral("SelectFamily:%1").arg(f); }
    void PlaceWindow() override { calls << "PlaceWindow"; }
    bool TrayAvailable() override { return trayAvailable; }
    void SetTaskIcon() override { calls << "SetTaskIcon"; }
    void RemoveTaskIcon() override { calls << "RemoveTaskIcon"; }
    void ShowCfgDialog() override
    {
        calls << "ShowCfgDialog";
        if (onCfgDialog)
            onCfgDialog();
    }
    QString SelectedKey() override { return selectedKey; }
    std::array<float, 6> ColumnWidths() override { return {1, 2, 3, 4, 5, 6}; }
    int WindowState() override { return windowState; }
    void RestoreNormalVisible() override { calls << "RestoreNormalVisible"; }
    std::array<float, 4> WindowGeometry() override { return {600, 800, 30, 40}; }
    void UnloadOtherForms() override { calls << "UnloadOtherForms"; }
};

class StartupTest : public ::testing::Test {
protected:
    QTemporaryDir root;
    QString app, tmp, temp;
    RecordingUi ui;
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
    void TearDown() override
    {
        qunsetenv("TMP");
        qunsetenv("TEMP");
        QDir::setCurrent(QDir::rootPath());
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
