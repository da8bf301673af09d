#pragma once
// The catalogue of one family: a flat file of fixed-length records behind a 24-byte header,
// in AppDir. clsLst is the only code that reads or writes these files. It holds one record
// at a time in a working copy; a record is known by its seek pointer, its 1-based byte
// position in the file.
#include "adapters/fm7x1/EmuOptFMX1.h"
#include "adapters/pc88/EmuOpt88.h"

#include <QByteArray>
#include <QString>
#include <array>
#include <cstdint>

namespace tv {

inline constexpr int kLstHeaderSize = 24;
inline constexpr int kLstFamilyCount = 3;
inline const QString kLstVersion = QStringLiteral("0.16");

// "TORVANE.LST", "TORVANE.LFM", "TORVANE.LX1"; empty outside 0..2.
QString LstFileName(int family);
// "TORVANE.LSB", "TORVANE.LFB", "TORVANE.LXB"; empty outside 0..2.
QString LstWorkFileName(int family);
// AppDir + "/" + the catalogue's or the work file's name.
QString LstFilePath(int family);
QString LstWorkFilePath(int family);
// 2284, 1887, 1820; 0 outside 0..2.
int LstRecordLength(int family);
// The 24 header bytes: the file's name, " Version ", the version.
QByteArray LstHeader(int family);

// One record as it stands on disk, its texts without their trailing blank fill (the fill is
// added again on writing). Family 0 uses opt88, 1 optFM, 2 optX1.
struct LstRecord {
    QString Title, Genre, Maker, Column1, Column2, SaleDate, Comment, StartFileName, JituFile,
        SecondFile;
    uint8_t ArcCheckFlag = 0, ReArcCheckFlag = 0;
    QString ScrFile;
    uint8_t MeltManFlag = 0;
    QString ManFile;
    EmuOpt88 opt88;
    EmuOptFM optFM;
    EmuOptX1 optX1;
};

// Record of `family` as the bytes of one record; always LstRecordLength(family) bytes.
QByteArray EncodeLstRecord(int family, const LstRecord& r);
// Reads as much of the record as `bytes` holds from `pos`; fields it does not reach stay.
void DecodeLstRecord(int family, const QByteArray& bytes, LstRecord& r, qsizetype pos = 0);

class clsLst {
public:
    bool InitLst(uint8_t family);
    QString GetLstVersion(uint8_t family) const;
    int16_t GetLstLength() const;
    int32_t GetLstSeekCnt() const { return SeekCnt; }
    int32_t GetLstMaxCnt() const { return MaxCnt; }
    int32_t GetLstMaxSeekPointer() const;
    int32_t NextLoad();
    bool GetLst(int32_t seekPointer);
    bool SetLst(int32_t seekPointer);

    QString GetTitle() const { return Title; }
    QString GetGenre() const { return Genre; }
    QString GetMaker() const { return Maker; }
    QString GetSaleDate() const { return SaleDate; }
    QString GetColumn1() const { return Column1; }
    QString GetColumn2() const { return Column2; }
    QString GetComment() const { return Comment; }
    QString GetJituFile() const { return JituFile; }
    QString GetStartFileName() const { return StartFileName; }
    QString GetSecondFile() const { return SecondFile; }
    QString GetScrFile() const { return ScrFile; }
    QString GetManFile() const { return ManFile; }
    uint8_t GetArcCheckFlag() const { return ArcCheckFlag; }
    uint8_t GetReArcCheckFlag() const { return ReArcCheckFlag; }
    uint8_t GetMeltManFlag() const { return MeltManFlag; }
    uint8_t GetDefEmuRun() const { return DefEmuRun; }
    void GetEmuOpt88();
    void GetEmuOptFM();
    void GetEmuOptX1();

    void SetTitle(const QString& v);
    void SetGenre(const QString& v);
    void SetMaker(const QString& v);
    void SetSaleDate(const QString& v);
    void SetColumn1(const QString& v);
    void SetColumn2(const QString& v);
    void SetComment(const QString& v);
    void SetJituFile(const QString& v);
    void SetStartFileName(const QString& v);
    void SetSecondFile(const QString& v);
    void SetScrFile(const QString& v);
    void SetManFile(const QString& v);
    void SetArcCheckFlag(uint8_t v) { ArcCheckFlag = v; }
    void SetReArcCheckFlag(uint8_t v) { ReArcCheckFlag = v; }
    void SetMeltManFlag(uint8_t v) { MeltManFlag = v; }
    void SetDefEmuRun(uint8_t v) { DefEmuRun = v; }
    void SetEmuOpt88();
    void SetEmuOptFM();
    void SetEmuOptX1();

    bool RemoveLst(int32_t seekPointer);

    // The family of the last successful InitLst; 255 before the first.
    uint8_t GetHardWare() const { return HardWare; }

private:
    void ClearLst(uint8_t family);
    void MoveToWorkingCopy();
    int32_t CountRecords(qint64 fileLength) const;

    uint8_t HardWare = 255;
    int32_t SeekCnt = 1;
    int32_t MaxCnt = 0;
    std::array<LstRecord, 3> Buf; // one record buffer per family

    QString Title, Genre, Maker, Column1, Column2, SaleDate, Comment, StartFileName, JituFile,
        SecondFile, ScrFile, ManFile;
    uint8_t ArcCheckFlag = 0, ReArcCheckFlag = 0, MeltManFlag = 0, DefEmuRun = 0;
};

// The one instance: the only way to a catalogue file.
inline clsLst LstObj;


} // namespace tv
