import QtQuick
import Tintloom

// The bar over a stack of pages: a status strip, the page's title, and a way back.
Rectangle {
    id: bar

    required property UINavigationController controller

    anchors.left: parent?.left
    anchors.right: parent?.right
    height: 20 + bar.controller.barHeight
    visible: !bar.controller.barHidden
    color: bar.controller.barColor

    // The page goes on below the bar; presses on the bar are not for it.
    MouseArea {
        anchors.fill: parent
    }
    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: 1
        color: "#B2B2B2"
    }
    Text {
        objectName: "title"
        anchors.horizontalCenter: parent.horizontalCenter
        y: 20
        width: parent.width - 160
        height: bar.controller.barHeight
        text: bar.controller.topTitle
        textFormat: Text.PlainText
        font.pixelSize: 17
        font.bold: true
        fontSizeMode: Text.HorizontalFit
        minimumPixelSize: 12
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter

        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
    BackButton {
        objectName: "back"
        x: 8
        y: 20
        height: bar.controller.barHeight
        visible: bar.controller.canGoBack
        onTouchUpInside: bar.controller.goBack()
    }
}
