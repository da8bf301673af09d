#pragma once
#include "platform/MsgBox.h"

namespace tv {
int ShowQtMessageBox(const MsgBoxCall& call);
// Makes every MsgBox of the program a Qt message box.
void InstallQtMessageBoxes();
} // namespace tv
