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

// Each round works on copies made outside the clock, as an operation replaces a rep's picture. Both
// sides make both copies, so that both find memory and Qt's threads in the same state.
template <class Operation>
void onFreshCopies(benchmark::State &state, Operation operation)
{
    const QImage originalImage = picture();
    const auto originalRep = ANImageBitmapRep::initWithImage(originalImage);
    for (auto _ : state) {
        state.PauseTiming();
        auto rep = originalRep->copyWithZone();
        QImage image = originalImage.copy();
        state.ResumeTiming();
        operation(*rep, image);
        state.PauseTiming();
        rep.reset();
        image = {};
        state.ResumeTiming();
    }
}

void scale(benchmark::State &state)
{
    onFreshCopies(state, [&](ANImageBitmapRep &rep, const QImage &) {
        rep.setSize({state.range(0), state.range(0)});
        benchmark::DoNotOptimize(rep.bitmapData());
    });
}

void scaleQImage(benchmark::State &state)
{
    const QSize size(int(state.range(0)), int(state.range(0)));
    onFreshCopies(state, [&](ANImageBitmapRep &, const QImage &image) {
        QImage scaled = image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        benchmark::DoNotOptimize(scaled.bits());
    });
}

void rotate(benchmark::State &state)
{
    onFreshCopies(state, [](ANImageBitmapRep &rep, const QImage &) {
        rep.rotate(angle);
        benchmark::DoNotOptimize(rep.bitmapData());
    });
}

void rotateQPainter(benchmark::State &state)
{
    const QSize size = QTransform().rotate(angle).mapRect(QRectF(0, 0, side, side)).size().toSize();
    onFreshCopies(state, [&](ANImageBitmapRep &, const QImage &image) {
        QImage rotated(size, QImage::Format_ARGB32_Premultiplied);
        rotated.fill(Qt::transparent);
        QPainter painter(&rotated);
        painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
        painter.translate(size.width() / 2, size.height() / 2);
        painter.rotate(-angle);
        painter.drawImage(-side / 2, -side / 2, image);
        painter.end();
        benchmark::DoNotOptimize(rotated.bits());
    });
}

// A fixed number of rounds: the copies take ten times as long as what is measured.
constexpr int rounds = 200;

BENCHMARK(scale)->Name("scale")->Arg(250)->Arg(2000)->Iterations(rounds)->Unit(
    benchmark::kMicrosecond);
BENCHMARK(scaleQImage)
    ->Name("scale_qimage")
    ->Arg(250)
    ->Arg(2000)
    ->Iterations(rounds)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(rotate)->Name("rotate/30")->Iterations(rounds)->Unit(benchmark::kMicrosecond);
BENCHMARK(rotateQPainter)
    ->Name("rotate_qpainter/30")
    ->Iterations(rounds)
    ->Unit(benchmark::kMicrosecond);
} // namespace
