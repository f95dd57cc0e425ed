#include "editor/CustomViewController.h"

#include "platform/QMLViews.h"
#include "platform/UIAlertView.h"
#include "platform/UINavigationController.h"
#include "platform/foundation/NSLog.h"
#include "platform/foundation/UIScreen.h"
#include "theme/ColorText.h"
#include "views/CustomTableCell.h"

std::shared_ptr<CustomViewController>
CustomViewController::initFromAppDelegate(const EditorFolders &folders)
{
    const auto editor = own(new CustomViewController(folders, false));
    editor->install();
    return editor;
}

std::shared_ptr<CustomViewController>
CustomViewController::initFromMainView(const EditorFolders &folders)
{
    const auto editor = own(new CustomViewController(folders, true));
    editor->install();
    return editor;
}

CustomViewController::CustomViewController(const EditorFolders &folders, bool fromMainView)
    : _folders(folders), _fromMainView(fromMainView)
{
    _fade.setObjectName("fade");
    _fade.setDuration(300);
    _fade.setEasingCurve(QEasingCurve::InOutSine);
    _fade.setStartValue(1.0);
    _fade.setEndValue(0.0);
    connect(&_fade, &QVariantAnimation::valueChanged, this, [this](const QVariant &alpha) {
        if (_colorPickerNavController)
            setChooserAlpha(alpha.toDouble());
    });
    // Whether it came to its end or was stopped.
    connect(&_fade, &QAbstractAnimation::stateChanged, this,
            [this](QAbstractAnimation::State state) {
                if (state == QAbstractAnimation::Stopped)
                    removeChooser();
            });
}

CustomViewController::~CustomViewController()
{
    NSLog("%s", {"-[CustomViewController dealloc]"});
}

void CustomViewController::install()
{
    NSLog("%s", {"-[CustomViewController install]"});
    _saveFileQueue = std::make_unique<DispatchQueue>("io.tintloom.savefilequeue2");
    _source = ElementDataSource::load(_folders.resources, _folders.theme.documents);
    _delegate = std::static_pointer_cast<CustomViewController>(shared_from_this());
}

void CustomViewController::setDelegate(std::shared_ptr<CustomViewDelegate> delegate)
{
    _delegate = std::move(delegate);
}

void CustomViewController::viewDidLoad()
{
    _overlays->setView(view(), engine());
    _tableView = view()->property("table").value<UITableView *>();
    _tableView->setDelegate(this);
    _tableView->setDataSource(this);
    _tableView->setContentInset(_fromMainView ? 0.0 : 20.0, 50.0);
}

void CustomViewController::viewWillAppear(bool)
{
    if (navigationController())
        navigationController()->setNavigationBarHidden(!_fromMainView);
}

void CustomViewController::viewWillDisappear(bool)
{
    NSLog("%s", {"-[CustomViewController viewWillDisappear:]"});
}

void CustomViewController::viewDidLayoutSubviews()
{
    if (_colorPickerNavController)
        _colorPickerNavController->view()->setSize(view()->size());
    const EditorLayout layout = EditorLayout::make(
        view()->size(), UINavigationController::navigationBarHeight(), _fromMainView);
    if (layout == _layout)
        return;
    _layout = layout;
    _overlays->setFrames(layout.loadingView, layout.bottomView.y());
    emit layoutChanged();
}

void CustomViewController::prepareForTermination()
{
    // A save that has begun is finished: its build step on the queue, its write step on this
    // thread.
    _saveFileQueue->sync([] {});
    MainQueue::drain();
    removeChooser();
    _delegate.reset();
}

int CustomViewController::numberOfSectionsInTableView() const
{
    return _source.numberOfSections();
}

QString CustomViewController::titleForHeaderInSection(int section) const
{
    return _source.titleForSection(section);
}

int CustomViewController::numberOfRowsInSection(int section) const
{
    return _source.numberOfRowsInSection(section);
}

double CustomViewController::heightForRowAtIndexPath(NSIndexPath) const
{
    return 50.0;
}

void CustomViewController::willDisplayHeaderView(UITableViewHeader &header, int)
{
    header.textLabel()->setTextColor(Qt::white);
    header.setTintColor(UIColor::colorWithRed(0.0, 214.0 / 255.0, 68.0 / 255.0, 1.0).qColor());
}

UITableViewCell *CustomViewController::cellForRowAtIndexPath(UITableView &table,
                                                             NSIndexPath indexPath)
{
    const QString identifier = "CustomTableCell";
    auto *cell =
        qobject_cast<CustomTableCell *>(table.dequeueReusableCellWithIdentifier(identifier));
    if (!cell)
        cell =
            CustomTableCell::initWithStyle(CustomTableCell::Style::Subtitle, identifier, *engine());

    const ElementRecord &record = _source.record(indexPath.section, indexPath.row);
    cell->name()->setText(record.name);
    cell->description()->setText(record.description);
    QColor textColor = Qt::black;
    if (const auto colorText = record.shownColor()) {
        const UIColor color = colorFromHexString(*colorText);
        cell->setBackgroundColor(color.qColor());
        cell->colorLabel()->setText(*colorText);
        textColor = prefersBlackText(color) ? Qt::black : Qt::white;
    } else {
        cell->setBackgroundColor(Qt::white);
        cell->colorLabel()->setText(record.shownOption());
    }
    for (UILabel *label : {cell->name(), cell->description(), cell->colorLabel()})
        label->setTextColor(textColor);
    return cell;
}

void CustomViewController::saveButtonTap()
{
    save();
}

void CustomViewController::save()
{
    if (isLoading())
        return;
    if (_source.status() != ElementDataSource::Status::Loaded) {
        _overlays->setNotice(tr("Nothing was saved.") + '\n' + _source.problem());
        return;
    }
    NSLog("SAVING THEME...");
    _overlays->setNotice({});
    showLoaderWithLabel(tr("Saving theme..."));
    const auto self = std::static_pointer_cast<CustomViewController>(shared_from_this());
    _saveFileQueue->async([self, delegate = _delegate, scale = UIScreen::mainScreen().scale()] {
        const auto willSave = [&] {
            if (self->_fromMainView && delegate)
                delegate->setCustomTheme();
        };
        BuiltTheme theme = buildTheme(self->_source, self->_folders.theme, scale, willSave);
        MainQueue::async([self, theme = std::move(theme)] { self->finishSave(writeTheme(theme)); });
    });
}

void CustomViewController::finishSave(const SaveReport &report)
{
    _overlays->setNotice(report.notice(), report.copyFrom(_folders.theme));
    removeLoader();
    if (!report.refusal.isEmpty())
        return;
    UIAlertView::show(std::make_unique<UIAlertView>(
        "Saved",
        "Your theme has been saved. Check biteSMS for \"Tintloom\" under themes then select "
        "\"Apply Theme\".",
        std::weak_ptr<UIAlertViewDelegate>(), QStringList{"OK"}));
}

void CustomViewController::showLoaderWithLabel(const QString &label)
{
    _tableView->setScrollEnabled(false);
    _tableView->setAllowsSelection(false);
    _overlays->showLoaderWithLabel(label);
}

void CustomViewController::removeLoader()
{
    _tableView->setScrollEnabled(true);
    _tableView->setAllowsSelection(true);
    _overlays->removeLoader();
}

void CustomViewController::applicationShouldBecomeActive()
{
    NSLog("%s", {"-[CustomViewController applicationShouldBecomeActive]"});
}
