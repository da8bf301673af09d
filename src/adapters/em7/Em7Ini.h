#pragma once
// The writer of "EM7.INI" for EM7 for Win32: one section made from the EM7 members of an FM-7
// option block. The generated file replaces the user's, which the launch keeps as "EM7.ORG".
#include "adapters/fm7x1/EmuOptFMX1.h"

#include <QString>

namespace tv {

inline const QString kEm7IniName = QStringLiteral("EM7.INI");

// The text of "EM7.INI" for `block`: "[T1_SETTING]" and its seven keys, always all of them,
// every line closed by CR LF (the last one too).
QString MakeEm7Ini(const EmuOptFM& block);

} // namespace tv
