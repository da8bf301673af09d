#include "support/ProcessState.h"

#include "launch/MainWindowLink.h"
#include "util/Globals.h"

#include <QDir>

namespace tvtest {

ProcessState::EnvVar ProcessState::readEnv(const char* name)
{
    return {qEnvironmentVariableIsSet(name), qgetenv(name)};
}

void ProcessState::writeEnv(const char* name, const EnvVar& v)
{
    if (v.set)
        qputenv(name, v.value);
    else
        qunsetenv(name);
}

ProcessState::ProcessState()
    : cfg_(tv::Cfg), cfgReady_(tv::CfgReady), titleClosed_(tv::TitleClosed),
      hardWare_(tv::HardWare), trayWindowState_(tv::TrayWindowState), keyPrefix_(tv::KeyPrefix),
      envTmpDir_(tv::EnvTmpDir), envTempDir_(tv::EnvTempDir), windowsDir_(tv::WindowsDir),
      systemDir_(tv::SystemDir), appDir_(tv::AppDir), workDir_(tv::WorkDir), peekDir_(tv::PeekDir),
      helpFile_(tv::HelpFile), imageDir_(tv::ImageDir), snapDir_(tv::SnapDir), manDir_(tv::ManDir),
      patSaveDir_(tv::PatSaveDir), p88Save_(tv::P88SaveDir), m88Save_(tv::M88SaveDir),
      quasi88Save_(tv::QUASI88SaveDir), xm7DosSave_(tv::Xm7DosSaveDir),
      xm7WinSave_(tv::Xm7WinSaveDir), xmilSave_(tv::XmilSaveDir), winX1Save_(tv::WinX1SaveDir),
      window_(tv::InstalledWindow()), cwd_(QDir::currentPath()), tmp_(readEnv("TMP")),
      temp_(readEnv("TEMP"))
{
    // The handler can only be read by taking it; it goes straight back.
    msgBox_ = tv::SetMsgBoxHandler(nullptr);
    tv::SetMsgBoxHandler(msgBox_);
}

ProcessState::~ProcessState()
{
    tv::Cfg = cfg_;
    tv::CfgReady = cfgReady_;
    tv::TitleClosed = titleClosed_;
    tv::HardWare = hardWare_;
    tv::TrayWindowState = trayWindowState_;
    tv::KeyPrefix = keyPrefix_;
    tv::EnvTmpDir = envTmpDir_;
    tv::EnvTempDir = envTempDir_;
    tv::WindowsDir = windowsDir_;
    tv::SystemDir = systemDir_;
    tv::AppDir = appDir_;
    tv::WorkDir = workDir_;
    tv::PeekDir = peekDir_;
    tv::HelpFile = helpFile_;
    tv::ImageDir = imageDir_;
    tv::SnapDir = snapDir_;
    tv::ManDir = manDir_;
    tv::PatSaveDir = patSaveDir_;
    tv::P88SaveDir = p88Save_;
    tv::M88SaveDir = m88Save_;
    tv::QUASI88SaveDir = quasi88Save_;
    tv::Xm7DosSaveDir = xm7DosSave_;
    tv::Xm7WinSaveDir = xm7WinSave_;
    tv::XmilSaveDir = xmilSave_;
    tv::WinX1SaveDir = winX1Save_;
    tv::InstallWindow(window_);
    tv::SetMsgBoxHandler(msgBox_);
    QDir::setCurrent(cwd_);
    writeEnv("TMP", tmp_);
    writeEnv("TEMP", temp_);
}

} // namespace tvtest
