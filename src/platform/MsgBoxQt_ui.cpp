// Shows the system's message boxes with Qt.
#include "platform/MsgBoxQt_ui.h"

#include "platform/MsgBox.h"

#include <QApplication>
#include <QGridLayout>
#include <QMessageBox>
#include <QPushButton>
#include <QSpacerItem>

namespace tv {

int ShowQtMessageBox(const MsgBoxCall& call)
{
    QMessageBox box(QApplication::activeWindow());
    box.setWindowTitle(call.caption);
    box.setText(call.text);
    // The captions carry part of the message ("TORVANE.CFG がありません"): keep the box wide
    // enough for the window manager to show the whole title. Setting the icon rebuilds the
    // box's layout, so the room is made once icon and buttons are in place.
    const auto widenForCaption = [&box, &call] {
        if (auto* grid = qobject_cast<QGridLayout*>(box.layout())) {
            const int want = box.fontMetrics().horizontalAdvance(call.caption) + 160;
            grid->addItem(new QSpacerItem(want, 0, QSizePolicy::Minimum, QSizePolicy::Minimum),
                          grid->rowCount(), 0, 1, grid->columnCount());
        }
    };
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
        widenForCaption();
        box.exec();
        return box.clickedButton() == yes ? MbResYes : MbResNo;
    }
    box.addButton(QMessageBox::Ok);
    widenForCaption();
    box.exec();
    return MbResOk;
}

void InstallQtMessageBoxes()
{
    SetMsgBoxHandler(&ShowQtMessageBox);
}

} // namespace tv
