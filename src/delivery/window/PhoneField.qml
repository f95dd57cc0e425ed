import QtQuick

// A line of the form: what it is for, and a field. Return leads on.
FocusScope {
    id: line

    required property string name
    property string initial
    property string hint
    property alias text: input.text
    property alias inputMethodHints: input.inputMethodHints

    signal accepted

    width: parent?.width ?? 0
    height: 58
    implicitHeight: 58

    Text {
        id: label

        x: 16
        text: line.name
        color: "#50565C"
        font.pixelSize: 13
        Accessible.ignored: true
    }
    Rectangle {
        x: 16
        y: 18
        width: line.width - 32
        height: 34
        radius: 6
        color: "white"
        border.color: input.activeFocus ? "#0A60FF" : "#9098A0"
        border.width: input.activeFocus ? 2 : 1

        Text {
            anchors.fill: parent
            anchors.leftMargin: 8
            visible: input.text === ""
            text: line.hint
            color: "#767C82"
            font.pixelSize: 16
            elide: Text.ElideRight
            verticalAlignment: Text.AlignVCenter
            Accessible.ignored: true
        }
        TextInput {
            id: input

            objectName: "input"
            anchors.fill: parent
            leftPadding: 8
            rightPadding: 8
            clip: true
            focus: true
            text: line.initial
            color: "#202428"
            font.pixelSize: 16
            verticalAlignment: TextInput.AlignVCenter
            selectByMouse: true
            selectionColor: "#0A60FF"
            selectedTextColor: "white"
            activeFocusOnTab: true
            onAccepted: line.accepted()

            Accessible.role: Accessible.EditableText
            Accessible.name: line.name
            Accessible.description: line.hint
        }
    }
}
