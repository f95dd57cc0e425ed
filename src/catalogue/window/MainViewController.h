// The catalogue: ready-made themes by section, one of them marked as installed. A tap installs a
// theme, a long press sends it to the editor, and the rows of the section "Custom" open the editor.
// The user's kept themes stand in a section of their own, whose rows do the same, and have a sheet
// of what else can be done with them.
//
// The program starts into it, or it comes up over the editor: then it has a way back, and all that
// would open an editor leads back to that one.
//
// Nobody waits for the kept themes: they are listed on a queue each time the screen appears, and
// come into the table when they are known.
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
#include "catalogue/window/KeptThemeMenu.h"
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
    /// Both load the list at once; but for the kept themes, it is not read again later.
    static std::shared_ptr<MainViewController> init(const EditorFolders &folders);
    /// Over that editor, in its stack.
    static std::shared_ptr<MainViewController>
    initFromEditor(const EditorFolders &folders, std::shared_ptr<CustomViewController> editor);
    ~MainViewController() override;

    void viewDidLoad() override;
    void viewWillAppear(bool animated) override;
    void viewDidAppear(bool animated) override;
    void viewWillDisappear(bool animated) override;
    void viewDidLayoutSubviews() override;
    void prepareForTermination() override;
    void applicationShouldBecomeActive();
    /// Not during an installation, which below could go on with the editor's.
    bool allowsBack() const override { return !_overlays->isLoading(); }

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
    bool takesDrop(const QMimeData &data) override;
    bool drop(const QMimeData &data) override { return _desk.open(data); }
    void handleLongCellPress(const UILongPressGestureRecognizer &gesture);
    void clickedButtonAtIndex(UIAlertView &alertView, int buttonIndex) override;

    /// Nothing when no theme was ever installed; empty when what was stored is no name. Any thread.
    std::optional<QString> selectedTheme() const { return _selectedTheme.name(); }
    /// Stores and persists the name where it is called, and redraws the list on the main thread.
    /// Any thread.
    std::error_code setSelectedTheme(const QString &name, bool isKept = false);
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
    bool isInstalled(const ThemeRecord &record) const;
    /// Lists the kept themes on a queue, and then brings that one into sight, if there is one.
    void listKept(const QString &shown = {});
    void showKept(const QString &name);
    /// Whether the theme shall replace what the editor has.
    void askToEdit(const ThemeRecord &record);
    std::shared_ptr<MainViewController> self();
    /// The editor's, if there is one.
    ThemeDocument *document() const;
    void makeEditor();
    void openEditor(bool colorsBar);
    using BeginCopy = std::function<ThemeInstallation(
        const QString &resources, const QString &theme, const ThemeLocations &locations)>;
    using FinishCopy = void (MainViewController::*)(const ThemeInstallation &,
                                                    const ThemeRecord &theme);
    /// Copies the theme that was clicked last, over both queues.
    void copyTheme(const BeginCopy &begin, FinishCopy finish);
    void finishSave(const ThemeInstallation &installation, const ThemeRecord &theme);
    void finishEditing(const ThemeInstallation &installation, const ThemeRecord &theme);
    /// Copies, remembers the theme selected, and takes the busy box away; the strip then says what
    /// went wrong, or where the theme is. False when nothing was touched.
    bool finishCopying(const ThemeInstallation &installation, const QString &selected, bool isKept);
    void showAlert(std::unique_ptr<UIAlertView> alertView);

    const EditorFolders _folders;
    SelectedTheme _selectedTheme;
    bool _isFromEditor = false;
    ThemeRecord _clickedTheme;
    ThemeList _tableSource;
    CataloguePreview _preview{_folders, _tableSource};
    std::shared_ptr<CustomViewController> _customViewController; // made at first need
    CatalogueLayout _layout;
    UITableView *_tableView = nullptr; // the view's
    QPointer<UIAlertView> _alertView;
    std::shared_ptr<ActionMenu> _menu; // shown last
    ScreenOverlays *const _overlays = new ScreenOverlays(this);
    ScreenWork _saving{"io.tintloom.savefilequeue1", *_overlays};
    ThemeDesk _desk{*this, *_overlays, _saving, _folders.resources, _folders.theme};
    KeptThemeMenu _keptMenu{_desk, *_overlays, _folders.theme};
    BackgroundWork _listing{"io.tintloom.listing"};
};
