// The program takes no command line: everything it needs stands beside it.
#include "platform/MsgBoxQt_ui.h"

#include <QApplication>
#include <QLabel>

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("TORVANE"));
    QApplication::setApplicationVersion(QStringLiteral(TORVANE_VERSION));
    tv::InstallQtMessageBoxes();
    QLabel placeholder(QStringLiteral("TORVANE"));
    placeholder.show();
    return app.exec();
}
