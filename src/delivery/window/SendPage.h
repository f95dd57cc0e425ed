// The root of the QML file of the page that sends themes.
#pragma once

#include "delivery/window/SecretField.h"
#include "platform/UIPage.h"
#include "platform/UITableView.h"

class SendPage : public UIPage
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(UITableView *table MEMBER table FINAL REQUIRED)
    Q_PROPERTY(SecretField *secret MEMBER secret FINAL REQUIRED)
    Q_PROPERTY(QQuickItem *form MEMBER form FINAL REQUIRED)
    Q_PROPERTY(QQuickItem *mainButton MEMBER mainButton FINAL REQUIRED)
    Q_PROPERTY(QQuickItem *otherButton MEMBER otherButton FINAL REQUIRED)

public:
    using UIPage::UIPage;

    UITableView *table = nullptr;
    SecretField *secret = nullptr;
    QQuickItem *form = nullptr; // a focus scope
    QQuickItem *mainButton = nullptr;
    QQuickItem *otherButton = nullptr;
};
