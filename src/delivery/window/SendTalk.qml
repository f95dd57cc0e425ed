import QtQuick
import Tintloom

// What is happening, what is asked, and what has become of it. Long texts scroll, and can be copied.
Flickable {
    id: talk

    required property SendController controller
    property alias secret: secret

    clip: true
    contentHeight: column.height
    boundsBehavior: Flickable.StopAtBounds

    Column {
        id: column

        width: talk.width
        padding: 16
        spacing: 12

        TextEdit {
            objectName: "text"
            width: talk.width - 32
            text: talk.controller.text
            textFormat: TextEdit.PlainText
            readOnly: true
            selectByMouse: true
            selectionColor: "#0A60FF"
            color: "#202428"
            font.pixelSize: 17
            wrapMode: TextEdit.Wrap
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
        Rectangle {
            width: talk.width - 32
            height: 8
            radius: 4
            visible: talk.controller.amount !== ""
            color: "#C4CACF"
            Accessible.role: Accessible.ProgressBar
            Accessible.name: talk.controller.amount

            Rectangle {
                objectName: "bar"
                width: parent.width * talk.controller.fraction
                height: parent.height
                radius: 4
                color: "#00A03C"
            }
        }
        Text {
            objectName: "amount"
            visible: text !== ""
            text: talk.controller.amount
            color: "#50565C"
            font.pixelSize: 14
            Accessible.ignored: true
        }
        SecretField {
            id: secret

            objectName: "secret"
            width: talk.width - 32
            height: 40
            visible: talk.controller.step === SendController.Password
            onEntered: talk.controller.mainTapped()

            Accessible.role: Accessible.EditableText
            Accessible.name: talk.controller.text
            Accessible.passwordEdit: true
            Accessible.focusable: true

            Rectangle {
                anchors.fill: parent
                radius: 6
                color: "white"
                border.color: secret.activeFocus ? "#0A60FF" : "#9098A0"
                border.width: secret.activeFocus ? 2 : 1
            }
            Text {
                anchors.fill: parent
                anchors.margins: 8
                text: "\u2022".repeat(secret.length)
                elide: Text.ElideLeft
                color: "#202428"
                font.pixelSize: 20
                verticalAlignment: Text.AlignVCenter
                Accessible.ignored: true
            }
        }
        TextEdit {
            objectName: "details"
            width: talk.width - 32
            visible: text !== ""
            text: talk.controller.details
            textFormat: TextEdit.PlainText
            readOnly: true
            selectByMouse: true
            selectionColor: "#0A60FF"
            color: "#202428"
            font.pixelSize: 15
            wrapMode: TextEdit.Wrap
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
}
