#include "app/WriteChoices.h"

#include "app/OpenKeeper.h"
#include "app/StandardStreams.h"
#include "platform/foundation/NSFileManager.h"
#include "theme/PictureEntry.h"
#include "theme/ThemePackageWriter.h"

using namespace Qt::StringLiterals;

bool writeChoices(const CommandLine::Options &options, WorkingCopyKeeper &keeper,
                  const ElementDataSource &elements)
{
    const ThemeLocations locations = locationsOf(options);
    if (!keeper.begin()) {
        complain(keeper.refusal() + "; nothing saved"_L1);
        return false;
    }
    std::error_code error = NSFileManager::createDirectoryAtPath(locations.workingCopyFolder());
    PropertyDictionary choices = themeDictionary(elements);
    std::error_code pictureError;
    if (const auto picture = ElementPicture::behindList(elements); picture && !error)
        pictureError = NSFileManager::writeToFile(locations.workingCopyFolder() + u'/' +
                                                      PictureEntry::fileName(picture->jpeg),
                                                  picture->jpeg);
    if (!pictureError) // choices never lead to a picture that is not there
        choices = PictureEntry::addedTo(std::move(choices), elements);
    if (!error)
        error = keeper.write(PropertyList::writeDictionary(choices));
    if (!error)
        error = pictureError;
    if (!error)
        error = NSFileManager::setPosixPermissions(locations.workingCopy(), packagePermissions);
    if (const auto ending = keeper.end(); ending && !error)
        error = ending;
    if (error) {
        complain(
            u"cannot write %1"_s.arg(NSFileManager::withReason(locations.workingCopy(), error)));
        return false;
    }
    return true;
}

QString describe(const ThemeDocument::Changes &changes, const ElementDataSource &elements)
{
    QString text;
    for (const auto &[index, choice] : changes) {
        const ElementRecord &record = elements.tableSource()[size_t(index)];
        text += u"%1: %2 becomes %3\n"_s.arg(record.key, record.shownColor().value_or(u"-"_s),
                                             choice.color.toString());
    }
    return text;
}
