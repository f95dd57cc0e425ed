// The colour chooser: the page on which one element's colour is picked, with the wheel, its
// sliders, six quick colours or colour text.
//
// The wheel's state is the truth. Whatever picks a colour sets it on the wheel, and the wheel's
// report brings patch, sliders and text in step:
//
//   touch on the wheel, slider, quick button, end of typing
//       --> wheel --> colorPickerDidChangeSelection --> patch, sliders, text
//
// Accepting reads the text once more and sends it through the wheel too, so that what is handed
// back is what the text spells, after the wheel's hue, saturation and brightness: a last digit may
// fall by one, as on the phone.
#pragma once

#include "chooser/ChooserLayout.h"
#include "chooser/ChooserPage.h"
#include "chooser/ContrastBadge.h"
#include "platform/UIViewController.h"
#include "platform/foundation/UIColor.h"

#include <cstdint>
#include <memory>

/// Told how the choice came out. Sections and rows are the table's. A chooser never sends the two
/// without a section, even if it was made without one, as on the phone.
class ColorPickerViewDelegate
{
public:
    virtual ~ColorPickerViewDelegate() = default;
    virtual void dismissWithNoChange() = 0;
    virtual void dismissWithColorSectionAndRow(const UIColor &color, std::int32_t selectedSection,
                                               std::int32_t selectedRow) = 0;
    virtual void dismissWithColorAndRow(const UIColor &color, std::int32_t selectedRow) = 0;
    virtual void dismissWithNoColorSectionAndRow(std::int32_t selectedSection,
                                                 std::int32_t selectedRow) = 0;
    virtual void dismissWithNoColorAndRow(std::int32_t selectedRow) = 0;
};

class ColorPickerViewController final : public UIViewController,
                                        public HSColorPickerViewDelegate,
                                        public UITextFieldDelegate,
                                        public ColorPickerViewDelegate
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the editor")
    Q_PROPERTY(QColor color READ patchColor NOTIFY colorChanged FINAL)
    Q_PROPERTY(ContrastBadge *contrast READ contrast CONSTANT FINAL)
    Q_PROPERTY(bool previewOffered READ isPreviewOffered NOTIFY previewOfferedChanged FINAL)

public:
    static std::shared_ptr<ColorPickerViewController>
    initWithColorSectionAndRow(const UIColor &color, std::int32_t selectedSection,
                               std::int32_t selectedRow);
    /// For section 0, unless set.
    static std::shared_ptr<ColorPickerViewController> initWithColorAndRow(const UIColor &color,
                                                                          std::int32_t selectedRow);
    ~ColorPickerViewController() override;

    /// The element's place in the table, which the answer bears.
    std::int32_t selectedSection() const { return _selectedSection; }
    void setSelectedSection(std::int32_t section) { _selectedSection = section; }
    std::int32_t selectedRow() const { return _selectedRow; }
    void setSelectedRow(std::int32_t row) { _selectedRow = row; }
    /// A new chooser is its own delegate, to whom nothing matters; whoever makes one takes its
    /// place.
    std::shared_ptr<ColorPickerViewDelegate> delegate() const { return _delegate; }
    void setDelegate(std::shared_ptr<ColorPickerViewDelegate> delegate);
    const UIColor &initialColor() const { return _initialColor; }

    // Parts of the page; null before the view is loaded.
    HSColorPickerView *colorPicker() const { return _colorPicker; }
    HSBrightnessSlider *brightnessSlider() const { return _brightnessSlider; }
    HSOpacitySlider *opacitySlider() const { return _opacitySlider; }
    /// The strip whose ground is the chosen colour.
    UIView *colorPatch() const { return _colorPatch; }
    UITextField *hexTextField() const { return _hexTextField; }
    /// The colour that the wheel last reported; the same for drawing.
    const UIColor &color() const { return _color; }
    QColor patchColor() const { return _color.qColor(); }
    /// Shown on the patch once it follows an element.
    ContrastBadge *contrast() const { return _contrast; }
    /// Whether a small button asks for the preview.
    bool isPreviewOffered() const { return _isPreviewOffered; }
    void setPreviewOffered(bool isOffered);

    void viewDidLoad() override;
    void viewWillAppear(bool animated) override;
    void viewDidLayoutSubviews() override;

    void colorPickerDidChangeSelection(HSColorPickerView &colorPicker) override;
    bool shouldChangeCharactersInRange(UITextField &field, NSRange range,
                                       const QString &replacement) override;
    bool textFieldShouldReturn(UITextField &field) override;
    void textFieldDidEndEditing(UITextField &field) override;

    Q_INVOKABLE void cancelButtonTap();
    Q_INVOKABLE void removeButtonTap();
    Q_INVOKABLE void saveButtonTap();
    /// The Return key where nothing else takes it. Held down since before the page came up, it
    /// repeats and does not count.
    Q_INVOKABLE void returnKey(bool isAutoRepeat);
    Q_INVOKABLE void selectBlack();
    Q_INVOKABLE void selectWhite();
    Q_INVOKABLE void selectRed();
    Q_INVOKABLE void selectGreen();
    Q_INVOKABLE void selectBlue();
    /// Transparent black.
    Q_INVOKABLE void selectClear();
    /// Any colour text, as the quick colours do it.
    void selectColorText(const QString &colorText);
    /// Picks the nearest colour that reads well, and after that the other one.
    Q_INVOKABLE void contrastTapped();

    // For the chooser as its own delegate: nothing is to be done.
    void dismissWithNoChange() override {}
    void dismissWithColorSectionAndRow(const UIColor &, std::int32_t, std::int32_t) override {}
    void dismissWithColorAndRow(const UIColor &, std::int32_t) override {}
    void dismissWithNoColorSectionAndRow(std::int32_t, std::int32_t) override {}
    void dismissWithNoColorAndRow(std::int32_t) override {}

signals:
    void colorChanged();
    void previewOfferedChanged();
    void previewTapped();
    /// The page of colours at hand is wanted.
    void themeColorsTapped();

protected:
    const char *viewFile() const override { return "chooser/ColorPickerView.qml"; }

private:
    ColorPickerViewController(const UIColor &color, std::int32_t section, std::int32_t row);
    static std::shared_ptr<ColorPickerViewController> make(const UIColor &color,
                                                           std::int32_t section, std::int32_t row);
    void select(double red, double green, double blue, double alpha);

    UIColor _color;
    std::int32_t _selectedSection;
    std::int32_t _selectedRow;
    std::shared_ptr<ColorPickerViewDelegate> _delegate;
    // The view's.
    HSColorPickerView *_colorPicker = nullptr;
    HSBrightnessSlider *_brightnessSlider = nullptr;
    HSOpacitySlider *_opacitySlider = nullptr;
    UIView *_colorPatch = nullptr;
    UITextField *_hexTextField = nullptr;
    const UIColor _initialColor;
    ChooserLayout _layout;
    ContrastBadge *const _contrast = new ContrastBadge(this);
    bool _isPreviewOffered = false;
};
