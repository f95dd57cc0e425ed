// The scene: two screens of the themed phone, 320 x 568 points each, as everything shows them that
// shows a theme: the window, the catalogue's pictures, the command line.
//
//   PreviewPalette   the choices of a theme
//     -> PreviewInks     the colours to paint with, stand-ins for removed ones among them
//     -> PreviewSketch   the shapes, and whose element each is; text is laid out here
//   PreviewScene     paints the shapes in the inks, and finds elements and their outlines
//
// A scene is made for corners, text size and photos, and serves every palette that has the same;
// colours do not concern its layout. It needs a QGuiApplication for its fonts, and belongs to the
// thread that made it.
#pragma once

#include "preview/PreviewInks.h"
#include "preview/PreviewSketch.h"

#include <QPainterPath>
#include <QRegion>
#include <QSizeF>

#include <array>
#include <optional>
#include <vector>

class QPainter;

class PreviewScene
{
public:
    static constexpr QSizeF screenSize{PreviewSketch::width, PreviewSketch::height};

    explicit PreviewScene(const PreviewPalette &layout);

    /// False when the palette needs a scene of its own, because it lays text out otherwise.
    bool suits(const PreviewPalette &palette) const { return palette.hasLayoutOf(_layout); }

    /// Paints a screen from the origin on, one unit of the painter to a point; every pixel of it
    /// becomes opaque. With a region, in points, only what lies in there is painted.
    void paint(QPainter &painter, PreviewScreen screen, const PreviewPalette &palette,
               const QRegion &region = {}) const;

    /// What of a screen has to be painted anew when one palette takes the place of another; in
    /// points, a little more than what changes. The whole screen if the scene does not suit both.
    QRegion touched(PreviewScreen screen, const PreviewPalette &before,
                    const PreviewPalette &after) const;

    /// The key of the element on top at a point. Nothing beside the screen.
    std::optional<QString> keyAt(PreviewScreen screen, QPointF point) const;

    /// All places of an element on a screen; empty for a key that is not shown there.
    QPainterPath outline(PreviewScreen screen, const QString &key) const;

    struct Part {
        QString key;
        QPainterPath outline;
    };
    /// Every element that is on the screen, once, from top to bottom.
    std::vector<Part> parts(PreviewScreen screen) const;

private:
    const PreviewSketch &sketch(PreviewScreen screen) const { return _sketches[size_t(screen)]; }
    QPainterPath outline(PreviewScreen screen, PreviewElement element) const;

    PreviewPalette _layout;
    std::array<PreviewSketch, 2> _sketches;
};
