// Linked into a second copy of Tintloom itself: ends the process once the first frame is on the
// screen, so that its run time is its start time.
#include <QCoreApplication>
#include <QEvent>
#include <QQuickWindow>

#include <cstdlib>

namespace
{
class FirstFrameWatch : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject *object, QEvent *event) override
    {
        auto *window = qobject_cast<QQuickWindow *>(object);
        if (window && event->type() == QEvent::Show)
            QObject::connect(window, &QQuickWindow::frameSwapped, window, [] { std::_Exit(0); });
        return false;
    }
};

void watch()
{
    qApp->installEventFilter(new FirstFrameWatch(qApp));
}
} // namespace

Q_COREAPP_STARTUP_FUNCTION(watch)
