// A finger on the colour wheel, each of its moves drawn at once, with the sign that says how well
// the colour can be read, beside the least that a magnifier could cost: two ready pictures that
// move over a third; and the same finger with the preview in the window, both its screens, one of
// which shows the passing colour.

#include "BenchApplication.h"
#include "HSColorPicker/window/BGHSLoupeLayer.h"
#include "HSColorPicker/window/HSColorPickerView.h"
#include "HSColorPicker/window/HSSelectionLayer.h"
#include "chooser/ContrastBadge.h"
#include "platform/QMLViews.h"
#include "preview/window/PreviewController.h"
#include "support/Canvas.h"
#include "theme/ColorText.h"

#include <QTest>

#include <benchmark/benchmark.h>
#include <cmath>

namespace
{
constexpr double scale = 2.0;
constexpr QRectF wheelFrame(5.0, 120.0, 310.0, 310.0);
constexpr int moves = 1000;

// Winds over the whole wheel, some 7 points a step. Whole points, in the wheel's coordinates.
QPoint finger(int move)
{
    const double angle = move * 0.07;
    const double radius = 70.0 + 68.0 * std::sin(move * 0.013);
    return QPointF(155.0 + radius * std::cos(angle), 155.0 + radius * std::sin(angle)).toPoint();
}

QPoint onWindow(QPoint point)
{
    return point + wheelFrame.topLeft().toPoint();
}

// What Qt Test calls for a touch, after sleeping for a millisecond.
void touch(QWindow &window, QEventPoint::State state, QPoint point)
{
    static QPointingDevice *const screen = QTest::createTouchDevice();
    qt_handleTouchEventv2(&window, screen,
                          {QEventPoint(0, state, point, window.mapToGlobal(point))});
}

// The loupe as it stays while the finger is down.
void endPopUp(HSColorPickerView &view)
{
    auto *popUp = view.findChild<QAbstractAnimation *>("cp_l_appear");
    popUp->setCurrentTime(popUp->duration());
}

template <typename AfterMove>
void dragOn(HSColorPickerView *view, Canvas &canvas, benchmark::State &state, AfterMove afterMove)
{
    touch(canvas.window(), QEventPoint::Pressed, onWindow(finger(0)));
    endPopUp(*view);
    canvas.draw();
    for (auto _ : state) {
        for (int move = 0; move < moves; ++move) {
            touch(canvas.window(), QEventPoint::Updated, onWindow(finger(move)));
            canvas.draw();
            afterMove();
            if (view->selection() != finger(move)) {
                state.SkipWithError("the touch was not handled before its frame");
                return;
            }
        }
    }
    touch(canvas.window(), QEventPoint::Released, onWindow(finger(0)));
    state.SetItemsProcessed(state.iterations() * moves);
}

// Does what the chooser and its editor do: the sign follows the colour, and whoever looks at the
// document is told of it in passing.
class Chooser : public HSColorPickerViewDelegate
{
public:
    Chooser(ThemeDocument &document, Canvas &canvas, QQmlEngine &engine)
        : _document(document),
          // On three balloons, both ends of each: no other element has as much to be read on.
          _index(document.elements().indexesOfKey(keyOf(PreviewElement::BalloonText)).at(0)),
          _sign(QMLViews::create(engine, "chooser/ContrastMark.qml",
                                 {{"contrast", QVariant::fromValue(&_contrast)}}))
    {
        _contrast.follow(document.elements(), _index);
        _sign->setParentItem(canvas.contentItem());
        _sign->setPosition({320.0 - _sign->width(), 70.0});
    }
    void colorPickerDidChangeSelection(HSColorPickerView &view) override
    {
        const QString text = hexStringForColor(view.selectionColor());
        _contrast.setColorText(text);
        _document.showPassingColor(_index, text);
    }
    QString said() const { return _sign->property("title").toString(); }

private:
    ThemeDocument &_document;
    const int _index;
    ContrastBadge _contrast;
    const std::unique_ptr<QQuickItem> _sign;
};

void drag(benchmark::State &state)
{
    prepareBenchApplication();
    QQmlEngine engine;
    QMLViews::prepareEngine(engine);
    Canvas canvas({320, 568}, scale);
    ThemeDocument document(ElementDataSource::loadWith(TINTLOOM_SOURCE_RESOURCES, nullptr));
    auto *view = HSColorPickerView::initWithFrame(wheelFrame, canvas.contentItem());
    const auto chooser = std::make_shared<Chooser>(document, canvas, engine);
    view->setDelegate(chooser);
    const QString before = chooser->said();
    // The sign and the preview keep to a display's pace: what waits for the clock has its turn,
    // too.
    dragOn(view, canvas, state, [] { QCoreApplication::processEvents(); });
    if (chooser->said() == before)
        state.SkipWithError("the sign did not follow");
}

void dragWithPreview(benchmark::State &state)
{
    prepareBenchApplication();
    QQmlEngine engine;
    QMLViews::prepareEngine(engine);
    Canvas canvas(QSize(1000, 660), scale);
    ThemeDocument document(ElementDataSource::loadWith(TINTLOOM_SOURCE_RESOURCES, nullptr));
    PreviewModel model;
    model.follow(&document);
    const auto pane = PreviewController::initPane(model);
    pane->loadViewIfNeeded(engine);
    pane->view()->setParentItem(canvas.contentItem());
    pane->view()->setPosition({320.0, 0.0});
    pane->view()->setSize({680.0, 660.0});
    auto *view = HSColorPickerView::initWithFrame(wheelFrame, canvas.contentItem());
    const auto chooser = std::make_shared<Chooser>(document, canvas, engine);
    view->setDelegate(chooser);
    const auto preview = [&] { return canvas.draw().copy(640, 0, 1360, 1320); };
    const QImage before = preview();
    const QString saidBefore = chooser->said();
    dragOn(view, canvas, state, [] { QCoreApplication::processEvents(); });
    if (preview() == before || chooser->said() == saidBefore)
        state.SkipWithError("the preview or the sign did not follow");
}

CALayer *addPicture(Canvas &canvas, const QImage &picture, QPointF position)
{
    auto *layer = new CALayer(canvas.contentItem());
    layer->setContents(picture);
    layer->setSize(picture.deviceIndependentSize());
    layer->setPosition(position);
    return layer;
}

QImage ringPicture()
{
    QImage picture(44, 44, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    picture.setDevicePixelRatio(scale);
    QPainter painter(&picture);
    HSSelectionLayer().drawInContext(painter, {0.0, 0.0, 22.0, 22.0});
    return picture;
}

QImage loupePicture()
{
    BGHSLoupeLayer loupe;
    loupe.setContentsScale(scale);
    return loupe.loupeImage();
}

void dragPlain(benchmark::State &state)
{
    prepareBenchApplication();
    Canvas canvas({320, 568}, scale);
    QImage wheel =
        HSColorPickerView::bitmapForDiameter(wheelFrame.width(), scale, 11.0, true)->image();
    wheel.setDevicePixelRatio(scale);
    addPicture(canvas, wheel, wheelFrame.topLeft());
    CALayer *ring = addPicture(canvas, ringPicture(), {});
    CALayer *loupe = addPicture(canvas, loupePicture(), {});
    canvas.draw();
    for (auto _ : state) {
        for (int move = 0; move < moves; ++move) {
            const QPoint point = onWindow(finger(move));
            ring->setPosition(point - QPoint(11, 11));
            loupe->setPosition(point - QPoint(48, 97));
            canvas.draw();
        }
    }
    state.SetItemsProcessed(state.iterations() * moves);
}

// Qt paints on threads of its own, whose time only the passing clock sees.
BENCHMARK(drag)->Name("drag")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(dragWithPreview)->Name("drag_with_preview")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(dragPlain)->Name("drag_plain")->Unit(benchmark::kMillisecond)->UseRealTime();
} // namespace
