#pragma once
// The one codec through which every byte layout of the system is written and read, field by
// field: little-endian numbers, Shift-JIS text fields blank-filled to their width.
#include <QByteArray>
#include <QString>
#include <array>
#include <cstdint>

namespace tv {

class ByteWriter {
public:
    explicit ByteWriter(QByteArray& out) : out_(out) {}
    void u8(uint8_t v);
    void i16(int16_t v);
    void i32(int32_t v);
    void f32(float v);
    // Text in Shift-JIS, cut to `width` bytes (never in the middle of a double-byte
    // character) and filled with ASCII blanks.
    void text(const QString& v, int width);
    // Raw bytes, cut or filled with `fill` to `width`.
    void raw(const QByteArray& v, int width, char fill = '\0');
    qsizetype size() const { return out_.size(); }

    void put(uint8_t v) { u8(v); }
    void put(int16_t v) { i16(v); }
    void put(int32_t v) { i32(v); }
    void put(float v) { f32(v); }
    template <typename T, size_t N> void put(const std::array<T, N>& a)
    {
        for (const T& v : a)
            put(v);
    }

private:
    QByteArray& out_;
};

// Reads fields in order. A field that the data does not hold whole is left unchanged and the
// call returns false, so that a short file leaves the tail of a record as it was.
class ByteReader {
public:
    explicit ByteReader(const QByteArray& in, qsizetype pos = 0) : in_(in), pos_(pos) {}
    bool u8(uint8_t& v);
    bool i16(int16_t& v);
    bool i32(int32_t& v);
    bool f32(float& v);
    // Text of `width` bytes, decoded from Shift-JIS, trailing blanks kept.
    bool text(QString& v, int width);
    bool raw(QByteArray& v, int width);
    // Text of `width` bytes with its trailing blanks cut before decoding: most of a fixed field
    // is blank fill, and decoding the fill only to trim it again is wasted work.
    bool unfilledText(QString& v, int width);
    bool get(uint8_t& v) { return u8(v); }
    bool get(int16_t& v) { return i16(v); }
    bool get(int32_t& v) { return i32(v); }
    bool get(float& v) { return f32(v); }
    template <typename T, size_t N> bool get(std::array<T, N>& a)
    {
        bool ok = true;
        for (T& v : a)
            ok = get(v) && ok;
        return ok;
    }
    void skip(int n) { pos_ += n; }
    qsizetype pos() const { return pos_; }
    qsizetype remaining() const { return pos_ < in_.size() ? in_.size() - pos_ : 0; }

private:
    bool take(int n, const char*& p);
    const QByteArray& in_;
    qsizetype pos_;
};

// The codecs of a field walk. A record is described once, by a walk that names each field in
// file order, and the codec passed to it decides whether the walk writes, reads or clears:
//   io.text(field, width)          a text field, blank-filled to its width on disk
//   io.unfilledText(field, width)  the same on disk, held in memory without its blank fill
//   io.chr(field)                  a one-byte text field, held as its byte
//   io.num(field)                  a number, or an array of numbers, little-endian
// Walks take the record as a template parameter so that the writer can walk a const record.

struct FieldWriter {
    ByteWriter& w;
    void text(const QString& v, int width) { w.text(v, width); }
    void unfilledText(const QString& v, int width) { w.text(v, width); }
    void chr(uint8_t v) { w.u8(v); }
    template <typename T> void num(const T& v) { w.put(v); }
};

// A field that the data doesn't hold whole is left as it was.
struct FieldReader {
    ByteReader& r;
    void text(QString& v, int width) { r.text(v, width); }
    void unfilledText(QString& v, int width) { r.unfilledText(v, width); }
    void chr(uint8_t& v) { r.u8(v); }
    template <typename T> void num(T& v) { r.get(v); }
};

// Texts to blanks; numbers to 0 when `numbers` is set, else left alone.
struct FieldBlanker {
    bool numbers = false;
    void text(QString& v, int width) { v = QString(width, QLatin1Char(' ')); }
    void unfilledText(QString& v, int) { v.clear(); }
    void chr(uint8_t& v) { v = ' '; }
    template <typename T> void num(T& v)
    {
        if (numbers)
            v = T{};
    }
};

// Cuts Shift-JIS bytes to at most `width` without splitting a double-byte character.
QByteArray CutSjisBytes(const QByteArray& sjis, int width);

} // namespace tv
