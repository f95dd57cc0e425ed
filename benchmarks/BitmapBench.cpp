// What the manipulators cost on top of the drawing that they stand for. The rep starts each round
// with a picture of which no snapshot was taken. Times are real times: Qt spreads both sides'
// drawing over the machine's processors.

#include "bitmap/ANImageBitmapRep.h"

#include <QImage>
#include <QPainter>
#include <QTransform>

#include <benchmark/benchmark.h>

namespace
{
constexpr int side = 1000;
constexpr double angle = 30.0;

QImage picture()
{
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            image.setPixel(x, y,
                           qPremultiply(qRgba(x & 255, y & 255, (x * y) & 255, 255 - (x & 127))));
    return image;
}

// A copy of the rep, made outside the clock, for each round: an operation replaces its picture.
template <class Operation>
void onFreshReps(benchmark::State &state, Operation operation)
{
    const auto original = ANImageBitmapRep::initWithImage(picture());
    for (auto _ : state) {
        state.PauseTiming();
        auto rep = original->copyWithZone();
        state.ResumeTiming();
        operation(*rep);
        benchmark::DoNotOptimize(rep->bitmapData());
        state.PauseTiming();
        rep.reset();
        state.ResumeTiming();
    }
}

void scale(benchmark::State &state)
{
    onFreshReps(state, [&](ANImageBitmapRep &rep) {
        rep.setSize({state.range(0), state.range(0)});
    });
}

void scaleQImage(benchmark::State &state)
{
    const QImage image = picture();
    const int size = int(state.range(0));
    for (auto _ : state) {
        QImage scaled = image.scaled(size, size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        benchmark::DoNotOptimize(scaled.bits());
    }
}

void rotate(benchmark::State &state)
{
    onFreshReps(state, [](ANImageBitmapRep &rep) { rep.rotate(angle); });
}

void rotateQPainter(benchmark::State &state)
{
    const QImage image = picture();
    const QSize size = QTransform().rotate(angle).mapRect(QRectF(image.rect())).size().toSize();
    for (auto _ : state) {
        QImage rotated(size, QImage::Format_ARGB32_Premultiplied);
        rotated.fill(Qt::transparent);
        QPainter painter(&rotated);
        painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
        painter.translate(size.width() / 2, size.height() / 2);
        painter.rotate(-angle);
        painter.drawImage(-side / 2, -side / 2, image);
        painter.end();
        benchmark::DoNotOptimize(rotated.bits());
    }
}

BENCHMARK(scale)->Name("scale")->Arg(250)->Arg(2000)->Unit(benchmark::kMicrosecond);
BENCHMARK(scaleQImage)->Name("scale_qimage")->Arg(250)->Arg(2000)->Unit(benchmark::kMicrosecond);
BENCHMARK(rotate)->Name("rotate/30")->Unit(benchmark::kMicrosecond);
BENCHMARK(rotateQPainter)->Name("rotate_qpainter/30")->Unit(benchmark::kMicrosecond);
} // namespace
