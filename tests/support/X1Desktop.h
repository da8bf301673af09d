#pragma once
// The desktop of the main-window launch tests: program, work and temporary directories, the
// X1 family's image and snap directories under a test root, X millennium in use from
// "<root>/emu", and a one-title catalogue whose title "ゲーム" starts "<root>/images/GAME.D88"
// on X millennium by default.
#include <QByteArray>
#include <QString>

namespace tvtest {

// Makes the directories under `root` and points the process's globals at them. The caller
// keeps a ProcessState guard around it. False when the catalogue can't be written.
bool SetUpX1Desktop(const QString& root);

// The user's own Xmillennium.ini, written into "<root>/emu".
const QByteArray& UsersXmilIni();

// Writes the user's Xmillennium.ini and the title's image; false on failure.
bool WriteXmilIniAndImage(const QString& root);

} // namespace tvtest
