import QtQuick
import Tintloom

// Leads back to the screen below.
PushButton {
    id: button

    title: qsTr("Back")
    width: label.width + 16

    Text {
        id: label

        anchors.centerIn: parent
        text: "\u2039 " + button.title
        color: "#003CA8" // legible on the grey bar and on the green one
        opacity: button.pressed ? 0.4 : 1
        font.pixelSize: 17
        font.underline: button.activeFocus
        Accessible.ignored: true
    }
}
