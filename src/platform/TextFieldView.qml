import QtQuick
import Tintloom

// A text field without a frame: centred text, and a button that clears it while it is edited.
UITextField {
    id: field

    property string name
    property int fontSize: 18
    property alias inputMethodHints: textInput.inputMethodHints

    input: textInput

    TextInput {
        id: textInput

        anchors.fill: parent
        leftPadding: 36
        rightPadding: 36
        clip: true
        color: field.textColor
        font.pixelSize: field.fontSize
        horizontalAlignment: TextInput.AlignHCenter
        verticalAlignment: TextInput.AlignVCenter
        selectByMouse: true
        selectionColor: "#0A60FF"
        selectedTextColor: "white"
        activeFocusOnTab: true

        Accessible.role: Accessible.EditableText
        Accessible.name: field.name

        TapHandler {
            acceptedButtons: Qt.RightButton
            onTapped: field.showMenu()
        }
        TapHandler {
            onLongPressed: field.showMenu()
        }
    }
    PushButton {
        anchors.right: parent.right
        width: 36
        height: parent.height
        title: qsTr("Clear text")
        visible: field.editing && field.text !== ""
        activeFocusOnTab: false
        onTouchUpInside: field.clear()

        Rectangle {
            anchors.centerIn: parent
            width: 18
            height: 18
            radius: 9
            color: "#8E8E93"
            border.color: "#80FFFFFF"
        }
        Text {
            anchors.centerIn: parent
            text: "\u00D7"
            color: "white"
            font.pixelSize: 15
            font.bold: true
            Accessible.ignored: true
        }
    }
}
