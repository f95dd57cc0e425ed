import QtQuick
import Tintloom

// What is to be known about a phone: how to reach it, and where its themes are.
FocusScope {
    id: view

    required property SendController controller

    focus: true

    Flickable {
        anchors.fill: parent
        clip: true
        contentHeight: column.height
        boundsBehavior: Flickable.StopAtBounds

        Column {
            id: column

            width: view.width
            topPadding: 4
            bottomPadding: 12

            PhoneField {
                id: host

                objectName: "host"
                focus: true
                name: qsTr("Address")
                hint: qsTr("192.168.1.20, or an SSH alias")
                initial: view.controller.form[1]
                inputMethodHints: Qt.ImhUrlCharactersOnly | Qt.ImhNoAutoUppercase | Qt.ImhNoPredictiveText
                onAccepted: keep.touchUpInside()
            }
            PhoneField {
                id: user

                objectName: "user"
                name: qsTr("User")
                hint: qsTr("mobile, or as SSH is set up")
                initial: view.controller.form[3]
                inputMethodHints: Qt.ImhNoAutoUppercase | Qt.ImhNoPredictiveText
                onAccepted: keep.touchUpInside()
            }
            PhoneField {
                id: port

                objectName: "port"
                name: qsTr("Port")
                hint: qsTr("22, or as SSH is set up")
                initial: view.controller.form[2]
                inputMethodHints: Qt.ImhDigitsOnly
                onAccepted: keep.touchUpInside()
            }
            PhoneField {
                id: folder

                objectName: "folder"
                name: qsTr("Folder of themes")
                initial: view.controller.form[4]
                inputMethodHints: Qt.ImhNoAutoUppercase | Qt.ImhNoPredictiveText
                onAccepted: keep.touchUpInside()
            }
            PhoneField {
                id: name

                objectName: "name"
                name: qsTr("Name")
                hint: qsTr("what you call this phone")
                initial: view.controller.form[0]
                onAccepted: keep.touchUpInside()
            }
            Text {
                objectName: "formProblem"
                x: 16
                width: parent.width - 32
                visible: text !== ""
                text: view.controller.problem
                textFormat: Text.PlainText
                color: "#A01010"
                font.pixelSize: 14
                wrapMode: Text.Wrap
                bottomPadding: 8
                Accessible.role: Accessible.AlertMessage
                Accessible.name: text
            }
            Text {
                x: 16
                width: parent.width - 32
                text: qsTr("A password is asked for when it is needed, and kept nowhere.")
                color: "#50565C"
                font.pixelSize: 13
                wrapMode: Text.Wrap
                bottomPadding: 12
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }
            ImageButton {
                id: keep

                objectName: "keep"
                anchors.horizontalCenter: parent.horizontalCenter
                width: 240
                height: 40
                title: qsTr("Remember This Phone")
                titleSize: 20
                image: "qrc:/images/lightGreenButton.png"
                highlightedImage: "qrc:/images/lightGreenButtonHighlight.png"
                onTouchUpInside: view.controller.keepTapped(name.text, host.text, port.text, user.text, folder.text)
            }
        }
    }
}
