#include "platform/CALayer.h"

#include "support/Canvas.h"

#include <QSGImageNode>

#include <gtest/gtest.h>

namespace
{
// Remembers what it last handed to the renderer.
class Probe : public CALayer
{
public:
    using CALayer::CALayer;

    const QSGTexture *texture = nullptr;

protected:
    QSGNode *updatePaintNode(QSGNode *old, UpdatePaintNodeData *data) override
    {
        auto *node = static_cast<QSGImageNode *>(CALayer::updatePaintNode(old, data));
        texture = node ? node->texture() : nullptr;
        return node;
    }
};

QImage picture(QRgb color)
{
    QImage image(20, 20, QImage::Format_ARGB32_Premultiplied);
    image.fill(color);
    image.setDevicePixelRatio(2.0);
    return image;
}
} // namespace

TEST(CALayerTest, UploadsAPictureOnceUntilThereIsAnother)
{
    constexpr QRgb red = qRgb(255, 0, 0), blue = qRgb(0, 0, 255);
    Canvas canvas({40, 40}, 2.0), other({40, 40}, 2.0);
    Probe layer(canvas.contentItem());
    EXPECT_EQ(canvas.draw().pixel(0, 0), 0U);
    layer.setContents(picture(red));
    EXPECT_EQ(canvas.draw().pixel(19, 19), red);
    EXPECT_EQ(canvas.draw().pixel(20, 20), 0U) << "at its own scale";

    const QSGTexture *uploaded = layer.texture;
    layer.setPosition({5, 5});
    layer.setSize({10, 10});
    layer.update(); // whatever else may ask for a frame
    canvas.draw();
    EXPECT_EQ(layer.texture, uploaded);
    layer.setContents(picture(blue));
    EXPECT_EQ(canvas.draw().pixel(12, 12), blue);
    EXPECT_NE(layer.texture, uploaded);

    layer.setParentItem(other.contentItem());
    EXPECT_EQ(other.draw().pixel(12, 12), blue) << "another window needs a texture of its own";
    layer.setContents({});
    EXPECT_EQ(other.draw().pixel(12, 12), 0U);
}
