import QtQuick
import Tintloom

// A stack of pages. The controller lays its bar over them when it is first shown.
FocusScope {
    id: root

    required property UINavigationController controller

    // Fades as one picture, not part by part.
    layer.enabled: root.opacity < 1

    FocusScope {
        objectName: "pages"
        anchors.fill: parent
        focus: true
    }
}
