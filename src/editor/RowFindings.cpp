#include "editor/RowFindings.h"

#include "advice/FindingText.h"

#include <algorithm>

RowFindings::RowFindings(ThemeDocument &document) : _document(document)
{
    _news.setSingleShot(true);
    connect(&_news, &QTimer::timeout, this, &RowFindings::changed);
    connect(&document, &ThemeDocument::changed, this, &RowFindings::takeChanges);
    connect(&document, &ThemeDocument::passingColorChanged, this, &RowFindings::takeColor);
}

ThemeColors &RowFindings::colors()
{
    if (!_colors)
        _colors.emplace(_document.elements());
    return *_colors;
}

void RowFindings::takeColor(int index)
{
    if (_colors && !_document.record(index).isChoice())
        _colors->setColorText(index, PropertyList::textOf(_document.shownChoice(index).color));
    _lookAlikes.reset();
    _news.start(0);
}

bool RowFindings::isCompared(int index) const
{
    for (int known = 0; known < ThemeColors::knownCount; ++known)
        if (const auto other = _colors->known(ThemeColors::Known(known));
            other && _document.record(*other).key == _document.record(index).key)
            return true;
    return false;
}

void RowFindings::takeChanges(const std::vector<int> &indexes)
{
    for (const int index : indexes) {
        const bool hadColor = _colors && _colors->color(index);
        takeColor(index);
        // Of several elements with one key the one is compared that has something to save.
        if (_colors && (!hadColor || !_colors->color(index)) && isCompared(index))
            _colors.reset();
    }
}

const std::vector<Finding> &RowFindings::lookAlikes()
{
    if (!_lookAlikes) {
        _lookAlikes.emplace();
        for (const ThemeLikeness &likeness : likenesses(colors()))
            std::ranges::copy(findingsOf(likeness, colors()), std::back_inserter(*_lookAlikes));
    }
    return *_lookAlikes;
}

std::optional<Finding> RowFindings::findingOf(int index)
{
    std::optional<Finding> worst;
    for (const ThemeRelation &relation : colors().relationsOf(index)) {
        const auto finding = ::findingOf(relation, colors());
        if (finding && (!worst || finding->ratio < worst->ratio))
            worst = finding;
    }
    const auto alike = std::ranges::find(lookAlikes(), index, &Finding::element);
    return worst || alike == lookAlikes().end() ? worst : std::optional(*alike);
}

QString RowFindings::words(int index)
{
    const auto finding = findingOf(index);
    return finding ? tr("Hard to see: %1").arg(FindingText::details(*finding, _document.elements()))
                   : QString();
}
