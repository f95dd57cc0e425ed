// Makes the QML items that draw controllers, cells and alerts.
#pragma once

#include <QQmlEngine>
#include <QQuickItem>
#include <QVariantMap>

namespace QMLViews
{
/// Registers the program's types and lets the engine find its QML files. Once per engine.
void prepareEngine(QQmlEngine &engine);

/// An item from a QML file of the program ("editor/EditorView.qml") with its required properties
/// set; the caller owns it. A file that does not load is a fault of the build: it ends the program
/// with the engine's message.
QQuickItem *create(QQmlEngine &engine, const char *file, const QVariantMap &properties = {});
} // namespace QMLViews
