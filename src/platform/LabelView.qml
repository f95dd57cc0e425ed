import QtQuick
import Tintloom

// Draws a UILabel. Fonts and alignment are set where it is used.
Text {
    required property UILabel label

    x: label.frame.x
    y: label.frame.y
    width: label.frame.width
    height: label.frame.height
    text: label.text
    color: label.textColor
    textFormat: Text.PlainText
    verticalAlignment: Text.AlignVCenter
}
