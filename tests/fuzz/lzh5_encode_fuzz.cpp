// Encodes the fuzzer's bytes as an LZH member and reads it back with libarchive: the content
// must come back identical. The first byte chooses -lh5- whatever the size, or the smaller of
// -lh5- and -lh0-, so that data that does not compress still goes through the encoder.
#include "launch/Lzh5Member.h"

#include <archive.h>
#include <archive_entry.h>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size == 0)
        return 0;
    const tv::LzhMethod method = data[0] & 1 ? tv::LzhMethod::Lh5 : tv::LzhMethod::Smallest;
    ++data;
    --size;
    QByteArray archive;
    if (!tv::AppendLzhMember(archive, "FUZZ.BIN", tv::DosDateTime(QDateTime()), data,
                             qsizetype(size), {}, method))
        abort();
    archive.append('\0');

    struct archive* a = archive_read_new();
    archive_read_support_format_lha(a);
    if (archive_read_open_memory(a, archive.constData(), size_t(archive.size())) != ARCHIVE_OK)
        abort();
    struct archive_entry* e = nullptr;
    if (archive_read_next_header(a, &e) != ARCHIVE_OK)
        abort();
    QByteArray back;
    char buf[16384];
    la_ssize_t n;
    while ((n = archive_read_data(a, buf, sizeof buf)) > 0)
        back.append(buf, n);
    if (n < 0 || back.size() != qsizetype(size) ||
        (size > 0 && memcmp(back.constData(), data, size) != 0))
        abort();
    if (archive_read_next_header(a, &e) != ARCHIVE_EOF)
        abort();
    archive_read_free(a);
    return 0;
}
