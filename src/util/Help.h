#pragma once
// The help: one HTML file beside the program, opened in the browser at a topic's anchor.
#include <QString>

namespace tv {

inline const QString kHelpFileName = QStringLiteral("TORVANE.html");

// Topics (anchors of the help file).
inline const QString kHelpContents = QStringLiteral("contents");
inline const QString kHelpMain = QStringLiteral("main");
inline const QString kHelpSearch = QStringLiteral("search");
inline const QString kHelpCfg = QStringLiteral("cfg");
inline const QString kHelpOpt = QStringLiteral("opt");
inline const QString kHelpDirSansyo = QStringLiteral("dirsansyo");

// Opens HelpFile at `topic`; tells the user when the file is missing or can't be opened.
bool ShowHelpTopic(const QString& topic);

} // namespace tv
