#include "theme/ThemePackageWriter.h"

#include "platform/foundation/NSFileManager.h"
#include "platform/foundation/NSLog.h"
#include "theme/PictureEntry.h"
#include "theme/ThemePictures.h"
#include "theme/WorkingCopyKeeper.h"

#include <algorithm>
#include <future>

using namespace Qt::StringLiterals;

namespace
{
const auto isALink = std::make_error_code(std::errc::too_many_symbolic_link_levels);

QString textUnder(const PropertyDictionary &dictionary, const QString &key)
{
    const QVariant *value = dictionary.find(key);
    return value ? PropertyList::textOf(*value) : QString();
}

/// biteSMS reads a balloon's one or two colours as an array under their common name, without the
/// number at their end; a removed colour is not in it.
void addBalloonColors(PropertyDictionary &dictionary, const QStringList &keys)
{
    for (qsizetype first = 0; first < keys.size(); first += 2) {
        QVariantList colors;
        for (const QString &key : keys.sliced(first, 2)) {
            if (const QString color = textUnder(dictionary, key); !color.isEmpty())
                colors.append(color);
        }
        if (!colors.isEmpty())
            dictionary.setValue(keys[first].chopped(2), colors);
    }
}

/// Nothing is left of an earlier save. A folder that may be emptied but not removed will do, too.
void emptyPackageFolder(const ThemeLocations &locations, SaveReport &report)
{
    const QString folder = locations.packageFolder();
    std::error_code removal;
    if (NSFileManager::fileExistsAtPath(folder))
        removal = NSFileManager::removeItemAtPath(folder);
    report.addFailure(folder, NSFileManager::createDirectoryAtPath(folder));
    if (removal && !NSFileManager::contentsOfDirectoryAtPath(folder).names.isEmpty())
        report.addFailure(folder, removal);
    NSLog(u"biteSMS Theme Path: %@"_s, {locations.packageInfo()});
}

void makeWorkingCopyFolder(const ThemeLocations &locations, SaveReport &report)
{
    const QString folder = locations.workingCopyFolder();
    report.addFailure(folder, NSFileManager::createDirectoryAtPath(folder));
    NSLog(u"NSDocumentDirectory Theme Path: %@"_s, {locations.workingCopy()});
}

/// Writes the files of one save, one after the other, and notes for the report what becomes of
/// each.
class Writing
{
public:
    explicit Writing(const BuiltTheme &theme) : _keeper(*theme.keeper), _report(theme.report) {}

    /// From here on nothing is written or changed below the folder if a link stands in its place.
    void avoidLink(const QString &folder)
    {
        if (NSFileManager::itemAtPath(folder).kind != NSFileManager::Kind::Link)
            return;
        _links.append(folder + u'/');
        _report.addFailure(folder, isALink);
    }

    /// False for a fault.
    bool write(const QString &path, const QByteArray &bytes)
    {
        // Nothing to write means that the encoder ran out of memory.
        const std::error_code error = bytes.isEmpty()
                                          ? std::make_error_code(std::errc::not_enough_memory)
                                      : leadsAstray(path) ? isALink
                                                          : NSFileManager::writeToFile(path, bytes);
        note(path, error);
        return !error;
    }

    /// Replaces the old one, which its keeper has moved aside.
    void writeWorkingCopy(const QString &path, const QByteArray &bytes)
    {
        note(path, _keeper.write(bytes));
    }

    /// The last step of a save. After a fault both old and new stand, and the next start decides.
    void endReplacement(const QString &path) { _report.addFailure(path, _keeper.end()); }

    void createFolder(const QString &path)
    {
        keepFault(path, leadsAstray(path) ? isALink : NSFileManager::createDirectoryAtPath(path));
    }

    void openToEverybody(const QString &path)
    {
        keepFault(path, leadsAstray(path)
                            ? isALink
                            : NSFileManager::setPosixPermissions(path, packagePermissions));
    }

    void logFault() const
    {
        if (!_fault.isEmpty())
            NSLog(u"Error settings permission %@"_s, {_fault});
    }

    const SaveReport &report() const { return _report; }

private:
    bool leadsAstray(const QString &path) const
    {
        return std::ranges::any_of(_links, [&](auto &folder) { return path.startsWith(folder); });
    }

    void note(const QString &path, const std::error_code &error)
    {
        if (!error)
            _report.written.append(path);
        _report.addFailure(path, error);
    }

    /// Only the first fault of the save is kept for the log, and nothing clears it: what the
    /// package had is logged again after the working copy, as on the phone.
    void keepFault(const QString &path, const std::error_code &error)
    {
        if (error && _fault.isEmpty())
            _fault = NSFileManager::withReason(path, error);
        _report.addFailure(path, error);
    }

