#pragma once
// The toolkit's own texts (standard buttons, file dialogs, context menus of text boxes) in
// Japanese, as the rest of the program speaks: the translations the system installed for Qt.
#include <QString>

class QCoreApplication;

namespace tv {

// Loads Qt's Japanese translations into the application from `directory` (empty: where the
// system keeps Qt's translations). False when none is found there; the toolkit then speaks
// its own English.
bool InstallQtJapanese(QCoreApplication& app, const QString& directory = QString());

} // namespace tv
