// The themed phone: painting both its screens, and painting anew what one colour touches, as while
// a finger is on the wheel.
#include "BenchApplication.h"
#include "color/ColorVision.h"
#include "preview/PreviewPicture.h"

#include <QPainter>

#include <benchmark/benchmark.h>

namespace
{
constexpr double scale = 2.0;

PreviewPalette shippedPalette()
{
    return PreviewPalette::fromElements(
        ElementDataSource::loadWith(TINTLOOM_SOURCE_RESOURCES, nullptr));
}

/// A picture for each screen, which stays, as a window's does.
class Canvases
{
public:
    Canvases()
    {
        for (QImage &picture : _pictures) {
            picture = QImage((PreviewScene::screenSize * scale).toSize(),
                             QImage::Format_ARGB32_Premultiplied);
            picture.setDevicePixelRatio(scale);
        }
    }

    void paint(const PreviewScene &scene, PreviewScreen screen, const PreviewPalette &palette,
               const QRegion &region = {})
    {
        QPainter painter(&_pictures[size_t(screen)]);
        scene.paint(painter, screen, palette, region);
    }

private:
    std::array<QImage, 2> _pictures;
};

void paintFull(benchmark::State &state)
{
    prepareBenchApplication();
    const PreviewPalette palette = shippedPalette();
    const PreviewScene scene(palette);
    Canvases canvases;
    for (auto _ : state) {
        canvases.paint(scene, PreviewScreen::Conversation, palette);
        canvases.paint(scene, PreviewScreen::MessageList, palette);
    }
}
BENCHMARK(paintFull)->Name("preview_full")->Unit(benchmark::kMicrosecond);

/// From the passing colour to the pixels.
void paintChange(benchmark::State &state)
{
    prepareBenchApplication();
    const auto source = ElementDataSource::loadWith(TINTLOOM_SOURCE_RESOURCES, nullptr);
    const int balloon = source.indexesOfKey(keyOf(PreviewElement::BlueBalloon1)).at(0);
    PreviewPalette palette = PreviewPalette::fromElements(source);
    const PreviewScene scene(palette);
    Canvases canvases;
    unsigned step = 0;
    for (auto _ : state) {
        const QString text = QString::asprintf("#%06XFF", (step += 0x010305) & 0xFFFFFFU);
        const PreviewPalette now =
            PreviewPalette::fromElements(source, PreviewPalette::Passing{balloon, text});
        for (const auto screen : {PreviewScreen::Conversation, PreviewScreen::MessageList}) {
            const QRegion touched = scene.touched(screen, palette, now);
            if (!touched.isEmpty())
                canvases.paint(scene, screen, now, touched);
        }
        palette = now;
    }
}
BENCHMARK(paintChange)->Name("preview_change")->Unit(benchmark::kMicrosecond);

/// With the text laid out anew, as for another text size or a picture of another theme.
void makePicture(benchmark::State &state)
{
    prepareBenchApplication();
    const PreviewPalette palette = shippedPalette();
    for (auto _ : state)
        benchmark::DoNotOptimize(previewPicture(palette, PreviewView::Both, scale));
}
BENCHMARK(makePicture)->Name("preview_picture")->Unit(benchmark::kMicrosecond);

void otherEyes(benchmark::State &state)
{
    prepareBenchApplication();
    const QImage picture = previewPicture(shippedPalette(), PreviewView::Both, scale);
    for (auto _ : state)
        benchmark::DoNotOptimize(seenBy(Eyes(state.range(0)), picture));
}
BENCHMARK(otherEyes)
    ->Name("preview_eyes")
    ->Arg(int(Eyes::Deutan))
    ->Arg(int(Eyes::Tritan))
    ->Unit(benchmark::kMicrosecond);
} // namespace
