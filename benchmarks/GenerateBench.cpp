// The page that makes a theme from one colour: from a move of its strength slider to the pixels of
// both the preview's screens, beside painting these alone.
#include "BenchApplication.h"
#include "editor/GenerateController.h"

#include <QPainter>

#include <array>
#include <benchmark/benchmark.h>

namespace
{
constexpr double scale = 2.0;
constexpr double frame = 1.0 / 60.0; // seconds

void followStrength(benchmark::State &state)
{
    prepareBenchApplication();
    ThemeDocument document(ElementDataSource::loadWith(TINTLOOM_SOURCE_RESOURCES, nullptr));
    PreviewModel model;
    model.follow(&document);
    const auto page = GenerateController::init(document, model);
    page->colorTyped(QStringLiteral("seagreen"));
    std::array<QImage, 2> pictures;
    for (QImage &picture : pictures) {
        picture = QImage((PreviewScene::screenSize * scale).toSize(),
                         QImage::Format_ARGB32_Premultiplied);
        picture.setDevicePixelRatio(scale);
    }
    int move = 0;
    for (auto _ : state) {
        const PreviewPalette before = model.palette();
        page->setStrength(float(++move % 100) / 100.0F);
        if (model.palette() == before)
            state.SkipWithError("the preview did not follow");
        for (const auto screen : {PreviewScreen::Conversation, PreviewScreen::MessageList}) {
            QPainter painter(&pictures[size_t(screen)]);
            model.scene().paint(painter, screen, model.palette());
        }
    }
    state.counters["moves_a_frame"] =
        benchmark::Counter(frame, benchmark::Counter::kIsIterationInvariantRate);
}
// Qt paints on threads of its own, whose time only the passing clock sees.
BENCHMARK(followStrength)->Name("generate_follow")->Unit(benchmark::kMicrosecond)->UseRealTime();
} // namespace
