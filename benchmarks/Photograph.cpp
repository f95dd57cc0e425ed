#include "Photograph.h"

#include <algorithm>
#include <cmath>
#include <random>

QImage photograph()
{
    QImage image(4000, 3000, QImage::Format_RGB32);
    std::mt19937 random(1);
    const struct {
        double x, y, radius;
        int red, green, blue;
    } things[] = {{0.2, 0.7, 0.15, 46, 110, 60},    {0.5, 0.8, 0.3, 120, 140, 70},
                  {0.8, 0.2, 0.06, 250, 210, 90},   {0.7, 0.6, 0.1, 180, 50, 40},
                  {0.35, 0.5, 0.05, 240, 240, 235}, {0.1, 0.9, 0.2, 90, 60, 40}};
    for (int row = 0; row < image.height(); ++row) {
        auto *const line = reinterpret_cast<QRgb *>(image.scanLine(row));
        for (int column = 0; column < image.width(); ++column) {
            const double x = column / 4000.0, y = row / 3000.0;
            double red = 90 + 90 * y, green = 140 + 50 * y, blue = 230 - 60 * y;
            for (const auto &thing : things) {
                const double away = std::hypot(x - thing.x, y - thing.y) / thing.radius;
                const double share = std::clamp(2.0 - 2.0 * away, 0.0, 1.0);
                red += (thing.red - red) * share;
                green += (thing.green - green) * share;
                blue += (thing.blue - blue) * share;
            }
            const int noise = int(random() % 25) - 12;
            const auto byte = [noise](double channel) {
                return std::clamp(int(channel) + noise, 0, 255);
            };
            line[column] = qRgb(byte(red), byte(green), byte(blue));
        }
    }
    return image;
}
