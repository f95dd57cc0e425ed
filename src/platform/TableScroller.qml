import QtQuick
import Tintloom

// A table in the Flickable that moves it.
Flickable {
    id: scroller

    property alias table: content
    required property string title // for assistive technology

    contentWidth: width
    contentHeight: content.contentHeight
    topMargin: content.insetTop
    bottomMargin: content.insetBottom
    interactive: content.scrollEnabled
    flickableDirection: Flickable.VerticalFlick
    boundsBehavior: Flickable.DragAndOvershootBounds

    UITableView {
        id: content

        width: scroller.width
        height: contentHeight
        contentOffset: scroller.contentY
        boundsHeight: scroller.height
        focus: true
        headerComponent: Component {
            TableHeaderView {}
        }
        onScrollRequested: offset => scroller.contentY = offset

        Accessible.role: Accessible.List
        Accessible.name: scroller.title

        TapHandler {
            id: finger

            onPressedChanged: content.setPressed(finger.pressed, finger.point.position)
            onTapped: eventPoint => content.tap(eventPoint.position)
        }
        TapHandler {
            acceptedButtons: Qt.RightButton
            onTapped: eventPoint => content.secondaryTap(eventPoint.position)
        }
        HoverHandler {
            id: pointer

            onHoveredChanged: content.setHovered(pointer.hovered, pointer.point.position)
            onPointChanged: content.setHovered(pointer.hovered, pointer.point.position)
        }
    }

    // Shows how far the table has been scrolled, while it moves.
    Rectangle {
        parent: scroller
        z: 2
        x: scroller.width - width - 3
        y: scroller.topMargin + scroller.visibleArea.yPosition * (scroller.height - scroller.topMargin - scroller.bottomMargin)
        width: 4
        height: Math.max(24, scroller.visibleArea.heightRatio * (scroller.height - scroller.topMargin - scroller.bottomMargin))
        radius: 2
        color: "#80000000"
        opacity: scroller.moving ? 1 : 0

        Behavior on opacity {
            NumberAnimation {
                duration: 300
            }
        }
    }
}
