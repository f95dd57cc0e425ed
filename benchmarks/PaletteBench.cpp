// The palette of a photograph against the least that reading it takes, and few colours for its
// pixels against a vision library's k-means; and themes that are made of one colour.
#include "Photograph.h"
#include "QuietLog.h"
#include "advice/PicturePalette.h"
#include "advice/ThemeGenerator.h"
#include "color/OKLab.h"
#include "color/Quantizer.h"
#include "pictures/ReducedPicture.h"

#include <QImageReader>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <cmath>
#include <opencv2/core.hpp>

namespace
{
constexpr int centreCount = 6;

/// The photograph as a file.
const QString &photographFile()
{
    static const QTemporaryDir folder;
    static const QString file = [] {
        const QString path = folder.filePath("photograph.jpg");
        photograph().save(path, "JPG", 90);
        return path;
    }();
    return file;
}

void paletteOfPhotograph(benchmark::State &state)
{
    const QString file = photographFile();
    for (auto _ : state)
        if (paletteOf(ReducedPicture::read(file).visiblePixels()).candidates.empty())
            state.SkipWithError("no colours");
}
BENCHMARK(paletteOfPhotograph)->Name("palette")->Unit(benchmark::kMillisecond);

void decodePhotograph(benchmark::State &state)
{
    const QString file = photographFile();
    for (auto _ : state) {
        QImageReader reader(file);
        reader.setScaledSize({128, 96});
        if (reader.read().isNull())
            state.SkipWithError("no picture");
    }
}
BENCHMARK(decodePhotograph)->Name("palette_decode")->Unit(benchmark::kMillisecond);

const std::vector<QRgb> &photographPixels()
{
    static const std::vector<QRgb> pixels = ReducedPicture::read(photographFile()).visiblePixels();
    return pixels;
}

// From bytes to bytes, with the way to OKLab and back.
void quantize(benchmark::State &state)
{
    const std::vector<QRgb> &pixels = photographPixels();
    std::vector<ColorCluster> clusters;
    for (auto _ : state)
        clusters = quantized(pixels, centreCount);
    state.counters["error"] = meanError(pixels, clusters);
}
BENCHMARK(quantize)->Name("quantize")->Unit(benchmark::kMicrosecond);

// Once, on one thread, from pixels that are in OKLab beforehand.
void quantizeOpenCV(benchmark::State &state)
{
    const std::vector<QRgb> &pixels = photographPixels();
    cv::setNumThreads(1);
    cv::theRNG().state = 1;
    cv::Mat places(int(pixels.size()), 3, CV_32F);
    for (int row = 0; row < places.rows; ++row) {
        const OKLab place = oklabFromRgb(pixels[size_t(row)]);
        places.at<float>(row, 0) = float(place.lightness);
        places.at<float>(row, 1) = float(place.a);
        places.at<float>(row, 2) = float(place.b);
    }
    cv::Mat labels, centres;
    double error = 0.0;
    for (auto _ : state) {
        cv::kmeans(places, centreCount, labels,
                   cv::TermCriteria(cv::TermCriteria::EPS + cv::TermCriteria::COUNT, 24, 1e-3), 1,
                   cv::KMEANS_PP_CENTERS, centres);
        state.PauseTiming();
        std::vector<ColorCluster> clusters;
        for (int row = 0; row < centres.rows; ++row)
            clusters.push_back(
                {rgbFromOklab({double(centres.at<float>(row, 0)), double(centres.at<float>(row, 1)),
                               double(centres.at<float>(row, 2))}),
                 0.0});
        error += meanError(pixels, clusters);
        state.ResumeTiming();
    }
    state.counters["error"] = error / double(state.iterations());
    if (meanError(pixels, quantized(pixels, centreCount)) > error / double(state.iterations()))
        state.SkipWithError("ours are further from the pixels");
}
BENCHMARK(quantizeOpenCV)->Name("quantize_opencv")->Unit(benchmark::kMicrosecond);

// With all that a generator looks at once, and a look for what is hard to see.
void generateTheme(benchmark::State &state)
{
    const QuietLog quiet;
    const auto elements = ElementDataSource::loadWith(TINTLOOM_SOURCE_RESOURCES, nullptr);
    quint64 seed = 0;
    for (auto _ : state) {
        const DrawnWish drawn = drawnWish(seed++, Tone::Light);
        const ThemeGenerator generator(elements, {});
        if (!generator
                 .generate({drawn.color, ThemeGenerator::usualElement(elements), drawn.harmony})
                 .left.empty())
            state.SkipWithError("a theme is hard to read");
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(generateTheme)->Name("generate")->Unit(benchmark::kMicrosecond);
} // namespace
