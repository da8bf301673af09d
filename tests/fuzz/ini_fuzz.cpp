// A profile file of arbitrary bytes (an emulator's INI as the user or the emulator left it):
// a read never fails and keeps to its buffer, and a write of one key changes that key only:
// the value written reads back, every other key reads as before, and writing it again
// changes nothing.
#include "fuzz/FuzzDirs.h"
#include "launch/IniFile.h"
#include "util/Sjis.h"

#include <QStringList>

#include <cstdint>

namespace {

// A name or value from a few bytes of input, from an alphabet that holds no character with a
// meaning in the file ("[", "]", "=", ";", quotes, line ends) and no blank at either end.
QString Word(const uint8_t* data, int len, bool value)
{
    static const QStringList names = {"a", "B", "Key", "m88", "Dir", "漢", "ｱ", "_", "1"};
    static const QStringList values = {"x", "Y", "0", "漢字", "ｶﾅ", "\\", "C:", " ", "-"};
    const QStringList& from = value ? values : names;
    QString w;
    for (int i = 0; i < len; ++i)
        w += from.at(data[i] % from.size());
    return w.trimmed().isEmpty() ? QStringLiteral("v") : w.trimmed();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString app = tvfuzz::FuzzAppDir();
    if (size < 16)
        return 0;
    const QString section = Word(data, 1 + data[0] % 3, false);
    const QString key = Word(data + 3, 1 + data[1] % 3, false);
    const QString other = Word(data + 6, 1 + data[2] % 2, false);
    const QString otherKey = Word(data + 8, 1 + data[3] % 2, false);
    const QString value = Word(data + 10, 6, true);
    const QString file = app + "/FUZZ.INI";
    tvfuzz::WriteBytes(file,
                       QByteArray(reinterpret_cast<const char*>(data + 16), qsizetype(size - 16)));

    QString v;
    const int len = tv::GetIniValue(section, key, "default", v, file);
    Check(len == tv::SjisLen(v) && len <= tv::kIniValueBuffer - 1);
    const bool sameKey = other.compare(section, Qt::CaseInsensitive) == 0 &&
                         otherKey.compare(key, Qt::CaseInsensitive) == 0;
    QString before;
    tv::GetIniValue(other, otherKey, "none", before, file);

    Check(tv::SetIniValue(section, key, value, file));
    tv::GetIniValue(section, key, "default", v, file);
    Check(v == value);
    // The same write again finds the key where the first put it and changes nothing.
    const QByteArray written = tvfuzz::ReadBytes(file);
    Check(tv::SetIniValue(section, key, value, file));
    Check(tvfuzz::ReadBytes(file) == written);
    QString after;
    tv::GetIniValue(other, otherKey, "none", after, file);
    Check(sameKey ? after == value : after == before);
    return 0;
}
