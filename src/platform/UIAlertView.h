// An alert: a titled message over everything, with buttons, of which one must be pressed.
//
// Alerts queue up: the window shows the latest, and the one before it again when that is gone.
// Screens tell their alerts apart by the tag.
#pragma once

#include <QObject>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include <memory>

class UIAlertView;

class UIAlertViewDelegate
{
public:
    virtual ~UIAlertViewDelegate() = default;
    /// Button 0 is the first of buttonTitles. Sent once, after the alert has left the window.
    virtual void clickedButtonAtIndex(UIAlertView &alertView, int buttonIndex) = 0;
};

class UIAlertView : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Alerts are shown by controllers")
    Q_PROPERTY(QString title READ title CONSTANT FINAL)
    Q_PROPERTY(QString message READ message CONSTANT FINAL)
    Q_PROPERTY(QStringList buttonTitles READ buttonTitles CONSTANT FINAL)

public:
    /// The delegate may be empty and is not kept alive. The first button is the cancel button:
    /// Escape presses it.
    UIAlertView(const QString &title, const QString &message,
                std::weak_ptr<UIAlertViewDelegate> delegate, const QStringList &buttonTitles);

    QString title() const { return _title; }
    QString message() const { return _message; }
    QStringList buttonTitles() const { return _buttonTitles; }
    int tag() const { return _tag; }
    void setTag(int tag) { _tag = tag; }

    /// Puts the alert on the key window. Without a window there is nobody to tell: nothing happens.
    static void show(std::unique_ptr<UIAlertView> alertView);
    /// Takes the alert off its window and tells the delegate; an index without a button is ignored.
    Q_INVOKABLE void click(int buttonIndex);

signals:
    void dismissed();

private:
    const QString _title;
    const QString _message;
    const std::weak_ptr<UIAlertViewDelegate> _delegate;
    const QStringList _buttonTitles;
    int _tag = 0;
};
