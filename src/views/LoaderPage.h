// The root of the QML file of the busy box: it covers a screen while something is going on.
#pragma once

#include "platform/UIPage.h"

class LoaderPage : public UIPage
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickItem *loadingView MEMBER loadingView FINAL REQUIRED)
    Q_PROPERTY(QQuickItem *loadingLabel MEMBER loadingLabel FINAL REQUIRED)
    Q_PROPERTY(QQuickItem *spinningIndicator MEMBER spinningIndicator FINAL REQUIRED)

public:
    using UIPage::UIPage;

    QQuickItem *loadingView = nullptr; ///< the box
    QQuickItem *loadingLabel = nullptr;
    QQuickItem *spinningIndicator = nullptr;
};
