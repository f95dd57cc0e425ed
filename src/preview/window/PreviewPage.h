// The root of a preview's QML file.
#pragma once

#include "platform/UIPage.h"
#include "platform/UIView.h"
#include "preview/window/PreviewItem.h"
#include "preview/window/PreviewLayout.h"

class PreviewPage : public UIPage
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(UIView *caption MEMBER _caption FINAL REQUIRED)
    Q_PROPERTY(UIView *conversation MEMBER _conversation FINAL REQUIRED)
    Q_PROPERTY(UIView *messageList MEMBER _messageList FINAL REQUIRED)
    Q_PROPERTY(UIView *screenSwitch MEMBER _screenSwitch FINAL REQUIRED)
    Q_PROPERTY(UIView *eyesSwitch MEMBER _eyesSwitch FINAL REQUIRED)
    /// 0 the conversation, 1 the message list; which one is shown where not both are.
    Q_PROPERTY(
        int shownScreen READ shownScreen WRITE setShownScreen NOTIFY shownScreenChanged FINAL)

public:
    using UIPage::UIPage;

    int shownScreen() const { return _shownScreen; }
    void setShownScreen(int screen);

signals:
    void shownScreenChanged();

protected:
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;

private:
    void place();

    UIView *_caption = nullptr;
    UIView *_conversation = nullptr;
    UIView *_messageList = nullptr;
    UIView *_screenSwitch = nullptr;
    UIView *_eyesSwitch = nullptr;
    int _shownScreen = 0;
};
