import QtQuick
import Tintloom

// Sending a theme to a phone.
SendPage {
    id: root

    required property SendController controller

    table: phones.table
    secret: talk.secret
    form: form
    mainButton: main
    otherButton: other

    Keys.onEscapePressed: root.controller.escapePressed()

    CoverPage {
        title: root.controller.heading
        onCloseTapped: root.controller.close()
    }
    TableScroller {
        id: phones

        anchors.fill: parent
        anchors.topMargin: 44
        anchors.bottomMargin: buttons.height
        clip: true
        visible: root.controller.step === SendController.Phones
        title: qsTr("Phones")
    }
    Loader {
        id: form

        objectName: "form"
        anchors.fill: parent
        anchors.topMargin: 44
        active: root.controller.step === SendController.Form
        // A bound component could not be made by a Loader of this Qt.
        sourceComponent: Component {
            PhoneFormView {
                controller: root.controller // qmllint disable unqualified
            }
        }
    }
    SendTalk {
        id: talk

        anchors.fill: parent
        anchors.topMargin: 44
        anchors.bottomMargin: buttons.height
        visible: !phones.visible && !form.active
        controller: root.controller
    }
    Column {
        id: buttons

        anchors.bottom: parent.bottom
        width: parent.width
        topPadding: 8
        bottomPadding: 8
        spacing: 8

        Text {
            objectName: "notice"
            x: 16
            width: parent.width - 32
            visible: phones.visible && text !== ""
            text: root.controller.problem
            textFormat: Text.PlainText
            color: "#A01010"
            font.pixelSize: 14
            wrapMode: Text.Wrap
            Accessible.role: Accessible.AlertMessage
            Accessible.name: text
        }
        ImageButton {
            id: main

            objectName: "main"
            anchors.horizontalCenter: parent.horizontalCenter
            width: 240
            height: 40
            visible: title !== ""
            title: root.controller.mainTitle
            titleSize: 20
            image: "qrc:/images/lightGreenButton.png"
            highlightedImage: "qrc:/images/lightGreenButtonHighlight.png"
            onTouchUpInside: root.controller.mainTapped()
            Accessible.description: talk.visible ? root.controller.text : ""
        }
        ImageButton {
            id: other

            objectName: "other"
            anchors.horizontalCenter: parent.horizontalCenter
            width: 240
            height: 40
            visible: title !== ""
            title: root.controller.otherTitle
            titleColor: "black"
            titleSize: 20
            image: "qrc:/images/greyButton.png"
            highlightedImage: "qrc:/images/greyButtonHighlight.png"
            onTouchUpInside: root.controller.otherTapped()
            Accessible.description: talk.visible ? root.controller.text : ""
        }
    }
}
