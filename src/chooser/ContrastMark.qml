import QtQuick
import Tintloom

// The contrast of the chosen colour, on a ground of its own to be read on any patch. Its sign differs by shape, character and colour.
PushButton {
    id: mark

    required property ContrastBadge contrast
    property bool narrow: false // without the verdict

    width: mark.narrow ? 72 : 86
    height: 40
    visible: mark.contrast.shown
    focusFrame: true
    title: mark.contrast.spoken

    Accessible.description: mark.contrast.remedy

    Rectangle {
        anchors.fill: parent
        anchors.margins: 4
        radius: 8
        color: mark.pressed ? "#E2E4E6" : "white"
        border.color: "#80000000"
    }
    Rectangle {
        id: sign

        readonly property int level: mark.contrast.level

        x: 8
        anchors.verticalCenter: parent.verticalCenter
        width: [16, 13, 15][level]
        height: width
        radius: [8, 0, 2][level]
        rotation: [0, 45, 0][level]
        color: ["#1B7A34", "#8A5A00", "#B3261E"][level]
        antialiasing: true
    }
    Text {
        anchors.centerIn: sign
        text: ["\u2713", "A", "!"][sign.level]
        color: "white"
        font.pixelSize: 11
        font.bold: true
        Accessible.ignored: true
    }
    Text {
        x: 27
        y: mark.narrow ? 12 : 5
        text: mark.contrast.ratio
        color: "#1C1C1E"
        font.pixelSize: mark.narrow ? 12 : 14
        font.bold: true
        Accessible.ignored: true
    }
    Text {
        x: 27
        y: 22
        visible: !mark.narrow
        width: mark.width - x - 7
        text: mark.contrast.verdict
        color: "#1C1C1E"
        font.pixelSize: 9
        fontSizeMode: Text.HorizontalFit
        minimumPixelSize: 7
        Accessible.ignored: true
    }
}
