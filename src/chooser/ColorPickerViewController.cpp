#include "chooser/ColorPickerViewController.h"

#include "platform/UINavigationController.h"
#include "platform/foundation/NSLog.h"
#include "platform/foundation/UIScreen.h"
#include "theme/ColorText.h"
#include "theme/HexFieldRules.h"

ColorPickerViewController::ColorPickerViewController(const UIColor &color, std::int32_t section,
                                                     std::int32_t row)
    : _color(color), _selectedSection(section), _selectedRow(row), _initialColor(color)
{
    const QSizeF screen = UIScreen::mainScreen().size();
    _layout = ChooserLayout::make(screen.width(), screen.height());
    _contrast->setColorText(hexStringForColor(color));
}

ColorPickerViewController::~ColorPickerViewController()
{
    NSLog("%s", {"-[ColorPickerViewController dealloc]"});
}

std::shared_ptr<ColorPickerViewController>
ColorPickerViewController::make(const UIColor &color, std::int32_t section, std::int32_t row)
{
    const auto chooser = own(new ColorPickerViewController(color, section, row));
    chooser->_delegate = chooser;
    return chooser;
}

std::shared_ptr<ColorPickerViewController> ColorPickerViewController::initWithColorSectionAndRow(
    const UIColor &color, std::int32_t selectedSection, std::int32_t selectedRow)
{
    NSLog("%s", {"-[ColorPickerViewController "
                 "initWithColorSectionAndRow:selectedSection:selectedRow:]"});
    return make(color, selectedSection, selectedRow);
}

std::shared_ptr<ColorPickerViewController>
ColorPickerViewController::initWithColorAndRow(const UIColor &color, std::int32_t selectedRow)
{
    NSLog("%s", {"-[ColorPickerViewController initWithColorAndRow:selectedRow:]"});
    return make(color, 0, selectedRow);
}

void ColorPickerViewController::setDelegate(std::shared_ptr<ColorPickerViewDelegate> delegate)
{
    _delegate = std::move(delegate);
}

void ColorPickerViewController::setPreviewOffered(bool isOffered)
{
    _isPreviewOffered = isOffered;
    emit previewOfferedChanged();
}

void ColorPickerViewController::viewDidLoad()
{
    view()->setWidth(UIScreen::mainScreen().size().width());
    const auto self = std::static_pointer_cast<ColorPickerViewController>(shared_from_this());
    ChooserPage &parts = page<ChooserPage>();
    parts.place(_layout);
    _colorPatch = parts.colorPatch;
    _hexTextField = parts.hexTextField;
    _hexTextField->setText("#FFFFFFFF");
    _hexTextField->setDelegate(self);
    _colorPicker = parts.colorPicker;
    _colorPicker->setCropToCircle(false);
    _colorPicker->setSelectionColor(_initialColor);
    _colorPicker->setDelegate(self); // from here on; the first report comes with the first layout
    _brightnessSlider = parts.brightnessSlider;
    _brightnessSlider->setColorPicker(_colorPicker);
    _opacitySlider = parts.opacitySlider;
    _opacitySlider->setColorPicker(_colorPicker);
}

void ColorPickerViewController::viewWillAppear(bool)
{
    if (navigationController())
        navigationController()->setNavigationBarHidden(true);
}

void ColorPickerViewController::viewDidLayoutSubviews()
{
    const ChooserLayout layout =
        ChooserLayout::make(view()->width(), UIScreen::mainScreen().size().height());
    if (layout == _layout)
        return;
    _layout = layout;
    page<ChooserPage>().place(layout);
}

void ColorPickerViewController::colorPickerDidChangeSelection(HSColorPickerView &colorPicker)
{
    _color = colorPicker.selectionColor();
    emit colorChanged();
    _brightnessSlider->setValue(float(colorPicker.brightness()));
    _opacitySlider->setValue(float(colorPicker.opacity()));
    _hexTextField->setTextColor(prefersBlackText(_color) ? Qt::black : Qt::white);
    const QString text = hexStringForColor(_color);
    _hexTextField->setText(text); // also while it is edited, as on the phone
    _contrast->setColorText(text);
}

bool ColorPickerViewController::shouldChangeCharactersInRange(UITextField &field, NSRange range,
                                                              const QString &replacement)
{
    if (&field != _hexTextField)
        return true;
    const HexFieldAnswer answer = answerHexFieldEdit(field.text(), range, replacement);
    if (answer.instead)
        field.setText(*answer.instead);
    return answer.allowed;
}

bool ColorPickerViewController::textFieldShouldReturn(UITextField &field)
{
    field.resignFirstResponder();
    return false;
}

void ColorPickerViewController::textFieldDidEndEditing(UITextField &field)
{
    const bool isWhole = field.text().size() == 9; // all else is white, as on the phone
    _colorPicker->setSelectionColor(colorFromHexString(isWhole ? field.text() : "#FFFFFFFF"));
}

void ColorPickerViewController::cancelButtonTap()
{
    _delegate->dismissWithNoChange();
}

void ColorPickerViewController::removeButtonTap()
{
    _delegate->dismissWithNoColorSectionAndRow(_selectedSection, _selectedRow);
}

void ColorPickerViewController::saveButtonTap()
{
    _colorPicker->setSelectionColor(colorFromHexString(_hexTextField->text()));
    _delegate->dismissWithColorSectionAndRow(_color, _selectedSection, _selectedRow);
}

void ColorPickerViewController::returnKey(bool isAutoRepeat)
{
    if (!isAutoRepeat)
        saveButtonTap();
}

void ColorPickerViewController::select(double red, double green, double blue, double alpha)
{
    _colorPicker->setSelectionColor(UIColor::colorWithRed(red, green, blue, alpha));
}

void ColorPickerViewController::selectColorText(const QString &colorText)
{
    _colorPicker->setSelectionColor(colorFromHexString(colorText));
}

void ColorPickerViewController::contrastTapped()
{
    if (const auto colorText = _contrast->nextColorText())
        selectColorText(*colorText);
}

void ColorPickerViewController::selectBlack()
{
    select(0.0, 0.0, 0.0, 1.0);
}

void ColorPickerViewController::selectWhite()
{
    select(1.0, 1.0, 1.0, 1.0);
}

void ColorPickerViewController::selectRed()
{
    select(1.0, 0.0, 0.0, 1.0);
}

void ColorPickerViewController::selectGreen()
{
    select(0.0, 1.0, 0.0, 1.0);
}

void ColorPickerViewController::selectBlue()
{
    select(0.0, 0.0, 1.0, 1.0);
}

void ColorPickerViewController::selectClear()
{
    select(0.0, 0.0, 0.0, 0.0);
}
