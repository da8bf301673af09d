#include "platform/MsgBox.h"

namespace tv {

namespace {
MsgBoxHandler& handler()
{
    static MsgBoxHandler h;
    return h;
}
} // namespace

int DefaultMsgBoxAnswer(int flags)
{
    if ((flags & 7) == MbYesNo)
        return (flags & MbDefaultButton2) ? MbResNo : MbResYes;
    return MbResOk;
}

int MsgBox(const QString& text, int flags, const QString& caption)
{
    MsgBoxCall call{text, flags, caption.isEmpty() ? kAppTitle : caption};
    if (handler())
        return handler()(call);
    return DefaultMsgBoxAnswer(flags);
}

MsgBoxHandler SetMsgBoxHandler(MsgBoxHandler h)
{
    MsgBoxHandler old = std::move(handler());
    handler() = std::move(h);
    return old;
}

} // namespace tv
