// The page that asks for the name of a theme, to keep it or to rename it.
#pragma once

#include "library/window/NameEntry.h"
#include "platform/UIViewController.h"

class NameController final : public UIViewController
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made where a name is asked for")
    Q_PROPERTY(QString title READ title CONSTANT FINAL)
    Q_PROPERTY(QString verb READ verb CONSTANT FINAL)
    Q_PROPERTY(NameEntry *entry READ entry CONSTANT FINAL)

public:
    /// The verb is what the button says.
    static std::shared_ptr<NameController> init(const QString &title, const QString &verb,
                                                std::shared_ptr<NameEntry> entry);

    QString verb() const { return _verb; }
    NameEntry *entry() const { return _entry.get(); }

    void viewDidLoad() override;

signals:
    /// The page's button was pressed, or Escape.
    void closeTapped();

protected:
    const char *viewFile() const override { return "library/window/NameView.qml"; }

private:
    NameController(const QString &verb, std::shared_ptr<NameEntry> entry)
        : _verb(verb), _entry(std::move(entry))
    {
    }

    const QString _verb;
    const std::shared_ptr<NameEntry> _entry;
};
