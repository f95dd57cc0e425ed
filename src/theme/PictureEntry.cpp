#include "theme/PictureEntry.h"

#include "platform/foundation/NSFileManager.h"
#include "platform/foundation/NSLog.h"
#include "theme/ElementPicture.h"
#include "theme/ThemePictures.h"

#include <QCryptographicHash>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace
{
constexpr int smallSide = 64; // pixels: enough to know that it can be read

QString elementKey()
{
    return ThemePictures::listBackgroundKey(ElementDataSource());
}

bool isFileName(const QString &name)
{
    static const QRegularExpression form(u"^Picture-[0-9a-f]{64}\\.jpg\\z"_s);
    return form.match(name).hasMatch();
}

QVariantMap entryOf(const ElementPicture &picture, const QVariant &color)
{
    return {{u"file"_s, PictureEntry::fileName(picture.jpeg)},
            {u"x"_s, picture.x},
            {u"y"_s, picture.y},
            {u"zoom"_s, picture.zoom},
            {u"color"_s, color}};
}
} // namespace

QString PictureEntry::key()
{
    return elementKey() + ".picture"_L1;
}

QString PictureEntry::fileName(const QByteArray &picture)
{
    // Each save asks for the same bytes' name again, and theirs are many.
    thread_local struct {
        QByteArray picture;
        QString name;
    } latest;
    if (latest.name.isEmpty() || !latest.picture.isSharedWith(picture)) {
        const QByteArray hash =
            QCryptographicHash::hash(picture, QCryptographicHash::Sha256).toHex();
        latest = {picture, u"Picture-%1.jpg"_s.arg(QLatin1StringView(hash))};
    }
    return latest.name;
}

PropertyDictionary PictureEntry::addedTo(PropertyDictionary theme,
                                         const ElementDataSource &elements)
{
    if (const auto picture = ElementPicture::behindList(elements))
        theme.setValue(key(), entryOf(*picture, PropertyList::textOf(*theme.find(elementKey()))));
    return theme;
}

std::optional<QString> PictureEntry::fileIn(const PropertyDictionary &info)
{
    const QVariant *entry = info.find(key());
    const QString name = entry ? entry->toMap().value(u"file"_s).toString() : QString();
    return isFileName(name) ? std::optional(name) : std::nullopt;
}

PictureEntry::FileReader PictureEntry::filesIn(const QString &folder)
{
    return [folder](const QString &name) {
        return NSFileManager::contentsAtPath(folder + u'/' + name).bytes;
    };
}

void PictureEntry::readFile(PropertyDictionary &info, const FileReader &files)
{
    const QVariant *entry = info.find(key());
    if (!entry)
        return;
    QVariantMap map = entry->toMap();
    map.remove(u"jpeg"_s);
    const auto name = fileIn(info);
    const QByteArray bytes = name ? files(*name) : QByteArray();
    if (name && fileName(bytes) == name)
        map.insert(u"jpeg"_s, bytes);
    else
        NSLog("The picture of a theme is missing: %@", {map.value(u"file"_s).toString()});
    info.setValue(key(), map);
}

std::optional<QVariant> PictureEntry::valueIn(const PropertyDictionary &info,
                                              const ElementRecord &record)
{
    const QVariant *entry = record.key == elementKey() ? info.find(key()) : nullptr;
    if (!entry || record.isChoice() || record.value.isValid())
        return std::nullopt;
    QVariantMap map = entry->toMap();
    map.remove(u"file"_s);
    ElementRecord shown = record;
    shown.value = map;
    return ElementPicture::of(shown) ? std::optional(shown.value) : std::nullopt;
}

std::optional<QVariant> PictureEntry::checked(PropertyDictionary info, const FileReader &files)
{
    readFile(info, files);
    ElementRecord record;
    record.key = elementKey();
    if (const QVariant *color = info.find(record.key))
        record.color = *color;
    record.value = valueIn(info, record).value_or(QVariant());
    const auto picture = ElementPicture::of(record);
    if (!picture || picture->whole(smallSide).isNull())
        return std::nullopt;
    return entryOf(*picture, record.color);
}

void PictureEntry::removeUnused(const ThemeLocations &locations)
{
    const QString folder = locations.workingCopyFolder();
    QStringList names = NSFileManager::contentsOfDirectoryAtPath(folder).names;
    names.removeIf([](const QString &name) { return !isFileName(name); });
    if (names.isEmpty())
        return;
    for (const QString &path :
         {locations.workingCopy(), locations.workingCopyAside(), locations.earlierWorkingCopy()}) {
        const auto file = NSFileManager::contentsAtPath(path);
        if (file.error && !NSFileManager::isMissing(file.error))
            return;
        names.removeIf([&](const QString &name) { return file.bytes.contains(name.toLatin1()); });
    }
    for (const QString &name : std::as_const(names))
        NSFileManager::removeItemAtPath(folder + u'/' + name);
}
