#include "data/ItemText.h"

#include "data/Cfg.h"
#include "data/clsLst.h"
#include "util/Sjis.h"
#include "util/SubFunction.h"
#include "util/WidthConv.h"

#include <QFile>
#include <QStringList>

namespace tv {

namespace {

enum Field { FTitle, FGenre, FMaker, FComment, FieldCount };

struct FieldKeys {
    QStringList words;
    int limit;
};

const FieldKeys& KeysOf(int field)
{
    static const FieldKeys kKeys[FieldCount] = {
        {{QStringLiteral("ＴＩＴＬＥ"), QStringLiteral("タイトル"), QStringLiteral("ソフト名")},
         100},
        {{QStringLiteral("ジャンル"), QStringLiteral("ＧＥＮＲＥ"), QStringLiteral("種類"),
          QStringLiteral("種別")},
         20},
        {{QStringLiteral("メーカー"), QStringLiteral("ＭＡＫＥＲ"), QStringLiteral("制作"),
          QStringLiteral("開発")},
         30},
        {{QStringLiteral("ＣＯＭＭＥＮＴ"), QStringLiteral("コメント"), QStringLiteral("その他"),
          QStringLiteral("備考")},
         78}};
    return kKeys[field];
}

// Lines as a sequential read gives them: ended by CR LF, CR or LF.
QStringList SplitLines(const QString& text)
{
    QStringList lines;
    QString cur;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c == QLatin1Char('\r') || c == QLatin1Char('\n')) {
            lines << cur;
            cur.clear();
            if (c == QLatin1Char('\r') && i + 1 < text.size() &&
                text.at(i + 1) == QLatin1Char('\n')) {
                ++i;
            }
        } else {
            cur += c;
        }
    }
    if (!cur.isEmpty()) {
        lines << cur;
    }
    return lines;
}

// The separator's 0-based index: the first ":", else the first "："; -1 with neither.
qsizetype SeparatorOf(const QString& line)
{
    const qsizetype half = line.indexOf(QLatin1Char(':'));
    return half >= 0 ? half : line.indexOf(QChar(0xFF1A));
}

QString Narrowed(const QString& value, int limit)
{
    if (Cfg.TxtInConv == 1 && CodePageMeasure(value) > limit) {
        return ToHalfWidth(value);
    }
    return value;
}

QString StripTrailingBreaks(QString text)
{
    while (text.endsWith(QLatin1Char('\n')) || text.endsWith(QLatin1Char('\r'))) {
        text.chop(1);
    }
    return text;
}

} // namespace

bool ImportItemText(const QString& ImagePath)
{
    LstObj.SetTitle(QString());
    LstObj.SetGenre(QString());
    LstObj.SetMaker(QString());
    LstObj.SetComment(QString());

    // Names from archives made on a case-blind system: "GAME.TXT" serves "GAME.D88" too.
    const QString path =
        FindFileNoCase(GetFileDir(ImagePath), GetFileBase(ImagePath) + QStringLiteral(".txt"));
    if (path.isEmpty()) {
        return false;
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return false;
    }
    const QStringList lines = SplitLines(FromSjis(file.readAll()));
    file.close();

    bool found[FieldCount] = {};
    bool collecting = false;
    QString collection;
    const QString crlf = QStringLiteral("\r\n");
    for (qsizetype n = 0;; ++n) {
        if (found[FTitle] && found[FGenre] && found[FMaker] && found[FComment] &&
            !LstObj.GetComment().isEmpty()) {
            break;
        }
        if (n >= lines.size()) {
            if (collecting && LstObj.GetComment().isEmpty()) {
                LstObj.SetComment(VbTrim(StripTrailingBreaks(collection)));
            }
            break;
        }
        const QString& line = lines.at(n);
        const qsizetype sep = SeparatorOf(line);
        if (sep >= 2) {
            if (collecting && LstObj.GetComment().isEmpty()) {
                LstObj.SetComment(VbTrim(collection));
            }
            collecting = false;
            const QString key = ToFullWidth(VbTrim(line.left(sep)).toUpper());
            const QString value = VbTrim(line.mid(sep + 1));
            bool used = false;
            for (int f = 0; f < FieldCount && !used; ++f) {
                if (found[f]) {
                    continue;
                }
                const FieldKeys& keys = KeysOf(f);
                bool match = false;
                for (const QString& w : keys.words) {
                    match = match || key.contains(w);
                }
                if (!match) {
                    continue;
                }
                found[f] = true;
                used = true;
                const QString v = Narrowed(value, keys.limit);
                switch (f) {
                case FTitle:
                    LstObj.SetTitle(v);
                    break;
                case FGenre:
                    LstObj.SetGenre(v);
                    break;
                case FMaker:
                    LstObj.SetMaker(v);
                    break;
                default:
                    collection = v + crlf;
                    collecting = true;
                    break;
                }
            }
        } else if (collecting) {
            collection += VbTrim(line) + crlf;
        }
    }
    return true;
}

} // namespace tv
