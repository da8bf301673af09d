#include "platform/Translations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace tv {

bool InstallQtJapanese(QCoreApplication& app, const QString& directory)
{
    const QString dir =
        directory.isEmpty() ? QLibraryInfo::path(QLibraryInfo::TranslationsPath) : directory;
    // "qtbase" holds the widgets' texts; the application owns the translator from here on.
    auto* translator = new QTranslator(&app);
    if (!translator->load(QLocale(QLocale::Japanese, QLocale::Japan), QStringLiteral("qtbase"),
                          QStringLiteral("_"), dir)) {
        delete translator;
        return false;
    }
    return QCoreApplication::installTranslator(translator);
}

} // namespace tv
