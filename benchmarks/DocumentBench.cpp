// Editing the theme's document: what one edit costs must not depend on how many elements there are,
// nor what a step of the history costs on how many there have been.
#include "theme/ThemeDocument.h"

#include <benchmark/benchmark.h>
#include <malloc.h>

namespace
{
ThemeDocument documentOf(int elements)
{
    QByteArray text = "[";
    for (int i = 0; i < elements; ++i)
        text += QByteArray(i ? "," : "") + "{\"key\":\"key-" + QByteArray::number(i) +
                "\",\"name\":\"Element " + QByteArray::number(i) +
                "\",\"description\":\"\",\"color\":\"#FFFFFFFF\",\"options\":null,\"value\":null,"
                "\"section\":\"All\"}";
    return ThemeDocument(ElementDataSource::parse(text + "]", "document", nullptr));
}

/// One edit and its undo, anywhere in the document.
void edit(benchmark::State &state)
{
    ThemeDocument document = documentOf(int(state.range(0)));
    int index = 0;
    for (auto _ : state) {
        index = (index + 7919) % document.count();
        document.setColor(index, "#123456FF");
        document.undo();
    }
}
BENCHMARK(edit)->Name("edit")->Arg(1000)->Arg(100'000);

/// So many edits, and undoing them all.
void history(benchmark::State &state)
{
    const int steps = int(state.range(0));
    double bytesPerStep = 0.0;
    for (auto _ : state) {
        state.PauseTiming();
        auto document =
            std::make_unique<ThemeDocument>(ElementDataSource(documentOf(100).elements()));
        const size_t before = mallinfo2().uordblks;
        state.ResumeTiming();
        for (int step = 0; step < steps; ++step)
            document->setColor(step % 100, QString::number(step));
        bytesPerStep = double(mallinfo2().uordblks - before) / steps;
        while (document->canUndo())
            document->undo();
        state.PauseTiming();
        document.reset();
        state.ResumeTiming();
    }
    state.counters["bytes_per_step"] = bytesPerStep;
}
BENCHMARK(history)->Name("history")->Arg(1000)->Arg(10'000)->Unit(benchmark::kMillisecond);
} // namespace
