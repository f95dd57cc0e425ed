// A translucent bar: the material of a toolbar, tinted, behind whatever stands in the view.
//
// Touches that nothing in the bar takes end here, so that they do not reach what shows through it.
// The mouse wheel goes on to what lies behind.
#pragma once

#include "platform/UIToolbar.h"
#include "platform/UIView.h"

#include <QPointer>

class BlurView : public UIView
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QColor blurTintColor READ blurTintColor WRITE setBlurTintColor FINAL)
    Q_PROPERTY(UIToolbar *toolbar READ toolbar WRITE setToolbar NOTIFY toolbarChanged FINAL)

public:
    explicit BlurView(QQuickItem *parent = nullptr);

    /// Puts the toolbar behind everything else; once, however often it is called.
    void setup();

    /// Always the invalid colour, as on the phone: the tint is the toolbar's alone.
    QColor blurTintColor() const { return {}; }
    /// Nothing without a toolbar.
    void setBlurTintColor(const QColor &color);
    /// What the tint and the bar's size go to; not owned when set, and null for none.
    UIToolbar *toolbar() const { return _toolbar; }
    void setToolbar(UIToolbar *toolbar);

    void layoutSubviews() override;

signals:
    void toolbarChanged();

protected:
    void mousePressEvent(QMouseEvent *) override {} // taken; a touch comes as one

private:
    QPointer<UIToolbar> _toolbar;
};
