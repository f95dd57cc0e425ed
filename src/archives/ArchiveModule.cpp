#include "archives/ArchiveModule.h"

#include "archives/EntryReader.h"
#include "archives/NamesInUtf8.h"

#include <QtGlobal>
#include <qrcodegen.hpp>

#include <archive.h>
#include <archive_entry.h>
#include <memory>

namespace
{
using Archive = std::unique_ptr<archive, decltype(&archive_write_free)>;
using Entry = std::unique_ptr<archive_entry, decltype(&archive_entry_free)>;

la_ssize_t append(archive *, void *bytes, const void *block, size_t size)
{
    static_cast<QByteArray *>(bytes)->append(static_cast<const char *>(block), qsizetype(size));
    return la_ssize_t(size);
}

/// Nothing of when, where and by whom it was made goes into the archive.
bool begin(archive *archive, ArchiveModule::Form form, QByteArray &bytes)
{
    const bool isZip = form == ArchiveModule::Form::Zip;
    const int format = isZip ? archive_write_set_format_zip(archive)
                             : archive_write_set_format_pax_restricted(archive);
    if (format != ARCHIVE_OK)
        return false;
    if (!isZip &&
        (archive_write_add_filter_gzip(archive) != ARCHIVE_OK ||
         archive_write_set_filter_option(archive, "gzip", "timestamp", nullptr) != ARCHIVE_OK))
        return false;
    archive_write_set_bytes_in_last_block(archive, 1); // no padding
    return archive_write_open2(archive, &bytes, nullptr, append, nullptr, nullptr) == ARCHIVE_OK;
}

bool writeEntry(archive *archive, const ArchiveEntry &file)
{
    const Entry entry(archive_entry_new(), &archive_entry_free);
    archive_entry_set_pathname_utf8(entry.get(), file.path.toUtf8().constData());
    archive_entry_set_filetype(entry.get(), AE_IFREG);
    archive_entry_set_perm(entry.get(), 0644);
    archive_entry_set_size(entry.get(), file.bytes.size());
    archive_entry_set_mtime(entry.get(), 0, 0);
    return archive_write_header(archive, entry.get()) == ARCHIVE_OK &&
           archive_write_data(archive, file.bytes.constData(), size_t(file.bytes.size())) ==
               file.bytes.size();
}

class Module : public ArchiveModule
{
public:
    ArchiveReading read(const QByteArray &bytes, const ArchiveLimits &limits) const override
    {
        return readArchive(bytes, limits);
    }

    QByteArray write(const std::vector<ArchiveEntry> &entries, Form form) const override
    {
        const NamesInUtf8 namesInUtf8;
        QByteArray bytes;
        const Archive archive(archive_write_new(), &archive_write_free);
        if (!archive || !begin(archive.get(), form, bytes))
            return {};
        for (const ArchiveEntry &entry : entries)
            if (!writeEntry(archive.get(), entry))
                return {};
        return archive_write_close(archive.get()) == ARCHIVE_OK ? bytes : QByteArray();
    }

    QrModules qrCode(const QByteArray &text) const override
    {
        try {
            const auto code =
                qrcodegen::QrCode::encodeText(text.constData(), qrcodegen::QrCode::Ecc::MEDIUM);
            QrModules modules{code.getSize(), {}};
            for (int y = 0; y < code.getSize(); ++y)
                for (int x = 0; x < code.getSize(); ++x)
                    modules.dark.push_back(code.getModule(x, y));
            return modules;
        } catch (const qrcodegen::data_too_long &) {
            return {};
        }
    }
};
} // namespace

extern "C" Q_DECL_EXPORT const ArchiveModule *tintloomArchives1()
{
    static const Module module;
    return &module;
}
