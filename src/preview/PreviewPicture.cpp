#include "preview/PreviewPicture.h"

#include <QPainter>

#include <cmath>

QImage previewPicture(const PreviewPalette &palette, PreviewView view, double scale)
{
    constexpr double gap = 16.0;
    constexpr QSizeF screen = PreviewScene::screenSize;
    const bool both = view == PreviewView::Both;
    const QSizeF size(both ? 2.0 * screen.width() + gap : screen.width(), screen.height());
    QImage picture(int(std::lround(size.width() * scale)), int(std::lround(size.height() * scale)),
                   both ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    if (picture.isNull())
        return picture;
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    const PreviewScene scene(palette);
    QPainter painter(&picture);
    if (view != PreviewView::MessageList)
        scene.paint(painter, PreviewScreen::Conversation, palette);
    if (both)
        painter.translate(screen.width() + gap, 0.0);
    if (view != PreviewView::Conversation)
        scene.paint(painter, PreviewScreen::MessageList, palette);
    return picture;
}
