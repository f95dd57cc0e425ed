// The page that places a picture behind the message list: a drag moves it, a pinch or the wheel
// brings it closer, keys do both. It fills the screen whatever is done.
//
// The previews show it at once; the document changes when it is applied, in one step, and never
// otherwise.
#pragma once

#include "platform/UIViewController.h"
#include "preview/window/PreviewModel.h"
#include "theme/ElementPicture.h"

#include <QPointer>

class PlaceController final : public UIViewController
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the editor")
    Q_PROPERTY(PreviewModel *model READ model CONSTANT FINAL)

public:
    /// The element is the one that the picture is for. The document must outlive the page.
    static std::shared_ptr<PlaceController> init(ThemeDocument &document, PreviewModel &model,
                                                 int index, const ElementPicture &picture);
    ~PlaceController() override;

    PreviewModel *model() const { return _model; }
    const ElementPicture &picture() const { return _picture; }

    // Gestures. What follows begin() starts from there.
    Q_INVOKABLE void begin() { _start = _picture; }
    /// How far since then, in widths and heights of the screen; nothing once the finger has left,
    /// when that may be reset.
    Q_INVOKABLE void drag(bool isActive, double across, double down);
    /// How much closer since then; likewise.
    Q_INVOKABLE void pinch(bool isActive, double scale);
    /// By so much of a turn of the wheel, 120 a notch.
    Q_INVOKABLE void turnWheel(double turn);
    Q_INVOKABLE void applyTapped();

    /// Arrows move, plus and minus bring closer and away.
    bool keyPressed(int key, Qt::KeyboardModifiers modifiers) override;

signals:
    /// The page is done with, applied or not.
    void closeTapped();

protected:
    const char *viewFile() const override { return "editor/PlaceView.qml"; }

private:
    PlaceController(ThemeDocument &document, PreviewModel &model, int index,
                    const ElementPicture &picture);
    void place(const ElementPicture &picture);

    ThemeDocument &_document;
    const QPointer<PreviewModel> _model;
    const int _index;
    ElementPicture _picture;
    ElementPicture _start;
    const QImage _whole;
};
