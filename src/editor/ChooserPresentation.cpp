#include "editor/ChooserPresentation.h"

ChooserPresentation::ChooserPresentation(QObject *parent) : QObject(parent)
{
    _fade.setObjectName("fade");
    _fade.setDuration(300);
    _fade.setEasingCurve(QEasingCurve::InOutSine);
    _fade.setStartValue(1.0);
    _fade.setEndValue(0.0);
    connect(&_fade, &QVariantAnimation::valueChanged, this, [this](const QVariant &alpha) {
        if (isOpen())
            setAlpha(alpha.toDouble());
    });
    // Whether it came to its end or was stopped.
    connect(&_fade, &QAbstractAnimation::stateChanged, this,
            [this](QAbstractAnimation::State state) {
                if (state == QAbstractAnimation::Stopped)
                    remove();
            });
}

void ChooserPresentation::present(QQuickItem *screen, QQmlEngine &engine, const UIColor &color,
                                  NSIndexPath indexPath,
                                  std::shared_ptr<ColorPickerViewDelegate> delegate)
{
    if (!_chooser)
        _chooser = ColorPickerViewController::initWithColorSectionAndRow(color, indexPath.section,
                                                                         indexPath.row);
    _chooser->setDelegate(std::move(delegate));
    if (!_navigationController) {
        _navigationController = UINavigationController::initWithRootViewController(_chooser);
        _navigationController->setNavigationBarHidden(true);
    }
    _navigationController->loadViewIfNeeded(engine);
    QQuickItem *page = _navigationController->view();
    page->setSize(screen->size()); // first, or the chooser lays itself out for nothing
    page->setParentItem(screen);
    _navigationController->viewWillAppear(false);
    setAlpha(1.0);
    page->setEnabled(true);
    page->setFocus(true);
    _navigationController->viewDidAppear(false);
    emit openChanged();
}

void ChooserPresentation::setSize(QSizeF size)
{
    if (isOpen())
        _navigationController->view()->setSize(size);
}

void ChooserPresentation::setAlpha(double alpha)
{
    _navigationController->view()->setOpacity(alpha);
    _chooser->view()->setOpacity(alpha);
}

void ChooserPresentation::dismiss()
{
    if (!isOpen())
        return;
    _navigationController->view()->setEnabled(false);
    _fade.start();
}

void ChooserPresentation::remove()
{
    if (!isOpen())
        return;
    _navigationController->viewWillDisappear(false);
    _navigationController->view()->setParentItem(nullptr);
    _navigationController.reset();
    _chooser.reset();
    emit openChanged();
}
