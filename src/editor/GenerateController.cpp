#include "editor/GenerateController.h"

#include "advice/FixAll.h"
#include "editor/GeneratePage.h"
#include "platform/UIWindow.h"
#include "theme/ColorNotation.h"
#include "theme/ColorText.h"
#include "theme/ColorsAtHand.h"
#include "theme/ShownColor.h"
#include "theme/ThemePictures.h"

#include <QColor>
#include <QRandomGenerator>

#include <algorithm>
#include <iterator>
#include <utility>

std::shared_ptr<GenerateController> GenerateController::init(ThemeDocument &document,
                                                             PreviewModel &model)
{
    return own(new GenerateController(document, model));
}

GenerateController::GenerateController(ThemeDocument &document, PreviewModel &model)
    : _document(document), _model(&model)
{
    const ElementDataSource &elements = document.elements();
    if (const auto index = ThemeGenerator::usualElement(elements))
        if (const auto text = document.record(*index).shownColor())
            _candidates.push_back(rgbFromHexString(*text));
    for (const ColorsAtHand::Color &color : ColorsAtHand::inTheme(elements))
        if (const QRgb rgb = rgbFromHexString(color.text);
            std::ranges::find(_candidates, rgb) == _candidates.end() &&
            int(_candidates.size()) < PicturePalette::mostCandidates)
            _candidates.push_back(rgb);
    if (!_candidates.empty())
        _wish.color = _candidates.front();
    model.setInteractive(false); // a tap on a part would leave the page, and what is not applied
    if (UIWindow *window = UIWindow::keyWindow())
        connect(window, &UIWindow::paneChanged, this, &GenerateController::previewBesideChanged);
    connect(&document, &ThemeDocument::changed, this, &GenerateController::startAnew);
    connect(&document, &ThemeDocument::lockChanged, this, &GenerateController::startAnew);
    generate();
}

GenerateController::~GenerateController()
{
    if (!_model)
        return;
    _model->showInstead({});
    _model->setInteractive(true);
}

void GenerateController::offer(const PicturePalette &palette,
                               const std::optional<ElementChoice> &background)
{
    _candidates.clear();
    for (const PicturePalette::Candidate &candidate : palette.candidates)
        _candidates.push_back(candidate.color);
    _hasPicture = true;
    _note = palette.isGrey ? tr("The picture has no colors: the theme is grey, with a quiet accent")
                           : QString();
    _background = background;
    emit candidatesChanged();
    _wish.background = false;
    _wish.color = _candidates.front();
    generate();
    showColor();
}

void GenerateController::refuse(const QString &problem)
{
    _note = problem;
    emit generated();
}

bool GenerateController::isPreviewBeside() const
{
    const UIWindow *window = UIWindow::keyWindow();
    return window && window->hasPane();
}

QStringList GenerateController::candidates() const
{
    QStringList names;
    for (const QRgb color : _candidates)
        names.append(QColor::fromRgba(color).name(QColor::HexArgb));
    return names;
}

int GenerateController::candidate() const
{
    const auto found = std::ranges::find(_candidates, _wish.color);
    return found == _candidates.end() ? -1 : int(found - _candidates.begin());
}

void GenerateController::chooseCandidate(int number)
{
    Wish other = _wish;
    other.color = _candidates.at(size_t(number));
    wish(other);
    showColor();
}

void GenerateController::colorTyped(const QString &notation)
{
    const auto text = colorTextFromNotation(notation);
    Wish other = _wish;
    if (text)
        other.color = rgbFromHexString(*text);
    wish(other);
}

void GenerateController::setHarmony(int harmony)
{
    Wish other = _wish;
    other.harmony = Harmony(harmony);
    wish(other);
}

void GenerateController::setTone(int tone)
{
    Wish other = _wish;
    other.tone = Tone(tone);
    wish(other);
}

void GenerateController::setStrength(float strength)
{
    Wish other = _wish;
    other.strength = strength;
    wish(other);
}

void GenerateController::useBackground(bool isUsed)
{
    Wish other = _wish;
    other.background = isUsed;
    wish(other);
}

void GenerateController::surpriseTapped()
{
    const DrawnWish drawn = drawnWish(QRandomGenerator::system()->generate64());
    _earlier.push_back(_wish);
    _wish = {drawn.color, drawn.harmony, drawn.tone, _wish.strength, _wish.background};
    generate();
    showColor();
}

void GenerateController::undoTapped()
{
    if (_earlier.empty())
        return;
    _wish = _earlier.back();
    _earlier.pop_back();
    generate();
    showColor();
}

bool GenerateController::keyPressed(int key, Qt::KeyboardModifiers modifiers)
{
    if (key != Qt::Key_Z || modifiers != Qt::ControlModifier)
        return false;
    undoTapped();
    return true;
}

void GenerateController::wish(const Wish &wish)
{
    if (std::exchange(_wish, wish) != wish)
        generate();
}

/// Generators keep what they were made from.
void GenerateController::startAnew()
{
    for (auto &generator : _generators)
        generator.reset();
    generate();
}

const ThemeGenerator &GenerateController::generator()
{
    auto &generator = _generators[size_t(_wish.tone)];
    if (!generator)
        generator = std::make_unique<ThemeGenerator>(_document.elements(),
                                                     _document.lockedElements(), _wish.tone);
    return *generator;
}

void GenerateController::generate()
{
    const ElementDataSource &elements = _document.elements();
    GeneratedTheme theme =
        generator().generate({_wish.color, ThemeGenerator::usualElement(elements), _wish.harmony,
                              double(_wish.strength)});
    _changes = std::move(theme.changes);
    _left = theme.left.size();
    if (_wish.background)
        addBackground();
    ThemeDocument made(elements);
    made.changeAll(_changes, {});
    if (_model)
        _model->showInstead(PreviewPalette::fromElements(made.elements()), tr("Not applied yet"));
    emit generated();
}

/// The picture, and texts that can be read on it.
void GenerateController::addBackground()
{
    const ElementDataSource &elements = _document.elements();
    const auto index = elements.shownIndexOfKey(ThemePictures::listBackgroundKey(elements));
    if (!index || !_background || _document.isLocked(*index))
        return;
    _changes.push_back({*index, *_background});
    ThemeDocument made(elements);
    made.changeAll(_changes, {});
    std::set<int> staying = _document.lockedElements();
    staying.insert(*index);
    if (const auto picked = ThemeGenerator::usualElement(elements))
        staying.insert(*picked);
    FixedTheme fixed = fixAll(made.elements(), staying);
    std::ranges::move(fixed.changes, std::back_inserter(_changes));
    _left = fixed.left.size();
}

void GenerateController::showColor()
{
    if (view())
        page<GeneratePage>().colorField->setText(hexStringForRgb(_wish.color));
}

QString GenerateController::message() const
{
    QStringList lines;
    if (!_note.isEmpty())
        lines.append(_note);
    if (_left > 0)
        lines.append(tr("Hard to see still: %1").arg(_left));
    if (const size_t locked = _document.lockedElements().size())
        lines.append(tr("Locked, and left as they are: %1").arg(locked));
    return lines.join(u'\n');
}

void GenerateController::applyTapped()
{
    disconnect(&_document, nullptr, this, nullptr); // done: what is shown stays until the end
    _document.changeUnlocked(std::move(_changes),
                             _hasPicture ? tr("Theme from a Photo") : tr("Theme from a Color"));
    emit closeTapped();
}

void GenerateController::viewDidLoad()
{
    showColor();
}
