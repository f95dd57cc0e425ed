import QtQuick
import Tintloom

// Draws the alert on top, and keeps touches and keys from everything below.
FocusScope {
    id: overlay

    required property UIWindow window
    readonly property UIAlertView alert: window.alert

    visible: alert !== null

    Keys.onEscapePressed: overlay.alert.click(0)

    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        preventStealing: true
        onWheel: wheel => wheel.accepted = true
    }
    Rectangle {
        anchors.fill: parent
        color: "#66000000"
    }
    Rectangle {
        id: box

        objectName: "alertBox"
        anchors.centerIn: parent
        width: Math.min(270, overlay.width - 20)
        height: texts.height + buttons.height
        radius: 12
        color: "#F8F8F8"

        Accessible.role: Accessible.AlertMessage
        Accessible.name: overlay.alert?.title ?? ""
        Accessible.description: overlay.alert?.message ?? ""

        Column {
            id: texts

            width: box.width
            padding: 18
            spacing: 6

            Text {
                width: box.width - 36
                text: overlay.alert?.title ?? ""
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                horizontalAlignment: Text.AlignHCenter
                font.pixelSize: 17
                font.bold: true
                Accessible.ignored: true
            }
            Text {
                width: box.width - 36
                text: overlay.alert?.message ?? ""
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                horizontalAlignment: Text.AlignHCenter
                font.pixelSize: 13
                Accessible.ignored: true
            }
        }
        AlertButtons {
            id: buttons

            anchors.bottom: box.bottom
            width: box.width
            alert: overlay.alert
        }
    }
}
