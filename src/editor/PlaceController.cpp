#include "editor/PlaceController.h"

#include <cmath>

namespace
{
constexpr int shownSide = 1280; // pixels: enough for a preview, and quick to scale
constexpr double notch = 120.0;
constexpr double closerByNotch = 1.1;
constexpr double keyStep = 0.05; // of the screen
} // namespace

std::shared_ptr<PlaceController> PlaceController::init(ThemeDocument &document, PreviewModel &model,
                                                       int index, const ElementPicture &picture)
{
    return own(new PlaceController(document, model, index, picture));
}

PlaceController::PlaceController(ThemeDocument &document, PreviewModel &model, int index,
                                 const ElementPicture &picture)
    : _document(document),
      _model(&model),
      _index(index),
      _picture(picture),
      _start(picture),
      _whole(picture.whole(shownSide))
{
    model.setInteractive(false);
    place(picture);
}

PlaceController::~PlaceController()
{
    if (!_model)
        return;
    _model->showInstead({});
    _model->setInteractive(true);
}

void PlaceController::place(const ElementPicture &picture)
{
    _picture = picture;
    PreviewPalette palette = PreviewPalette::fromElements(_document.elements());
    palette.listPicture = _picture.shownOf(_whole, PreviewPalette::listPictureSize);
    if (_model)
        _model->showInstead(palette, tr("Not applied yet"));
}

void PlaceController::drag(bool isActive, double across, double down)
{
    if (isActive)
        place(_start.moved(_whole.size(), across, down));
}

void PlaceController::pinch(bool isActive, double scale)
{
    if (isActive)
        place(_start.closer(_whole.size(), scale));
}

void PlaceController::turnWheel(double turn)
{
    place(_picture.closer(_whole.size(), std::pow(closerByNotch, turn / notch)));
}

bool PlaceController::keyPressed(int key, Qt::KeyboardModifiers)
{
    begin();
    switch (key) {
    case Qt::Key_Left:
        drag(true, -keyStep, 0.0);
        return true;
    case Qt::Key_Right:
        drag(true, keyStep, 0.0);
        return true;
    case Qt::Key_Up:
        drag(true, 0.0, -keyStep);
        return true;
    case Qt::Key_Down:
        drag(true, 0.0, keyStep);
        return true;
    case Qt::Key_Plus:
        turnWheel(notch);
        return true;
    case Qt::Key_Minus:
        turnWheel(-notch);
        return true;
    default:
        return false;
    }
}

void PlaceController::applyTapped()
{
    if (const auto choice = _picture.choice())
        _document.changeAll({{_index, *choice}},
                            tr("Change %1").arg(_document.record(_index).name));
    emit closeTapped();
}
