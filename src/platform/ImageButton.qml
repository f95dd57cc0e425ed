import QtQuick
import Tintloom

// A button drawn as a stretched picture, with a second picture while it is pressed.
PushButton {
    id: button

    property url image
    property url highlightedImage
    property color titleColor: "white"
    property int titleSize: 15

    opacity: enabled ? 1 : 0.6

    ButtonFace {
        anchors.fill: parent
        source: button.image
    }
    ButtonFace {
        anchors.fill: parent
        source: button.highlightedImage
        asynchronous: true
        visible: button.pressed
    }
    Text {
        anchors.fill: parent
        text: button.title
        color: button.titleColor
        font.pixelSize: button.titleSize
        fontSizeMode: Text.HorizontalFit
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }
    Rectangle {
        anchors.fill: parent
        anchors.margins: -2
        color: "transparent"
        border.color: "#0A60FF"
        border.width: 2
        radius: 10
        visible: button.activeFocus
    }
}
