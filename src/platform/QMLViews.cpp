#include "platform/QMLViews.h"

#include "platform/foundation/NSLog.h"

#include <QUrl>

extern void qml_register_types_Tintloom(); // generated for the QML module

namespace
{
QUrl urlOf(const char *file)
{
    return QUrl(QString("qrc:/qt/qml/Tintloom/%1").arg(file));
}
} // namespace

void QMLViews::prepareEngine(QQmlEngine &engine)
{
    static const bool registered = [] {
        qml_register_types_Tintloom();
        return true;
    }();
    Q_UNUSED(registered)
    engine.addImportPath("qrc:/qt/qml");
}

std::unique_ptr<QQmlComponent> QMLViews::readAhead(QQmlEngine &engine, const char *file)
{
    return std::make_unique<QQmlComponent>(&engine, urlOf(file), QQmlComponent::Asynchronous);
}

QObject *QMLViews::createObject(QQmlEngine &engine, const char *file, const QVariantMap &properties)
{
    QQmlComponent component(&engine, urlOf(file));
    // Qt 6.4 takes a component that has not loaded for one that has.
    QObject *object =
        component.isReady() ? component.createWithInitialProperties(properties) : nullptr;
    if (object)
        QQmlEngine::setObjectOwnership(object, QQmlEngine::CppOwnership);
    else
        NSLog("%@", {component.errorString()});
    return object;
}

QQuickItem *QMLViews::create(QQmlEngine &engine, const char *file, const QVariantMap &properties)
{
    QQmlComponent component(&engine, urlOf(file));
    auto *item = qobject_cast<QQuickItem *>(component.createWithInitialProperties(properties));
    if (!item)
        qFatal("%s", qPrintable(component.errorString()));
    QQmlEngine::setObjectOwnership(item, QQmlEngine::CppOwnership);
    return item;
}
