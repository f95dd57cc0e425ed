// The header of a table's section. The table's delegate colours it before it is shown.
#pragma once

#include "platform/UILabel.h"
#include "platform/UIView.h"

#include <QColor>

class UITableViewHeader : public UIView
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(UILabel *textLabel READ textLabel CONSTANT FINAL)
    Q_PROPERTY(QColor tintColor READ tintColor WRITE setTintColor NOTIFY tintColorChanged FINAL)

public:
    explicit UITableViewHeader(QQuickItem *parent = nullptr) : UIView(parent) {}

    UILabel *textLabel() { return &_textLabel; }
    /// The background.
    QColor tintColor() const { return _tintColor; }
    void setTintColor(const QColor &color);

    void layoutSubviews() override;

signals:
    void tintColorChanged();

private:
    UILabel _textLabel;
    QColor _tintColor = Qt::lightGray;
};
