import QtQuick
import Tintloom

// A picture behind the message list, to be placed.
FocusScope {
    id: root

    required property PlaceController controller

    Keys.onEscapePressed: root.controller.closeTapped()

    CoverPage {
        title: qsTr("Place the Picture")
        closeTitle: qsTr("Cancel")
        onCloseTapped: root.controller.closeTapped()
    }
    Item {
        id: place

        objectName: "place"
        x: (root.width - width) / 2
        y: 48
        width: Math.round(height * 320 / 568)
        height: Math.min(root.height - 132, Math.round((root.width - 24) * 568 / 320))

        PreviewFrame {
            anchors.fill: parent
            enabled: false
            model: root.controller.model
            name: qsTr("Message list")
            tabStop: false
            messageList: true
        }
        DragHandler {
            id: drag

            target: null
            onActiveChanged: root.controller.begin()
            onActiveTranslationChanged: root.controller.drag(drag.active, drag.activeTranslation.x / place.width, drag.activeTranslation.y / place.height)
        }
        PinchHandler {
            id: pinch

            target: null
            onActiveChanged: root.controller.begin()
            onActiveScaleChanged: root.controller.pinch(pinch.active, pinch.activeScale)
        }
        WheelHandler {
            onWheel: wheel => root.controller.turnWheel(wheel.angleDelta.y)
        }
    }
    Text {
        x: 12
        y: root.height - 80
        width: root.width - 24
        text: qsTr("Drag to move, pinch or turn the wheel to zoom")
        color: "#202428"
        font.pixelSize: 13
        horizontalAlignment: Text.AlignHCenter
        elide: Text.ElideRight
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
    ImageButton {
        objectName: "apply"
        x: (root.width - width) / 2
        y: root.height - 48
        width: 180
        height: 40
        title: qsTr("Apply")
        titleSize: 20
        image: "qrc:/images/lightGreenButton.png"
        highlightedImage: "qrc:/images/lightGreenButtonHighlight.png"
        onTouchUpInside: root.controller.applyTapped()
    }
}
