// A translucent bar: the material of a toolbar, tinted, behind whatever stands in the view.
#pragma once

#include "platform/UIToolbar.h"
#include "platform/UIView.h"

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

    /// Always the invalid colour: the tint is the toolbar's, and is not kept here as well.
    QColor blurTintColor() const { return {}; }
    void setBlurTintColor(const QColor &color);
    UIToolbar *toolbar() const { return _toolbar; }
    void setToolbar(UIToolbar *toolbar);

    void layoutSubviews() override;

signals:
    void toolbarChanged();

private:
    UIToolbar *_toolbar = nullptr;
};
