// What is found in a theme, as it is asked for on every movement of the finger: of the elements
// that ship, and of many, each of which stands on another.
#include "QuietLog.h"
#include "advice/Findings.h"

#include <benchmark/benchmark.h>

namespace
{
void findingsShipped(benchmark::State &state)
{
    const QuietLog quiet;
    const auto elements = ElementDataSource::loadWith(TINTLOOM_SOURCE_RESOURCES, nullptr);
    for (auto _ : state)
        if (!findings(elements).empty())
            state.SkipWithError("what ships is hard to read");
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(findingsShipped)->Name("findings_shipped");

/// Every other text is hard to read.
ElementDataSource elementsOf(int count)
{
    QByteArray text = "[";
    for (int i = 0; i < count; ++i)
        text += QByteArray(i ? "," : "") + "{\"key\":\"key-" + QByteArray::number(i) +
                "\",\"name\":\"Element " + QByteArray::number(i) +
                "\",\"description\":\"\",\"color\":\"#" + (i % 2 ? "FFFFFF" : "336699") +
                "FF\",\"options\":null,\"value\":null,\"section\":\"All\","
                "\"on\":{\"text\":[\"key-" +
                QByteArray::number((i + 1 + i % 4 / 2) % count) + "\"]}}";
    return ElementDataSource::parse(text + "]", "document", nullptr);
}

void findingsOfMany(benchmark::State &state)
{
    const auto elements = elementsOf(int(state.range(0)));
    for (auto _ : state)
        if (findings(elements).size() != size_t(state.range(0)) / 2)
            state.SkipWithError("half of them are found");
}
BENCHMARK(findingsOfMany)
    ->Name("findings")
    ->Arg(10'000)
    ->Arg(100'000)
    ->Unit(benchmark::kMillisecond);
} // namespace
