#include "preview/PreviewScene.h"

#include <QPainter>

#include <algorithm>

namespace
{
constexpr QRect wholeScreen(0, 0, int(PreviewSketch::width), int(PreviewSketch::height));

/// With room for soft edges.
QRect pixelsOf(const PreviewShape &shape)
{
    return shape.bounds.toAlignedRect().adjusted(-1, -1, 1, 1);
}
} // namespace

PreviewScene::PreviewScene(const PreviewPalette &layout)
    : _layout(layout), _sketches{sketchedConversation(layout), sketchedMessageList(layout)}
{
}

void PreviewScene::paint(QPainter &painter, PreviewScreen screen, const PreviewPalette &palette,
                         const QRegion &region) const
{
    const PreviewInks inks(palette, screen);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(wholeScreen, Qt::IntersectClip);
    if (!region.isEmpty())
        painter.setClipRegion(region, Qt::IntersectClip);
    for (const PreviewShape &shape : sketch(screen).shapes()) {
        if (region.isEmpty() || region.intersects(pixelsOf(shape)))
            paintShape(painter, shape, inks[shape.ink]);
        if (shape.ink == PreviewInk::Ground && screen == PreviewScreen::MessageList &&
            !palette.listPicture.isNull()) {
            painter.setRenderHint(QPainter::SmoothPixmapTransform);
            painter.drawImage(QRectF({}, screenSize), palette.listPicture);
        }
    }
    painter.restore();
}

QRegion PreviewScene::touched(PreviewScreen screen, const PreviewPalette &before,
                              const PreviewPalette &after) const
{
    const bool hasSamePicture = screen != PreviewScreen::MessageList ||
                                before.listPicture.cacheKey() == after.listPicture.cacheKey();
    if (!suits(before) || !suits(after) || !hasSamePicture)
        return wholeScreen;
    const PreviewInks old(before, screen);
    const PreviewInks now(after, screen);
    QRegion region;
    for (const PreviewShape &shape : sketch(screen).shapes()) {
        if (old[shape.ink] != now[shape.ink])
            region += pixelsOf(shape);
    }
    return region & wholeScreen;
}

std::optional<QString> PreviewScene::keyAt(PreviewScreen screen, QPointF point) const
{
    const auto &areas = sketch(screen).areas();
    const auto top = std::find_if(areas.rbegin(), areas.rend(), [point](const PreviewArea &area) {
        return area.takesPoints && area.path.contains(point);
    });
    return top == areas.rend() ? std::nullopt : std::optional(keyOf(top->element));
}

QPainterPath PreviewScene::outline(PreviewScreen screen, PreviewElement element) const
{
    QPainterPath whole;
    whole.setFillRule(Qt::WindingFill);
    for (const PreviewArea &area : sketch(screen).areas()) {
        if (area.element == element && area.isOutlined)
            whole.addPath(area.path); // no two of them overlap
    }
    return whole;
}

QPainterPath PreviewScene::outline(PreviewScreen screen, const QString &key) const
{
    const auto element = previewElementOf(key);
    return element ? outline(screen, *element) : QPainterPath();
}

std::vector<PreviewScene::Part> PreviewScene::parts(PreviewScreen screen) const
{
    std::vector<Part> parts;
    for (int index = 0; index < previewElementCount; ++index) {
        const QPainterPath path = outline(screen, PreviewElement(index));
        if (!path.isEmpty())
            parts.push_back({keyOf(PreviewElement(index)), path});
    }
    std::ranges::stable_sort(parts, {}, [](const Part &part) {
        const QRectF bounds = part.outline.boundingRect();
        return std::pair(bounds.top(), bounds.left());
    });
    return parts;
}
