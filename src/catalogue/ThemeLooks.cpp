#include "catalogue/ThemeLooks.h"

#include "catalogue/ThemePackage.h"
#include "platform/foundation/NSLog.h"
#include "preview/PreviewThumbnail.h"

namespace
{
// Some 20 KB each, and a picture behind the list much more. A list that is longer makes again what
// was seen long ago.
constexpr qsizetype mostBytes = 64 << 20;

ThemeLook lookOf(const QString &resources, const QString &folder, double scale)
{
    const ThemePackage package = ThemePackage::read(resources, folder);
    if (!package.elements) {
        if (!package.isMissing)
            NSLog("No picture of a theme: %@", {package.problem});
        return {};
    }
    if (package.elements->status() != ElementDataSource::Status::Loaded)
        return {};
    PreviewPalette palette = PreviewPalette::fromElements(*package.elements);
    if (!palette.listPicture.isNull()) // to look at, not to keep
        palette.listPicture = palette.listPicture.scaled(
            PreviewPalette::listPictureSize / 2, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    return {palette, previewThumbnail(palette, scale)};
}
} // namespace

ThemeLooks::ThemeLooks(QString resources) : _resources(std::move(resources)), _looks(mostBytes)
{
}

ThemeLook ThemeLooks::look(const QString &folder, double scale)
{
    const Key key(folder, scale);
    const ThemeLook *known = _looks.object(key);
    if ((!known || _outdated.contains(key)) && !_beingMade.contains(key))
        make(key);
    return known ? *known : ThemeLook();
}

void ThemeLooks::noteChangesBelow(const QString &folder)
{
    for (const Key &key : _looks.keys() + _beingMade.values())
        if (key.first.startsWith(folder + u'/'))
            _outdated.insert(key);
}

void ThemeLooks::make(const Key &key)
{
    _beingMade.insert(key);
    _outdated.remove(key);
    const std::weak_ptr<void> alive = _alive;
    // Begun when the main thread has nothing else to do: it is about to draw what asks.
    MainQueue::async([this, key, alive] {
        if (alive.expired()) // it dies on this thread, so that it now lives on
            return;
        if (!_queue)
            _queue.emplace("io.tintloom.themelooks");
        _queue->async([this, key, alive, resources = _resources] {
            if (alive.expired())
                return;
            MainQueue::async([this, key, alive, look = lookOf(resources, key.first, key.second)] {
                if (!alive.expired())
                    take(key, look);
            });
        });
    });
}

void ThemeLooks::take(const Key &key, const ThemeLook &look)
{
    _beingMade.remove(key);
    const qsizetype bytes =
        look.picture.sizeInBytes() + (look.palette ? look.palette->listPicture.sizeInBytes() : 0);
    _looks.insert(key, new ThemeLook(look), bytes);
    if (look.palette)
        emit ready(key.first);
}
