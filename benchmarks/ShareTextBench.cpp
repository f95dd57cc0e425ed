// A theme that ships as a line of text, written and read again: what the share page does at each
// change. A hundredth of a frame is 0.16 ms.
#include "library/ShareText.h"
#include "theme/ElementDataSource.h"
#include "theme/ThemePackageWriter.h"

#include <benchmark/benchmark.h>

namespace
{
void shareText(benchmark::State &state)
{
    const auto info =
        themeDictionary(ElementDataSource::loadWith(TINTLOOM_SOURCE_RESOURCES, nullptr));
    for (auto _ : state)
        if (!ShareText::read(ShareText::write(info, QStringLiteral("Sea Mist"))).theme)
            state.SkipWithError("it does not read back");
}
BENCHMARK(shareText)->Name("share_text")->Unit(benchmark::kMicrosecond);
} // namespace
