import QtQuick
import Tintloom

// A stack of pages, and the bar over it.
FocusScope {
    id: root

    required property UINavigationController controller

    FocusScope {
        objectName: "pages"
        anchors.fill: parent
        focus: true
    }
    Rectangle {
        width: parent.width
        height: 20 + root.controller.barHeight
        visible: !root.controller.barHidden
        color: "#F2F8F8F8"

        Rectangle {
            anchors.bottom: parent.bottom
            width: parent.width
            height: 1
            color: "#B2B2B2"
        }
        BackButton {
            x: 8
            y: 20
            height: root.controller.barHeight
            visible: root.controller.canGoBack
            onTouchUpInside: root.controller.popViewController()
        }
    }
}
