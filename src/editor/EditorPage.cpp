#include "editor/EditorPage.h"

void EditorPage::place(const EditorLayout &layout)
{
    _bgView->setFrame(layout.bgView);
    _hiddenView->setFrame(layout.hiddenView);
    _appVersion->setFrame(layout.appVersion);
    _tableView->setFrame(layout.tableView);
    _topView->setFrame(layout.topView);
    _bottomView->setFrame(layout.bottomView);
    _saveButton->setFrame(layout.saveButton);
    _moreButton->setFrame(layout.moreButton);
    _previewButton->setFrame(layout.previewButton);
}
