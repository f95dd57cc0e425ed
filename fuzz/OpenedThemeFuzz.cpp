// A theme that somebody else made: archives, property lists and shared texts, as they come.
#include "fuzz/FuzzTargets.h"
#include "fuzz/Values.h"
#include "library/Archives.h"
#include "library/OpenedTheme.h"
#include "library/PackageLimits.h"
#include "library/ShareText.h"
#include "theme/PictureEntry.h"

#include <algorithm>

namespace
{
const ThemeOpener &opener()
{
    static const ThemeOpener opener(ElementDataSource::parse(
        R"([{"key":"send-button-color","name":"","description":"","color":"#F00",)"
        R"("options":null,"value":null,"section":"All"},)"
        R"({"key":"balloon-corner-style","name":"","description":"","color":null,)"
        R"("options":{"Round":"round"},"value":"round","section":"All"}])",
        QStringLiteral("list"), nullptr));
    return opener;
}

void requireHarmless(const OpenedTheme &theme)
{
    using Fuzz::require;
    require(!theme.name.isEmpty() && theme.name.toUcs4().size() <= 80, "every theme has a name");
    require(std::ranges::all_of(theme.name.toUcs4(), [](uint c) { return QChar::isPrint(c); }),
            "a name is one line");
    qint64 size = 0;
    for (const auto &[path, bytes] : theme.contents.files) {
        const QStringList parts = path.split(u'/');
        require(!parts.contains(QString()) && !parts.contains(QStringLiteral("..")) &&
                    !parts.contains(QStringLiteral(".")) && parts.size() <= 8,
                "no path leads elsewhere");
        require(path != packageInfoName(), "the property list is no other file");
        size += bytes.size();
    }
    require(theme.contents.files.size() < 200 && size <= PackageLimits::package.unpacked,
            "nothing is larger than allowed");
    require(theme.elements <= theme.listed, "no more elements than there are");
    for (const QString &key : theme.strangeKeys)
        require(!theme.contents.info.find(key), "what is strange is left out");
    const auto picture = PictureEntry::fileIn(theme.contents.info);
    require(theme.contents.info.find(PictureEntry::key())
                ? picture && theme.contents.files.contains(*picture)
                : !picture,
            "what leads to a picture does");
    for (const QString &key : theme.unknownKeys)
        require(theme.contents.info.find(key), "what is unknown is kept");
}

void requireSharable(const OpenedTheme &theme)
{
    const auto again = ShareText::read(ShareText::write(theme.contents.info, theme.name)).theme;
    Fuzz::require(again && again->name == theme.name, "a text reads back");
    const QString text = ShareText::write(again->info, theme.name);
    Fuzz::require(text == ShareText::write(theme.contents.info, theme.name),
                  "and is the same again");
}

void requireWritableArchive(const OpenedTheme &theme)
{
    std::vector<ArchiveEntry> entries{
        {packageInfoName(), Fuzz::requireWritable(theme.contents.info)}};
    for (const auto &[path, bytes] : theme.contents.files)
        entries.push_back({path, bytes});
    const auto bytes = Archives::module().module->write(entries, ArchiveModule::Form::Zip);
    const auto again = opener().fromBytes(bytes, theme.name).theme;
    Fuzz::require(again && again->contents.files == theme.contents.files &&
                      Fuzz::hasSameContents(again->contents.info, theme.contents.info),
                  "what was opened can be passed on");
}
} // namespace

void Fuzz::openedTheme(const QByteArray &bytes)
{
    const auto [theme, problem] = opener().fromBytes(bytes, QStringLiteral("file"));
    require(theme.has_value() == problem.isEmpty(), "a refusal has a reason");
    if (!theme)
        return;
    requireHarmless(*theme);
    requireSharable(*theme);
    requireWritableArchive(*theme);
}
