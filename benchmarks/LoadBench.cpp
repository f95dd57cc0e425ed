// Loading a data source of many elements, with ("load") and without ("load_fresh") a working copy
// that holds a value for each, beside parsing the same two files and looking at nothing
// ("load_parse").
#include "QuietLog.h"
#include "platform/foundation/NSFileManager.h"
#include "theme/ElementDataSource.h"
#include "theme/ThemeLocations.h"

#include <QJsonDocument>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <plist/plist.h>

namespace
{
constexpr int sections = 10;

class Fixture
{
public:
    explicit Fixture(int count)
    {
        QByteArray items;
        PropertyDictionary saved;
        for (int i = 0; i < count; ++i) {
            const QByteArray number = QByteArray::number(i);
            items += (i == 0 ? "[{\"key\": \"element-color-" : ",\n{\"key\": \"element-color-") +
                     number + "\", \"name\": \"Element " + number +
                     "\", \"description\": \"Colour of the element " + number +
                     "\", \"color\": \"#8EEBB0FF\", \"options\": null, \"value\": null, "
                     "\"section\": \"Section " +
                     QByteArray::number(i % sections) + "\"}";
            saved.setValue(QLatin1String("element-color-" + number), QStringLiteral("#FF8A2BFF"));
        }
        document = items + "]\n";
        workingCopy = PropertyList::writeDictionary(saved);
        const ThemeLocations locations{{}, documents};
        NSFileManager::createDirectoryAtPath(locations.workingCopyFolder());
        NSFileManager::writeToFile(locations.workingCopy(), workingCopy);
        NSFileManager::writeToFile(resources + QLatin1String("/initialDatasource.txt"), document);
    }

    QTemporaryDir folder;
    const QString resources = folder.path();
    const QString documents = folder.filePath(QStringLiteral("documents"));
    const QString noDocuments = folder.filePath(QStringLiteral("none"));
    QByteArray document;
    QByteArray workingCopy;
};

/// Gives freed memory back to the system, outside the measured time. The program loads once, at its
/// start, into memory that is new to it; a repetition would find the memory of the one before it,
/// and a small load all of it where a large one finds little.
void startAfresh(benchmark::State &state)
{
    state.PauseTiming();
    ::malloc_trim(0);
    state.ResumeTiming();
}

void loadFrom(benchmark::State &state, const Fixture &fixture, const QString &documents)
{
    const QuietLog quiet;
    for (auto _ : state) {
        startAfresh(state);
        const auto source = ElementDataSource::load(fixture.resources, documents);
        if (source.tableSource().size() != size_t(state.range(0)) ||
            source.numberOfSections() != sections)
            state.SkipWithError("the load failed");
    }
}

void load(benchmark::State &state)
{
    const Fixture fixture(int(state.range(0)));
    loadFrom(state, fixture, fixture.documents);
}
BENCHMARK(load)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

void loadFresh(benchmark::State &state)
{
    const Fixture fixture(int(state.range(0)));
    loadFrom(state, fixture, fixture.noDocuments);
}
BENCHMARK(loadFresh)->Name("load_fresh")->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

void loadParse(benchmark::State &state)
{
    const Fixture fixture(int(state.range(0)));
    for (auto _ : state) {
        startAfresh(state);
        const QJsonDocument document = QJsonDocument::fromJson(fixture.document);
        plist_t list = nullptr;
        plist_from_xml(fixture.workingCopy.constData(), uint32_t(fixture.workingCopy.size()),
                       &list);
        if (!document.isArray() || list == nullptr)
            state.SkipWithError("the parse failed");
        plist_free(list);
    }
}
BENCHMARK(loadParse)->Name("load_parse")->Arg(100'000)->Unit(benchmark::kMillisecond);
} // namespace
