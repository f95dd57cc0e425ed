pragma ComponentBehavior: Bound

import QtQuick
import Tintloom

// One of several, side by side.
UIView {
    id: root

    required property var titles
    required property string name
    required property bool tabStop
    property int current: 0

    signal chosen(index: int)

    Accessible.role: Accessible.Grouping
    Accessible.name: root.name

    Rectangle {
        anchors.fill: parent
        radius: 6
        color: "#14000000"
    }
    Row {
        id: row

        anchors.fill: parent

        Repeater {
            model: root.titles

            PushButton {
                id: segment

                required property string modelData
                required property int index

                width: row.width / root.titles.length
                height: row.height
                title: modelData
                activeFocusOnTab: root.tabStop
                onTouchUpInside: root.chosen(index)

                Accessible.role: Accessible.RadioButton
                Accessible.checkable: true
                Accessible.checked: index === root.current

                Rectangle {
                    anchors.fill: parent
                    anchors.margins: 2
                    radius: 5
                    visible: segment.index === root.current
                    color: "white"
                    border.color: "#30000000"
                }
                Text {
                    anchors.centerIn: parent
                    text: segment.modelData
                    color: "#202428"
                    opacity: segment.pressed ? 0.5 : 1
                    font.pixelSize: 12
                    font.underline: segment.activeFocus
                    Accessible.ignored: true
                }
            }
        }
    }
}
