// The root of the editor's QML file.
#pragma once

#include "editor/EditorLayout.h"
#include "platform/UIButton.h"
#include "views/BlurView.h"
#include "views/ScreenPage.h"

class EditorPage : public ScreenPage
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(UIView *bgView MEMBER _bgView FINAL REQUIRED)
    Q_PROPERTY(UIView *hiddenView MEMBER _hiddenView FINAL REQUIRED)
    Q_PROPERTY(UIView *appVersion MEMBER _appVersion FINAL REQUIRED)
    Q_PROPERTY(UIView *tableView MEMBER _tableView FINAL REQUIRED)
    Q_PROPERTY(BlurView *topView MEMBER _topView FINAL REQUIRED)
    Q_PROPERTY(BlurView *bottomView MEMBER _bottomView FINAL REQUIRED)
    Q_PROPERTY(UIButton *saveButton MEMBER _saveButton FINAL REQUIRED)
    Q_PROPERTY(UIButton *moreButton MEMBER _moreButton FINAL REQUIRED)
    Q_PROPERTY(UIButton *previewButton MEMBER _previewButton FINAL REQUIRED)

public:
    using ScreenPage::ScreenPage;

    void place(const EditorLayout &layout);

private:
    UIView *_bgView = nullptr;
    UIView *_hiddenView = nullptr;
    UIView *_appVersion = nullptr;
    UIView *_tableView = nullptr;
    BlurView *_topView = nullptr;
    BlurView *_bottomView = nullptr;
    UIButton *_saveButton = nullptr;
    UIButton *_moreButton = nullptr;
    UIButton *_previewButton = nullptr;
};
