#include "catalogue/ThemePackage.h"

#include "platform/foundation/NSFileManager.h"
#include "theme/PictureEntry.h"

using namespace Qt::StringLiterals;

ThemePackage ThemePackage::read(const QString &resources, const QString &folder)
{
    const QString path = folder + "/Info.plist"_L1;
    const auto [bytes, error] = NSFileManager::contentsAtPath(path);
    if (error)
        return {{}, NSFileManager::withReason(path, error), NSFileManager::isMissing(error)};
    auto dictionary = PropertyList::readDictionary(bytes);
    if (!dictionary)
        return {{}, path + ": no property list"_L1, false};
    PictureEntry::readFile(*dictionary, PictureEntry::filesIn(folder));
    return {ElementDataSource::loadWith(resources, &*dictionary), {}, false};
}
