#include "catalogue/window/CataloguePreview.h"

#include "catalogue/ThemePackage.h"
#include "catalogue/window/CataloguePage.h"
#include "preview/PreviewThumbnail.h"

#include <QQuickWindow>

CataloguePreview::CataloguePreview(const EditorFolders &folders, const ThemeList &list)
    : _folders(folders), _list(list), _looks(folders.resources)
{
    connect(&_looks, &ThemeLooks::ready, this, &CataloguePreview::showReady);
}

void CataloguePreview::setShowsPictures(bool showsPictures)
{
    _showsPictures = showsPictures;
    showPictures();
}

void CataloguePreview::viewDidLoad(CataloguePage &page)
{
    _table = page.table;
    connect(&page, &CataloguePage::devicePixelRatioChanged, this, &CataloguePreview::showPictures);
    if (!_model)
        return;
    // Whichever of the two has moved last leads; when it goes, the other one does.
    connect(_table, &UITableView::hoveredRowChanged, this, [this] {
        const NSIndexPath row = _table->hoveredRow();
        follow(row.isValid() ? row : _table->focusedRow());
    });
    connect(_table, &UITableView::focusedRowChanged, this, [this] {
        const NSIndexPath row = _table->focusedRow();
        follow(row.isValid() ? row : _table->hoveredRow());
    });
}

void CataloguePreview::viewDidAppear(ThemeDocument *editors)
{
    _isOnTop = true;
    if (_model)
        _model->setInteractive(false); // a part would lead to a row of the editor
    followChoices(editors);
}

void CataloguePreview::viewWillDisappear()
{
    _isOnTop = false;
    if (_model)
        _model->showInstead({});
}

void CataloguePreview::followChoices(ThemeDocument *editors)
{
    if (!_model || !_isOnTop)
        return;
    std::unique_ptr<ThemeDocument> read;
    if (!editors) {
        auto saved =
            ThemePackage::read(_folders.resources, _folders.theme.workingCopyFolder()).elements;
        read = std::make_unique<ThemeDocument>(
            saved ? std::move(*saved) : ElementDataSource::loadWith(_folders.resources, nullptr));
    }
    _model->follow(editors ? editors : read.get());
    _choices = std::move(read);
    updatePreview();
}

ThemeLook CataloguePreview::lookOf(const ThemeRecord &record)
{
    const QQuickWindow *window = _table ? _table->window() : nullptr;
    const bool hasLook = record.kept || (record.active && record.isReadyMade());
    const QString folder = hasLook ? folderOf(record) : QString();
    if (!window || folder.isEmpty())
        return {};
    return _looks.look(folder, window->effectiveDevicePixelRatio());
}

QString CataloguePreview::folderOf(const ThemeRecord &record) const
{
    if (record.kept)
        return record.folder;
    return isThemeFolderName(record.name)
               ? themeResourceFolder(_folders.resources, record.name).value()
               : QString();
}

void CataloguePreview::noteChanges()
{
    _looks.noteChangesBelow(_folders.theme.documents);
    showPictures();
}

void CataloguePreview::takeNewList()
{
    _followed = {};
    _table->reloadData();
    follow(_table->hoveredRow());
}

void CataloguePreview::showPicture(UITableViewSubtitleCell &cell, const ThemeRecord &record)
{
    const QImage picture = _showsPictures ? lookOf(record).picture : QImage();
    cell.setPicture(picture, double(picture.width()) / previewThumbnailSide);
}

void CataloguePreview::showPictures()
{
    if (!_table)
        return;
    for (const NSIndexPath row : _table->indexPathsForVisibleRows())
        if (auto *cell =
                qobject_cast<UITableViewSubtitleCell *>(_table->cellForRowAtIndexPath(row)))
            showPicture(*cell, _list.record(row.section, row.row));
}

void CataloguePreview::showReady(const QString &folder)
{
    showPictures();
    if (_followed.isValid() && folderOf(_list.record(_followed.section, _followed.row)) == folder)
        updatePreview();
}

void CataloguePreview::follow(NSIndexPath row)
{
    _followed = row;
    updatePreview();
}

void CataloguePreview::updatePreview()
{
    if (!_model || !_isOnTop)
        return;
    if (_followed.isValid()) {
        const ThemeRecord &record = _list.record(_followed.section, _followed.row);
        if (const ThemeLook look = lookOf(record); look.palette)
            return _model->showInstead(look.palette, record.name);
    }
    _model->showInstead({}, tr("Current choices"));
}
