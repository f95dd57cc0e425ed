import QtQuick
import Tintloom

// A small closed lock, loaded by the row that it stands in.
Item {
    id: mark

    readonly property CustomTableCell cell: (parent as Loader)?.parent as CustomTableCell
    readonly property color ink: mark.cell?.colorLabel.textColor ?? "black"

    width: 9
    height: 12

    Rectangle {
        x: 2
        width: 5
        height: 9
        radius: 2.5
        color: "transparent"
        border.color: mark.ink
        border.width: 1.5
        antialiasing: true
    }
    Rectangle {
        y: 5
        width: 9
        height: 7
        radius: 1.5
        color: mark.ink
        antialiasing: true
    }
}
