import QtQuick
import Tintloom

UITableViewSubtitleCell {
    id: cell

    Accessible.role: Accessible.ListItem
    Accessible.name: cell.textLabel.text
    Accessible.description: cell.detailTextLabel.text + "\n" + cell.accessoryName
    Accessible.focusable: true
    Accessible.focused: cell.focused
    Accessible.selectable: cell.userInteractionEnabled

    Rectangle {
        anchors.fill: parent
        color: cell.backgroundColor
    }
    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: 1
        color: "#1E000000"
    }
    LabelView {
        label: cell.textLabel
        font.pixelSize: 17
        elide: Text.ElideRight
    }
    LabelView {
        label: cell.detailTextLabel
        font.pixelSize: 12
        elide: Text.ElideRight
    }
    Text {
        anchors.right: parent.right
        anchors.rightMargin: 15
        anchors.verticalCenter: parent.verticalCenter
        text: cell.accessoryText
        color: "#0A60FF"
        font.pixelSize: 20
        Accessible.ignored: true
    }
}
