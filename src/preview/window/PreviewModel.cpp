#include "preview/window/PreviewModel.h"

#include <algorithm>
#include <utility>

void PreviewModel::follow(ThemeDocument *document)
{
    if (_document)
        _document->disconnect(this);
    _document = document;
    _instead.reset();
    _name.clear();
    _passing.reset();
    if (document) {
        connect(document, &ThemeDocument::changed, this, &PreviewModel::updateElements);
        connect(document, &ThemeDocument::passingColorChanged, this, &PreviewModel::updatePassing);
    }
    update();
    emit captionChanged();
}

void PreviewModel::showInstead(const std::optional<PreviewPalette> &palette, const QString &name)
{
    _instead = palette;
    update();
    if (std::exchange(_name, name) != name)
        emit captionChanged();
}

void PreviewModel::updateElements(const std::vector<int> &indexes)
{
    if (std::ranges::any_of(indexes, [this](int index) {
            return previewElementOf(_document->record(index).key).has_value();
        }))
        update();
    if (!_passing) {
        ++_revision;
        emit revisionChanged();
    }
}

void PreviewModel::updatePassing(int index)
{
    const ElementChoice shown = _document->shownChoice(index);
    _passing.reset();
    if (!(shown == _document->record(index).choice()))
        _passing = {index, shown.color.toString()};
    updateElements({index});
}

void PreviewModel::update()
{
    const PreviewPalette before = _palette;
    if (_instead)
        _palette = *_instead;
    else if (_document)
        _palette = PreviewPalette::fromElements(_document->elements(), _passing);
    if (!_scene || before == _palette)
        return;
    if (!_scene->suits(_palette)) {
        _scene.reset();
        emit laidOut();
        return;
    }
    for (const auto screen : {PreviewScreen::Conversation, PreviewScreen::MessageList})
        if (const QRegion region = _scene->touched(screen, before, _palette); !region.isEmpty())
            emit touched(screen, region);
}

const PreviewScene &PreviewModel::scene()
{
    if (!_scene)
        _scene = std::make_unique<PreviewScene>(_palette);
    return *_scene;
}

void PreviewModel::setEyes(Eyes eyes)
{
    if (std::exchange(_eyes, eyes) != eyes)
        emit eyesChanged();
}

void PreviewModel::setInteractive(bool isInteractive)
{
    if (std::exchange(_isInteractive, isInteractive) != isInteractive)
        emit interactiveChanged();
}

void PreviewModel::setTool(const QString &title, const std::function<void()> &perform)
{
    _performTool = perform;
    _toolTitle = title;
    emit toolChanged();
}

void PreviewModel::setAttention(const QString &key)
{
    if (std::exchange(_attention, key) == key)
        return;
    emit attentionChanged();
    emit captionChanged();
}

void PreviewModel::point(const QString &key)
{
    if (std::exchange(_pointed, key) != key)
        emit captionChanged();
}

const ElementRecord *PreviewModel::recordOf(const QString &key) const
{
    if (!_document || key.isEmpty())
        return nullptr;
    const auto index = _document->elements().shownIndexOfKey(key);
    return index ? &_document->record(*index) : nullptr;
}

QString PreviewModel::nameOf(const QString &key) const
{
    const ElementRecord *record = recordOf(key);
    return record ? record->name : key;
}

QString PreviewModel::choiceOf(const QString &key) const
{
    const ElementRecord *record = recordOf(key);
    if (!record)
        return {};
    return record->isChoice() ? record->shownOption() : record->shownColor().value_or(QString());
}

QString PreviewModel::caption() const
{
    if (!_name.isEmpty())
        return _name;
    const QString &key = _pointed.isEmpty() ? _attention : _pointed;
    return key.isEmpty() ? tr("Tap a part to change it") : nameOf(key);
}

void PreviewModel::choose(const QString &key)
{
    if (_isInteractive && recordOf(key))
        emit chosen(key);
}
