#pragma once
// The one message-box service. It takes the flag values of the system's boxes (0 OK, 4 yes/no,
// 16 critical, 48 exclamation, 64 information, 32 question, +256 second button as default,
// e.g. 52 = yes/no with exclamation, 292 = yes/no with question and No as default) and
// returns 1 (OK) or 6 (Yes) / 7 (No). A box without caption shows "TORVANE".
#include <QString>
#include <functional>

namespace tv {

enum MsgBoxFlag : int {
    MbOkOnly = 0,
    MbYesNo = 4,
    MbCritical = 16,
    MbQuestion = 32,
    MbExclamation = 48,
    MbInformation = 64,
    MbDefaultButton2 = 256,
};
enum MsgBoxResult : int { MbResOk = 1, MbResCancel = 2, MbResYes = 6, MbResNo = 7 };

struct MsgBoxCall {
    QString text;
    int flags = 0;
    QString caption; // as shown: "TORVANE" when none was given
};

using MsgBoxHandler = std::function<int(const MsgBoxCall&)>;

inline const QString kAppTitle = QStringLiteral("TORVANE");

int MsgBox(const QString& text, int flags = 0, const QString& caption = QString());

// Installs the handler that shows (or, in tests, answers) boxes; returns the previous one.
MsgBoxHandler SetMsgBoxHandler(MsgBoxHandler handler);

// The answer a box gets when nobody is there to click: its default button.
int DefaultMsgBoxAnswer(int flags);

} // namespace tv
