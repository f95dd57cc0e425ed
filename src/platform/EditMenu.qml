import QtQuick
import Tintloom

// What can be done with a field's text, on a dark strip below the field. A press elsewhere takes it away.
MouseArea {
    id: root

    required property UITextField field
    required property rect place

    onPressed: root.field.hideMenu()

    Rectangle {
        x: Math.max(4, Math.min(root.width - width - 4, root.place.x + (root.place.width - width) / 2))
        y: root.place.y + root.place.height + 4
        width: buttons.width
        height: 40
        radius: 8
        color: "#E6202124"

        Row {
            id: buttons

            EditMenuButton {
                title: qsTr("Cut")
                onTouchUpInside: root.field.cut()
            }
            EditMenuButton {
                title: qsTr("Copy")
                onTouchUpInside: root.field.copy()
            }
            EditMenuButton {
                title: qsTr("Paste")
                onTouchUpInside: root.field.paste()
            }
            EditMenuButton {
                title: qsTr("Select All")
                onTouchUpInside: root.field.selectAll()
            }
        }
    }
}
