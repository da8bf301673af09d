#pragma once
// Process-wide state set during start-up and read everywhere. Directories carry no trailing
// separator.
#include <QString>
#include <array>
#include <cstdint>

namespace tv {

inline QString EnvTmpDir;  // "TMP"
inline QString EnvTempDir; // "TEMP"
inline QString WindowsDir;
inline QString SystemDir;
inline QString AppDir;
inline QString WorkDir; // AppDir/TORVBOOT: the working directory of launches
inline QString PeekDir; // EnvTmpDir/TORVBOOT: where archives are looked into
inline QString HelpFile;

inline uint8_t CfgReady = 0;
inline uint8_t TitleClosed = 0;
inline uint8_t HardWare = 255; // 0 PC-8x01, 1 FM-7 & FM77AV, 2 X1 & X1Turbo!
inline QString KeyPrefix = QStringLiteral("K");
inline uint8_t TrayWindowState = 0;

// Run-time directories resolved from the configuration (blank = AppDir).
inline std::array<QString, 3> ImageDir, SnapDir, ManDir, PatSaveDir;
inline QString P88SaveDir, M88SaveDir, QUASI88SaveDir, Xm7DosSaveDir, Xm7WinSaveDir, XmilSaveDir,
    WinX1SaveDir;

} // namespace tv
