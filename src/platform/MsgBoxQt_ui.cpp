// Shows the system's message boxes with Qt.
#include "platform/MsgBoxQt_ui.h"

#include "platform/MsgBox.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

namespace tv {

int ShowQtMessageBox(const MsgBoxCall& call)
{
    QMessageBox box(QApplication::activeWindow());
    box.setWindowTitle(call.caption);
    box.setText(call.text);
    switch (call.flags & 0x70) {
    case MbCritical:
        box.setIcon(QMessageBox::Critical);
        break;
    case MbQuestion:
        box.setIcon(QMessageBox::Question);
        break;
    case MbExclamation:
        box.setIcon(QMessageBox::Warning);
        break;
    case MbInformation:
        box.setIcon(QMessageBox::Information);
        break;
    default:
        box.setIcon(QMessageBox::NoIcon);
        break;
    }
    if ((call.flags & 7) == MbYesNo) {
        auto* yes = box.addButton(QMessageBox::Yes);
        auto* no = box.addButton(QMessageBox::No);
        yes->setText(QStringLiteral("はい(&Y)"));
        no->setText(QStringLiteral("いいえ(&N)"));
        box.setDefaultButton((call.flags & MbDefaultButton2) ? no : yes);
        box.setEscapeButton(no);
        box.exec();
        return box.clickedButton() == yes ? MbResYes : MbResNo;
    }
    box.addButton(QMessageBox::Ok);
    box.exec();
    return MbResOk;
}

void InstallQtMessageBoxes()
{
    SetMsgBoxHandler(&ShowQtMessageBox);
}

} // namespace tv
