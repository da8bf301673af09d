// The text file beside an image, arbitrary bytes or lines made of the key words: the import
// always ends, gives title, genre and maker on one line each, and a comment whose line
// breaks are all CR LF.
#include "data/Cfg.h"
#include "data/ItemText.h"
#include "data/clsLst.h"
#include "fuzz/FuzzDirs.h"
#include "util/Sjis.h"

#include <QStringList>

#include <cstdint>

namespace {

bool OnlyCrLfBreaks(const QString& s)
{
    for (qsizetype i = 0; i < s.size(); ++i) {
        if (s.at(i) == u'\n')
            return false;
        if (s.at(i) == u'\r') {
            if (i + 1 >= s.size() || s.at(i + 1) != u'\n')
                return false;
            ++i;
        }
    }
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString app = tvfuzz::FuzzAppDir();
    if (size < 1)
        return 0;
    tv::Cfg.TxtInConv = data[0] & 1;
    const bool words = data[0] & 2;
    QByteArray bytes;
    if (words) {
        static const QStringList alphabet = {
            "タイトル", "ジャンル", "メーカー", "コメント", "ＴＩＴＬＥ", "genre", ":", "：",
            "\r\n",     "\n",       "\r",       " ",        "　",         "Ａ",    "x", "ｱﾞ"};
        QString text;
        for (size_t i = 1; i < size; ++i)
            text += alphabet.at(data[i] % alphabet.size());
        bytes = tv::ToSjis(text);
    } else {
        bytes = QByteArray(reinterpret_cast<const char*>(data + 1), qsizetype(size - 1));
    }
    tvfuzz::WriteBytes(app + "/GAME.txt", bytes);

    Check(tv::ImportItemText(app + "/GAME.D88"));
    for (const QString& field :
         {tv::LstObj.GetTitle(), tv::LstObj.GetGenre(), tv::LstObj.GetMaker()})
        Check(!field.contains(u'\r') && !field.contains(u'\n'));
    Check(OnlyCrLfBreaks(tv::LstObj.GetComment()));
    Check(!tv::ImportItemText(app + "/NONE.D88"));
    Check(tv::LstObj.GetTitle().isEmpty() && tv::LstObj.GetComment().isEmpty());
    return 0;
}
