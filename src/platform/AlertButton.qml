import QtQuick
import Tintloom

// One of an alert's buttons: text under a hairline.
PushButton {
    id: button

    height: 44

    Rectangle {
        width: parent.width
        height: 1
        color: "#C8C8CC"
    }
    Rectangle {
        anchors.fill: parent
        anchors.topMargin: 1
        radius: 12
        color: "#1A000000"
        visible: button.pressed
    }
    Text {
        anchors.centerIn: parent
        text: button.title
        textFormat: Text.PlainText
        color: "#0A60FF"
        font.pixelSize: 17
        font.bold: button.activeFocus
        Accessible.ignored: true
    }
}
