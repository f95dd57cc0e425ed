// Editing one element: a tap on a row opens the chooser or the option sheet, whose answer goes into
// the element's record and the row.
#include "editor/CustomViewController.h"
#include "platform/UINavigationController.h"
#include "platform/UIWindow.h"
#include "theme/ColorText.h"
#include "views/CustomTableCell.h"

#include <algorithm>

namespace
{
const QString cancelTitle = QStringLiteral("Cancel");

UIColor colorToStartFrom(const ElementRecord &record)
{
    const auto text = record.shownColor();
    return text ? colorFromHexString(*text) : UIColor::whiteColor();
}

void setTextColor(CustomTableCell &cell, const QColor &color)
{
    for (UILabel *label : {cell.name(), cell.description(), cell.colorLabel()})
        label->setTextColor(color);
}
} // namespace

void CustomViewController::didSelectRowAtIndexPath(NSIndexPath indexPath)
{
    _tableView->deselectRow(indexPath, true);
    const ElementRecord &record = _source.record(indexPath.section, indexPath.row);
    if (record.isChoice())
        showOptions(record, indexPath);
    else
        showChooser(record, indexPath);
}

void CustomViewController::showChooser(const ElementRecord &record, NSIndexPath indexPath)
{
    const auto self = std::static_pointer_cast<CustomViewController>(shared_from_this());
    if (!_colorPickerView)
        _colorPickerView = ColorPickerViewController::initWithColorSectionAndRow(
            colorToStartFrom(record), indexPath.section, indexPath.row);
    _colorPickerView->setDelegate(self);
    if (!_colorPickerNavController) {
        _colorPickerNavController =
            UINavigationController::initWithRootViewController(_colorPickerView);
        _colorPickerNavController->setNavigationBarHidden(true);
    }
    if (navigationController())
        navigationController()->setNavigationBarHidden(true);

    _colorPickerNavController->loadViewIfNeeded(*engine());
    QQuickItem *page = _colorPickerNavController->view();
    page->setSize(view()->size()); // first, or the chooser lays itself out for nothing
    page->setParentItem(view());
    _colorPickerNavController->viewWillAppear(false);
    setChooserAlpha(1.0);
    page->setEnabled(true);
    page->setFocus(true);
    _colorPickerNavController->viewDidAppear(false);
    emit chooserOpenChanged();
}

void CustomViewController::setChooserAlpha(double alpha)
{
    _colorPickerNavController->view()->setOpacity(alpha);
    _colorPickerView->view()->setOpacity(alpha);
}

void CustomViewController::fadeChooser()
{
    if (navigationController())
        navigationController()->setNavigationBarHidden(!_fromMainView);
    if (!_colorPickerNavController)
        return;
    _colorPickerNavController->view()->setEnabled(
        false); // and the editor stays so until it is gone
    _fade.start();
}

void CustomViewController::fadeRow(CustomTableCell &cell, const UIColor &ground)
{
    _rowFade.setCurrentTime(_rowFade.duration()); // another row may still be on its way
    _fadingRow = &cell;
    _rowFade.setStartValue(cell.backgroundColor());
    _rowFade.setEndValue(ground.qColor());
    _rowFade.start();
}

void CustomViewController::removeChooser()
{
    if (!_colorPickerNavController)
        return;
    _colorPickerNavController->viewWillDisappear(false);
    _colorPickerNavController->view()->setParentItem(nullptr);
    _colorPickerNavController.reset();
    _colorPickerView.reset();
    emit chooserOpenChanged();
    view()->property("content").value<QQuickItem *>()->setFocus(true);
}

void CustomViewController::store(ElementRecord *record, NSIndexPath indexPath,
                                 const std::optional<UIColor> &color)
{
    const QString text = color ? hexStringForColor(*color) : QString("");
    if (record)
        record->color = text;
    auto *cell = qobject_cast<CustomTableCell *>(_tableView->cellForRowAtIndexPath(indexPath));
    if (!cell)
        return;
    fadeRow(*cell, color.value_or(UIColor::whiteColor()));
    cell->colorLabel()->setText(color ? text : QString(" "));
    setTextColor(*cell, !color || prefersBlackText(*color) ? Qt::black : Qt::white);
}

ElementRecord *CustomViewController::recordAt(NSIndexPath indexPath) const
{
    const bool exists = indexPath.isValid() && indexPath.section < _source.numberOfSections() &&
                        indexPath.row < _source.numberOfRowsInSection(indexPath.section);
    return exists ? &_source.record(indexPath.section, indexPath.row) : nullptr;
}

ElementRecord *CustomViewController::recordAt(std::int32_t row) const
{
    const bool exists = row >= 0 && std::size_t(row) < _source.tableSource().size();
    return exists ? _source.tableSource()[std::size_t(row)].get() : nullptr;
}

void CustomViewController::dismissWithNoChange()
{
    fadeChooser();
}

void CustomViewController::dismissWithColorSectionAndRow(const UIColor &color,
                                                         std::int32_t selectedSection,
                                                         std::int32_t selectedRow)
{
    const NSIndexPath indexPath{selectedSection, selectedRow};
    store(recordAt(indexPath), indexPath, color);
    fadeChooser();
}

void CustomViewController::dismissWithColorAndRow(const UIColor &color, std::int32_t selectedRow)
{
    store(recordAt(selectedRow), {0, selectedRow}, color);
    fadeChooser();
}

void CustomViewController::dismissWithNoColorSectionAndRow(std::int32_t selectedSection,
                                                           std::int32_t selectedRow)
{
    const NSIndexPath indexPath{selectedSection, selectedRow};
    store(recordAt(indexPath), indexPath, {});
    fadeChooser();
}

void CustomViewController::dismissWithNoColorAndRow(std::int32_t selectedRow)
{
    store(recordAt(selectedRow), {0, selectedRow}, {});
    fadeChooser();
}

void CustomViewController::showOptions(const ElementRecord &record, NSIndexPath indexPath)
{
    _savedIndexPath = indexPath;
    auto sheet = std::make_unique<UIActionSheet>(
        record.name, std::static_pointer_cast<CustomViewController>(shared_from_this()));
    QStringList labels = record.options->keys();
    std::ranges::stable_sort(labels, [](const QString &a, const QString &b) {
        return a.compare(b, Qt::CaseInsensitive) < 0;
    });
    for (const QString &label : std::as_const(labels))
        sheet->addButtonWithTitle(label);
    sheet->setCancelButtonIndex(sheet->addButtonWithTitle(cancelTitle));
    sheet->setTag(indexPath.row);
    UIActionSheet::showInWindow(std::move(sheet), UIWindow::keyWindow());
}

void CustomViewController::clickedButtonAtIndex(UIActionSheet &actionSheet, int buttonIndex)
{
    const QString label = actionSheet.buttonTitleAtIndex(buttonIndex);
    if (label == cancelTitle)
        return;
    // By name, not by row: of elements that share a name, the first one gets the value.
    const auto &records = _source.tableSource();
    const auto record = std::ranges::find_if(
        records, [&](const auto &element) { return element->name == actionSheet.title(); });
    if (record != records.end() && (*record)->options && (*record)->options->contains(label))
        (*record)->value = (*record)->options->value(label);
    if (auto *cell =
            qobject_cast<CustomTableCell *>(_tableView->cellForRowAtIndexPath(_savedIndexPath)))
        cell->colorLabel()->setText(label);
    _savedIndexPath = {};
}
