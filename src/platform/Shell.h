#pragma once
// Hands a document or address to the desktop's open handler (the browser for the help file
// and web addresses). Tests replace the handler and read what would have been opened.
#include <QUrl>
#include <functional>

namespace tv {

using UrlOpener = std::function<bool(const QUrl&)>;

bool OpenUrl(const QUrl& url);
// Installs the handler; an empty one restores the desktop's. Returns the previous one.
UrlOpener SetUrlOpener(UrlOpener opener);

} // namespace tv
