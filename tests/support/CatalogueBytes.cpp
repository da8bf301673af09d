#include "support/CatalogueBytes.h"

#include "util/Sjis.h"

#include <QFile>

namespace tvtest {

namespace {
const LstLayout kLayouts[3] = {
    {2284, 256, 1322, 1324, 1580, 1581, 1837, 447},
    {1887, 100, 1166, 1168, 1424, 1425, 1681, 206},
    {1820, 100, 1166, 1168, 1424, 1425, 1681, 139},
};
const char* kHeaders[3] = {"TORVANE.LST Version 0.16", "TORVANE.LFM Version 0.16",
                           "TORVANE.LX1 Version 0.16"};
const char* kNames[3] = {"TORVANE.LST", "TORVANE.LFM", "TORVANE.LX1"};

// Text longer than its field is cut at the field, as a careless writer would.
void put(QByteArray& rec, int offset, int width, const QByteArray& bytes)
{
    for (int i = 0; i < bytes.size() && i < width; ++i)
        rec[offset + i] = bytes[i];
}
} // namespace

const LstLayout& LstLayoutOf(int family)
{
    return kLayouts[family];
}
QByteArray LstHeaderBytes(int family)
{
    return QByteArray(kHeaders[family]);
}
const char* LstNameOf(int family)
{
    return kNames[family];
}

QByteArray MakeLstRecord(int family, const LstFields& f)
{
    const LstLayout& l = kLayouts[family];
    QByteArray rec(l.length, ' ');
    for (int i = 0; i < l.optSize; ++i)
        rec[l.opt + i] = 0;
    put(rec, 0, 100, tv::ToSjis(f.title));
    put(rec, 100, 20, tv::ToSjis(f.genre));
    put(rec, 120, 30, tv::ToSjis(f.maker));
    put(rec, 150, 20, tv::ToSjis(f.col1));
    put(rec, 170, 20, tv::ToSjis(f.col2));
    put(rec, 190, 20, tv::ToSjis(f.sale));
    put(rec, 210, 500, tv::ToSjis(f.comment));
    put(rec, 710, 100, tv::ToSjis(f.start));
    put(rec, 810, 256, tv::ToSjis(f.jitu));
    put(rec, 1066, l.second, tv::ToSjis(f.second));
    rec[l.arc] = char(f.arc);
    rec[l.arc + 1] = char(f.rearc);
    put(rec, l.scr, 256, tv::ToSjis(f.scr));
    rec[l.melt] = char(f.melt);
    put(rec, l.man, 256, tv::ToSjis(f.man));
    rec[l.opt] = char(f.defEmu);
    rec[l.opt + 1] = char(f.firstOpt);
    return rec;
}

bool WriteBytes(const QString& path, const QByteArray& bytes)
{
    QFile f(path);
    return f.open(QIODevice::WriteOnly | QIODevice::Truncate) && f.write(bytes) == bytes.size();
}

QByteArray ReadBytes(const QString& path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

} // namespace tvtest
