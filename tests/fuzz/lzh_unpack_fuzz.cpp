// Unpacks any input as a LZH archive into a scratch directory: no crash, no file outside it.
#include "launch/ArcEngine.h"

#include <QDir>
#include <QTemporaryDir>

#include <clocale>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const bool locale = std::setlocale(LC_ALL, "C.UTF-8") != nullptr;
    (void)locale;
    static QTemporaryDir scratch;
    const QString dest = scratch.path() + QStringLiteral("/d");
    QDir(dest).removeRecursively();
    QDir().mkpath(dest);
    tv::ArcExtractOptions options;
    options.overwrite = true;
    tv::ExtractArchiveMemory(
        tv::ArcFormat::Lzh,
        QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)), dest,
        options);
    // Everything that was written stands in the target directory.
    if (QDir(scratch.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot)
            .size() != 1)
        __builtin_trap();
    return 0;
}
