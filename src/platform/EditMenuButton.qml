import QtQuick
import Tintloom

// One entry of a text field's menu.
PushButton {
    id: button

    width: label.implicitWidth + 24
    height: 40
    activeFocusOnTab: false

    Text {
        id: label

        anchors.centerIn: parent
        text: button.title
        color: "white"
        opacity: button.pressed ? 0.5 : 1
        font.pixelSize: 14
        Accessible.ignored: true
    }
}
