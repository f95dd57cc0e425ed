// The least that a start can take: an empty window that imports the same modules, up to its first
// frame.
#include <QGuiApplication>
#include <QQuickView>

#include <cstdlib>

int main(int argc, char **argv)
{
    const QGuiApplication app(argc, argv);
    QQuickView view(QUrl("qrc:/startup_empty.qml"));
    view.resize(320, 568);
    QObject::connect(&view, &QQuickWindow::frameSwapped, &view, [] { std::_Exit(0); });
    view.show();
    return QGuiApplication::exec();
}
