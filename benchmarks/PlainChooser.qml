import QtQuick
import QtQuick.Controls.Basic

// The chooser's page out of ready-made items at the chooser's places; a picture stands for the wheel.
FocusScope {
    id: root

    component PlainButton: Item {
        property alias text: label.text

        BorderImage {
            anchors.fill: parent
            source: "qrc:/images/blueButton.png"
            border.left: 18
            border.top: 18
            border.right: 18
            border.bottom: 18
        }
        Text {
            id: label

            anchors.centerIn: parent
            color: "white"
            font.pixelSize: 12
        }
        MouseArea {
            anchors.fill: parent
        }
    }

    Rectangle {
        anchors.fill: parent
        color: "white"
    }
    PlainButton {
        x: 5
        y: 20
        width: 90
        height: 40
        text: "Cancel"
    }
    PlainButton {
        x: 106
        y: 20
        width: 108
        height: 40
        text: "Remove Color"
    }
    PlainButton {
        x: 225
        y: 20
        width: 90
        height: 40
        text: "Select Color"
    }
    Rectangle {
        y: 70
        width: 320
        height: 40
        color: "#336699"
    }
    TextField {
        y: 70
        width: 320
        height: 40
        text: "#336699FF"
        horizontalAlignment: TextInput.AlignHCenter
        font.pixelSize: 18
        background: null
    }
    Image {
        x: 5
        y: 120
        width: 310
        height: 310
        source: "image://wheel/310"

        Rectangle { // the wheel is as dark as its colours
            anchors.fill: parent
            color: "black"
            opacity: 1 - brightness.value
        }
    }
    Slider {
        id: brightness

        x: 2.5
        y: 440
        width: 315
        height: 30
        value: 0.6
    }
    Slider {
        x: 2.5
        y: 480
        width: 315
        height: 30
        value: 1
    }
    Row {
        x: 4
        y: 518
        spacing: 2

        Repeater {
            model: ["Black", "White", "Red", "Green", "Blue", "Clear"]

            PlainButton {
                required property string modelData

                width: 50
                height: 30
                text: modelData
            }
        }
    }
    Item { // the contrast on the patch
        x: 234
        y: 70
        width: 86
        height: 40

        Rectangle {
            anchors.fill: parent
            anchors.margins: 4
            radius: 8
            color: "white"
            border.color: "#80000000"
        }
        Rectangle {
            id: sign

            x: 8
            anchors.verticalCenter: parent.verticalCenter
            width: 16
            height: 16
            radius: 8
            color: "#1B7A34"
        }
        Text {
            anchors.centerIn: sign
            text: "\u2713"
            color: "white"
            font.pixelSize: 11
            font.bold: true
        }
        Text {
            x: 27
            y: 5
            text: "7.03:1"
            color: "#1C1C1E"
            font.pixelSize: 14
            font.bold: true
        }
        Text {
            x: 27
            y: 22
            width: 52
            text: "Reads well"
            color: "#1C1C1E"
            font.pixelSize: 9
            fontSizeMode: Text.HorizontalFit
            minimumPixelSize: 7
        }
        MouseArea {
            anchors.fill: parent
        }
    }
    Item {
        width: 102
        height: 20

        Text {
            anchors.centerIn: parent
            text: "Theme Colors"
            color: "#003CA8"
            font.pixelSize: 13
        }
        MouseArea {
            anchors.fill: parent
        }
    }
}
