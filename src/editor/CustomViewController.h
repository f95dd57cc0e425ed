// The theme editor: the table of themeable elements, and "Save Theme".
//
// Two ways lead here. Started by the program, the editor is the root screen: no navigation bar, a
// version strip behind the table that a pull uncovers, and a translucent strip under the status
// line. Opened from the catalogue, it stands under the navigation bar and tells the catalogue of
// every save.
//
// A save goes over two queues: the editor's own serial queue builds the theme and encodes its
// images, then the main thread writes the files. In between a loader keeps everything still, so the
// queue can read the records that only the main thread edits.
#pragma once

#include "editor/EditorLayout.h"
#include "platform/DispatchQueue.h"
#include "platform/UITableView.h"
#include "platform/UIViewController.h"
#include "theme/ElementDataSource.h"
#include "theme/ThemePackageWriter.h"
#include "views/ScreenOverlays.h"

#include <memory>

/// Told that a theme is about to be saved.
class CustomViewDelegate
{
public:
    virtual ~CustomViewDelegate() = default;
    /// Called on the editor's save queue, not on the main thread.
    virtual void setCustomTheme() = 0;
};

/// The folders that an editor reads and writes.
struct EditorFolders {
    QString resources;
    ThemeLocations theme;
};

class CustomViewController final : public UIViewController,
                                   public UITableViewDataSource,
                                   public UITableViewDelegate,
                                   public CustomViewDelegate
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the program's start or by the catalogue")
    Q_PROPERTY(EditorLayout layout READ layout NOTIFY layoutChanged FINAL)
    Q_PROPERTY(bool fromMainView READ fromMainView CONSTANT FINAL)
    Q_PROPERTY(ScreenOverlays *overlays READ overlays CONSTANT FINAL)

public:
    /// Both load the elements at once. Ask `source().status()` whether that went well.
    static std::shared_ptr<CustomViewController> initFromAppDelegate(const EditorFolders &folders);
    static std::shared_ptr<CustomViewController> initFromMainView(const EditorFolders &folders);
    ~CustomViewController() override;

    bool fromMainView() const { return _fromMainView; }
    /// An editor is at first its own delegate, and so lives until it gets another or the program
    /// ends.
    void setDelegate(std::shared_ptr<CustomViewDelegate> delegate);
    const ElementDataSource &source() const { return _source; }
    EditorLayout layout() const { return _layout; }

    void viewDidLoad() override;
    void viewWillAppear(bool animated) override;
    void viewWillDisappear(bool animated) override;
    void viewDidLayoutSubviews() override;
    void prepareForTermination() override;
    /// Not during a save: below, another one could begin on the same folders.
    bool allowsBack() const override { return !isLoading(); }

    int numberOfSectionsInTableView() const override;
    QString titleForHeaderInSection(int section) const override;
    int numberOfRowsInSection(int section) const override;
    UITableViewCell *cellForRowAtIndexPath(UITableView &table, NSIndexPath indexPath) override;
    double heightForRowAtIndexPath(NSIndexPath indexPath) const override;
    void willDisplayHeaderView(UITableViewHeader &header, int section) override;
    void didSelectRowAtIndexPath(NSIndexPath indexPath) override;
    void didDeselectRowAtIndexPath(NSIndexPath) override {}

    Q_INVOKABLE void saveButtonTap();
    /// Saves the theme; returns at once, except that a document without elements to save is refused
    /// with a notice, because saving it would wipe the user's choices. Nothing while a save is
    /// going on.
    void save();

    /// The box that keeps the screen still while something is going on.
    void showLoaderWithLabel(const QString &label);
    void removeLoader();
    bool isLoading() const { return _overlays->isLoading(); }

    /// What could not be written at the last save, a path a line; empty when there is nothing to
    /// say.
    QString notice() const { return _overlays->notice(); }
    ScreenOverlays *overlays() const { return _overlays; }

    /// A hook for the program's return to the foreground; only logs.
    void applicationShouldBecomeActive();

    /// For the editor as its own delegate: nobody is to be told.
    void setCustomTheme() override {}

signals:
    void layoutChanged();

protected:
    const char *viewFile() const override { return "editor/EditorView.qml"; }

private:
    CustomViewController(const EditorFolders &folders, bool fromMainView);
    void install();
    void finishSave(const SaveReport &report);

    const EditorFolders _folders;
    const bool _fromMainView;
    ElementDataSource _source;
    EditorLayout _layout;
    UITableView *_tableView = nullptr; // the view's
    std::unique_ptr<DispatchQueue> _saveFileQueue;
    std::shared_ptr<CustomViewDelegate> _delegate;
    ScreenOverlays *const _overlays = new ScreenOverlays(this);
};
