#include "platform/ScreenColorPicker.h"

#include <QDBusArgument>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QRandomGenerator>
#include <QWindow>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace
{
const QString service = u"org.freedesktop.portal.Desktop"_s;
const QString desktop = u"/org/freedesktop/portal/desktop"_s;
const QString screenshot = u"org.freedesktop.portal.Screenshot"_s;
constexpr int soon = 3000;           // milliseconds, for an answer that takes no person
constexpr int whenever = 0x7FFFFFFF; // no limit

/// The session's bus. The library's own notion of it may start one where there is none.
QDBusConnection sessionBus(const QString &name)
{
    QString address = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS");
    if (address.isEmpty() && qEnvironmentVariableIsSet("XDG_RUNTIME_DIR"))
        address = "unix:path="_L1 + qEnvironmentVariable("XDG_RUNTIME_DIR") + "/bus"_L1;
    return address.isEmpty() ? QDBusConnection(QString())
                             : QDBusConnection::connectToBus(address, name);
}

/// How portals know a window; empty where they cannot.
QString handleOf(const QWindow *window)
{
    return window && QGuiApplication::platformName() == "xcb"_L1
               ? "x11:"_L1 + QString::number(window->winId(), 16)
               : QString();
}

std::optional<QColor> colorFrom(const QVariant &value)
{
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != "(ddd)"_L1)
        return std::nullopt;
    double red = 0.0, green = 0.0, blue = 0.0;
    argument.beginStructure();
    argument >> red >> green >> blue;
    argument.endStructure();
    const auto byte = [](double share) {
        return share >= 0.0 ? int(std::lround(std::min(share, 1.0) * 255.0)) : 0;
    };
    return QColor(byte(red), byte(green), byte(blue));
}
} // namespace

ScreenColorPicker::ScreenColorPicker()
    : _bus(sessionBus(u"screen-color-picker-%1"_s.arg(quintptr(this), 0, 16)))
{
    if (!_bus.isConnected())
        return;
    auto question = QDBusMessage::createMethodCall(service, desktop,
                                                   u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question << screenshot << u"version"_s;
    call(question, soon, [this](const QDBusMessage &answer) {
        const QDBusPendingReply<QDBusVariant> version(answer);
        setAvailable(!version.isError() && version.value().variant().toUInt() >= 2);
    });
}

ScreenColorPicker::~ScreenColorPicker()
{
    QDBusConnection::disconnectFromBus(_bus.name());
}

void ScreenColorPicker::call(const QDBusMessage &message, int timeout,
                             const std::function<void(const QDBusMessage &)> &answered)
{
    auto *const watcher = new QDBusPendingCallWatcher(_bus.asyncCall(message, timeout), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [=] {
        watcher->deleteLater();
        answered(watcher->reply());
    });
}

void ScreenColorPicker::setAvailable(bool isAvailable)
{
    if (std::exchange(_isAvailable, isAvailable) != isAvailable)
        emit availableChanged();
}

bool ScreenColorPicker::listen(bool isOn)
{
    const QString interface = u"org.freedesktop.portal.Request"_s;
    const char *const slot = SLOT(respond(uint, QVariantMap));
    return isOn ? _bus.connect(service, _request, interface, u"Response"_s, this, slot)
                : _bus.disconnect(service, _request, interface, u"Response"_s, this, slot);
}

void ScreenColorPicker::pick(const QWindow *parent)
{
    if (!_isAvailable || !_request.isEmpty())
        return;
    // The answer may come before the call returns, so it is listened for where it will come.
    const QString token = u"tintloom%1"_s.arg(QRandomGenerator::global()->generate());
    _request =
        desktop + "/request/"_L1 + _bus.baseService().sliced(1).replace(u'.', u'_') + u'/' + token;
    listen(true);
    auto question = QDBusMessage::createMethodCall(service, desktop, screenshot, u"PickColor"_s);
    question << handleOf(parent) << QVariantMap{{u"handle_token"_s, token}};
    call(question, whenever, [this](const QDBusMessage &answer) {
        if (answer.type() != QDBusMessage::ErrorMessage)
            return;
        listen(false);
        _request.clear();
        setAvailable(false);
    });
}

void ScreenColorPicker::respond(uint response, const QVariantMap &results)
{
    enum Response : uint { Done, Cancelled };
    listen(false);
    _request.clear();
    const auto color = colorFrom(results.value(u"color"_s));
    if (response == Done && color)
        emit picked(*color);
    else if (response != Cancelled)
        setAvailable(false);
}
