// The element data source and the working copy laid over it. A line "%%" parts the two; without it
// there is no working copy.
#include "fuzz/FuzzTargets.h"
#include "fuzz/Values.h"
#include "theme/ElementDataSource.h"
#include "theme/ThemePackageWriter.h"

using Status = ElementDataSource::Status;

namespace
{
ElementDataSource parse(const QByteArray &document, const QByteArray &workingCopy)
{
    const auto saved = PropertyList::readDictionary(workingCopy);
    return ElementDataSource::parse(document, QStringLiteral("document"),
                                    saved ? &*saved : nullptr);
}

void requireConsistent(const ElementDataSource &source)
{
    using Fuzz::require;
    require((source.status() == Status::Loaded) == source.problem().isEmpty(),
            "what is wrong is said");
    require(source.status() == Status::Loaded || source.tableSource().empty(),
            "nothing is taken by halves");
    const QStringList titles = source.sortedSections();
    require(QSet(titles.begin(), titles.end()).size() == titles.size(), "titles are unique");
    std::size_t shown = 0;
    for (int section = 0; section < source.numberOfSections(); ++section) {
        for (int row = 0; row < source.numberOfRowsInSection(section); ++row, ++shown) {
            const ElementRecord &record = source.record(section, row);
            require(record.section == source.titleForSection(section), "rows stand where they say");
            require(!record.shownOption().isEmpty() || !record.shownColor() ||
                        !record.shownColor()->isEmpty(),
                    "what is shown is not empty");
        }
    }
    for (const auto &record : source.tableSource())
        shown += !record.section;
    require(shown == source.tableSource().size(), "every element has its row");
}
} // namespace

void Fuzz::elementDataSource(const QByteArray &bytes)
{
    constexpr QByteArrayView separator("\n%%\n");
    const qsizetype end = bytes.indexOf(separator);
    const QByteArray document = end < 0 ? bytes : bytes.first(end);
    const QByteArray workingCopy = end < 0 ? QByteArray() : bytes.sliced(end + separator.size());

    const auto source = parse(document, workingCopy);
    requireConsistent(source);
    if (source.status() != Status::Loaded)
        return;
    const PropertyDictionary theme = themeDictionary(source);
    const auto restarted = parse(document, requireWritable(theme));
    requireConsistent(restarted);
    require(hasSameContents(theme, themeDictionary(restarted)), "a restart changes nothing");
}
