#include "theme/ThemeDocument.h"

#include "theme/ElementPicture.h"

#include <QUndoCommand>

#include <algorithm>
#include <numeric>
#include <utility>

/// One step of the history. It trades the choices that it holds for those of the document, forth
/// and back: one side of a step is always in the document.
class ThemeDocument::Step : public QUndoCommand
{
public:
    Step(ThemeDocument &document, Changes changes, const QString &name)
        : QUndoCommand(name), _document(document), _changes(std::move(changes))
    {
    }

    void undo() override { _document.trade(_changes); }
    void redo() override { _document.trade(_changes); }

    /// In document order; of a step that has been done, the choices before it.
    const Changes &changes() const { return _changes; }

private:
    ThemeDocument &_document;
    Changes _changes;
};

namespace
{
QString colorTextOf(const ElementChoice &choice)
{
    return choice.color.typeId() == QMetaType::QString ? choice.color.toString() : QString();
}

std::vector<int> indexesOf(const ThemeDocument::Changes &changes)
{
    std::vector<int> indexes(changes.size());
    std::ranges::transform(changes, indexes.begin(), &ThemeDocument::Change::index);
    return indexes;
}
} // namespace

ThemeDocument::ThemeDocument(ElementDataSource elements) : _elements(std::move(elements))
{
    connect(&_history, &QUndoStack::indexChanged, this, &ThemeDocument::historyChanged);
}

const ElementRecord &ThemeDocument::record(int index) const
{
    Q_ASSERT(index >= 0 && index < count());
    return _elements.tableSource()[size_t(index)];
}

bool ThemeDocument::setColor(int index, const QString &colorText)
{
    const QString verb = colorText.isEmpty() ? tr("Remove %1") : tr("Change %1");
    // A null text is the empty one here, and no null marker.
    const QString text = colorText.isNull() ? QString("") : colorText;
    const QVariant value = ElementPicture::of(record(index)) ? QVariant() : record(index).value;
    return changeAll({{index, {text, value}}}, verb.arg(record(index).name));
}

bool ThemeDocument::chooseOption(int index, const QString &label)
{
    const ElementRecord &element = record(index);
    if (!element.options || !element.options->contains(label))
        return false;
    return changeAll({{index, {element.color, element.options->value(label)}}},
                     tr("Change %1").arg(element.name));
}

bool ThemeDocument::resetToSaved(int index)
{
    return changeAll({{index, savedChoice(index)}}, tr("Reset %1").arg(record(index).name));
}

bool ThemeDocument::resetToDefault(int index)
{
    return changeAll({{index, _elements.defaultChoice(index)}},
                     tr("Reset %1").arg(record(index).name));
}

bool ThemeDocument::changeUnlocked(Changes changes, const QString &name)
{
    std::erase_if(changes, [this](const Change &change) { return isLocked(change.index); });
    return changeAll(std::move(changes), name);
}

bool ThemeDocument::changeAll(Changes changes, const QString &name)
{
    std::ranges::stable_sort(changes, {}, &Change::index);
    const auto isOfOneElement = [](const Change &one, const Change &other) {
        return one.index == other.index;
    };
    // From the back: the later one counts.
    const auto first = std::unique(changes.rbegin(), changes.rend(), isOfOneElement).base();
    changes.erase(changes.begin(), first);
    std::erase_if(changes, [this](const Change &change) {
        return record(change.index).choice() == change.choice;
    });
    if (changes.empty())
        return false;
    _history.push(new Step(*this, std::move(changes), name));
    return true;
}

const ThemeDocument::Step &ThemeDocument::step(int number) const
{
    return static_cast<const Step &>(*_history.command(number)); // nobody else pushes any
}

std::vector<int> ThemeDocument::undo()
{
    if (!canUndo())
        return {};
    _history.undo();
    return indexesOf(step(_history.index()).changes());
}

std::vector<int> ThemeDocument::redo()
{
    if (!canRedo())
        return {};
    _history.redo();
    return indexesOf(step(_history.index() - 1).changes());
}

