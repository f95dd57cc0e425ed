#include "platform/DropTarget.h"

#include <utility>

DropTarget::DropTarget(Take take, QQuickItem *parent) : QQuickItem(parent), _take(std::move(take))
{
    setFlag(ItemAcceptsDrops);
}

void DropTarget::dragEnterEvent(QDragEnterEvent *event)
{
    event->setDropAction(Qt::CopyAction); // files stay where they are
    event->setAccepted(_take(*event->mimeData(), Act::Ask));
}

void DropTarget::dropEvent(QDropEvent *event)
{
    event->setDropAction(Qt::CopyAction);
    event->setAccepted(_take(*event->mimeData(), Act::Drop));
}
