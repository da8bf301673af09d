#pragma once
// Catalogue files built byte by byte, by the published layouts, independent of clsLst.
#include <QByteArray>
#include <QString>
#include <cstdint>

namespace tvtest {

struct LstLayout {
    int length;
    int second;  // width of SecondFile
    int arc;     // offset of ArcCheckFlag
    int scr;     // offset of ScrFile
    int melt;    // offset of MeltManFlag
    int man;     // offset of ManFile
    int opt;     // offset of the option block
    int optSize; // its length
};

const LstLayout& LstLayoutOf(int family);
QByteArray LstHeaderBytes(int family); // "TORVANE.LST Version 0.16" etc.
const char* LstNameOf(int family);     // "TORVANE.LST" etc.

struct LstFields {
    QString title, genre, maker, col1, col2, sale, comment, start, jitu, second, scr, man;
    uint8_t arc = 0, rearc = 0, melt = 0, defEmu = 0, firstOpt = 0;
};

// One record, blank-filled, with the option block zero apart from its first two bytes.
QByteArray MakeLstRecord(int family, const LstFields& f);

// Writes `bytes` as the file; false on failure.
bool WriteBytes(const QString& path, const QByteArray& bytes);
QByteArray ReadBytes(const QString& path);

} // namespace tvtest
