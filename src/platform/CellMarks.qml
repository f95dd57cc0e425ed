import QtQuick
import Tintloom

// What lies over a row while it is pressed or selected, or while the keyboard is on it.
Item {
    id: marks

    required property UITableViewCell cell

    anchors.fill: parent
    z: 1

    Rectangle {
        anchors.fill: parent
        color: "#33000000"
        opacity: marks.cell.marked ? 1 : 0

        Behavior on opacity {
            enabled: marks.cell.fadesMark

            NumberAnimation {
                duration: 150
            }
        }
    }
    Rectangle {
        anchors.fill: parent
        color: "transparent"
        border.color: "#0A60FF"
        border.width: 2
        visible: marks.cell.focused

        // A white line inside, to stand out from blue rows too.
        Rectangle {
            anchors.fill: parent
            anchors.margins: 2
            color: "transparent"
            border.color: "white"
        }
    }
}
