#include "theme/ThemePackageWriter.h"

#include "platform/NSFileManager.h"
#include "platform/NSLog.h"
#include "platform/UIImageJPEGRepresentation.h"
#include "theme/ColorText.h"
#include "views/UIImage+JTColor.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
constexpr float jpegQuality = 0.8F;
constexpr unsigned everybodyMayDoEverything = 0777;
constexpr QRectF listBackgroundRect(0.0, 0.0, 640.0, 1136.0);
constexpr QRectF unreadIndicatorRect(0.0, 0.0, 24.0, 24.0);

QString textUnder(const PropertyDictionary &dictionary, const QString &key)
{
    const QVariant *value = dictionary.find(key);
    return value ? PropertyList::textOf(*value) : QString();
}

/// biteSMS reads a balloon's one or two colours as an array; a removed colour is not in it.
void addBalloonColors(PropertyDictionary &dictionary, const QString &key)
{
    QVariantList colors;
    for (const auto &suffix : {"_1"_L1, "_2"_L1}) {
        if (const QString color = textUnder(dictionary, key + suffix); !color.isEmpty())
            colors.append(color);
    }
    if (!colors.isEmpty())
        dictionary.setValue(key, colors);
}

/// Nothing is left of an earlier save. What cannot be removed will show when the new file is
/// written.
void emptyPackageFolder(const ThemeLocations &locations, SaveReport &report)
{
    const QString folder = locations.packageFolder();
    if (NSFileManager::fileExistsAtPath(folder))
        NSFileManager::removeItemAtPath(folder);
    report.addFailure(folder, NSFileManager::createDirectoryAtPath(folder));
    NSLog(u"biteSMS Theme Path: %@"_s, {locations.packageInfo()});
}

/// Other files beside the working copy are left alone.
void dropWorkingCopy(const ThemeLocations &locations, SaveReport &report)
{
    const QString folder = locations.workingCopyFolder();
    report.addFailure(folder, NSFileManager::createDirectoryAtPath(folder));
    if (NSFileManager::fileExistsAtPath(locations.workingCopy()))
        NSFileManager::removeItemAtPath(locations.workingCopy());
    NSLog(u"NSDocumentDirectory Theme Path: %@"_s, {locations.workingCopy()});
}

QByteArray solidJpeg(const PropertyDictionary &dictionary, const QString &key, const QRectF &rect,
                     double scale)
{
    const UIColor color = colorFromHexString(textUnder(dictionary, key));
    return UIImageJPEGRepresentation(imageWithColorRect(color, rect, scale), jpegQuality);
}

/// The write step's hold on its report and on the one slot for permission faults.
class Writing
{
public:
    explicit Writing(SaveReport report) : _report(std::move(report)) {}

    void write(const QString &path, const QByteArray &bytes)
    {
        // Nothing to write means that the encoder ran out of memory.
        const std::error_code error = bytes.isEmpty()
                                          ? std::make_error_code(std::errc::not_enough_memory)
                                          : NSFileManager::writeToFile(path, bytes);
        if (!error)
            _report.written.append(path);
        _report.addFailure(path, error);
    }

    void createFolder(const QString &path)
    {
        keepFault(path, NSFileManager::createDirectoryAtPath(path));
    }

    void openToEverybody(const QString &path)
    {
        keepFault(path, NSFileManager::setPosixPermissions(path, everybodyMayDoEverything));
    }

    void logFault() const
    {
        if (!_fault.isEmpty())
            NSLog(u"Error settings permission %@"_s, {_fault});
    }

    const SaveReport &report() const { return _report; }

private:
    /// The slot is set once and never cleared: the first fault is logged after each group of files.
    void keepFault(const QString &path, const std::error_code &error)
    {
        if (error && _fault.isEmpty())
            _fault = path + ": "_L1 + QString::fromStdString(error.message());
        _report.addFailure(path, error);
    }

    SaveReport _report;
    QString _fault;
};
} // namespace

void SaveReport::addFailure(const QString &path, const std::error_code &error)
{
    const auto known = std::ranges::find(failures, path, &Failure::path);
    if (error && known == failures.end())
        failures.push_back({path, QString::fromStdString(error.message())});
}

PropertyDictionary themeDictionary(const ElementDataSource &source)
{
    PropertyDictionary dictionary = source.predefinedDict();
    for (const auto &record : source.tableSource()) {
        if (record->isChoice())
            dictionary.setValue(record->key,
                                record->value.isValid() ? record->value : QVariant(u"0"_s));
        else if (record->color.isValid())
            dictionary.setValue(record->key, record->color);
    }
    for (const auto &key :
         {u"green-balloon-colors"_s, u"blue-balloon-colors"_s, u"gray-balloon-colors"_s})
        addBalloonColors(dictionary, key);
    return dictionary;
}

BuiltTheme buildTheme(const ElementDataSource &source, const ThemeLocations &locations,
                      double scale)
{
    BuiltTheme theme;
    theme.locations = locations;
    emptyPackageFolder(locations, theme.report);
    dropWorkingCopy(locations, theme.report);
    theme.dictionary = themeDictionary(source);
    theme.listBackground =
        solidJpeg(theme.dictionary, u"list-background-image"_s, listBackgroundRect, scale);
    theme.unreadIndicator =
        solidJpeg(theme.dictionary, u"unread-indicator-image"_s, unreadIndicatorRect, scale);
    return theme;
}

SaveReport writeTheme(const BuiltTheme &theme)
{
    const ThemeLocations &locations = theme.locations;
    const QByteArray info = PropertyList::writeDictionary(theme.dictionary);
    Writing writing(theme.report);
    writing.write(locations.packageInfo(), info);
    writing.write(locations.listBackground(), theme.listBackground);
    writing.createFolder(locations.indicatorFolder());
    writing.write(locations.unreadIndicator(), theme.unreadIndicator);
    writing.openToEverybody(locations.packageInfo());
    writing.openToEverybody(locations.listBackground());
    writing.openToEverybody(locations.unreadIndicator());
    writing.logFault();
    writing.write(locations.workingCopy(), info);
    writing.openToEverybody(locations.workingCopy());
    writing.logFault();
    return writing.report();
}
