#include "library/OpenedTheme.h"

#include "archives/EntryPath.h"
#include "library/Archives.h"
#include "library/ChosenPackage.h"
#include "library/FolderReader.h"
#include "library/PackageLimits.h"
#include "library/ShareText.h"
#include "platform/foundation/NSFileManager.h"
#include "theme/ThemeLocations.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;
using Kind = NSFileManager::Kind;

namespace
{
ThemeOpening refused(const QString &problem)
{
    return {{}, problem};
}

/// One line for a list; nothing for what cannot be a name.
QString asName(const QString &text)
{
    constexpr qsizetype longest = 80; // code points
    QList<uint> points = text.toUcs4();
    for (uint &point : points)
        point = QChar::isPrint(point) ? point : u' ';
    points =
        QString::fromUcs4(reinterpret_cast<const char32_t *>(points.constData()), points.size())
            .simplified()
            .toUcs4();
    points.resize(std::min(longest, points.size()));
    return QString::fromUcs4(reinterpret_cast<const char32_t *>(points.constData()), points.size())
        .trimmed();
}

/// A save writes that name into every package, so it tells nothing.
bool isAnyThemesName(const QString &name)
{
    return name == ElementDataSource().predefinedDict().find(u"name"_s)->toString();
}

/// Where the package is, with "/" at the end; or why there is none.
struct Place {
    QString folder, problem;
};

Place placeOfPackage(const std::vector<ArchiveEntry> &entries)
{
    QStringList found;
    for (const ArchiveEntry &entry : entries) {
        if (entry.path.section(u'/', -1) != packageInfoName())
            continue;
        const qsizetype depth = entry.path.count(u'/');
        if (!found.isEmpty() && depth < found[0].count(u'/'))
            found.clear();
        if (found.isEmpty() || depth == found[0].count(u'/'))
            found.append(entry.path);
    }
    if (found.isEmpty())
        return {{}, u"there is no %1 in it"_s.arg(packageInfoName())};
    if (found.size() > 1)
        return {
            {},
            u"it holds several themes: %1 and %2"_s.arg(shownPath(found[0]), shownPath(found[1]))};
    return {found[0].chopped(packageInfoName().size()), {}};
}

/// What a file is called, without the endings of its form.
QString withoutEnding(QString name)
{
    for (const auto &ending :
         {u".tintloom"_s, u".zip"_s, u".tar.gz"_s, u".tgz"_s, u".tar"_s, u".plist"_s, u".txt"_s})
        if (name.endsWith(ending, Qt::CaseInsensitive))
            return name.chopped(ending.size());
    return name;
}

bool isArchive(const QByteArray &bytes)
{
    return bytes.startsWith("PK") || bytes.startsWith("\x1F\x8B") || bytes.mid(257, 5) == "ustar";
}

bool isPropertyList(const QByteArray &bytes)
{
    return bytes.startsWith("bplist") || bytes.startsWith("\xEF\xBB\xBF<") ||
           bytes.startsWith("<?xml") || bytes.startsWith("<!DOCTYPE") || bytes.startsWith("<plist");
}

QString listed(const QStringList &names)
{
    constexpr qsizetype most = 12;
    QStringList shown;
    for (const QString &name : names.first(std::min(most, names.size())))
        shown.append(shownPath(name));
    if (names.size() > most)
        shown.append(u"and %1 more"_s.arg(names.size() - most));
    return shown.join(u", "_s);
}
} // namespace

QStringList OpenedTheme::remarks() const
{
    QStringList sentences;
    if (elements < listed)
        sentences +=
            u"It has %1 of %2 elements; the others stay as they are in the list."_s.arg(elements)
                .arg(listed);
    const auto tell = [&sentences](const QString &sentence, const QStringList &names) {
        if (!names.isEmpty())
            sentences += sentence.arg(::listed(names));
    };
    tell(u"Entries that Tintloom does not know are kept: %1."_s, unknownKeys);
    tell(u"Files that Tintloom does not know are kept: %1."_s, unknownFiles);
    tell(u"Entries with a value of a strange type are left out: %1."_s, strangeKeys);
    tell(u"Files beside the theme are left out: %1."_s, besides);
    return sentences;
}

bool isMadePicture(const QString &path)
{
    const ThemeLocations anywhere;
    const QString whole = anywhere.packageFolder() + u'/' + path;
    return whole == anywhere.listBackground() || whole == anywhere.unreadIndicator();
}

bool ThemeOpener::Known::fits(const QVariant &value) const
{
    switch (value.typeId()) {
    case QMetaType::QString:
        return takesText;
    case QMetaType::Bool:
        return takesBoolean;
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
        return takesNumber;
    case QMetaType::QVariantList:
        return takesArray;
    default:
        return false;
    }
}

ThemeOpener::ThemeOpener(const ElementDataSource &list) : _balloons(list.arrayObjects())
{
    for (const auto &[key, value] : list.predefinedDict().entries()) {
        const bool isText = value.typeId() == QMetaType::QString;
        _known[key] = {false, isText, key == "theme-version"_L1, !isText, false};
    }
    for (const QString &key : std::as_const(_balloons))
        _known[key.chopped(2)] = {.takesArray = true};
    for (const ElementRecord &record : list.tableSource())
        _known[record.key] = {true, true, record.isChoice(), record.isChoice(), false};
}

