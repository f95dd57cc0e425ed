// Asking for a file: the desktop's own dialog where there is one, else one inside the window.
//
// The dialogs come from a QML module that is loaded when the first one is needed: every start would
// wait for it.
#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <vector>

/// One question, asked of the key window. It goes when it has been answered.
class FilePanel final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made where a file is asked for")

public:
    /// What people may choose from.
    struct Filter {
        QString title;
        QStringList patterns; // for names of files: "*.zip"
        QString ending = {};  // of files to be saved; a name without one of these gets it
    };
    using Chosen = std::function<void(const QString &path)>;

    /// Both come back at once, and call `chosen` with an absolute path when one has been chosen,
    /// unless the owner is gone by then. The log says when there can be no dialog.
    static void open(QObject *owner, const QString &title, std::vector<Filter> filters,
                     Chosen chosen);
    /// Starts from that name. Does not ask whether to overwrite.
    static void save(QObject *owner, const QString &title, const QString &name,
                     std::vector<Filter> filters, Chosen chosen);

    ~FilePanel() override;

    // The dialog's answers.
    Q_INVOKABLE void accept(const QUrl &file, int filter);
    Q_INVOKABLE void reject() { deleteLater(); }

private:
    FilePanel(QObject *owner, std::vector<Filter> filters, Chosen chosen)
        : QObject(owner), _filters(std::move(filters)), _chosen(std::move(chosen))
    {
    }
    void show(const QString &title, const QString &name, bool saves);
    QString withEnding(const QString &path, int filter) const;

    const std::vector<Filter> _filters;
    const Chosen _chosen;
    QPointer<QObject> _dialog;
};
