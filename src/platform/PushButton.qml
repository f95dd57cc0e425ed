import QtQuick
import Tintloom

// What all buttons have in common; how they look is up to their children. A press takes no keyboard focus, so
// that tapping a button does not end an edit elsewhere; Tab reaches it.
UIView {
    id: button

    property string title
    readonly property bool pressed: finger.pressed && finger.containsMouse

    signal touchUpInside

    activeFocusOnTab: true

    Accessible.role: Accessible.Button
    Accessible.name: title
    Accessible.focusable: true
    Accessible.onPressAction: button.touchUpInside()
    Keys.onReturnPressed: button.touchUpInside()
    Keys.onEnterPressed: button.touchUpInside()
    Keys.onSpacePressed: button.touchUpInside()

    MouseArea {
        id: finger

        anchors.fill: parent
        onClicked: button.touchUpInside()
    }
}
