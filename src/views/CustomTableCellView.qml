import QtQuick
import Tintloom

CustomTableCell {
    id: cell

    Accessible.role: Accessible.ListItem
    Accessible.name: cell.name.text
    Accessible.description: cell.description.text + "\n" + cell.colorLabel.text
    Accessible.focusable: true
    Accessible.focused: cell.focused
    Accessible.selectable: true

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
        label: cell.name
        font.pixelSize: 21
        fontSizeMode: Text.HorizontalFit
        minimumPixelSize: 9
        elide: Text.ElideRight
        Accessible.ignored: true
    }
    LabelView {
        label: cell.description
        font.pixelSize: 12
        fontSizeMode: Text.Fit
        minimumPixelSize: 7
        wrapMode: Text.Wrap
        elide: Text.ElideRight
        Accessible.ignored: true
    }
    LabelView {
        label: cell.colorLabel
        font.pixelSize: 9
        horizontalAlignment: Text.AlignRight
        elide: Text.ElideRight
        Accessible.role: Accessible.StaticText
        Accessible.name: cell.colorLabel.text
    }
    Rectangle {
        anchors.fill: parent
        color: "#33000000"
        opacity: cell.selected ? 1 : 0

        Behavior on opacity {
            NumberAnimation {
                duration: 150
            }
        }
    }
    Rectangle {
        anchors.fill: parent
        color: "transparent"
        border.color: "#0A60FF"
        border.width: 3
        visible: cell.focused
    }
}
