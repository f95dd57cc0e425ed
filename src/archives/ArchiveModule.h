// What needs the archive and QR code libraries, behind one plain interface.
//
// Linking those libraries would cost every start of the program time, and few starts need them. So
// this is a module of its own, which library/Archives.h loads when it is first used. It knows bytes
// and text alone.
#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

struct ArchiveEntry {
    QString path; // relative, "/" between
    QByteArray bytes;
};

struct ArchiveLimits {
    qsizetype archive; // bytes of the archive itself
    int entries;       // folders count, too
    qint64 unpacked;   // bytes of all entries together
    int levels;        // parts of a path
};

struct ArchiveReading {
    std::vector<ArchiveEntry> entries; // the files, in the archive's order
    QString problem; // why it is refused, a clause for people that names the entry; else empty
};

/// A square of modules, row by row.
struct QrModules {
    int size = 0; // modules on a side; 0: the text is too long
    std::vector<bool> dark;
};

class ArchiveModule
{
public:
    enum class Form { Zip, TarGzip };

    virtual ~ArchiveModule() = default;

    /// The files of a zip archive, or of a tar archive that may be compressed by gzip. In memory
    /// alone. Refused are: what goes beyond the limits; paths that are absolute or go up, that
    /// occur twice, or that are no text; links, devices, encrypted entries; damaged archives.
    /// Hostile bytes take bounded time and memory. "." in a path is dropped.
    virtual ArchiveReading read(const QByteArray &bytes, const ArchiveLimits &limits) const = 0;

    /// An archive of the entries, in their order. The same entries make the same bytes: times are
    /// those of 1980 in a zip archive, of 1970 in the other. Empty when there is no memory.
    virtual QByteArray write(const std::vector<ArchiveEntry> &entries, Form form) const = 0;

    /// A QR code of ASCII text, which outlives the loss of about 15 % of it.
    virtual QrModules qrCode(const QByteArray &text) const = 0;
};

/// The module's only symbol; the number goes up with every change of the above.
using ArchiveModuleEntry = const ArchiveModule *();
constexpr const char *archiveModuleEntry = "tintloomArchives1";
