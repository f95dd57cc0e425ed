// The wheel as OpenGL draws it.
#include "HSColorPicker/ColorPickerClasses/HSColorPickerView.h"

#include "support/WheelChecks.h"

#include <QQuickWindow>
#include <QTest>

namespace
{
constexpr QRgb ground = qRgb(250, 120, 10);

class HSColorPickerViewGLTest : public testing::Test
{
protected:
    void SetUp() override
    {
        window.setColor(ground);
        window.resize(200, 200);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        ASSERT_EQ(QQuickWindow::graphicsApi(), QSGRendererInterface::OpenGL);
        view = HSColorPickerView::initWithFrame({0, 0, 200, 200}, window.contentItem());
    }

    QQuickWindow window;
    HSColorPickerView *view = nullptr;
};

TEST_F(HSColorPickerViewGLTest, ShowsTheReferencePixels)
{
    for (const bool circle : {false, true}) {
        view->setCropToCircle(circle);
        for (const double brightness : {1.0, 0.0}) {
            SCOPED_TRACE(testing::Message() << "circle " << circle << ", " << brightness);
            view->setBrightness(brightness);
            WheelChecks::expectWheel(window.grabWindow(), *view, ground);
        }
    }
}

} // namespace
