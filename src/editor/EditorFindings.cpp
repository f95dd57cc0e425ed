#include "editor/EditorFindings.h"

#include "editor/CustomViewController.h"

EditorFindings::EditorFindings(CustomViewController &editor)
    : _editor(editor), _rows(editor.document(), this)
{
    connect(&_rows, &RowFindings::changed, this, &EditorFindings::markRows);
}

void EditorFindings::markRows()
{
    if (const UITableView *table = _editor.tableView())
        for (const NSIndexPath row : table->indexPathsForVisibleRows())
            if (auto *cell = qobject_cast<CustomTableCell *>(table->cellForRowAtIndexPath(row)))
                cell->setFinding(words(_editor.source().indexAt(row).value()));
}
