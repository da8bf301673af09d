// The program takes no command line: everything it needs stands beside it. Its first logic
// is the start-up of the main window; a refused start ends the process with code 1.
#include "launch/ArcProgressDialog_ui.h"
#include "mainwindow/MainCatalogue.h"
#include "mainwindow/frmMain.h"
#include "platform/MsgBoxQt_ui.h"
#include "platform/Translations.h"

#include <QApplication>
#include <QFont>
#include <QFontDatabase>

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("TORVANE"));
    QApplication::setApplicationVersion(QStringLiteral(TORVANE_VERSION));
    // Japanese texts need a font that has them; prefer one when the system has it.
    const QStringList families = QFontDatabase::families();
    for (const char* name : {"Noto Sans CJK JP", "Noto Sans JP", "IPAGothic", "IPAexGothic",
                             "VL Gothic", "TakaoGothic"}) {
        if (families.contains(QString::fromUtf8(name))) {
            QFont f = QApplication::font();
            f.setFamilies({QString::fromUtf8(name)});
            QApplication::setFont(f);
            break;
        }
    }
    // The toolkit's own buttons and dialogs speak Japanese too, where the system has Qt's
    // translations.
    tv::InstallQtJapanese(app);
    tv::InstallQtMessageBoxes();
    // Long archive work shows its progress in a dialog owned by the main window.
    tv::InstallArcProgressDialog();

    tv::frmMain w;
    w.SetCatalogue(std::make_unique<tv::MainCatalogue>());
    if (!w.Load())
        return 1;
    return app.exec();
}
