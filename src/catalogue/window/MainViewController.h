// The catalogue: ready-made themes by section, one of them marked as installed. A tap installs a
// theme, a long press sends it to the editor, and the rows of the section "Custom" open the editor.
//
// File work goes over two queues, like the editor's: the catalogue's own serial queue empties the
// folders, then the main thread copies. In between a busy box keeps the list still.
//
// The catalogue and the editor that it has opened hold each other; the end of the program parts
// them.
#pragma once

#include "catalogue/SelectedTheme.h"
#include "catalogue/ThemeInstallation.h"
#include "catalogue/ThemeList.h"
#include "catalogue/window/CatalogueLayout.h"
#include "catalogue/window/CataloguePreview.h"
#include "editor/CustomViewController.h"
#include "platform/UIAlertView.h"
#include "platform/UITableView.h"
#include "platform/UIViewController.h"
#include "views/Action.h"
#include "views/ScreenOverlays.h"
#include "views/ScreenWork.h"

#include <QPointer>

#include <functional>
#include <memory>
#include <optional>

class MainViewController final : public UIViewController,
                                 public UITableViewDataSource,
                                 public UITableViewDelegate,
                                 public UIAlertViewDelegate,
                                 public CustomViewDelegate
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the program's start")
    Q_PROPERTY(ScreenOverlays *overlays READ overlays CONSTANT FINAL)

public:
    /// Loads the list at once; it is not read again later.
    static std::shared_ptr<MainViewController> init(const EditorFolders &folders);
    ~MainViewController() override;

    void viewDidLoad() override;
    void viewWillAppear(bool animated) override;
    void viewDidAppear(bool animated) override;
    void viewWillDisappear(bool animated) override;
    void viewDidLayoutSubviews() override;
    void prepareForTermination() override;
    void applicationShouldBecomeActive();

    int numberOfSectionsInTableView() const override;
    QString titleForHeaderInSection(int section) const override;
    int numberOfRowsInSection(int section) const override;
    UITableViewCell *cellForRowAtIndexPath(UITableView &table, NSIndexPath indexPath) override;
    double heightForRowAtIndexPath(NSIndexPath indexPath) const override;
    void willDisplayHeaderView(UITableViewHeader &header, int section) override;
    void didSelectRowAtIndexPath(NSIndexPath indexPath) override;
    void didDeselectRowAtIndexPath(NSIndexPath) override {}
    bool showMenuForRowAtIndexPath(NSIndexPath indexPath) override;
    bool keyPressed(int key, Qt::KeyboardModifiers modifiers) override;
    void handleLongCellPress(const UILongPressGestureRecognizer &gesture);
    void clickedButtonAtIndex(UIAlertView &alertView, int buttonIndex) override;

    /// Nothing when no theme was ever installed; empty when what was stored is no name. Any thread.
    std::optional<QString> selectedTheme() const { return _selectedTheme.name(); }
    /// Stores and persists the name where it is called, and redraws the list on the main thread.
    /// Any thread.
    std::error_code setSelectedTheme(const QString &name);
    /// The user's own theme has been saved; the editor says so from its save queue.
    void setCustomTheme() override;

    /// Installs the theme that was clicked last.
    void save();
    /// Installs it and makes it the editor's working copy.
    void editPredefinedTheme();

    void showLoaderWithLabel(const QString &label) { _saving.start(label); }
    void removeLoader() { _saving.stop(); }
    /// The busy box, its text and its spinner; null while it is not up.
    QQuickItem *loadingView() const { return _overlays->loadingView(); }
    QQuickItem *loadingLabel() const { return _overlays->loadingLabel(); }
    QQuickItem *spinningIndicator() const { return _overlays->spinningIndicator(); }
    ScreenOverlays *overlays() const { return _overlays; }
    /// The previews that follow the list, and the editors opened from here; null: none. Set it
    /// before the view is loaded.
    void setPreview(PreviewModel *preview) { _preview.setModel(preview); }
    CataloguePreview &preview() { return _preview; }
    /// The alert that the screen showed last, until it has been answered.
    UIAlertView *alertView() const { return _alertView; }
    const std::shared_ptr<CustomViewController> &customViewController() const
    {
        return _customViewController;
    }

protected:
    const char *viewFile() const override { return "catalogue/window/CatalogueView.qml"; }

private:
    // Tells alerts apart; those that nobody listens to have none.
    enum AlertTag { InstallTag = 0, EditTag = 1, EditedTag = 2 };

    explicit MainViewController(const EditorFolders &folders);
    void install();
    std::shared_ptr<MainViewController> self();
    /// The editor's, if there is one.
    ThemeDocument *document() const;
    void openEditor(bool colorsBar);
    /// Whether the theme shall replace what the editor has.
    void askToEdit(const QString &theme);
    using BeginCopy = std::function<ThemeInstallation(
        const QString &resources, const QString &theme, const ThemeLocations &locations)>;
    using FinishCopy = void (MainViewController::*)(const ThemeInstallation &,
                                                    const QString &theme);
    /// Copies the theme that was clicked last, over both queues.
    void copyTheme(const BeginCopy &begin, FinishCopy finish);
    void finishSave(const ThemeInstallation &installation, const QString &theme);
    void finishEditing(const ThemeInstallation &installation, const QString &theme);
    /// Copies, remembers the theme selected, and takes the busy box away; the strip then says what
    /// went wrong, or where the theme is. False when nothing was touched.
    bool finishCopying(const ThemeInstallation &installation, const QString &selected);
    void showAlert(std::unique_ptr<UIAlertView> alertView);

    const EditorFolders _folders;
    SelectedTheme _selectedTheme;
    QString _clickedTheme;
    ThemeList _tableSource;
    CataloguePreview _preview{_folders, _tableSource};
    std::shared_ptr<CustomViewController> _customViewController; // made at first need
    CatalogueLayout _layout;
    UITableView *_tableView = nullptr; // the view's
    QPointer<UIAlertView> _alertView;
    std::shared_ptr<ActionMenu> _menu; // shown last
    ScreenOverlays *const _overlays = new ScreenOverlays(this);
    ScreenWork _saving{"io.tintloom.savefilequeue1", *_overlays};
};
