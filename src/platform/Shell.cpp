#include "platform/Shell.h"

#include <QDesktopServices>

namespace tv {

namespace {
UrlOpener& opener()
{
    static UrlOpener o;
    return o;
}
} // namespace

bool OpenUrl(const QUrl& url)
{
    if (opener())
        return opener()(url);
    return QDesktopServices::openUrl(url);
}

UrlOpener SetUrlOpener(UrlOpener o)
{
    UrlOpener old = std::move(opener());
    opener() = std::move(o);
    return old;
}

} // namespace tv
