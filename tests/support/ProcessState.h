#pragma once
// One guard for the process-wide state that tests change: the configuration record and the
// flags beside it, the directories and globals of the utilities, the installed window link, the
// message-box handler, the current directory and the TMP and TEMP variables. Everything is
// put back as it was when the guard goes.
#include "data/Cfg.h"
#include "platform/MsgBox.h"

#include <QByteArray>
#include <QString>
#include <array>
#include <cstdint>

namespace tv {
class MainWindowLink;
}

namespace tvtest {

class ProcessState {
public:
    ProcessState();
    ~ProcessState();
    ProcessState(const ProcessState&) = delete;
    ProcessState& operator=(const ProcessState&) = delete;

private:
    struct EnvVar {
        bool set = false;
        QByteArray value;
    };
    static EnvVar readEnv(const char* name);
    static void writeEnv(const char* name, const EnvVar& v);

    tv::CfgRecord cfg_;
    uint8_t cfgReady_, titleClosed_, hardWare_, trayWindowState_;
    QString keyPrefix_;
    QString envTmpDir_, envTempDir_, windowsDir_, systemDir_, appDir_, workDir_, peekDir_,
        helpFile_;
    std::array<QString, 3> imageDir_, snapDir_, manDir_, patSaveDir_;
    QString p88Save_, m88Save_, quasi88Save_, xm7DosSave_, xm7WinSave_, xmilSave_, winX1Save_;
    tv::MainWindowLink* window_;
    tv::MsgBoxHandler msgBox_;
    QString cwd_;
    EnvVar tmp_, temp_;
};

} // namespace tvtest
