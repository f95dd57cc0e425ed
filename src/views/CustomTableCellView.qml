import QtQuick
import Tintloom

CustomTableCell {
    id: cell

    Accessible.role: Accessible.ListItem
    Accessible.name: cell.name.text
    Accessible.description: cell.description.text + "\n" + cell.colorLabel.text + cell.spokenLock + cell.spokenFinding
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
    }
    LabelView {
        label: cell.description
        font.pixelSize: 12
        fontSizeMode: Text.Fit
        minimumPixelSize: 7
        wrapMode: Text.Wrap
        elide: Text.ElideRight
    }
    Loader {
        x: cell.width - width - 6
        y: 18
        active: cell.locked
        source: Qt.resolvedUrl("LockMark.qml")
    }
    Loader {
        x: cell.width - width - 21
        y: 17
        active: cell.finding !== ""
        source: Qt.resolvedUrl("FindingMark.qml")
    }
    LabelView {
        label: cell.colorLabel
        font.pixelSize: 9
        horizontalAlignment: Text.AlignRight
        elide: Text.ElideRight
    }
}
