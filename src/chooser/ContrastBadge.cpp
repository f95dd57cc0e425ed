#include "chooser/ContrastBadge.h"

#include "HSColorPicker/ColorPickerClasses/HSColorPickerState.h"
#include "advice/FindingText.h"
#include "theme/ColorText.h"
#include "theme/ShownColor.h"

#include <utility>

namespace
{
using Level = ElementContrast::Level;

/// What the wheel makes of a colour text: a last digit may fall by one.
QString pickedText(const QString &colorText)
{
    return hexStringForColor(
        HSColorPickerState::initWithColor(colorFromHexString(colorText)).color());
}

QRgb picked(QRgb color)
{
    return rgbFromHexString(pickedText(hexStringForRgb(color)));
}
} // namespace

ContrastBadge::ContrastBadge(QObject *parent) : QObject(parent)
{
}

void ContrastBadge::follow(const ElementDataSource &elements, int index)
{
    _elements = &elements;
    _contrast.emplace(elements, index);
    setColorText(_colorText);
}

void ContrastBadge::setColorText(const QString &colorText)
{
    _colorText = colorText;
    _isHopeless = false;
    if (!_contrast)
        return;
    _reading = _contrast->reading(rgbFromHexString(colorText));
    _telling.act();
}

QString ContrastBadge::ratio() const
{
    return _reading ? FindingText::ratio(_reading->ratio) : QString();
}

QString ContrastBadge::verdict() const
{
    if (!_reading)
        return {};
    if (_isHopeless)
        return tr("no color reads");
    switch (_reading->level) {
    case Level::ReadsWell:
        return tr("reads well");
    case Level::LargeOnly:
        return tr("large only");
    case Level::HardToRead:
        break;
    }
    return tr("hard to read");
}

QString ContrastBadge::spoken() const
{
    if (!_reading)
        return {};
    const QString &other = _elements->tableSource()[size_t(_reading->other)].name;
    return tr("Contrast %1 with %2, %3").arg(ratio(), other, verdict());
}

QString ContrastBadge::remedy() const
{
    if (otherOffer())
        return tr("Picks the other color that reads well");
    const bool readsWell = !_reading || _reading->level == Level::ReadsWell;
    return readsWell ? QString() : tr("Picks the nearest color that reads well");
}

std::optional<QString> ContrastBadge::otherOffer() const
{
    if (!_offer.lighter || !_offer.darker)
        return std::nullopt;
    const QString lighter = hexStringForRgb(*_offer.lighter);
    const QString darker = hexStringForRgb(*_offer.darker);
    if (_colorText == pickedText(lighter))
        return darker;
    return _colorText == pickedText(darker) ? std::optional(lighter) : std::nullopt;
}

std::optional<QString> ContrastBadge::nextColorText()
{
    if (const auto other = otherOffer())
        return other;
    if (!_reading || _reading->level == Level::ReadsWell)
        return std::nullopt;
    const QRgb color = rgbFromHexString(_colorText);
    _offer = _contrast->nearest(color, picked);
    const auto nearer = nearerOf(_offer, color);
    _isHopeless = !nearer;
    _telling.act();
    return nearer ? std::optional(hexStringForRgb(*nearer)) : std::nullopt;
}
