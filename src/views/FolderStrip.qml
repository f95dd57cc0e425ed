import QtQuick
import Tintloom

// Where a theme is that has still to be copied onto the phone.
Strip {
    id: strip

    objectName: "folderStrip"
    text: qsTr("Your theme is the folder Tintloom in\n%1\nCopy it onto the phone, into\n/var/mobile/Library/biteThemes").arg(overlays.copyFrom)
    ink: "#1C1C1E"
    ground: "#F4F6F5"
    footerHeight: 40

    PushButton {
        objectName: "showFolder"
        width: label.width + 16
        height: strip.footerHeight
        title: qsTr("Show Folder")
        onTouchUpInside: strip.overlays.showFolder()

        Text {
            id: label

            anchors.centerIn: parent
            text: parent.title
            color: "#003CA8"
            opacity: parent.pressed ? 0.4 : 1
            font.pixelSize: 15
            font.underline: parent.activeFocus
            Accessible.ignored: true
        }
    }
}
