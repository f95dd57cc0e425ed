#include "platform/FilePanel.h"

#include "platform/QMLViews.h"
#include "platform/UIWindow.h"
#include "platform/foundation/NSLog.h"

#include <QQmlEngine>
#include <QStandardPaths>

#include <algorithm>

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
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (saves) {
        dialog->setProperty("selectedFile",
                            QUrl::fromLocalFile(withEnding(folder + u'/' + name, 0)));
        constexpr int dontConfirmOverwrite = 4; // of QFileDialog, which the program does not link
        dialog->setProperty("options", dontConfirmOverwrite);
    }
    QMetaObject::invokeMethod(dialog, "open");
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
