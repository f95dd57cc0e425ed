// Takes what is dropped on the window anywhere, unless an item above takes it.
#pragma once

#include <QMimeData>
#include <QQuickItem>

#include <functional>

class DropTarget : public QQuickItem
{
    Q_OBJECT

public:
    /// Something is dragged over the window, or has been dropped.
    enum class Act { Ask, Drop };
    /// Whether the data is wanted; when it is dropped, takes it.
    using Take = std::function<bool(const QMimeData &data, Act act)>;

    DropTarget(Take take, QQuickItem *parent);

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override { event->accept(); }
    void dropEvent(QDropEvent *event) override;

private:
    const Take _take;
};
