import QtQuick
import Tintloom

// One of the quiet strip's buttons: blue text.
PushButton {
    id: button

    width: label.width + 16

    Text {
        id: label

        anchors.centerIn: parent
        text: button.title
        color: "#003CA8"
        opacity: button.pressed ? 0.4 : 1
        font.pixelSize: 15
        font.underline: button.activeFocus
        Accessible.ignored: true
    }
}
