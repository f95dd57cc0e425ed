// An action sheet: a title and a column of buttons that comes up from the window's lower edge, one
// of which must be pressed.
//
// Made, filled with buttons, then shown; the window keeps it until a button is clicked. Screens
// tell what a click means by the buttons' titles.
#pragma once

#include <QObject>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include <memory>

class UIActionSheet;
class UIWindow;

class UIActionSheetDelegate
{
public:
    virtual ~UIActionSheetDelegate() = default;
    /// Sent once, after the sheet has left the window.
    virtual void clickedButtonAtIndex(UIActionSheet &actionSheet, int buttonIndex) = 0;
};

class UIActionSheet : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Action sheets are shown by controllers")
    Q_PROPERTY(QString title READ title CONSTANT FINAL)
    Q_PROPERTY(QStringList buttonTitles READ buttonTitles CONSTANT FINAL)
    Q_PROPERTY(int cancelButtonIndex READ cancelButtonIndex CONSTANT FINAL)

public:
    /// The delegate may be empty and is not kept alive.
    UIActionSheet(const QString &title, std::weak_ptr<UIActionSheetDelegate> delegate);

    QString title() const { return _title; }
    const QStringList &buttonTitles() const { return _buttonTitles; }
    /// The new button's index, from 0 at the top. Before the sheet is shown.
    int addButtonWithTitle(const QString &title);
    QString buttonTitleAtIndex(int buttonIndex) const { return _buttonTitles.value(buttonIndex); }
    /// The button that Escape and a press beside the sheet stand for; -1 for none.
    int cancelButtonIndex() const { return _cancelButtonIndex; }
    void setCancelButtonIndex(int buttonIndex) { _cancelButtonIndex = buttonIndex; }
    int tag() const { return _tag; }
    void setTag(int tag) { _tag = tag; }

    /// Without a window there is nobody to ask: nothing happens.
    static void showInWindow(std::unique_ptr<UIActionSheet> actionSheet, UIWindow *window);
    /// Takes the sheet off its window and tells the delegate; an index without a button is ignored.
    Q_INVOKABLE void click(int buttonIndex);

signals:
    void dismissed();

private:
    const QString _title;
    const std::weak_ptr<UIActionSheetDelegate> _delegate;
    QStringList _buttonTitles;
    int _cancelButtonIndex = -1;
    int _tag = 0;
};
