#pragma once
// What the directory picker does with the typed directory when OK is pressed: take it, or
// offer to create it, with the picker's messages.
#include <QString>

namespace tv {

// True when the dialog may close with `result`; false keeps it open (a box has said why).
bool DirSansyoAccept(const QString& text, QString& result);

} // namespace tv
