#include "data/clsLst.h"

#include "data/ByteCodec.h"
#include "util/Globals.h"
#include "util/SubFunction.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>

namespace tv {

namespace {

// Appends `count` bytes of `from`, starting at `offset`, to `to`.
bool CopyRange(QFile& from, qint64 offset, qint64 count, QFile& to)
{
    if (!from.seek(offset))
        return false;
    QByteArray piece(qsizetype(1) << 20, Qt::Uninitialized);
    while (count > 0) {
        const qint64 n = from.read(piece.data(), std::min<qint64>(count, piece.size()));
        if (n <= 0 || to.write(piece.constData(), n) != n)
            return false;
        count -= n;
    }
    return true;
}

// Field widths shared by the three layouts; SecondFile is 256 in family 0 and 100 in the
// other two, which is what makes their records differ in length.
constexpr int kTitle = 100, kGenre = 20, kMaker = 30, kColumn = 20, kSaleDate = 20, kComment = 500,
              kStartFile = 100, kPath = 256;

int secondFileWidth(int family)
{
    return family == 0 ? 256 : 100;
}

bool validFamily(int family)
{
    return family >= 0 && family < kLstFamilyCount;
}

} // namespace

QString LstFileName(int family)
{
    static const char* names[] = {"TORVANE.LST", "TORVANE.LFM", "TORVANE.LX1"};
    return validFamily(family) ? QString::fromLatin1(names[family]) : QString();
}

QString LstWorkFileName(int family)
{
    static const char* names[] = {"TORVANE.LSB", "TORVANE.LFB", "TORVANE.LXB"};
    return validFamily(family) ? QString::fromLatin1(names[family]) : QString();
}

QString LstFilePath(int family)
{
    return validFamily(family) ? AppDir + QStringLiteral("/") + LstFileName(family) : QString();
}

QString LstWorkFilePath(int family)
{
    return validFamily(family) ? AppDir + QStringLiteral("/") + LstWorkFileName(family) : QString();
}

int LstRecordLength(int family)
{
    static const int lengths[] = {2284, 1887, 1820};
    return validFamily(family) ? lengths[family] : 0;
}

QByteArray LstHeader(int family)
{
    if (!validFamily(family))
        return {};
    return (LstFileName(family) + QStringLiteral(" Version ") + kLstVersion).toLatin1();
}

namespace {

// One walk over the record of `family` in file order, shared by the writer, the reader and
// ClearLst. The three layouts differ only in the width of SecondFile and in the option block
// at the end. The record's texts are held without their blank fill, since the working copy
// trims them anyway.
template <typename Codec, typename Rec> void walk(Codec& io, int family, Rec& r)
{
    io.unfilledText(r.Title, kTitle);
    io.unfilledText(r.Genre, kGenre);
    io.unfilledText(r.Maker, kMaker);
    io.unfilledText(r.Column1, kColumn);
    io.unfilledText(r.Column2, kColumn);
    io.unfilledText(r.SaleDate, kSaleDate);
    io.unfilledText(r.Comment, kComment);
    io.unfilledText(r.StartFileName, kStartFile);
    io.unfilledText(r.JituFile, kPath);
    io.unfilledText(r.SecondFile, secondFileWidth(family));
    io.num(r.ArcCheckFlag);
    io.num(r.ReArcCheckFlag);
    io.unfilledText(r.ScrFile, kPath);
    io.num(r.MeltManFlag);
    io.unfilledText(r.ManFile, kPath);
    if (family == 0)
        WalkEmuOpt88(io, r.opt88);
    else if (family == 1)
        WalkEmuOptFM(io, r.optFM);
    else
        WalkEmuOptX1(io, r.optX1);
}

} // namespace

QByteArray EncodeLstRecord(int family, const LstRecord& r)
{
    QByteArray out;
    if (!validFamily(family))
        return out;
    out.reserve(LstRecordLength(family));
    ByteWriter w(out);
    FieldWriter io{w};
    walk(io, family, r);
    return out;
}

void DecodeLstRecord(int family, const QByteArray& bytes, LstRecord& r, qsizetype pos)
{
    if (!validFamily(family))
        return;
    ByteReader rd(bytes, pos);
    FieldReader io{rd};
    walk(io, family, r);
}

// ---------------------------------------------------------------------------------------

int32_t clsLst::CountRecords(qint64 fileLength) const
{
    const int len = GetLstLength();
    if (len <= 0 || fileLength < kLstHeaderSize)
        return 0;
    return static_cast<int32_t>((fileLength - kLstHeaderSize) / len);
}

bool clsLst::InitLst(uint8_t family)
{
    if (!validFamily(family))
        return false;
    // Read-only: testing a catalogue must never create or change it.
    QFile f(LstFilePath(family));
    if (!f.open(QIODevice::ReadOnly))
        return false;
    const QByteArray head = f.read(kLstHeaderSize);
    if (head != LstHeader(family))
        return false;
    HardWare = family;
    SeekCnt = 1;
    ClearLst(family);
    MaxCnt = CountRecords(f.size());
    return true;
}

QString clsLst::GetLstVersion(uint8_t family) const
{
    return validFamily(family) ? kLstVersion : QString();
}

int16_t clsLst::GetLstLength() const
{
    return static_cast<int16_t>(LstRecordLength(HardWare));
}

int32_t clsLst::GetLstMaxSeekPointer() const
{
    return int32_t(GetLstLength()) * GetLstMaxCnt() + 25;
}

void clsLst::ClearLst(uint8_t family)
{
    if (validFamily(family)) {
        FieldBlanker io{.numbers = true};
        walk(io, family, Buf[family]);
    }
    Title.clear();
    Genre.clear();
    Maker.clear();
    Column1.clear();
    Column2.clear();
    SaleDate.clear();
    Comment.clear();
    StartFileName.clear();
    JituFile.clear();
    SecondFile.clear();
    ScrFile.clear();
    ManFile.clear();
    ArcCheckFlag = ReArcCheckFlag = MeltManFlag = DefEmuRun = 0;
}

void clsLst::MoveToWorkingCopy()
{
    const LstRecord& r = Buf[HardWare];
    Title = VbTrim(r.Title);
    Genre = VbTrim(r.Genre);
    Maker = VbTrim(r.Maker);
    Column1 = VbTrim(r.Column1);
    Column2 = VbTrim(r.Column2);
    SaleDate = VbTrim(r.SaleDate);
    Comment = VbTrim(r.Comment);
    StartFileName = VbTrim(r.StartFileName);
    JituFile = VbTrim(r.JituFile);
    SecondFile = VbTrim(r.SecondFile);
    ScrFile = VbTrim(r.ScrFile);
    ManFile = VbTrim(r.ManFile);
    ArcCheckFlag = r.ArcCheckFlag;
    ReArcCheckFlag = r.ReArcCheckFlag;
    MeltManFlag = r.MeltManFlag;
    DefEmuRun = HardWare == 0   ? r.opt88.DefEmuRun
                : HardWare == 1 ? r.optFM.DefEmuRun
                                : r.optX1.DefEmuRun;
}

int32_t clsLst::NextLoad()
{
    ClearLst(HardWare);
    const int len = GetLstLength();
    if (len <= 0)
        return 0;
    QFile f(LstFilePath(HardWare));
    if (!f.open(QIODevice::ReadOnly))
        return 0;
    const qint64 pos = qint64(SeekCnt - 1) * len + 25;
    if (!f.seek(pos - 1))
        return 0;
    const QByteArray bytes = f.read(len);
    // A partial record at the end of the file is not returned.
    if (bytes.size() < len)
        return 0;
    DecodeLstRecord(HardWare, bytes, Buf[HardWare]);
    MoveToWorkingCopy();
    ++SeekCnt;
    return static_cast<int32_t>(pos);
}

bool clsLst::GetLst(int32_t seekPointer)
{
    ClearLst(HardWare);
    const int len = GetLstLength();
    if (len <= 0 || seekPointer < 1)
        return false;
    QFile f(LstFilePath(HardWare));
    if (!f.open(QIODevice::ReadOnly))
        return false;
    // No test for the end of the file: what the file does not hold stays blank.
    if (f.seek(seekPointer - 1)) {
        const QByteArray bytes = f.read(len);
        DecodeLstRecord(HardWare, bytes, Buf[HardWare]);
    }
    MoveToWorkingCopy();
    return true;
}

bool clsLst::SetLst(int32_t seekPointer)
{
    const int len = GetLstLength();
    if (len <= 0 || seekPointer < 1)
        return false;
    LstRecord& r = Buf[HardWare];
    if (HardWare == 0)
        SetEmuOpt88();
    else if (HardWare == 1)
        SetEmuOptFM();
    else
        SetEmuOptX1();
    r.Title = Title;
    r.Genre = Genre;
    r.Maker = Maker;
    r.Column1 = Column1;
    r.Column2 = Column2;
    r.SaleDate = SaleDate;
    r.Comment = Comment;
    r.StartFileName = StartFileName;
    r.JituFile = JituFile;
    r.SecondFile = SecondFile;
    r.ScrFile = ScrFile;
    r.ManFile = ManFile;
    r.ArcCheckFlag = ArcCheckFlag;
    r.ReArcCheckFlag = ReArcCheckFlag;
    r.MeltManFlag = MeltManFlag;
    if (HardWare == 0)
        r.opt88.DefEmuRun = DefEmuRun;
    else if (HardWare == 1)
        r.optFM.DefEmuRun = DefEmuRun;
    else
        r.optX1.DefEmuRun = DefEmuRun;

    QFile f(LstFilePath(HardWare));
    if (!f.open(QIODevice::ReadWrite))
        return false;
    const QByteArray bytes = EncodeLstRecord(HardWare, r);
    // The bytes reach the disk at the flush: a full disk shows there, not at the write.
    if (!f.seek(seekPointer - 1) || f.write(bytes) != bytes.size() || !f.flush())
        return false;
    MaxCnt = CountRecords(f.size());
    return true;
}

void clsLst::GetEmuOpt88()
{
    CurEmuOpt88 = Buf[0].opt88;
}
void clsLst::GetEmuOptFM()
{
    CurEmuOptFM = Buf[1].optFM;
}
void clsLst::GetEmuOptX1()
{
    CurEmuOptX1 = Buf[2].optX1;
}
void clsLst::SetEmuOpt88()
{
    Buf[0].opt88 = CurEmuOpt88;
}
void clsLst::SetEmuOptFM()
{
    Buf[1].optFM = CurEmuOptFM;
}
void clsLst::SetEmuOptX1()
{
    Buf[2].optX1 = CurEmuOptX1;
}

void clsLst::SetTitle(const QString& v)
{
    Title = VbTrim(v);
}
void clsLst::SetGenre(const QString& v)
{
    Genre = VbTrim(v);
}
void clsLst::SetMaker(const QString& v)
{
    Maker = VbTrim(v);
}
void clsLst::SetSaleDate(const QString& v)
{
    SaleDate = VbTrim(v);
}
void clsLst::SetColumn1(const QString& v)
{
    Column1 = VbTrim(v);
}
void clsLst::SetColumn2(const QString& v)
{
    Column2 = VbTrim(v);
}
void clsLst::SetComment(const QString& v)
{
    Comment = VbTrim(v);
}
void clsLst::SetJituFile(const QString& v)
{
    JituFile = VbTrim(v);
}
void clsLst::SetStartFileName(const QString& v)
{
    StartFileName = VbTrim(v);
}
void clsLst::SetSecondFile(const QString& v)
{
    SecondFile = VbTrim(v);
}
void clsLst::SetScrFile(const QString& v)
{
    ScrFile = VbTrim(v);
}
void clsLst::SetManFile(const QString& v)
{
    ManFile = VbTrim(v);
}

bool clsLst::RemoveLst(int32_t seekPointer)
{
    const int len = GetLstLength();
    if (len <= 0 || seekPointer < 1)
        return false;
    const QString lstPath = LstFilePath(HardWare);
    const QString workPath = LstWorkFilePath(HardWare);
    // A catalogue that can't be written is refused before anything moves, so that no record
    // is lost on the way.
    const QFileInfo lstInfo(lstPath);
    // The owner's write bit counts even where the user could override it.
    if (!lstInfo.isFile() || !lstInfo.isWritable() ||
        !lstInfo.permission(QFileDevice::WriteOwner) ||
        !QFileInfo(lstInfo.absolutePath()).isWritable())
        return false;
    // A work file left by an earlier failure is stale.
    if (QFile::exists(workPath))
        ShellDelete(workPath, 0);

    qint64 workLength = 0;
    {
        QFile f1(lstPath);
        QFile f2(workPath);
        if (!f1.open(QIODevice::ReadOnly) || !f2.open(QIODevice::ReadWrite))
            return false;
        const qint64 length = f1.size();
        // The header and every record before the removed one, then the tail behind it; the
        // test is strict, so removing the last record copies no tail. Copied in pieces: a
        // catalogue of many thousand titles is over a hundred megabytes.
        if (seekPointer >= 2 && !CopyRange(f1, 0, seekPointer - 1, f2))
            return false;
        if (length > qint64(seekPointer) + len &&
            !CopyRange(f1, qint64(seekPointer) + len - 1, length - seekPointer - len + 1, f2))
            return false;
        f2.flush();
        workLength = f2.size();
    }
    const bool deleted = ShellDelete(lstPath, 0);
    const bool moved = deleted && ShellMove(workPath, lstPath, 0);
    if (moved)
        MaxCnt = CountRecords(workLength);
    return moved;
}

} // namespace tv
