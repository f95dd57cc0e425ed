// Archives as nobody's tools would write them, byte by byte.
#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QList>
#include <QtEndian>

#include <algorithm>
#include <array>

namespace made
{
inline QByteArray littleEndian(quint64 value, int size)
{
    QByteArray bytes;
    for (int i = 0; i < size; ++i)
        bytes += char(value >> 8 * i);
    return bytes;
}

/// The checksum of zip and gzip.
inline quint32 crc(const QByteArray &bytes)
{
    quint32 crc = ~0U;
    for (const char byte : bytes) {
        crc ^= uchar(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = crc >> 1 ^ (crc & 1 ? 0xEDB88320 : 0);
    }
    return ~crc;
}

inline QByteArray gzip(const QByteArray &bytes)
{
    const QByteArray zlib = qCompress(bytes, 9).sliced(4); // behind the size
    return QByteArray("\x1F\x8B\x08\0\0\0\0\0\0\xFF", 10) + zlib.sliced(2).chopped(4) +
           littleEndian(crc(bytes), 4) + littleEndian(quint64(bytes.size()), 4);
}

/// One entry of a tar archive; `type` as POSIX has it: '0' file, '5' folder, '2' link, ...
inline QByteArray tarEntry(const QByteArray &name, const QByteArray &bytes, char type = '0',
                           const QByteArray &link = {}, qint64 claimedSize = -1)
{
    QByteArray header(512, '\0');
    const auto set = [&header](qsizetype at, const QByteArray &field) {
        header.replace(at, field.size(), field);
    };
    const qint64 size = claimedSize < 0 ? bytes.size() : claimedSize;
    set(0, name.left(100));
    set(100, "0000644");
    set(108, "0000000");
    set(116, "0000000");
    set(124, QByteArray::number(size, 8).rightJustified(11, '0'));
    set(136, "00000000000");
    set(148, "        ");
    header[156] = type;
    set(157, link.left(100));
    set(257, "ustar");
    set(263, "00");
    int sum = 0;
    for (const char byte : header)
        sum += uchar(byte);
    set(148, QByteArray::number(sum, 8).rightJustified(6, '0') + '\0');
    return header + bytes + QByteArray((512 - bytes.size() % 512) % 512, '\0');
}

inline QByteArray tar(const QByteArrayList &entries)
{
    return entries.join() + QByteArray(1024, '\0');
}

struct ZipEntry {
    QByteArray name, bytes;
    quint16 flags = 0;      // 1: encrypted
    quint32 mode = 0100644; // 0120777: a link
};

/// Nothing in it is compressed.
inline QByteArray zip(const QList<ZipEntry> &entries)
{
    QByteArray files, directory;
    for (const ZipEntry &entry : entries) {
        const QByteArray common = littleEndian(20, 2) + littleEndian(entry.flags, 2) +
                                  QByteArray(2, '\0') + littleEndian(0x00210000, 4) +
                                  littleEndian(crc(entry.bytes), 4) +
                                  littleEndian(quint64(entry.bytes.size()), 4) +
                                  littleEndian(quint64(entry.bytes.size()), 4) +
                                  littleEndian(quint64(entry.name.size()), 2) + QByteArray(2, '\0');
        directory += "PK\1\2" + littleEndian(0x0314, 2) + common + QByteArray(6, '\0') +
                     littleEndian(quint64(entry.mode) << 16, 4) +
                     littleEndian(quint64(files.size()), 4) + entry.name;
        files += "PK\3\4" + common + entry.name + entry.bytes;
    }
    const QByteArray count = littleEndian(quint64(entries.size()), 2);
    return files + directory + "PK\5\6" + QByteArray(4, '\0') + count + count +
           littleEndian(quint64(directory.size()), 4) + littleEndian(quint64(files.size()), 4) +
           QByteArray(2, '\0');
}
} // namespace made
