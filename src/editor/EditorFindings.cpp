#include "editor/EditorFindings.h"

#include "editor/CheckController.h"
#include "editor/CustomViewController.h"
#include "platform/UIWindow.h"

EditorFindings::EditorFindings(CustomViewController &editor) : _editor(editor)
{
}

void EditorFindings::look()
{
    if (_rows)
        return;
    _rows = std::make_unique<RowFindings>(_editor.document());
    connect(_rows.get(), &RowFindings::changed, this, &EditorFindings::markRows);
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
