#include "platform/CALayer.h"

#include "support/Canvas.h"

#include <QSGImageNode>

#include <gtest/gtest.h>

// Remembers what it last handed to the renderer.
struct LayerProbe : CALayer {
    using CALayer::CALayer;
    QSGNode *updatePaintNode(QSGNode *old, UpdatePaintNodeData *data) override
    {
        auto *node = static_cast<QSGImageNode *>(CALayer::updatePaintNode(old, data));
        texture = node->texture();
        return node;
    }
    const QSGTexture *texture = nullptr;
};

TEST(CALayerTest, UploadsItsPictureOncePerWindow)
{
    QImage red(20, 20, QImage::Format_ARGB32_Premultiplied);
    red.fill(Qt::red);
    Canvas canvas({40, 40}, 1.0), other({40, 40}, 1.0);
    LayerProbe layer(canvas.contentItem());
    layer.setContents(red);
    canvas.draw();
    const QSGTexture *uploaded = layer.texture;
    layer.update(); // whatever may ask for a frame
    canvas.draw();
    EXPECT_EQ(layer.texture, uploaded);
    layer.setParentItem(other.contentItem());
    EXPECT_EQ(other.draw().pixelColor(5, 5), QColor(Qt::red));
}
