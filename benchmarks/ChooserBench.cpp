// From the tap on a colour row to the chooser's first drawn frame, beside the same page made of
// Qt's own items. The wheel's bitmap is there already, on both sides.

#include "BenchApplication.h"
#include "HSColorPicker/window/HSColorPickerView.h"
#include "QuietLog.h"
#include "editor/CustomViewController.h"
#include "platform/QMLViews.h"
#include "support/Canvas.h"

#include <QAbstractAnimation>
#include <QQmlComponent>
#include <QQuickImageProvider>
#include <QTemporaryDir>
#include <QTest>

#include <benchmark/benchmark.h>
#include <functional>
#include <memory>

namespace
{
constexpr double scale = 2.0;
constexpr QSize phone(320, 568);
constexpr QPointF row(200.0, 73.0); // the editor's first

void tapAndDraw(Canvas &canvas)
{
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        const auto held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
        QMouseEvent event(type, row, row, Qt::LeftButton, held, {});
        QCoreApplication::sendEvent(&canvas.window(), &event);
    }
    canvas.draw();
}

void openChooser(benchmark::State &state)
{
    prepareBenchApplication();
    const QuietLog quiet;
    const QTemporaryDir folder;
    QQmlEngine engine;
    QMLViews::prepareEngine(engine);
    Canvas canvas(phone, scale);
    const auto editor = CustomViewController::initFromAppDelegate(
        {TINTLOOM_SOURCE_RESOURCES, {folder.filePath("root"), folder.filePath("documents")}});
    editor->loadViewIfNeeded(engine);
    editor->view()->setParentItem(canvas.contentItem());
    editor->view()->setSize(phone);
    editor->viewWillAppear(false);
    canvas.draw();
    auto *fade = editor->findChild<QAbstractAnimation *>("fade");
    const auto close = [&] {
        editor->dismissWithNoChange();
        fade->setCurrentTime(fade->duration());
        canvas.draw();
    };
    tapAndDraw(canvas); // reads the page's files, once
    for (auto _ : state) {
        state.PauseTiming();
        close();
        state.ResumeTiming();
        tapAndDraw(canvas);
        if (!editor->colorPickerView()) {
            state.SkipWithError("the tap did not open the chooser");
            break;
        }
    }
    editor->prepareForTermination();
}

class WheelProvider : public QQuickImageProvider
{
public:
    WheelProvider() : QQuickImageProvider(Image) {}
    QImage requestImage(const QString &id, QSize *size, const QSize &) override
    {
        QImage wheel =
            HSColorPickerView::bitmapForDiameter(id.toDouble(), scale, 11.0, true)->image();
        wheel.setDevicePixelRatio(scale);
        *size = wheel.size();
        return wheel;
    }
};

// Takes the tap in the editor's place.
class TapArea : public QQuickItem
{
public:
    TapArea(QQuickItem *parent, std::function<void()> tapped)
        : QQuickItem(parent), _tapped(std::move(tapped))
    {
        setSize(parent->size());
        setAcceptedMouseButtons(Qt::LeftButton);
    }

protected:
    void mousePressEvent(QMouseEvent *) override {}
    void mouseReleaseEvent(QMouseEvent *) override { _tapped(); }

private:
    const std::function<void()> _tapped;
};

void openPlain(benchmark::State &state)
{
    prepareBenchApplication();
    QQmlEngine engine;
    engine.addImageProvider("wheel", new WheelProvider);
    Canvas canvas(phone, scale);
    std::unique_ptr<QQuickItem> page;
    const TapArea list(canvas.contentItem(), [&] {
        QQmlComponent component(&engine, QUrl("qrc:/PlainChooser.qml"));
        page.reset(qobject_cast<QQuickItem *>(component.create()));
        page->setParentItem(canvas.contentItem());
        page->setSize(phone);
    });
    tapAndDraw(canvas); // reads the page's files, once
    for (auto _ : state) {
        state.PauseTiming();
        page.reset();
        canvas.draw();
        state.ResumeTiming();
        tapAndDraw(canvas);
        if (!page) {
            state.SkipWithError("the tap did not open the page");
            break;
        }
    }
}

BENCHMARK(openChooser)->Name("open_chooser")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(openPlain)->Name("open_chooser_plain")->Unit(benchmark::kMillisecond)->UseRealTime();
} // namespace
