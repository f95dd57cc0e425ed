// The theme editor: the table of themeable elements, and "Save Theme".
//
// Two ways lead here. Started by the program, the editor is the root screen: no navigation bar, a
// version strip behind the table that a pull uncovers, and a translucent strip under the status
// line. Opened from the catalogue, it stands under the navigation bar and tells the catalogue of
// every save.
//
// A tap on a colour row lays the chooser over the editor, one on a choice row brings up a sheet of
// its options; either answer goes into the document, whose word that an element has changed paints
// the row anew. A long press, a secondary click or the Menu key brings up a sheet of what else can
// be done with a row, "More" one of what can be done with the whole theme.
//
// A save goes over two queues: the editor's own serial queue builds the theme from a snapshot of
// the document and encodes its images, then the main thread writes the files.
#pragma once

#include "editor/ChooserPresentation.h"
#include "editor/EditorColors.h"
#include "editor/EditorDraft.h"
#include "editor/EditorFindings.h"
#include "editor/EditorGenerator.h"
#include "editor/EditorLayout.h"
#include "editor/EditorPreview.h"
#include "editor/EditorSending.h"
#include "editor/EditorThemes.h"
#include "editor/ElementRow.h"
#include "platform/UIActionSheet.h"
#include "platform/UITableView.h"
#include "platform/UIViewController.h"
#include "theme/ThemeDocument.h"
#include "theme/ThemePackageWriter.h"
#include "views/Action.h"
#include "views/ScreenOverlays.h"
#include "views/ScreenWork.h"

#include <memory>
#include <optional>

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
                                   public UIActionSheetDelegate,
                                   public ColorPickerViewDelegate,
                                   public CustomViewDelegate
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the program's start or by the catalogue")
    Q_PROPERTY(bool fromMainView READ fromMainView CONSTANT FINAL)
    Q_PROPERTY(bool chooserOpen READ isChooserOpen NOTIFY chooserOpenChanged FINAL)
    Q_PROPERTY(ScreenOverlays *overlays READ overlays CONSTANT FINAL)
    Q_PROPERTY(EditorPreview *preview READ preview CONSTANT FINAL)

