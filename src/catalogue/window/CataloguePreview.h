// What shows in the catalogue how its themes look: a small picture in each row, and the previews,
// which follow the pointer and the keyboard from row to row and else show the current choices.
#pragma once

#include "catalogue/ThemeList.h"
#include "catalogue/ThemeLooks.h"
#include "editor/CustomViewController.h"
#include "platform/UITableView.h"
#include "platform/UITableViewSubtitleCell.h"
#include "preview/window/PreviewModel.h"

#include <QPointer>

#include <memory>

class CataloguePage;

class CataloguePreview : public QObject
{
    Q_OBJECT

public:
    /// The list must outlive this.
    CataloguePreview(const EditorFolders &folders, const ThemeList &list);

    /// Null: no previews. Set it before the view is loaded.
    void setModel(PreviewModel *model) { _model = model; }
    PreviewModel *model() const { return _model; }
    /// Whether rows carry pictures; true unless set.
    void setShowsPictures(bool showsPictures);

    void viewDidLoad(CataloguePage &page);
    /// The document of the editor that the catalogue has opened; null: none, and the choices are
    /// read from the disk.
    void viewDidAppear(ThemeDocument *editors);
    void viewWillDisappear();
    /// Other choices are the current ones now.
    void followChoices(ThemeDocument *editors);

    /// Kept themes may look otherwise now.
    void noteChanges();
    /// The list is another one, and the table shows it.
    void takeNewList();

    /// Gives the cell the picture of the theme in its row, or none as long as there is none.
    void showPicture(UITableViewSubtitleCell &cell, const ThemeRecord &record);

private:
    void showPictures();
    void showReady(const QString &folder);
    void follow(NSIndexPath row);
    void updatePreview();
    /// Of a theme that can be chosen; an empty one as long as it is not known.
    ThemeLook lookOf(const ThemeRecord &record);
    /// Where the package of a theme is; empty where no folder can have its name.
    QString folderOf(const ThemeRecord &record) const;

    const EditorFolders _folders;
    const ThemeList &_list;
    ThemeLooks _looks;
    QPointer<PreviewModel> _model;
    QPointer<UITableView> _table;
    bool _showsPictures = true;
    bool _isOnTop = false;
    NSIndexPath _followed; // whose theme the previews show; none: the current choices
    std::unique_ptr<ThemeDocument> _choices; // read from the disk
};
