// One row of a table, made and configured by the table's data source.
#pragma once

#include "platform/UIView.h"

#include <QColor>

class UITableViewCell : public UIView
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Cells are made by a table's data source")
    Q_PROPERTY(QColor backgroundColor READ backgroundColor WRITE setBackgroundColor NOTIFY
                   backgroundColorChanged FINAL)
    Q_PROPERTY(bool selected READ isSelected NOTIFY selectedChanged FINAL)
    Q_PROPERTY(bool focused READ isFocused NOTIFY focusedChanged FINAL)

public:
    explicit UITableViewCell(QQuickItem *parent = nullptr) : UIView(parent) {}

    /// Which pool the cell goes to when it scrolls out of sight. Set once, by the maker.
    QString reuseIdentifier() const { return _reuseIdentifier; }
    void setReuseIdentifier(const QString &identifier) { _reuseIdentifier = identifier; }

    QColor backgroundColor() const { return _backgroundColor; }
    void setBackgroundColor(const QColor &color);

    /// Highlighted, by a finger or by selection. The look of the change is the QML's.
    bool isSelected() const { return _selected; }
    virtual void setSelected(bool selected, bool animated);

    /// The row that the keyboard is on.
    bool isFocused() const { return _focused; }
    void setFocused(bool focused);

signals:
    void backgroundColorChanged();
    void selectedChanged();
    void focusedChanged();

private:
    void makeMarks();

    QString _reuseIdentifier;
    QColor _backgroundColor = Qt::white;
    bool _selected = false;
    bool _focused = false;
    QQuickItem *_marks = nullptr; // draws both; made for the first of them
};
