import QtQuick
import Tintloom

// A button drawn as a stretched picture, with a second picture while it is pressed.
PushButton {
    id: button

    property url image
    property url highlightedImage
    property color titleColor: "white"
    property int titleSize: 15

    focusFrame: true
    opacity: usable ? 1 : 0.6

    // The corners, 18 points each, keep their shape; the middle stretches.
    BorderImage {
        anchors.fill: parent
        source: button.pressed ? button.highlightedImage : button.image
        border {
            left: 18
            top: 18
            right: 18
            bottom: 18
        }
    }
    Text {
        anchors.centerIn: parent
        scale: Math.min(1, (button.width - 12) / width) // for fonts wider than the phone's
        text: button.title
        color: button.titleColor
        font.pixelSize: button.titleSize
        Accessible.ignored: true
    }
}
