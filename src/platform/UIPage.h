// The root item of a screen's QML file: a focus scope. A screen whose controller needs parts of it
// by hand derives its own, with a required property for each part, so that a part that was renamed
// ends the program when the file is loaded, not when somebody looks for it.
#pragma once

#include <QQuickItem>

class UIPage : public QQuickItem
{
    Q_OBJECT
    QML_ANONYMOUS

public:
    explicit UIPage(QQuickItem *parent = nullptr) : QQuickItem(parent)
    {
        setFlag(ItemIsFocusScope);
    }
};
