// The part of a text label that code decides: its text, its colour and its frame. Font and
// alignment are looks, and stand in the QML that draws it.
#pragma once

#include <QColor>
#include <QObject>
#include <QRectF>
#include <QString>
#include <QtQml/qqmlregistration.h>

class UILabel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Labels belong to the view that shows them")
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged FINAL)
    Q_PROPERTY(QColor textColor READ textColor WRITE setTextColor NOTIFY textColorChanged FINAL)
    Q_PROPERTY(QRectF frame READ frame WRITE setFrame NOTIFY frameChanged FINAL)

public:
    using QObject::QObject;

    QString text() const { return _text; }
    void setText(const QString &text);
    QColor textColor() const { return _textColor; }
    void setTextColor(const QColor &color);
    /// Points, in the view that the label lies in.
    QRectF frame() const { return _frame; }
    void setFrame(const QRectF &frame);

signals:
    void textChanged();
    void textColorChanged();
    void frameChanged();

private:
    QString _text;
    QColor _textColor = Qt::black;
    QRectF _frame;
};
