#pragma once
// Answers the system's message boxes from a script and records every box, for tests.
#include "platform/MsgBox.h"

#include <QStringList>
#include <deque>
#include <vector>

namespace tvtest {

class ScriptedMsgBox {
public:
    // Unscripted boxes get their default button.
    ScriptedMsgBox();
    ~ScriptedMsgBox();
    ScriptedMsgBox(const ScriptedMsgBox&) = delete;
    ScriptedMsgBox& operator=(const ScriptedMsgBox&) = delete;

    void answer(int result) { answers_.push_back(result); }
    const std::vector<tv::MsgBoxCall>& calls() const { return calls_; }
    QStringList texts() const;
    void clear() { calls_.clear(); }

private:
    std::deque<int> answers_;
    std::vector<tv::MsgBoxCall> calls_;
    tv::MsgBoxHandler previous_;
};

} // namespace tvtest
