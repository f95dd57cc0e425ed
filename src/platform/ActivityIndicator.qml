import QtQuick

// Twelve white spokes that turn while something is going on.
Item {
    id: indicator

    Accessible.role: Accessible.Animation
    Accessible.name: qsTr("In progress")

    Repeater {
        model: 12

        Item {
            id: spoke

            required property int index

            anchors.fill: parent
            rotation: index * 30
            opacity: 0.2 + 0.8 * index / 11

            Rectangle {
                anchors.horizontalCenter: parent.horizontalCenter
                width: parent.width * 0.08
                height: parent.height * 0.27
                radius: width / 2
                color: "white"
                antialiasing: true
            }
        }
    }
    RotationAnimator on rotation {
        from: 0
        to: 360
        duration: 1000
        loops: Animation.Infinite
        running: indicator.visible
    }
}
