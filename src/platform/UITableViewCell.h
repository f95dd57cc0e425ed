// One row of a table, made and configured by the table's data source.
#pragma once

#include "platform/UILongPressGestureRecognizer.h"
#include "platform/UIView.h"

#include <QColor>

#include <memory>
#include <vector>

class UITableViewCell : public UIView
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Cells are made by a table's data source")
    Q_PROPERTY(QColor backgroundColor READ backgroundColor WRITE setBackgroundColor NOTIFY
                   backgroundColorChanged FINAL)
    Q_PROPERTY(bool marked READ isMarked NOTIFY selectedChanged FINAL)
    Q_PROPERTY(bool fadesMark READ fadesMark NOTIFY fadesMarkChanged FINAL)
    Q_PROPERTY(bool focused READ isFocused NOTIFY focusedChanged FINAL)
    Q_PROPERTY(bool userInteractionEnabled READ isUserInteractionEnabled NOTIFY
                   userInteractionEnabledChanged FINAL)
    Q_PROPERTY(AccessoryType accessoryType READ accessoryType NOTIFY accessoryTypeChanged FINAL)

public:
    enum class Style { Default = 0, Subtitle = 3 };
    enum class AccessoryType { None = 0, DisclosureIndicator = 1, Checkmark = 3 };
    enum class SelectionStyle { None = 0, Default = 3 };
    Q_ENUM(AccessoryType)

    explicit UITableViewCell(QQuickItem *parent = nullptr) : UIView(parent) {}

    /// Called once, by the maker of the cell. The style is for cells that go by it; one that lays
    /// out labels of its own has no use for it.
    void prepare(Style style, const QString &reuseIdentifier);
    Style style() const { return _style; }
    /// Which pool the cell goes to when it scrolls out of sight.
    QString reuseIdentifier() const { return _reuseIdentifier; }

    QColor backgroundColor() const { return _backgroundColor; }
    void setBackgroundColor(const QColor &color);

    /// Highlighted, by a finger or by selection: fading in or out, or at once.
    bool isSelected() const { return _selected; }
    virtual void setSelected(bool selected, bool animated);
    /// Whether the last change of the mark fades.
    bool fadesMark() const { return _fadesMark; }
    /// A cell of the style None is selected without a mark.
    SelectionStyle selectionStyle() const { return _selectionStyle; }
    void setSelectionStyle(SelectionStyle style);
    bool isMarked() const { return _selected && _selectionStyle != SelectionStyle::None; }

    /// Off: touches and keys pass the row by.
    bool isUserInteractionEnabled() const { return _userInteractionEnabled; }
    void setUserInteractionEnabled(bool enabled);

    /// The sign at the right end of the row.
    AccessoryType accessoryType() const { return _accessoryType; }
    void setAccessoryType(AccessoryType type);

    /// A cell keeps what is added to it, through every reuse, so recognisers pile up on it, as on
    /// the phone. One press fires one of them.
    void addGestureRecognizer(std::unique_ptr<UILongPressGestureRecognizer> recognizer);
    const std::vector<std::unique_ptr<UILongPressGestureRecognizer>> &gestureRecognizers() const
    {
        return _gestureRecognizers;
    }
    void touchesBegan();
    void touchesEnded();
    void touchesCancelled();
    /// The long press of those who use keys; nothing without a recogniser.
    void longPress();
    /// True while a recogniser has begun: lifting the finger is then no tap.
    bool isLongPressed() const;

    /// The row that the keyboard is on.
    bool isFocused() const { return _focused; }
    void setFocused(bool focused);

signals:
    void backgroundColorChanged();
    void selectedChanged();
    void fadesMarkChanged();
    void focusedChanged();
    void userInteractionEnabledChanged();
    void accessoryTypeChanged();

private:
    void failOthers(const UILongPressGestureRecognizer *begun);
    void makeMarks();

    Style _style = Style::Default;
    QString _reuseIdentifier;
    QColor _backgroundColor = Qt::white;
    bool _selected = false;
    bool _fadesMark = false;
    bool _focused = false;
    bool _userInteractionEnabled = true;
    SelectionStyle _selectionStyle = SelectionStyle::Default;
    AccessoryType _accessoryType = AccessoryType::None;
    std::vector<std::unique_ptr<UILongPressGestureRecognizer>> _gestureRecognizers;
    QQuickItem *_marks = nullptr; // draws both; made for the first of them
};
