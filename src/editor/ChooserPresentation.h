// The colour chooser over a screen: there at once, and gone by a fade of 0.3 seconds.
//
// The chooser stands in a navigation stack of its own, whose view covers the screen's. From its
// dismissal on it takes no input, but it swallows what is meant for the screen until it is gone.
#pragma once

#include "chooser/ColorPickerViewController.h"
#include "platform/UINavigationController.h"
#include "platform/foundation/NSIndexPath.h"

#include <QVariantAnimation>

#include <memory>

class ChooserPresentation final : public QObject
{
    Q_OBJECT

public:
    explicit ChooserPresentation(QObject *parent);

    /// From the presentation until the chooser has faded out.
    bool isOpen() const { return _navigationController != nullptr; }
    /// Null while none is open.
    ColorPickerViewController *chooser() const { return _chooser.get(); }

    /// Covers the screen with a chooser that starts from the colour. One that is open already is
    /// shown again as it is.
    void present(QQuickItem *screen, QQmlEngine &engine, const UIColor &color,
                 NSIndexPath indexPath, std::shared_ptr<ColorPickerViewDelegate> delegate);
    /// Follows the screen's size.
    void setSize(QSizeF size);
    /// Fades the chooser out and drops it. Nothing while none is open.
    void dismiss();
    /// Drops it without a fade.
    void remove();

signals:
    void openChanged();

private:
    void setAlpha(double alpha);

    std::shared_ptr<ColorPickerViewController> _chooser;
    std::shared_ptr<UINavigationController> _navigationController;
    QVariantAnimation _fade{this}; // named "fade"
};
