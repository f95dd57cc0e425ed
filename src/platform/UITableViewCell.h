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
    Q_PROPERTY(bool focused READ isFocused NOTIFY focusedChanged FINAL)
    Q_PROPERTY(bool userInteractionEnabled READ isUserInteractionEnabled NOTIFY
                   userInteractionEnabledChanged FINAL)
    Q_PROPERTY(AccessoryType accessoryType READ accessoryType NOTIFY accessoryTypeChanged FINAL)

public:
    enum class AccessoryType { None = 0, DisclosureIndicator = 1, Checkmark = 3 };
    enum class SelectionStyle { None = 0, Default = 3 };
    Q_ENUM(AccessoryType)

    explicit UITableViewCell(QQuickItem *parent = nullptr) : UIView(parent) {}

    /// Which pool the cell goes to when it scrolls out of sight. Set once, by the maker.
    QString reuseIdentifier() const { return _reuseIdentifier; }
    void setReuseIdentifier(const QString &identifier) { _reuseIdentifier = identifier; }

    QColor backgroundColor() const { return _backgroundColor; }
    void setBackgroundColor(const QColor &color);

    /// Highlighted, by a finger or by selection. The look of the change is the QML's.
    bool isSelected() const { return _selected; }
    virtual void setSelected(bool selected, bool animated);
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

    /// A cell keeps what is added to it, through every reuse. One press fires one recogniser.
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
    void focusedChanged();
    void userInteractionEnabledChanged();
    void accessoryTypeChanged();

private:
    void failOthers(const UILongPressGestureRecognizer *begun);
    void makeMarks();

    QString _reuseIdentifier;
    QColor _backgroundColor = Qt::white;
    bool _selected = false;
    bool _focused = false;
    bool _userInteractionEnabled = true;
    SelectionStyle _selectionStyle = SelectionStyle::Default;
    AccessoryType _accessoryType = AccessoryType::None;
    std::vector<std::unique_ptr<UILongPressGestureRecognizer>> _gestureRecognizers;
    QQuickItem *_marks = nullptr; // draws both; made for the first of them
};
