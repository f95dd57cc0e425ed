import QtQuick
import Tintloom

// One of the phone's screens, with a fine edge around it.
UIView {
    id: root

    required property PreviewModel model
    required property string name
    required property bool tabStop
    property alias messageList: screen.messageList

    Rectangle {
        anchors.fill: parent
        anchors.margins: -1
        color: "transparent"
        border.color: "#40000000"
    }
    PreviewItem {
        id: screen

        anchors.fill: parent
        model: root.model
        activeFocusOnTab: root.tabStop

        Accessible.role: Accessible.Grouping
        Accessible.name: root.name
        Accessible.focusable: true

        PreviewParts {
            screen: screen
        }
    }
}
