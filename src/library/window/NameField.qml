import QtQuick
import Tintloom

// The field for a theme's name, with what there is to say of the name below it.
Column {
    id: column

    required property NameEntry entry
    property alias field: field

    spacing: 8

    Rectangle {
        width: column.width
        height: 40
        radius: 8
        color: "white"
        border.color: field.editing ? "#003CA8" : "#8E949A"

        TextFieldView {
            id: field

            objectName: "name"
            anchors.fill: parent
            name: qsTr("Name of the theme")
            fontSize: 16
            textColor: "#202428"
        }
    }
    Text {
        objectName: "problem"
        width: column.width
        visible: text !== ""
        text: column.entry?.problem ?? ""
        textFormat: Text.PlainText
        color: "#A01818"
        font.pixelSize: 14
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        Accessible.role: Accessible.AlertMessage
        Accessible.name: text
    }
    Row {
        anchors.horizontalCenter: parent.horizontalCenter
        height: 40
        visible: (column.entry?.freeName ?? "") !== ""

        QuietButton {
            objectName: "replace"
            height: 40
            visible: column.entry?.replaceable ?? false
            title: qsTr("Replace")
            onTouchUpInside: column.entry.replace()
        }
        QuietButton {
            objectName: "freeName"
            height: 40
            title: column.entry?.freeName ?? ""
            onTouchUpInside: column.entry.acceptFreeName()
        }
    }
}
