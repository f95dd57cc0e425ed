// Property list values in few bytes, for texts that people pass on.
//
// A length or a whole number is a varint: seven bits a byte, the lowest first, the high bit on all
// but the last. A text is its length in bytes and its UTF-8. A value is a byte that says what
// follows:
//
//   0 false · 1 true · 2 whole number, zigzag · 3 whole number from 2^63 on · 4 real, 8 bytes, the
//   lowest first · 5 text · 6 data, as a text · 7 date, seconds since 1970, zigzag · 8 array, count
//   and values · 9 dictionary, count, keys and values · 10 colour text "#RRGGBBAA", 4 bytes
//
// Nulls have no form and are left out, as in a property list.
#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>

#include <optional>

/// The bytes of colour text as it is written, "#" and eight upper-case digits; nothing for any
/// other text.
std::optional<QByteArray> bytesOfColorText(const QString &text);
QString colorTextOfBytes(const QByteArray &bytes);

class CompactWriter
{
public:
    const QByteArray &bytes() const { return _bytes; }

    void byte(quint8 value) { _bytes.append(char(value)); }
    void raw(const QByteArray &bytes) { _bytes += bytes; }
    void number(quint64 value);
    void text(const QString &text) { data(text.toUtf8()); }
    void data(const QByteArray &data);
    /// Any property list value but null.
    void value(const QVariant &value);

private:
    QByteArray _bytes;
};

/// Never reads beyond the end: what is asked for there, or is malformed, comes empty, and isGood()
/// is false from then on.
class CompactReader
{
public:
    explicit CompactReader(QByteArray bytes) : _bytes(std::move(bytes)) {}

    bool isGood() const { return _good; }
    bool atEnd() const { return _position == _bytes.size(); }
    qsizetype position() const { return _position; }

    quint8 byte();
    QByteArray raw(quint64 size);
    quint64 number();
    /// Without what a property list cannot hold.
    QString text();
    QByteArray data() { return raw(number()); }
    QVariant value(int depth = 0);

    /// Arrays and dictionaries in one another.
    static constexpr int deepest = 64;

private:
    /// How many values of at least `least` bytes may follow.
    quint64 count(quint64 least);
    QVariant real();
    QVariant date();
    QVariant list(int depth);
    QVariant map(int depth);
    template <typename Value>
    Value fail();

    QByteArray _bytes;
    qsizetype _position = 0;
    bool _good = true;
};
