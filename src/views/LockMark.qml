import QtQuick

// A small closed lock.
Item {
    id: mark

    property color color: "black"

    width: 9
    height: 12

    Rectangle {
        x: 2
        width: 5
        height: 9
        radius: 2.5
        color: "transparent"
        border.color: mark.color
        border.width: 1.5
        antialiasing: true
    }
    Rectangle {
        y: 5
        width: 9
        height: 7
        radius: 1.5
        color: mark.color
        antialiasing: true
    }
}
