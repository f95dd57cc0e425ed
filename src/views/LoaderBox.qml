import QtQuick
import Tintloom

// The box that is up while something is going on, and swallows every touch meanwhile.
LoaderPage {
    id: root

    required property ScreenOverlays overlays

    anchors.fill: parent
    loadingView: box
    loadingLabel: label
    spinningIndicator: spinner

    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        preventStealing: true
        onWheel: wheel => wheel.accepted = true
    }
    UIView {
        id: box

        objectName: "_loadingView"
        frame: root.overlays.loadingFrame

        Accessible.role: Accessible.ProgressBar
        Accessible.name: root.overlays.loadingText

        Rectangle {
            anchors.fill: parent
            radius: 15
            color: "#8C000000"
        }
        Text {
            id: label

            objectName: "_loadingLabel"
            width: 150
            height: 80
            text: root.overlays.loadingText
            textFormat: Text.PlainText
            color: "white"
            font.pixelSize: 16
            font.bold: true
            wrapMode: Text.WordWrap
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
        }
        ActivityIndicator {
            id: spinner

            objectName: "_spinningIndicator"
            x: 57
            y: 65
            width: 37
            height: 37
        }
    }
}
