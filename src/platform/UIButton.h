// What all buttons have in common: a title, the pressed state, and the message when a press ends
// inside. How one looks is up to its QML.
//
// A press takes no keyboard focus, so that tapping a button does not end an edit elsewhere; Tab
// reaches it, and then Return and Space press it.
//
// Not the button of Qt Quick Controls: the templates of its button and its slider alone make the
// first frame of an empty page take 1.59 times as long, and nothing of them would be seen.
#pragma once

#include "platform/UIView.h"

class UIButton : public UIView
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString title READ title WRITE setTitle NOTIFY titleChanged FINAL)
    Q_PROPERTY(bool usable READ isUsable WRITE setUsable NOTIFY usableChanged FINAL)
    Q_PROPERTY(bool pressed READ isPressed NOTIFY pressedChanged FINAL)

public:
    explicit UIButton(QQuickItem *parent = nullptr);

    QString title() const { return _title; }
    void setTitle(const QString &title);
    /// Whether the button itself can be pressed; true unless set. Looks go by this and not by
    /// `enabled`, which is false also while a page around the button takes no input.
    bool isUsable() const { return _isUsable; }
    void setUsable(bool usable);
    /// A finger or the mouse is down and inside.
    bool isPressed() const { return _isPressed; }

signals:
    void titleChanged();
    void usableChanged();
    void pressedChanged();
    void touchUpInside();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseUngrabEvent() override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void setPressed(bool pressed);

    QString _title;
    bool _isUsable = true;
    bool _isPressed = false;
};
