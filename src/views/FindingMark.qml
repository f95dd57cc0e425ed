import QtQuick
import Tintloom

// A small sign that a row's colour is hard to see, loaded by the row that it stands in.
Rectangle {
    id: mark

    readonly property CustomTableCell cell: (parent as Loader)?.parent as CustomTableCell
    readonly property color ink: mark.cell?.colorLabel.textColor ?? "black"

    width: 13
    height: 13
    radius: 6.5
    color: "transparent"
    border.color: mark.ink
    border.width: 1.5
    antialiasing: true

    Text {
        anchors.centerIn: parent
        text: "!"
        color: mark.ink
        font.pixelSize: 10
        font.bold: true
        Accessible.ignored: true
    }
}
