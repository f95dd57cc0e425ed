#include "support/EditorFixture.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QProcess>

namespace
{
/// A desktop's portal that picks what it is told to.
class Portal final : public QDBusVirtualObject
{
public:
    uint version = 2;
    uint response = 0;
    int picks = 0, questions = 0;

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &bus) override
    {
        if (message.member() == "Get") {
            ++questions;
            return bus.send(
                message.createReply(QVariant::fromValue(QDBusVariant(QVariant(version)))));
        }
        ++picks;
        const QString token =
            qdbus_cast<QVariantMap>(message.arguments()[1]).value("handle_token").toString();
        const QString path = message.path() + "/request/" +
                             message.service().sliced(1).replace('.', '_') + '/' + token;
        QDBusArgument color;
        color.beginStructure();
        color << 1.0 << 0.5 << 0.0;
        color.endStructure();
        auto answer =
            QDBusMessage::createSignal(path, "org.freedesktop.portal.Request", "Response");
        answer << response << QVariantMap{{"color", QVariant::fromValue(color)}};
        bus.send(answer); // before the call returns, as it may
        return bus.send(message.createReply(QVariant::fromValue(QDBusObjectPath(path))));
    }
};

struct PickFromScreenTest : EditorFixture {
    void SetUp() override
    {
        daemon.start("dbus-daemon", {"--session", "--nofork", "--print-address"});
        ASSERT_TRUE(daemon.waitForReadyRead());
        const QByteArray address = daemon.readLine().trimmed();
        qputenv("DBUS_SESSION_BUS_ADDRESS", address);
        bus.emplace(QDBusConnection::connectToBus(QString::fromLatin1(address), "portal"));
        ASSERT_TRUE(bus->registerVirtualObject("/org/freedesktop/portal/desktop", &portal));
        ASSERT_TRUE(bus->registerService("org.freedesktop.portal.Desktop"));
        writeDocument(QJsonArray{element("first", "All", "#00FF00FF")});
        start();
        tap(cell({0, 0}));
    }
    void TearDown() override
    {
        EditorFixture::TearDown();
        QDBusConnection::disconnectFromBus("portal");
        qputenv("DBUS_SESSION_BUS_ADDRESS", before);
        daemon.kill();
        daemon.waitForFinished();
    }
    UIViewController *page() { return window().presentedViewController(); }
    QQuickItem *button() { return page()->view()->findChild<QQuickItem *>("pickFromScreen"); }
    void openPage() { tap(chooser()->view()->findChild<QQuickItem *>("themeColors")); }
    bool isOfferedSoon()
    {
        return QTest::qWaitFor([this] { return button()->isVisible(); });
    }

    const QByteArray before = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    QProcess daemon;
    std::optional<QDBusConnection> bus;
    Portal portal;
};
} // namespace

TEST_F(PickFromScreenTest, ChoosesWhatTheDesktopPicked)
{
    openPage();
    ASSERT_TRUE(isOfferedSoon());
    portal.response = 1; // the user gave up
    tap(button());
    ASSERT_TRUE(QTest::qWaitFor([this] { return portal.picks == 1; }));
    settle();
    EXPECT_TRUE(page());
    portal.response = 0;
    EXPECT_TRUE(QTest::qWaitFor([this] {
        if (portal.picks == 1)
            tap(button()); // nothing while the first pick ends
        return !page();
    }));
    EXPECT_EQ(portal.picks, 2);
    EXPECT_EQ(chooser()->hexTextField()->text(), "#FF8000FF");
}

TEST_F(PickFromScreenTest, IsAbsentWhereTheDesktopCannot)
{
    openPage();
    ASSERT_TRUE(isOfferedSoon());
    portal.response = 2;
    tap(button());
    EXPECT_TRUE(QTest::qWaitFor([this] { return !button()->isVisible(); }));
    key(Qt::Key_Escape);
    EXPECT_EQ(chooser()->hexTextField()->text(), "#00FF00FF");

    portal.version = 1;
    const int asked = portal.questions;
    openPage();
    ASSERT_TRUE(QTest::qWaitFor([=, this] { return portal.questions > asked; }));
    settle();
    EXPECT_FALSE(button()->isVisible());
}
