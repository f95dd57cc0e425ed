import QtQuick
import Tintloom

// The bar over a stack of pages: a status strip, and a way back.
Rectangle {
    id: bar

    required property UINavigationController controller

    anchors.left: parent?.left
    anchors.right: parent?.right
    height: 20 + bar.controller.barHeight
    visible: !bar.controller.barHidden
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
        height: bar.controller.barHeight
        visible: bar.controller.canGoBack
        onTouchUpInside: bar.controller.popViewController()
    }
}
