#include "views/BlurView.h"

BlurView::BlurView(QQuickItem *parent) : UIView(parent)
{
    setAcceptedMouseButtons(Qt::AllButtons);
    setup();
}

void BlurView::setup()
{
    setClip(true);
    if (_toolbar)
        return;
    _toolbar = new UIToolbar(this);
    _toolbar->setFrame(boundingRect());
    _toolbar->setZ(-1.0);
}

void BlurView::setBlurTintColor(const QColor &color)
{
    if (_toolbar)
        _toolbar->setBarTintColor(color);
}

void BlurView::setToolbar(UIToolbar *toolbar)
{
    if (_toolbar == toolbar)
        return;
    _toolbar = toolbar;
    emit toolbarChanged();
}

void BlurView::layoutSubviews()
{
    UIView::layoutSubviews();
    if (_toolbar)
        _toolbar->setFrame(boundingRect());
}