public:
    /// Both load the elements at once. Ask `source().status()` whether that went well.
    static std::shared_ptr<CustomViewController> initFromAppDelegate(const EditorFolders &folders);
    static std::shared_ptr<CustomViewController> initFromMainView(const EditorFolders &folders);
    ~CustomViewController() override;

    bool fromMainView() const { return _fromMainView; }
    /// An editor is at first its own delegate, and so lives until it gets another or the program
    /// ends.
    std::shared_ptr<CustomViewDelegate> delegate() const { return _delegate; }
    void setDelegate(std::shared_ptr<CustomViewDelegate> delegate);
    /// What the editor edits.
    ThemeDocument &document() { return *_document; }
    const ElementDataSource &source() const { return _document->elements(); }

    void viewDidLoad() override;
    void viewWillAppear(bool animated) override;
    void viewDidAppear(bool animated) override;
    void viewWillDisappear(bool animated) override;
    void viewDidLayoutSubviews() override;
    void prepareForTermination() override;
    /// Not during a save, since below another one could begin on the same folders, nor under the
    /// chooser.
    bool allowsBack() const override { return !isLoading() && !isChooserOpen(); }

    int numberOfSectionsInTableView() const override;
    QString titleForHeaderInSection(int section) const override;
    int numberOfRowsInSection(int section) const override;
    UITableViewCell *cellForRowAtIndexPath(UITableView &table, NSIndexPath indexPath) override;
    double heightForRowAtIndexPath(NSIndexPath indexPath) const override;
    void willDisplayHeaderView(UITableViewHeader &header, int section) override;
    void didSelectRowAtIndexPath(NSIndexPath indexPath) override;
    void didDeselectRowAtIndexPath(NSIndexPath) override {}

    bool showMenuForRowAtIndexPath(NSIndexPath indexPath) override;

    /// From the tap on a colour row until the chooser has faded out.
    bool isChooserOpen() const { return _chooserPresentation.isOpen(); }
    ColorPickerViewController *colorPickerView() const { return _chooserPresentation.chooser(); }

    // The chooser's answers. The colour goes into the document as colour text, a removed one as the
    // empty string; over 0.3 seconds the row, if it is in sight, takes on its new ground and the
    // chooser fades out, to be dropped then. Without a section, the row counts all elements in
    // document order, and the cell painted is that row's of the first section: as on the phone. A
    // row that does not exist stores nothing.
    void dismissWithNoChange() override;
    void dismissWithColorSectionAndRow(const UIColor &color, std::int32_t selectedSection,
                                       std::int32_t selectedRow) override;
    void dismissWithColorAndRow(const UIColor &color, std::int32_t selectedRow) override;
    void dismissWithNoColorSectionAndRow(std::int32_t selectedSection,
                                         std::int32_t selectedRow) override;
    void dismissWithNoColorAndRow(std::int32_t selectedRow) override;

    /// The option sheet's answer: the label's value goes into the first element that bears the
    /// sheet's title as its name (as on the phone), if that has such an option. "Cancel" leaves
    /// everything, so an option of that label cannot be chosen.
    void clickedButtonAtIndex(UIActionSheet &actionSheet, int buttonIndex) override;

    Q_INVOKABLE void saveButtonTap();
    /// Brings up the sheet of what can be done with the whole theme.
    Q_INVOKABLE void moreButtonTap();
    bool keyPressed(int key, Qt::KeyboardModifiers modifiers) override;
    bool takesDrop(const QMimeData &data) override { return _themes.takesDrop(data); }
    bool drop(const QMimeData &data) override { return _themes.drop(data); }
    /// Saves the theme; returns at once. Refused with a notice, and nothing touched: a document
    /// without elements to save, because saving it would wipe the user's choices, and folders at
    /// which another Tintloom is busy for long. Nothing while a save is going on.
    void save() { save({}); }
    /// The same for who goes on with what is saved: in place of the alert at the end, it is told
    /// what went wrong, a path a line; empty when all is well.
    using Saved = std::function<void(const QString &problem)>;
    void save(const Saved &then);

    /// Reads the choices anew, which somebody has replaced on the disk: what was chosen here is
    /// gone with its history and its draft. Whoever has replaced them still holds the keeper.
    void startAnew();

    /// Brings the first of these elements that has a row into sight, where it flashes.
    void reveal(const std::vector<int> &indexes);
    /// Locks an element or unlocks it, and remembers that.
    void setLocked(int index, bool locked);

    /// The box that keeps the screen still while something is going on.
    void showLoaderWithLabel(const QString &label) { _saving.start(label); }
    void removeLoader() { _saving.stop(); }
    bool isLoading() const { return _saving.isRunning(); }
    ScreenWork &work() { return _saving; }

    /// What could not be written at the last save, a path a line; empty when there is nothing to
    /// say.
    QString notice() const { return _overlays->notice(); }
    ScreenOverlays *overlays() const { return _overlays; }
    EditorPreview *preview() const { return _preview; }
    EditorDraft *draft() const { return _draft.get(); }
    EditorFindings *findings() const { return _findings.get(); }
    EditorThemes *themes() { return &_themes; }
    EditorGenerator *generator() const { return _generator; }
    EditorSending *sending() { return &_sending; }
    /// Null before the view is loaded.
    UITableView *tableView() const { return _tableView; }

    /// A hook for the program's return to the foreground; only logs.
    void applicationShouldBecomeActive();

    /// For the editor as its own delegate: nobody is to be told.
    void setCustomTheme() override {}

signals:
    void chooserOpenChanged();

protected:
    const char *viewFile() const override { return "editor/EditorView.qml"; }

private:
    CustomViewController(const EditorFolders &folders, bool fromMainView);
    void install();
    void finishSave(const ElementDataSource &saved, const SaveReport &report, const Saved &then);
    void showChooser(int index, NSIndexPath indexPath);
    void dismissChooser();
    void showOptions(const ElementRecord &record, NSIndexPath indexPath);
    CustomTableCell *makeCell();
    CustomTableCell *cellAt(NSIndexPath indexPath) const;
    /// The element of that number in document order; none where there is none.
    std::optional<int> elementAt(std::int32_t row) const;
    /// A colour, or none, has been chosen for the element, as far as there is one, and shows in
    /// that row.
    void choose(std::optional<int> index, NSIndexPath indexPath,
                const std::optional<UIColor> &color);
    void repaint(const std::vector<int> &indexes);
    void markWindow();

    const EditorFolders _folders;
    const bool _fromMainView;
    std::unique_ptr<ThemeDocument> _document;
    std::unique_ptr<EditorDraft> _draft;
    EditorLayout _layout;
    UITableView *_tableView = nullptr; // the view's
    std::shared_ptr<CustomViewDelegate> _delegate;
    ChooserPresentation _chooserPresentation{this};
    ElementRowFade _rowFade{this};
    NSIndexPath _savedIndexPath;       // the row whose option sheet is open
    std::shared_ptr<ActionMenu> _menu; // shown last
    ScreenOverlays *const _overlays = new ScreenOverlays(this);
    EditorPreview *const _preview = new EditorPreview(*this);
    std::unique_ptr<EditorFindings> _findings;
    EditorGenerator *const _generator = new EditorGenerator(*this);
    EditorColors _colors{*this, _folders.theme.documents};
    EditorSending _sending{*this, _folders.theme.documents};
    ScreenWork _saving{"io.tintloom.savefilequeue2", *_overlays};
    EditorThemes _themes{*this, _saving, _folders};
};
