#include "library/PackageLimits.h"

#include "archives/EntryPath.h"

#include <QBuffer>
#include <QImageReader>
#include <QSet>

using namespace Qt::StringLiterals;

namespace
{
/// A picture's size stands at its beginning; nothing is decoded.
bool isHugePicture(const QString &path, const QByteArray &bytes)
{
    static const QStringList suffixes{u"png"_s,  u"jpg"_s, u"jpeg"_s, u"gif"_s, u"bmp"_s,
                                      u"webp"_s, u"tif"_s, u"tiff"_s, u"ico"_s};
    if (!suffixes.contains(path.section(u'.', -1).toLower()))
        return false;
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true); // the phone's "png" is a JPEG
    const QSize size = reader.size();
    return qint64(size.width()) * size.height() > PackageLimits::picture;
}
} // namespace

QString PackageLimits::problemOfFile(const QString &path, const QByteArray &bytes)
{
    const QString problem = problemOfPath(path.split(u'/'), package.levels);
    if (!problem.isEmpty())
        return shownPath(path) + u' ' + problem;
    if (isHugePicture(path, bytes))
        return u"%1 is a picture of more than %2 megapixels"_s.arg(shownPath(path))
            .arg(picture / 1'000'000);
    return {};
}

QString PackageLimits::problemOfPackage(const PackageContents &contents)
{
    const QByteArray info = PropertyList::writeDictionary(contents.info);
    if (info.size() > propertyList)
        return u"the theme's property list is larger than %1 MB"_s.arg(propertyList >> 20);
    qint64 left = package.unpacked - info.size();
    QSet<QString> folders;
    for (const auto &[path, bytes] : contents.files) {
        if (const QString problem = problemOfFile(path, bytes); !problem.isEmpty())
            return problem;
        left -= bytes.size();
        for (qsizetype end = path.lastIndexOf(u'/'); end > 0; end = path.lastIndexOf(u'/', end - 1))
            folders.insert(path.first(end));
    }
    if (left < 0)
        return u"the theme is larger than %1 MB"_s.arg(package.unpacked >> 20);
    if (qsizetype(contents.files.size()) + 1 + folders.size() > package.entries)
        return u"the theme has more than %1 files and folders"_s.arg(package.entries);
    return {};
}
