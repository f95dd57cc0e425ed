import QtQuick
import Tintloom

// What is the theme's name to be?
NamePage {
    id: root

    required property NameController controller

    field: name.field

    Keys.onEscapePressed: root.controller.closeTapped()

    CoverPage {
        title: root.controller.title
        onCloseTapped: root.controller.closeTapped()
    }
    NameField {
        id: name

        anchors.horizontalCenter: parent.horizontalCenter
        y: 64
        width: Math.min(parent.width - 32, 400)
        entry: root.controller.entry
    }
    ImageButton {
        objectName: "accept"
        anchors.horizontalCenter: parent.horizontalCenter
        y: name.y + name.height + 16
        width: 180
        height: 40
        usable: !(root.controller.entry?.busy ?? false)
        title: root.controller.verb
        titleSize: 20
        image: "qrc:/images/lightGreenButton.png"
        highlightedImage: "qrc:/images/lightGreenButtonHighlight.png"
        onTouchUpInside: root.controller.entry.accept()
    }
}
