// The page that shows a theme which somebody has given to the program: how it looks, what it lacks,
// and what is unknown in it; to be kept, or not. Nothing has been changed before.
#pragma once

#include "library/OpenedTheme.h"
#include "library/window/NameEntry.h"
#include "platform/UIViewController.h"
#include "preview/window/PreviewModel.h"

class OpenController final : public UIViewController
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made where a theme is opened")
    Q_PROPERTY(QString title READ title CONSTANT FINAL)
    Q_PROPERTY(QString remarks READ remarks CONSTANT FINAL)
    Q_PROPERTY(PreviewModel *model READ model CONSTANT FINAL)
    Q_PROPERTY(NameEntry *entry READ entry CONSTANT FINAL)

public:
    struct Pending {
        std::optional<OpenedTheme> theme;
        PreviewPalette palette;
        QString name;    // proposed; it is free
        QString problem; // why there is no theme, a clause for people; else empty
    };
    /// What `open` opens, and how it looks. Any thread that may wait for another program.
    static Pending pending(const std::function<ThemeOpening(const ThemeOpener &)> &open,
                           const QString &resources, const QString &documents);
    /// Of one with a theme.
    static std::shared_ptr<OpenController> init(const Pending &pending);

    /// Lines.
    QString remarks() const { return _pending.theme->remarks().join(u'\n'); }
    PreviewModel *model() { return &_model; }
    NameEntry *entry() const { return _entry.get(); }
    const OpenedTheme &theme() const { return *_pending.theme; }
    /// Whether it is to be edited as well when the entry accepts a name.
    bool isToBeEdited() const { return _isToBeEdited; }

    Q_INVOKABLE void keepTapped();
    Q_INVOKABLE void keepAndEditTapped();

    void viewDidLoad() override;

signals:
    /// "Cancel" was pressed, or the page's button, or Escape.
    void closeTapped();

protected:
    const char *viewFile() const override { return "library/window/OpenView.qml"; }

private:
    explicit OpenController(const Pending &pending);

    const Pending _pending;
    PreviewModel _model;
    const std::shared_ptr<NameEntry> _entry;
    bool _isToBeEdited = false;
};