void ThemeDocument::trade(Changes &changes)
{
    const bool hadUnsaved = hasUnsavedChanges();
    for (auto &[index, choice] : changes) {
        const ElementChoice before = record(index).choice();
        _elements.setChoice(index, std::exchange(choice, before));
        noteDifference(index, before);
    }
    emit changed(indexesOf(changes));
    if (hadUnsaved != hasUnsavedChanges())
        emit unsavedChanged();
}

void ThemeDocument::noteDifference(int index, const ElementChoice &before)
{
    const auto saved = _savedInstead.try_emplace(index, before).first;
    if (saved->second == record(index).choice())
        _savedInstead.erase(saved);
}

ElementChoice ThemeDocument::savedChoice(int index) const
{
    const auto saved = _savedInstead.find(index);
    return saved == _savedInstead.end() ? record(index).choice() : saved->second;
}

ThemeDocument::Changes ThemeDocument::unsavedChanges() const
{
    Changes changes;
    for (const auto &[index, saved] : _savedInstead)
        changes.push_back({index, record(index).choice()});
    return changes;
}

bool ThemeDocument::startAnew(ElementDataSource elements)
{
    if (!std::ranges::equal(elements.tableSource(), _elements.tableSource(), {},
                            &ElementRecord::key, &ElementRecord::key))
        return false;
    const bool hadUnsaved = hasUnsavedChanges();
    dropPassingColor();
    _history.clear();
    _savedInstead.clear();
    _elements = std::move(elements);
    std::vector<int> all(_elements.tableSource().size());
    std::iota(all.begin(), all.end(), 0);
    emit changed(all);
    emit saved();
    if (hadUnsaved)
        emit unsavedChanged();
    return true;
}

void ThemeDocument::noteSaved(const ElementDataSource &snapshot)
{
    const bool hadUnsaved = hasUnsavedChanges();
    _savedInstead.clear();
    for (int index = 0; index < count(); ++index) {
        const ElementChoice choice = snapshot.tableSource().at(size_t(index)).choice();
        if (!(record(index).choice() == choice))
            _savedInstead.emplace(index, choice);
    }
    emit saved();
    if (hadUnsaved != hasUnsavedChanges())
        emit unsavedChanged();
}

ThemeDocument::Namesakes ThemeDocument::namesakes(int index) const
{
    for (int number = _history.index() - 1; number >= 0; --number) {
        const Changes &before = step(number).changes();
        const auto change = std::ranges::find(before, index, &Change::index);
        if (change == before.end())
            continue;
        Namesakes found{colorTextOf(change->choice), {}};
        if (found.colorText.isEmpty() || found.colorText == colorTextOf(record(index).choice()))
            return {};
        for (int other = 0; other < count(); ++other)
            if (other != index && !isLocked(other) && !record(other).isChoice() &&
                colorTextOf(record(other).choice()) == found.colorText)
                found.indexes.push_back(other);
        return found;
    }
    return {};
}

void ThemeDocument::setLocked(int index, bool locked)
{
    Q_ASSERT(index >= 0 && index < count());
    if (isLocked(index) == locked)
        return;
    if (locked)
        _locked.insert(index);
    else
        _locked.erase(index);
    emit lockChanged(index);
}

void ThemeDocument::showPassingColor(int index, const QString &colorText)
{
    Q_ASSERT(index >= 0 && index < count());
    const ElementChoice choice{colorText, record(index).value};
    if (_passing && _passing->index == index && _passing->choice == choice)
        return;
    if (_passing && _passing->index != index)
        dropPassingColor();
    _passing = Change{index, choice};
    emit passingColorChanged(index);
}

void ThemeDocument::dropPassingColor()
{
    if (const auto passing = std::exchange(_passing, std::nullopt))
        emit passingColorChanged(passing->index);
}

ElementChoice ThemeDocument::shownChoice(int index) const
{
    if (_passing && _passing->index == index)
        return {_passing->choice.color, record(index).value};
    return record(index).choice();
}
