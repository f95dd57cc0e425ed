import QtQuick
import Tintloom

// A strip across a screen that says something, and stays until it is dismissed.
FocusScope {
    id: strip

    required property ScreenOverlays overlays
    property string text
    property color ink
    property color ground
    property real footerHeight: 0 // below the text
    default property alias footer: footer.data

    anchors.left: parent?.left
    anchors.right: parent?.right
    y: overlays.noticeBottom - height
    height: Math.min(message.implicitHeight + 16, 160) + strip.footerHeight
    enabled: !overlays.loading

    Accessible.role: Accessible.Note
    Accessible.name: strip.text

    Keys.onEscapePressed: strip.overlays.dismissNotice()

    Rectangle {
        anchors.fill: parent
        color: strip.ground

        Rectangle {
            width: parent.width
            height: 1
            color: "#33000000"
        }
    }
    // Presses beside the text end here, and not on the row behind.
    MouseArea {
        anchors.fill: parent
    }
    Flickable {
        anchors.fill: parent
        anchors.margins: 8
        anchors.rightMargin: 44
        anchors.bottomMargin: 8 + strip.footerHeight
        contentHeight: message.height
        clip: true

        Text {
            id: message

            width: parent.width
            text: strip.text
            textFormat: Text.PlainText
            color: strip.ink
            font.pixelSize: 12
            wrapMode: Text.WrapAtWordBoundaryOrAnywhere
            Accessible.ignored: true
        }
    }
    Item {
        id: footer

        anchors.bottom: parent.bottom
        width: parent.width
        height: strip.footerHeight
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
            color: strip.ink
            opacity: parent.pressed ? 0.5 : 1
            font.pixelSize: 24
            font.underline: parent.activeFocus
            Accessible.ignored: true
        }
    }
}
