import QtQuick
import Tintloom

// One of the chooser's quick colours.
ImageButton {
    width: 50
    height: 30
    titleSize: 12
    image: "qrc:/images/blueButton.png"
    highlightedImage: "qrc:/images/blueButtonHighlight.png"
}
