import QtQuick
import Tintloom

// What a page that covers the stage has in common: a ground, a title, and a button that closes it.
Item {
    id: cover

    required property string title
    property string closeTitle: qsTr("Close")

    signal closeTapped

    anchors.fill: parent

    Rectangle {
        anchors.fill: parent
        color: "#E4E7EA"
    }
    // Swallows what misses the parts.
    MouseArea {
        anchors.fill: parent
        onWheel: wheel => wheel.accepted = true
    }
    Text {
        width: parent.width
        height: 44
        leftPadding: 44
        rightPadding: 44
        text: cover.title
        color: "#202428"
        font.pixelSize: 17
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
    PushButton {
        id: close

        objectName: "close"
        x: cover.width - width
        width: 44
        height: 44
        title: cover.closeTitle
        onTouchUpInside: cover.closeTapped()

        Text {
            anchors.centerIn: parent
            text: "\u00D7"
            color: "#202428"
            opacity: close.pressed ? 0.5 : 1
            font.pixelSize: 26
            font.underline: close.activeFocus
            Accessible.ignored: true
        }
    }
}
