// A catalogue of arbitrary bytes behind a valid header, read record by record as the list
// reads it: every record decodes, the walk ends, a record written back is the family's
// length and reads back to the same bytes, and a read at any seek pointer stays in bounds.
#include "data/clsLst.h"
#include "fuzz/FuzzDirs.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    tvfuzz::FuzzAppDir();
    if (size < 3)
        return 0;
    const uint8_t family = data[0] % 3;
    const int32_t seek = int32_t(data[1]) * 61 + data[2] + 1;
    const QByteArray body(reinterpret_cast<const char*>(data + 3), qsizetype(size - 3));
    tvfuzz::WriteBytes(tv::LstFilePath(family), tv::LstHeader(family) + body);

    tv::clsLst lst;
    Check(lst.InitLst(family));
    const int len = tv::LstRecordLength(family);
    Check(lst.GetLstMaxCnt() == body.size() / len);
    int records = 0;
    while (lst.NextLoad() != 0) {
        ++records;
        Check(records <= lst.GetLstMaxCnt());
    }
    Check(records == lst.GetLstMaxCnt());

    // One record: decoded from any place of the bytes, written back whole, read back alike.
    tv::LstRecord r;
    tv::DecodeLstRecord(family, body, r, seek % (body.size() + 1));
    const QByteArray once = tv::EncodeLstRecord(family, r);
    Check(once.size() == len);
    tv::LstRecord again;
    tv::DecodeLstRecord(family, once, again);
    Check(tv::EncodeLstRecord(family, again) == once);

    // A seek pointer anywhere, past the end too: what the file doesn't hold stays blank.
    Check(lst.GetLst(seek));
    Check(!lst.GetLst(0));
    return 0;
}
