import QtQuick
import Tintloom

// A theme that somebody has made: how it looks, and what there is to know before it is kept.
NamePage {
    id: root

    required property OpenController controller

    field: name.field

    Keys.onEscapePressed: root.controller.closeTapped()

    CoverPage {
        title: root.controller.title
        closeTitle: qsTr("Cancel")
        onCloseTapped: root.controller.closeTapped()
    }
    Flickable {
        id: scroller

        anchors.fill: parent
        anchors.topMargin: 44
        anchors.bottomMargin: 54
        clip: true
        contentHeight: column.height + 16
        boundsBehavior: Flickable.StopAtBounds

        Column {
            id: column

            anchors.horizontalCenter: parent.horizontalCenter
            y: 4
            width: Math.min(scroller.width - 32, 480)
            spacing: 12

            Row {
                id: screens

                readonly property real screenWidth: Math.floor((column.width - spacing) / 2)

                spacing: 16

                PreviewFrame {
                    width: screens.screenWidth
                    height: Math.floor(screens.screenWidth * 568 / 320)
                    model: root.controller.model
                    name: qsTr("Conversation")
                    tabStop: false
                }
                PreviewFrame {
                    width: screens.screenWidth
                    height: Math.floor(screens.screenWidth * 568 / 320)
                    model: root.controller.model
                    name: qsTr("Message list")
                    tabStop: false
                    messageList: true
                }
            }
            NameField {
                id: name

                width: column.width
                entry: root.controller.entry
            }
            Text {
                objectName: "remarks"
                width: column.width
                visible: text !== ""
                text: root.controller.remarks
                textFormat: Text.PlainText
                color: "#202428"
                font.pixelSize: 14
                wrapMode: Text.Wrap
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }
        }
    }
    Row {
        anchors.horizontalCenter: parent.horizontalCenter
        y: root.height - 48
        height: 40
        spacing: 6

        ImageButton {
            objectName: "cancel"
            width: 82
            height: 40
            title: qsTr("Cancel")
            titleColor: "black"
            image: "qrc:/images/greyButton.png"
            highlightedImage: "qrc:/images/greyButtonHighlight.png"
            onTouchUpInside: root.controller.closeTapped()
        }
        ImageButton {
            objectName: "keepAndEdit"
            width: 124
            height: 40
            usable: !(root.controller.entry?.busy ?? false)
            title: qsTr("Keep and Edit")
            titleColor: "black"
            image: "qrc:/images/greyButton.png"
            highlightedImage: "qrc:/images/greyButtonHighlight.png"
            onTouchUpInside: root.controller.keepAndEditTapped()
        }
        ImageButton {
            objectName: "keep"
            width: 82
            height: 40
            usable: !(root.controller.entry?.busy ?? false)
            title: qsTr("Keep")
            image: "qrc:/images/lightGreenButton.png"
            highlightedImage: "qrc:/images/lightGreenButtonHighlight.png"
            onTouchUpInside: root.controller.keepTapped()
        }
    }
}
