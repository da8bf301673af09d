// The Qt message boxes of the program: icon, buttons and default button by the flag value,
// "TORVANE" where a box has no caption, and a box wide enough to show its whole caption.
#include "platform/MsgBox.h"
#include "platform/MsgBoxQt_ui.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QtTest>
#include <functional>

using namespace tv;

namespace {

// Runs `inspect` on the box once it is up, then presses the button `press` gives.
int ShowAndAnswer(const MsgBoxCall& call, const std::function<void(QMessageBox*)>& inspect,
                  const std::function<QAbstractButton*(QMessageBox*)>& press)
{
    bool seen = false;
    QTimer::singleShot(0, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box)
            return;
        seen = true;
        inspect(box);
        if (QAbstractButton* b = press(box))
            b->click();
        else
            box->reject();
    });
    // A box that never came up would hang the test: close whatever is modal after a while.
    QTimer guard;
    guard.setSingleShot(true);
    QObject::connect(&guard, &QTimer::timeout, [] {
        if (QWidget* w = QApplication::activeModalWidget())
            w->close();
    });
    guard.start(5000);
    const int r = ShowQtMessageBox(call);
    if (!seen)
        return -1;
    return r;
}

QAbstractButton* ButtonByText(QMessageBox* box, const QString& text)
{
    for (QAbstractButton* b : box->buttons())
        if (b->text() == text)
            return b;
    return nullptr;
}

} // namespace

class TstMsgBoxQt : public QObject {
    Q_OBJECT

private slots:
    void informationBoxIsWideEnoughForItsCaption()
    {
        const MsgBoxCall call{QStringLiteral("設定を登録してください"), MbInformation,
                              QStringLiteral("TORVANE.CFG がありません")};
        int width = 0;
        int need = 0;
        QString title;
        QMessageBox::Icon icon = QMessageBox::NoIcon;
        int buttons = 0;
        const int r = ShowAndAnswer(
            call,
            [&](QMessageBox* box) {
                width = box->width();
                need = box->fontMetrics().horizontalAdvance(call.caption);
                title = box->windowTitle();
                icon = box->icon();
                buttons = int(box->buttons().size());
                QCOMPARE(box->text(), call.text);
            },
            [](QMessageBox* box) { return box->buttons().value(0); });
        QCOMPARE(r, int(MbResOk));
        QCOMPARE(title, call.caption);
        QCOMPARE(icon, QMessageBox::Information);
        QCOMPARE(buttons, 1);
        // The window manager puts an icon and three buttons beside the title.
        QVERIFY2(width >= need + 100,
                 qPrintable(QStringLiteral("box %1 px, caption %2 px").arg(width).arg(need)));
    }

    void yesNoWithExclamationDefaultsToYes()
    {
        const MsgBoxCall call{QStringLiteral("TORVBOOTディレクトリが存在します"),
                              MbExclamation | MbYesNo, kAppTitle};
        QString defaultText;
        QMessageBox::Icon icon = QMessageBox::NoIcon;
        const int r = ShowAndAnswer(
            call,
            [&](QMessageBox* box) {
                icon = box->icon();
                defaultText = box->defaultButton() ? box->defaultButton()->text() : QString();
            },
            [](QMessageBox* box) { return ButtonByText(box, QStringLiteral("いいえ(&N)")); });
        QCOMPARE(icon, QMessageBox::Warning);
        QCOMPARE(defaultText, QStringLiteral("はい(&Y)"));
        QCOMPARE(r, int(MbResNo));
    }

    void questionWithSecondButtonDefaultsToNo()
    {
        const MsgBoxCall call{QStringLiteral("削除してよろしいですか？"),
                              MbQuestion | MbYesNo | MbDefaultButton2, kAppTitle};
        QString defaultText;
        QMessageBox::Icon icon = QMessageBox::NoIcon;
        const int r = ShowAndAnswer(
            call,
            [&](QMessageBox* box) {
                icon = box->icon();
                defaultText = box->defaultButton() ? box->defaultButton()->text() : QString();
            },
            [](QMessageBox* box) { return ButtonByText(box, QStringLiteral("はい(&Y)")); });
        QCOMPARE(icon, QMessageBox::Question);
        QCOMPARE(defaultText, QStringLiteral("いいえ(&N)"));
        QCOMPARE(r, int(MbResYes));
    }

    void boxWithoutCaptionShowsTheProgramTitle()
    {
        // Through the service, as every part of the program calls it.
        InstallQtMessageBoxes();
        QString title;
        QMessageBox::Icon icon = QMessageBox::Information;
        QTimer::singleShot(0, [&] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                title = box->windowTitle();
                icon = box->icon();
                box->buttons().value(0)->click();
            }
        });
        QCOMPARE(MsgBox(QStringLiteral("予期せぬエラーで起動できません")), int(MbResOk));
        QCOMPARE(title, QStringLiteral("TORVANE"));
        QCOMPARE(icon, QMessageBox::NoIcon);
        SetMsgBoxHandler({});
    }
};

QTEST_MAIN(TstMsgBoxQt)
#include "tst_msgbox_qt.moc"
