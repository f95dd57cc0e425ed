// One screen of the themed phone, as large as fits into the item.
//
// What a change touches is painted anew, and nothing else. The pointer names what it is over, a tap
// chooses it; with the keyboard, arrows go from part to part and Return chooses. Assistive
// technology finds the parts as children of the item (PreviewParts.qml).
#pragma once

#include "platform/DisplayPace.h"
#include "preview/window/PreviewModel.h"

#include <QQuickPaintedItem>
#include <QRegion>
#include <QTransform>

#include <utility>

class PreviewItem : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(PreviewModel *model READ model WRITE setModel NOTIFY modelChanged FINAL REQUIRED)
    Q_PROPERTY(bool messageList READ isMessageList WRITE setMessageList FINAL)
    Q_PROPERTY(QVariantList parts READ parts NOTIFY partsChanged FINAL)

public:
    explicit PreviewItem(QQuickItem *parent = nullptr);

    PreviewModel *model() const { return _model; }
    void setModel(PreviewModel *model);
    bool isMessageList() const { return _screen == PreviewScreen::MessageList; }
    void setMessageList(bool isMessageList);

    /// For each part its "key", its "name" and its "frame" in the item. Only while something asks
    /// for them are they kept in step.
    QVariantList parts() const;
    Q_INVOKABLE void choose(const QString &key) { _model->choose(key); }
    /// What is chosen for the part; asked anew with each revision of the model.
    Q_INVOKABLE QString describe(const QString &key, int revision) const
    {
        Q_UNUSED(revision)
        return _model->choiceOf(key);
    }

    /// From points of the scene to points of the item.
    QTransform fromScene() const;
    void paint(QPainter *painter) override;

signals:
    void modelChanged();
    void partsChanged();

protected:
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    void hoverMoveEvent(QHoverEvent *event) override;
    void hoverLeaveEvent(QHoverEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void repaint(const QRegion &region);
    void repaintOutlines();
    /// The part that is outlined: under the keyboard's focus, or the one that the editor is at.
    QString outlined() const;
    QString keyAt(QPointF point) const;
    void moveFocusBy(int parts);
    void focusPart(const QString &key);
    void paintOutline(QPainter &painter, const QString &key) const;

    QPointer<PreviewModel> _model;
    PreviewScreen _screen = PreviewScreen::Conversation;
    QRegion _touched; // since the last repainting
    // Painting each of a finger's moves would hold up the finger.
    DisplayPace _repainting{[this] { repaint(std::exchange(_touched, QRegion())); }, this};
    QString _focused;        // the keyboard's part, while the item has the keyboard
    QString _pressed;        // what a press began on
    QRectF _paintedOutlines; // points of the scene
};