ThemeOpening ThemeOpener::fromPath(const QString &path) const
{
    const QFileInfo file(path); // through a link, which a person may name
    const QString name = file.fileName();
    if (file.isDir()) {
        auto [entries, problem] = readFolder(path, PackageLimits::package);
        return problem.isEmpty() ? fromEntries(std::move(entries), name) : refused(problem);
    }
    if (file.size() > PackageLimits::archive.archive)
        return refused(u"%1 is larger than %2 MB"_s.arg(shownPath(name))
                           .arg(PackageLimits::archive.archive >> 20));
    const auto [bytes, error] = NSFileManager::contentsAtPath(path);
    if (error)
        return refused(NSFileManager::withReason(path, error));
    return fromBytes(bytes, name == packageInfoName() ? file.absoluteDir().dirName()
                                                      : withoutEnding(name));
}

ThemeOpening ThemeOpener::fromBytes(const QByteArray &bytes, const QString &name) const
{
    if (!isArchive(bytes)) {
        if (isPropertyList(bytes))
            return fromEntries({{packageInfoName(), bytes}}, name);
        if (bytes.size() <= ShareText::longest && bytes.isValidUtf8() &&
            ShareText::isMeant(QString::fromUtf8(bytes)))
            return fromText(QString::fromUtf8(bytes));
    }
    const auto [module, missing] = Archives::module();
    if (!module)
        return refused(missing);
    auto [entries, problem] = module->read(bytes, PackageLimits::archive);
    return problem.isEmpty() ? fromEntries(std::move(entries), name) : refused(problem);
}

ThemeOpening ThemeOpener::fromText(const QString &text) const
{
    const auto [shared, problem] = ShareText::read(text);
    if (!shared)
        return refused(problem);
    OpenedTheme theme;
    judge(shared->info, theme);
    theme.name = asName(shared->name);
    if (theme.name.isEmpty())
        theme.name = u"Shared Theme"_s;
    return {std::move(theme), {}};
}

ThemeOpening ThemeOpener::fromEntries(std::vector<ArchiveEntry> entries, const QString &name) const
{
    const auto [folder, problem] = placeOfPackage(entries);
    if (!problem.isEmpty())
        return refused(problem);
    OpenedTheme theme;
    QByteArray infoBytes;
    for (ArchiveEntry &entry : entries) {
        const QString path = entry.path.mid(folder.size());
        if (!entry.path.startsWith(folder))
            theme.besides.append(entry.path);
        else if (path == packageInfoName())
            infoBytes = std::move(entry.bytes);
        else if (const QString problem = PackageLimits::problemOfFile(path, entry.bytes);
                 !problem.isEmpty())
            return refused(problem);
        else
            theme.contents.files[path] = std::move(entry.bytes);
    }
    if (infoBytes.size() > PackageLimits::propertyList)
        return refused(u"%1 is larger than %2 MB"_s.arg(shownPath(folder + packageInfoName()))
                           .arg(PackageLimits::propertyList >> 20));
    const auto info = PropertyList::readDictionary(infoBytes);
    if (!info)
        return refused(
            u"%1 is no property list of a theme"_s.arg(shownPath(folder + packageInfoName())));
    judge(*info, theme);
    for (const auto &[path, bytes] : theme.contents.files)
        if (!isMadePicture(path) && path != PictureEntry::fileIn(theme.contents.info))
            theme.unknownFiles.append(path);

    const QVariant *own = theme.contents.info.find(u"name"_s);
    const QString inner = asName(folder.section(u'/', -2, -2));
    const QString outer = asName(name);
    for (const QString &candidate :
         {asName(own ? own->toString() : QString()), inner, outer,
          ElementDataSource().predefinedDict().find(u"name"_s)->toString()})
        if (theme.name.isEmpty() || isAnyThemesName(theme.name))
            theme.name = candidate.isEmpty() ? theme.name : candidate;
    return {std::move(theme), {}};
}

void ThemeOpener::judge(const PropertyDictionary &info, OpenedTheme &theme) const
{
    PropertyDictionary &kept = theme.contents.info;
    for (const auto &[key, value] : info.entries()) {
        if (key != PictureEntry::key())
            judgeEntry(key, value, theme);
        else if (const auto entry = PictureEntry::checked(info, filesIn(theme.contents)))
            kept.setValue(key, *entry);
        else
            theme.strangeKeys.append(key);
    }
    for (qsizetype first = 0; first < _balloons.size(); first += 2) {
        const QVariant *array = kept.find(_balloons[first].chopped(2));
        if (!array || kept.find(_balloons[first]) || kept.find(_balloons[first + 1]))
            continue;
        const QVariantList colors = array->toList();
        for (qsizetype i = 0; i < std::min<qsizetype>(2, colors.size()); ++i)
            judgeEntry(_balloons[first + i], colors[i], theme);
    }
    for (auto known = _known.begin(); known != _known.end(); ++known) {
        theme.listed += known->isElement;
        const QVariant *value = known->isElement ? kept.find(known.key()) : nullptr;
        // As it is read back into the list, such a text is a trace of nothing.
        theme.elements += value && *value != u"(null)"_s && *value != u"null"_s;
    }
}

void ThemeOpener::judgeEntry(const QString &key, const QVariant &value, OpenedTheme &theme) const
{
    const auto known = _known.constFind(key);
    if (known == _known.cend())
        theme.unknownKeys.append(key);
    else if (!known->fits(value)) {
        theme.strangeKeys.append(key);
        return;
    }
    theme.contents.info.setValue(key, value);
}

PackageContents completedPackage(const OpenedTheme &opened, PackageContents made)
{
    const PropertyDictionary head = ElementDataSource().predefinedDict();
    const auto isOwn = [&](const QString &key) {
        return key != "name"_L1 && (head.find(key) || opened.unknownKeys.contains(key));
    };
    for (const auto &[key, value] : opened.contents.info.entries())
        if (isOwn(key))
            made.info.setValue(key, value);
    for (const auto &[path, bytes] : opened.contents.files)
        made.files[path] = bytes;
    return made;
}
