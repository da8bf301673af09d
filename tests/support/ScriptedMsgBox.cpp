#include "support/ScriptedMsgBox.h"

namespace tvtest {

ScriptedMsgBox::ScriptedMsgBox()
{
    previous_ = tv::SetMsgBoxHandler([this](const tv::MsgBoxCall& call) {
        calls_.push_back(call);
        if (answers_.empty())
            return tv::DefaultMsgBoxAnswer(call.flags);
        int a = answers_.front();
        answers_.pop_front();
        return a;
    });
}

ScriptedMsgBox::~ScriptedMsgBox()
{
    tv::SetMsgBoxHandler(std::move(previous_));
}

QStringList ScriptedMsgBox::texts() const
{
    QStringList out;
    for (const auto& c : calls_)
        out << c.text;
    return out;
}

} // namespace tvtest
