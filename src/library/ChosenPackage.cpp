#include "library/ChosenPackage.h"

#include "theme/ElementPicture.h"
#include "theme/ThemePackageWriter.h"
#include "theme/ThemePictures.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
/// Paths below the package, where a save writes its pictures.
QString listBackgroundPath()
{
    const ThemeLocations anywhere;
    return anywhere.listBackground().sliced(anywhere.packageFolder().size() + 1);
}

QString unreadIndicatorPath()
{
    const ThemeLocations anywhere;
    return anywhere.unreadIndicator().sliced(anywhere.packageFolder().size() + 1);
}

void addMissing(const PropertyDictionary &from, PropertyDictionary &to)
{
    for (const auto &[key, value] : from.entries())
        if (!to.find(key))
            to.setValue(key, value);
}

bool hasSameValue(const PropertyDictionary &one, const PropertyDictionary &other,
                  const QString &key)
{
    const QVariant *left = one.find(key);
    const QVariant *right = other.find(key);
    return left && right ? PropertyList::isEqual(*left, *right) : left == right;
}
} // namespace

PackageContents packageContents(const ElementDataSource &source, const QString &name, double scale)
{
    PackageContents package;
    package.info = themeDictionary(source);
    package.info.setValue(u"name"_s, name);
    const ThemePictures pictures = ThemePictures::of(source, package.info, scale);
    package.files[listBackgroundPath()] = pictures.listBackground;
    package.files[unreadIndicatorPath()] = pictures.unreadIndicator;
    if (const auto picture = ElementPicture::behindList(source)) {
        package.info = PictureEntry::addedTo(std::move(package.info), source);
        package.files[PictureEntry::fileName(picture->jpeg)] = picture->jpeg;
    }
    addMissing(source.foreignEntries(), package.info);
    return package;
}

void addGuestsOf(const PackageContents &origin, const ElementDataSource &originElements,
                 PackageContents &package)
{
    addMissing(originElements.foreignEntries(), package.info);
    if (const QVariant *description = origin.info.find(u"description"_s))
        package.info.setValue(u"description"_s, *description);
    const QString colors[] = {ThemePictures::listBackgroundKey(originElements),
                              ThemePictures::unreadIndicatorKey()};
    const QString pictures[] = {listBackgroundPath(), unreadIndicatorPath()};
    const auto wholePicture = PictureEntry::fileIn(origin.info);
    const bool hasPicture = wholePicture || PictureEntry::fileIn(package.info);
    for (const auto &[path, bytes] : origin.files) {
        const auto *const picture = std::ranges::find(pictures, path);
        const bool isChosen = path == wholePicture || (hasPicture && path == pictures[0]);
        if (!isChosen && (picture == std::end(pictures) ||
                          hasSameValue(origin.info, package.info, colors[picture - pictures])))
            package.files[path] = bytes;
    }
}

ElementDataSource elementsOf(const PackageContents &package, const QString &resources)
{
    PropertyDictionary info = package.info;
    PictureEntry::readFile(info, filesIn(package));
    return ElementDataSource::loadWith(resources, &info);
}

PictureEntry::FileReader filesIn(const PackageContents &package)
{
    return [&package](const QString &name) {
        const auto file = package.files.find(name);
        return file == package.files.end() ? QByteArray() : file->second;
    };
}
