pragma ComponentBehavior: Bound

import QtQuick
import Tintloom

// The parts of a screen, for assistive technology: named, and pressable.
Repeater {
    id: root

    required property PreviewItem screen

    model: root.screen.parts

    Item {
        required property var modelData

        x: modelData.frame.x
        y: modelData.frame.y
        width: modelData.frame.width
        height: modelData.frame.height

        Accessible.role: Accessible.Button
        Accessible.name: modelData.name
        Accessible.description: root.screen.describe(modelData.key, root.screen.model.revision)
        Accessible.onPressAction: root.screen.choose(modelData.key)
    }
}
