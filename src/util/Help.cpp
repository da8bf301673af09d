#include "util/Help.h"

#include "platform/MsgBox.h"
#include "platform/Shell.h"
#include "util/Globals.h"

#include <QFileInfo>
#include <QUrl>

namespace tv {

bool ShowHelpTopic(const QString& topic)
{
    if (HelpFile.isEmpty() || !QFileInfo(HelpFile).isFile()) {
        MsgBox(QStringLiteral("ヘルプファイルが見つかりません") + QStringLiteral("\n") + HelpFile,
               MbExclamation);
        return false;
    }
    QUrl url = QUrl::fromLocalFile(HelpFile);
    url.setFragment(topic);
    if (!OpenUrl(url)) {
        MsgBox(QStringLiteral("ヘルプを表示できませんでした") + QStringLiteral("\n") + HelpFile,
               MbExclamation);
        return false;
    }
    return true;
}

} // namespace tv
