import QtQuick
import Tintloom

// A strip that says what could not be written, and stays until it is dismissed.
Rectangle {
    id: strip

    required property ScreenOverlays overlays

    objectName: "notice"
    anchors.left: parent?.left
    anchors.right: parent?.right
    y: overlays.noticeBottom - height
    height: Math.min(message.implicitHeight + 16, 160)
    enabled: !overlays.loading && !overlays.covered
    color: "#B3261E"

    Accessible.role: Accessible.Note
    Accessible.name: message.text

    // Presses beside the text end here, and not on the row behind.
    MouseArea {
        anchors.fill: parent
    }
    Flickable {
        anchors.fill: parent
        anchors.margins: 8
        anchors.rightMargin: 44
        contentHeight: message.height
        clip: true

        Text {
            id: message

            width: parent.width
            text: strip.overlays.notice
            textFormat: Text.PlainText
            color: "white"
            font.pixelSize: 12
            wrapMode: Text.WrapAtWordBoundaryOrAnywhere
            Accessible.ignored: true
        }
    }
    PushButton {
        anchors.right: parent.right
        width: 44
        height: 44
        title: qsTr("Dismiss")
        onTouchUpInside: strip.overlays.dismissNotice()

        Text {
            anchors.centerIn: parent
            text: "\u00D7"
            color: "white"
            opacity: parent.pressed ? 0.5 : 1
            font.pixelSize: 24
            font.underline: parent.activeFocus
            Accessible.ignored: true
        }
    }
}
