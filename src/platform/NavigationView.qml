import QtQuick
import Tintloom

// A stack of pages. The controller lays its bar over them when it is first shown.
UINavigationPage {
    id: root

    required property UINavigationController controller

    pages: stack

    // Fades as one picture, not part by part.
    layer.enabled: root.opacity < 1

    FocusScope {
        id: stack

        anchors.fill: parent
        focus: true
    }
}
