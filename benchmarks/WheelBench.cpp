// The wheel's picture against its plain form, against what a vision library and a painter offer,
// and against writing that much memory at all. Every buffer exists before the clock starts.

#include "HSColorPicker/ColorPickerClasses/HSWheelKernel.h"
#include "HSColorPicker/ColorPickerClasses/HSWheelReference.h"

#include <QConicalGradient>
#include <QImage>
#include <QPainter>
#include <QRadialGradient>

#include <benchmark/benchmark.h>
#include <cstring>
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#include <vector>

namespace
{
constexpr double padding = 22.0;

std::vector<std::uint8_t> pixelsFor(const benchmark::State &state)
{
    return std::vector<std::uint8_t>(std::size_t(state.range(0) * state.range(0)) * 4);
}

void wheel(benchmark::State &state)
{
    std::vector<std::uint8_t> pixels = pixelsFor(state);
    for (auto _ : state) {
        HSFillWheel(pixels.data(), int(state.range(0)), padding);
        benchmark::ClobberMemory();
    }
}

void wheelScalar(benchmark::State &state)
{
    std::vector<std::uint8_t> pixels = pixelsFor(state);
    for (auto _ : state) {
        HSFillWheelScalar(pixels.data(), int(state.range(0)), double(state.range(0)), padding);
        benchmark::ClobberMemory();
    }
}

// Even the coordinates are there beforehand, and no alpha channel is asked for.
void wheelOpenCV(benchmark::State &state)
{
    cv::setNumThreads(1);
    const int side = int(state.range(0));
    const float radius = float(side) * 0.5f;
    const float rim = radius - float(padding);
    cv::Mat x(side, side, CV_32F), y(side, side, CV_32F);
    for (int row = 0; row < side; ++row) {
        for (int column = 0; column < side; ++column) {
            x.at<float>(row, column) = float(column) - radius;
            y.at<float>(row, column) = radius - float(row);
        }
    }
    cv::Mat planes[3] = {cv::Mat(side, side, CV_32F), cv::Mat(side, side, CV_32F),
                         cv::Mat(side, side, CV_32F, cv::Scalar(1.0))};
    cv::Mat distance(side, side, CV_32F), hsv(side, side, CV_32FC3), rgb(side, side, CV_32FC3);
    cv::Mat pixels(side, side, CV_8UC3);
    for (auto _ : state) {
        cv::cartToPolar(x, y, distance, planes[0], true);
        cv::min(distance, rim, distance);
        distance.convertTo(planes[1], CV_32F, 1.0 / rim);
        cv::merge(planes, 3, hsv);
        cv::cvtColor(hsv, rgb, cv::COLOR_HSV2RGB);
        rgb.convertTo(pixels, CV_8U, 255.0);
        benchmark::ClobberMemory();
    }
}

// A conical gradient of the hues under a radial one from white: the usual wheel in Qt.
void wheelQPainter(benchmark::State &state)
{
    const int side = int(state.range(0));
    const QPointF centre(side * 0.5, side * 0.5);
    QConicalGradient hues(centre, 0.0);
    for (int sector = 0; sector <= 6; ++sector)
        hues.setColorAt(sector / 6.0, QColor::fromHsvF(float(sector % 6) / 6.0f, 1.0f, 1.0f));
    QRadialGradient saturation(centre, side * 0.5 - padding);
    saturation.setColorAt(0.0, Qt::white);
    saturation.setColorAt(1.0, QColor(255, 255, 255, 0));
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        QPainter painter(&image);
        painter.fillRect(image.rect(), hues);
        painter.fillRect(image.rect(), saturation);
        painter.end();
        benchmark::ClobberMemory();
    }
}

void fillMemory(benchmark::State &state)
{
    std::vector<std::uint8_t> pixels = pixelsFor(state);
    for (auto _ : state) {
        std::memset(pixels.data(), 0xFF, pixels.size());
        benchmark::ClobberMemory();
    }
}

void atEverySize(benchmark::internal::Benchmark *benchmark)
{
    for (const int side : {240, 480, 620, 2048})
        benchmark->Arg(side);
    benchmark->Unit(benchmark::kMicrosecond);
}

BENCHMARK(wheel)->Name("wheel")->Apply(atEverySize);
BENCHMARK(wheelScalar)->Name("wheel_scalar")->Apply(atEverySize);
BENCHMARK(wheelOpenCV)->Name("wheel_opencv")->Apply(atEverySize);
BENCHMARK(wheelQPainter)->Name("wheel_qpainter")->Apply(atEverySize);
BENCHMARK(fillMemory)->Name("memset")->Apply(atEverySize);
} // namespace
