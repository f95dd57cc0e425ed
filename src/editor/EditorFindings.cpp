#include "editor/EditorFindings.h"

#include "editor/CheckController.h"
#include "editor/CustomViewController.h"
#include "platform/UIWindow.h"

#include <utility>

EditorFindings::EditorFindings(CustomViewController &editor)
    : _editor(editor), _rows(editor.document(), this)
{
    connect(&_rows, &RowFindings::changed, this, &EditorFindings::markRows);
}

void EditorFindings::look()
{
    if (!std::exchange(_isLooking, true))
        markRows();
}

void EditorFindings::markRows()
{
    if (const UITableView *table = _editor.tableView())
        for (const NSIndexPath row : table->indexPathsForVisibleRows())
            if (auto *cell = qobject_cast<CustomTableCell *>(table->cellForRowAtIndexPath(row)))
                cell->setFinding(words(_editor.source().indexAt(row).value()));
}

void EditorFindings::showPage()
{
    const auto page = CheckController::init(_editor.document());
    connect(page.get(), &CheckController::closeTapped, this,
            [] { UIWindow::keyWindow()->dismissViewController(); });
    connect(page.get(), &CheckController::chosen, this, &EditorFindings::open);
    UIWindow::keyWindow()->presentViewController(page);
}

void EditorFindings::open(int index)
{
    const NSIndexPath row = _editor.source().indexPathOf(index);
    UIWindow::keyWindow()->dismissViewController([this, row] {
        if (row.isValid())
            _editor.tableView()->focusRow(row);
    });
}
