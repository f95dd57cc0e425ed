#include "editor/EditorGenerator.h"

#include "editor/CustomViewController.h"
#include "editor/GenerateController.h"
#include "editor/PlaceController.h"
#include "pictures/PictureFile.h"
#include "pictures/ReducedPicture.h"
#include "platform/DropTarget.h"
#include "platform/FilePanel.h"
#include "platform/UIWindow.h"
#include "theme/ElementPicture.h"
#include "theme/ThemePictures.h"

#include <QImageReader>
#include <QMimeDatabase>
#include <QUrl>

#include <algorithm>

struct EditorGenerator::Picture {
    PicturePalette palette;
    std::optional<ElementChoice> background;
    std::optional<ElementPicture> wholePicture;
    QString problem;

    static Picture parse(const QByteArray &bytes)
    {
        const auto read = ReducedPicture::parse(bytes);
        Picture picture{paletteOf(read.visiblePixels()), {}, {}, read.problem};
        if (picture.problem.isEmpty() && picture.palette.candidates.empty())
            picture.problem = tr("nothing of it can be seen");
        if (!picture.problem.isEmpty())
            return picture;
        if (const auto whole = ElementPicture::parse(bytes).picture)
            picture.background = whole->choice();
        return picture;
    }

    static Picture whole(const QString &path)
    {
        Picture picture;
        const auto read = ElementPicture::read(path);
        picture.wholePicture = read.picture;
        picture.problem = read.problem;
        return picture;
    }
};

namespace
{
/// The local file that is dragged, if it is one picture.
QString pictureFileIn(const QMimeData &data)
{
    if (data.urls().size() != 1)
        return {};
    const QString path = data.urls().first().toLocalFile();
    const bool isPicture =
        !path.isEmpty() && QMimeDatabase().mimeTypeForFile(path).name().startsWith("image/");
    return isPicture ? path : QString();
}

/// The name under which a picture itself is dragged; out of a browser, its address comes with it.
QString pictureFormatIn(const QMimeData &data)
{
    if (std::ranges::any_of(data.urls(), &QUrl::isLocalFile))
        return {};
    const QStringList formats = data.formats();
    const auto found = std::ranges::find_if(
        formats, [](const QString &format) { return format.startsWith("image/"); });
    return found == formats.end() ? QString() : *found;
}

FilePanel::Filter pictureFiles()
{
    QStringList patterns;
    for (const QByteArray &format : QImageReader::supportedImageFormats())
        for (const QByteArray &ending : {format, format.toUpper()})
            patterns.append("*." + QString::fromLatin1(ending));
    return {EditorGenerator::tr("Pictures"), patterns};
}
} // namespace

EditorGenerator::EditorGenerator(CustomViewController &editor) : QObject(&editor), _editor(editor)
{
}

void EditorGenerator::viewDidLoad()
{
    takeDropsOn(_editor.view());
}

void EditorGenerator::takeDropsOn(QQuickItem *view)
{
    auto *const target = new DropTarget(
        [this](const QMimeData &data, DropTarget::Act act) {
            return takeDrop(data, act == DropTarget::Act::Drop);
        },
        view);
    const auto cover = [view, target] { target->setSize(view->size()); };
    connect(view, &QQuickItem::widthChanged, target, cover);
    connect(view, &QQuickItem::heightChanged, target, cover);
    cover();
}

bool EditorGenerator::isOffered() const
{
    return _editor.preview()->model() && !_editor.isLoading() && !_editor.isChooserOpen() &&
           _editor.source().status() == ElementDataSource::Status::Loaded;
}

bool EditorGenerator::takeDrop(const QMimeData &data, bool isDropped)
{
    const QString file = pictureFileIn(data);
    const QString format = pictureFormatIn(data);
    if (!isOffered() || (file.isEmpty() && format.isEmpty()))
        return false;
    if (isDropped && !file.isEmpty())
        openPicture(file);
    else if (isDropped)
        read([bytes = data.data(format)] { return Picture::parse(bytes); },
             [this](const Picture &picture) { show(picture); });
    return true;
}

void EditorGenerator::showPage()
{
    const auto page = GenerateController::init(_editor.document(), *_editor.preview()->model());
    _page = page.get();
    connect(_page, &GenerateController::photoTapped, this, &EditorGenerator::askForPhoto);
    connect(_page, &GenerateController::closeTapped, this,
            [] { UIWindow::keyWindow()->dismissViewController(); });
    UIWindow::keyWindow()->presentViewController(page);
    takeDropsOn(page->view());
}

void EditorGenerator::askForPhoto()
{
    FilePanel::open(this, tr("Theme from a Photo"), {pictureFiles()},
                    [this](const QString &path) { openPicture(path); });
}

void EditorGenerator::openPicture(const QString &path)
{
    read([path] { return pictureInFile(path, &Picture::parse); },
         [this](const Picture &picture) { show(picture); });
}

void EditorGenerator::read(std::function<Picture()> reading,
                           std::function<void(const Picture &)> use)
{
    if (!_queue)
        _queue = std::make_unique<DispatchQueue>("io.tintloom.picturequeue");
    if (!_page)
        _editor.showLoaderWithLabel(tr("Reading the picture..."));
    _queue->async([self = QPointer(this), hasLoader = !_page, reading = std::move(reading),
                   use = std::move(use)] {
        MainQueue::async([self, hasLoader, use, picture = reading()] {
            if (!self)
                return;
            if (hasLoader)
                self->_editor.removeLoader();
            use(picture);
        });
    });
}

void EditorGenerator::show(const Picture &picture)
{
    if (!picture.problem.isEmpty())
        return refuse(picture);
    if (!_page)
        showPage();
    _page->offer(picture.palette, picture.background);
}

void EditorGenerator::refuse(const Picture &picture)
{
    const QString text = tr("The picture cannot be read: %1").arg(picture.problem);
    if (_page)
        _page->refuse(text);
    else
        _editor.overlays()->setNotice(text);
}

bool EditorGenerator::takesPicture(int index) const
{
    const ElementDataSource &elements = _editor.source();
    return _editor.preview()->model() &&
           elements.shownIndexOfKey(ThemePictures::listBackgroundKey(elements)) == index &&
           !elements.tableSource()[size_t(index)].isChoice();
}

void EditorGenerator::askForBackground(int index)
{
    FilePanel::open(this, tr("Choose a Picture"), {pictureFiles()}, [=, this](const QString &path) {
        read([path] { return Picture::whole(path); },
             [=, this](const Picture &picture) {
                 if (picture.wholePicture)
                     place(index, *picture.wholePicture);
                 else
                     refuse(picture);
             });
    });
}

void EditorGenerator::place(int index, const ElementPicture &picture)
{
    const auto page =
        PlaceController::init(_editor.document(), *_editor.preview()->model(), index, picture);
    connect(page.get(), &PlaceController::closeTapped, this,
            [] { UIWindow::keyWindow()->dismissViewController(); });
    UIWindow::keyWindow()->presentViewController(page);
}
