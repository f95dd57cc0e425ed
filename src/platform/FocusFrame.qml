import QtQuick

// The line around the item that has the keyboard; a child of that item.
Rectangle {
    anchors.fill: parent
    anchors.margins: -2
    z: 1
    color: "transparent"
    border.color: "#0A60FF"
    border.width: 2
    radius: 10
    visible: parent?.activeFocus ?? false
}
