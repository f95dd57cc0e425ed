import QtQuick
import Tintloom

// A small button of blue text in the strip above the chooser's buttons.
PushButton {
    id: button

    height: 20

    Text {
        anchors.centerIn: parent
        text: button.title
        color: "#003CA8"
        opacity: button.pressed ? 0.5 : 1
        font.pixelSize: 13
        font.underline: button.activeFocus
        Accessible.ignored: true
    }
}
