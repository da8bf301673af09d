#pragma once
// Profile files (the emulators' INI files), read and written with the semantics of the
// original profile functions: sections and keys match without regard to case, a write
// creates the file and the section when they are missing and replaces an existing key where
// it stands, every other line (comments, blank lines, unknown sections) stays byte for byte.
// Text is Shift-JIS; new lines end in CR LF.
#include <QString>

namespace tv {

// The size of the buffer the value is read into: a value keeps at most 127 bytes.
inline constexpr int kIniValueBuffer = 128;

// Writes Key=Value into Section of File; false when the file can't be read or written.
bool SetIniValue(const QString& Section, const QString& Key, const QString& Value,
                 const QString& File);

// Reads the value of Key in Section of File into Value, or Default when the file, the section
// or the key is missing. The value loses its surrounding blanks and one pair of enclosing
// quotes, and is cut to the 127 bytes the buffer holds (never inside a double-byte
// character). Returns the length in bytes of what Value holds.
int GetIniValue(const QString& Section, const QString& Key, const QString& Default, QString& Value,
                const QString& File);

} // namespace tv
