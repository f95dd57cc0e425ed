// Picks a colour from anywhere on the screen, through the desktop's portal.
//
// Interface org.freedesktop.portal.Screenshot, from version 2 on; its documentation is part of
// xdg-desktop-portal.
#pragma once

#include <QColor>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QVariantMap>

class QWindow;

class ScreenColorPicker final : public QObject
{
    Q_OBJECT

public:
    /// Asks the desktop whether it can, without waiting for the answer.
    ScreenColorPicker();
    ~ScreenColorPicker() override;

    /// False until the desktop has said that it can, and again after it has failed to.
    bool isAvailable() const { return _isAvailable; }
    /// Lets the user pick; picked() tells what. Nothing while a pick is under way, or where none is
    /// available.
    void pick(const QWindow *parent);

signals:
    void availableChanged();
    /// Opaque. Nothing is emitted when the user gives up.
    void picked(const QColor &color);

private slots:
    void respond(uint response, const QVariantMap &results);

private:
    void setAvailable(bool isAvailable);
    bool listen(bool isOn);
    /// Calls `answered` with the reply, an error where there is none.
    void call(const QDBusMessage &message, int timeout,
              const std::function<void(const QDBusMessage &)> &answered);

    QDBusConnection _bus;
    bool _isAvailable = false;
    QString _request; // the object that stands for the pick under way
};
