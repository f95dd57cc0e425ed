// The toolkit's own cell in its subtitle style: a title, a smaller line of details under it, and
// room for the accessory. Without details the title stands in the middle. A picture may stand left
// of the accessory; texts stay where they are, but end before it.
#pragma once

#include "platform/CALayer.h"
#include "platform/UILabel.h"
#include "platform/UITableViewCell.h"

#include <QQmlEngine>

class UITableViewSubtitleCell : public UITableViewCell
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(UILabel *textLabel READ textLabel CONSTANT FINAL)
    Q_PROPERTY(UILabel *detailTextLabel READ detailTextLabel CONSTANT FINAL)
    Q_PROPERTY(QString accessoryText READ accessoryText NOTIFY accessoryTypeChanged FINAL)
    Q_PROPERTY(QString accessoryName READ accessoryName NOTIFY accessoryTypeChanged FINAL)

public:
    explicit UITableViewSubtitleCell(QQuickItem *parent = nullptr);
    /// A new cell with its looks.
    static UITableViewSubtitleCell *initWithReuseIdentifier(const QString &reuseIdentifier,
                                                            QQmlEngine &engine);

    UILabel *textLabel() { return &_textLabel; }
    UILabel *detailTextLabel() { return &_detailTextLabel; }
    /// The accessory as a character, and in words for assistive tools; both empty without one.
    QString accessoryText() const;
    QString accessoryName() const;

    /// Pixels, at so many per point; they may be shared. A null image takes the picture away.
    void setPicture(const QImage &pixels, double scale);
    /// Pixels of the picture; null without one.
    QImage picture() const { return _picture ? _picture->pixels() : QImage(); }
    /// Where the picture stands, in points; empty without one.
    QRectF pictureFrame() const;

    void layoutSubviews() override;

private:
    UILabel _textLabel;
    UILabel _detailTextLabel;
    CALayer *_picture = nullptr; // made for the first picture
    QSizeF _pictureSize{0.0, 0.0};
};
