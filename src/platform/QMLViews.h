// Makes the QML items that draw controllers, cells and alerts.
#pragma once

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QVariantMap>

#include <memory>

namespace QMLViews
{
/// Registers the program's types and lets the engine find its QML files. Once per engine.
void prepareEngine(QQmlEngine &engine);

/// Begins to read a file on another thread, and with the first file Qt Quick's own types, which is
/// most of the work. The engine must outlive what is returned.
std::unique_ptr<QQmlComponent> readAhead(QQmlEngine &engine, const char *file);

/// An item from a QML file of the program ("editor/EditorView.qml") with its required properties
/// set; the caller owns it. A file that does not load is a fault of the build: it ends the program
/// with the engine's message.
QQuickItem *create(QQmlEngine &engine, const char *file, const QVariantMap &properties = {});

/// The same of a file whose root is no item, or that uses what may not be installed: null where it
/// does not load, which the log says.
QObject *createObject(QQmlEngine &engine, const char *file, const QVariantMap &properties);
} // namespace QMLViews
