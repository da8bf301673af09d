#pragma once
// Title, genre, maker and comment of a title, learnt from a small text file beside its image
// that carries key words ("タイトル:", "Genre：", ...) in front of a colon.
#include <QString>

namespace tv {

// Clears title, genre, maker and comment of the current record of LstObj, then reads
// dir/stem.txt of `ImagePath` into them. True when the text file was found and read. The
// narrowing to half width over the limits follows Cfg.TxtInConv; whether to call at all is
// the caller's choice (Cfg.TxtIn).
bool ImportItemText(const QString& ImagePath);

} // namespace tv