    WorkingCopyKeeper &_keeper;
    SaveReport _report;
    QStringList _links;
    QString _fault;
};

/// The whole one, beside the working copy, where it most often is already. False for a fault.
bool writePicture(const BuiltTheme &theme, Writing &writing)
{
    const QByteArray &jpeg = theme.picture->jpeg;
    const QString path = theme.locations.workingCopyFolder() + u'/' + PictureEntry::fileName(jpeg);
    return NSFileManager::contentsAtPath(path).bytes == jpeg || writing.write(path, jpeg);
}
} // namespace

void SaveReport::addFailure(const QString &path, const std::error_code &error)
{
    const auto known = std::ranges::find(failures, path, &Failure::path);
    if (error && known == failures.end())
        failures.push_back({path, QString::fromStdString(error.message())});
}

QString SaveReport::notice() const
{
    if (!refusal.isEmpty())
        return u"Nothing was saved.\n"_s + refusal;
    QString text;
    for (const Failure &failure : failures)
        text += u"\n%1: %2"_s.arg(failure.path, failure.reason);
    return text.isEmpty() ? text : u"Not everything could be written."_s + text;
}

QString SaveReport::copyFrom(const ThemeLocations &locations) const
{
    const bool isWhole = refusal.isEmpty() && failures.empty();
    return isWhole && !locations.isOnPhone() ? locations.packageRoot : QString();
}

PropertyDictionary themeDictionary(const ElementDataSource &source)
{
    PropertyDictionary dictionary = source.predefinedDict();
    for (const auto &record : source.tableSource()) {
        if (record.isChoice()) // an open choice is "0", as on the phone
            dictionary.setValue(record.key,
                                record.value.isValid() ? record.value : QVariant(u"0"_s));
        else if (record.color.isValid())
            dictionary.setValue(record.key, record.color);
    }
    addBalloonColors(dictionary, source.arrayObjects());
    return dictionary;
}

BuiltTheme buildTheme(const ElementDataSource &source, const ThemeLocations &locations,
                      double scale, const std::function<void()> &willSave)
{
    return buildTheme(source, locations, scale, WorkingCopyKeeper::open(locations), willSave);
}

BuiltTheme buildTheme(const ElementDataSource &source, const ThemeLocations &locations,
                      double scale, std::shared_ptr<WorkingCopyKeeper> keeper,
                      const std::function<void()> &willSave)
{
    BuiltTheme theme;
    theme.locations = locations;
    theme.keeper = std::move(keeper);
    if (!theme.keeper->begin(willSave)) {
        theme.report.refusal = theme.keeper->refusal();
        return theme;
    }
    // Beside the pictures, which are encoded meanwhile.
    const auto emptying = std::async([&] { emptyPackageFolder(locations, theme.report); });
    theme.dictionary = themeDictionary(source);
    theme.picture = ElementPicture::behindList(source);
    if (theme.picture)
        theme.workingCopy = PictureEntry::addedTo(theme.dictionary, source);
    const ThemePictures pictures = ThemePictures::of(source, theme.dictionary, scale);
    theme.listBackground = pictures.listBackground;
    theme.unreadIndicator = pictures.unreadIndicator;
    emptying.wait();
    makeWorkingCopyFolder(locations, theme.report);
    return theme;
}

SaveReport writeTheme(const BuiltTheme &theme)
{
    if (!theme.report.refusal.isEmpty())
        return theme.report;
    const ThemeLocations &locations = theme.locations;
    const QByteArray info = PropertyList::writeDictionary(theme.dictionary);
    Writing writing(theme);
    writing.avoidLink(locations.packageFolder());
    writing.write(locations.packageInfo(), info);
    writing.write(locations.listBackground(), theme.listBackground);
    writing.createFolder(locations.indicatorFolder());
    writing.avoidLink(locations.indicatorFolder());
    writing.write(locations.unreadIndicator(), theme.unreadIndicator);
    writing.openToEverybody(locations.packageInfo());
    writing.openToEverybody(locations.listBackground());
    writing.openToEverybody(locations.unreadIndicator());
    writing.logFault();
    // Choices never lead to a picture that is not there.
    const bool hasPicture = theme.picture && writePicture(theme, writing);
    writing.writeWorkingCopy(locations.workingCopy(),
                             hasPicture ? PropertyList::writeDictionary(theme.workingCopy) : info);
    writing.openToEverybody(locations.workingCopy());
    writing.endReplacement(locations.workingCopyAside());
    writing.logFault();
    return writing.report();
}
