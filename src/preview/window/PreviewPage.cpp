#include "preview/window/PreviewPage.h"

void PreviewPage::setShownScreen(int screen)
{
    if (_shownScreen == screen)
        return;
    _shownScreen = screen;
    emit shownScreenChanged();
    place();
}

void PreviewPage::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    UIPage::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size() && _eyesSwitch)
        place();
}

void PreviewPage::place()
{
    const PreviewLayout layout = PreviewLayout::make(size());
    _caption->setFrame(layout.caption);
    _conversation->setFrame(layout.conversation);
    _messageList->setFrame(layout.messageList);
    _screenSwitch->setFrame(layout.screenSwitch);
    _eyesSwitch->setFrame(layout.eyesSwitch);
    _conversation->setVisible(layout.showsBoth() || _shownScreen == 0);
    _messageList->setVisible(layout.showsBoth() || _shownScreen == 1);
    _screenSwitch->setVisible(!layout.showsBoth());
}
