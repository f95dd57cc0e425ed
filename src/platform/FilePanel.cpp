#include "platform/FilePanel.h"

#include "platform/QMLViews.h"
#include "platform/UIWindow.h"
#include "platform/foundation/NSLog.h"

#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlProperty>
#include <QQuickItem>
#include <QStandardPaths>

#include <algorithm>

namespace
{
QQuickItem *itemNamed(const QString &name, QQuickItem *in)
{
    if (in->objectName() == name)
        return in;
    for (QQuickItem *child : in->childItems())
        if (QQuickItem *found = itemNamed(name, child))
            return found;
    return nullptr;
}

/// Qt's own dialog is made for 600 points in width: in less there is no room for the filter beside
/// the buttons, and so much of it hides the files' dates. The buttons go below, and the dialog
/// grows as high as it can. Does nothing to a desktop's dialog.
void fitIntoNarrow(const UIWindow &window)
{
    constexpr int wideEnough = 600;
    QQuickItem *files = itemNamed(QStringLiteral("fileDialogListView"), window.contentItem());
    if (!files || window.width() >= wideEnough)
        return;
    QQmlContext *const dialog = qmlContext(files);
    const auto set = [dialog](const char *id, const char *property, const QVariant &value) {
        if (QObject *part = dialog->objectForName(QString::fromLatin1(id)))
            QQmlProperty::write(part, QString::fromLatin1(property), value, dialog);
    };
    constexpr int margin = 20; // Qt's
    set("nameFiltersComboBox", "Layout.columnSpan", 2);
    set("nameFiltersComboBox", "Layout.rightMargin", margin);
    set("buttonBox", "Layout.row", 2);
    set("buttonBox", "Layout.column", 0);
    set("buttonBox", "Layout.columnSpan", 3);
    set("buttonBox", "Layout.leftMargin", margin);
    set("buttonBox", "Layout.fillWidth", true);
    set("control", "height", std::min(window.height() - margin, wideEnough));
}
} // namespace

void FilePanel::open(QObject *owner, const QString &title, std::vector<Filter> filters,
                     Chosen chosen)
{
    (new FilePanel(owner, std::move(filters), std::move(chosen)))->show(title, {}, false);
}

void FilePanel::save(QObject *owner, const QString &title, const QString &name,
                     std::vector<Filter> filters, Chosen chosen)
{
    (new FilePanel(owner, std::move(filters), std::move(chosen)))->show(title, name, true);
}

FilePanel::~FilePanel()
{
    if (_dialog) // one that goes while it is up would leave the window dimmed
        QMetaObject::invokeMethod(_dialog, "close");
}

void FilePanel::show(const QString &title, const QString &name, bool saves)
{
    UIWindow *const window = UIWindow::keyWindow();
    QStringList filters;
    for (const Filter &filter : _filters)
        filters.append(QStringLiteral("%1 (%2)").arg(filter.title, filter.patterns.join(u' ')));
    // The plainest of the styles; whoever has set another keeps that.
    if (!qEnvironmentVariableIsSet("QT_QUICK_CONTROLS_STYLE"))
        qputenv("QT_QUICK_CONTROLS_STYLE", "Basic");
    QObject *const dialog =
        QMLViews::createObject(*qmlEngine(window->rootViewController()->view()),
                               saves ? "platform/SaveDialog.qml" : "platform/OpenDialog.qml",
                               {{"panel", QVariant::fromValue(this)},
                                {"parentWindow", QVariant::fromValue<QWindow *>(window)},
                                {"title", title},
                                {"nameFilters", filters}});
    if (!dialog) {
        deleteLater();
        return;
    }
    dialog->setParent(this);
    _dialog = dialog;
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    dialog->setProperty("currentFolder", QUrl::fromLocalFile(folder));
    if (saves) {
        dialog->setProperty("selectedFile",
                            QUrl::fromLocalFile(withEnding(folder + u'/' + name, 0)));
        constexpr int dontConfirmOverwrite = 4; // of QFileDialog, which the program does not link
        dialog->setProperty("options", dontConfirmOverwrite);
    }
    QMetaObject::invokeMethod(dialog, "open");
    fitIntoNarrow(*window);
}

QString FilePanel::withEnding(const QString &path, int filter) const
{
    const bool hasOne = std::ranges::any_of(_filters, [&](const Filter &known) {
        return !known.ending.isEmpty() && path.endsWith(known.ending, Qt::CaseInsensitive);
    });
    return hasOne || size_t(filter) >= _filters.size() ? path
                                                       : path + _filters[size_t(filter)].ending;
}

void FilePanel::accept(const QUrl &file, int filter)
{
    deleteLater();
    if (const QString path = file.toLocalFile(); !path.isEmpty())
        _chosen(withEnding(path, filter));
}
