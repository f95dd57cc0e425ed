#include "app/window/AppDelegate.h"

#include "catalogue/window/MainViewController.h"
#include "platform/UINavigationController.h"
#include "platform/foundation/NSLog.h"
#include "platform/foundation/NSUserDefaults.h"
#include "preview/window/PreviewController.h"
#include "theme/WorkingCopyKeeper.h"

#include <QGuiApplication>
#include <QIcon>
#include <QMimeData>
#include <QScreen>
#include <QUrl>

bool AppDelegate::didFinishLaunchingWithOptions()
{
    // Held until the choices are read, so that nobody takes them away meanwhile. It may wait for
    // another Tintloom: there is no window yet to stand still.
    const auto keeper = WorkingCopyKeeper::open(_folders.theme);
    if (!keeper->refusal().isEmpty()) {
        NSLog("Cannot start: %@", {keeper->refusal()});
        return false;
    }
    setWindow(std::make_unique<UIWindow>(_start.windowSize));
    _window->setTitle("Tintloom");
    if (_start.root == Root::Editor)
        _window->readAhead({"platform/NavigationView.qml", "editor/EditorView.qml",
                            "views/CustomTableCellView.qml"});
    else
        _window->readAhead({"platform/NavigationView.qml", "catalogue/window/CatalogueView.qml",
                            "platform/SubtitleCellView.qml"});
    addPreview();
    _window->makeKeyAndVisible();
    UIWindow::afterFirstFrame(_window.get(), [this] {
        _window->setIcon(QIcon(":/images/tintloom.png")); // decoding it takes time
        if (!_start.open.isEmpty())
            openGiven();
    });

    if (_start.root == Root::Catalogue) {
        const auto catalogue = MainViewController::init(_folders);
        catalogue->setPreview(&_preview);
        setRoot(catalogue);
        return true;
    }
    const auto editor = CustomViewController::initFromAppDelegate(_folders);
    editor->preview()->setModel(&_preview);
    _editorCatalogue = std::make_unique<EditorCatalogue>(editor, _folders, &_preview);
    setRoot(editor);
    return editor->source().status() != ElementDataSource::Status::Unusable;
}

std::optional<QSize> AppDelegate::wideWindow()
{
    constexpr QSize comfortable(1100, 660), narrowest(640, 568);
    const QSize room = QGuiApplication::primaryScreen()->availableSize();
    const QSize size = comfortable.boundedTo(room);
    return size.expandedTo(narrowest) == size ? std::optional(size) : std::nullopt;
}

void AppDelegate::addPreview()
{
    const auto settings =
        std::make_shared<NSUserDefaults>(_folders.theme.documents + "/Window.plist");
    const QString key = "showsPreview";
    const QVariant left = settings->objectForKey(key);
    _window->setPaneWanted(_start.showsPreview.value_or(left.isValid() ? left.toBool() : true));
    _window->setPaneViewController(PreviewController::initPane(_preview));
    QObject::connect(_window.get(), &UIWindow::paneWantedChanged, _window.get(),
                     [settings, key](bool isWanted) {
                         settings->setObjectForKey(isWanted, key);
                         if (const auto error = settings->synchronize())
                             NSLog("Cannot remember whether the preview is shown: %@",
                                   {QString::fromStdString(error.message())});
                     });
}

void AppDelegate::openGiven()
{
    QMimeData given;
    given.setUrls({QUrl::fromLocalFile(_start.open)});
    _window->rootViewController()->drop(given);
}

void AppDelegate::setRoot(std::shared_ptr<UIViewController> controller)
{
    _window->setRootViewController(
        UINavigationController::initWithRootViewController(std::move(controller)));
}
