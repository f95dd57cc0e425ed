import QtQuick
import Tintloom

// What a person may want to know or do next: a text, and what can be done about it.
Strip {
    id: strip

    objectName: "quietStrip"
    text: overlays.quietText
    ink: "#1C1C1E"
    ground: "#F4F6F5"
    footerHeight: 40

    Row {
        Repeater {
            model: strip.overlays.quietActions

            PushButton {
                id: button

                required property string modelData
                required property int index

                width: label.width + 16
                height: strip.footerHeight
                title: modelData
                onTouchUpInside: strip.overlays.performQuietAction(index)

                Text {
                    id: label

                    anchors.centerIn: parent
                    text: button.title
                    color: "#003CA8"
                    opacity: button.pressed ? 0.4 : 1
                    font.pixelSize: 15
                    font.underline: button.activeFocus
                    Accessible.ignored: true
                }
            }
        }
    }
}
