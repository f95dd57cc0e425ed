import QtQuick
import Tintloom

// A theme to pass on: what does not come along, a code to scan, and a text to copy.
FocusScope {
    id: root

    required property ShareController controller
    readonly property int inset: 16

    Keys.onEscapePressed: root.controller.closeTapped()

    CoverPage {
        title: root.controller.title
        onCloseTapped: root.controller.closeTapped()
    }
    Column {
        id: top

        anchors.horizontalCenter: parent.horizontalCenter
        y: 48
        width: Math.min(root.width - 2 * root.inset, 480)
        spacing: 10

        Text {
            objectName: "loss"
            width: top.width
            visible: text !== ""
            text: root.controller.loss
            textFormat: Text.PlainText
            color: "#7A4A00"
            font.pixelSize: 14
            wrapMode: Text.Wrap
            maximumLineCount: 5
            elide: Text.ElideRight
            Accessible.role: Accessible.AlertMessage
            Accessible.name: text
        }
        Text {
            objectName: "text"
            width: top.width
            text: root.controller.text
            textFormat: Text.PlainText
            color: "#202428"
            font.pixelSize: 12
            font.family: "monospace"
            wrapMode: Text.WrapAnywhere
            maximumLineCount: 6
            elide: Text.ElideRight
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
        ImageButton {
            objectName: "copy"
            anchors.horizontalCenter: parent.horizontalCenter
            width: 180
            height: 40
            title: root.controller.copied ? qsTr("Copied") : qsTr("Copy")
            titleSize: 20
            image: "qrc:/images/lightGreenButton.png"
            highlightedImage: "qrc:/images/lightGreenButtonHighlight.png"
            onTouchUpInside: root.controller.copyTapped()
        }
        Text {
            objectName: "codeProblem"
            width: top.width
            visible: text !== ""
            text: root.controller.codeProblem
            textFormat: Text.PlainText
            color: "#202428"
            font.pixelSize: 14
            wrapMode: Text.Wrap
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
    QrItem {
        objectName: "code"
        anchors.horizontalCenter: parent.horizontalCenter
        y: top.y + top.height + 10
        width: Math.min(root.width - 16, root.height - y - 8)
        height: width
        controller: root.controller
        Accessible.role: Accessible.Graphic
        Accessible.name: qsTr("The text as a QR code")
    }
}
